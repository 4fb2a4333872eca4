#include "screens/SetupViewController.h"

#include "screens/SetupTest.h"
#include "ui/StepSlider.h"

#include <QAccessible>

namespace {
class SetupViewControllerTest : public SetupTest {
protected:
    StepSlider& slider() const { return find<StepSlider>("slider"); }
    GoalCircleView& circle(int step) const
    {
        return find<GoalCircleView>(QString("goalIndicator%1").arg(step + 1));
    }
    /// Which tabs are active, which of the two lines below them are shown, the steps of the active circles
    /// and of the slider, and what the circles and the slider say.
    [[nodiscard]] QString goal() const
    {
        QString shown;
        for (const auto& [name, word] : {std::pair("labelCalories", "calories "), {"labelTime", "time "}})
            shown += find<ClickableLabel>(name).active() ? word : "";
        for (const QString number : {"1", "4"})
            shown += find("lineTabHorizontal" + number).isHidden() ? "" : "line " + number;
        for (int step = 0; step < 5; ++step)
            shown += circle(step).active() ? QString(", circle %1").arg(step) : "";
        shown += QString(", slider %1:").arg(slider().value());
        for (int step = 0; step < 5; ++step)
            shown += ' ' + circle(step).value().value_or("nothing");
        return shown + " | " + slider().accessibleDescription();
    }
};
}

TEST_F(SetupViewControllerTest, theStoredGoalChoosesTabCirclesAndStep)
{
    const struct {
        int mode;
        double goal;
        const char* shown;
    } kCases[] = {{1, 250, "calories line 4, circle 4, slider 4: 50 100 150 200 250 | 250 Calories"},
        {2, 40, "time line 1, circle 4, slider 4: 10 15 20 30 40 | 40 minutes"},
        {2, 15.9, "time line 1, circle 1, slider 1: 10 15 20 30 40 | 15 minutes"},
        {1, 0, "calories line 4, circle 2, slider 2: 50 100 150 200 250 | 150 Calories"}, // The middle.
        {2, 25, "time line 1, circle 0, slider 0: 10 15 20 30 40 | 10 minutes"}, // Not among the goals.
        {7, 30, "line 1, circle 0, slider 0: 0 0 0 0 0 | 0 minutes"}}; // An unknown mode.
    for (const auto& [mode, storedGoal, shown] : kCases) {
        properties().setActivityMode(mode);
        properties().setActivityGoal(storedGoal);
        open();
        EXPECT_EQ(goal(), shown) << mode << ' ' << storedGoal;
        wizard.reset();
    }
}

TEST_F(SetupViewControllerTest, tabsCirclesSliderAndSentenceFollowEachOther)
{
    const QString calories = "calories line 4, circle %1, slider %1: 50 100 150 200 250 | %2 Calories";
    const QString time = "time line 1, circle %1, slider %1: 10 15 20 30 40 | %2 minutes";
    const struct {
        std::function<void()> action;
        QString goal;
        const char* minutes;
    } kSteps[] = {
        {[this] { click(circle(4)); }, calories.arg(4).arg(250), "12"},
        {[this] { click(find("labelTime")); }, time.arg(4).arg(40), "13"},
        {[this] { QTest::keyClick(&slider(), Qt::Key_Left); }, time.arg(3).arg(30), "10"},
        {[this] { type(standUps(), "4"); }, time.arg(3).arg(30), "7.5"},
        {[this] { click(find("labelTime")); }, time.arg(3).arg(30), "7.5"}, // Again.
        {[this] { QTest::keyClick(&find("labelCalories"), Qt::Key_Space); }, calories.arg(3).arg(200), "7.5"},
        {[this] { type(weight(), "150"); }, calories.arg(3).arg(200), "3.5"},
        {[this] {
             QTest::mouseClick(&slider(), Qt::LeftButton, {}, {5, 9});
         },
            calories.arg(0).arg(50), "1"},
    };
    platform.bundle.userLocale = QLocale("en_GB");
    open();
    for (const auto& [action, expected, minutes] : kSteps) {
        action();
        EXPECT_EQ(goal(), expected);
        EXPECT_EQ(text("labelGoal").simplified(),
            QString("That is %1 min on your feet each time you stand up.").arg(minutes));
        EXPECT_EQ(text("labelModeTitle"),
            goal().startsWith("time") ? "Minutes to stand each hour"
                                      : "Calories to burn by standing each day");
    }
}

TEST_F(SetupViewControllerTest, leavingWithoutSavingWritesNothingAndBuildsTheScreenAnew)
{
    plug();
    open();
    type(weight(), "90");
    click(find("labelTime"));
    const QPointer<QWidget> dropped = wizard->setupViewController().view();
    dismiss();
    EXPECT_FALSE(dropped);
    moveDeskTo(4500); // News that arrives while there is no screen.
    hid.unplug(adapter);
    EXPECT_TRUE(platform.defaults.writes.isEmpty());
    plug();
    open();
    EXPECT_EQ(entries(), "71 105 3");
    EXPECT_TRUE(goal().startsWith("calories line 4, circle 3,"));
    EXPECT_EQ(hub().delegates().size(), 2U); // Each loading registers once more.
}

TEST_F(SetupViewControllerTest, aPressOnTheBackgroundEndsEditing)
{
    open();
    weight().setFocus();
    QTest::mousePress(wizard->setupViewController().view(), Qt::LeftButton, {}, {3, 3});
    EXPECT_FALSE(weight().hasFocus());
}
