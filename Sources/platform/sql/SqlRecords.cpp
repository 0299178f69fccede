#include "platform/sql/SqlRecords.h"

#include <QDateTime>
#include <QSqlQuery>
#include <QVariant>
#include <bit>
#include <cstring>

namespace zy {
namespace {

double DaysOf(const QDate& Date) { return static_cast<double>(QDate(1899, 12, 30).daysTo(Date)); }
double DaysOf(const QTime& Time) { return Time.msecsSinceStartOfDay() / 86400000.0; }

std::string_view View(const QByteArray& Bytes) { return {Bytes.constData(), static_cast<std::size_t>(Bytes.size())}; }

std::uint64_t AddText(std::string& Texts, std::string_view Text) {
  const std::uint64_t Place = Texts.size();
  const auto Length = static_cast<std::uint32_t>(Text.size());  // no database has longer values
  Texts.append(reinterpret_cast<const char*>(&Length), sizeof Length);
  Texts.append(Text.data(), Length);
  return Place;
}

std::string_view TextAt(const std::string& Texts, std::uint64_t Place) {
  std::uint32_t Length = 0;
  std::memcpy(&Length, Texts.data() + Place, sizeof Length);
  return {Texts.data() + Place + sizeof Length, Length};
}

}  // namespace

TFieldType FieldTypeOf(int MetaType) {
  switch (MetaType) {
    case QMetaType::Bool:
      return TFieldType::Boolean;
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
      return TFieldType::Integer;
    case QMetaType::Float:
    case QMetaType::Double:
      return TFieldType::Float;
    case QMetaType::QDate:
      return TFieldType::Date;
    case QMetaType::QTime:
      return TFieldType::Time;
    case QMetaType::QDateTime:
      return TFieldType::DateTime;
    case QMetaType::QByteArray:
      return TFieldType::Blob;
    default:
      return TFieldType::String;
  }
}

std::uint64_t TSqlRecords::Encode(TColumn& Column, const QVariant& Value, TFieldType& Type) {
  const auto Real = [](double Number) { return std::bit_cast<std::uint64_t>(Number); };
  Type = TFieldType::Unknown;
  if (Value.isNull()) return 0;
  Type = FieldTypeOf(Value.typeId());
  switch (Type) {
    case TFieldType::Boolean:
    case TFieldType::Integer:
      return static_cast<std::uint64_t>(Value.toLongLong());
    case TFieldType::Float:
      return Real(Value.toDouble());
    case TFieldType::Date:
      return Real(DaysOf(Value.toDate()));
    case TFieldType::Time:
      return Real(DaysOf(Value.toTime()));
    case TFieldType::DateTime: {
      const QDateTime Moment = Value.toDateTime();
      return Real(DaysOf(Moment.date()) + DaysOf(Moment.time()));
    }
    case TFieldType::Blob:
      return AddText(Column.Texts, View(Value.toByteArray()));
    default:
      return AddText(Column.Texts, View(Value.toString().toUtf8()));
  }
}

TFieldValue TSqlRecords::Value(int Row, int Column) const {
  const TColumn& Source = FColumns[static_cast<std::size_t>(Column)];
  const auto Index = static_cast<std::size_t>(Row);
  TFieldValue Result;
  Result.Type = Source.Types[Index];
  switch (Result.Type) {
    case TFieldType::Unknown:
      break;
    case TFieldType::Boolean:
    case TFieldType::Integer:
      Result.Integer = static_cast<std::int64_t>(Source.Bits[Index]);
      break;
    case TFieldType::Float:
    case TFieldType::Date:
    case TFieldType::Time:
    case TFieldType::DateTime:
      Result.Real = std::bit_cast<double>(Source.Bits[Index]);
      break;
    case TFieldType::String:
    case TFieldType::Blob:
      Result.Text = TextAt(Source.Texts, Source.Bits[Index]);
      break;
  }
  return Result;
}

void TSqlRecords::AppendRow(const QSqlQuery& Query) {
  for (int i = 0; i < Columns(); ++i) {
    TColumn& Column = FColumns[static_cast<std::size_t>(i)];
    TFieldType Type = TFieldType::Unknown;
    Column.Bits.push_back(Encode(Column, Query.value(i), Type));
    Column.Types.push_back(Type);
  }
  ++FCount;
}

void TSqlRecords::TakeRow(int Row, const TSqlRecords& Source) {
  for (std::size_t i = 0; i < FColumns.size(); ++i) {
    TColumn& Column = FColumns[i];
    const TFieldType Type = Source.FColumns[i].Types.back();
    std::uint64_t Bits = Source.FColumns[i].Bits.back();
    if (Type == TFieldType::String || Type == TFieldType::Blob)
      Bits = AddText(Column.Texts, TextAt(Source.FColumns[i].Texts, Bits));
    if (Row < 0) {
      Column.Types.push_back(Type);
      Column.Bits.push_back(Bits);
    } else {
      Column.Types[static_cast<std::size_t>(Row)] = Type;
      Column.Bits[static_cast<std::size_t>(Row)] = Bits;
    }
  }
  if (Row < 0) ++FCount;
}

void TSqlRecords::EraseRow(int Row) {
  for (TColumn& Column : FColumns) {
    Column.Bits.erase(Column.Bits.begin() + Row);
    Column.Types.erase(Column.Types.begin() + Row);
  }
  --FCount;
}

}  // namespace zy
