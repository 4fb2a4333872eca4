#pragma once

#include <QValidator>

#include <memory>

class DecimalFormatter;

/// Refuses, keystroke by keystroke, what the number formatter it owns refuses. No message is shown.
class NumberEntryValidator final : public QValidator {
    Q_OBJECT

public:
    explicit NumberEntryValidator(QObject* parent = nullptr);
    ~NumberEntryValidator() override;

    /// Its limits and characters are set here.
    [[nodiscard]] DecimalFormatter& formatter() { return *m_formatter; }
    [[nodiscard]] const DecimalFormatter& formatter() const { return *m_formatter; }

    [[nodiscard]] State validate(QString& input, int& cursorPosition) const override;

private:
    std::unique_ptr<DecimalFormatter> m_formatter;
};
