#include "graph/ZyGraph2D.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "graph/parts/ZyGraphDialogs.h"
#include "persistence/ZyIO.h"
#include "platform/controls/InputDispatch.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/ScopedFlag.h"
#include "platform/framework/TPropInfo.h"
#include "platform/framework/WideRegisters.h"
#include "series/ZySeries.h"
#include "series/vectors/ZyDoubleVector.h"
#include "texts/Exceptions.h"
#include "undo/ZyChange.h"
#include "undo/ZyUndoGroup.h"

namespace zy {

ZY_PUBLISHED(TZyGraph2D, TZyCustomGraph,
             Published<&TZyGraph2D::ZeroOrigin, &TZyGraph2D::SetZeroOrigin>("ZeroOrigin", false, _sGraphZeroOrigin),
             Published<&TZyGraph2D::DataAreaGradient>("DataAreaGradient"),
             Published<&TZyGraph2D::DataAreaColor, &TZyGraph2D::SetDataAreaColor>("DataAreaColor", Colors::Transparent,
                                                                                  _sGraphDataAreaColor),
             Published<&TZyGraph2D::DataAreaFrame>("DataAreaFrame"),
             Published<&TZyGraph2D::MajorGridHorizontal>("MajorGridHorizontal"),
             Published<&TZyGraph2D::MinorGridHorizontal>("MinorGridHorizontal"),
             Published<&TZyGraph2D::MajorGridVertical>("MajorGridVertical"),
             Published<&TZyGraph2D::MinorGridVertical>("MinorGridVertical"),
             Published<&TZyGraph2D::PrimaryXAxis, &TZyGraph2D::SetPrimaryXAxis>("PrimaryXAxis", _sGraphPrimaryXAxis),
             Published<&TZyGraph2D::PrimaryYAxis, &TZyGraph2D::SetPrimaryYAxis>("PrimaryYAxis", _sGraphPrimaryYAxis),
             Published<&TZyGraph2D::DistanceBorderAxisTop, &TZyGraph2D::SetDistanceBorderAxisTop>(
                 "DistanceBorderAxisTop", 0.0f, _sGraphDistanceBorderAxisTop),
             Published<&TZyGraph2D::DistanceBorderAxisBottom, &TZyGraph2D::SetDistanceBorderAxisBottom>(
                 "DistanceBorderAxisBottom", 0.0f, _sGraphDistanceBorderAxisBottom),
             Published<&TZyGraph2D::DistanceBorderAxisLeft, &TZyGraph2D::SetDistanceBorderAxisLeft>(
                 "DistanceBorderAxisLeft", 0.0f, _sGraphDistanceBorderAxisLeft),
             Published<&TZyGraph2D::DistanceBorderAxisRight, &TZyGraph2D::SetDistanceBorderAxisRight>(
                 "DistanceBorderAxisRight", 0.0f, _sGraphDistanceBorderAxisRight),
             Published<static_cast<TZyZoomSettings& (TZyGraph2D::*)()>(&TZyGraph2D::Zoom)>("Zoom"))

TZyGraph2D::TZyGraph2D(TComponent* Owner)
    : TZyCustomGraph(Owner),
      FDataAreaGradient([this] { Invalidate(); }),
      FDataAreaFrame(MakeLine(Colors::Black)),
      FMajorGridHorizontal(MakeLine(Colors::Green)),
      FMinorGridHorizontal(MakeLine(Colors::Gray)),
      FMajorGridVertical(MakeLine(Colors::Green)),
      FMinorGridVertical(MakeLine(Colors::Gray)) {
  if (!IsDesigning()) {
    FHorizontalScrollBar = MakeScrollBar(sbHorizontal);
    FVerticalScrollbar = MakeScrollBar(sbVertical);
  }
  FNeedsRecalculate = true;
  FPollingThread.OnPoll = [this] { SeriesPoll(); };
}

TZyGraph2D::~TZyGraph2D() {
  if (FLeadsMove) {  // coupled graphs would wait for the end of the gesture
    SetPanning(false);
    SetMoving(FPinching, false);
  }
  Destroying();
  if (TZyGraph2D* const Master = MasterGraph()) Master->LegendsModified();  // which listed the series of this one
}

/// A line that is not shown at first.
std::unique_ptr<TZyLineSettings> TZyGraph2D::MakeLine(TZyColor Color) {
  auto Line = std::make_unique<TZyLineSettings>([this] { Invalidate(); });
  Line->SetVisible(false);
  Line->SetColor(Color);
  return Line;
}

std::vector<TZyLineSettings*> TZyGraph2D::Lines() const {
  return {FDataAreaFrame.get(), FMajorGridHorizontal.get(), FMinorGridHorizontal.get(), FMajorGridVertical.get(),
          FMinorGridVertical.get()};
}

std::vector<TZyAxis*> TZyGraph2D::Axes() const {
  std::vector<TZyAxis*> Result;
  ForEachAxis([&Result](TZyAxis& Axis) { Result.push_back(&Axis); });
  return Result;
}

// --- Properties -----------------------------------------------------------------------------------------------------

void TZyGraph2D::SetZeroOrigin(bool Value) { Change(this, FZeroOrigin, Value, "ZeroOrigin", &TZyGraph2D::Modified); }

void TZyGraph2D::SetDataAreaColor(TZyColor Value) {
  Change(this, FDataAreaColor, Value, "DataAreaColor", &TZyGraph2D::Invalidate);
}

void TZyGraph2D::SetPrimaryXAxis(TZyAxis* Value) {
  ChangeBy(this, PrimaryXAxis(), Value, "PrimaryXAxis", [this](TZyAxis* Axis) { TakePrimaryXAxis(Axis); });
}

/// The graphs of the old and of the new axis see at once who is coupled to them.
void TZyGraph2D::TakePrimaryXAxis(TZyAxis* Value) {
  TZyGraph2D* const OldMaster = MasterGraph();
  FPrimaryXAxis = Value;
  if (!FLeadsMove) FPanning = FPinching = false;  // the gesture of a graph that this one is no longer coupled to
  CheckCoupled();
  for (TZyGraph2D* Master : {OldMaster, MasterGraph()}) {
    if (Master == nullptr || Master->IsDestroying()) continue;
    Master->CheckCoupled();
    Master->LegendsModified();
    Master->Modified();
  }
  LegendsModified();
  Modified();
}

void TZyGraph2D::SetPrimaryYAxis(TZyAxis* Value) {
  Change(this, FPrimaryYAxis, Value, "PrimaryYAxis", &TZyGraph2D::Modified);
}

void TZyGraph2D::SetMargin(float& Field, float Value, const char* PropName) {
  Change(this, Field, Value, PropName, &TZyGraph2D::Modified);
}

void TZyGraph2D::SetDistanceBorderAxisTop(float Value) {
  SetMargin(FDistanceBorderAxisTop, Value, "DistanceBorderAxisTop");
}

void TZyGraph2D::SetDistanceBorderAxisBottom(float Value) {
  SetMargin(FDistanceBorderAxisBottom, Value, "DistanceBorderAxisBottom");
}

void TZyGraph2D::SetDistanceBorderAxisLeft(float Value) {
  SetMargin(FDistanceBorderAxisLeft, Value, "DistanceBorderAxisLeft");
}

void TZyGraph2D::SetDistanceBorderAxisRight(float Value) {
  SetMargin(FDistanceBorderAxisRight, Value, "DistanceBorderAxisRight");
}

void TZyGraph2D::SetUndoStack(TZyUndoStack* Value) {
  TZyCustomGraph::SetUndoStack(Value);
  for (TZySeries* Series : FRelatedSeries) Series->SetUndoStack(Value);
  for (TZyAxis* Axis : Axes()) Axis->SetUndoStack(Value);
  for (TZyLineSettings* Line : Lines()) Line->SetUndoStack(Value);
  FDataAreaGradient.SetUndoStack(Value);
  FZoom.SetUndoStack(Value);
  // A chart that undo makes anew was painted before, and what it has lost since is not made again.
  if (Value != nullptr && Value->Restoring() && (FPrimaryXAxis != nullptr || FPrimaryYAxis != nullptr)) FOnce = false;
  for (TControl* Control : Controls())
    if (auto* const Marker = dynamic_cast<IZyGraphMarker*>(Control)) Marker->SetUndoStack(Value);
}

// --- Change protocol ------------------------------------------------------------------------------------------------

void TZyGraph2D::Modified() {
  FNeedsRecalculate = true;
  const std::vector<TZyAxis*> Children = Axes();
  if (!Children.empty()) Children.front()->Modified();
  Invalidate();
}

/// Series that leave one after the other each ask for it: what all of them were told already is not told again.
void TZyGraph2D::SeriesModified() {
  if (IsDestroying()) return;
  if (!FPointsAreStale)
    for (TZySeries* Series : FRelatedSeries) Series->PointsModified();
  FPointsAreStale = true;
  if (!FPanning) Invalidate();
}

void TZyGraph2D::LegendsModified() {
  if (IsDestroying() || FTellingLegends) return;
  const TScopedValue Telling(FTellingLegends, true);  // graphs that use each other's X axes would go round in circles
  if (TZyGraph2D* const Master = MasterGraph()) Master->LegendsModified();
  for (const TZyGraph2D* Child : ChildGraphs())
    for (IZyGraphLegend* Legend : Child->RelatedLegends()) Legend->Modified();
  for (IZyGraphLegend* Legend : RelatedLegends()) Legend->Modified();
  for (IZyGraphDialog* Dialog : OpenGraphDialogs()) Dialog->ListsModified();
}

/// Runs on the control thread, some ten times a second: data that came since the last paint move the axes, and so bring
/// about the next one. What a handler refuses is tried again by that, and not by the next poll.
void TZyGraph2D::SeriesPoll() {
  if (Updating() || FNeedsRecalculate || IsDestroying()) return;
  const std::uint64_t Alive = LiveHandle();
  try {
    TestSeriesAndAxis();
  } catch (...) {
    if (FromLiveHandle(Alive) != nullptr) Modified();
    throw;
  }
}

std::vector<TZyDoubleVector*> TZyGraph2D::GetVectorsList() const {
  std::vector<TZyDoubleVector*> Result;
  for (const TZySeries* Series : FRelatedSeries) {
    if (Series->Name().empty()) continue;
    for (TZyCustomDoubleVector* Data : {Series->XData(), Series->YData()}) {
      auto* const Vector = dynamic_cast<TZyDoubleVector*>(Data);
      if (Vector != nullptr && std::find(Result.begin(), Result.end(), Vector) == Result.end())
        Result.push_back(Vector);
    }
  }
  return Result;
}

void TZyGraph2D::UndoPushSeriesVectors() {
  TZyUndoStack* const Stack = UndoStack();
  if (Stack == nullptr || !Stack->Enabled()) return;
  const TZyUndoGroup Group(Stack, _sGraphData);
  for (TZyDoubleVector* Vector : GetVectorsList()) Stack->PushVectorState(Vector, "");
}

void TZyGraph2D::CheckCoupled() {
  if (IsLoading()) return;
  FCoupling.Find();
  if (FPrimaryYAxis == nullptr) return;  // a new graph, whose axes are still to come
  if (TZyGraph2D* const Master = FCoupling.NewMaster()) Master->FStages.Join(*this);
}

bool TZyGraph2D::AddRelatedSeries(TZySeries* Series) {
  FPointsAreStale = false;  // not those of the new one
  return FRelatedSeries.Add(Series);
}

void TZyGraph2D::AddSeries(TZySeries& Series) {
  TestPrimaryAxis();
  if (Series.XAxis() == nullptr && Series.YAxis() == nullptr) return Series.SetDefaultAxis(*this);
  if (Series.XAxis() == nullptr) Series.SetXAxis(FPrimaryXAxis);
  if (Series.YAxis() == nullptr) Series.SetYAxis(FPrimaryYAxis);
}

std::vector<std::string> TZyGraph2D::Diagnose() {
  const std::string OwnName = Name().empty() ? std::string(ClassInfo().Name()) : Name();
  if (Updating()) return {Format(LoadResString(_sDiagUpdating), {OwnName})};
  TestPrimaryAxis();
  BringUpToDate();
  std::vector<std::string> Result;
  if (!Visible()) Result.push_back(Format(LoadResString(_sDiagHidden), {OwnName}));
  const auto Take = [&Result](const TZySeries& Series) {
    if (std::string Reason = Series.Diagnose(); !Reason.empty()) Result.push_back(std::move(Reason));
  };
  const float Right = std::min<float>(FDrawingArea.X + FDrawingArea.Width, static_cast<float>(Width()));
  const float Bottom = std::min<float>(FDrawingArea.Y + FDrawingArea.Height, static_cast<float>(Height()));
  if (Right - std::max(FDrawingArea.X, 0.0f) < 2 || Bottom - std::max(FDrawingArea.Y, 0.0f) < 2)
    Result.push_back(Format(LoadResString(_sDiagNoRoom), {OwnName, Width(), Height()}));
  if (FRelatedSeries.empty()) Result.push_back(Format(LoadResString(_sDiagNoSeries), {OwnName}));
  for (const TZySeries* Series : FRelatedSeries) Take(*Series);
  for (TComponent* Each : Owner() == nullptr ? Components() : Owner()->Components())
    if (const auto* const Series = dynamic_cast<TZySeries*>(Each); Series != nullptr && !Series->HasGraph())
      Take(*Series);
  return Result;
}

/// Ranges of series are unknown between new data and the next layout, which is done for them.
std::vector<std::string> TZyGraph2D::AccessibleItems() const {
  if (!FPaintsScreen) const_cast<TZyGraph2D*>(this)->BringUpToDate();
  std::vector<std::string> Result;
  for (const TZySeries* Series : FRelatedSeries) Result.push_back(Series->AccessibleText());
  return Result;
}

void TZyGraph2D::BoundsChanged() {
  if (FPrimaryYAxis != nullptr) FPrimaryYAxis->CheckResize();
  if (FPrimaryXAxis != nullptr) FPrimaryXAxis->CheckResize();
}

TZyAxis* TZyGraph2D::MakePrimaryAxis(TZyAxisPosition Position, const char* BaseName, const char* Text) {
  TComponent* const AxisOwner = Owner() != nullptr ? Owner() : this;
  auto* const Axis = new TZyAxis(AxisOwner);
  Axis->SetPosition(Position);
  Axis->SetName(UniqueName(AxisOwner, BaseName));
  Axis->SetCaption(Text);
  Axis->SetParent(this);
  if (Axis->GetHorizontal())
    Axis->SetWidth(Width());
  else
    Axis->SetHeight(Height());
  return Axis;
}

void TZyGraph2D::TestPrimaryAxis() {
  const TScopedValue Doing(FDoingPrimary, true);
  if (FPrimaryXAxis == nullptr) FPrimaryXAxis = MakePrimaryAxis(TZyAxisPosition::Bottom, "XAxis", "X-Axis");
  if (FPrimaryYAxis == nullptr) FPrimaryYAxis = MakePrimaryAxis(TZyAxisPosition::Left, "YAxis", "Y-Axis");
  if (FPrimaryYAxis->GetHorizontal()) FPrimaryYAxis->SetPosition(TZyAxisPosition::Left);
  if (!FPrimaryXAxis->GetHorizontal()) FPrimaryXAxis->SetPosition(TZyAxisPosition::Bottom);
  FNeedsRecalculate = true;
}

void TZyGraph2D::TestSeriesAndAxis() {
  if (FRelatedSeries.empty()) return;
  for (TZySeries* Series : FRelatedSeries) {
    if (!Series->AutoUpdate() || !Series->SeriesVisible()) continue;
    try {
      Series->CheckDBVectors();
      Series->Calculate();
    } catch (const EAbort&) {
      // A handler freed it, or changed what it reads: the next time it begins anew.
    }
  }
  ForEachAxis([](TZyAxis& Axis) { Axis.GetNewRanges(); });
}

/// Numbers the layers by an order. A curve that belongs to another one shares its layer.
static void NumberLayers(const std::vector<TZySeries*>& Order) {
  int Layer = 0;
  for (TZySeries* Series : Order)
    if (!Series->IsSubComponent()) Series->Renumber(Layer++);
  for (TZySeries* Series : Order)
    if (Series->IsSubComponent()) Series->Renumber(static_cast<TZySeries*>(Series->Owner())->Layer());
}

void TZyGraph2D::SortLayers() {
  std::vector<TZySeries*> Order;
  for (TZySeries* Series : FRelatedSeries) Order.push_back(Series);
  const auto ByLayer = [](const TZySeries* A, const TZySeries* B) { return A->Layer() < B->Layer(); };
  const bool IsSorted = std::is_sorted(Order.begin(), Order.end(), ByLayer);
  for (auto Place = Order.begin(); !IsSorted && Place != Order.end(); ++Place) {
    const auto Lowest = std::min_element(Place, Order.end(), ByLayer);
    if (!ByLayer(*Lowest, *Place)) continue;
    std::iter_swap(Place, Lowest);
    FRelatedSeries.Swap(static_cast<std::size_t>(Place - Order.begin()),
                        static_cast<std::size_t>(Lowest - Order.begin()));
  }
  NumberLayers(Order);
  if (!IsSorted) LegendsModified();  // these list them in their order
}

void TZyGraph2D::Calculate() {
  if (Updating() || FPrimaryXAxis == nullptr || FPrimaryYAxis == nullptr) return;
  const TBusyCursor Busy;
  FNeedsRecalculate = true;  // until all is done: a handler may throw in the middle
  ClearWideRegisters();
  CheckCoupled();
  SortLayers();
  FTitleRec.ParseIfNeeded();
  CalculateCoupled();
  for (TZySeries* Series : FRelatedSeries) Series->TestVisibleChanged();
  FNeedsRecalculate = false;
}

/// Of graphs that share an X axis, those that only use it are laid out first; then the one that has it aligns the data
/// areas of all. The scale stands before anything is drawn on it, whichever of them is painted first.
void TZyGraph2D::CalculateCoupled() {
  if (FCalculatingCoupled) return;
  const TScopedValue Calculating(FCalculatingCoupled, true);
  const auto BringOtherUpToDate = [](TZyGraph2D& Graph) {
    if (!Graph.FCalculatingCoupled) Graph.BringUpToDate();
  };
  if (!IsCoupledGraph()) {
    for (TZyGraph2D* Child : ChildGraphs()) BringOtherUpToDate(*Child);
    if (FPrimaryXAxis != nullptr) FPrimaryXAxis->Calculate();  // handlers may have freed it
  } else {
    if (FPrimaryYAxis != nullptr && FPrimaryYAxis->Parent() == this) FPrimaryYAxis->Calculate();
    if (TZyGraph2D* const Master = MasterGraph()) BringOtherUpToDate(*Master);
  }
}

/// An axis that waits for layout counts as well, so that series never draw on a scale that is out of date.
void TZyGraph2D::CalculateWhenDirty() {
  if (FPrimaryXAxis == nullptr || FPrimaryYAxis == nullptr) return;
  bool IsDirty = FNeedsRecalculate || FPrimaryXAxis->NeedsRecalculate();
  ForEachAxis([&IsDirty](const TZyAxis& Axis) { IsDirty = IsDirty || Axis.NeedsRecalculate(); });
  if (IsDirty) Calculate();
}

/// While it is updated, a chart stays as it was laid out: ranges without ticks would be another scale.
void TZyGraph2D::BringUpToDate() {
  if (Updating()) return;
  TestSeriesAndAxis();
  CalculateWhenDirty();
}

TZyFindSeriesPointResult TZyGraph2D::FindSeriesPoint(int X, int Y) const {
  for (TZySeries* Series : FRelatedSeries.Reversed()) {
    const int Index = Series->FindPoint(X, Y);
    if (Index < 0) continue;
    const TZySeries::TPointValues Values = Series->ValuesOfPixel(Index, static_cast<float>(X));
    return {true, Series, Values.Index, Values.X, Values.Y};
  }
  return {};
}

bool TZyGraph2D::MouseInDataArea() const {
  const TPoint Place = ScreenToClient(CursorPos());
  const auto X = static_cast<float>(Place.X), Y = static_cast<float>(Place.Y);
  return X >= FDrawingArea.X && X <= FDrawingArea.X + FDrawingArea.Width && Y >= FDrawingArea.Y &&
         Y <= FDrawingArea.Y + FDrawingArea.Height;
}

void TZyGraph2D::RepaintChildGraphs() {
  for (TZyGraph2D* Child : ChildGraphs()) Child->Repaint();
}

void TZyGraph2D::SetName(const std::string& Value) {
  const bool IsFirst = Name().empty();
  TZyCustomGraph::SetName(Value);
  if (!IsDesigning() || !IsFirst || IsLoading()) return;
  FZoom.SetUndoStack(UndoStack());
  for (TZyAxis* Axis : {PrimaryXAxis(), PrimaryYAxis()})
    if (Axis != nullptr && Axis->UndoStack() == nullptr) Axis->SetUndoStack(UndoStack());
  constexpr float Upwards = 90;
  for (TZyLineSettings* Major : {FMajorGridHorizontal.get(), FMajorGridVertical.get()})
    Major->SetDashStyle(DashStyleDash);
  for (TZyLineSettings* Minor : {FMinorGridHorizontal.get(), FMinorGridVertical.get()})
    Minor->SetDashStyle(DashStyleDot);
  for (TZyGradientSettings* Gradient : {&FDataAreaGradient, &BackgroundGradient()}) Gradient->SetLinearAngle(Upwards);
}

void TZyGraph2D::PlaceTitle() {
  const auto Extent = static_cast<float>(ClientWidth());
  FTitleRec.Y = CaptionDistanceBefore();
  switch (CaptionAlignment()) {
    case TAlignment::taLeftJustify:
      FTitleRec.X = FDistanceBorderAxisLeft;
      break;
    case TAlignment::taRightJustify:
      FTitleRec.X = Extent - FDistanceBorderAxisRight;
      break;
    case TAlignment::taCenter:
      FTitleRec.X = Extent / 2;
      break;
  }
}

// --- For series -----------------------------------------------------------------------------------------------------

int TZyGraph2D::PlaceOf(const TZySeries& Series) const {
  int Place = 0;
  bool IsBehind = false;
  for (const TZySeries* Other : FRelatedSeries) {
    if (Other == &Series) IsBehind = true;
    if (Other->IsSubComponent()) continue;
    if (Other->Layer() < Series.Layer() || (!IsBehind && Other->Layer() == Series.Layer())) ++Place;
  }
  return Place;
}

void TZyGraph2D::SetPlaceOf(TZySeries& Series, int Place) {
  std::vector<TZySeries*> Order;
  std::vector<TZySeries*> Children;
  for (TZySeries* Other : FRelatedSeries)
    if (Other != &Series) (Other->IsSubComponent() ? Children : Order).push_back(Other);
  std::ranges::stable_sort(Order, {}, &TZySeries::Layer);
  Order.insert(Order.begin() + std::clamp<std::ptrdiff_t>(Place, 0, std::ssize(Order)), &Series);
  Order.insert(Order.end(), Children.begin(), Children.end());
  NumberLayers(Order);
  Modified();
}

void TZyGraph2D::ForEachSeries(const std::function<void(TZySeries& Series)>& Do) const {
  for (TZySeries* Series : RelatedSeries()) Do(*Series);
}

void TZyGraph2D::SeriesInvalidated() {
  Invalidate();
  const auto InvalidateLegendsOf = [](const TZyGraph2D& Graph) {
    for (IZyGraphLegend* Legend : Graph.RelatedLegends()) Legend->Control().Invalidate();
  };
  for (const TZyGraph2D* Child : ChildGraphs()) InvalidateLegendsOf(*Child);
  InvalidateLegendsOf(*this);
}

// --- For axes and the layout pass -----------------------------------------------------------------------------------

void TZyGraph2D::EndUserZoom(bool Horizontal) {
  FZoom.SetAuto(false);
  if (Horizontal) {
    FZoom.SetHScrollbarVisible(false);
  } else {
    FZoom.SetVScrollbarVisible(false);
  }
}

bool TZyGraph2D::MayScroll(bool Horizontal) const {
  return Horizontal ? FZoom.HScrollbarVisible() : FZoom.VScrollbarVisible();
}

std::vector<TZyAxis*> TZyGraph2D::AxesToLayOut() const {
  std::vector<TZyAxis*> Result;
  for (TZyAxis* Axis : AllAxes()) Result.push_back(Axis);
  return Result;
}

std::vector<IZyAxisGraph*> TZyGraph2D::GraphsOnXAxis() const {
  std::vector<IZyAxisGraph*> Result;
  for (TZyGraph2D* Child : ChildGraphs()) Result.push_back(Child);
  return Result;
}

float TZyGraph2D::BelowTitle(float Top) const {
  if (!CaptionVisible() || Caption().empty()) return Top;
  return std::ceil(Top + FTitleRec.Height() + CaptionDistanceBefore() + CaptionDistanceAfter());
}

}  // namespace zy
