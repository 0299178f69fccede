#pragma once

#include "platform/controls/TWinControl.h"

namespace zy {

/// Whether a line goes around a control.
enum TBorderStyle { bsNone, bsSingle };
ZY_ENUM(TBorderStyle, "bsNone", "bsSingle")

/// A box for other controls; base of the controls that paint a picture of their own. 185 by 41 pixels at first.
class TCustomPanel : public TWinControl {
  ZY_CLASS(TCustomPanel, TWinControl)
  explicit TCustomPanel(TComponent* Owner = nullptr);
  ~TCustomPanel() override;

  /// Whether a line runs round the control, inside its bounds. None at first.
  TBorderStyle BorderStyle() const { return FBorderStyle; }
  virtual void SetBorderStyle(TBorderStyle Value);

 protected:
  /// Draws the border; a descendant paints below it.
  void Paint(Graphics& Canvas) override;

 private:
  TBorderStyle FBorderStyle = bsNone;
};

}  // namespace zy
