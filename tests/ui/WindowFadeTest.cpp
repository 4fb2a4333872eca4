#include "ui/WindowFade.h"

#include "fakes/ControlTest.h"

namespace {
class WindowFadeTest : public ControlTest {
protected:
    [[nodiscard]] double opacityAfter(double seconds)
    {
        platform.runLoop.advance(seconds);
        return window.windowOpacity();
    }

    QWidget window;
    WindowFade fade {window};
};
constexpr double kStep = 0.07; // A frame, as a share of the fade.
}

TEST_F(WindowFadeTest, comesOutOfNothingInFourTenthsOfASecond)
{
    fade.fadeIn();
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.windowOpacity(), 0);
    EXPECT_NEAR(opacityAfter(0.1), 0.25, kStep);
    EXPECT_NEAR(opacityAfter(0.2), 0.75, kStep);
    EXPECT_EQ(opacityAfter(0.1), 1);
    EXPECT_EQ(platform.runLoop.pendingTimerCount(), 0u);
}

TEST_F(WindowFadeTest, goesAndIsOpaqueForTheNextTime)
{
    fade.fadeIn();
    platform.runLoop.advance(1);
    EXPECT_FALSE(fade.isFadingOut());
    fade.fadeOut();
    EXPECT_TRUE(fade.isFadingOut());
    EXPECT_NEAR(opacityAfter(0.3), 0.25, kStep);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(opacityAfter(0.1), 1);
    EXPECT_FALSE(window.isVisible());
    EXPECT_FALSE(fade.isFadingOut());
    EXPECT_EQ(platform.runLoop.pendingTimerCount(), 0u);

    fade.fadeOut(); // Of a hidden window: nothing.
    EXPECT_EQ(platform.runLoop.pendingTimerCount(), 0u);
}

TEST_F(WindowFadeTest, aFadeEndsTheOneThatRuns)
{
    fade.fadeIn();
    platform.runLoop.advance(1);
    fade.fadeOut();
    platform.runLoop.advance(0.2);
    fade.fadeIn();
    platform.runLoop.advance(1);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.windowOpacity(), 1);
}
