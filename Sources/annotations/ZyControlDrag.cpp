#include "annotations/ZyControlDrag.h"

#include <algorithm>

#include "platform/controls/TWinControl.h"

namespace zy {

void TZyControlDrag::Begin(TPoint Place) {
  FKind = TKind::Mouse;
  FOrigin = {FControl.Left(), FControl.Top()};
  FStart = FControl.ClientToScreen(Place);
  FHasCapture = FControl.MouseCapture();
  FCursor = FControl.Cursor();
  if (FCursor == crDefault) FControl.SetCursor(crSizeAll);  // others tell which way it goes
  FControl.Parent()->SetKeyCapture(true);
}

TPoint TZyControlDrag::WayTo(TPoint Place) const {
  const TPoint Corner = FControl.Parent()->ClientToScreen({0, 0});
  const TPoint Now = FControl.ClientToScreen(Place);
  const auto Within = [](int Value, int From, int Extent) {
    return std::clamp(Value, From, From + std::max(Extent - 1, 0));
  };
  return {Within(Now.X, Corner.X, FControl.Parent()->ClientWidth()) - FStart.X,
          Within(Now.Y, Corner.Y, FControl.Parent()->ClientHeight()) - FStart.Y};
}

bool TZyControlDrag::IsLost(TShiftState Shift) const {
  const bool IsPressed = Shift.Contains(ssLeft) || Shift.Contains(ssRight) || Shift.Contains(ssMiddle);
  return FKind == TKind::Mouse && FHasCapture && (!FControl.MouseCapture() || !IsPressed);
}

std::optional<TPoint> TZyControlDrag::WayOf(TKey Key, TShiftState Shift) {
  constexpr int Step = 1, LargeStep = 10;
  const int By = Shift.Contains(ssShift) ? LargeStep : Step;
  TPoint Way;
  if (Key == vkLeft) Way.X = -By;
  if (Key == vkRight) Way.X = By;
  if (Key == vkUp) Way.Y = -By;
  if (Key == vkDown) Way.Y = By;
  if (Way.X == 0 && Way.Y == 0) return std::nullopt;
  return Way;
}

void TZyControlDrag::BeginByKeys() {
  FKind = TKind::Keys;
  FOrigin = {FControl.Left(), FControl.Top()};
}

void TZyControlDrag::End() {
  const TKind Kind = FKind;
  FKind = TKind::None;
  if (Kind != TKind::Mouse) return;
  FControl.SetCursor(FCursor);
  if (FControl.Parent() != nullptr) FControl.Parent()->SetKeyCapture(false);
  if (FHasCapture) FControl.SetMouseCapture(false);
}

}  // namespace zy
