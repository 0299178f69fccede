// The ends of an axis: what sets them, and how data, a master, zooming and scrolling move them.

#include <cmath>
#include <cstdint>
#include <limits>

#include "axes/ZyAxis.h"
#include "graph/parts/ZyAxisGraph.h"
#include "undo/ZyChange.h"
#include "undo/ZyUndoGroup.h"

namespace zy {

// --- Setters --------------------------------------------------------------------------------------------------------

void TZyAxis::SetStartEnd(TZyAxisEnd Value) {
  if (Value == TZyAxisEnd::MovingSlit) Value = TZyAxisEnd::Fixed;
  if (Value == StartEnd()) return;
  const TZyUndoGroup Group(FUndo, _sAxisStartEnd);
  PushAll(_sAxisStartEnd, {"StartState", "StopState", "StartEnd"});
  FEnds.Rules.StartEnd = Value;
  if (Value == TZyAxisEnd::AutoRange) {
    RangeModified();
  } else {
    Modified();
  }
}

/// A range that moves by itself is nothing to zoom or to scroll. It fills in a width and a step that were left open,
/// which undo takes back.
void TZyAxis::SetStopEnd(TZyAxisEnd Value) {
  if (Value == StopEnd()) return;
  const TZyUndoGroup Group(FUndo, _sAxisStopEnd);
  PushAll(_sAxisStopEnd, {"StartState", "StopState", "MovingSlitWidth", "MovingSlitIncrement", "StartEnd", "StopEnd"});
  FEnds.Rules.StopEnd = Value;
  if (Value == TZyAxisEnd::MovingSlit && !IsLoading() && !Restoring()) {  // an undo brings the rest back by itself
    FEnds.Rules.StartEnd = TZyAxisEnd::Fixed;
    if (IZyAxisGraph* const Parent = Graph()) Parent->EndUserZoom(GetHorizontal());
  }
  if (Value == TZyAxisEnd::AutoRange || Value == TZyAxisEnd::MovingSlit) {
    RangeModified();
  } else {
    Modified();
  }
}

template <class TStore>
void TZyAxis::SetEnd(double Value, double Present, const char* PropName, const TStore& Store) {
  if (!std::isfinite(Value)) return;
  ChangeBy(this, Present, Restoring() ? Value : FKind->Settable(Value), PropName, [&](double Limited) {
    Store(Limited);
    EndSet();
  });
}

void TZyAxis::EndSet() {
  if (IsDesigning() && !IsLoading() && !LoadingRecord() && !FRelatedSeries.empty()) RescaleSamples();
  Modified();
}

void TZyAxis::RestoreEnd(TZyAxisEnds::TEnd End, const std::vector<double>& State) {
  const double Before = FEnds.Shown().*End;
  FEnds.SetStateOf(End, State);
  if (FEnds.Shown().*End == Before) return Modified();
  EndSet();
}

void TZyAxis::SetStart(double Value) {
  SetEnd(Value, Start(), "StartState", [this](double End) { FEnds.SetStart(End); });
}

void TZyAxis::SetStop(double Value) {
  SetEnd(Value, Stop(), "StopState", [this](double End) { FEnds.SetStop(End); });
}

void TZyAxis::SetStartStop(double AStart, double AStop) {
  const TZyAxisRange Range{AStart, AStop};
  if (!std::isfinite(AStart) || !std::isfinite(AStop) || Range == FEnds.Shown()) return;
  FEnds.Show(Range);
  Modified();
}

void TZyAxis::SetEndRounding(TZyAxisEndRounding Value) {
  if (Value == EndRounding()) return;
  const TZyUndoGroup Group(FUndo, _sAxisEndRounding);
  PushAll(_sAxisEndRounding, {"StartState", "StopState", "EndRounding"});
  FEnds.Rules.EndRounding = Value;
  FEnds.DropExact();
  Modified();
}

void TZyAxis::SetStartPadding(double Value) {
  if (!(Value > 0) || !std::isfinite(Value) || Value == StartPadding()) return;
  FEnds.Rules.StartPadding = Value;
  FEnds.DropExact();
  Modified();
}

void TZyAxis::SetStopPadding(double Value) {
  if (!(Value > 0) || !std::isfinite(Value) || Value == StopPadding()) return;
  FEnds.Rules.StopPadding = Value;
  FEnds.DropExact();
  Modified();
}

void TZyAxis::SetMovingSlit(double& Field, double Value, TZyText Label, const char* PropName) {
  if (!std::isfinite(Value) || Value == Field) return;
  const TZyUndoGroup Group(FUndo, Label);
  PushAll(Label, {PropName});
  Field = Value;
  if (IsDesigning() && !IsLoading() && !LoadingRecord() && !Restoring()) SetStopEnd(TZyAxisEnd::MovingSlit);
  RangeModified();
}

void TZyAxis::SetMovingSlitWidth(double Value) {
  SetMovingSlit(FEnds.Rules.MovingSlitWidth, Value, _sAxisMovingSlitWidth, "MovingSlitWidth");
}

void TZyAxis::SetMovingSlitIncrement(double Value) {
  SetMovingSlit(FEnds.Rules.MovingSlitIncrement, Value, _sAxisMovingSlitIncrement, "MovingSlitIncrement");
}

// --- Data -----------------------------------------------------------------------------------------------------------

void TZyAxis::RangeModified() {
  if (IsDestroying() || LoadingRecord() || RangesHeld) return;
  if (GetCanZoomBack()) ShowWholeWhereSet();
  if (FRelatedSeries.empty()) return Modified();
  FEnds.DataChanged();
  ZoomClearBuffer();
}

/// An axis that has seen no data yet, but has some, takes them as they come; its zoom stages are none of theirs.
void TZyAxis::TestRange(bool MayShrink) {
  if (FRelatedSeries.empty()) return;
  if (ValuesStart() == std::numeric_limits<double>::max()) return FEnds.DataChanged();
  if (!FEnds.Knows(Data().Range(), MayShrink)) RangeModified();
}

/// The end of a zoom shows the whole range again where no data say what it is. That is no step of the user's, as the
/// zoom was none, and what the user set stays known.
void TZyAxis::ShowWholeWhereSet() {
  const TZyAxisRange& Whole = FStages.Whole();
  SetStartStop(StartEnd() == TZyAxisEnd::AutoRange ? Start() : Whole.Start,
               StopEnd() == TZyAxisEnd::AutoRange ? Stop() : Whole.Stop);
}

void TZyAxis::GetNewRanges() {
  if (!FEnds.Waits()) return;
  const std::optional<TZyAxisRange> Taken = FEnds.TakeData(Data().Range(), IsDesigning());
  if (!Taken) return;
  const TZyAxisSteps Kept = FSteps;
  const TZyEndRounding Way = Rounding();
  TZyAxisRange Range = *Taken;
  const std::uint64_t Alive = LiveHandle();
  try {
    Way.Round(Range.Start, Range.Stop);
  } catch (...) {  // a handler of the labels refused: these are half chosen, and the data go on to wait
    if (FromLiveHandle(Alive) == nullptr) throw;
    FSteps = Kept;
    FEnds.DataChanged();
    throw;
  }
  if (FEnds.ShowTaken(*Taken, Range)) {
    Modified();
    // What a handler shows may rest on the ends, and ends of logarithms, and those of slaves, rest on more than these.
    if (!mGetScaleLabel && !IsSlave() && !FKind->IsLogarithmic()) FEnds.Settle(Way);
  } else {
    FSteps = Kept;  // the ends that stand were rounded to these steps
  }
}

bool TZyAxis::GetIsClipped() const {
  return Graph() != nullptr && !FRelatedSeries.empty() && FEnds.IsClipped(*FKind, FSteps);
}

TZyBeyond TZyAxis::DataBeyond() const {
  const TZyAxisRange Range = Data().Range();
  return Range.Start > Range.Stop ? TZyBeyond{} : FKind->Beyond(FSteps, FEnds.Shown(), Range);
}

void TZyAxis::CheckResize() {
  if (LayoutRunning) return;
  if (!LoadingRecord()) FEnds.Unround();
  Modified();
}

/// Sample data follow the ends that the designer sets.
void TZyAxis::RescaleSamples() {
  IZyAxisGraph* const Parent = Graph();
  if (Parent != nullptr) Parent->BeginUpdate();
  FEnds.TakeValuesAsShown();
  Data().RescaleSamples(FEnds.Values(), FEnds.Shown());
  if (Parent != nullptr) Parent->EndUpdate();
}

void TZyAxis::ShrinkOtherYs() {
  if (!GetHorizontal()) Data().SpreadSamples(Start());
}

// --- Rounding -------------------------------------------------------------------------------------------------------

TZyEndRounding TZyAxis::Rounding() {
  const IZyAxisGraph* const Parent = Graph();
  TZyEndRounding::TCircumstances Now;
  Now.Panning = Parent != nullptr && Parent->Panning();
  Now.AreExact = FEnds.AreExact();
  Now.KeepsEnds = Now.Panning || Now.AreExact || (Parent != nullptr && Parent->Pinching());
  Now.Zoomed = GetCanZoomBack();
  Now.IsSlave = IsSlave();
  const auto FirstPositive = [this](double Stop) {
    const double First = FEnds.FirstPositive();
    return First > 0 ? First : Data().SmallestPositiveBelow(Stop);
  };
  return {*FKind, FSteps, FStepRules, FEnds.Rules, LabelRoom(), FirstPositive, Now};
}

void TZyAxis::TakeEnds() {
  if (IsSlave() && FMasterAxis->Start() <= FMasterAxis->Stop()) {
    FollowMaster();
  } else {
    FEnds.Round(Rounding());
  }
}

/// A slave of the very values has the very steps as well. Ends that are no numbers, or equal, are not taken; the own
/// ones are rounded then.
void TZyAxis::FollowMaster() {
  TZyAxis& Master = *FMasterAxis;
  FKind = Master.FKind;
  Master.FEnds.Round(Master.Rounding());
  const TZyAxisRange Ends{Master.Start() * FSlaveSlope + FSlaveOffset, Master.Stop() * FSlaveSlope + FSlaveOffset};
  if (!std::isfinite(Ends.Start) || !std::isfinite(Ends.Stop) || Ends.Start == Ends.Stop)
    return FEnds.Round(Rounding());
  FEnds.DropExact();
  FEnds.Follow(Ends, Rounding());
  if (FSlaveSlope != 1 || FSlaveOffset != 0) return;
  FSteps = Master.FSteps;
  FKind->TakeFormat(FSteps, FStepRules, LowEnd(), HighEnd());
}

// --- Zooming and scrolling ------------------------------------------------------------------------------------------

void TZyAxis::ZoomIn(double NewStart, double NewStop) {
  BeginZoomBuffer();
  FEnds.ShowInData({NewStart, NewStop});
  FStages.Push(FEnds.Shown());
  Modified();
}

/// Shows a stage that there is.
void TZyAxis::TakeStage(int Stage) {
  FEnds.Show(FStages.Show(Stage));
  Modified();
}

void TZyAxis::ZoomToStage(int Stage) {
  if (Stage >= 0 && Stage < FStages.Count()) TakeStage(Stage);
}

void TZyAxis::ZoomBack() {
  if (GetCanZoomBack()) TakeStage(FStages.Before());
}

void TZyAxis::RedoZoom() {
  if (GetCanZoomBack()) TakeStage(FStages.Behind());
}

bool TZyAxis::ShowsWhole() const { return Start() <= GetScrollStart() && Stop() >= GetScrollStop(); }

double TZyAxis::IncrementOf(TZyScrollIncrement Increment) const {
  switch (Increment) {
    case TZyScrollIncrement::Page:
      return ScrollRange().ShownLength();
    case TZyScrollIncrement::MajorTick:
      return MajorIncrement();
    case TZyScrollIncrement::MinorTick:
      return MinorIncrement();
    case TZyScrollIncrement::Pixel:
      return NormalizeConst();
  }
  return 0;
}

void TZyAxis::ScrollBy(double Part, bool OnTicks) {
  using enum TZyAxisEndRounding;
  const IZyAxisGraph* const Parent = Graph();
  const bool Rounds =
      OnTicks && (Parent == nullptr || !Parent->Panning()) &&
      (EndRounding() == RndToMajorZoomToMinor || EndRounding() == RndToMajor || EndRounding() == RndToMinor);
  TZyScrollRange::TRound Round;
  if (Rounds)
    Round = [this](double Place) { return FKind->RoundEnd(FSteps, Place, true, EndRounding() == RndToMajor); };
  const TZyScrollRange Range = ScrollRange();
  const auto Moved = Range.MovedBy(Range.WholeLength() * Part * (Twisted() ? -1 : 1), Round);
  if (!Moved) return;
  if (OnTicks) return SetStartStop(Moved->Start, Moved->Stop);
  if (*Moved == FEnds.Shown()) return;
  FEnds.ShowExactly(*Moved);
  Modified();
}

void TZyAxis::ZoomAround(double Start, double Stop, double Fixed, double Factor) {
  const auto Scaled = ScrollRange().ScaledAround(Start, Stop, Fixed, Factor);
  if (Scaled) SetStartStop(Scaled->Start, Scaled->Stop);
}

}  // namespace zy
