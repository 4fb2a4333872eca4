#include "fakes/ControlTest.h"
#include "ui/CardView.h"
#include "ui/HorizontalRuleView.h"
#include "ui/PictureView.h"
#include "ui/TransparentView.h"
#include "ui/VerticalRuleView.h"

namespace {
using StrokeViewTest = ControlTest;

TEST_F(StrokeViewTest, eachViewPaintsItsOwnAndARuleIsAsThinAsItsLayoutLetsIt)
{
    StrokeView turned; // Upright and back again.
    turned.setHorizontal(false);
    turned.setHorizontal(true);
    HorizontalRuleView horizontal;
    VerticalRuleView vertical;
    CardView card;
    PictureView picture;
    picture.setPictureNamed(QStringLiteral("SetupTextField"));
    TransparentView nothing;
    const auto at = [](const QImage& image, QPoint point) { return image.pixelColor(point).name() + u' '; };
    QStringList seen;
    for (QWidget* const view :
        std::initializer_list<QWidget*> {&turned, &horizontal, &vertical, &card, &picture, &nothing}) {
        view->resize(40, 30);
        const QImage image = grab(*view);
        const QSizePolicy policy = view->sizePolicy();
        seen << at(image, {0, 0}) + at(image, {2, 1}) + at(image, {0, 15}) + at(image, {39, 15})
                + QStringLiteral("%1x%2 %3 %4")
                      .arg(view->sizeHint().width())
                      .arg(view->minimumSizeHint().height())
                      .arg(policy.horizontalPolicy() == QSizePolicy::Fixed)
                      .arg(policy.verticalPolicy() == QSizePolicy::Fixed);
    }
    EXPECT_EQ(seen,
        (QStringList {
            QStringLiteral("#b0b0b0 #b0b0b0 #b0b0b0 #b0b0b0 1x1 0 1"),
            QStringLiteral("#b0b0b0 #b0b0b0 #b0b0b0 #b0b0b0 1x1 0 1"),
            QStringLiteral("#b0b0b0 #b0b0b0 #b0b0b0 #b0b0b0 1x1 1 0"),
            QStringLiteral("#ff00ff #40549b #00707a #00707a -1x-1 0 0"), // Round, and smooth at its corners.
            QStringLiteral("#b42bc0 #4f646b #4f646b #4f646b -1x-1 0 0"),
            QStringLiteral("#ff00ff #ff00ff #ff00ff #ff00ff -1x-1 0 0"),
        }));
}
}
