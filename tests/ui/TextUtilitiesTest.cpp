#include "ui/TextUtilities.h"

#include "fakes/ControlTest.h"
#include "ui/FontAndTextHandler.h"
#include "ui/Palette.h"

#include <QLabel>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFragment>

namespace {
using TextUtilitiesTest = ControlTest;
}

TEST_F(TextUtilitiesTest, reversedTurnsTheUnitsRound)
{
    EXPECT_EQ(reversed(QString()), QString());
    EXPECT_EQ(reversed(QStringLiteral("a")), QStringLiteral("a"));
    EXPECT_EQ(reversed(QStringLiteral("desk 12")), QStringLiteral("21 ksed"));
    const QString pair = QString::fromUcs4(U"\U0001F600");
    EXPECT_EQ(reversed(pair), QString(pair[1]) + pair[0]);
}

TEST_F(TextUtilitiesTest, aHyperlinkCarriesAddressColourFontAndUnderline)
{
    QTextDocument document;
    const QString shown = QStringLiteral("E07: <b> & \"hot\"");
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

TEST_F(TextUtilitiesTest, richTextKeepsLineBreaksAndShowsMarkup)
{
    QTextDocument document;
    document.setHtml(richTextFromString(QStringLiteral("Error \n<i>x</i>")));
    EXPECT_EQ(document.toPlainText(), QStringLiteral("Error \n<i>x</i>"));
}

TEST_F(TextUtilitiesTest, onlyWrappingLabelsTakeTheBundlesTypefaceAndKeepTheirSize)
{
    QWidget form;
    QLabel wrapping(&form);
    wrapping.setWordWrap(true);
    QLabel single(&form);
    QFont font(QStringLiteral("Something Else"));
    font.setPixelSize(17);
    wrapping.setFont(font);
    single.setFont(font);
    applyTypefaceToWrappingLabels(form);
    EXPECT_EQ(wrapping.font().family(), QStringLiteral("Open Sans"));
    EXPECT_EQ(wrapping.font().pixelSize(), 17);
    EXPECT_EQ(single.font().family(), QStringLiteral("Something Else"));
}

TEST(TextUtilitiesWithoutTypeface, labelsKeepTheirFont)
{
    QJsonObject information = TestPlatform::defaultInformation();
    information.remove(QStringLiteral("ZelvoFontName"));
    const TestPlatform platform(information);
    AppProperties::resetInstance();
    QWidget form;
    QLabel wrapping(&form);
    wrapping.setWordWrap(true);
    wrapping.setFont(QFont(QStringLiteral("Something Else")));
    applyTypefaceToWrappingLabels(form);
    EXPECT_EQ(wrapping.font().family(), QStringLiteral("Something Else"));
    AppProperties::resetInstance();
}
