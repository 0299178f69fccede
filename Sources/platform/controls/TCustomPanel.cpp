#include "platform/controls/TCustomPanel.h"

#include "platform/framework/TPropInfo.h"

namespace zy {

ZY_PUBLISHED(TCustomPanel, TWinControl)

TCustomPanel::TCustomPanel(TComponent* Owner) : TWinControl(Owner) { TCustomPanel::SetBounds(0, 0, 185, 41); }

TCustomPanel::~TCustomPanel() { Destroying(); }

}  // namespace zy
