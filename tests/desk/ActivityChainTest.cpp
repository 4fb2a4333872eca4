#include "desk/HubTest.h"

#include <random>

namespace {
class ActivityChainTest : public HubTest {
protected:
    static constexpr double kStep = 0.1;

    /// Moves time by one step and counts it as active while a period is open.
    void step()
    {
        const bool wasOpen = hub->activity() != nullptr;
        platform.runLoop.advance(kStep);
        if (wasOpen)
            activeTime += kStep;
        if (wasOpen && !hub->activity())
            closings.push_back(secondsSinceStart());
    }

    void act(std::mt19937& random)
    {
        const bool wasOpen = hub->activity() != nullptr;
        switch (random() % 12) {
        case 0:
            isPlugged ? hid.unplug(adapter) : hid.plug(adapter);
            isPlugged = !isPlugged;
            break;
        case 1:
            user->stayActive(false);
            break;
        case 2:
        case 3:
            user->stayActive(true);
            break;
        case 4: {
            const double slept = double(random() % 1000);
            if (wasOpen)
                activeTime += slept;
            sleepMachine(slept);
            break;
        }
        case 5:
            workspace.screensSleep();
            break;
        case 6:
            // A failed command makes the device look whether the adapter still communicates.
            adapter->setCommunicating(!hub->isActive());
            adapter->writeStatus = EPIPE;
            hub->moveDeviceUp();
            adapter->writeStatus = 0;
            break;
        default:
            adapter->setHeight(uint16_t(random() % 5000));
            break;
        }
        if (wasOpen && !hub->activity())
            closings.push_back(secondsSinceStart());
    }

    double activeTime = 0;
    std::vector<double> closings;
    bool isPlugged = false;
};
}

TEST_F(ActivityChainTest, MeetsWithoutAGapThroughADayOfEverything)
{
    std::mt19937 random(20240315);
    double nextAct = 0;
    while (secondsSinceStart() < Date::kDay) {
        step();
        if (secondsSinceStart() >= nextAct) {
            act(random);
            nextAct = secondsSinceStart() + double(random() % 80);
        }
    }
    hub->terminate();
    closings.push_back(secondsSinceStart());

    const std::vector<Period> periods = storedPeriods();
    ASSERT_GT(periods.size(), 100u);
    double sum = 0;
    auto closing = closings.cbegin();
    for (size_t i = 0; i < periods.size(); ++i) {
        sum += periods[i].end - periods[i].start;
        ASSERT_GE(periods[i].end, periods[i].start);
        const bool meetsNext =
            i + 1 < periods.size() && std::abs(periods[i + 1].start - periods[i].end) < 1e-6;
        if (meetsNext)
            continue;
        while (closing != closings.cend() && *closing < periods[i].end - 1e-6)
            ++closing;
        ASSERT_NE(closing, closings.cend());
        ASSERT_NEAR(*closing, periods[i].end, 1e-6) << "only what closes a period leaves a gap";
        ASSERT_TRUE(i + 1 == periods.size() || periods[i + 1].start > periods[i].end) << "periods overlap";
    }
    EXPECT_NEAR(sum, activeTime, 0.01);
    EXPECT_LT(platform.runLoop.pendingTimerCount(), 10u);
}

TEST_F(ActivityChainTest, LosesAtMostFifteenSecondsAtAnyMoment)
{
    std::mt19937 random(7);
    plugAndPoll();
    for (int i = 0; i < 100; ++i) {
        platform.runLoop.advance(double(random() % 200) / 7);
        adapter->setHeight(random() % 10 ? 1000 : 4000);
        const std::vector<Period> periods = storedPeriods();
        ASSERT_FALSE(periods.empty());
        ASSERT_GE(periods.back().end, secondsSinceStart() - 15 - 1e-6);
        for (size_t next = 1; next < periods.size(); ++next)
            ASSERT_EQ(periods[next].start, periods[next - 1].end);
    }
}
