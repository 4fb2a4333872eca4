#include "fakes/ControlTest.h"
#include "screens/CircleIndicatorView.h"
#include "screens/GoalCircleView.h"
#include "screens/ProgressPie.h"
#include "ui/Palette.h"
#include "ui/Picture.h"

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {
using CircleIndicatorViewTest = ControlTest;

QImage pie(const QSize& size, double percent, double scale)
{
    QImage image((QSizeF(size) * scale).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::white);
    QPainter painter(&image);
    paintPie(painter, QRectF(QPointF(), size), percent, Qt::black);
    return image;
}

/// How much of the pixel at that angle (degrees clockwise from twelve) and radius is filled: 0 to 1.
double coverage(const QImage& image, double radius, double angle)
{
    const double radians = angle * std::numbers::pi / 180;
    const QPointF point = QPointF(100, 100) + radius * QPointF(std::sin(radians), -std::cos(radians));
    const QPointF device = point * image.devicePixelRatio();
    return 1 - image.pixelColor(int(device.x()), int(device.y())).lightnessF();
}

class GoalCircleViewTest : public ControlTest, public GoalCircleViewDelegate {
protected:
    GoalCircleViewTest()
    {
        window.resize(200, 120);
        circle.setGeometry(20, 20, 60, 60);
        circle.setDelegate(this);
        show(window);
    }
    void goalCircleIndicatorViewClicked(GoalCircleView&) override { clicks.append(edited); }
    void expectPicture(const char* name)
    {
        QImage image(60, 60, QImage::Format_RGB32);
        image.fill(kGround);
        QPainter painter(&image);
        Picture(QString(name)).draw(painter, QRectF(0, 0, 60, 60));
        EXPECT_EQ(grab(circle), image) << name;
    }

    QString edited;
    QStringList clicks; ///< for each, what the field had told before
    QWidget window;
    GoalCircleView circle {&window};
    QLineEdit field {&window};
};
}

TEST(ProgressPie, theShareOfTheMiddleLineIsThePercentageAndItGrowsClockwiseFromTwelve)
{
    for (const double percent : {-5.0, 0.0, 1.0, 25.0, 99.5, 100.0, 107.0}) {
        for (const double scale : {1.0, 1.25, 2.0}) {
            SCOPED_TRACE(testing::Message() << percent << " % at scale " << scale);
            const QImage image = pie({201, 260}, percent, scale); // In whole numbers 100 to the centre.
            double filled = 0;
            for (int degree = 0; degree < 360; ++degree) {
                filled += coverage(image, 48.5, degree + 0.5);
                EXPECT_LT(coverage(image, 98.5, degree + 0.5), 0.01);
            }
            EXPECT_NEAR(filled / 360, std::clamp(percent / 100, 0.0, 1.0), 2.0 / 360);
            EXPECT_EQ(coverage(image, 95.5, 1.2) > 0.5, percent > 0) << "just after twelve";
            EXPECT_EQ(coverage(image, 95.5, -0.9) > 0.5, percent >= 100) << "just before twelve";
        }
    }
    EXPECT_EQ(pie({7, 7}, 100, 1), pie({7, 7}, 0, 1));
}

TEST_F(CircleIndicatorViewTest, theLabelsStandWhereTheRulesPutThem)
{
    const struct {
        QSize size;
        double verticalOffset;
        int margin;
        double middle;
        int fontSize;
    } kCases[] = {{{105, 105}, 0, 0, 52.5 - 5, 30}, {{106, 106}, 0, 0, 53 - 7, 42},
        {{200, 100}, 4, 3, 50 - 9, 30}, {{160, 190}, -6, 8, 95 - 1, 42}};
    for (const auto& row : kCases) {
        SCOPED_TRACE(row.middle);
        CircleIndicatorView view;
        view.setVerticalOffset(row.verticalOffset);
        view.setMarginBetweenValueAndTitle(row.margin);
        view.setValue(QStringLiteral("32"));
        view.setTitle("Minutes of standing today in all");
        view.resize(row.size);
        show(view);
        const QRectF value(view.textFieldValue()->geometry());
        const QRectF title(view.textFieldTitle()->geometry());
        const double center = row.size.width() / 2.0;
        EXPECT_NEAR(value.height(), row.fontSize * 1.2, 0.5);
        EXPECT_TRUE(
            std::abs(value.center().x() - center) <= 0.5 && std::abs(title.center().x() - center) <= 0.5);
        EXPECT_NEAR(value.center().y(), row.middle, 0.5);
        EXPECT_EQ(title.top(), value.bottom() + row.margin);
        EXPECT_GE(title.left(), 6);
        const QString shown = view.textFieldTitle()->text();
        EXPECT_TRUE(shown.startsWith("MINU") && shown.endsWith(QChar(0x2026)) == (row.size.width() < 200));
    }
}

TEST_F(CircleIndicatorViewTest, showsItsShareOnAWhiteDiscAndTellsItToScreenReaders)
{
    CircleIndicatorView view;
    view.setPercent(25);
    view.resize(160, 160);
    const QImage ringAlone = grab(view);
    view.setTransparent(true);
    const QImage image = grab(view);
    const double onBand = 0.82 * 80 / std::numbers::sqrt2;
    EXPECT_EQ(colorAt(ringAlone, {80 + onBand, 80 - onBand}), kGround);
    EXPECT_EQ(colorAt(image, {80 + onBand, 80 - onBand}), zelvoHoverColor());
    EXPECT_EQ(colorAt(image, {80 - onBand, 80 - onBand}), QColor(Qt::white));
    const QColor frame = colorAt(image, {80, 3});
    EXPECT_TRUE(frame != QColor(Qt::white) && frame != zelvoHoverColor());

    view.setPercent(66.7);
    view.setAccessibleName("Today");
    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&view);
    EXPECT_EQ(told->text(QAccessible::Name), "Today");
    view.setValue(QStringLiteral("250"));
    EXPECT_EQ(view.textFieldValue()->text(), "250");
    view.setTitle("Calories");
    EXPECT_EQ(view.textFieldTitle()->text(), "CALORIES");
    EXPECT_EQ(told->text(QAccessible::Name), "Today: 250 Calories");
    EXPECT_EQ(told->text(QAccessible::Value), "66 %");
    EXPECT_EQ(told->valueInterface()->currentValue().toDouble(), 66.7);
    EXPECT_EQ(told->valueInterface()->maximumValue().toDouble(), 100);
    EXPECT_TRUE(told->state().readOnly && told->childCount() == 0);
}

TEST_F(GoalCircleViewTest, theStateChoosesThePictureAndActiveWinsOverHover)
{
    expectPicture("GoalCircle");
    enter(circle);
    expectPicture("GoalCircleHover");
    circle.setActive(true);
    expectPicture("GoalCircleActive");
    leave(circle);
    expectPicture("GoalCircleActive");
    circle.setActive(false);
    expectPicture("GoalCircle");
}

TEST_F(GoalCircleViewTest, aClickEndsTextEditingAndSelectsNothingByItself)
{
    QObject::connect(&field, &QLineEdit::editingFinished, [this] { edited = field.text(); });
    field.setFocus();
    QTest::keyClicks(&field, "80");
    QTest::mousePress(&circle, Qt::RightButton);
    QTest::mousePress(&circle, Qt::LeftButton);
    EXPECT_EQ(window.focusWidget(), nullptr);
    circle.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(colorAt(grab(circle), {30, 6}), zelvoHoverColor());
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter, Qt::Key_A})
        QTest::keyClick(&circle, key);
    EXPECT_TRUE(circle.hasFocus() && !circle.active());

    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&circle);
    told->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(clicks.join(' '), "80 80 80 80 80");
}
