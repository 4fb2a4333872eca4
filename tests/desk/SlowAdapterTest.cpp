// Plays slow, failing and stalled transfers against the simulated desk and compares all that went over the
// wire: when each report began, how long it lasted if it lasted, and "r" for a read of the status.

#include "desk/DeskTest.h"
#include "desk/ZelvoHIDDevice.h"
#include "desk/ZelvoHIDManager.h"
#include "platform/simulated/SimulatedHidManager.h"

#include <cmath>

namespace {
/// A hold from 0.1 s to 1.0 s, with something wrong from 0.6 s on.
struct Wire {
    const char* name;
    double latency;
    double stallSeconds;
    int failures;
    double until;
    const char* expected;
    const char* heard;
};

void PrintTo(const Wire& test, std::ostream* out)
{
    *out << test.name;
}

class SlowAdapterTest : public DeskTest,
                        public testing::WithParamInterface<Wire>,
                        public ZelvoHIDManagerDelegate,
                        public ZelvoHIDDeviceDelegate {
protected:
    SlowAdapterTest()
    {
        manager.setDelegate(this);
        simulation.adapter().onTransfer([this](const HidTransfer& transfer) { log(transfer); });
        advanceTo(0);
        heard.clear();
        wire.clear();
    }

    void deviceAdded(const std::shared_ptr<ZelvoHIDDevice>& added) override
    {
        device = added;
        device->setDelegate(this);
        hear(QStringLiteral("added"));
    }
    void deviceRemoved(const std::shared_ptr<ZelvoHIDDevice>&) override
    {
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
        if (position < 800)
            hear(QStringLiteral("height %1").arg(position));
    }
    void updatedPositionState(int32_t state, const std::shared_ptr<ZelvoHIDDevice>&) override
    {
        hear(QStringLiteral("state %1").arg(state));
    }

    /// Seconds since the desk was polled for the second time.
    [[nodiscard]] double time() const { return secondsSinceStart() - 2.2; }
    void advanceTo(double seconds) { platform.runLoop.advance(seconds - time()); }

    void hear(const QString& what) { heard.append(QStringLiteral("%1 %2").arg(time(), 0, 'f', 2).arg(what)); }

    void log(const HidTransfer& transfer)
    {
        QString line = nameOf(transfer);
        if (transfer.status != 0)
            line += u'!';
        if (line != QStringLiteral("r")) {
            const QString lasted =
                transfer.duration > 0 ? QStringLiteral("+%1").arg(transfer.duration, 0, 'f', 2) : QString();
            const double begun = transfer.seconds - TestPlatform::kStart - 2.2;
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
        case 0x8001:
            return QStringLiteral("stop");
        default:
            return QStringLiteral("other");
        }
    }

    SimulatedHidManager simulation;
    ZelvoHIDManager manager {simulation};
    std::shared_ptr<ZelvoHIDDevice> device;
    QStringList heard;
    QStringList wire;
};
}

TEST_P(SlowAdapterTest, TheWholeWire)
{
    const Wire& test = GetParam();
    simulation.adapter().setLatency(test.latency);
    const auto at = [&](double seconds, const std::function<void()>& act) {
        platform.runLoop.scheduleTimer(seconds, RunLoop::Repeat::No, [act](Timer&) { act(); });
    };
    std::weak_ptr<ZelvoHIDDevice> held = device;
    at(0.1, [&] { device->moveUp(); });
    at(0.6, [&] { simulation.adapter().failNext(test.failures, EPIPE); });
    at(0.6, [&] { simulation.adapter().setStalled(test.stallSeconds > 0); });
    at(1.0, [&] {
        if (const auto desk = held.lock())
            desk->stop();
    });
    at(0.6 + test.stallSeconds, [&] { simulation.adapter().setStalled(false); });
    advanceTo(test.until);
    EXPECT_EQ(wire.join(u' '), QString::fromLatin1(test.expected));
    EXPECT_EQ(heard.join(u' '), QString::fromLatin1(test.heard));
    EXPECT_FALSE(simulation.desk().isMoving());
}

INSTANTIATE_TEST_SUITE_P(All, SlowAdapterTest,
    testing::Values( //
        Wire {"quick", 0, 0, 0, 2.1, "0.10 stop r 0.30 up r 0.50 up r 0.70 up r 0.90 up r r 1.00 stop r r",
            ""}, //
        Wire {"200 ms", 0.2, 0, 0, 3.1,
            "0.10+0.20 stop r 0.50+0.20 up 0.70+0.20 up 0.90+0.20 up 1.10+0.20 stop r r", ""}, //
        Wire {"300 ms", 0.3, 0, 0, 3.1, "0.10+0.30 stop 0.40+0.30 up 0.70+0.30 up 1.00+0.30 stop r r", ""}, //
        Wire {"fails once", 0, 0, 1, 2.1,
            "0.10 stop r 0.30 up r 0.50 up r 0.70 up! 0.70 up r 0.90 up r r 1.00 stop r r", ""}, //
        Wire {"fails twice", 0, 0, 2, 4.1,
            "0.10 stop r 0.30 up r 0.50 up r 0.70 up! 0.70 up! 0.70 stop 1.70 stop r 1.70 init 1.70 stop r r "
            "r",
            "0.70 removed 1.70 added 1.90 communicating 2.90 state 2"}, //
        Wire {"stalls 0.3 s", 0, 0.3, 0, 2.1,
            "0.10 stop r 0.30 up r 0.50 up r 0.70+0.20 up r 0.90 up r r 1.00 stop r r", ""}, //
        Wire {"stalls 1 s", 0, 1, 0, 3.1, "0.10 stop r 0.30 up r 0.50 up r 0.70+0.90 up 1.60 stop r r r",
            ""}, //
        Wire {"stalls 2 s", 0, 2, 0, 4.1, "0.10 stop r 0.30 up r 0.50 up r 0.70+1.90 up 2.60 stop r r r",
            ""}, //
        Wire {"stalls 5 s", 0, 5, 0, 8.1, "0.10 stop r 0.30 up r 0.50 up r 0.70+4.90 up 5.60 stop r r r r",
            ""}, //
        Wire {"stalls 5.5 s", 0, 5.5, 0, 8.1,
            "0.10 stop r 0.30 up r 0.50 up r 0.70+5.40 up 6.10 stop 6.70 stop r 6.70 init 6.70 stop r r",
            "5.70 removed 6.70 added 6.90 communicating 7.90 state 2"}, //
        Wire {"stalls 30 s", 0, 30, 0, 34.1,
            "0.10 stop r 0.30 up r 0.50 up r 0.70+29.90 up 30.60 stop r 30.60 init 30.60 stop r r r r",
            "5.70 removed 30.60 added 30.80 communicating 31.80 state 2"}));
