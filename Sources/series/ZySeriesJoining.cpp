// The references of a series, and how it joins its graph by them.

#include <random>

#include "graph/ZyGraph2D.h"
#include "series/ZyLineSeries.h"
#include "series/vectors/ZyDoubleVector.h"
#include "undo/ZyUndoStack.h"

namespace zy {
namespace {

/// A number from 0 up to 1, for the sample data of a chart that is being designed.
double Random() {
  static std::minstd_rand Generator;
  return std::uniform_real_distribution<double>(0, 1)(Generator);
}

}  // namespace

void TZySeries::SetVector(TRef<TZyCustomDoubleVector>& Field, TZyCustomDoubleVector* Value, TZyText Label,
                          const char* PropName) {
  TRef<TZyCustomDoubleVector>& Other = &Field == &FXData ? FYData : FXData;
  TZyCustomDoubleVector* const Indexer = FIndexer.get();
  if (Field == Value || (Value == nullptr && Field == Indexer)) return;
  if (FUndoStack != nullptr) FUndoStack->PushProperty(this, LoadResString(Label), PropName);
  if (Field != nullptr && Field != Indexer && Field.Get() != Other.Get() && !Field->IsDestroying())
    Field->RemoveRelatedSeries(this);
  if (Value != nullptr && Value != Indexer && Value != Other) Value->AddRelatedSeries(this);
  Field = Value;
  // With no real vector left nothing is drawn.
  if ((Value == nullptr || Value == Indexer) && Other == Indexer) Other = nullptr;
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

void TZySeries::SetDefaultAxis(TZyGraph2D& FromGraph) {
  FXAxis = FromGraph.PrimaryXAxis();
  FYAxis = FromGraph.PrimaryYAxis();
}

void TZySeries::SwapDataVecs() {
  TZyCustomDoubleVector* const X = FXData;
  FXData = FYData.Get();
  FYData = X;
  std::swap(mXValueTransformation, mYValueTransformation);
  if (FXData == FIndexer.get()) FIndexer->SetRefVector(FYData);
  if (FYData == FIndexer.get()) FIndexer->SetRefVector(FXData);
}

void TZySeries::TestAllAssigned() {
  if (FXAxis != nullptr && FYAxis != nullptr && (FXData != nullptr || FYData != nullptr)) {
    JoinGraph();
  } else {
    LeaveGraph();
  }
}

/// The axes learn of the series without a graph as well: an axis that comes into one brings its series along.
void TZySeries::JoinGraph() {
  FXAxis->AddRelatedSeries(this);
  FYAxis->AddRelatedSeries(this);
  auto* const Graph = dynamic_cast<TZyGraph2D*>(FYAxis->Parent());
  if (FGraph != nullptr && FGraph != Graph) {
    FGraph->RemoveRelatedSeries(this);
    FGraph->Invalidate();
  }
  FGraph = Graph;
  if (Graph == nullptr || Graph->IsDestroying()) return;
  if (Graph->AddRelatedSeries(this)) {
    if (IsDesigning() && !IsLoading()) FLayer = static_cast<int>(Graph->RelatedSeries().size()) - 1;
    if (FUndoStack == nullptr) SetUndoStack(Graph->UndoStack());
  }
  if (FXData == nullptr) FXData = FIndexer.get();
  if (FYData == nullptr) FYData = FIndexer.get();
  if (FXData == FIndexer.get()) FIndexer->SetRefVector(FYData);
  if (FYData == FIndexer.get()) FIndexer->SetRefVector(FXData);
  if (IsDesigning() && !IsLoading()) AddSampleData();
  RangesModified();
  Graph->LegendsModified();
  Graph->Modified();
}

/// Values between the ends of the axes, so that a new series can be seen in the form designer.
void TZySeries::AddSampleData() {
  constexpr int Steps = 10;
  const auto Fill = [](TZyCustomDoubleVector* Data, const TZyAxis& Axis, double Scatter) {
    auto* const Vector = dynamic_cast<TZyDoubleVector*>(Data);
    if (Vector == nullptr || Vector->Count() > 0) return false;
    const double Start = Axis.Start(), Stop = Axis.Stop(), Step = (Stop - Start) / Steps;
    Vector->Add(Start);
    for (int i = 1; i < Steps; ++i) Vector->Add(Random() * Step * Scatter + i * Step + Start);
    Vector->Add(Stop);
    return true;
  };
  FGraph->BeginUpdate();
  Fill(FXData, *FXAxis, 0.2);
  if (Fill(FYData, *FYAxis, 1)) FYAxis->ShrinkOtherYs();
  FGraph->EndUpdate();
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
  if (AComponent == FXData && AComponent == FYData) FYData = nullptr;  // the index stands in for none of the two
  if (AComponent == FXData) SetXData(nullptr);
  if (AComponent == FYData) SetYData(nullptr);
  if (AComponent == FXAxis) SetXAxis(nullptr);
  if (AComponent == FYAxis) SetYAxis(nullptr);
  if (AComponent == FMergeLegendItemWith) SetMergeLegendItemWith(nullptr);
  if (AComponent == FDrawBandTo) SetDrawBandTo(nullptr);
  if (AComponent == FRangeFromFunction) SetRangeFromFunction(nullptr);
  if (AComponent == FUndoStack) SetUndoStack(nullptr);
}

}  // namespace zy
