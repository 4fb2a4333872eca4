#include "commands/CommandClient.h"

#include "commands/BusNames.h"
#include "commands/StatusText.h"
#include "platform/RunLoop.h"

#include <QDBusError>
#include <QDBusReply>
#include <QDBusServiceWatcher>
#include <QEventLoop>
#include <QTextStream>

#include <csignal>
#include <unistd.h>

namespace {
constexpr unsigned kPatienceSeconds = 2;
/// What the bus says of a program that it could start, were it allowed to.
const QString kNameHasNoOwner = QStringLiteral("org.freedesktop.DBus.Error.NameHasNoOwner");
const QString kConnectionName = QStringLiteral("commands");

/// Runs as a signal handler.
void giveUp(int)
{
    static constexpr char kSentence[] = "zelvo-standup: The session bus does not answer.\n";
    [[maybe_unused]] const ssize_t written = write(STDERR_FILENO, kSentence, sizeof kSentence - 1);
    _exit(1);
}

/// Nothing but a signal ends the wait for a bus that takes a connection and then says nothing.
QDBusConnection connectInTime()
{
    std::signal(SIGALRM, giveUp);
    alarm(kPatienceSeconds);
    QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, kConnectionName);
    alarm(0);
    return bus;
}

CommandClient::Answer judge(const QDBusMessage& reply)
{
    if (reply.type() != QDBusMessage::ErrorMessage)
        return CommandClient::Answer::Done;
    const QDBusError::ErrorType error = QDBusError(reply).type();
    if (error == QDBusError::ServiceUnknown || error == QDBusError::Disconnected
        || reply.errorName() == kNameHasNoOwner)
        return CommandClient::Answer::NotRunning;
    CommandClient::tell(error == QDBusError::NoReply || error == QDBusError::Timeout
            ? QStringLiteral("The program runs, but does not answer.")
            : reply.errorMessage());
    return CommandClient::Answer::Failed;
}
}

CommandClient::CommandClient()
    : m_bus(connectInTime())
{
}

CommandClient::~CommandClient()
{
    QDBusConnection::disconnectFromBus(kConnectionName);
}

void CommandClient::tell(const QString& sentence)
{
    QTextStream(stderr) << QStringLiteral("zelvo-standup: %1\n").arg(sentence);
}

void CommandClient::tellNotRunning() const
{
    tell(m_bus.isConnected()
            ? QStringLiteral("The program is not running.")
            : QStringLiteral("There is no session bus on which the program could be asked."));
}

CommandClient::Answer CommandClient::perform(const QString& action, const QString& activationToken)
{
    QVariantMap platformData;
    if (!activationToken.isEmpty())
        platformData.insert(BusNames::kActivationToken, activationToken);
    const auto ask = [&] {
        return call(
            BusNames::kApplication, QStringLiteral("ActivateAction"), {action, QVariantList(), platformData});
    };
    if (action != QLatin1String("quit"))
        return judge(ask());

    bool hasLeft = false;
    QEventLoop loop;
    const QDBusServiceWatcher watcher(BusNames::kService, m_bus, QDBusServiceWatcher::WatchForUnregistration);
    QObject::connect(&watcher, &QDBusServiceWatcher::serviceUnregistered, &loop, [&] {
        hasLeft = true;
        loop.quit();
    });
    const Answer answer = judge(ask());
    if (answer != Answer::Done)
        return answer;
    TimerScope timers;
    timers.schedule(kPatienceSeconds, RunLoop::Repeat::No, [&loop](Timer&) { loop.quit(); });
    loop.exec();
    if (hasLeft)
        return Answer::Done;
    tell(QStringLiteral("The program was asked to quit but is still running."));
    return Answer::Failed;
}

CommandClient::Answer CommandClient::askStatus(QVariantMap& status) const
{
    const QDBusMessage reply = call(BusNames::kStandUp, QStringLiteral("Status"));
    status = QDBusReply<QVariantMap>(reply).value();
    return judge(reply);
}

CommandClient::Answer CommandClient::printStatus(bool asJson)
{
    QVariantMap status;
    const Answer answer = askStatus(status);
    if (answer == Answer::Done)
        QTextStream(stdout) << (asJson ? QString::fromUtf8(factsAsJson(status)) + u'\n'
                                       : factsAsText(status));
    return answer;
}

QDBusMessage CommandClient::call(
    const QString& interface, const QString& method, const QVariantList& arguments) const
{
    QDBusMessage message =
        QDBusMessage::createMethodCall(BusNames::kService, BusNames::kPath, interface, method);
    message.setArguments(arguments);
    message.setAutoStartService(false);
    return m_bus.call(message, QDBus::Block, int(kPatienceSeconds * 1000));
}
