#include "analysis/ZyParseFkt.h"

#include <algorithm>
#include <numbers>
#include <vector>

#include "analysis/ZyParseFktBuilder.h"
#include "analysis/ZyParseFktFunctions.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

constexpr double Euler = 2.71828182845905;  // to 14 decimals, by which formulas have always been calculated

char RoundBracket(char C) { return C == '[' ? '(' : C == ']' ? ')' : C; }

void CheckBrackets(std::string_view Text) {
  const auto Open = std::count(Text.begin(), Text.end(), '('), Closed = std::count(Text.begin(), Text.end(), ')');
  if (Open > Closed) throw EMathError(Format(LoadResString(_sMissingCloseBracket), {Open - Closed}));
  if (Closed > Open) throw EMathError(Format(LoadResString(_sMissingOpenBracket), {Closed - Open}));
}

}  // namespace

TZyFunctionParser::TZyFunctionParser() {
  AddVariableToList("Pi", LoadResString(_sPi), nullptr, FObjectsToUpdate, [] { return std::numbers::pi; });
  AddVariableToList("e", LoadResString(_sE), nullptr, FObjectsToUpdate, [] { return Euler; });
  AddVariableToList("Random", LoadResString(_sRandom), nullptr, FObjectsToUpdate, RandomReal);
  SeedRandomReal();
}

void TZyFunctionParser::SetExpression(std::string_view Text) {
  if (Text == FExpression) return;
  FExpression = Text;
  if (FExpression.empty()) {
    FStartNode.reset();
    return;
  }
  std::erase(FExpression, ' ');
  std::transform(FExpression.begin(), FExpression.end(), FExpression.begin(), RoundBracket);
  Parse();
}

void TZyFunctionParser::Parse() {
  if (FExpression.empty()) return;
  CheckBrackets(FExpression);
  FStartNode.reset();
  const std::string Upper = AsciiUpper(FExpression);
  FStartNode = TZyTreeBuilder(Upper, FunctionsList, FObjectsToUpdate, FOwner).Build();
}

double TZyFunctionParser::GetResult() const {
  if (!FStartNode) throw EExternal(LoadResString(_sNoExpression));
  return FStartNode->GetResult();
}

void TZyFunctionParser::GetResults(std::string_view Variable, std::span<const double> Arguments,
                                   std::span<double> Results, std::span<const std::string_view> Fixed) const {
  if (!FStartNode) throw EExternal(LoadResString(_sNoExpression));
  if (Arguments.size() != Results.size())
    throw EInvalidOperation(Format(LoadResString(_sResultCount), {Results.size(), Arguments.size()}));
  const auto GetterOf = [this](std::string_view Name) {
    const TZyDoubleGetterRec* Row = FindByFullName(FObjectsToUpdate, Name);
    if (Row == nullptr) Row = FindByFullName(GlobalVariableList(), Name);
    if (Row == nullptr) throw EInvalidOperation(Format(LoadResString(_sNoArgument), {Name}));
    return Row->AGetter;
  };
  std::vector<TZyBoundGetter<double()>> Getters;
  for (const std::string_view Name : Fixed) Getters.push_back(GetterOf(Name));
  FStartNode->GetResults(GetterOf(Variable), Arguments, Results, Getters);
}

}  // namespace zy
