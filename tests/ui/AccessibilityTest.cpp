#include "fakes/ControlTest.h"
#include "ui/BackgroundTextField.h"
#include "ui/ClickableLabel.h"
#include "ui/HoverButton.h"
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

template <typename Control>
std::unique_ptr<QWidget> withText(const char* text)
{
    auto control = std::make_unique<Control>();
    control->setText(QString::fromLatin1(text));
    return control;
}
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
        EXPECT_EQ(interface.role(), testCase.role);
        EXPECT_EQ(interface.text(QAccessible::Name), QString::fromLatin1(testCase.name));
        EXPECT_TRUE(interface.state().focusable);
        EXPECT_TRUE(testCase.control->focusPolicy() & Qt::TabFocus);
        auto* action = interface.actionInterface();
        EXPECT_EQ(action && action->actionNames().contains(QAccessibleActionInterface::pressAction()),
            testCase.isPressable);
        testCase.control->setAccessibleName(QStringLiteral("Another name"));
        EXPECT_EQ(interface.text(QAccessible::Name), QStringLiteral("Another name"));
        testCase.control->setEnabled(false);
        EXPECT_TRUE(interface.state().disabled);
    }
}

TEST_F(AccessibilityTest, aPressFromAScreenReaderClicks)
{
    HoverLink link;
    link.setText(QStringLiteral("More"));
    QSignalSpy clicks(&link, &QPushButton::clicked);
    accessible(link).actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(clicks.count(), 1);
    link.setEnabled(false);
    accessible(link).actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(clicks.count(), 1);
}

TEST_F(AccessibilityTest, aPressFromAScreenReaderNeverHoldsADesksButton)
{
    struct Forbidden final : MouseEventButtonDelegate {
        void mouseEventButtonMouseDown(MouseEventButton&) override { ADD_FAILURE() << "The desk moves."; }
        void mouseEventButtonMouseUp(MouseEventButton&) override { }
    } delegate;
    MouseEventButton button;
    button.setDelegate(&delegate);
    QSignalSpy clicks(&button, &QPushButton::clicked);
    accessible(button).actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(clicks.count(), 0);
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
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier);
    QApplication::sendEvent(&button, &press);
    EXPECT_TRUE(accessible(button).state().pressed);

    StepSlider slider;
    slider.setValue(3);
    EXPECT_EQ(accessible(slider).valueInterface()->currentValue().toInt(), 3);
    EXPECT_EQ(accessible(slider).valueInterface()->maximumValue().toInt(), 4);
}

TEST_F(AccessibilityTest, aTextWithLinksIsReadWithoutItsMarkup)
{
    HyperLinkTextField field;
    field.setText(
        hyperlinkFromString(QStringLiteral("E07: motor"), QUrl(QStringLiteral("https://zelvo.example"))));
    EXPECT_EQ(accessible(field).text(QAccessible::Name), QStringLiteral("E07: motor"));
    EXPECT_EQ(accessible(field).role(), QAccessible::Notification);
}
