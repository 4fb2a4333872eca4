#include "data/Activity.h"

#include "data/ManagedObjectContext.h"
#include "platform/Log.h"

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
    m_period.startDate = startDate;
    changed();
}

void Activity::setEndDate(Date endDate)
{
    if (endDate == m_period.endDate)
        return;
    m_period.endDate = endDate;
    changed();
}

void Activity::setIsStanding(bool isStanding)
{
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
    Error error;
    if (!m_context)
        error = ManagedObjectContext::missingError();
    else if (m_context->save(error))
        return true;
    Log::line(QStringLiteral("Couldn't save pulse: %1").arg(error.localizedDescription));
    return false;
}

void Activity::changed()
{
    if (m_context)
        m_context->recordChanged(*this);
}
