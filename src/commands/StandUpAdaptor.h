#pragma once

#include <QDBusAbstractAdaptor>
#include <QVariantMap>

class CommandService;

/// The program's own interface on the bus.
// NOLINTBEGIN(readability-identifier-naming): As methods and signals are spelled on the bus.
class StandUpAdaptor final : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.zelvo.StandUp1")

public:
    explicit StandUpAdaptor(CommandService& service);

public Q_SLOTS:
    void Show();
    void ShowHistory();
    void ShowSettings();
    void Quit();
    void Snooze();
    void Skip();
    QVariantMap Status();

Q_SIGNALS:
    /// Ask for the Status again.
    void Changed();

private:
    CommandService& m_service;
};
// NOLINTEND(readability-identifier-naming)
