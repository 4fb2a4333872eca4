#include "shell/NotificationWindowController.h"

#include "desk/Posture.h"
#include "shell/NotificationView.h"
#include "shell/WindowTest.h"

#include <QWindow>

namespace {
using NotificationWindowControllerTest = WindowTest;

bool isCut(const QLabel& label)
{
    return label.isVisible()
        && (label.wordWrap() ? label.heightForWidth(label.width()) > label.height()
                             : label.sizeHint().width() > label.width());
}
}

TEST_F(NotificationWindowControllerTest, theMemoryButtonFallsThroughToTheOtherMemory)
{
    // What is sent is a stop to begin with, then the height every 0.2 s.
    const std::tuple<int, const char*, Commands> kTestCases[] = {
        {kSitting, "DevicePosition2", {kStop, 700, 700}}, {kSitting, "DevicePosition1", {kStop, 4300, 4300}},
        {kStanding, "DevicePosition1", {kStop, 4300, 4300}}, {kStanding, "DevicePosition2", {}},
        {0, "", {kStop, 4300, 4300}}};
    for (const auto& [position, forgotten, sent] : kTestCases) {
        SCOPED_TRACE(testing::Message() << position << forgotten);
        beginAnew();
        startWithDesk();
        world->platform.defaults.values.remove(QString::fromLatin1(forgotten));
        QWidget& window = remind(position);
        QTest::mousePress(&in(window, "buttonMemory"), Qt::LeftButton);
        pass(0.5);
        EXPECT_EQ(commands(), sent);
        QTest::mouseRelease(&in(window, "buttonMemory"), Qt::LeftButton);
        EXPECT_EQ(commands(), Commands {kStop});
    }
}

TEST_F(NotificationWindowControllerTest, anAnsweredReminderWaitsForNothing)
{
    startWithDesk();
    set("TimeSnooze", 430);
    // Skipping goes on with 14 minutes of sitting and 6 of standing; an ignored reminder comes again.
    for (const auto& [place, interval] : {std::pair("buttonCancel", 1200), {"labelTitle", 430}}) {
        QWidget& window = remind(kStanding);
        auto& view = in<NotificationView>(window, "notificationView");
        view.mouseEntered({-9, 9}); // Not in it.
        EXPECT_FALSE(view.isMouseInside());
        view.mouseEntered({9, 9});
        remind(kStanding); // Anew, under it.
        view.mouseExited({9, 9}); // Onto a control.
        QApplication::setActiveWindow(&window);
        EXPECT_EQ(QApplication::focusWidget(), &window) << "a stray key must move nothing";
        QApplication::setActiveWindow(nullptr); // The pointer alone keeps it.
        pass(50);
        EXPECT_TRUE(view.isVisible());
        const QWidget& clicked = in(window, place);
        QTest::mouseClick(
            window.windowHandle(), Qt::LeftButton, {}, clicked.mapTo(&window, clicked.rect().center()));
        pass(0);
        view.mouseExited({-1, -1});
        pass(50);
        EXPECT_EQ(schedule().currentScheduleInterval(), interval);
        remind(kStanding);
        view.mouseEntered({9, 9});
        openMainWindow(); // The reminder goes under the pointer; the next one waits for its own.
        pass(1);
    }
    QWidget& window = remind(kStanding);
    in<NotificationView>(window, "notificationView").mouseEntered({9, 9});
    window.showMinimized();
    pass(50);
    EXPECT_FALSE(window.isVisible()) << "no pointer rests on it any more";
}

TEST_F(NotificationWindowControllerTest, theSameContentIsNotBegunAnewAndNoneEmptiesIt)
{
    start();
    QWidget& window = remind(kSitting);
    NotificationWindowController& reminder = menulet().notificationWindow();
    const TimerRef timer = reminder.dismissTimer();
    reminder.setNotification(reminder.notification());
    EXPECT_EQ(reminder.dismissTimer(), timer);
    window.move(5, 5);
    remind(kStanding);
    EXPECT_EQ(window.pos(), QPoint(5, 5)) << "where the user has dragged it";
    QApplication::setActiveWindow(nullptr);
    reminder.takeKeyboard();
    for (QWidget* const active : std::initializer_list<QWidget*> {&window, nullptr}) {
        QApplication::setActiveWindow(active);
        pass(60);
        EXPECT_EQ(reminder.isOpen(), active == &window) << "a keyboard that was called keeps it open";
        EXPECT_FALSE(active && reminder.takeKeyboard()) << "it has it already";
    }
    reminder.setNotification(nullptr);
    for (const char* label : {"labelTitle", "labelMessage", "calRadialTitle", "calRadialSubTitle"})
        EXPECT_EQ(text(window, label), QString()) << label;
    Q_EMIT in<QLabel>(window, "labelErrorText").linkActivated(QStringLiteral("https://zelvo.example"));
    EXPECT_EQ(world->platform.workspace.opened.size(), 1U);
}

TEST_F(NotificationWindowControllerTest, everyMessageFitsInEveryLanguageAndDirection)
{
    properties().setActivityMode(1);
    properties().setWeight(999);
    properties().setTablePositionOffset(32000);
    start();
    for (const char* language : {"en", "de", "fr", "es", "nl"}) {
        installTexts(*qApp, QString::fromLatin1(language));
        NotificationWindowController controller(world->platform.workspace);
        for (const int position : {kStanding, kSitting}) {
            QApplication::setLayoutDirection(position == kSitting ? Qt::RightToLeft : Qt::LeftToRight);
            controller.setNotification(std::make_shared<Notification>(position));
            controller.fadeIn();
            const QString key = position == kSitting ? "StandingMessage%1" : "SittingMessage%1";
            for (int i = 1; i <= 10; ++i) {
                in<QLabel>(controller.window(), "labelTitle").setText(qtTrId(qPrintable(key.arg(i))));
                QApplication::processEvents();
                for (const QLabel* label : controller.window().findChildren<QLabel*>())
                    EXPECT_FALSE(isCut(*label)) << language << ' ' << qPrintable(label->text());
            }
        }
    }
}
