#pragma once

#include "SimulatedApplication.h"
#include "data/AppProperties.h"
#include "desk/ZelvoController.h"
#include "fakes/TestPlatform.h"

#include <memory>

/// A whole application on fakes and virtual time, in a temporary folder. Nothing has started yet.
class ShellWorld {
public:
    ShellWorld() { hid.unplug(); }

    /// Settings as a finished set-up leaves them: 71 kg, 18 standing minutes an hour in three stand-ups.
    void completeSetup()
    {
        AppProperties& properties = AppProperties::instance();
        properties.setWeight(71);
        properties.setActivityMode(2);
        properties.setActivityGoal(18);
        properties.setNumberOfStandUps(3);
    }

    [[nodiscard]] QString dataFolder() const
    {
        return platform.folder.filePath(QStringLiteral("org.zelvo.StandUp"));
    }

    TestPlatform platform;
    SimulatedHidManager& hid = platform.hid;
    SimulatedDialogs& dialogs = platform.dialogs;
    int quits = 0;
    std::unique_ptr<AppDelegate> app =
        std::make_unique<AppDelegate>(simulatedApplication(platform, [this] { ++quits; }));
};
