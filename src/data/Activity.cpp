#include "data/Activity.h"

#include "data/ManagedObjectContext.h"
#include "platform/Log.h"

#include <cmath>

namespace {
/// An undefined date would be found by no query and would make every save fail.
bool canBeStored(Date date)
{
    if (std::isfinite(date.secondsSince1970()))
        return true;
    Log::line(QStringLiteral("An activity's date is not a number and is left as it was."));
    return false;
}
}

Activity::Activity(ManagedObjectContext& context)
    : m_context(&context)
{
}

Activity::~Activity()
{
    if (m_context)
        m_context->forget(*this);
}

void Activity::setStartDate(Date startDate)
{
    if (startDate == m_period.startDate || !canBeStored(startDate))
        return;
    m_period.startDate = startDate;
    changed();
}

void Activity::setEndDate(Date endDate)
{
    if (endDate == m_period.endDate || !canBeStored(endDate))
        return;
    m_period.endDate = endDate;
    changed();
}

void Activity::setIsStanding(bool isStanding)
{
    if (isStanding == m_period.isStanding)
        return;
    m_period.isStanding = isStanding;
    changed();
}

void Activity::setWeight(double weight)
{
    m_weight = weight;
    changed();
}

bool Activity::pulse(Date endDate)
{
    Log::line(QStringLiteral("Activity pulse"));
    setEndDate(endDate);
    Error error = ManagedObjectContext::missingError();
    if (m_context && m_context->save(error))
        return true;
    Log::line(QStringLiteral("Couldn't save pulse: %1").arg(error.localizedDescription));
    return false;
}

void Activity::changed()
{
    if (m_context)
        m_context->recordChanged(*this);
}
