#include "series/ZyMinMaxPyramid.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace zy {
namespace {

constexpr std::size_t Block = 64;  // values under a node of the lowest level
constexpr std::size_t Fan = 16;     // nodes under a node of the others
constexpr double Infinity = std::numeric_limits<double>::infinity();

std::size_t NodesFor(std::size_t Count, std::size_t Size) { return (Count + Size - 1) / Size; }

/// Calls Take(i) for each finite value.
template <class TTake>
void ForEachFinite(std::span<const double> Values, const TTake& Take) {
  for (std::size_t i = 0; i < Values.size(); ++i)
    if (std::isfinite(Values[i])) Take(i);
}

}  // namespace

/// Independent lanes, so that a compiler can work on several values at a time: neither order nor rounding of a sum may
/// it change by itself.
TZySpanScan::TZySpanScan(std::span<const double> Values) : Low(Infinity), High(-Infinity) {
  constexpr std::size_t Lanes = 8;
  double Lows[Lanes], Highs[Lanes], Sums[Lanes];
  std::fill_n(Lows, Lanes, Infinity);
  std::fill_n(Highs, Lanes, -Infinity);
  std::fill_n(Sums, Lanes, 0.0);
  const double* Value = Values.data();
  std::size_t Left = Values.size();
  for (; Left >= Lanes; Left -= Lanes, Value += Lanes) {
    for (std::size_t k = 0; k < Lanes; ++k) {
      Lows[k] = Value[k] < Lows[k] ? Value[k] : Lows[k];
      Highs[k] = Value[k] > Highs[k] ? Value[k] : Highs[k];
      Sums[k] += Value[k];
    }
  }
  for (std::size_t k = 0; k < Left; ++k) {
    Lows[k] = Value[k] < Lows[k] ? Value[k] : Lows[k];
    Highs[k] = Value[k] > Highs[k] ? Value[k] : Highs[k];
    Sums[k] += Value[k];
  }
  for (std::size_t k = 0; k < Lanes; ++k) {
    Low = std::min(Low, Lows[k]);
    High = std::max(High, Highs[k]);
    Sum += Sums[k];
  }
}

TZyMinMaxPyramid::TNode TZyMinMaxPyramid::ExtremesOf(std::span<const double> Values) {
  const TZySpanScan Scan(Values);
  TNode Node{Scan.Low, Scan.High};
  if (std::isfinite(Scan.Sum)) return Node;
  Node = {Infinity, -Infinity};
  ForEachFinite(Values, [&](std::size_t i) {
    Node.Low = std::min(Node.Low, Values[i]);
    Node.High = std::max(Node.High, Values[i]);
  });
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
  for (std::size_t Node = First; Node < Last; ++Node)
    FLevels[0][Node] = ExtremesOf(Values.subspan(Node * Block, std::min(Block, Count - Node * Block)));
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
      TNode Whole{Infinity, -Infinity};
      for (std::size_t Child = Node * Fan; Child < std::min(Nodes, (Node + 1) * Fan); ++Child) {
        Whole.Low = std::min(Whole.Low, FLevels[Level][Child].Low);
        Whole.High = std::max(Whole.High, FLevels[Level][Child].High);
      }
      FLevels[Level + 1][Node] = Whole;
    }
    Nodes = Above;
  }
  FLevels.resize(Level + 1);
}

struct TZyMinMaxPyramid::TBest {
  struct TEnd {
    double Value;
    std::size_t Level, Node;
  };
  TEnd Low{Infinity, 0, 0}, High{-Infinity, 0, 0};
};

void TZyMinMaxPyramid::Take(TBest& Best, std::size_t Level, std::size_t First, std::size_t Last) const {
  for (std::size_t Node = First; Node < Last; ++Node) {
    const TNode& Here = FLevels[Level][Node];
    if (Here.Low < Best.Low.Value) Best.Low = {Here.Low, Level, Node};
    if (Here.High > Best.High.Value) Best.High = {Here.High, Level, Node};
  }
}

/// Index of the first value that is the extreme of a node.
int TZyMinMaxPyramid::Place(std::span<const double> Values, std::size_t Level, std::size_t Node, double Value,
                            bool IsLow) const {
  for (; Level > 0; --Level) {
    Node *= Fan;
    while ((IsLow ? FLevels[Level - 1][Node].Low : FLevels[Level - 1][Node].High) != Value) ++Node;
  }
  std::size_t i = Node * Block;
  while (Values[i] != Value) ++i;
  return static_cast<int>(i);
}

TZyExtremeIndexes TZyMinMaxPyramid::Find(std::span<const double> Values, int First, int Last) {
  if (First >= Last) return {};
  auto From = static_cast<std::size_t>(First), To = static_cast<std::size_t>(Last);
  TZyExtremeIndexes Result;
  double Low = Infinity, High = -Infinity;
  const auto TakeValues = [&](std::size_t Begin, std::size_t End) {
    if (Begin >= End) return;
    const auto Part = Values.subspan(Begin, End - Begin);
    const TZySpanScan Scan(Part);
    const auto PlaceOf = [&](double Value) {
      return static_cast<int>(std::find(Part.begin(), Part.end(), Value) - Values.begin());
    };
    if (std::isfinite(Scan.Sum)) {
      if (Scan.Low < Low) Result.Minimum = PlaceOf(Low = Scan.Low);
      if (Scan.High > High) Result.Maximum = PlaceOf(High = Scan.High);
      return;
    }
    ForEachFinite(Part, [&](std::size_t i) {
      if (Part[i] < Low) Low = Part[i], Result.Minimum = static_cast<int>(Begin + i);
      if (Part[i] > High) High = Part[i], Result.Maximum = static_cast<int>(Begin + i);
    });
  };
  const std::size_t FirstWhole = NodesFor(From, Block), LastWhole = To / Block;
  if (FirstWhole >= LastWhole) {
    TakeValues(From, To);
    return Result;
  }
  Refresh(Values);
  TakeValues(From, FirstWhole * Block);
  TakeValues(LastWhole * Block, To);
  TBest Best;
  From = FirstWhole;
  To = LastWhole;
  for (std::size_t Level = 0;; ++Level) {
    const std::size_t FirstAbove = NodesFor(From, Fan), LastAbove = To / Fan;
    if (Level + 1 == FLevels.size() || FirstAbove >= LastAbove) {
      Take(Best, Level, From, To);
      break;
    }
    Take(Best, Level, From, FirstAbove * Fan);
    Take(Best, Level, LastAbove * Fan, To);
    From = FirstAbove;
    To = LastAbove;
  }
  if (Best.Low.Value < Low) Result.Minimum = Place(Values, Best.Low.Level, Best.Low.Node, Best.Low.Value, true);
  if (Best.High.Value > High) Result.Maximum = Place(Values, Best.High.Level, Best.High.Node, Best.High.Value, false);
  return Result;
}

}  // namespace zy
