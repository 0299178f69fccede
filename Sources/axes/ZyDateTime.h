#pragma once

namespace zy {

// A date and time is a day number with a fraction, counted from 30 December 1899. A date before that day has a negative
// day number, while its fraction, taken as positive, still is the time of day: -1.25 is 6 o'clock on 29 December 1899.

/// The first moment of the year 100 and the last millisecond of the year 9999.
inline constexpr double MinDateTime = -657434.0;
inline constexpr double MaxDateTime = 2958465.999999988;

/// Days from one date and time to another. Plain subtraction would be wrong before the first day.
double DateTimeSpan(double From, double To);

}  // namespace zy
