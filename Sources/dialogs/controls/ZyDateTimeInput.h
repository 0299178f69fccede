#pragma once

#include <optional>
#include <string_view>

#include "axes/ZyDateTime.h"

namespace zy {

/// The value of a date, a date and time, or a time, as a user types it in the locale's way: day, month and year in the
/// order of FormatSettings' short date, the month by number or name; then hours and minutes, seconds and milliseconds
/// where there are any, and the words for the halves of the day. A year of two digits is one of the 100 years from
/// 1950 on. Nothing for any other text, and for days and times that do not exist.
std::optional<TDateTime> DateTimeOfInput(std::string_view Text);

}  // namespace zy
