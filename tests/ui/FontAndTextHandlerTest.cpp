#include "ui/FontAndTextHandler.h"

#include <QFontInfo>
#include <QFontMetricsF>

#include <gtest/gtest.h>

TEST(FontAndTextHandler, facesHaveTheirWeightAndTheirSizeInLogicalPixels)
{
    using F = FontAndTextHandler;
    const struct {
        QFont font;
        int pixelSize;
        QFont::Weight weight;
    } kTestCases[] = {
        {F::Light7(), 7, QFont::Light},
        {F::Light10(), 10, QFont::Light},
        {F::Light11(), 11, QFont::Light},
        {F::Light12(), 12, QFont::Light},
        {F::Light14(), 14, QFont::Light},
        {F::Light15(), 15, QFont::Light},
        {F::Light16(), 16, QFont::Light},
        {F::Light18(), 18, QFont::Light},
        {F::Roman12(), 12, QFont::Normal},
        {F::Roman14(), 14, QFont::Normal},
        {F::Roman15(), 15, QFont::Normal},
        {F::Roman18(), 18, QFont::Normal},
        {F::Roman20(), 20, QFont::Normal},
        {F::Roman22(), 22, QFont::Normal},
        {F::Roman23(), 23, QFont::Normal},
        {F::Roman30(), 30, QFont::Normal},
        {F::Roman38(), 38, QFont::Normal},
        {F::Roman40(), 40, QFont::Normal},
        {F::Roman42(), 42, QFont::Normal},
        {F::Roman48(), 48, QFont::Normal},
        {F::Bold15(), 15, QFont::Bold},
        {F::Bold22(), 22, QFont::Bold},
        {F::Bold80(), 80, QFont::Bold},
    };
    for (const auto& testCase : kTestCases) {
        SCOPED_TRACE(testing::Message() << testCase.pixelSize << " at weight " << int(testCase.weight));
        EXPECT_EQ(testCase.font.pixelSize(), testCase.pixelSize);
        EXPECT_EQ(QFontInfo(testCase.font).pixelSize(), testCase.pixelSize);
        EXPECT_EQ(QFontInfo(testCase.font).weight(), testCase.weight);
    }
}

TEST(FontAndTextHandler, lightIsNotTheCondensedFaceOfTheSameFamily)
{
    const QString sample = QStringLiteral("Hamburgefonstiv 0123456789");
    QFont light = FontAndTextHandler::Light18();
    light.setPixelSize(200);
    QFont roman = FontAndTextHandler::Roman18();
    roman.setPixelSize(200);
    const double lightWidth = QFontMetricsF(light).horizontalAdvance(sample);
    const double romanWidth = QFontMetricsF(roman).horizontalAdvance(sample);
    EXPECT_GT(lightWidth, 0.93 * romanWidth);
    EXPECT_LT(lightWidth, romanWidth);
}
