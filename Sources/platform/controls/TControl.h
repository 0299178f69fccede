#pragma once

#include "platform/framework/TComponent.h"

namespace zy {

class TWinControl;

/// A component with a place in its parent. Bounds are logical pixels; Left and Top count from the parent's corner.
///
/// The parent shows the control but does not own it: a dying parent leaves its controls behind without a parent, and a
/// dying control leaves its parent. The owner deletes, as with every component.
class TControl : public TComponent {
  ZY_CLASS(TControl, TComponent)
  explicit TControl(TComponent* Owner = nullptr);
  ~TControl() override;

  TWinControl* Parent() const { return FParent; }
  /// Leaves the old parent and becomes the last control of the new one; null for none. Throws EInvalidOperation for the
  /// control itself and for what lies inside it.
  virtual void SetParent(TWinControl* Value);
  bool HasParent() const override { return FParent != nullptr; }
  void SetParentComponent(TComponent* Value) override;

  int Left() const { return FLeft; }
  void SetLeft(int Value) { SetBounds(Value, FTop, FWidth, FHeight); }
  int Top() const { return FTop; }
  void SetTop(int Value) { SetBounds(FLeft, Value, FWidth, FHeight); }
  int Width() const { return FWidth; }
  void SetWidth(int Value) { SetBounds(FLeft, FTop, Value, FHeight); }
  int Height() const { return FHeight; }
  void SetHeight(int Value) { SetBounds(FLeft, FTop, FWidth, Value); }
  /// Moves and resizes in one step; every other change of the bounds comes here. Extents below 0 become 0. A changed
  /// extent is followed by Resize.
  virtual void SetBounds(int Left, int Top, int Width, int Height);
  /// Extent of the inside.
  int ClientWidth() const { return FWidth; }
  int ClientHeight() const { return FHeight; }

  /// Whether the control is shown when its parent is.
  bool Visible() const { return FVisible; }
  void SetVisible(bool Value);

  /// Has the control painted when the program next waits for events. Many calls cost one paint.
  void Invalidate();
  /// Has the control painted before it returns.
  virtual void Repaint();

 protected:
  /// Told of each new extent.
  virtual void Resize();
  /// Has the control's box painted again, visible or not.
  virtual void InvalidateBox();
  /// Carries new bounds and a new visibility to where the control is shown.
  virtual void ApplyBounds();
  virtual void ApplyVisible();
  /// Stores the visibility that the outside has already carried out.
  void NoteVisible(bool Value) { FVisible = Value; }

 private:
  friend class TWinControl;

  TWinControl* FParent = nullptr;  // stands as long as the parent lists this control; both destructors see to it
  int FLeft = 0;
  int FTop = 0;
  int FWidth = 0;
  int FHeight = 0;
  bool FVisible = true;
};

}  // namespace zy
