#include "ui/WindowPlacement.h"

#include "ui/PanelWindow.h"
#include "ui/WindowSystem.h"

#include <QCursor>
#include <QGuiApplication>
#include <QRegion>
#include <QScreen>

#include <algorithm>

namespace {
constexpr int kMargin = 12;

const QScreen& screenOfPointer()
{
    const QScreen* const screen = QGuiApplication::screenAt(WindowPlacement::pointer());
    return screen ? *screen : *QGuiApplication::primaryScreen();
}

/// The area in which the window stays: less a margin, as far as there is room for one.
QRect roomFor(QSize window, const QRect& availableScreen)
{
    const QSize spare =
        ((availableScreen.size() - window) / 2).expandedTo({0, 0}).boundedTo({kMargin, kMargin});
    return availableScreen.adjusted(spare.width(), spare.height(), -spare.width(), -spare.height());
}

/// A window larger than the screen keeps its upper left corner.
int within(int value, int least, int most)
{
    return std::max(least, std::min(value, most));
}

QPoint within(const QRect& area, QSize window, QPoint place)
{
    return {within(place.x(), area.left(), area.right() + 1 - window.width()),
        within(place.y(), area.top(), area.bottom() + 1 - window.height())};
}
}

QPoint WindowPlacement::nearPointer(QPoint pointer, const QRect& availableScreen, QSize window)
{
    const QRect area = roomFor(window, availableScreen);
    const bool isUpperHalf = pointer.y() < availableScreen.center().y();
    return within(area, window, {pointer.x() - window.width() / 2, isUpperHalf ? area.top() : area.bottom()});
}

QPoint WindowPlacement::inCorner(const QRect& availableScreen, QSize window, Qt::LayoutDirection direction)
{
    const QRect area = roomFor(window, availableScreen);
    return within(area, window, direction == Qt::RightToLeft ? area.topLeft() : area.topRight());
}

QPoint WindowPlacement::centred(const QRect& availableScreen, QSize window)
{
    QRect frame(QPoint(), window);
    frame.moveCenter(availableScreen.center());
    return within(availableScreen, window, frame.topLeft());
}

QRect WindowPlacement::screenInNeed(const QRect& window, const QList<QRect>& availableScreens)
{
    QRegion hidden(window);
    for (const QRect& screen : availableScreens)
        hidden -= screen;
    if (hidden.isEmpty() || availableScreens.isEmpty())
        return {};
    const auto showsMiddle = [&window](const QRect& screen) { return screen.contains(window.center()); };
    const auto found = std::find_if(availableScreens.begin(), availableScreens.end(), showsMiddle);
    return found == availableScreens.end() ? availableScreens.front() : *found;
}

QPoint WindowPlacement::trayCorner(
    const QRect& screen, const QRect& availableScreen, Qt::LayoutDirection direction)
{
    const QMargins panels(availableScreen.left() - screen.left(), availableScreen.top() - screen.top(),
        screen.right() - availableScreen.right(), screen.bottom() - availableScreen.bottom());
    const bool isUpright = std::max(panels.left(), panels.right()) > std::max(panels.top(), panels.bottom());
    const bool isLeft = isUpright ? panels.left() > panels.right() : direction == Qt::RightToLeft;
    const bool isBottom = isUpright || panels.bottom() > panels.top();
    return {isLeft ? screen.left() : screen.right(), isBottom ? screen.bottom() : screen.top()};
}

QPoint WindowPlacement::pointer()
{
    if (WindowSystem::isPointerKnown())
        return QCursor::pos();
    const QScreen& screen = *QGuiApplication::primaryScreen();
    return trayCorner(screen.geometry(), screen.availableGeometry(), QGuiApplication::layoutDirection());
}

void WindowPlacement::moveNearPointer(PanelWindow& window)
{
    const QRect area = screenOfPointer().availableGeometry();
    window.fitInto(area.size());
    window.move(nearPointer(pointer(), area, window.size()));
}

void WindowPlacement::moveIntoCorner(PanelWindow& window)
{
    const QRect area = screenOfPointer().availableGeometry();
    window.fitInto(area.size());
    window.move(inCorner(area, window.size(), window.layoutDirection()));
}

void WindowPlacement::moveToCentre(PanelWindow& window)
{
    const QRect area = screenOfPointer().availableGeometry();
    window.fitInto(area.size());
    window.move(centred(area, window.size()));
}

void WindowPlacement::moveIntoSight(PanelWindow& window)
{
    QList<QRect> screens;
    for (const QScreen* screen : QGuiApplication::screens())
        screens.append(screen->availableGeometry());
    const QRect before = window.frameGeometry();
    const QRect screen = screenInNeed(before, screens);
    if (screen.isEmpty())
        return;
    const QSize frame = before.size() - window.size();
    window.fitInto(screen.size());
    const QSize after = window.size() + frame;
    window.move(
        screen.contains(before.center()) ? within(screen, after, before.topLeft()) : centred(screen, after));
}
