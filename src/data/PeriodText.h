#pragma once

#include "data/Date.h"

#include <QString>

// How the user's locale writes periods, in its own calendar.

/// The days from the first to the last, in no more words than it takes ("16–21 November", "16 November").
[[nodiscard]] QString periodDates(Date first, Date last);
/// On the user's wall clock ("12:00").
[[nodiscard]] QString timeOfDay(Date date);
/// Whole minutes in words ("3 hours, 36 minutes", "1 hour").
[[nodiscard]] QString hoursAndMinutes(double minutes);
