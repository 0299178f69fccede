#include "platform/controls/TToolBar.h"

#include "platform/drawing/Brush.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/TPropInfo.h"

namespace zy {

ZY_PUBLISHED(TToolBar, TCustomPanel, Published<&TToolBar::Align, &TToolBar::SetAlign>("Align", alTop),
             Published<&TToolBar::Flat, &TToolBar::SetFlat>("Flat", true),
             Published<&TToolBar::HasGradient, &TToolBar::SetGradient>("Gradient", false),
             Published<&TToolBar::GradientStartColor, &TToolBar::SetGradientStartColor>("GradientStartColor",
                                                                                        0xFFFFFFFF),
             Published<&TToolBar::GradientEndColor, &TToolBar::SetGradientEndColor>("GradientEndColor", 0xFFD3D3D3),
             Republished("ParentFont Font"))

TToolBar::TToolBar(TComponent* Owner) : TCustomPanel(Owner) {
  TToolBar::SetBounds(0, 0, 150, 29);
  SetAlign(alTop);
}

TToolBar::~TToolBar() { Destroying(); }

template <class T>
void TToolBar::Change(T& Field, T Value) {
  Field = Value;
  Invalidate();
}

void TToolBar::SetFlat(bool Value) { Change(FFlat, Value); }

void TToolBar::SetGradient(bool Value) { Change(FGradient, Value); }

void TToolBar::SetGradientStartColor(ARGB Value) { Change(FStartColor, Value); }

void TToolBar::SetGradientEndColor(ARGB Value) { Change(FEndColor, Value); }

void TToolBar::Paint(Graphics& Canvas) {
  const RectF Box{0, 0, static_cast<float>(Width()), static_cast<float>(Height())};
  if (FGradient && Width() > 0 && Height() > 0)
    Canvas.FillRectangle(LinearGradientBrush(Box, FStartColor, FEndColor, LinearGradientModeVertical), Box);
  Inherited::Paint(Canvas);
}

}  // namespace zy
