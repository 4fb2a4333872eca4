#include "desk/ErrorCodeHandler.h"
#include "desk/ScriptedAdapter.h"
#include "desk/ZelvoHIDManager.h"
#include "fakes/TestPlatform.h"
#include "fuzz/Demand.h"

#include <algorithm>

/// The bytes are one status report, filled up with zeros, as a short answer of the adapter is.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static TestPlatform platform;
    static ZelvoHIDManager manager(platform.hid);
    static const auto adapter = std::make_shared<ScriptedAdapter>();
    if (manager.devices().empty())
        manager.handleMatchingDevice(adapter, platform.hid, 0);
    const auto device = manager.devices().back();

    ZelvoHIDDevice::Report report {};
    std::copy_n(data, std::min(size, report.size()), report.begin());
    adapter->status = report;
    device->updateCommunicating();
    device->readPosition();
    demand(device->fetchPosition() == report[4] + 256 * report[5], "the height is bytes 4 and 5");
    demand(device->isCommunicating() == ((report[2] & 1) != 0), "communication is bit 0 of the status word");
    demand(device->errorRecieved() == ((report[3] & 0x02) != 0), "the error shown follows the flag");
    demand(ErrorCodeHandler::setErrorCode(report).value_or(QMap<QString, QString>()).size() <= 6 + 3,
        "six codes and the three kinds at most");
    demand(adapter->written.size() == 2, "reading writes nothing");
    return 0;
}
