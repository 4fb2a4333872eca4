#pragma once

#include <QString>

#include <functional>
#include <optional>
#include <utility>

/// Which of its two looks the program wears, by the user's choice in the settings. The desktop's own colours
/// never show in its windows; at most they decide between the two.
class Appearance {
public:
    enum Choice { Light, Dark, AsDesktop }; ///< as the settings keep it

    /// Posted when the look has changed; the windows on show follow.
    static inline const QString kDidChange = QStringLiteral("org.zelvo.StandUp.appearancedidchange");

    [[nodiscard]] static bool isDark() { return s_isDark; }
    /// Goes by the settings and the desktop as they are now.
    static void update();
    /// Called when the user follows the desktop for the first time, to find out what that prefers.
    static void whenFollowing(std::function<void()> ask) { s_ask = std::move(ask); }
    /// What the desktop prefers; nothing where it does not say, and the lightness of its own windows counts.
    static void setDesktopIsDark(std::optional<bool> isDark);

private:
    static inline std::function<void()> s_ask;
    static inline bool s_isDark = false;
    static inline std::optional<bool> s_desktopIsDark;
};
