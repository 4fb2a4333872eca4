#pragma once

#include <QIcon>
#include <QString>

/// The picture of that name as an icon that is drawn at whatever size somebody asks for, and only then: crisp
/// at each, nothing is kept, and no plugin is loaded for it.
/// @param inset the width that stays free on each side, as a share of the icon's width
QIcon pictureIcon(const QString& name, double inset = 0);

/// The program's own icon, in the sizes that it was drawn for.
QIcon programIcon();
