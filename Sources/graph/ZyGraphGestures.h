#pragma once

#include "platform/controls/ControlTypes.h"
#include "platform/controls/Cursors.h"
#include "platform/drawing/Geometry.h"

namespace zy {

class TZyZoomSettings;

/// What a chart is told around a gesture of its user.
enum class TZyGestureEvent { BeginZoom, EndZoom, BeginPanning, EndPanning };

/// What gestures act on: a chart whose ranges can be zoomed and moved.
class IZyGestureTarget {
 public:
  virtual ~IZyGestureTarget() = default;
  virtual const TZyZoomSettings& Zoom() const = 0;
  /// Takes new data and the layout that is due, so that a gesture begins on what there really is.
  virtual void BringUpToDate() = 0;
  /// Whether there are axes to zoom.
  virtual bool HasPrimaryAxes() const = 0;
  virtual bool GetCanZoomBack() const = 0;
  virtual void ZoomBack() = 0;
  virtual void ZoomReset() = 0;
  /// Zooms to a frame; false when it covers nothing of the data area.
  virtual bool ZoomToFrame(TPoint From, TPoint To) = 0;
  virtual bool ZoomAround(TPoint Place, double Factor) = 0;
  virtual bool MouseInDataArea() const = 0;
  virtual TPoint MiddleOfData() const = 0;
  /// Whether the ranges follow something that moves them, which may be a scroll bar's thumb or another chart's gesture.
  virtual bool Panning() const = 0;
  /// A pan: moves the ranges by a distance in pixels from where they were at its beginning, to the right and up. At the
  /// end the place reached becomes a stage, or the ranges go back.
  virtual void BeginPan() = 0;
  virtual void PanBy(double Dx, double Dy) = 0;
  virtual void EndPan(bool Keeps) = 0;
  /// A pinch: scales the ranges of its beginning around a place.
  virtual void BeginPinch(TPoint Place) = 0;
  virtual void PinchTo(double Scale) = 0;
  virtual void EndPinch() = 0;
  /// One step of a scroll bar's arrow.
  virtual void ScrollStep(bool Horizontal, bool Forward) = 0;
  /// Whether things follow the distance of a pan in the other direction, since their axis is twisted.
  virtual bool IsTwisted(bool Horizontal) const = 0;
  /// The frame at its place has to be drawn, or removed.
  virtual void FrameChanged(const TRect& Frame) = 0;
  virtual TCursor PointerShape() const = 0;
  virtual void SetPointerShape(TCursor Value) = 0;
  /// Whether the keyboard comes to the chart whoever has it, so that Escape is heard.
  virtual void CaptureKeys(bool Value) = 0;
  /// Runs the handler of an event. False when the chart, and with it its gestures, did not survive it.
  [[nodiscard]] virtual bool Tell(TZyGestureEvent Event) = 0;
};

/// Mouse, wheel, touch pad and keys over a chart: the frame that zooms, the pan, the turn of the wheel, the pinch.
///
/// At most one gesture runs at a time. It belongs to the button that began it: others that are pressed meanwhile
/// neither begin nor end anything. Handlers of the events may free the chart; every operation that runs one returns
/// whether the chart is still there, and nothing of it may be touched when it is not.
class TZyGraphGestures {
 public:
  enum class TKind { None, Frame, MousePan, PadPan, Pinch };

  explicit TZyGraphGestures(IZyGestureTarget& Target) : FTarget(Target) {}

  TKind Kind() const { return FKind; }
  /// The frame that the mouse draws, in client pixels; empty when there is none to be seen.
  TRect Frame() const;

  [[nodiscard]] bool MouseDown(TMouseButton Button, TShiftState Shift, TPoint Place);
  void MouseMove(TPoint Place);
  [[nodiscard]] bool MouseUp(TMouseButton Button);
  void Click();
  void DblClick();
  /// Wheel, pad and keys return whether they were used; by then the chart may be gone.
  bool MouseWheel(TShiftState Shift, int WheelDelta, TPoint Place);
  bool Pad(const TGesture& Gesture);
  bool KeyDown(TKey Key, TShiftState Shift);
  /// Ends what runs: a frame without effect, a pan back to where it began. False as above.
  bool Cancel();

 private:
  bool IsDrag() const;
  bool IsFrameTooSmall() const;
  TRect DragBox() const;
  bool EndFrame();
  bool StartPan(TKind Kind);
  bool EndPan(bool Keeps);
  bool PanByPad(double Dx, double Dy);
  void PinchBy(TPoint Place, double Scale);
  bool EndPinch();
  void ZoomStep(TPoint Place, double Factor);
  bool ScrollByKey(bool Horizontal, bool Forward);
  bool ZoomAlongByKey(TKey Key);

  IZyGestureTarget& FTarget;
  TKind FKind = TKind::None;
  TMouseButton FButton = mbLeft;  // the one that began the gesture
  TPoint FDragStart, FDragEnd;    // of the mouse, in client pixels
  TCursor FSavedCursor = crDefault;
  PointF FPadWay;  // of a pan on the touch pad, in pixels
  double FPinchScale = 1;
  int FWheelTurn = 0;  // of a notch that is not complete
};

}  // namespace zy
