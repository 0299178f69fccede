#include "platform/data/TField.h"

#include <cmath>

#include "platform/data/DateTimeText.h"
#include "platform/data/TDataSet.h"
#include "texts/Exceptions.h"
#include "texts/NumberText.h"
#include "texts/ZyLocalize.h"

namespace zy {

TField::TField(TDataSet& DataSet, int Index, const TFieldDef& Def)
    : FDataSet(DataSet), FName(Def.Name), FType(Def.Type), FIndex(Index) {}

TFieldValue TField::Value() const { return FDataSet.ReadValue(FIndex); }

void TField::NoNumber(std::string_view Text) const {
  constexpr std::size_t Shown = 40;
  throw EDatabaseError(Format(LoadResString(_sFieldNoNumber), {FName, Text.substr(0, Shown)}));
}

double TField::AsFloat() const {
  const TFieldValue V = Value();
  switch (V.Type) {
    case TFieldType::Unknown:
      return 0.0;
    case TFieldType::Integer:
    case TFieldType::Boolean:
      return static_cast<double>(V.Integer);
    case TFieldType::Float:
    case TFieldType::Date:
    case TFieldType::Time:
    case TFieldType::DateTime:
      return V.Real;
    case TFieldType::String:
    case TFieldType::Blob:
      break;
  }
  if (const auto Date = DateTimeFromText(V.Text)) return *Date;
  try {
    return TextToReal(V.Text);
  } catch (const EConvertError&) {
    NoNumber(V.Text);
  }
}

std::int64_t TField::AsInteger() const {
  const TFieldValue V = Value();
  if (V.Type == TFieldType::Integer || V.Type == TFieldType::Boolean) return V.Integer;
  constexpr double Limit = 9223372036854775808.0;  // 2 to the 63
  const double Rounded = std::round(AsFloat());
  if (!(Rounded >= -Limit && Rounded < Limit)) NoNumber(RealToText(Rounded));
  return static_cast<std::int64_t>(Rounded);
}

std::string TField::AsString() const {
  const TFieldValue V = Value();
  switch (V.Type) {
    case TFieldType::Unknown:
      return {};
    case TFieldType::Integer:
      return IntToStr(V.Integer);
    case TFieldType::Boolean:
      return V.Integer != 0 ? "True" : "False";
    case TFieldType::Float:
      return FloatToStr(V.Real);
    case TFieldType::Date:
    case TFieldType::Time:
    case TFieldType::DateTime:
      return DateTimeToText(V.Real, V.Type);
    case TFieldType::String:
    case TFieldType::Blob:
      break;
  }
  return std::string(V.Text);
}

void TField::SetAsFloat(double Value) { FDataSet.WriteValue(*this, {TFieldType::Float, 0, Value, {}}); }

void TField::SetAsInteger(std::int64_t Value) { FDataSet.WriteValue(*this, {TFieldType::Integer, Value, 0.0, {}}); }

void TField::SetAsString(std::string_view Value) { FDataSet.WriteValue(*this, {TFieldType::String, 0, 0.0, Value}); }

void TField::SetAsDateTime(double Value) {
  const bool HasOwnKind = FType == TFieldType::Date || FType == TFieldType::Time;
  SetAsString(DateTimeToText(Value, HasOwnKind ? FType : TFieldType::DateTime));
}

void TField::Clear() { FDataSet.WriteValue(*this, {}); }

}  // namespace zy
