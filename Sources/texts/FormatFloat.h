#pragma once

#include <string>
#include <string_view>

namespace zy {

/// Text of a real by a format of up to three sections with ";" between them: for values above zero, below zero, and
/// zero. A section that is missing or empty is stood in for by the first one, which then shows the minus sign of a
/// negative value by itself; a section of their own gets the magnitude. A value that rounds to zero counts as zero.
///
/// | in a section | meaning |
/// |---|---|
/// | 0 | a digit, zero where the value has none |
/// | # | a digit, nothing where the value has none |
/// | . | the decimal point (the first one), shown as the locale's separator when digits follow it |
/// | , | anywhere: the locale's thousand separator between groups of three digits |
/// | E+ E- e+ e- | exponent notation; the zeros behind (up to 4) are its fewest digits, E+ shows its plus sign |
/// | 'x' "x" | text as it stands |
/// | anything else | stands as written |
///
/// The value is rounded to the digits behind the point, a tie away from zero, from its first 18 digits. Digits in front
/// of the point for which there is no placeholder are shown with the first one. An empty format, not-a-number and the
/// infinities, and a value of more than 18 digits in front of the point outside exponent notation give FloatToStr.
std::string FormatFloat(std::string_view Format, double Value);

}  // namespace zy
