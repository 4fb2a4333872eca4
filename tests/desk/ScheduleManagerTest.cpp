#include "desk/ScheduleManager.h"

#include "desk/Posture.h"
#include "fakes/TestPlatform.h"
#include "platform/NotificationCenter.h"

namespace {
/// Mode 1 counts calories, mode 2 minutes.
void setPlan(TestPlatform& platform, int mode, double goal, int standUps)
{
    platform.restart();
    platform.defaults.values = {
        {"Weight", 67.5}, {"ActivityMode", mode}, {"ActivityGoal", goal}, {"NumberOfStandUps", standUps}};
}
}

TEST(ScheduleManager, splitsTheHourByGoalAndStandUps)
{
    // Mode, goal, stand-ups; seconds of standing and sitting, 0 for no plan.
    const std::tuple<int, double, int, double, double> kCases[] = {
        {2, 15, 2, 450, 1350}, {2, 7.31, 6, 73.1, 526.9}, // no whole second
        {2, 75, 1, 3600, 0}, // more than an hour is an hour
        {2, 0.01, 1, 0.6, 3599.4}, {2, 0, 3, 0, 1200}, {1, 100, 1, 960, 2640}, // 124.4 minutes in 8 hours
        {3, 15, 1, 0, 3600}, // an unknown mode
        {2, 15, 0, 900, 2700}, // no stand-ups count as the default of one
    };
    TestPlatform platform;
    for (const auto& [mode, goal, standUps, standing, sitting] : kCases) {
        setPlan(platform, mode, goal, standUps);
        int sessions = 0;
        const auto newSession = NotificationCenter::defaultCenter().addObserver(
            ScheduleManager::kNewSession, [&](const PostedNotification&) { ++sessions; });
        const double seconds[] = {0, standing, sitting, 0}; // There is no posture 0 or 3.
        for (int32_t position = 0; position < 4; ++position) {
            SCOPED_TRACE(testing::Message() << mode << " " << goal << " " << standUps << " " << position);
            ScheduleManager schedule(mode);
            EXPECT_EQ(schedule.activityMode(), mode);
            schedule.startScheduledTimerForPosition(position);
            EXPECT_EQ(schedule.isScheduled(), seconds[position] > 0);
            EXPECT_EQ(std::exchange(sessions, 0), int(schedule.isScheduled()));
            EXPECT_NEAR(schedule.currentScheduleInterval(), seconds[position], 1e-5);
        }
    }
}

TEST(ScheduleManager, timesAwakeSecondsAndStartsAgainForThePositionItTimedLast)
{
    TestPlatform platform;
    setPlan(platform, 2, 20, 3);
    ScheduleManager schedule(2);
    schedule.restartScheduleTimer();
    EXPECT_FALSE(schedule.isScheduled()) << "there is no period to start again";
    schedule.snoozeForPosition(kSitting);
    platform.runLoop.advance(50);
    platform.runLoop.sleepMachine(5000);
    EXPECT_DOUBLE_EQ(schedule.timeToSchedule(), 550);
    EXPECT_EQ(schedule.scheduledDate()->secondsSince1970(), TestPlatform::kStart + 5600);
    EXPECT_EQ(schedule.scheduleUpdatedDate().value().timeIntervalSinceDate(Date::now()), -50);
    schedule.stopScheduleTimer();
    EXPECT_EQ(schedule.timeToSchedule(), 0);
    EXPECT_FALSE(schedule.scheduledDate());
    schedule.restartScheduleTimer();
    EXPECT_EQ(schedule.currentScheduleInterval(), 800) << "a stopped timer still knows its position";
    setPlan(platform, 2, 20, 7);
    schedule.cancelPeriodForPosition(kStanding);
    EXPECT_EQ(schedule.currentScheduleInterval(), 514) << "a skipped period is timed in whole seconds";
}
