// Formulas and captions: a formula has the value that the rules give it, or fails on the piece that they refuse; over
// many arguments it has the same value. Captions and formats of numbers end in a text or in an exception of ours.

#include <algorithm>

#include "analysis/FormulaReference.h"
#include "analysis/ZyParseFktCaptions.h"
#include "fuzz/Check.h"
#include "texts/FormatFloat.h"

namespace zy::testing {
namespace {

constexpr std::size_t LongestForReference = 300;  // which recurses, and copies at each level

/// The text as the parser stores it.
std::string Normalised(std::string_view Text) {
  std::string Result(Text);
  std::erase(Result, ' ');
  std::replace(Result.begin(), Result.end(), '[', '(');
  std::replace(Result.begin(), Result.end(), ']', ')');
  return Result;
}

/// A parser that knows what the reference knows.
class TFormula {
 public:
  TFormula() {
    GlobalFunctionList().RemoveIf([](const TZyFunctionRec& Row) { return Row.Id != "Sqrt" && Row.Id != "Abs"; });
    Parser.FObjectsToUpdate.RemoveIf([](const TZyDoubleGetterRec& Row) { return Row.Id != "e"; });
    AddVariableToList("x", "", nullptr, Parser.FObjectsToUpdate, [this] { return Reference.X; });
  }

  void CheckText(std::string_view Text) {
    const std::string Plain = Normalised(Text);
    const std::string Error = MessageOf<EMathError>([&] { Parser.SetExpression(Text); });
    Check(Parser.Expression() == Plain, "the text is stored whether it has a value or not");
    const bool Counted = std::count(Plain.begin(), Plain.end(), '(') == std::count(Plain.begin(), Plain.end(), ')');
    if (!Counted || Plain.empty() || Plain.size() > LongestForReference) return;
    Parser.SetExpression("");
    const std::string Fault = FaultOf(Parser, Reference, Text, AsciiUpper(Plain));
    Check(Fault.empty(), Fault.c_str());
  }

 private:
  TFormulaReference Reference;
  TZyFunctionParser Parser;
};

void CheckCaption(const std::string& Text) {
  const auto Add = [](const char* Id, const std::string& Value) {
    AddStringToList(Id, "", nullptr, GlobalStringList(), [Value] { return Value; });
  };
  Add("A", Text.substr(0, Text.size() / 2));  // texts that may name each other and themselves
  Add("B", Text.substr(Text.size() / 2));
  try {
    const std::string Result = ParseVariables(Text, nullptr);
    if (Text.find("<%") == std::string::npos) Check(Result == Text, "a text without marks stays");
  } catch (const Exception&) {
  }
  for (const double Value : {0.0, -1234567.5, 1e-5}) FormatFloat(Text, Value);
}

}  // namespace
}  // namespace zy::testing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Data, std::size_t Size) {
  const std::string Bytes(reinterpret_cast<const char*>(Data), Size);
  zy::testing::TFormula().CheckText(Bytes);
  zy::testing::CheckCaption(Bytes);
  return 0;
}
