#pragma once

#include <QString>

class QWidget;

/// How the texts of a window stand out from their ground, as rendered at scale 1: a line for each with the
/// picture's name, the widget's and the contrast, between tabs. Texts of disabled controls are left out.
[[nodiscard]] QString measuredContrasts(QWidget& window, const QString& picture);
