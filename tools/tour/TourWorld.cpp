#include "TourWorld.h"

#include "data/AppProperties.h"
#include "desk/ZelvoController.h"
#include "shell/TestWindowController.h"

#include <QApplication>
#include <QDir>

#include <utility>

void TourEventSource::leave()
{
    m_awaySince = RunLoop::main().bootTimeNow();
}

void TourEventSource::comeBack()
{
    m_awaySince = -1;
}

double TourEventSource::secondsSinceLastEventType(EventType)
{
    return m_awaySince < 0 ? 1.0 : RunLoop::main().bootTimeNow() - m_awaySince;
}

bool TourWorkspace::openUrl(const QUrl& url)
{
    opened.append(url);
    return true;
}

TourDialogs::TourDialogs(QString folder)
    : m_folder(std::move(folder))
{
}

bool TourDialogs::presentError(const Error& error)
{
    errors.append(error.localizedDescription);
    return false;
}

int TourDialogs::runAlert(const QString&, const QString&, const QStringList&)
{
    return kFirstButton;
}

std::optional<QString> TourDialogs::runSavePanel(const QString& proposedFileName)
{
    savedPath = QDir(m_folder).filePath(proposedFileName);
    return savedPath;
}

TourBundle::TourBundle(QLocale locale)
    : Bundle(compiledInformation())
    , m_locale(std::move(locale))
{
}

TourWorld::TourWorld(QLocale locale, Wire printed)
    : bundle(std::move(locale))
    , defaults(folder.filePath(QStringLiteral("StandUp.conf")))
    , dialogs(folder.path())
{
    if (printed == Wire::Printed)
        simulated.adapter().onTransfer([this](const HidTransfer& transfer) { wire.record(transfer); });
    app = std::make_unique<AppDelegate>(AppDelegate::Dependencies {simulated, events, workspace, loginItems,
        dialogs, folder.path(), QCoreApplication::applicationFilePath(), [this] { hasQuit = true; },
        [this](AppDelegate& delegate) {
            return std::make_unique<TestWindowController>(delegate.menuletController(), &simulated);
        }});
}

void TourWorld::pass(double seconds)
{
    const double end = runLoop.monotonicNow() + seconds;
    runLoop.advance(0);
    observe();
    while (const auto next = runLoop.secondsToNextTimer()) {
        if (runLoop.monotonicNow() + *next > end)
            break;
        runLoop.advance(*next);
        observe();
    }
    runLoop.advance(end - runLoop.monotonicNow());
    QCoreApplication::processEvents();
}

void TourWorld::observe()
{
    if (const auto& hub = AppProperties::instance().zelvoController())
        ledger.observe(hub->activity().get());
}

QWidget* TourWorld::window(const QString& name)
{
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->objectName() == name && widget->isVisible())
            return widget;
    }
    return nullptr;
}

QWidget* TourWorld::control(const QString& windowName, const QString& name)
{
    const QWidget* shown = window(windowName);
    return shown ? shown->findChild<QWidget*>(name) : nullptr;
}
