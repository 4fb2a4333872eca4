#include "data/ActivityPeriod.h"

#include <gtest/gtest.h>

namespace {
// The interval of all rows is [1000, 2000).
const Date kFrom(1000);
const Date kTo(2000);

const struct TestCase {
    const char* name;
    double start;
    double end;
    bool meets; ///< with no posture, and with the posture of the period
    bool meetsOtherPosture;
    double seconds;
} kTestCases[] = {
    {"inside", 1200, 1300, true, false, 100},
    {"inside, from the first moment on", 1000, 1300, true, true, 300},
    {"inside, without length", 1500, 1500, true, false, 0},
    {"inside, ends before it starts", 1500, 1400, true, false, -100},
    {"ends just before the end", 1200, 1999.5, true, false, 799.5},
    {"ends at the end", 1200, 2000, false, false, 800},
    {"ends just after the end", 1200, 2000.5, true, true, 800},
    {"covers the start", 900, 1100, true, true, 100},
    {"ends at the start", 900, 1000, true, true, 0},
    {"ends just before the start", 900, 999.5, false, false, -0.5},
    {"is all of the interval", 1000, 2000, true, true, 1000},
    {"covers all of the interval", 900, 2100, true, true, 1000},
    {"starts at the end", 2000, 2100, false, false, 0},
    {"starts just before the end", 1999.5, 2100, true, true, 0.5},
    {"backward over the start", 1100, 900, true, false, -200},
    {"backward over the end", 2100, 1900, true, false, -200},
    {"backward over all of it", 2100, 900, true, false, -1200},
    {"before", 100, 200, false, false, -800},
    {"after", 3000, 3100, false, false, -1000},
};
}

TEST(ActivityPeriod, meetsAnIntervalInsideItOrAcrossAnEnd)
{
    for (const TestCase& testCase : kTestCases) {
        SCOPED_TRACE(testCase.name);
        for (const bool isStanding : {true, false}) {
            const ActivityPeriod period {Date(testCase.start), Date(testCase.end), isStanding};
            EXPECT_EQ(period.meets(kFrom, kTo, std::nullopt), testCase.meets);
            EXPECT_EQ(period.meets(kFrom, kTo, isStanding), testCase.meets);
            EXPECT_EQ(period.meets(kFrom, kTo, !isStanding), testCase.meetsOtherPosture);
        }
    }
}

TEST(ActivityPeriod, isClippedToTheInterval)
{
    for (const TestCase& testCase : kTestCases) {
        SCOPED_TRACE(testCase.name);
        const ActivityPeriod period {Date(testCase.start), Date(testCase.end), true};
        EXPECT_EQ(period.secondsInside(kFrom, kTo), testCase.seconds);
    }
}
