#include "ui/WindowPlacement.h"

#include "fakes/ControlTest.h"
#include "ui/PanelWindow.h"

#include <QScreen>

namespace {
using WindowPlacementTest = ControlTest;

constexpr QRect kScreen(0, 30, 1000, 700); // Below a panel at the top.
constexpr QRect kSecond(1000, 0, 800, 600);
}

TEST_F(WindowPlacementTest, theMarginGivesWayBeforeTheWindowLeavesTheScreen)
{
    // A window's size and the pointer; the places at the nearer edge, in the middle and in both corners.
    const std::tuple<QSize, QPoint, QPoint, QPoint, QPoint, QPoint> kTestCases[] = {
        {{300, 400}, {500, 379}, {350, 318}, {350, 180}, {688, 42}, {12, 42}},
        {{300, 400}, {990, 378}, {688, 42}, {350, 180}, {688, 42}, {12, 42}}, // It stays on the screen.
        {{300, 400}, {0, 740}, {12, 318}, {350, 180}, {688, 42}, {12, 42}},
        {{400, 690}, {999, 729}, {588, 35}, {300, 35}, {588, 35}, {12, 35}},
        {{988, 700}, {999, 729}, {6, 30}, {6, 30}, {6, 30}, {6, 30}},
        {{1200, 900}, {500, 729}, {0, 30}, {0, 30}, {0, 30}, {0, 30}}, // The corner that has its title.
    };
    for (const auto& [window, pointer, nearPointer, centred, inCorner, inOtherCorner] : kTestCases) {
        EXPECT_EQ(WindowPlacement::nearPointer(pointer, kScreen, window), nearPointer);
        EXPECT_EQ(WindowPlacement::centred(kScreen, window), centred);
        EXPECT_EQ(WindowPlacement::inCorner(kScreen, window, Qt::LeftToRight), inCorner);
        EXPECT_EQ(WindowPlacement::inCorner(kScreen, window, Qt::RightToLeft), inOtherCorner);
    }
}

TEST_F(WindowPlacementTest, aWindowThatIsPartlyOffTheScreensNeedsOne)
{
    const std::tuple<QRect, QList<QRect>, QRect> kTestCases[] = {
        {{1488, 12, 300, 400}, {kScreen}, kScreen},
        {{1600, 12, 300, 400}, {kScreen, kSecond}, kSecond},
        {{800, 30, 400, 500}, {kScreen, kSecond}, {}}, // On both of them.
        {{800, 0, 300, 400}, {kScreen, kSecond}, kScreen}, // Under the panel of one.
        {{1488, 12, 300, 400}, {}, {}},
    };
    for (const auto& [window, screens, expected] : kTestCases)
        EXPECT_EQ(WindowPlacement::screenInNeed(window, screens), expected) << window.x();
}

TEST_F(WindowPlacementTest, theTrayIsWhereTheWidestPanelEndsOrAtTheTop)
{
    // Corners are 0 or 1 from the left and the top; the second one where lines are written to the left.
    const std::tuple<QMargins, QPoint, QPoint> kTestCases[] = {{{0, 0, 0, 0}, {1, 0}, {0, 0}},
        {{0, 30, 0, 0}, {1, 0}, {0, 0}}, {{0, 30, 0, 31}, {1, 1}, {0, 1}}, {{30, 0, 0, 30}, {1, 1}, {0, 1}},
        {{31, 30, 0, 30}, {0, 1}, {0, 1}}, {{0, 30, 31, 0}, {1, 1}, {1, 1}},
        {{9, 0, 50, 49}, {1, 1}, {1, 1}}};
    const auto corner = [](const QMargins& panels, Qt::LayoutDirection direction) {
        const QPoint found = WindowPlacement::trayCorner(kScreen, kScreen - panels, direction);
        return QPoint(found.x() == kScreen.right(), found.y() == kScreen.bottom());
    };
    for (const auto& [panels, expected, mirrored] : kTestCases) {
        EXPECT_EQ(corner(panels, Qt::LeftToRight), expected) << panels.left() << panels.bottom();
        EXPECT_EQ(corner(panels, Qt::RightToLeft), mirrored) << panels.left() << panels.bottom();
    }
}

TEST_F(WindowPlacementTest, aWindowOpensOnThePointersScreen)
{
    const QRect other = QGuiApplication::screens().last()->geometry();
    QCursor::setPos(other.center());
    PanelWindow window;
    WindowPlacement::moveToCentre(window);
    EXPECT_TRUE(other.contains(window.pos()));
}

TEST_F(WindowPlacementTest, aWindowIsFetchedIntoSightWhenTheScreensChange)
{
    QScreen* const screen = QGuiApplication::primaryScreen();
    const QRect area = screen->availableGeometry();
    const auto panelMoves = [&](PanelWindow&) { Q_EMIT screen->availableGeometryChanged(area); };
    const auto screenGoes = [&](PanelWindow&) { Q_EMIT qGuiApp->screenRemoved(screen); };
    const auto windowGrows = [](PanelWindow& window) { window.setExtraHeight(0); };
    const std::tuple<QRect, QRect, std::function<void(PanelWindow&)>> kTestCases[] = {
        {{20, 30, 300, 200}, {20, 30, 300, 200}, panelMoves},
        {{-40, 30, 300, 200}, {0, 30, 300, 200}, screenGoes},
        {{-40, 30, 300, 200}, {0, 30, 300, 200}, windowGrows},
        {{3000, 30, 301, 201}, {(area.width() - 301) / 2, (area.height() - 201) / 2, 301, 201}, panelMoves},
        {{40, 30, 300, area.height() + 100}, {40, 0, 300, area.height()}, panelMoves},
    };
    for (const auto& [before, after, change] : kTestCases) {
        PanelWindow moved(Qt::Window | Qt::FramelessWindowHint);
        moved.setGeometry(before);
        show(moved);
        change(moved);
        EXPECT_EQ(moved.geometry(), before);
        platform.runLoop.advance(0);
        EXPECT_EQ(moved.geometry(), after);
    }
}
