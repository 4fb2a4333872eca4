#include "ui/NumberEntryValidator.h"

#include "data/DecimalFormatter.h"

NumberEntryValidator::NumberEntryValidator(QObject* parent)
    : QValidator(parent)
    , m_formatter(std::make_unique<DecimalFormatter>())
{
}

NumberEntryValidator::~NumberEntryValidator() = default;

QValidator::State NumberEntryValidator::validate(QString& input, int& cursorPosition) const
{
    return m_formatter->isPartialStringValid(input, cursorPosition, {}, 0, nullptr) ? Acceptable : Invalid;
}
