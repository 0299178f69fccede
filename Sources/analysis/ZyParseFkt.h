#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "analysis/ZyParseFktLists.h"
#include "analysis/ZyParseFktTree.h"

namespace zy {

/// A formula: parsed once, evaluated as often as asked. For the control thread only.
///
/// The language, in rising order of binding: binary + and -; binary * and /; signs; ^; and the operands, which are
/// numbers, variables, function(argument), array(index) and brackets. All binary operators group from the left, so
/// 2^3^2 is 64 and -2^2 is -4. A sign may follow a ^, but no other operator: 2*(-3). Brackets are () or [], even mixed
/// in one pair. Case of ASCII letters and blanks do not count. A number with a signed exponent can stand alone or in a
/// product, as in 1E-3*X+2, and not behind a + or -: 2+(1E-3).
///
/// Arithmetic is that of IEEE 754: 1/0 is an infinity, and a function without a value gives not-a-number.
class TZyFunctionParser {
 public:
  /// An empty parser, whose variables are Pi, e and Random; seeds the random generator of the process from the clock.
  TZyFunctionParser();
  TZyFunctionParser(const TZyFunctionParser&) = delete;
  TZyFunctionParser& operator=(const TZyFunctionParser&) = delete;

  /// The formula without blanks and with round brackets only, in the case it was given.
  const std::string& Expression() const { return FExpression; }
  /// Stores and parses the text, unless it equals the one stored. An empty one leaves nothing to evaluate.
  ///
  /// Throws EMathError. When brackets are missing, the formula of before stays to be evaluated; after any other error
  /// there is none. The text is stored either way, so that setting it once more does nothing.
  void SetExpression(std::string_view Text);
  /// Parses the stored text again, as is needed when variables have come. Throws as SetExpression does.
  void Parse();

  /// Whether there is a formula to evaluate.
  bool HasTree() const { return FStartNode.has_value(); }
  /// The value of the formula. Throws EExternal when there is none, EMathError when a variable in it was removed, and
  /// whatever a getter throws.
  double GetResult() const;
  /// The values of the formula with each of the arguments in turn in place of the variable of that full name: bit for
  /// bit those of GetResult. All other getters are called anew for each element, but for those of the full names in
  /// Fixed, which are called once. Results may be the memory of Arguments.
  ///
  /// Throws as GetResult does (results may then be partly written), and EInvalidOperation when no list has the variable
  /// or when the two spans differ in size.
  void GetResults(std::string_view Variable, std::span<const double> Arguments, std::span<double> Results,
                  std::span<const std::string_view> Fixed = {}) const;

  /// The object on whose behalf formulas are evaluated: it is noted with the containers of the variables used. May be
  /// null; must outlive the parser or be set to null.
  TZyVariableDependent* Owner() const { return FOwner; }
  void SetOwner(TZyVariableDependent* Value) { FOwner = Value; }

  /// Functions and variables of this parser alone, found ahead of the global ones.
  TZyFunctionsList FunctionsList;
  TZyDoubleGetterList FObjectsToUpdate;

 private:
  std::string FExpression;
  std::optional<TZyTree> FStartNode;
  TZyVariableDependent* FOwner = nullptr;
};

}  // namespace zy
