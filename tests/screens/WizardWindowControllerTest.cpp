#include "screens/WizardWindowController.h"

#include "screens/SetupTest.h"
#include "ui/HoverButton.h"

#include <QLineEdit>
#include <QTest>

namespace {
class WizardWindowControllerTest : public SetupTest {
protected:
    void open()
    {
        wizard.emplace(workspace, [this] { ++terminations; });
        wizard->showWindow();
        show(wizard->window());
        platform.defaults.writes.clear();
    }
    void type(const char* field, const char* text)
    {
        auto& edit = in<QLineEdit>(wizard->window(), field);
        edit.selectAll();
        QTest::keyClicks(&edit, text);
    }
    QWidget& find(const char* name) const { return in(wizard->window(), name); }
    void click(const char* name) const { QTest::mouseClick(&find(name), Qt::LeftButton); }

    int terminations = 0;
    std::optional<WizardWindowController> wizard;
};
}

TEST_F(WizardWindowControllerTest, leavingTheFirstRunEitherWayCompletesTheSetupAndBeginsAPeriod)
{
    plug();
    for (const char* control : {"buttonDone", "buttonCloseWithoutSaving"}) {
        SCOPED_TRACE(control);
        properties().setWeight(0);
        open();
        ASSERT_FALSE(properties().isUserSetupCompleted());
        type("textFieldWeight", "0"); // Becomes the default.
        click(control);
        EXPECT_FALSE(wizard->isWindowVisible());
        EXPECT_TRUE(properties().isUserSetupCompleted());
        EXPECT_EQ(properties().weight(), 80);
        EXPECT_EQ(terminations, 0);
        ASSERT_TRUE(hub().activity());
        EXPECT_TRUE(hub().scheduleManager()->isScheduled());
    }
}

TEST_F(WizardWindowControllerTest, doneRestartsTheScheduleOfARunningPeriodAndLeavingChangesNothing)
{
    for (const auto& [key, value] :
        {std::pair("Weight", 71), {"ActivityMode", 2}, {"ActivityGoal", 20}, {"NumberOfStandUps", 2}})
        store(key, value);
    plug();
    const ActivityRef activity = hub().activity();
    ASSERT_TRUE(activity);
    const auto before = platform.defaults.values;
    const double interval = hub().scheduleManager()->currentScheduleInterval();
    open();
    in<QLineEdit>(wizard->window(), "textFieldStandUpNumber").setText("5");
    QTest::keyClick(&wizard->window(), Qt::Key_Escape);
    EXPECT_FALSE(wizard->isWindowVisible());
    EXPECT_EQ(platform.defaults.values, before);
    open();
    type("textFieldStandUpNumber", "4");
    click("buttonDone");
    EXPECT_EQ(hub().activity(), activity);
    EXPECT_DOUBLE_EQ(hub().scheduleManager()->currentScheduleInterval(), interval / 2);
}
