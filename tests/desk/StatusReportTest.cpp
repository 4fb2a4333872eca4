#include "desk/StatusReportChecks.h"

#include <gtest/gtest.h>
#include <random>

TEST(StatusReportTest, TakesAnyBytes)
{
    StatusReportChecks checks;
    std::mt19937 random(64);
    testing::internal::CaptureStderr(); // Each change of communication and state is a log line.
    const char* violation = nullptr;
    StatusReportChecks::Report report {};
    for (int i = 0; i < 20000 && !violation; ++i) {
        const bool sparse = random() % 2;
        for (uint8_t& byte : report)
            byte = sparse && random() % 4 ? 0 : uint8_t(random());
        violation = checks.violation(report);
    }
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(violation, nullptr) << violation << "\n" << testing::PrintToString(report);
}
