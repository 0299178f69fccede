#include "dialogs/forms/ZySettingsForm.h"

#include <QApplication>
#include <QWidget>
#include <algorithm>

#include "annotations/ZyCaptionEdit.h"
#include "dialogs/controls/ZyColorPickCombo.h"
#include "dialogs/frames/ZyMoveButtons.h"
#include "dialogs/frames/ZyObjectItems.h"
#include "graph/styles/ZyGDI.h"
#include "platform/controls/TCustomComboBox.h"
#include "platform/controls/TPanel.h"
#include "platform/controls/TStatusBar.h"
#include "platform/controls/TToolBar.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Font.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/ScopedFlag.h"
#include "platform/framework/SystemColors.h"
#include "platform/framework/TPropInfo.h"
#include "texts/ZySettingsTexts.h"
#include "undo/controls/ZyUndoButtons.h"

namespace zy {

ZY_PUBLISHED(TZySettingsForm, TForm)

namespace {

/// A button of the tool bar, with the property of the selection that it flips.
struct TStyleButton {
  const char* Name;
  TZyText Hint;
  TZyGlyph Glyph;
  bool (TZyCaptionEdit::*Get)() const;
  void (TZyCaptionEdit::*Set)(bool);
};
constexpr TStyleButton StyleButtons[] = {
    {"BoldButton", _sStyleBold, TZyGlyph::Bold, &TZyCaptionEdit::Bold, &TZyCaptionEdit::SetBold},
    {"ItalicButton", _sStyleItalic, TZyGlyph::Italic, &TZyCaptionEdit::Italic, &TZyCaptionEdit::SetItalic},
    {"UnderlineButton", _sStyleUnderline, TZyGlyph::Underline, &TZyCaptionEdit::Underline,
     &TZyCaptionEdit::SetUnderline},
    {"StrikeoutButton", _sStyleStrikeout, TZyGlyph::Strikeout, &TZyCaptionEdit::Strikeout,
     &TZyCaptionEdit::SetStrikeout},
    {"SubscriptButton", _sStyleSubscript, TZyGlyph::Subscript, &TZyCaptionEdit::Subscript,
     &TZyCaptionEdit::SetSubscript},
    {"SuperScriptButton", _sStyleSuperscript, TZyGlyph::Superscript, &TZyCaptionEdit::Superscript,
     &TZyCaptionEdit::SetSuperscript}};

/// Whether the keyboard is in a control, or in the list that it has open.
bool HasKeyboard(TWinControl& Control) {
  if (!Control.HasWidget()) return false;
  for (const QWidget* Each = QApplication::focusWidget(); Each != nullptr; Each = Each->parentWidget())
    if (Each == Control.Widget()) return true;
  return false;
}

}  // namespace

TZySettingsForm::TZySettingsForm(TComponent* Owner, const char* PagesName, TZyText Title) : TForm(Owner) {
  constexpr int FirstWidth = 460, FirstHeight = 640;
  constexpr float MostPoints = 9;
  SetCaption(LoadResString(Title));
  TForm::SetBounds(0, 0, FirstWidth, FirstHeight);
  SetShowHint(true);
  AddStyleBar();
  FSecondLine = AddPart<TPanel>(*this, *this, "SecondLineToolbarsPanel");
  AddUndoBar();
  FPages = AddPart<TPageControl>(*this, *this, PagesName);
  AddPart<TStatusBar>(*this, *this, "ErrorStatus")->SetAlign(alNone);
  TakeMainFont(*this, MostPoints);
  FIdle.SetOnIdle([this](TObject*, bool& Done) {
    Done = true;
    if (Visible() && !IsDestroying()) Idle();
  });
}

TZySettingsForm::~TZySettingsForm() { Destroying(); }

// --- Bars -----------------------------------------------------------------------------------------------------------

void TZySettingsForm::AddStyleBar() {
  FStyleBar = AddPart<TToolBar>(*this, *this, "StyleToolBar");
  FStyleBar->SetAlign(alNone);
  for (const TStyleButton& Each : StyleButtons) {
    auto* const Button = AddToolButton(*this, *FStyleBar, Each.Name, Each.Hint, Each.Glyph, [this, &Each] {
      ChangeStyle([&Each](TZyCaptionEdit& Edit) { (Edit.*Each.Set)(!(Edit.*Each.Get)()); });
    });
    Button->SetGroupIndex(static_cast<int>(FStyleButtons.size()) + 1);
    Button->SetAllowAllUp(true);
    FStyleButtons.push_back(Button);
  }
  FColorPick = AddPart<TZyColorPickCombo>(*this, *FStyleBar, "SelColorPick", _sStyleColor);
  FColorPick->SetEnableAlpha(false);
  FColorPick->SetDirectlyShowTuneColors(false);
  FColorPick->SetDialogTitle(LoadResString(_sTuneColors));
  FColorPick->SetOtherBtnCaption(LoadResString(_sPickerOther));
  FColorPick->SetOnChanged([this](TObject*) {
    ChangeStyle([this](TZyCaptionEdit& Edit) { Edit.SetSelColor(TColorToARGB(FColorPick->AsTColor())); });
  });
  FFontsCombo = AddPart<TComboBox>(*this, *FStyleBar, "FontsCombo", _sStyleFont);
  FFontsCombo->SetStyle(csOwnerDrawFixed);
  GetInstalledFontNames(&FFontsCombo->Items());
  FFontsCombo->SetOnDrawItem([this](TObject*, Graphics& Canvas, int Index, const TRect& Box, TOwnerDrawState State) {
    constexpr int ButtonText = 18;
    constexpr float Points = 9, Inset = 3;
    const bool IsClosed = State.Contains(odComboBoxEdit);
    const ARGB Color = IsClosed ? SystemColor(ButtonText) : DrawItemBack(Canvas, Box, State.Contains(odSelected));
    if (Index < 0 || Index >= FFontsCombo->Items().Count()) return;
    const std::string Family = FFontsCombo->Items().Get(Index);
    const Font Face(Family, Points, {});
    const float Top = static_cast<float>(Box.Top + Box.Bottom) / 2 - Face.GetHeight() / 2;
    Canvas.DrawString(Family, Face, SolidBrush(Color), static_cast<float>(Box.Left) + Inset, Top);
  });
  FFontsCombo->SetOnSelect(
      [this](TObject*) { ChangeStyle([this](TZyCaptionEdit& Edit) { Edit.SetFontName(FFontsCombo->Text()); }); });
  FFontsCombo->SetOnKeyPress([this](TObject*, char32_t& Key) { ToFirstLetter(Key); });
}

void TZySettingsForm::AddUndoBar() {
  auto* const Bar = AddPart<TToolBar>(*this, *FSecondLine, "UndolBar");
  Bar->SetAlign(alNone);
  const auto Add = [&](TZyDropDnButton* Button, const char* ButtonName, TZyText HintText) {
    Button->SetName(ButtonName);
    Button->SetHint(LoadResString(HintText));
    Button->SetParent(Bar);
    Button->SetAlign(alLeft);
    Button->SetOnMouseDown([this](TObject*, TMouseButton, TShiftState, int, int) { BeforeUndo(); });
    FUndoButtons.push_back(Button);
  };
  Add(new TZyUndoButton(this), "UndoBtn", _sUndoChanges);
  Add(new TZyRedoButton(this), "RedoBtn", _sRedoChanges);
  Bar->SetTabStop(true);
}

/// The next family that begins with the letter.
void TZySettingsForm::ToFirstLetter(char32_t& Letter) {
  const auto Lower = [](char32_t Each) { return Each >= 'A' && Each <= 'Z' ? Each - 'A' + 'a' : Each; };
  for (int Index = 0; Index < FFontsCombo->Items().Count(); ++Index) {
    const std::string Family = FFontsCombo->Items().Get(Index);
    if (Family.empty() || Lower(static_cast<unsigned char>(Family.front())) != Lower(Letter)) continue;
    Letter = 0;
    FFontsCombo->SetItemIndex(Index);
    if (const TNotifyEvent Chosen = FFontsCombo->OnSelect()) Chosen(FFontsCombo);
    return;
  }
}

// --- Styles of captions ---------------------------------------------------------------------------------------------

TZyCaptionEdit* TZySettingsForm::SelectedEdit() const {
  return static_cast<TZyCaptionEdit*>(TPersistent::FromLiveHandle(FSelectedEdit));
}

void TZySettingsForm::WatchCaptions(TZySettingsFrame& Frame) {
  for (TComponent* Each : Frame.Components()) {
    auto* const Edit = dynamic_cast<TZyCaptionEdit*>(Each);
    if (Edit == nullptr) continue;
    FEdits.push_back(Edit->LiveHandle());
    const auto Tell = [this, Edit](TObject*) { CaptionEditSelectionChange(*Edit); };
    Edit->SetOnEnter(Tell);
    Edit->SetOnSelectionChange(Tell);
  }
}

void TZySettingsForm::CaptionEditSelectionChange(TZyCaptionEdit& Edit) {
  const TScopedValue Shows(FCanSet, false);
  FColorPick->SetActiveColor(Edit.SelColor());
  FFontsCombo->SetItemIndex(FFontsCombo->Items().IndexOf(Edit.FontName()));
  for (std::size_t i = 0; i < FStyleButtons.size(); ++i) FStyleButtons[i]->SetDown((Edit.*StyleButtons[i].Get)());
}

/// Nothing while the bar is being filled. The keyboard goes back to the edit.
void TZySettingsForm::ChangeStyle(const std::function<void(TZyCaptionEdit&)>& Change) {
  TZyCaptionEdit* const Edit = SelectedEdit();
  if (!FCanSet || Edit == nullptr) return;
  const std::uint64_t Alive = LiveHandle();
  {
    const TScopedValue Shows(FCanSet, false);
    Change(*Edit);
  }
  if (FromLiveHandle(Alive) == nullptr || SelectedEdit() != Edit) return;
  if (Edit->CanFocus() && Edit->HasWidget()) Edit->SetFocus();
  CaptionEditSelectionChange(*Edit);
}

void TZySettingsForm::ShowStyle(bool IsEnabled) {
  FStyleBar->SetEnabled(IsEnabled);
  for (TToolButton* Button : FStyleButtons) {
    Button->SetEnabled(IsEnabled);
    if (!IsEnabled) Button->SetDown(false);
  }
  FColorPick->SetEnabled(IsEnabled);
  FFontsCombo->SetEnabled(IsEnabled);
}

/// What the program and its calculations change shows, too, but not under a list that is dropped down.
void TZySettingsForm::Follow() {
  const TTabSheet* const Page = Pages().ActivePage();
  if (Page == nullptr || !FCanSet || QApplication::activePopupWidget() != nullptr) return;
  const auto Look = [](const TWinControl& Box, const auto& LookInto) -> bool {
    return std::ranges::any_of(Box.Controls(), [&](TControl* Control) {
      auto* const Part = dynamic_cast<TWinControl*>(Control);
      if (Part == nullptr || !Part->Visible()) return false;
      auto* const Frame = dynamic_cast<TZySettingsFrame*>(Part);
      return (Frame != nullptr && Frame->IsOutdated()) || LookInto(*Part, LookInto);
    });
  };
  if (Look(*Page, Look)) UpdateControls();
}

void TZySettingsForm::Idle() {
  if (Visible()) Follow();
  if (FWatch != nullptr) FWatch->Renew();
  bool IsEnabled = SelectedEdit() != nullptr && (HasKeyboard(*FColorPick) || HasKeyboard(*FFontsCombo));
  std::erase_if(FEdits, [](std::uint64_t Each) { return FromLiveHandle(Each) == nullptr; });
  for (const std::uint64_t Each : FEdits) {
    auto* const Edit = static_cast<TZyCaptionEdit*>(FromLiveHandle(Each));
    if (!HasKeyboard(*Edit)) continue;
    FSelectedEdit = Each;
    IsEnabled = true;
  }
  if (FStyleBar->Enabled() != IsEnabled || FFontsCombo->Enabled() != IsEnabled) ShowStyle(IsEnabled);
}

// --- Pages ----------------------------------------------------------------------------------------------------------

TTabSheet& TZySettingsForm::AddPage(const char* PageName, const std::string& Title) {
  auto* const Page = new TTabSheet(this);
  if (PageName != nullptr) Page->SetName(PageName);
  Page->SetCaption(Title);
  Page->SetParent(FPages);
  return *Page;
}

void TZySettingsForm::AddFrame(TTabSheet& Page, TZySettingsFrame& Frame, const char* FrameName) {
  Frame.SetName(FrameName);
  Frame.SetParent(&Page);
  WatchCaptions(Frame);
  if (Page.HasWidget()) ArrangePage(Page);
}

TZySettingsFrame* TZySettingsForm::FrameOn(const TTabSheet* Page, std::string_view FrameName) {
  return Page == nullptr ? nullptr : dynamic_cast<TZySettingsFrame*>(Page->FindComponent(FrameName));
}

// --- Undo -----------------------------------------------------------------------------------------------------------

void TZySettingsForm::TakeUndoStack(TZyUndoStack* Value) {
  FWatch.reset();
  FUndoStack = Value;
  for (TZyDropDnButton* Button : FUndoButtons) Button->SetUndoStack(Value);
  if (Visible()) Watch();
}

void TZySettingsForm::Watch() {
  if (FUndoStack == nullptr || FWatch != nullptr) return;
  FWatch = std::make_unique<TZyUndoWatch>(*FUndoStack, [this] {
    for (const TTabSheet* Page : Pages().Pages())
      for (TControl* Each : Page->Controls())
        if (auto* const Frame = dynamic_cast<TZySettingsFrame*>(Each)) Frame->ForgetTyping();
    UpdateControls();
  });
}

// --- Window ---------------------------------------------------------------------------------------------------------

void TZySettingsForm::DoShow() {
  Inherited::DoShow();
  Watch();
}

void TZySettingsForm::Activate() {
  Inherited::Activate();
  if (FCanSet && !FAsDesigner) UpdateControls();
}

void TZySettingsForm::CMVisibleChanged() {
  Inherited::CMVisibleChanged();
  if (Visible() || IsDestroying()) return;
  FWatch.reset();
  Hidden();
}

void TZySettingsForm::KeyDown(TKey& Key, TShiftState Shift) {
  Inherited::KeyDown(Key, Shift);
  if (Key != vkEscape || !Shift.Empty()) return;
  Key = 0;
  Close();
}

}  // namespace zy
