#pragma once

#include <QString>

#include <unicode/locid.h>

/// ICU's locale of an ICU or POSIX name ("de_DE.UTF-8", "th_TH@calendar=buddhist"); for one that it cannot
/// read, the locale without a language.
[[nodiscard]] icu::Locale icuLocale(const QString& name);
