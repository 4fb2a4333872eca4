#include "Narrator.h"

#include "platform/RunLoop.h"

#include <QDateTime>
#include <QTextStream>

namespace {
void print(const QString& line)
{
    QTextStream(stdout) << line << Qt::endl;
}
}

void Narrator::chapter(const QString& title)
{
    print(QStringLiteral("\n%1  == %2 ==").arg(timeOfDay(), title));
}

void Narrator::say(const QString& text)
{
    print(QStringLiteral("%1  %2").arg(timeOfDay(), text));
}

bool Narrator::check(bool holds, const QString& what)
{
    ++m_checks;
    if (!holds)
        ++m_failures;
    print(QStringLiteral("%1  %2 %3")
              .arg(timeOfDay(), holds ? QStringLiteral("[ok]") : QStringLiteral("[FAILED]"), what));
    return holds;
}

QString Narrator::timeOfDay()
{
    const auto milliseconds = qint64(RunLoop::main().now() * 1000.0 + 0.5);
    return QDateTime::fromMSecsSinceEpoch(milliseconds, Qt::UTC)
        .toString(QStringLiteral("hh:mm:ss.z"))
        .leftJustified(10, u'0', true);
}
