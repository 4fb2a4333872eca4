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
#include <QSignalSpy>

namespace {
using AccessibilityTest = ControlTest;

QAccessibleInterface& accessible(QWidget& widget)
{
    return *QAccessible::queryAccessibleInterface(&widget);
}

void press(QWidget& widget)
{
    accessible(widget).actionInterface()->doAction(QAccessibleActionInterface::pressAction());
}

template <typename Control>
std::unique_ptr<QWidget> withText(const char* text)
{
    auto control = std::make_unique<Control>();
    control->setText(QString::fromLatin1(text));
    return control;
}

TEST_F(AccessibilityTest, everyControlTellsItsRoleAndNameAndCanTakeTheFocus)
{
    const struct {
        std::unique_ptr<QWidget> control;
        QAccessible::Role role;
        const char* name;
        bool isPressable;
    } kTestCases[] = {
        {withText<HoverButton>("   Done"), QAccessible::Button, "Done", true},
        {withText<HoverUnderlineButton>("Week"), QAccessible::Button, "Week", true},
        {withText<HoverLink>("Export"), QAccessible::Link, "Export", true},
        {withText<MouseEventButton>("Up"), QAccessible::Button, "Up", false},
        {withText<ClickableLabel>("Calories"), QAccessible::PageTab, "Calories", true},
        {withText<BackgroundTextField>("72"), QAccessible::EditableText, "", false},
        {std::make_unique<StepSlider>(), QAccessible::Slider, "", false},
    };
    for (const auto& testCase : kTestCases) {
        SCOPED_TRACE(testCase.control->metaObject()->className());
        QAccessibleInterface& interface = accessible(*testCase.control);
        auto* action = interface.actionInterface();
        const auto canBePressed = [&] {
            return action && action->actionNames().contains(QAccessibleActionInterface::pressAction());
        };
        EXPECT_EQ(interface.role(), testCase.role);
        EXPECT_EQ(interface.state().linked, testCase.role == QAccessible::Link);
        EXPECT_EQ(interface.text(QAccessible::Name), QString::fromLatin1(testCase.name));
        EXPECT_TRUE(testCase.control->focusPolicy() & Qt::TabFocus);
        EXPECT_EQ(canBePressed(), testCase.isPressable);
        testCase.control->setAccessibleName(QStringLiteral("Another name"));
        EXPECT_EQ(interface.text(QAccessible::Name), QStringLiteral("Another name"));
        testCase.control->setEnabled(false);
        EXPECT_FALSE(canBePressed());
    }
}

TEST_F(AccessibilityTest, aPressFromAScreenReaderClicksButNeverHoldsADesksButton)
{
    HoverLink link;
    MouseEventButton desk;
    QSignalSpy clicks(&link, &QPushButton::clicked);
    QSignalSpy holds(&desk, &QPushButton::pressed);
    press(link);
    press(desk);
    EXPECT_EQ(clicks.count(), 1);
    EXPECT_FALSE(desk.isDown());
    link.setEnabled(false);
    press(link);
    EXPECT_EQ(clicks.count(), 1);

    struct Recorder final : ClickableLabelDelegate {
        int clicks = 0;
        void clickableLabelClicked(ClickableLabel&) override { ++clicks; }
    } recorder;
    ClickableLabel tab;
    tab.setDelegateClick(&recorder);
    press(tab);
    EXPECT_EQ(recorder.clicks, 1);
}

TEST_F(AccessibilityTest, statesFollowTheControls)
{
    ClickableLabel tab;
    EXPECT_TRUE(accessible(tab).state().selectable);
    EXPECT_FALSE(accessible(tab).state().selected);
    tab.setActive(true);
    EXPECT_TRUE(accessible(tab).state().selected);

    MouseEventButton button;
    EXPECT_FALSE(accessible(button).state().pressed);
    QKeyEvent key(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier);
    QApplication::sendEvent(&button, &key);
    EXPECT_TRUE(accessible(button).state().pressed);

    HyperLinkTextField field;
    field.setText(
        hyperlinkFromString(QStringLiteral("E07: motor"), QUrl(QStringLiteral("https://zelvo.example"))));
    EXPECT_EQ(accessible(field).text(QAccessible::Name), QStringLiteral("E07: motor"));
}
}
