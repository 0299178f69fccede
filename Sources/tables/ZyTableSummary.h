#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "tables/ZyTable.h"

namespace zy {

/// A table beside a table that has its rows summed up: blocks of some rows with their ends, extremes, number and sum,
/// on the next level blocks of those, and so on. A wide range is put together of few blocks, and of rows only where a
/// block reaches beyond an edge, so that it costs hardly more than a narrow one, and no value is left out.
///
/// Its columns are `lvl`, 1 for blocks of rows, and those of TZyTableStatements::BlockFields; the row of level 0 has in
/// `x0` up to where it holds. Rows behind that are read from the table itself. Triggers draw the place back when rows
/// before it change, come or go; Update goes on from there. A summary whose triggers are gone with their table is
/// ignored. Engines other than SQLite and PostgreSQL get no triggers: there Update is to be called after such a change,
/// with Anew.
///
/// SQLite runs no trigger for the row that REPLACE, or a constraint with that clause, pushes out, unless the connection
/// that writes has `PRAGMA recursive_triggers = ON`. Where such a row has another X, by a key without it, the summary
/// has it still until Update counts: writers set the pragma, or write INSERT ... ON CONFLICT DO UPDATE.
class TZyTableSummary {
 public:
  /// What is told between two pieces of work: the rows done so far. False stops it; what is done stays.
  using TProgress = std::function<bool(std::int64_t Rows)>;

  /// Name is that of the summary. The table must outlive it.
  TZyTableSummary(TZyTable& Table, std::string Name);

  /// The name that a summary of these fields has as long as none is chosen.
  static std::string NameFor(const TZyTableFields& Fields);
  /// Looks whether there is a summary that holds, and how far; to be called before the two below.
  bool Find();
  double HoldsUntil() const { return FHoldsUntil; }
  int Levels() const { return FLevels; }
  const std::string& QuotedName() const { return FQuotedName; }

  /// Makes the summary, or brings it up to date, or drops and makes it where it has another number of rows than the
  /// table, of which SQLite counts the rows when it has a key without X. Anew starts at the first row. Others wait with
  /// what they write to the table while some ten thousand rows of it are summed up. Throws EDatabaseError, also for a
  /// table without an index and for another table of the summary's name; what was written until then holds.
  void Update(const TProgress& Progress, bool Anew = false);
  /// Drops the table and its triggers.
  void Drop();

 private:
  struct TLevel {
    TZyTableBlock Open;  // of blocks that came since the last one was closed
    int Parts = 0;
  };

  void Make();
  void MakeTriggers();
  std::string PartName(const char* Ending) const;
  std::string FunctionName() const;
  bool IsThere();
  void TestIsNoOther();
  bool HasTriggers();
  void Begin();
  std::string OpenBlocksOf(int Level) const;
  double TakeUp();
  bool HasRowsPushedOut(double LastX);
  void TakeRow(const TZyTableBlock& Row);
  void Close(std::size_t Level);
  void Write(double Until);
  double AddPage(double Low, std::int64_t& Rows);

  TZyTable& FTable;
  TSqlConnection& FConnection;
  std::string FName, FQuotedName;
  double FHoldsUntil;
  int FLevels = 0;
  std::vector<TLevel> FOpen;  // from blocks of rows upwards
  std::vector<std::string> FNew;
  double FWrittenUntil;
};

}  // namespace zy
