#include "shell/Notification.h"

#include "data/ActivityMode.h"
#include "data/AppProperties.h"
#include "data/CalorieCalculator.h"
#include "data/Saturation.h"
#include "desk/AdoptedDesk.h"
#include "desk/Posture.h"

#include <QRandomGenerator>

namespace {
constexpr int kMessageCount = 10;

/// Each word with a capital and small letters after it.
QString capitalized(const QString& text)
{
    QString result = text.toLower();
    for (qsizetype i = 0; i < result.size(); ++i) {
        if (i == 0 || result[i - 1].isSpace())
            result[i] = result[i].toUpper();
    }
    return result;
}

QStringList messages(const QString& keyPrefix)
{
    QStringList list;
    for (int number = 1; number <= kMessageCount; ++number)
        list.append(qtTrId(qPrintable(keyPrefix + QString::number(number))));
    return list;
}

ScheduleManager* schedule()
{
    return AdoptedDesk::hub() ? AdoptedDesk::hub()->scheduleManager() : nullptr;
}

/// The minutes of one stand-up, out of the minutes of an hour.
int32_t minutesPerStandUp(double minutesPerHour)
{
    return saturated<int32_t>(minutesPerHour) / AppProperties::instance().standUpsForDivision();
}
}

Notification::Notification(int32_t newPosition)
    : m_title(randomMessageFromPosition(newPosition))
    , m_message(QStringLiteral(""))
    , m_position(newPosition)
{
    if (newPosition == kStanding)
        describeStandingUp();
    else if (newPosition == kSitting)
        describeSittingDown();
}

QString Notification::randomMessageFromPosition(int32_t position)
{
    const QStringList& list = position == kSitting ? messagesStanding() : messagesSitting();
    const quint32 drawn = QRandomGenerator::system()->generate();
    return list.at(qsizetype(drawn % quint32(list.size())));
}

const QStringList& Notification::messagesStanding()
{
    static const QStringList list = messages(QStringLiteral("StandingMessage"));
    return list;
}

const QStringList& Notification::messagesSitting()
{
    static const QStringList list = messages(QStringLiteral("SittingMessage"));
    return list;
}

void Notification::describeStandingUp()
{
    AppProperties& properties = AppProperties::instance();
    const int32_t minutes = minutesPerStandUp(schedule() ? schedule()->standingPerHour() : 0);
    if (properties.activityMode() == kTimeGoal) {
        m_indicatorValue = QString::number(minutes);
        // Not "Mins": here they are what is to be done, and a language may name them otherwise.
        m_indicatorTitle = capitalized(qtTrId("Minutes", minutes));
        return;
    }
    const auto calories =
        saturated<int32_t>(CalorieCalculator::caloriesBurnedInMinutes(minutes, properties.weight()));
    m_message = QStringLiteral("%1 %2").arg(qtTrId("NotificationDetailMessage1").arg(minutes),
        qtTrId("NotificationDetailMessage2", calories).arg(calories));
    m_indicatorValue = QString::number(calories);
    m_indicatorTitle = capitalized(qtTrId("Calories", calories));
}

void Notification::describeSittingDown()
{
    const int32_t minutes = minutesPerStandUp(schedule() ? schedule()->sittingPerHour() : 0);
    m_indicatorValue = QString::number(minutes);
    m_indicatorTitle = capitalized(qtTrId("Mins", minutes));
    // The key's small "m" is how the string tables have it.
    if (AppProperties::instance().activityMode() != kTimeGoal)
        m_message = qtTrId("NotificationSittingmemory").arg(minutes);
}
