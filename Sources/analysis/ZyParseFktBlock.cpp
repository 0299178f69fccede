// Evaluation of a formula over many arguments: node by node over blocks that stay in the nearest cache, so that the
// cost of walking the tree is shared by a block and the loops vectorise.

#include <algorithm>
#include <functional>
#include <limits>
#include <optional>
#include <vector>

#include "analysis/ZyParseFktTree.h"

#if defined(__clang__)
#define ZY_INDEPENDENT _Pragma("clang loop vectorize(assume_safety)")
#pragma clang diagnostic ignored "-Wpass-failed"  // loops that call functions stay as they are
#elif defined(__GNUC__)
#define ZY_INDEPENDENT _Pragma("GCC ivdep")
#else
#define ZY_INDEPENDENT
#endif

namespace zy {
namespace {

constexpr std::size_t BlockSize = 512;
constexpr std::size_t MaxColumns = 32;  // of values fetched ahead; beyond, nothing is gained by blocks

/// The values of a node for one block: one for each argument, or one for all.
struct TValues {
  const double* Data = nullptr;  // null: Scalar holds for all
  double Scalar = 0;
};

struct TColumn {
  double operator[](std::size_t Index) const { return Data[Index]; }
  const double* Data;
};

struct TConstant {
  double operator[](std::size_t) const { return Value; }
  double Value;
};

/// Calls Function with the values as what they are, so that it is compiled for either.
template <typename TFunction>
void WithValues(TValues Values, TFunction Function) {
  if (Values.Data == nullptr) {
    Function(TConstant{Values.Scalar});
  } else {
    Function(TColumn{Values.Data});
  }
}

/// Whether an operation costs so little that going through memory for it is what counts.
bool IsCheap(const TZyNode& Node) {
  return Node.Token == TZyArg::TwoPrm && (Node.Operator == TZyOperator::Add || Node.Operator == TZyOperator::Subtract ||
                                          Node.Operator == TZyOperator::Multiply);
}

/// Calls Function with a cheap operation.
template <typename TFunction>
void WithCheap(TZyOperator Operator, TFunction Function) {
  switch (Operator) {
    case TZyOperator::Add:
      return Function(std::plus<double>());
    case TZyOperator::Subtract:
      return Function(std::minus<double>());
    default:
      return Function(std::multiplies<double>());
  }
}

/// Sets each result to the value of an expression for its index. Results may be the memory of an operand: each element
/// depends on its own operands only, which the compiler is told so that it vectorises without a check.
template <typename TExpression>
void Assign(double* Result, std::size_t Count, TExpression Expression) {
  ZY_INDEPENDENT
  for (std::size_t i = 0; i < Count; ++i) Result[i] = Expression(i);
}

/// Result = One Operation Two.
template <typename TOperation>
void Combine(TValues One, TValues Two, double* Result, std::size_t Count, TOperation Operation) {
  WithValues(One, [&](auto A) {
    WithValues(Two, [&](auto B) { Assign(Result, Count, [=](std::size_t i) { return Operation(A[i], B[i]); }); });
  });
}

void Apply(TZyOperator Operator, TValues One, TValues Two, double* Result, std::size_t Count) {
  switch (Operator) {
    case TZyOperator::Divide:
      return Combine(One, Two, Result, Count, std::divides<double>());
    case TZyOperator::Power:
      if (Two.Data == nullptr && Two.Scalar == 2)
        return Combine(One, Two, Result, Count, [](double A, double) { return A * A; });
      return Combine(One, Two, Result, Count, Power);
    default:
      WithCheap(Operator, [&](auto Operation) { Combine(One, Two, Result, Count, Operation); });
  }
}

/// Two cheap operations in one pass: Result = One Inner Two Outer Three, with the brackets (One Two) Three or, when
/// FromRight, One (Two Three).
template <bool FromRight>
void ApplyPair(TZyOperator Outer, TZyOperator Inner, const TValues* Operands, double* Result, std::size_t Count) {
  const auto Pass = [&](auto OuterOperation, auto InnerOperation, auto A, auto B, auto C) {
    Assign(Result, Count, [=](std::size_t i) {
      if constexpr (FromRight) {
        return OuterOperation(A[i], InnerOperation(B[i], C[i]));
      } else {
        return OuterOperation(InnerOperation(A[i], B[i]), C[i]);
      }
    });
  };
  WithCheap(Outer, [&](auto OuterOperation) {
    WithCheap(Inner, [&](auto InnerOperation) {
      WithValues(Operands[0], [&](auto A) {
        WithValues(Operands[1], [&](auto B) {
          WithValues(Operands[2], [&](auto C) { Pass(OuterOperation, InnerOperation, A, B, C); });
        });
      });
    });
  });
}

}  // namespace

/// One pass over the nodes for a block of arguments, with the memory for it.
class TZyTree::TBlock {
 public:
  TBlock(const TZyTree& Tree, std::size_t ArgumentIndex, std::span<const TZyBoundGetter<double()>> Fixed)
      : FTree(Tree),
        FArgumentIndex(ArgumentIndex),
        FFixed(ValuesOf(Tree, ArgumentIndex, Fixed)),
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
  static bool IsLeaf(const TZyNode& Node) { return Node.Token == TZyArg::Constant || Node.Token == TZyArg::Getter; }
  /// By the getters of the tree: the value of one that has the same for all elements.
  using TFixed = std::vector<std::optional<double>>;
  static TFixed ValuesOf(const TZyTree& Tree, std::size_t ArgumentIndex,
                         std::span<const TZyBoundGetter<double()>> Fixed) {
    TFixed Result(Tree.FGetters.size());
    if (Fixed.empty() || !Tree.FArrays.empty()) return Result;
    for (std::size_t i = 0; i < Result.size(); ++i) {
      const TZyBoundGetter<double()>& Getter = Tree.FGetters[i];
      const auto IsIt = [&Getter](const auto& Each) { return Getter.IsSame(Each); };
      if (i != ArgumentIndex && std::ranges::any_of(Fixed, IsIt)) Result[i] = Getter();
    }
    return Result;
  }
  bool IsFetched(const TZyNode& Node) const {
    return Node.Token == TZyArg::Getter && Node.Index != FArgumentIndex && !FFixed[Node.Index];
  }
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
    const std::vector<TZyNode>& Nodes = FTree.FNodes;
    TValues* Top = FValues.data() - 1;
    std::size_t NextColumn = 0;
    const auto Leaf = [&](const TZyNode& Node) {
      if (Node.Token == TZyArg::Constant) return TValues{nullptr, Node.AConstant};
      if (FFixed[Node.Index]) return TValues{nullptr, *FFixed[Node.Index]};
      return TValues{IsFetched(Node) ? Column(NextColumn++) : Arguments, 0};
    };
    // The last node writes straight to where the results go.
    const auto Target = [&](std::size_t Node) {
      if (Node + 1 == Nodes.size()) return Results;
      return FMemory.data() + static_cast<std::size_t>(Top - FValues.data()) * BlockSize;
    };
    for (std::size_t i = 0; i < Nodes.size(); ++i) {
      const TZyNode& Node = Nodes[i];
      if (IsLeaf(Node)) {
        *++Top = Leaf(Node);
        continue;
      }
      if (Node.Token == TZyArg::TwoPrm) --Top;
      if (IsCheap(Node) && (Top[0].Data != nullptr || Top[1].Data != nullptr)) {
        if (i + 1 < Nodes.size() && IsCheap(Nodes[i + 1])) {
          --Top;
          double* const Result = Target(++i);
          ApplyPair<true>(Nodes[i].Operator, Node.Operator, Top, Result, Count);
          *Top = {Result, 0};
          continue;
        }
        if (i + 2 < Nodes.size() && IsLeaf(Nodes[i + 1]) && IsCheap(Nodes[i + 2])) {
          const TValues Operands[] = {Top[0], Top[1], Leaf(Nodes[i + 1])};
          i += 2;
          double* const Result = Target(i);
          ApplyPair<false>(Nodes[i].Operator, Node.Operator, Operands, Result, Count);
          *Top = {Result, 0};
          continue;
        }
      }
      Calculate(Node, Top, Target(i), Count);
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
  TFixed FFixed;
  std::size_t FColumns;
  std::vector<TValues> FValues;
  std::vector<double> FMemory;  // a block for each value that can wait, then one for each column
};

void TZyTree::GetResults(const TZyBoundGetter<double()>& Argument, std::span<const double> Arguments,
                         std::span<double> Results, std::span<const TZyBoundGetter<double()>> Fixed) const {
  const auto Found = std::find_if(FGetters.begin(), FGetters.end(),
                                  [&Argument](const auto& Getter) { return Getter.IsSame(Argument); });
  const std::size_t Index = Found == FGetters.end() ? std::numeric_limits<std::size_t>::max()
                                                    : static_cast<std::size_t>(Found - FGetters.begin());
  TBlock Block(*this, Index, Fixed);
  if (Block.Possible()) return Block.Evaluate(Arguments, Results);
  for (std::size_t i = 0; i < Arguments.size(); ++i) Results[i] = Evaluate(Index, Arguments[i]);
}

}  // namespace zy
