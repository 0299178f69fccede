#include "dialogs/frames/ZyFillPaletteFrame.h"

#include <tuple>

#include "dialogs/controls/ZyAreaStyles.h"
#include "dialogs/controls/ZyColorPickCombo.h"
#include "dialogs/frames/ZyMoveButtons.h"
#include "platform/framework/TPropInfo.h"
#include "texts/ZySettingsTexts.h"

namespace zy {

ZY_PUBLISHED(TZyFillPaletteFrame, TZySettingsFrame, Published<&Self::Palette, &Self::SetPalette>("Palette").NotStored())

/// Access keys are those of the frame around it.
TZyFillPaletteFrame::TZyFillPaletteFrame(TComponent* Owner)
    : TZySettingsFrame(Owner, TZyFillSettings::StaticClassInfo(), true) {
  constexpr int ListHeight = 130, ItemHeight = 20, Columns = 6, Rows = 9, Edge = 4;
  AddPanel("PalettePanel");
  PaletteList = new TZyDragListBox(this);
  PaletteList->SetName("PaletteList");
  PaletteList->SetHint(LoadResString(_sPaletteHint));
  PaletteList->SetStyle(lbOwnerDrawFixed);
  PaletteList->SetItemHeight(ItemHeight);
  PaletteList->SetBounds(0, 0, PaletteList->Width(), ListHeight);
  PaletteList->SetOnDrawItem([this](TObject*, Graphics& Canvas, int Index, const TRect& Box, TOwnerDrawState State) {
    DrawEntry(Canvas, Index, Box, State);
  });
  PaletteList->SetOnClick([this](TObject*) { UpdateControls(); });
  PaletteList->OnDragged = [this](int From, int To) { UserActs([=, this] { Move(From, To); }); };
  AddWide(*PaletteList);
  AddLine();
  using enum TZyDragListBox::TMove;
  const std::tuple<const char*, TZyText, TZyGlyph, TZyDragListBox::TMove> Moves[] = {
      {"TopButton", _sPaletteTop, TZyGlyph::Top, Top},
      {"UpButton", _sPaletteUp, TZyGlyph::Up, Up},
      {"DnButton", _sPaletteDown, TZyGlyph::Down, Down},
      {"BottomButton", _sPaletteBottom, TZyGlyph::Bottom, Bottom}};
  for (const auto& [ButtonName, HintText, Glyph, Way] : Moves)
    AddTool(ButtonName, HintText, Glyph, [this, Way = Way] {
      const int From = PaletteList->ItemIndex();
      if (const auto To = TZyDragListBox::Target(Way, From, PaletteList->Items().Count())) Move(From, *To);
    });
  AddTool("DeleteButton", _sPaletteDelete, TZyGlyph::Delete, [this] { Delete(); });
  AddTool("AddButton", _sPaletteAdd, TZyGlyph::Add, [this] { Add(); });
  AddLine(_sSeriesAreaColors);
  AddColor("ForeColorPick", "ForeColor");
  AddColor("BackColorPick", "BackColor");
  AddLine(_sSeriesHatch);
  auto& Styles = AddAreaStyles("AreaStylesList", "AreaStyle");
  Styles.SetHint(LoadResString(_sPaletteStyleHint));
  Styles.SetColumns(Columns);
  Styles.SetBounds(0, 0, Styles.Width(), Rows * ItemHeight + Edge);
}

TZyFillPaletteFrame::~TZyFillPaletteFrame() { Destroying(); }

void TZyFillPaletteFrame::SetPalette(TZyFillPalette* Value) {
  FPalette = Value;
  SetUndoStack(Value == nullptr ? nullptr : Value->UndoStack());
  FillList(0);
  UpdateControls();
}

/// One placeholder for each entry.
void TZyFillPaletteFrame::FillList(int Index) {
  const int Count = FPalette == nullptr ? 0 : FPalette->Count();
  PaletteList->Items().BeginUpdate();
  while (PaletteList->Items().Count() > Count) PaletteList->Items().Delete(0);
  while (PaletteList->Items().Count() < Count) PaletteList->Items().Add("1");
  PaletteList->Items().EndUpdate();
  PaletteList->SetItemIndex(std::min(Index, Count - 1));
}

/// Entries come and go otherwise too.
void TZyFillPaletteFrame::UpdateControls() {
  const int Count = FPalette == nullptr ? 0 : FPalette->Count();
  if (PaletteList->Items().Count() != Count) FillList(std::max(PaletteList->ItemIndex(), 0));
  Inherited::UpdateControls();
  PaletteList->Invalidate();
}

std::vector<TPersistent*> TZyFillPaletteFrame::Targets() const {
  const int Index = PaletteList->ItemIndex();
  if (FPalette == nullptr || Index < 0 || Index >= FPalette->Count()) return {};
  return {&FPalette->Items(Index)};
}

void TZyFillPaletteFrame::ControlsUpdated() { PaletteList->Invalidate(); }

void TZyFillPaletteFrame::Move(int From, int To) {
  if (FPalette == nullptr) return;
  FPalette->Move(From, To);
  PaletteList->SetItemIndex(To);
}

void TZyFillPaletteFrame::Delete() {
  const int Index = PaletteList->ItemIndex();
  if (FPalette == nullptr || Index < 0) return;
  FPalette->Delete(Index);
  FillList(Index);
}

void TZyFillPaletteFrame::Add() {
  if (FPalette == nullptr) return;
  FPalette->Add(TZyFillSettings());
  FillList(FPalette->Count() - 1);
}

void TZyFillPaletteFrame::DrawEntry(Graphics& Canvas, int Index, const TRect& Box, TOwnerDrawState State) const {
  constexpr int Left = 3, Top = 1, LessWidth = 8, LessHeight = 3;
  DrawItemBack(Canvas, Box, PaletteList->IsMarked(Index, State));
  if (FPalette == nullptr || Index < 0 || Index >= FPalette->Count()) return;
  TZyLegendItemDrawArgs Args;
  Args.Graphics = &Canvas;
  Args.Index = Index;
  Args.Rect = {Box.Left + Left, Box.Top + Top, Box.Right - LessWidth + Left, Box.Bottom - LessHeight + Top};
  FPalette->Items(Index).DrawListItem(Args);
}

}  // namespace zy
