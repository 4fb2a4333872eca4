#include "ui/TextUtilities.h"

#include "ui/FontAndTextHandler.h"
#include "ui/Palette.h"

#include <QLineEdit>

#include <algorithm>

QString reversed(const QString& string)
{
    QString result = string;
    std::reverse(result.begin(), result.end());
    return result;
}

QString hyperlinkFromString(const QString& string, const QUrl& url)
{
    const QFont font = FontAndTextHandler::Light18();
    return QStringLiteral(
        "<a href=\"%1\" style=\"color:%2; font-family:'%3'; font-size:%4px; font-weight:%5; "
        "text-decoration:underline\">%6</a>")
        .arg(url.toString(QUrl::FullyEncoded).toHtmlEscaped(), hexadecimalValue(zelvoHoverColor()),
            font.family(), QString::number(font.pixelSize()), QString::number(font.weight()),
            richTextFromString(string));
}

QString richTextFromString(const QString& string)
{
    return string.toHtmlEscaped().replace(QLatin1Char('\n'), QLatin1String("<br>"));
}

void setVerticalCentering(QLineEdit& field, bool centered)
{
    field.setAlignment(
        (field.alignment() & Qt::AlignHorizontal_Mask) | (centered ? Qt::AlignVCenter : Qt::AlignTop));
}
