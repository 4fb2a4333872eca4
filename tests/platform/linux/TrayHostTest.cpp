#include "platform/linux/TrayHost.h"

#include "TestBus.h"
#include "XvfbServer.h"
#include "platform/ProcessServices.h"
#include "platform/linux/XcbConnection.h"
#include "platform/simulated/VirtualRunLoop.h"

#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <optional>

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

/// How often a tray has been found at each "?" of a story; what is expected is waited for.
QString found(const char* story, const char* expected)
{
    VirtualRunLoop runLoop;
    const ProcessServices services({&runLoop});
    TestBus bus;
    const QDBusConnection desktop = bus.connect();
    std::optional<FakeWatcher> watcher;
    std::optional<FakeXTray> xTray;
    std::optional<TrayHost> host;
    int count = 0;
    const auto look = [&](const QDBusConnection& connection, TrayHost::X11Tray x11Tray) {
        host.emplace(connection, x11Tray);
        host->whenAvailable([&] { count += host->isAvailable() ? 1 : 100; });
        EXPECT_EQ(count, 0) << "never within the call";
    };
    const std::map<QString, std::function<void()>> kDeeds {
        {QStringLiteral("look"), [&] { look(bus.connect(), TrayHost::X11Tray::Ignored); }},
        {QStringLiteral("lookX"), [&] { look(bus.connect(), TrayHost::X11Tray::Accepted); }},
        {QStringLiteral("lookWithoutBus"),
            [&] { look(QDBusConnection(QStringLiteral("none")), TrayHost::X11Tray::Accepted); }},
        {QStringLiteral("watcher"), [&] { watcher.emplace(desktop, false); }},
        {QStringLiteral("watcher+host"), [&] { watcher.emplace(desktop, true); }},
        {QStringLiteral("host"), [&] { watcher->registerHost(); }},
        {QStringLiteral("gone"), [&] { watcher.reset(); }},
        {QStringLiteral("xtray"), [&] { xTray.emplace(); }},
        {QStringLiteral("+4.9"), [&] { runLoop.advance(4.9); }},
        {QStringLiteral("+0.2"), [&] { runLoop.advance(0.2); }},
    };
    QStringList answers;
    for (const QString& step : QString::fromLatin1(story).split(u' ')) {
        if (const auto deed = kDeeds.find(step); deed != kDeeds.end()) {
            deed->second();
            continue;
        }
        const int wanted =
            QString::fromLatin1(expected).section(u' ', answers.size(), answers.size()).toInt();
        for (int i = 0; i < 20 || (count < wanted && i < 1000); ++i) { // What is on its way arrives.
            TestBus::settle(desktop);
            QThread::msleep(3);
            QCoreApplication::processEvents();
            runLoop.advance(0);
        }
        answers.append(QString::number(count));
    }
    return answers.join(u' ');
}

TEST(TrayHost, findsATrayOnceWheneverAndHoweverItComes)
{
    const XvfbServer server;
    const char* const kTestCases[][2] = {
        {"watcher+host look ?", "1"},
        {"watcher look ? host ? host ?", "0 1 1"},
        {"look ? watcher ? gone ? watcher+host ?", "0 0 0 1"},
        // The tray of an X11 panel serves where no watcher is; where one is, its host has five seconds.
        {"xtray lookX ?", "1"},
        {"lookX ? xtray ?", "0 1"},
        {"xtray look ?", "0"},
        {"xtray lookWithoutBus ?", "1"},
        {"xtray watcher lookX ? +4.9 ? +0.2 ?", "0 0 1"},
        {"watcher lookX ? xtray ? +4.9 +0.2 ?", "0 0 1"},
        {"xtray watcher lookX ? gone ?", "0 1"},
    };
    for (const auto& [story, expected] : kTestCases)
        EXPECT_EQ(found(story, expected).toStdString(), expected) << story;
}
}

#include "TrayHostTest.moc"
