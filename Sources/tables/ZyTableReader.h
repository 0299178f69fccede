#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "tables/ZyTable.h"
#include "tables/ZyTableSummary.h"

namespace zy {

class TSqlConnection;

/// How rows become records.
enum class TZyTableKind {
  Points,  ///< some rows of each column of pixels, for lines and areas
  Records  ///< one record for each stretch of X that is some pixels wide, for bars, bars of prices and candles
};

/// What is asked of a table.
struct TZyTableQuestion {
  unsigned Number = 0;  // of all questions; a later one replaces an earlier one
  TZyTableKind Kind = TZyTableKind::Points;
  std::vector<double> Edges;  // of the columns, ascending; none asks for the whole table
  double Width = 0;           // of records in X, 0 for none in particular
};

/// What a table answers. Points are blocks of one row each.
struct TZyTableAnswer {
  unsigned Number = 0;
  bool IsWhole = false;
  double Low = 0, High = 0;  // the range that was asked for
  double Close = 0;          // where the last of the records ends
  std::vector<TZyTableBlock> Records;
  TZyTableBlock Total;                        // of the range
  std::vector<TZyTableBlock> Before, Behind;  // the rows next to it, if any
  double Seconds = 0;                         // that it took
  std::string Error;                          // empty when there was none
  std::string Notice;                         // what would make questions faster, told once
};

/// Asks a table through one connection. Belongs to the thread of that connection.
class TZyTableReader {
 public:
  using TCancelled = std::function<bool()>;
  /// Number of columns of the whole table, and the most statements' ranges at a time.
  static constexpr std::size_t WholeColumns = 1000;

  /// Title names the data in messages. Summary is the name of the summary table, which need not exist.
  TZyTableReader(TSqlConnection& Connection, TZyTableFields Fields, std::string Summary, std::string Title);

  /// What would make questions to a table of so many rows faster: the index or the summary that is missing, an empty
  /// text for nothing.
  std::string Notice(std::int64_t Rows);
  /// Answers a question. Empty when Cancelled said so in between. Throws EDatabaseError.
  std::optional<TZyTableAnswer> Answer(const TZyTableQuestion& Question, const TCancelled& Cancelled);
  /// All rows from first to last, some at a time: Visit gets them as blocks of one row each. False from it ends that.
  void ForEachBlock(const std::function<bool(std::span<const TZyTableBlock>)>& Visit);

 private:
  struct TCancel {};
  using TRanges = std::vector<TZyTableRange>;

  std::vector<double> WholeEdges(const TZyTableQuestion& Question, const TZyTableRange& Range) const;
  void TakeBlocks(std::span<const double> Edges, std::vector<TZyTableBlock>& Blocks);
  std::vector<double> TakeWhole(const TZyTableQuestion& Question, const TZyTableRange& Whole,
                                std::vector<TZyTableBlock>& Blocks);
  TRanges TakeLevel(int Level, std::span<const double> Edges, const TRanges& Gaps, std::vector<TZyTableBlock>& Blocks);
  void TakeRows(const TRanges& Ranges, std::vector<TZyTableBlock>& Blocks);
  void TakeColumns(const TRanges& Ranges, std::span<const double> Edges, std::vector<TZyTableBlock>& Blocks);
  void ScanRows(const TRanges& Pieces, std::size_t FewRows, std::vector<TZyTableBlock>& Blocks);
  template <class TStatement, class TTake>
  void InSlices(const TRanges& Ranges, const TStatement& Statement, const TTake& Take);
  void TestCancelled() const;
  double SummaryEnd() const;

  TZyTable FTable;
  TSqlConnection& FConnection;
  TZyTableSummary FSummary;
  TCancelled FCancelled;
  bool FHasSummary = false;
};

}  // namespace zy
