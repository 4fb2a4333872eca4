#include "platform/linux/DBusWorkspace.h"

#include "TestBus.h"

#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <QtCore/qtestsupport_core.h>

#include <fcntl.h>
#include <unistd.h>

namespace {
const QString kLogind = "org.freedesktop.login1";
const QString kLogindPath = "/org/freedesktop/login1";
const QString kSessionPath = "/org/freedesktop/login1/session/_32";
const QString kDisplayPath = "/org/gnome/Mutter/DisplayConfig";

struct DBusWorkspaceTest : testing::Test {
    DBusWorkspaceTest()
    {
        m_workspace.watch(m_watched, m_watched);
        m_workspace.onScreensDidSleep([this] { hear("dark"); });
        m_workspace.onWillSleep([this] { hear("sleep"); });
        m_workspace.onWillShutDown([this] { hear("shutdown"); });
        m_workspace.onDidWake([this] { m_heard.append("wake"); });
    }
    ~DBusWorkspaceTest() override { close(m_lock); }

    /// The machine may not sleep before the record is safe.
    void hear(const char* what) { m_heard.append(isLockHeld() ? what : "too late"); }
    /// True while the program has its end of the pipe open that it got from logind.
    [[nodiscard]] bool isLockHeld() const
    {
        char byte = 0;
        return m_lock >= 0 && read(m_lock, &byte, 1) < 0;
    }
    QVariant answerOfLogind(const QDBusMessage& call)
    {
        const QVariantList said = call.arguments();
        m_asked.append(call.member() + u' ' + said.first().toString() + said.last().toString());
        if (call.member() == "GetSession")
            return QVariant::fromValue(QDBusObjectPath(kSessionPath));
        int ends[2];
        EXPECT_EQ(pipe2(ends, O_CLOEXEC | O_NONBLOCK), 0);
        close(std::exchange(m_lock, ends[0]));
        const QDBusUnixFileDescriptor given(ends[1]); // Makes a copy of its own.
        close(ends[1]);
        return QVariant::fromValue(given);
    }
    /// A logind is there, and the program has heard of it.
    void startLogind()
    {
        m_logind.reset();
        m_asked.clear();
        m_logind.emplace(
            m_desktop, kLogind, kLogindPath, [this](auto& call) { return answerOfLogind(call); });
        EXPECT_TRUE(QTest::qWaitFor([&] { return isLockHeld() && m_asked.size() == 2; }));
        settle();
    }
    /// What was sent so far arrives.
    void settle()
    {
        TestBus::settle(m_desktop);
        TestBus::settle(m_watched);
        QCoreApplication::processEvents();
    }

    /// A service says something, and it arrives. "+": dark, asleep or going down, "-": over, "?": unknown.
    void say(const QString& what)
    {
        const bool on = what.endsWith(u'+');
        const QString topic = what.chopped(1);
        if (topic.startsWith("Prepare")) {
            TestBus::sendSignal(m_desktop, kLogindPath, kLogind + ".Manager", topic, {on});
            EXPECT_TRUE(QTest::qWaitFor([&] { return isLockHeld() != on; })) << qPrintable(what);
        } else if (topic == "x") {
            m_workspace.xScreensChanged(on);
        } else if (const bool isHint = topic.endsWith("Hint"); isHint || topic.startsWith(u'P')) {
            const QString owner = isHint ? kLogind + ".Session" : "org.gnome.Mutter.DisplayConfig";
            const QVariantMap changed {{topic, what.endsWith(u'?') ? -1 : QVariant(on)}};
            TestBus::sendSignal(m_desktop, isHint ? kSessionPath : kDisplayPath,
                "org.freedesktop.DBus.Properties", "PropertiesChanged", {owner, changed, QStringList()});
        } else {
            const bool isBrief = topic == "kde"; // It uses the general name in two places.
            const QString name = QString("org.%1.ScreenSaver").arg(isBrief ? "freedesktop" : topic);
            const QString path = isBrief ? "/ScreenSaver" : u'/' + QString(name).replace(u'.', u'/');
            TestBus::sendSignal(m_desktop, path, name, "ActiveChanged", {on});
        }
        settle();
    }

    TestBus m_bus; // The machine's and the session's.
    QDBusConnection m_desktop = m_bus.connect();
    QDBusConnection m_watched = m_bus.connect();
    QStringList m_asked;
    int m_lock = -1;
    std::optional<TestService> m_logind;
    DBusWorkspace m_workspace;
    QStringList m_heard;
};

TEST_F(DBusWorkspaceTest, tellsTheFirstEdgeOfWhatManyServicesSay)
{
    startLogind();
    // What is on at the end of a row is switched off before the next.
    const char* const kTestCases[][2] = {
        {"x+ x+ x- x+ x-", "dark dark"}, {"x+ gnome+ gnome- gnome+ x- gnome-", "dark dark"},
        {"x+ x- gnome+ x+ x- x+ gnome-", "dark"}, // Services know better.
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
    EXPECT_EQ(m_asked.size(), 4) << "for the session, and for the lock after what ended";
    startLogind(); // One that starts again is heard, and asked for the lock anew.
    EXPECT_EQ(m_asked.join(u' '), "Inhibit sleep:shutdowndelay GetSession autoauto");
    m_heard.clear();
    say("PrepareForSleep+");
    for (const bool sleeps : {false, true}) // The wake's lock comes after the next sleep, and goes.
        TestBus::sendSignal(m_desktop, kLogindPath, kLogind + ".Manager", "PrepareForSleep", {sleeps});
    settle();
    EXPECT_TRUE(QTest::qWaitFor([&] { return m_heard.size() == 3 && m_asked.size() == 3 && !isLockHeld(); }));
    startLogind(); // It cannot tell of a wake that the one before has announced.
    EXPECT_EQ(m_heard.join(u' '), "sleep wake too late wake");
}
}
