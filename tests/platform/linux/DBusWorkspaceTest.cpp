#include "platform/linux/DBusWorkspace.h"

#include "TestBus.h"

#include <QDBusContext>
#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <QStringList>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <optional>
#include <unistd.h>

namespace {
const QString kLogindPath = QStringLiteral("/org/freedesktop/login1");
const QString kSessionPath = QStringLiteral("/org/freedesktop/login1/session/_32");
}

/// As much of logind as a session program meets. The other end of a pipe shows whether a delay lock is held.
class FakeLogind : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.login1.Manager")

public:
    explicit FakeLogind(const QDBusConnection& bus)
        : m_bus(bus)
    {
        m_bus.registerObject(kLogindPath, this, QDBusConnection::ExportAllSlots);
        m_bus.registerService(QStringLiteral("org.freedesktop.login1"));
    }
    ~FakeLogind() override
    {
        m_bus.unregisterService(QStringLiteral("org.freedesktop.login1"));
        closeLock();
    }

    QStringList inhibited;

    /// True while the program has its end of the lock open.
    [[nodiscard]] bool isLockHeld() const
    {
        char byte = 0;
        return m_lock >= 0 && read(m_lock, &byte, 1) < 0;
    }
    void say(const QString& signal, bool argument)
    {
        QDBusMessage message =
            QDBusMessage::createSignal(kLogindPath, QStringLiteral("org.freedesktop.login1.Manager"), signal);
        m_bus.send(message << argument);
    }
    void setLockedHint(bool isLocked)
    {
        QDBusMessage message = QDBusMessage::createSignal(kSessionPath,
            QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("PropertiesChanged"));
        message << QStringLiteral("org.freedesktop.login1.Session")
                << QVariantMap {{QStringLiteral("LockedHint"), isLocked}} << QStringList();
        m_bus.send(message);
    }

public Q_SLOTS:
    QDBusUnixFileDescriptor Inhibit(const QString& what, const QString&, const QString&, const QString& mode)
    {
        inhibited.append(what + QLatin1Char(' ') + mode);
        closeLock();
        int ends[2];
        if (pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0)
            return {};
        m_lock = ends[0];
        QDBusUnixFileDescriptor descriptor(ends[1]); // Makes a copy of its own.
        close(ends[1]);
        return descriptor;
    }
    QDBusObjectPath GetSession(const QString& id)
    {
        sessionAsked = id;
        return QDBusObjectPath(kSessionPath);
    }

public:
    QString sessionAsked;

private:
    void closeLock()
    {
        if (m_lock >= 0)
            close(m_lock);
        m_lock = -1;
    }

    QDBusConnection m_bus;
    int m_lock = -1;
};

namespace {
class DBusWorkspaceTest : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_system.isRunning() && m_session.isRunning());
        startWorkspace();
    }

    void startWorkspace()
    {
        m_workspace.emplace(m_system.connect(), m_session.connect());
        m_workspace->onScreensDidSleep([this] { m_events.append(QStringLiteral("dark")); });
        m_workspace->onWillShutDown([this] {
            m_events.append(QStringLiteral("will shut down"));
            m_wasLockHeld = m_logind && m_logind->isLockHeld();
        });
        m_workspace->onWillSleep([this] {
            m_events.append(QStringLiteral("will sleep"));
            m_wasLockHeld = m_logind && m_logind->isLockHeld();
        });
        m_workspace->onDidWake([this] { m_events.append(QStringLiteral("wake")); });
    }

    void startLogind() { m_logind.emplace(m_system.connect()); }
    void screenSaver(const char* path, const char* interface, bool isActive)
    {
        QDBusMessage message = QDBusMessage::createSignal(
            QLatin1String(path), QLatin1String(interface), QStringLiteral("ActiveChanged"));
        m_desktop.send(message << isActive);
        settle();
    }
    void powerSaveMode(int mode)
    {
        QDBusMessage message = QDBusMessage::createSignal(QStringLiteral("/org/gnome/Mutter/DisplayConfig"),
            QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("PropertiesChanged"));
        m_desktop.send(message << QStringLiteral("org.gnome.Mutter.DisplayConfig")
                               << QVariantMap {{QStringLiteral("PowerSaveMode"), mode}} << QStringList());
        settle();
    }
    /// Lets what was sent so far arrive.
    void settle()
    {
        TestBus::settle(m_desktop);
        QThread::msleep(10);
        QCoreApplication::processEvents();
    }
    bool waitForEvents(const QStringList& events)
    {
        return waitFor([&] { return m_events == events; });
    }

    TestBus m_system;
    TestBus m_session;
    QDBusConnection m_desktop = m_session.connect();
    std::optional<FakeLogind> m_logind;
    std::optional<DBusWorkspace> m_workspace;
    QStringList m_events;
    bool m_wasLockHeld = false;
};

TEST_F(DBusWorkspaceTest, sleepWaitsForTheRecordAndEndsWithAWake)
{
    startLogind();
    startWorkspace();
    ASSERT_TRUE(waitFor([&] { return m_logind->isLockHeld(); }));

    m_logind->say(QStringLiteral("PrepareForSleep"), true);
    ASSERT_TRUE(waitForEvents({QStringLiteral("dark"), QStringLiteral("will sleep")}));
    EXPECT_TRUE(m_wasLockHeld) << "the machine may not sleep before the record is safe";
    EXPECT_TRUE(waitFor([&] { return !m_logind->isLockHeld(); })) << "and must not be held up afterwards";

    m_logind->say(QStringLiteral("PrepareForSleep"), false);
    ASSERT_TRUE(
        waitForEvents({QStringLiteral("dark"), QStringLiteral("will sleep"), QStringLiteral("wake")}));
    EXPECT_TRUE(waitFor([&] { return m_logind->isLockHeld(); })) << "the next sleep is waited with again";
    EXPECT_EQ(m_logind->inhibited.last(), QStringLiteral("sleep:shutdown delay"));
}

TEST_F(DBusWorkspaceTest, aLogindThatStartsLateOrAgainIsHeard)
{
    startLogind();
    ASSERT_TRUE(waitFor([&] { return m_logind->isLockHeld(); }));
    m_logind.reset();
    startLogind();
    ASSERT_TRUE(waitFor([&] { return m_logind->isLockHeld(); }));
    m_logind->say(QStringLiteral("PrepareForSleep"), false);
    EXPECT_TRUE(waitForEvents({QStringLiteral("wake")}));
}

TEST_F(DBusWorkspaceTest, aShutdownWaitsForTheRecordToo)
{
    startLogind();
    ASSERT_TRUE(waitFor([&] { return m_logind->isLockHeld(); }));
    m_logind->say(QStringLiteral("PrepareForShutdown"), true);
    ASSERT_TRUE(waitForEvents({QStringLiteral("will shut down")}));
    EXPECT_TRUE(m_wasLockHeld);
    EXPECT_TRUE(waitFor([&] { return !m_logind->isLockHeld(); }));
}

TEST_F(DBusWorkspaceTest, everyScreenSaverIsHeard)
{
    const struct TestCase {
        const char* path;
        const char* interface;
    } kTestCases[] = {
        {"/ScreenSaver", "org.freedesktop.ScreenSaver"},
        {"/org/freedesktop/ScreenSaver", "org.freedesktop.ScreenSaver"},
        {"/org/gnome/ScreenSaver", "org.gnome.ScreenSaver"},
        {"/org/cinnamon/ScreenSaver", "org.cinnamon.ScreenSaver"},
        {"/org/mate/ScreenSaver", "org.mate.ScreenSaver"},
        {"/org/xfce/ScreenSaver", "org.xfce.ScreenSaver"},
    };
    for (const auto& test : kTestCases) {
        SCOPED_TRACE(test.interface);
        m_events.clear();
        screenSaver(test.path, test.interface, true);
        EXPECT_TRUE(waitForEvents({QStringLiteral("dark")}));
        screenSaver(test.path, test.interface, false);
    }
}

TEST_F(DBusWorkspaceTest, oneEventThroughSeveralSignalsCountsOnce)
{
    screenSaver("/org/gnome/ScreenSaver", "org.gnome.ScreenSaver", true);
    powerSaveMode(3);
    powerSaveMode(3);
    screenSaver("/ScreenSaver", "org.freedesktop.ScreenSaver", true);
    EXPECT_TRUE(waitForEvents({QStringLiteral("dark")}));

    powerSaveMode(0);
    screenSaver("/org/gnome/ScreenSaver", "org.gnome.ScreenSaver", false);
    powerSaveMode(3);
    EXPECT_TRUE(waitForEvents({QStringLiteral("dark"), QStringLiteral("dark")}));
}

TEST_F(DBusWorkspaceTest, anUnknownPowerModeIsNotDark)
{
    powerSaveMode(-1);
    powerSaveMode(0);
    EXPECT_TRUE(m_events.isEmpty());
}

TEST_F(DBusWorkspaceTest, aLockedSessionCountsAsDark)
{
    startLogind();
    startWorkspace();
    ASSERT_TRUE(waitFor([&] { return m_logind->isLockHeld() && !m_logind->sessionAsked.isEmpty(); }));
    settle();
    m_logind->setLockedHint(true);
    EXPECT_TRUE(waitForEvents({QStringLiteral("dark")}));
}

TEST(DBusWorkspaceWithoutBus, doesNothing)
{
    const QDBusConnection none(QStringLiteral("no such connection"));
    DBusWorkspace workspace(none, none);
    EXPECT_FALSE(workspace.openUrl(QUrl()));
}
}

#include "DBusWorkspaceTest.moc"
