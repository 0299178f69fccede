#pragma once

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include "analysis/ZyParseFkt.h"
#include "framework/Errors.h"
#include "texts/Exceptions.h"
#include "texts/NumberText.h"

namespace zy::testing {

/// The formula language straight from its rules, by copying pieces of text: slow, recursive and plain to read, to hold
/// the parser against. It knows the variables X and E, and the functions Sqrt and Abs.
class TFormulaReference {
 public:
  double X = 0.75;
  double E = 2.71828182845905;

  /// The value of a piece in upper case. Nothing, with Failed set, when no rule fits.
  std::optional<double> Value(const std::string& Text) {
    if (const std::size_t At = Search(Text, "+-"); At != 0) {
      const bool Exponent = At >= 2 && Text[At - 1] == 'E' && Text[At - 2] >= '0' && Text[At - 2] <= '9';
      if (!Exponent) return Two(Text, At);
    }
    if (const std::size_t At = Search(Text, "*/"); At != 0) return Two(Text, At);
    if (!Text.empty() && Text[0] == '+') return Value(Text.substr(1));
    if (!Text.empty() && Text[0] == '-') {
      const auto One = Value(Text.substr(1));
      return One ? std::optional(-*One) : One;
    }
    if (const std::size_t At = Search(Text, "^"); At != 0) return Two(Text, At);
    if (const std::size_t At = Text.find('('); At != std::string::npos) {
      const std::string Name = Text.substr(0, At);
      if (Name.empty() || Name == "SQRT" || Name == "ABS") {
        const std::size_t Length = Text.size() - At >= 2 ? Text.size() - At - 2 : 0;
        const auto One = Value(Text.substr(At + 1, Length));
        if (!One || Name.empty()) return One;
        return Name == "ABS" ? std::fabs(*One) : std::sqrt(*One);
      }
    }
    if (Text == "X") return X;
    if (Text == "E") return E;
    try {
      return StrToFloat(Text);
    } catch (const EConvertError&) {
    }
    Failed = Text;
    return std::nullopt;
  }

  std::string Failed;  ///< the piece that no rule fits

 private:
  /// The last operator of a set outside brackets, neither first nor behind ^; 0 when there is none.
  static std::size_t Search(const std::string& Text, const char* Set) {
    int Depth = 0;
    for (std::size_t i = Text.size(); i-- > 1;) {
      if (Text[i] == ')') ++Depth;
      if (Text[i] == '(') --Depth;
      if (Depth == 0 && std::string(Set).find(Text[i]) != std::string::npos && Text[i - 1] != '^') return i;
    }
    return 0;
  }

  std::optional<double> Two(const std::string& Text, std::size_t At) {
    const auto Left = Value(Text.substr(0, At));
    if (!Left) return Left;
    const auto Right = Value(Text.substr(At + 1));
    if (!Right) return Right;
    const char Operator = Text[At];
    if (Operator == '+') return *Left + *Right;
    if (Operator == '-') return *Left - *Right;
    if (Operator == '*') return *Left * *Right;
    if (Operator == '/') return *Left / *Right;
    return *Right == 2 ? *Left * *Left : std::pow(*Left, *Right);
  }
};

/// Sets a formula and compares its value, or the piece that it fails on, with what the rules say of the same text in
/// upper case; over many arguments it must have the same value. What is wrong, empty when all is well.
inline std::string FaultOf(TZyFunctionParser& Parser, TFormulaReference& Reference, std::string_view Text,
                           const std::string& Upper) {
  const auto Same = [](double One, double Two) { return One == Two || (std::isnan(One) && std::isnan(Two)); };
  const std::string Error = MessageOf<EMathError>([&] { Parser.SetExpression(Text); });
  const auto Expected = Reference.Value(Upper);
  const std::string Message = "Parsing error in function:\r" + Reference.Failed;
  if (!Expected) return Error == Message.c_str() ? "" : "the error is " + Error;  // up to a zero byte, as what() does
  if (!Error.empty()) return "it fails by " + Error;
  const double Value = Parser.GetResult();
  if (!Same(Value, *Expected)) return "the value is not that of the rules";
  const std::vector<double> Arguments(9, Reference.X);
  std::vector<double> Values(9);
  Parser.GetResults("X", Arguments, Values);
  return std::ranges::all_of(Values, [&](double One) { return Same(One, Value); }) ? "" : "many arguments differ";
}

}  // namespace zy::testing
