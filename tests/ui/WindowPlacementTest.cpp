#include "ui/WindowPlacement.h"

#include "fakes/ControlTest.h"
#include "ui/PanelWindow.h"

#include <QCursor>
#include <QScreen>

namespace {
using WindowPlacementTest = ControlTest;

constexpr QRect kScreen(0, 30, 1000, 700); // Below a panel at the top.
constexpr QRect kSecond(1000, 0, 800, 600);
constexpr QSize kWindow(300, 400);
}

TEST(WindowPlacement, theMarginGivesWayBeforeTheWindowLeavesTheScreen)
{
    const struct {
        QSize window;
        QPoint pointer;
        QPoint nearPointer; ///< at the nearer edge
        QPoint centred;
        QPoint inCorner; ///< where a line of text ends
        QPoint inOtherCorner;
    } kTestCases[] = {
        {kWindow, {500, 10}, {350, 42}, {350, 180}, {688, 42}, {12, 42}}, // A tray at the top.
        {kWindow, {500, 379}, {350, 318}, {350, 180}, {688, 42}, {12, 42}},
        {kWindow, {990, 378}, {688, 42}, {350, 180}, {688, 42}, {12, 42}}, // It stays on the screen.
        {kWindow, {0, 740}, {12, 318}, {350, 180}, {688, 42}, {12, 42}},
        {{400, 676}, {999, 729}, {588, 42}, {300, 42}, {588, 42},
            {12, 42}}, // Just room for the margin of 12.
        {{400, 690}, {999, 729}, {588, 35}, {300, 35}, {588, 35}, {12, 35}},
        {{988, 700}, {999, 729}, {6, 30}, {6, 30}, {6, 30}, {6, 30}},
        {{1200, 900}, {500, 729}, {0, 30}, {0, 30}, {0, 30}, {0, 30}}, // The corner that has its title.
    };
    for (const auto& row : kTestCases) {
        EXPECT_EQ((QList<QPoint> {WindowPlacement::nearPointer(row.pointer, kScreen, row.window),
                      WindowPlacement::centred(kScreen, row.window),
                      WindowPlacement::inCorner(kScreen, row.window, Qt::LeftToRight),
                      WindowPlacement::inCorner(kScreen, row.window, Qt::RightToLeft)}),
            (QList<QPoint> {row.nearPointer, row.centred, row.inCorner, row.inOtherCorner}))
            << "row " << &row - kTestCases;
    }
}

TEST(WindowPlacement, theTrayIsWhereThePanelEnds)
{
    constexpr QRect kWhole(100, 50, 1000, 700);
    const struct {
        QMargins panels;
        QPoint leftToRight;
        QPoint rightToLeft;
    } kTestCases[] = {
        {{}, {1099, 50}, {100, 50}},
        {{0, 27, 0, 0}, {1099, 50}, {100, 50}},
        {{0, 20, 0, 40}, {1099, 749}, {100, 749}},
        {{60, 27, 0, 0}, {100, 749}, {100, 749}},
        {{10, 0, 50, 30}, {1099, 749}, {1099, 749}},
    };
    for (const auto& row : kTestCases) {
        const QRect available = kWhole - row.panels;
        EXPECT_EQ(WindowPlacement::trayCorner(kWhole, available, Qt::LeftToRight), row.leftToRight)
            << &row - kTestCases;
        EXPECT_EQ(WindowPlacement::trayCorner(kWhole, available, Qt::RightToLeft), row.rightToLeft)
            << &row - kTestCases;
    }
}

TEST(WindowPlacement, aWindowThatIsPartlyOffTheScreensNeedsOne)
{
    const struct {
        QRect window;
        QList<QRect> screens;
        QRect expected;
    } kTestCases[] = {
        {{1488, 12, 300, 400}, {kScreen, kSecond}, {}},
        {{1488, 12, 300, 400}, {kScreen}, kScreen},
        {{1600, 12, 300, 400}, {kScreen, kSecond}, kSecond},
        {{800, 30, 400, 500}, {kScreen, kSecond}, {}}, // On both of them.
        {{800, 0, 300, 400}, {kScreen, kSecond}, kScreen}, // Under the panel of one.
        {{1488, 12, 300, 400}, {}, {}},
    };
    for (const auto& row : kTestCases)
        EXPECT_EQ(WindowPlacement::screenInNeed(row.window, row.screens), row.expected) << row.window.x();
}

TEST_F(WindowPlacementTest, aShownWindowIsFittedIntoAScreenThatChanges)
{
    QScreen* const screen = QGuiApplication::primaryScreen();
    const QRect area = screen->availableGeometry();
    const struct {
        QRect window;
        QRect expected;
    } kTestCases[] = {
        {{20, 30, 300, 200}, {20, 30, 300, 200}},
        {{-40, 30, 300, 200}, {0, 30, 300, 200}},
        {{area.width() - 160, area.height() - 120, 300, 200},
            {area.width() - 300, area.height() - 200, 300, 200}},
        {{3000, 30, 301, 201}, {(area.width() - 301) / 2, (area.height() - 201) / 2, 301, 201}},
        {{40, 30, 300, area.height() + 100}, {40, 0, 300, area.height()}},
    };
    for (const auto& row : kTestCases) {
        PanelWindow window(Qt::Window | Qt::FramelessWindowHint);
        window.setGeometry(row.window);
        show(window);
        Q_EMIT screen->availableGeometryChanged(area);
        EXPECT_EQ(window.geometry(), row.window);
        platform.runLoop.advance(0);
        EXPECT_EQ(window.geometry(), row.expected);
    }
}

TEST_F(WindowPlacementTest, windowsGoToTheScreenWithThePointer)
{
    PanelWindow window;
    window.resize(300, 200);
    const QRect screen = window.screen()->availableGeometry();
    QCursor::setPos(screen.bottomRight());
    WindowPlacement::moveNearPointer(window);
    EXPECT_EQ(window.geometry().bottomRight(), screen.bottomRight() - QPoint(12, 12));
    WindowPlacement::moveIntoCorner(window);
    EXPECT_EQ(window.geometry().topRight(), screen.topRight() + QPoint(-12, 12));
    WindowPlacement::moveToCentre(window);
    EXPECT_LE((window.geometry().center() - screen.center()).manhattanLength(), 2);

    // Under Wayland the pointer is not asked: it stands where it once left a window.
    for (const char* const sign : {"WAYLAND_DISPLAY", "XDG_SESSION_TYPE"}) {
        qputenv(sign, "wayland");
        WindowPlacement::moveNearPointer(window);
        qunsetenv(sign);
        EXPECT_EQ(window.geometry().topRight(), screen.topRight() + QPoint(-12, 12));
    }
}
