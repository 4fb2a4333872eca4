#include "data/DecimalFormatter.h"

#include "data/IcuLocale.h"
#include "platform/Bundle.h"

#include <QChar>

#include <algorithm>
#include <memory>
#include <unicode/numfmt.h>

namespace {
double parsedNumber(const QString& text)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::NumberFormat> format(
        icu::NumberFormat::createInstance(icuLocale(Bundle::main().locale().name()), UNUM_DECIMAL, status));
    const icu::UnicodeString characters(text.utf16(), int32_t(text.size()));
    icu::Formattable number;
    icu::ParsePosition position;
    format->parse(characters, number, position);
    // A number with something behind it is none.
    return position.getIndex() == characters.length() ? number.getDouble(status) : 0;
}
}

bool DecimalFormatter::isPartialStringValid(const QString& partialString) const
{
    if (partialString.isEmpty())
        return true;
    const auto isAllowed = [this](char32_t character) {
        return m_acceptComma ? (character >= U'0' && character <= U'9') || character == U'.'
                             : QChar::isDigit(character);
    };
    const auto characters = partialString.toUcs4();
    if (!std::all_of(characters.begin(), characters.end(), isAllowed))
        return false;
    const double value = parsedNumber(partialString);
    return value >= m_minValue && (m_maxValue <= 0 || value <= m_maxValue);
}
