#pragma once

#include "fakes/MemoryUserDefaults.h"
#include "fakes/PrintQt.h"
#include "platform/Bundle.h"
#include "platform/Dialogs.h"
#include "platform/EventSource.h"
#include "platform/LoginItems.h"
#include "platform/ProcessServices.h"
#include "platform/Workspace.h"
#include "platform/simulated/VirtualRunLoop.h"

#include <QCoreApplication>
#include <QMap>
#include <QStringList>
#include <QTemporaryDir>
#include <QTranslator>

#include <functional>
#include <optional>
#include <vector>

/// Texts by key, before those of the installed language.
class TestTexts final : public QTranslator {
public:
    QMap<QString, QString> byKey;

    TestTexts() { QCoreApplication::installTranslator(this); }
    [[nodiscard]] bool isEmpty() const override { return false; }
    [[nodiscard]] QString translate(const char*, const char* key, const char*, int) const override
    {
        return byKey.value(QString::fromUtf8(key));
    }
};

/// A bundle whose locale is the test's to choose.
class TestBundle final : public Bundle {
public:
    using Bundle::Bundle;
    QLocale testLocale = QLocale(QStringLiteral("de_DE"));
    QString testCalendarLocaleName; ///< an ICU name for what a QLocale cannot say; empty = testLocale's
    [[nodiscard]] QLocale locale() const override { return testLocale; }
    [[nodiscard]] QString calendarLocaleName() const override
    {
        return testCalendarLocaleName.isEmpty() ? testLocale.name() : testCalendarLocaleName;
    }
};

/// Answers the same idle time for every kind of event, unless the test sets one kind apart.
class FakeEventSource final : public EventSource {
public:
    double idleSeconds = 0;
    QMap<int, double> byType;
    std::vector<int> asked;

    [[nodiscard]] double secondsSinceLastEventType(EventType eventType) override
    {
        asked.push_back(int(eventType));
        return byType.value(int(eventType), idleSeconds);
    }
};

class FakeWorkspace final : public Workspace {
public:
    std::vector<QUrl> opened;

    bool openUrl(const QUrl& url) override
    {
        opened.push_back(url);
        return true;
    }
    void screensSleep() { call(m_screensDidSleep); }
    void wake() { call(m_didWake); }
    void willSleep() { call(m_willSleep); }

private:
    static void call(const Callback& callback)
    {
        if (callback)
            callback();
    }
};

class FakeLoginItems final : public LoginItems {
public:
    bool insertItem(const QString&) override { return true; }
};

class FakeDialogs final : public Dialogs {
public:
    bool errorsAreDealtWith = false;
    int alertAnswer = kFirstButton;
    std::function<void()> whileAlertRuns;
    std::optional<QString> savePanelAnswer;
    std::vector<Error> presented;
    int timesForgotten = 0;
    QStringList alerts;
    QStringList proposedFileNames;

    bool presentError(const Error& error) override
    {
        presented.push_back(error);
        return errorsAreDealtWith;
    }
    void forgetErrors() override { ++timesForgotten; }
    int runAlert(const QString& messageText, const QString&, const QStringList&) override
    {
        alerts.append(messageText);
        if (whileAlertRuns)
            whileAlertRuns();
        return alertAnswer;
    }
    std::optional<QString> runSavePanel(const QString& proposedFileName) override
    {
        proposedFileNames.append(proposedFileName);
        return savePanelAnswer;
    }
};

/// The world of one test: virtual time, settings in memory, information keys of its own, a temporary folder.
/// Made first in a fixture and gone last.
class TestPlatform {
public:
    /// 2024-03-15 08:00:00 UTC, a Friday.
    static constexpr double kStart = 1710489600.0;

    explicit TestPlatform(const QJsonObject& information = defaultInformation());

    /// What the next start of the program finds, which may have brought another bundle.
    void restart(Bundle* otherBundle = nullptr);

    static QJsonObject defaultInformation();

    QTemporaryDir folder;
    VirtualRunLoop runLoop {kStart};
    MemoryUserDefaults defaults;
    TestBundle bundle;
    TestTexts texts;
    std::optional<ProcessServices> services {ProcessServices::Backends {&runLoop, &bundle, &defaults}};
};
