#pragma once

#include "annotations/ZyControlDrag.h"

namespace zy {

/// A control on a chart that the mouse and the arrow keys move, or a part of what it shows.
///
/// A press with the keys and buttons of its kind, or an arrow key, begins a drag. The release, another key, and the
/// keyboard's going elsewhere end it; Escape, and hiding the control meanwhile, give the old place back. The kind notes
/// the old place, follows the way, and logs it as one step of undo when it is over. Handlers that it calls may free it.
/// It lies above the picture of its parent, so that a move paints nothing but what moves.
class TZyDraggedControl : public TGraphicControl {
  ZY_CLASS(TZyDraggedControl, TGraphicControl)
  ~TZyDraggedControl() override { FDrag.End(); }
  void SetParent(TWinControl* Value) override;
  void MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) override;
  void MouseMove(TShiftState Shift, int X, int Y) override;
  void MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) override;
  void KeyDown(TKey& Key, TShiftState Shift) override;

 protected:
  explicit TZyDraggedControl(TComponent* Owner) : TGraphicControl(Owner) {}
  /// Whether a press with these keys and buttons begins to drag; TakesKeys tells the same of the arrow keys.
  virtual bool StartsBy(TShiftState Shift) const = 0;
  virtual void DragBegins() = 0;
  /// Way is counted in pixels from where the drag began.
  virtual void DragTo(TPoint Way) = 0;
  virtual void DragEnds(bool Keeps) = 0;
  bool IsDragged() const { return FDrag.IsActive(); }
  void EndDrag(bool Keeps);

  bool InOverlay() const override { return true; }
  void Deactivated() override { EndDrag(true); }
  void CMVisibleChanged() override;

 private:
  TZyControlDrag FDrag{*this};
  TPoint FKeyWay;
};

}  // namespace zy
