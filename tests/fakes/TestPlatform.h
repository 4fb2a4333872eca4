#pragma once

#include "platform/simulated/SimulatedDesktop.h"

#include <QCoreApplication>
#include <QMap>
#include <QTranslator>

#include <gtest/gtest.h>

/// A readable text in the message of a failing test.
inline void PrintTo(const QString& text, std::ostream* stream)
{
    *stream << '"' << text.toStdString() << '"';
}

/// Texts by key, before those of the installed language.
class TestTexts final : public QTranslator {
public:
    QMap<QString, QString> byKey;

    TestTexts() { QCoreApplication::installTranslator(this); }
    [[nodiscard]] bool isEmpty() const override { return false; }
    [[nodiscard]] QString translate(const char*, const char* key, const char*, int) const override
    {
        return byKey.isEmpty() ? QString() : byKey.value(QString::fromUtf8(key));
    }
};

/// The world of one test, with information keys and texts of its own. Made first in a fixture and gone last.
class TestPlatform : public SimulatedDesktop {
public:
    /// 2024-03-15 08:00:00 UTC, a Friday.
    static constexpr double kStart = 1710489600.0;

    explicit TestPlatform(const QJsonObject& information = defaultInformation())
        : SimulatedDesktop(kStart, information)
    {
        hid.adapter().onTransfer([this](const HidTransfer& transfer) {
            if (transfer.direction == HidTransfer::Direction::Write)
                written.push_back(transfer.bytes);
        });
    }

    /// A desk that communicates and stands at the height; adopted and polled once.
    void plug(uint16_t height)
    {
        hid.desk().setHeight(height);
        hid.plug();
        runLoop.advance(1.5);
        written.clear();
    }
    void unplug()
    {
        hid.unplug();
        runLoop.advance(0);
    }

    /// What the next start of the program finds, which may have brought another bundle.
    void restart(Bundle* otherBundle = nullptr)
    {
        ProcessServices::Backends backends = services->backends();
        if (otherBundle)
            backends.bundle = otherBundle;
        services.reset();
        services.emplace(backends);
    }

    static QJsonObject defaultInformation()
    {
        return {{"CFBundleName", "StandUp"}, {"CFBundleShortVersionString", "1.0.1"},
            {"ZelvoFontName", "Open Sans"}, {"ZelvoColor1", "#00707A"}, {"ActivityModeDefault", "2"},
            {"DevicePosition1", 700}, {"DevicePosition2", 4300}, {"DevicePosition3", 4700},
            {"TablePositionOffset", 6200}, {"InfoUrl", "https://zelvo.example/info"},
            {"ErrorUrl", "https://zelvo.example/errors"}, {"VideoUrl", "https://zelvo.example/video"}};
    }

    TestTexts texts;
    std::vector<std::vector<uint8_t>> written; ///< the reports that went to the first adapter
};
