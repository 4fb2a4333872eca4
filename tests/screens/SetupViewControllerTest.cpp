#include "screens/SetupViewController.h"

#include "screens/SetupTest.h"
#include "ui/StepSlider.h"

namespace {
class SetupViewControllerTest : public SetupTest {
protected:
    StepSlider& slider() const { return find<StepSlider>("slider"); }
    GoalCircleView& circle(int step) const
    {
        return find<GoalCircleView>(QString("goalIndicator%1").arg(step + 1));
    }
    /// Which tabs are active, with a line before the one that has it, the steps of the active circles and of
    /// the slider, and what those say.
    [[nodiscard]] QString goal() const
    {
        QString shown;
        for (const auto& [tab, line, word] : {std::tuple("labelCalories", "lineTabHorizontal4", "calories "),
                 {"labelTime", "lineTabHorizontal1", "time "}})
            shown +=
                QString(find(line).isVisible() ? "|" : "") + (find<ClickableLabel>(tab).active() ? word : "");
        QString circles;
        for (int step = 0; step < 5; ++step) {
            shown += circle(step).active() ? QString("circle %1, ").arg(step) : "";
            circles += circle(step).value().value_or("nothing") + ' ';
        }
        return shown + QString("slider %1: ").arg(slider().value()) + circles + "| "
            + slider().accessibleDescription();
    }
};

const QString kCalories = "|calories circle %1, slider %1: 50 100 150 200 250 | %2 Calories";
const QString kTime = "|time circle %1, slider %1: 10 15 20 30 40 | %2 minutes";
}

TEST_F(SetupViewControllerTest, theStoredGoalChoosesTabCirclesAndStep)
{
    const std::tuple<int, double, QString> kCases[] = {{1, 250, kCalories.arg(4).arg(250)},
        {2, 40, kTime.arg(4).arg(40)}, {2, 15.9, kTime.arg(1).arg(15)},
        {1, 0, kCalories.arg(2).arg(150)}, // The middle.
        {2, 25, kTime.arg(0).arg(10)}, // Not among the goals.
        {7, 30, "|circle 0, slider 0: 0 0 0 0 0 | 0 minutes"}}; // An unknown mode.
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
    const std::tuple<std::function<void()>, QString, const char*> kSteps[] = {
        {[this] { click(circle(4)); }, kCalories.arg(4).arg(250), "12"},
        {[this] { click(find("labelTime")); }, kTime.arg(4).arg(40), "13"},
        {[this] { QTest::keyClick(&slider(), Qt::Key_Left); }, kTime.arg(3).arg(30), "10"},
        {[this] { type(standUps(), "4"); }, kTime.arg(3).arg(30), "7.5"},
        {[this] { click(find("labelCalories")); }, kCalories.arg(3).arg(200), "7.5"},
        {[this] { type(weight(), "150"); }, kCalories.arg(3).arg(200), "3.5"},
        {[this] { type(weight(), ""), standUps().setFocus(); }, kCalories.arg(3).arg(200),
            "7.5"}, // As stored.
    };
    platform.bundle.userLocale = QLocale("en_GB");
    open();
    for (const auto& [action, expected, minutes] : kSteps) {
        action();
        EXPECT_EQ(goal(), expected);
        EXPECT_EQ(text("labelGoal").simplified(),
            QString("That is %1 min on your feet each time you stand up.").arg(minutes));
    }
}

TEST_F(SetupViewControllerTest, aPageThatTheBundleDoesNotNameHasNoLink)
{
    for (const QString key : {"VideoUrl", "InfoUrl"}) {
        SimulatedBundle bundle({{key, "https://zelvo.example"}});
        const ProcessServices process({&platform.runLoop, &bundle, &platform.defaults});
        open();
        EXPECT_EQ(find("labelVideoLinkInfo").isVisible(), key == "VideoUrl");
        EXPECT_EQ(find("labelMoreInfo").isVisible(), key == "InfoUrl");
        EXPECT_EQ(find("buttonDone").property("text"), "   Done");
        wizard.reset();
    }
}

TEST_F(SetupViewControllerTest, leavingWithoutSavingWritesNothingAndBuildsTheScreenAnew)
{
    plug();
    open();
    type(weight(), "90");
    click(find("labelTime"));
    QTest::mousePress(wizard->setupViewController().view(), Qt::LeftButton, {}, {3, 3});
    EXPECT_FALSE(wizard->window().focusWidget()) << "a press on the background ends editing";
    const QPointer<QWidget> dropped = wizard->setupViewController().view();
    click(find("buttonCloseWithoutSaving"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(dropped);
    moveDeskTo(4500); // News that arrives while there is no screen.
    platform.unplug();
    platform.user->setSeen(false);
    EXPECT_TRUE(platform.defaults.writes.isEmpty());
    plug();
    open();
    EXPECT_EQ(entries(), "71 105 3");
    EXPECT_EQ(goal(), kCalories.arg(3).arg(200));
    EXPECT_TRUE(find("labelAbsence").isVisible());
    platform.user->setSeen(true);
    EXPECT_FALSE(find("labelAbsence").isVisible());
    EXPECT_EQ(hub().delegates().size(), 2U); // Each loading registers once more.
}
