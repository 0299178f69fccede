#include "axes/ZyDateTimeSteps.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string_view>

#include "texts/NumberText.h"

namespace zy {
namespace {

using enum TZyDtRegion;

/// What the labels of a row show. Minutes need the day as well once there is more than one.
enum class TLabel { MilliSeconds, Seconds, Minutes, DayAndHour, Day, LongMonth, ShortMonth, YearDigits };

constexpr double MilliSecondsPerDay = TotalMilliSeconds(1), SecondsPerDay = TotalSeconds(1),
                 MinutesPerDay = TotalMinutes(1), HoursPerDay = TotalHours(1);

/// From fine to coarse. Label, Major and Increment are in the unit of MinorRgn; the days between two labels are
/// Divisor / PerDay.
constexpr struct TRow {
  TZyDtRegion MajorRgn, MinorRgn;
  TLabel Shown;
  int Label, Major, Increment;
  double PerDay, Divisor;
} Rows[] = {
    {MilliSecond, MilliSecond, TLabel::MilliSeconds, 5, 5, 1, MilliSecondsPerDay, 5},
    {MilliSecond, MilliSecond, TLabel::MilliSeconds, 10, 5, 1, MilliSecondsPerDay, 10},
    {MilliSecond, MilliSecond, TLabel::MilliSeconds, 20, 10, 2, MilliSecondsPerDay, 20},
    {MilliSecond, MilliSecond, TLabel::MilliSeconds, 50, 20, 5, MilliSecondsPerDay, 50},
    {MilliSecond, MilliSecond, TLabel::MilliSeconds, 100, 50, 10, MilliSecondsPerDay, 100},
    {MilliSecond, MilliSecond, TLabel::MilliSeconds, 200, 200, 20, MilliSecondsPerDay, 200},
    {MilliSecond, MilliSecond, TLabel::MilliSeconds, 500, 200, 50, MilliSecondsPerDay, 500},
    {Second, MilliSecond, TLabel::Seconds, 1000, 500, 100, SecondsPerDay, 1},
    {Second, MilliSecond, TLabel::Seconds, 2000, 1000, 100, SecondsPerDay, 2},
    {Second, MilliSecond, TLabel::Seconds, 5000, 2500, 500, SecondsPerDay, 5},
    {Second, Second, TLabel::Seconds, 10, 5, 1, SecondsPerDay, 10},
    {Second, Second, TLabel::Seconds, 20, 10, 1, SecondsPerDay, 20},
    {Second, Second, TLabel::Seconds, 30, 10, 2, SecondsPerDay, 30},
    {Minute, Second, TLabel::Minutes, 60, 30, 5, SecondsPerDay, 60},
    {Minute, Second, TLabel::Minutes, 120, 60, 10, SecondsPerDay, 120},
    {Minute, Second, TLabel::Minutes, 300, 300, 30, SecondsPerDay, 300},
    {Minute, Minute, TLabel::Minutes, 10, 5, 1, MinutesPerDay, 10},
    {Minute, Minute, TLabel::Minutes, 15, 5, 1, MinutesPerDay, 15},
    {Minute, Minute, TLabel::Minutes, 30, 15, 5, MinutesPerDay, 30},
    {Minute, Minute, TLabel::Minutes, 60, 15, 5, MinutesPerDay, 60},
    {Minute, Minute, TLabel::Minutes, 180, 60, 15, MinutesPerDay, 180},
    {Hour, Hour, TLabel::Minutes, 6, 3, 1, HoursPerDay, 6},
    {Hour, Hour, TLabel::DayAndHour, 12, 6, 1, HoursPerDay, 12},
    {Hour, Hour, TLabel::Day, 24, 12, 3, HoursPerDay, 24},
    {Hour, Hour, TLabel::Day, 48, 24, 6, HoursPerDay, 48},
    {Day, Day, TLabel::Day, 1, 7, 1, 1, 7},
    {Day, Day, TLabel::Day, 2, 7, 1, 1, 14},
    {Month, Day, TLabel::LongMonth, 1, 1, 1, 1, 30.5},
    {Month, Day, TLabel::ShortMonth, 1, 1, 1, 1, 30.5},
    {Month, Month, TLabel::ShortMonth, 3, 3, 1, 1, 30.5 * 3},
    {Month, Month, TLabel::ShortMonth, 6, 3, 1, 1, 30.5 * 6},
    {Year, Month, TLabel::YearDigits, 1, 12, 1, 1, 30.5 * 12},
    {Year, Month, TLabel::YearDigits, 2, 12, 3, 1, 30.5 * 24},
    {Year, Year, TLabel::YearDigits, 5, 5, 1, 1, 365 * 5},
    {Year, Year, TLabel::YearDigits, 10, 5, 1, 1, 365 * 10},
    {Year, Year, TLabel::YearDigits, 20, 10, 2, 1, 365 * 20},
    {Year, Year, TLabel::YearDigits, 25, 25, 5, 1, 365 * 25},
    {Year, Year, TLabel::YearDigits, 50, 25, 5, 1, 365 * 50},
    {Year, Year, TLabel::YearDigits, 100, 50, 10, 1, 365 * 100},
    {Year, Year, TLabel::YearDigits, 200, 100, 25, 1, 365 * 200},
    {Year, Year, TLabel::YearDigits, 500, 250, 50, 1, 365 * 500},
    {Year, Year, TLabel::YearDigits, 1000, 500, 100, 1, 365 * 1000},
};

const std::string& FormatOf(TLabel Shown, double Span, const TZyDateTimeFormats& Formats) {
  static const std::string YearDigits;
  switch (Shown) {
    case TLabel::MilliSeconds:
      return Formats.MilliSecond;
    case TLabel::Seconds:
      return Formats.Second;
    case TLabel::Minutes:
      return Span <= 1 ? Formats.Minute : Formats.DayAndHour;
    case TLabel::DayAndHour:
      return Formats.DayAndHour;
    case TLabel::Day:
      return Formats.Day;
    case TLabel::LongMonth:
      return Formats.LongMonth;
    case TLabel::ShortMonth:
      return Formats.ShortMonth;
    default:
      return YearDigits;
  }
}

double LabelLength(TLabel Shown, TDateTime Stop, const std::string& Format, const TZyLabelRoom& Room) {
  // Names of months differ in length: that of Stop says little.
  if (Shown == TLabel::LongMonth) return 1.5 * Room.Measure("February 9999", Stop);
  if (Shown == TLabel::YearDigits) return Room.Measure(IntToStr(YearOf(Stop)), Stop);
  std::string Text;
  MyDateTimeToString(Text, Format, Stop);
  return Room.Measure(std::move(Text), Stop);
}

bool HaveRoom(double Labels, double Length, const TZyLabelRoom& Room) {
  if (!(Labels < 1000)) return false;
  const double Count = std::trunc(Labels + 0.5) + 1;
  if (Count <= 1) return true;  // a single label stays, with room or without
  return Count * Length * 0.48 + (Count - 1) * 120 * Room.DistanceFactor <= Room.Length;
}

/// The next whole millisecond; what lies nearer than a real can tell is one.
TDateTime RoundMilliSecond(TDateTime Value, bool Up) {
  constexpr double Near = 0.1;
  const TDateTime Nearest = *TryEncodeDateTime(DecodeDateTime(Value));
  const double Beyond = TotalMilliSeconds(DateTimeSpan(Nearest, Value));
  if (std::fabs(Beyond) < Near || (Beyond > 0) != Up) return Nearest;
  return MyIncMilliSeconds(Nearest, Up ? 1 : -1);
}

/// A date and time on its way to a tick, with its fields.
class TRounding {
 public:
  TRounding(TDateTime Value, bool IsUp)
      : FValue(RoundMilliSecond(std::clamp(std::isnan(Value) ? MinDateTime : Value, MinDateTime, MaxDateTime), IsUp)),
        FUp(IsUp) {
    Fields = DecodeDateTime(FValue);
  }

  TDateTime Value() const { return std::clamp(FValue, MinDateTime, MaxDateTime); }
  bool Up() const { return FUp; }

  void Step(TZyDtRegion Unit, int Count) {
    FValue = IncDateTime(Unit, FValue, Count);
    Fields = DecodeDateTime(FValue);
  }
  /// Goes to the next multiple of so many units, Above of them being beyond the last one.
  void Snap(TZyDtRegion Unit, int Above, int Units) {
    if (Above > 0) Step(Unit, FUp ? Units - Above : -Above);
  }
  void SnapDays() { Snap(Day, Fields.Day - 1, DaysInAMonth(Fields.Year, Fields.Month)); }
  void SnapMonths() { Snap(Month, Fields.Month - 1, 12); }

  TDateTimeParts Fields;

 private:
  TDateTime FValue;
  bool FUp;
};

/// Clears all that is finer than the unit, from fine to coarse.
void ClearBelow(TRounding& Rounding, TZyDtRegion Unit) {
  if (Unit < MilliSecond) Rounding.Snap(MilliSecond, Rounding.Fields.MilliSecond, 1000);
  if (Unit < Second) Rounding.Snap(Second, Rounding.Fields.Second, 60);
  if (Unit < Minute) Rounding.Snap(Minute, Rounding.Fields.Minute, 60);
  if (Unit < Hour) Rounding.Snap(Hour, Rounding.Fields.Hour, 24);
  if (Unit < Day) Rounding.SnapDays();
  if (Unit < Month) Rounding.SnapMonths();
}

int CountOf(TZyDtRegion Unit, const TRounding& Rounding) {
  switch (Unit) {
    case Year:
      return Rounding.Fields.Year;
    case Month:
      return Rounding.Fields.Month - 1;
    case Day:
      return Rounding.Fields.Day - 1;
    case Hour:
      return Rounding.Fields.Hour;
    case Minute:
      return Rounding.Fields.Minute;
    case Second:
      return SecondOfTheYear(Rounding.Value());
    default:  // of the minute, which all steps divide
      return Rounding.Fields.Second * 1000 + Rounding.Fields.MilliSecond;
  }
}

void SnapToMultiple(TRounding& Rounding, TZyDtRegion Unit, int Multiple) {
  if (Multiple <= 1) return;
  if (Unit == Day && Multiple == 7) return Rounding.Snap(Day, DayOfWeek(Rounding.Value()) - 1, 7);
  if (Unit == Year) {
    const int Now = Rounding.Fields.Year;
    if (Rounding.Up() ? Now >= 9999 - Multiple : Now <= Multiple) return;  // the multiple lies beyond the calendar
  }
  Rounding.Snap(Unit, CountOf(Unit, Rounding) % Multiple, Multiple);
}

}  // namespace

TZyDtParameters ChooseDtParameters(TDateTime Start, TDateTime Stop, const TZyDateTimeFormats& Formats,
                                   const TZyLabelRoom& Room) {
  const double Span = DateTimeSpan(Start, Stop);
  double Length = 0;
  const TRow* Measured = nullptr;
  const TRow* Row = std::begin(Rows);
  for (;; ++Row) {
    if (Measured == nullptr || Measured->Shown != Row->Shown) {
      Length = LabelLength(Row->Shown, Stop, FormatOf(Row->Shown, Span, Formats), Room);
      Measured = Row;
    }
    if (Row + 1 == std::end(Rows) || HaveRoom(Span * Row->PerDay / Row->Divisor, Length, Room)) break;
  }
  return {Row->MajorRgn, Row->MinorRgn, Row->Increment, Row->Major, Row->Label, FormatOf(Row->Shown, Span, Formats)};
}

TDateTime DateTimeRound(const TZyDtParameters& Steps, TDateTime Value, bool Up, bool ToMajor) {
  TRounding Rounding(Value, Up);
  ClearBelow(Rounding, Steps.MinorRgn);
  if (ToMajor && Steps.MajorRgn == Month && Steps.MinorRgn == Day) {
    Rounding.SnapDays();
  } else if (ToMajor && Steps.MajorRgn == Year && Steps.MinorRgn == Month) {
    Rounding.SnapMonths();
  } else {
    SnapToMultiple(Rounding, Steps.MinorRgn, ToMajor ? Steps.MajorMod : Steps.Increment);
  }
  return Rounding.Value();
}

std::string DateTimeLabel(const TZyDtParameters& Steps, TDateTime Value) {
  if (Steps.MajorRgn == Year) return IntToStr(YearOf(Value));
  std::string Text;
  MyDateTimeToString(Text, Steps.Format, Value);
  if (Steps.MajorRgn == MilliSecond)
    for (int i = 0; i < 2 && !Text.empty() && Text.back() == '0'; ++i) Text.pop_back();
  return Text;
}

TZyDateTimeTicks::TZyDateTimeTicks(const TZyDtParameters& Steps, TDateTime Start)
    : FSteps(Steps), FValue(DateTimeRound(Steps, Start, true, false)) {
  Take();
}

void TZyDateTimeTicks::Next() {
  FValue = IncDateTime(FSteps.MinorRgn, FValue, std::max(FSteps.Increment, 1));
  Take();
}

std::int64_t TZyDateTimeTicks::Count() const {
  const TDateTimeParts Fields = DecodeDateTime(FValue);
  switch (FSteps.MinorRgn) {
    case Year:
      return Fields.Year;
    case Month:
      return Fields.Year * 12 + Fields.Month - 1;
    case Day:
      return Fields.Day - 1;
    case Hour:
      return HourOfTheYear(FValue);
    case Minute:
      return MinuteOfTheYear(FValue);
    case Second:
      return SecondOfTheYear(FValue);
    default:
      return MilliSecondOfTheYear(FValue);
  }
}

void TZyDateTimeTicks::Take() {
  const int MajorMod = std::max(FSteps.MajorMod, 1), LabelMod = std::max(FSteps.LabelMod, 1);
  FToggle = !FToggle;
  if (FSteps.MajorRgn == Day && MajorMod == 7) {
    FMajor = DayOfWeek(FValue) == 1;
    FLabelled = FMajor && (LabelMod == 1 || FToggle);  // a week is odd, so that the toggle takes every second one
    return;
  }
  const std::int64_t Place = Count();
  FMajor = Place % MajorMod == 0;
  if (FSteps.MajorRgn == Month && MajorMod == 1) FMajor = DecodeDateTime(FValue).Day == 1;
  const bool IsMultiple = (FSteps.MajorRgn == Year ? YearOf(FValue) : Place) % LabelMod == 0;
  FLabelled = FMajor && IsMultiple;
}

}  // namespace zy
