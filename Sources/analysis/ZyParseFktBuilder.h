#pragma once

#include <array>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "analysis/ZyParseFktTree.h"

namespace zy {

/// Builds the tree of one formula by eight rules, of which the first that fits a piece of text takes it:
///
/// 1. the last + or - splits it into a sum; nothing does when that sign belongs to an exponent, as in 1E-3
/// 2. the last * or / splits it into a product
/// 3. a leading sign is taken off
/// 4. the last ^ splits it into a power
/// 5. an array's name and brackets: an element of that array
/// 6. a function's name and brackets, or brackets alone
/// 7. a variable
/// 8. a number, in the decimal separator of the process
///
/// Operators count outside brackets only, not as the first character of a piece, and not directly behind a ^.
///
/// The time is linear in the length of the text: where each rule splits is known from one scan, and the pieces are
/// worked off from a list instead of by recursion.
class TZyTreeBuilder {
 public:
  /// Most brackets around one another.
  static constexpr int MaxBrackets = 200;

  /// Text is the formula in upper case without blanks; it must outlive the builder. The lists of the parser are
  /// searched ahead of the global ones. Owner, unless null, is noted with the containers of all variables used.
  TZyTreeBuilder(std::string_view Text, const TZyFunctionsList& Functions, const TZyDoubleGetterList& Variables,
                 TZyVariableDependent* Owner);

  /// Throws EMathError with the piece of text that no rule fits, and for brackets nested too deep.
  TZyTree Build();

 private:
  enum TOperatorClass { Additive, Multiplicative, Exponential, OperatorClasses };

  /// A piece of the text to build, or a node to add when the pieces before it are built.
  struct TTask {
    std::uint32_t Start = 0;
    std::uint32_t End = 0;
    std::int32_t Brackets = 0;  ///< around the piece; -1 when Node is what there is to do
    TZyNode Node = TZyNode::Constant(0);
  };

  static int ClassOf(char C);
  void FindOperators();
  /// Position of the operator of a class that splits a piece; 0, where there can be none, when nothing does.
  std::uint32_t Split(TOperatorClass Class, const TTask& Piece) const;
  std::string_view TextOf(const TTask& Piece) const { return FText.substr(Piece.Start, Piece.End - Piece.Start); }

  void BuildPiece(TTask Piece);
  bool TrySplit(const TTask& Piece);
  void BuildSplit(const TTask& Piece, std::uint32_t At);
  bool TryCall(const TTask& Piece);
  bool TryVariable(std::string_view Name);
  bool TryNumber(std::string_view Text);
  bool FindCall(std::string_view Name, TZyNode& Node);
  void Schedule(const TZyNode& Node);
  [[noreturn]] static void Fail(std::string_view Text);

  std::string_view FText;
  const TZyFunctionsList& FFunctions;
  const TZyDoubleGetterList& FVariables;
  TZyVariableDependent* FOwner;
  /// For each end of a piece the last operator of a class in front of it at the depth of brackets that the end has.
  std::array<std::vector<std::uint32_t>, OperatorClasses> FLastOperator;
  std::vector<TTask> FTasks;
  /// What names stand for, so that each is searched once.
  std::unordered_map<std::string_view, TZyNode> FCalls;
  std::unordered_map<std::string_view, std::uint32_t> FGetters;
  TZyTree FTree;
};

}  // namespace zy
