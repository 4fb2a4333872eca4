#include "ui/StrokeView.h"

#include "fakes/ControlTest.h"
#include "ui/HorizontalRuleView.h"
#include "ui/Palette.h"
#include "ui/TransparentView.h"
#include "ui/VerticalRuleView.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace {
using StrokeViewTest = ControlTest;
}

TEST_F(StrokeViewTest, aPlainRuleIsHorizontalAndTheOthersAreWhatTheirNamesSay)
{
    EXPECT_TRUE(StrokeView().horizontal());
    EXPECT_TRUE(HorizontalRuleView().horizontal());
    EXPECT_FALSE(VerticalRuleView().horizontal());
}

TEST_F(StrokeViewTest, aRuleIsOnePixelThickAcrossItsLayout)
{
    QWidget window;
    QVBoxLayout column(&window);
    column.setContentsMargins(0, 0, 0, 0);
    HorizontalRuleView horizontal;
    column.addStretch();
    column.addWidget(&horizontal);
    QHBoxLayout row;
    VerticalRuleView vertical;
    row.addStretch();
    row.addWidget(&vertical);
    column.addLayout(&row, 1);
    window.resize(200, 100);
    show(window);
    EXPECT_EQ(horizontal.size(), QSize(200, 1));
    EXPECT_EQ(vertical.width(), 1);
    EXPECT_GT(vertical.height(), 20);
    for (const double scale : {1.0, 2.0})
        EXPECT_EQ(colorAt(grab(horizontal, scale), {100, 0}), zelvoMainLineColor());
    EXPECT_EQ(colorAt(grab(vertical), {0, 10}), zelvoMainLineColor());
}

TEST_F(StrokeViewTest, aTransparentViewShowsWhatLiesBehind)
{
    QWidget window;
    window.resize(40, 40);
    QPalette palette;
    palette.setColor(QPalette::Window, Qt::red);
    window.setPalette(palette);
    TransparentView view(&window);
    view.resize(40, 40);
    show(window);
    EXPECT_EQ(window.grab().toImage().pixelColor(20, 20), QColor(Qt::red));
}
