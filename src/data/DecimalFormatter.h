#pragma once

#include <QString>
#include <QVariantMap>

#include <limits>
#include <optional>

/// Keeps a field's text to digits and to a range while the user types. The field's value is its text.
class DecimalFormatter {
public:
    [[nodiscard]] double minValue() const { return m_minValue; }
    void setMinValue(double minValue) { m_minValue = minValue; }
    [[nodiscard]] double maxValue() const { return m_maxValue; }
    /// A maximum of 0 or below stands for no upper limit.
    void setMaxValue(double maxValue) { m_maxValue = maxValue; }
    [[nodiscard]] bool acceptComma() const { return m_acceptComma; }
    /// Whether a decimal point is allowed: the full stop in every locale, in spite of the name.
    void setAcceptComma(bool acceptComma) { m_acceptComma = acceptComma; }

    [[nodiscard]] QString stringForObjectValue(const QString& objectValue) const { return objectValue; }
    /// Any text is a value. Always true; no error is ever described.
    bool getObjectValue(QString& objectValue, const QString& forString, QString* /*errorDescription*/) const
    {
        objectValue = forString;
        return true;
    }
    /// There is no form with attributes.
    [[nodiscard]] std::nullopt_t attributedStringForObjectValue(
        const QString& /*objectValue*/, const QVariantMap& /*withDefaultAttributes*/) const
    {
        return std::nullopt;
    }

    /// Whether the text may stand in the field while it is being typed. It is read as a decimal number of the
    /// user's locale; one that is none counts as 0.
    [[nodiscard]] bool isPartialStringValid(const QString& partialString) const;
    /// The same with what an input method tells; the text is never rewritten, no error is ever described.
    [[nodiscard]] bool isPartialStringValid(QString& partialString, int& /*proposedSelectedRange*/,
        const QString& /*originalString*/, int /*originalSelectedRange*/, QString* /*errorDescription*/) const
    {
        return isPartialStringValid(partialString);
    }

private:
    double m_minValue = 0;
    double m_maxValue = std::numeric_limits<double>::max();
    bool m_acceptComma = false;
};
