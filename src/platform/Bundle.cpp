#include "platform/Bundle.h"

#include "platform/Log.h"
#include "platform/ProcessServices.h"

#include <QFile>
#include <QJsonDocument>

#include <cmath>
#include <cstdlib>
#include <utility>

namespace {
/// POSIX: the first of these that is set and not empty decides about dates.
QString environmentLocaleName()
{
    for (const char* variable : {"LC_ALL", "LC_TIME", "LANG"}) {
        if (const char* value = getenv(variable); value && *value)
            return QString::fromLocal8Bit(value);
    }
    return QStringLiteral("C");
}
}

Bundle::Bundle(QJsonObject information)
    : m_information(std::move(information))
{
}

QJsonObject Bundle::compiledInformation()
{
    QFile file(QStringLiteral(":/Info.json"));
    const bool opened = file.open(QIODevice::ReadOnly);
    const QJsonDocument document = opened ? QJsonDocument::fromJson(file.readAll()) : QJsonDocument();
    if (!document.isObject())
        Log::line(QStringLiteral("The program's information keys (Info.json) cannot be read."));
    return document.object();
}

QJsonValue Bundle::information(const QString& key) const
{
    if (!m_information.contains(key))
        Log::once(QStringLiteral("The program's information key \"%1\" is missing.").arg(key));
    return m_information.value(key);
}

std::optional<QString> Bundle::stringValue(const QString& key) const
{
    const QJsonValue value = information(key);
    if (value.isUndefined() || value.isNull())
        return std::nullopt;
    return value.toVariant().toString();
}

double Bundle::numberValue(const QString& key) const
{
    const QJsonValue value = information(key);
    const double number = value.isString() ? value.toString().toDouble() : value.toDouble();
    return std::isfinite(number) ? number : 0; // "nan" and "inf" are numbers to Qt.
}

QString Bundle::imagePath(const QString& name)
{
    return QStringLiteral(":/images/%1.svg").arg(name);
}

QLocale Bundle::locale() const
{
    return {};
}

QString Bundle::calendarLocaleName() const
{
    const QLocale chosen = locale();
    return chosen == QLocale::system() ? environmentLocaleName() : chosen.name();
}

Bundle& Bundle::main()
{
    return *ProcessServices::installed().backends().bundle;
}
