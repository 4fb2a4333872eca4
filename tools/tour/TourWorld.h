#pragma once

#include "Ledger.h"
#include "WireLog.h"
#include "platform/Bundle.h"
#include "platform/Dialogs.h"
#include "platform/EventSource.h"
#include "platform/LoginItems.h"
#include "platform/ProcessServices.h"
#include "platform/Workspace.h"
#include "platform/qt/QtUserDefaults.h"
#include "platform/simulated/SimulatedHidManager.h"
#include "platform/simulated/VirtualRunLoop.h"
#include "shell/AppDelegate.h"

#include <QTemporaryDir>
#include <QWidget>

#include <memory>

/// A user at the keyboard, or away from it.
class TourEventSource final : public EventSource {
public:
    void leave();
    void comeBack();
    [[nodiscard]] double secondsSinceLastEventType(EventType eventType) override;

private:
    double m_awaySince = -1;
};

class TourWorkspace final : public Workspace {
public:
    bool openUrl(const QUrl& url) override;
    void screensSleep() const { m_screensDidSleep(); }
    void wake() const { m_didWake(); }
    void willSleep() const { m_willSleep(); }
    QList<QUrl> opened;
};

class TourLoginItems final : public LoginItems {
public:
    bool insertItem(const QString&) override { return true; }
};

/// Answers every question at once: errors are noted, files go into the tour's folder.
class TourDialogs final : public Dialogs {
public:
    explicit TourDialogs(QString folder);
    bool presentError(const Error& error) override;
    int runAlert(
        const QString& messageText, const QString& informativeText, const QStringList& buttons) override;
    std::optional<QString> runSavePanel(const QString& proposedFileName) override;

    QStringList errors;
    QString savedPath;

private:
    QString m_folder;
};

/// A bundle in a fixed language and locale, so that the tour prints the same on every machine.
class TourBundle final : public Bundle {
public:
    explicit TourBundle(QLocale locale);
    [[nodiscard]] QLocale locale() const override { return m_locale; }

private:
    QLocale m_locale;
};

/// The real program assembled on the simulated desk, virtual time and a folder of its own.
class TourWorld {
public:
    /// 2026-03-02 08:00:00 UTC, a Monday.
    static constexpr double kStart = 1772438400.0;

    /// Whether the reports on the wire are printed.
    enum class Wire { Silent, Printed };

    explicit TourWorld(QLocale locale = QLocale(QStringLiteral("en_GB")), Wire wire = Wire::Printed);
    TourWorld(const TourWorld&) = delete;
    TourWorld& operator=(const TourWorld&) = delete;

    /// Lets virtual time pass and the windows catch up; stops at every timer to note what the hub records.
    void pass(double seconds);
    /// Notes what the hub records now, after something happened without time passing.
    void observe();

    /// The shown window with that object name, or null.
    [[nodiscard]] static QWidget* window(const QString& name);
    /// The widget with that object name in a shown window, or null.
    [[nodiscard]] static QWidget* control(const QString& windowName, const QString& name);

    QTemporaryDir folder;
    VirtualRunLoop runLoop {kStart};
    TourBundle bundle;
    QtUserDefaults defaults;
    ProcessServices services {{&runLoop, &bundle, &defaults}};
    SimulatedHidManager simulated;
    WireLog wire;
    TourEventSource events;
    TourWorkspace workspace;
    TourLoginItems loginItems;
    TourDialogs dialogs;
    Ledger ledger;
    bool hasQuit = false;
    std::unique_ptr<AppDelegate> app;
};
