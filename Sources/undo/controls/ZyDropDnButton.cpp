#include "undo/controls/ZyDropDnButton.h"

#include <algorithm>

#include "platform/drawing/Graphics.h"
#include "platform/framework/TPropInfo.h"
#include "undo/controls/ZyUndoListFrm.h"

namespace zy {

ZY_PUBLISHED(TZyDropDnButton, TGraphicControl,
             Published<&TZyDropDnButton::Flat, &TZyDropDnButton::SetFlat>("Flat", true),
             Published<&TZyDropDnButton::Transparent, &TZyDropDnButton::SetTransparent>("Transparent", true),
             Published<&TZyDropDnButton::Margin, &TZyDropDnButton::SetMargin>("Margin", -1),
             Published<&TZyDropDnButton::Spacing, &TZyDropDnButton::SetSpacing>("Spacing", 4),
             Published<&TZyDropDnButton::NumGlyphs, &TZyDropDnButton::SetNumGlyphs>("NumGlyphs", 2).Clamped(1, 4),
             Published<&TZyDropDnButton::Glyph, &TZyDropDnButton::SetGlyph>("Glyph")
                 .StoredIf<&TZyDropDnButton::HasForeignGlyph>(),
             Published<&TZyDropDnButton::Layout, &TZyDropDnButton::SetLayout>("Layout", TZyButtonLayout::GlyphLeft),
             Published<&TZyDropDnButton::UndoStack, &TZyDropDnButton::SetUndoStack>("UndoStack"),
             Published<&TZyDropDnButton::Caption, &TZyDropDnButton::SetCaption>("Caption", std::string()),
             Published<&TZyDropDnButton::ControlFont, &TZyDropDnButton::SetControlFont>("Font")
                 .StoredIf<&TZyDropDnButton::HasOwnFont>(),
             Published<&TZyDropDnButton::ParentFont, &TZyDropDnButton::SetParentFont>("ParentFont", true))

TZyDropDnButton::TZyDropDnButton(TComponent* Owner) : TGraphicControl(Owner) {
  TZyDropDnButton::SetBounds(0, 0, 37, 22);
  FGlyph.OnChange = [this](TObject*) { GlyphChanged(); };
  FIdle.SetOnIdle([this](TObject* Sender, bool& Done) {
    if (!IsDesigning() && !IsDestroying()) DoIdle(Sender, Done);
  });
  if (!IsDesigning() || Owner == nullptr) return;
  for (TComponent* Component : Owner->Components())
    if (auto* const Stack = dynamic_cast<TZyUndoStack*>(Component)) FUndoStack = Stack;
}

TZyDropDnButton::~TZyDropDnButton() { Destroying(); }

void TZyDropDnButton::SetCaption(const std::string& Value) { SetLook(FCaption, Value); }

void TZyDropDnButton::SetNumGlyphs(int Value) {
  FNumGlyphs = std::clamp(Value, 1, 4);
  GetBtnGlypImages();
}

void TZyDropDnButton::SetUndoStack(TZyUndoStack* Value) {
  if (Value == FUndoStack) return;
  FUndoStack = Value;
  if (FDroppedDn) TZyUndoListFrm::Get().FormDeactivate();  // it lists the steps of the old one
}

void TZyDropDnButton::SetDown(bool& Down, TZyButtonState& State, bool Value) {
  Down = Value;
  if (State != TZyButtonState::Disabled) State = Value ? TZyButtonState::Exclusive : TZyButtonState::Up;
  Invalidate();
}

void TZyDropDnButton::LeftClick() {}

void TZyDropDnButton::RightClick() {}

void TZyDropDnButton::DoIdle(TObject*, bool& Done) { Done = true; }

void TZyDropDnButton::CMEnabledChanged() {
  Inherited::CMEnabledChanged();
  Invalidate();
}

void TZyDropDnButton::CMFontChanged() {
  Inherited::CMFontChanged();
  Invalidate();
}

std::string TZyDropDnButton::AccessibleName() const {
  if (!FCaption.empty()) return FCaption;
  return Hint().empty() ? OwnName() : Hint();
}

// --- Mouse and keyboard ---------------------------------------------------------------------------------------------

/// Shows the half pressed before what it does, which may take a while, and may free the button.
void TZyDropDnButton::PressLeft() {
  if (!FLeftDown) {
    const std::uint64_t Alive = LiveHandle();
    FLeftState = TZyButtonState::Down;
    Repaint();
    LeftClick();
    if (FromLiveHandle(Alive) == nullptr) return;
  }
  if (FRightDown) {
    FRightState = TZyButtonState::Exclusive;
    Repaint();
  }
}

void TZyDropDnButton::PressRight() {
  if (!FRightDown) {
    const std::uint64_t Alive = LiveHandle();
    FRightState = TZyButtonState::Down;
    Repaint();
    RightClick();
    if (FromLiveHandle(Alive) == nullptr) return;
  }
  if (FLeftDown) {
    FLeftState = TZyButtonState::Exclusive;
    Repaint();
  }
}

void TZyDropDnButton::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
  const std::uint64_t Alive = LiveHandle();
  Inherited::MouseDown(Button, Shift, X, Y);
  if (FromLiveHandle(Alive) == nullptr || Button != mbLeft || !Enabled()) return;
  IsRight(X) ? PressRight() : PressLeft();
}

void TZyDropDnButton::MouseMove(TShiftState Shift, int X, int Y) {
  const std::uint64_t Alive = LiveHandle();
  Inherited::MouseMove(Shift, X, Y);
  constexpr TShiftState Buttons{ssLeft, ssRight, ssMiddle};
  const bool LeftAlone = (Shift.Bits() & Buttons.Bits()) == TShiftState{ssLeft}.Bits();
  if (FromLiveHandle(Alive) == nullptr || !LeftAlone || !Enabled()) return;
  const bool Stays = IsRight(X) ? FLeftDown : FRightDown;
  if (!Stays) return;
  (IsRight(X) ? FLeftState : FRightState) = TZyButtonState::Exclusive;
  Repaint();
}

void TZyDropDnButton::MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) {
  const std::uint64_t Alive = LiveHandle();
  Inherited::MouseUp(Button, Shift, X, Y);
  if (FromLiveHandle(Alive) != nullptr) ReleaseHalves();
}

void TZyDropDnButton::ReleaseHalves() {
  if (!Enabled() || FDroppedDn) return;
  FLeftState = FLeftDown ? TZyButtonState::Exclusive : TZyButtonState::Up;
  FRightState = FRightDown ? TZyButtonState::Exclusive : TZyButtonState::Up;
  Repaint();
}

void TZyDropDnButton::CMMouseEnter() {
  FMouseInControl = true;
  Repaint();
  Inherited::CMMouseEnter();
}

void TZyDropDnButton::CMMouseLeave() {
  FMouseInControl = false;
  Repaint();
  Inherited::CMMouseLeave();
}

void TZyDropDnButton::KeyDown(TKey& Key, TShiftState Shift) {
  if (!Enabled() || Shift.Contains(ssCtrl)) return;
  const bool Drops = Key == vkDown || Key == vkF1 + 3;
  const bool Presses = (Key == vkReturn || Key == vkSpace) && !Shift.Contains(ssAlt);
  if (!Drops && !Presses) return;
  Key = 0;
  const std::uint64_t Alive = LiveHandle();
  Drops ? PressRight() : PressLeft();
  if (FromLiveHandle(Alive) != nullptr) ReleaseHalves();  // the key is a press that does not last
}

// --- List of steps --------------------------------------------------------------------------------------------------

void TZyDropDnButton::ShowListWindow() {
  if (FUndoStack == nullptr || Parent() == nullptr || !Parent()->HasWidget()) return;
  SetMouseCapture(false);  // the list gets the release
  FDroppedDn = true;
  TZyUndoListFrm::Get().DropDown(*this);
}

void TZyDropDnButton::ListClosed() {
  FMouseInControl = FDroppedDn = false;
  FLeftState = FRightState = TZyButtonState::Up;
  Repaint();
}

}  // namespace zy
