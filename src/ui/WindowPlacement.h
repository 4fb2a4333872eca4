#pragma once

#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>

class PanelWindow;

/// Where windows that nobody placed by hand appear; no place is remembered beyond the window that has it.
/// Positions are top left corners in logical pixels. A window keeps off the screen's edges where there is
/// room; its upper left corner is always on the screen.
namespace WindowPlacement {
/// Beside a tray icon that was clicked: centred on the pointer, at the screen's edge that is nearer, inside
/// the screen.
[[nodiscard]] QPoint nearPointer(QPoint pointer, const QRect& availableScreen, QSize window);
/// In the upper corner in which a line of text ends.
[[nodiscard]] QPoint inCorner(const QRect& availableScreen, QSize window, Qt::LayoutDirection direction);
/// In the middle.
[[nodiscard]] QPoint centred(const QRect& availableScreen, QSize window);
/// The screen into which a window must be fetched of which a part is on no screen: the one that shows its
/// middle, or else the first. Empty while it need not be.
[[nodiscard]] QRect screenInNeed(const QRect& window, const QList<QRect>& availableScreens);
/// The corner of the screen in which its tray is likely to be: where the panel that takes most room ends, or
/// at the top where no panel shows.
[[nodiscard]] QPoint trayCorner(
    const QRect& screen, const QRect& availableScreen, Qt::LayoutDirection direction);

/// Where the pointer is, or the tray where that cannot be known.
[[nodiscard]] QPoint pointer();

/// Fit a window into the screen that has the pointer and place it there.
void moveNearPointer(PanelWindow& window);
void moveIntoCorner(PanelWindow& window);
void moveToCentre(PanelWindow& window);
/// Fetches a window back whose screen is gone or has shrunk, smaller if need be.
void moveIntoSight(PanelWindow& window);
}
