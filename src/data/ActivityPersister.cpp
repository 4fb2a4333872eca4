#include "data/ActivityPersister.h"

#include "data/AppProperties.h"
#include "data/CalorieCalculator.h"
#include "data/ManagedObjectContext.h"
#include "platform/Log.h"

#include <QDateTime>

#include <cmath>
#include <utility>

namespace {
QString textForDate(Date date)
{
    return QDateTime::fromMSecsSinceEpoch(qint64(std::round(date.secondsSince1970() * 1000)), Qt::UTC)
        .toString(Qt::ISODateWithMs);
}

/// Failed fetches share the text of failed saves: whoever searches the log finds all troubles of the store.
void logStoreError(const Error& error)
{
    Log::line(QStringLiteral("Couldn't save: %1").arg(error.localizedDescription));
}
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
    if (!context()) {
        logStoreError(ManagedObjectContext::missingError());
        return nullptr;
    }
    ActivityRef activity = m_context->insertActivity();
    activity->setStartDate(startDate);
    activity->setEndDate(endDate);
    activity->setWeight(weight);
    activity->setIsStanding(isStanding);
    m_unsavedActivity = save() ? nullptr : activity;
    return m_unsavedActivity ? nullptr : activity;
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

ActivityPersister::Interval ActivityPersister::Interval::ofDay(Date day)
{
    const Date start = day.dateAtStartOfDay();
    return {start, start.dateByAddingDays(1)};
}

double ActivityPersister::Sums::calories() const
{
    // The user's weight of today counts for the past too; what the records hold is not asked.
    return CalorieCalculator::caloriesBurnedInMinutes(standingMinutes, AppProperties::instance().weight());
}

ActivityPersister::Activities ActivityPersister::fetch(Interval interval, std::optional<bool> isStanding)
{
    if (!context())
        return std::nullopt;
    Error error;
    Activities activities = m_context->fetch(interval.from, interval.to, isStanding, error);
    if (!activities)
        logStoreError(error);
    return activities;
}

ActivityPersister::Sums ActivityPersister::sums(Interval interval, std::optional<bool> isStanding)
{
    if (!context())
        return {};
    Sums result;
    Error error;
    const auto add = [&](const ActivityPeriod& period) {
        const double seconds = period.secondsInside(interval.from, interval.to);
        result.seconds += seconds;
        result.minutes += seconds / 60;
        if (period.isStanding) {
            result.standingSeconds += seconds;
            result.standingMinutes += seconds / 60;
        }
    };
    if (m_context->forEachPeriod(interval.from, interval.to, isStanding, add, error))
        return result;
    logStoreError(error);
    return {};
}

bool ActivityPersister::goalMetOnDay(Date day)
{
    return caloriesBurnedOnDay(day) >= AppProperties::instance().activityGoal();
}

int32_t ActivityPersister::goalsMetFromDay(Date fromDay, Date toDay)
{
    const Date end = toDay.dateByAddingDays(1).dateAtStartOfDay();
    int32_t goalsMet = 0;
    // Days of 86,400 s, as the totals have them; where the clocks go back, that day is met twice.
    for (Date day = fromDay.dateAtStartOfDay(); day.isEarlierThanDate(end); day = day.dateByAddingDays(1)) {
        if (goalMetOnDay(day))
            ++goalsMet;
    }
    return goalsMet;
}
