#include "commands/StandUpAdaptor.h"

#include "commands/CommandService.h"

StandUpAdaptor::StandUpAdaptor(CommandService& service)
    : QDBusAbstractAdaptor(&service)
    , m_service(service)
{
    connect(&service, &CommandService::changed, this, &StandUpAdaptor::Changed);
}

void StandUpAdaptor::Show()
{
    m_service.show();
}

void StandUpAdaptor::ShowHistory()
{
    m_service.showHistory();
}

void StandUpAdaptor::ShowSettings()
{
    m_service.showSettings();
}

void StandUpAdaptor::Quit()
{
    m_service.quit();
}

void StandUpAdaptor::Snooze()
{
    m_service.snooze();
}

void StandUpAdaptor::Skip()
{
    m_service.skip();
}

QVariantMap StandUpAdaptor::Status()
{
    return CommandService::status();
}
