#include "tables/ZyTableSummary.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QVariant>
#include <algorithm>
#include <cmath>
#include <limits>

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
constexpr std::int64_t RowsOfPiece = 200000;
constexpr std::size_t RowsOfInsert = 200;
/// What stands for "from the first row on" in the row of level 0.
constexpr double Nothing = -std::numeric_limits<double>::max();

QString ToQt(const std::string& Text) { return QString::fromStdString(Text); }

/// Makes what a scope writes one transaction.
class TTransaction {
 public:
  explicit TTransaction(TSqlConnection& Connection) : FDatabase(Connection.Opened()) { FDatabase.transaction(); }
  ~TTransaction() {
    if (!FIsDone) FDatabase.rollback();
  }
  void Commit() { FIsDone = FDatabase.commit(); }

 private:
  QSqlDatabase& FDatabase;
  bool FIsDone = false;
};

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
  return Result + "_summary";
}

bool TZyTableSummary::Find() {
  FLevels = 0;
  FHoldsUntil = -Infinity;
  const QString Bare = ToQt(FName).section('.', -1);
  if (!FConnection.Opened().tables().contains(Bare)) return false;
  if (!HasTriggers()) return false;
  QSqlQuery Query = FConnection.Run(
      ToQt("SELECT t.x0, (SELECT MAX(lvl) FROM " + FQuotedName + ") FROM " + FQuotedName + " t WHERE t.lvl = 0"));
  if (!Query.next()) return false;
  FHoldsUntil = Query.value(0).toDouble();
  FLevels = Query.value(1).toInt();
  return true;
}

// --- Triggers -------------------------------------------------------------------------------------------------------

/// Triggers go with their table. One that was dropped and made again has none, and what was summed up is not its own.
bool TZyTableSummary::HasTriggers() {
  const QString Name = ToQt(FName).section('.', -1) + "_change";
  const QString From =
      FConnection.IsEmbedded() ? "sqlite_master WHERE type = 'trigger' AND name = ?" : "pg_trigger WHERE tgname = ?";
  QSqlQuery Query = FConnection.Run("SELECT COUNT(*) FROM " + From, {Name});
  return Query.next() && Query.value(0).toInt() > 0;
}

/// A row that comes, goes or changes draws back the place up to which the summary holds.
void TZyTableSummary::MakeTriggers() {
  const QString Base = ToQt(FName).section('.', -1);
  const auto Quoted = [&](const char* Ending) { return FConnection.QuotedField(Base + Ending).toStdString(); };
  const auto DrawBack = [&](const char* Row) {
    const std::string X = std::string(Row) + "." + FTable.Quoted().X;
    return "UPDATE " + FQuotedName + " SET x0 = " + X + " WHERE lvl = 0 AND x0 > " + X + "; ";
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
  FConnection.Run(ToQt("CREATE OR REPLACE FUNCTION " + Quoted("_drawback") +
                       "() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN IF TG_OP = 'TRUNCATE' THEN UPDATE " +
                       FQuotedName + " SET x0 = " + TZyTableStatements::Literal(Nothing) +
                       " WHERE lvl = 0; RETURN NULL; END IF; IF TG_OP <> 'INSERT' THEN " + DrawBack("OLD") +
                       "END IF; IF TG_OP <> 'DELETE' THEN " + DrawBack("NEW") + "END IF; RETURN NULL; END $$"));
  const auto Make = [&](const char* Ending, const char* Events, const char* Each) {
    FConnection.Run(ToQt("CREATE TRIGGER " + Quoted(Ending) + " AFTER " + Events + " ON " + FTable.Quoted().Table +
                         " FOR EACH " + Each + " EXECUTE FUNCTION " + Quoted("_drawback") + "()"));
  };
  Make("_change", "INSERT OR UPDATE OR DELETE", "ROW");
  Make("_truncate", "TRUNCATE", "STATEMENT");
}

void TZyTableSummary::Drop() {
  const QString Base = ToQt(FName).section('.', -1);
  const auto Quoted = [&](const char* Ending) { return FConnection.QuotedField(Base + Ending).toStdString(); };
  if (FConnection.IsEmbedded()) {
    for (const char* Ending : {"_insert", "_delete", "_change"})
      FConnection.Run(ToQt("DROP TRIGGER IF EXISTS " + Quoted(Ending)));
  } else {
    FConnection.Run(ToQt("DROP FUNCTION IF EXISTS " + Quoted("_drawback") + "() CASCADE"));
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

/// Blocks that no longer hold go; those that are not yet part of a block above open one there. Gives the X of the last
/// row that is still summed up.
double TZyTableSummary::TakeUp() {
  FOpen.assign(1, {});
  FWrittenUntil = FHoldsUntil;
  FConnection.Run(
      ToQt("DELETE FROM " + FQuotedName + " WHERE lvl > 0 AND x1 >= " + TZyTableStatements::Literal(FHoldsUntil)));
  for (int Level = 1; Level <= FLevels; ++Level) {
    const std::string Above = std::to_string(Level + 1), Here = std::to_string(Level);
    QSqlQuery Query =
        FConnection.Run(ToQt(std::string("SELECT ") + TZyTableStatements::BlockFields + " FROM " + FQuotedName +
                             " WHERE lvl = " + Here + " AND x0 > COALESCE((SELECT MAX(x1) FROM " + FQuotedName +
                             " WHERE lvl = " + Above + "), " + TZyTableStatements::Literal(Nothing) + ") ORDER BY x0"));
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
void TZyTableSummary::Write() {
  const double Until = FOpen[0].Parts > 0 ? FOpen[0].Open.FirstX : FWrittenUntil;
  TTransaction Transaction(FConnection);
  for (std::size_t First = 0; First < FNew.size(); First += RowsOfInsert) {
    std::string Rows;
    for (std::size_t i = First; i < std::min(First + RowsOfInsert, FNew.size()); ++i)
      Rows += (Rows.empty() ? "" : ", ") + FNew[i];
    FConnection.Run(
        ToQt("INSERT INTO " + FQuotedName + " (lvl, " + TZyTableStatements::BlockFields + ") VALUES " + Rows));
  }
  FConnection.Run(ToQt("UPDATE " + FQuotedName + " SET x0 = " + TZyTableStatements::Literal(Until) +
                       " WHERE lvl = 0 AND x0 = " + TZyTableStatements::Literal(FWrittenUntil)));
  Transaction.Commit();
  FNew.clear();
  FWrittenUntil = Until;
}

double TZyTableSummary::ReadPiece(const TZyTableRange& Piece, std::int64_t& Rows) {
  const TZyTableRange Ranges[] = {Piece};
  QSqlQuery Query = FConnection.Run(ToQt(FTable.Statements().Rows(Ranges) + " ORDER BY " +
                                         (FConnection.IsEmbedded() ? "t." : "r.") + FTable.Quoted().X));
  std::int64_t Number = 0;
  for (; Query.next(); ++Number) TakeRow(FTable.RowOf(Query));
  FConnection.CheckEnd(Query);
  Rows += Number;
  return static_cast<double>(Number) / static_cast<double>(RowsOfPiece);
}

void TZyTableSummary::Update(const TProgress& Progress, bool Anew) {
  if (!FTable.MissingIndex().empty())
    throw EDatabaseError(Format(LoadResString(_sTableNoIndex),
                                {FTable.Title(), FTable.Fields().Table, FTable.Fields().X, FTable.MissingIndex()}));
  const bool IsThere = Find();
  if (Anew || !IsThere) {
    Drop();
    Make();
    Find();
  }
  const double SummedUp = TakeUp();
  const std::optional<TZyTableRange> Ends = FTable.Ends();
  if (!Ends) return;
  double Low = std::max(Ends->Low, std::nextafter(SummedUp, Infinity));
  const double Stop = Ends->High;
  std::int64_t Rows = 0;
  for (double Width = (Stop - Low) / 1000; Low < Stop;) {
    const double High = std::min(std::max(Low + Width, std::nextafter(Low, Infinity)), Stop);
    const double Filling = ReadPiece({Low, High}, Rows);
    Low = High;
    Width *= Filling < 0.5 ? 2 : Filling > 2 ? 0.5 : 1;
    if (FNew.size() >= 2000 || Low >= Stop) Write();
    if (Progress && !Progress(Rows)) break;
  }
}

}  // namespace zy
