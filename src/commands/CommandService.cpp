#include "commands/CommandService.h"

#include "commands/ApplicationAdaptor.h"
#include "commands/BusNames.h"
#include "commands/StandUpAdaptor.h"
#include "commands/StatusText.h"
#include "data/AppProperties.h"
#include "platform/DBusCall.h"
#include "platform/EventSource.h"
#include "platform/Log.h"
#include "shell/AppDelegate.h"
#include "shell/NotificationWindowController.h"

#include <QDBusPendingReply>
#include <QHash>

#include <utility>

namespace {
constexpr uint32_t kDoNotQueue = 4;
constexpr uint32_t kPrimaryOwner = 1;
}

CommandService::CommandService(AppDelegate& app, QDBusConnection bus)
    : m_app(app)
    , m_bus(std::move(bus))
{
    new ApplicationAdaptor(*this); // Both belong to this object.
    new StandUpAdaptor(*this);
    if (!m_bus.isConnected())
        return;
    observe();
    // The object first: a call that has waited for the name follows at once.
    m_bus.registerObject(BusNames::kPath, this);
    takeName();
}

void CommandService::observe()
{
    for (const QString& news : {ZelvoController::kDeviceStateDidChange, ZelvoController::kIdleDidChange,
             ScheduleManager::kNewSession, ZelvoHIDManager::kAccessDidChange,
             EventSource::kCanTellDidChange}) {
        m_observations.push_back(NotificationCenter::defaultCenter().addObserver(
            news, [this](const PostedNotification&) { announceSoon(); }));
    }
    m_heights = AdoptedDesk::observeRest([this] { announceSoon(); });
}

/// QDBusConnection::registerService() would wait for the bus.
void CommandService::takeName()
{
    QDBusMessage request = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"),
        QStringLiteral("/org/freedesktop/DBus"), QStringLiteral("org.freedesktop.DBus"),
        QStringLiteral("RequestName"));
    request << BusNames::kService << kDoNotQueue;
    askBus(m_bus, request, this, [](const QDBusPendingCallWatcher& call) {
        const QDBusPendingReply<uint> reply = call;
        if (reply.isError() || reply.value() != kPrimaryOwner)
            Log::line(QStringLiteral("Commands will not be heard: another program has the name %1.")
                          .arg(BusNames::kService));
    });
}

/// One signal for all that happens until then.
void CommandService::announceSoon()
{
    invalidate(m_announcement);
    m_announcement = m_timers.schedule(0, RunLoop::Repeat::No, [this](Timer&) { Q_EMIT changed(); });
}

void CommandService::perform(const QString& action)
{
    static const QHash<QString, void (CommandService::*)()> actions {
        {QStringLiteral("show"), &CommandService::show},
        {QStringLiteral("history"), &CommandService::showHistory},
        {QStringLiteral("settings"), &CommandService::showSettings},
        {QStringLiteral("quit"), &CommandService::quit},
        {QStringLiteral("snooze"), &CommandService::snooze},
        {QStringLiteral("skip"), &CommandService::skip},
    };
    if (const auto found = actions.constFind(action); found != actions.cend())
        (this->**found)();
    else
        refuse(QStringLiteral("There is no action '%1'.").arg(action));
}

void CommandService::show()
{
    m_app.showSomething();
}

void CommandService::showHistory()
{
    if (AppProperties::instance().isUserSetupCompleted())
        m_app.showHistory();
    else
        m_app.showWizard();
}

void CommandService::showSettings()
{
    m_app.menuSettingsClicked();
}

void CommandService::quit()
{
    // Afterwards, so that the caller has its answer.
    RunLoop::main().performSoon([&app = m_app] { app.terminate(); });
}

void CommandService::snooze()
{
    if (NotificationWindowController* const reminder = m_app.menuletController().openNotification())
        reminder->buttonSnoozeClicked();
    else
        refuse(QStringLiteral("There is no reminder to snooze."));
}

void CommandService::skip()
{
    NotificationWindowController* const reminder = m_app.menuletController().openNotification();
    if (!reminder)
        return refuse(QStringLiteral("There is no reminder to skip."));
    reminder->stopDismissTimer(); // As a pointer does on its way to the button.
    reminder->buttonCancelClicked();
}

void CommandService::refuse(const QString& why)
{
    if (calledFromDBus())
        sendErrorReply(BusNames::kRefused, why);
}

void CommandService::takeActivationToken(const QVariantMap& platformData)
{
    if (const auto token = platformData.constFind(BusNames::kActivationToken); token != platformData.cend())
        qputenv("XDG_ACTIVATION_TOKEN", token->toByteArray());
}

QVariantMap CommandService::status()
{
    return facts(Status::now());
}
