#include "fakes/ControlTest.h"
#include "ui/BackgroundTextField.h"
#include "ui/ClickableLabel.h"
#include "ui/HoverLink.h"
#include "ui/HoverUnderlineButton.h"
#include "ui/HyperLinkTextField.h"
#include "ui/MouseEventButton.h"
#include "ui/StepSlider.h"
#include "ui/TextUtilities.h"

#include <QAccessible>

namespace {
using AccessibilityTest = ControlTest;

TEST_F(AccessibilityTest, everyControlTellsWhatItIsAndAPressClicksButNeverHoldsADesksButton)
{
    struct Recorder final : ClickableLabelDelegate {
        int clicks = 0;
        void clickableLabelClicked(ClickableLabel&) override { ++clicks; }
    } recorder;
    const QString press = QAccessibleActionInterface::pressAction();
    const auto expectPressable = [&](QWidget& control, bool isPressable) {
        auto* const action = QAccessible::queryAccessibleInterface(&control)->actionInterface();
        EXPECT_EQ(action && action->actionNames().contains(press), isPressable);
        recorder.clicks = 0;
        if (action)
            action->doAction(press);
        EXPECT_EQ(recorder.clicks, isPressable);
    };
    HoverButton button;
    HoverUnderlineButton week;
    HoverLink link;
    MouseEventButton desk;
    ClickableLabel tab;
    BackgroundTextField field;
    StepSlider slider;
    button.setText(QStringLiteral("   Done"));
    tab.setText(QStringLiteral("Calories"));
    tab.setDelegateClick(&recorder);
    for (QPushButton* const each : std::initializer_list<QPushButton*> {&button, &week, &link, &desk})
        QObject::connect(each, &QPushButton::clicked, each, [&] { ++recorder.clicks; });
    const struct {
        QWidget& control;
        QAccessible::Role role;
        const char* name;
        bool isPressable;
    } kTestCases[] = {
        {button, QAccessible::Button, "Done", true},
        {week, QAccessible::Button, "", true},
        {link, QAccessible::Link, "", true},
        {desk, QAccessible::Button, "", false},
        {tab, QAccessible::PageTab, "Calories", true},
        {field, QAccessible::EditableText, "", false},
        {slider, QAccessible::Slider, "", false},
    };
    for (const auto& row : kTestCases) {
        SCOPED_TRACE(row.control.metaObject()->className());
        QAccessibleInterface& interface = *QAccessible::queryAccessibleInterface(&row.control);
        EXPECT_EQ(interface.role(), row.role);
        EXPECT_EQ(interface.state().linked, row.role == QAccessible::Link);
        EXPECT_EQ(interface.text(QAccessible::Name), QString::fromLatin1(row.name));
        EXPECT_TRUE(row.control.focusPolicy() & Qt::TabFocus);
        expectPressable(row.control, row.isPressable);
        row.control.setAccessibleName(QStringLiteral("Another name"));
        EXPECT_EQ(interface.text(QAccessible::Name), QStringLiteral("Another name"));
        row.control.setEnabled(false);
        expectPressable(row.control, false);
    }
}

TEST_F(AccessibilityTest, statesFollowTheControls)
{
    ClickableLabel tab;
    MouseEventButton button;
    HyperLinkTextField field;
    const auto accessible = [](QWidget& widget) { return QAccessible::queryAccessibleInterface(&widget); };
    for (const bool isOn : {false, true}) {
        tab.setActive(isOn);
        button.setDown(isOn);
        EXPECT_TRUE(accessible(tab)->state().selectable);
        EXPECT_EQ(accessible(tab)->state().selected, isOn);
        EXPECT_EQ(accessible(button)->state().pressed, isOn);
    }
    field.setText(
        hyperlinkFromString(QStringLiteral("E07: motor"), QUrl(QStringLiteral("https://zelvo.example"))));
    EXPECT_EQ(accessible(field)->text(QAccessible::Name), QStringLiteral("E07: motor"));
}
}
