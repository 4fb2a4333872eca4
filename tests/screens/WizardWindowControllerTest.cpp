#include "screens/WizardWindowController.h"

#include "screens/SetupTest.h"

namespace {
using WizardWindowControllerTest = SetupTest;
}

TEST_F(WizardWindowControllerTest, leavingTheFirstRunEitherWayCompletesTheSetupAndDoneBeginsAPeriod)
{
    for (const char* control : {"buttonDone", "buttonCloseWithoutSaving"}) {
        SCOPED_TRACE(control);
        store("Weight", 0);
        properties().setWeight(0);
        plug();
        open();
        ASSERT_FALSE(hub().activity());
        type(weight(), "0"); // Becomes the default.
        click(find(control));
        EXPECT_FALSE(wizard->isWindowVisible());
        EXPECT_EQ(properties().weight(), 80);
        EXPECT_EQ(bool(hub().activity()), QString(control) == "buttonDone");
        hid.unplug(adapter);
    }
}

TEST_F(WizardWindowControllerTest, doneRestartsTheScheduleOfARunningPeriodAndLeavingChangesNothing)
{
    plug();
    const ActivityRef activity = hub().activity();
    const auto before = platform.defaults.values;
    const double interval = hub().scheduleManager()->currentScheduleInterval();
    open();
    wizard->showSetupView();
    EXPECT_EQ(wizard->window().findChildren<QWidget*>("SetupView").size(), 1);
    type(standUps(), "5");
    QTest::keyClick(&wizard->window(), Qt::Key_Escape);
    EXPECT_EQ(platform.defaults.values, before);
    open();
    type(standUps(), "6");
    click(find("buttonDone"));
    EXPECT_TRUE(activity && hub().activity() == activity);
    EXPECT_DOUBLE_EQ(hub().scheduleManager()->currentScheduleInterval(), interval / 2);
}
