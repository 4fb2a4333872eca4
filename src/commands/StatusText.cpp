#include "commands/StatusText.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <iterator>

namespace {
struct DeskWords {
    Status::Desk desk;
    const char* name;
    const char* permission; ///< to use the adapter; none where it is not known
    const char* sentence;
};

constexpr DeskWords kDesks[] = {
    {Status::Desk::None, "none", nullptr, "no adapter is plugged in"},
    {Status::Desk::Forbidden, "forbidden", "denied", "no permission to open the adapter; to allow it, run:"},
    {Status::Desk::Busy, "busy", "granted", "another program uses the adapter"},
    {Status::Desk::Unusable, "unusable", nullptr, "the adapter cannot be opened"},
    {Status::Desk::Silent, "silent", "granted", "adapter found, but no desk responds"},
    {Status::Desk::Connected, "connected", "granted", "connected"},
};

QString line(const char* title, const QString& text)
{
    return QStringLiteral("%1 %2\n").arg(QLatin1String(title), -10).arg(text);
}

QString deskLines(const QVariantMap& facts)
{
    const QString name = facts[QStringLiteral("desk")].toString();
    const auto* const words = std::find_if(std::begin(kDesks), std::end(kDesks),
        [&name](const DeskWords& known) { return name == QLatin1String(known.name); });
    QString text = words == std::end(kDesks) ? name : QString::fromLatin1(words->sentence);
    if (const QString adapter = facts[QStringLiteral("adapter")].toString(); !adapter.isEmpty())
        text += QStringLiteral(" (%1)").arg(adapter);
    QString lines = line("Desk:", text);
    for (const QString& command : facts[QStringLiteral("cure")].toStringList())
        lines += line("", command);
    return lines;
}

QString posture(const QVariantMap& facts)
{
    QString text = facts[QStringLiteral("posture")].toString();
    if (const auto minutes = facts.constFind(QStringLiteral("minutes")); minutes != facts.cend())
        text += QStringLiteral(" for %1 min").arg(minutes->toInt());
    if (facts[QStringLiteral("paused")].toBool())
        text += QStringLiteral(", paused while you are away");
    if (const auto left = facts.constFind(QStringLiteral("minutes_to_change")); left != facts.cend())
        text += QStringLiteral(", to change in %1 min").arg(left->toInt());
    return text;
}
}

QVariantMap facts(const Status& status)
{
    const DeskWords& desk = *std::find_if(std::begin(kDesks), std::end(kDesks),
        [&status](const DeskWords& known) { return known.desk == status.desk; });
    QVariantMap facts {
        {QStringLiteral("desk"), QLatin1String(desk.name)}, {QStringLiteral("paused"), status.isPaused}};
    const auto add = [&facts](const char* name, const auto& value) {
        if (!value.isEmpty())
            facts.insert(QLatin1String(name), value);
    };
    add("permission", QString::fromLatin1(desk.permission));
    add("adapter", status.adapter);
    add("cure", status.cure);
    add("posture", status.posture);
    add("idle_source", status.idleSource);
    if (status.height) {
        facts[QStringLiteral("height")] = status.height->shown;
        facts[QStringLiteral("height_mm")] = qint64(status.height->millimetres);
        facts[QStringLiteral("height_raw")] = status.height->raw;
    }
    if (status.period) {
        facts[QStringLiteral("since")] = qint64(status.period->since);
        facts[QStringLiteral("minutes")] = status.period->minutes;
    }
    if (status.minutesToChange)
        facts[QStringLiteral("minutes_to_change")] = *status.minutesToChange;
    if (status.goal) {
        facts[QStringLiteral("goal_percent")] = status.goal->percent;
        facts[QStringLiteral("goal_done")] = status.goal->done;
        facts[QStringLiteral("goal_target")] = status.goal->target;
        facts[QStringLiteral("goal_unit")] = status.goal->unit;
    }
    return facts;
}

QByteArray factsAsJson(const QVariantMap& facts)
{
    return QJsonDocument(QJsonObject::fromVariantMap(facts)).toJson(QJsonDocument::Compact);
}

QString factsAsText(const QVariantMap& facts)
{
    const auto word = [&facts](const char* name) { return facts[QLatin1String(name)].toString(); };
    QString text = deskLines(facts);
    if (facts.contains(QStringLiteral("height")))
        text += line("Height:", QStringLiteral("%1 (%2 mm)").arg(word("height"), word("height_mm")));
    if (facts.contains(QStringLiteral("posture")))
        text += line("Posture:", posture(facts));
    if (facts.contains(QStringLiteral("goal_percent"))) {
        text += line("Today:",
            QStringLiteral("%1% of the goal, %2 of %3 %4")
                .arg(word("goal_percent"), word("goal_done"), word("goal_target"), word("goal_unit")));
    }
    if (facts.contains(QStringLiteral("idle_source")))
        text += line("Idle time:", word("idle_source"));
    return text;
}
