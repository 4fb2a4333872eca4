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

int reportedHeight(const DeskModel& desk)
{
    const Status report = status(desk);
    return report[4] | report[5] << 8;
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

TEST(DeskModel, neverExceedsTopSpeedNorJerksWhateverItIsTold)
{
    DeskModel desk = deskAt(3000);
    ASSERT_TRUE(desk.setLimits(2700, 3300)); // A short way, so that it often ends at a limit.
    std::mt19937 random(7);
    double velocity = 0;
    for (int millisecond = 0; millisecond < 60'000; ++millisecond) {
        if (random() % 150 == 0) {
            const Bytes reports[] = {kUp, kDown, kStop, target(int(random() % 7000))};
            send(desk, reports[random() % 4]);
        }
        desk.advance(0.001);
        ASSERT_LE(std::abs(desk.velocity()), DeskModel::kTopSpeed + 1e-9);
        // Where the way ends a crawl may drop to zero at once.
        ASSERT_LE(std::abs(desk.velocity() - velocity), 2 * DeskModel::kAcceleration * 0.001 + 1e-9);
        ASSERT_GE(desk.height(), 2700);
        ASSERT_LE(desk.height(), 3300);
        velocity = desk.velocity();
    }
}

TEST(DeskModel, stopsByItselfHalfASecondAfterTheLastCommand)
{
    const struct {
        const char* name;
        Bytes command;
        int sign;
    } kCases[] = {{"up", kUp, 1}, {"down", kDown, -1}, {"target above", target(6000), 1},
        {"target below", target(100), -1}};
    for (const auto& testCase : kCases) {
        SCOPED_TRACE(testCase.name);
        DeskModel desk = deskAt(3000);
        hold(desk, testCase.command, 2.0); // The last command was sent 0.2 s before the end.
        desk.advance(0.3);
        EXPECT_EQ(desk.velocity(), testCase.sign * 380) << "still within the life of the last command";
        const int atEnd = desk.height();
        desk.advance(0.1);
        EXPECT_NEAR(std::abs(desk.velocity()), 380 - 152, 0.01);
        desk.advance(10);
        EXPECT_FALSE(desk.isMoving());
        EXPECT_NEAR(desk.height() - atEnd, testCase.sign * 47.5, 1.01) << "the ramp down";
    }
}

TEST(DeskModel, goesOnAsLongAsTheCommandIsRepeatedInTime)
{
    for (const double interval : {0.2, 0.4, 0.499}) {
        SCOPED_TRACE(interval);
        DeskModel desk = deskAt(1000);
        for (int tick = 0; tick < 10; ++tick) {
            send(desk, kUp);
            desk.advance(interval);
            EXPECT_TRUE(tick == 0 || desk.velocity() == DeskModel::kTopSpeed);
        }
    }
}

TEST(DeskModel, aStopCommandEndsEachMovementOnTheRamp)
{
    for (const Bytes& command : {kUp, kDown, target(6000), target(0)}) {
        DeskModel desk = deskAt(3000);
        hold(desk, command, 1.0);
        const int before = desk.height();
        send(desk, kStop);
        desk.advance(0.26);
        EXPECT_FALSE(desk.isMoving());
        EXPECT_NEAR(std::abs(desk.height() - before), 47.5, 1.01);
        const int stopped = desk.height();
        desk.advance(60);
        EXPECT_EQ(desk.height(), stopped);
    }
}

TEST(DeskModel, reachesATargetWithoutOvershootAndStaysThere)
{
    const struct {
        int from;
        int to;
        int end; // Where it comes to rest.
    } kCases[] = {{1000, 4000, 4000}, {4000, 1000, 1000}, {1000, 1001, 1001}, {1000, 999, 999},
        {1000, 1030, 1030}, {1000, 1000, 1000}, {6000, 6500, 6500}, {500, 0, 0}, {6000, 7000, 6500},
        {300, 0xFFFF, 6500}};
    for (const auto& testCase : kCases) {
        SCOPED_TRACE(testing::Message() << testCase.from << " to " << testCase.to);
        DeskModel desk = deskAt(testCase.from);
        const auto [low, high] = std::minmax(testCase.from, testCase.end);
        for (int tick = 0; tick < 100; ++tick) {
            send(desk, target(testCase.to));
            for (int step = 0; step < 20; ++step) {
                desk.advance(0.01);
                ASSERT_GE(desk.height(), low);
                ASSERT_LE(desk.height(), high);
            }
        }
        EXPECT_EQ(desk.height(), testCase.end);
        EXPECT_FALSE(desk.isMoving());
    }
}

TEST(DeskModel, takesTheTimeThatTheTrapezoidTakes)
{
    DeskModel desk = deskAt(1000);
    double seconds = 0;
    while (desk.height() != 4000 && seconds < 60) {
        send(desk, target(4000));
        desk.advance(0.01);
        seconds += 0.01;
    }
    EXPECT_NEAR(seconds, 3000 / 380.0 + 0.25, 0.05);
}

TEST(DeskModel, brakesBeforeItsLimitsInBothDirections)
{
    const struct {
        Bytes command;
        int limit;
    } kCases[] = {{kUp, 2500}, {kDown, 400}};
    for (const auto& testCase : kCases) {
        SCOPED_TRACE(testCase.limit);
        DeskModel desk = deskAt(1000);
        ASSERT_TRUE(desk.setLimits(400, 2500));
        hold(desk, testCase.command, 10.0);
        EXPECT_EQ(desk.height(), testCase.limit);
        EXPECT_FALSE(desk.isMoving());
    }
}

TEST(DeskModel, turnsRoundThroughARampWhenTheDirectionChanges)
{
    DeskModel desk = deskAt(3000);
    hold(desk, kUp, 1.0);
    send(desk, kDown);
    desk.advance(0.25);
    EXPECT_NEAR(desk.velocity(), 0, 0.01);
    desk.advance(0.2);
    EXPECT_NEAR(desk.velocity(), -304, 0.01);
}

TEST(DeskModel, refusesLimitsThatMakeNoSenseAndKeepsTheDeskWithinGoodOnes)
{
    DeskModel desk = deskAt(3000);
    for (const auto& [lower, upper] : {std::pair {-1, 100}, {100, 100}, {200, 100}, {0, 65536}})
        EXPECT_FALSE(desk.setLimits(lower, upper)) << lower << ' ' << upper;
    EXPECT_EQ(desk.upperLimit(), 6500);
    EXPECT_TRUE(desk.setLimits(0, 2000));
    EXPECT_EQ(desk.height(), 2000);
    desk.setHeight(9000);
    EXPECT_EQ(desk.height(), 2000);
    desk.setHeight(-5);
    EXPECT_EQ(desk.height(), 0);
}

TEST(DeskModel, stepSizeDoesNotMatter)
{
    std::mt19937 random(42);
    std::uniform_real_distribution<double> pause(0.0, 0.9);
    for (int round = 0; round < 50; ++round) {
        SCOPED_TRACE(round);
        DeskModel whole = deskAt(3000);
        DeskModel fine = whole;
        DeskModel odd = whole;
        for (int command = 0; command < 20; ++command) {
            const Bytes reports[] = {kUp, kDown, kStop, target(int(random() % 6500))};
            const Bytes& report = reports[random() % 4];
            const double seconds = pause(random);
            for (DeskModel* desk : {&whole, &fine, &odd})
                send(*desk, report);
            whole.advance(seconds);
            for (int i = 0; i < 1000; ++i)
                fine.advance(seconds / 1000);
            for (const double part : {0.13, 0.0001, 0.5, 0.3699})
                odd.advance(seconds * part);
            ASSERT_NEAR(whole.height(), fine.height(), 1);
            ASSERT_NEAR(whole.height(), odd.height(), 1);
        }
        for (DeskModel* desk : {&whole, &fine, &odd})
            desk->advance(5);
        EXPECT_NEAR(whole.height(), fine.height(), 1);
        EXPECT_NEAR(whole.height(), odd.height(), 1);
    }
}

TEST(DeskModel, sumsOfDecimalFractionsMissNoStep)
{
    DeskModel desk = deskAt(3000);
    send(desk, kUp);
    for (int i = 0; i < 20; ++i)
        desk.advance(0.009); // Twenty times this, added up as doubles, is a hair less than 0.18.
    EXPECT_NEAR(desk.velocity(), 0.18 * DeskModel::kAcceleration, 1e-6);
}

TEST(DeskModel, aCommandGrowsOldWhileTheDeskRests)
{
    DeskModel desk = deskAt(6499);
    hold(desk, kUp, 1.0);
    EXPECT_EQ(desk.goal(), 6500);
    desk.advance(10);
    EXPECT_EQ(desk.goal(), std::nullopt);
    ASSERT_TRUE(desk.setLimits(0, 9000));
    desk.advance(1);
    EXPECT_EQ(desk.height(), 6500);
}

TEST(DeskModel, anEndlessOrSenselessTimeDoesNoHarm)
{
    DeskModel desk = deskAt(3000);
    hold(desk, kUp, 1.0);
    const int before = desk.height();
    desk.advance(-10);
    desk.advance(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(desk.height(), before);
    for (int year = 0; year < 100; ++year)
        desk.advance(3.2e7);
    desk.advance(std::numeric_limits<double>::infinity());
    EXPECT_FALSE(desk.isMoving());
    send(desk, kDown);
    desk.advance(0.4);
    EXPECT_TRUE(desk.isMoving()) << "the command is as young as ever";
}

TEST(DeskModel, isHeardOnlyOnceItIsInitialised)
{
    DeskModel desk;
    EXPECT_EQ(status(desk)[2], 0);
    EXPECT_EQ(reportedHeight(desk), 0);
    hold(desk, kUp, 1.0);
    EXPECT_EQ(desk.height(), DeskModel::kDefaultHeight) << "nobody passes the command on";

    send(desk, kInit);
    EXPECT_EQ(status(desk)[2], 1);
    EXPECT_EQ(reportedHeight(desk), DeskModel::kDefaultHeight);

    DeskModel eager;
    eager.setNeedsInit(false);
    EXPECT_EQ(status(eager)[2], 1);
}

TEST(DeskModel, statusCarriesTheHeightLittleEndianAndNothingElse)
{
    DeskModel desk = deskAt(0x1234);
    Status expected {0x04, 0x00, 0x01, 0x00, 0x34, 0x12};
    EXPECT_EQ(status(desk), expected);
}

TEST(DeskModel, aDeskThatIsOffStopsAndClearsTheCommunicatingBit)
{
    DeskModel desk = deskAt(3000);
    hold(desk, kUp, 1.0);
    desk.setDeskOn(false);
    desk.advance(0.3);
    EXPECT_FALSE(desk.isMoving());
    EXPECT_EQ(status(desk)[2], 0);
    EXPECT_EQ(reportedHeight(desk), desk.height()) << "the last height that was heard";
    send(desk, kUp);
    desk.advance(0.3);
    EXPECT_FALSE(desk.isMoving());
    desk.setDeskOn(true);
    EXPECT_TRUE(desk.isCommunicating());
}

TEST(DeskModel, refusesReportsThatAreNotSound)
{
    const struct {
        const char* name;
        Bytes report;
        TransferResult result;
    } kCases[] = {
        {"init", kInit, TransferResult::Ok},
        {"init with another content", {0x03, 0x04, 0x00, 0xFA, 0, 0, 0, 0}, TransferResult::Refused},
        {"movement", kUp, TransferResult::Ok},
        {"movement with its ninth byte", {0x05, 0, 0x80, 0, 0x80, 0, 0x80, 0, 0x80}, TransferResult::Ok},
        {"one byte short", {0x05, 0, 0x80, 0, 0x80, 0, 0x80}, TransferResult::Refused},
        {"second copy differs", {0x05, 0, 0x80, 1, 0x80, 0, 0x80, 0}, TransferResult::Refused},
        {"fourth copy differs", {0x05, 0, 0x80, 0, 0x80, 0, 0x80, 1}, TransferResult::Refused},
        {"status is not written", {0x04, 0, 0, 0, 0, 0, 0, 0}, TransferResult::Refused},
        {"unknown report", {0x09, 0, 0, 0, 0, 0, 0, 0}, TransferResult::Refused},
        {"empty", {}, TransferResult::Refused},
    };
    for (const auto& testCase : kCases) {
        SCOPED_TRACE(testCase.name);
        DeskModel desk = deskAt(1000);
        EXPECT_EQ(desk.setFeatureReport(testCase.report), testCase.result);
        desk.advance(0.3);
        EXPECT_EQ(desk.isMoving(), testCase.result == TransferResult::Ok && testCase.report[0] == 0x05);
    }
    for (const uint8_t id : Bytes {0x00, 0x03, 0x05, 0xFF}) {
        Bytes buffer(64);
        buffer[0] = id;
        EXPECT_EQ(deskAt(1000).getFeatureReport(buffer), TransferResult::Refused) << int(id);
    }
    EXPECT_EQ(deskAt(1000).getFeatureReport({}), TransferResult::Refused);
}

TEST(DeskModel, reportsErrorsInFlagKindsAndCodeList)
{
    const struct {
        const char* name;
        void (*raise)(DeskModel&);
        uint8_t kinds;
        uint8_t codesPresent;
        std::array<uint8_t, 6> codes;
    } kCases[] = {
        {"position lost", [](DeskModel& desk) { desk.setError(DeskModel::ErrorKind::PositionLost, true); },
            0x01, 0, {}},
        {"overload up", [](DeskModel& desk) { desk.setError(DeskModel::ErrorKind::OverloadUp, true); }, 0x04,
            0, {}},
        {"overload down", [](DeskModel& desk) { desk.setError(DeskModel::ErrorKind::OverloadDown, true); },
            0x08, 0, {}},
        {"two kinds",
            [](DeskModel& desk) {
                desk.setError(DeskModel::ErrorKind::PositionLost, true);
                desk.setError(DeskModel::ErrorKind::OverloadUp, true);
            },
            0x05, 0, {}},
        {"codes, one of them twice",
            [](DeskModel& desk) {
                for (const uint8_t code : Bytes {5, 12, 5, 255})
                    EXPECT_TRUE(desk.addErrorCode(code));
            },
            0, 1, {5, 12, 255}},
        {"the list is full",
            [](DeskModel& desk) {
                for (const uint8_t code : Bytes {1, 2, 3, 4, 5, 6})
                    EXPECT_TRUE(desk.addErrorCode(code));
                EXPECT_FALSE(desk.addErrorCode(7));
                EXPECT_FALSE(desk.addErrorCode(0));
                EXPECT_TRUE(desk.addErrorCode(6));
            },
            0, 1, {1, 2, 3, 4, 5, 6}},
        {"unnamed", [](DeskModel& desk) { desk.setUnnamedError(true); }, 0, 0, {}},
    };
    for (const auto& testCase : kCases) {
        SCOPED_TRACE(testCase.name);
        DeskModel desk = deskAt(1000);
        testCase.raise(desk);
        const Status report = status(desk);
        EXPECT_EQ(report[2], 0x01);
        EXPECT_EQ(report[3], 0x02);
        EXPECT_EQ(report[6], testCase.kinds);
        EXPECT_EQ(report[32], testCase.codesPresent);
        EXPECT_TRUE(std::equal(testCase.codes.begin(), testCase.codes.end(), report.begin() + 34));
        EXPECT_EQ(report[40], 0);

        desk.clearErrors();
        EXPECT_EQ(status(desk), status(deskAt(1000)));
    }
}

TEST(DeskModel, anErrorStopsTheDeskUntilItIsGone)
{
    DeskModel desk = deskAt(1000);
    hold(desk, kUp, 1.0);
    desk.setError(DeskModel::ErrorKind::OverloadUp, true);
    hold(desk, kUp, 2.0);
    EXPECT_FALSE(desk.isMoving());
    desk.setError(DeskModel::ErrorKind::OverloadUp, false);
    desk.advance(0.1);
    EXPECT_FALSE(desk.isMoving()) << "no command since the error went";
    hold(desk, kUp, 1.0);
    EXPECT_TRUE(desk.isMoving());
}

TEST(DeskModel, faultsOnTheWire)
{
    const struct {
        const char* name;
        void (*spoil)(DeskModel&);
        TransferResult write;
        TransferResult read;
    } kCases[] = {
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
    for (const auto& testCase : kCases) {
        SCOPED_TRACE(testCase.name);
        DeskModel desk = deskAt(1000);
        testCase.spoil(desk);
        Status answer {0x04};
        answer.back() = 0xAA;
        EXPECT_EQ(desk.getFeatureReport(answer), testCase.read);
        EXPECT_EQ(answer.back() == 0xAA, testCase.read != TransferResult::Ok)
            << "an answer fills, a failure does not";
        EXPECT_EQ(desk.setFeatureReport(kUp), testCase.write);
        desk.advance(0.3);
        EXPECT_EQ(desk.isMoving(), testCase.write == TransferResult::Ok);
    }
}

TEST(DeskModel, aShortAnswerLeavesTheRestOfTheBufferAlone)
{
    for (const size_t length : std::vector<size_t> {0, 1, 5, 64, 100}) {
        SCOPED_TRACE(length);
        DeskModel desk = deskAt(0x1234);
        desk.faults().answerLength = length;
        Bytes buffer(64, 0xAA);
        buffer[0] = 0x04;
        EXPECT_EQ(desk.getFeatureReport(buffer), TransferResult::Ok);
        for (size_t i = 1; i < buffer.size(); ++i)
            EXPECT_EQ(buffer[i] == 0xAA, i >= length) << i;
    }
    std::array<uint8_t, 6> small {0x04};
    EXPECT_EQ(deskAt(0x1234).getFeatureReport(small), TransferResult::Ok);
    EXPECT_EQ(small[5], 0x12);
}

TEST(DeskModel, aPulledAdapterForgetsItsInitialisationAndTheDeskStops)
{
    DeskModel desk = deskAt(1000);
    hold(desk, kUp, 1.0);
    desk.setPlugged(false);
    desk.advance(1);
    EXPECT_FALSE(desk.isMoving());
    desk.setPlugged(true);
    EXPECT_FALSE(desk.isCommunicating());
    send(desk, kInit);
    EXPECT_EQ(reportedHeight(desk), desk.height());
    EXPECT_GT(desk.height(), 1000) << "the desk itself stands where it stood";
}
}
