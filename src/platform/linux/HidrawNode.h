#pragma once

#include "platform/HidManager.h"

#include <cstdint>
#include <span>
#include <string>

/// One /dev/hidraw node and the system calls on it. Each of them can block for seconds while an adapter is
/// silent, opening and closing included, so a node lives on a worker thread from birth to death.
class HidrawNode {
public:
    explicit HidrawNode(std::string path);
    ~HidrawNode();
    HidrawNode(const HidrawNode&) = delete;
    HidrawNode& operator=(const HidrawNode&) = delete;

    /// Opens and locks the node; 0 when that has been done already. EBUSY: another program holds the lock.
    [[nodiscard]] HidStatus open();

    // Only a node that has been opened carries reports.
    /// Sends a feature report, the report ID in byte 0.
    [[nodiscard]] HidStatus setFeature(std::span<const uint8_t> report);
    /// Reads a feature report, the report ID in byte 0. A shorter answer leaves the rest as it was.
    [[nodiscard]] HidStatus getFeature(std::span<uint8_t> report);

private:
    std::string m_path;
    int m_file = -1;
};
