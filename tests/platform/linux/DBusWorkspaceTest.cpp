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
    void settle() { TestBus::settle(m_bus); }
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
        m_logind.emplace(m_system.connect());
        m_workspace.emplace(m_system.connect(), m_session.connect());
        m_workspace->onScreensDidSleep([this] { m_heard.append(QStringLiteral("dark")); });
        m_workspace->onWillSleep([this] { hearWithTheLockHeld("sleep"); });
        m_workspace->onWillShutDown([this] { hearWithTheLockHeld("shutdown"); });
        m_workspace->onDidWake([this] { m_heard.append(QStringLiteral("wake")); });
        waitForTheLock();
    }

    void hearWithTheLockHeld(const char* what)
    {
        m_heard.append(QString::fromLatin1(what));
        EXPECT_TRUE(m_logind->isLockHeld()) << "the machine may not sleep before the record is safe";
    }

    void waitForTheLock()
    {
        ASSERT_TRUE(waitFor([&] { return m_logind->isLockHeld() && !m_logind->sessionAsked.isEmpty(); }));
        settle();
    }

    /// A service says something, and it arrives. "+": dark, asleep or going down, "-": over.
    void say(const QString& what)
    {
        const bool on = what.endsWith(QLatin1Char('+'));
        const QString service = what.chopped(1);
        const bool isAboutLock = service.startsWith(QStringLiteral("Prepare"));
        if (service == QStringLiteral("power"))
            powerSaveMode(on ? 3 : what == QStringLiteral("power?") ? -1 : 0);
        else if (service == QStringLiteral("hint"))
            m_logind->setLockedHint(on);
        else if (isAboutLock)
            m_logind->say(service, on);
        else
            screenSaver(service, on);
        settle();
        EXPECT_TRUE(waitFor([&] { return !isAboutLock || m_logind->isLockHeld() != on; }))
            << qPrintable(what);
    }

    void screenSaver(const QString& desktop, bool isActive)
    {
        const bool isKde = desktop == QStringLiteral("kde"); // It uses the general name in two places.
        const QString path =
            isKde ? QStringLiteral("/ScreenSaver") : QStringLiteral("/org/%1/ScreenSaver").arg(desktop);
        const QString interface =
            QStringLiteral("org.%1.ScreenSaver").arg(isKde ? QStringLiteral("freedesktop") : desktop);
        m_desktop.send(
            QDBusMessage::createSignal(path, interface, QStringLiteral("ActiveChanged")) << isActive);
    }
    void powerSaveMode(int mode)
    {
        QDBusMessage message = QDBusMessage::createSignal(QStringLiteral("/org/gnome/Mutter/DisplayConfig"),
            QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("PropertiesChanged"));
        m_desktop.send(message << QStringLiteral("org.gnome.Mutter.DisplayConfig")
                               << QVariantMap {{QStringLiteral("PowerSaveMode"), mode}} << QStringList());
    }
    /// Lets what was sent so far arrive.
    void settle()
    {
        TestBus::settle(m_desktop);
        m_logind->settle();
        QThread::msleep(10);
        QCoreApplication::processEvents();
    }

    TestBus m_system;
    TestBus m_session;
    QDBusConnection m_desktop = m_session.connect();
    std::optional<FakeLogind> m_logind;
    std::optional<DBusWorkspace> m_workspace;
    QStringList m_heard;
};

TEST_F(DBusWorkspaceTest, tellsTheFirstEdgeOfWhatManyServicesSay)
{
    // What is on at the end of a row is switched off before the next.
    const struct {
        const char* said;
        const char* heard;
    } kTestCases[] = {
        {"gnome+ gnome- gnome+ gnome-", "dark dark"}, // lock, unlock, lock
        {"hint+ hint- hint+ hint-", "dark dark"}, {"gnome+ gnome+ gnome- gnome- gnome+ gnome-", "dark dark"},
        {"gnome+ power+ power+ kde+ hint+ hint- kde- power- gnome-", "dark"},
        {"gnome+ power+ power- gnome- power+ power-", "dark dark"},
        {"gnome+ kde+ kde- kde+ kde- gnome-", "dark dark"}, // a locker that is stuck
        {"power? power-", ""}, // no mode is known
        {"freedesktop+ freedesktop- cinnamon+ cinnamon- mate+ mate- xfce+ xfce-", "dark dark dark dark"},
        {"PrepareForSleep+ PrepareForSleep- PrepareForSleep+ PrepareForSleep-", "sleep wake sleep wake"},
        {"hint+ PrepareForSleep+ PrepareForSleep- hint- hint+ hint-", "dark sleep wake dark"},
        {"PrepareForShutdown+ PrepareForShutdown-", "shutdown"}, // called off
        {"PrepareForSleep-", "wake"}, // of a sleep that was not announced
    };
    for (const auto& [said, heard] : kTestCases) {
        m_heard.clear();
        for (const QString& what : QString::fromLatin1(said).split(QLatin1Char(' ')))
            say(what);
        EXPECT_EQ(m_heard.join(QLatin1Char(' ')).toStdString(), heard) << said;
    }
    EXPECT_EQ(m_logind->inhibited.size(), 5) << "at the start and after what ended";
    m_logind.reset();
    m_logind.emplace(m_system.connect());
    waitForTheLock(); // A logind that starts again is heard, and asked for the lock anew.
    m_heard.clear();
    say(QStringLiteral("PrepareForSleep+"));
    EXPECT_EQ(m_heard, QStringList {QStringLiteral("sleep")});
    EXPECT_EQ(m_logind->inhibited, QStringList {QStringLiteral("sleep:shutdown delay")});
}

TEST(DBusWorkspaceWithoutBus, doesNothing)
{
    const QDBusConnection none(QStringLiteral("no such connection"));
    DBusWorkspace workspace(none, none);
    EXPECT_FALSE(workspace.openUrl(QUrl()));
}
}

#include "DBusWorkspaceTest.moc"
