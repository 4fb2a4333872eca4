#pragma once

#include "fakes/PrintQt.h"
#include "platform/simulated/SimulatedDesktop.h"

#include <QCoreApplication>
#include <QMap>
#include <QTranslator>

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

/// The world of one test, with information keys and texts of its own. Made first in a fixture and gone last.
class TestPlatform : public SimulatedDesktop {
public:
    /// 2024-03-15 08:00:00 UTC, a Friday.
    static constexpr double kStart = 1710489600.0;

    explicit TestPlatform(const QJsonObject& information = defaultInformation());

    /// What the next start of the program finds, which may have brought another bundle.
    void restart(Bundle* otherBundle = nullptr);

    static QJsonObject defaultInformation();

    TestTexts texts;
};
