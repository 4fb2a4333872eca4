#pragma once

#include "desk/ZelvoDeviceNode.h"
#include "platform/RunLoop.h"

#include <QMap>
#include <QString>
#include <QVariantMap>

#include <array>
#include <cstdint>
#include <memory>
#include <optional>

class ZelvoHIDDevice;

/// What a device tells of itself. Heights are raw: 0.1 mm above the adapter's zero.
class ZelvoHIDDeviceDelegate {
public:
    virtual void updatedIsCommunicating(
        bool isCommunicating, const std::shared_ptr<ZelvoHIDDevice>& onDevice) = 0;
    virtual void updatedPosition(int32_t position, const std::shared_ptr<ZelvoHIDDevice>& onDevice) = 0;
    virtual void updatedPositionState(
        int32_t positionState, const std::shared_ptr<ZelvoHIDDevice>& onDevice) = 0;

protected:
    ~ZelvoHIDDeviceDelegate() = default;
};

/// One desk adapter: initialises it, polls its status and height once a second, moves the desk while a button
/// is held. Always held by a shared_ptr. Heights are raw: 0.1 mm above the adapter's zero.
class ZelvoHIDDevice : public std::enable_shared_from_this<ZelvoHIDDevice> {
public:
    /// A whole feature report; byte 0 is the report ID. A write transmits the first 8 bytes.
    using Report = std::array<uint8_t, 64>;
    using StatusBits = std::array<int, 14>;
    using ErrorCodes = QMap<QString, QString>; ///< code ("E01") -> text, empty for a code without one
    enum Direction : int32_t { kUp = 1, kDown = 2, kToPosition = 3 }; ///< of a held movement

    /// Posted with this device and its error codes at each read that has some.
    static inline const QString kErrorCode = QStringLiteral("error_code");
    /// Posted once when the errors are over; no object, no user info.
    static inline const QString kErrorCodeRemoved = QStringLiteral("error_code_removed");

    ZelvoHIDDevice() = default;
    /// Stores the node in the slot that all devices share: the newest device defines the node for every one.
    explicit ZelvoHIDDevice(const ZelvoDeviceNodeRef& deviceNode);
    ZelvoHIDDevice(const ZelvoHIDDevice&) = delete;
    ZelvoHIDDevice& operator=(const ZelvoHIDDevice&) = delete;

    /// The report that stops the desk; only its first 8 bytes go out.
    [[nodiscard]] static Report stopReport();

    /// The node that all devices transfer through; null when no adapter is attached.
    [[nodiscard]] static const ZelvoDeviceNodeRef& node() { return s_node; }
    /// Points all devices at another node, for when the adapter behind the shared one has left.
    static void setNode(const ZelvoDeviceNodeRef& node) { s_node = node; }
    /// The node this device was made over. It tells whose adapter has left and nothing else.
    [[nodiscard]] const ZelvoDeviceNodeRef& ownNode() const { return m_ownNode; }

    /// Initialises and stops the adapter and checks its communication 0.2 s later. Whether the first report
    /// went out.
    bool initHID();
    /// Writes the init report alone, for an adapter that may have lost its power: one that still knows it
    /// does nothing. Whether it went out.
    bool repeatInit();
    /// One command each, then a status read. Whether the command was written.
    bool moveUpSingle();
    bool moveDownSingle();
    bool stop();
    bool moveToPositionSingle(int32_t height); ///< only the low 16 bits are sent
    /// Held movements: a stop at once, then the command every 0.2 s until stop(). Nothing else ends them, on
    /// purpose: the adapter stops by itself when the commands cease. A tick that is late by more than half an
    /// interval sends nothing, so that a release which waits behind it is heard first.
    void moveUp() { moveToDirection(kUp); }
    void moveDown() { moveToDirection(kDown); }
    void moveToPosition(int32_t height);
    void moveToDirection(int32_t direction);
    void onMoveTimerTick(const Timer& timer);
    /// Reads the status word and starts or stops the polling by it.
    void updateCommunicating();
    /// Asks again what another adapter was asked, and has not answered, when the shared node was its.
    void repeatPendingCheck();
    /// The height in the status report, whose errors are handled on the way; 0 when the read failed, nothing
    /// while the first answer is under way.
    std::optional<int32_t> fetchPosition();
    /// A status report that was asked for and came too late to be waited for: it answers a check of the
    /// communication that waits for it, or gives the height.
    void takeLateReport(const Report& report);
    /// Posts `error_code` for every report with an error, `error_code_removed` for the first clean one after.
    void handleError(const std::optional<ErrorCodes>& errorCodes);
    /// Element i is bit i of the status word; bits 14 and 15 are dropped.
    [[nodiscard]] static StatusBits statusToArray(int32_t status);
    /// The height from which the desk counts as standing, between the first two memory positions.
    [[nodiscard]] static double getStandingPoint();
    void setPositionStateFromPosition(int32_t height);
    /// Reads the height while communicating; tells of it, and judges the state, only when it has changed.
    void readPosition();
    void onReadPositionTimerTick(const Timer&) { readPosition(); }
    void startReadPositionTimer();
    void stopReadPositionTimer();

    [[nodiscard]] ZelvoHIDDeviceDelegate* delegate() const { return m_delegate; }
    void setDelegate(ZelvoHIDDeviceDelegate* delegate) { m_delegate = delegate; }
    [[nodiscard]] int32_t position() const { return m_position; }
    [[nodiscard]] int32_t moveToposition() const { return m_moveToposition; }
    void setMoveToposition(int32_t height) { m_moveToposition = height; }
    /// A Posture, or 0 while it is unknown.
    [[nodiscard]] int32_t positionState() const { return m_positionState; }
    void setPositionState(int32_t positionState);
    /// Always 0: nothing sets it, and the name belongs to the description of an adapter.
    [[nodiscard]] int32_t direction() const { return m_direction; }
    [[nodiscard]] bool isCommunicating() const { return m_isCommunicating; }
    [[nodiscard]] bool isConnected() const { return m_isConnected; }
    void setIsConnected(bool isConnected) { m_isConnected = isConnected; }
    [[nodiscard]] bool isActive() const { return m_isConnected && m_isCommunicating && m_positionState != 0; }
    [[nodiscard]] const TimerRef& readPositionTimer() const { return m_readPositionTimer; }
    [[nodiscard]] const TimerRef& moveTimer() const { return m_moveTimer; }
    [[nodiscard]] bool errorRecieved() const { return m_errorRecieved; }
    /// Always 0, as direction() is.
    [[nodiscard]] int32_t oldTablePosition() const { return m_oldTablePosition; }

    /// The last status report as read, for the developer's test window.
    [[nodiscard]] const Report& lastStatusReport() const { return m_lastStatusReport; }

private:
    bool sendSingle(const Report& report);
    void startMoveTimer(const QVariantMap& userInfo);
    [[nodiscard]] std::optional<Report> readStatusReport();
    void judgeCommunication(const Report& report);
    [[nodiscard]] int32_t heightFrom(const Report& report);
    void takeHeight(int32_t height);

    static inline ZelvoDeviceNodeRef s_node;

    ZelvoDeviceNodeRef m_ownNode;
    ZelvoHIDDeviceDelegate* m_delegate = nullptr;
    int32_t m_position = 0;
    int32_t m_moveToposition = 0;
    int32_t m_positionState = 0;
    int32_t m_direction = 0;
    bool m_isCommunicating = false;
    bool m_isCheckPending = false;
    bool m_isConnected = false;
    TimerRef m_readPositionTimer;
    TimerRef m_moveTimer;
    double m_moveDueAt = 0; // The next tick, on the monotonic clock.
    unsigned m_stops = 0; // How often the desk was told to stop.
    bool m_errorRecieved = false;
    int32_t m_oldTablePosition = 0;
    Report m_lastStatusReport {};
    TimerScope m_timers;
};
