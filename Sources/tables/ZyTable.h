#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tables/ZyTableColumns.h"
#include "tables/ZyTableStatements.h"

class QSqlQuery;

namespace zy {

class TSqlConnection;

/// A table of a database with the columns that are read of it, through one connection and on its thread.
class TZyTable {
 public:
  /// Fields are named without quotes. Title names the data in messages. The connection must outlive it.
  TZyTable(TSqlConnection& Connection, TZyTableFields Fields, std::string Title);

  TSqlConnection& Connection() const { return FConnection; }
  const TZyTableFields& Fields() const { return FFields; }
  const TZyTableFields& Quoted() const { return FQuoted; }
  const std::string& Title() const { return FTitle; }

  /// The questions to the table. The first call tests that table and columns are there and may hold numbers; it throws
  /// EDatabaseError.
  const TZyTableStatements& Statements();
  /// The statement that makes the index that is missing; empty when there is one, and for a view, which has none.
  const std::string& MissingIndex();
  /// Whether a row of an embedded database may push another X out by a key that the two have in common: a unique one
  /// without X.
  bool HasOtherKey() const;

  /// The row of TZyTableStatements::Rows, or the block of BlockFields, on which a query stands. Throws EDatabaseError
  /// for a text.
  TZyTableBlock RowOf(const QSqlQuery& Query) const;
  TZyTableBlock BlockOf(const QSqlQuery& Query) const;
  /// All rows of a statement.
  std::vector<TZyTableBlock> RowsOf(const std::string& Statement);
  /// The least and the greatest X, as a range that holds both; nothing for an empty table. Throws EDatabaseError for
  /// one that is not finite.
  std::optional<TZyTableRange> Ends();
  /// Some rows from X on in their order, about Most, but all of one X. X becomes that of the next ones, infinite at the
  /// end.
  std::vector<TZyTableBlock> TakePage(double& X, std::size_t Most);
  /// Looks anew for columns and index when they are asked for, as others may have changed them.
  void Forget() {
    FStatements.reset();
    FMissingIndex.reset();
  }

 private:
  double NumberOf(const QSqlQuery& Query, int Index, const std::string& Field) const;
  bool HasIndex() const;

  TSqlConnection& FConnection;
  TZyTableFields FFields, FQuoted;
  std::string FTitle;
  std::optional<TZyTableStatements> FStatements;
  std::optional<std::string> FMissingIndex;
};

}  // namespace zy
