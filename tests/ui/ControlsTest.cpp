#include "fakes/ControlTest.h"
#include "ui/BackgroundTextField.h"
#include "ui/ChoiceBox.h"
#include "ui/ClickableLabel.h"
#include "ui/Dissolve.h"
#include "ui/HoverLink.h"
#include "ui/HoverUnderlineButton.h"
#include "ui/Motion.h"
#include "ui/MouseEventButton.h"
#include "ui/StepSlider.h"

#include <QAccessible>
#include <QTest>

namespace {
/// A control of each kind.
class ControlsTest : public ControlTest, public ClickableLabelDelegate {
protected:
    ControlsTest()
    {
        for (QPushButton* each : std::initializer_list<QPushButton*> {&button, &link, &underlined, &desk}) {
            each->setText(QStringLiteral("Calories"));
            QObject::connect(each, &QPushButton::clicked, each, [this] { ++clicks; });
        }
        tab.setText(QStringLiteral("Calories"));
        tab.setDelegateClick(this);
        field.setInsertionPointColor(Qt::transparent);
    }
    void clickableLabelClicked(ClickableLabel&) override { ++clicks; }

    int clicks = 0;
    HoverButton button;
    HoverLink link;
    HoverUnderlineButton underlined;
    ClickableLabel tab;
    MouseEventButton desk;
    StepSlider slider;
    BackgroundTextField field;
    ChoiceBox box;
};
}

TEST_F(ControlsTest, aPressThatIsAskedForClicksUnlessDisabledAndNeverHoldsADesksButton)
{
    const QString press = QAccessibleActionInterface::pressAction();
    QString told;
    for (QWidget* const control : std::initializer_list<QWidget*> {&button, &link, &tab, &desk}) {
        for (const bool isEnabled : {true, false}) {
            control->setEnabled(isEnabled);
            auto* const spoken = QAccessible::queryAccessibleInterface(control);
            spoken->actionInterface()->doAction(press);
            told += QString::number(std::exchange(clicks, 0))
                + (spoken->actionInterface()->actionNames().contains(press) ? "press " : " ")
                + (spoken->state().linked ? "linked " : "") + (spoken->state().selectable ? "tab " : "");
        }
    }
    EXPECT_EQ(told, QStringLiteral("1press 0 1press linked 0 linked 1press tab 0 tab 0 0 "));
    enter(link);
    EXPECT_EQ(link.textColor(), link.palette().color(QPalette::LinkVisited));
    for (QPushButton* const pressed : std::initializer_list<QPushButton*> {&link, &underlined}) {
        pressed->setDown(true);
        EXPECT_EQ(grab(*pressed).pixelColor(1, 20), QColor(255, 0, 255)) << "no box behind a link";
    }
    button.setDown(true);
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(&button)->state().pressed);

    underlined.setCheckable(true);
    underlined.click();
    auto* const choice = QAccessible::queryAccessibleInterface(&underlined);
    EXPECT_TRUE(choice->role() == QAccessible::RadioButton && choice->state().checkable);
    EXPECT_FALSE(choice->state().checked) << "it chooses nothing by itself";
    underlined.setChecked(true);
    EXPECT_TRUE(choice->state().checked);
}

TEST_F(ControlsTest, theMouseAndTheKeyboardsFocusShowAndTheMarkComesBackWithTheWindow)
{
    for (QWidget* const control :
        std::initializer_list<QWidget*> {&button, &link, &underlined, &tab, &slider, &field, &box}) {
        SCOPED_TRACE(control->metaObject()->className());
        control->resize(100, 40);
        show(*control);
        control->clearFocus();
        leave(*control);
        const QImage plain = grab(*control);
        enter(*control);
        EXPECT_EQ(grab(*control) != plain, control != &slider && control != &field && control != &box);
        leave(*control);
        control->setFocus(Qt::MouseFocusReason);
        EXPECT_EQ(grab(*control), plain);
        for (const auto reason : {Qt::ShortcutFocusReason, Qt::BacktabFocusReason, Qt::TabFocusReason}) {
            control->clearFocus();
            control->setFocus(reason);
            EXPECT_NE(grab(*control), plain);
        }
        const QImage marked = grab(*control);
        QApplication::setActiveWindow(nullptr);
        EXPECT_EQ(grab(*control), plain);
        QApplication::setActiveWindow(control);
        EXPECT_EQ(grab(*control), marked);
        control->hide();
    }
}

TEST_F(ControlsTest, aTabIsClickedByItsReleaseInsideAndAsLargeInBothStates)
{
    const QSize size = tab.sizeHint();
    tab.resize(size);
    for (const auto& [which, place, expected] : {std::tuple(Qt::LeftButton, QPoint(9, 9), 1),
             {Qt::RightButton, {9, 9}, 0}, {Qt::LeftButton, {9, 99}, 0}}) {
        QTest::mousePress(&tab, which, {}, {9, 9});
        EXPECT_EQ(clicks, 0);
        QTest::mouseRelease(&tab, which, {}, place);
        EXPECT_EQ(std::exchange(clicks, 0), expected);
    }
    for (const auto key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter, Qt::Key_A})
        QTest::keyClick(&tab, key);
    EXPECT_EQ(clicks, 3);
    tab.toggleActive();
    EXPECT_EQ(tab.sizeHint(), size);
    EXPECT_LT(tab.minimumSizeHint().width(), size.width() * 2 / 3);
}

TEST_F(ControlsTest, aChangeDissolvesInItsTimeUnlessMotionIsReducedOrNothingIsSeen)
{
    QWidget window;
    window.setAutoFillBackground(true);
    QList<int> seen;
    for (const auto& [isShown, isReduced, look] :
        {std::tuple(false, false, Qt::black), {true, true, Qt::white}, {true, false, Qt::black}}) {
        window.setVisible(isShown);
        Motion::setReduced(isReduced);
        dissolve(window, [&window, look = look] { window.setPalette(look); });
        for (int frame = 0; frame < 4; ++frame, platform.runLoop.advance(0.04))
            seen << grab(window).pixelColor(600, 400).lightness() / 10;
    }
    EXPECT_EQ(seen, (QList<int> {0, 0, 0, 0, 25, 25, 25, 25, 25, 16, 8, 0}));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(window.children().isEmpty() && platform.runLoop.pendingTimerCount() == 0);
    Motion::setReduced(false);
}
