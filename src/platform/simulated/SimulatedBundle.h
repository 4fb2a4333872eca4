#pragma once

#include "platform/Bundle.h"

/// A bundle for a user of any country.
class SimulatedBundle final : public Bundle {
public:
    using Bundle::Bundle;

    QLocale userLocale = QLocale(QStringLiteral("de_DE"));
    QString userCalendar; ///< an ICU name for what a QLocale cannot say; empty: userLocale's

    [[nodiscard]] QLocale locale() const override { return userLocale; }
    [[nodiscard]] QString calendarLocaleName() const override
    {
        return userCalendar.isEmpty() ? userLocale.name() : userCalendar;
    }
};
