#pragma once

#include "platform/HidManager.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

/// One feature report that went over the wire, or failed to.
struct HidTransfer {
    enum class Direction { Write, Read };

    double seconds; ///< on the run loop's wall clock, since 1970-01-01 UTC
    Direction direction;
    /// Byte 0 is the report ID. Written: as handed over; read: the buffer after the read.
    std::vector<uint8_t> bytes;
    HidStatus status;

    /// One line for people: direction, bytes in hexadecimal without the zeros at the end of an answer (eight
    /// at least), and what went wrong.
    [[nodiscard]] QString text() const;
};

/// Listens on the wire: passes everything on to another manager and its devices, and reports each transfer
/// after it has taken place. The other manager must outlive this one's use, not its destruction.
class RecordingHidManager final : public HidManager {
public:
    using Recorder = std::function<void(const HidTransfer&)>;

    RecordingHidManager(HidManager& recorded, Recorder recorder);
    ~RecordingHidManager() override;

    [[nodiscard]] HidStatus open() override;
    [[nodiscard]] std::vector<HidDeviceRef> copyDevices() const override;

private:
    struct State;

    HidManager& m_recorded;
    std::shared_ptr<State>
        m_state; // The recorded manager's callbacks see by it whether this one still lives.
};
