#include "ui/TextUtilities.h"

#include "fakes/ControlTest.h"
#include "ui/FontAndTextHandler.h"
#include "ui/FormStyle.h"

#include <QFontMetricsF>
#include <QLabel>
#include <QTextBlock>
#include <QTextDocument>

namespace {
using TextUtilitiesTest = ControlTest;

TEST_F(TextUtilitiesTest, textsAreReversedByUnitAndLinkedAsTheyStand)
{
    const QString pair = QString::fromUcs4(U"\U0001F600");
    EXPECT_EQ(reversed(QStringLiteral("desk ") + pair), QString(pair[1]) + pair[0] + QStringLiteral(" ksed"));

    QTextDocument document;
    const QString shown = QStringLiteral("E07: <b> & \"hot\" \n");
    const QString url = QStringLiteral("https://zelvo.example/?a=1&b=%222%22");
    document.setHtml(hyperlinkFromString(shown, QUrl(url)));
    EXPECT_EQ(document.toPlainText(), shown);
    const QTextCharFormat format = document.firstBlock().begin().fragment().charFormat();
    EXPECT_EQ((QVariantList {format.anchorHref(), format.foreground().color().name(), format.fontUnderline(),
                  format.font().pixelSize(), format.font().weight()}),
        (QVariantList {url, QStringLiteral("#00707a"), true, 18, int(QFont::Light)}));
}

TEST_F(TextUtilitiesTest, onlyWrappingLabelsTakeTheBundlesTypefaceAndKeepTheirSize)
{
    QWidget form;
    QLabel wrapping(&form);
    QLabel single(&form);
    QFont font(QStringLiteral("Something Else"));
    font.setPixelSize(17);
    form.setFont(font);
    wrapping.setWordWrap(true);
    applyFormStyle(form);
    font.setFamily(QStringLiteral("Open Sans"));
    EXPECT_EQ(wrapping.font(), font);
    EXPECT_EQ(single.font(), form.font());
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
}
}
