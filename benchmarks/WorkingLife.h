#pragma once

#include "data/Date.h"
#include "data/ManagedObjectContext.h"

#include <cstdint>
#include <memory>

/// A working life is 13 years of 250 days of 20 periods of 24 minutes. Its periods begin at fractions of a
/// second, as real ones do, and one in 500 is odd: backward, for the clock was set meanwhile, or two days
/// long.
inline constexpr int kWorkingDays = 13 * 250;
inline constexpr int kDaysOfALife = 4748; ///< 2013-01-01 to 2025-12-31
inline constexpr int64_t kPeriodsOfALife = int64_t(kWorkingDays) * 20;

/// The first day of a life whose last working day is the day before that date.
inline Date workingLifeUntil(Date date)
{
    return date.dateAtStartOfDay().dateBySubtractingDays(kDaysOfALife - 1);
}

/// Fills an empty store with so many periods, spread over a life since that day.
inline bool fillWithWorkingLife(
    const std::shared_ptr<PersistentStoreCoordinator>& store, Date firstDay, int64_t periods, Error& error)
{
    constexpr int64_t kOneInIsOdd = 500;
    constexpr double kSecondsOfWork = 20.0 * 24 * 60;
    ManagedObjectContext context(store);
    const double length = kSecondsOfWork * kWorkingDays / double(periods);
    for (int64_t period = 0; period < periods; ++period) {
        const int64_t workDay = period * kWorkingDays / periods;
        const int64_t first = (workDay * periods + kWorkingDays - 1) / kWorkingDays;
        const Date start =
            firstDay.dateByAddingDays(workDay * kDaysOfALife / kWorkingDays)
                .dateByAddingSeconds(9 * Date::kHour + (double(period - first) + 0.618) * length);
        const double oddLength = period % (2 * kOneInIsOdd) == 0 ? -length : 2 * Date::kDay;
        const ActivityRef activity = context.insertActivity();
        activity->setStartDate(start);
        activity->setEndDate(start.dateByAddingSeconds(period % kOneInIsOdd == 0 ? oddLength : length));
        activity->setWeight(80);
        activity->setIsStanding(period % 2 == 0);
    }
    return context.save(error);
}
