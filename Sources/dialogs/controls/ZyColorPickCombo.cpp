#include "dialogs/controls/ZyColorPickCombo.h"

#include <cmath>

#include "dialogs/controls/ZyColorPickerForm.h"
#include "dialogs/controls/ZyColorSquare.h"
#include "dialogs/controls/ZyTuneColorsForm.h"
#include "platform/framework/TPropInfo.h"

namespace zy {

ZY_PUBLISHED(TZyColorPickCombo, TCustomComboBox,
             Published<&TZyColorPickCombo::EnableAlpha, &TZyColorPickCombo::SetEnableAlpha>("EnableAlpha", true),
             Published<&TZyColorPickCombo::DirectlyShowTuneColors, &TZyColorPickCombo::SetDirectlyShowTuneColors>(
                 "DirectlyShowTuneColors", false),
             Published<&TZyColorPickCombo::ActiveColor, &TZyColorPickCombo::SetActiveColor>("ActiveColor", Colors::Red),
             Published<&TZyColorPickCombo::AsTColor, &TZyColorPickCombo::SetAsTColor>("AsTColor").NotStored(),
             Published<&TZyColorPickCombo::OtherBtnCaption, &TZyColorPickCombo::SetOtherBtnCaption>("OtherBtnCaption"),
             Published<&TZyColorPickCombo::DialogTitle, &TZyColorPickCombo::SetDialogTitle>("DialogTitle"),
             Published<&TZyColorPickCombo::OnChanged, &TZyColorPickCombo::SetOnChanged>("OnChanged"),
             Published<&TZyColorPickCombo::PropertyLinks>("PropertyLinks"))

TZyColorPickCombo::TZyColorPickCombo(TComponent* Owner)
    : TZyLinked(Owner), FOtherBtnCaption(LoadResString(_sPickerOther)), FDialogTitle(LoadResString(_sTuneColors)) {
  SetStyle(csOwnerDrawFixed);
  Items().Add(ARGBToString(FActiveColor, false));
  SetItemIndex(0);
  TZyColorPickCombo::SetBounds(0, 0, 40, 22);
  LinkBy("ActiveColor");
}

TZyColorPickCombo::~TZyColorPickCombo() { Destroying(); }

/// The one item has the colour's name, for screen readers.
void TZyColorPickCombo::SetActiveColor(TZyColor Value) {
  const std::uint64_t Alive = LiveHandle();
  if (Value != FActiveColor) {
    FActiveColor = Value;
    Items().Put(0, ARGBToString(Value, false));
    Invalidate();
    if (const TNotifyEvent Event = FOnChanged) Event(this);
  }
  if (FromLiveHandle(Alive) != nullptr) SetLink(FActiveColor);
}

void TZyColorPickCombo::SetBounds(int NewLeft, int NewTop, int NewWidth, int NewHeight) {
  const bool IsResized = NewHeight != Height();
  Inherited::SetBounds(NewLeft, NewTop, NewWidth, NewHeight);
  constexpr int Frame = 6;
  if (IsResized) SetItemHeight(Height() - Frame);
}

void TZyColorPickCombo::DrawItem(Graphics& Canvas, int, const TRect& Box, TOwnerDrawState) {
  const float Inset = std::floor(static_cast<float>(Box.Height()) / 9);
  DrawColorSquare(Canvas,
                  {static_cast<float>(Box.Left) + Inset, static_cast<float>(Box.Top) + Inset,
                   static_cast<float>(Box.Width()) - 2 * Inset, static_cast<float>(Box.Height()) - 2 * Inset},
                  FActiveColor);
}

void TZyColorPickCombo::CMMouseEnter() {
  FFocusControl.Take();
  Inherited::CMMouseEnter();
}

void TZyColorPickCombo::KeyDown(TKey& Key, TShiftState Shift) {
  const std::uint64_t Alive = LiveHandle();
  Inherited::KeyDown(Key, Shift);
  if (FromLiveHandle(Alive) == nullptr || (Key != vkReturn && Key != vkSpace && Key != vkDown)) return;
  Key = 0;
  FFocusControl.Take();
  DropDown();
}

/// No list of its own opens.
bool TZyColorPickCombo::DropDown() {
  if (!Inherited::DropDown() || !HasWidget()) return false;
  if (FDirectlyShowTuneColors) {
    ShowTuneColors(FActiveColor);
    return false;
  }
  const auto Live = [Alive = LiveHandle()] { return static_cast<TZyColorPickCombo*>(FromLiveHandle(Alive)); };
  TZyColorPickerForm& Picker = ColorPickerForm();
  Picker.SetEnableAlpha(FEnableAlpha);
  Picker.SetPickColor(FActiveColor);
  Picker.SetOtherBtnCaption(FOtherBtnCaption);
  Picker.Show(
      *this, FFocusControl,
      [Live](TZyColor Color) {
        if (TZyColorPickCombo* const Combo = Live()) Combo->SetActiveColor(Color);
      },
      [Live](TZyColor Color) {
        if (TZyColorPickCombo* const Combo = Live(); Combo != nullptr && Combo->HasWidget())
          Combo->ShowTuneColors(Color);
      });
  return false;
}

void TZyColorPickCombo::ShowTuneColors(TZyColor Color) {
  TZyTuneColorsForm& Form = TuneColorsForm();
  Form.SetCaption(FDialogTitle);
  Form.SetEnableAlpha(FEnableAlpha);
  Form.SetActiveColor(Color);
  Form.Show(*this, FFocusControl, [Alive = LiveHandle()](TZyColor Made) {
    if (auto* const Combo = static_cast<TZyColorPickCombo*>(FromLiveHandle(Alive))) Combo->SetActiveColor(Made);
  });
}

}  // namespace zy
