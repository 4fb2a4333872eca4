#pragma once

#include "commands/CommandClient.h"
#include "platform/RunLoop.h"

#include <QEventLoop>
#include <QObject>
#include <QSocketNotifier>

/// Prints the status of the running program as JSON, one line at each change, until the program ends or
/// nobody reads any more. The program tells of what happens; that a minute of the open period is over it
/// leaves to whoever wants to know, so that it sleeps while nobody does.
class StatusWatch final : public QObject {
    Q_OBJECT

public:
    explicit StatusWatch(CommandClient& client);

    /// Returns at the end, or at once when the program does not run.
    [[nodiscard]] CommandClient::Answer run();

private Q_SLOTS:
    void look();

private:
    void print(const QVariantMap& status);
    void lookAfter(double seconds);

    CommandClient& m_client;
    QEventLoop m_loop;
    QSocketNotifier m_reader;
    QByteArray m_printed;
    TimerRef m_minute;
    TimerScope m_timers;
};
