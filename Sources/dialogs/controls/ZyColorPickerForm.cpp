#include "dialogs/controls/ZyColorPickerForm.h"

#include <QWidget>
#include <algorithm>
#include <cstdlib>
#include <limits>
#include <string_view>
#include <utility>

#include "dialogs/controls/ZyColorSquare.h"
#include "dialogs/controls/ZyDialogParts.h"
#include "platform/framework/ScopedFlag.h"
#include "platform/framework/TPropInfo.h"

namespace zy {

ZY_PUBLISHED(TZyColorBtn, TSpeedButton,
             Published<&TZyColorBtn::SqareColor, &TZyColorBtn::SetSqareColor>("SqareColor", Colors::Transparent))
ZY_PUBLISHED(TZyColorPickerForm, TPopupForm)

namespace {

constexpr int Extent = 20, GlyphExtent = 14, Margin = 5, PaletteColumns = 8, NamedLeft = 170, NamedColumns = 4;
constexpr int OtherTop = 150, OtherLeft = 28;

constexpr TZyColor Palette[] = {0xff000000, 0xff808080, 0xff000040, 0xff004040, 0xff004000, 0xff404000, 0xff400000,
                                0xff400040, 0xff202020, 0xff909090, 0xff000080, 0xff008080, 0xff008000, 0xff808000,
                                0xff800000, 0xff800080, 0xff303030, 0xffa0a0a0, 0xff0000c0, 0xff00c0c0, 0xff00c000,
                                0xffc0c000, 0xffc00000, 0xffc000c0, 0xff404040, 0xffb0b0b0, 0xff0000ff, 0xff00ffff,
                                0xff00ff00, 0xffffff00, 0xffff0000, 0xffff00ff, 0xff505050, 0xffc0c0c0, 0xff4040ff,
                                0xff40ffff, 0xff40ff40, 0xffffff40, 0xffff4040, 0xffff40ff, 0xff606060, 0xffd0d0d0,
                                0xff8080ff, 0xff80ffff, 0xff80ff80, 0xffffff80, 0xffff8080, 0xffff80ff, 0xff707070,
                                0xffffffff, 0xffc0c0ff, 0xffc0ffff, 0xffc0ffc0, 0xffffffc0, 0xffffc0c0, 0xffffc0ff};

/// A name of the colour table, and what it says to a reader.
constexpr std::string_view Named[] = {"ActiveBorder|Active Window Border",
                                      "ActiveCaption|Active Window Header Background",
                                      "ActiveCaptionText|Active Window Header Text",
                                      "InactiveBorder|Inactive Window Border",
                                      "InactiveCaption|Inactive Window Header Background",
                                      "InactiveCaptionText|Inactive Window Header Text",
                                      "AppWorkSpace|Appplication Background",
                                      "Control|Control Background",
                                      "ControlDark|Control Shadow",
                                      "ControlLightLight|Control Highlight",
                                      "ControlText|Control Text",
                                      "ScrollBar|Scrollbar",
                                      "Desktop|Desktop",
                                      "GrayText|Gray Text",
                                      "Highlight|Highlight",
                                      "HighlightText|Highlight Text",
                                      "HotTrack|Hot Track",
                                      "Info|Info Background",
                                      "InfoText|Info Text",
                                      "Menu|Menu Background",
                                      "MenuText|Menu Text",
                                      "Window|Window",
                                      "WindowFrame|Window Frame",
                                      "WindowText|Window Text",
                                      "AntiqueWhite|AntiqueWhite",
                                      "Gold|Gold",
                                      "CornflowerBlue|CornflowerBlue",
                                      "Transparent|Transparent"};

}  // namespace

// --- TZyColorBtn ----------------------------------------------------------------------------------------------------

TZyColorBtn::TZyColorBtn(TComponent* Owner) : TSpeedButton(Owner) {
  SetBounds(0, 0, Extent, Extent);
  SetFlat(true);
  SetGroupIndex(1);
  SetAllowAllUp(true);
}

TZyColorBtn::~TZyColorBtn() { Destroying(); }

void TZyColorBtn::SetSqareColor(TZyColor Value) {
  FSqareColor = Value;
  SetGlyph([Value](Graphics& Canvas, float Size) { DrawColorSquare(Canvas, {0, 0, Size, Size}, Value); }, GlyphExtent);
}

void TZyColorBtn::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
  FMouseShift = Shift;
  Inherited::MouseDown(Button, Shift, X, Y);
}

void TZyColorBtn::KeyDown(TKey& Key, TShiftState Shift) {
  FMouseShift = {};
  if (Key == vkReturn) {
    Key = 0;
    return PerformClick();
  }
  const bool IsAcross = Key == vkLeft || Key == vkRight, IsDown = Key == vkUp || Key == vkDown;
  if (!IsAcross && !IsDown) return Inherited::KeyDown(Key, Shift);
  const int Way = Key == vkLeft || Key == vkUp ? -1 : 1;
  Key = 0;
  TWinControl* Best = nullptr;
  int Least = std::numeric_limits<int>::max();
  for (TControl* Each : Parent()->Controls()) {
    auto* const Button = dynamic_cast<TSpeedButton*>(Each);
    if (Button == nullptr || !Button->Visible()) continue;
    const int X = Button->Left() - Left(), Y = Button->Top() - Top();
    const int Ahead = Way * (IsAcross ? X : Y), Aside = std::abs(IsAcross ? Y : X);
    constexpr int AsideCost = 4;
    if (Ahead <= 0 || Ahead + AsideCost * Aside >= Least) continue;
    Least = Ahead + AsideCost * Aside;
    Best = Button;
  }
  if (Best != nullptr) Best->SetFocus();
}

// --- TZyColorPickerForm ---------------------------------------------------------------------------------------------

TZyColorPickerForm& ColorPickerForm() { return SharedForm<TZyColorPickerForm>(); }

TZyColorPickerForm::TZyColorPickerForm(TComponent* Owner) : TPopupForm(Owner) {
  SetHint(LoadResString(_sPickerHint));
  SetShowHint(true);
  std::size_t Place = 0;
  for (const TZyColor Color : Palette) {
    const int Index = static_cast<int>(Place);
    ColBtns[Place++] = AddButton(Margin + Extent * (Index % PaletteColumns), Margin + Extent * (Index / PaletteColumns),
                                 Color, ARGBToString(Color, false));
  }
  for (int Index = 0; Index < NamedCount; ++Index)
    ColBtns[Place++] = AddButton(NamedLeft + Extent * (Index % NamedColumns), Margin + Extent * (Index / NamedColumns),
                                 Colors::Transparent, std::string(Named[Index].substr(Named[Index].find('|') + 1)));
  ReadNamedColors();
  OtherColBtn = AddButton(Margin, OtherTop, Colors::Transparent, LoadResString(_sPickerCustomHint));
  OtherColBtn->SetName("OtherColBtn");
  OtherBtn = AddPart<TSpeedButton>(*this, *this, "OtherBtn", _sPickerOtherHint);
  OtherBtn->SetCaption(LoadResString(_sPickerOther));
  OtherBtn->SetTabStop(true);
  OtherBtn->SetOnClick([this](TObject*) { OtherBtnClick(); });
  TakeMainFont(*this, 12);
}

TZyColorPickerForm::~TZyColorPickerForm() { Destroying(); }

TZyColorBtn* TZyColorPickerForm::AddButton(int ButtonLeft, int ButtonTop, TZyColor Color,
                                           const std::string& ButtonHint) {
  auto* const Button = new TZyColorBtn(this);
  Button->SetBounds(ButtonLeft, ButtonTop, Extent, Extent);
  Button->SetHint(ButtonHint);
  Button->SetSqareColor(Color);
  Button->SetTabStop(true);
  Button->SetParent(this);
  Button->SetOnClick([this, Button](TObject*) { BtnClick(*Button); });
  return Button;
}

void TZyColorPickerForm::ReadNamedColors() {
  for (std::size_t Index = 0; Index < NamedCount; ++Index)
    ColBtns[PaletteCount + Index]->SetSqareColor(ColorToARGB(Named[Index].substr(0, Named[Index].find('|'))));
}

/// The squares keep their places; only the button with a text needs what its font asks for.
void TZyColorPickerForm::ArrangeWidgets() {
  Inherited::ArrangeWidgets();
  const int Wide =
      std::max(NamedLeft + NamedColumns * Extent + Margin, OtherLeft + OtherBtn->Widget()->sizeHint().width() + Margin);
  const int Tall = std::max(Extent, OtherBtn->Widget()->sizeHint().height());
  SetBounds(Left(), Top(), Wide, OtherTop + Tall + Margin);
  OtherBtn->SetBounds(OtherLeft, OtherTop, Wide - OtherLeft - Margin, Tall);
  OtherColBtn->SetTop(OtherTop + (Tall - Extent) / 2);
}

void TZyColorPickerForm::SetEnableAlpha(bool Value) { ColBtns.back()->SetVisible(Value); }

void TZyColorPickerForm::SetPickColor(TZyColor Value) {
  FPickColor = Value;
  const auto Found = std::ranges::find(ColBtns, Value, &TZyColorBtn::SqareColor);
  TZyColorBtn* const Chosen = Found == ColBtns.end() ? OtherColBtn : *Found;
  if (Chosen == OtherColBtn) OtherColBtn->SetSqareColor(Value);
  for (TZyColorBtn* Button : ColBtns) Button->SetDown(Button == Chosen);
  OtherColBtn->SetDown(Chosen == OtherColBtn);
}

void TZyColorPickerForm::Show(TWinControl& Below, const TFocusMark& Focus, std::function<void(TZyColor)> Set,
                              std::function<void(TZyColor)> Other) {
  DropDown(Below);
  FSet = std::move(Set);
  FOther = std::move(Other);
  FFocusControl.TakeFrom(Focus);
  const auto Down = std::ranges::find_if(ColBtns, [](const TZyColorBtn* Button) { return Button->Down(); });
  TZyColorBtn* const First = Down == ColBtns.end() ? OtherColBtn : *Down;
  if (First->CanFocus()) First->SetFocus();
}

void TZyColorPickerForm::BtnClick(const TZyColorBtn& Button) {
  FPickColor = Button.SqareColor();
  if (Button.MouseShift() == TShiftState{ssCtrl, ssLeft}) return OtherBtnClick();
  const auto Set = std::exchange(FSet, nullptr);
  const TZyColor Picked = FPickColor;
  Close();
  if (Set) Set(Picked);
}

/// A form that drops down is closed by another one, so this one goes first.
void TZyColorPickerForm::OtherBtnClick() {
  const auto Other = std::exchange(FOther, nullptr);
  {
    const TScopedValue Doing(FDoingDialog, true);
    Close();
  }
  if (Other) Other(FPickColor);
}

void TZyColorPickerForm::CMVisibleChanged() {
  Inherited::CMVisibleChanged();
  if (!Visible() && !IsDestroying() && !FDoingDialog) FFocusControl.GiveBack();
}

}  // namespace zy
