#include "IdleStory.h"
#include "platform/linux/GnomeIdleBackend.h"
#include "platform/linux/ScreenSaverIdleBackend.h"

#include <QCoreApplication>

TEST(DBusIdleBackend, asksTheServiceThatIsThereInItsUnit)
{
    const char* const gnome = "/org/gnome/Mutter/IdleMonitor/Core org.gnome.Mutter.IdleMonitor GetIdletime";
    const char* const saver = "/org/freedesktop/ScreenSaver org.freedesktop.ScreenSaver GetSessionIdleTime";
    const char* const kTestCases[][3] = {
        {gnome, "? 5000 comes ? +10 ? 300 ? error ? 5000 ? goes ? comes ?", "none 5 5 0.3 none 5 none 5"},
        // The compositor's own waking is no input; what comes after it is.
        {gnome, "7000 comes ? +4 z60 0 +3 3000 ? +9 12000 ? +8 19400 ? +2 500 ?", "7 14 23 19.4 0.5"},
        {gnome, "7000 comes ? +4 z0.9 0 ? z0.2 ? +1 500 ? 499 ?", "7 0 0 1 0.499"},
        // Milliseconds grow faster than time, seconds with it.
        {saver, "? 4000 comes ? +10 14000 ? error ? 300 ?", "none none 14 none 0.3"},
        {saver, "20 comes ? +10 30 ? +10 40 ? 0 ? +10 9 ?", "none none 40 0 9"},
        {saver, "4000 comes ? +10 14000 ? goes comes 20 ?", "none 14 none"}, // Another may count otherwise.
        {saver, "2 comes ? +10 3 ? 0 ?", "2 none 0"}, // Input was just now, in either unit.
        {saver, "20 comes ? +10 31.5 ? +10 40 ? +10 50 ?", "none none 40 50"}, // Whole seconds are not exact.
        {saver, "20 comes ? +10 31.6 ?", "none 0.0316"},
        {saver, "5 comes ? +10 30 ? 12 ?", "none 0.03 0.012"},
        {saver, "40 comes ? +10 48.4 ? +10 58.4 ? +10 66 ? +10 76 ?", "none none none none none"},
        {saver, "14 comes ? +10 24 ? +10 34 ? +9 700 ?", "none none 34 0.7"}, // Not in seconds after all.
        {saver, "4000 comes ? +10 14000 ? +10 14010 ? +10 14020 ?", "none 14 14.01 14.02"},
        {saver, "20 comes ? +1.5 20 ? +1.5 20 ?", "none none none"}, // Of one moment, nearly.
        {gnome, "5000 comes ? bus-goes ? ?", "5 none none"},
    };
    IdleStory story;
    TestBus bus;
    const QDBusConnection desktop = bus.connect();
    const QDBusConnection own = bus.connect();
    QStringList method; // path, interface and name
    QVariant number;
    std::optional<TestService> service;
    story.settle = [&] {
        for (int i = 0; i < 10; ++i) {
            TestBus::settle(own);
            QCoreApplication::processEvents();
        }
    };
    story.deeds["comes"] = [&] {
        service.emplace(desktop, method[1], method[0], [&](const QDBusMessage& call) {
            return QStringList {call.interface(), call.member()} == method.mid(1) ? number : QVariant();
        });
    };
    story.deeds["goes"] = [&] { service.reset(); };
    story.deeds["bus-goes"] = [&] { bus.m_daemon.stop(); };
    story.deeds["error"] = [&] { number = "none"; };
    story.otherwise = [&](const QString& word) { number = word.toDouble(); };
    for (const auto& [call, words, expected] : kTestCases) {
        method = QString(call).split(u' ');
        if (call == gnome)
            EXPECT_EQ(story.told(*std::make_unique<GnomeIdleBackend>(own), words), expected) << words;
        else
            EXPECT_EQ(story.told(*std::make_unique<ScreenSaverIdleBackend>(own), words), expected) << words;
        service.reset();
    }
    GnomeIdleBackend withoutBus(QDBusConnection("none"));
    EXPECT_EQ(story.told(withoutBus, "?"), "none");
}
