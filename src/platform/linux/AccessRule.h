#pragma once

#include <QStringList>

/// The udev rule that gives the adapter to whoever sits at the machine. The package brings it; who built the
/// program has it to install.
namespace AccessRule {
/// Where udev looks for rules.
[[nodiscard]] QStringList folders();
/// What to type into a terminal where the adapter may not be opened, two commands.
[[nodiscard]] QStringList commands(const QStringList& folders = AccessRule::folders());
}
