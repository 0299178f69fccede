#pragma once

#include <string>
#include <vector>

#include "platform/controls/TControl.h"

namespace zy {

class Graphics;

/// What a control without a window is to a screen reader.
enum class TAccessibleRole {
  List,           ///< shows items
  DropDownButton  ///< a button: return presses it, and the down key brings up what belongs to it
};

/// A control without a window: it paints inside its parent, above the parent's own picture and in control order.
class TGraphicControl : public TControl {
  ZY_CLASS(TGraphicControl, TControl)
  explicit TGraphicControl(TComponent* Owner = nullptr);
  ~TGraphicControl() override;

  /// The keys of the window that it lies in, while it is the window's ActiveControl. Setting Key to 0 uses it up.
  virtual void KeyDown(TKey& Key, TShiftState Shift);
  /// Whether a click, or the tabulator key within the window, makes it the ActiveControl.
  virtual bool TakesKeys() const { return false; }
  /// What a screen reader says of the control; one without a name is passed over.
  virtual std::string AccessibleName() const { return {}; }
  virtual TAccessibleRole AccessibleRole() const { return TAccessibleRole::List; }

 protected:
  /// Whether the control lies above the picture of its window for now, as one that is being dragged: where it alone
  /// changes, the window's last picture is shown again, and nothing of it is painted. Whoever changes the answer has
  /// the box painted before it does (Invalidate), and again afterwards.
  virtual bool InOverlay() const { return false; }
  /// Told when it is no longer the ActiveControl.
  virtual void Deactivated() {}
  void InvalidateBox() override;
  /// Paints the control. The origin is its top left corner, and nothing outside its box is drawn.
  virtual void Paint(Graphics& Canvas);

 private:
  friend class TWinControl;
};

}  // namespace zy
