#pragma once

#include <QIcon>
#include <QString>

/// What the status item stands on. Most desktops do not tell the colour of their panel.
enum class PanelGround { Unknown, Light, Dark };

/// As far as the desktop lets it be known.
[[nodiscard]] PanelGround panelGround();

/// The picture of that name in one colour, which stands out on the ground: dark on light, light on dark, and
/// a tone between both where the ground is unknown.
[[nodiscard]] QIcon statusIcon(const QString& name, PanelGround ground);
