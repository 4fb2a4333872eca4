#include "platform/linux/TrayHost.h"

#include "TestBus.h"
#include "fakes/Story.h"
#include "platform/linux/XcbConnection.h"

#include <QDBusVariant>
#include <QtCore/qtestsupport_core.h>

namespace {
const QString kWatcher = "org.kde.StatusNotifierWatcher";
const QString kPath = "/StatusNotifierWatcher";

/// An X11 panel's tray: owns the selection and announces it.
XcbConnectionRef makeXTray()
{
    XcbServer panel = connectToXServer();
    xcb_connection_t* const connection = panel.connection.get();
    const xcb_window_t root = panel.screen->root;
    const auto cookie = xcb_intern_atom(connection, 0, 19, "_NET_SYSTEM_TRAY_S0");
    const XcbReply<xcb_intern_atom_reply_t> selection(xcb_intern_atom_reply(connection, cookie, nullptr));
    xcb_set_selection_owner(connection, root, selection->atom, XCB_CURRENT_TIME);
    xcb_client_message_event_t event {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    xcb_send_event(
        connection, 0, root, XCB_EVENT_MASK_STRUCTURE_NOTIFY, reinterpret_cast<const char*>(&event));
    xcb_flush(connection);
    return std::move(panel.connection);
}

/// How often a tray has been found at each "?" of a story; what is expected is waited for.
std::string found(const char* words, const QString& expected)
{
    Story story;
    TestBus bus;
    const QDBusConnection desktop = bus.connect();
    bool isSlow = false;
    std::optional<TestService> watcher; // The service at which tray icons and the panels that show them meet.
    const auto startWatcher = [&](bool hasHost) {
        watcher.emplace(desktop, kWatcher, kPath, [&, hasHost](const QDBusMessage& call) {
            EXPECT_EQ(call.arguments().at(1), "IsStatusNotifierHostRegistered");
            if (std::exchange(isSlow, false)) // The first answer is too late; the true one is nobody's then.
                desktop.send(call.createErrorReply(QDBusError::NoReply, {}));
            return QVariant::fromValue(QDBusVariant(hasHost));
        });
    };
    XcbConnectionRef xTray;
    std::optional<TrayHost> host;
    int count = 0;
    using X11Tray = TrayHost::X11Tray;
    const auto look = [&](const QDBusConnection& connection, X11Tray x11Tray = X11Tray::Accepted) {
        host.emplace(connection, x11Tray);
        host->whenAvailable([&] { count += host->isAvailable() ? 1 : 100; });
        EXPECT_EQ(count, 0) << "never within the call";
    };
    QStringList answers;
    const auto ask = [&] {
        int rounds = 0; // Some, so that what is on its way arrives, or as many as what is expected takes.
        const int wanted = expected.section(u' ', answers.size(), answers.size()).toInt();
        (void)QTest::qWaitFor([&] {
            TestBus::settle(desktop);
            story.platform.runLoop.advance(0);
            return ++rounds > 6 && count >= wanted;
        });
        answers.append(QString::number(count));
    };
    story.deeds = {{"?", ask}, {"look", [&] { look(bus.connect(), X11Tray::Ignored); }},
        {"lookX", [&] { look(bus.connect()); }}, {"lookWithoutBus", [&] { look(QDBusConnection("none")); }},
        {"slow", [&] { isSlow = true; }}, {"watcher", [&] { startWatcher(false); }},
        {"watcher+host", [&] { startWatcher(true); }},
        {"host", [&] { TestBus::sendSignal(desktop, kPath, kWatcher, "StatusNotifierHostRegistered"); }},
        {"gone", [&] { watcher.reset(); }}, {"xtray", [&] { xTray = makeXTray(); }}};
    story.play(words);
    return answers.join(u' ').toStdString();
}

TEST(TrayHost, findsATrayOnceWheneverAndHoweverItComes)
{
    const XvfbServer server;
    const char* const kTestCases[][2] = {
        {"lookX ? xtray ?", "0 1"}, // First, while the server knows no tray's name yet.
        {"watcher+host look ?", "1"},
        {"slow watcher+host look ?", "1"},
        {"watcher look ? host ? host ?", "0 1 1"},
        {"look ? watcher ? gone ? watcher+host ?", "0 0 0 1"},
        // The tray of an X11 panel serves where no watcher is; where one is, its host has five seconds.
        {"xtray lookX ?", "1"},
        {"xtray look ?", "0"},
        {"xtray lookWithoutBus ?", "1"},
        {"xtray watcher lookX ? +4.9 ? +0.2 ?", "0 0 1"},
        {"watcher lookX ? xtray ? +4.9 +0.2 ?", "0 0 1"},
        {"xtray watcher lookX ? gone ?", "0 1"},
        {"lookX ? watcher ? xtray ? +5.1 ?", "0 0 0 1"},
    };
    for (const auto& [story, expected] : kTestCases)
        EXPECT_EQ(found(story, expected), expected) << story;
}
}
