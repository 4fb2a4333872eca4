#include "ui/ClickableLabel.h"

#include "fakes/ControlTest.h"
#include "ui/FontAndTextHandler.h"
#include "ui/Palette.h"

#include <QAccessible>

using ClickableLabelTest = ControlTest;

TEST_F(ClickableLabelTest, theStateDecidesFontAndColourAndTheSizeAllowsForBoth)
{
    ClickableLabel label;
    applyWindowPalette(label);
    label.setText(QStringLiteral("Calories"));
    const QSize size = label.sizeHint();
    label.resize(160, 40);
    for (const bool active : {true, false}) {
        enter(label);
        EXPECT_TRUE(label.font().underline());
        label.toggleActive();
        EXPECT_EQ(label.font(), active ? FontAndTextHandler::Bold22() : FontAndTextHandler::Roman22());
        const QColor color = active ? zelvoHoverColor() : zelvoTextColor();
        const QRect text = boxOf(grab(label), [&](const QColor& pixel) { return pixel == color; });
        EXPECT_NEAR(text.center().x(), 80, 2);
        EXPECT_GT(text.width(), 70);
        EXPECT_EQ(label.sizeHint(), size);
        EXPECT_EQ(QAccessible::queryAccessibleInterface(&label)->state().selected, active);
        leave(label);
        EXPECT_FALSE(label.font().underline());
    }
    label.toggleActive();
    const int bold = label.fontMetrics().horizontalAdvance(label.text());
    EXPECT_EQ(size, (QSize {bold + 12, label.fontMetrics().height() + 8}));
    EXPECT_LT(label.minimumSizeHint().width(), size.width() * 2 / 3);

    label.setText(QStringLiteral("Kalorien"));
    EXPECT_EQ(label.originalAttribuedString(), QStringLiteral("Calories"));
}
