// Where the ends of an axis come from, and how they are rounded to ticks.

#include <algorithm>
#include <cmath>
#include <limits>

#include "analysis/ZyMath.h"
#include "axes/ZyAxis.h"
#include "axes/ZyAxisUndo.h"
#include "axes/ZyDateTime.h"
#include "graph/ZyGraph2D.h"
#include "platform/framework/Reflection.h"
#include "series/ZySeries.h"
#include "series/vectors/ZyDoubleVector.h"
#include "undo/ZyChange.h"

namespace zy {
namespace {

constexpr double LargestDouble = std::numeric_limits<double>::max();

}  // namespace

void TZyAxis::SetStartEnd(TZyAxisEnd Value) {
  if (Value == TZyAxisEnd::MovingSlit) Value = TZyAxisEnd::Fixed;
  if (Value == FStartEnd) return;
  const TAxisUndoGroup Group(*this, _sAxisStartEnd, {"Start", "Stop", "StartEnd"});
  FStartEnd = Value;
  if (Value == TZyAxisEnd::AutoRange) {
    RangeModified();
  } else {
    Modified();
  }
}

void TZyAxis::SetStopEnd(TZyAxisEnd Value) {
  if (Value == FStopEnd) return;
  const TAxisUndoGroup Group(*this, _sAxisStopEnd, {"Start", "Stop", "StartEnd", "StopEnd"});
  FStopEnd = Value;
  if (Value == TZyAxisEnd::MovingSlit && !IsLoading() && !Restoring()) {  // an undo brings the rest back by itself
    FStartEnd = TZyAxisEnd::Fixed;
    EndUserZoom();
  }
  if (Value == TZyAxisEnd::AutoRange || Value == TZyAxisEnd::MovingSlit) {
    RangeModified();
  } else {
    Modified();
  }
}

/// A range that moves by itself is nothing to zoom or to scroll.
void TZyAxis::EndUserZoom() {
  TZyGraph2D* const Parent = Graph();
  if (Parent == nullptr) return;
  Parent->Zoom().SetAuto(false);
  if (GetHorizontal()) {
    Parent->Zoom().SetHScrollbarVisible(false);
  } else {
    Parent->Zoom().SetVScrollbarVisible(false);
  }
}

double TZyAxis::LimitedToDates(double Value) const {
  return FScaling == TZyAxisScaling::DateTime && !Restoring() ? std::clamp(Value, MinDateTime, MaxDateTime) : Value;
}

void TZyAxis::SetEnd(double& End, double& InitialEnd, double& LastEnd, double Value, TZyText Label,
                     const char* PropName) {
  if (!std::isfinite(Value)) return;
  const double Limited = LimitedToDates(Value);
  if (Limited == End) return;
  if (FUndoStack != nullptr) FUndoStack->PushProperty(this, LoadResString(Label), PropName);
  End = InitialEnd = LastEnd = Limited;
  if (IsDesigning() && !IsLoading() && !FRelatedSeries.empty()) DsgnRescaleSeriesVectors();
  Modified();
}

namespace {

/// The vector when its values are samples for the form designer: not stored with the form.
TZyDoubleVector* SampleData(TZyCustomDoubleVector* Data) {
  auto* const Vector = dynamic_cast<TZyDoubleVector*>(Data);
  return Vector == nullptr || Vector->PersistentValues() || Vector->DBData() ? nullptr : Vector;
}

template <class TScale>
void Rescale(TZyDoubleVector& Vector, const TScale& Scale) {
  for (double& Value : Vector.InternalArray()) Value = Scale(Value);
  Vector.OutOfRange();
}

}  // namespace

/// Sample data follow the ends that the designer sets.
void TZyAxis::DsgnRescaleSeriesVectors() {
  TZyGraph2D* const Parent = Graph();
  if (Parent != nullptr) Parent->BeginUpdate();
  if (!(FValuesStart < FValuesStop)) {
    FValuesStart = FStart;
    FValuesStop = FStop;
  }
  const double First = FValuesStart, Slope = (FStop - FStart) / (FValuesStop - FValuesStart);
  for (const TZySeries* Series : FRelatedSeries)
    if (TZyDoubleVector* const Vector = SampleData(GetHorizontal() ? Series->XData() : Series->YData()))
      if (std::isfinite(Slope)) Rescale(*Vector, [&](double Value) { return (Value - First) * Slope + FStart; });
  if (Parent != nullptr) Parent->EndUpdate();
}

void TZyAxis::ShrinkOtherYs() {
  const std::size_t Count = FRelatedSeries.size();
  if (GetHorizontal() || Count < 2) return;
  const auto N = static_cast<double>(Count);
  for (std::size_t i = 1; i < Count; ++i) {
    TZyDoubleVector* const Vector = SampleData(FRelatedSeries[i]->YData());
    if (Vector == nullptr) continue;
    const auto I = static_cast<double>(i);
    const double Factor = i + 1 == Count ? 1 / N : (N - I) / N * (N - 1) / (N - I - 1);
    Rescale(*Vector, [&](double Value) { return (Value - FStart) * Factor + FStart; });
  }
}

void TZyAxis::SetStart(double Value) { SetEnd(FStart, FInitialStart, FLastStart, Value, _sAxisStart, "Start"); }

void TZyAxis::SetStop(double Value) { SetEnd(FStop, FInitialStop, FLastStop, Value, _sAxisStop, "Stop"); }

void TZyAxis::SetStartStop(double AStart, double AStop) {
  if (!std::isfinite(AStart) || !std::isfinite(AStop) || (AStart == FStart && AStop == FStop)) return;
  FStart = FLastStart = AStart;
  FStop = FLastStop = AStop;
  Modified();
}

void TZyAxis::SetEndRounding(TZyAxisEndRounding Value) {
  if (Value == FEndRounding) return;
  const TAxisUndoGroup Group(*this, _sAxisEndRounding, {"Start", "Stop", "EndRounding"});
  FEndRounding = Value;
  Modified();
}

void TZyAxis::SetStartPadding(double Value) {
  if (!(Value > 0) || !std::isfinite(Value) || Value == FStartPadding) return;
  FStartPadding = Value;
  Modified();
}

void TZyAxis::SetStopPadding(double Value) {
  if (!(Value > 0) || !std::isfinite(Value) || Value == FStopPadding) return;
  FStopPadding = Value;
  Modified();
}

void TZyAxis::SetMovingSlit(double& Field, double Value, TZyText Label, const char* PropName) {
  if (!std::isfinite(Value) || Value == Field) return;
  const TAxisUndoGroup Group(*this, Label, {PropName});
  Field = Value;
  if (IsDesigning() && !IsLoading()) SetStopEnd(TZyAxisEnd::MovingSlit);
  RangeModified();
}

void TZyAxis::SetMovingSlitWidth(double Value) {
  SetMovingSlit(FMovingSlitWidth, Value, _sAxisMovingSlitWidth, "MovingSlitWidth");
}

void TZyAxis::SetMovingSlitIncrement(double Value) {
  SetMovingSlit(FMovingSlitIncrement, Value, _sAxisMovingSlitIncrement, "MovingSlitIncrement");
}

void TZyAxis::RangeModified() {
  if (IsDestroying()) return;
  if (const TZyGraph2D* const Parent = Graph(); Parent != nullptr && Parent->LoadingRecord()) return;
  if (GetCanZoomBack()) {
    if (FStartEnd != TZyAxisEnd::AutoRange) SetStart(FLastZoomStart.front());
    if (FStopEnd != TZyAxisEnd::AutoRange) SetStop(FLastZoomStop.front());
  }
  if (FRelatedSeries.empty()) return Modified();
  FValuesStart = LargestDouble;
  FValuesStop = -LargestDouble;
  ZoomClearBuffer();
  FRedoRange = true;
}

void TZyAxis::GetNewRanges() {
  if (!FRedoRange) return;
  FRedoRange = false;
  double Low = LargestDouble, High = -LargestDouble;
  for (const TZySeries* Series : FRelatedSeries) {
    const double First = GetHorizontal() ? Series->XStart() : Series->YStart();
    const double Last = GetHorizontal() ? Series->XStop() : Series->YStop();
    if (!Series->SeriesVisible() || First > Last) continue;
    Low = std::min(Low, First);
    High = std::max(High, Last);
  }
  if (High >= Low && Low == FValuesStart && High == FValuesStop) return;
  if (High < Low) {
    Low = FInitialStart;
    High = FInitialStop;
  }
  FValuesStart = Low;
  FValuesStop = High;
  double Start = FStart, Stop = FStop;
  TakeCandidates(Start, Stop);
  const TScale Kept = FScale;
  RoundEnds(Start, Stop);
  if (Start == FLastStart && Stop == FLastStop) {
    FScale = Kept;  // the ends that stand were rounded to these steps
    return;
  }
  FLastStart = FStart = Start;
  FLastStop = FStop = Stop;
  Modified();
}

void TZyAxis::TakeCandidates(double& Start, double& Stop) {
  if (FStopEnd == TZyAxisEnd::MovingSlit) return TakeMovingSlit(Start, Stop);
  if (FStartEnd == TZyAxisEnd::AutoRange) Start = FValuesStart;
  if (FStartEnd == TZyAxisEnd::FirstSet) Start = std::min(FStart, FValuesStart);
  if (FStartEnd == TZyAxisEnd::Fixed) FValuesStart = Start;
  if (FStopEnd == TZyAxisEnd::AutoRange) Stop = FValuesStop;
  if (FStopEnd == TZyAxisEnd::FirstSet) Stop = std::max(FStop, FValuesStop);
  if (FStopEnd == TZyAxisEnd::Fixed) FValuesStop = Stop;
}

/// The range jumps by whole increments, as often as it takes to reach the data; counted, not stepped, since data may
/// lie any number of them ahead.
void TZyAxis::TakeMovingSlit(double& Start, double& Stop) {
  if (IsDesigning()) return;
  if (FMovingSlitWidth <= 0) FMovingSlitWidth = FInitialStop - FInitialStart;
  if (FMovingSlitIncrement > FMovingSlitWidth || FMovingSlitIncrement <= 0) FMovingSlitIncrement = FMovingSlitWidth / 3;
  const double First = FInitialStart + FMovingSlitWidth;
  const double Jumps = FMovingSlitIncrement > 0 ? std::ceil((FValuesStop - First) / FMovingSlitIncrement) : 0;
  Stop = First + std::max(Jumps, 0.0) * FMovingSlitIncrement;
  Start = Stop - FMovingSlitWidth > FValuesStart ? Stop - FMovingSlitWidth : FInitialStart;
}

bool TZyAxis::GetIsClipped() const {
  if (FRedoRange || Graph() == nullptr || FRelatedSeries.empty() || !(FValuesStart < FValuesStop)) return false;
  const double Low = FStartEnd == TZyAxisEnd::Fixed ? FStart : FValuesStart;
  const double High = FStopEnd == TZyAxisEnd::Fixed ? FStop : FValuesStop;
  const double Nearly = (HighEnd() - LowEnd()) * 1e-8;
  return LowEnd() - Nearly > Low || HighEnd() + Nearly < High;
}

/// Repairs ends, chooses steps for them and rounds them to these. Dates, and axes that follow another one, may run from
/// high to low.
void TZyAxis::RoundEnds(double& Start, double& Stop) {
  if (RunsDown(Start, Stop) && (FScaling == TZyAxisScaling::DateTime || IsSlave())) return RoundEnds(Stop, Start);
  FScale.ExtraExponent = false;
  LimitEnds(Start, Stop);
  RepairOrder(Start, Stop);
  WidenEqualEnds(Start, Stop);
  TakeLogEnds(Start, Stop);
  AddPadding(Start, Stop);
  RoundToSteps(Start, Stop);
  if (FScale.HasLogScaling) {
    TakeLogarithms(Start, Stop);
  } else {
    GetExponentAndDigits(Start, Stop);
  }
}

/// Keeps ends inside the calendar, or where their span and the grid around them still are finite numbers.
void TZyAxis::LimitEnds(double& Start, double& Stop) const {
  constexpr double LargestEnd = LargestDouble / 4;
  const bool IsDate = FScaling == TZyAxisScaling::DateTime;
  const double Least = IsDate ? MinDateTime : -LargestEnd, Most = IsDate ? MaxDateTime : LargestEnd;
  for (double* End : {&Start, &Stop}) *End = std::isnan(*End) ? 0 : std::clamp(*End, Least, Most);
}

void TZyAxis::RepairOrder(double& Start, double& Stop) const {
  if (FScaling == TZyAxisScaling::Seconds || FScaling == TZyAxisScaling::Rubrics) {
    if (Start < 0) Start = 0;
    if (Stop < 0) Stop = 1;
  }
  if (FScaling == TZyAxisScaling::DateTime || !(Start > Stop)) return;
  Start = HasLogKind() ? 1 : 0;
  Stop = HasLogKind() ? 10 : 100;
}

void TZyAxis::WidenEqualEnds(double& Start, double& Stop) const {
  if (FScaling == TZyAxisScaling::DateTime) {
    if (Start != Stop) return;
    if (const double Later = MyIncMinutes(Stop, 1); Later < MaxDateTime) {
      Stop = Later;
    } else {
      Start = MyIncMinutes(Start, -1);
    }
    return;
  }
  if (Start == Stop) {
    const double Half = Stop == 0 ? 1 : Exp10(Real10thExponent(Start));
    const bool StartMoves = FStartEnd == TZyAxisEnd::AutoRange;
    const bool StopMoves = FStopEnd == TZyAxisEnd::AutoRange || !StartMoves;
    if (StartMoves) Start -= Half;
    if (StopMoves) Stop += Half;
    if (ChoosesOwnParts() && Stop > 0) Start = std::max(Start, 0.0);  // spans and rubrics begin at 0
  }
  constexpr double SmallestSpan = 1e-290;  // parts of it are still numbers of full precision
  if (Stop - Start < SmallestSpan) Stop = Start + SmallestSpan;
}

/// Gives a logarithmic kind ends that have logarithms.
void TZyAxis::TakeLogEnds(double& Start, double& Stop) const {
  if (!HasLogKind()) return;
  if (Start <= 0) Start = FValuesStart > 0 && FValuesStart < LargestDouble ? FValuesStart : SmallestPositiveBelow(Stop);
  if (Start <= 0) Start = 0.01;
  if (Stop <= 0) Stop = 1;
  if (Start >= Stop) Start = Stop / 100;
}

/// Decides whether the axis is logarithmic now.
void TZyAxis::TakeLogScaling(double Start, double Stop) {
  FScale.HasLogScaling = false;
  if (!HasLogKind()) return;
  TakeLogarithms(Start, Stop);
  FScale.HasLogScaling = FLogToNormalScalingLevel == 0 || FScale.LogStop - FScale.LogStart > FLogToNormalScalingLevel;
}

void TZyAxis::TakeLogarithms(double Start, double Stop) {
  FScale.LogStart = std::log10(Start);
  FScale.LogStop = std::log10(Stop);
}

/// The smallest value above 0 of all data of the axis that lies below Stop; 0 when there is none.
double TZyAxis::SmallestPositiveBelow(double Stop) const {
  double Smallest = Stop;
  for (const TZySeries* Series : FRelatedSeries) {
    const TZyCustomDoubleVector* const Data = GetHorizontal() ? Series->XData() : Series->YData();
    if (Data == nullptr) continue;
    for (int i = 0; i < Data->Count(); ++i) {
      const double Raw = Data->GetValue(i);
      const double Value = GetHorizontal() ? Series->TransformX(Raw, i) : Series->TransformY(Raw, i);
      if (Value > 0 && Value < Smallest) Smallest = Value;
    }
  }
  return Smallest < Stop ? Smallest : 0;
}

/// Room of the user's own at the ends, for steps that are chosen for it.
void TZyAxis::AddPadding(double& Start, double& Stop) {
  if ((!FAutoTickParts && !ChoosesOwnParts()) || KeepsEnds()) return;
  TakeLogScaling(Start, Stop);
  if (FScale.HasLogScaling) return;
  const double Span = Stop - Start;
  double PaddedStart = Start - Span * FStartPadding, PaddedStop = Stop + Span * FStopPadding;
  LimitEnds(PaddedStart, PaddedStop);
  if (!RunsDown(PaddedStart, PaddedStop)) {
    Start = PaddedStart;
    Stop = PaddedStop;
  }
}

/// Rounding widens the span, and a wider one may have coarser steps: the ends are rounded until the steps are those of
/// the ends that they gave. A further rounding then changes nothing.
void TZyAxis::RoundToSteps(double& Start, double& Stop) {
  constexpr int MostRounds = 20;
  for (int Round = 0; Round < MostRounds; ++Round) {
    TakeLogScaling(Start, Stop);
    TakeTickParts(Start, Stop);
    if (KeepsEnds()) return;
    const double FromStart = Start, FromStop = Stop;
    RoundToTicks(Start, Stop);
    if (FScaling == TZyAxisScaling::DateTime) LimitEnds(Start, Stop);
    if (Start == FromStart && Stop == FromStop) return;
  }
}

/// Chooses the steps for the room that there is; a pan and steps of the user's own only follow the span.
void TZyAxis::TakeTickParts(double Start, double Stop) {
  const bool Chooses = (FAutoTickParts || ChoosesOwnParts()) && !Panning();
  if (FScale.HasLogScaling) {
    if (Chooses) GetLogAxisParts(Start, Stop);
    FScale.RangeExponent = static_cast<int>(std::lround(std::log10(Stop) - std::log10(Start)));
    return LimitLogParts();
  }
  switch (FScaling) {
    case TZyAxisScaling::Rubrics:
      FScale.TickPart = FScale.MajorTickPart = FScale.LabelPart = 1;
      FScale.RangeExponent = 0;
      break;
    case TZyAxisScaling::DateTime:
      if (Chooses) GetDtParameters(Start, Stop);
      break;
    case TZyAxisScaling::Seconds:
      if (Chooses) GetSecParameters(Start, Stop);
      break;
    default:
      if (Chooses) {
        GetNormalAxisParts(Start, Stop);
      } else {
        FScale.RangeExponent = Real10thExponent(Stop - Start);
      }
      GetExponentAndDigits(Start, Stop);  // it raises steps that are too fine for others
  }
}

void TZyAxis::RoundToTicks(double& Start, double& Stop) const {
  using enum TZyAxisEndRounding;
  const bool Zoomed = GetCanZoomBack();
  if (FEndRounding == RndNothing) return;
  if (Zoomed && (FEndRounding == RndToMajorZoomToNothing || FEndRounding == RndToMinorZoomToNothing)) return;
  const bool ToMajor = FEndRounding == RndToMajor || FEndRounding == RndToMajorZoomToNothing ||
                       (FEndRounding == RndToMajorZoomToMinor && !Zoomed);
  // Steps of the user's own that are wider than the span would widen it tenfold with each rounding.
  const double Step = PartSize(ToMajor ? FScale.MajorTickPart : FScale.TickPart);
  if (!ChoosesOwnParts() && !FScale.HasLogScaling && Step > (Stop - Start) * 1.000001) return;
  const double RoundedStart = RoundEnd(Start, false, ToMajor), RoundedStop = RoundEnd(Stop, true, ToMajor);
  if (RoundedStart == RoundedStop) return;  // a span of the size of the reals' own steps
  Start = RoundedStart;
  Stop = RoundedStop;
}

double TZyAxis::RoundEnd(double Value, bool Up, bool ToMajor) const {
  if (FScaling == TZyAxisScaling::DateTime) return DateTimeRound(FScale.DateTime, Value, Up, ToMajor);
  const double Part = ToMajor ? FScale.MajorTickPart : FScale.TickPart;
  double Rounded = RoundToPart(Value, Part, Up);
  if (FScale.HasLogScaling)
    Rounded = Up ? RoundLogUp(Value, FScale.MajorTickPart, Part) : RoundLogDown(Value, FScale.MajorTickPart, Part);
  if (HasLogKind() && !(Rounded > 0)) return Value;  // an axis that is linear by its level stays able to turn back
  return Rounded;
}

/// The next multiple of a step of an evenly spaced scale.
double TZyAxis::RoundToPart(double Value, double Part, bool Up) const {
  double Rounded = Value;
  if (FScaling == TZyAxisScaling::Seconds) {
    Rounded = SecondsRound(FScale.Seconds.Rgn, Value, Part, FScale.Seconds.Exponent, Up);
  } else {
    Rounded = Up ? RoundUp(Value, Part, FScale.RangeExponent) : RoundDown(Value, Part, FScale.RangeExponent);
  }
  return std::isfinite(Rounded) ? Rounded + 0.0 : Value;  // never a negative 0
}

/// Rounds the axis's ends where that was not done. Padding starts again from the ends that it was added to, as long as
/// they are the same: a change of anything else must not make a padded axis grow.
void TZyAxis::RoundOwnEnds() {
  if (FValuesRounded) return;
  FValuesRounded = true;
  if (FStart == FPaddedStart && FStop == FPaddedStop && (FStartPadding > 0 || FStopPadding > 0)) {
    FStart = FUnpaddedStart;
    FStop = FUnpaddedStop;
  }
  FUnpaddedStart = FStart;
  FUnpaddedStop = FStop;
  RoundEnds(FStart, FStop);
  FPaddedStart = FStart;
  FPaddedStop = FStop;
}

/// Takes the ends of the master. Rounding would move them off the master's, so they are computed again behind it.
/// Ends that are no numbers, or equal, are not taken.
void TZyAxis::FollowMaster() {
  TZyAxis& Master = *FMasterAxis;
  FScaling = Master.FScaling;
  Master.RoundOwnEnds();
  const double Start = Master.FStart * FSlaveSlope + FSlaveOffset, Stop = Master.FStop * FSlaveSlope + FSlaveOffset;
  if (!std::isfinite(Start) || !std::isfinite(Stop) || Start == Stop) return RoundOwnEnds();
  FStart = Start;
  FStop = Stop;
  RoundEnds(FStart, FStop);
  FStart = Start;
  FStop = Stop;
  if (FScale.HasLogScaling && FStart > 0 && FStop > 0) {
    TakeLogarithms(FStart, FStop);
  } else if (FScale.HasLogScaling) {  // ends without a logarithm lie on a linear scale
    FScale.HasLogScaling = false;
    GetNormalAxisParts(LowEnd(), HighEnd());
  }
  if (FSlaveSlope == 1 && FSlaveOffset == 0) {
    FScale = Master.FScale;
    if (!FScale.HasLogScaling) GetExponentAndDigits(LowEnd(), HighEnd());
  }
  FValuesRounded = true;
}

void TZyAxis::CheckResize() {
  if (LayoutRunning) return;
  if (FStartEnd == TZyAxisEnd::AutoRange) FStart = FLastStart;
  if (FStopEnd == TZyAxisEnd::AutoRange) FStop = FLastStop;
  Modified();
}

}  // namespace zy
