#include "tables/ZyTableReader.h"

#include <QMetaType>
#include <QSqlField>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QVariant>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <iterator>
#include <limits>

#include "platform/sql/SqlConnection.h"
#include "tables/ZyTableSummary.h"
#include "texts/Exceptions.h"
#include "texts/ZyTableTexts.h"

namespace zy {
namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
/// Ranges of one statement: some hundred kilobytes of text, which every engine takes.
constexpr std::size_t MostRanges = 4096;
/// Pieces of a column of pixels that are grouped apart, so that more rows than ends and extremes come of it.
constexpr std::size_t PiecesOfColumn = 3, MostPieces = 64;

double Above(double Value) { return std::nextafter(Value, Infinity); }

bool IsNumber(int Type) {
  switch (Type) {
    case QMetaType::Bool:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Float:
    case QMetaType::Double:
      return true;
    default:
      return false;
  }
}

bool IsInteger(int Type) { return IsNumber(Type) && Type != QMetaType::Float && Type != QMetaType::Double; }

double NumberOf(const QVariant& Value, const std::string& Field, const TZyTableFields& Fields,
                const std::string& Title) {
  if (!IsNumber(Value.typeId()) && !Value.isNull())
    throw EDatabaseError(
        Format(LoadResString(_sTableTextValue), {Title, Field, Fields.Table, Value.toString().left(40).toStdString()}));
  return Value.toDouble();
}

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
    : FConnection(Connection),
      FFields(std::move(Fields)),
      FSummary(Connection, FFields, std::move(Summary)),
      FTitle(std::move(Title)) {}

TZyTableFields TZyTableReader::Quoted(TSqlConnection& Connection, const TZyTableFields& Fields) {
  const auto Field = [&](const std::string& Name) {
    return Connection.QuotedField(QString::fromStdString(Name)).toStdString();
  };
  return {Connection.QuotedTable(Fields.Table).toStdString(),
          Field(Fields.X),
          Field(Fields.First),
          Field(Fields.Max),
          Field(Fields.Min),
          Field(Fields.Last)};
}

// --- The table ------------------------------------------------------------------------------------------------------

/// An embedded database has kinds of values and not of columns: there a text shows when it is read.
void TZyTableReader::Test() {
  const TZyTableFields Names = Quoted(FConnection, FFields);
  QSqlQuery Query = FConnection.Run(QString::fromStdString("SELECT t." + Names.X + ", t." + Names.First + ", t." +
                                                           Names.Max + ", t." + Names.Min + ", t." + Names.Last +
                                                           " FROM " + Names.Table + " t WHERE 1 = 0"));
  const QSqlRecord Layout = Query.record();
  const std::string* const Fields[] = {&FFields.X, &FFields.First, &FFields.Max, &FFields.Min, &FFields.Last};
  for (int i = 0; i < Layout.count() && !FConnection.IsEmbedded(); ++i)
    if (!IsNumber(Layout.field(i).metaType().id()))
      throw EDatabaseError(Format(LoadResString(_sTableNoNumbers), {FTitle, *Fields[i], FFields.Table}));
  const bool IsServer = !FConnection.IsEmbedded();
  FStatements.emplace(Names, TZyTableDialect{IsServer, IsServer && IsInteger(Layout.field(0).metaType().id())});
}

std::string TZyTableReader::Notice(std::int64_t Rows) {
  constexpr std::int64_t ManyRows = 2000000;
  if (!MissingIndex().empty())
    return Format(LoadResString(_sTableNoIndex), {FTitle, FFields.Table, FFields.X, MissingIndex()});
  if (Rows < ManyRows || FHasSummary) return {};
  return Format(LoadResString(_sTableNoSummary), {FTitle, FFields.Table, Rows});
}

void TZyTableReader::TestIndex() {
  if (!MissingIndex().empty()) throw EDatabaseError(Notice(0));
}

/// The statement that makes the index that is missing; empty when there is one, when there can be none, as for a view,
/// and for an engine that cannot be asked.
const std::string& TZyTableReader::MissingIndex() {
  if (!FMissingIndex) FMissingIndex = FindMissingIndex();
  return *FMissingIndex;
}

std::string TZyTableReader::FindMissingIndex() {
  const QString Table = QString::fromStdString(FFields.Table), X = QString::fromStdString(FFields.X);
  const TZyTableFields Names = Quoted(FConnection, FFields);
  const QStringList Key = FConnection.PrimaryKey(QString::fromStdString(Names.Table));
  if (!Key.isEmpty() && Key.front().compare(X, Qt::CaseInsensitive) == 0) return {};
  QString Statement;
  QVariantList Values;
  if (FConnection.IsEmbedded()) {
    Statement =
        "SELECT (SELECT COUNT(*) FROM pragma_index_list(?) l, pragma_index_info(l.name) i WHERE i.seqno = 0 AND "
        "lower(i.name) = lower(?)) + (SELECT COUNT(*) FROM sqlite_master WHERE type = 'view' AND name = ?)";
    Values = {Table, X, Table};
  } else {
    Statement =
        "SELECT (SELECT COUNT(*) FROM pg_index i JOIN pg_attribute a ON a.attrelid = i.indrelid AND a.attnum = "
        "i.indkey[0] WHERE i.indrelid = c.oid AND a.attname = ?) + CASE WHEN c.relkind IN ('r', 'p') THEN 0 ELSE 1 "
        "END FROM pg_class c WHERE c.oid = CAST(? AS regclass)";
    Values = {X, QString::fromStdString(Names.Table)};
  }
  QSqlQuery Query = FConnection.Run(Statement, Values);
  if (!Query.next() || Query.value(0).toInt() > 0) return {};
  std::string Columns = Names.X;
  for (const std::string* Each : {&Names.First, &Names.Max, &Names.Min, &Names.Last})
    if (Columns.find(*Each) == std::string::npos) Columns += ", " + *Each;
  return "CREATE INDEX " + FConnection.QuotedField(Table.section('.', -1) + "_" + X).toStdString() + " ON " +
         Names.Table + " (" + Columns + ")";
}

TZyTableBlock TZyTableReader::RowOf(const QSqlQuery& Query, const TZyTableFields& Fields, const std::string& Title) {
  TZyTableBlock Row;
  Row.Count = 1;
  Row.FirstX = Row.LastX = Row.MinX = Row.MaxX = NumberOf(Query.value(0), Fields.X, Fields, Title);
  Row.First = NumberOf(Query.value(1), Fields.First, Fields, Title);
  const bool IsSingle = Fields.IsSingle();
  Row.Max = IsSingle ? Row.First : NumberOf(Query.value(2), Fields.Max, Fields, Title);
  Row.Min = IsSingle ? Row.First : NumberOf(Query.value(3), Fields.Min, Fields, Title);
  Row.Last = Row.Sum = IsSingle ? Row.First : NumberOf(Query.value(4), Fields.Last, Fields, Title);
  return Row;
}

TZyTableBlock TZyTableReader::BlockOf(const QSqlQuery& Query, const TZyTableFields& Fields, const std::string& Title) {
  const std::string* const Names[] = {&Fields.X,   &Fields.First, &Fields.X,   &Fields.Last, &Fields.X,
                                      &Fields.Min, &Fields.X,     &Fields.Max, &Fields.Last, &Fields.Last};
  double Values[10];
  for (int i = 0; i < 10; ++i) Values[i] = NumberOf(Query.value(i), *Names[i], Fields, Title);
  TZyTableBlock Block{Values[0], Values[1], Values[2], Values[3], Values[4],
                      Values[5], Values[6], Values[7], 0,         Values[9]};
  Block.Count = static_cast<std::int64_t>(Values[8]);
  return Block;
}

std::vector<TZyTableBlock> TZyTableReader::RowsOf(const std::string& Statement) {
  std::vector<TZyTableBlock> Result;
  QSqlQuery Query = FConnection.Run(QString::fromStdString(Statement));
  while (Query.next()) Result.push_back(RowOf(Query, FFields, FTitle));
  FConnection.CheckEnd(Query);
  return Result;
}

std::optional<TZyTableRange> TZyTableReader::Ends() {
  QSqlQuery Query = FConnection.Run(QString::fromStdString(FStatements->Ends()));
  if (!Query.next() || Query.value(0).isNull()) return {};
  return TZyTableRange{NumberOf(Query.value(0), FFields.X, FFields, FTitle),
                       NumberOf(Query.value(1), FFields.X, FFields, FTitle)};
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
  if (!FStatements) Test();
  TZyTableAnswer Result;
  Result.Number = Question.Number;
  Result.IsWhole = Question.Edges.empty();
  std::vector<double> Edges = Question.Edges;
  if (Result.IsWhole) {
    const std::optional<TZyTableRange> Range = Ends();
    if (!Range) return Result;
    Edges = {Range->Low, Above(Range->High)};
  } else if (Question.Kind == TZyTableKind::Records && Question.Width > 0) {
    Edges = RecordEdges(Edges.front(), Edges.back(), Question.Width);
  }
  Result.Low = Edges.front();
  Result.High = Edges.back();
  std::vector<TZyTableBlock> Blocks;
  FHasSummary = MissingIndex().empty() && FSummary.Find();
  if (Result.IsWhole && FHasSummary) {
    Edges = TakeWhole(Edges, Blocks);
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
    Result.Before = RowsOf(FStatements->RowBefore(Result.Low));
    Result.Behind = RowsOf(FStatements->RowFrom(Result.High));
  }
  Result.Seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - Start).count();
  return Result;
} catch (const TCancel&) {
  return {};
}

/// From the summary what it has, the rest from the table: a few rows beside each edge up to where the summary holds,
/// and grouped by columns beyond.
void TZyTableReader::TakeBlocks(std::span<const double> Edges, std::vector<TZyTableBlock>& Blocks) {
  TRanges Gaps{{Edges.front(), Edges.back()}};
  for (int Level = FSummary.Levels(); FHasSummary && Level > 0; --Level) Gaps = TakeLevel(Level, Edges, Gaps, Blocks);
  TakeGaps(Gaps, Edges, Blocks);
}

/// Of the whole table some thousand blocks as they are, and what is behind them: columns without edges within a block
/// cost no rows. Gives their edges.
std::vector<double> TZyTableReader::TakeWhole(std::span<const double> Ends, std::vector<TZyTableBlock>& Blocks) {
  TRanges Gaps;
  int Level = FSummary.Levels();
  for (; Level > 0 && Blocks.size() < WholeColumns; --Level) {
    Blocks.clear();
    Gaps = TakeLevel(Level, Ends, {{Ends.front(), Ends.back()}}, Blocks);
  }
  for (; Level > 0; --Level) Gaps = TakeLevel(Level, Ends, Gaps, Blocks);
  TakeGaps(Gaps, Ends, Blocks);
  std::vector<double> Edges;
  for (std::size_t i = 0; i < Blocks.size(); i += std::max<std::size_t>(Blocks.size() / WholeColumns, 1))
    if (Edges.empty() || Blocks[i].FirstX > Edges.back()) Edges.push_back(Blocks[i].FirstX);
  Edges.push_back(Ends.back());
  return Edges;
}

void TZyTableReader::TakeGaps(const TRanges& Gaps, std::span<const double> Edges, std::vector<TZyTableBlock>& Blocks) {
  const double HoldsUntil = FHasSummary ? FSummary.HoldsUntil() : -Infinity;
  TRanges Few, Many;
  for (const TZyTableRange& Gap : Gaps) {
    if (Gap.Low < HoldsUntil) Few.push_back({Gap.Low, std::min(Gap.High, HoldsUntil)});
    if (Gap.High > HoldsUntil) Many.push_back({std::max(Gap.Low, HoldsUntil), Gap.High});
  }
  TakeRows(Few, Blocks);
  TakeColumns(Many, Edges, Blocks);
  std::ranges::stable_sort(Blocks, IsBefore);
}

/// Takes the blocks of a level that lie within a gap and within a column, and gives the gaps that are left. Blocks of a
/// level stand without rows between them.
TZyTableReader::TRanges TZyTableReader::TakeLevel(int Level, std::span<const double> Edges, const TRanges& Gaps,
                                                  std::vector<TZyTableBlock>& Blocks) {
  std::vector<TZyTableBlock> Found;
  InSlices(
      Gaps, [&](auto Slice) { return FStatements->SummaryBlocks(FSummary.QuotedName(), Level, Slice); },
      [&](const QSqlQuery& Query) { Found.push_back(BlockOf(Query, FFields, FTitle)); });
  std::ranges::sort(Found, IsBefore);
  TRanges Result;
  auto Next = Found.begin();
  for (const TZyTableRange& Gap : Gaps) {
    double From = Gap.Low;
    for (bool IsFirst = true; Next != Found.end() && Next->FirstX < Gap.High; ++Next, IsFirst = false) {
      if (IsFirst && From < Next->FirstX) Result.push_back({From, Next->FirstX});
      From = Above(Next->LastX);
      const double Limit = std::min({Gap.High, FSummary.HoldsUntil(), Edges[ColumnAt(Edges, Next->FirstX) + 1]});
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
      Ranges, [this](auto Slice) { return FStatements->Rows(Slice); },
      [&](const QSqlQuery& Query) { Blocks.push_back(RowOf(Query, FFields, FTitle)); });
}

/// Where so few rows come of it that a series would not reduce them, the rows themselves are taken.
void TZyTableReader::TakeColumns(const TRanges& Ranges, std::span<const double> Edges,
                                 std::vector<TZyTableBlock>& Blocks) {
  constexpr std::int64_t FewRows = 16;
  const std::optional<TZyTableRange> Whole = Ranges.empty() ? std::nullopt : Ends();
  if (!Whole) return;
  TRanges Within;
  std::size_t Columns = 0;
  for (const TZyTableRange& Range : Ranges) {
    const TZyTableRange Part{std::max(Range.Low, Whole->Low), std::min(Range.High, Above(Whole->High))};
    if (!(Part.Low < Part.High)) continue;
    Within.push_back(Part);
    Columns += ColumnAt(Edges, std::nextafter(Part.High, -Infinity)) - ColumnAt(Edges, Part.Low) + 1;
  }
  if (Within.empty()) return;
  std::vector<TZyTableBlock> Found;
  std::int64_t Rows = 0;
  const TRanges Pieces = PiecesOf(Within, Edges, std::min(PiecesOfColumn * Edges.size() / Columns, MostPieces));
  if (!MissingIndex().empty()) return ScanRows(Pieces, Blocks);
  InSlices(
      Pieces, [this](auto Slice) { return FStatements->Blocks(Slice); },
      [&](const QSqlQuery& Query) {
        Found.push_back(BlockOf(Query, FFields, FTitle));
        Rows += Found.back().Count;
      });
  if (Rows <= FewRows * static_cast<std::int64_t>(Edges.size())) return TakeRows(Within, Blocks);
  Blocks.insert(Blocks.end(), Found.begin(), Found.end());
}

/// Without an index each range would read the whole table: here one statement reads it once, in any order.
void TZyTableReader::ScanRows(const TRanges& Pieces, std::vector<TZyTableBlock>& Blocks) {
  constexpr int Often = 4096;
  std::vector<TZyTableBlock> Found(Pieces.size());
  const TZyTableRange Whole[] = {{Pieces.front().Low, Pieces.back().High}};
  QSqlQuery Query = FConnection.Run(QString::fromStdString(FStatements->Rows(Whole)));
  for (int i = 0; Query.next(); ++i) {
    if (i % Often == 0) TestCancelled();
    const TZyTableBlock Row = RowOf(Query, FFields, FTitle);
    const auto Behind = std::ranges::upper_bound(Pieces, Row.FirstX, {}, &TZyTableRange::Low);
    if (Behind != Pieces.begin()) Found[static_cast<std::size_t>(Behind - Pieces.begin()) - 1].Insert(Row);
  }
  FConnection.CheckEnd(Query);
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

/// By stretches of X that are made longer and shorter, so that each holds some ten thousand rows.
void TZyTableReader::ForEachBlock(const std::function<bool(std::span<const TZyTableBlock>)>& Visit) {
  constexpr std::size_t Wanted = 50000;
  if (!FStatements) Test();
  const std::optional<TZyTableRange> Range = Ends();
  if (!Range) return;
  double Width = (Range->High - Range->Low) / 1000;
  for (double Low = Range->Low; Low <= Range->High;) {
    const double High = std::min(std::max(Low + Width, Above(Low)), Above(Range->High));
    const TZyTableRange Piece[] = {{Low, High}};
    std::vector<TZyTableBlock> Rows = RowsOf(FStatements->Rows(Piece));
    std::ranges::stable_sort(Rows, IsBefore);
    if (!Rows.empty() && !Visit(Rows)) return;
    Low = High;
    if (Rows.size() < Wanted / 2) Width *= 2;
    if (Rows.size() > Wanted * 2) Width /= 2;
  }
}

}  // namespace zy
