#include "data/ActivityPersister.h"

#include "data/AppProperties.h"
#include "data/CalorieCalculator.h"
#include "data/ManagedObjectContext.h"
#include "platform/Log.h"

#include <QDateTime>

#include <cmath>
#include <utility>

namespace {
/// Dates beyond the year 9999, and what is no date at all, are logged as the number they are.
QString textForDate(Date date)
{
    constexpr double kYear10000 = 253402300800.0;
    if (!(std::abs(date.secondsSince1970()) < kYear10000))
        return QString::number(date.secondsSince1970());
    return QDateTime::fromMSecsSinceEpoch(qint64(std::round(date.secondsSince1970() * 1000)), Qt::UTC)
        .toString(Qt::ISODateWithMs);
}

/// Failed fetches share the text of failed saves: whoever searches the log finds all troubles of the store.
void logStoreError(const Error& error)
{
    Log::line(QStringLiteral("Couldn't save: %1").arg(error.localizedDescription));
}

struct Day {
    explicit Day(Date day)
        : start(day.dateAtStartOfDay())
        , end(start.dateByAddingDays(1))
    {
    }
    Date start;
    Date end;
};
}

ActivityPersister::ActivityPersister(std::shared_ptr<ManagedObjectContext> context)
    : m_context(std::move(context))
{
}

ActivityPersister::ActivityPersister(ManagedObjectContextProvider provider)
    : m_provider(std::move(provider))
{
}

const std::shared_ptr<ManagedObjectContext>& ActivityPersister::context()
{
    if (!m_context && m_provider)
        m_context = m_provider();
    return m_context;
}

ActivityRef ActivityPersister::createWithStartDate(
    Date startDate, Date endDate, bool isStanding, double weight)
{
    Log::line(QStringLiteral("Creating new activity. startDate: %1, endDate: %2, isStanding: %3, weight: %4")
                  .arg(textForDate(startDate), textForDate(endDate))
                  .arg(int(isStanding))
                  .arg(weight, 0, 'f', 6));
    m_unsavedActivity.reset();
    if (!context()) {
        logStoreError(ManagedObjectContext::missingError());
        return nullptr;
    }
    if (!std::isfinite(startDate.secondsSince1970()) || !std::isfinite(endDate.secondsSince1970())) {
        Log::line(QStringLiteral("An activity whose dates are not numbers is not stored."));
        return nullptr;
    }
    const ActivityRef activity = m_context->insertActivity();
    activity->setStartDate(startDate);
    activity->setEndDate(endDate);
    activity->setWeight(weight);
    activity->setIsStanding(isStanding);
    if (save())
        return activity;
    m_unsavedActivity = activity;
    return nullptr;
}

ActivityRef ActivityPersister::createIsStanding(bool isStanding)
{
    const Date now = Date::now();
    return createWithStartDate(now, now, isStanding, AppProperties::instance().weight());
}

bool ActivityPersister::save()
{
    Error error = ManagedObjectContext::missingError();
    if (context() && m_context->save(error))
        return true;
    logStoreError(error);
    return false;
}

uint64_t ActivityPersister::count()
{
    return context() ? m_context->count() : 0;
}

ActivityPersister::Activities ActivityPersister::fetch(
    Date fromDate, Date toDate, std::optional<bool> isStanding)
{
    if (!context())
        return std::nullopt;
    Error error;
    Activities activities = m_context->fetch(fromDate, toDate, isStanding, error);
    if (!activities)
        logStoreError(error);
    return activities;
}

ActivityPersister::Activities ActivityPersister::activitiesFromDate(Date fromDate, Date toDate)
{
    return fetch(fromDate, toDate, std::nullopt);
}

ActivityPersister::Activities ActivityPersister::activitiesOnDay(Date day)
{
    const Day interval(day);
    return activitiesFromDate(interval.start, interval.end);
}

ActivityPersister::Activities ActivityPersister::activitiesFromDate(
    Date fromDate, Date toDate, bool isStanding)
{
    return fetch(fromDate, toDate, isStanding);
}

ActivityPersister::Activities ActivityPersister::activitiesOnDay(Date day, bool isStanding)
{
    const Day interval(day);
    return activitiesFromDate(interval.start, interval.end, isStanding);
}

double ActivityPersister::activityTimeForActivity(const Activity& activity, Date fromDate, Date toDate)
{
    return activity.period().secondsInside(fromDate, toDate);
}

ActivityPersister::Sums ActivityPersister::sums(Date fromDate, Date toDate, std::optional<bool> isStanding)
{
    if (!context())
        return {};
    Sums result;
    Error error;
    const auto add = [&](const ActivityPeriod& period) {
        const double seconds = period.secondsInside(fromDate, toDate);
        result.seconds += seconds;
        result.minutes += seconds / 60;
        if (period.isStanding) {
            result.standingSeconds += seconds;
            result.standingMinutes += seconds / 60;
        }
    };
    if (m_context->forEachPeriod(fromDate, toDate, isStanding, add, error))
        return result;
    logStoreError(error);
    return {};
}

double ActivityPersister::minutesActiveFromDate(Date fromDate, Date toDate)
{
    return sums(fromDate, toDate, std::nullopt).minutes;
}

double ActivityPersister::minutesActiveOnDay(Date day)
{
    const Day interval(day);
    return minutesActiveFromDate(interval.start, interval.end);
}

double ActivityPersister::minutesActiveFromDate(Date fromDate, Date toDate, bool isStanding)
{
    return sums(fromDate, toDate, isStanding).minutes;
}

double ActivityPersister::minutesActiveOnDay(Date day, bool isStanding)
{
    const Day interval(day);
    return minutesActiveFromDate(interval.start, interval.end, isStanding);
}

double ActivityPersister::caloriesBurnedFromDate(Date fromDate, Date toDate)
{
    // The user's weight of today counts for the past too; what the records hold is not asked.
    return CalorieCalculator::caloriesBurnedInMinutes(
        sums(fromDate, toDate, std::nullopt).standingMinutes, AppProperties::instance().weight());
}

double ActivityPersister::caloriesBurnedOnDay(Date day)
{
    const Day interval(day);
    return caloriesBurnedFromDate(interval.start, interval.end);
}

double ActivityPersister::percentStandingFromDate(Date fromDate, Date toDate)
{
    const Sums result = sums(fromDate, toDate, std::nullopt);
    return result.standingSeconds / result.seconds * 100;
}

double ActivityPersister::percentStandingOnDay(Date day)
{
    const Day interval(day);
    return percentStandingFromDate(interval.start, interval.end);
}

bool ActivityPersister::goalMetOnDay(Date day)
{
    return caloriesBurnedOnDay(day) >= AppProperties::instance().activityGoal();
}

int32_t ActivityPersister::goalsMetFromDay(Date fromDay, Date toDay)
{
    const Date end = toDay.dateByAddingDays(1).dateAtStartOfDay();
    int32_t goalsMet = 0;
    for (Date day = fromDay.dateAtStartOfDay(); day.isEarlierThanDate(end); day = day.dateByAddingDays(1)) {
        if (goalMetOnDay(day))
            ++goalsMet;
    }
    return goalsMet;
}
