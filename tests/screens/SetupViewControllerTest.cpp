#include "screens/SetupViewController.h"

#include "screens/SetupTest.h"
#include "ui/BackgroundTextField.h"
#include "ui/ButtonPainter.h"
#include "ui/FontAndTextHandler.h"
#include "ui/HoverLink.h"
#include "ui/Palette.h"
#include "ui/PanelWindow.h"
#include "ui/StepSlider.h"

#include <QAccessible>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

namespace {
struct Host final : SetupViewControllerDelegate {
    int saved = 0;
    int dismissed = 0;
    void setupViewButtonCloseClicked() override { ++saved; }
    void setupViewButtonCloseWithoutSaveClicked() override { ++dismissed; }
};

class SetupViewControllerTest : public SetupTest {
protected:
    /// Puts the screen into a window, as its host does.
    void open()
    {
        screen.setDelegate(&host);
        window.setMovableByWindowBackground(true);
        window.onCloseRequested([this] { screen.buttonCloseWithoutSavingClicked(); });
        layout.setContentsMargins(0, 0, 0, 0);
        layout.addWidget(screen.view());
        window.setFixedSize(640, 680);
        show(window);
        platform.defaults.writes.clear();
    }
    void dismiss()
    {
        screen.buttonCloseWithoutSavingClicked();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    template <typename Widget = QWidget>
    Widget& find(const char* name) const
    {
        return in<Widget>(window, QString::fromLatin1(name));
    }
    QLineEdit& weight() const { return find<QLineEdit>("textFieldWeight"); }
    QLineEdit& height() const { return find<QLineEdit>("textFieldTableHeight"); }
    QLineEdit& standUps() const { return find<QLineEdit>("textFieldStandUpNumber"); }
    StepSlider& slider() const { return find<StepSlider>("slider"); }
    /// With ordinary spaces for those that keep a number and its unit together.
    [[nodiscard]] QString goalSentence() const { return find<QLabel>("labelGoal").text().simplified(); }
    GoalCircleView& circle(int step) const
    {
        return in<GoalCircleView>(window, QStringLiteral("goalIndicator%1").arg(step + 1));
    }
    HoverButton& memoryButton(int index) const
    {
        return in<HoverButton>(window, QStringLiteral("buttonMemory%1").arg(index));
    }

    [[nodiscard]] QList<int> activeSteps() const
    {
        QList<int> steps;
        for (int step = 0; step < 5; ++step) {
            if (circle(step).active())
                steps.append(step);
        }
        return steps;
    }
    [[nodiscard]] QStringList circleTexts() const
    {
        QStringList texts;
        for (int step = 0; step < 5; ++step)
            texts.append(circle(step).value().value_or(QString()));
        return texts;
    }
    /// Which tabs are active, and which of the two lines below the tabs are shown: "calories time | 1 4".
    [[nodiscard]] QString tabs() const
    {
        QStringList words;
        if (find<ClickableLabel>("labelCalories").active())
            words.append(QStringLiteral("calories"));
        if (find<ClickableLabel>("labelTime").active())
            words.append(QStringLiteral("time"));
        words.append(QStringLiteral("|"));
        for (const QString& number : {QStringLiteral("1"), QStringLiteral("4")}) {
            if (!in(window, QStringLiteral("lineTabHorizontal") + number).isHidden())
                words.append(number);
        }
        return words.join(QLatin1Char(' '));
    }

    static void click(QWidget& widget) { QTest::mouseClick(&widget, Qt::LeftButton); }
    /// Replaces a field's text as a user does.
    static void type(QLineEdit& field, const QString& text)
    {
        field.setFocus();
        field.selectAll();
        if (text.isEmpty())
            QTest::keyClick(&field, Qt::Key_Delete);
        for (const QChar character : text)
            QTest::sendKeyEvent(QTest::Click, &field, Qt::Key_unknown, QString(character), Qt::NoModifier);
    }
    static void paste(QLineEdit& field, const QString& text)
    {
        QApplication::clipboard()->setText(text);
        field.setFocus();
        field.selectAll();
        field.paste();
    }

    QWidget& openEditor(int index)
    {
        click(memoryButton(index));
        QApplication::processEvents();
        return find("MemoryView");
    }

    Host host;
    PanelWindow window {Qt::Window | Qt::FramelessWindowHint};
    QVBoxLayout layout {&window};
    SetupViewController screen {workspace};
};
}

TEST_F(SetupViewControllerTest, fieldsShowWhatIsStoredInTheUsersUnits)
{
    const struct {
        const char* locale;
        QVariant weight;
        QVariant offset;
        QVariant standUps;
        QStringList fields;
        QStringList units;
    } kTestCases[] = {
        {"de_DE", 71.9, 6200, 3, {"71", "105", "3"}, {"kg", "cm"}},
        {"en_US", 71.9, 6200, 3, {"158", "41.3", "3"}, {"lb", "in"}},
        {"en_GB", 71.9, 6200, 3, {"71", "105", "3"}, {"kg", "cm"}},
        {"de_DE", {}, 6200, 0, {"80", "105", "1"}, {"kg", "cm"}}, // The defaults.
        {"de_DE", -5, -4309, -2, {"80", "0", "1"}, {"kg", "cm"}},
    };
    plug();
    for (const auto& testCase : kTestCases) {
        SCOPED_TRACE(testCase.fields.join(QLatin1Char(' ')).toStdString());
        platform.bundle.testLocale = QLocale(QString::fromLatin1(testCase.locale));
        properties().setWeight(testCase.weight.toDouble());
        store("TablePositionOffset", testCase.offset);
        store("NumberOfStandUps", testCase.standUps);
        open();
        EXPECT_EQ(QStringList({weight().text(), height().text(), standUps().text()}), testCase.fields);
        EXPECT_EQ(QStringList({find<QLabel>("labelSystemOfUnits").text(), find<QLabel>("labelCm").text()}),
            testCase.units);
        dismiss();
    }
}

TEST_F(SetupViewControllerTest, theStoredGoalChoosesTabCirclesAndStep)
{
    const QStringList calories {"50", "100", "150", "200", "250"};
    const QStringList minutes {"10", "15", "20", "30", "40"};
    const QStringList none {"0", "0", "0", "0", "0"};
    const struct {
        int mode;
        double goal;
        QString tabs;
        QStringList circles;
        int step;
    } kTestCases[] = {
        {1, 150, QStringLiteral("calories | 4"), calories, 2},
        {2, 40, QStringLiteral("time | 1"), minutes, 4}, {2, 15.9, QStringLiteral("time | 1"), minutes, 1},
        {1, 0, QStringLiteral("calories | 4"), calories, 2}, // No goal: the middle.
        {2, 25, QStringLiteral("time | 1"), minutes, 0}, // Not among the goals.
        {1, -1e300, QStringLiteral("calories | 4"), calories, 0},
        {7, 30, QStringLiteral("| 1"), none, 0}, // An unknown mode.
    };
    for (const auto& testCase : kTestCases) {
        SCOPED_TRACE(testCase.mode * 1000 + testCase.goal);
        AppProperties::instance().setActivityMode(testCase.mode);
        store("ActivityGoal", testCase.goal);
        AppProperties::instance().setActivityGoal(testCase.goal);
        open();
        EXPECT_EQ(tabs(), testCase.tabs);
        EXPECT_EQ(circleTexts(), testCase.circles);
        EXPECT_EQ(activeSteps(), QList<int> {testCase.step});
        EXPECT_EQ(slider().value(), testCase.step);
        dismiss();
    }
}

TEST_F(SetupViewControllerTest, theGoalSentenceTellsTheMinutesOfEachStandUp)
{
    const struct {
        int mode;
        int step;
        const char* weight;
        const char* standUps;
        const char* minutes; ///< null: no sentence
    } kTestCases[] = {
        {2, 0, "80", "4", "2,5"},
        {2, 0, "80", "6", "1,5"}, // 1.67, rounded down to a half.
        {2, 4, "80", "1", "40"},
        {2, 1, "", "2", "7,5"}, // The weight plays no part.
        {1, 0, "80", "1", "7"},
        {1, 4, "80", "4", "8"}, // 33 an hour: 8.25.
        {1, 0, "999", "6", "0,5"}, // 1 an hour: 0.17.
        {1, 2, "0", "1", nullptr},
        {1, 2, "", "1", nullptr},
        {1, 0, "80", "", "7"},
    };
    open();
    for (const auto& testCase : kTestCases) {
        SCOPED_TRACE(testing::Message()
            << testCase.mode << ' ' << testCase.step << ' ' << testCase.weight << ' ' << testCase.standUps);
        click(find(testCase.mode == 1 ? "labelCalories" : "labelTime"));
        slider().setValue(testCase.step);
        type(standUps(), QString::fromLatin1(testCase.standUps));
        type(weight(), QString::fromLatin1(testCase.weight));
        if (standUps().text().isEmpty() || QLatin1String(testCase.standUps).isEmpty())
            type(standUps(), QString());
        const QString sentence = QStringLiteral("That is %1 min on your feet each time you stand up.");
        EXPECT_EQ(goalSentence(),
            testCase.minutes ? sentence.arg(QString::fromLatin1(testCase.minutes)) : QString());
    }
}

TEST_F(SetupViewControllerTest, aTabSwitchesTheModeAndKeepsTheStep)
{
    open();
    click(circle(3));
    click(find("labelTime"));
    EXPECT_EQ(tabs(), QStringLiteral("time | 1"));
    EXPECT_EQ(activeSteps(), QList<int> {3});
    EXPECT_EQ(slider().value(), 3);
    EXPECT_EQ(circle(3).value(), QStringLiteral("30"));
    EXPECT_EQ(circle(3).title(), QStringLiteral("minutes"));
    EXPECT_EQ(find<QLabel>("labelModeTitle").text(), QStringLiteral("Minutes to stand each hour"));
    EXPECT_TRUE(goalSentence().contains(QStringLiteral(" 30 min")));

    circle(3).setValue(QStringLiteral("mark"));
    click(find("labelTime")); // Already active: nothing happens.
    EXPECT_EQ(circle(3).value(), QStringLiteral("mark"));
    QTest::keyClick(&find("labelCalories"), Qt::Key_Space);
    EXPECT_EQ(tabs(), QStringLiteral("calories | 4"));
    EXPECT_EQ(find<QLabel>("labelModeTitle").text(), QStringLiteral("Calories to burn by standing each day"));
}

TEST_F(SetupViewControllerTest, sliderAndCirclesFollowEachOther)
{
    open();
    for (const int step : {4, 0, 2, 1, 3}) {
        click(circle(step));
        EXPECT_EQ(slider().value(), step);
        EXPECT_EQ(activeSteps(), QList<int> {step});
    }
    QTest::keyClick(&slider(), Qt::Key_Right);
    EXPECT_EQ(activeSteps(), QList<int> {4});
    QTest::mouseClick(&slider(), Qt::LeftButton, Qt::NoModifier, {5, slider().height() / 2});
    EXPECT_EQ(activeSteps(), QList<int> {0});
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&slider())->text(QAccessible::Description),
        QStringLiteral("50 Calories"));
}

TEST_F(SetupViewControllerTest, doneWritesEverySettingInOrder)
{
    plug(6500);
    open();
    click(find("labelTime"));
    click(circle(3));
    type(weight(), QStringLiteral("90"));
    type(height(), QStringLiteral("72"));
    type(standUps(), QStringLiteral("4"));
    EXPECT_TRUE(platform.defaults.writes.isEmpty()); // Nothing is saved while the user edits.
    click(find("buttonDone"));

    EXPECT_EQ(platform.defaults.writes,
        QStringList({"ActivityMode", "ActivityGoal", "Weight", "TablePositionOffset", "NumberOfStandUps"}));
    EXPECT_EQ(properties().activityMode(), 2);
    EXPECT_EQ(properties().activityGoal(), 30);
    EXPECT_EQ(properties().weight(), 90);
    EXPECT_EQ(properties().tablePositionOffset(), 700);
    EXPECT_EQ(properties().numberOfStandUps(), 4);
    EXPECT_EQ(host.saved, 1);
    EXPECT_TRUE(screen.isViewLoaded()); // Shown again as it was left.
    EXPECT_EQ(weight().text(), QStringLiteral("90"));
}

TEST_F(SetupViewControllerTest, poundsAndInchesAreStoredAsKilogramsAndRawHeights)
{
    platform.bundle.testLocale = QLocale(QStringLiteral("en_US"));
    plug(4300);
    open();
    type(weight(), QStringLiteral("200"));
    type(height(), QStringLiteral("41.5"));
    click(find("buttonDone"));
    EXPECT_DOUBLE_EQ(properties().weight(), 200 * 0.454);
    EXPECT_EQ(properties().tablePositionOffset(), 6241); // 105.41 cm, less 43 cm.
}

TEST_F(SetupViewControllerTest, leavingWithoutSavingWritesNothingAndBuildsTheScreenAnew)
{
    plug();
    open();
    type(weight(), QStringLiteral("90"));
    click(find("labelTime"));
    const QPointer<QWidget> dropped = screen.view();
    click(find("buttonCloseWithoutSaving"));
    EXPECT_EQ(host.dismissed, 1);
    EXPECT_FALSE(screen.isViewLoaded());
    EXPECT_TRUE(platform.defaults.writes.isEmpty());

    // News that arrives while there is no screen.
    moveDeskTo(4400);
    hid.unplug(adapter);
    screen.buttonClosedClicked();
    screen.sliderMoved();
    screen.memoryViewButtonDoneClicked();
    EXPECT_TRUE(platform.defaults.writes.isEmpty());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(dropped);
    moveDeskTo(4500);

    plug();
    open();
    EXPECT_EQ(weight().text(), QStringLiteral("80"));
    EXPECT_EQ(tabs(), QStringLiteral("calories | 4"));
    EXPECT_EQ(hub().delegates().size(), 2U); // Each loading registers once more.
    moveDeskTo(4400);
    EXPECT_EQ(height().text(), QStringLiteral("106"));
}

/// Text that an accessibility client wrote past the validators.
TEST_F(SetupViewControllerTest, doneRefusesWhatAFieldCannotHoldAndSaysSo)
{
    plug();
    properties().setWeight(71);
    properties().setNumberOfStandUps(3);
    open();
    const struct {
        QLineEdit& field;
        const char* text;
        const char* before; ///< what is back in the field
        const char* limits;
    } kCases[] = {
        {weight(), "1000", "71", "from 0 to 999."},
        {weight(), "7½", "71", "from 0 to 999."},
        {weight(), "70 kg", "71", "from 0 to 999."},
        {height(), "2501", "105", "from 0 to 2500."},
        {height(), "½", "105", "from 0 to 2500."},
        {height(), "", "105", "from 0 to 2500."},
        {standUps(), "0", "3", "from 1 to 6."},
        {standUps(), "7", "3", "from 1 to 6."},
        {standUps(), "2147483647", "3", "from 1 to 6."},
    };
    const auto& refusal = find<QLabel>("labelRefusal");
    for (const auto& [field, text, before, limits] : kCases) {
        SCOPED_TRACE(text);
        EXPECT_FALSE(refusal.isVisible());
        field.setText(QString::fromUtf8(text));
        click(find("buttonDone"));
        EXPECT_TRUE(refusal.isVisible());
        EXPECT_TRUE(refusal.text().contains(QLatin1String(limits))) << qPrintable(refusal.text());
        EXPECT_TRUE(refusal.parentWidget()->rect().contains(refusal.geometry()));
        EXPECT_EQ(field.text(), QLatin1String(before));
        EXPECT_TRUE(field.hasFocus());
        type(field, QLatin1String(before)); // The line goes with the next edit.
    }
    height().setText(QStringLiteral("½"));
    click(memoryButton(2)); // This stores the height too.
    EXPECT_TRUE(refusal.isVisible());
    EXPECT_EQ(host.saved, 0);
    EXPECT_TRUE(platform.defaults.writes.isEmpty());

    weight().setText(QStringLiteral("999"));
    height().setText(QStringLiteral("2500"));
    standUps().setText(QStringLiteral("6"));
    click(find("buttonDone"));
    EXPECT_EQ(host.saved, 1);
    EXPECT_FALSE(refusal.isVisible());
    EXPECT_EQ(properties().weight(), 999);
    EXPECT_EQ(properties().tablePositionOffset(), 250000 - kHeight);
    EXPECT_EQ(properties().numberOfStandUps(), 6);
}

TEST_F(SetupViewControllerTest, anEmptiedFieldIsRefilledExceptTheHeight)
{
    plug();
    open();
    for (QLineEdit* field : {&weight(), &standUps(), &height()})
        type(*field, QString());
    EXPECT_EQ(weight().text(), QStringLiteral("80"));
    EXPECT_EQ(standUps().text(), QStringLiteral("1"));
    weight().setFocus();
    EXPECT_EQ(height().text(), QString());
    EXPECT_TRUE(goalSentence().contains(QStringLiteral(" 7 min")));

    type(height(), QStringLiteral("98"));
    type(weight(), QString());
    QAccessible::queryAccessibleInterface(&find("buttonDone"))
        ->actionInterface()
        ->doAction(QAccessibleActionInterface::pressAction()); // Takes the focus from no field.
    EXPECT_EQ(properties().weight(), 80);
}

TEST_F(SetupViewControllerTest, theHeightFieldFollowsTheDesk)
{
    plug();
    open();
    type(height(), QStringLiteral("99"));
    moveDeskTo(4400);
    EXPECT_EQ(height().text(), QStringLiteral("106"));
    // A desk that leaves takes its height along: against no desk, saving it would shift the offset.
    hid.unplug(adapter);
    EXPECT_EQ(height().text(), QStringLiteral("62"));
    click(find("buttonDone"));
    EXPECT_EQ(properties().tablePositionOffset(), 6200);
}

TEST_F(SetupViewControllerTest, withoutADeskANoticeAsksForIt)
{
    open();
    QWidget& notice = find("labelConnection");
    EXPECT_TRUE(notice.isVisible());
    const int top = memoryButton(1).y();
    for (int index = 1; index <= 3; ++index)
        EXPECT_FALSE(memoryButton(index).isEnabled());
    type(height(), QStringLiteral("70"));
    screen.buttonMemoryClicked(memoryButton(1)); // Saves the offset, opens nothing.
    EXPECT_EQ(properties().tablePositionOffset(), 7000);
    EXPECT_FALSE(window.findChild<QWidget*>(QStringLiteral("MemoryView")));

    plug();
    QApplication::processEvents();
    EXPECT_FALSE(notice.isVisible());
    EXPECT_EQ(memoryButton(1).y(), top);
    for (int index = 1; index <= 3; ++index)
        EXPECT_TRUE(memoryButton(index).isEnabled());
    hid.unplug(adapter);
    EXPECT_TRUE(notice.isVisible());
}

TEST_F(SetupViewControllerTest, theMemoryEditorTakesTheButtonsPlaceAndStoresTheHeight)
{
    plug();
    open();
    type(height(), QStringLiteral("110"));
    for (const int index : {1, 3, 2}) {
        SCOPED_TRACE(index);
        const QRect place = memoryButton(index).geometry();
        enter(memoryButton(index));
        QWidget& editor = openEditor(index);
        EXPECT_EQ(properties().tablePositionOffset(), 6700); // The height that was typed counts at once.
        EXPECT_EQ(editor.geometry(), place);
        for (int other = 1; other <= 3; ++other)
            EXPECT_EQ(memoryButton(other).isHidden(), other == index);
        EXPECT_EQ(window.findChildren<QWidget*>(QStringLiteral("MemoryView")).size(), 1);
    }

    HoverButton& up = find<HoverButton>("buttonUp");
    QTest::mousePress(&up, Qt::LeftButton);
    EXPECT_EQ(heldMovement(), kUp);
    moveDeskTo(5000);
    QTest::mouseRelease(&up, Qt::LeftButton);
    EXPECT_EQ(lastMovement(), kStop);
    platform.defaults.writes.clear();
    click(in(find("MemoryView"), QStringLiteral("buttonDone")));
    EXPECT_EQ(properties().devicePosition2(), 5000); // Raw, without the offset.
    EXPECT_EQ(platform.defaults.writes, QStringList {"DevicePosition2"});
    EXPECT_FALSE(memoryButton(2).isHidden());
    EXPECT_FALSE(window.findChild<QWidget*>(QStringLiteral("MemoryView")));
}

TEST_F(SetupViewControllerTest, theDeskStopsWhenTheScreenGoesWhileUpIsHeld)
{
    plug();
    const std::function<void()> kEndings[] = {
        [this] { QTest::keyClick(&window, Qt::Key_Escape); },
        [this] { click(find("buttonCloseWithoutSaving")); },
        [this] { window.close(); },
        [this] { screen.view()->setParent(nullptr); },
        [this] { screen.memoryViewButtonDoneClicked(); },
    };
    int number = 0;
    for (const auto& end : kEndings) {
        SCOPED_TRACE(number++);
        open();
        openEditor(1);
        QTest::mousePress(&find("buttonUp"), Qt::LeftButton);
        ASSERT_EQ(heldMovement(), kUp);
        end();
        EXPECT_EQ(lastMovement(), kStop);
        const auto written = adapter->written.size();
        platform.runLoop.advance(5);
        EXPECT_EQ(adapter->written.size(), written);
        dismiss();
    }
}

TEST_F(SetupViewControllerTest, lettingGoInTheEditorStopsNoDeskButTheOneThatWasHeld)
{
    plug();
    open();
    openEditor(1);
    QTest::mousePress(&find("buttonUp"), Qt::LeftButton);
    hid.unplug(adapter);
    adapter = std::make_shared<FakeHidDevice>();
    adapter->setCommunicating(true);
    plug();
    QTest::mouseRelease(&find("buttonUp"), Qt::LeftButton);
    EXPECT_TRUE(adapter->written.empty());
}

TEST_F(SetupViewControllerTest, theDeskStopsWhenTheScreenIsDestroyedWhileDownIsHeld)
{
    plug();
    auto other = std::make_unique<SetupViewController>(workspace);
    show(*other->view());
    click(in(*other->view(), QStringLiteral("buttonMemory1")));
    QTest::mousePress(&in(*other->view(), QStringLiteral("buttonDown")), Qt::LeftButton);
    EXPECT_EQ(heldMovement(), kDown);
    other.reset();
    EXPECT_EQ(lastMovement(), kStop);
}
