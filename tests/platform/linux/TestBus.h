#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QProcess>

#include <functional>
#include <gtest/gtest.h>
#include <utility>

/// A server program of the test's own, which says on its first line where it is reached.
struct TestServer {
    TestServer(const QString& program, const QStringList& arguments)
    {
        process.start(program, arguments);
        EXPECT_TRUE(process.waitForReadyRead(10'000)) << qPrintable(program) << " does not start";
        address = process.readLine().trimmed();
    }
    ~TestServer() { stop(); }
    Q_DISABLE_COPY_MOVE(TestServer)

    /// The server dies, and every connection to it.
    void stop()
    {
        process.kill();
        process.waitForFinished();
    }

    QProcess process;
    QByteArray address;
};

/// An X server without a screen of its own. DISPLAY names it.
struct XvfbServer : TestServer {
    XvfbServer()
        : TestServer("Xvfb", {"-displayfd", "1", "-noreset"})
    {
        qputenv("DISPLAY", ':' + address);
    }
};

/// A message bus of the test's own. Every connection is a private one, so that the test's services and the
/// class under test are strangers on the bus, as in a real session.
struct TestBus {
    ~TestBus() { std::for_each(m_names.begin(), m_names.end(), QDBusConnection::disconnectFromBus); }

    QDBusConnection connect()
    {
        static int s_count = 0;
        m_names.append(QString("test-%1").arg(++s_count));
        return QDBusConnection::connectToBus(m_daemon.address, m_names.back());
    }
    static void sendSignal(const QDBusConnection& connection, const QString& path, const QString& interface,
        const QString& name, const QVariantList& arguments = {})
    {
        QDBusMessage message = QDBusMessage::createSignal(path, interface, name);
        message.setArguments(arguments);
        connection.send(message);
    }
    /// Everything sent before on this connection has reached its receivers' queues when this returns.
    static void settle(const QDBusConnection& connection)
    {
        connection.call(
            QDBusMessage::createMethodCall("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "GetId"));
    }

    TestServer m_daemon {"dbus-daemon", {"--session", "--nofork", "--print-address"}};
    QStringList m_names;
};

/// A service with one object, on the bus while it lives.
struct TestService final : QDBusVirtualObject {
    using Answer = std::function<QVariant(const QDBusMessage& call)>;

    TestService(QDBusConnection bus, QString name, const QString& path, Answer answer)
        : m_bus(std::move(bus))
        , m_name(std::move(name))
        , m_answer(std::move(answer))
    {
        m_bus.registerVirtualObject(path, this);
        m_bus.registerService(m_name);
    }
    ~TestService() override { m_bus.unregisterService(m_name); }

    [[nodiscard]] QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& call, const QDBusConnection& bus) override
    {
        return bus.send(call.createReply(m_answer(call)));
    }

    QDBusConnection m_bus;
    QString m_name;
    Answer m_answer;
};
