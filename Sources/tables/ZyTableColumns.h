#pragma once

#include <cstdint>
#include <limits>
#include <span>
#include <vector>

namespace zy {

/// Some rows of a table that follow each other in X: their ends and extremes, each with its X, their number and sum.
/// A single row is a block as well.
struct TZyTableBlock {
  double FirstX = 0, First = 0;
  double LastX = 0, Last = 0;
  double MinX = 0, Min = std::numeric_limits<double>::infinity();
  double MaxX = 0, Max = -std::numeric_limits<double>::infinity();
  std::int64_t Count = 0;
  double Sum = 0;

  /// The block of these rows and those of another one, which stand behind them. Of equal extremes the first counts.
  void Append(const TZyTableBlock& Next);
  /// The block with one row more, which may stand anywhere.
  void Insert(const TZyTableBlock& Row);
};

/// A point that a line is drawn through.
struct TZyTablePoint {
  double X, Y;
};

/// The part of an ascending row of blocks whose rows lie in one column.
struct TZyTableColumn {
  TZyTableBlock Whole;
  std::span<const TZyTableBlock> Blocks;
};

/// Divides blocks, ascending in X, among columns from edge to edge; a column holds its left edge and not its right one.
/// Columns without rows are left out, and so are blocks beside the first and the last edge.
std::vector<TZyTableColumn> DivideAmongColumns(std::span<const TZyTableBlock> Blocks, std::span<const double> Edges);

/// What a line shows of a column that is a pixel wide: its first, smallest, largest and last row (Jugel, Jerzak,
/// Hackenbroich, Markl: M4, PVLDB 7(10), 2014), in the order of X. Some more of the first rows come along, so that the
/// series, which reduces such columns again, takes it for the dense column that it is: the more, the fewer columns have
/// rows. One of so many has them, in Share. Of a column of few rows all come.
void AppendPoints(const TZyTableColumn& Column, std::size_t Share, std::vector<TZyTablePoint>& Points);

}  // namespace zy
