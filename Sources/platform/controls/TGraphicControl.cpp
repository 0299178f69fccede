#include "platform/controls/TGraphicControl.h"

#include "platform/controls/TWinControl.h"
#include "platform/framework/TPropInfo.h"

namespace zy {

ZY_PUBLISHED(TGraphicControl, TControl)

TGraphicControl::TGraphicControl(TComponent* Owner) : TControl(Owner) {}

TGraphicControl::~TGraphicControl() { Destroying(); }

void TGraphicControl::Paint(Graphics&) {}

void TGraphicControl::KeyDown(TKey&, TShiftState) {}

void TGraphicControl::InvalidateBox() {
  if (Parent() == nullptr || !InOverlay()) return TControl::InvalidateBox();
  Parent()->InvalidateOverlay(BoundsRect());
}

}  // namespace zy
