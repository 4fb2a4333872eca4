#include "commands/ApplicationAdaptor.h"

#include "commands/CommandService.h"

ApplicationAdaptor::ApplicationAdaptor(CommandService& service)
    : QDBusAbstractAdaptor(&service)
    , m_service(service)
{
}

void ApplicationAdaptor::Activate(const QVariantMap& platform_data)
{
    CommandService::takeActivationToken(platform_data);
    m_service.show();
}

void ApplicationAdaptor::Open(const QStringList&, const QVariantMap& platform_data)
{
    Activate(platform_data);
}

void ApplicationAdaptor::ActivateAction(
    const QString& action_name, const QVariantList&, const QVariantMap& platform_data)
{
    CommandService::takeActivationToken(platform_data);
    m_service.perform(action_name);
}
