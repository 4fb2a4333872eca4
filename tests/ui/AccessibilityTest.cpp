#include "fakes/ControlTest.h"
#include "ui/ClickableLabel.h"
#include "ui/HoverLink.h"
#include "ui/MouseEventButton.h"

#include <QAccessible>

namespace {
using AccessibilityTest = ControlTest;

TEST_F(AccessibilityTest, aPressThatIsAskedForClicksButNeverHoldsADesksButton)
{
    struct Recorder final : ClickableLabelDelegate {
        int clicks = 0;
        void clickableLabelClicked(ClickableLabel&) override { ++clicks; }
    } recorder;
    HoverButton button;
    HoverLink link;
    ClickableLabel tab;
    MouseEventButton desk;
    tab.setDelegateClick(&recorder);
    for (QPushButton* const each : std::initializer_list<QPushButton*> {&button, &link, &desk})
        QObject::connect(each, &QPushButton::clicked, each, [&] { ++recorder.clicks; });
    const QString press = QAccessibleActionInterface::pressAction();
    for (QWidget* const control : std::initializer_list<QWidget*> {&button, &link, &tab, &desk}) {
        for (const bool isEnabled : {true, false}) {
            SCOPED_TRACE(control->metaObject()->className());
            control->setEnabled(isEnabled);
            auto* const action = QAccessible::queryAccessibleInterface(control)->actionInterface();
            const bool isPressable = isEnabled && control != &desk;
            EXPECT_EQ(action && action->actionNames().contains(press), isPressable);
            recorder.clicks = 0;
            if (action)
                action->doAction(press);
            EXPECT_EQ(recorder.clicks, isPressable);
        }
    }
}
}
