#include "annotations/ZyLegend.h"

#include <algorithm>
#include <unordered_set>

#include "persistence/ZyIO.h"
#include "platform/framework/TPropInfo.h"
#include "series/ZySeries.h"
#include "undo/ZyUndoGroup.h"

namespace zy {

ZY_PUBLISHED(TZyLegend, TZyCustomLegend, Published<&TZyLegend::Graph, &TZyLegend::SetGraph>("Graph", _sLegendGraph),
             Published<&TZyLegend::ItemsOrderList, &TZyLegend::SetItemsOrderList>("ItemsOrderList",
                                                                                  _sLegendItemsOrderList),
             Published<&TZyLegend::Position, &TZyLegend::SetPosition>("Position", TZyLegendPosition::FreeFloating,
                                                                      _sLegendPosition),
             Published<&TZyLegend::StartFreeFloatingMovingKeys, &TZyLegend::SetStartFreeFloatingMovingKeys>(
                 "StartFreeFloatingMovingKeys", TShiftState{ssLeft}),
             Published<&TZyLegend::OnStartFreeFloating, &TZyLegend::SetOnStartFreeFloating>("OnStartFreeFloating"))

TZyLegend::TZyLegend(TComponent* Owner) : TZyCustomLegend(Owner) {
  FItemsOrderList.OnChanging = [this](TObject*) {
    if (UndoStack() != nullptr) UndoStack()->PushProperty(this, "ItemsOrderList");
  };
  FItemsOrderList.OnChange = [this](TObject*) { Modified(); };
}

TZyLegend::~TZyLegend() {
  FDrag.End();
  Destroying();
  TakeGraph(nullptr);
}

// --- Properties -----------------------------------------------------------------------------------------------------

void TZyLegend::SetGraph(TZyGraph2D* Value) {
  if (Value == FGraph) return;
  const bool IsLost = FGraph != nullptr && FGraph->IsDestroying();
  if (UndoStack() != nullptr && !IsLost) UndoStack()->PushProperty(this, "Graph");
  TakeGraph(Value);
}

/// Without a step of undo. Joins the list of the graph again when a reader has emptied it.
void TZyLegend::TakeGraph(TZyGraph2D* Value) {
  if (FGraph != nullptr && FGraph != Value && !FGraph->IsDestroying()) FGraph->RemoveRelatedLegend(this);
  FGraph = Value;
  if (Value != nullptr) {
    Value->AddRelatedLegend(this);
    SetUndoStack(Value->UndoStack());
  }
  Modified();
}

void TZyLegend::JoinGraph(TZyCustomGraph& Graph) { TakeGraph(dynamic_cast<TZyGraph2D*>(&Graph)); }

void TZyLegend::SetParent(TWinControl* Value) {
  if (Value != Parent()) EndDrag(false);
  TZyCustomLegend::SetParent(Value);
  if (!IsDesigning() || IsLoading() || IsDestroying() || FGraph != nullptr || Owner() == nullptr) return;
  auto* Found = dynamic_cast<TZyGraph2D*>(Value);
  for (TComponent* Component : Owner()->Components())
    if (Found == nullptr) Found = dynamic_cast<TZyGraph2D*>(Component);
  if (Found != nullptr) SetGraph(Found);
}

void TZyLegend::SetItemsOrderList(const TStringList* Value) {
  const TStringList None;
  FItemsOrderList.Assign(Value != nullptr ? Value : &None);
}

/// The order of the items follows from the place, and is not always what it was made to be afterwards: undo writes both
/// back, and the place itself where the legend floated. A stored form tells the order by itself, in front of the place.
void TZyLegend::SetPosition(TZyLegendPosition Value) {
  using enum TZyLegendPosition;
  if (Value == FPosition) return;
  EndDrag(true);
  {
    const TZyUndoGroup Group(UndoStack(), _sLegendPosition);
    if (UndoStack() != nullptr) {
      if (FPosition == FreeFloating)
        for (const char* Name : {"Left", "Top"}) UndoStack()->PushProperty(this, Name);
      for (const char* Name : {"ItemsOrder", "Position"}) UndoStack()->PushProperty(this, Name);
    }
  }
  FPosition = Value;
  const bool IsAcross = Value == BottomCenterOfGraph || Value == BottomCenterOfAxis || Value == TopCenterOfGraph ||
                        Value == TopCenterOfAxis;
  if (Value != FreeFloating) OrderByPlace(IsAcross);
  FRecalculate = true;
  if (FGraph != nullptr) FGraph->Modified();
  MakeRoom(true);
  Invalidate();
}

void TZyLegend::SetLegendCaptionColorFrom(TZyLegendCaptionColorFrom Value) {
  if (Value == FLegendCaptionColorFrom) return;
  FLegendCaptionColorFrom = Value;
  SetColors();
  DoInvalidate();
}

// --- Change protocol ------------------------------------------------------------------------------------------------

void TZyLegend::Modified() {
  if (IsDestroying()) return;
  FRecalculate = true;
  MakeRoom(false);
  Invalidate();
}

/// Has the chart around a docked legend laid out, or around one that comes or goes.
void TZyLegend::MakeRoom(bool Anyway) {
  auto* const Chart = dynamic_cast<TZyGraph2D*>(Parent());
  if (Chart != nullptr && (Anyway || FPosition != TZyLegendPosition::FreeFloating)) Chart->Modified();
}

void TZyLegend::PreparePaint() {
  if (IsDestroying()) return;
  if (FGraph == nullptr)
    if (auto* const Found = dynamic_cast<TZyGraph2D*>(Parent())) TakeGraph(Found);
  if (FGraph == nullptr && FRecalculate) NewList();  // which empties it
  if (FGraph == nullptr || FGraph->Updating()) return;
  if (IsLoading() || FGraph->IsLoading()) return;  // the series may not be there yet
  if (FRecalculate) Recalculate();
  SetColors();
}

void TZyLegend::Resize() {
  if (FDrag.IsActive()) return;
  TZyCustomLegend::Resize();
}

void TZyLegend::CMVisibleChanged() {
  if (!Visible()) EndDrag(false);
  TZyCustomLegend::CMVisibleChanged();
  MakeRoom(false);
}

// --- Items ----------------------------------------------------------------------------------------------------------

/// The graph that holds the X axis which others may share.
TZyGraph2D& TZyLegend::SourceGraph() const {
  if (FGraph->NeedsRecalculate()) FGraph->CheckCoupled();
  TZyGraph2D* const Master = FGraph->MasterGraph();
  if (Master == nullptr) return *FGraph;
  if (Master->NeedsRecalculate()) Master->CheckCoupled();
  return *Master;
}

std::vector<TZySeries*> TZyLegend::ListedSeries() const {
  std::vector<TZySeries*> Result;
  std::unordered_set<const TZySeries*> Known;
  const auto List = [&](TZySeries* Series) {
    if (Series->IncludeInLegend() && Known.insert(Series).second) Result.push_back(Series);
  };
  for (int Index = 0; Index < FItemsOrderList.Count(); ++Index) {
    auto* const Series = dynamic_cast<TZySeries*>(GetComponentFromRef(FItemsOrderList.Get(Index)));
    if (Series != nullptr && FGraph->RelatedSeries().Contains(Series)) List(Series);
  }
  const auto ListShown = [&](const TZyGraph2D& Graph) {
    std::unordered_set<const TZySeries*> Partners;  // whose items show a visible series
    for (const TZySeries* Series : Graph.RelatedSeries())
      if (Series->Visible() && Series->MergeLegendItemWith() != nullptr) Partners.insert(Series->MergeLegendItemWith());
    for (TZySeries* Series : Graph.RelatedSeries())
      if (Series->Visible() || Partners.contains(Series)) List(Series);
  };
  const TZyGraph2D& Source = SourceGraph();
  ListShown(Source);
  for (const TZyGraph2D* Child : Source.ChildGraphs()) ListShown(*Child);
  return Result;
}

void TZyLegend::NewList() {
  FItems.clear();
  SetCaptions({});
  FRecalculate = true;
  if (FGraph == nullptr) return;
  for (TZySeries* Series : ListedSeries()) FItems.emplace_back(this) = Series;
  std::vector<TZyRichCaption> Texts;
  for (const TRef<TZySeries>& Item : FItems) {  // a handler may free series, but has no way to this list
    const int Index = static_cast<int>(Texts.size());
    Texts.push_back(Item == nullptr ? TZyRichCaption() : AskCaption(Item, Item->Caption(), Index));
  }
  SetCaptions(Texts);
}

void TZyLegend::CheckItemHeight() {
  float Symbols = 0;
  const auto Take = [&Symbols](const TZySeries* Series) {
    if (Series != nullptr && Series->IncludeInLegend()) Symbols = std::max(Symbols, Series->GetItemHeight());
  };
  for (const TRef<TZySeries>& Item : FItems) Take(Item);
  if (FGraph != nullptr && FItems.empty())
    for (const TZySeries* Series : FGraph->RelatedSeries()) Take(Series);
  TakeItemHeight(Symbols);
}

void TZyLegend::SetColors() {
  using enum TZyLegendCaptionColorFrom;
  for (std::size_t Index = 0; Index < FLegendCaptions.size() && Index < FItems.size(); ++Index) {
    TZySeries* const Series = FItems[Index];
    if (Series == nullptr) continue;
    TZyColor Color = 0;
    if (FLegendCaptionColorFrom == SeriesLineColor) Color = Series->Line().Color();
    if (FLegendCaptionColorFrom == SeriesAreaForeColor) Color = Series->Area().ForeColor();
    FLegendCaptions[Index]->SetColorOverride(Color);
  }
}

void TZyLegend::PaintItems(Graphics& Gr) {
  for (std::size_t Index = 0; Index < FLegendCaptions.size() && Index < FItems.size(); ++Index) {
    TZySeries* const Series = FItems[Index];
    if (Series == nullptr || !Series->IncludeInLegend()) continue;
    PaintItem(Gr, Index, Series, static_cast<int>(Index),
              [Series](const TZyLegendItemDrawArgs& e) { Series->DrawMergedItems(e); });
  }
}

// --- Drags ----------------------------------------------------------------------------------------------------------

void TZyLegend::Paint(Graphics& Gr) {
  if (FDrag.IsActive()) {
    PaintGr(Gr);
  } else {
    TZyCustomLegend::Paint(Gr);
  }
}

bool TZyLegend::IsMovable() const { return FPosition == TZyLegendPosition::FreeFloating && IsPaintedByParent(); }

void TZyLegend::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
  const std::uint64_t Alive = LiveHandle();
  if (IsMovable() && Shift == FStartMoveKeys) {
    EndDrag(true);
    Invalidate();  // what the picture of the graph shows of it
    FDrag.Begin({X, Y});
    if (const TNotifyEvent Handler = FOnStartFreeFloating) Handler(this);
  }
  if (FromLiveHandle(Alive) != nullptr) TZyCustomLegend::MouseDown(Button, Shift, X, Y);
}

void TZyLegend::MouseMove(TShiftState Shift, int X, int Y) {
  if (FDrag.IsLost(Shift)) EndDrag(true);
  if (FDrag.IsActive()) MoveBy(FDrag.Origin(), FDrag.WayTo({X, Y}));
  TZyCustomLegend::MouseMove(Shift, X, Y);
}

void TZyLegend::MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) {
  EndDrag(true);
  TZyCustomLegend::MouseUp(Button, Shift, X, Y);
}

void TZyLegend::KeyDown(TKey& Key, TShiftState Shift) {
  if (Key == vkEscape && FDrag.IsActive()) {
    EndDrag(false);
    Key = 0;
  }
  if (Key == 0 || !IsMovable() || FDrag.IsByMouse()) return;
  const auto Way = TZyControlDrag::WayOf(Key, Shift);
  if (!Way && Key != vkShift) EndDrag(true);
  if (!Way) return;
  if (!FDrag.IsActive()) {
    Invalidate();  // what the picture of the graph shows of it
    FDrag.BeginByKeys();
  }
  MoveBy({Left(), Top()}, *Way);
  Key = 0;
}

void TZyLegend::MoveBy(TPoint From, TPoint Way) { SetBounds(From.X + Way.X, From.Y + Way.Y, Width(), Height()); }

/// The step is logged with the old place in place, and what the graph's picture did not show is painted into it again.
void TZyLegend::EndDrag(bool Keeps) {
  if (!FDrag.IsActive()) return;
  const TPoint Old = FDrag.Origin(), New{Left(), Top()};
  MoveBy(Old, {});
  FDrag.End();
  if (Keeps && New != Old) {
    const TZyUndoGroup Group(UndoStack(), _sLegendPosition);
    if (UndoStack() != nullptr)
      for (const char* Name : {"Left", "Top"}) UndoStack()->PushProperty(this, Name);
    MoveBy(New, {});
  }
  Invalidate();
}

}  // namespace zy
