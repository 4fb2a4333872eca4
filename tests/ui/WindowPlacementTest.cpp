#include "ui/WindowPlacement.h"

#include "fakes/ControlTest.h"

#include <QCursor>

namespace {
constexpr QRect kScreen(0, 30, 1000, 700); // Below a panel at the top.
constexpr QRect kSecond(1000, 0, 800, 600);
constexpr QSize kWindow(300, 400);
}

TEST(WindowPlacement, aWindowOpensBesideThePointerAtTheNearerEdge)
{
    const struct {
        QPoint pointer;
        QPoint expected;
    } kTestCases[] = {
        {{500, 10}, {350, 42}}, // A tray at the top.
        {{500, 740}, {350, 318}}, // At the bottom.
        {{990, 10}, {688, 42}}, // In a corner the window stays on the screen.
        {{0, 740}, {12, 318}},
    };
    for (const auto& testCase : kTestCases)
        EXPECT_EQ(WindowPlacement::nearPointer(testCase.pointer, kScreen, kWindow), testCase.expected)
            << testCase.pointer.x();
    // A window that is larger than the screen keeps the corner that has its title.
    EXPECT_EQ(WindowPlacement::nearPointer({500, 740}, kScreen, {2000, 2000}), QPoint(12, 42));
}

TEST(WindowPlacement, theCornerIsWhereALineOfTextEnds)
{
    EXPECT_EQ(WindowPlacement::inCorner(kScreen, kWindow, Qt::LeftToRight), QPoint(688, 42));
    EXPECT_EQ(WindowPlacement::inCorner(kScreen, kWindow, Qt::RightToLeft), QPoint(12, 42));
    EXPECT_EQ(WindowPlacement::inCorner(kSecond, kWindow, Qt::LeftToRight), QPoint(1488, 12));
    EXPECT_EQ(WindowPlacement::inCorner(kScreen, {2000, 2000}, Qt::LeftToRight), QPoint(12, 42));
}

TEST(WindowPlacement, aWindowWhoseScreenIsGoneComesBack)
{
    const QRect onSecond(QPoint(1488, 12), kWindow);
    EXPECT_EQ(WindowPlacement::inSight(onSecond, {kScreen, kSecond}), onSecond.topLeft());
    EXPECT_EQ(WindowPlacement::inSight(onSecond, {kScreen}), QPoint(350, 180));
    const QRect partlyOff(QPoint(-100, 100), kWindow); // Dragged there by hand.
    EXPECT_EQ(WindowPlacement::inSight(partlyOff, {kScreen}), partlyOff.topLeft());
    EXPECT_EQ(WindowPlacement::inSight(onSecond, {}), onSecond.topLeft());
}

TEST(WindowPlacement, windowsGoToTheScreenWithThePointer)
{
    QWidget window;
    window.resize(300, 200);
    const QRect screen = window.screen()->availableGeometry();
    QCursor::setPos(screen.bottomRight());
    WindowPlacement::moveNearPointer(window);
    EXPECT_EQ(window.geometry().bottomRight(), screen.bottomRight() - QPoint(12, 12));
    WindowPlacement::moveIntoCorner(window);
    EXPECT_EQ(window.geometry().topRight(), screen.topRight() + QPoint(-12, 12));
    WindowPlacement::moveToCentre(window);
    EXPECT_LE((window.geometry().center() - screen.center()).manhattanLength(), 2);
}
