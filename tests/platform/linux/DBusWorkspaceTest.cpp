#include "platform/linux/DBusWorkspace.h"

#include "TestBus.h"

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
        close(m_lock);
    }
    /// True while the program has its end of the lock open.
    [[nodiscard]] bool isLockHeld() const
    {
        char byte = 0;
        return m_lock >= 0 && read(m_lock, &byte, 1) < 0;
    }

    QStringList asked;

public Q_SLOTS:
    QDBusUnixFileDescriptor Inhibit(const QString& what, const QString&, const QString&, const QString& mode)
    {
        asked.append(what + u' ' + mode);
        int ends[2];
        EXPECT_EQ(pipe2(ends, O_CLOEXEC | O_NONBLOCK), 0);
        close(std::exchange(m_lock, ends[0]));
        QDBusUnixFileDescriptor descriptor(ends[1]); // Makes a copy of its own.
        close(ends[1]);
        return descriptor;
    }
    QDBusObjectPath GetSession(const QString& id)
    {
        asked.append(id);
        return QDBusObjectPath(kSessionPath);
    }

private:
    QDBusConnection m_bus;
    int m_lock = -1;
};

namespace {
class DBusWorkspaceTest : public testing::Test {
protected:
    DBusWorkspaceTest()
    {
        m_logind.emplace(m_system);
        m_workspace.onScreensDidSleep([this] { m_heard.append(QStringLiteral("dark")); });
        m_workspace.onWillSleep([this] { hearWithTheLockHeld("sleep"); });
        m_workspace.onWillShutDown([this] { hearWithTheLockHeld("shutdown"); });
        m_workspace.onDidWake([this] { m_heard.append(QStringLiteral("wake")); });
        waitForTheLock();
    }

    void hearWithTheLockHeld(const char* what)
    {
        m_heard.append(QString::fromLatin1(what));
        EXPECT_TRUE(m_logind->isLockHeld()) << "the machine may not sleep before the record is safe";
    }
    void waitForTheLock()
    {
        EXPECT_TRUE(waitFor([&] { return m_logind->isLockHeld() && m_logind->asked.size() == 2; }));
        settle();
    }
    /// What was sent so far arrives.
    void settle()
    {
        for (const QDBusConnection& connection : {m_session, m_system, m_watchedSession, m_watchedSystem})
            TestBus::settle(connection);
        QCoreApplication::processEvents();
    }

    /// A service says something, and it arrives. "+": dark, asleep or going down, "-": over, "?": unknown.
    void say(const QString& what)
    {
        const bool on = what.endsWith(u'+');
        const QString service = what.chopped(1);
        const bool isAboutLock = service.startsWith(QStringLiteral("Prepare"));
        if (service == QStringLiteral("power") || service == QStringLiteral("panel"))
            changeProperty(m_session, QStringLiteral("/org/gnome/Mutter/DisplayConfig"),
                QStringLiteral("org.gnome.Mutter.DisplayConfig"),
                service == QStringLiteral("power") ? "PowerSaveMode" : "PanelOrientationManaged",
                what.endsWith(u'?') ? -1 : on * 3);
        else if (service == QStringLiteral("LockedHint") || service == QStringLiteral("IdleHint"))
            changeProperty(m_system, kSessionPath, QStringLiteral("org.freedesktop.login1.Session"),
                service.toLatin1().constData(), on);
        else if (isAboutLock)
            send(m_system, kLogindPath, QStringLiteral("org.freedesktop.login1.Manager"), service, {on});
        else if (service == QStringLiteral("kde")) // It uses the general name in two places.
            send(m_session, QStringLiteral("/ScreenSaver"), QStringLiteral("org.freedesktop.ScreenSaver"),
                QStringLiteral("ActiveChanged"), {on});
        else
            send(m_session, QStringLiteral("/org/%1/ScreenSaver").arg(service),
                QStringLiteral("org.%1.ScreenSaver").arg(service), QStringLiteral("ActiveChanged"), {on});
        settle();
        EXPECT_TRUE(waitFor([&] { return !isAboutLock || m_logind->isLockHeld() != on; }))
            << qPrintable(what);
    }
    static void changeProperty(const QDBusConnection& bus, const QString& path, const QString& interface,
        const char* property, const QVariant& value)
    {
        send(bus, path, QStringLiteral("org.freedesktop.DBus.Properties"),
            QStringLiteral("PropertiesChanged"),
            {interface, QVariantMap {{QString::fromLatin1(property), value}}, QStringList()});
    }
    static void send(const QDBusConnection& bus, const QString& path, const QString& interface,
        const QString& name, const QVariantList& arguments)
    {
        QDBusMessage message = QDBusMessage::createSignal(path, interface, name);
        message.setArguments(arguments);
        bus.send(message);
    }

    TestBus m_systemBus;
    TestBus m_sessionBus;
    QDBusConnection m_system = m_systemBus.connect();
    QDBusConnection m_session = m_sessionBus.connect();
    std::optional<FakeLogind> m_logind;
    QDBusConnection m_watchedSystem = m_systemBus.connect();
    QDBusConnection m_watchedSession = m_sessionBus.connect();
    DBusWorkspace m_workspace {m_watchedSystem, m_watchedSession};
    QStringList m_heard;
};

TEST_F(DBusWorkspaceTest, tellsTheFirstEdgeOfWhatManyServicesSay)
{
    // What is on at the end of a row is switched off before the next.
    const char* const kTestCases[][2] = {
        {"gnome+ gnome- gnome+ gnome-", "dark dark"}, // lock, unlock, lock
        {"LockedHint+ LockedHint- LockedHint+ LockedHint-", "dark dark"},
        {"gnome+ gnome+ gnome- gnome- gnome+ gnome-", "dark dark"},
        {"gnome+ power+ power+ kde+ LockedHint+ LockedHint- kde- power- gnome-", "dark"},
        {"gnome+ power+ power- gnome- power+ power-", "dark dark"},
        {"gnome+ kde+ kde- kde+ kde- gnome-", "dark dark"}, // a locker that is stuck
        {"power? power-", ""}, // no mode is known
        {"power+ panel+ power+ power-", "dark"}, {"LockedHint+ IdleHint- LockedHint+ LockedHint-", "dark"},
        {"freedesktop+ freedesktop- cinnamon+ cinnamon- mate+ mate- xfce+ xfce-", "dark dark dark dark"},
        {"PrepareForSleep+ PrepareForSleep- PrepareForSleep+ PrepareForSleep-", "sleep wake sleep wake"},
        {"LockedHint+ PrepareForSleep+ PrepareForSleep- LockedHint- LockedHint+ LockedHint-",
            "dark sleep wake dark"},
        {"PrepareForShutdown+ PrepareForShutdown-", "shutdown"}, // called off
        {"PrepareForSleep-", "wake"}, // of a sleep that was not announced
    };
    for (const auto& [said, heard] : kTestCases) {
        m_heard.clear();
        for (const QString& what : QString::fromLatin1(said).split(u' '))
            say(what);
        EXPECT_EQ(m_heard.join(u' ').toStdString(), heard) << said;
    }
    EXPECT_EQ(m_logind->asked.size(), 6) << "for the session, and for the lock after what ended";
    m_logind.reset();
    m_logind.emplace(m_system);
    waitForTheLock(); // A logind that starts again is heard, and asked for the lock anew.
    m_heard.clear();
    say(QStringLiteral("PrepareForSleep+"));
    EXPECT_EQ(m_heard, QStringList {QStringLiteral("sleep")});
    EXPECT_EQ(m_logind->asked.join(u' '), QStringLiteral("sleep:shutdown delay auto"));
}
}

#include "DBusWorkspaceTest.moc"
