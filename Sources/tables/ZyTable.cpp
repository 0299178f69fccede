#include "tables/ZyTable.h"

#include <QMetaType>
#include <QSqlField>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QVariant>
#include <cmath>
#include <limits>

#include "platform/sql/SqlConnection.h"
#include "texts/Exceptions.h"
#include "texts/NumberText.h"
#include "texts/ZyTableTexts.h"

namespace zy {
namespace {

bool IsInteger(int Type) {
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
      return true;
    default:
      return false;
  }
}

bool IsNumber(int Type) { return Type == QMetaType::Double || Type == QMetaType::Float || IsInteger(Type); }

QString ToQt(const std::string& Text) { return QString::fromStdString(Text); }

TZyTableFields InQuotes(TSqlConnection& Connection, const TZyTableFields& Fields) {
  const auto Field = [&](const std::string& Name) { return Connection.QuotedField(ToQt(Name)).toStdString(); };
  return {Connection.QuotedTable(Fields.Table).toStdString(),
          Field(Fields.X),
          Field(Fields.First),
          Field(Fields.Max),
          Field(Fields.Min),
          Field(Fields.Last)};
}

/// Where the bare name begins in the name of a table of an embedded database: a schema before it is not wanted
/// everywhere there.
std::size_t BareStart(const TSqlConnection& Connection, const std::string& Table) {
  return Connection.IsEmbedded() ? Table.rfind('.') + 1 : 0;
}

/// The fields of the primary key. The driver of an embedded database finds none behind a schema in quotes.
QStringList KeyOf(TSqlConnection& Connection, const std::string& QuotedTable) {
  return Connection.PrimaryKey(ToQt(QuotedTable.substr(BareStart(Connection, QuotedTable))));
}

}  // namespace

TZyTable::TZyTable(TSqlConnection& Connection, TZyTableFields Fields, std::string Title)
    : FConnection(Connection),
      FFields(std::move(Fields)),
      FQuoted(InQuotes(Connection, FFields)),
      FTitle(std::move(Title)) {}

/// An embedded database has kinds of values and not of columns: there a text shows when it is read.
const TZyTableStatements& TZyTable::Statements() {
  if (FStatements) return *FStatements;
  std::string Columns;
  const std::string* const Names[] = {&FFields.X, &FFields.First, &FFields.Max, &FFields.Min, &FFields.Last};
  for (const std::string* Each : {&FQuoted.X, &FQuoted.First, &FQuoted.Max, &FQuoted.Min, &FQuoted.Last})
    Columns += (Columns.empty() ? "t." : ", t.") + *Each;
  const QSqlQuery Query = FConnection.Run(ToQt("SELECT " + Columns + " FROM " + FQuoted.Table + " t WHERE 1 = 0"));
  const QSqlRecord Layout = Query.record();
  const bool IsServer = !FConnection.IsEmbedded();
  for (int i = 0; IsServer && i < Layout.count(); ++i)
    if (!IsNumber(Layout.field(i).metaType().id()))
      throw EDatabaseError(Format(LoadResString(_sTableNoNumbers), {FTitle, *Names[i], FFields.Table}));
  FStatements.emplace(FQuoted, TZyTableDialect{IsServer, IsServer && IsInteger(Layout.field(0).metaType().id())});
  return *FStatements;
}

// --- The index ------------------------------------------------------------------------------------------------------

const std::string& TZyTable::MissingIndex() {
  if (FMissingIndex) return *FMissingIndex;
  if (HasIndex()) return FMissingIndex.emplace();
  std::string Columns = FQuoted.X;
  for (const std::string* Each : {&FQuoted.First, &FQuoted.Max, &FQuoted.Min, &FQuoted.Last})
    if (Columns.find(*Each) == std::string::npos) Columns += ", " + *Each;
  const QString Name = ToQt(FFields.Table).section('.', -1) + "_" + ToQt(FFields.X);
  // An embedded database wants the schema before the index, a server before the table.
  const std::size_t Bare = BareStart(FConnection, FQuoted.Table);
  return FMissingIndex.emplace("CREATE INDEX " + FQuoted.Table.substr(0, Bare) +
                               FConnection.QuotedField(Name).toStdString() + " ON " + FQuoted.Table.substr(Bare) +
                               " (" + Columns + ")");
}

/// What the drivers tell of is the primary key alone; the rest is in tables of the engines' own. An index counts that
/// begins with X and finds stretches of it in all rows: no partial one, and none that is hashed, half made or of
/// blocks.
bool TZyTable::HasIndex() const {
  const QString X = ToQt(FFields.X);
  const QStringList Key = KeyOf(FConnection, FQuoted.Table);
  if (!Key.isEmpty() && Key.front().compare(X, Qt::CaseInsensitive) == 0) return true;
  QString Statement;
  QVariantList Values;
  if (FConnection.IsEmbedded()) {
    Statement =
        "SELECT (SELECT COUNT(*) FROM pragma_index_list(?) l, pragma_index_info(l.name) i WHERE l.partial = 0 AND "
        "i.seqno = 0 AND lower(i.name) = lower(?)) + (SELECT COUNT(*) FROM sqlite_master WHERE type = 'view' AND "
        "name = ?)";
    const QString Bare = ToQt(FFields.Table).section('.', -1);
    Values = {Bare, X, Bare};
  } else {
    Statement =
        "SELECT (SELECT COUNT(*) FROM pg_index i JOIN pg_attribute a ON a.attrelid = i.indrelid AND a.attnum = "
        "i.indkey[0] JOIN pg_class o ON o.oid = i.indexrelid JOIN pg_am m ON m.oid = o.relam WHERE i.indrelid = c.oid "
        "AND "
        "a.attname = ? AND i.indisvalid AND i.indpred IS NULL AND m.amname = 'btree') + CASE WHEN c.relkind IN "
        "('r', 'p') THEN 0 ELSE 1 END FROM pg_class c WHERE c.oid = CAST(? AS regclass)";
    Values = {X, ToQt(FQuoted.Table)};
  }
  QSqlQuery Query = FConnection.Run(Statement, Values);
  return !Query.next() || Query.value(0).toInt() > 0;
}

/// The key by which an embedded database numbers its rows is in no list of indexes.
bool TZyTable::HasOtherKey() const {
  const QString X = ToQt(FFields.X);
  const QStringList Key = KeyOf(FConnection, FQuoted.Table);
  if (!Key.isEmpty() && !Key.contains(X, Qt::CaseInsensitive)) return true;
  QSqlQuery Query = FConnection.Run(
      "SELECT COUNT(*) FROM pragma_index_list(?) l WHERE l.\"unique\" = 1 AND NOT EXISTS (SELECT 1 FROM "
      "pragma_index_info(l.name) i WHERE lower(i.name) = lower(?))",
      {ToQt(FFields.Table).section('.', -1), X});
  return Query.next() && Query.value(0).toInt() > 0;
}

// --- Rows -----------------------------------------------------------------------------------------------------------

double TZyTable::NumberOf(const QSqlQuery& Query, int Index, const std::string& Field) const {
  const QVariant Value = Query.value(Index);
  if (!IsNumber(Value.typeId()) && !Value.isNull())
    throw EDatabaseError(Format(LoadResString(_sTableTextValue),
                                {FTitle, Field, FFields.Table, Value.toString().left(40).toStdString()}));
  return Value.toDouble();
}

TZyTableBlock TZyTable::RowOf(const QSqlQuery& Query) const {
  TZyTableBlock Row;
  Row.Count = 1;
  Row.FirstX = Row.LastX = Row.MinX = Row.MaxX = NumberOf(Query, 0, FFields.X);
  Row.First = Row.Max = Row.Min = Row.Last = NumberOf(Query, 1, FFields.First);
  if (!FFields.IsSingle()) {
    Row.Max = NumberOf(Query, 2, FFields.Max);
    Row.Min = NumberOf(Query, 3, FFields.Min);
    Row.Last = NumberOf(Query, 4, FFields.Last);
  }
  Row.Sum = Row.Last;
  return Row;
}

TZyTableBlock TZyTable::BlockOf(const QSqlQuery& Query) const {
  TZyTableBlock Block;
  Block.FirstX = NumberOf(Query, 0, FFields.X);
  Block.First = NumberOf(Query, 1, FFields.First);
  Block.LastX = NumberOf(Query, 2, FFields.X);
  Block.Last = NumberOf(Query, 3, FFields.Last);
  Block.MinX = NumberOf(Query, 4, FFields.X);
  Block.Min = NumberOf(Query, 5, FFields.Min);
  Block.MaxX = NumberOf(Query, 6, FFields.X);
  Block.Max = NumberOf(Query, 7, FFields.Max);
  Block.Count = Query.value(8).toLongLong();
  Block.Sum = NumberOf(Query, 9, FFields.Last);
  return Block;
}

std::vector<TZyTableBlock> TZyTable::RowsOf(const std::string& Statement) {
  std::vector<TZyTableBlock> Result;
  QSqlQuery Query = FConnection.Run(ToQt(Statement));
  while (Query.next()) Result.push_back(RowOf(Query));
  FConnection.CheckEnd(Query);
  return Result;
}

std::optional<TZyTableRange> TZyTable::Ends() {
  QSqlQuery Query = FConnection.Run(ToQt(Statements().Ends()));
  if (!Query.next() || Query.value(0).isNull()) return {};
  const double Low = NumberOf(Query, 0, FFields.X), High = NumberOf(Query, 1, FFields.X);
  for (const double End : {Low, High})
    if (!std::isfinite(End))
      throw EDatabaseError(
          Format(LoadResString(_sTableTextValue), {FTitle, FFields.X, FFields.Table, RealToText(End)}));
  return TZyTableRange{Low, std::nextafter(High, std::numeric_limits<double>::infinity())};
}

std::vector<TZyTableBlock> TZyTable::TakePage(double& X, std::size_t Most) {
  for (;; Most *= 2) {
    std::vector<TZyTableBlock> Rows = RowsOf(Statements().Page(X, Most));
    if (Rows.size() < Most) {
      X = std::numeric_limits<double>::infinity();
      return Rows;
    }
    const double Last = Rows.back().FirstX;  // of which there may be more
    if (Rows.front().FirstX == Last) continue;
    while (Rows.back().FirstX == Last) Rows.pop_back();
    X = Last;
    return Rows;
  }
}

}  // namespace zy
