#include "IdleStory.h"
#include "ext-idle-notify-v1-server-protocol.h"
#include "platform/linux/ExtIdleBackend.h"
#include "platform/linux/IdleTimeSource.h"
#include "platform/linux/KdeIdleBackend.h"

#include <QtCore/qtestsupport_core.h>

namespace {
struct WaylandIdleBackendTest : testing::Test {
    WaylandIdleBackendTest()
    {
        qputenv("XDG_RUNTIME_DIR", story.platform.folder.path().toLocal8Bit());
        qputenv("WAYLAND_DISPLAY", "wayland-1");
    }
    ~WaylandIdleBackendTest() override { qunsetenv("WAYLAND_DISPLAY"); }
    IdleStory story;
};

/// A compositor that offers a seat, and a notifier that says what it is told to say.
struct FakeCompositor {
    FakeCompositor()
    {
        wl_display_add_socket(display, "wayland-1");
        seat = wl_global_create(
            display, &wl_seat_interface, 1, nullptr, [](wl_client* client, void*, uint32_t, uint32_t id) {
                wl_resource_create(client, &wl_seat_interface, 1, id);
            });
    }
    ~FakeCompositor()
    {
        wl_display_destroy_clients(display);
        wl_display_destroy(display);
    }
    Q_DISABLE_COPY_MOVE(FakeCompositor)

    void offer()
    {
        notifier = wl_global_create(display, &ext_idle_notifier_v1_interface, 1, this,
            [](wl_client* client, void* self, uint32_t, uint32_t id) {
                wl_resource* const bound = wl_resource_create(client, &ext_idle_notifier_v1_interface, 1, id);
                static const struct ext_idle_notifier_v1_interface kRequests {
                    nullptr, notify
                };
                wl_resource_set_implementation(bound, &kRequests, self, nullptr);
            });
    }
    static void notify(wl_client* client, wl_resource* notifier, uint32_t id, uint32_t pauseMs, wl_resource*)
    {
        EXPECT_EQ(pauseMs, 5000u);
        static_cast<FakeCompositor*>(wl_resource_get_user_data(notifier))->notification =
            wl_resource_create(client, &ext_idle_notification_v1_interface, 1, id);
    }

    wl_display* display = wl_display_create();
    wl_global* seat = nullptr;
    wl_global* notifier = nullptr;
    wl_resource* notification = nullptr;
};
}

TEST_F(WaylandIdleBackendTest, knowsTheLastInputByWhatTheCompositorSays)
{
    const char* const kTestCases[][2] = {
        {"? up ?", "none 0"},
        {"up ? +5 idled ? +7 ? resumed ? +9 ?", "0 5 12 0 0"},
        {"up ? +9.9 ? +0.2 ?", "0 9.9 0"}, // Silence for two pauses: at work.
        {"up ? +12 ? +9 idled ? resumed +1 ? +8 idled ?", "0 0 5 0 5"},
        {"up ? +6 idled ?", "0 6"},
        {"up ? +6.1 idled ?", "0 5"}, // Without and with input at the start.
        // Nobody comes back because the compositor does.
        {"up ? +12 ? +5 idled +20 ? down ? +3 up ? +5 idled ? +9 ? resumed +2 ?", "0 0 25 none 28 33 42 0"},
        {"up ? +30 ? down ? up ? +4 ? +7 ?", "0 0 none 0 4 0"},
        {"up ? +5 idled +1 resumed +2 ?", "0 2"},
        {"up ? +6 idled ? down ? up ? +11 ?", "0 6 none 6 0"},
        {"up ? unseat ?", "0 none"},
        {"bare ? offer ? withdraw ? offer ?", "none 0 none 0"},
        {"up hangs ? down ?", "none none"},
        {"up hangs ? ? serves ?", "0 none 0"},
    };
    std::optional<FakeCompositor> compositor;
    bool isHung = false;
    story.settle = [&] {
        for (int i = 0; i < 10; ++i) {
            if (compositor && !isHung) {
                wl_event_loop_dispatch(wl_display_get_event_loop(compositor->display), 0);
                wl_display_flush_clients(compositor->display);
            }
            QCoreApplication::processEvents();
        }
    };
    story.deeds = {{"bare", [&] { compositor.emplace(); }}, {"up", [&] { compositor.emplace().offer(); }},
        {"offer", [&] { compositor->offer(); }},
        {"withdraw", [&] { wl_global_destroy(compositor->notifier); }},
        {"unseat", [&] { wl_global_destroy(compositor->seat); }}, {"down", [&] { compositor.reset(); }},
        {"hangs", [&] { isHung = true; }}, {"serves", [&] { isHung = false; }},
        {"idled", [&] { ext_idle_notification_v1_send_idled(compositor->notification); }},
        {"resumed", [&] { ext_idle_notification_v1_send_resumed(compositor->notification); }}};
    for (const auto& [words, expected] : kTestCases) {
        compositor.reset();
        isHung = false;
        ExtIdleBackend backend;
        EXPECT_EQ(story.told(backend, words), expected) << words;
    }
    compositor.emplace().offer();
    const auto source = makeIdleTimeSource(QDBusConnection("none"));
    source->refresh([] {});
    story.settle();
    EXPECT_EQ(source->name(), ExtIdleBackend().name());
}

TEST_F(WaylandIdleBackendTest, hearsSway)
{
    // Sway refuses to run as root, which some build machines do. Then somebody else runs it, who may write
    // there.
    QFile::setPermissions(story.platform.folder.path(), QFile::Permissions(0x7777));
    QProcess sway;
    sway.start("sh",
        {"-c",
            "test $(id -u) = 0 && as='--reuid 65534 --regid 65534 --clear-groups'\n"
            "exec setpriv --pdeathsig TERM $as env -u WAYLAND_DISPLAY -u DISPLAY WLR_BACKENDS=headless "
            "WLR_RENDERER=pixman WLR_LIBINPUT_NO_DEVICES=1 sway -c /dev/null"});
    constexpr int kPatience = 30'000;
    const QString socket = story.platform.folder.filePath("wayland-1");
    ASSERT_TRUE(QTest::qWaitFor([&] { return QFile::exists(socket); }, kPatience));
    KdeIdleBackend kde(0.5);
    ExtIdleBackend ext;
    const auto hears = [&](IdleBackend& backend, const char* words, const char* expected) {
        return QTest::qWaitFor([&] { return story.told(backend, words) == expected; }, kPatience);
    };
    story.settle = [] { QCoreApplication::processEvents(); };
    EXPECT_TRUE(hears(kde, "?", "0"));
    story.play("+100");
    EXPECT_TRUE(hears(kde, "?", "0.5") && hears(kde, "+7 ?", "7.5"));
    EXPECT_EQ(QProcess::execute("wtype", {"a"}), 0);
    EXPECT_TRUE(hears(kde, "?", "0") && hears(ext, "?", "none"));
    const auto source = makeIdleTimeSource(QDBusConnection("none"));
    const auto finds = [&] {
        source->refresh([] {});
        return source->name() == kde.name();
    };
    EXPECT_TRUE(QTest::qWaitFor(finds, kPatience));
    sway.kill();
    sway.waitForFinished();
    EXPECT_TRUE(hears(kde, "?", "none"));
}
