#pragma once

#include <QDateTime>

/// The time of day as hh:mm:ss.t, of seconds since 1970-01-01 UTC.
inline QString timeOfDay(double seconds)
{
    return QDateTime::fromMSecsSinceEpoch(qRound64(seconds * 1000.0), Qt::UTC)
        .toString("hh:mm:ss.z")
        .leftJustified(10, u'0', true);
}
