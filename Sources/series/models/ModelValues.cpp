#include "series/models/ModelValues.h"

#include <QDateTime>
#include <QVariant>
#include <limits>

#include "platform/data/DateTimeText.h"
#include "texts/Exceptions.h"
#include "texts/NumberText.h"

namespace zy {
namespace {

constexpr double Missing = std::numeric_limits<double>::quiet_NaN();

double DaysOf(const QDate& Date) { return static_cast<double>(QDate(1899, 12, 30).daysTo(Date)); }
double DaysOf(const QTime& Time) { return Time.msecsSinceStartOfDay() / 86400000.0; }
double DaysOf(const QDateTime& Moment) { return DaysOf(Moment.date()) + DaysOf(Moment.time()); }

template <class T>
double DaysOrMissing(const T& Value) {
  return Value.isValid() ? DaysOf(Value) : Missing;
}

std::optional<double> NumberOf(const std::string& Text) {
  if (Text.empty()) return Missing;
  if (const auto Date = DateTimeFromText(Text)) return Date;
  for (double (*const Read)(std::string_view) : {TextToReal, StrToFloat}) {
    try {
      return Read(Text);
    } catch (const EConvertError&) {
      continue;  // the other separator
    }
  }
  return std::nullopt;
}

template <class T>
std::string DateText(const T& Value, TFieldType Type) {
  return Value.isValid() ? DateTimeToText(DaysOf(Value), Type) : std::string();
}

}  // namespace

std::optional<double> NumberOf(const QVariant& Cell) {
  if (!Cell.isValid() || Cell.isNull()) return Missing;
  switch (Cell.typeId()) {
    case QMetaType::Double:
      return *static_cast<const double*>(Cell.constData());
    case QMetaType::QDate:
      return DaysOrMissing(Cell.toDate());
    case QMetaType::QTime:
      return DaysOrMissing(Cell.toTime());
    case QMetaType::QDateTime:
      return DaysOrMissing(Cell.toDateTime());
    case QMetaType::QString:
    case QMetaType::QByteArray:
      return NumberOf(Cell.toString().trimmed().toStdString());
    default:
      bool IsNumber = false;
      const double Result = Cell.toDouble(&IsNumber);
      return IsNumber ? std::optional(Result) : std::nullopt;
  }
}

std::string TextOf(const QVariant& Cell) {
  if (!Cell.isValid() || Cell.isNull()) return {};
  switch (Cell.typeId()) {
    case QMetaType::Double:
    case QMetaType::Float:
      return FloatToStr(Cell.toDouble());
    case QMetaType::QDate:
      return DateText(Cell.toDate(), TFieldType::Date);
    case QMetaType::QTime:
      return DateText(Cell.toTime(), TFieldType::Time);
    case QMetaType::QDateTime:
      return DateText(Cell.toDateTime(), TFieldType::DateTime);
    default:
      return Cell.toString().toStdString();
  }
}

}  // namespace zy
