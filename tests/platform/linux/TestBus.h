#pragma once

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QEventLoop>
#include <QProcess>
#include <QThread>

#include <atomic>
#include <chrono>
#include <functional>
#include <gtest/gtest.h>
#include <vector>

/// Runs the event loop until the condition holds; false when it does not within the limit. For what crosses a
/// thread, a process or a bus.
inline bool waitFor(
    const std::function<bool()>& condition, std::chrono::milliseconds limit = std::chrono::seconds(5))
{
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        QThread::msleep(1);
    }
    return true;
}

/// A message bus of the test's own. Every connection is a private one, so that the test's fake services and
/// the class under test are strangers on the bus, as in a real session.
class TestBus {
public:
    TestBus()
    {
        m_daemon.start(QStringLiteral("dbus-daemon"),
            {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--print-address")});
        EXPECT_TRUE(m_daemon.waitForReadyRead(5000)) << "dbus-daemon does not start";
        m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
    }
    ~TestBus()
    {
        for (const QString& name : m_names)
            QDBusConnection::disconnectFromBus(name);
        m_daemon.kill();
        m_daemon.waitForFinished();
    }
    TestBus(const TestBus&) = delete;
    TestBus& operator=(const TestBus&) = delete;

    QDBusConnection connect()
    {
        static std::atomic<int> s_count = 0;
        m_names.push_back(QStringLiteral("test-%1").arg(++s_count));
        return QDBusConnection::connectToBus(m_address, m_names.back());
    }
    /// Everything sent before on this connection has reached its receivers' queues when this returns.
    static void settle(const QDBusConnection& connection)
    {
        connection.call(QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"),
            QStringLiteral("/"), QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetId")));
    }

private:
    QProcess m_daemon;
    QString m_address;
    std::vector<QString> m_names;
};
