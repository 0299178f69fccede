#pragma once

#include "annotations/ZyArrowGrips.h"
#include "annotations/ZyArrowLabelBox.h"
#include "annotations/ZyMovable.h"
#include "graph/styles/ZyArrowSettings.h"

namespace zy {

/// What of a label with an arrow the mouse can drag.
enum class TZyArrowMarkerDraggingOption { Hotspot, ArrowEnd, BentGrip, CaptionGrip };
ZY_ENUM(TZyArrowMarkerDraggingOption, "Hotspot", "ArrowEnd", "BentGrip", "CaptionGrip")
using TZyArrowMarkerDraggingOptions = TSet<TZyArrowMarkerDraggingOption>;

/// A caption with an arrow that points at a place of the chart: X and Y, the hot point.
///
/// The arrow goes from the hot point to its free end, may go on there by a bent piece, and has the caption behind that.
/// Grips that show under the mouse drag the free end, the length of the bent piece and the caption; the arrow itself
/// and the caption drag the whole, which keeps its shape.
class TZyLabelWithArrowMarker : public TZyMovable {
  ZY_CLASS(TZyLabelWithArrowMarker, TZyMovable)
  explicit TZyLabelWithArrowMarker(TComponent* Owner = nullptr);
  ~TZyLabelWithArrowMarker() override;

  TZyArrowSettings& Arrow() { return FArrowSettings; }
  /// The same settings.
  TZySimpleLineSettings& Line() override { return FArrowSettings; }
  /// Pixels from the hot point to the free end, to the right and down; 50 and -50 at first.
  int ArrowDeltaX() const { return FShape.Arrow.X; }
  void SetArrowDeltaX(int Value);
  int ArrowDeltaY() const { return FShape.Arrow.Y; }
  void SetArrowDeltaY(int Value);
  /// The same as degrees, counter-clockwise from the right, and as pixels; written values are rounded to whole pixels
  /// of the deltas. 270 degrees without a length.
  float ArrowAngle() const { return static_cast<float>(AngleOfArrow(FShape.Arrow)); }
  void SetArrowAngle(float Value);
  float ArrowLength() const;
  void SetArrowLength(float Value);
  /// Pixels of the piece behind the free end: to the side, or up or down with a vertical caption. The sign does not
  /// matter.
  int BentLength() const { return FShape.Bent; }
  void SetBentLength(int Value);

  /// Whether the grips show while the mouse is over the label, as far as MouseDrag and DraggingOptions allow.
  bool HoverGrips() const { return FHoverGrips; }
  void SetHoverGrips(bool Value) { FHoverGrips = Value; }
  TZyArrowMarkerDraggingOptions DraggingOptions() const { return FDraggingOptions; }
  void SetDraggingOptions(TZyArrowMarkerDraggingOptions Value) { FDraggingOptions = Value; }
  /// Pointers over the grips.
  TCursor ArrowEndGripCursor() const { return CursorOf(FArrowGrip); }
  void SetArrowEndGripCursor(TCursor Value) { SetCursorOf(FArrowGrip, Value); }
  TCursor BentLengthGripCursor() const { return CursorOf(FBentLengthGrip); }
  void SetBentLengthGripCursor(TCursor Value) { SetCursorOf(FBentLengthGrip, Value); }
  TCursor CaptionGripCursor() const { return CursorOf(FCaptionGrip); }
  void SetCaptionGripCursor(TCursor Value) { SetCursorOf(FCaptionGrip, Value); }

  /// Told while the grip of the free end is dragged, and when the drag of any grip has ended. Handlers may free the
  /// label.
  const TNotifyEvent& OnArrowEndMoving() const { return FOnArrowEndMoving; }
  void SetOnArrowEndMoving(TNotifyEvent Value) { FOnArrowEndMoving = std::move(Value); }
  const TNotifyEvent& OnArrowEndMoved() const { return FOnArrowEndMoved; }
  void SetOnArrowEndMoved(TNotifyEvent Value) { FOnArrowEndMoved = std::move(Value); }

  void SetCaptionVertical(bool Value) override;
  void SetUndoStack(TZyUndoStack* Value) override;
  void SetParent(TWinControl* Value) override;
  void UpdatePosition() override;
  void PaintGr(Graphics& Gr) override;
  /// The arrow, the bent piece and the caption.
  bool CMHitTest(int X, int Y) override;
  void CMMouseEnter() override;
  void CMMouseLeave() override;
  /// The stream has nothing of whether the arrow is visible.
  void Fields(TZyArchive& Archive) override;

 protected:
  void SetHotDelta() override;
  void CMVisibleChanged() override;
  bool StartsBy(TShiftState Shift) const override;

 private:
  friend class TZyArrowGrip;
  friend class TZyBentLengthGrip;
  friend class TZyCaptionGrip;

  static TCursor CursorOf(const TZyArrowGrip* Grip) { return Grip != nullptr ? Grip->Cursor() : TCursor{crDefault}; }
  static void SetCursorOf(TZyArrowGrip* Grip, TCursor Value) {
    if (Grip != nullptr) Grip->SetCursor(Value);
  }
  TZyArrowShape Shape() const { return {FShape.Arrow, FCaptionDelta, FShape.Bent}; }
  /// Without a step of undo.
  void TakeShape(const TZyArrowShape& Value);
  /// As one step.
  void ChangeShape(const TZyArrowShape& Value);
  void SetArrow(double Angle, double Length, TZyText Label);
  void ShowGrips();
  void KeepGrips(bool (*Keeps)(const TZyArrowGrip& Grip));
  bool IsBoxUnderMouse() const;
  void TellArrowEndMoving() { TellMove(FOnArrowEndMoving, false); }
  void TellArrowEndMoved() { TellMove(FOnArrowEndMoved, true); }
  void PaintArrow(Graphics& Gr);
  bool IsOnArrow(int X, int Y) const;
  void ArrowFields(TZyArchive& Archive);

  TZyArrowSettings FArrowSettings{[this] { Modified(); }};
  TZyArrowShape FShape{{50, -50}, {}, 0};  // the caption's delta is the base's
  TPoint FEnd, FBentEnd;                   // in the control
  RectF FBentRect;
  bool FHoverGrips = true;
  TZyArrowMarkerDraggingOptions FDraggingOptions = TZyArrowMarkerDraggingOptions::FromBits(15);
  TRef<TZyArrowGrip> FArrowGrip{this};
  TRef<TZyBentLengthGrip> FBentLengthGrip{this};
  TRef<TZyCaptionGrip> FCaptionGrip{this};
  TNotifyEvent FOnArrowEndMoving, FOnArrowEndMoved;
};

}  // namespace zy
