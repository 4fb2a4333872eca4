#pragma once

#include "platform/LoginItems.h"

/// Login items as the desktops of Linux have them: an entry in the user's autostart folder. What the user
/// switched off in the desktop's settings stays off.
class AutostartLoginItems final : public LoginItems {
public:
    /// @param configFolder the user's, normally $XDG_CONFIG_HOME.
    explicit AutostartLoginItems(const QString& configFolder = defaultConfigFolder());

    static QString defaultConfigFolder();

    /// Writes the entry when it is missing or differs. True also when the user has switched it off or has
    /// given it a command of their own, with options for instance: such an entry stays as it is.
    bool insertItem(const QString& executablePath) override;

    /// Whether the user has switched the entry off.
    [[nodiscard]] bool isSwitchedOff() const;

    /// Whether the desktop started this process at login although the user has switched that off: systemd,
    /// which does it for some desktops, does not know GNOME's switch. The program then ends at once.
    [[nodiscard]] bool isStartUnwanted(const QByteArray& controlGroup = ownControlGroup()) const;

    /// The entry for an executable. Public for the sake of its test.
    static QByteArray entry(const QString& executablePath);

private:
    static QByteArray ownControlGroup();

    QString m_path;
};
