#pragma once

#include <string>
#include <string_view>

#include "axes/ZyDateTime.h"

namespace zy {

/// Writes a date and time by a format, case of its letters disregarded; the names and separators are those of
/// `FormatSettings`, never those of the process locale.
///
/// | letters | what stands for them |
/// |---|---|
/// | d, dd, ddd, dddd | day of the month, with two digits, name of the day, short and long |
/// | ddddd, dddddd | the short and the long date format |
/// | m, mm, mmm, mmmm | month, with two digits, its name, short and long; m and mm right behind hours are minutes |
/// | yy, yyyy | year with two and with four digits |
/// | h, hh | hour, of 12 where am/pm, a/p or ampm follows |
/// | n, nn, s, ss, z, zzz | minute, second and millisecond |
/// | t, tt | the short and the long time format |
/// | am/pm, a/p, ampm | the half of the day; the last one in the words of the settings |
/// | c | short date and long time, the latter not at midnight |
/// | / and : | the separators |
///
/// Text in single or double quotes and all other characters stand for themselves.
std::string DateTimeToString(std::string_view Format, TDateTime Value);

/// The same for labels: the first "fff" of the text is filled with the milliseconds, the seconds then not being
/// rounded.
void MyDateTimeToString(std::string& Out, std::string_view Format, TDateTime Value);

/// The formats of an axis's labels, by what they show.
struct TZyDateTimeFormats {
  std::string ShortMonth = "MMM yy";
  std::string LongMonth = "MMMM yyyy";
  std::string Day;
  std::string DayAndHour;
  std::string Minute;
  std::string Second;
  std::string MilliSecond;
  bool operator==(const TZyDateTimeFormats&) const = default;
};
/// Those that follow from the date and time formats of `FormatSettings`.
TZyDateTimeFormats DefaultDateTimeFormats();

/// How far a span in seconds is split: 0 not at all, 1 into minutes, 2 into hours, 3 into days.
using TZySecondsFormatRange = int;
/// Text of a span in seconds such as "1.02:03:04.5", in the locale's decimal separator. A split span is rounded to
/// milliseconds; one that is too large to be split, or is not finite, reads as the plain number. A negative one has its
/// sign in front.
std::string SecondsToString(double Value, TZySecondsFormatRange Format);

/// Text of a span in days such as "2.03:04:05.678"; nothing behind the point for whole days, an empty text for 0. The
/// time separator and the decimal separator are those of `FormatSettings`. Throws `EConvertError` for a negative span.
std::string DoubleToTimeSpanStr(double Days);
/// Days of such a text. From the right there are seconds, minutes and hours, any of them may be missing; what stands
/// before a point that no time separator precedes are days. Empty is 0. Throws `EConvertError` for a malformed number.
double DoubleFomTimeSpanStr(std::string_view Text);

}  // namespace zy
