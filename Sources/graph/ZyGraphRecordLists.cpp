// The lists in the record of a graph, and how a reader finds or makes what stands in them.

#include <limits>
#include <unordered_set>

#include "graph/ZyGraph2D.h"
#include "graph/ZyGraphRecord.h"
#include "persistence/ZyStoredObjects.h"
#include "platform/framework/TPropInfo.h"
#include "series/ZySeries.h"
#include "series/vectors/ZyDoubleVector.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

constexpr std::string_view LegendClass = "TZyLegend";  // stands above graphs, and is known by its name here

/// The class of that name, null for one that is not known; throws for one of another kind.
const TClassInfo* KindOf(std::string_view ClassName, const TClassInfo& Kind) {
  const TClassInfo* const Class = GetClass(ClassName);
  if (Class == nullptr || Class->Factory() == nullptr) return nullptr;
  if (!Class->InheritsFrom(Kind)) throw EReadError(Format(LoadResString(_sOtherClassStored), {ClassName, Kind.Name()}));
  return Class;
}

/// Parts of markers go with these.
bool IsMarker(TControl& Control) {
  return dynamic_cast<IZyGraphMarker*>(&Control) != nullptr && !Control.IsSubComponent();
}

bool IsAxis(TControl& Control) { return dynamic_cast<TZyAxis*>(&Control) != nullptr; }

}  // namespace

void TZyGraphRecord::Lists() {
  int Vectors = 0;
  const auto Counted = [&](const TZyIdentity& Who, const TReadObject& Read) {
    ++Vectors;
    ReadVector(Who, Read);
  };
  const auto By = [this](void (TZyGraphRecord::*ReadOne)(const TZyIdentity&, const TReadObject&)) {
    return [this, ReadOne](const TZyIdentity& Who, const TReadObject& Read) {
      if (!Who.Reference.empty()) (this->*ReadOne)(Who, Read);
    };
  };
  // In INI the count of the vectors is always there.
  FHasData = FArchive.Alternative(TZyFieldName("Vectors").Ini(""), FGraph.SavesData() || FArchive.IsIni(), [&] {
    FArchive.Records("Vectors", FGraph.SavesData() ? this->Vectors() : TRecords(), false, Counted);
  });
  if (FArchive.IsIni()) FHasData = Vectors > 0;
  FArchive.Records("Axes", StoredControls(IsAxis), false, By(&TZyGraphRecord::ReadAxis));
  const std::vector<TZySeries*> Series = StoredSeries();
  if (FArchive.IsReading()) TakeOutSeries();
  FArchive.Records("RelatedSeries", {Series.begin(), Series.end()}, true, By(&TZyGraphRecord::ReadSeries));
  if (FArchive.IsReading()) {
    CalculateSeries();
    for (IZyGraphLegend* Legend : FGraph.RelatedLegends()) FGraph.RemoveRelatedLegend(Legend);
  }
  FArchive.Records("RelatedLegends", Legends(), false, By(&TZyGraphRecord::ReadLegend));
  if (FArchive.IsReading()) FreeMarkers();
  FArchive.Records("Markers", StoredControls(IsMarker), true, By(&TZyGraphRecord::ReadMarker));
}

// --- What is written ------------------------------------------------------------------------------------------------

/// Those of the graph, and those that wait for what they lack; parts of series go with these.
std::vector<TZySeries*> TZyGraphRecord::StoredSeries() const {
  std::vector<TZySeries*> Result;
  const auto Add = [&Result](TZySeries* One) {
    if (IsStored(*One) && !One->IsSubComponent()) Result.push_back(One);
  };
  for (TZySeries* One : FGraph.RelatedSeries()) Add(One);
  for (TZySeries* One : FGraph.FIncompleteSeries)
    if (!One->HasGraph()) Add(One);
  return Result;
}

/// Those of all that a series reads, so that the chart is whole where it is read, each once.
TZyGraphRecord::TRecords TZyGraphRecord::Vectors() const {
  TRecords Result;
  std::unordered_set<const TZyDoubleVector*> Known;
  for (const TZySeries* Series : StoredSeries())
    for (TZyCustomDoubleVector* Data : Series->Vectors()) {
      auto* const Vector = dynamic_cast<TZyDoubleVector*>(Data);
      if (Vector != nullptr && IsStored(*Vector) && Known.insert(Vector).second) Result.push_back(Vector);
    }
  return Result;
}

TZyGraphRecord::TRecords TZyGraphRecord::StoredControls(bool (*IsOne)(TControl& Control)) const {
  TRecords Result;
  for (TControl* Control : FGraph.Controls()) {
    auto* const Record = dynamic_cast<TZyRecord*>(Control);
    if (Record != nullptr && IsOne(*Control) && IsStored(*Control)) Result.push_back(Record);
  }
  return Result;
}

TZyGraphRecord::TRecords TZyGraphRecord::Legends() const {
  TRecords Result;
  for (IZyGraphLegend* Legend : FGraph.RelatedLegends()) {
    auto* const Record = dynamic_cast<TZyRecord*>(&Legend->Control());
    if (Record != nullptr && IsStored(Legend->Control())) Result.push_back(Record);
  }
  return Result;
}

// --- What is read ---------------------------------------------------------------------------------------------------

void TZyGraphRecord::ReadVector(const TZyIdentity& Who, const TReadObject& Read) {
  if (Who.Reference.empty()) return;
  const TClassInfo& Class = TZyDoubleVector::StaticClassInfo();
  auto* Vector = Existing<TZyDoubleVector>(Who, Class.Name());
  if (Vector == nullptr) Vector = static_cast<TZyDoubleVector*>(&MakeStored(Who, Class));
  Read(*Vector);
}

/// An axis that is made has no undo stack while it is read: nothing of it was there before.
void TZyGraphRecord::ReadAxis(const TZyIdentity& Who, const TReadObject& Read) {
  const TClassInfo& Class = TZyAxis::StaticClassInfo();
  auto* Axis = Existing<TZyAxis>(Who, Class.Name());
  const bool IsNew = Axis == nullptr;
  if (IsNew) {
    Axis = static_cast<TZyAxis*>(&MakeStored(Who, Class));
    Axis->SetParent(&FGraph);
  }
  Axis->ReadBy([&] { Read(*Axis); }, FHasData);
  if (IsNew && Axis->UndoStack() == nullptr) Axis->SetUndoStack(FGraph.UndoStack());
}

void TZyGraphRecord::TakeOutSeries() {
  for (TZySeries* Series : FGraph.RelatedSeries()) {
    NoteAxes(*Series);
    Series->LeaveGraph();
  }
  FGraph.FRelatedSeries.Clear();
  FGraph.FIncompleteSeries.Clear();
}

/// The ranges of axes are stored with the graph that holds them. Those of other graphs, of data that a database may
/// have changed, and of a chart that was stored before its first paint are looked at when all was read.
void TZyGraphRecord::NoteAxes(const TZySeries& Series) {
  bool HasDBData = false;
  for (TZyCustomDoubleVector* Data : Series.Vectors()) {
    const auto* const Vector = dynamic_cast<const TZyDoubleVector*>(Data);
    HasDBData = HasDBData || (Vector != nullptr && Vector->DBData());
  }
  for (TZyAxis* Axis : {Series.XAxis(), Series.YAxis()}) {
    if (Axis == nullptr) continue;
    const bool HasSeenData = Axis->ValuesStart() < std::numeric_limits<double>::max();
    if (HasDBData || !HasSeenData || Axis->Parent() != &FGraph) FGraph.FAxesToTest.Add(Axis);
  }
}

/// A series stands in the list as soon as it is complete, which one that stays as it was is asked for; what was read of
/// its look is no change to the axes.
void TZyGraphRecord::ReadSeries(const TZyIdentity& Who, const TReadObject& Read) {
  const TClassInfo& Kind = TZySeries::StaticClassInfo();
  auto* Series = Existing<TZySeries>(Who, Kind.Name());
  const TClassInfo* const Class = KindOf(Who.ClassName, Kind);
  if (Series != nullptr && Series->ClassName() != Who.ClassName) {
    delete Series;
    Series = nullptr;
  }
  if (Series == nullptr) {
    if (Class == nullptr) return;
    Series = static_cast<TZySeries*>(&MakeStored(Who, *Class));
  }
  Read(*Series);
  Series->TestAllAssigned();
  Series->TestVisibleChanged();
  if (!Series->HasGraph()) FGraph.FIncompleteSeries.Add(Series);
}

/// When all are there: the range of a curve may depend on what else stands on its axis. A curve that cannot be computed
/// is not shown; the chart around it is read all the same.
void TZyGraphRecord::CalculateSeries() {
  for (TZySeries* Series : FGraph.RelatedSeries()) {
    NoteAxes(*Series);
    try {
      Series->CheckDBVectors();
      Series->Calculate();
    } catch (const Exception&) {
    }
  }
}

void TZyGraphRecord::ReadLegend(const TZyIdentity& Who, const TReadObject& Read) {
  const TClassInfo& Class = FindClass(LegendClass);
  TComponent* Legend = ExistingOf(Who, Class);
  if (Legend == nullptr) {
    Legend = &MakeStored(Who, Class);
    static_cast<TControl&>(*Legend).SetParent(&FGraph);
  }
  Read(dynamic_cast<TZyRecord&>(*Legend));
  auto& Control = static_cast<TControl&>(*Legend);
  if (Control.Parent() == nullptr) Control.SetParent(&FGraph);
  dynamic_cast<IZyStoredLegend&>(*Legend).JoinGraph(FGraph);
}

void TZyGraphRecord::FreeMarkers() {
  for (std::size_t Index = FGraph.Controls().size(); Index-- > 0;)
    if (Index < FGraph.Controls().size() && IsMarker(*FGraph.Controls()[Index])) delete FGraph.Controls()[Index];
}

void TZyGraphRecord::ReadMarker(const TZyIdentity& Who, const TReadObject& Read) {
  const TClassInfo* const Class = KindOf(Who.ClassName, TGraphicControl::StaticClassInfo());
  auto* Marker = Existing<IZyGraphMarker>(Who, Who.ClassName);
  if (Marker == nullptr) {
    if (Class == nullptr) return;
    auto& Made = static_cast<TControl&>(MakeStored(Who, *Class));
    Made.SetParent(&FGraph);
    Marker = dynamic_cast<IZyGraphMarker*>(&Made);
    if (Marker == nullptr) {
      delete &Made;
      throw EReadError(Format(LoadResString(_sOtherClassStored), {Who.ClassName, "marker"}));
    }
  }
  auto* const Record = dynamic_cast<TZyRecord*>(Marker);
  if (Record == nullptr) throw EReadError(Format(LoadResString(_sOtherClassStored), {Who.ClassName, "TZyRecord"}));
  Read(*Record);
  if (FGraph.UndoStack() != nullptr) Marker->SetUndoStack(FGraph.UndoStack());
}

}  // namespace zy
