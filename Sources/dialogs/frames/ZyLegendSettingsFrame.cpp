#include "dialogs/frames/ZyLegendSettingsFrame.h"

#include <algorithm>

#include "graph/ZyGraph2D.h"
#include "persistence/ZyIO.h"
#include "platform/framework/TPropInfo.h"
#include "series/ZySeries.h"
#include "texts/ZySettingsTexts.h"
#include "undo/ZyUndoGroup.h"

namespace zy {

ZY_PUBLISHED(TZyLegendSettingsFrame, TZyCustomLegendSettingsFrame)

TZyLegendSettingsFrame::TZyLegendSettingsFrame(TComponent* Owner)
    : TZyCustomLegendSettingsFrame(Owner, TZyLegend::StaticClassInfo()) {
  AddLook();
  AddTitle();
  AddGroup("LayoutGroup", _sGroupLayout);
  AddLine(_sSettingsPosition);
  AddCombo("PositionCombo", "Position", _sLegendPositions);
  AddItemsOrder();
  AddGroup("DistancesGroup", _sGroupDistances);
  AddItemDistances();
  AddGroup("OrderGroup", _sGroupOrder);
  FSeriesListBox = &AddOrderList("SeriesListBox", _sLegendOrderHint);
  FSeriesListBox->OnReordered = [this] { UserActs([this] { UpdateLayers(); }); };
  AllAdded();
}

TZyLegendSettingsFrame::~TZyLegendSettingsFrame() { Destroying(); }

void TZyLegendSettingsFrame::SetLegend(TZyLegend* Value) {
  FLegend = Value;
  SetUndoStack(Value == nullptr ? nullptr : Value->UndoStack());
  SetList();
  UpdateControls();
}

void TZyLegendSettingsFrame::ControlsUpdated() {
  Inherited::ControlsUpdated();
  CheckOrder();
}

// --- Order of the items ---------------------------------------------------------------------------------------------

/// The series of the graph that has the X axis, and of those that are coupled to it.
std::vector<TZySeries*> TZyLegendSettingsFrame::DefaultOrder() const {
  std::vector<TZySeries*> Result;
  TZyGraph2D* Graph = FLegend == nullptr ? nullptr : FLegend->Graph();
  if (Graph == nullptr) return Result;
  Graph->CheckCoupled();
  if (Graph->MasterGraph() != nullptr) Graph = Graph->MasterGraph();
  Graph->CheckCoupled();
  for (TZySeries* Series : Graph->RelatedSeries()) Result.push_back(Series);
  for (TZyGraph2D* Child : Graph->ChildGraphs())
    for (TZySeries* Series : Child->RelatedSeries()) Result.push_back(Series);
  return Result;
}

/// What the legend's list names comes first; what it names in vain is passed over.
std::vector<TZySeries*> TZyLegendSettingsFrame::OrderOfItems() const {
  const std::vector<TZySeries*> All = DefaultOrder();
  std::vector<TZySeries*> Result;
  const auto Take = [&Result](TZySeries* Series) {
    if (std::ranges::find(Result, Series) == Result.end()) Result.push_back(Series);
  };
  for (int Index = 0; FLegend != nullptr && Index < FLegend->ItemsOrderList()->Count(); ++Index) {
    auto* const Series = dynamic_cast<TZySeries*>(GetComponentFromRef(FLegend->ItemsOrderList()->Get(Index)));
    if (std::ranges::find(All, Series) != All.end()) Take(Series);
  }
  for (TZySeries* Series : All) Take(Series);
  return Result;
}

void TZyLegendSettingsFrame::SetList() {
  FSeriesListBox->ClearObjects();
  for (TZySeries* Series : OrderOfItems()) FSeriesListBox->AddObject("S", Series);
  ShowPart("OrderGroup", FSeriesListBox->ObjectCount() > 0);
  FSeriesListBox->TestSeriesItemHeight();
  FSeriesListBox->SetItemIndex(0);
}

/// Series come and go, and undo changes the order.
void TZyLegendSettingsFrame::CheckOrder() {
  const std::vector<TZySeries*> Order = OrderOfItems();
  bool IsSame = static_cast<int>(Order.size()) == FSeriesListBox->ObjectCount();
  for (std::size_t Index = 0; IsSame && Index < Order.size(); ++Index)
    IsSame = FSeriesListBox->SeriesAt(static_cast<int>(Index)) == Order[Index];
  if (!IsSame) SetList();
}

/// What comes behind the last item that is not in its own place goes without saying.
void TZyLegendSettingsFrame::UpdateLayers() {
  if (FLegend == nullptr) return;
  const std::vector<TZySeries*> All = DefaultOrder();
  int Last = FSeriesListBox->ObjectCount() - 1;
  while (Last >= 0 && Last < static_cast<int>(All.size()) &&
         FSeriesListBox->SeriesAt(Last) == All[static_cast<std::size_t>(Last)])
    --Last;
  TStringList List;
  for (int Index = 0; Index <= Last; ++Index)
    if (const TZySeries* const Series = FSeriesListBox->SeriesAt(Index)) List.Add(GetComponentRef(Series));
  const TZyUndoGroup Group(UndoStack(), _sLegendItemsOrderList);
  FLegend->SetItemsOrderList(&List);
}

}  // namespace zy
