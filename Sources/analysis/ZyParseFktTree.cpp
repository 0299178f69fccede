#include "analysis/ZyParseFktTree.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "analysis/ZyParseFktFunctions.h"

namespace zy {
namespace {

constexpr auto NoIndex = std::numeric_limits<std::size_t>::max();

double ArrayValue(const TZyBoundGetter<double(std::int32_t)>& Array, double Value) {
  std::int32_t Index = 0;
  return RoundToIndex(Value, Index) ? Array(Index) : std::numeric_limits<double>::quiet_NaN();
}

double Apply(TZyOperator Operator, double One, double Two) {
  switch (Operator) {
    case TZyOperator::Add:
      return One + Two;
    case TZyOperator::Subtract:
      return One - Two;
    case TZyOperator::Multiply:
      return One * Two;
    case TZyOperator::Divide:
      return One / Two;
    default:
      return Power(One, Two);
  }
}

}  // namespace

// A square is one multiplication, exact to the last bit.
double Power(double Base, double Exponent) { return Exponent == 2 ? Base * Base : std::pow(Base, Exponent); }

TZyNode TZyNode::Of(TZyOperator Operator) {
  const TZyArg Token = Operator == TZyOperator::Negate ? TZyArg::OnePrm : TZyArg::TwoPrm;
  return {.Token = Token, .Operator = Operator, .AConstant = 0};
}

void TZyTree::Add(const TZyNode& Node) {
  FNodes.push_back(Node);
  if (Node.Token == TZyArg::Constant || Node.Token == TZyArg::Getter) FMaxDepth = std::max(FMaxDepth, ++FDepth);
  if (Node.Token == TZyArg::TwoPrm) --FDepth;
}

std::uint32_t TZyTree::Bind(const TZyBoundGetter<double()>& Getter) {
  FGetters.push_back(Getter);
  return static_cast<std::uint32_t>(FGetters.size() - 1);
}

std::uint32_t TZyTree::Bind(const TZyBoundGetter<double(std::int32_t)>& Array) {
  FArrays.push_back(Array);
  return static_cast<std::uint32_t>(FArrays.size() - 1);
}

double TZyTree::GetResult() const { return Evaluate(NoIndex, 0); }

double TZyTree::Evaluate(std::size_t ArgumentIndex, double Argument) const {
  std::array<double, MaxValues> Values;
  double* Top = Values.data() - 1;
  for (const TZyNode& Node : FNodes) {
    switch (Node.Token) {
      case TZyArg::Constant:
        *++Top = Node.AConstant;
        break;
      case TZyArg::Getter:
        *++Top = Node.Index == ArgumentIndex ? Argument : FGetters[Node.Index]();
        break;
      case TZyArg::DoubleArray:
        *Top = ArrayValue(FArrays[Node.Index], *Top);
        break;
      case TZyArg::OnePrm:
        *Top = Node.Operator == TZyOperator::Negate ? -*Top : Node.AOnePrmFunction(*Top);
        break;
      case TZyArg::TwoPrm:
        --Top;
        *Top = Apply(Node.Operator, Top[0], Top[1]);
        break;
    }
  }
  return *Top;
}

}  // namespace zy
