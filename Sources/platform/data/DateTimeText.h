#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/data/DataTypes.h"

namespace zy {

/// Days since 30 December 1899 of a date and time in ISO 8601 form, as databases without a type for dates store them:
/// "2024-02-29", "2024-02-29 18:30", "2024-02-29T18:30:15.250", "18:30:15" (a part of a day). A zone behind it is left
/// out: the clock's own reading counts. Nothing for any other text, and for days and hours that do not exist.
std::optional<double> DateTimeFromText(std::string_view Text);

/// ISO text of a Date, Time or DateTime, to the millisecond. Milliseconds show where there are any.
/// A number beyond the years -9999 to 9999 reads as the number itself.
std::string DateTimeToText(double Value, TFieldType Type);

}  // namespace zy
