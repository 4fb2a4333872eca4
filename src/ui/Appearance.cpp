#include "ui/Appearance.h"

#include "data/AppProperties.h"
#include "platform/NotificationCenter.h"

#include <QGuiApplication>
#include <QPalette>

#include <utility>

namespace {
constexpr int kMiddleLightness = 128;

bool hasDarkWindows()
{
    return QGuiApplication::palette().color(QPalette::Window).lightness() < kMiddleLightness;
}
}

void Appearance::update()
{
    const int32_t choice = AppProperties::instance().appearance();
    if (choice == AsDesktop && s_ask)
        std::exchange(s_ask, {})();
    const bool followsDark = choice == AsDesktop && s_desktopIsDark.value_or(hasDarkWindows());
    const bool isDark = choice == Dark || followsDark;
    if (std::exchange(s_isDark, isDark) != isDark)
        NotificationCenter::defaultCenter().post(kDidChange);
}

void Appearance::setDesktopIsDark(std::optional<bool> isDark)
{
    s_desktopIsDark = isDark;
    update();
}
