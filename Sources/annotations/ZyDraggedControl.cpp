#include "annotations/ZyDraggedControl.h"

#include "platform/controls/TWinControl.h"
#include "platform/framework/TPropInfo.h"

namespace zy {

ZY_PUBLISHED(TZyDraggedControl, TGraphicControl)

void TZyDraggedControl::SetParent(TWinControl* Value) {
  if (Value != Parent()) EndDrag(false);
  TGraphicControl::SetParent(Value);
}

void TZyDraggedControl::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
  const std::uint64_t Alive = LiveHandle();
  if (Parent() != nullptr && StartsBy(Shift)) {
    EndDrag(true);
    if (FromLiveHandle(Alive) == nullptr) return;
    FDrag.Begin({X, Y});
    DragBegins();
  }
  TGraphicControl::MouseDown(Button, Shift, X, Y);
}

void TZyDraggedControl::MouseMove(TShiftState Shift, int X, int Y) {
  const std::uint64_t Alive = LiveHandle();
  if (FDrag.IsLost(Shift)) EndDrag(true);
  if (FromLiveHandle(Alive) == nullptr) return;
  if (FDrag.IsByMouse() && Parent() != nullptr) DragTo(FDrag.WayTo({X, Y}));
  if (FromLiveHandle(Alive) != nullptr) TGraphicControl::MouseMove(Shift, X, Y);
}

void TZyDraggedControl::MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) {
  const std::uint64_t Alive = LiveHandle();
  EndDrag(true);
  if (FromLiveHandle(Alive) != nullptr) TGraphicControl::MouseUp(Button, Shift, X, Y);
}

void TZyDraggedControl::KeyDown(TKey& Key, TShiftState Shift) {
  if (Key == vkEscape && FDrag.IsActive()) {
    Key = 0;
    return EndDrag(false);
  }
  if (Key == 0 || !TakesKeys() || Parent() == nullptr || FDrag.IsByMouse()) return;
  const auto Way = TZyControlDrag::WayOf(Key, Shift);
  if (!Way) {
    if (Key != vkShift) EndDrag(true);
    return;
  }
  if (!FDrag.IsActive()) {
    FDrag.BeginByKeys();
    FKeyWay = {};
    DragBegins();
  }
  Key = 0;
  FKeyWay = {FKeyWay.X + Way->X, FKeyWay.Y + Way->Y};
  DragTo(FKeyWay);
}

void TZyDraggedControl::EndDrag(bool Keeps) {
  if (!FDrag.IsActive()) return;
  FDrag.End();
  DragEnds(Keeps);
}

void TZyDraggedControl::CMVisibleChanged() {
  if (!Visible()) EndDrag(false);
  TGraphicControl::CMVisibleChanged();
}

}  // namespace zy
