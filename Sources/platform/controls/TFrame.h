#pragma once

#include "platform/controls/TWinControl.h"

namespace zy {

/// A part of a form that is made and streamed as a whole, and may stand in several forms. 320 by 240 pixels at first.
class TFrame : public TWinControl {
  ZY_CLASS(TFrame, TWinControl)
  explicit TFrame(TComponent* Owner = nullptr);
  ~TFrame() override;
};

}  // namespace zy
