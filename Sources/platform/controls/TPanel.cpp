#include "platform/controls/TPanel.h"

#include "platform/framework/TPropInfo.h"

namespace zy {

ZY_PUBLISHED(TPanel, TCustomPanel, Published<&TPanel::OnPaint, &TPanel::SetOnPaint>("OnPaint"),
             Republished("ParentFont Font"))

TPanel::TPanel(TComponent* Owner) : TCustomPanel(Owner) {}

TPanel::~TPanel() { Destroying(); }

void TPanel::Paint(Graphics& Canvas) {
  if (const TPaintEvent Event = FOnPaint) Event(this, Canvas);
  Inherited::Paint(Canvas);
}

}  // namespace zy
