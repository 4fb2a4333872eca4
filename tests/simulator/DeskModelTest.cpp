#include "simulator/DeskModel.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace {
using Bytes = std::vector<uint8_t>;
using Result = TransferResult;

const Bytes kInit {0x03, 0x04, 0x00, 0xFB, 0x00, 0x00, 0x00, 0x00};
const Bytes kUp {0x05, 0x00, 0x80, 0x00, 0x80, 0x00, 0x80, 0x00};
const Bytes kDown {0x05, 0xFF, 0x7F, 0xFF, 0x7F, 0xFF, 0x7F, 0xFF};
const Bytes kStop {0x05, 0x01, 0x80, 0x01, 0x80, 0x01, 0x80, 0x01};

Bytes target(int height)
{
    const auto low = uint8_t(height & 0xFF);
    const auto high = uint8_t(height >> 8);
    return {0x05, low, high, low, high, low, high, low};
}

void send(DeskModel& desk, const Bytes& report)
{
    EXPECT_EQ(desk.setFeatureReport(report), Result::Ok);
}

/// A desk whose adapter is initialised, at a height.
DeskModel deskAt(int height)
{
    DeskModel desk;
    send(desk, kInit);
    desk.setHeight(height);
    return desk;
}
}

TEST(DeskModel, speedsUpAndTurnsRoundThroughARamp)
{
    DeskModel desk = deskAt(1000);
    const struct {
        double seconds;
        const Bytes& command; ///< at the end of them
        double velocity;
        double height;
        int goal;
    } kTimeline[] = {
        // With the acceleration a: v = at and a t^2 / 2, until the top speed is reached after 0.25 s.
        {0.0, kUp, 0, 1000, 6500},
        {0.1, kUp, 152, 1007.6, 6500},
        {0.15, kUp, 380, 1047.5, 6500},
        {0.3, kDown, 380, 1161.5, 0},
        {0.25, kDown, 0, 1209, 0},
        {0.2, kDown, -304, 1178.6, 0},
    };
    for (const auto& row : kTimeline) {
        desk.advance(row.seconds);
        send(desk, row.command);
        EXPECT_NEAR(desk.velocity(), row.velocity, 0.01);
        EXPECT_NEAR(desk.height(), row.height, 0.51);
        EXPECT_EQ(desk.goal(), row.goal);
    }
}

TEST(DeskModel, movesAsItIsToldAndComesToRest)
{
    const struct {
        const char* name;
        int from;
        Bytes command;
        double held; ///< the last report goes out 0.2 s before the end
        bool isStopped; ///< with a stop report
        int rest;
    } kTestCases[] = {
        {"up, left alone", 3000, kUp, 2.0, false, 3000 + 760 - 48 + 114 + 48},
        {"down, left alone", 3000, kDown, 2.0, false, 3000 - 760 + 48 - 114 - 48},
        {"up, stopped", 3000, kUp, 1.0, true, 3000 + 380},
        {"target, stopped", 3000, target(6000), 1.0, true, 3000 + 380},
        {"target above", 1000, target(4000), 20, false, 4000},
        {"target below", 4000, target(1000), 20, false, 1000},
        {"one unit up", 1000, target(1001), 20, false, 1001},
        {"one unit down", 1000, target(999), 20, false, 999},
        {"where it stands", 1000, target(1000), 20, false, 1000},
        {"beyond the upper limit", 6000, target(7000), 20, false, 6400},
        {"up to the limit", 6000, kUp, 20, false, 6400},
        {"down to the limit", 700, kDown, 20, false, 410},
    };
    for (const auto& test : kTestCases) {
        SCOPED_TRACE(test.name);
        DeskModel desk = deskAt(test.from);
        ASSERT_TRUE(desk.setLimits(410, 6400));
        const auto [low, high] = std::minmax(test.from, test.rest);
        for (int tick = 0; tick < std::lround(test.held / 0.2); ++tick) {
            send(desk, test.command);
            for (int step = 0; step < 20; ++step) {
                desk.advance(0.01);
                ASSERT_EQ(desk.height(), std::clamp<int>(desk.height(), low, high));
            }
        }
        if (test.isStopped)
            send(desk, kStop);
        desk.advance(0.56); // 0.3 s of life are left, then the ramp.
        EXPECT_FALSE(desk.isMoving());
        desk.advance(60);
        EXPECT_NEAR(desk.height(), test.rest, 1);
        EXPECT_EQ(desk.goal(), std::nullopt);
    }
}

TEST(DeskModel, stepSizeDoesNotMatter)
{
    std::mt19937 random(42);
    std::uniform_real_distribution<double> pause(0.0, 0.9);
    DeskModel whole = deskAt(3000);
    DeskModel fine = whole;
    for (int command = 0; command < 500; ++command) {
        const Bytes reports[] = {kUp, kDown, kStop, target(int(random() % 6500))};
        const Bytes& report = reports[random() % 4];
        send(whole, report);
        send(fine, report);
        const double seconds = pause(random);
        whole.advance(seconds);
        for (int i = 0; i < 1000; ++i)
            fine.advance(seconds / 1000);
        ASSERT_NEAR(whole.height(), fine.height(), 2);
    }
}

TEST(DeskModel, senselessTimesDoNoHarm)
{
    DeskModel desk = deskAt(3000);
    send(desk, kUp);
    desk.advance(-10);
    desk.advance(std::numeric_limits<double>::quiet_NaN());
    for (int i = 0; i < 20; ++i)
        desk.advance(0.009); // Added up as doubles, a hair less than 0.18.
    EXPECT_NEAR(desk.velocity(), 0.18 * DeskModel::kAcceleration, 1e-6);
    desk.advance(std::numeric_limits<double>::infinity());
    EXPECT_FALSE(desk.isMoving());
    send(desk, kDown);
    desk.advance(0.4);
    EXPECT_TRUE(desk.isMoving()) << "the command is as young as ever";
}

TEST(DeskModel, keepsWithinGoodLimits)
{
    DeskModel desk = deskAt(3000);
    EXPECT_FALSE(desk.addErrorCode(0));
    for (const auto& [lower, upper] : {std::pair {-1, 100}, {100, 100}, {200, 100}, {1, 65536}})
        EXPECT_FALSE(desk.setLimits(lower, upper)) << lower << ' ' << upper;
    EXPECT_EQ(desk.upperLimit(), 6500);
    EXPECT_TRUE(desk.setLimits(0, 65535) && desk.setLimits(300, 2000));
    EXPECT_EQ(desk.height(), 2000);
    for (const auto& [wanted, reached] : {std::pair {9000, 2000}, {-5, 300}}) {
        desk.setHeight(wanted);
        EXPECT_EQ(desk.height(), reached);
    }
}

TEST(DeskModel, takesReportsByTheirContent)
{
    const std::pair<Bytes, Result> kTestCases[] = {
        {kInit, Result::Ok},
        {{0x03, 0x04, 0x00, 0xFA, 0, 0, 0, 0}, Result::Refused},
        {kUp, Result::Ok},
        {{0x05, 0, 0x80, 0, 0x80, 0, 0x80, 0, 0x80}, Result::Ok}, // With its ninth byte.
        {{0x05, 0, 0x80, 0, 0x80, 0, 0x80}, Result::Refused}, // One byte short.
        {{0x05, 0, 0x80, 1, 0x80, 0, 0x80, 0}, Result::Refused}, // A copy differs.
        {{0x05, 0, 0x80, 0, 0x80, 0, 0x80, 1}, Result::Refused},
        {{0x04, 0, 0, 0, 0, 0, 0, 0}, Result::Refused}, // The status is not written.
        {{}, Result::Refused},
    };
    for (const auto& [report, result] : kTestCases) {
        SCOPED_TRACE(testing::PrintToString(report));
        DeskModel desk = deskAt(1000);
        EXPECT_EQ(desk.setFeatureReport(report), result);
        desk.advance(0.3);
        EXPECT_EQ(desk.isMoving(), result == Result::Ok && report[0] == 0x05);
    }
    Bytes other {5, 0};
    EXPECT_EQ(deskAt(1000).getFeatureReport(other), Result::Refused);
    EXPECT_EQ(deskAt(1000).getFeatureReport({}), Result::Refused);
}

TEST(DeskModel, leavesWhatItsAnswerDoesNotReach)
{
    for (const size_t length : std::vector<size_t> {0, 5, 64, 100}) {
        DeskModel desk = deskAt(0x1234);
        desk.faults().answerLength = length;
        Bytes buffer(64, 0xAA);
        buffer[0] = 0x04;
        EXPECT_EQ(desk.getFeatureReport(buffer), Result::Ok);
        for (size_t i = 1; i < buffer.size(); ++i)
            EXPECT_EQ(buffer[i] == 0xAA, i >= length) << length << ' ' << i;
    }
}
