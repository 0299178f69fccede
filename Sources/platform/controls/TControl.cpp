#include "platform/controls/TControl.h"

#include <algorithm>

#include "platform/controls/TWinControl.h"
#include "platform/framework/Exceptions.h"
#include "platform/framework/TPropInfo.h"
#include "texts/ZyLocalize.h"

namespace zy {

ZY_PUBLISHED(TControl, TComponent, Published<&TControl::Left, &TControl::SetLeft>("Left"),
             Published<&TControl::Top, &TControl::SetTop>("Top"),
             Published<&TControl::Width, &TControl::SetWidth>("Width"),
             Published<&TControl::Height, &TControl::SetHeight>("Height"),
             Published<&TControl::Visible, &TControl::SetVisible>("Visible", true))

TControl::TControl(TComponent* Owner) : TComponent(Owner) {}

TControl::~TControl() {
  Destroying();
  if (FParent != nullptr) FParent->RemoveControl(this);
}

void TControl::SetParent(TWinControl* Value) {
  if (Value == FParent) return;
  for (const TControl* Outer = Value; Outer != nullptr; Outer = Outer->FParent)
    if (Outer == this) throw EInvalidOperation(Format(LoadResString(_sControlInItself), {Name()}));
  if (FParent != nullptr) FParent->RemoveControl(this);
  if (Value != nullptr) Value->InsertControl(this);
}

void TControl::SetParentComponent(TComponent* Value) { SetParent(dynamic_cast<TWinControl*>(Value)); }

void TControl::SetBounds(int Left, int Top, int Width, int Height) {
  Width = std::max(Width, 0);
  Height = std::max(Height, 0);
  const bool Resized = Width != FWidth || Height != FHeight;
  if (!Resized && Left == FLeft && Top == FTop) return;
  Invalidate();
  FLeft = Left;
  FTop = Top;
  FWidth = Width;
  FHeight = Height;
  ApplyBounds();
  Invalidate();
  if (Resized) Resize();
}

void TControl::SetVisible(bool Value) {
  if (Value == FVisible) return;
  FVisible = Value;
  ApplyVisible();
  InvalidateBox();
}

void TControl::Invalidate() {
  if (FVisible) InvalidateBox();
}

void TControl::Repaint() {
  if (FVisible && FParent != nullptr) FParent->RepaintBox(FLeft, FTop, FWidth, FHeight);
}

void TControl::Resize() {}

void TControl::InvalidateBox() {
  if (FParent != nullptr) FParent->InvalidateBox(FLeft, FTop, FWidth, FHeight);
}

void TControl::ApplyBounds() {}

void TControl::ApplyVisible() {}

}  // namespace zy
