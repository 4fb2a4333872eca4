#pragma once

#include "platform/HidManager.h"

#include <memory>
#include <string>

/// One listed adapter: the plain record behind the device objects.
struct ZelvoDeviceNode {
    std::string model; ///< the "Product" string, UTF-8
    std::string extra; ///< never written: room for what an adapter may have to tell besides
    HidDeviceRef deviceRef;
    std::shared_ptr<ZelvoDeviceNode> next;
};

using ZelvoDeviceNodeRef = std::shared_ptr<ZelvoDeviceNode>;
