// Where the ends of an axis come from, and how they are rounded to ticks.

#include <algorithm>
#include <cmath>
#include <limits>

#include "analysis/ZyMath.h"
#include "axes/ZyAxis.h"
#include "graph/ZyGraph2D.h"
#include "platform/framework/Reflection.h"
#include "series/ZySeries.h"
#include "undo/ZyChange.h"

namespace zy {
namespace {

constexpr double LargestDouble = std::numeric_limits<double>::max();

/// One step of undo for an end's kind together with the values that it changes.
class TEndGroup {
 public:
  TEndGroup(TZyAxis* Axis, TZyText Label, std::initializer_list<const char*> PropNames) : FStack(Axis->UndoStack()) {
    if (FStack == nullptr) return;
    FStack->StartGroup(LoadResString(Label));
    for (const char* PropName : PropNames) FStack->PushProperty(Axis, LoadResString(Label), PropName);
  }
  ~TEndGroup() {
    if (FStack != nullptr) FStack->StopGroup();
  }
  TEndGroup(const TEndGroup&) = delete;
  TEndGroup& operator=(const TEndGroup&) = delete;

 private:
  TZyUndoStack* FStack;
};

}  // namespace

void TZyAxis::SetStartEnd(TZyAxisEnd Value) {
  if (Value == TZyAxisEnd::MovingSlit) Value = TZyAxisEnd::Fixed;
  if (Value == FStartEnd) return;
  const TEndGroup Group(this, _sAxisStartEnd, {"Start", "Stop", "StartEnd"});
  FStartEnd = Value;
  if (Value == TZyAxisEnd::AutoRange) {
    RangeModified();
  } else {
    Modified();
  }
}

void TZyAxis::SetStopEnd(TZyAxisEnd Value) {
  if (Value == FStopEnd) return;
  const TEndGroup Group(this, _sAxisStopEnd, {"Start", "Stop", "StartEnd", "StopEnd"});
  FStopEnd = Value;
  if (Value == TZyAxisEnd::AutoRange || Value == TZyAxisEnd::MovingSlit) {
    RangeModified();
  } else {
    Modified();
  }
}

void TZyAxis::RangeModified() {
  if (IsDestroying()) return;
  if (FRelatedSeries.empty()) return Modified();
  FValuesStart = LargestDouble;
  FValuesStop = -LargestDouble;
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
  if (FStartEnd == TZyAxisEnd::AutoRange) Start = FValuesStart;
  if (FStartEnd == TZyAxisEnd::FirstSet) Start = std::min(FStart, FValuesStart);
  if (FStartEnd == TZyAxisEnd::Fixed) FValuesStart = Start;
  if (FStopEnd == TZyAxisEnd::AutoRange) Stop = FValuesStop;
  if (FStopEnd == TZyAxisEnd::FirstSet) Stop = std::max(FStop, FValuesStop);
  if (FStopEnd == TZyAxisEnd::Fixed) FValuesStop = Stop;
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

void TZyAxis::RoundEnds(double& Start, double& Stop) {
  if (Start > Stop) {
    Start = 0;
    Stop = 100;
  }
  if (Start == Stop) {
    const double Half = Stop == 0 ? 1 : Exp10(Real10thExponent(Start));
    const bool StartMoves = FStartEnd == TZyAxisEnd::AutoRange;
    const bool StopMoves = FStopEnd == TZyAxisEnd::AutoRange || !StartMoves;
    if (StartMoves) Start -= Half;
    if (StopMoves) Stop += Half;
  }
  GetNormalAxisParts(Start, Stop);
  Start = RoundEnd(Start, false, true);
  Stop = RoundEnd(Stop, true, true);
  GetExponentAndDigits(Start, Stop);
}

double TZyAxis::RoundEnd(double Value, bool Up, bool ToMajor) const {
  const double Part = ToMajor ? FScale.MajorTickPart : FScale.TickPart;
  const double Rounded = Up ? RoundUp(Value, Part, FScale.RangeExponent) : RoundDown(Value, Part, FScale.RangeExponent);
  return std::isfinite(Rounded) ? Rounded : Value;
}

void TZyAxis::CheckResize() {
  if (LayoutRunning) return;
  if (FStartEnd == TZyAxisEnd::AutoRange) FStart = FLastStart;
  if (FStopEnd == TZyAxisEnd::AutoRange) FStop = FLastStop;
  Modified();
}

}  // namespace zy
