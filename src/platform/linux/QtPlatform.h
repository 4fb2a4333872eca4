#pragma once

/// Makes Qt use X11 also in a Wayland session, when an X server (XWayland) answers there: Wayland lets no
/// client place, raise or fade a window, and the reminder needs all three. A platform that the user chose
/// with QT_QPA_PLATFORM stays, as does one given on the command line. To be called before QApplication is
/// made.
void chooseQtPlatform();
