#include "ui/TextUtilities.h"

#include "fakes/ControlTest.h"
#include "ui/FontAndTextHandler.h"
#include "ui/Palette.h"

#include <QFontMetricsF>
#include <QLabel>
#include <QTextBlock>
#include <QTextDocument>

namespace {
using TextUtilitiesTest = ControlTest;

TEST_F(TextUtilitiesTest, reversedTurnsTheUnitsRound)
{
    EXPECT_EQ(reversed(QString()), QString());
    EXPECT_EQ(reversed(QStringLiteral("desk 12")), QStringLiteral("21 ksed"));
    const QString pair = QString::fromUcs4(U"\U0001F600");
    EXPECT_EQ(reversed(pair), QString(pair[1]) + pair[0]);
}

TEST_F(TextUtilitiesTest, aHyperlinkCarriesAddressColourFontAndUnderline)
{
    QTextDocument document;
    const QString shown = QStringLiteral("E07: <b> & \"hot\" \n");
    const QUrl url(QStringLiteral("https://zelvo.example/?a=1&b=\"2\""));
    document.setHtml(hyperlinkFromString(shown, url));
    EXPECT_EQ(document.toPlainText(), shown);
    const QTextCharFormat format = document.firstBlock().begin().fragment().charFormat();
    EXPECT_EQ(QUrl(format.anchorHref()), url);
    EXPECT_EQ(format.foreground().color(), zelvoHoverColor());
    EXPECT_TRUE(format.fontUnderline());
    EXPECT_EQ(format.font().pixelSize(), 18);
    EXPECT_EQ(format.font().weight(), QFont::Light);
}

TEST_F(TextUtilitiesTest, onlyWrappingLabelsTakeTheBundlesTypefaceAndKeepTheirSize)
{
    QWidget form;
    QFont font(QStringLiteral("Something Else"));
    font.setPixelSize(17);
    QLabel wrapping(&form);
    QLabel single(&form);
    wrapping.setWordWrap(true);
    wrapping.setFont(font);
    single.setFont(font);
    applyTypefaceToWrappingLabels(form);
    EXPECT_EQ(wrapping.font().family(), QStringLiteral("Open Sans"));
    EXPECT_EQ(wrapping.font().pixelSize(), 17);
    EXPECT_EQ(single.font().family(), QStringLiteral("Something Else"));
}

TEST_F(TextUtilitiesTest, eachFaceHasItsWeightAndLightIsNotTheCondensedOne)
{
    const auto width = [](QFont font) {
        font.setPixelSize(200);
        return QFontMetricsF(font).horizontalAdvance(QStringLiteral("Hamburgefonstiv 0123456789"));
    };
    const double roman = width(FontAndTextHandler::Roman18());
    EXPECT_GT(width(FontAndTextHandler::Light18()), 0.93 * roman);
    EXPECT_LT(width(FontAndTextHandler::Light18()), roman);
    EXPECT_GT(width(FontAndTextHandler::Bold15()), 1.02 * roman);
    EXPECT_EQ(FontAndTextHandler::Bold80().pixelSize(), 80);
}
}
