// Plays slow, failing and stalled transfers against the simulated desk and compares all that went over the
// wire: when each report began, how long it lasted if it lasted, and "r" for a read of the status.

#include "desk/DeskTest.h"
#include "desk/ZelvoHIDDevice.h"
#include "desk/ZelvoHIDManager.h"
#include "platform/simulated/SimulatedHidManager.h"

#include <cmath>

namespace {
class WireTest : public DeskTest, public ZelvoHIDManagerDelegate, public ZelvoHIDDeviceDelegate {
public:
    WireTest()
    {
        manager.setDelegate(this);
        simulation.adapter().onTransfer([this](const HidTransfer& transfer) { log(transfer); });
        simulation.adapter(1).onTransfer(
            [this](const HidTransfer& transfer) { log(transfer, QStringLiteral("B:")); });
        advanceTo(0);
        heard.clear();
        wire.clear();
    }

    void deviceAdded(const std::shared_ptr<ZelvoHIDDevice>& added) override
    {
        if (device)
            return;
        device = added;
        device->setDelegate(this);
        hear(QStringLiteral("added"));
    }
    void deviceRemoved(const std::shared_ptr<ZelvoHIDDevice>& removed) override
    {
        if (removed != device)
            return;
        device->setDelegate(nullptr);
        device.reset();
        hear(QStringLiteral("removed"));
    }
    void updatedIsCommunicating(bool is, const std::shared_ptr<ZelvoHIDDevice>&) override
    {
        hear(is ? QStringLiteral("communicating") : QStringLiteral("mute"));
    }
    void updatedPosition(int32_t position, const std::shared_ptr<ZelvoHIDDevice>&) override
    {
        EXPECT_GE(position, 900) << "no height was made up";
        if (onHeight)
            onHeight();
    }
    void updatedPositionState(int32_t state, const std::shared_ptr<ZelvoHIDDevice>&) override
    {
        hear(QStringLiteral("state %1").arg(state));
    }

    /// Seconds since the desk was polled for the second time.
    [[nodiscard]] double time() const { return secondsSinceStart() - 2.2 - origin; }
    void advanceTo(double seconds) { platform.runLoop.advance(seconds - time()); }

    void at(double seconds, const std::function<void()>& act)
    {
        platform.runLoop.scheduleTimer(
            seconds - time(), RunLoop::Repeat::No, [act](Timer&) { act(); }, {}, RunLoop::Precision::Precise);
    }

    void hear(const QString& what) { heard.append(QStringLiteral("%1 %2").arg(time(), 0, 'f', 2).arg(what)); }

    void log(const HidTransfer& transfer, const QString& prefix = {})
    {
        QString line = prefix + nameOf(transfer);
        if (transfer.status != 0)
            line += u'!';
        if (line != prefix + QStringLiteral("r")) {
            const QString lasted =
                transfer.duration > 0 ? QStringLiteral("+%1").arg(transfer.duration, 0, 'f', 2) : QString();
            const double begun = transfer.seconds - TestPlatform::kStart - 2.2 - origin;
            line = QStringLiteral("%1%2 %3").arg(begun, 0, 'f', 2).arg(lasted, line);
        }
        wire.append(line);
    }

    static QString nameOf(const HidTransfer& transfer)
    {
        if (transfer.direction == HidTransfer::Direction::Read)
            return QStringLiteral("r");
        if (transfer.bytes[0] == 3)
            return QStringLiteral("init");
        switch (transfer.bytes[1] | transfer.bytes[2] << 8) {
        case 0x8000:
            return QStringLiteral("up");
        case 0x7FFF:
            return QStringLiteral("down");
        case 0x8001:
            return QStringLiteral("stop");
        default:
            return QStringLiteral("go");
        }
    }

    SimulatedHidManager simulation;
    ZelvoHIDManager manager {simulation};
    std::shared_ptr<ZelvoHIDDevice> device;
    std::function<void()> onHeight;
    double origin = 0; ///< of time()
    QStringList heard;
    QStringList wire;
};

struct World : WireTest {
    void TestBody() override { }
};
}

TEST_F(WireTest, AnAdapterThatIsLateEachTimeComesAliveAndIsPolled)
{
    simulation.unplug();
    advanceTo(1);
    simulation.adapter().setLatency(0.3);
    simulation.desk().setHeight(3000);
    simulation.plug();
    advanceTo(3.5);
    EXPECT_EQ(wire.join(u' '), QStringLiteral("1.00+0.30 init 1.30+0.30 stop r r"));
    EXPECT_EQ(heard.join(u' '), QStringLiteral("0.00 removed 1.00 added 1.90 communicating 2.90 state 1"));
    EXPECT_EQ(device->position(), 3000);
    simulation.desk().setHeight(3100);
    simulation.desk().setUnnamedError(true);
    advanceTo(4.3);
    EXPECT_EQ(device->position(), 3100) << "taken up when it comes, not at the next poll";
    EXPECT_TRUE(device->errorRecieved());
}

TEST_F(WireTest, AStopIsTheNextFreeTransfer)
{
    simulation.adapter().setLatency(0.2);
    for (int i = 0; i < 20; ++i) {
        device->moveUp();
        platform.runLoop.advance(0.9 + 0.01 * i);
        wire.clear();
        const double release = time();
        device->stop();
        platform.runLoop.advance(1.5);
        wire.removeIf([&](const QString& line) { // What had begun before.
            return line == QStringLiteral("r") || line.section(u'+', 0, 0).toDouble() < release + 0.001;
        });
        ASSERT_EQ(wire.size(), 1) << wire.join(u' ').toStdString();
        EXPECT_TRUE(wire[0].endsWith(QStringLiteral("stop")));
        EXPECT_LT(wire[0].section(u'+', 0, 0).toDouble() - release, 0.21);
    }
}

TEST_F(WireTest, ASlowAdaptersHeightIsKnownWhileAButtonIsHeld)
{
    simulation.adapter().setLatency(0.3);
    at(0.1, [&] { device->moveUp(); });
    advanceTo(7);
    EXPECT_EQ(wire.join(u' ').count(QStringLiteral(" r")), 5) << wire.join(u' ').toStdString();
}

TEST_F(WireTest, AStopWithinTheStartOfAMovementEndsIt)
{
    at(0.1, [&] {
        simulation.desk().setHeight(950);
        onHeight = [this] { device->stop(); };
        device->moveUp();
    });
    advanceTo(0.7);
    EXPECT_EQ(wire.join(u' '), QStringLiteral("0.10 stop r 0.10 stop r"));
    wire.clear();
    at(1.1, [&] {
        simulation.desk().setHeight(990);
        onHeight = [this] {
            onHeight = {};
            device->moveDown();
        };
        device->moveUp();
    });
    advanceTo(1.4);
    EXPECT_EQ(wire.join(u' '), QStringLiteral("r 1.10 stop r 1.10 stop r 1.30 down r"));
}

TEST_F(WireTest, AReleaseThatWaitsBehindAStandstillComesBeforeTheNextMovement)
{
    const struct {
        double standstill; ///< from 0.45 s on
        double toldAfter; ///< it; a key's release is told apart from a repetition first
        const char* expected;
    } kTestCases[] = {
        {0.04, 0.02, "0.10 stop r r 0.30 up r 0.50 up r 0.51 stop r r"},
        {0.14, 0.02, "0.10 stop r 0.30 up r r 0.59 up r 0.61 stop r"},
        {0.16, 0.02, "0.10 stop r 0.30 up r r 0.63 stop r"},
        {0.34, 0.02, "0.10 stop r 0.30 up r r 0.81 stop r"},
        {0.34, 0.42, "0.10 stop r 0.30 up r r 0.99 up r 1.19 up r 1.21 stop r"}, // Held on.
    };
    double start = 0;
    for (const auto& test : kTestCases) {
        SCOPED_TRACE(test.standstill);
        simulation.unplug();
        simulation.plug();
        advanceTo(start += 10);
        origin = start;
        wire.clear();
        at(0.1, [&] { device->moveUp(); });
        advanceTo(0.45);
        platform.runLoop.jump(test.standstill);
        at(0.45 + test.standstill + test.toldAfter, [&] { device->stop(); });
        advanceTo(1.25);
        origin = 0;
        EXPECT_EQ(wire.join(u' '), QString::fromLatin1(test.expected));
    }
}

TEST_F(WireTest, AHeldMovementStopsBeforeAnotherAdapterTakesOver)
{
    at(0.1, [&] { device->moveUp(); });
    advanceTo(0.4);
    simulation.plug(1);
    advanceTo(0.55);
    EXPECT_EQ(wire.join(u' '), QStringLiteral("0.10 stop r 0.30 up r 0.40 stop r 0.40 B:init 0.40 B:stop"));
    wire.clear();
    at(0.6, [&] { device->moveUp(); });
    advanceTo(0.9);
    simulation.unplug(1);
    advanceTo(1.7);
    EXPECT_EQ(wire.join(u' '), QStringLiteral("B:r 0.60 B:stop B:r 0.80 B:up B:r 0.90 stop r r"))
        << "the first desk is not moved by a hold that went to the second";
}

TEST_F(WireTest, ALateAnswerOfAnotherAdapterSaysNothing)
{
    simulation.adapter().setLatency(0.5);
    simulation.adapter(1).setLatency(0.5);
    advanceTo(1.05); // The first one is being polled.
    simulation.plug(1);
    advanceTo(1.6);
    EXPECT_FALSE(manager.devices().at(1)->isCommunicating());
    advanceTo(2.7);
    EXPECT_TRUE(manager.devices().at(1)->isCommunicating());
    simulation.desk(1).setHeight(4000);
    advanceTo(9);
    simulation.desk().setHeight(4100); // By hand, while nobody asks it.
    heard.clear();
    simulation.unplug(1);
    advanceTo(13);
    EXPECT_EQ(heard.join(u' '), QString()) << "an old answer is none";
    EXPECT_EQ(device->position(), 4100);
}

TEST(SlowAdapter, TheWholeWireOfAHold)
{
    // A hold from 0.1 s to 1.0 s, with something wrong from 0.6 s on.
    const struct {
        double latency;
        double stallSeconds;
        int failures;
        double until;
        const char* wire; ///< of a quick adapter: after the first half second
        const char* heard;
    } kTestCases[] = {
        {0, 0, 0, 2.1, "0.70 up r 0.90 up r r 1.00 stop r r", ""},
        {0.2, 0, 0, 3.1, "0.10+0.20 stop r 0.50+0.20 up 0.70+0.20 up 0.90+0.20 up 1.10+0.20 stop r r", ""},
        {0.3, 0, 0, 3.1, "0.10+0.30 stop 0.40+0.30 up 0.70+0.30 up 1.00+0.30 stop r r", ""},
        {0, 0, 1, 2.1, "0.70 up! 0.70 up r 0.90 up! 0.90 up r r 1.00 stop r r", ""}, // Once each time.
        {0, 0, 2, 4.1, "0.70 up! 0.70 up! 0.70 stop 1.70 stop r 1.70 init 1.70 stop r r r",
            "0.70 removed 1.70 added 1.90 communicating 2.90 state 2"},
        {0, 0.3, 0, 2.1, "0.70+0.20 up r 0.90 up r r 1.00 stop r r", ""},
        {0, 2, 0, 4.1, "0.70+1.90 up 2.60 stop r r r", ""},
        {0, 5, 0, 8.1, "0.70+4.90 up 5.60 stop r r r r", ""},
        {0, 5.5, 0, 8.1, "0.70+5.40 up 6.10 stop 6.70 stop r 6.70 init 6.70 stop r r",
            "5.70 removed 6.70 added 6.90 communicating 7.90 state 2"},
        {0, 30, 0, 34.1, "0.70+29.90 up 30.60 stop r 30.60 init 30.60 stop r r r r",
            "5.70 removed 30.60 added 30.80 communicating 31.80 state 2"},
    };
    for (const auto& test : kTestCases) {
        World world;
        SimulatedAdapter& adapter = world.simulation.adapter();
        adapter.setLatency(test.latency);
        std::weak_ptr<ZelvoHIDDevice> held = world.device;
        world.at(0.1, [&] { world.device->moveUp(); });
        world.at(0.6, [&] { adapter.failNext(test.failures, EPIPE); });
        world.at(0.6, [&] { adapter.setStalled(test.stallSeconds > 0); });
        world.at(0.8, [&] { adapter.failNext(test.failures == 1 ? 1 : 0, EPIPE); });
        world.at(1.0, [&] {
            if (const auto desk = held.lock())
                desk->stop();
        });
        world.at(0.6 + test.stallSeconds, [&] { adapter.setStalled(false); });
        world.advanceTo(test.until);
        const QString quickly = QStringLiteral("0.10 stop r 0.30 up r 0.50 up r ");
        EXPECT_EQ(
            world.wire.join(u' '), (test.latency == 0 ? quickly : QString()) + QLatin1String(test.wire));
        EXPECT_EQ(world.heard.join(u' '), QLatin1String(test.heard)) << test.wire;
        EXPECT_FALSE(world.simulation.desk().isMoving()) << test.wire;
    }
}
