#pragma once

#include "data/Activity.h"
#include "data/ManagedObjectContextProvider.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

/// Makes and queries the records of sitting and standing, and sums them up. The day operations take any
/// instant of the day and cover [start of day, start of day + 86,400 s). Failures are logged. Without a
/// context nothing is made or found.
class ActivityPersister {
public:
    using Activities = std::optional<std::vector<ActivityRef>>;

    explicit ActivityPersister(std::shared_ptr<ManagedObjectContext> context);
    /// Asks for the context at each use until there is one.
    explicit ActivityPersister(ManagedObjectContextProvider provider);

    /// Null when the record could not be saved; it then stays pending in the context.
    ActivityRef createWithStartDate(Date startDate, Date endDate, bool isStanding, double weight);
    /// A record that starts and ends now, with the user's weight.
    ActivityRef createIsStanding(bool isStanding);
    /// The record that the last creation could not save, else null.
    [[nodiscard]] const ActivityRef& unsavedActivity() const { return m_unsavedActivity; }
    bool save();
    [[nodiscard]] uint64_t count();

    /// Records that lie in the interval or cover one of its ends; nothing when the fetch failed.
    [[nodiscard]] Activities activitiesFromDate(Date fromDate, Date toDate)
    {
        return fetch({fromDate, toDate}, std::nullopt);
    }
    [[nodiscard]] Activities activitiesOnDay(Date day) { return fetch(Interval::ofDay(day), std::nullopt); }
    /// As above with a posture, which is asked only of the records that lie inside the interval.
    [[nodiscard]] Activities activitiesFromDate(Date fromDate, Date toDate, bool isStanding)
    {
        return fetch({fromDate, toDate}, isStanding);
    }
    [[nodiscard]] Activities activitiesOnDay(Date day, bool isStanding)
    {
        return fetch(Interval::ofDay(day), isStanding);
    }

    /// Seconds of the record inside the interval; negative for a record that does not meet it.
    [[nodiscard]] static double activityTimeForActivity(const Activity& activity, Date fromDate, Date toDate)
    {
        return activity.period().secondsInside(fromDate, toDate);
    }
    [[nodiscard]] double minutesActiveFromDate(Date fromDate, Date toDate)
    {
        return sums({fromDate, toDate}).minutes;
    }
    [[nodiscard]] double minutesActiveOnDay(Date day) { return sums(Interval::ofDay(day)).minutes; }
    [[nodiscard]] double minutesActiveFromDate(Date fromDate, Date toDate, bool isStanding)
    {
        return sums({fromDate, toDate}, isStanding).minutes;
    }
    [[nodiscard]] double minutesActiveOnDay(Date day, bool isStanding)
    {
        return sums(Interval::ofDay(day), isStanding).minutes;
    }
    /// In kcal.
    [[nodiscard]] double caloriesBurnedFromDate(Date fromDate, Date toDate)
    {
        return sums({fromDate, toDate}).calories();
    }
    [[nodiscard]] double caloriesBurnedOnDay(Date day) { return sums(Interval::ofDay(day)).calories(); }
    /// 0 to 100; not a number where there are no records.
    [[nodiscard]] double percentStandingFromDate(Date fromDate, Date toDate)
    {
        return sums({fromDate, toDate}).percentStanding();
    }
    [[nodiscard]] double percentStandingOnDay(Date day)
    {
        return sums(Interval::ofDay(day)).percentStanding();
    }
    /// Calories against the goal value in both modes: the program's own rule.
    [[nodiscard]] bool goalMetOnDay(Date day);
    [[nodiscard]] int32_t goalsMetFromDay(Date fromDay, Date toDay);

    [[nodiscard]] const std::shared_ptr<ManagedObjectContext>& context();

private:
    struct Interval {
        Date from;
        Date to;

        static Interval ofDay(Date day);
    };

    /// What the totals are made of, over the records that a fetch gives. Nothing is rounded.
    struct Sums {
        double seconds = 0;
        double minutes = 0;
        double standingSeconds = 0;
        double standingMinutes = 0;

        [[nodiscard]] double calories() const;
        [[nodiscard]] double percentStanding() const { return standingSeconds / seconds * 100; }
    };

    Activities fetch(Interval interval, std::optional<bool> isStanding);
    Sums sums(Interval interval, std::optional<bool> isStanding = std::nullopt);

    std::shared_ptr<ManagedObjectContext> m_context;
    ManagedObjectContextProvider m_provider;
    ActivityRef m_unsavedActivity;
};
