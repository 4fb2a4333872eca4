#include "fakes/ControlTest.h"
#include "ui/CardView.h"
#include "ui/HorizontalRuleView.h"
#include "ui/Palette.h"
#include "ui/PictureView.h"
#include "ui/TransparentView.h"
#include "ui/VerticalRuleView.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace {
using StrokeViewTest = ControlTest;

TEST_F(StrokeViewTest, aRuleIsOnePixelThickAcrossItsLayout)
{
    EXPECT_TRUE(StrokeView().horizontal());
    QWidget window;
    QVBoxLayout column(&window);
    column.setContentsMargins(0, 0, 0, 0);
    QHBoxLayout row;
    HorizontalRuleView horizontal;
    VerticalRuleView vertical;
    column.addWidget(&horizontal);
    row.addStretch();
    row.addWidget(&vertical);
    column.addLayout(&row, 1);
    window.resize(200, 100);
    show(window);
    EXPECT_EQ(horizontal.size(), QSize(200, 1));
    EXPECT_EQ(vertical.width(), 1);
    EXPECT_GT(vertical.height(), 50);
    EXPECT_EQ(grab(horizontal).pixelColor(100, 0), zelvoMainLineColor());
    EXPECT_EQ(grab(vertical).pixelColor(0, 10), zelvoMainLineColor());
}

TEST_F(StrokeViewTest, aCardIsRoundAndATransparentViewIsNotThere)
{
    CardView card;
    PictureView picture;
    TransparentView nothing;
    picture.setPicture(Picture(QStringLiteral("SetupTextField")));
    const auto painted = [&](QWidget& view) {
        view.resize(40, 30);
        return boxOf(grab(view), [](const QColor& pixel) { return pixel != kGround; });
    };
    EXPECT_EQ(painted(card), QRect(0, 0, 40, 30));
    EXPECT_EQ(grab(card).pixelColor(0, 0), kGround);
    EXPECT_EQ(grab(card).pixelColor(0, 15), zelvoHoverColor());
    EXPECT_EQ(painted(picture), QRect(0, 0, 40, 30));
    EXPECT_TRUE(painted(nothing).isEmpty());
}
}
