#include "graph/ZyGraph2D.h"

#include <algorithm>
#include <cmath>

#include "graph/ZyRegisterClasses.h"
#include "persistence/ZyIO.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/TPropInfo.h"
#include "series/ZySeries.h"
#include "undo/ZyChange.h"

namespace zy {

ZY_PUBLISHED(
    TZyGraph2D, TZyCustomGraph,
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
                                                                                             0.0f))

TZyGraph2D::TZyGraph2D(TComponent* Owner)
    : TZyCustomGraph(Owner),
      FDataAreaFrame(MakeLine(Colors::Black)),
      FMajorGridHorizontal(MakeLine(Colors::Green)),
      FMinorGridHorizontal(MakeLine(Colors::Gray)),
      FMajorGridVertical(MakeLine(Colors::Green)),
      FMinorGridVertical(MakeLine(Colors::Gray)) {
  RegisterChartClasses();
  FNeedsRecalculate = true;
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
  for (TControl* Control : Controls())
    if (auto* const Axis = dynamic_cast<TZyAxis*>(Control)) Result.push_back(Axis);
  return Result;
}

// --- Properties -----------------------------------------------------------------------------------------------------

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
  Invalidate();
}

bool TZyGraph2D::AddRelatedSeries(TZySeries* Series) {
  if (std::find(FRelatedSeries.begin(), FRelatedSeries.end(), Series) != FRelatedSeries.end()) return false;
  FRelatedSeries.push_back(Series);
  return true;
}

void TZyGraph2D::Notification(TComponent* AComponent, TOperation Operation) {
  TZyCustomGraph::Notification(AComponent, Operation);
  if (Operation != TOperation::Remove || IsDestroying()) return;
  if (AComponent == FPrimaryXAxis) FPrimaryXAxis = nullptr;
  if (AComponent == FPrimaryYAxis) FPrimaryYAxis = nullptr;
}

void TZyGraph2D::BoundsChanged() {
  if (FPrimaryYAxis != nullptr) FPrimaryYAxis->CheckResize();
  if (FPrimaryXAxis != nullptr) FPrimaryXAxis->CheckResize();
}

void TZyGraph2D::TestPrimaryAxis() {
  TComponent* const AxisOwner = Owner() != nullptr ? Owner() : this;
  const auto MakeAxis = [this, AxisOwner](TZyAxisPosition Position, const char* BaseName, const char* Text) {
    auto* const Axis = new TZyAxis(AxisOwner);
    Axis->SetPosition(Position);
    Axis->SetName(UniqueName(AxisOwner, BaseName));
    Axis->SetCaption(Text);
    Axis->SetParent(this);
    return Axis;
  };
  if (FPrimaryXAxis == nullptr) FPrimaryXAxis = MakeAxis(TZyAxisPosition::Bottom, "XAxis", "X-Axis");
  if (FPrimaryYAxis == nullptr) FPrimaryYAxis = MakeAxis(TZyAxisPosition::Left, "YAxis", "Y-Axis");
  if (FPrimaryYAxis->GetHorizontal()) FPrimaryYAxis->SetPosition(TZyAxisPosition::Left);
  if (!FPrimaryXAxis->GetHorizontal()) FPrimaryXAxis->SetPosition(TZyAxisPosition::Bottom);
  FNeedsRecalculate = true;
}

void TZyGraph2D::TestSeriesAndAxis() {
  if (FRelatedSeries.empty()) return;
  for (TZySeries* Series : FRelatedSeries)
    if (Series->AutoUpdate() && Series->SeriesVisible()) Series->Calculate();
  for (TZyAxis* Axis : Axes()) Axis->GetNewRanges();
}

void TZyGraph2D::SortLayers() {
  const auto ByLayer = [](const TZySeries* A, const TZySeries* B) { return A->Layer() < B->Layer(); };
  for (auto Place = FRelatedSeries.begin(); Place != FRelatedSeries.end(); ++Place) {
    const auto Lowest = std::min_element(Place, FRelatedSeries.end(), ByLayer);
    if (ByLayer(*Lowest, *Place)) std::iter_swap(Place, Lowest);
  }
  int Layer = 0;
  for (TZySeries* Series : FRelatedSeries) Series->SetLayer(Layer++);
}

void TZyGraph2D::Calculate() {
  if (Updating() || FPrimaryXAxis == nullptr || FPrimaryYAxis == nullptr) return;
  SortLayers();
  FTitleRec.ParseForSize();
  if (FPrimaryXAxis->Parent() == this) FPrimaryXAxis->Calculate();
  for (TZySeries* Series : FRelatedSeries) Series->TestVisibleChanged();
  FNeedsRecalculate = false;
}

void TZyGraph2D::PlaceTitle() {
  FTitleRec.Y = CaptionDistanceBefore();
  FTitleRec.X = static_cast<float>(ClientWidth()) / 2;
}

// --- Painting -------------------------------------------------------------------------------------------------------

void TZyGraph2D::PaintGr(Graphics& Gr) {
  if (FOnce) {
    FOnce = false;
    TestPrimaryAxis();
  }
  if (FPrimaryXAxis == nullptr || FPrimaryYAxis == nullptr) return;
  TestSeriesAndAxis();
  CalculateWhenDirty();
  SetHighQuality(Gr, false);
  PaintBackground(Gr);
  PaintDataArea(Gr);
  if (CaptionVisible()) FTitleRec.PaintGr(Gr);
  PaintVerticalGrid(Gr);
  PaintHorizontalGrid(Gr);
  SetHighQuality(Gr, true);
  PaintSeries(Gr);
  PaintFrame(Gr);
  PaintAxes(Gr);
  SetHighQuality(Gr, false);
}

/// An axis that waits for layout counts as well, so that series never draw on a scale that is out of date.
void TZyGraph2D::CalculateWhenDirty() {
  const std::vector<TZyAxis*> Children = Axes();
  const auto Waits = [](const TZyAxis* Axis) { return Axis->NeedsRecalculate(); };
  if (FNeedsRecalculate || std::any_of(Children.begin(), Children.end(), Waits)) Calculate();
}

void TZyGraph2D::PaintBackground(Graphics& Gr) const {
  if (GetAlpha(BackColor()) == 0) return;
  Gr.FillRectangle(SolidBrush(BackColor()), 0, 0, static_cast<float>(Width()), static_cast<float>(Height()));
}

void TZyGraph2D::PaintDataArea(Graphics& Gr) const {
  if (FDataAreaColor == BackColor() || GetAlpha(FDataAreaColor) == 0) return;
  Gr.FillRectangle(SolidBrush(FDataAreaColor), FDrawingArea.X, FDrawingArea.Y, FDrawingArea.Width - 1,
                   FDrawingArea.Height - 1);
}

void TZyGraph2D::PaintVerticalGrid(Graphics& Gr) const {
  const float Top = FDrawingArea.Y, Bottom = FDrawingArea.Y + FDrawingArea.Height - 1;
  const auto Draw = [&](const TZyLineSettings& Grid, bool Major) {
    if (!Grid.Visible()) return;
    const auto GridPen = Grid.GetPen(FDrawingArea, 0);
    const auto& Ticks = FPrimaryXAxis->Ticks();
    for (std::size_t Index = 0; Index < Ticks.size(); ++Index) {
      if (FPrimaryXAxis->MajorGridTicks()[Index] != Major) continue;
      const float X = std::round(Ticks[Index]);
      Gr.DrawLine(*GridPen, X, Top, X, Bottom);
    }
  };
  Draw(*FMajorGridVertical, true);
  Draw(*FMinorGridVertical, false);
}

void TZyGraph2D::PaintHorizontalGrid(Graphics& Gr) const {
  const float Left = FDrawingArea.X, Right = FDrawingArea.X + FDrawingArea.Width - 1;
  const auto Draw = [&](const TZyLineSettings& Grid, bool Major) {
    if (!Grid.Visible()) return;
    const auto GridPen = Grid.GetPen(FDrawingArea, 0);
    const auto& Ticks = FPrimaryYAxis->Ticks();
    for (std::size_t Index = 0; Index < Ticks.size(); ++Index) {
      if (FPrimaryYAxis->MajorGridTicks()[Index] != Major) continue;
      const float Y = std::round(Ticks[Index]);
      Gr.DrawLine(*GridPen, Left, Y, Right, Y);
    }
  };
  Draw(*FMajorGridHorizontal, true);
  Draw(*FMinorGridHorizontal, false);
}

void TZyGraph2D::PaintSeries(Graphics& Gr) {
  const Region Saved = Gr.GetClip();
  Gr.SetClip(FDrawingArea, CombineModeIntersect);
  for (TZySeries* Series : FRelatedSeries) Series->PaintGr(Gr);
  Gr.SetClip(Saved);
}

void TZyGraph2D::PaintFrame(Graphics& Gr) const {
  if (!FDataAreaFrame->Visible()) return;
  Gr.DrawRectangle(*FDataAreaFrame->GetPen(FDrawingArea, 0), FDrawingArea.X, FDrawingArea.Y, FDrawingArea.Width - 1,
                   FDrawingArea.Height - 1);
}

void TZyGraph2D::PaintAxes(Graphics& Gr) {
  const Matrix Saved = Gr.GetTransform();
  for (TZyAxis* Axis : Axes()) {
    if (!Axis->Visible()) continue;
    Gr.TranslateTransform(static_cast<float>(Axis->Left()), static_cast<float>(Axis->Top()));
    Axis->PaintGr(Gr);
    Gr.SetTransform(Saved);
  }
}

}  // namespace zy
