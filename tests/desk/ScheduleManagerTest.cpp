#include "desk/ScheduleManager.h"

#include "data/CalorieCalculator.h"
#include "desk/DeskTest.h"
#include "platform/NotificationCenter.h"

namespace {
class ScheduleManagerTest : public DeskTest, public ScheduleManagerDelegate {
protected:
    ScheduleManagerTest()
    {
        newSession = NotificationCenter::defaultCenter().addObserver(
            NotificationNames::kNewSession, [this](const PostedNotification& posted) {
                EXPECT_FALSE(posted.object);
                ++sessions;
            });
    }

    void activityScheduledToPosition(int32_t position) override
    {
        due.emplace_back(platform.runLoop.monotonicNow(), position);
    }

    void setPlan(int mode, double goal, int standUps)
    {
        auto& properties = AppProperties::instance();
        properties.setWeight(67.5);
        properties.setActivityMode(mode);
        properties.setActivityGoal(goal);
        properties.setNumberOfStandUps(standUps);
    }

    using Due = std::vector<std::pair<double, int32_t>>;

    Due due;
    int sessions = 0;
    NotificationCenter::Observation newSession;
};

constexpr int kStanding = 1;
constexpr int kSitting = 2;
}

TEST_F(ScheduleManagerTest, SplitsTheHourByGoalAndStandUps)
{
    constexpr double kNone = -1;
    const double calorieMinutes = CalorieCalculator::standingPerHourForDailyCalories(100, 67.5);
    ASSERT_GT(calorieMinutes, 0);
    ASSERT_LT(calorieMinutes, 60);
    const struct {
        const char* what;
        int mode;
        double goal;
        int standUps;
        int position;
        double seconds;
    } cases[] = {
        {"standing share", 2, 15, 2, kStanding, 450},
        {"sitting share", 2, 15, 2, kSitting, 1350},
        {"a share that is no whole second", 2, 7.31, 6, kStanding, 73.1},
        {"more than an hour is an hour", 2, 75, 1, kStanding, 3600},
        {"nothing left to sit", 2, 75, 1, kSitting, kNone},
        {"next to nothing to stand", 2, 0.01, 1, kStanding, 0.6},
        {"nothing to stand", 2, 0, 1, kStanding, kNone},
        {"nothing to stand, all to sit", 2, 0, 3, kSitting, 1200},
        {"calories, standing", 1, 100, 1, kStanding, calorieMinutes * 60},
        {"calories, sitting", 1, 100, 1, kSitting, (60 - calorieMinutes) * 60},
        {"an unknown mode plans no standing", 3, 15, 1, kStanding, kNone},
        {"an unknown mode plans all sitting", 3, 15, 1, kSitting, 3600},
        {"no position", 2, 15, 1, 0, kNone},
        {"an unknown position", 2, 15, 1, 3, kNone},
        {"no stand-ups count as the default of one", 2, 15, 0, kStanding, 900},
        {"a negative count does too", 2, 15, -4, kSitting, 2700},
    };
    for (const auto& testCase : cases) {
        setPlan(testCase.mode, testCase.goal, testCase.standUps);
        ScheduleManager schedule(testCase.mode);
        sessions = 0;
        schedule.startScheduledTimerForPosition(testCase.position);
        const bool expectTimer = testCase.seconds != kNone;
        EXPECT_EQ(schedule.isScheduled(), expectTimer) << testCase.what;
        EXPECT_EQ(sessions, expectTimer ? 1 : 0) << testCase.what;
        EXPECT_NEAR(schedule.currentScheduleInterval(), expectTimer ? testCase.seconds : 0, 1e-5)
            << testCase.what;
    }
}

TEST_F(ScheduleManagerTest, CallsForTheOtherPositionOnceWhenAPeriodIsOver)
{
    setPlan(2, 15, 2);
    ScheduleManager schedule(2);
    schedule.setDelegate(this);

    schedule.startScheduledTimerForPosition(kSitting); // Ends with the next start.
    schedule.startScheduledTimerForPosition(kStanding);
    platform.runLoop.advance(400);
    platform.runLoop.sleepMachine(5000); // Time that passes is awake time, and dates are the wall clock's.
    EXPECT_DOUBLE_EQ(schedule.timeToSchedule(), 50);
    EXPECT_DOUBLE_EQ(schedule.timeScheduleRunning(), 400);
    EXPECT_DOUBLE_EQ(schedule.scheduledDate()->timeIntervalSinceDate(Date::now()), 50);
    EXPECT_DOUBLE_EQ(schedule.scheduleUpdatedDate()->timeIntervalSinceDate(Date::now()), -400);
    platform.runLoop.advance(100);
    EXPECT_EQ(due, (Due {{450, kSitting}}));
    EXPECT_TRUE(schedule.isScheduled()) << "the dates stay until something starts or stops";
    EXPECT_DOUBLE_EQ(schedule.timeToSchedule(), -50);

    schedule.startScheduledTimerForPosition(kSitting); // At 500 s.
    platform.runLoop.advance(1350);
    schedule.startScheduledTimerForPosition(kSitting);
    schedule.stopScheduleTimer();
    platform.runLoop.advance(3600);
    EXPECT_EQ(due, (Due {{450, kSitting}, {500 + 1350, kStanding}}));
    EXPECT_FALSE(schedule.isScheduled() || schedule.scheduledDate() || schedule.scheduleUpdatedDate());
    EXPECT_EQ(schedule.timeToSchedule(), 0);
    EXPECT_EQ(schedule.timeScheduleRunning(), 0);
    EXPECT_EQ(schedule.currentScheduleInterval(), 0);
}

TEST_F(ScheduleManagerTest, SnoozesSkipsAndStartsAgain)
{
    store("TimeSnooze", 420.0);
    setPlan(2, 15, 5);
    ScheduleManager schedule(2);
    schedule.setDelegate(this);
    schedule.restartScheduleTimer();
    EXPECT_FALSE(schedule.isScheduled()) << "there is no period to start again";

    schedule.snoozeForPosition(kSitting);
    EXPECT_DOUBLE_EQ(schedule.currentScheduleInterval(), 420);
    schedule.cancelPeriodForPosition(kStanding);
    EXPECT_DOUBLE_EQ(schedule.currentScheduleInterval(), 720);
    EXPECT_EQ(sessions, 2);
    platform.runLoop.advance(3600);
    EXPECT_EQ(due, (Due {{720, kSitting}}));

    for (const int standUps : {0, -1}) {
        AppProperties::instance().setNumberOfStandUps(standUps);
        schedule.cancelPeriodForPosition(kSitting);
        EXPECT_DOUBLE_EQ(schedule.currentScheduleInterval(), 3600) << standUps;
    }
    setPlan(2, 30, 3);
    schedule.stopScheduleTimer();
    schedule.restartScheduleTimer();
    EXPECT_DOUBLE_EQ(schedule.currentScheduleInterval(), 600) << "a stopped timer still knows its position";
}
