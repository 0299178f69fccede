#include "graph/ZyGraph2D.h"

#include <algorithm>
#include <cmath>

#include "graph/ZyRegisterClasses.h"
#include "persistence/ZyIO.h"
#include "platform/controls/InputDispatch.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/TPropInfo.h"
#include "series/ZySeries.h"
#include "series/vectors/ZyDoubleVector.h"
#include "undo/ZyChange.h"

namespace zy {

ZY_PUBLISHED(
    TZyGraph2D, TZyCustomGraph, Published<&TZyGraph2D::ZeroOrigin, &TZyGraph2D::SetZeroOrigin>("ZeroOrigin", false),
    Published<&TZyGraph2D::DataAreaGradient>("DataAreaGradient"),
    Published<&TZyGraph2D::DataAreaColor, &TZyGraph2D::SetDataAreaColor>("DataAreaColor", Colors::Transparent),
    Published<&TZyGraph2D::DataAreaFrame>("DataAreaFrame"),
    Published<&TZyGraph2D::MajorGridHorizontal>("MajorGridHorizontal"),
    Published<&TZyGraph2D::MinorGridHorizontal>("MinorGridHorizontal"),
    Published<&TZyGraph2D::MajorGridVertical>("MajorGridVertical"),
    Published<&TZyGraph2D::MinorGridVertical>("MinorGridVertical"),
    Published<&TZyGraph2D::PrimaryXAxis, &TZyGraph2D::SetPrimaryXAxis>("PrimaryXAxis"),
    Published<&TZyGraph2D::PrimaryYAxis, &TZyGraph2D::SetPrimaryYAxis>("PrimaryYAxis"),
    Published<&TZyGraph2D::DistanceBorderAxisTop, &TZyGraph2D::SetDistanceBorderAxisTop>("DistanceBorderAxisTop", 0.0f),
    Published<&TZyGraph2D::DistanceBorderAxisBottom, &TZyGraph2D::SetDistanceBorderAxisBottom>(
        "DistanceBorderAxisBottom", 0.0f),
    Published<&TZyGraph2D::DistanceBorderAxisLeft, &TZyGraph2D::SetDistanceBorderAxisLeft>("DistanceBorderAxisLeft",
                                                                                           0.0f),
    Published<&TZyGraph2D::DistanceBorderAxisRight, &TZyGraph2D::SetDistanceBorderAxisRight>("DistanceBorderAxisRight",
                                                                                             0.0f),
    Published<static_cast<TZyZoomSettings& (TZyGraph2D::*)()>(&TZyGraph2D::Zoom)>("Zoom"))

TZyGraph2D::TZyGraph2D(TComponent* Owner)
    : TZyCustomGraph(Owner),
      FDataAreaGradient([this] { Invalidate(); }),
      FDataAreaFrame(MakeLine(Colors::Black)),
      FMajorGridHorizontal(MakeLine(Colors::Green)),
      FMinorGridHorizontal(MakeLine(Colors::Gray)),
      FMajorGridVertical(MakeLine(Colors::Green)),
      FMinorGridVertical(MakeLine(Colors::Gray)) {
  RegisterChartClasses();
  if (!IsDesigning()) {
    FHorizontalScrollBar = MakeScrollBar(sbHorizontal);
    FVerticalScrollbar = MakeScrollBar(sbVertical);
  }
  FNeedsRecalculate = true;
  FPollingThread.OnPoll = [this] { SeriesPoll(); };
}

TZyGraph2D::~TZyGraph2D() { Destroying(); }

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

void TZyGraph2D::SetZeroOrigin(bool Value) {
  Change(this, FZeroOrigin, Value, _sGraphZeroOrigin, "ZeroOrigin", &TZyGraph2D::Modified);
}

void TZyGraph2D::SetDataAreaColor(TZyColor Value) {
  Change(this, FDataAreaColor, Value, _sGraphDataAreaColor, "DataAreaColor", &TZyGraph2D::Invalidate);
}

void TZyGraph2D::SetPrimaryXAxis(TZyAxis* Value) {
  Change(this, FPrimaryXAxis, Value, _sGraphPrimaryXAxis, "PrimaryXAxis", &TZyGraph2D::Modified);
}

void TZyGraph2D::SetPrimaryYAxis(TZyAxis* Value) {
  Change(this, FPrimaryYAxis, Value, _sGraphPrimaryYAxis, "PrimaryYAxis", &TZyGraph2D::Modified);
}

void TZyGraph2D::SetMargin(float& Field, float Value, TZyText Label, const char* PropName) {
  Change(this, Field, Value, Label, PropName, &TZyGraph2D::Modified);
}

void TZyGraph2D::SetDistanceBorderAxisTop(float Value) {
  SetMargin(FDistanceBorderAxisTop, Value, _sGraphDistanceBorderAxisTop, "DistanceBorderAxisTop");
}

void TZyGraph2D::SetDistanceBorderAxisBottom(float Value) {
  SetMargin(FDistanceBorderAxisBottom, Value, _sGraphDistanceBorderAxisBottom, "DistanceBorderAxisBottom");
}

void TZyGraph2D::SetDistanceBorderAxisLeft(float Value) {
  SetMargin(FDistanceBorderAxisLeft, Value, _sGraphDistanceBorderAxisLeft, "DistanceBorderAxisLeft");
}

void TZyGraph2D::SetDistanceBorderAxisRight(float Value) {
  SetMargin(FDistanceBorderAxisRight, Value, _sGraphDistanceBorderAxisRight, "DistanceBorderAxisRight");
}

void TZyGraph2D::SetUndoStack(TZyUndoStack* Value) {
  TZyCustomGraph::SetUndoStack(Value);
  for (TZySeries* Series : FRelatedSeries) Series->SetUndoStack(Value);
  for (TZyAxis* Axis : Axes()) Axis->SetUndoStack(Value);
  for (TZyLineSettings* Line : Lines()) Line->SetUndoStack(Value);
  FDataAreaGradient.SetUndoStack(Value);
  FZoom.SetUndoStack(Value);
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

void TZyGraph2D::SeriesModified() {
  if (IsDestroying()) return;
  for (TZySeries* Series : FRelatedSeries) Series->PointsModified();
  if (!FPanning) Invalidate();
}

void TZyGraph2D::LegendsModified() {
  if (IsDestroying() || FTellingLegends) return;
  FTellingLegends = true;  // graphs that use each other's X axes would go round in circles
  if (TZyGraph2D* const Master = MasterGraph()) Master->LegendsModified();
  for (const TZyGraph2D* Child : FChildGraphs)
    for (IZyGraphLegend* Legend : Child->RelatedLegends()) Legend->Modified();
  for (IZyGraphLegend* Legend : RelatedLegends()) Legend->Modified();
  FTellingLegends = false;
}

/// Runs on the control thread, some ten times a second: data that came since the last paint move the axes, and so bring
/// about the next one.
void TZyGraph2D::SeriesPoll() {
  if (!Updating() && !FNeedsRecalculate && !IsDestroying()) TestSeriesAndAxis();
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
  Stack->StartGroup(LoadResString(_sGraphData));
  for (TZyDoubleVector* Vector : GetVectorsList()) Stack->PushVectorState(Vector, "");
  Stack->StopGroup();
}

void TZyGraph2D::CheckCoupled() {
  if (IsLoading()) return;
  FAxes = Axes();
  FChildGraphs.clear();
  FIsCoupledGraph = false;
  if (FPrimaryXAxis == nullptr) return;
  if (FPrimaryXAxis->Parent() != this) {
    FIsCoupledGraph = true;
    FAxes.push_back(FPrimaryXAxis);
  } else if (Owner() != nullptr) {
    for (TComponent* Component : Owner()->Components()) {
      auto* const Other = dynamic_cast<TZyGraph2D*>(Component);
      if (Other != nullptr && Other != this && Other->PrimaryXAxis() == FPrimaryXAxis) FChildGraphs.push_back(Other);
    }
  }
}

bool TZyGraph2D::AddRelatedSeries(TZySeries* Series) {
  if (std::find(FRelatedSeries.begin(), FRelatedSeries.end(), Series) != FRelatedSeries.end()) return false;
  FRelatedSeries.push_back(Series);
  return true;
}

void TZyGraph2D::Notification(TComponent* AComponent, TOperation Operation) {
  TZyCustomGraph::Notification(AComponent, Operation);
  if (Operation != TOperation::Remove || IsDestroying()) return;
  std::erase(FAxes, AComponent);
  std::erase(FChildGraphs, AComponent);
  if (AComponent == FPrimaryXAxis) FPrimaryXAxis = nullptr;
  if (AComponent == FPrimaryYAxis) FPrimaryYAxis = nullptr;
  if (AComponent == FHorizontalScrollBar) FHorizontalScrollBar = nullptr;
  if (AComponent == FVerticalScrollbar) FVerticalScrollbar = nullptr;
}

void TZyGraph2D::BoundsChanged() {
  if (FPrimaryYAxis != nullptr) FPrimaryYAxis->CheckResize();
  if (FPrimaryXAxis != nullptr) FPrimaryXAxis->CheckResize();
}

void TZyGraph2D::TestPrimaryAxis() {
  TComponent* const AxisOwner = Owner() != nullptr ? Owner() : this;
  FDoingPrimary = true;
  const auto MakeAxis = [this, AxisOwner](TZyAxisPosition Position, const char* BaseName, const char* Text) {
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
  };
  if (FPrimaryXAxis == nullptr) FPrimaryXAxis = MakeAxis(TZyAxisPosition::Bottom, "XAxis", "X-Axis");
  if (FPrimaryYAxis == nullptr) FPrimaryYAxis = MakeAxis(TZyAxisPosition::Left, "YAxis", "Y-Axis");
  if (FPrimaryYAxis->GetHorizontal()) FPrimaryYAxis->SetPosition(TZyAxisPosition::Left);
  if (!FPrimaryXAxis->GetHorizontal()) FPrimaryXAxis->SetPosition(TZyAxisPosition::Bottom);
  FNeedsRecalculate = true;
  FDoingPrimary = false;
}

void TZyGraph2D::TestSeriesAndAxis() {
  if (FRelatedSeries.empty()) return;
  for (TZySeries* Series : FRelatedSeries)
    if (Series->AutoUpdate() && Series->SeriesVisible()) {
      Series->CheckDBVectors();
      Series->Calculate();
    }
  ForEachAxis([](TZyAxis& Axis) { Axis.GetNewRanges(); });
}

void TZyGraph2D::SortLayers() {
  const auto ByLayer = [](const TZySeries* A, const TZySeries* B) { return A->Layer() < B->Layer(); };
  const bool IsSorted = std::is_sorted(FRelatedSeries.begin(), FRelatedSeries.end(), ByLayer);
  for (auto Place = FRelatedSeries.begin(); !IsSorted && Place != FRelatedSeries.end(); ++Place) {
    const auto Lowest = std::min_element(Place, FRelatedSeries.end(), ByLayer);
    if (ByLayer(*Lowest, *Place)) std::iter_swap(Place, Lowest);
  }
  int Layer = 0;
  for (TZySeries* Series : FRelatedSeries) Series->SetLayer(Layer++);
}

void TZyGraph2D::Calculate() {
  if (Updating() || FPrimaryXAxis == nullptr || FPrimaryYAxis == nullptr) return;
  const TBusyCursor Busy;
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
  FCalculatingCoupled = true;
  const auto BringUpToDate = [](TZyGraph2D& Graph) {
    if (Graph.FCalculatingCoupled) return;
    Graph.TestSeriesAndAxis();
    Graph.CalculateWhenDirty();
  };
  if (!FIsCoupledGraph) {
    for (TZyGraph2D* Child : std::vector(FChildGraphs)) BringUpToDate(*Child);
    FPrimaryXAxis->Calculate();
  } else {
    if (FPrimaryYAxis->Parent() == this) FPrimaryYAxis->Calculate();
    if (TZyGraph2D* const Master = MasterGraph()) BringUpToDate(*Master);
  }
  FCalculatingCoupled = false;
}

TZyFindSeriesPointResult TZyGraph2D::FindSeriesPoint(int X, int Y) const {
  for (auto Place = FRelatedSeries.rbegin(); Place != FRelatedSeries.rend(); ++Place) {
    TZySeries& Series = **Place;
    const int Index = Series.FindPoint(X, Y);
    if (Index < 0) continue;
    const TZySeries::TPointValues Values = Series.ValuesOfPixel(Index, static_cast<float>(X));
    return {true, &Series, Values.Index, Values.X, Values.Y};
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
  for (TZyGraph2D* Child : FChildGraphs) Child->Repaint();
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

std::vector<IZyAxisGraph*> TZyGraph2D::GraphsOnXAxis() const { return {ChildGraphs().begin(), ChildGraphs().end()}; }

float TZyGraph2D::BelowTitle(float Top) const {
  if (!CaptionVisible() || Caption().empty()) return Top;
  return std::ceil(Top + FTitleRec.Height() + CaptionDistanceBefore() + CaptionDistanceAfter());
}

}  // namespace zy
