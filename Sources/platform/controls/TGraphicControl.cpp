#include "platform/controls/TGraphicControl.h"

#include "platform/framework/TPropInfo.h"

namespace zy {

ZY_PUBLISHED(TGraphicControl, TControl)

TGraphicControl::TGraphicControl(TComponent* Owner) : TControl(Owner) {}

TGraphicControl::~TGraphicControl() { Destroying(); }

void TGraphicControl::Paint(Graphics&) {}

}  // namespace zy
