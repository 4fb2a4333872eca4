#include "data/FixedPoint.h"

#include <QLatin1String>

#include <charconv>
#include <iterator>

QString fixed(double value, int decimals)
{
    char text[400]; // The largest double has 309 digits before the point.
    const auto end =
        std::to_chars(std::begin(text), std::end(text), value, std::chars_format::fixed, decimals);
    return QLatin1String(text, end.ptr - text);
}
