#include "platform/linux/PortalSetting.h"

#include "TestBus.h"

#include <QtCore/qtestsupport_core.h>

TEST(PortalSettingTest, tellsWhatTheDesktopPrefersAndEachChangeOfIt)
{
    const QString path = "/org/freedesktop/portal/desktop";
    const QString group = "org.freedesktop.appearance";
    TestBus bus;
    const QDBusConnection desktop = bus.connect();
    QString told;
    PortalSetting portal(bus.connect(), group, "color-scheme", [&](const QVariant& value) {
        const auto isDark = isDarkScheme(value);
        told += !value.isValid() ? "?" : !isDark ? "-" : *isDark ? "dark " : "light ";
    });
    const auto expect = [&told](const QString& expected) {
        (void)QTest::qWaitFor([&] { return told.size() >= expected.size(); });
        EXPECT_EQ(told, expected);
    };
    portal.ask();
    EXPECT_EQ(told, "") << "never within the call";
    expect("?"); // There is no portal.
    const TestService service(desktop, "org.freedesktop.portal.Desktop", path, [&](const QDBusMessage& call) {
        EXPECT_EQ(call.arguments(), (QVariantList {group, "color-scheme"}));
        return QVariant::fromValue(QDBusVariant(QVariant::fromValue(QDBusVariant(1U))));
    });
    portal.ask();
    expect("?dark ");
    for (const auto& [key, scheme] :
        {std::pair("accent-color", 1U), {"color-scheme", 2U}, {"color-scheme", 0U}})
        TestBus::sendSignal(desktop, path, "org.freedesktop.portal.Settings", "SettingChanged",
            {group, key, QVariant::fromValue(QDBusVariant(scheme))});
    expect("?dark light -");
}
