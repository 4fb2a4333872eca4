#include "screens/WizardWindowController.h"

#include "screens/DeskView.h"
#include "screens/SetupTest.h"
#include "ui/Appearance.h"
#include "ui/Motion.h"

#include <QComboBox>

namespace {
using WizardWindowControllerTest = SetupTest;
}

TEST_F(WizardWindowControllerTest, leavingTheFirstRunCompletesTheSetupAndDoneBeginsAPeriodOrItsScheduleAnew)
{
    for (const char* control : {"buttonDone", "buttonCloseWithoutSaving"}) {
        SCOPED_TRACE(control);
        store("Weight", 0);
        properties().setWeight(0);
        plug();
        open();
        ASSERT_FALSE(hub().activity());
        type(weight(), "0"); // Becomes the default.
        find<QComboBox>("appearance").setCurrentIndex(1 - properties().appearance());
        click(find(control));
        EXPECT_FALSE(wizard->isWindowVisible());
        EXPECT_EQ(properties().weight(), 80);
        EXPECT_TRUE(Appearance::isDark()); // By Done, and not by the other.
        EXPECT_EQ(bool(hub().activity()), QString(control) == "buttonDone");
        platform.unplug();
    }
    plug();
    const ActivityRef activity = hub().activity();
    const double interval = hub().scheduleManager()->currentScheduleInterval();
    open();
    type(standUps(), "6"); // Twice as many.
    click(find("buttonDone"));
    EXPECT_TRUE(activity && hub().activity() == activity);
    EXPECT_DOUBLE_EQ(hub().scheduleManager()->currentScheduleInterval(), interval / 2);
}

TEST_F(WizardWindowControllerTest, theFirstRunShowsTheDeskAsItMovesAndListensNoLongerThanItIsSeen)
{
    store("Weight", 0);
    properties().setWeight(0);
    plug();
    int asked = 0;
    Motion::whenNeeded([&asked] { ++asked; });
    open();
    open(); // Once more, on a screen that is just wide enough.
    auto& desk = find<DeskView>("deskView");
    ASSERT_TRUE(desk.isVisible());
    const size_t timers = platform.runLoop.pendingTimerCount();
    for (const bool isReduced : {false, true}) {
        Motion::setReduced(isReduced);
        const QString before = desk.accessibleName();
        hid.desk().setHeight(isReduced ? kHeight : 6000);
        while (desk.accessibleName() == before)
            platform.runLoop.advance(0.01);
        QList<QImage> seen;
        for (int i = 0; i < 4; ++i, platform.runLoop.advance(0.1))
            seen << grab(desk);
        EXPECT_EQ(seen[0] == seen[1], isReduced);
        EXPECT_EQ(seen[1] == seen[2], isReduced);
        EXPECT_EQ(seen[2], seen[3]);
        EXPECT_EQ(platform.runLoop.pendingTimerCount(), timers);
    }
    Motion::setReduced(false);
    EXPECT_EQ(asked, 1);
    const QImage seen = grab(desk);
    platform.unplug();
    EXPECT_NE(grab(desk), seen);
    EXPECT_EQ(desk.accessibleName(), QString());
    click(find("buttonDone"));
    EXPECT_EQ(hub().delegates().size(), 1U);
    open();
    EXPECT_FALSE(desk.isVisible());
}
