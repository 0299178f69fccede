#pragma once

#include <span>

#include "analysis/ZyParseFktLists.h"

namespace zy {

/// Kind of a node.
enum class TZyArg : std::uint8_t { Constant, Getter, DoubleArray, OnePrm, TwoPrm };

/// The operators; Call is a function that is none of them.
enum class TZyOperator : std::uint8_t { Call, Add, Subtract, Multiply, Divide, Power, Negate };

/// One node of a formula's tree: a value, or what is done to the values in front of it.
struct TZyNode {
  static TZyNode Constant(double Value) { return {.Token = TZyArg::Constant, .AConstant = Value}; }
  static TZyNode Getter(std::uint32_t Index) { return {.Token = TZyArg::Getter, .Index = Index}; }
  static TZyNode Array(std::uint32_t Index) { return {.Token = TZyArg::DoubleArray, .Index = Index}; }
  static TZyNode Function(TZyOnePrmFunction Call) { return {.Token = TZyArg::OnePrm, .AOnePrmFunction = Call}; }
  static TZyNode Of(TZyOperator Operator);

  TZyArg Token;
  TZyOperator Operator = TZyOperator::Call;  ///< for OnePrm and TwoPrm
  union {
    double AConstant;                   ///< for Constant
    std::uint32_t Index;                ///< for Getter and DoubleArray: which of the tree's getters or arrays
    TZyOnePrmFunction AOnePrmFunction;  ///< for OnePrm with Call
  };
};

/// The tree of a formula, kept flat in the order of evaluation: a node's operands stand directly in front of it. So
/// neither building nor evaluating nor freeing recurses, however long the formula. Brackets leave no node.
class TZyTree {
 public:
  /// Most values that wait for their operator at once.
  static constexpr int MaxValues = 640;

  /// A getter or an array that nodes can refer to by the index returned.
  std::uint32_t Bind(const TZyBoundGetter<double()>& Getter);
  std::uint32_t Bind(const TZyBoundGetter<double(std::int32_t)>& Array);
  /// The operands must have been added.
  void Add(const TZyNode& Node);
  bool empty() const { return FNodes.empty(); }
  /// Most values that wait at once while this tree is evaluated.
  int Depth() const { return FMaxDepth; }

  /// Evaluates; nothing is allocated. Getters are called in the order of the text. Indices of arrays are rounded to the
  /// nearest integer, ties to even; one beyond 32 bits gives not-a-number. Throws what a getter throws.
  double GetResult() const;

  /// Evaluates for each value of Arguments in place of one getter: the same bits as GetResult gives, element by
  /// element, with all other getters called anew for each, but for Fixed ones, which are called once. Results has as
  /// many elements and may be the same memory.
  void GetResults(const TZyBoundGetter<double()>& Argument, std::span<const double> Arguments,
                  std::span<double> Results, std::span<const TZyBoundGetter<double()>> Fixed) const;

 private:
  class TBlock;

  /// Evaluates with a value in place of the getter of that index, of none when there is no such index.
  double Evaluate(std::size_t ArgumentIndex, double Argument) const;

  std::vector<TZyNode> FNodes;
  std::vector<TZyBoundGetter<double()>> FGetters;
  std::vector<TZyBoundGetter<double(std::int32_t)>> FArrays;
  int FDepth = 0;     // values on the stack behind the last node
  int FMaxDepth = 0;  // most on it
};

/// The power as formulas calculate it.
double Power(double Base, double Exponent);

}  // namespace zy
