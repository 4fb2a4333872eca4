#include "Tour.h"

#include "data/ActivityPersister.h"
#include "data/AppProperties.h"
#include "desk/ZelvoController.h"
#include "simulator/DeskModel.h"

#include <QAbstractButton>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

namespace {
constexpr double kMinute = 60;
constexpr int kLongestMoveSteps = 150; // Of 0.2 s: the whole way takes 18 s.
constexpr double kFade = 0.5;

ZelvoController& hub()
{
    return *AppProperties::instance().zelvoController();
}
}

Tour::Tour(TourWorld& world, Narrator& narrator)
    : m_world(world)
    , m_narrator(narrator)
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
    chapter(QStringLiteral("First start"));
    say(QStringLiteral(
        "The program is started for the first time; a desk stands at 90 mm above its lowest position."));
    m_world.app->applicationDidFinishLaunching();
    m_world.pass(2);
    check(TourWorld::window(QStringLiteral("WizardWindow")), QStringLiteral("the wizard is shown"));
    check(!m_world.app->statusMenuOpen()->isEnabled() && m_world.app->statusMenuQuit()->isEnabled(),
        QStringLiteral("the menu offers Settings and Exit, not Open"));
    check(hub().isActive(), QStringLiteral("the desk is adopted and tells its height"));
    check(!hub().activity(), QStringLiteral("nothing is recorded before set-up"));
}

void Tour::completeTheWizard()
{
    chapter(QStringLiteral("The wizard, by mouse and keyboard"));
    say(QStringLiteral(
        "Time is chosen as the goal, the numbers are typed, Done is pressed with the space bar."));
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
        QStringLiteral("the goal is 15 standing minutes an hour"));
    check(properties.weight() == 80 && properties.numberOfStandUps() == 2,
        QStringLiteral("80 kg, two stand-ups"));
    check(properties.tablePositionOffset() == 7100 - height(),
        QStringLiteral("71 cm is where the desk stands now"));
    check(!TourWorld::window(QStringLiteral("WizardWindow")), QStringLiteral("the wizard has closed"));
    check(hub().activity() && !hub().activity()->isStanding(), QStringLiteral("a sitting period is open"));
}

void Tour::moveByHand()
{
    chapter(QStringLiteral("Moving the desk from the main window"));
    say(QStringLiteral(
        "Up is held for two seconds with the mouse, then Down for one second with the space bar."));
    m_world.app->menuletController().menuletClicked();
    m_world.pass(1);
    check(TourWorld::window(QStringLiteral("MainWindow")),
        QStringLiteral("a click on the icon opens the main window"));
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
    check(!TourWorld::window(QStringLiteral("MainWindow")), QStringLiteral("Close closes it"));
}

void Tour::answerTheReminder()
{
    chapter(QStringLiteral("A reminder to stand up, answered"));
    say(QStringLiteral(
        "Nobody does anything until the sitting time is over; then the reminder's memory button is held."));
    m_world.pass(hub().scheduleManager()->timeToSchedule());
    m_world.pass(kFade);
    check(TourWorld::window(QStringLiteral("NotificationWindow")),
        QStringLiteral("the reminder is there: \"%1\"").arg(shownText("NotificationWindow", "labelTitle")));
    QWidget* memory = find("NotificationWindow", "buttonMemory");
    press(memory);
    const int goal = AppProperties::instance().devicePosition2();
    for (int step = 0; step < kLongestMoveSteps && height() != goal; ++step)
        m_world.pass(0.2);
    release(memory);
    check(height() == goal,
        QStringLiteral("held, its button drove the desk to the standing memory, %1 mm").arg(goal / 10.0));
    check(hub().activity() && hub().activity()->isStanding(), QStringLiteral("a standing period is open"));
    m_world.pass(21);
    check(!TourWorld::window(QStringLiteral("NotificationWindow")),
        QStringLiteral("the reminder has left by itself"));
}

void Tour::ignoreAndSkip()
{
    chapter(QStringLiteral("A reminder to sit down, ignored, then skipped"));
    say(QStringLiteral(
        "The standing time passes. The first reminder is left alone, the second one is skipped."));
    m_world.pass(hub().scheduleManager()->timeToSchedule());
    m_world.pass(kFade);
    check(TourWorld::window(QStringLiteral("NotificationWindow")),
        QStringLiteral("the reminder is there: \"%1\"").arg(shownText("NotificationWindow", "labelTitle")));
    m_world.pass(20.5);
    check(!TourWorld::window(QStringLiteral("NotificationWindow")),
        QStringLiteral("ignored, it goes after 20 s"));
    check(hub().scheduleManager()->currentScheduleInterval() == 600,
        QStringLiteral("and comes again in 10 minutes"));
    m_world.pass(hub().scheduleManager()->timeToSchedule());
    m_world.pass(kFade);
    click("NotificationWindow", "buttonCancel");
    m_world.pass(kFade);
    check(hub().scheduleManager()->currentScheduleInterval() == 1800,
        QStringLiteral("skipped, the next one is a full cycle away"));
}

void Tour::lunch()
{
    chapter(QStringLiteral("Lunch, away from the computer for 45 minutes"));
    say(QStringLiteral("Keyboard and mouse rest."));
    m_world.events.leave();
    m_world.pass(310);
    check(!hub().activity(), QStringLiteral("after five idle minutes the period is closed"));
    m_world.pass(40 * kMinute - 10);
    m_world.events.comeBack();
    m_world.pass(10);
    check(hub().activity() != nullptr, QStringLiteral("back at work, a new one is open"));
}

void Tour::pullThePlug()
{
    chapter(QStringLiteral("The plug is pulled and put back"));
    say(QStringLiteral(
        "Five minutes later somebody trips over the cable, and puts it back after half a minute."));
    m_world.pass(5 * kMinute);
    m_world.simulated.unplug();
    m_world.pass(1);
    check(!hub().device() && !hub().activity(), QStringLiteral("without a desk nothing is recorded"));
    check(!m_world.app->menuletController().isDeviceConnected(), QStringLiteral("the icon shows it"));
    m_world.pass(30);
    m_world.simulated.plug();
    m_world.pass(2);
    check(hub().isActive() && hub().activity(), QStringLiteral("plugged in again, the record goes on"));
    check(m_world.app->menuletController().isDeviceConnected(), QStringLiteral("the icon shows it"));
}

void Tour::overload()
{
    chapter(QStringLiteral("The desk reports an overload"));
    say(QStringLiteral(
        "The main window is open; something blocks the desk on its way up, and is taken away."));
    m_world.app->menuletController().menuletClicked();
    m_world.simulated.desk().setError(DeskModel::ErrorKind::OverloadUp, true);
    m_world.pass(2);
    const QWidget* error = find("MainWindow", "labelErrorText");
    check(error && error->isVisible()
            && shownText("MainWindow", "labelErrorText").contains(QStringLiteral("E02")),
        QStringLiteral("the main window names the error E02"));
    m_world.simulated.desk().clearErrors();
    m_world.pass(10);
    check(error && error->isVisible(), QStringLiteral("ten seconds after the recovery it can still be read"));
    m_world.pass(7);
    check(error && !error->isVisible(), QStringLiteral("fifteen seconds after it, the line is gone"));
    click("MainWindow", "buttonClose");
}

void Tour::sleepAndWake()
{
    chapter(QStringLiteral("The machine sleeps for ten minutes"));
    say(QStringLiteral(
        "The screens go dark, the machine sleeps and wakes; then the user is away for five minutes more."));
    m_world.workspace.screensSleep();
    m_world.observe();
    m_world.pass(5);
    m_world.workspace.willSleep();
    m_world.observe();
    check(!hub().activity(), QStringLiteral("falling asleep closes the period"));
    m_world.runLoop.sleepMachine(10 * kMinute);
    m_world.workspace.wake();
    m_world.events.leave();
    m_world.pass(310);
    m_world.events.comeBack();
    m_world.pass(10);
    check(hub().activity() != nullptr, QStringLiteral("the first input after an absence opens the next one"));
}

void Tour::lookBack()
{
    chapter(QStringLiteral("History and export"));
    say(QStringLiteral("The history is opened from the tray's menu, and the summary is exported."));
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
        QStringLiteral("today's standing minutes and stand-ups are those of the store"));
    click("HistoryWindow", "exportToExcelLabel");
    QFile file(m_world.dialogs.savedPath);
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
    chapter(QStringLiteral("Quitting"));
    say(QStringLiteral("Exit is chosen in the tray's menu."));
    m_world.pass(7);
    m_world.app->terminate();
    m_world.observe();
    check(m_world.hasQuit, QStringLiteral("the program ends"));
    m_world.wire.flush();

    const QString path = m_world.app->applicationFilesDirectory() + QStringLiteral("/StandUp.storedata");
    const std::vector<Period> stored = readStore(path);
    say(QStringLiteral("The store, read through another connection:"));
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

bool Tour::check(bool holds, const QString& what)
{
    m_world.wire.flush();
    printClosedPeriods();
    return m_narrator.check(holds, what);
}

void Tour::chapter(const QString& title)
{
    m_world.wire.flush();
    printClosedPeriods();
    m_narrator.chapter(title);
}

void Tour::say(const QString& text)
{
    m_world.wire.flush();
    m_narrator.say(text);
}

void Tour::printClosedPeriods()
{
    const auto& periods = m_world.ledger.periods();
    for (; m_printedPeriods < m_world.ledger.closedPeriods(); ++m_printedPeriods)
        m_narrator.say(QStringLiteral("     recorded: %1").arg(periods[m_printedPeriods].text()));
}
