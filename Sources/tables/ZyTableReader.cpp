#include "tables/ZyTableReader.h"

#include <QSqlQuery>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <iterator>
#include <limits>

#include "platform/sql/SqlConnection.h"
#include "texts/ZyTableTexts.h"

namespace zy {
namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
/// Ranges of one statement: some hundred kilobytes of text, which every engine takes.
constexpr std::size_t MostRanges = 4096;
/// Pieces of a column of pixels that are grouped apart, so that more rows than ends and extremes come of it.
constexpr std::size_t PiecesOfColumn = 3, MostPieces = 64;

double Above(double Value) { return std::nextafter(Value, Infinity); }

bool IsBefore(const TZyTableBlock& A, const TZyTableBlock& B) { return A.FirstX < B.FirstX; }

/// The width of records that is the next of 1, 2, 5, 10 ... and their tenths, tens, hundreds.
double RoundWidth(double Width) {
  const double Decade = std::pow(10, std::floor(std::log10(Width)));
  for (const double Part : {1.0, 2.0, 5.0})
    if (Part * Decade >= Width * 0.999999) return Part * Decade;
  return 10 * Decade;
}

/// Edges of records from below Low to above High: multiples of their width, so that they stay in place while a chart is
/// panned.
std::vector<double> RecordEdges(double Low, double High, double Width) {
  const double Step = RoundWidth(Width), First = std::floor(Low / Step) - 1;
  const auto Count = static_cast<int>(std::min(std::ceil(High / Step) + 2 - First, 1e6));
  std::vector<double> Result;
  Result.reserve(static_cast<std::size_t>(std::max(Count, 0)));
  for (int i = 0; i < Count; ++i) Result.push_back((First + i) * Step);
  return Result;
}

/// The index of the column from edge to edge that holds a value within them.
std::size_t ColumnAt(std::span<const double> Edges, double X) {
  return static_cast<std::size_t>(std::upper_bound(Edges.begin(), Edges.end(), X) - Edges.begin()) - 1;
}

/// Each column, as far as it lies within the ranges, in some pieces.
std::vector<TZyTableRange> PiecesOf(std::span<const TZyTableRange> Ranges, std::span<const double> Edges,
                                    std::size_t Pieces) {
  std::vector<TZyTableRange> Result;
  for (const TZyTableRange& Range : Ranges)
    for (std::size_t i = ColumnAt(Edges, Range.Low); i + 1 < Edges.size() && Edges[i] < Range.High; ++i) {
      const double Width = (Edges[i + 1] - Edges[i]) / static_cast<double>(Pieces);
      for (std::size_t Piece = 0; Piece < Pieces; ++Piece) {
        const double Low = Edges[i] + static_cast<double>(Piece) * Width;
        const double High = Piece + 1 == Pieces ? Edges[i + 1] : Edges[i] + static_cast<double>(Piece + 1) * Width;
        const TZyTableRange Part{std::max(Low, Range.Low), std::min(High, Range.High)};
        if (Part.Low < Part.High) Result.push_back(Part);
      }
    }
  return Result;
}

}  // namespace

TZyTableReader::TZyTableReader(TSqlConnection& Connection, TZyTableFields Fields, std::string Summary,
                               std::string Title)
    : FTable(Connection, std::move(Fields), std::move(Title)),
      FConnection(Connection),
      FSummary(FTable, std::move(Summary)) {}

std::string TZyTableReader::Notice(std::int64_t Rows) {
  constexpr std::int64_t ManyRows = 2000000;
  if (!FTable.MissingIndex().empty())
    return Format(LoadResString(_sTableNoIndex),
                  {FTable.Title(), FTable.Fields().Table, FTable.Fields().X, FTable.MissingIndex()});
  if (Rows < ManyRows || FHasSummary) return {};
  return Format(LoadResString(_sTableNoSummary), {FTable.Title(), FTable.Fields().Table, Rows});
}

// --- Questions ------------------------------------------------------------------------------------------------------

void TZyTableReader::TestCancelled() const {
  if (FCancelled && FCancelled()) throw TCancel();
}

std::vector<double> TZyTableReader::WholeEdges(const TZyTableQuestion& Question, const TZyTableRange& Range) const {
  const double Width = (Range.High - Range.Low) / static_cast<double>(WholeColumns);
  if (Question.Kind == TZyTableKind::Records && Above(Range.Low) < Range.High)
    return RecordEdges(Range.Low, Range.High, Width);
  std::vector<double> Result;
  for (std::size_t i = 0; i < WholeColumns; ++i)
    if (const double Edge = Range.Low + static_cast<double>(i) * Width; i == 0 || Edge > Result.back())
      Result.push_back(Edge);
  if (Range.High > Result.back()) Result.push_back(Range.High);
  return Result;
}

std::optional<TZyTableAnswer> TZyTableReader::Answer(const TZyTableQuestion& Question,
                                                     const TCancelled& Cancelled) try {
  const auto Start = std::chrono::steady_clock::now();
  FCancelled = Cancelled;
  TZyTableAnswer Result;
  Result.Number = Question.Number;
  Result.IsWhole = Question.Edges.empty();
  std::vector<double> Edges = Question.Edges;
  if (Result.IsWhole) {
    FTable.Forget();
    const std::optional<TZyTableRange> Range = FTable.Ends();
    if (!Range) return Result;
    Edges = {Range->Low, Range->High};
  } else if (Question.Kind == TZyTableKind::Records && Question.Width > 0) {
    Edges = RecordEdges(Edges.front(), Edges.back(), Question.Width);
  }
  Result.Low = Edges.front();
  Result.High = Edges.back();
  std::vector<TZyTableBlock> Blocks;
  FHasSummary = FTable.MissingIndex().empty() && FSummary.Find();
  if (Result.IsWhole && FHasSummary) {
    Edges = TakeWhole(Question, {Edges.front(), Edges.back()}, Blocks);
  } else {
    if (Result.IsWhole) Edges = WholeEdges(Question, {Edges.front(), Edges.back()});
    TakeBlocks(Edges, Blocks);
  }
  std::vector<TZyTablePoint> Points;
  const std::vector<TZyTableColumn> Columns = DivideAmongColumns(Blocks, Edges);
  for (const TZyTableColumn& Column : Columns) {
    Result.Total.Append(Column.Whole);
    if (Question.Kind == TZyTableKind::Records) {
      Result.Records.push_back(Column.Whole);
    } else {
      AppendPoints(Column, Edges.size() / Columns.size(), Points);
    }
  }
  if (!Columns.empty()) Result.Close = Edges[ColumnAt(Edges, Columns.back().Whole.FirstX) + 1];
  for (const auto& [X, Y] : Points) Result.Records.push_back({X, Y, X, Y, X, Y, X, Y, 1, Y});
  if (!Result.IsWhole) {
    Result.Before = FTable.RowsOf(FTable.Statements().RowBefore(Result.Low));
    Result.Behind = FTable.RowsOf(FTable.Statements().RowFrom(Result.High));
  }
  Result.Seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - Start).count();
  return Result;
} catch (const TCancel&) {
  return {};
}

/// Up to where the summary holds.
double TZyTableReader::SummaryEnd() const { return FHasSummary ? FSummary.HoldsUntil() : -Infinity; }

/// Up to where the summary holds what it has, and a few rows beside each edge; from there on the table, grouped by
/// columns. A row that came late between two blocks lies behind that place, which it drew back.
void TZyTableReader::TakeBlocks(std::span<const double> Edges, std::vector<TZyTableBlock>& Blocks) {
  const double HoldsUntil = std::min(SummaryEnd(), Edges.back());
  if (Edges.front() < HoldsUntil) {
    TRanges Gaps{{Edges.front(), HoldsUntil}};
    for (int Level = FSummary.Levels(); Level > 0; --Level) Gaps = TakeLevel(Level, Edges, Gaps, Blocks);
    TakeRows(Gaps, Blocks);
  }
  if (HoldsUntil < Edges.back()) TakeColumns({{std::max(Edges.front(), HoldsUntil), Edges.back()}}, Edges, Blocks);
  std::ranges::stable_sort(Blocks, IsBefore);
}

/// Of the whole table some thousand blocks as they are, and as many columns of what is behind them: columns without
/// edges within a block cost no rows. Gives their edges.
std::vector<double> TZyTableReader::TakeWhole(const TZyTableQuestion& Question, const TZyTableRange& Whole,
                                              std::vector<TZyTableBlock>& Blocks) {
  const double HoldsUntil = std::clamp(SummaryEnd(), Whole.Low, Whole.High);
  if (Whole.Low < HoldsUntil) {
    const double Ends[] = {Whole.Low, HoldsUntil};
    TRanges Gaps{{Whole.Low, HoldsUntil}};
    int Level = FSummary.Levels();
    for (; Level > 0 && Blocks.size() < WholeColumns; --Level) {
      Blocks.clear();
      Gaps = TakeLevel(Level, Ends, {{Whole.Low, HoldsUntil}}, Blocks);
    }
    for (; Level > 0; --Level) Gaps = TakeLevel(Level, Ends, Gaps, Blocks);
    TakeRows(Gaps, Blocks);
  }
  if (HoldsUntil < Whole.High)
    TakeColumns({{HoldsUntil, Whole.High}}, WholeEdges(Question, {HoldsUntil, Whole.High}), Blocks);
  std::ranges::stable_sort(Blocks, IsBefore);
  std::vector<double> Edges;
  for (std::size_t i = 0; i < Blocks.size(); i += std::max<std::size_t>(Blocks.size() / WholeColumns, 1))
    if (Edges.empty() || Blocks[i].FirstX > Edges.back()) Edges.push_back(Blocks[i].FirstX);
  Edges.push_back(Whole.High);
  return Edges;
}

/// Takes the blocks of a level that lie within a gap and within a column, and gives the gaps that are left. Blocks of a
/// level stand without rows between them.
TZyTableReader::TRanges TZyTableReader::TakeLevel(int Level, std::span<const double> Edges, const TRanges& Gaps,
                                                  std::vector<TZyTableBlock>& Blocks) {
  std::vector<TZyTableBlock> Found;
  InSlices(
      Gaps, [&](auto Slice) { return FTable.Statements().SummaryBlocks(FSummary.QuotedName(), Level, Slice); },
      [&](const QSqlQuery& Query) { Found.push_back(FTable.BlockOf(Query)); });
  std::ranges::sort(Found, IsBefore);
  TRanges Result;
  auto Next = Found.begin();
  for (const TZyTableRange& Gap : Gaps) {
    double From = Gap.Low;
    for (bool IsFirst = true; Next != Found.end() && Next->FirstX < Gap.High; ++Next, IsFirst = false) {
      if (IsFirst && From < Next->FirstX) Result.push_back({From, Next->FirstX});
      From = Above(Next->LastX);
      const double Limit = std::min(Gap.High, Edges[ColumnAt(Edges, Next->FirstX) + 1]);
      if (Next->LastX < Limit) {
        Blocks.push_back(*Next);
      } else {
        Result.push_back({Next->FirstX, std::min(From, Gap.High)});
      }
    }
    if (From < Gap.High) Result.push_back({From, Gap.High});
  }
  return Result;
}

void TZyTableReader::TakeRows(const TRanges& Ranges, std::vector<TZyTableBlock>& Blocks) {
  InSlices(
      Ranges, [this](auto Slice) { return FTable.Statements().Rows(Slice); },
      [&](const QSqlQuery& Query) { Blocks.push_back(FTable.RowOf(Query)); });
}

/// Where so few rows come of it that a series would not reduce them, the rows themselves are taken.
void TZyTableReader::TakeColumns(const TRanges& Ranges, std::span<const double> Edges,
                                 std::vector<TZyTableBlock>& Blocks) {
  constexpr std::size_t FewRows = 16;  // of a column
  const std::optional<TZyTableRange> Whole = Ranges.empty() ? std::nullopt : FTable.Ends();
  if (!Whole) return;
  TRanges Within;
  std::size_t Columns = 0;
  for (const TZyTableRange& Range : Ranges) {
    const TZyTableRange Part{std::max(Range.Low, Whole->Low), std::min(Range.High, Whole->High)};
    if (!(Part.Low < Part.High)) continue;
    Within.push_back(Part);
    Columns += ColumnAt(Edges, std::nextafter(Part.High, -Infinity)) - ColumnAt(Edges, Part.Low) + 1;
  }
  if (Within.empty()) return;
  std::vector<TZyTableBlock> Found;
  std::size_t Rows = 0;
  const TRanges Pieces =
      PiecesOf(Within, Edges, std::clamp<std::size_t>(PiecesOfColumn * Edges.size() / Columns, 1, MostPieces));
  if (!FTable.MissingIndex().empty()) return ScanRows(Pieces, FewRows * Edges.size(), Blocks);
  InSlices(
      Pieces, [this](auto Slice) { return FTable.Statements().Blocks(Slice); },
      [&](const QSqlQuery& Query) {
        Found.push_back(FTable.BlockOf(Query));
        Rows += static_cast<std::size_t>(Found.back().Count);
      });
  if (Rows <= FewRows * Edges.size()) return TakeRows(Within, Blocks);
  Blocks.insert(Blocks.end(), Found.begin(), Found.end());
}

/// Without an index each range would read the whole table: here one statement reads it once, in any order. Up to
/// FewRows are taken as they are.
void TZyTableReader::ScanRows(const TRanges& Pieces, std::size_t FewRows, std::vector<TZyTableBlock>& Blocks) {
  constexpr int Often = 4096;
  std::vector<TZyTableBlock> Rows;
  std::vector<TZyTableBlock> Found(Pieces.size());
  const TZyTableRange Whole[] = {{Pieces.front().Low, Pieces.back().High}};
  QSqlQuery Query = FConnection.Run(QString::fromStdString(FTable.Statements().Rows(Whole)));
  for (int i = 0; Query.next(); ++i) {
    if (i % Often == 0) TestCancelled();
    const TZyTableBlock Row = FTable.RowOf(Query);
    const auto Behind = std::ranges::upper_bound(Pieces, Row.FirstX, {}, &TZyTableRange::Low);
    if (Behind == Pieces.begin()) continue;
    Found[static_cast<std::size_t>(Behind - Pieces.begin()) - 1].Insert(Row);
    if (Rows.size() <= FewRows) Rows.push_back(Row);
  }
  FConnection.CheckEnd(Query);
  if (Rows.size() <= FewRows) return static_cast<void>(Blocks.insert(Blocks.end(), Rows.begin(), Rows.end()));
  std::ranges::copy_if(Found, std::back_inserter(Blocks), [](const TZyTableBlock& Each) { return Each.Count > 0; });
}

/// A statement at a time for so many ranges as take some tenths of a second, since no driver stops one under way.
template <class TStatement, class TTake>
void TZyTableReader::InSlices(const TRanges& Ranges, const TStatement& Statement, const TTake& Take) {
  using TClock = std::chrono::steady_clock;
  constexpr std::chrono::milliseconds Quick(50), Slow(250);
  std::size_t Length = 256;
  for (std::size_t First = 0; First < Ranges.size();) {
    TestCancelled();
    const auto Start = TClock::now();
    const std::size_t Number = std::min(Length, Ranges.size() - First);
    QSqlQuery Query = FConnection.Run(QString::fromStdString(Statement(std::span(Ranges).subspan(First, Number))));
    while (Query.next()) Take(Query);
    FConnection.CheckEnd(Query);
    First += Number;
    const auto Took = TClock::now() - Start;
    if (Took < Quick) Length = std::min(4 * Length, MostRanges);
    if (Took > Slow) Length = std::max<std::size_t>(Length / 2, 1);
  }
}

// --- All rows -------------------------------------------------------------------------------------------------------

void TZyTableReader::ForEachBlock(const std::function<bool(std::span<const TZyTableBlock>)>& Visit) {
  constexpr std::size_t PageLength = 50000;
  const std::optional<TZyTableRange> Range = FTable.Ends();
  if (!Range) return;
  for (double X = Range->Low; X < Range->High;) {
    const std::vector<TZyTableBlock> Rows = FTable.TakePage(X, PageLength);
    if (!Rows.empty() && !Visit(Rows)) return;
  }
}

}  // namespace zy
