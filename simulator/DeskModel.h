#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

/// How a transfer with the adapter ended.
enum class TransferResult {
    Ok,
    Refused, ///< the adapter does not know the report, or its content is not sound
    Failed, ///< the transfer broke off
    NoAnswer, ///< the adapter stayed silent
    Unplugged, ///< there is no adapter
};

/// The physics and the protocol of one desk with its USB adapter, as docs/protocol.md describes them.
///
/// Heights are in 0.1 mm above the adapter's zero. Time passes only in advance(); the motion is reckoned on a
/// grid of 1 ms, so that one long step and many short ones lead to the same place.
class DeskModel {
public:
    static constexpr double kTopSpeed = 380; ///< units a second
    static constexpr double kAcceleration = 1520; ///< units a second, each second: top speed after 0.25 s
    static constexpr double kCommandLifeSeconds =
        0.5; ///< a movement that is not commanded again stops after it
    static constexpr int kDefaultLowerLimit = 0;
    static constexpr int kDefaultUpperLimit = 6500;
    static constexpr int kDefaultHeight = 900;
    static constexpr size_t kStatusReportLength = 64;
    static constexpr size_t kMostErrorCodes = 6;

    /// Faults that have a bit of their own in the status report.
    enum class ErrorKind : uint8_t { PositionLost = 0x01, OverloadUp = 0x04, OverloadDown = 0x08 };

    /// What goes wrong on the wire while it is switched on.
    struct Faults {
        bool failingReads = false;
        bool failingWrites = false;
        bool stall = false; ///< every report is refused
        bool noAnswer = false; ///< neither reads nor writes are answered, and nothing is carried out
        std::optional<size_t> answerLength; ///< a read gives this many bytes only, the report ID included
    };

    /// Lets time pass. Negative and undefined times count as none.
    void advance(double seconds);

    /// Takes a feature report as the host transmits it: the report ID and at least seven bytes.
    [[nodiscard]] TransferResult setFeatureReport(std::span<const uint8_t> report);
    /// Answers into the buffer, whose first byte names the report; what the answer does not reach stays as it
    /// was.
    [[nodiscard]] TransferResult getFeatureReport(std::span<uint8_t> report) const;

    /// The height as the adapter would report it.
    [[nodiscard]] uint16_t height() const;
    /// Units a second, positive upwards.
    [[nodiscard]] double velocity() const { return m_velocity; }
    [[nodiscard]] bool isMoving() const { return m_velocity != 0; }
    /// The height a movement command is driving to, as long as that command lives.
    [[nodiscard]] std::optional<int> goal() const;

    /// Puts the desk at a height, within its limits, at rest.
    void setHeight(int height);
    [[nodiscard]] int lowerLimit() const { return m_lowerLimit; }
    [[nodiscard]] int upperLimit() const { return m_upperLimit; }
    /// Sets where the movement ends. False, and no change, unless 0 <= lower < upper <= 65535.
    [[nodiscard]] bool setLimits(int lower, int upper);

    /// Plugs the adapter in or pulls it out. A pulled adapter forgets that it was initialised, and the desk
    /// stops.
    void setPlugged(bool plugged);
    [[nodiscard]] bool isPlugged() const { return m_plugged; }
    /// Switches the desk itself on or off, or its cable to the adapter; a desk that is off stops and is not
    /// heard.
    void setDeskOn(bool on);
    [[nodiscard]] bool isDeskOn() const { return m_deskOn; }
    /// Whether the adapter waits for the init report before it talks to the desk, as it does from the start.
    void setNeedsInit(bool needsInit) { m_needsInit = needsInit; }
    [[nodiscard]] bool needsInit() const { return m_needsInit; }
    [[nodiscard]] bool isInitialised() const { return m_initialised; }
    [[nodiscard]] bool isCommunicating() const;

    /// Errors: while there is any, the desk stops and obeys no movement command.
    void setError(ErrorKind kind, bool present);
    [[nodiscard]] bool hasError(ErrorKind kind) const;
    /// Adds a code (1 to 255) to the list. False for code 0 and when six others are listed already.
    [[nodiscard]] bool addErrorCode(uint8_t code);
    /// Raises the error flag alone, without naming an error.
    void setUnnamedError(bool present);
    void clearErrors();
    [[nodiscard]] const std::vector<uint8_t>& errorCodes() const { return m_errorCodes; }
    [[nodiscard]] bool hasUnnamedError() const { return m_unnamedError; }
    [[nodiscard]] bool hasError() const;

    [[nodiscard]] Faults& faults() { return m_faults; }
    [[nodiscard]] const Faults& faults() const { return m_faults; }

private:
    enum class Command { Stop, Up, Down, Target };

    TransferResult takeInit(std::span<const uint8_t> report);
    TransferResult takeMovement(std::span<const uint8_t> report);
    void fillStatus(std::span<uint8_t, kStatusReportLength> status) const;
    [[nodiscard]] bool isReady() const;
    void stop();
    void stopOnError();
    [[nodiscard]] bool isAtRest(std::optional<int> wanted) const;
    [[nodiscard]] double velocityTowards(double goal) const;
    void step(std::optional<int> wanted);
    void keepWithinLimits();

    double m_position = kDefaultHeight;
    double m_velocity = 0;
    int m_lowerLimit = kDefaultLowerLimit;
    int m_upperLimit = kDefaultUpperLimit;

    Command m_command = Command::Stop;
    int m_target = 0; // Of Command::Target.
    int64_t m_now = 0; // Whole steps since the start.
    int64_t m_commandedAt = 0;
    double m_unspentSeconds = 0; // Time handed in that does not fill a step yet.

    bool m_plugged = true;
    bool m_deskOn = true;
    bool m_needsInit = true;
    bool m_initialised = false;

    uint8_t m_errorKinds = 0;
    std::vector<uint8_t> m_errorCodes;
    bool m_unnamedError = false;
    Faults m_faults;
};
