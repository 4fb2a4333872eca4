#include "Pictures.h"

#include "Contrast.h"
#include "TourWorld.h"
#include "data/ActivityMode.h"
#include "data/ActivityPersister.h"
#include "data/AppProperties.h"
#include "desk/AdoptedDesk.h"
#include "desk/Posture.h"
#include "desk/ZelvoController.h"
#include "screens/HistoryWindowController.h"
#include "screens/WizardWindowController.h"
#include "shell/Notification.h"
#include "shell/StatusIcon.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPainter>
#include <QTest>
#include <QTextStream>

#include <cerrno>
#include <memory>
#include <utility>

namespace {
constexpr int kNotSetUp = 0;
constexpr double kDay = 86400;

void completeSetup(int mode)
{
    AppProperties& properties = AppProperties::instance();
    properties.setWeight(80);
    properties.setActivityMode(mode);
    properties.setActivityGoal(mode == kTimeGoal ? 15 : 150);
    properties.setNumberOfStandUps(2);
}

/// Pictures of one program in one language after the other.
class Photographer {
public:
    Photographer(const QString& folder, QString suffix, const QLocale& locale, Appearance::Choice appearance,
        std::vector<double> scales)
        : m_folder(folder)
        , m_suffix(std::move(suffix))
        , m_locale(locale)
        , m_appearance(appearance)
        , m_scales(std::move(scales))
    {
        QDir().mkpath(folder);
    }

    /// A program in another world, which has not started yet.
    TourWorld& prepare(int mode)
    {
        m_world.reset();
        m_world = std::make_unique<TourWorld>(m_locale, TourWorld::Wire::Silent);
        AppProperties::instance().setAppearance(m_appearance);
        if (mode != kNotSetUp)
            completeSetup(mode);
        return *m_world;
    }
    /// One that has run for a moment.
    TourWorld& start(int mode)
    {
        prepare(mode).app->applicationDidFinishLaunching();
        m_world->pass(2);
        return *m_world;
    }

    void take(const QString& windowName, const QString& picture)
    {
        QWidget* window = TourWorld::window(windowName);
        if (!window) {
            QTextStream(stderr) << "There is no " << windowName << " to be photographed.\n";
            m_failed = true;
            return;
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        m_contrasts += measuredContrasts(*window, picture);
        for (const double scale : m_scales) {
            QPixmap pixmap(window->size() * scale);
            pixmap.setDevicePixelRatio(scale);
            pixmap.fill(Qt::transparent);
            window->render(&pixmap);
            pixmap.setDevicePixelRatio(1);
            const QString name =
                picture + m_suffix + (scale == 1 ? QString() : QStringLiteral("@%1x").arg(scale)) + ".png";
            m_failed = !pixmap.save(m_folder.filePath(name)) || m_failed;
        }
    }
    void writeContrasts()
    {
        QFile file(m_folder.filePath(QStringLiteral("contrasts%1.txt").arg(m_suffix)));
        m_failed = !file.open(QIODevice::WriteOnly) || file.write(m_contrasts.toUtf8()) < 0 || m_failed;
    }
    [[nodiscard]] bool failed() const { return m_failed; }

private:
    QDir m_folder;
    QString m_suffix;
    QString m_contrasts;
    QLocale m_locale;
    Appearance::Choice m_appearance;
    std::vector<double> m_scales;
    bool m_failed = false;
    std::unique_ptr<TourWorld> m_world;
};

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

/// As many errors as a desk can report at once, more than the window has room for.
void reportManyErrors(DeskModel& desk)
{
    using enum DeskModel::ErrorKind;
    for (const auto kind : {PositionLost, OverloadUp, OverloadDown})
        desk.setError(kind, true);
    for (const uint8_t code : std::initializer_list<uint8_t> {4, 5, 7, 12, 31, 123})
        (void)desk.addErrorCode(code);
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

/// The window with the mouse over that control, and over none again.
void takeUnderMouse(
    Photographer& photographer, const QString& window, const QString& control, const QString& name)
{
    QEnterEvent enter(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
    QApplication::sendEvent(TourWorld::control(window, control), &enter);
    photographer.take(window, name);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(TourWorld::control(window, control), &leave);
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
    TourWorld& world = photographer.prepare(kNotSetUp);
    world.hid.unplug();
    world.app->applicationDidFinishLaunching();
    world.pass(2);
    photographer.take("WizardWindow", "wizard-no-desk");
    world.hid.plug();
    world.pass(2);
    photographer.take("WizardWindow", "wizard");
}

void takeSettings(Photographer& photographer)
{
    for (const auto& [mode, name] :
        {std::pair(kCalorieGoal, "settings-calories"), {kTimeGoal, "settings-time"}}) {
        TourWorld& world = photographer.start(mode);
        world.app->menuSettingsClicked();
        world.pass(1);
        photographer.take("WizardWindow", name);
    }
    QTest::mouseClick(TourWorld::control("WizardWindow", "buttonMemory2"), Qt::LeftButton);
    photographer.take("WizardWindow", "memory-editor");
}

/// The main window of somebody who has stood already.
TourWorld& openMainWindow(Photographer& photographer, int mode)
{
    TourWorld& world = photographer.prepare(mode);
    world.app->applicationDidFinishLaunching();
    world.pass(15 * 60);
    moveDeskTo(world, AppProperties::instance().devicePosition2());
    world.pass(36 * 60);
    moveDeskTo(world, AppProperties::instance().devicePosition1());
    world.pass(8 * 60);
    world.app->menuletController().menuletClicked();
    world.pass(1);
    return world;
}

void takeMainWindow(Photographer& photographer)
{
    openMainWindow(photographer, kCalorieGoal);
    photographer.take("MainWindow", "main-window-calories");
    TourWorld& world = openMainWindow(photographer, kTimeGoal);
    photographer.take("MainWindow", "main-window");
    for (const QString control : {"buttonMemory2", "buttonHistory"})
        takeUnderMouse(photographer, "MainWindow", control, "main-window-hover-" + control);
    QTest::mouseClick(TourWorld::control("MainWindow", "buttonUp"), Qt::LeftButton);
    photographer.take("MainWindow", "main-window-hold");
    DeskModel& desk = world.hid.desk();
    reportManyErrors(desk);
    world.pass(2);
    photographer.take("MainWindow", "main-window-many-errors");
    desk.clearErrors();
    desk.setError(DeskModel::ErrorKind::OverloadUp, true);
    (void)desk.addErrorCode(12);
    world.pass(2);
    photographer.take("MainWindow", "main-window-error");
    world.app->menuletController().mainWindowButtonCloseClicked();
    world.app->menuletController().showNotification(reminder(kStanding));
    world.pass(1);
    photographer.take("NotificationWindow", "reminder-error");
    reportManyErrors(desk);
    world.pass(2);
    photographer.take("NotificationWindow", "reminder-many-errors");
}

/// One that the user has no permission for.
class ForbiddenAdapter final : public HidDevice {
public:
    [[nodiscard]] HidStatus openExclusively() override { return EACCES; }
    [[nodiscard]] std::optional<QString> stringProperty(const QString&) const override { return {}; }

protected:
    HidStatus platformSetFeatureReport(std::span<const uint8_t>) override { return EACCES; }
    HidStatus platformGetFeatureReport(std::span<uint8_t>) override { return EACCES; }
};

void takeMainWindowWithoutDesk(Photographer& photographer)
{
    TourWorld& world = photographer.prepare(kTimeGoal);
    world.hid.unplug();
    world.app->applicationDidFinishLaunching();
    world.app->menuletController().menuletClicked();
    world.pass(2);
    photographer.take("MainWindow", "main-window-no-desk");
    AdoptedDesk::hub()->deviceManager().handleMatchingDevice(
        std::make_shared<ForbiddenAdapter>(), world.hid, 0);
    world.pass(0);
    photographer.take("MainWindow", "main-window-no-permission");
}

void takeFocusMarks(Photographer& photographer)
{
    TourWorld& world = photographer.start(kTimeGoal);
    world.app->menuletController().menuletClicked();
    for (const QString control : {"buttonUp", "buttonMemory2", "buttonClose"}) {
        focusByTab("MainWindow", control);
        photographer.take("MainWindow", "main-window-focus-" + control);
    }
    world.app->showHistory();
    focusByTab("HistoryWindow", "exportToExcelLabel");
    photographer.take("HistoryWindow", "history-focus");
}

void takeTestWindow(Photographer& photographer)
{
    TourWorld& world = photographer.prepare(kTimeGoal);
    world.app->applicationDidFinishLaunching();
    world.app->showTestWindow();
    world.pass(2);
    photographer.take("TestWindow", "test-window");
}

void takeReminders(Photographer& photographer)
{
    TourWorld& world = photographer.start(kCalorieGoal);
    for (const auto& [position, name] :
        {std::pair(kStanding, "reminder-stand"), {kSitting, "reminder-sit"}}) {
        world.app->menuletController().showNotification(reminder(position));
        world.pass(1);
        photographer.take("NotificationWindow", name);
    }
}

void takeHistory(Photographer& photographer)
{
    TourWorld& world = photographer.prepare(kTimeGoal);
    world.pass(9 * kDay); // The middle of a week, a month and a quarter.
    world.app->applicationDidFinishLaunching();
    fillHistory(world);
    world.pass(1);
    world.app->showHistory();
    photographer.take("HistoryWindow", "history-week");
    for (const auto& [button, name] :
        {std::pair("buttonMonth", "history-month"), {"buttonYear", "history"}}) {
        QTest::mouseClick(TourWorld::control("HistoryWindow", button), Qt::LeftButton);
        photographer.take("HistoryWindow", name);
    }
}

/// The status item on a dark and on a light panel, and on both where it does not know which, in the sizes
/// that panels ask for. As it is above, three times enlarged below.
QImage trayIcons()
{
    constexpr int kEnlargement = 3;
    constexpr int kLargest = 32;
    constexpr int kStep = (kLargest + 2) * kEnlargement;
    const std::pair<PanelGround, QColor> kPanels[] = {{PanelGround::Dark, 0x26'2A'2D},
        {PanelGround::Light, 0xEF'F0'F1}, {PanelGround::Unknown, 0x2E'34'36},
        {PanelGround::Unknown, Qt::white}};
    const char* const kNames[] = {"StatusItemIcon", "StatusItemIconStanding", "StatusItemIconPaused",
        "StatusItemIconError", "StatusItemIconDisconnected"};
    const int kSizes[] = {16, 22, 24, kLargest};
    QImage sheet(kStep * int(std::size(kSizes) * std::size(kNames)),
        (kStep + kLargest) * int(std::size(kPanels)), QImage::Format_RGB32);
    QPainter painter(&sheet);
    QRect cell(0, 0, kStep, kStep + kLargest);
    for (const auto& [ground, color] : kPanels) {
        painter.fillRect(QRect(0, cell.y(), sheet.width(), cell.height()), color);
        for (const char* const name : kNames) {
            for (const int size : kSizes) {
                const QPixmap icon = statusIcon(name, ground).pixmap(size);
                painter.drawPixmap(cell.topLeft(), icon);
                painter.drawPixmap(
                    cell.topLeft() + QPoint(0, kLargest), icon.scaledToWidth(size * kEnlargement));
                cell.translate(kStep, 0);
            }
        }
        cell.moveTo(0, cell.bottom() + 1);
    }
    return sheet;
}
}

bool makePictures(const QString& folder, const QString& suffix, const QLocale& locale,
    Appearance::Choice appearance, const std::vector<double>& scales)
{
    Photographer photographer(folder, suffix, locale, appearance, scales);
    takeFirstRun(photographer);
    takeSettings(photographer);
    takeMainWindow(photographer);
    takeMainWindowWithoutDesk(photographer);
    takeFocusMarks(photographer);
    takeTestWindow(photographer);
    takeReminders(photographer);
    takeHistory(photographer);
    photographer.writeContrasts();
    // Neither language nor window changes them.
    const bool hasIcons = !suffix.isEmpty() || trayIcons().save(QDir(folder).filePath("tray-icons.png"));
    return hasIcons && !photographer.failed();
}
