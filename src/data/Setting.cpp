#include "data/Setting.h"

#include "platform/Bundle.h"
#include "platform/Log.h"

#include <QStringList>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {
using enum Setting::Type;
using enum Setting::Start;

constexpr double kAny = std::numeric_limits<double>::max();
constexpr double kLongest = 24 * 86400; // Seconds; a timer cannot wait for longer.
constexpr double kHighest = 65535; // A raw height.
constexpr double kFarthest = 2500 * 254.0; // The height field takes 2500, and inches are the larger unit.
constexpr auto kBundle = std::nullopt;

/// "NumberOfStandupsdefault" is spelled as in the files that users already have.
const Setting kSettings[] = {
    {QStringLiteral("AverageWorkDayHours"), Double, 0.01, 24, 8, Written, 1},
    {QStringLiteral("TimeIdle"), Double, 0.1, kLongest, 300, Written, 2},
    {QStringLiteral("TimeSnooze"), Double, 0.1, kLongest, 600, Written, 3},
    {QStringLiteral("TimeNotificationDismiss"), Double, 0.1, kLongest, 20, Written, 4},
    {QStringLiteral("TimeNotificationDismissOnAction"), Double, 0.1, kLongest, 5, Written, 5},
    {QStringLiteral("ActivityGoal"), Double, 0, 10000, 50, Written, 16},
    {QStringLiteral("WeightDefault"), Double, 0, 999, 80, Written, 6},
    {QStringLiteral("DevicePosition1"), Integer, 0, kHighest, kBundle, Written, 11},
    {QStringLiteral("DevicePosition2"), Integer, 0, kHighest, kBundle, Written, 12},
    {QStringLiteral("DevicePosition3"), Integer, 0, kHighest, kBundle, Written, 13},
    {QStringLiteral("TablePositionOffset"), Integer, -kFarthest, kFarthest, kBundle, Written, 7},
    {QStringLiteral("NumberOfStandupsdefault"), Integer, 1, 60, 1, Written, 10},
    // Not 0 where it is no number: nothing would be recorded until the wizard is answered, and all that the
    // weight of today does is to scale calories.
    {QStringLiteral("Weight"), Double, 0, 999, 80, NotWritten, 14},
    {QStringLiteral("ActivityMode"), Integer, -kAny, kAny, 0, NotWritten, 15},
    {QStringLiteral("NumberOfStandUps"), Integer, 0, 60, 0, NotWritten, 9},
    {QStringLiteral("ActivityGoalDefault"), Double, -kAny, kAny, 0, NotWritten, 0},
    {QStringLiteral("TablePositionOffsetDefault"), Double, -kAny, kAny, 0, NotWritten, 8},
    {QStringLiteral("DevicePositionOffset"), Double, -kAny, kAny, 0, NotWritten, 0},
    {QStringLiteral("Appearance"), Integer, 0, 2, 0, NotWritten, 0},
};

QString shown(const QVariant& stored)
{
    constexpr qsizetype kMostCharacters = 60;
    const QStringList list = stored.toStringList(); // What a file's comma makes of a value.
    return (list.size() > 1 ? list.join(u',') : stored.toString()).simplified().left(kMostCharacters);
}
}

std::span<const Setting> Setting::all()
{
    return kSettings;
}

Setting Setting::forKey(const QString& key)
{
    const auto setting = std::find_if(std::begin(kSettings), std::end(kSettings),
        [&](const Setting& candidate) { return candidate.key == key; });
    return setting != std::end(kSettings) ? *setting : Setting {key, Double, -kAny, kAny, 0, NotWritten, 0};
}

double Setting::fallback(const Bundle& bundle) const
{
    return otherwise ? *otherwise : std::trunc(bundle.numberValue(key));
}

bool Setting::canBe(const QVariant& stored) const
{
    bool isNumber = false;
    const double number = stored.toDouble(&isNumber);
    return isNumber && number >= least && number <= most;
}

double Setting::number(const QVariant& stored, const Bundle& bundle) const
{
    if (canBe(stored))
        return stored.toDouble();
    const double counts = fallback(bundle);
    Log::once(QStringLiteral("The setting \"%1\" cannot hold \"%2\"; %3 counts instead.")
                  .arg(key, shown(stored))
                  .arg(counts));
    return counts;
}
