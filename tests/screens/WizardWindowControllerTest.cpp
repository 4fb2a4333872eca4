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
    /// Settings as a user left them.
    void completeSetup()
    {
        store("Weight", 71.0);
        store("ActivityMode", 2);
        store("ActivityGoal", 20.0);
        store("NumberOfStandUps", 2);
    }
    QWidget& find(const char* name) const { return in(wizard->window(), QString::fromLatin1(name)); }
    void click(const char* name) const { QTest::mouseClick(&find(name), Qt::LeftButton); }

    int terminations = 0;
    std::optional<WizardWindowController> wizard;
};
}

TEST_F(WizardWindowControllerTest, leavingTheFirstRunEitherWayCompletesTheSetup)
{
    for (const char* control : {"buttonDone", "buttonCloseWithoutSaving"}) {
        SCOPED_TRACE(control);
        platform.defaults.values.clear();
        AppProperties::resetInstance();
        open();
        ASSERT_FALSE(properties().isUserSetupCompleted());
        click(control);
        EXPECT_FALSE(wizard->isWindowVisible());
        EXPECT_TRUE(properties().isUserSetupCompleted());
        EXPECT_EQ(properties().weight(), 80);
        EXPECT_EQ(terminations, 0);
    }
}

TEST_F(WizardWindowControllerTest, aWeightOfNothingBecomesTheDefault)
{
    open();
    auto& weight = in<QLineEdit>(wizard->window(), QStringLiteral("textFieldWeight"));
    weight.selectAll();
    QTest::keyClicks(&weight, QStringLiteral("0"));
    click("buttonDone");
    EXPECT_EQ(properties().weight(), 80);
}

TEST_F(WizardWindowControllerTest, leavingTheSettingsWithoutSavingChangesNone)
{
    completeSetup();
    plug();
    const auto before = platform.defaults.values;
    open();
    in<QLineEdit>(wizard->window(), QStringLiteral("textFieldStandUpNumber")).setText(QStringLiteral("5"));
    QTest::keyClick(&wizard->window(), Qt::Key_Escape);
    EXPECT_FALSE(wizard->isWindowVisible());
    EXPECT_EQ(platform.defaults.values, before);
}

TEST_F(WizardWindowControllerTest, doneRestartsTheScheduleOfARunningPeriod)
{
    completeSetup();
    plug();
    const ActivityRef activity = hub().activity();
    ASSERT_TRUE(activity);
    const double interval = hub().scheduleManager()->currentScheduleInterval();
    open();
    auto& standUps = in<QLineEdit>(wizard->window(), QStringLiteral("textFieldStandUpNumber"));
    standUps.selectAll();
    QTest::keyClicks(&standUps, QStringLiteral("4"));
    click("buttonDone");
    EXPECT_EQ(hub().activity(), activity);
    EXPECT_DOUBLE_EQ(hub().scheduleManager()->currentScheduleInterval(), interval / 2);
}

TEST_F(WizardWindowControllerTest, doneStartsAPeriodWhereNoneRuns)
{
    plug(); // Before set-up is complete no period opens.
    ASSERT_FALSE(hub().activity());
    open();
    click("buttonDone");
    ASSERT_TRUE(hub().activity());
    EXPECT_TRUE(hub().scheduleManager()->isScheduled());
}
