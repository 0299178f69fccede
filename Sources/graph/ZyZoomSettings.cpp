#include "graph/ZyZoomSettings.h"

#include <utility>

#include "graph/ZyGraph2D.h"
#include "platform/framework/TPropInfo.h"
#include "texts/Exceptions.h"
#include "undo/ZyChange.h"

namespace zy {

ZY_PUBLISHED(
    TZyZoomSettings, TPersistent,
    Published<&TZyZoomSettings::Auto, &TZyZoomSettings::SetAuto>("Auto", true, _sZoomAuto),
    Published<&TZyZoomSettings::BufferType, &TZyZoomSettings::SetBufferType>("BufferType", TZyZoomBufferType::AsStack),
    Published<&TZyZoomSettings::OptimizeSeries, &TZyZoomSettings::SetOptimizeSeries>("OptimizeSeries", false,
                                                                                     _sZoomOptimizeSeries),
    Published<&TZyZoomSettings::BackOnClickBeside, &TZyZoomSettings::SetBackOnClickBeside>("BackOnClickBeside", true,
                                                                                           _sZoomBackOnClickBeside),
    Published<&TZyZoomSettings::BackOnRightBottomLeftTopFrame, &TZyZoomSettings::SetBackOnRightBottomLeftTopFrame>(
        "BackOnRightBottomLeftTopFrame", false, _sZoomBackOnClickBeside),
    Published<&TZyZoomSettings::ResetOnDoubleClickBeside, &TZyZoomSettings::SetResetOnDoubleClickBeside>(
        "ResetOnDoubleClickBeside", true, _sZoomResetOnDoubleClickBeside),
    Published<&TZyZoomSettings::ResetOnRightBottomLeftTopFrame, &TZyZoomSettings::SetResetOnRightBottomLeftTopFrame>(
        "ResetOnRightBottomLeftTopFrame", false, _sZoomResetOnRightBottomLeftTopFrame),
    Published<&TZyZoomSettings::StartZoom, &TZyZoomSettings::SetZoomShift>("StartZoom", TShiftState{ssLeft},
                                                                           _sZoomStartZoom),
    Published<&TZyZoomSettings::StartPanning, &TZyZoomSettings::SetPanningShift>("StartPanning",
                                                                                 TShiftState{ssShift, ssLeft},
                                                                                 _sZoomStartPanning),
    Published<&TZyZoomSettings::PanningCursor, &TZyZoomSettings::SetPanningCursor>("PanningCursor",
                                                                                   TCursor{crHandPoint}),
    Published<&TZyZoomSettings::HScrollbarVisible, &TZyZoomSettings::SetHScrollbarVisible>("HScrollbarVisible", true,
                                                                                           _sZoomHScrollbarVisible),
    Published<&TZyZoomSettings::VScrollbarVisible, &TZyZoomSettings::SetVScrollbarVisible>("VScrollbarVisible", true,
                                                                                           _sZoomVScrollbarVisible),
    Published<&TZyZoomSettings::ScrollSmallIncrement, &TZyZoomSettings::SetScrollSmallIncrement>(
        "ScrollSmallIncrement", TZyScrollIncrement::MinorTick, _sZoomScrollSmallIncrement),
    Published<&TZyZoomSettings::ScrollLargeIncrement, &TZyZoomSettings::SetScrollLargeIncrement>(
        "ScrollLargeIncrement", TZyScrollIncrement::Page, _sZoomScrollLargeIncrement),
    Published<&TZyZoomSettings::WheelZoom, &TZyZoomSettings::SetWheelZoom>("WheelZoom", TZyWheelZoom::WithCtrl,
                                                                           _sZoomWheelZoom),
    Published<&TZyZoomSettings::TouchGestures, &TZyZoomSettings::SetTouchGestures>("TouchGestures", true,
                                                                                   _sZoomTouchGestures),
    Published<&TZyZoomSettings::KeyboardZoom, &TZyZoomSettings::SetKeyboardZoom>("KeyboardZoom", true,
                                                                                 _sZoomKeyboardZoom),
    Published<&TZyZoomSettings::OnBeginZoom, &TZyZoomSettings::SetOnBeginZoom>("OnBeginZoom"),
    Published<&TZyZoomSettings::OnEndZoom, &TZyZoomSettings::SetOnEndZoom>("OnEndZoom"),
    Published<&TZyZoomSettings::OnBeginPanning, &TZyZoomSettings::SetOnBeginPanning>("OnBeginPanning"),
    Published<&TZyZoomSettings::OnEndPanning, &TZyZoomSettings::SetOnEndPanning>("OnEndPanning"))

void TZyZoomSettings::SetAuto(bool Value) { Change(this, FAuto, Value, "Auto", &TZyZoomSettings::DoNothing); }

void TZyZoomSettings::SetOptimizeSeries(bool Value) {
  Change(this, FOptimizeSeries, Value, "OptimizeSeries", &TZyZoomSettings::DoNothing);
}

void TZyZoomSettings::SetBackOnClickBeside(bool Value) {
  Change(this, FBackOnClickBeside, Value, "BackOnClickBeside", &TZyZoomSettings::DoNothing);
}

/// It shares its text with the click.
void TZyZoomSettings::SetBackOnRightBottomLeftTopFrame(bool Value) {
  Change(this, FBackOnRightBottomLeftTopFrame, Value, "BackOnRightBottomLeftTopFrame", &TZyZoomSettings::DoNothing);
}

void TZyZoomSettings::SetResetOnDoubleClickBeside(bool Value) {
  Change(this, FResetOnDoubleClickBeside, Value, "ResetOnDoubleClickBeside", &TZyZoomSettings::DoNothing);
}

void TZyZoomSettings::SetResetOnRightBottomLeftTopFrame(bool Value) {
  Change(this, FResetOnRightBottomLeftTopFrame, Value, "ResetOnRightBottomLeftTopFrame", &TZyZoomSettings::DoNothing);
}

/// A stored pair comes half first and then whole; half of it may equal the other half of before.
void TZyZoomSettings::SetShift(TShiftState& Field, TShiftState Other, TShiftState Value, const char* PropName) {
  const bool TakesPair = FGraph.IsLoading() || FGraph.LoadingRecord();
  if (Value == Other && !TakesPair) throw EExternal(LoadResString(_sNoZoomPanEqual));
  Change(this, Field, Value, PropName, &TZyZoomSettings::DoNothing);
}

void TZyZoomSettings::SetZoomShift(TShiftState Value) { SetShift(FZoomShift, FPanningShift, Value, "StartZoom"); }

void TZyZoomSettings::SetPanningShift(TShiftState Value) { SetShift(FPanningShift, FZoomShift, Value, "StartPanning"); }

void TZyZoomSettings::SetHScrollbarVisible(bool Value) {
  Change(this, FHScrollbarVisible, Value, "HScrollbarVisible", &TZyZoomSettings::DoNothing);
}

void TZyZoomSettings::SetVScrollbarVisible(bool Value) {
  Change(this, FVScrollbarVisible, Value, "VScrollbarVisible", &TZyZoomSettings::DoNothing);
}

void TZyZoomSettings::SetScrollSmallIncrement(TZyScrollIncrement Value) {
  Change(this, FScrollSmallIncrement, Value, "ScrollSmallIncrement", &TZyZoomSettings::DoNothing);
}

void TZyZoomSettings::SetScrollLargeIncrement(TZyScrollIncrement Value) {
  Change(this, FScrollLargeIncrement, Value, "ScrollLargeIncrement", &TZyZoomSettings::DoNothing);
}

void TZyZoomSettings::SetWheelZoom(TZyWheelZoom Value) {
  Change(this, FWheelZoom, Value, "WheelZoom", &TZyZoomSettings::DoNothing);
}

void TZyZoomSettings::SetTouchGestures(bool Value) {
  Change(this, FTouchGestures, Value, "TouchGestures", &TZyZoomSettings::DoNothing);
}

void TZyZoomSettings::SetKeyboardZoom(bool Value) {
  Change(this, FKeyboardZoom, Value, "KeyboardZoom", &TZyZoomSettings::DoNothing);
}

// --- The graph's ----------------------------------------------------------------------------------------------------

const TNotifyEvent& TZyZoomSettings::OnBeginZoom() const { return FGraph.OnBeginZoom(); }
void TZyZoomSettings::SetOnBeginZoom(TNotifyEvent Value) { FGraph.SetOnBeginZoom(std::move(Value)); }
const TNotifyEvent& TZyZoomSettings::OnEndZoom() const { return FGraph.OnEndZoom(); }
void TZyZoomSettings::SetOnEndZoom(TNotifyEvent Value) { FGraph.SetOnEndZoom(std::move(Value)); }
const TNotifyEvent& TZyZoomSettings::OnBeginPanning() const { return FGraph.OnBeginPanning(); }
void TZyZoomSettings::SetOnBeginPanning(TNotifyEvent Value) { FGraph.SetOnBeginPanning(std::move(Value)); }
const TNotifyEvent& TZyZoomSettings::OnEndPanning() const { return FGraph.OnEndPanning(); }
void TZyZoomSettings::SetOnEndPanning(TNotifyEvent Value) { FGraph.SetOnEndPanning(std::move(Value)); }

void TZyZoomSettings::ZoomTo(TPoint TopLeft, TPoint BottomRight) { FGraph.ZoomTo(TopLeft, BottomRight); }
void TZyZoomSettings::ZoomBack() { FGraph.ZoomBack(); }
void TZyZoomSettings::RedoZoom() { FGraph.RedoZoom(); }
void TZyZoomSettings::ZoomToStage(int Stage) { FGraph.ZoomToStage(Stage); }
void TZyZoomSettings::ZoomReset() { FGraph.ZoomReset(); }
bool TZyZoomSettings::CanZoomBack() const { return FGraph.GetCanZoomBack(); }
bool TZyZoomSettings::CanRedoZoom() const { return FGraph.GetCanRedoZoom(); }
int TZyZoomSettings::CurrentStage() const { return FGraph.GetCurrentZoomStage(); }
int TZyZoomSettings::BufferSize() const { return FGraph.GetZoomBufferSize(); }

}  // namespace zy
