#pragma once

class QWidget;

/// What the window system lets a program do with its own windows.
namespace WindowSystem {
/// Under Wayland no window can be placed or faded, and the pointer is known only over own windows.
[[nodiscard]] bool isWayland();
[[nodiscard]] bool isX11();
/// In a session under Wayland an X11 program, too, knows the pointer only over its own windows.
[[nodiscard]] bool isPointerKnown();
/// Brings a shown window to the workspace that the user looks at. Nothing where there is no such thing.
void moveToCurrentWorkspace(const QWidget& window);
/// A window that was minimised is so no longer; show() alone would keep it minimised.
void restore(QWidget& window);
}
