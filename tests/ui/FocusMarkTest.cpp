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
    const QColor ring(0x00, 0x70, 0x7A);
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
        EXPECT_EQ(boxOf(marked, [&](const QColor& pixel) { return pixel == ring; }), control->rect());
        // Two pixels, and a light line within, to be seen on any ground.
        EXPECT_EQ(marked.pixelColor(1, 20), ring);
        EXPECT_GT(marked.pixelColor(2, 20).green(), 200);
        EXPECT_NE(marked.pixelColor(3, 20), ring);
        QApplication::setActiveWindow(nullptr);
        EXPECT_EQ(grab(*control), plain);
        QApplication::setActiveWindow(control);
        EXPECT_EQ(grab(*control), marked);
        control->hide();
    }
}
}
