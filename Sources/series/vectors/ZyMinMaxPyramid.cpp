#include "series/vectors/ZyMinMaxPyramid.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "platform/framework/TCrew.h"
#include "platform/framework/WiderAsWell.h"

namespace zy {
namespace {

constexpr std::size_t Block = 64;                               // values under a node of the lowest level
constexpr std::size_t Fan = 16;                                 // nodes under a node of the others
constexpr std::size_t NodesOfPiece = 1 << 11, MostPieces = 64;  // some 100,000 values, which several scan at once
constexpr double Infinity = std::numeric_limits<double>::infinity();

std::size_t NodesFor(std::size_t Count, std::size_t Size) { return (Count + Size - 1) / Size; }

/// Of the first value from First on that equals Value; there must be one.
int IndexOf(std::span<const double> Values, std::size_t First, double Value) {
  while (Values[First] != Value) ++First;
  return static_cast<int>(First);
}

struct TScan {
  double Low, High, Sum;
};

/// Independent lanes, so that a compiler can work on several values at a time: neither order nor rounding of a sum may
/// it change by itself. A sum that is not finite tells that some value is not.
ZY_WIDER_AS_WELL TScan ScanOf(const double* Value, std::size_t Count) {
  constexpr std::size_t Lanes = 8;
  double Lows[Lanes], Highs[Lanes], Sums[Lanes];
  std::fill_n(Lows, Lanes, Infinity);
  std::fill_n(Highs, Lanes, -Infinity);
  std::fill_n(Sums, Lanes, 0.0);
  const auto Take = [&](std::size_t Lane, double Low, double High, double Sum) {
    Lows[Lane] = Low < Lows[Lane] ? Low : Lows[Lane];
    Highs[Lane] = High > Highs[Lane] ? High : Highs[Lane];
    Sums[Lane] += Sum;
  };
  for (; Count >= Lanes; Count -= Lanes, Value += Lanes)
    for (std::size_t Lane = 0; Lane < Lanes; ++Lane) Take(Lane, Value[Lane], Value[Lane], Value[Lane]);
  for (std::size_t Lane = 0; Lane < Count; ++Lane) Take(Lane, Value[Lane], Value[Lane], Value[Lane]);
  for (std::size_t Half = Lanes / 2; Half > 0; Half /= 2)
    for (std::size_t Lane = 0; Lane < Half; ++Lane)
      Take(Lane, Lows[Lane + Half], Highs[Lane + Half], Sums[Lane + Half]);
  return {Lows[0], Highs[0], Sums[0]};
}

}  // namespace

TZyMinMaxPyramid::TNode TZyMinMaxPyramid::ExtremesOf(std::span<const double> Values) {
  const TScan Scan = ScanOf(Values.data(), Values.size());
  TNode Node{Scan.Low, Scan.High, Scan.Sum};
  if (std::isfinite(Node.Sum)) return Node;
  Node = {Infinity, -Infinity, 0};
  for (const double Each : Values) {
    Node.HasGaps = Node.HasGaps || !std::isfinite(Each);
    if (!std::isfinite(Each)) continue;
    Node.Low = std::min(Node.Low, Each);
    Node.High = std::max(Node.High, Each);
    Node.Sum += Each;
  }
  return Node;
}

void TZyMinMaxPyramid::Changed(int First, int Last) {
  if (First >= Last) return;
  const auto From = static_cast<std::size_t>(First), To = static_cast<std::size_t>(Last);
  if (FDirtyFirst == FDirtyLast) {
    FDirtyFirst = From;
    FDirtyLast = To;
  } else {
    FDirtyFirst = std::min(FDirtyFirst, From);
    FDirtyLast = std::max(FDirtyLast, To);
  }
}

void TZyMinMaxPyramid::Refresh(std::span<const double> Values) {
  const std::size_t Count = Values.size();
  if (Count != FCount) {  // the block of the last value that stayed gained or lost others
    const std::size_t Kept = std::min(Count, FCount);
    Changed(static_cast<int>(std::max<std::size_t>(Kept, 1) - 1), static_cast<int>(Count));
    FCount = Count;
  }
  std::size_t First = std::min(FDirtyFirst, Count) / Block;
  std::size_t Last = NodesFor(std::min(FDirtyLast, Count), Block);
  FDirtyFirst = FDirtyLast = 0;
  if (First == Last) return;
  std::size_t Nodes = NodesFor(Count, Block);
  if (FLevels.empty()) FLevels.emplace_back();
  FLevels[0].resize(Nodes);
  const std::size_t Pieces = std::clamp<std::size_t>((Last - First) / NodesOfPiece, 1, MostPieces);
  InParallel(static_cast<int>(Pieces), [&](int Piece) {
    const auto Edge = [&](std::size_t i) { return First + (Last - First) * i / Pieces; };
    for (std::size_t Node = Edge(static_cast<std::size_t>(Piece)); Node < Edge(static_cast<std::size_t>(Piece) + 1);
         ++Node)
      FLevels[0][Node] = ExtremesOf(Values.subspan(Node * Block, std::min(Block, Count - Node * Block)));
  });
  std::size_t Level = 0;
  for (; Nodes > Fan; ++Level) {
    const std::size_t Above = NodesFor(Nodes, Fan);
    First /= Fan;
    Last = NodesFor(Last, Fan);
    if (FLevels.size() < Level + 2) {
      FLevels.emplace_back();
      First = 0;
      Last = Above;
    }
    FLevels[Level + 1].resize(Above);
    for (std::size_t Node = First; Node < Last; ++Node) {
      TNode Whole{Infinity, -Infinity, 0};
      for (std::size_t Child = Node * Fan; Child < std::min(Nodes, (Node + 1) * Fan); ++Child) {
        Whole.Low = std::min(Whole.Low, FLevels[Level][Child].Low);
        Whole.High = std::max(Whole.High, FLevels[Level][Child].High);
        Whole.Sum += FLevels[Level][Child].Sum;
        Whole.HasGaps = Whole.HasGaps || FLevels[Level][Child].HasGaps;
      }
      FLevels[Level + 1][Node] = Whole;
    }
    Nodes = Above;
  }
  FLevels.resize(Level + 1);
}

/// What was found so far. Nodes are looked at from left to right, and a later one has to be better: so the first of
/// equal values counts.
struct TZyMinMaxPyramid::TSearch {
  struct TEnd {
    double Value;
    std::size_t Level, Node;
    int Index;  // -1 while it lies somewhere in the node
  };

  std::span<const double> Values;
  TEnd Low{Infinity, 0, 0, -1}, High{-Infinity, 0, 0, -1};
  double Sum = 0;
  bool HasGaps = false;

  void TakeValues(std::size_t First, std::size_t Last) {
    if (First >= Last) return;
    const auto Part = Values.subspan(First, Last - First);
    const TNode Whole = ExtremesOf(Part);
    if (Whole.Low < Low.Value) Low = {Whole.Low, 0, 0, IndexOf(Values, First, Whole.Low)};
    if (Whole.High > High.Value) High = {Whole.High, 0, 0, IndexOf(Values, First, Whole.High)};
    Sum += Whole.Sum;
    HasGaps = HasGaps || Whole.HasGaps;
  }
  void TakeNode(const TNode& Node, std::size_t Level, std::size_t Place) {
    if (Node.Low < Low.Value) Low = {Node.Low, Level, Place, -1};
    if (Node.High > High.Value) High = {Node.High, Level, Place, -1};
    Sum += Node.Sum;
    HasGaps = HasGaps || Node.HasGaps;
  }
};

void TZyMinMaxPyramid::Take(TSearch& Search, std::size_t Level, std::size_t First, std::size_t Last) const {
  const auto TakeNodes = [&](std::size_t Begin, std::size_t End) {
    for (std::size_t Node = Begin; Node < End; ++Node) Search.TakeNode(FLevels[Level][Node], Level, Node);
  };
  const std::size_t FirstAbove = NodesFor(First, Fan), LastAbove = Last / Fan;
  if (Level + 1 == FLevels.size() || FirstAbove >= LastAbove) return TakeNodes(First, Last);
  TakeNodes(First, FirstAbove * Fan);
  Take(Search, Level + 1, FirstAbove, LastAbove);
  TakeNodes(LastAbove * Fan, Last);
}

/// Where one of the extremes of a node lies, which is looked for once.
int TZyMinMaxPyramid::Place(std::span<const double> Values, std::size_t Level, std::size_t Node, double TNode::*Extreme,
                            int TNode::*Index) {
  TNode& Here = FLevels[Level][Node];
  if (Here.*Index >= 0) return Here.*Index;
  if (Level == 0) return Here.*Index = IndexOf(Values, Node * Block, Here.*Extreme);
  std::size_t Child = Node * Fan;
  while (FLevels[Level - 1][Child].*Extreme != Here.*Extreme) ++Child;
  return Here.*Index = Place(Values, Level - 1, Child, Extreme, Index);
}

TZyExtremes TZyMinMaxPyramid::Find(std::span<const double> Values, int First, int Last) {
  if (First >= Last) return {};
  const auto From = static_cast<std::size_t>(First), To = static_cast<std::size_t>(Last);
  const std::size_t FirstWhole = NodesFor(From, Block), LastWhole = To / Block;
  // The end is on its way from memory while the rest is looked at; the start came with what was asked before.
  constexpr std::size_t Line = 8;
  for (std::size_t i = std::max(LastWhole * Block, From); i < To; i += Line) __builtin_prefetch(&Values[i]);
  TSearch Search{.Values = Values};
  if (FirstWhole >= LastWhole) {
    Search.TakeValues(From, To);
  } else {
    Refresh(Values);
    Search.TakeValues(From, FirstWhole * Block);
    Take(Search, 0, FirstWhole, LastWhole);
    Search.TakeValues(LastWhole * Block, To);
  }
  TZyExtremes Result{Search.Low.Index, Search.High.Index, Search.Sum,
                     Search.Low.Value, Search.High.Value, Search.HasGaps};
  if (Result.Minimum < 0 && std::isfinite(Search.Low.Value))
    Result.Minimum = Place(Values, Search.Low.Level, Search.Low.Node, &TNode::Low, &TNode::LowIndex);
  if (Result.Maximum < 0 && std::isfinite(Search.High.Value))
    Result.Maximum = Place(Values, Search.High.Level, Search.High.Node, &TNode::High, &TNode::HighIndex);
  return Result;
}

}  // namespace zy
