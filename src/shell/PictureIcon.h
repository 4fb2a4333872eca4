#pragma once

#include <QIcon>
#include <QImage>
#include <QList>

#include <functional>

/// An icon that consists of square pictures of those sizes, in pixels. Each is drawn when somebody asks for
/// it, and once. Whoever asks for another size gets the next larger one, made smaller, or the largest.
QIcon pictureIcon(const QList<int>& sizes, std::function<QImage(int size)> draw);

/// The program's own icon, in the sizes that it was drawn for.
QIcon programIcon();
