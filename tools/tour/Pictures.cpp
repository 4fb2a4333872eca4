#include "Pictures.h"

#include "TourWorld.h"
#include "data/ActivityMode.h"
#include "data/ActivityPersister.h"
#include "data/AppProperties.h"
#include "desk/Posture.h"
#include "desk/ZelvoController.h"
#include "platform/NotificationCenter.h"
#include "screens/HistoryWindowController.h"
#include "screens/WizardWindowController.h"
#include "shell/Notification.h"

#include <QApplication>
#include <QDir>
#include <QTest>
#include <QTextStream>

#include <memory>

namespace {
constexpr double kDay = 86400;

/// Pictures of one program in one language.
class Photographer {
public:
    Photographer(const QString& folder, const QString& suffix, const QLocale& locale)
        : m_folder(folder)
        , m_suffix(suffix)
        , m_locale(locale)
    {
        QDir().mkpath(folder);
    }

    void take(const QString& windowName, const QString& picture)
    {
        QWidget* window = TourWorld::window(windowName);
        if (!window) {
            QTextStream(stderr) << "There is no " << windowName << " to be photographed.\n";
            m_failed = true;
            return;
        }
        for (const int scale : {1, 2}) {
            QPixmap pixmap(window->size() * scale);
            pixmap.setDevicePixelRatio(scale);
            pixmap.fill(Qt::transparent);
            window->render(&pixmap);
            pixmap.setDevicePixelRatio(1);
            const QString name = picture + m_suffix + (scale == 2 ? QStringLiteral("@2x") : QString());
            m_failed = !pixmap.save(m_folder.filePath(name + QStringLiteral(".png"))) || m_failed;
        }
    }

    /// The locale in which the program is to be photographed.
    [[nodiscard]] const QLocale& locale() const { return m_locale; }
    [[nodiscard]] bool failed() const { return m_failed; }

private:
    QDir m_folder;
    QString m_suffix;
    QLocale m_locale;
    bool m_failed = false;
};

void completeSetup(int mode)
{
    AppProperties& properties = AppProperties::instance();
    properties.setWeight(80);
    properties.setActivityMode(mode);
    properties.setActivityGoal(mode == kTimeGoal ? 15 : 150);
    properties.setNumberOfStandUps(2);
}

/// Ten weeks of ordinary working days before now.
void fillHistory(TourWorld& world)
{
    ActivityPersister persister(world.app->managedObjectContext());
    const Date today = Date::now().dateAtStartOfDay();
    for (int day = 70; day >= 0; --day) {
        const Date start = today.dateBySubtractingDays(day);
        if (start.isTypicallyWeekend())
            continue;
        const int periods = day == 0 ? 0 : 12;
        for (int i = 0; i < periods; ++i) {
            const Date from = start.dateByAddingMinutes(8 * 60 + i * 40);
            persister.createWithStartDate(from, from.dateByAddingMinutes(26 + day % 4), false, 80);
            persister.createWithStartDate(
                from.dateByAddingMinutes(26 + day % 4), from.dateByAddingMinutes(38 - day % 3), true, 80);
        }
    }
}

/// Errors of every kind at once, more than the window has room for.
void postManyErrors()
{
    QMap<QString, QString> errors;
    for (int code = 1; code <= 12; ++code)
        errors.insert(QStringLiteral("E%1").arg(code, 2, 10, QLatin1Char('0')), qtTrId("PositionLostError"));
    NotificationCenter::defaultCenter().post(ZelvoHIDDevice::kErrorCode, {}, errors);
}

/// The mark of the keyboard focus, as Tab brings it.
void focusByTab(const QString& windowName, const QString& control)
{
    QApplication::setActiveWindow(TourWorld::window(windowName));
    TourWorld::control(windowName, control)->setFocus(Qt::TabFocusReason);
}

/// A reminder with the first of its headlines, which are drawn by lot: pictures are to be comparable.
std::shared_ptr<Notification> reminder(int position)
{
    const QString& headline = position == kSitting ? Notification::messagesStanding().first()
                                                   : Notification::messagesSitting().first();
    std::shared_ptr<Notification> notification;
    do
        notification = std::make_shared<Notification>(position);
    while (notification->title() != headline);
    return notification;
}

void hover(QWidget* control)
{
    QEnterEvent event(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
    QApplication::sendEvent(control, &event);
}

void moveDeskTo(TourWorld& world, int32_t height)
{
    const auto& device = AppProperties::instance().zelvoController()->device();
    device->moveToPosition(height);
    world.pass(20);
    device->stop();
}

void takeFirstRun(Photographer& photographer)
{
    TourWorld world(photographer.locale(), TourWorld::Wire::Silent);
    world.simulated.unplug();
    world.app->applicationDidFinishLaunching();
    world.pass(2);
    photographer.take(QStringLiteral("WizardWindow"), QStringLiteral("wizard-no-desk"));
    world.simulated.plug();
    world.pass(2);
    photographer.take(QStringLiteral("WizardWindow"), QStringLiteral("wizard"));
}

void takeSettings(Photographer& photographer, int mode, const QString& name)
{
    TourWorld world(photographer.locale(), TourWorld::Wire::Silent);
    completeSetup(mode);
    world.app->applicationDidFinishLaunching();
    world.pass(2);
    world.app->menuSettingsClicked();
    world.pass(1);
    photographer.take(QStringLiteral("WizardWindow"), name);
    if (mode == kCalorieGoal)
        return;
    QTest::mouseClick(
        TourWorld::control(QStringLiteral("WizardWindow"), QStringLiteral("buttonMemory2")), Qt::LeftButton);
    world.pass(1);
    photographer.take(QStringLiteral("WizardWindow"), QStringLiteral("memory-editor"));
}

void takeMainWindow(Photographer& photographer, int mode, const QString& name)
{
    TourWorld world(photographer.locale(), TourWorld::Wire::Silent);
    completeSetup(mode);
    world.app->applicationDidFinishLaunching();
    world.pass(15 * 60);
    moveDeskTo(world, AppProperties::instance().devicePosition2());
    world.pass(36 * 60);
    moveDeskTo(world, AppProperties::instance().devicePosition1());
    world.pass(8 * 60);
    world.app->menuletController().menuletClicked();
    world.pass(1);
    const QString window = QStringLiteral("MainWindow");
    photographer.take(window, name);
    if (mode == kCalorieGoal)
        return;
    hover(TourWorld::control(window, QStringLiteral("buttonMemory2")));
    hover(TourWorld::control(window, QStringLiteral("buttonHistory")));
    photographer.take(window, QStringLiteral("main-window-hover"));
    world.simulated.desk().setError(DeskModel::ErrorKind::OverloadUp, true);
    (void)world.simulated.desk().addErrorCode(12);
    world.pass(2);
    photographer.take(window, QStringLiteral("main-window-error"));
    postManyErrors();
    world.pass(0);
    photographer.take(window, QStringLiteral("main-window-many-errors"));
    world.app->menuletController().mainWindowButtonCloseClicked();
    world.app->menuletController().showNotification(reminder(kStanding));
    world.pass(1);
    photographer.take(QStringLiteral("NotificationWindow"), QStringLiteral("reminder-error"));
}

void takeFocusMarks(Photographer& photographer)
{
    TourWorld world(photographer.locale(), TourWorld::Wire::Silent);
    completeSetup(kTimeGoal);
    world.app->applicationDidFinishLaunching();
    world.pass(2);
    world.app->menuletController().menuletClicked();
    for (const char* control : {"buttonUp", "buttonMemory2", "buttonClose"}) {
        focusByTab(QStringLiteral("MainWindow"), QString::fromLatin1(control));
        photographer.take(QStringLiteral("MainWindow"),
            QStringLiteral("main-window-focus-") + QString::fromLatin1(control));
    }
    world.app->showHistory();
    focusByTab(QStringLiteral("HistoryWindow"), QStringLiteral("exportToExcelLabel"));
    photographer.take(QStringLiteral("HistoryWindow"), QStringLiteral("history-focus"));
}

void takeTestWindow(Photographer& photographer)
{
    TourWorld world(photographer.locale(), TourWorld::Wire::Silent);
    completeSetup(kTimeGoal);
    world.app->applicationDidFinishLaunching();
    world.app->showTestWindow();
    world.pass(2);
    photographer.take(QStringLiteral("TestWindow"), QStringLiteral("test-window"));
}

void takeMainWindowWithoutDesk(Photographer& photographer)
{
    TourWorld world(photographer.locale(), TourWorld::Wire::Silent);
    completeSetup(kTimeGoal);
    world.simulated.unplug();
    world.app->applicationDidFinishLaunching();
    world.app->menuletController().menuletClicked();
    world.pass(2);
    photographer.take(QStringLiteral("MainWindow"), QStringLiteral("main-window-no-desk"));
}

void takeReminders(Photographer& photographer)
{
    TourWorld world(photographer.locale(), TourWorld::Wire::Silent);
    completeSetup(kCalorieGoal);
    world.app->applicationDidFinishLaunching();
    world.pass(2);
    const std::pair<int, const char*> kReminders[] = {
        {kStanding, "reminder-stand"}, {kSitting, "reminder-sit"}};
    for (const auto& [position, name] : kReminders) {
        world.app->menuletController().showNotification(reminder(position));
        world.pass(1);
        photographer.take(QStringLiteral("NotificationWindow"), QString::fromLatin1(name));
    }
}

void takeHistory(Photographer& photographer)
{
    TourWorld world(photographer.locale(), TourWorld::Wire::Silent);
    completeSetup(kTimeGoal);
    world.pass(9 * kDay); // The middle of a week, a month and a quarter.
    world.app->applicationDidFinishLaunching();
    fillHistory(world);
    world.pass(1);
    world.app->showHistory();
    const QString window = QStringLiteral("HistoryWindow");
    photographer.take(window, QStringLiteral("history-week"));
    QTest::mouseClick(TourWorld::control(window, QStringLiteral("buttonMonth")), Qt::LeftButton);
    photographer.take(window, QStringLiteral("history-month"));
    QTest::mouseClick(TourWorld::control(window, QStringLiteral("buttonYear")), Qt::LeftButton);
    photographer.take(window, QStringLiteral("history"));
}

}

bool makePictures(const QString& folder, const QString& suffix, const QLocale& locale)
{
    Photographer photographer(folder, suffix, locale);
    takeFirstRun(photographer);
    takeSettings(photographer, kTimeGoal, QStringLiteral("settings-time"));
    takeSettings(photographer, kCalorieGoal, QStringLiteral("settings-calories"));
    takeMainWindow(photographer, kTimeGoal, QStringLiteral("main-window"));
    takeMainWindow(photographer, kCalorieGoal, QStringLiteral("main-window-calories"));
    takeMainWindowWithoutDesk(photographer);
    takeFocusMarks(photographer);
    takeTestWindow(photographer);
    takeReminders(photographer);
    takeHistory(photographer);
    return !photographer.failed();
}
