#pragma once

#include "platform/controls/TWinControl.h"

namespace zy {

/// A box for other controls; base of the controls that paint a picture of their own. 185 by 41 pixels at first.
class TCustomPanel : public TWinControl {
  ZY_CLASS(TCustomPanel, TWinControl)
  explicit TCustomPanel(TComponent* Owner = nullptr);
  ~TCustomPanel() override;
};

}  // namespace zy
