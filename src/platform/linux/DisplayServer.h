#pragma once

#include <QString>

/// Chooses Qt's platform for the display that answers, and makes Qt use X11 also in a Wayland session when an
/// X server (XWayland) answers there: Wayland lets no client place, raise or fade a window, and the reminder
/// needs all three. A platform that the user chose with QT_QPA_PLATFORM stays. To be called before
/// QApplication is made, which aborts the program where it finds no display.
///
/// Empty, or one sentence that says why no window can be shown.
[[nodiscard]] QString chooseDisplayServer();

/// Whether a Wayland compositor has the input and the screens. An X server that answers there sees its own
/// windows only.
[[nodiscard]] bool isWaylandSession();
