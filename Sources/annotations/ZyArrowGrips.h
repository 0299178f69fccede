#pragma once

#include "annotations/ZyDraggedControl.h"

namespace zy {

class TZyLabelWithArrowMarker;

/// What the grips of a label with an arrow change, in pixels.
struct TZyArrowShape {
  TPoint Arrow;    ///< from the hot point to the free end
  TPoint Caption;  ///< by which the caption is moved off the end
  int Bent = 0;    ///< length of the bent piece
  bool operator==(const TZyArrowShape&) const = default;
};

/// The grip at the free end of an arrow, and the base of the other ones. It belongs to the label, lies in its parent,
/// and is shown while the mouse is over label or grips. A drag is one step of undo.
class TZyArrowGrip : public TZyDraggedControl {
  ZY_CLASS(TZyArrowGrip, TZyDraggedControl)
  explicit TZyArrowGrip(TZyLabelWithArrowMarker& Label);

  bool TakesKeys() const override { return true; }
  void CMMouseEnter() override;
  void CMMouseLeave() override;
  /// Whether the mouse stands on it.
  bool IsUnderMouse() const;
  /// Stands around a place of the label's parent.
  virtual void PlaceAt(TPoint Place);

 protected:
  TZyArrowGrip(TZyLabelWithArrowMarker& Label, TPoint Size, TCursor Pointer);
  bool StartsBy(TShiftState Shift) const override;
  void DragBegins() override;
  void DragTo(TPoint Way) override;
  void DragEnds(bool Keeps) override;
  /// The shape of the label at the beginning of a drag, as it is with the mouse elsewhere.
  virtual TZyArrowShape Moved(TZyArrowShape Shape, TPoint Way) const;
  virtual void TellMoving();
  void Paint(Graphics& Gr) override;

  TRef<TZyLabelWithArrowMarker> FParentArrow{this};

 private:
  TZyArrowShape FBefore;
};

/// The grip that makes the bent piece longer or shorter.
class TZyBentLengthGrip : public TZyArrowGrip {
  ZY_CLASS(TZyBentLengthGrip, TZyArrowGrip)
  explicit TZyBentLengthGrip(TZyLabelWithArrowMarker& Label);
  void PlaceAt(TPoint Place) override;

 protected:
  TZyArrowShape Moved(TZyArrowShape Shape, TPoint Way) const override;
  void TellMoving() override {}
  void Paint(Graphics& Gr) override;
};

/// The grip that moves the caption off the arrow's end.
class TZyCaptionGrip : public TZyArrowGrip {
  ZY_CLASS(TZyCaptionGrip, TZyArrowGrip)
  explicit TZyCaptionGrip(TZyLabelWithArrowMarker& Label);
  /// Place is the lower right corner.
  void PlaceAt(TPoint Place) override;

 protected:
  TZyArrowShape Moved(TZyArrowShape Shape, TPoint Way) const override;
  void TellMoving() override {}
  void Paint(Graphics& Gr) override;
};

}  // namespace zy
