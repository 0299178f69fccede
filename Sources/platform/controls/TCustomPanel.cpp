#include "platform/controls/TCustomPanel.h"

#include "platform/drawing/Graphics.h"
#include "platform/drawing/Pen.h"
#include "platform/framework/SystemColors.h"
#include "platform/framework/TPropInfo.h"

namespace zy {

ZY_PUBLISHED(TCustomPanel, TWinControl,
             Published<&TCustomPanel::BorderStyle, &TCustomPanel::SetBorderStyle>("BorderStyle", bsNone))

TCustomPanel::TCustomPanel(TComponent* Owner) : TWinControl(Owner) { TCustomPanel::SetBounds(0, 0, 185, 41); }

TCustomPanel::~TCustomPanel() { Destroying(); }

void TCustomPanel::SetBorderStyle(TBorderStyle Value) {
  if (Value == FBorderStyle) return;
  FBorderStyle = Value;
  Invalidate();
}

void TCustomPanel::Paint(Graphics& Canvas) {
  if (FBorderStyle == bsNone) return;
  constexpr int WindowFrame = 6;  // the desktop's colour for it
  const Pen Line(SystemColor(WindowFrame), 1);
  Canvas.SetSmoothingMode(SmoothingModeNone);
  Canvas.DrawRectangle(Line, 0, 0, static_cast<float>(Width() - 1), static_cast<float>(Height() - 1));
}

}  // namespace zy
