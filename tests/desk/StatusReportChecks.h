#pragma once

#include "desk/ZelvoHIDDevice.h"
#include "desk/ZelvoHIDManager.h"
#include "fakes/FakeHid.h"
#include "fakes/TestPlatform.h"

/// A device whose adapter sends whatever it is told to, and what must hold for any bytes. For the random test
/// and for the fuzzer.
class StatusReportChecks {
public:
    using Report = ZelvoHIDDevice::Report;

    StatusReportChecks();

    /// Lets the device read the report in each of its ways. Null when all is well, else what went wrong.
    const char* violation(const Report& report);

private:
    const char* violationOfCodes(const Report& report) const;
    const char* violationOfDevice(const Report& report);

    TestPlatform m_platform;
    FakeHidManager m_hid;
    std::shared_ptr<FakeHidDevice> m_adapter = std::make_shared<FakeHidDevice>();
    ZelvoHIDManager m_manager {m_hid};
    std::shared_ptr<ZelvoHIDDevice> m_device;
};
