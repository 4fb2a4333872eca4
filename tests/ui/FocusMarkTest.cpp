#include "ui/FocusMark.h"

#include "fakes/ControlTest.h"
#include "ui/BackgroundTextField.h"
#include "ui/Button.h"
#include "ui/ClickableLabel.h"
#include "ui/StepSlider.h"

namespace {
using FocusMarkTest = ControlTest;

TEST_F(FocusMarkTest, onlyTheKeyboardsFocusIsMarkedAndTheMarkComesBackWithTheWindow)
{
    Button button;
    ClickableLabel label;
    StepSlider slider;
    BackgroundTextField field;
    field.setInsertionPointColor(Qt::transparent);
    for (QWidget* const control : std::initializer_list<QWidget*> {&button, &label, &slider, &field}) {
        SCOPED_TRACE(control->metaObject()->className());
        control->resize(100, 40);
        show(*control);
        control->clearFocus();
        const QImage plain = grab(*control);
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
}
