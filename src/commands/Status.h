#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>

/// What the program knows at one moment. What there is not, or cannot be known, is empty.
struct Status {
    /// Unusable: the adapter cannot be opened, for another reason than those that have a name of their own.
    /// Silent: the adapter is open, and no desk answers through it (yet).
    enum class Desk { None, Forbidden, Busy, Unusable, Silent, Connected };
    struct Height {
        int32_t raw = 0; ///< 0.1 mm above the adapter's zero
        int64_t millimetres = 0; ///< above the floor
        QString shown; ///< in the user's unit, as the windows show it
    };
    struct Period {
        int64_t since = 0; ///< seconds since 1970-01-01 UTC
        int32_t minutes = 0; ///< whole ones that are over
    };
    struct Goal {
        int32_t percent = 0; ///< at most 100
        int32_t done = 0;
        int32_t target = 0; ///< of the whole day
        QString unit;
    };

    Desk desk = Desk::None;
    QString adapter; ///< what it calls itself
    QStringList cure; ///< commands that give the permission to use it
    std::optional<Height> height;
    QString posture;
    bool isPaused = false; ///< nothing is recorded, because the user is away
    std::optional<Period> period;
    std::optional<int32_t> minutesToChange; ///< 0 when it is due
    std::optional<Goal> goal;
    QString idleSource;

    /// Asks the hub and the settings.
    [[nodiscard]] static Status now();
};
