#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QProcess>

#include <gtest/gtest.h>

/// A message bus of the test's own. Every connection is a private one, so that the test's fake services and
/// the class under test are strangers on the bus, as in a real session.
class TestBus {
public:
    TestBus()
    {
        m_daemon.start("dbus-daemon", {"--session", "--nofork", "--print-address"});
        EXPECT_TRUE(m_daemon.waitForReadyRead(10'000)) << "dbus-daemon does not start";
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
        static int s_count = 0;
        m_names.append(QString("test-%1").arg(++s_count));
        return QDBusConnection::connectToBus(m_address, m_names.back());
    }
    /// Everything sent before on this connection has reached its receivers' queues when this returns.
    static void settle(const QDBusConnection& connection)
    {
        connection.call(
            QDBusMessage::createMethodCall("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "GetId"));
    }

private:
    QProcess m_daemon;
    QString m_address;
    QStringList m_names;
};
