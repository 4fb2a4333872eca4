#include "screens/SetupViewController.h"

#include "screens/SetupTest.h"
#include "ui/BackgroundTextField.h"
#include "ui/PanelWindow.h"
#include "ui/StepSlider.h"

#include <QAccessible>
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
        return in<Widget>(window, name);
    }
    QLineEdit& weight() const { return find<QLineEdit>("textFieldWeight"); }
    QLineEdit& height() const { return find<QLineEdit>("textFieldTableHeight"); }
    QLineEdit& standUps() const { return find<QLineEdit>("textFieldStandUpNumber"); }
    StepSlider& slider() const { return find<StepSlider>("slider"); }
    /// With ordinary spaces for those that keep a number and its unit together.
    [[nodiscard]] QString goalSentence() const { return find<QLabel>("labelGoal").text().simplified(); }
    GoalCircleView& circle(int step) const
    {
        return in<GoalCircleView>(window, QString("goalIndicator%1").arg(step + 1));
    }
    HoverButton& memoryButton(int index) const
    {
        return in<HoverButton>(window, QString("buttonMemory%1").arg(index));
    }

    /// Which tabs are active, which of the two lines below them are shown, the step of the active circles and
    /// of the slider, and what the circles say: "calories | 4 | 2 | 2 | 50 100 150 200 250".
    [[nodiscard]] QString goal() const
    {
        QStringList words;
        for (const auto& [name, word] : {std::pair("labelCalories", "calories"), {"labelTime", "time"}}) {
            if (find<ClickableLabel>(name).active())
                words.append(word);
        }
        words.append("|");
        for (const QString number : {"1", "4"}) {
            if (!in(window, "lineTabHorizontal" + number).isHidden())
                words.append(number);
        }
        words.append("|");
        for (int step = 0; step < 5; ++step) {
            if (circle(step).active())
                words.append(QString::number(step));
        }
        words += {"|", QString::number(slider().value()), "|"};
        for (int step = 0; step < 5; ++step)
            words.append(circle(step).value().value_or(QString()));
        return words.join(' ');
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
        double weight;
        int offset, standUps;
        QString shown;
    } kCases[] = {{"de_DE", 71.9, 6200, 3, "71 kg 105 cm 3"}, {"en_US", 71.9, 6200, 3, "158 lb 41.3 in 3"},
        {"en_GB", 71.9, 6200, 3, "71 kg 105 cm 3"}, {"de_DE", 0, 6200, 0, "80 kg 105 cm 1"}, // The defaults.
        {"de_DE", -5, -4309, -2, "80 kg 0 cm 1"}};
    plug();
    for (const auto& row : kCases) {
        platform.bundle.testLocale = QLocale(row.locale);
        properties().setWeight(row.weight);
        store("TablePositionOffset", row.offset);
        store("NumberOfStandUps", row.standUps);
        open();
        EXPECT_EQ(QStringList({weight().text(), find<QLabel>("labelSystemOfUnits").text(), height().text(),
                                  find<QLabel>("labelCm").text(), standUps().text()})
                      .join(' '),
            row.shown);
        dismiss();
    }
}

TEST_F(SetupViewControllerTest, theStoredGoalChoosesTabCirclesAndStep)
{
    const struct {
        int mode;
        double goal;
        const char* shown;
    } kCases[] = {
        {1, 150, "calories | 4 | 2 | 2 | 50 100 150 200 250"}, {2, 40, "time | 1 | 4 | 4 | 10 15 20 30 40"},
        {2, 15.9, "time | 1 | 1 | 1 | 10 15 20 30 40"},
        {1, 0, "calories | 4 | 2 | 2 | 50 100 150 200 250"}, // No goal: the middle.
        {2, 25, "time | 1 | 0 | 0 | 10 15 20 30 40"}, // Not among the goals.
        {1, -1e300, "calories | 4 | 0 | 0 | 50 100 150 200 250"},
        {7, 30, "| 1 | 0 | 0 | 0 0 0 0 0"}, // An unknown mode.
    };
    for (const auto& [mode, storedGoal, shown] : kCases) {
        properties().setActivityMode(mode);
        store("ActivityGoal", storedGoal);
        properties().setActivityGoal(storedGoal);
        open();
        EXPECT_EQ(goal(), shown) << mode << ' ' << storedGoal;
        dismiss();
    }
}

TEST_F(SetupViewControllerTest, theGoalSentenceTellsTheMinutesOfEachStandUp)
{
    const struct {
        const char* tab;
        int step;
        const char* weight;
        const char* standUps;
        const char* minutes; ///< empty: no sentence
    } kCases[] = {
        {"labelTime", 0, "80", "4", "2,5"},
        {"labelTime", 0, "80", "6", "1,5"}, // 1.67, down to a half.
        {"labelTime", 4, "80", "1", "40"},
        {"labelTime", 1, "", "2", "7,5"}, // The weight plays no part.
        {"labelCalories", 0, "80", "1", "7"},
        {"labelCalories", 4, "80", "4", "8"}, // 33 an hour: 8.25.
        {"labelCalories", 0, "999", "6", "0,5"}, // 1 an hour: 0.17.
        {"labelCalories", 2, "0", "1", ""},
        {"labelCalories", 2, "", "1", ""},
        {"labelCalories", 0, "80", "", "7"},
    };
    open();
    for (const auto& row : kCases) {
        SCOPED_TRACE(testing::Message() << row.tab << row.step << ' ' << row.weight << ' ' << row.standUps);
        click(find(row.tab));
        slider().setValue(row.step);
        type(standUps(), row.standUps);
        type(weight(), row.weight);
        if (!*row.standUps)
            type(standUps(), ""); // Leaving the field has filled it.
        EXPECT_EQ(goalSentence(),
            *row.minutes ? QString("That is %1 min on your feet each time you stand up.").arg(row.minutes)
                         : QString());
    }
}

TEST_F(SetupViewControllerTest, tabsCirclesAndSliderFollowEachOther)
{
    open();
    for (const int step : {4, 0, 2, 1, 3}) {
        click(circle(step));
        EXPECT_EQ(goal(), QString("calories | 4 | %1 | %1 | 50 100 150 200 250").arg(step));
    }
    click(find("labelTime"));
    EXPECT_EQ(goal(), "time | 1 | 3 | 3 | 10 15 20 30 40");
    EXPECT_EQ(circle(3).title(), "minutes");
    EXPECT_EQ(find<QLabel>("labelModeTitle").text(), "Minutes to stand each hour");
    EXPECT_TRUE(goalSentence().contains(" 30 min"));
    circle(3).setValue(QStringLiteral("mark"));
    click(find("labelTime")); // Already active: nothing happens.
    EXPECT_EQ(circle(3).value(), QStringLiteral("mark"));
    QTest::keyClick(&find("labelCalories"), Qt::Key_Space);
    EXPECT_EQ(find<QLabel>("labelModeTitle").text(), "Calories to burn by standing each day");
    QTest::keyClick(&slider(), Qt::Key_Right);
    EXPECT_EQ(goal(), "calories | 4 | 4 | 4 | 50 100 150 200 250");
    QTest::mouseClick(&slider(), Qt::LeftButton, Qt::NoModifier, {5, slider().height() / 2});
    EXPECT_EQ(goal(), "calories | 4 | 0 | 0 | 50 100 150 200 250");
    EXPECT_EQ(
        QAccessible::queryAccessibleInterface(&slider())->text(QAccessible::Description), "50 Calories");
}

TEST_F(SetupViewControllerTest, leavingWithoutSavingWritesNothingAndBuildsTheScreenAnew)
{
    plug();
    open();
    type(weight(), "90");
    click(find("labelTime"));
    const QPointer<QWidget> dropped = screen.view();
    click(find("buttonCloseWithoutSaving"));
    EXPECT_EQ(host.dismissed, 1);
    EXPECT_FALSE(screen.isViewLoaded());

    // News that arrives while there is no screen.
    moveDeskTo(4400);
    hid.unplug(adapter);
    EXPECT_TRUE(platform.defaults.writes.isEmpty());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(dropped);
    moveDeskTo(4500);

    plug();
    open();
    EXPECT_EQ(weight().text(), "80");
    EXPECT_TRUE(goal().startsWith("calories | 4"));
    EXPECT_EQ(hub().delegates().size(), 2U); // Each loading registers once more.
    moveDeskTo(4400);
    EXPECT_EQ(height().text(), "106");
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
        QStringList texts;
        const char* before; ///< what is back in the field
        const char* limits;
    } kCases[] = {{weight(), {"1000", "7½", "70 kg"}, "71", "from 0 to 999."},
        {height(), {"2501", "½", ""}, "105", "from 0 to 2500."},
        {standUps(), {"0", "7", "2147483647"}, "3", "from 1 to 6."}};
    const auto& refusal = find<QLabel>("labelRefusal");
    for (const auto& [field, texts, before, limits] : kCases) {
        for (const QString& text : texts) {
            SCOPED_TRACE(qPrintable(text));
            EXPECT_FALSE(refusal.isVisible());
            field.setText(text);
            click(find("buttonDone"));
            EXPECT_TRUE(refusal.isVisible() && refusal.text().contains(limits)) << qPrintable(refusal.text());
            EXPECT_TRUE(refusal.parentWidget()->rect().contains(refusal.geometry()));
            EXPECT_EQ(field.text(), before);
            EXPECT_TRUE(field.hasFocus());
            type(field, before); // The line goes with the next edit.
        }
    }
    height().setText("½");
    click(memoryButton(2)); // This stores the height too.
    EXPECT_TRUE(refusal.isVisible());
    EXPECT_EQ(host.saved, 0);
    EXPECT_TRUE(platform.defaults.writes.isEmpty());

    weight().setText("999");
    height().setText("2500");
    standUps().setText("6");
    click(find("buttonDone"));
    EXPECT_EQ(host.saved, 1);
    EXPECT_EQ(properties().weight(), 999);
    EXPECT_EQ(properties().tablePositionOffset(), 250000 - kHeight);
    EXPECT_EQ(properties().numberOfStandUps(), 6);
}

TEST_F(SetupViewControllerTest, anEmptiedFieldIsRefilledExceptTheHeight)
{
    plug();
    open();
    for (QLineEdit* field : {&weight(), &standUps(), &height()})
        type(*field, "");
    weight().setFocus();
    EXPECT_EQ(weight().text() + ' ' + standUps().text() + ' ' + height().text(), "80 1 ");
    type(height(), "98");
    type(weight(), "");
    QAccessible::queryAccessibleInterface(&find("buttonDone"))
        ->actionInterface()
        ->doAction(QAccessibleActionInterface::pressAction()); // Takes the focus from no field.
    EXPECT_EQ(properties().weight(), 80);
}

TEST_F(SetupViewControllerTest, theHeightFieldFollowsTheDeskAndWithoutOneANoticeAsksForIt)
{
    open();
    QWidget& notice = find("labelConnection");
    const int top = memoryButton(1).y();
    const auto isWithoutDesk = [&] {
        for (int index = 1; index <= 3; ++index)
            EXPECT_NE(memoryButton(index).isEnabled(), notice.isVisible());
        return notice.isVisible();
    };
    EXPECT_TRUE(isWithoutDesk());
    type(height(), "70");
    screen.buttonMemoryClicked(memoryButton(1)); // Saves the offset, opens nothing.
    EXPECT_EQ(properties().tablePositionOffset(), 7000);
    EXPECT_FALSE(window.findChild<QWidget*>("MemoryView"));

    plug();
    QApplication::processEvents();
    EXPECT_FALSE(isWithoutDesk());
    EXPECT_EQ(memoryButton(1).y(), top);
    type(height(), "99");
    moveDeskTo(4400);
    EXPECT_EQ(height().text(), "114");
    // A desk that leaves takes its height along: against no desk, saving it would shift the offset.
    hid.unplug(adapter);
    EXPECT_TRUE(isWithoutDesk());
    EXPECT_EQ(height().text(), "70");
    click(find("buttonDone"));
    EXPECT_EQ(properties().tablePositionOffset(), 7000);
}

TEST_F(SetupViewControllerTest, theMemoryEditorTakesTheButtonsPlaceAndStoresTheHeight)
{
    plug();
    open();
    type(height(), "110");
    for (const int index : {1, 3, 2}) {
        SCOPED_TRACE(index);
        const QRect place = memoryButton(index).geometry();
        enter(memoryButton(index));
        QWidget& editor = openEditor(index);
        EXPECT_EQ(properties().tablePositionOffset(), 6700); // The height that was typed counts at once.
        EXPECT_EQ(editor.geometry(), place);
        for (int other = 1; other <= 3; ++other)
            EXPECT_EQ(memoryButton(other).isHidden(), other == index);
        EXPECT_EQ(window.findChildren<QWidget*>("MemoryView").size(), 1);
        QTest::mousePress(&find("buttonUp"), Qt::LeftButton);
        EXPECT_EQ(heldMovement(), kUp);
        moveDeskTo(uint16_t(5000 + index));
        QTest::mouseRelease(&find("buttonUp"), Qt::LeftButton);
        EXPECT_EQ(lastMovement(), kStop);
        platform.defaults.writes.clear();
        click(in(find("MemoryView"), "buttonDone"));
        EXPECT_EQ(platform.defaults.writes.join(' '), QString("DevicePosition%1").arg(index));
        EXPECT_EQ(platform.defaults.values.value(platform.defaults.writes.join(' ')), 5000 + index); // Raw.
        EXPECT_FALSE(memoryButton(index).isHidden());
        EXPECT_FALSE(window.findChild<QWidget*>("MemoryView"));
        moveDeskTo(kHeight);
    }
}

TEST_F(SetupViewControllerTest, theDeskStopsWhenTheScreenGoesWhileAButtonIsHeld)
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
    auto other = std::make_unique<SetupViewController>(workspace);
    show(*other->view());
    click(in(*other->view(), "buttonMemory1"));
    QTest::mousePress(&in(*other->view(), "buttonDown"), Qt::LeftButton);
    EXPECT_EQ(heldMovement(), kDown);
    other.reset();
    EXPECT_EQ(lastMovement(), kStop);
}

TEST_F(SetupViewControllerTest, everyLabelSaysSomethingAndTheLinksOpen)
{
    open();
    for (const QLabel* label : window.findChildren<QLabel*>()) {
        const bool saysNothing = label->isVisible() && label->text().isEmpty() && label->pixmap().isNull();
        EXPECT_FALSE(saysNothing) << qPrintable(label->objectName());
    }
    for (const char* const link : {"labelMoreInfo", "labelVideoLinkInfo"})
        click(find(link));
    EXPECT_EQ(workspace.opened, (std::vector {properties().infoUrl(), properties().videoUrl()}));
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
