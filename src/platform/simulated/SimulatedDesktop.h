#pragma once

#include "platform/LoginItems.h"
#include "platform/ProcessServices.h"
#include "platform/SleepAwareEventSource.h"
#include "platform/simulated/MemoryUserDefaults.h"
#include "platform/simulated/SimulatedBundle.h"
#include "platform/simulated/SimulatedDialogs.h"
#include "platform/simulated/SimulatedHidManager.h"
#include "platform/simulated/SimulatedUser.h"
#include "platform/simulated/SimulatedWorkspace.h"
#include "platform/simulated/VirtualRunLoop.h"

#include <QTemporaryDir>

#include <memory>
#include <optional>

/// All that the program meets on a desktop, for tests, benchmarks and the tour: time that moves when it is
/// told to, settings in memory, a folder of its own, a desk, and a user at work. It is made before what runs
/// on it; while it lives, the process-wide services are its own.
class SimulatedDesktop {
public:
    /// @param startOfTime the wall clock at the start, in seconds since 1970-01-01 UTC.
    explicit SimulatedDesktop(
        double startOfTime, const QJsonObject& information = Bundle::compiledInformation())
        : runLoop(startOfTime)
        , bundle(information)
    {
    }
    /// What the process shares lets go of the backends before they go.
    ~SimulatedDesktop() { services.reset(); }
    SimulatedDesktop(const SimulatedDesktop&) = delete;
    SimulatedDesktop& operator=(const SimulatedDesktop&) = delete;

    class AnyLoginItems final : public LoginItems {
    public:
        bool insertItem(const QString&) override { return true; }
    };

    QTemporaryDir folder;
    VirtualRunLoop runLoop;
    SimulatedBundle bundle;
    MemoryUserDefaults defaults;
    std::optional<ProcessServices> services {ProcessServices::Backends {&runLoop, &bundle, &defaults}};
    SimulatedHidManager hid;
    std::shared_ptr<SimulatedUser> user = std::make_shared<SimulatedUser>();
    SleepAwareEventSource events {user};
    SimulatedWorkspace workspace;
    AnyLoginItems loginItems;
    SimulatedDialogs dialogs;
};
