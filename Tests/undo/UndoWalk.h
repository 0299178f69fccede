#pragma once

#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "annotations/ZyCrossHair.h"
#include "annotations/ZyLegend.h"
#include "framework/SampleComponent.h"
#include "graph/SampleChart.h"
#include "pie/ZyPieLegend.h"
#include "platform/framework/Reflection.h"
#include "series/ZyFittedLine.h"
#include "texts/Exceptions.h"
#include "undo/RandomSetters.h"
#include "undo/ZyUndoGroup.h"
#include "undo/ZyUndoStack.h"

namespace zy::testing {

/// A painted chart with a series of each kind and a sample of every kind of property, all of which push to one stack.
class TUndoForm {
 public:
  TUndoForm() {
    Chart.Graph->SetParentFont(false);  // else the first colour of its own would end it, which is no step
    Stack.SetName("Stack");
    Stack.SetLimit(0);
    AddCoupled();
    Legend->SetName("Legend");
    Legend->SetParent(Chart.Graph);
    Legend->SetGraph(Chart.Graph);
    for (TZyGraph2D* Graph : Graphs()) Graph->SetUndoStack(&Stack);
    AddPie();
    for (TZySeries* Series : Chart.AddOfEachKind("")) {
      Series->SetUndoStack(&Stack);
      if (auto* const Fit = dynamic_cast<TZyFittedLine*>(Series)) Fit->SetIterations(0);
      if (Series->ClassInfo().FindProperty("XAxis") == nullptr) Series->SetXAxis(nullptr);  // it would not be stored
    }
    for (TZyMovable* Marker : Chart.AddMarkers("")) UseMarker(*Marker);
    Sample.SetName("Sample");
    Sample.MakePart();
    for (TSample* const Part : {&Sample, Sample.Part()})
      Part->BeforeChange = [this](TPersistent* Instance, const char* Property) {
        Stack.PushProperty(Instance, Property, Property);
      };
    Stack.Clear();
    Paint();  // is no step, and makes of an axis without data what it shows
  }

  ~TUndoForm() {
    for (TSample* const Part : {&Sample, Sample.Part()}) Part->BeforeChange = nullptr;  // the stack goes first
  }

  /// The objects of the form whose changes are steps.
  std::vector<TPersistent*> Objects() {
    std::vector<TPersistent*> Result;
    Collect(*Sample.Part(), Result);
    for (TComponent* Component : Form.Components())
      if (dynamic_cast<TZyDoubleVector*>(Component) == nullptr && Component != &Stack) Collect(*Component, Result);
    for (TComponent* Component : Form.Components()) {
      if (auto* const Cross = dynamic_cast<TZyCrossHair*>(Component)) Collect(*Cross->HorizontalMarker(), Result);
      if (const auto* const Holder = dynamic_cast<IZyUndoParts*>(Component))
        for (TPersistent* Part : Holder->UndoParts()) Collect(*Part, Result);
    }
    return Result;
  }

  std::vector<TZyGraph2D*> Graphs() {
    std::vector<TZyGraph2D*> Result;
    for (TComponent* Component : Form.Components())
      if (auto* const Graph = dynamic_cast<TZyGraph2D*>(Component)) Result.push_back(Graph);
    return Result;
  }

  void Paint() {
    for (bool IsPainted = false; !IsPainted;) {
      try {
        for (TZyGraph2D* Graph : Graphs()) Chart.Paint(*Graph);
        for (TComponent* Component : Form.Components())  // hidden ones as well
          if (auto* const One = dynamic_cast<TZyCustomLegend*>(Component)) One->PreparePaint();
        for (TComponent* Component : Form.Components())
          if (auto* const Pie = dynamic_cast<TZyPieChart*>(Component))
            PictureOf(std::max(Pie->Width(), 1), std::max(Pie->Height(), 1), [Pie](Graphics& Gr) { Pie->PaintGr(Gr); });
        IsPainted = true;
      } catch (const EMathError&) {
        // A calculation has no points between the ends that were set for it, which each one tells once.
      }
    }
  }

  /// The bytes of the form, with layers as the next layout numbers them.
  std::string Bytes() {
    for (TZyGraph2D* Graph : Graphs()) Graph->SortLayers();
    return BytesOf(Form);
  }

  /// The same of the form once it is painted, without what only follows.
  std::string Text() {
    Paint();
    return WithoutFollowers(Bytes());
  }

  /// The bytes of a form without the boxes of axes, the ends of curves, the axis that a phase without one is given, and
  /// the size of a pie's labels: what these follow from is undone, but they are those of the last layout or
  /// calculation, and none comes while an axis, or the values of the pie, are missing.
  static std::string WithoutFollowers(std::string Result) {
    for (const std::string_view Name : {"Left", "Top", "Width", "Height", "CalculationStart", "CalculationStop",
                                        "DisplayStart", "DisplayStop", "Offset"}) {
      const std::string Row = std::string("\x07") + static_cast<char>(Name.size()) + std::string(Name);
      for (std::size_t At = Result.find(Row); At != std::string::npos; At = Result.find(Row, At)) {
        const char Tag = Result[At + Row.size()];  // of one, two, four or eight bytes
        Result.erase(At, Row.size() + 1 + (Tag == 6 ? 8U : 1U << (Tag - 2)));
      }
    }
    const std::string Pie = std::string("\x07\x0b") + "TZyPieChart", Size = std::string("\x07\x09") + "Font.Size";
    for (std::size_t At = Result.find(Pie); At != std::string::npos; At = Result.find(Pie, At + 1))
      if (const std::size_t Row = Result.find(Size, At); Row != std::string::npos)
        Result.erase(Row, Size.size() + 9);  // a number of eight bytes
    const std::string Row = "\x07\x0bPhase.YAxis";
    for (std::size_t At = Result.find(Row); At != std::string::npos; At = Result.find(Row, At))
      Result.erase(At, Result.find('\x07', At + Row.size()) - At);
    return Result;
  }

  /// A graph on the X axis of the other one, with a curve on an axis of its own.
  void AddCoupled() {
    TZyGraph2D& Graph = Chart.AddCoupled();
    Graph.SetName("Coupled");
    Graph.SetParentFont(false);
    auto* const Axis = new TZyAxis(&Form);
    Axis->SetName("CoupledY");
    Axis->SetPosition(TZyAxisPosition::Left);
    Axis->SetParent(&Graph);
    Graph.SetPrimaryYAxis(Axis);
    Chart.AddSeries("Lower", {1, 2, 3}, {5, 4, 6})->SetYAxis(Axis);
  }

  /// A pie with labels, whose size each paint sets, and all that it uses.
  void AddPie() {
    auto* const Pie = new TZyPieChart(&Form);
    auto* const Palette = new TZyFillPalette(&Form);
    auto* const PieLegend = new TZyPieLegend(&Form);
    Pie->SetName("Pie");
    Pie->SetParentFont(false);
    Pie->SetParent(&Form);
    Pie->SetLabelPosition(TZyPieLabelPosition::Callouts);
    Palette->SetName("Palette");
    Palette->FillDefaults();
    PieLegend->SetName("PieLegend");
    PieLegend->SetParent(Pie);
    PieLegend->SetPieChart(Pie);
    Pie->SetValues(Chart.AddVector("Parts", {5, 3, 2, 7}));
    Pie->SetExplodePercent(Chart.AddVector("Explosions", {0, 20}));
    Pie->SetSegmentSettingsPalette(Palette);
    Pie->SetUndoStack(&Stack);
  }

  /// As with the font of the graph.
  void UseMarker(TZyMovable& Marker) {
    Marker.SetParentFont(false);
    if (auto* const Cross = dynamic_cast<TZyCrossHair*>(&Marker)) Cross->HorizontalMarker()->SetParentFont(false);
    Marker.SetUndoStack(&Stack);
  }

  TSampleChart Chart;
  TForm& Form = Chart.Form;
  TZyLegend* Legend = new TZyLegend(&Form);
  TSample Sample{&Form};
  TZyUndoStack Stack{&Form};
};

/// Changes, makes, frees and paints what is on the form, undoes and redoes, at random.
class TUndoWalk : public TUndoForm {
 public:
  explicit TUndoWalk(unsigned Seed) : FRandom(Seed) {}

  void Walk(int Steps) {
    while (Steps-- > 0) {
      if (Roll(10) == 0 && FLevel < 4) Stack.StartGroup("group"), ++FLevel;
      Act();
      if (Roll(8) == 0 && FLevel > 0) Stack.StopGroup(), --FLevel;
    }
    for (; FLevel > 0; --FLevel) Stack.StopGroup();
  }

  void UndoAll() {
    while (Stack.CanUndo()) Stack.Undo(Roll(50));
  }

 private:
  int Roll(std::size_t Count) { return static_cast<int>(FRandom() % Count); }
  template <class T>
  T AnyOf(const std::vector<T>& List) {
    return List[FRandom() % List.size()];
  }
  void Act() {
    const int What = Roll(100);
    if (What == 0) Sample.SetShades(TSet<TShade>::FromBits(static_cast<unsigned>(Roll(8))));
    if (What == 1) Sample.Lines().Add("line " + std::to_string(Roll(1000)));
    if (What == 2) Stack.Undo(Roll(3));  // forgets a branch now and then
    if (What == 3) Stack.Redo(Roll(3));
    if (What == 4 || What == 5) Make();
    if (What == 6) Free(*AnyOf(Form.Components()));
    if (What == 7 || What == 8) Paint();
    if (What == 9) ChangeData(*AnyOf(Form.Components()));
    if (What > 9) Set(*AnyOf(Objects()));
  }
  void Set(TPersistent& Object) {
    const TPropInfo& Info = *AnyOf(Object.ClassInfo().Properties());
    if (IsUndone(Info)) SetAtRandom(Object, Info, Form, FRandom);
  }
  void ChangeData(TComponent& Component) {
    auto* const Vector = dynamic_cast<TZyDoubleVector*>(&Component);
    if (Vector == nullptr) return;
    Stack.PushVectorState(Vector, "data");
    if (Roll(4) == 0) return Vector->Clear();
    if (Roll(2) == 0) return void(Vector->Add(Roll(100)));
    if (Vector->Count() > 0) Vector->Delete(Roll(static_cast<std::size_t>(Vector->Count())));
  }
  void Make() {
    std::vector<const TClassInfo*> Kinds{&TZyAxis::StaticClassInfo(),      &TZyDoubleVector::StaticClassInfo(),
                                         &TZyLegend::StaticClassInfo(),    &TZyPieChart::StaticClassInfo(),
                                         &TZyPieLegend::StaticClassInfo(), &TZyFillPalette::StaticClassInfo()};
    for (const TClassInfo* Info : RegisteredClasses())
      if (Info->Factory() != nullptr &&
          (Info->InheritsFrom(TZySeries::StaticClassInfo()) || Info->InheritsFrom(TZyMovable::StaticClassInfo())))
        Kinds.push_back(Info);
    const TZyUndoGroup Group(&Stack, "new");
    auto* const Component = dynamic_cast<TComponent*>(AnyOf(Kinds)->Factory()(&Form));
    Component->SetName("New" + std::to_string(++FMade));
    Stack.PushFreeComponent(Component, "new");
    if (auto* const Axis = dynamic_cast<TZyAxis*>(Component)) {
      Axis->SetUndoStack(&Stack);
      if (!Graphs().empty()) Axis->SetParent(AnyOf(Graphs()));
    }
    if (auto* const Made = dynamic_cast<TZyCustomLegend*>(Component)) {
      Made->SetUndoStack(&Stack);
      if (!Graphs().empty()) Made->SetParent(AnyOf(Graphs()));
    }
    if (auto* const Pie = dynamic_cast<TZyPieChart*>(Component)) {
      Pie->SetParentFont(false);
      Pie->SetUndoStack(&Stack);
      Pie->SetParent(&Form);
      SetAtRandom(*Pie, *Pie->ClassInfo().FindProperty("Values"), Form, FRandom);
    }
    if (auto* const Marker = dynamic_cast<TZyMovable*>(Component)) {
      UseMarker(*Marker);
      if (!Graphs().empty()) Marker->SetParent(AnyOf(Graphs()));
    }
    if (auto* const Series = dynamic_cast<TZySeries*>(Component)) {
      if (auto* const Fit = dynamic_cast<TZyFittedLine*>(Series)) Fit->SetIterations(0);  // else each paint improves it
      Series->SetUndoStack(&Stack);
      for (const char* Name : {"XAxis", "YAxis", "XData", "YData"})
        if (const TPropInfo* Info = Series->ClassInfo().FindProperty(Name)) SetAtRandom(*Series, *Info, Form, FRandom);
    }
  }
  void Free(TComponent& Component) {
    if (&Component == &Sample || &Component == &Stack) return;
    const TZyUndoGroup Group(&Stack, "gone");  // what pointed at it says so in steps of its own
    Stack.PushComponent(&Component, "gone");
    delete &Component;
  }

  std::mt19937 FRandom;
  int FLevel = 0, FMade = 0;
};

}  // namespace zy::testing
