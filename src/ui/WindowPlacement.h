#pragma once

#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>

class QWidget;

/// Where windows that nobody placed by hand appear. Positions are top left corners in logical pixels.
namespace WindowPlacement {
/// Beside a tray icon that was clicked: centred on the pointer, at the screen's edge that is nearer, inside
/// the screen.
[[nodiscard]] QPoint nearPointer(QPoint pointer, const QRect& availableScreen, QSize window);
/// In the upper corner in which a line of text ends.
[[nodiscard]] QPoint inCorner(const QRect& availableScreen, QSize window, Qt::LayoutDirection direction);
/// Where the window is while a good part of it is on a screen; otherwise the middle of the first screen.
[[nodiscard]] QPoint inSight(const QRect& window, const QList<QRect>& availableScreens);

/// The first two above on the screen that has the pointer.
void moveNearPointer(QWidget& window);
void moveIntoCorner(QWidget& window);
void moveToCentre(QWidget& window);
void moveIntoSight(QWidget& window);
}
