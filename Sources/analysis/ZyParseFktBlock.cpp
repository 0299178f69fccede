// Evaluation of a formula over many arguments: node by node over blocks that stay in the nearest cache, so that the
// cost of walking the tree is shared by a block and the loops vectorise.

#include <algorithm>
#include <limits>

#include "analysis/ZyParseFktTree.h"

namespace zy {
namespace {

constexpr std::size_t BlockSize = 256;
constexpr std::size_t MaxColumns = 32;  // of values fetched ahead; beyond, nothing is gained by blocks

/// The values of a node for one block: one for each argument, or one for all.
struct TValues {
  const double* Data = nullptr;  // null: Scalar holds for all
  double Scalar = 0;
};

/// Result = Two values by an operation. Result may be the memory of either.
template <typename TOperation>
void Combine(TValues One, TValues Two, double* Result, std::size_t Count, TOperation Operation) {
  if (One.Data == nullptr) {
    for (std::size_t i = 0; i < Count; ++i) Result[i] = Operation(One.Scalar, Two.Data[i]);
  } else if (One.Data == Result) {
    // Spelt out, so that the compiler sees that this is no overlap to beware of.
    if (Two.Data == nullptr) {
      for (std::size_t i = 0; i < Count; ++i) Result[i] = Operation(Result[i], Two.Scalar);
    } else {
      for (std::size_t i = 0; i < Count; ++i) Result[i] = Operation(Result[i], Two.Data[i]);
    }
  } else if (Two.Data == nullptr) {
    for (std::size_t i = 0; i < Count; ++i) Result[i] = Operation(One.Data[i], Two.Scalar);
  } else {
    for (std::size_t i = 0; i < Count; ++i) Result[i] = Operation(One.Data[i], Two.Data[i]);
  }
}

void Apply(TZyOperator Operator, TValues One, TValues Two, double* Result, std::size_t Count) {
  switch (Operator) {
    case TZyOperator::Add:
      return Combine(One, Two, Result, Count, [](double A, double B) { return A + B; });
    case TZyOperator::Subtract:
      return Combine(One, Two, Result, Count, [](double A, double B) { return A - B; });
    case TZyOperator::Multiply:
      return Combine(One, Two, Result, Count, [](double A, double B) { return A * B; });
    case TZyOperator::Divide:
      return Combine(One, Two, Result, Count, [](double A, double B) { return A / B; });
    default:
      break;
  }
  if (Two.Data == nullptr && Two.Scalar == 2)
    return Combine(One, Two, Result, Count, [](double A, double) { return A * A; });
  Combine(One, Two, Result, Count, Power);
}

}  // namespace

/// One pass over the nodes for a block of arguments, with the memory for it.
class TZyTree::TBlock {
 public:
  TBlock(const TZyTree& Tree, std::size_t ArgumentIndex)
      : FTree(Tree),
        FArgumentIndex(ArgumentIndex),
        FColumns(static_cast<std::size_t>(std::count_if(Tree.FNodes.begin(), Tree.FNodes.end(),
                                                        [this](const TZyNode& Node) { return IsFetched(Node); }))) {}

  /// Whether blocks give what element by element gives. Array elements are fetched in between the calculation, so their
  /// order among the getters would not be kept.
  bool Possible() const { return FTree.FArrays.empty() && FColumns <= MaxColumns; }

  void Evaluate(std::span<const double> Arguments, std::span<double> Results) {
    FValues.resize(static_cast<std::size_t>(FTree.FMaxDepth));
    FMemory.resize((FValues.size() + FColumns) * BlockSize);
    for (std::size_t Start = 0; Start < Arguments.size(); Start += BlockSize) {
      const std::size_t Count = std::min(BlockSize, Arguments.size() - Start);
      Fetch(Count);
      Walk(Arguments.data() + Start, Results.data() + Start, Count);
    }
  }

 private:
  bool IsFetched(const TZyNode& Node) const { return Node.Token == TZyArg::Getter && Node.Index != FArgumentIndex; }
  double* Column(std::size_t Index) { return FMemory.data() + (FValues.size() + Index) * BlockSize; }

  /// Calls the other getters, for each element in the order of the text.
  void Fetch(std::size_t Count) {
    if (FColumns == 0) return;
    for (std::size_t i = 0; i < Count; ++i) {
      std::size_t Next = 0;
      for (const TZyNode& Node : FTree.FNodes)
        if (IsFetched(Node)) Column(Next++)[i] = FTree.FGetters[Node.Index]();
    }
  }

  void Walk(const double* Arguments, double* Results, std::size_t Count) {
    TValues* Top = FValues.data() - 1;
    std::size_t Next = 0;
    for (const TZyNode& Node : FTree.FNodes) {
      if (Node.Token == TZyArg::Constant) {
        *++Top = {nullptr, Node.AConstant};
        continue;
      }
      if (Node.Token == TZyArg::Getter) {
        *++Top = {IsFetched(Node) ? Column(Next++) : Arguments, 0};
        continue;
      }
      if (Node.Token == TZyArg::TwoPrm) --Top;
      // The last node writes straight to where the results go.
      double* const Result = &Node == &FTree.FNodes.back()
                                 ? Results
                                 : FMemory.data() + static_cast<std::size_t>(Top - FValues.data()) * BlockSize;
      Calculate(Node, Top, Result, Count);
    }
    if (Top->Data == nullptr) {
      std::fill_n(Results, Count, Top->Scalar);
    } else if (Top->Data != Results) {
      std::copy_n(Top->Data, Count, Results);
    }
  }

  /// Replaces the operands at Top by the node's values.
  static void Calculate(const TZyNode& Node, TValues* Top, double* Result, std::size_t Count) {
    const bool Scalar = Top[0].Data == nullptr && (Node.Token == TZyArg::OnePrm || Top[1].Data == nullptr);
    if (Scalar) Count = 1;
    if (Node.Token == TZyArg::TwoPrm) {
      if (Scalar) Top[0].Data = &Top[0].Scalar;
      Apply(Node.Operator, Top[0], Top[1], Result, Count);
    } else {
      const double* const One = Scalar ? &Top->Scalar : Top->Data;
      if (Node.Operator == TZyOperator::Negate) {
        std::transform(One, One + Count, Result, [](double Value) { return -Value; });
      } else {
        std::transform(One, One + Count, Result, Node.AOnePrmFunction);
      }
    }
    *Top = Scalar ? TValues{nullptr, *Result} : TValues{Result, 0};
  }

  const TZyTree& FTree;
  std::size_t FArgumentIndex;
  std::size_t FColumns;
  std::vector<TValues> FValues;
  std::vector<double> FMemory;  // a block for each value that can wait, then one for each column
};

void TZyTree::GetResults(const TZyBoundGetter<double()>& Argument, std::span<const double> Arguments,
                         std::span<double> Results) const {
  const auto Found = std::find_if(FGetters.begin(), FGetters.end(),
                                  [&Argument](const auto& Getter) { return Getter.IsSame(Argument); });
  const std::size_t Index = Found == FGetters.end() ? std::numeric_limits<std::size_t>::max()
                                                    : static_cast<std::size_t>(Found - FGetters.begin());
  TBlock Block(*this, Index);
  if (Block.Possible()) return Block.Evaluate(Arguments, Results);
  for (std::size_t i = 0; i < Arguments.size(); ++i) Results[i] = Evaluate(Index, Arguments[i]);
}

}  // namespace zy
