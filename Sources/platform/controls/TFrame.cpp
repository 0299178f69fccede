#include "platform/controls/TFrame.h"

#include "platform/framework/TPropInfo.h"

namespace zy {

ZY_PUBLISHED(TFrame, TWinControl, Published<&TFrame::ParentFont, &TFrame::SetParentFont>("ParentFont", true),
             Published<&TFrame::ControlFont, &TFrame::SetControlFont>("Font").StoredIf<&TFrame::HasOwnFont>())

TFrame::TFrame(TComponent* Owner) : TWinControl(Owner) { TFrame::SetBounds(0, 0, 320, 240); }

TFrame::~TFrame() { Destroying(); }

}  // namespace zy
