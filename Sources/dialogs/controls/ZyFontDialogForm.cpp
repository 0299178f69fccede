#include "dialogs/controls/ZyFontDialogForm.h"

#include <cmath>
#include <utility>

#include "dialogs/controls/ZyDialogParts.h"
#include "platform/drawing/FontFamily.h"
#include "platform/framework/ScopedFlag.h"
#include "platform/framework/TPropInfo.h"

namespace zy {

ZY_PUBLISHED(TZyFontDialogForm, TForm)

namespace {

constexpr unsigned FaceBits = 3, UnderlineBit = 4, StrikeoutBit = 8;
static_assert(static_cast<int>(TFontStyle::Underline) == 2 && static_cast<int>(TFontStyle::Strikeout) == 3);

}  // namespace

TZyFontDialogForm::TZyFontDialogForm(TComponent* Owner) : TForm(Owner) {
  SetCaption(LoadResString(_sFontSettings));
  SetPosition(poScreenCenter);
  SetShowHint(true);
  SamplePanel = AddPart<TPanel>(*this, *this, "SamplePanel");
  SamplePanel->SetBounds(0, 0, 200, 70);
  SamplePanel->SetBorderStyle(bsSingle);
  SampleLab = AddPart<TZyRichLabel>(*this, *SamplePanel, "SampleLab");
  SampleLab->SetCaption("AaBbYyZz");
  SampleLab->SetParentFont(false);  // its font is the one under edit, never that of the window
  SampleLab->SetAutoSize(false);
  SampleLab->SetTextAlign(TZyContentAlignment::MiddleCenter);
  SampleLab->SetAlign(alClient);
  MakeName();
  MakeStyle();
  MakeEffects();
  GradientVisibleCheck = AddCheck("GradientVisibleCheck", _sFontGradient, _sFontGradientHint,
                                  [this](bool Checked) { EditedFont().Gradient().SetVisible(Checked); });
  GradientFrame = AddPart<TZyGradientFrame>(*this, *this, "GradientFrame");
  GradientFrame->SetGradient(&EditedFont().Gradient());
  MakeButtons();
}

TZyFontDialogForm::~TZyFontDialogForm() { Destroying(); }

// --- Controls -------------------------------------------------------------------------------------------------------

void TZyFontDialogForm::MakeName() {
  NameLookup = AddPart<TComboBox>(*this, *this, "NameLookup", _sFontNameLookupHint);
  AddLabel(*this, *NameLookup, _sFontName);
  GetInstalledFontNames(&NameLookup->Items());
  NameLookup->SetOnChange([this](TObject*) {
    if (!FCanSet || NameList->Items().IndexOf(NameLookup->Text()) < 0) return;
    TakeName(NameLookup->Text());
  });
  NameList = AddPart<TListBox>(*this, *this, "NameList", _sFontNameListHint);
  NameList->SetItems(NameLookup->Items());
  NameList->SetOnClick([this](TObject*) {
    if (FCanSet && NameList->ItemIndex() >= 0) TakeName(NameList->Items().Get(NameList->ItemIndex()));
  });
}

void TZyFontDialogForm::MakeStyle() {
  StyleList = AddPart<TListBox>(*this, *this, "StyleList", _sFontStyleHint);
  AddLabel(*this, *StyleList, _sFontStyle);
  StyleList->SetOnClick([this](TObject*) { SetStyles(); });
  UnderlineCheck = AddCheck("UnderlineCheck", _sFontUnderline, _sFontUnderlineHint, [this](bool) { SetStyles(); });
  StrikeoutCheck = AddCheck("StrikeoutCheck", _sFontStrikeout, _sFontStrikeoutHint, [this](bool) { SetStyles(); });
  SizeEdit = AddPart<TZyIntegerEdit>(*this, *this, "SizeEdit", _sFontSizeHint);
  AddLabel(*this, *SizeEdit, _sFontSizeLabel);
  SizeEdit->SetOnValueChanged([this](TObject*) {
    if (FCanSet && SizeEdit->Value() > 0) EditedFont().SetSize(static_cast<float>(SizeEdit->Value()));
  });
  ColorPick = AddPart<TZyColorPickCombo>(*this, *this, "ColorPick", _sFontColorHint);
  AddLabel(*this, *ColorPick, _sFontColor);
  ColorPick->SetOnChanged([this](TObject*) {
    if (FCanSet) EditedFont().SetFillColor(ColorPick->ActiveColor());
  });
  RenderingCombo = AddPart<TComboBox>(*this, *this, "RenderingCombo", _sFontRenderingHint);
  RenderingCombo->SetStyle(csDropDownList);
  AddLabel(*this, *RenderingCombo, _sFontRendering);
  for (const TZyText Text : {_sHintSystemDefault, _sHintSingleBitToGrid, _sHintSingleBit, _sHintAntialiasToGrid,
                             _sHintAntialias, _sHintClearType})
    RenderingCombo->Items().Add(LoadResString(Text));
  RenderingCombo->SetOnSelect([this](TObject*) {
    if (FCanSet) EditedFont().SetRenderingHint(static_cast<TZyTextRenderingHint>(RenderingCombo->ItemIndex()));
  });
}

TCheckBox* TZyFontDialogForm::AddCheck(const char* PartName, TZyText Text, TZyText PartHint,
                                       std::function<void(bool Checked)> Take) {
  auto* const Check = AddPart<TCheckBox>(*this, *this, PartName, PartHint);
  Check->SetCaption(LoadResString(Text));
  Check->SetOnClick([this, Check, Take = std::move(Take)](TObject*) {
    if (FCanSet) Take(Check->Checked());
  });
  return Check;
}

void TZyFontDialogForm::MakeEffects() {
  const auto Add = [this](TZyCharDrawEffect Effect, const char* PartName, TZyText Text, TZyText PartHint) {
    const auto Place = static_cast<std::size_t>(Effect);
    FEffects[Place] = AddCheck(PartName, Text, PartHint, [this, Place](bool Checked) { TakeEffect(Place, Checked); });
  };
  Add(TZyCharDrawEffect::Outline, "OutlineCheck", _sFontOutline, _sFontOutlineHint);
  Add(TZyCharDrawEffect::Shadow, "ShadowCheck", _sFontShadow, _sFontShadowHint);
  Add(TZyCharDrawEffect::Lowered, "LoweredCheck", _sFontLowered, _sFontLoweredHint);
  Add(TZyCharDrawEffect::Raised, "RaisedCheck", _sFontRaised, _sFontRaisedHint);
}

void TZyFontDialogForm::MakeButtons() {
  const auto Add = [this](const char* PartName, TZyText Text) {
    auto* const Button = AddPart<TButton>(*this, *this, PartName);
    Button->SetCaption(LoadResString(Text));
    return Button;
  };
  OKBtn = Add("OKBtn", _sOk);
  OKBtn->SetDefault(true);
  OKBtn->SetModalResult(mrOk);
  CancelBtn = Add("CancelBtn", _sCancel);
  CancelBtn->SetCancel(true);
  CancelBtn->SetModalResult(mrCancel);
  ApplyBtn = Add("ApplyBtn", _sApply);
  ApplyBtn->SetOnClick([this](TObject*) {
    if (const std::function<void()> Do = FApply) Do();
  });
  HelpBtn = Add("HelpBtn", _sHelp);
  HelpBtn->SetOnClick([this](TObject*) {
    if (const std::function<void()> Do = FHelp) Do();
  });
  SetButtons(nullptr, nullptr);
}

// --- The font -------------------------------------------------------------------------------------------------------

void TZyFontDialogForm::SetFont(const TZyFont& Value) {
  EditedFont().Assign(&Value);
  ShowAll();
}

void TZyFontDialogForm::SetSizeLimits(int Min, int Max) {
  const TScopedValue Shows(FCanSet, false);
  SizeEdit->SetMinValue(Min);
  SizeEdit->SetMaxValue(Max);
}

void TZyFontDialogForm::SetGradient(bool Shown) {
  GradientVisibleCheck->SetVisible(Shown);
  GradientFrame->SetVisible(Shown);
}

void TZyFontDialogForm::SetButtons(std::function<void()> Apply, std::function<void()> Help) {
  FApply = std::move(Apply);
  FHelp = std::move(Help);
  ApplyBtn->SetVisible(FApply != nullptr);
  HelpBtn->SetVisible(FHelp != nullptr);
}

void TZyFontDialogForm::DoShow() {
  TakeMainFont(*this, 12);
  ShowAll();
  Inherited::DoShow();
}

void TZyFontDialogForm::ShowAll() {
  const TScopedValue Shows(FCanSet, false);
  const TZyFont& Font = EditedFont();
  NameLookup->SetText(Font.Name());
  NameList->SetItemIndex(NameList->Items().IndexOf(Font.Name()));
  UpdateStyles();
  UnderlineCheck->SetChecked(Font.Style().Contains(TFontStyle::Underline));
  StrikeoutCheck->SetChecked(Font.Style().Contains(TFontStyle::Strikeout));
  SizeEdit->SetValue(static_cast<int>(std::lround(Font.Size())));
  ColorPick->SetActiveColor(Font.FillColor());
  RenderingCombo->SetItemIndex(static_cast<int>(Font.RenderingHint()));
  ShowEffects();
  GradientVisibleCheck->SetChecked(Font.Gradient().Visible());
  GradientFrame->SetGradient(&EditedFont().Gradient());
}

void TZyFontDialogForm::TakeName(const std::string& Family) {
  const TScopedValue Shows(FCanSet, false);
  EditedFont().SetName(Family);
  if (NameLookup->Text() != Family) NameLookup->SetText(Family);
  NameList->SetItemIndex(NameList->Items().IndexOf(Family));
  UpdateStyles();
}

/// Lists the faces that the family has of its own.
void TZyFontDialogForm::UpdateStyles() {
  constexpr TZyText Texts[] = {_sFontRegular, _sFontBold, _sFontItalic, _sFontBoldItalic};
  const FontFamily Family(EditedFont().Name());
  TStringList Names;
  FStyles.clear();
  for (unsigned Bits = 0; Bits <= FaceBits; ++Bits) {
    if (!Family.IsStyleAvailable(TFontStyles::FromBits(Bits))) continue;
    Names.Add(LoadResString(Texts[Bits]));
    FStyles.push_back(Bits);
  }
  StyleList->SetItems(Names);
  FindStyle();
}

/// A face that the family lacks shows as the first one.
void TZyFontDialogForm::FindStyle() {
  const auto Place = std::ranges::find(FStyles, EditedFont().Style().Bits() & FaceBits);
  const bool IsThere = Place != FStyles.end();
  StyleList->SetItemIndex(IsThere ? static_cast<int>(Place - FStyles.begin()) : FStyles.empty() ? -1 : 0);
}

void TZyFontDialogForm::SetStyles() {
  if (!FCanSet) return;
  const int Index = StyleList->ItemIndex();
  unsigned Bits = Index >= 0 ? FStyles[static_cast<std::size_t>(Index)] : EditedFont().Style().Bits() & FaceBits;
  if (UnderlineCheck->Checked()) Bits += UnderlineBit;
  if (StrikeoutCheck->Checked()) Bits += StrikeoutBit;
  EditedFont().SetStyle(TFontStyles::FromBits(Bits));
}

/// A font has one effect at most.
void TZyFontDialogForm::TakeEffect(std::size_t Place, bool Checked) {
  TZyCharDrawEffects Effects;
  if (Checked) Effects.Include(static_cast<TZyCharDrawEffect>(Place));
  EditedFont().SetDrawEffects({});
  EditedFont().SetDrawEffects(Effects);
  const TScopedValue Shows(FCanSet, false);
  ShowEffects();
}

void TZyFontDialogForm::ShowEffects() {
  for (std::size_t Place = 0; Place < FEffects.size(); ++Place)
    FEffects[Place]->SetChecked(EditedFont().DrawEffects().Contains(static_cast<TZyCharDrawEffect>(Place)));
}

void TZyFontDialogForm::KeyDown(TKey& Key, TShiftState Shift) {
  if (Key == vkF1 && HelpBtn->Visible()) {
    Key = 0;
    return HelpBtn->PerformClick();
  }
  Inherited::KeyDown(Key, Shift);
}

}  // namespace zy
