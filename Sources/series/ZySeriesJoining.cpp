// The references of a series, and how it joins its graph by them.

#include <algorithm>
#include <array>
#include <random>

#include "graph/parts/ZySeriesGraph.h"
#include "platform/controls/TWinControl.h"
#include "series/ZyLineSeries.h"
#include "series/vectors/ZyDoubleVector.h"
#include "undo/ZyUndoGroup.h"
#include "undo/ZyUndoStack.h"

namespace zy {

/// A number from 0 up to 1, for the sample data of a chart that is being designed.
double TZySeries::Random() {
  static std::minstd_rand Generator;
  return std::uniform_real_distribution<double>(0, 1)(Generator);
}

void TZySeries::EnterInput(TZySeriesInput& Input) {
  if (FInputs.empty()) FInputs.reserve(2);  // X and Y, as most kinds have
  FInputs.push_back(&Input);
}

void TZySeries::LeaveInput(TZySeriesInput& Input) {
  if (Input && !Input->IsDestroying() && !Reads(Input.Vector(), &Input)) Input->RemoveRelatedSeries(this);
  std::erase(FInputs, &Input);
}

/// Whether an input, other than But, has this vector.
bool TZySeries::Reads(const TZyCustomDoubleVector* Vector, const TZySeriesInput* But) const {
  return std::any_of(FInputs.begin(), FInputs.end(),
                     [&](const TZySeriesInput* Input) { return Input != But && Input->Vector() == Vector; });
}

/// The setter of what may make a series join its graph, or leave it and lose its place there. The place stands before
/// the property for undo, and behind it for redo, which replays the step backwards. Without a name there is no undo.
template <class TStore>
void TZySeries::ChangeJoining(const char* PropName, const TStore& Store) {
  TZyUndoStack* const Stack = PropName == nullptr ? nullptr : FUndo.Get();
  if (Stack == nullptr) return Store();
  const std::string_view Label = TZyUndoStack::LabelOf(*this, PropName);
  const TZyUndoGroup Group(Stack, Label);
  Stack->PushProperty(this, Label, "Place");
  Stack->PushProperty(this, Label, PropName);
  const IZySeriesGraph* const Before = Graph();
  Store();
  if (Graph() != Before && FUndo == Stack) Stack->PushProperty(this, Label, "Place");
}

/// A vector has the series among its readers once, in however many places that reads it.
void TZySeries::SetInput(TZySeriesInput& Input, TZyCustomDoubleVector* Value) {
  TZyCustomDoubleVector* const Indexer = FIndexer.get();
  TZyCustomDoubleVector* const Old = Input.Vector();
  if (Old == Value || (Value == nullptr && Old == Indexer)) return;
  ChangeJoining(Input.PropName(), [&] {
    if (Old != nullptr && Old != Indexer && !Old->IsDestroying() && !Reads(Old, &Input)) Old->RemoveRelatedSeries(this);
    if (Value != nullptr && Value != Indexer && !Reads(Value)) Value->AddRelatedSeries(this);
    Input.Point(Value);
    // With no real coordinate left nothing is drawn.
    if (!HasOwnData(FX) && !HasOwnData(FY))
      for (TZySeriesInput* Coordinate : {&FX, &FY})
        if (Coordinate->Vector() == Indexer) Coordinate->Point(nullptr);
    DataReset();
    if (Input.Use() != TZyInputUse::Apart) TestAllAssigned();
  });
}

void TZySeries::SetTransformation(TZySeriesInput& Input, TZyValueTransformation Value) {
  Input.SetTransformation(std::move(Value));
  RangesModified();
}

void TZySeries::SetAxis(TRef<TZyAxis>& Field, TZyAxis* Value, const char* PropName) {
  if (Field == Value) return;
  TZySeriesInput::NoteChange();
  ChangeJoining(PropName, [&] {
    if (Field != nullptr && !Field->IsDestroying()) Field->RemoveRelatedSeries(this);
    Field = Value;
    TestAllAssigned();
  });
}

void TZySeries::SetXAxis(TZyAxis* Value) { SetAxis(FXAxis, Value, "XAxis"); }

void TZySeries::SetYAxis(TZyAxis* Value) { SetAxis(FYAxis, Value, "YAxis"); }

void TZySeries::SetDefaultAxis(IZyAxisGraph& FromGraph) {
  for (TZyAxis* Axis : {FXAxis.Get(), FYAxis.Get()})
    if (Axis != nullptr && !Axis->IsDestroying()) Axis->RemoveRelatedSeries(this);
  TZySeriesInput::NoteChange();
  TakeDefaultAxis(FromGraph);
  TestAllAssigned();
}

void TZySeries::TakeDefaultAxis(IZyAxisGraph& FromGraph) {
  FXAxis = FromGraph.PrimaryXAxis();
  FYAxis = FromGraph.PrimaryYAxis();
}

void TZySeries::SwapDataVecs() {
  FX.SwapWith(FY);
  if (FIndexer == nullptr) return;
  if (FX.Vector() == FIndexer.get()) FIndexer->SetRefVector(FY.Vector());
  if (FY.Vector() == FIndexer.get()) FIndexer->SetRefVector(FX.Vector());
}

std::vector<TZyCustomDoubleVector*> TZySeries::Vectors() const {
  std::vector<TZyCustomDoubleVector*> Result;
  for (const TZySeriesInput* Input : FInputs) Result.push_back(Input->Vector());
  return Result;
}

/// Both axes, every vector that all points need, and one of X and Y at least.
bool TZySeries::IsComplete() const {
  if (FXAxis == nullptr || FYAxis == nullptr) return false;
  bool HasCoordinate = false;
  for (const TZySeriesInput* Input : FInputs) {
    if (Input->Use() == TZyInputUse::Needed && !HasOwnData(*Input)) return false;
    HasCoordinate = HasCoordinate || ((Input == &FX || Input == &FY) && HasOwnData(*Input));
  }
  return HasCoordinate;
}

void TZySeries::TestAllAssigned() {
  if (IsComplete()) {
    JoinGraph();
  } else {
    LeaveGraph();
  }
}

/// The index stands in for a missing coordinate, and is as long as the other one.
void TZySeries::PointIndexer() {
  if (HasOwnData(FX) && HasOwnData(FY)) return;
  if (FIndexer == nullptr) FIndexer = std::make_unique<TZyIndexer>();
  for (TZySeriesInput* Coordinate : {&FX, &FY})
    if (!*Coordinate) Coordinate->Point(FIndexer.get());
  if (!HasOwnData(FX)) FIndexer->SetRefVector(FY.Vector());
  if (!HasOwnData(FY)) FIndexer->SetRefVector(FX.Vector());
}

void TZySeries::SetGraph(IZySeriesGraph* Value) {
  FGraphControl = Value == nullptr ? nullptr : &Value->Control();
  FGraph = Value;
}

/// One that came into its graph by what was read logs its changes from now on: nothing of it was there before.
void TZySeries::EndRead() {
  FReadsRecord = false;
  if (FUndo == nullptr && Graph() != nullptr) SetUndoStack(Graph()->UndoStack());
}

bool TZySeries::ReadsRecord() const { return FReadsRecord || (Graph() != nullptr && Graph()->LoadingRecord()); }

/// The axes learn of the series without a graph as well: an axis that comes into one brings its series along.
void TZySeries::JoinGraph() {
  FXAxis->AddRelatedSeries(this);
  FYAxis->AddRelatedSeries(this);
  auto* const Found = dynamic_cast<IZySeriesGraph*>(FYAxis->Parent());
  if (Graph() != nullptr && Graph() != Found) {
    Graph()->RemoveRelatedSeries(this);
    Graph()->Control().Invalidate();
  }
  SetGraph(Found);
  if (Found == nullptr || Found->Control().IsDestroying()) return;
  const bool IsPlaced = IsDesigning() && !IsLoading() && !ReadsRecord();  // by the designer
  if (Found->AddRelatedSeries(this)) {
    if (IsPlaced) FLayer = Found->SeriesCount() - 1;
    if (FUndo == nullptr && !FReadsRecord) SetUndoStack(Found->UndoStack());
  }
  PointIndexer();
  if (IsPlaced) {
    const TZySeriesUpdate Update(Found);
    AddSampleData();
  }
  FLastVisible = SeriesVisible();  // of which the axes learn here, not once more at the first paint
  RangesModified();
  Found->LegendsModified();
  Found->Modified();
}

bool TZySeries::FillValues(TZyCustomDoubleVector* Data, std::span<const double> Values) {
  auto* const Vector = dynamic_cast<TZyDoubleVector*>(Data);
  if (Vector == nullptr || Vector->Count() > 0) return false;
  Vector->AddRange(Values);
  return true;
}

bool TZySeries::FillSample(TZyCustomDoubleVector* Data, double Start, double Step, double Scatter, double Stop) {
  std::array<double, 11> Values{Start};
  for (int i = 1; i < 10; ++i) Values[static_cast<std::size_t>(i)] = Random() * Step * Scatter + i * Step + Start;
  Values.back() = Stop;
  return FillValues(Data, Values);
}

bool TZySeries::FillRandom(TZyCustomDoubleVector* Data, int Number, double Size) {
  std::vector<double> Values(static_cast<std::size_t>(Number));
  for (double& Value : Values) Value = Random() * Size + Size;
  return FillValues(Data, Values);
}

/// Values between the ends of the axes, so that a new series can be seen in the form designer.
void TZySeries::AddSampleData() {
  const double XStep = (FXAxis->Stop() - FXAxis->Start()) / 10, YStep = (FYAxis->Stop() - FYAxis->Start()) / 10;
  FillSample(XData(), FXAxis->Start(), XStep, 0.2, FXAxis->Stop());
  if (FillSample(YData(), FYAxis->Start(), YStep, 1, FYAxis->Stop())) FYAxis->ShrinkOtherYs();
}

void TZySeries::LeaveGraph() {
  TZySeriesInput::NoteChange();
  for (TZyAxis* Axis : {FXAxis.Get(), FYAxis.Get()})
    if (Axis != nullptr && !Axis->IsDestroying()) Axis->RemoveRelatedSeries(this);
  FState.Reset();
  ForgetPixels();
  IZySeriesGraph* const Old = Graph();
  if (Old == nullptr) return;
  SetGraph(nullptr);
  Old->RemoveRelatedSeries(this);
  if (Old->Control().IsDestroying()) return;
  if (Old->PrimaryYAxis() != nullptr) Old->PrimaryYAxis()->RangeModified();
  Old->SeriesModified();
  Old->LegendsModified();
}

void TZySeries::Notification(TComponent* AComponent, TOperation Operation) {
  TComponent::Notification(AComponent, Operation);
  if (Operation != TOperation::Remove || IsDestroying()) return;
  if (AComponent == FGraphControl) {
    SetGraph(nullptr);
    SetXAxis(nullptr);
    SetYAxis(nullptr);
  }
  if (AComponent == XData() && AComponent == YData()) FY.Point(nullptr);  // the index stands in for none of the two
  for (std::size_t i = 0; i < FInputs.size(); ++i)
    if (FInputs[i]->Vector() == AComponent) SetInput(*FInputs[i], nullptr);
}

}  // namespace zy
