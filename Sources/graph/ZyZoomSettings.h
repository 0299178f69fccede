#pragma once

#include "graph/parts/ZyGraphParts.h"
#include "platform/controls/ControlTypes.h"
#include "platform/controls/Cursors.h"
#include "platform/framework/EnumInfo.h"
#include "platform/framework/TPersistent.h"

namespace zy {

class TZyGraph2D;
class TZyUndoStack;

/// The way from stage to stage: a ring goes round at its ends, a stack stops there.
enum class TZyZoomBufferType { AsCircularBuffer, AsStack };
ZY_ENUM(TZyZoomBufferType, "AsCircularBuffer", "AsStack")

/// When turning the mouse wheel over a chart zooms it. Otherwise the wheel goes on to what holds the chart, as to a
/// page that scrolls.
enum class TZyWheelZoom { Never, WithCtrl, Always };
ZY_ENUM(TZyWheelZoom, "Never", "WithCtrl", "Always")

/// How the user of a chart zooms and pans it. Owned by its graph, whose undo stack logs the changes; none of them
/// changes the picture.
class TZyZoomSettings : public TPersistent {
  ZY_CLASS(TZyZoomSettings, TPersistent)
  explicit TZyZoomSettings(TZyGraph2D& Graph) : FGraph(Graph) {}

  /// Whether mouse, wheel, keys and touch pad zoom and pan at all. Scroll bars and the operations below do in any case.
  bool Auto() const { return FAuto; }
  void SetAuto(bool Value);
  TZyZoomBufferType BufferType() const { return FBufferType; }
  void SetBufferType(TZyZoomBufferType Value) { FBufferType = Value; }
  /// Whether a frame zooms to the points in it and not to its own edges.
  bool OptimizeSeries() const { return FOptimizeSeries; }
  void SetOptimizeSeries(bool Value);
  /// A click beside the data area goes back one stage, a double click to the whole range.
  bool BackOnClickBeside() const { return FBackOnClickBeside; }
  void SetBackOnClickBeside(bool Value);
  bool ResetOnDoubleClickBeside() const { return FResetOnDoubleClickBeside; }
  void SetResetOnDoubleClickBeside(bool Value);
  /// So do frames that are dragged to the left and upwards; to the whole range even without a distance.
  bool BackOnRightBottomLeftTopFrame() const { return FBackOnRightBottomLeftTopFrame; }
  void SetBackOnRightBottomLeftTopFrame(bool Value);
  bool ResetOnRightBottomLeftTopFrame() const { return FResetOnRightBottomLeftTopFrame; }
  void SetResetOnRightBottomLeftTopFrame(bool Value);
  /// The button and keys that start a frame; no others may be down. Throws EExternal for those that start panning, but
  /// while a stored pair is read; of equal ones that come that way the frame starts.
  TShiftState StartZoom() const { return FZoomShift; }
  void SetZoomShift(TShiftState Value);
  /// Those that start panning, which only a zoomed chart can do. Throws EExternal for those that start a frame.
  TShiftState StartPanning() const { return FPanningShift; }
  void SetPanningShift(TShiftState Value);
  /// Pointer while panning.
  TCursor PanningCursor() const { return FPanningCursor; }
  void SetPanningCursor(TCursor Value) { FPanningCursor = Value; }
  /// Whether scroll bars appear when there are data outside.
  bool HScrollbarVisible() const { return FHScrollbarVisible; }
  void SetHScrollbarVisible(bool Value);
  bool VScrollbarVisible() const { return FVScrollbarVisible; }
  void SetVScrollbarVisible(bool Value);
  /// Steps of their arrows, and of their tracks beside the thumb.
  TZyScrollIncrement ScrollSmallIncrement() const { return FScrollSmallIncrement; }
  void SetScrollSmallIncrement(TZyScrollIncrement Value);
  TZyScrollIncrement ScrollLargeIncrement() const { return FScrollLargeIncrement; }
  void SetScrollLargeIncrement(TZyScrollIncrement Value);
  /// When the wheel zooms, around the place under the mouse: all axes over the data area, beside it those of the
  /// direction. A notch makes a stage.
  TZyWheelZoom WheelZoom() const { return FWheelZoom; }
  void SetWheelZoom(TZyWheelZoom Value);
  /// Whether two fingers on a touch pad zoom by pinching and pan a zoomed chart, and a double tap shows the whole
  /// range.
  bool TouchGestures() const { return FTouchGestures; }
  void SetTouchGestures(bool Value);
  /// Whether a chart that has the keyboard is panned by the arrow keys, zoomed by plus and minus, in one direction by
  /// the arrows with ctrl, and shown whole by Home; Backspace goes one stage back. Escape ends a mouse gesture without
  /// effect.
  bool KeyboardZoom() const { return FKeyboardZoom; }
  void SetKeyboardZoom(bool Value);

  /// The events of the graph.
  const TNotifyEvent& OnBeginZoom() const;
  void SetOnBeginZoom(TNotifyEvent Value);
  const TNotifyEvent& OnEndZoom() const;
  void SetOnEndZoom(TNotifyEvent Value);
  const TNotifyEvent& OnBeginPanning() const;
  void SetOnBeginPanning(TNotifyEvent Value);
  const TNotifyEvent& OnEndPanning() const;
  void SetOnEndPanning(TNotifyEvent Value);

  // The operations of the graph.
  void ZoomTo(TPoint TopLeft, TPoint BottomRight);
  void ZoomBack();
  void RedoZoom();
  void ZoomToStage(int Stage);
  void ZoomReset();
  bool CanZoomBack() const;
  bool CanRedoZoom() const;
  int CurrentStage() const;
  int BufferSize() const;

  TZyUndoStack* UndoStack() const { return FUndoStack; }
  void SetUndoStack(TZyUndoStack* Value) { FUndoStack = Value; }

 private:
  void DoNothing() {}
  void SetShift(TShiftState& Field, TShiftState Other, TShiftState Value, const char* PropName);

  TZyGraph2D& FGraph;
  TZyUndoStack* FUndoStack = nullptr;  // the graph's; it clears it here when the stack dies
  bool FAuto = true;
  bool FOptimizeSeries = false;
  bool FBackOnClickBeside = true;
  bool FBackOnRightBottomLeftTopFrame = false;
  bool FResetOnDoubleClickBeside = true;
  bool FResetOnRightBottomLeftTopFrame = false;
  bool FHScrollbarVisible = true;
  bool FVScrollbarVisible = true;
  bool FTouchGestures = true;
  bool FKeyboardZoom = true;
  TZyZoomBufferType FBufferType = TZyZoomBufferType::AsStack;
  TZyScrollIncrement FScrollSmallIncrement = TZyScrollIncrement::MinorTick;
  TZyScrollIncrement FScrollLargeIncrement = TZyScrollIncrement::Page;
  TZyWheelZoom FWheelZoom = TZyWheelZoom::WithCtrl;
  TCursor FPanningCursor = crHandPoint;
  TShiftState FZoomShift{ssLeft};
  TShiftState FPanningShift{ssShift, ssLeft};
};

}  // namespace zy
