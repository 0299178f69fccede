#pragma once

#include "platform/controls/TControl.h"

namespace zy {

class Graphics;

/// A control without a window: it paints inside its parent, above the parent's own picture and in control order.
class TGraphicControl : public TControl {
  ZY_CLASS(TGraphicControl, TControl)
  explicit TGraphicControl(TComponent* Owner = nullptr);
  ~TGraphicControl() override;

 protected:
  /// Paints the control. The origin is its top left corner, and nothing outside its box is drawn.
  virtual void Paint(Graphics& Canvas);

 private:
  friend class TWinControl;
};

}  // namespace zy
