#pragma once

#include <QString>

/// What the status item tells at one moment.
struct StatusItemContent {
    static inline const QString kErrorPicture = QStringLiteral("StatusItemIconError");

    QString picture; ///< its name
    QString text; ///< posture, height and minutes to the next change, as far as there are any

    /// Asks the hub. Without a connected desk nothing else is told.
    [[nodiscard]] static StatusItemContent now(bool isDeviceConnected);

    friend bool operator==(const StatusItemContent&, const StatusItemContent&) = default;
};
