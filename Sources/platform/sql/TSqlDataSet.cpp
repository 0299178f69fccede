#include "platform/sql/TSqlDataSet.h"

#include <QSqlField>
#include <QSqlRecord>
#include <limits>
#include <utility>

#include "platform/data/DateTimeText.h"
#include "platform/framework/TPropInfo.h"
#include "platform/sql/SqlConnection.h"
#include "platform/sql/SqlRecords.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

QString ToQt(std::string_view Text) { return QString::fromUtf8(Text.data(), static_cast<qsizetype>(Text.size())); }

QVariant ToQt(const TFieldValue& Value) {
  switch (Value.Type) {
    case TFieldType::Unknown:
      return {};
    case TFieldType::Integer:
    case TFieldType::Boolean:
      return static_cast<qlonglong>(Value.Integer);
    case TFieldType::String:
      return ToQt(Value.Text);
    case TFieldType::Blob:
      return QByteArray(Value.Text.data(), static_cast<qsizetype>(Value.Text.size()));
    case TFieldType::Float:
      return Value.Real;
    default:
      return ToQt(DateTimeToText(Value.Real, Value.Type));
  }
}

}  // namespace

ZY_PUBLISHED(TSqlDataSet, TDataSet,
             Published<&TSqlDataSet::ConnectionText, &TSqlDataSet::SetConnectionText>("ConnectionText", ""),
             Published<&TSqlDataSet::TableName, &TSqlDataSet::SetTableName>("TableName", ""),
             Published<&TSqlDataSet::Query, &TSqlDataSet::SetQuery>("Query", ""),
             Published<&TSqlDataSet::Active, &TSqlDataSet::SetActive>("Active", false))

TSqlDataSet::TSqlDataSet(TComponent* Owner) : TDataSet(Owner) {}

TSqlDataSet::~TSqlDataSet() { Destroying(); }

void TSqlDataSet::SetText(std::string& Field, const std::string& Value) {
  if (Value == Field) return;
  if (Active()) Close();
  Field = Value;
}

void TSqlDataSet::SetConnectionText(const std::string& Value) {
  if (Value == FConnectionText) return;
  SetText(FConnectionText, Value);
  FConnection.reset();
}

void TSqlDataSet::SetTableName(const std::string& Value) { SetText(FTableName, Value); }

void TSqlDataSet::SetQuery(const std::string& Value) { SetText(FQuery, Value); }

TSqlConnection& TSqlDataSet::Connection() {
  if (FConnection == nullptr) FConnection = TSqlConnection::Share(FConnectionText);
  return *FConnection;
}

void TSqlDataSet::ExecSQL(const std::string& Statement) { Connection().Run(ToQt(Statement)); }

// ---- Reading ----

std::vector<TFieldDef> TSqlDataSet::ReadRecords() {
  TSqlConnection& Base = Connection();
  QString Statement = ToQt(FQuery);
  QStringList KeyNames;
  if (FQuery.empty()) {
    if (FTableName.empty()) throw EDatabaseError(Format(LoadResString(_sDataSetNothing), {Title()}));
    const QString Table = Base.QuotedTable(FTableName);
    Statement = "SELECT * FROM " + Table;
    KeyNames = Base.PrimaryKey(Table);
    QStringList Order;
    for (const QString& Name : std::as_const(KeyNames)) Order += Base.QuotedField(Name);
    if (!Order.isEmpty()) Statement += " ORDER BY " + Order.join(", ");
  }

  QSqlQuery Result = Base.Run(Statement);
  if (!Result.isSelect())
    throw EDatabaseError(Format(LoadResString(_sDatabaseNoRecords), {Base.Place(), Statement.left(200).toStdString()}));
  const QSqlRecord Layout = Result.record();
  auto Records = std::make_unique<TSqlRecords>(Layout.count());
  while (Result.next()) {
    if (Records->Count() == std::numeric_limits<int>::max())
      throw EDatabaseError(Format(LoadResString(_sDataSetTooLarge), {Title(), Records->Count()}));
    Records->AppendRow(Result);
  }
  Base.CheckEnd(Result);

  std::vector<TFieldDef> Defs;
  Defs.reserve(static_cast<std::size_t>(Layout.count()));
  for (int i = 0; i < Layout.count(); ++i)
    Defs.push_back({Layout.fieldName(i).toStdString(), FieldTypeOf(Layout.field(i).metaType().id())});
  FKey.clear();
  for (const QString& Name : std::as_const(KeyNames)) FKey.push_back(Layout.indexOf(Name));
  FRecords = std::move(Records);
  return Defs;
}

void TSqlDataSet::DropRecords() {
  FRecords.reset();
  FKey.clear();
}

int TSqlDataSet::GetRecordCount() const { return FRecords->Count(); }

TFieldValue TSqlDataSet::GetValue(int Row, int Field) const { return FRecords->Value(Row, Field); }

// ---- Changing ----

struct TSqlDataSet::TStatement {
  QString Text;
  QVariantList Values;  // for the question marks
};

bool TSqlDataSet::StoreRecord(int Row, const std::vector<TEdited>& Values) {
  TStatement Statement;
  QStringList Names;
  for (std::size_t i = 0; i < Values.size(); ++i) {
    if (!Values[i].Changed) continue;
    TFieldValue Value = Values[i].Value;
    Value.Text = Values[i].Text;
    Names += Connection().QuotedField(ToQt(Fields()[i]->FieldName()));
    Statement.Values += ToQt(Value);
  }
  const QString Table = Connection().QuotedTable(FTableName);
  if (Row >= 0) {
    Statement.Text = "UPDATE " + Table + " SET " + Names.join(" = ?, ") + " = ?";
    AddKey(Statement, Row);
  } else if (Names.isEmpty()) {
    Statement.Text = "INSERT INTO " + Table + " DEFAULT VALUES";
  } else {
    const QStringList Marks(Names.size(), "?");
    Statement.Text = "INSERT INTO " + Table + " (" + Names.join(", ") + ") VALUES (" + Marks.join(", ") + ")";
  }
  Statement.Text += " RETURNING *";
  const TSqlRecords Stored = RunOnRecord(Statement);
  if (Stored.Columns() != FRecords->Columns()) return false;  // somebody has changed the table
  FRecords->TakeRow(Row, Stored);
  return true;
}

bool TSqlDataSet::RemoveRecord(int Row) {
  TStatement Statement{"DELETE FROM " + Connection().QuotedTable(FTableName), {}};
  AddKey(Statement, Row);
  Statement.Text += " RETURNING 1";
  RunOnRecord(Statement);
  FRecords->EraseRow(Row);
  return true;
}

/// Adds the condition that finds the record by its key.
void TSqlDataSet::AddKey(TStatement& Statement, int Row) {
  const char* Link = " WHERE ";
  for (const int Field : FKey) {
    const QString Name = Connection().QuotedField(ToQt(Fields()[static_cast<std::size_t>(Field)]->FieldName()));
    Statement.Text += Link + Name + " = ?";
    Statement.Values += ToQt(FRecords->Value(Row, Field));
    Link = " AND ";
  }
}

/// Runs a statement that touches one record, to its end, and gives what it returns of that. Throws EDatabaseError when
/// there is no such record.
TSqlRecords TSqlDataSet::RunOnRecord(const TStatement& Statement) {
  QSqlQuery Result = Connection().Run(Statement.Text, Statement.Values);
  TSqlRecords Records(Result.record().count());
  while (Result.next()) Records.AppendRow(Result);
  Connection().CheckEnd(Result);
  if (Records.Count() == 0) throw EDatabaseError(Format(LoadResString(_sDataSetRecordGone), {Title()}));
  return Records;
}

}  // namespace zy
