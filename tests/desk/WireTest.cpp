// Plays scripts against the simulated desks, quick, slow, failing and stalled, and compares all that went
// over the wire: when each report began, how long it lasted if it lasted, and "r" for a read of the status.

#include "desk/DeskTest.h"
#include "desk/ZelvoHIDDevice.h"
#include "desk/ZelvoHIDManager.h"
#include "platform/NotificationCenter.h"
#include "platform/simulated/SimulatedHidManager.h"

#include <map>

namespace {
/// Seconds count from the second poll of a desk that was found at 900. What is marked "B:" is another
/// adapter's.
class Wire final : public DeskTest, public ZelvoHIDManagerDelegate, public ZelvoHIDDeviceDelegate {
public:
    Wire()
    {
        manager.setDelegate(this);
        simulation.adapter(0).onTransfer([this](const HidTransfer& transfer) { log(transfer, {}); });
        simulation.adapter(1).onTransfer([this](const HidTransfer& transfer) { log(transfer, kOther); });
        advanceTo(0);
        heard.clear();
        wire.clear();
    }
    void TestBody() override { }

    /// A number lets time pass until so many seconds.
    void play(const QString& script)
    {
        for (const QString& word : script.split(u' ')) {
            bool isTime = false;
            const double seconds = word.toDouble(&isTime);
            if (isTime)
                advanceTo(seconds);
            else
                happens(word.section(u'=', 0, 0), word.section(u'=', 1).toDouble());
        }
    }

    void deviceAdded(const Device& added) override
    {
        (device.expired() ? device : other) = added;
        added->setDelegate(this);
        hear(QStringLiteral("added"), added);
    }
    void deviceRemoved(const Device& removed) override
    {
        hear(QStringLiteral("removed"), removed);
        (removed == device.lock() ? device : other).reset();
    }
    void updatedIsCommunicating(bool is, const Device& onDevice) override
    {
        hear(QStringLiteral("communicating %1").arg(is), onDevice);
    }
    void updatedPosition(int32_t position, const Device& onDevice) override
    {
        EXPECT_TRUE(position > 0 || !onDevice->isConnected()) << "no height was made up";
        if (const auto meet = std::exchange(onHeight, {}))
            meet();
    }
    void updatedPositionState(int32_t state, const Device& onDevice) override
    {
        hear(QStringLiteral("state %1").arg(state), onDevice);
    }

    SimulatedHidManager simulation;
    ZelvoHIDManager manager {simulation};
    std::weak_ptr<ZelvoHIDDevice> device, other;
    QStringList heard, wire;

private:
    [[nodiscard]] double time() const { return secondsSinceStart() - 2.2; }
    void advanceTo(double seconds) { platform.runLoop.advance(seconds - time()); }

    void happens(const QString& what, double value)
    {
        const Device desk = device.lock();
        const std::map<QString, std::function<void()>> kDeeds {
            {"up", [&] { desk->moveUp(); }},
            {"down", [&] { desk->moveDown(); }},
            {"go", [&] { desk->moveToPosition(int32_t(value)); }},
            {"target", [&] { desk->setMoveToposition(int32_t(value)); }},
            {"aside", [&] { desk->moveToDirection(7); }}, // There is no such direction.
            {"stop", [&] { desk->stop(); }},
            {"keep", [&] { kept = desk; }}, // As a screen may.
            {"error", [&] { (void)simulation.desk().addErrorCode(7); }},
            {"well", [&] { simulation.desk().clearErrors(); }},
            {"stopAtHeight", [&] { onHeight = [this] { device.lock()->stop(); }; }},
            {"downAtHeight", [&] { onHeight = [this] { device.lock()->moveDown(); }; }},
            {"freeze", [&] { platform.runLoop.jump(value); }},
            {"height", [&] { simulation.desk().setHeight(int(value)); }},
            {"memory2", [&] { AppProperties::instance().setDevicePosition2(int32_t(value)); }},
            {"latency", [&] { simulation.adapter().setLatency(value); }},
            {"latencyB", [&] { simulation.adapter(1).setLatency(value); }},
            {"fail", [&] { simulation.adapter().failNext(int(value), EPIPE); }},
            {"stall", [&] { simulation.adapter().setStalled(value != 0); }},
            {"pull", [&] { simulation.unplug(); }},
            {"plug", [&] { simulation.plug(); }},
            {"pullB", [&] { simulation.unplug(1); }},
            {"plugB", [&] { simulation.plug(1); }},
        };
        kDeeds.at(what)();
    }

    void hear(const QString& what, const Device& of)
    {
        heard.append(QStringLiteral("%1 %2%3")
                         .arg(time(), 0, 'f', 2)
                         .arg(of && of == other.lock() ? kOther : QString(), what));
    }

    void log(const HidTransfer& transfer, const QString& whose)
    {
        const QString line =
            whose + nameOf(transfer) + (transfer.status != 0 ? QStringLiteral("!") : QString());
        const QString lasted =
            transfer.duration > 0 ? QStringLiteral("+%1").arg(transfer.duration, 0, 'f', 2) : QString();
        const double begun = transfer.seconds - TestPlatform::kStart - 2.2;
        wire.append(
            line.endsWith(u'r') ? line : QStringLiteral("%1%2 %3").arg(begun, 0, 'f', 2).arg(lasted, line));
    }

    static QString nameOf(const HidTransfer& transfer)
    {
        if (transfer.direction == HidTransfer::Direction::Read)
            return QStringLiteral("r");
        if (transfer.bytes == std::vector<uint8_t> {3, 4, 0, 0xFB, 0, 0, 0, 0})
            return QStringLiteral("init");
        const uint8_t low = transfer.bytes[1];
        const uint8_t high = transfer.bytes[2];
        EXPECT_EQ(transfer.bytes, (std::vector<uint8_t> {5, low, high, low, high, low, high, low}));
        const std::map<int, QString> kNames {{0x8000, "up"}, {0x7FFF, "down"}, {0x8001, "stop"}};
        const auto known = kNames.find(low | high << 8);
        return known != kNames.end() ? known->second : QStringLiteral("go%1").arg(low | high << 8);
    }

    static inline const QString kOther = QStringLiteral("B:");
    std::function<void()> onHeight;
    Device kept;
    NotificationCenter::Observation error = NotificationCenter::defaultCenter().addObserver(
        ZelvoHIDDevice::kErrorCode, [this](const PostedNotification& posted) {
            EXPECT_EQ(posted.object, device.lock());
            hear(posted.userInfo.keys().join(u' '), device.lock());
        });
    NotificationCenter::Observation errorOver =
        NotificationCenter::defaultCenter().addObserver(ZelvoHIDDevice::kErrorCodeRemoved,
            [this](const PostedNotification&) { hear(QStringLiteral("well"), device.lock()); });
};
}

TEST(Wire, carriesWhatAHoldAsksForAndNothingAfterItsEnd)
{
    const struct {
        const char* script;
        const char* wire;
        const char* heard;
        int height = 0; ///< at the end; 0: whatever it is
    } kCases[] = {
        // A quick adapter, and slow ones, whose height is known while they move.
        {"0.1 up 1 stop 2.1", "0.10 stop r 0.30 up r 0.50 up r 0.70 up r 0.90 up r r 1.00 stop r r", ""},
        {"latency=0.2 0.1 up 1 stop 3.1",
            "0.10+0.20 stop r 0.50+0.20 up 0.70+0.20 up 0.90+0.20 up 1.10+0.20 stop r r", ""},
        {"latency=0.3 0.1 up 2.95 stop 4.1",
            "0.10+0.30 stop 0.40+0.30 up 0.70+0.30 up 1.00+0.30 up r 1.60+0.30 up 1.90+0.30 up 2.20+0.30 up "
            "r 2.80+0.30 up 3.10+0.30 stop r",
            ""},
        // Failures and stalls: the newest intent goes out first, and nothing after a return.
        {"0.1 up 0.6 fail=1 0.8 fail=1 1 stop 2.1",
            "0.10 stop r 0.30 up r 0.50 up r 0.70 up! 0.70 up r 0.90 up! 0.90 up r r 1.00 stop r r", ""},
        {"0.1 up 0.6 fail=2 4.1",
            "0.10 stop r 0.30 up r 0.50 up r 0.70 up! 0.70 up! 0.70 stop 1.70 stop r 1.70 init 1.70 stop r r "
            "r",
            "0.70 removed 1.70 added 1.90 communicating 1 2.90 state 2"},
        {"0.1 up 0.6 stall=1 0.9 stall=0 1 stop 2.1",
            "0.10 stop r 0.30 up r 0.50 up r 0.70+0.20 up 0.90 up r r 1.00 stop r r", ""},
        {"0.1 up 0.6 stall=1 1 stop 2.6 stall=0 4.1",
            "0.10 stop r 0.30 up r 0.50 up r 0.70+1.90 up 2.60 stop r r r", ""},
        {"0.1 up 0.6 stall=1 1 stop 6.1 stall=0 8.1",
            "0.10 stop r 0.30 up r 0.50 up r 0.70+5.40 up 6.10 stop 6.70 stop r 6.70 init 6.70 stop r r",
            "5.70 removed 6.70 added 6.90 communicating 1 7.90 state 2"},
        // One movement takes the place of another, also within its start.
        {"0.1 go=67538 0.35 target=1772 0.55 down 0.8 aside 1.8",
            "0.10 stop r 0.30 go2002 r 0.50 go1772 r 0.55 stop r 0.75 down r 0.80 stop r r", ""},
        {"0.1 height=950 stopAtHeight up 0.7", "0.10 stop r 0.10 stop r", ""},
        {"0.1 height=990 downAtHeight up 0.4 stop 0.6", "0.10 stop r 0.10 stop r 0.30 down r 0.40 stop r",
            ""},
        // After a standstill of the process a release that waits comes before the next movement.
        {"0.1 up 0.45 freeze=0.14 0.61 stop 1.25", "0.10 stop r 0.30 up r 0.59 up r 0.61 stop r r", ""},
        {"0.1 up 0.45 freeze=0.16 0.63 stop 1.25", "0.10 stop r 0.30 up r 0.63 stop r r", ""},
        {"0.1 up 0.45 freeze=0.34 1.21 stop 1.5", "0.10 stop r 0.30 up r 0.99 up r r 1.19 up r 1.21 stop r",
            ""},
        // What the status report says, and what is made of an adapter that has gone.
        {"0.1 error 2.1 well 4.1", "r r r r", "1.00 E07 2.00 E07 3.00 well"},
        {"0.1 error 1.1 pull 1.4", "r", "1.00 E07 1.10 removed 1.10 well"},
        {"0.1 height=5000 1.1 keep pull 4", "r", "1.00 state 1 1.10 removed 2.00 state 2"},
        {"0.1 plugB 1.1 pull 3.1", "0.10 B:init 0.10 B:stop B:r B:r 1.10 B:init 1.10 B:stop B:r B:r",
            "0.10 B:added 0.30 B:communicating 1 1.10 removed 1.10 B:removed 1.10 added 1.30 communicating 1 "
            "2.30 state 2"},
        {"0.1 plugB 1.1 pull pullB 3.1", "0.10 B:init 0.10 B:stop B:r B:r",
            "0.10 B:added 0.30 B:communicating 1 1.10 removed 1.10 B:removed"},
        // Late reports are taken up when they come; a state is judged when the height changes.
        {"pull 1 latency=0.3 height=3000 plug 3.5 height=3100 4.3", "1.00+0.30 init 1.30+0.30 stop r r r",
            "0.00 removed 1.00 added 1.90 communicating 1 2.90 state 1", 3100},
        {"0.1 height=2499 1.1 height=2500 3.1 memory2=4304 4.1 height=2501 5.1", "r r r r r",
            "2.00 state 1 5.00 state 2", 2501},
        // A hold ends when another adapter takes over, and an old answer of another one says nothing.
        {"0.1 up 0.4 plugB 0.6 up 0.9 pullB 1.7",
            "0.10 stop r 0.30 up r 0.40 stop r 0.40 B:init 0.40 B:stop B:r 0.60 B:stop B:r 0.80 B:up B:r "
            "0.90 stop r r",
            "0.40 B:added 0.60 B:communicating 1 0.90 B:removed"},
        {"latency=0.5 latencyB=0.5 1.05 plugB 4 height=4100 pullB 7",
            "r 1.05+0.50 B:init 1.55+0.50 B:stop B:r B:r r r",
            "1.05 B:added 2.55 B:communicating 1 3.50 B:state 2 4.00 B:removed 5.50 state 1", 4100},
    };
    for (const auto& [script, wire, heard, height] : kCases) {
        SCOPED_TRACE(script);
        Wire world;
        world.play(QString::fromLatin1(script));
        EXPECT_EQ(world.wire.join(u' ').toStdString(), wire);
        EXPECT_EQ(world.heard.join(u' ').toStdString(), heard);
        EXPECT_FALSE(world.simulation.desk().isMoving());
        if (height != 0) {
            EXPECT_EQ(world.device.lock()->position(), height);
        }
    }
}
