#include "TourWorld.h"

#include "SimulatedApplication.h"
#include "data/AppProperties.h"
#include "desk/ZelvoController.h"

#include <QApplication>

TourWorld::TourWorld(const QLocale& locale, Wire printed)
    : SimulatedDesktop(kStart)
{
    bundle.userLocale = locale;
    if (printed == Wire::Printed)
        hid.adapter().onTransfer([this](const HidTransfer& transfer) { wire.record(transfer); });
    app = std::make_unique<AppDelegate>(simulatedApplication(*this, [this] { hasQuit = true; }));
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
