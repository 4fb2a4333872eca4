#include "commands/StatusWatch.h"

#include "commands/BusNames.h"
#include "commands/StatusText.h"

#include <QDBusServiceWatcher>

#include <cmath>
#include <cstdio>
#include <unistd.h>

namespace {
constexpr double kMinute = 60;
constexpr double kUntilAgain = 2; // After a question that a busy program did not answer.
constexpr double kBehindTheMinute = 0.1; // So that the next look is not one too early.
}

// An exceptional state of the output is a pipe without a reader.
StatusWatch::StatusWatch(CommandClient& client)
    : m_client(client)
    , m_reader(STDOUT_FILENO, QSocketNotifier::Exception)
{
    connect(&m_reader, &QSocketNotifier::activated, &m_loop, &QEventLoop::quit);
}

CommandClient::Answer StatusWatch::run()
{
    QDBusConnection bus = m_client.bus();
    const QDBusServiceWatcher program(BusNames::kService, bus, QDBusServiceWatcher::WatchForUnregistration);
    connect(&program, &QDBusServiceWatcher::serviceUnregistered, &m_loop, &QEventLoop::quit);
    bus.connect(BusNames::kService, BusNames::kPath, BusNames::kStandUp, QStringLiteral("Changed"), this,
        SLOT(look()));

    QVariantMap status;
    const CommandClient::Answer answer = m_client.askStatus(status);
    if (answer != CommandClient::Answer::Done)
        return answer;
    print(status);
    m_loop.exec();
    return answer;
}

void StatusWatch::look()
{
    // A program that is too busy to answer is asked again, and one that has gone leaves the bus.
    QVariantMap status;
    if (m_client.askStatus(status) == CommandClient::Answer::Done)
        print(status);
    else
        lookAfter(kUntilAgain);
}

void StatusWatch::print(const QVariantMap& status)
{
    const QByteArray line = factsAsJson(status) + '\n';
    if (line != m_printed && (std::fputs(line.constData(), stdout) == EOF || std::fflush(stdout) != 0))
        m_loop.quit();
    m_printed = line;

    invalidate(m_minute);
    if (!status.contains(QStringLiteral("since")))
        return;
    const double seconds = RunLoop::main().now() - status[QStringLiteral("since")].toDouble();
    const double untilNext = kMinute - std::fmod(std::fmax(seconds, 0), kMinute);
    lookAfter(untilNext + kBehindTheMinute);
}

void StatusWatch::lookAfter(double seconds)
{
    invalidate(m_minute);
    m_minute = m_timers.schedule(
        seconds, RunLoop::Repeat::No, [this](Timer&) { look(); }, {}, RunLoop::Precision::Precise);
}
