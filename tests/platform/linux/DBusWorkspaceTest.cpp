#include "platform/linux/DBusWorkspace.h"

#include "TestBus.h"

#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <QtCore/qtestsupport_core.h>

#include <fcntl.h>
#include <optional>
#include <unistd.h>

namespace {
const QString kLogindPath = "/org/freedesktop/login1";
const QString kProperties = "org.freedesktop.DBus.Properties";
const QString kChanged = "PropertiesChanged";
const QString kSessionPath = "/org/freedesktop/login1/session/_32";
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
        m_bus.registerService("org.freedesktop.login1");
    }
    ~FakeLogind() override
    {
        m_bus.unregisterService("org.freedesktop.login1");
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
        m_workspace.onScreensDidSleep([this] { hear("dark"); });
        m_workspace.onWillSleep([this] { hear("sleep"); });
        m_workspace.onWillShutDown([this] { hear("shutdown"); });
        m_workspace.onDidWake([this] { m_heard.append("wake"); });
    }

    /// The machine may not sleep before the record is safe.
    void hear(const char* what) { m_heard.append(m_logind->isLockHeld() ? what : "too late"); }
    /// A logind is there, and the program has heard of it.
    void startLogind()
    {
        m_logind.reset();
        m_logind.emplace(m_system);
        EXPECT_TRUE(QTest::qWaitFor([&] { return m_logind->isLockHeld() && m_logind->asked.size() == 2; }));
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
        const QString topic = what.chopped(1);
        const QVariant value = what.endsWith(u'?') ? -1 : QVariant(on);
        const auto change = [&](const QString& interface) {
            return QVariantList {interface, QVariantMap {{topic, value}}, QStringList()};
        };
        if (topic.startsWith("Prepare")) {
            send(m_system, kLogindPath, "org.freedesktop.login1.Manager", topic, {on});
            EXPECT_TRUE(QTest::qWaitFor([&] { return m_logind->isLockHeld() != on; })) << qPrintable(what);
        } else if (topic.endsWith("Hint")) {
            send(m_system, kSessionPath, kProperties, kChanged, change("org.freedesktop.login1.Session"));
        } else if (topic.startsWith(u'P')) {
            send(m_session, "/org/gnome/Mutter/DisplayConfig", kProperties, kChanged,
                change("org.gnome.Mutter.DisplayConfig"));
        } else {
            const bool isBrief = topic == "kde"; // It uses the general name in two places.
            const QString name = QString("org.%1.ScreenSaver").arg(isBrief ? "freedesktop" : topic);
            const QString path = isBrief ? "/ScreenSaver" : u'/' + QString(name).replace(u'.', u'/');
            send(m_session, path, name, "ActiveChanged", {on});
        }
        settle();
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
    QDBusConnection m_watchedSystem = m_systemBus.connect();
    QDBusConnection m_watchedSession = m_sessionBus.connect();
    std::optional<FakeLogind> m_logind;
    DBusWorkspace m_workspace {m_watchedSystem, m_watchedSession};
    QStringList m_heard;
};

TEST_F(DBusWorkspaceTest, tellsTheFirstEdgeOfWhatManyServicesSay)
{
    startLogind();
    // What is on at the end of a row is switched off before the next.
    const char* const kTestCases[][2] = {
        {"gnome+ gnome+ gnome- gnome- gnome+ gnome-", "dark dark"},
        {"gnome+ PowerSaveMode+ kde+ LockedHint+ LockedHint- kde- PowerSaveMode- gnome-", "dark"},
        {"gnome+ PowerSaveMode+ PowerSaveMode- gnome- PowerSaveMode+ PowerSaveMode-", "dark dark"},
        {"gnome+ kde+ kde- kde+ kde- gnome-", "dark dark"}, // A locker that is stuck.
        {"PowerSaveMode? PowerSaveMode-", ""}, // No mode is known.
        {"PowerSaveMode+ PanelOrientationManaged- PowerSaveMode+ PowerSaveMode-", "dark"},
        {"LockedHint+ IdleHint- LockedHint+ LockedHint-", "dark"},
        {"freedesktop+ freedesktop- cinnamon+ cinnamon- mate+ mate- xfce+ xfce-", "dark dark dark dark"},
        {"LockedHint+ PrepareForSleep+ PrepareForSleep- LockedHint- LockedHint+ LockedHint-",
            "dark sleep wake dark"},
        {"PrepareForShutdown+ PrepareForShutdown-", "shutdown"}, // Called off.
        {"PrepareForSleep-", "wake"}, // Of a sleep that was not announced.
    };
    for (const auto& [said, heard] : kTestCases) {
        m_heard.clear();
        for (const QString& what : QString(said).split(u' '))
            say(what);
        EXPECT_EQ(m_heard.join(u' ').toStdString(), heard) << said;
    }
    EXPECT_EQ(m_logind->asked.size(), 4) << "for the session, and for the lock after what ended";
    startLogind(); // One that starts again is heard, and asked for the lock anew.
    m_heard.clear();
    say("PrepareForSleep+");
    EXPECT_EQ(m_heard.join(u' '), "sleep");
    EXPECT_EQ(m_logind->asked.join(u' '), "sleep:shutdown delay auto");
}
}

#include "DBusWorkspaceTest.moc"
