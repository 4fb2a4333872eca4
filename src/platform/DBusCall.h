#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

#include <utility>

/// Sends the message and never waits: the handler hears of the answer, or of what went wrong, on the main
/// loop, unless the receiver is gone by then.
/// @param timeoutMs after which there was no answer; -1 for the bus's own 25 s
template <typename Handler>
void askBus(const QDBusConnection& bus, const QDBusMessage& message, QObject* receiver, Handler handler,
    int timeoutMs = -1)
{
    auto* const call = new QDBusPendingCallWatcher(bus.asyncCall(message, timeoutMs), receiver);
    QObject::connect(call, &QDBusPendingCallWatcher::finished, receiver,
        [handler = std::move(handler)](QDBusPendingCallWatcher* finished) mutable {
            finished->deleteLater();
            handler(*finished);
        });
}
