#include "ui/WindowFade.h"

#include "fakes/ControlTest.h"

namespace {
class WindowFadeTest : public ControlTest {
protected:
    [[nodiscard]] double opacityAfter(double seconds)
    {
        platform.runLoop.advance(seconds);
        return m_window.windowOpacity();
    }

    static constexpr double kStep = 0.07; // A frame, as a share of the fade.
    QWidget m_window;
    WindowFade m_fade {m_window};
};

TEST_F(WindowFadeTest, comesAndGoesInFourTenthsOfASecondAndTheLastOneHolds)
{
    m_fade.fadeOut(); // Of a hidden window: nothing.
    EXPECT_EQ(platform.runLoop.pendingTimerCount(), 0U);
    m_fade.fadeIn();
    EXPECT_TRUE(m_window.isVisible());
    EXPECT_EQ(m_window.windowOpacity(), 0);
    EXPECT_NEAR(opacityAfter(0.1), 0.25, kStep);
    EXPECT_NEAR(opacityAfter(0.2), 0.75, kStep);
    EXPECT_EQ(opacityAfter(0.1), 1);
    EXPECT_EQ(platform.runLoop.pendingTimerCount(), 0U);
    EXPECT_FALSE(m_fade.isFadingOut());

    m_fade.fadeOut();
    EXPECT_TRUE(m_fade.isFadingOut());
    EXPECT_NEAR(opacityAfter(0.3), 0.25, kStep);
    EXPECT_TRUE(m_window.isVisible());
    EXPECT_EQ(opacityAfter(0.1), 1); // For the next time.
    EXPECT_FALSE(m_window.isVisible());
    EXPECT_FALSE(m_fade.isFadingOut());
    EXPECT_EQ(platform.runLoop.pendingTimerCount(), 0U);

    m_fade.fadeIn();
    platform.runLoop.advance(1);
    m_fade.fadeOut();
    platform.runLoop.advance(0.2);
    m_fade.fadeIn(); // Ends the one that runs.
    EXPECT_EQ(opacityAfter(1), 1);
    EXPECT_TRUE(m_window.isVisible());
}
}
