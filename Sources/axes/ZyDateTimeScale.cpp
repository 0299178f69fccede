#include "axes/ZyDateTimeScale.h"

#include <algorithm>
#include <cmath>

namespace zy {
namespace {

constexpr double MostSteps = 10000;  // of a loop

/// Days in a unit of the calendar, rather less than more: a step of a scroll bar must not jump over one.
double DaysIn(TZyDtRegion Unit) {
  constexpr double Days[] = {365, 28, 0.99, 1.0 / 24, 1.0 / 1440, 1.0 / 86400, 1.0 / 86400000};
  return Days[static_cast<std::size_t>(Unit)];
}

}  // namespace

double TZyDateTimeScale::Settable(double End) const { return std::clamp(End, MinDateTime, MaxDateTime); }

double TZyDateTimeScale::Limited(double End) const { return std::isnan(End) ? 0 : Settable(End); }

/// A minute, behind the end or, at the end of the calendar, before it.
void TZyDateTimeScale::WidenEqual(double& Start, double& Stop, bool, bool) const {
  if (Start != Stop) return;
  if (const double Later = MyIncMinutes(Stop, 1); Later < MaxDateTime) {
    Stop = Later;
  } else {
    Start = MyIncMinutes(Start, -1);
  }
}

double TZyDateTimeScale::RoundEnd(const TZyAxisSteps& Steps, double Value, bool Up, bool ToMajor) const {
  return Settable(DateTimeRound(Steps.DateTime, Value, Up, ToMajor));
}

void TZyDateTimeScale::TakeSteps(TZyAxisSteps& Steps, const TZyStepRules& Rules, const TZyLabelRoom& Room, double Start,
                                 double Stop, bool Chooses) const {
  if (Chooses) Steps.DateTime = ChooseDtParameters(Start, Stop, Rules.DateTimeFormats, Room);
}

double TZyDateTimeScale::MajorIncrement(const TZyAxisSteps& Steps) const {
  return Steps.DateTime.MajorMod * Steps.DateTime.Increment * DaysIn(Steps.DateTime.MajorRgn);
}

double TZyDateTimeScale::MinorIncrement(const TZyAxisSteps& Steps) const {
  return Steps.DateTime.Increment * DaysIn(Steps.DateTime.MinorRgn);
}

void TZyDateTimeScale::PutTicks(TZyTickWriter& Writer, TZyAxisSteps& Steps, const TZyStepRules& Rules,
                                const TZyLabelRoom& Room, const TStrings&) const {
  const double Low = Writer.Low(), High = Writer.High(), Pixel = std::fabs(Writer.Transform().PerPixel());
  // Steps that were chosen for other ends may be far too fine for these.
  if (DateTimeSpan(Low, High) / MinorIncrement(Steps) > MostSteps) TakeSteps(Steps, Rules, Room, Low, High, true);
  double Previous = MinDateTime - 1;
  for (TZyDateTimeTicks Ticks(Steps.DateTime, Low); DateTimeSpan(Ticks.Value(), High) >= -Pixel; Ticks.Next()) {
    const double Value = Ticks.Value();
    if (DateTimeSpan(Previous, Value) <= 0 || Value > MaxDateTime) return;
    Previous = Value;
    if (DateTimeSpan(Low, Value) < -Pixel) continue;  // dates are whole milliseconds
    Writer.Put(Value, Ticks.Major(), Ticks.Labelled(), [&] { return DateTimeLabel(Steps.DateTime, Value); });
  }
}

}  // namespace zy
