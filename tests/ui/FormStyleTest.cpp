#include "ui/FormStyle.h"

#include "fakes/ControlTest.h"
#include "ui/FontAndTextHandler.h"

#include <QFontMetricsF>
#include <QLabel>

using FormStyleTest = ControlTest;

TEST_F(FormStyleTest, widgetsWearWhatTheirPropertiesSayAndWrappingLabelsTheBundlesTypeface)
{
    QWidget form;
    QLabel wrapping(&form);
    QLabel styled(&form);
    QLabel plain(&form);
    QFont font(QStringLiteral("Something Else"));
    font.setPixelSize(17);
    form.setFont(font);
    wrapping.setWordWrap(true);
    styled.setWordWrap(true);
    styled.setProperty("textStyle", "Bold80");
    styled.setProperty("foregroundRole", "HighlightedText");
    styled.setProperty("backgroundRole", "Highlight");
    applyFormStyle(form);
    EXPECT_EQ(plain.font(), font);
    EXPECT_EQ(plain.foregroundRole(), QPalette::WindowText);
    font.setFamily(QStringLiteral("Open Sans"));
    EXPECT_EQ(wrapping.font(), font);
    EXPECT_EQ(styled.font(), FontAndTextHandler::Bold80());
    EXPECT_EQ(styled.font().pixelSize(), 80);
    EXPECT_EQ(styled.foregroundRole(), QPalette::HighlightedText);
    EXPECT_EQ(styled.backgroundRole(), QPalette::Highlight);
}

TEST_F(FormStyleTest, eachFaceHasItsWeightAndLightIsNotTheCondensedOne)
{
    const auto width = [](QFont font) {
        font.setPixelSize(200);
        return QFontMetricsF(font).horizontalAdvance(QStringLiteral("Hamburgefonstiv 0123456789"));
    };
    const double roman = width(FontAndTextHandler::Roman18());
    EXPECT_GT(width(FontAndTextHandler::Light18()), 0.93 * roman);
    EXPECT_LT(width(FontAndTextHandler::Light18()), roman);
    EXPECT_GT(width(FontAndTextHandler::Bold15()), 1.02 * roman);
}
