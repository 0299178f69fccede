#include "analysis/ZyParseFktBuilder.h"

#include "texts/Exceptions.h"
#include "texts/NumberText.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

TZyOperator OperatorOf(char C) {
  switch (C) {
    case '+':
      return TZyOperator::Add;
    case '-':
      return TZyOperator::Subtract;
    case '*':
      return TZyOperator::Multiply;
    case '/':
      return TZyOperator::Divide;
    default:
      return TZyOperator::Power;
  }
}

bool IsDigit(char C) { return C >= '0' && C <= '9'; }

}  // namespace

TZyTreeBuilder::TZyTreeBuilder(std::string_view Text, const TZyFunctionsList& Functions,
                               const TZyDoubleGetterList& Variables, TZyVariableDependent* Owner)
    : FText(Text), FFunctions(Functions), FVariables(Variables), FOwner(Owner) {
  if (Text.size() >= std::numeric_limits<std::int32_t>::max()) Fail({});  // beyond what positions can count
  FindOperators();
}

int TZyTreeBuilder::ClassOf(char C) {
  switch (C) {
    case '+':
    case '-':
      return Additive;
    case '*':
    case '/':
      return Multiplicative;
    case '^':
      return Exponential;
    default:
      return OperatorClasses;
  }
}

void TZyTreeBuilder::FindOperators() {
  const std::size_t Length = FText.size();
  std::array<std::vector<std::uint32_t>, OperatorClasses> LastAtDepth;
  for (int Class = 0; Class < OperatorClasses; ++Class) {
    FLastOperator[static_cast<std::size_t>(Class)].resize(Length + 1);
    LastAtDepth[static_cast<std::size_t>(Class)].resize(2 * Length + 1);
  }
  std::size_t Depth = Length;  // counted from there, since closing brackets may come first
  for (std::size_t i = 0; i <= Length; ++i) {
    for (std::size_t Class = 0; Class < OperatorClasses; ++Class) FLastOperator[Class][i] = LastAtDepth[Class][Depth];
    if (i == Length) break;
    const char C = FText[i];
    if (C == '(') ++Depth;
    if (C == ')') --Depth;
    const int Class = ClassOf(C);
    if (Class != OperatorClasses && i != 0 && FText[i - 1] != '^')
      LastAtDepth[static_cast<std::size_t>(Class)][Depth] = static_cast<std::uint32_t>(i);
  }
}

std::uint32_t TZyTreeBuilder::Split(TOperatorClass Class, const TTask& Piece) const {
  const std::uint32_t At = FLastOperator[Class][Piece.End];
  return At > Piece.Start ? At : 0;
}

void TZyTreeBuilder::Fail(std::string_view Text) { throw EMathError(Format(LoadResString(_sParserError), {Text})); }

TZyTree TZyTreeBuilder::Build() {
  FTasks.push_back({.Start = 0, .End = static_cast<std::uint32_t>(FText.size())});
  while (!FTasks.empty()) {
    const TTask Task = FTasks.back();
    FTasks.pop_back();
    if (Task.Brackets < 0) {
      FTree.Add(Task.Node);
    } else {
      BuildPiece(Task);
    }
  }
  if (FTree.Depth() > TZyTree::MaxValues) throw EMathError(Format(LoadResString(_sFormulaTooDeep), {MaxBrackets}));
  return std::move(FTree);
}

void TZyTreeBuilder::Schedule(const TZyNode& Node) { FTasks.push_back({.Brackets = -1, .Node = Node}); }

void TZyTreeBuilder::BuildPiece(TTask Piece) {
  for (;;) {
    if (TrySplit(Piece)) return;
    const char First = Piece.Start < Piece.End ? FText[Piece.Start] : '\0';
    if (First != '+' && First != '-') break;
    if (First == '-') Schedule(TZyNode::Of(TZyOperator::Negate));
    ++Piece.Start;
  }
  if (const std::uint32_t At = Split(Exponential, Piece)) return BuildSplit(Piece, At);
  if (TryCall(Piece)) return;
  const std::string_view Text = TextOf(Piece);
  if (!TryVariable(Text) && !TryNumber(Text)) Fail(Text);
}

bool TZyTreeBuilder::TrySplit(const TTask& Piece) {
  std::uint32_t At = Split(Additive, Piece);
  // A sign behind a digit and an E is an exponent's, and signs to the left of it are not looked for.
  if (At >= Piece.Start + 2 && FText[At - 1] == 'E' && IsDigit(FText[At - 2])) At = 0;
  if (At == 0) At = Split(Multiplicative, Piece);
  if (At == 0) return false;
  BuildSplit(Piece, At);
  return true;
}

void TZyTreeBuilder::BuildSplit(const TTask& Piece, std::uint32_t At) {
  // Worked off from the end: left, right, operator.
  Schedule(TZyNode::Of(OperatorOf(FText[At])));
  FTasks.push_back({.Start = At + 1, .End = Piece.End, .Brackets = Piece.Brackets});
  FTasks.push_back({.Start = Piece.Start, .End = At, .Brackets = Piece.Brackets});
}

bool TZyTreeBuilder::TryCall(const TTask& Piece) {
  const std::string_view Text = TextOf(Piece);
  const std::size_t Bracket = Text.find('(');
  if (Bracket == std::string_view::npos) return false;
  TZyNode Node = TZyNode::Constant(0);
  if (!FindCall(Text.substr(0, Bracket), Node)) return false;
  if (Piece.Brackets >= MaxBrackets) throw EMathError(Format(LoadResString(_sFormulaTooDeep), {MaxBrackets}));
  if (Node.Token != TZyArg::Constant) Schedule(Node);
  // The last character is dropped unseen, even where it is the bracket itself.
  const std::uint32_t Start = Piece.Start + static_cast<std::uint32_t>(Bracket) + 1;
  FTasks.push_back({.Start = Start, .End = std::max(Start, Piece.End - 1), .Brackets = Piece.Brackets + 1});
  return true;
}

/// Sets Node to what a name in front of a bracket calls; a constant stands for brackets alone.
bool TZyTreeBuilder::FindCall(std::string_view Name, TZyNode& Node) {
  if (const auto Known = FCalls.find(Name); Known != FCalls.end()) {
    Node = Known->second;
    return true;
  }
  if (const TZyDoubleArrayRec* const Array = FindByFullName(GlobalArrayList(), Name)) {
    NoteDependency(Array->Container, FOwner);
    Node = TZyNode::Array(FTree.Bind(Array->AArray));
  } else if (!Name.empty()) {
    const TZyFunctionRec* Function = FindFunction(FFunctions, Name);
    if (Function == nullptr) Function = FindFunction(GlobalFunctionList(), Name);
    if (Function == nullptr) return false;
    Node = TZyNode::Function(Function->AFunction);
  }
  FCalls.emplace(Name, Node);
  return true;
}

bool TZyTreeBuilder::TryVariable(std::string_view Name) {
  if (const auto Known = FGetters.find(Name); Known != FGetters.end()) {
    FTree.Add(TZyNode::Getter(Known->second));
    return true;
  }
  const TZyDoubleGetterRec* Variable = FindByFullName(FVariables, Name);
  if (Variable == nullptr) Variable = FindByFullName(GlobalVariableList(), Name);
  if (Variable == nullptr) return false;
  NoteDependency(Variable->Container, FOwner);
  const std::uint32_t Index = FTree.Bind(Variable->AGetter);
  FGetters.emplace(Name, Index);
  FTree.Add(TZyNode::Getter(Index));
  return true;
}

bool TZyTreeBuilder::TryNumber(std::string_view Text) {
  try {
    FTree.Add(TZyNode::Constant(StrToFloat(Text)));
    return true;
  } catch (const EConvertError&) {
    return false;
  }
}

}  // namespace zy
