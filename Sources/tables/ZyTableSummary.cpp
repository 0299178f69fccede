#include "tables/ZyTableSummary.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QVariant>
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <utility>

#include "platform/sql/SqlConnection.h"
#include "texts/Exceptions.h"
#include "texts/ZyTableTexts.h"

namespace zy {
namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
/// Rows of a block of the lowest level, and blocks of one of the others.
constexpr int RowsOfBlock = 64, BlocksOfBlock = 8;
constexpr std::size_t MostLevels = 16;
/// Rows that are read at a time, about.
constexpr std::size_t RowsOfPage = 100000;
constexpr std::size_t RowsOfInsert = 200;
/// What stands for "from the first row on" in the row of level 0.
constexpr double Nothing = -std::numeric_limits<double>::max();

QString ToQt(const std::string& Text) { return QString::fromStdString(Text); }

/// Makes what a scope reads and writes one transaction, while which nobody else writes to the table. Throws
/// EDatabaseError, also within a transaction of the caller's.
class TTransaction {
 public:
  explicit TTransaction(TZyTable& Table) : FConnection(Table.Connection()) {
    FConnection.Run(FConnection.IsEmbedded() ? "BEGIN IMMEDIATE" : "BEGIN");
    if (FConnection.IsEmbedded()) return;
    try {
      FConnection.Run(ToQt("LOCK TABLE " + Table.Quoted().Table + " IN SHARE MODE"));
    } catch (const EDatabaseError&) {
      RollBack();
      throw;
    }
  }
  ~TTransaction() {
    if (!FIsDone) RollBack();
  }
  void Commit() {
    FConnection.Run("COMMIT");
    FIsDone = true;
  }

 private:
  void RollBack() {
    try {
      FConnection.Opened().rollback();
    } catch (const EDatabaseError&) {
      // Lost, and the transaction with it.
    }
  }

  TSqlConnection& FConnection;
  bool FIsDone = false;
};

/// A name of at most so many bytes as leave room for the endings of triggers: servers cut longer ones, some to the
/// same.
std::string Shortened(const std::string& Name) {
  constexpr std::size_t Most = 48, Kept = 36;
  if (Name.size() <= Most) return Name;
  std::uint32_t Hash = 2166136261u;  // FNV-1a
  for (const char Letter : Name) Hash = (Hash ^ static_cast<unsigned char>(Letter)) * 16777619u;
  std::size_t Length = Kept;
  while ((static_cast<unsigned char>(Name[Length]) & 0xC0u) == 0x80u) --Length;  // not within a character of UTF-8
  char Digits[9];
  std::snprintf(Digits, sizeof Digits, "%08x", Hash);
  return Name.substr(0, Length) + '_' + Digits;
}

std::string RowText(int Level, const TZyTableBlock& Block) {
  std::string Result = "(" + std::to_string(Level);
  for (const double Value :
       {Block.FirstX, Block.First, Block.LastX, Block.Last, Block.MinX, Block.Min, Block.MaxX, Block.Max})
    Result += ", " + TZyTableStatements::Literal(Value);
  return Result + ", " + std::to_string(Block.Count) + ", " + TZyTableStatements::Literal(Block.Sum) + ")";
}

}  // namespace

TZyTableSummary::TZyTableSummary(TZyTable& Table, std::string Name)
    : FTable(Table),
      FConnection(Table.Connection()),
      FName(std::move(Name)),
      FQuotedName(FConnection.QuotedTable(FName).toStdString()),
      FHoldsUntil(-Infinity),
      FWrittenUntil(Nothing) {}

std::string TZyTableSummary::NameFor(const TZyTableFields& Fields) {
  std::string Result = Fields.Table + "_" + Fields.X + "_" + Fields.First;
  if (!Fields.IsSingle()) Result += "_" + Fields.Max + "_" + Fields.Min + "_" + Fields.Last;
  Result += "_summary";
  const std::size_t Bare = Fields.Table.rfind('.') + 1;
  return Fields.Table.substr(0, Bare) + Shortened(Result.substr(Bare));
}

/// Name of a trigger or a function of the summary.
std::string TZyTableSummary::PartName(const char* Ending) const {
  return Shortened(FName.substr(FName.rfind('.') + 1)) + Ending;
}

/// The function of a server's triggers, in the schema of the summary.
std::string TZyTableSummary::FunctionName() const {
  return FConnection.QuotedTable(FName.substr(0, FName.rfind('.') + 1) + PartName("_drawback")).toStdString();
}

bool TZyTableSummary::IsThere() {
  QSqlQuery Query =
      FConnection.IsEmbedded()
          ? FConnection.Run(
                "SELECT COUNT(*) FROM sqlite_master WHERE type IN ('table', 'view') AND lower(name) = lower(?)",
                {ToQt(FName).section('.', -1)})
          : FConnection.Run("SELECT COUNT(*) WHERE to_regclass(?) IS NOT NULL", {ToQt(FQuotedName)});
  return Query.next() && Query.value(0).toInt() > 0;
}

/// Throws EDatabaseError when there is something of that name which is no summary.
void TZyTableSummary::TestIsNoOther() {
  if (!IsThere()) return;
  const QSqlQuery Query = FConnection.Run(ToQt("SELECT * FROM " + FQuotedName + " WHERE 1 = 0"));
  QStringList Columns;
  for (int i = 0; i < Query.record().count(); ++i) Columns.append(Query.record().fieldName(i));
  if (Columns.join(", ") != ToQt(std::string("lvl, ") + TZyTableStatements::BlockFields))
    throw EDatabaseError(Format(LoadResString(_sTableNotSummary), {FTable.Title(), FName}));
}

bool TZyTableSummary::Find() {
  FLevels = 0;
  FHoldsUntil = -Infinity;
  if (!IsThere() || !HasTriggers()) return false;
  QSqlQuery Query = FConnection.Run(
      ToQt("SELECT t.x0, (SELECT MAX(lvl) FROM " + FQuotedName + ") FROM " + FQuotedName + " t WHERE t.lvl = 0"));
  if (!Query.next()) return false;
  FHoldsUntil = std::max(Query.value(0).toDouble(), Nothing);  // minus infinity is no number in a statement
  FLevels = Query.value(1).toInt();
  return true;
}

// --- Triggers -------------------------------------------------------------------------------------------------------

/// Triggers go with their table, also where it gets another name. One that was dropped and made again has none, and
/// what was summed up is not its own.
bool TZyTableSummary::HasTriggers() {
  const QString Name = ToQt(PartName("_change"));
  QSqlQuery Query =
      FConnection.IsEmbedded()
          ? FConnection.Run(
                "SELECT COUNT(*) FROM sqlite_master WHERE type = 'trigger' AND name = ? AND lower(tbl_name) = lower(?)",
                {Name, ToQt(FTable.Fields().Table).section('.', -1)})
          : FConnection.Run("SELECT COUNT(*) FROM pg_trigger WHERE tgname = ? AND tgrelid = to_regclass(?)",
                            {Name, ToQt(FTable.Quoted().Table)});
  return Query.next() && Query.value(0).toInt() > 0;
}

/// A row that comes, goes or changes draws back the place up to which the summary holds.
void TZyTableSummary::MakeTriggers() {
  const auto Quoted = [&](const char* Ending) { return FConnection.QuotedField(ToQt(PartName(Ending))).toStdString(); };
  // Within a trigger of an embedded database no schema may stand before a table: it is that of its own.
  const std::string Summary = FQuotedName.substr(FConnection.IsEmbedded() ? FQuotedName.rfind('.') + 1 : 0);
  const auto DrawBack = [&](const char* Row) {
    const std::string X = std::string(Row) + "." + FTable.Quoted().X;
    return "UPDATE " + Summary + " SET x0 = " + X + " WHERE lvl = 0 AND x0 > " + X + "; ";
  };
  if (FConnection.IsEmbedded()) {
    const auto Make = [&](const char* Ending, const char* Event, const std::string& Work) {
      FConnection.Run(ToQt("CREATE TRIGGER IF NOT EXISTS " + Quoted(Ending) + " AFTER " + Event + " ON " +
                           FTable.Quoted().Table + " BEGIN " + Work + "END"));
    };
    Make("_insert", "INSERT", DrawBack("NEW"));
    Make("_delete", "DELETE", DrawBack("OLD"));
    Make("_change", "UPDATE", DrawBack("OLD") + DrawBack("NEW"));
    return;
  }
  FConnection.Run(ToQt("CREATE OR REPLACE FUNCTION " + FunctionName() +
                       "() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER SET search_path FROM CURRENT AS "
                       "$zy_summary$ BEGIN IF TG_OP = 'TRUNCATE' THEN UPDATE " +
                       FQuotedName + " SET x0 = " + TZyTableStatements::Literal(Nothing) +
                       " WHERE lvl = 0; RETURN NULL; END IF; IF TG_OP <> 'INSERT' THEN " + DrawBack("OLD") +
                       "END IF; IF TG_OP <> 'DELETE' THEN " + DrawBack("NEW") +
                       "END IF; RETURN NULL; END $zy_summary$"));
  const auto Make = [&](const char* Ending, const char* Events, const char* Each) {
    FConnection.Run(ToQt("CREATE TRIGGER " + Quoted(Ending) + " AFTER " + Events + " ON " + FTable.Quoted().Table +
                         " FOR EACH " + Each + " EXECUTE FUNCTION " + FunctionName() + "()"));
  };
  Make("_change", "INSERT OR UPDATE OR DELETE", "ROW");
  Make("_truncate", "TRUNCATE", "STATEMENT");
}

void TZyTableSummary::Drop() {
  TestIsNoOther();
  const auto Quoted = [&](const char* Ending) { return FConnection.QuotedField(ToQt(PartName(Ending))).toStdString(); };
  if (FConnection.IsEmbedded()) {
    for (const char* Ending : {"_insert", "_delete", "_change"})
      FConnection.Run(ToQt("DROP TRIGGER IF EXISTS " + Quoted(Ending)));
  } else {
    FConnection.Run(ToQt("DROP FUNCTION IF EXISTS " + FunctionName() + "() CASCADE"));
  }
  FConnection.Run(ToQt("DROP TABLE IF EXISTS " + FQuotedName));
}

// --- Making ---------------------------------------------------------------------------------------------------------

/// The triggers come first: a row that changes while the summary is made draws it back as well.
void TZyTableSummary::Make() {
  FConnection.Run(
      ToQt("CREATE TABLE " + FQuotedName +
           " (lvl INTEGER NOT NULL, x0 DOUBLE PRECISION NOT NULL, y0 DOUBLE PRECISION, x1 DOUBLE PRECISION, y1 "
           "DOUBLE PRECISION, xlow DOUBLE PRECISION, ylow DOUBLE PRECISION, xhigh DOUBLE PRECISION, yhigh DOUBLE "
           "PRECISION, n BIGINT, s DOUBLE PRECISION, PRIMARY KEY (lvl, x0))" +
           (FConnection.IsEmbedded() ? " WITHOUT ROWID" : "")));
  FConnection.Run(
      ToQt("INSERT INTO " + FQuotedName + " (lvl, x0) VALUES (0, " + TZyTableStatements::Literal(Nothing) + ")"));
  MakeTriggers();
}

/// All or nothing: a view, say, has no triggers.
void TZyTableSummary::Begin() {
  TTransaction Transaction(FTable);
  Drop();
  Make();
  Transaction.Commit();
  Find();
}

/// The statement for those blocks of a level that are not yet part of one above.
std::string TZyTableSummary::OpenBlocksOf(int Level) const {
  return std::string("SELECT ") + TZyTableStatements::BlockFields + " FROM " + FQuotedName +
         " WHERE lvl = " + std::to_string(Level) + " AND x0 > COALESCE((SELECT MAX(x1) FROM " + FQuotedName +
         " WHERE lvl = " + std::to_string(Level + 1) + "), " + TZyTableStatements::Literal(Nothing) + ") ORDER BY x0";
}

/// Blocks that no longer hold go; those that are not yet part of a block above open one there. Gives the X of the last
/// row that is still summed up.
double TZyTableSummary::TakeUp() {
  FOpen.assign(1, {});
  FWrittenUntil = FHoldsUntil;
  FConnection.Run(
      ToQt("DELETE FROM " + FQuotedName + " WHERE lvl > 0 AND x1 >= " + TZyTableStatements::Literal(FHoldsUntil)));
  for (int Level = 1; Level <= FLevels; ++Level) {
    QSqlQuery Query = FConnection.Run(ToQt(OpenBlocksOf(Level)));
    FOpen.emplace_back();
    TZyTableBlock Last;
    while (Query.next()) {
      Last = FTable.BlockOf(Query);
      FOpen.back().Open.Append(Last);
      ++FOpen.back().Parts;
    }
    FConnection.CheckEnd(Query);
  }
  while (FOpen.size() > 1 && FOpen.back().Parts == 0) FOpen.pop_back();
  QSqlQuery Query = FConnection.Run(ToQt("SELECT MAX(x1) FROM " + FQuotedName + " WHERE lvl = 1"));
  return Query.next() && !Query.value(0).isNull() ? Query.value(0).toDouble() : Nothing;
}

/// Whether there are blocks of rows that REPLACE pushed out without a word to the triggers, which leaves fewer rows
/// than were summed up. What a trigger drew back since is not counted yet.
bool TZyTableSummary::HasRowsPushedOut(double LastX) {
  if (!FConnection.IsEmbedded() || !FTable.HasOtherKey()) return false;
  QSqlQuery Query =
      FConnection.Run(ToQt("SELECT (SELECT SUM(n) FROM " + FQuotedName + " WHERE lvl = 1) <> (" +
                           FTable.Statements().CountBefore(std::nextafter(LastX, Infinity)) + ") FROM " + FQuotedName +
                           " WHERE lvl = 0 AND x0 = " + TZyTableStatements::Literal(FHoldsUntil)));
  return Query.next() && Query.value(0).toBool();
}

/// Rows of one X stay together, so that a block ends between two values of X.
void TZyTableSummary::TakeRow(const TZyTableBlock& Row) {
  if (FOpen[0].Parts >= RowsOfBlock && Row.FirstX != FOpen[0].Open.LastX) Close(0);
  FOpen[0].Open.Append(Row);
  ++FOpen[0].Parts;
}

void TZyTableSummary::Close(std::size_t Level) {
  const TZyTableBlock Block = FOpen[Level].Open;
  FOpen[Level] = {};
  FNew.push_back(RowText(static_cast<int>(Level) + 1, Block));
  if (Level + 1 == MostLevels) return;
  if (FOpen.size() == Level + 1) FOpen.emplace_back();
  FOpen[Level + 1].Open.Append(Block);
  if (++FOpen[Level + 1].Parts == BlocksOfBlock) Close(Level + 1);
}

/// Writes what was closed, and that the summary holds up to the first row that is in no block yet. Where a trigger drew
/// it back meanwhile it stays drawn back.
void TZyTableSummary::Write(double Until) {
  for (std::size_t First = 0; First < FNew.size(); First += RowsOfInsert) {
    std::string Rows;
    for (std::size_t i = First; i < std::min(First + RowsOfInsert, FNew.size()); ++i)
      Rows += (Rows.empty() ? "" : ", ") + FNew[i];
    FConnection.Run(
        ToQt("INSERT INTO " + FQuotedName + " (lvl, " + TZyTableStatements::BlockFields + ") VALUES " + Rows));
  }
  FConnection.Run(ToQt("UPDATE " + FQuotedName + " SET x0 = " + TZyTableStatements::Literal(Until) +
                       " WHERE lvl = 0 AND x0 = " + TZyTableStatements::Literal(FWrittenUntil)));
  FNew.clear();
  FWrittenUntil = Until;
}

void TZyTableSummary::Update(const TProgress& Progress, bool Anew) {
  if (!FTable.MissingIndex().empty())
    throw EDatabaseError(Format(LoadResString(_sTableNoIndex),
                                {FTable.Title(), FTable.Fields().Table, FTable.Fields().X, FTable.MissingIndex()}));
  if (Anew || !Find()) Begin();
  double Last = TakeUp();
  if (HasRowsPushedOut(Last)) {
    Begin();
    Last = TakeUp();
  }
  const std::optional<TZyTableRange> Ends = FTable.Ends();
  if (!Ends) return;
  std::int64_t Rows = 0;
  for (double Low = std::max(Ends->Low, std::nextafter(Last, Infinity)); Low < Ends->High;) {
    Low = AddPage(Low, Rows);
    if (Progress && !Progress(Rows)) break;
  }
}

/// Rows of the last block, which is not full, are read once more with the next page, since others may change them until
/// then. Gives where that begins.
double TZyTableSummary::AddPage(double Low, std::int64_t& Rows) {
  TTransaction Transaction(FTable);
  const double Start = Low;
  const std::vector<TZyTableBlock> Page = FTable.TakePage(Low, RowsOfPage);
  for (const TZyTableBlock& Row : Page) TakeRow(Row);
  if (FOpen[0].Parts > 0 && FOpen[0].Open.FirstX <= Start && std::isfinite(Low)) Close(0);  // all of one X
  const TLevel Open = std::exchange(FOpen[0], {});
  Write(Open.Parts > 0 ? Open.Open.FirstX : std::isfinite(Low) ? Low : FWrittenUntil);
  Transaction.Commit();
  Rows += static_cast<std::int64_t>(Page.size());
  if (Open.Parts == 0 || !std::isfinite(Low)) return Low;
  Rows -= Open.Parts;
  return Open.Open.FirstX;
}

}  // namespace zy
