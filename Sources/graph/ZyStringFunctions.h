#pragma once

#include <string>
#include <string_view>

namespace zy {

/// Replaces the locale's decimal separator by ".".
std::string Americanize(std::string_view Text);
/// Replaces "." by the locale's decimal separator.
std::string DeAmericanize(std::string_view Text);

/// Stored text of a real: the shortest that reads back as the very same value, with a decimal point in every locale.
std::string DoubleToStr(double Value);
/// Inverse of DoubleToStr. Throws EConvertError for a text that is no number.
double DoubleFromStr(std::string_view Text);

}  // namespace zy
