#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace zy {

/// What the user's locale decides about shown and typed texts. Stored texts never depend on it.
struct TFormatSettings {
  char DecimalSeparator = '.';
  char ThousandSeparator = ',';
  char DateSeparator = '/';
  char TimeSeparator = ':';
  std::string ShortDateFormat = "MM/dd/yyyy";
  std::string LongDateFormat = "dddd, dd MMMM yyyy";
  std::string ShortTimeFormat = "hh:mm";
  std::string LongTimeFormat = "hh:mm:ss";
  std::string TimeAMString = "AM";
  std::string TimePMString = "PM";
  std::array<std::string, 12> ShortMonthNames{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                              "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  std::array<std::string, 12> LongMonthNames{"January", "February", "March",     "April",   "May",      "June",
                                             "July",    "August",   "September", "October", "November", "December"};
  /// From Sunday on.
  std::array<std::string, 7> ShortDayNames{"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
  std::array<std::string, 7> LongDayNames{"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
};

/// The one settings object of the process; the application fills it from the user's locale at start.
TFormatSettings& FormatSettings();

/// Decimal text of an integer.
std::string IntToStr(std::int64_t Value);

/// Integer of a decimal text, or of a hexadecimal one behind "$". Blanks around it are skipped.
/// Throws EConvertError for anything else, and for a value beyond 64 bits.
std::int64_t StrToInt(std::string_view Text);

/// General text of a real for showing: the shortest of up to 15 significant digits, with the locale's decimal
/// separator. Not-a-number and the infinities read "NAN", "INF" and "-INF".
std::string FloatToStr(double Value);

/// Fixed text of a real with Digits decimals (0 to 18), in the locale's decimal separator; never "-0".
std::string FloatToStrFixed(double Value, int Digits);

/// Real of a text in the locale's decimal separator. Blanks around it are skipped. Throws EConvertError.
double StrToFloat(std::string_view Text);

/// Shortest text with a decimal point that reads back as the very same value; for stored texts.
std::string RealToText(double Value);

/// Inverse of RealToText, whatever the locale. Throws EConvertError.
double TextToReal(std::string_view Text);

}  // namespace zy
