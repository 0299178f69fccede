#include "graph/ZyStringFunctions.h"

#include <algorithm>

#include "platform/framework/NumberText.h"

namespace zy {

std::string Americanize(std::string_view Text) {
  std::string Result(Text);
  std::replace(Result.begin(), Result.end(), FormatSettings().DecimalSeparator, '.');
  return Result;
}

std::string DeAmericanize(std::string_view Text) {
  std::string Result(Text);
  std::replace(Result.begin(), Result.end(), '.', FormatSettings().DecimalSeparator);
  return Result;
}

std::string DoubleToStr(double Value) { return RealToText(Value); }

double DoubleFromStr(std::string_view Text) { return TextToReal(Text); }

}  // namespace zy
