#include "Tour.h"

#include "TimeOfDay.h"
#include "data/ActivityPersister.h"
#include "data/AppProperties.h"
#include "desk/ZelvoController.h"
#include "simulator/DeskModel.h"

#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTextStream>

namespace {
constexpr double kMinute = 60;
constexpr int kLongestMoveSteps = 150; // Of 0.2 s: the whole way takes 18 s.
constexpr double kFade = 0.5;

void print(const QString& line)
{
    QTextStream(stdout) << line << Qt::endl;
}

ZelvoController& hub()
{
    return *AppProperties::instance().zelvoController();
}
}

Tour::Tour(TourWorld& world)
    : m_world(world)
{
}

void Tour::run()
{
    firstStart();
    completeTheWizard();
    moveByHand();
    answerTheReminder();
    ignoreAndSkip();
    lunch();
    pullThePlug();
    overload();
    sleepAndWake();
    lookBack();
    quit();
}

void Tour::firstStart()
{
    chapter("First start");
    say("The program is started for the first time; a desk stands at 90 mm above its lowest position.");
    m_world.app->applicationDidFinishLaunching();
    m_world.pass(2);
    check(TourWorld::window("WizardWindow"), "the wizard is shown");
    check(!m_world.app->statusMenuOpen()->isEnabled() && m_world.app->statusMenuQuit()->isEnabled(),
        "the menu offers Settings and Quit, not Open");
    check(hub().isActive(), "the desk is adopted and tells its height");
    check(!hub().activity(), "nothing is recorded before set-up");
}

void Tour::completeTheWizard()
{
    chapter("The wizard, by mouse and keyboard");
    say("Time is chosen as the goal, the numbers are typed, Done is pressed with the space bar.");
    click("WizardWindow", "labelTime");
    click("WizardWindow", "goalIndicator2");
    typeInto("WizardWindow", "textFieldWeight", "80");
    typeInto("WizardWindow", "textFieldStandUpNumber", "2");
    typeInto("WizardWindow", "textFieldTableHeight", "71");
    if (QWidget* done = find("WizardWindow", "buttonDone"))
        QTest::keyClick(done, Qt::Key_Space);
    m_world.observe();
    AppProperties& properties = AppProperties::instance();
    check(properties.isUserSetupCompleted() && properties.activityMode() == 2
            && properties.activityGoal() == 15,
        "the goal is 15 standing minutes an hour");
    check(properties.weight() == 80 && properties.numberOfStandUps() == 2, "80 kg, two stand-ups");
    check(properties.tablePositionOffset() == 7100 - height(), "71 cm is where the desk stands now");
    check(!TourWorld::window("WizardWindow"), "the wizard has closed");
    check(hub().activity() && !hub().activity()->isStanding(), "a sitting period is open");
}

void Tour::moveByHand()
{
    chapter("Moving the desk from the main window");
    say("Up is held for two seconds with the mouse, then Down for one second with the space bar.");
    m_world.app->menuletController().menuletClicked();
    m_world.pass(1);
    check(TourWorld::window("MainWindow"), "a click on the icon opens the main window");
    const int before = height();
    QWidget* up = find("MainWindow", "buttonUp");
    press(up);
    m_world.pass(2);
    release(up);
    m_world.pass(2);
    check(height() > before + 300,
        QStringLiteral("two seconds of Up moved the desk to %1 mm").arg(height() / 10.0));
    QWidget* down = find("MainWindow", "buttonDown");
    if (down) {
        down->setFocus(Qt::TabFocusReason);
        QTest::keyPress(down, Qt::Key_Space);
        m_world.pass(1);
        QTest::keyRelease(down, Qt::Key_Space);
    }
    m_world.pass(2);
    const int after = height();
    m_world.pass(5);
    check(height() == after, QStringLiteral("released, the desk stands still at %1 mm").arg(after / 10.0));
    click("MainWindow", "buttonClose");
    check(!TourWorld::window("MainWindow"), "Close closes it");
}

void Tour::answerTheReminder()
{
    chapter("A reminder to stand up, answered");
    say("Nobody does anything until the sitting time is over; then the reminder's memory button is held.");
    m_world.pass(hub().scheduleManager()->timeToSchedule());
    m_world.pass(kFade);
    check(TourWorld::window("NotificationWindow"),
        QStringLiteral("the reminder is there: \"%1\"").arg(shownText("NotificationWindow", "labelTitle")));
    QWidget* memory = find("NotificationWindow", "buttonMemory");
    press(memory);
    const int goal = AppProperties::instance().devicePosition2();
    for (int step = 0; step < kLongestMoveSteps && height() != goal; ++step)
        m_world.pass(0.2);
    release(memory);
    check(height() == goal,
        QStringLiteral("held, its button drove the desk to the standing memory, %1 mm").arg(goal / 10.0));
    check(hub().activity() && hub().activity()->isStanding(), "a standing period is open");
    m_world.pass(21);
    check(!TourWorld::window("NotificationWindow"), "the reminder has left by itself");
}

void Tour::ignoreAndSkip()
{
    chapter("A reminder to sit down, ignored, then skipped");
    say("The standing time passes. The first reminder is left alone, the second one is skipped.");
    m_world.pass(hub().scheduleManager()->timeToSchedule());
    m_world.pass(kFade);
    check(TourWorld::window("NotificationWindow"),
        QStringLiteral("the reminder is there: \"%1\"").arg(shownText("NotificationWindow", "labelTitle")));
    m_world.pass(20.5);
    check(!TourWorld::window("NotificationWindow"), "ignored, it goes after 20 s");
    check(hub().scheduleManager()->currentScheduleInterval() == 600, "and comes again in 10 minutes");
    m_world.pass(hub().scheduleManager()->timeToSchedule());
    m_world.pass(kFade);
    click("NotificationWindow", "buttonCancel");
    m_world.pass(kFade);
    check(hub().scheduleManager()->currentScheduleInterval() == 1800,
        "skipped, the next one is a full cycle away");
}

void Tour::lunch()
{
    chapter("Lunch, away from the computer for 45 minutes");
    say("Keyboard and mouse rest.");
    m_world.user->leave();
    m_world.pass(310);
    check(!hub().activity(), "after five idle minutes the period is closed");
    m_world.pass(40 * kMinute - 10);
    m_world.user->comeBack();
    m_world.pass(10);
    check(hub().activity() != nullptr, "back at work, a new one is open");
}

void Tour::pullThePlug()
{
    chapter("The plug is pulled and put back");
    say("Five minutes later somebody trips over the cable, and puts it back after half a minute.");
    m_world.pass(5 * kMinute);
    m_world.hid.unplug();
    m_world.pass(1);
    check(!hub().device() && !hub().activity(), "without a desk nothing is recorded");
    check(!m_world.app->menuletController().isDeviceConnected(), "the icon shows it");
    m_world.pass(30);
    m_world.hid.plug();
    m_world.pass(2);
    check(hub().isActive() && hub().activity(), "plugged in again, the record goes on");
    check(m_world.app->menuletController().isDeviceConnected(), "the icon shows it");
}

void Tour::overload()
{
    chapter("The desk reports an overload");
    say("The main window is open; something blocks the desk on its way up, and is taken away.");
    m_world.app->menuletController().menuletClicked();
    m_world.hid.desk().setError(DeskModel::ErrorKind::OverloadUp, true);
    m_world.pass(2);
    const QWidget* error = find("MainWindow", "labelErrorText");
    check(error && error->isVisible() && shownText("MainWindow", "labelErrorText").contains("E02"),
        "the main window names the error E02");
    m_world.hid.desk().clearErrors();
    m_world.pass(10);
    check(error && error->isVisible(), "ten seconds after the recovery it can still be read");
    m_world.pass(7);
    check(error && !error->isVisible(), "fifteen seconds after it, the line is gone");
    click("MainWindow", "buttonClose");
}

void Tour::sleepAndWake()
{
    chapter("The machine sleeps for ten minutes");
    say("The screens go dark, the machine sleeps and wakes; then the user is away for five minutes more.");
    m_world.workspace.screensSleep();
    m_world.observe();
    m_world.pass(5);
    m_world.workspace.willSleep();
    m_world.observe();
    check(!hub().activity(), "falling asleep closes the period");
    m_world.runLoop.sleepMachine(10 * kMinute);
    m_world.workspace.wake();
    m_world.user->leave();
    m_world.pass(310);
    m_world.user->comeBack();
    m_world.pass(10);
    check(hub().activity() != nullptr, "the first input after an absence opens the next one");
}

void Tour::lookBack()
{
    chapter("History and export");
    say("The history is opened from the tray's menu, and the summary is exported.");
    const Date now = Date::now(); // The window's totals end where it is opened.
    m_world.app->menuHistoryClicked();
    m_world.pass(1);
    click("HistoryWindow", "buttonDay");
    ActivityPersister persister(m_world.app->managedObjectContext());
    const Date start = Date::dateFromComponents(2013, 1, 1);
    say(QStringLiteral("Standing %1 min, burned %2 kcal, stood up %3 times, met the goal on %4 days")
            .arg(shownText("HistoryWindow", "historyHeadTitle1"),
                shownText("HistoryWindow", "historyHeadTitle2"),
                shownText("HistoryWindow", "historyHeadTitle3"),
                shownText("HistoryWindow", "historyHeadTitle4")));
    const Date today = now.dateAtStartOfDay();
    const auto stands = persister.activitiesFromDate(today, now, true);
    check(shownText("HistoryWindow", "historyHeadTitle1").toInt()
                == int(persister.minutesActiveFromDate(today, now, true))
            && stands && shownText("HistoryWindow", "historyHeadTitle3").toInt() == int(stands->size()),
        "today's standing minutes and stand-ups are those of the store");
    QFile file(m_world.folder.filePath("summary.csv"));
    m_world.dialogs.savePanelAnswer = file.fileName();
    click("HistoryWindow", "exportToExcelLabel");
    const bool opened = file.open(QIODevice::ReadOnly);
    const QString exported = QString::fromUtf8(file.readAll());
    const QString expected =
        QStringLiteral("Standing Minutes;Calories burned;Standing session count;Goals met;\n%1; %2; %3; %4; ")
            .arg(QString::number(persister.minutesActiveFromDate(start, now, true), 'f', 2),
                QString::number(persister.caloriesBurnedFromDate(start, now), 'f', 2))
            .arg(persister.activitiesFromDate(start, now, true)->size())
            .arg(persister.goalsMetFromDay(start, now));
    check(opened && exported == expected,
        QStringLiteral("the exported file: %1").arg(exported.section(u'\n', 1)));
    click("HistoryWindow", "buttonClose");
}

void Tour::quit()
{
    chapter("Quitting");
    say("Quit is chosen in the tray's menu.");
    m_world.pass(7);
    m_world.app->terminate();
    m_world.observe();
    check(m_world.hasQuit, "the program ends");
    m_world.wire.flush();

    const QString path = m_world.app->applicationFilesDirectory() + "/StandUp.storedata";
    const std::vector<Period> stored = readStore(path);
    say("The store, read through another connection:");
    for (const Period& period : stored)
        say(QStringLiteral("  %1").arg(period.text()));
    check(stored == m_world.ledger.periods(),
        QStringLiteral("%1 stored periods are exactly those seen in the course of the morning")
            .arg(stored.size()));
    say(QStringLiteral("%1 reports written, %2 read").arg(m_world.wire.writes()).arg(m_world.wire.reads()));
}

void Tour::click(const char* window, const char* control)
{
    if (QWidget* widget = find(window, control))
        QTest::mouseClick(widget, Qt::LeftButton);
    m_world.pass(0);
}

void Tour::typeInto(const char* window, const char* field, const char* text)
{
    auto* entry = qobject_cast<QLineEdit*>(find(window, field));
    if (!entry)
        return;
    QTest::mouseClick(entry, Qt::LeftButton);
    entry->selectAll();
    QTest::keyClicks(entry, QString::fromLatin1(text));
}

void Tour::press(QWidget* control)
{
    if (control)
        QTest::mousePress(control, Qt::LeftButton);
}

void Tour::release(QWidget* control)
{
    if (control)
        QTest::mouseRelease(control, Qt::LeftButton);
    m_world.observe();
}

QWidget* Tour::find(const char* window, const char* control)
{
    QWidget* widget = TourWorld::control(QString::fromLatin1(window), QString::fromLatin1(control));
    if (!widget)
        check(false,
            QStringLiteral("there is a %1 in a shown %2")
                .arg(QString::fromLatin1(control), QString::fromLatin1(window)));
    return widget;
}

QString Tour::shownText(const char* window, const char* label)
{
    const auto* text = qobject_cast<QLabel*>(find(window, label));
    return text ? text->text() : QString();
}

int Tour::height() const
{
    return hub().device() ? hub().device()->position() : -1;
}

void Tour::chapter(const QString& title)
{
    catchUp();
    print(QStringLiteral("\n%1  == %2 ==").arg(timeOfDay(m_world.runLoop.now()), title));
}

void Tour::say(const QString& text)
{
    m_world.wire.flush();
    print(timeOfDay(m_world.runLoop.now()) + "  " + text);
}

bool Tour::check(bool holds, const QString& what)
{
    catchUp();
    ++m_checks;
    m_failures += holds ? 0 : 1;
    say((holds ? "[ok] " : "[FAILED] ") + what);
    return holds;
}

/// Prints what has happened on the wire and in the record so far.
void Tour::catchUp()
{
    m_world.wire.flush();
    const auto& periods = m_world.ledger.periods();
    for (; m_printedPeriods < m_world.ledger.closedPeriods(); ++m_printedPeriods)
        say("     recorded: " + periods[m_printedPeriods].text());
}
