#include "platform/linux/TrayHost.h"

#include "TestBus.h"
#include "XvfbServer.h"
#include "platform/linux/XcbConnection.h"
#include "platform/simulated/VirtualRunLoop.h"

#include <gtest/gtest.h>

namespace {
const QString kName = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString kPath = QStringLiteral("/StatusNotifierWatcher");
}

/// The service at which tray icons and the panels that show them meet.
class FakeWatcher : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ isHostRegistered)

public:
    FakeWatcher(const QDBusConnection& bus, bool hasHost)
        : m_bus(bus)
        , m_hasHost(hasHost)
    {
        m_bus.registerObject(
            kPath, this, QDBusConnection::ExportAllProperties | QDBusConnection::ExportAllSignals);
        m_bus.registerService(kName);
    }
    ~FakeWatcher() override { m_bus.unregisterService(kName); }

    [[nodiscard]] bool isHostRegistered() const { return m_hasHost; }
    void registerHost()
    {
        m_hasHost = true;
        Q_EMIT StatusNotifierHostRegistered();
    }

Q_SIGNALS:
    void StatusNotifierHostRegistered();

private:
    QDBusConnection m_bus;
    bool m_hasHost;
};

namespace {
/// An X11 panel's tray: owns the selection and announces it.
class FakeXTray {
public:
    FakeXTray()
        : m_connection(xcb_connect(nullptr, nullptr))
    {
        xcb_connection_t* const connection = m_connection.get();
        const xcb_screen_t* const screen = xcbScreen(connection, 0);
        const xcb_window_t window = xcb_generate_id(connection);
        xcb_create_window(connection, 0, window, screen->root, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
            XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_set_selection_owner(connection, window, atom("_NET_SYSTEM_TRAY_S0"), XCB_CURRENT_TIME);
        xcb_client_message_event_t event {};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = 32;
        event.window = screen->root;
        event.type = atom("MANAGER");
        event.data.data32[1] = atom("_NET_SYSTEM_TRAY_S0");
        event.data.data32[2] = window;
        xcb_send_event(connection, 0, screen->root, XCB_EVENT_MASK_STRUCTURE_NOTIFY,
            reinterpret_cast<const char*>(&event));
        xcb_flush(connection);
    }

private:
    xcb_atom_t atom(const QByteArray& name)
    {
        const auto cookie = xcb_intern_atom(m_connection.get(), 0, uint16_t(name.size()), name.constData());
        const XcbReply<xcb_intern_atom_reply_t> reply(
            xcb_intern_atom_reply(m_connection.get(), cookie, nullptr));
        return reply->atom;
    }

    XcbConnectionRef m_connection;
};

class TrayHostTest : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_bus.isRunning());
        RunLoop::setMain(&m_runLoop);
    }
    void TearDown() override { RunLoop::setMain(nullptr); }

    void look(TrayHost::X11Tray x11Tray = TrayHost::X11Tray::Ignored)
    {
        m_host.emplace(m_bus.connect(), x11Tray);
        m_host->whenAvailable([this] {
            EXPECT_TRUE(m_host->isAvailable());
            ++m_found;
        });
        EXPECT_EQ(m_found, 0) << "never within the call";
    }
    bool isFound()
    {
        return waitFor([&] {
            m_runLoop.advance(0);
            return m_found == 1;
        });
    }
    /// What is on its way arrives, and no tray is found in it.
    bool isStillMissing()
    {
        for (int i = 0; i < 10; ++i) {
            TestBus::settle(m_desktop);
            QThread::msleep(5);
            QCoreApplication::processEvents();
            m_runLoop.advance(0);
        }
        return m_found == 0;
    }

    VirtualRunLoop m_runLoop;
    TestBus m_bus;
    QDBusConnection m_desktop = m_bus.connect();
    std::optional<TrayHost> m_host;
    int m_found = 0;
};

TEST_F(TrayHostTest, aHostThatIsThereIsFound)
{
    const FakeWatcher watcher(m_desktop, true);
    look();
    EXPECT_TRUE(isFound());
}

TEST_F(TrayHostTest, aHostThatComesLaterIsFoundOnce)
{
    FakeWatcher watcher(m_desktop, false);
    look();
    EXPECT_TRUE(isStillMissing());
    watcher.registerHost();
    EXPECT_TRUE(isFound());
    watcher.registerHost();
    isStillMissing();
    EXPECT_EQ(m_found, 1);
}

TEST_F(TrayHostTest, aWatcherThatComesLaterOrAgainIsAsked)
{
    look();
    EXPECT_TRUE(isStillMissing());
    {
        const FakeWatcher withoutHost(m_desktop, false);
        EXPECT_TRUE(isStillMissing());
    }
    const FakeWatcher withHost(m_desktop, true);
    EXPECT_TRUE(isFound());
}

TEST_F(TrayHostTest, withoutABusNothingIsFoundAndNothingBreaks)
{
    m_host.emplace(QDBusConnection(QStringLiteral("no such connection")), TrayHost::X11Tray::Ignored);
    m_host->whenAvailable([this] { ++m_found; });
    m_runLoop.advance(3600);
    EXPECT_EQ(m_found, 0);
}

class TrayHostOnX11Test : public TrayHostTest {
protected:
    void SetUp() override
    {
        if (!XvfbServer::isInstalled())
            GTEST_SKIP() << "Xvfb is not installed";
        TrayHostTest::SetUp();
        m_server.emplace();
        ASSERT_TRUE(m_server->isRunning());
    }
    std::optional<XvfbServer> m_server;
};

TEST_F(TrayHostOnX11Test, aTrayOfAnX11PanelServesWhereNoWatcherIs)
{
    const FakeXTray tray;
    look(TrayHost::X11Tray::Accepted);
    EXPECT_TRUE(isFound());
}

TEST_F(TrayHostOnX11Test, aTrayThatStartsLaterAnnouncesItself)
{
    look(TrayHost::X11Tray::Accepted);
    EXPECT_TRUE(isStillMissing());
    const FakeXTray tray;
    EXPECT_TRUE(isFound());
}

TEST_F(TrayHostOnX11Test, isIgnoredOnOtherPlatforms)
{
    const FakeXTray tray;
    look(TrayHost::X11Tray::Ignored);
    EXPECT_TRUE(isStillMissing());
}

TEST_F(TrayHostOnX11Test, waitsAWhileForAHostOfTheWatcher)
{
    const FakeXTray tray;
    const FakeWatcher withoutHost(m_desktop, false);
    look(TrayHost::X11Tray::Accepted);
    EXPECT_TRUE(isStillMissing());
    m_runLoop.advance(4.9);
    EXPECT_EQ(m_found, 0);
    m_runLoop.advance(0.2);
    EXPECT_EQ(m_found, 1);
}

TEST_F(TrayHostOnX11Test, aTrayThatComesWithinThatWhileDoesNotShortenIt)
{
    const FakeWatcher withoutHost(m_desktop, false);
    look(TrayHost::X11Tray::Accepted);
    EXPECT_TRUE(isStillMissing());
    const FakeXTray tray;
    EXPECT_TRUE(isStillMissing());
    m_runLoop.advance(5);
    EXPECT_EQ(m_found, 1);
}

TEST_F(TrayHostOnX11Test, aServerThatDiesIsSurvived)
{
    look(TrayHost::X11Tray::Accepted);
    EXPECT_TRUE(isStillMissing());
    m_server->stop();
    EXPECT_TRUE(isStillMissing());
    const FakeWatcher watcher(m_desktop, true);
    EXPECT_TRUE(isFound());
}
}

#include "TrayHostTest.moc"
