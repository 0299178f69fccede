#include "dialogs/frames/ZySelectSeriesFrame.h"

#include <QVBoxLayout>
#include <QWidget>

#include "annotations/captions/ZyRichCaption.h"
#include "dialogs/controls/ZyDialogParts.h"
#include "dialogs/controls/ZyStyleSamples.h"
#include "dialogs/frames/ZyObjectItems.h"
#include "platform/controls/TCustomListBox.h"
#include "platform/framework/TPropInfo.h"
#include "series/ZySeries.h"

namespace zy {

ZY_PUBLISHED(TZySelectSeriesFrame, TFrame, Published<&Self::Graph, &Self::SetGraph>("Graph"),
             Published<&Self::FromIncludeInLegend, &Self::SetFromIncludeInLegend>("FromIncludeInLegend", false),
             Published<&Self::Font>("Font").StoredIf<&Self::HasOwnFont>(),
             Published<&Self::ParentFont, &Self::SetParentFont>("ParentFont", true),
             Published<&Self::ItemWidth, &Self::SetItemWidth>("ItemWidth", 50),
             Published<&Self::ItemHeight, &Self::SetItemHeight>("ItemHeight", 20))

TZySelectSeriesFrame::TZySelectSeriesFrame(TComponent* Owner)
    : TFrame(Owner), SeriesCheckListBox(AddPart<TCheckListBox>(*this, *this, "SeriesCheckListBox")) {
  constexpr int FirstHeight = 20;
  SeriesCheckListBox->SetTabStop(true);
  SeriesCheckListBox->SetStyle(lbOwnerDrawFixed);
  SeriesCheckListBox->SetItemHeight(FirstHeight);
  SeriesCheckListBox->SetOnClickCheck([this](TObject*) { ClickCheck(); });
  SeriesCheckListBox->SetOnDrawItem([this](TObject*, Graphics& Canvas, int Index, const TRect& Box,
                                           TOwnerDrawState State) { DrawItem(Canvas, Index, Box, State); });
  FFont.OnNeedsResize = [this] {
    FParentsFont.FontChanged();
    SeriesCheckListBox->Invalidate();
  };
  FParentsFont.Take();
}

TZySelectSeriesFrame::~TZySelectSeriesFrame() { Destroying(); }

void TZySelectSeriesFrame::SetGraph(TZyGraph2D* Value) {
  FGraph = Value;
  UpdateList();
}

void TZySelectSeriesFrame::SetFromIncludeInLegend(bool Value) {
  FFromIncludeInLegend = Value;
  UpdateList();
}

void TZySelectSeriesFrame::SetItemWidth(int Value) {
  FItemWidth = Value;
  SeriesCheckListBox->Invalidate();
}

int TZySelectSeriesFrame::ItemHeight() const { return SeriesCheckListBox->ItemHeight(); }

void TZySelectSeriesFrame::SetItemHeight(int Value) { SeriesCheckListBox->SetItemHeight(Value); }

void TZySelectSeriesFrame::ParentFontChanged() {
  Inherited::ParentFontChanged();
  FParentsFont.Take();
}

void TZySelectSeriesFrame::Loaded() {
  Inherited::Loaded();
  if (!IsDesigning()) UpdateList();
}

void TZySelectSeriesFrame::ArrangeWidgets() {
  Inherited::ArrangeWidgets();
  auto* const Whole = new QVBoxLayout(Widget());
  Whole->setContentsMargins(0, 0, 0, 0);
  Whole->addWidget(SeriesCheckListBox->Widget());
}

TZySeries* TZySelectSeriesFrame::SeriesAt(int Index) const {
  if (Index < 0 || Index >= static_cast<int>(FSeries.size())) return nullptr;
  return static_cast<TZySeries*>(FromLiveHandle(FSeries[static_cast<std::size_t>(Index)]));
}

void TZySelectSeriesFrame::UpdateList() {
  FSeries.clear();
  FTicked.clear();
  SeriesCheckListBox->Items().Clear();
  if (FGraph == nullptr) return;
  const auto IsShown = [this](const TZySeries& Series) {
    if (Series.Visible() || !FFromIncludeInLegend) return Series.Visible();
    for (const TZySeries* Other : FGraph->RelatedSeries())
      if (Other->MergeLegendItemWith() == &Series && Other->Visible()) return true;
    return false;
  };
  for (const TZySeries* Series : FGraph->RelatedSeries()) {
    if (FFromIncludeInLegend && !Series->IncludeInLegend()) continue;
    FSeries.push_back(Series->LiveHandle());
    FTicked.push_back(IsShown(*Series));
    SeriesCheckListBox->SetChecked(SeriesCheckListBox->Items().Add(PlainName(*Series)), FTicked.back());
  }
}

/// Handlers of the application may take series away.
void TZySelectSeriesFrame::ClickCheck() {
  for (std::size_t Place = 0; Place < FTicked.size(); ++Place) {
    const bool IsOn = SeriesCheckListBox->Checked(static_cast<int>(Place));
    if (FTicked[Place] == IsOn) continue;
    FTicked[Place] = IsOn;
    TZySeries* const Series = SeriesAt(static_cast<int>(Place));
    if (Series == nullptr || FGraph == nullptr) return;
    std::vector<std::uint64_t> Merged;
    for (const TZySeries* Other : FGraph->RelatedSeries())
      if (FFromIncludeInLegend && Other->MergeLegendItemWith() == Series) Merged.push_back(Other->LiveHandle());
    Series->SetVisible(IsOn);
    for (const std::uint64_t Handle : Merged)
      if (auto* const Other = static_cast<TZySeries*>(FromLiveHandle(Handle))) Other->SetVisible(IsOn);
    return;
  }
}

void TZySelectSeriesFrame::DrawItem(Graphics& Canvas, int Index, const TRect& Box, TOwnerDrawState State) {
  constexpr int Left = 2, Top = 1, Less = 4;
  TZySeries* const Series = SeriesAt(Index);
  if (Series == nullptr) return;
  DrawItemGround(Canvas, Box);
  TZyLegendItemDrawArgs Args;
  Args.Graphics = &Canvas;
  Args.Index = Index;
  Args.Rect = {Box.Left + Left, Box.Top + Top, Box.Left + Left + FItemWidth - Less, Box.Bottom - Top};
  FFromIncludeInLegend ? Series->DrawMergedItems(Args) : Series->DrawListItem(Args);
  TZyRichCaptionObject Caption;
  Caption.CaptionFont().Assign(&FFont);
  Caption.SetCaption(Series->ToString());
  Caption.Alignment = TZyContentAlignment::MiddleLeft;
  Caption.X = static_cast<float>(Box.Left + FItemWidth);
  Caption.Y = static_cast<float>(Box.Top + Box.Bottom) / 2;
  Caption.ParseIfNeeded();
  Caption.PaintGr(Canvas);
  if (State.Contains(odSelected)) DrawItemFrame(Canvas, Box);
}

}  // namespace zy
