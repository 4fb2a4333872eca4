#pragma once

#include <QIcon>
#include <QObject>
#include <QString>
#include <QSystemTrayIcon>

#include <functional>
#include <memory>

class QMenu;

/// The program's place in the status bar. The tray icon itself is made by appear(), once a tray host is known
/// to be there: Qt asks for the host a single time and an icon made earlier would never be seen.
class StatusItem final : public QObject {
    Q_OBJECT

public:
    StatusItem();
    ~StatusItem() override;

    void setIcon(const QIcon& icon);
    [[nodiscard]] const QString& toolTip() const { return m_toolTip; }
    void setToolTip(const QString& toolTip);
    /// The menu that the host shows on a right click. It must outlive this object.
    void setMenu(QMenu* menu);
    void onClicked(std::function<void()> callback) { m_clicked = std::move(callback); }
    void onRightClicked(std::function<void()> callback) { m_rightClicked = std::move(callback); }

    /// Makes the icon visible; call it when a tray host is there. Later calls do nothing.
    void appear();
    /// Shows the menu at the pointer where the host does not show it by itself.
    void popUpMenu();

private:
    void activated(QSystemTrayIcon::ActivationReason reason);

    QIcon m_icon;
    QString m_toolTip;
    QMenu* m_menu = nullptr;
    std::function<void()> m_clicked;
    std::function<void()> m_rightClicked;
    std::unique_ptr<QSystemTrayIcon> m_trayIcon;
};
