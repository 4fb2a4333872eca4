#include "ui/WindowFade.h"

#include "fakes/ControlTest.h"

namespace {
using WindowFadeTest = ControlTest;

TEST_F(WindowFadeTest, comesAndGoesInFourTenthsOfASecondAndTheLastOneHolds)
{
    QWidget window;
    WindowFade fade(window);
    const struct {
        void (WindowFade::*act)(); ///< or nothing
        double seconds;
        int percent; ///< of opacity after that time, the nearest quarter
        bool isVisible;
        bool isFadingOut;
        bool isMoving;
    } kTestCases[] = {
        {&WindowFade::fadeOut, 0, 100, false, false, false}, // Of a hidden window: nothing.
        {&WindowFade::fadeIn, 0, 0, true, false, true}, {nullptr, 0.1, 25, true, false, true},
        {nullptr, 0.2, 75, true, false, true}, {nullptr, 0.1, 100, true, false, false},
        {&WindowFade::fadeOut, 0.3, 25, true, true, true},
        {nullptr, 0.1, 100, false, false, false}, // For the next time.
        {&WindowFade::fadeIn, 1, 100, true, false, false}, {&WindowFade::fadeOut, 0.2, 50, true, true, true},
        {&WindowFade::fadeIn, 1, 100, true, false, false}, // Ends the one that runs.
    };
    for (const auto& row : kTestCases) {
        SCOPED_TRACE(testing::Message() << "row " << &row - kTestCases);
        if (row.act)
            (fade.*row.act)();
        platform.runLoop.advance(row.seconds);
        EXPECT_EQ(std::lround(window.windowOpacity() * 4) * 25, row.percent);
        EXPECT_EQ(window.isVisible(), row.isVisible);
        EXPECT_EQ(fade.isFadingOut(), row.isFadingOut);
        EXPECT_EQ(platform.runLoop.pendingTimerCount(), row.isMoving ? 1U : 0U);
    }
}
}
