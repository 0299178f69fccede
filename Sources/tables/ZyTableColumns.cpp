#include "tables/ZyTableColumns.h"

#include <algorithm>
#include <tuple>

namespace zy {
namespace {

/// From so many points on a column is reduced.
constexpr std::size_t ManyPoints = 16;
/// More rows than a series leaves alone in a column of pixels.
constexpr std::size_t PointsOfDense = 5;

bool IsBefore(const TZyTablePoint& P, const TZyTablePoint& Q) { return P.X < Q.X; }

/// Adds the points of a block in the order of X, each row once.
void AppendRows(const TZyTableBlock& Block, std::vector<TZyTablePoint>& Points) {
  if (Block.Count == 1) return Points.push_back({Block.FirstX, Block.First});
  TZyTablePoint Inner[] = {{Block.MinX, Block.Min}, {Block.MaxX, Block.Max}};
  if (IsBefore(Inner[1], Inner[0])) std::swap(Inner[0], Inner[1]);
  Points.push_back({Block.FirstX, Block.First});
  for (const TZyTablePoint& Each : Inner)
    if (Each.X != Points.back().X && Each.X != Block.LastX) Points.push_back(Each);
  Points.push_back({Block.LastX, Block.Last});
}

}  // namespace

void TZyTableBlock::Append(const TZyTableBlock& Next) {
  if (Next.Count == 0) return;
  if (Count == 0) {
    *this = Next;
    return;
  }
  LastX = Next.LastX;
  Last = Next.Last;
  if (Next.Min < Min) {
    Min = Next.Min;
    MinX = Next.MinX;
  }
  if (Next.Max > Max) {
    Max = Next.Max;
    MaxX = Next.MaxX;
  }
  Count += Next.Count;
  Sum += Next.Sum;
}

void TZyTableBlock::Insert(const TZyTableBlock& Row) {
  const TZyTableBlock Old = *this;
  if (Old.Count == 0 || Row.FirstX >= Old.LastX) return Append(Row);
  // In front of the others: first all is as if the row were the first, then what lies before it is put back.
  *this = Row;
  Append(Old);
  if (Old.FirstX > Row.FirstX) return;
  FirstX = Old.FirstX;
  First = Old.First;
  if (Old.Min <= Row.Min) std::tie(Min, MinX) = std::tie(Old.Min, Old.MinX);
  if (Old.Max >= Row.Max) std::tie(Max, MaxX) = std::tie(Old.Max, Old.MaxX);
}

std::vector<TZyTableColumn> DivideAmongColumns(std::span<const TZyTableBlock> Blocks, std::span<const double> Edges) {
  std::vector<TZyTableColumn> Result;
  if (Edges.size() < 2) return Result;
  std::size_t Edge = 0;  // the right one of the present column
  for (std::size_t i = 0; i < Blocks.size(); ++i) {
    const double X = Blocks[i].FirstX;
    if (X < Edges.front() || X >= Edges.back()) continue;
    const bool IsNew = Edge == 0 || X >= Edges[Edge];
    while (Edge == 0 || X >= Edges[Edge]) ++Edge;
    if (IsNew) Result.push_back({{}, Blocks.subspan(i, 0)});
    TZyTableColumn& Column = Result.back();
    Column.Whole.Append(Blocks[i]);
    Column.Blocks = {Column.Blocks.data(), Column.Blocks.size() + 1};
  }
  return Result;
}

void AppendPoints(const TZyTableColumn& Column, std::size_t Share, std::vector<TZyTablePoint>& Points) {
  const std::size_t First = Points.size(), Many = std::max(ManyPoints, PointsOfDense * (Share + 1));
  std::vector<TZyTablePoint> Rows;
  for (const TZyTableBlock& Block : Column.Blocks) {
    AppendRows(Block, Rows);
    if (Rows.size() > Many) break;
  }
  if (Rows.size() <= Many) {
    Points.insert(Points.end(), Rows.begin(), Rows.end());
    return;
  }
  const TZyTableBlock& Whole = Column.Whole;
  Rows.resize(PointsOfDense * Share);
  for (const TZyTablePoint& Each :
       {TZyTablePoint{Whole.MinX, Whole.Min}, {Whole.MaxX, Whole.Max}, {Whole.LastX, Whole.Last}})
    Rows.push_back(Each);
  std::stable_sort(Rows.begin(), Rows.end(), IsBefore);
  for (const TZyTablePoint& Each : Rows)
    if (Points.size() == First || Each.X != Points.back().X) Points.push_back(Each);
}

}  // namespace zy
