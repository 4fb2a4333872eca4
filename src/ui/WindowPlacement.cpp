#include "ui/WindowPlacement.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <algorithm>

namespace {
constexpr int kMargin = 12;

QRect availableScreenAtPointer()
{
    const QScreen* screen = QGuiApplication::screenAt(QCursor::pos());
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    return screen ? screen->availableGeometry() : QRect();
}

int within(int value, int least, int most)
{
    return std::max(
        least, std::min(value, most)); // A window larger than the screen keeps its upper left corner.
}
}

QPoint WindowPlacement::nearPointer(QPoint pointer, const QRect& availableScreen, QSize window)
{
    const QRect area = availableScreen.adjusted(kMargin, kMargin, -kMargin, -kMargin);
    const int right = area.right() + 1 - window.width();
    const int bottom = area.bottom() + 1 - window.height();
    const bool isUpperHalf = pointer.y() < availableScreen.center().y();
    return {within(pointer.x() - window.width() / 2, area.left(), right),
        isUpperHalf ? area.top() : std::max(area.top(), bottom)};
}

QPoint WindowPlacement::inCorner(const QRect& availableScreen, QSize window, Qt::LayoutDirection direction)
{
    const QRect area = availableScreen.adjusted(kMargin, kMargin, -kMargin, -kMargin);
    const int right = std::max(area.left(), area.right() + 1 - window.width());
    return {direction == Qt::RightToLeft ? area.left() : right, area.top()};
}

void WindowPlacement::moveNearPointer(QWidget& window)
{
    window.move(nearPointer(QCursor::pos(), availableScreenAtPointer(), window.size()));
}

void WindowPlacement::moveIntoCorner(QWidget& window)
{
    window.move(inCorner(availableScreenAtPointer(), window.size(), window.layoutDirection()));
}

void WindowPlacement::moveToCentre(QWidget& window)
{
    QRect frame(QPoint(), window.size());
    frame.moveCenter(availableScreenAtPointer().center());
    window.move(frame.topLeft());
}
