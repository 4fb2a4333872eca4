#pragma once

#include <QString>

/// How the program is called on the session bus, as the desktop entry's name and the freedesktop.org rules
/// for applications want it.
namespace BusNames {
inline const QString kService = QStringLiteral("org.zelvo.StandUp");
inline const QString kPath = QStringLiteral("/org/zelvo/StandUp");
inline const QString kApplication = QStringLiteral("org.freedesktop.Application");
inline const QString kStandUp = QStringLiteral("org.zelvo.StandUp1");
/// The error of a command that cannot be carried out at the moment, or that does not exist.
inline const QString kRefused = QStringLiteral("org.zelvo.StandUp1.Error.Refused");
/// The token with which a desktop lets a window come to the front, in a caller's platform data.
inline const QString kActivationToken = QStringLiteral("activation-token");
}
