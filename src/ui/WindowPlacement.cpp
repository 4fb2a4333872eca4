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

QPoint centred(const QRect& area, QSize window)
{
    QRect frame(QPoint(), window);
    frame.moveCenter(area.center());
    return frame.topLeft();
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

QPoint WindowPlacement::inSight(const QRect& window, const QList<QRect>& availableScreens)
{
    const auto showsMiddle = [&window](const QRect& screen) { return screen.contains(window.center()); };
    if (availableScreens.isEmpty()
        || std::any_of(availableScreens.begin(), availableScreens.end(), showsMiddle))
        return window.topLeft();
    return centred(availableScreens.front(), window.size());
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
    window.move(centred(availableScreenAtPointer(), window.size()));
}

void WindowPlacement::moveIntoSight(QWidget& window)
{
    QList<QRect> screens;
    for (const QScreen* screen : QGuiApplication::screens())
        screens.append(screen->availableGeometry());
    const QPoint place = inSight(window.geometry(), screens);
    if (place != window.geometry().topLeft())
        window.move(place);
}
