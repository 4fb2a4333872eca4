#pragma once

#include <functional>

class QWidget;

constexpr double kDissolveSeconds = 0.12;

/// Makes a change to what the widget shows; its old look fades away over the new one, where the desktop's
/// user wants motion.
void dissolve(QWidget& widget, const std::function<void()>& change);
