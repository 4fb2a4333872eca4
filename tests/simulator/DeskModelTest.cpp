#include "simulator/DeskModel.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {
using Bytes = std::vector<uint8_t>;
using Result = TransferResult;

const Bytes kInit {0x03, 0x04, 0x00, 0xFB, 0x00, 0x00, 0x00, 0x00};
constexpr int kUp = 0x8000;
constexpr int kDown = 0x7FFF;
constexpr int kStop = 0x8001;

/// Commands a movement, or a height.
void send(DeskModel& desk, int value)
{
    const auto low = uint8_t(value & 0xFF);
    const auto high = uint8_t(value >> 8);
    EXPECT_EQ(desk.setFeatureReport(Bytes {0x05, low, high, low, high, low, high, low}), Result::Ok);
}

/// A desk whose adapter is initialised, at a height.
DeskModel deskAt(int height)
{
    DeskModel desk;
    EXPECT_EQ(desk.setFeatureReport(kInit), Result::Ok);
    desk.setHeight(height);
    return desk;
}
}

TEST(DeskModel, speedsUpAndTurnsRoundThroughARamp)
{
    DeskModel desk = deskAt(1000);
    const std::tuple<double, int, double, double, int> kTimeline[] = {
        // Seconds, the command at their end; velocity, height and goal.
        // With the acceleration a: v = at and a t^2 / 2, until the top speed is reached after 0.25 s.
        {0.0, kUp, 0, 1000, 6500},
        {0.1, kUp, 152, 1007.6, 6500},
        {0.15, kUp, 380, 1047.5, 6500},
        {0.3, kDown, 380, 1161.5, 0},
        {0.25, kDown, 0, 1209, 0},
        {0.2, kDown, -304, 1178.6, 0},
    };
    for (const auto& [seconds, command, velocity, height, goal] : kTimeline) {
        desk.advance(seconds);
        send(desk, command);
        EXPECT_NEAR(desk.velocity(), velocity, 0.01);
        EXPECT_NEAR(desk.height(), height, 0.51);
        EXPECT_EQ(desk.goal(), goal);
    }
    // Times without sense do no harm.
    desk.advance(std::numeric_limits<double>::infinity());
    EXPECT_FALSE(desk.isMoving());
    send(desk, kUp);
    desk.advance(-10);
    desk.advance(std::numeric_limits<double>::quiet_NaN());
    for (int i = 0; i < 20; ++i)
        desk.advance(0.009); // Added up as doubles, a hair less than 0.18.
    EXPECT_NEAR(desk.velocity(), 0.18 * 1520, 1e-6) << "the command is as young as ever";
}

TEST(DeskModel, movesAsItIsToldAndComesToRest)
{
    const std::tuple<int, int, double, bool, int> kTestCases[] = {
        // From where, the command, how long it is held (the last report goes out 0.2 s before the end),
        // whether a
        // stop report follows, and where the desk comes to rest.
        {3000, kUp, 2.0, false, 3000 + 760 - 48 + 114 + 48}, // left alone
        {3000, kDown, 2.0, false, 3000 - 760 + 48 - 114 - 48},
        {3000, kUp, 1.0, true, 3000 + 380},
        {3000, 6000, 1.0, true, 3000 + 380},
        {1000, 4000, 20, false, 4000},
        {4000, 1000, 20, false, 1000},
        {1000, 1001, 20, false, 1001},
        {1000, 999, 20, false, 999},
        {1000, 1000, 20, false, 1000},
        {6000, 7000, 20, false, 6400}, // beyond the limit
        {6000, kUp, 20, false, 6400},
        {700, kDown, 20, false, 410},
    };
    for (const auto& [from, command, held, isStopped, rest] : kTestCases) {
        SCOPED_TRACE(testing::Message() << from << ' ' << command);
        DeskModel desk = deskAt(from);
        ASSERT_TRUE(desk.setLimits(410, 6400));
        for (int tick = 0; tick < std::lround(held / 0.01); ++tick) {
            if (tick % 20 == 0)
                send(desk, command);
            desk.advance(0.01);
            ASSERT_TRUE((from <= desk.height() && desk.height() <= rest)
                || (rest <= desk.height() && desk.height() <= from));
        }
        if (isStopped)
            send(desk, kStop);
        desk.advance(0.56); // 0.3 s of life are left, then the ramp.
        EXPECT_FALSE(desk.isMoving());
        desk.advance(60);
        EXPECT_NEAR(desk.height(), rest, 1);
        EXPECT_EQ(desk.goal(), std::nullopt);
    }
}

TEST(DeskModel, takesReportsByTheirContent)
{
    const std::pair<Bytes, Result> kTestCases[] = {
        {{0x03, 0x04, 0x00, 0xFA, 0, 0, 0, 0}, Result::Refused},
        {{0x05, 0, 0x80, 0, 0x80, 0, 0x80, 0, 0x80}, Result::Ok}, // With its ninth byte.
        {{0x05, 0, 0x80, 0, 0x80, 0, 0x80}, Result::Refused}, // One byte short.
        {{0x05, 0, 0x80, 1, 0x80, 0, 0x80, 0}, Result::Refused}, // A copy differs.
        {{0x05, 0, 0x80, 0, 0x80, 0, 0x80, 1}, Result::Refused},
        {{0x04, 0, 0, 0, 0, 0, 0, 0}, Result::Refused}, // The status is not written.
        {{}, Result::Refused},
    };
    for (const auto& [report, result] : kTestCases) {
        DeskModel desk = deskAt(1000);
        EXPECT_EQ(desk.setFeatureReport(report), result) << testing::PrintToString(report);
        desk.advance(0.3);
        EXPECT_EQ(desk.isMoving(), result == Result::Ok) << testing::PrintToString(report);
    }
    DeskModel desk = deskAt(9000);
    EXPECT_EQ(desk.height(), 6500);
    EXPECT_FALSE(desk.addErrorCode(0));
    desk.setHeight(0x1234);
    for (Bytes other : {Bytes {5, 0}, Bytes {}})
        EXPECT_EQ(desk.getFeatureReport(other), Result::Refused);
    desk.faults().answerLength = 5;
    Bytes answer {4, 1, 2, 3, 4, 5};
    EXPECT_EQ(desk.getFeatureReport(answer), Result::Ok);
    EXPECT_EQ(answer, (Bytes {4, 0, 1, 0, 0x34, 5})) << "what it does not reach stays";
    desk.faults().answerLength = 100;
    EXPECT_EQ(desk.getFeatureReport(std::span(answer).first(2)), Result::Ok);
}
