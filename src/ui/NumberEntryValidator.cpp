#include "ui/NumberEntryValidator.h"

QValidator::State NumberEntryValidator::validate(QString& input, int& cursorPosition) const
{
    return m_formatter.isPartialStringValid(input, cursorPosition, {}, 0, nullptr) ? Acceptable : Invalid;
}
