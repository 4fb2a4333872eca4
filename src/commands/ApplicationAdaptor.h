#pragma once

#include <QDBusAbstractAdaptor>
#include <QStringList>
#include <QVariantMap>

class CommandService;

/// What a desktop asks of every application that it starts over D-Bus.
// NOLINTBEGIN(readability-identifier-naming): The interface has given the names.
class ApplicationAdaptor final : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit ApplicationAdaptor(CommandService& service);

public Q_SLOTS:
    void Activate(const QVariantMap& platform_data);
    /// The program has no documents: the same as Activate.
    void Open(const QStringList& uris, const QVariantMap& platform_data);
    void ActivateAction(
        const QString& action_name, const QVariantList& parameter, const QVariantMap& platform_data);

private:
    CommandService& m_service;
};
// NOLINTEND(readability-identifier-naming)
