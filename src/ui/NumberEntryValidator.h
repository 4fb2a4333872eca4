#pragma once

#include "data/DecimalFormatter.h"

#include <QValidator>

/// Refuses, keystroke by keystroke, what the number formatter it owns refuses. No message is shown.
class NumberEntryValidator final : public QValidator {
    Q_OBJECT

public:
    using QValidator::QValidator;

    /// Its limits and characters are set here.
    [[nodiscard]] DecimalFormatter& formatter() { return m_formatter; }
    [[nodiscard]] const DecimalFormatter& formatter() const { return m_formatter; }

    [[nodiscard]] State validate(QString& input, int& cursorPosition) const override;

private:
    DecimalFormatter m_formatter;
};
