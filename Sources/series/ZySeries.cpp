#include "series/ZySeries.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "graph/ZyGraph2D.h"
#include "persistence/ZyIO.h"
#include "platform/framework/TPropInfo.h"
#include "platform/framework/TReader.h"
#include "platform/framework/TWriter.h"
#include "undo/ZyChange.h"

namespace zy {
namespace {

constexpr double LargestDouble = std::numeric_limits<double>::max();

/// New series walk through these line colours, whatever their kind.
constexpr TZyColor LineColors[] = {Colors::Red,    Colors::Green,     Colors::Blue,
                                   Colors::Maroon, Colors::DarkGreen, Colors::DarkBlue};

TZyColor NextLineColor() {
  static std::size_t Counter = 0;
  if (Counter >= std::size(LineColors)) Counter = 0;
  return LineColors[Counter++];
}

}  // namespace

ZY_PUBLISHED(TZySeries, TComponent, Published<&TZySeries::Visible, &TZySeries::SetVisible>("Visible", true),
             Published<&TZySeries::Caption, &TZySeries::SetCaption>("Caption"))

TZySeries::TZySeries(TComponent* Owner)
    : TComponent(Owner),
      FLineSettings(std::make_unique<TZyLineSettings>([this] { TestVisibleChanged(); })),
      FXStart(LargestDouble),
      FXStop(-LargestDouble),
      FYStart(LargestDouble),
      FYStop(-LargestDouble) {
  FLineSettings->SetColor(NextLineColor());
}

void TZySeries::SetInitialCaption(std::string_view KindName) {
  FCaption = UniqueName(Owner(), KindName.substr(1));  // the name of the class without its first letter
}

TZySeries::~TZySeries() {
  Destroying();
  for (TZyCustomDoubleVector* Vector : {FXData.Get(), FYData.Get()})
    if (Vector != nullptr) Vector->RemoveRelatedSeries(this);
  LeaveGraph();
}

void TZySeries::SetName(const std::string& Value) {
  if (IsDesigning() && !FCaptionSet) {
    SetCaption(Value);
    FCaptionSet = false;
  }
  TComponent::SetName(Value);
}

void TZySeries::DefineProperties(TFiler& Filer) {
  TComponent::DefineProperties(Filer);
  Filer.DefineProperty(
      "Layer", [this](TReader& Reader) { FLayer = static_cast<int>(Reader.ReadInteger()); },
      [this](TWriter& Writer) { Writer.WriteInteger(FLayer); }, true);
}

// --- References -----------------------------------------------------------------------------------------------------

void TZySeries::SetVector(TRef<TZyCustomDoubleVector>& Field, TZyCustomDoubleVector* Value, TZyText Label,
                          const char* PropName) {
  if (Field == Value) return;
  if (FUndoStack != nullptr) FUndoStack->PushProperty(this, LoadResString(Label), PropName);
  const TZyCustomDoubleVector* const Other = &Field == &FXData ? FYData.Get() : FXData.Get();
  if (Field != nullptr && Field.Get() != Other && !Field->IsDestroying()) Field->RemoveRelatedSeries(this);
  if (Value != nullptr && Value != Other) Value->AddRelatedSeries(this);
  Field = Value;
  TestAllAssigned();
}

void TZySeries::SetXData(TZyCustomDoubleVector* Value) { SetVector(FXData, Value, _sSeriesXData, "XData"); }

void TZySeries::SetYData(TZyCustomDoubleVector* Value) { SetVector(FYData, Value, _sSeriesYData, "YData"); }

void TZySeries::SetAxis(TRef<TZyAxis>& Field, TZyAxis* Value, TZyText Label, const char* PropName) {
  if (Field == Value) return;
  if (FUndoStack != nullptr) FUndoStack->PushProperty(this, LoadResString(Label), PropName);
  if (Field != nullptr && !Field->IsDestroying()) Field->RemoveRelatedSeries(this);
  Field = Value;
  TestAllAssigned();
}

void TZySeries::SetXAxis(TZyAxis* Value) { SetAxis(FXAxis, Value, _sSeriesXAxis, "XAxis"); }

void TZySeries::SetYAxis(TZyAxis* Value) { SetAxis(FYAxis, Value, _sSeriesYAxis, "YAxis"); }

void TZySeries::SetUndoStack(TZyUndoStack* Value) {
  FUndoStack = Value;
  FLineSettings->SetUndoStack(Value);
}

void TZySeries::TestAllAssigned() {
  if (FXAxis != nullptr && FYAxis != nullptr && FXData != nullptr && FYData != nullptr) {
    JoinGraph();
  } else {
    LeaveGraph();
  }
}

void TZySeries::JoinGraph() {
  FXAxis->AddRelatedSeries(this);
  FYAxis->AddRelatedSeries(this);  // without a graph as well: an axis that comes into one brings its series along
  auto* const Graph = dynamic_cast<TZyGraph2D*>(FYAxis->Parent());
  if (FGraph != nullptr && FGraph != Graph) {
    FGraph->RemoveRelatedSeries(this);
    FGraph->Invalidate();
  }
  FGraph = Graph;
  if (Graph == nullptr || Graph->IsDestroying()) return;
  if (Graph->AddRelatedSeries(this) && FUndoStack == nullptr) SetUndoStack(Graph->UndoStack());
  RangesModified();
  Graph->LegendsModified();
  Graph->Modified();
}

void TZySeries::LeaveGraph() {
  for (TZyAxis* Axis : {FXAxis.Get(), FYAxis.Get()})
    if (Axis != nullptr && !Axis->IsDestroying()) Axis->RemoveRelatedSeries(this);
  TZyGraph2D* const Graph = FGraph;
  if (Graph == nullptr) return;
  FGraph = nullptr;
  Graph->RemoveRelatedSeries(this);
  if (Graph->IsDestroying()) return;
  if (Graph->PrimaryYAxis() != nullptr) Graph->PrimaryYAxis()->RangeModified();
  Graph->SeriesModified();
  Graph->LegendsModified();
}

void TZySeries::Notification(TComponent* AComponent, TOperation Operation) {
  TComponent::Notification(AComponent, Operation);
  if (Operation != TOperation::Remove || IsDestroying()) return;
  if (AComponent == FGraph) {
    FGraph = nullptr;
    SetXAxis(nullptr);
    SetYAxis(nullptr);
  }
  if (AComponent == FXData) SetXData(nullptr);
  if (AComponent == FYData) SetYData(nullptr);
  if (AComponent == FXAxis) SetXAxis(nullptr);
  if (AComponent == FYAxis) SetYAxis(nullptr);
  if (AComponent == FUndoStack) SetUndoStack(nullptr);
}

// --- Properties -----------------------------------------------------------------------------------------------------

void TZySeries::SetVisible(bool Value) {
  Change(this, FVisible, Value, _sSeriesVisible, "Visible", &TZySeries::TestVisibleChanged);
}

void TZySeries::SetCaption(const TZyRichCaption& Value) {
  const TZyRichCaption Trimmed = Value.substr(0, Value.find_last_not_of(' ') + 1);
  if (Change(this, FCaption, Trimmed, _sSeriesCaption, "Caption", &TZySeries::Invalidate)) FCaptionSet = true;
}

void TZySeries::SetLayer(int Value) {
  if (FLayer == Value) return;
  if (FUndoStack != nullptr) FUndoStack->PushProperty(this, LoadResString(_sSeriesLayering), "Layer");
  FLayer = Value;
  if (FGraph != nullptr) FGraph->Modified();
}

bool TZySeries::SeriesVisible() const { return FVisible && FLineSettings->Visible(); }

void TZySeries::TestVisibleChanged() {
  if (FGraph == nullptr) return;
  FPen = FLineSettings->GetPen(FGraph->DrawingArea(), 0);
  Invalidate();
  if (SeriesVisible() == FLastVisible) return;
  FLastVisible = SeriesVisible();
  FXAxis->RangeModified();
  FYAxis->RangeModified();
}

// --- Change protocol ------------------------------------------------------------------------------------------------

void TZySeries::Invalidate() {
  if (FGraph != nullptr) FGraph->Invalidate();
}

void TZySeries::RangesModified() {
  if (FXAxis == nullptr || FYAxis == nullptr) return;
  FXStart = FYStart = LargestDouble;
  FXStop = FYStop = -LargestDouble;
  FLastCount = FCount = 0;
  PointsModified();
  FXAxis->RangeModified();
  FYAxis->RangeModified();
}

void TZySeries::PointsModified() {
  FRecalculatePoints = true;
  Invalidate();
}

void TZySeries::SetLastCount(int Value) { FLastCount = std::min(FLastCount, Value); }

int TZySeries::GetCount() {
  if (FXData == nullptr || FYData == nullptr) return 0;
  return std::min(FXData->Count(), FYData->Count());
}

namespace {

/// Takes the extremes of the first Count values of Data. Those beyond belong to no point and do not count, nor does
/// what is not finite: no axis could show it. Without any value Low lies above High.
void TakeRange(TZyCustomDoubleVector& Data, int Count, double& Low, double& High) {
  if (Data.Count() <= Count) {
    Low = Data.Minimum();
    High = Data.Maximum();
    if (std::isfinite(Low) && std::isfinite(High)) return;
  }
  Low = LargestDouble;
  High = -LargestDouble;
  for (const double Value : Data.Values().first(static_cast<std::size_t>(Count))) {
    if (!std::isfinite(Value)) continue;
    Low = std::min(Low, Value);
    High = std::max(High, Value);
  }
}

}  // namespace

void TZySeries::Calculate() {
  if (FXData == nullptr || FYData == nullptr || FXAxis == nullptr || FYAxis == nullptr) return;
  if (FXData->Count() <= FLastCount && FYData->Count() <= FLastCount) return;
  FCount = GetCount();
  if (FLastCount >= FCount || FCount < FMinCount) return;
  const auto TakeInto = [this](TZyCustomDoubleVector& Data, double& Start, double& Stop, TZyAxis& Axis) {
    double Low = 0, High = 0;
    TakeRange(Data, FCount, Low, High);
    if (Low == Start && High == Stop) return;
    Start = Low;
    Stop = High;
    Axis.RangeModified();
  };
  TakeInto(*FXData, FXStart, FXStop, *FXAxis);
  TakeInto(*FYData, FYStart, FYStop, *FYAxis);
  FRecalculatePoints = true;
  Invalidate();
  FLastCount = FCount;
}

}  // namespace zy
