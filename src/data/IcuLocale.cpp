#include "data/IcuLocale.h"

icu::Locale icuLocale(const QString& name)
{
    const QString language = name.section(QLatin1Char('.'), 0, 0);
    if (language == QStringLiteral("C") || language == QStringLiteral("POSIX"))
        return {"en", "US", "POSIX"};
    const icu::Locale locale = icu::Locale::createCanonical(name.toLatin1().constData());
    return locale.isBogus() ? icu::Locale::getRoot() : locale;
}
