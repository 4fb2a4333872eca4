#include "simulator/DeskModel.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace {
using Bytes = std::vector<uint8_t>;
using Status = std::array<uint8_t, 64>;

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

/// A desk whose adapter is initialised, at a height.
DeskModel deskAt(int height)
{
    DeskModel desk;
    EXPECT_EQ(desk.setFeatureReport(kInit), TransferResult::Ok);
    desk.setHeight(height);
    return desk;
}

void send(DeskModel& desk, const Bytes& report)
{
    EXPECT_EQ(desk.setFeatureReport(report), TransferResult::Ok);
}

/// Holds a button: the report at once and every 0.2 s, for so many seconds.
void hold(DeskModel& desk, const Bytes& report, double seconds)
{
    for (int tick = 0; tick < std::lround(seconds / 0.2); ++tick) {
        send(desk, report);
        desk.advance(0.2);
    }
}

Status status(const DeskModel& desk)
{
    Status report {0x04};
    EXPECT_EQ(desk.getFeatureReport(report), TransferResult::Ok);
    return report;
}

TEST(DeskModel, speedsUpToItsTopSpeedWithinAShortRamp)
{
    DeskModel desk = deskAt(1000);
    send(desk, kUp);
    const struct {
        double at;
        double velocity;
        double height;
    } kTimeline[] = {
        // With the acceleration a: v = at and a t^2 / 2, until the top speed is reached after 0.25 s.
        {0.0, 0, 1000},
        {0.1, 152, 1007.6},
        {0.25, 380, 1047.5},
        {0.30, 380, 1066.5},
        {0.45, 380, 1123.5},
    };
    double now = 0;
    for (const auto& expected : kTimeline) {
        SCOPED_TRACE(expected.at);
        desk.advance(expected.at - now);
        now = expected.at;
        EXPECT_NEAR(desk.velocity(), expected.velocity, 0.01);
        EXPECT_NEAR(desk.height(), expected.height, 0.51);
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
        {"beyond the upper limit", 6000, target(7000), 20, false, 6500},
        {"up to the limit", 6000, kUp, 20, false, 6500},
        {"down to the limit", 700, kDown, 20, false, 400},
    };
    for (const auto& test : kTestCases) {
        SCOPED_TRACE(test.name);
        DeskModel desk = deskAt(test.from);
        ASSERT_TRUE(desk.setLimits(400, 6500));
        const auto [low, high] = std::minmax(test.from, test.rest);
        for (int tick = 0; tick < std::lround(test.held / 0.2); ++tick) {
            send(desk, test.command);
            for (int step = 0; step < 20; ++step) {
                desk.advance(0.01);
                ASSERT_GE(desk.height(), low);
                ASSERT_LE(desk.height(), high);
            }
        }
        if (test.isStopped)
            send(desk, kStop);
        desk.advance(0.56); // 0.3 s of life are left, then the ramp.
        EXPECT_FALSE(desk.isMoving());
        EXPECT_NEAR(desk.height(), test.rest, 1);
        desk.advance(60);
        EXPECT_NEAR(desk.height(), test.rest, 1);
        EXPECT_EQ(desk.goal(), std::nullopt);
    }
}

TEST(DeskModel, turnsRoundThroughARamp)
{
    DeskModel desk = deskAt(3000);
    hold(desk, kUp, 1.0);
    EXPECT_EQ(desk.goal(), 6500);
    send(desk, kDown);
    EXPECT_EQ(desk.goal(), 0);
    desk.advance(0.25);
    EXPECT_NEAR(desk.velocity(), 0, 0.01);
    desk.advance(0.2);
    EXPECT_NEAR(desk.velocity(), -304, 0.01);
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
    for (const auto& [lower, upper] : {std::pair {-1, 100}, {100, 100}, {200, 100}, {0, 65536}})
        EXPECT_FALSE(desk.setLimits(lower, upper)) << lower << ' ' << upper;
    EXPECT_EQ(desk.upperLimit(), 6500);
    EXPECT_TRUE(desk.setLimits(300, 2000));
    EXPECT_EQ(desk.height(), 2000);
    desk.setHeight(9000);
    EXPECT_EQ(desk.height(), 2000);
    desk.setHeight(-5);
    EXPECT_EQ(desk.height(), 300);
}

TEST(DeskModel, answersReportsByTheirContent)
{
    const struct {
        const char* name;
        Bytes report;
        TransferResult result;
    } kTestCases[] = {
        {"init", kInit, TransferResult::Ok},
        {"init with another content", {0x03, 0x04, 0x00, 0xFA, 0, 0, 0, 0}, TransferResult::Refused},
        {"movement", kUp, TransferResult::Ok},
        {"movement with its ninth byte", {0x05, 0, 0x80, 0, 0x80, 0, 0x80, 0, 0x80}, TransferResult::Ok},
        {"one byte short", {0x05, 0, 0x80, 0, 0x80, 0, 0x80}, TransferResult::Refused},
        {"second copy differs", {0x05, 0, 0x80, 1, 0x80, 0, 0x80, 0}, TransferResult::Refused},
        {"fourth copy differs", {0x05, 0, 0x80, 0, 0x80, 0, 0x80, 1}, TransferResult::Refused},
        {"status is not written", {0x04, 0, 0, 0, 0, 0, 0, 0}, TransferResult::Refused},
        {"empty", {}, TransferResult::Refused},
    };
    for (const auto& test : kTestCases) {
        SCOPED_TRACE(test.name);
        DeskModel desk = deskAt(1000);
        EXPECT_EQ(desk.setFeatureReport(test.report), test.result);
        desk.advance(0.3);
        EXPECT_EQ(desk.isMoving(), test.result == TransferResult::Ok && test.report[0] == 0x05);
    }
    Bytes other {5, 0};
    EXPECT_EQ(deskAt(1000).getFeatureReport(other), TransferResult::Refused);
    EXPECT_EQ(deskAt(1000).getFeatureReport({}), TransferResult::Refused);
}

TEST(DeskModel, isHeardWhileItIsInitialisedPluggedAndOn)
{
    DeskModel desk;
    EXPECT_EQ(status(desk), (Status {0x04}));
    hold(desk, kUp, 1.0);
    EXPECT_EQ(desk.height(), DeskModel::kDefaultHeight) << "nobody passes the command on";
    send(desk, kInit);
    desk.setHeight(0x1234);
    EXPECT_EQ(status(desk), (Status {0x04, 0x00, 0x01, 0x00, 0x34, 0x12}));

    hold(desk, kUp, 1.0);
    desk.setDeskOn(false);
    desk.advance(0.3);
    EXPECT_FALSE(desk.isMoving());
    EXPECT_EQ(status(desk)[2], 0);
    EXPECT_EQ(status(desk)[4], desk.height() & 0xFF) << "the last height that was heard";
    send(desk, kUp);
    EXPECT_EQ(desk.goal(), std::nullopt);
    desk.setDeskOn(true);
    EXPECT_TRUE(desk.isCommunicating());

    hold(desk, kUp, 1.0);
    desk.setPlugged(false);
    desk.advance(0.3);
    EXPECT_FALSE(desk.isMoving());
    desk.setPlugged(true);
    EXPECT_FALSE(desk.isCommunicating()) << "it forgot its init report";
    desk.setNeedsInit(false);
    EXPECT_TRUE(desk.isCommunicating());
}

TEST(DeskModel, reportsErrorsAndObeysNothingMeanwhile)
{
    using Kind = DeskModel::ErrorKind;
    const struct {
        const char* name;
        void (*raise)(DeskModel&);
        uint8_t kinds;
        Bytes codes;
    } kTestCases[] = {
        {"position lost", [](DeskModel& desk) { desk.setError(Kind::PositionLost, true); }, 0x01, {}},
        {"overloads, one of them gone",
            [](DeskModel& desk) {
                desk.setError(Kind::OverloadUp, true);
                desk.setError(Kind::OverloadDown, true);
                desk.setError(Kind::OverloadUp, false);
            },
            0x08, {}},
        {"codes, one of them twice",
            [](DeskModel& desk) {
                for (const uint8_t code : Bytes {5, 12, 5, 255})
                    EXPECT_TRUE(desk.addErrorCode(code));
            },
            0, {5, 12, 255}},
        {"the list is full",
            [](DeskModel& desk) {
                for (const uint8_t code : Bytes {1, 2, 3, 4, 5, 6})
                    EXPECT_TRUE(desk.addErrorCode(code));
                EXPECT_FALSE(desk.addErrorCode(7) || desk.addErrorCode(0));
            },
            0, {1, 2, 3, 4, 5, 6}},
        {"unnamed", [](DeskModel& desk) { desk.setUnnamedError(true); }, 0, {}},
    };
    for (const auto& test : kTestCases) {
        SCOPED_TRACE(test.name);
        DeskModel desk = deskAt(0x0384);
        hold(desk, kUp, 1.0);
        test.raise(desk);
        hold(desk, kUp, 1.0);
        EXPECT_FALSE(desk.isMoving());
        desk.setHeight(0x0384);
        Status expected {0x04, 0x00, 0x01, 0x02, 0x84, 0x03, test.kinds};
        expected[32] = test.codes.empty() ? 0 : 1;
        std::copy(test.codes.begin(), test.codes.end(), expected.begin() + 34);
        EXPECT_EQ(status(desk), expected);
        desk.clearErrors();
        EXPECT_EQ(status(desk), status(deskAt(0x0384)));
        desk.advance(0.1);
        EXPECT_FALSE(desk.isMoving()) << "no command since the error went";
        hold(desk, kUp, 1.0);
        EXPECT_TRUE(desk.isMoving());
    }
}

TEST(DeskModel, faultsOnTheWire)
{
    const struct {
        const char* name;
        void (*spoil)(DeskModel&);
        TransferResult write;
        TransferResult read;
    } kTestCases[] = {
        {"none", [](DeskModel&) {}, TransferResult::Ok, TransferResult::Ok},
        {"reads", [](DeskModel& desk) { desk.faults().failingReads = true; }, TransferResult::Ok,
            TransferResult::Failed},
        {"writes", [](DeskModel& desk) { desk.faults().failingWrites = true; }, TransferResult::Failed,
            TransferResult::Ok},
        {"silence", [](DeskModel& desk) { desk.faults().noAnswer = true; }, TransferResult::NoAnswer,
            TransferResult::NoAnswer},
        {"unplugged", [](DeskModel& desk) { desk.setPlugged(false); }, TransferResult::Unplugged,
            TransferResult::Unplugged},
    };
    for (const auto& test : kTestCases) {
        SCOPED_TRACE(test.name);
        DeskModel desk = deskAt(1000);
        test.spoil(desk);
        Status answer {0x04};
        answer.back() = 0xAA;
        EXPECT_EQ(desk.getFeatureReport(answer), test.read);
        EXPECT_EQ(answer.back() == 0xAA, test.read != TransferResult::Ok);
        EXPECT_EQ(desk.setFeatureReport(kUp), test.write);
        EXPECT_EQ(desk.goal().has_value(), test.write == TransferResult::Ok);
    }
    for (const size_t length : std::vector<size_t> {0, 5, 64, 100}) {
        DeskModel desk = deskAt(0x1234);
        desk.faults().answerLength = length;
        Bytes buffer(64, 0xAA);
        buffer[0] = 0x04;
        EXPECT_EQ(desk.getFeatureReport(buffer), TransferResult::Ok);
        for (size_t i = 1; i < buffer.size(); ++i)
            EXPECT_EQ(buffer[i] == 0xAA, i >= length) << length << ' ' << i;
    }
}
}
