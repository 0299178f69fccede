#pragma once

#include <span>
#include <string>

namespace zy {

/// A stretch of X, without its right end.
struct TZyTableRange {
  double Low, High;
};

/// A table and the columns that are read of it. A line has one column of values, which stands four times; records of
/// prices have four.
struct TZyTableFields {
  std::string Table, X;
  std::string First, Max, Min, Last;

  /// Whether all four are one column.
  bool IsSingle() const { return First == Max && First == Min && First == Last; }
};

/// What engines differ in.
struct TZyTableDialect {
  /// A server: it knows the standard's LATERAL, with which it looks up each range by the index, whatever it guesses of
  /// their lengths; and its columns have types. An embedded database takes joins in the order in which they stand.
  bool IsServer = false;
  /// X is an integer column: limits are whole numbers then, or else a server would convert the column and lose its
  /// index.
  bool HasWholeX = false;
};

/// The questions to a table in plain SQL. Names are taken as they stand, so that quotes around them are the caller's.
/// Rows whose values are null, or not finite, are left out everywhere.
class TZyTableStatements {
 public:
  TZyTableStatements(TZyTableFields Quoted, TZyTableDialect Dialect);

  /// The least and the greatest X.
  std::string Ends() const;
  /// One grouped statement for first, smallest, largest and last row of each range, with count and sum. The records
  /// have the order of BlockFields; ranges without rows give none.
  std::string Blocks(std::span<const TZyTableRange> Ranges) const;
  /// The rows themselves: X and the one value, or X, first, max, min, last.
  std::string Rows(std::span<const TZyTableRange> Ranges) const;
  /// At most so many rows from X on, in their order.
  std::string Page(double X, std::size_t Most) const;
  /// Number of rows before X.
  std::string CountBefore(double X) const;
  /// The last row before X, and the first one from X on, in the same fields.
  std::string RowBefore(double X) const;
  std::string RowFrom(double X) const;
  /// Blocks of a level of a summary table (see TZyTableSummary) that begin in the ranges, in the order of BlockFields.
  std::string SummaryBlocks(const std::string& QuotedSummary, int Level, std::span<const TZyTableRange> Ranges) const;

  /// A real as every engine reads it back.
  static std::string Literal(double Value);
  /// Names of the fields of a block, in their order.
  static constexpr const char* BlockFields = "x0, y0, x1, y1, xlow, ylow, xhigh, yhigh, n, s";

 private:
  std::string LimitOf(double X) const;
  std::string ListOf(std::span<const TZyTableRange> Ranges, bool Numbered) const;
  std::string IsFinite() const;
  std::string XOf(const std::string& Value) const;
  std::string RowFields() const;
  std::string RowAt(const char* Extreme, const char* Relation, double X) const;
  std::string InRange() const;
  std::string EachOf(const std::string& Fields, const std::string& Table, const std::string& Condition,
                     const std::string& Order) const;

  TZyTableFields FFields;
  TZyTableDialect FDialect;
};

}  // namespace zy
