#include "axes/ZyScaleKind.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "analysis/ZyMath.h"
#include "axes/ZyDateTimeScale.h"
#include "axes/ZyLinearScale.h"
#include "axes/ZyLogExponentScale.h"
#include "axes/ZyLogScale.h"
#include "axes/ZyRubricScale.h"
#include "axes/ZySecondsScale.h"

namespace zy {
namespace {

constexpr double MostSteps = 10000;  // of a loop; steps of the user's own may be as fine as they like
constexpr double Nearly = 1e-9;      // relative; far beyond rounding, far below any step

}  // namespace

const TZyScaleKind& TZyScaleKind::Of(TZyAxisScaling Scaling) {
  static const TZyLinearScale Linear;
  static const TZyLogScale Log;
  static const TZyLogExponentScale LogExponent;
  static const TZySecondsScale Seconds;
  static const TZyDateTimeScale DateTime;
  static const TZyRubricScale Rubrics;
  static const std::array<const TZyScaleKind*, 6> Kinds{&Linear, &Log, &LogExponent, &Seconds, &DateTime, &Rubrics};
  return *Kinds[static_cast<std::size_t>(Scaling)];
}

/// Where a value lies between the ends, from 0 to 1; no number without a place.
double TZyScaleKind::PartOfLength(const TZyAxisSteps& Steps, const TZyAxisRange& Ends, double Value) const {
  switch (Mapping(Steps)) {
    case TZyMapping::Logarithmic:
      if (!(Value > 0)) return std::numeric_limits<double>::quiet_NaN();
      return (std::log10(Value) - std::log10(Ends.Start)) / (std::log10(Ends.Stop) - std::log10(Ends.Start));
    case TZyMapping::Calendar:
      return DateTimeSpan(Ends.Start, Value) / DateTimeSpan(Ends.Start, Ends.Stop);
    default:
      return (Value - Ends.Start) / (Ends.Stop - Ends.Start);
  }
}

TZyBeyond TZyScaleKind::Beyond(const TZyAxisSteps& Steps, const TZyAxisRange& Ends, const TZyAxisRange& Values) const {
  constexpr double LeastPart = 1e-8;
  TZyBeyond Result;
  for (const double Value : {Values.Start, Values.Stop}) {
    const double Part = PartOfLength(Steps, Ends, Value);
    Result.Start = Result.Start || Part < -LeastPart;
    Result.Stop = Result.Stop || Part > 1 + LeastPart;
  }
  return Result;
}

double TZyScaleKind::Limited(double End) const {
  constexpr double Largest = std::numeric_limits<double>::max() / 4;
  return std::isnan(End) ? 0 : std::clamp(End, -Largest, Largest);
}

void TZyScaleKind::RepairOrder(double& Start, double& Stop) const {
  if (!(Start > Stop)) return;
  Start = 0;
  Stop = 100;
}

void TZyScaleKind::WidenEqual(double& Start, double& Stop, bool StartMoves, bool StopMoves) const {
  constexpr double SmallestSpan = 1e-290;  // parts of it are still numbers of full precision
  if (Start == Stop) {
    const double Half = Stop == 0 ? 1 : Exp10(Real10thExponent(Start));
    if (StartMoves) Start -= Half;
    if (StopMoves) Stop += Half;
    if (ChoosesOwnSteps() && Stop > 0) Start = std::max(Start, 0.0);  // spans and rubrics begin at 0
  }
  if (Stop - Start < SmallestSpan) Stop = Start + SmallestSpan;
}

void TZyScaleKind::TakeMapping(TZyAxisSteps& Steps, const TZyStepRules&, double, double) const {
  Steps.HasLogScaling = false;
}

double TZyScaleKind::RoundEnd(const TZyAxisSteps& Steps, double Value, bool Up, bool ToMajor) const {
  return RoundToPart(Steps, Value, ToMajor ? Steps.MajorTickPart : Steps.TickPart, Up);
}

double TZyScaleKind::PerPixel(const TZyAxisSteps& Steps, double Start, double Stop, float Length) const {
  const auto Pixels = static_cast<double>(Length);
  switch (Mapping(Steps)) {
    case TZyMapping::Logarithmic:
      return (Steps.LogStop - Steps.LogStart) / Pixels;
    case TZyMapping::Calendar:
      return DateTimeSpan(Start, Stop) / Pixels;
    default:
      return (Stop - Start) / Pixels;
  }
}

double TZyScaleKind::PartSize(const TZyAxisSteps& Steps, double Part) const {
  return ExpMinus(Part, -Steps.RangeExponent);
}

double TZyScaleKind::RoundToPart(const TZyAxisSteps& Steps, double Value, double Part, bool Up) const {
  const double Rounded = Up ? RoundUp(Value, Part, Steps.RangeExponent) : RoundDown(Value, Part, Steps.RangeExponent);
  return std::isfinite(Rounded) ? Rounded + 0.0 : Value;  // never a negative 0
}

void TZyScaleKind::LimitParts(TZyAxisSteps& Steps) {
  if (!(Steps.TickPart >= 0.00001)) Steps.TickPart = 0.1;
  Steps.MajorTickPart = std::max(Steps.MajorTickPart, Steps.TickPart);
  Steps.LabelPart = std::max(Steps.LabelPart, Steps.TickPart);
}

void TZyScaleKind::PutEvenTicks(TZyTickWriter& Writer, const TZyAxisSteps& Steps, double Snap,
                                const std::function<std::string(double, double)>& Text) const {
  const double Low = Writer.Low(), High = Writer.High();
  double Part = Steps.TickPart > 0 ? Steps.TickPart : 1;
  while ((High - Low) / PartSize(Steps, Part) > MostSteps) Part *= 10;
  const double LabelPart = std::max(Steps.LabelPart, Part), MajorPart = std::max(Steps.MajorTickPart, Part);
  const double FirstOnGrid = RoundToPart(Steps, Low, Part, true);
  if (FirstOnGrid > High + Nearly * (High - Low)) return;  // a step wider than the scale
  const double First = std::clamp(FirstOnGrid, Low, High);
  const double Last = std::clamp(RoundToPart(Steps, High, Part, false), First, High);
  const long Count = std::lround((Last - First) / PartSize(Steps, Part));
  const double Step = Count > 0 ? (Last - First) / static_cast<double>(Count) : High - Low;
  const double Tolerance = Snap * Step;
  double NextMajor = RoundToPart(Steps, Low, MajorPart, true);
  double NextLabel = RoundToPart(Steps, Low, LabelPart, true);
  double Previous = 0;
  for (long Index = 0; Index <= Count; ++Index) {
    double Value = First + static_cast<double>(Index) * Step;
    if (std::fabs(Value) < Nearly * Step) Value = 0;
    if (Index > 0 && Value <= Previous) continue;  // finer than the reals are
    Previous = Value;
    const bool IsLabel = std::fabs(Value - NextLabel) < Tolerance;
    const bool IsMajor = std::fabs(Value - NextMajor) < Tolerance;
    Writer.Put(Value, IsMajor, IsLabel, [&] { return Text(Value, NextLabel); });
    if (IsLabel) NextLabel = RoundToPart(Steps, Value + Tolerance, LabelPart, true);
    if (IsMajor) NextMajor = RoundToPart(Steps, Value + Step, MajorPart, true);
  }
}

}  // namespace zy
