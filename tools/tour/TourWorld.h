#pragma once

#include "Ledger.h"
#include "WireLog.h"
#include "platform/simulated/SimulatedDesktop.h"
#include "shell/AppDelegate.h"

#include <QWidget>

#include <memory>

/// The real program on the simulated desktop, with a book of what it records and what goes over the wire.
class TourWorld final : public SimulatedDesktop {
public:
    /// 2026-03-02 08:00:00 UTC, a Monday.
    static constexpr double kStart = 1772438400.0;

    /// Whether the reports on the wire are printed.
    enum class Wire { Silent, Printed };

    explicit TourWorld(const QLocale& locale = QLocale("en_GB"), Wire printed = Wire::Printed);

    /// Lets virtual time pass and the windows catch up; stops at every timer to note what the hub records.
    void pass(double seconds);
    /// Notes what the hub records now, after something happened without time passing.
    void observe();

    /// The shown window with that object name, or null.
    [[nodiscard]] static QWidget* window(const QString& name);
    /// The widget with that object name in a shown window, or null.
    [[nodiscard]] static QWidget* control(const QString& windowName, const QString& name);

    WireLog wire;
    Ledger ledger;
    bool hasQuit = false;
    std::unique_ptr<AppDelegate> app;
};
