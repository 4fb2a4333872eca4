#pragma once

/// What the window system lets a program do with its own windows.
namespace WindowSystem {
/// Under Wayland no window can be placed or faded, and the pointer is known only over the program's own
/// windows.
[[nodiscard]] bool isWayland();
}
