#include "screens/EntryNumber.h"

#include "data/Saturation.h"

#include <QChar>
#include <QList>

namespace {
/// The leading number in ASCII digits, which Qt reads alike in every locale.
QString leadingNumber(const QString& text, bool takesDecimals)
{
    QString number;
    bool hasPoint = false;
    const auto characters = text.trimmed().toUcs4();
    for (const char32_t character : characters) {
        const int digit = QChar::isDigit(character) ? QChar::digitValue(character) : -1; // "²" is none.
        const bool isPoint = character == U'.' && takesDecimals && !hasPoint;
        if (digit < 0 && !isPoint)
            break;
        hasPoint = hasPoint || isPoint;
        number += isPoint ? QLatin1Char('.') : QLatin1Char(char('0' + digit));
    }
    return number;
}
}

int32_t integerValue(const QString& text)
{
    // Endless for hundreds of digits; those saturate as well.
    return saturated<int32_t>(leadingNumber(text, false).toDouble());
}

double decimalValue(const QString& text)
{
    return leadingNumber(text, true).toDouble();
}
