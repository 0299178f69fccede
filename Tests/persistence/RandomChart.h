#pragma once

#include <memory>
#include <random>

#include "annotations/ZyCrossHair.h"
#include "annotations/ZyLabelWithArrowMarker.h"
#include "annotations/ZyLegend.h"
#include "graph/SampleChart.h"
#include "platform/data/TDataSource.h"
#include "platform/framework/Application.h"
#include "platform/sql/TSqlDataSet.h"
#include "series/ZyBubbles.h"
#include "series/ZyFittedLine.h"
#include "series/ZyFunctionSeries.h"
#include "texts/Exceptions.h"
#include "undo/RandomSetters.h"

namespace zy::testing {

/// A data set that charts are linked to: a field of numbers and one of texts.
struct TSampleData : TDataModule {
  TSampleData() {
    SetName("Data");
    Source->SetName("Source");
    Source->SetDataSet(Query);
    Query->SetQuery("SELECT 1.5 AS v, 'one' AS r UNION ALL SELECT 4.0, 'two' UNION ALL SELECT NULL, NULL");
    Query->Open();
  }
  TSqlDataSet* Query = new TSqlDataSet(this);
  TDataSource* Source = new TDataSource(this);
};

/// A curve of random data and settings may fail, which is not to end a test.
inline void Quieten(TZySeries& Series) {
  if (auto* const Curve = dynamic_cast<TZyFunctionSeries*>(&Series))
    Curve->SetOnCalculationError([](TObject*, const std::exception&) {});
}

/// Two graphs on one X axis, which a record is read into when nothing is added.
class TGraphPair : public TSampleChart {
 public:
  explicit TGraphPair(bool WithAxes) : TSampleChart(300, 220) {
    Other->SetName("Other");
    Other->SetParent(&Form);
    Other->SetBounds(0, 220, 300, 160);
    if (WithAxes) return;
    delete X;
    delete Y;
  }
  std::vector<TZyGraph2D*> Graphs() const { return {Graph, Other}; }
  TZyGraph2D* Other = new TZyGraph2D(&Form);
};

/// A chart of everything that charts are made of, by a seed; every other one has gradients along lines.
class TRandomChart : public TGraphPair {
 public:
  TRandomChart(unsigned Seed, TSampleData& Data)
      : TGraphPair(true), HasLineGradients(Seed % 2 == 0), FRandom(Seed), FData(Data) {
    Other->SetPrimaryXAxis(X);
    Other->SetPrimaryYAxis(AddAxis(Other, TZyAxisPosition::Left));
    for (int Count = Roll(4); Count > 0; --Count)
      AddAxis(Roll(4) == 0 ? Other : Graph, static_cast<TZyAxisPosition>(Roll(4)));
    AddAllSeries();
    for (int Count = Roll(3); Count > 0; --Count) AddLegend();
    AddMarkersOfSome();
    for (TComponent* Component : std::vector(Form.Components()))
      if (dynamic_cast<TZyDoubleVector*>(Component) == nullptr) SetAll(*Component);
    for (TZyMovable* Marker : FMarkers) {
      const auto Series = Whole(Graph->RelatedSeries());
      if (Roll(2) == 0) Marker->SetSnappedSeries(Series[Choose(Series)]);
      if (auto* const Label = dynamic_cast<TZyLabelWithArrowMarker*>(Marker)) Label->Arrow().SetVisible(true);
    }
    for (TZyAxis* Axis : FAxes) {
      TZyAxis* const Master = FAxes[Choose(FAxes)];
      const bool IsLog = Axis->HasLogScaling() || Master->HasLogScaling();  // a slave becomes so after its ranges
      if (!IsLog && Roll(2) == 0 && Master->Parent() == Axis->Parent()) Axis->SetMasterAxis(Master);
      for (int Count = Roll(5); Count > 0; --Count) Axis->Rubrics()->Add("rubric\r" + std::to_string(Roll(99)));
      Axis->SetLogToNormalScalingLevel(0);  // else ranges come from the layout before
      if (Roll(5) == 0) Axis->SetDataSource(FData.Source), Axis->SetRubricsField("r");
    }
    for (TZyGraph2D* One : Graphs())
      for (TZySeries* Series : One->RelatedSeries()) Refer(*Series, Whole(One->RelatedSeries()));
    for (int Times = 0; Times < 2; ++Times) {
      for (TZyGraph2D* One : Graphs())
        for (TZySeries* Series : One->RelatedSeries()) {  // those without AutoUpdate as well
          Series->CheckDBVectors();
          Series->RangesModified();
          Series->Calculate();
        }
      Graph->ZoomReset();
      Settle();
    }
    for (int Times = Roll(4); Times > 0; --Times) {
      Graph->ZoomTo({Roll(300), Roll(220)}, {Roll(300), Roll(220)});
      if (Roll(2) == 0) Graph->ZoomBack();
      Settle();
    }
    const auto OutOfStep = [this](TZyAxis* Axis) { return Axis->GetZoomBufferSize() != X->GetZoomBufferSize(); };
    if (std::ranges::any_of(FAxes, OutOfStep)) {  // which coupled graphs mend when they are painted
      Graph->ZoomReset();
      Settle();
    }
  }

  /// Lays out and paints until nothing moves; gradients of lines, and the depth of bars, follow from the data area of
  /// the layout before.
  void Settle() {
    for (int Times = 0; Times < 5; ++Times)
      for (TZyGraph2D* One : Graphs()) {
        One->Modified();
        Paint(*One);
      }
  }

  const bool HasLineGradients;

 private:
  int Roll(int Count) { return static_cast<int>(FRandom() % static_cast<unsigned>(Count)); }
  template <class T>
  std::size_t Choose(const std::vector<T>& List) {
    return FRandom() % List.size();
  }

  TZyAxis* AddAxis(TZyGraph2D* Parent, TZyAxisPosition Position) {
    auto* const Axis = new TZyAxis(&Form);
    Axis->SetName("Axis" + std::to_string(FAxes.size()));
    Axis->SetPosition(Position);
    Axis->SetParent(Parent);
    FAxes.push_back(Axis);
    return Axis;
  }

  void AddLegend() {
    auto& Legend = *new TZyLegend(&Form);
    Legend.SetName(Form.FirstFreeName("Legend"));
    Legend.SetParent(Graphs()[static_cast<std::size_t>(Roll(2))]);
    Legend.SetGraph(dynamic_cast<TZyGraph2D*>(Legend.Parent()));
    Legend.SetPosition(static_cast<TZyLegendPosition>(Roll(11)));
    Legend.SetLegendCaptionColorFrom(static_cast<TZyLegendCaptionColorFrom>(Roll(3)));
    Legend.SetBounds(Roll(200), Roll(150), Roll(200), Roll(150));
    Legend.SetItemHeight(static_cast<float>(Roll(2) * 25));
    if (Roll(2) == 0) Legend.ItemsOrderList()->SetText("Form.There\nForm.Here\nForm.Nobody");
  }

  /// Of arrows the stream does not tell whether they are visible, and XML nothing of the lines of a cross hair.
  void AddMarkersOfSome() {
    for (TZyMovable* Marker : AddMarkers("")) {
      if (Roll(2) == 0) {
        delete Marker;
        continue;
      }
      if (Roll(3) == 0) Marker->SetXAxis(nullptr);
      if (Roll(3) == 0) Marker->SetYAxis(nullptr);
      FMarkers.push_back(Marker);
    }
  }

  void AddAllSeries() {
    std::vector<TZyAxis*> Across, Up;
    AddSeries("Here", {1, 2, 5}, {3, 1, 4});  // INI takes ranges with data alone
    AddSeries("There", {2, 3, 7}, {2, 7, 1})->SetYAxis(Other->PrimaryYAxis());
    TZyCustomDoubleVector *SharedHere = nullptr, *SharedThere = nullptr;  // new data of one graph would move the other
    for (TZyAxis* Axis : FAxes) (Axis->GetHorizontal() ? Across : Up).push_back(Axis);
    for (TZySeries* Series : AddOfEachKind("")) {
      const bool IsCurve = dynamic_cast<TZyFunctionSeries*>(Series) != nullptr;
      if (Roll(3) == 0 || (FHasDatabase && IsCurve)) {  // the range of a curve comes from the layout before
        delete Series;
        continue;
      }
      Quieten(*Series);
      if (auto* const Fit = dynamic_cast<TZyFittedLine*>(Series))
        Fit->SetIterations(0);  // a fit goes on when it is read
      Series->SetYAxis(Up[Choose(Up)]);
      TZyAxis* const OneAcross = Across[Choose(Across)];
      if (OneAcross->Parent() == Series->YAxis()->Parent()) Series->SetXAxis(OneAcross);
      if (auto* const Bubbles = dynamic_cast<TZyBubbles*>(Series))
        Bubbles->SetElliptical(true);  // the range of circles comes from the layout before
      for (const TPropInfo* Info : Series->ClassInfo().Properties())
        if (IsVector(*Info) && Info->GetObject(*Series) == nullptr)
          Info->SetObject(*Series, AddVector(Series->Name() + Info->Name));
      for (TZyCustomDoubleVector* Data : Series->Vectors()) FillVector(dynamic_cast<TZyDoubleVector*>(Data));
      TZyCustomDoubleVector*& Shared = Series->YAxis()->Parent() == Graph ? SharedHere : SharedThere;
      if (Roll(4) == 0 && Shared != nullptr) Series->SetXData(Shared);
      Shared = Series->YData();
    }
  }

  static bool IsVector(const TPropInfo& Info) {
    return Info.Kind == TPropKind::Class && Info.ObjectClass().InheritsFrom(TZyCustomDoubleVector::StaticClassInfo());
  }

  void FillVector(TZyDoubleVector* Vector) {
    if (Vector == nullptr) return;
    for (int Count = Roll(40); Count > 0; --Count) Vector->Add(Roll(2000) / 16.0 - 20);
    for (int Count = Roll(3); Count > 0 && Vector->Count() > 0; --Count) Vector->AddOutlier(Roll(Vector->Count()));
    if (FHasDatabase && Roll(4) == 0) Vector->SetDataSource(FData.Source), Vector->SetDataField("v");
  }

  /// Those that are no part of another one, whose record leaves them out.
  static std::vector<TZySeries*> Whole(const TRefList<TZySeries>& List) {
    std::vector<TZySeries*> Result = Listed(List);
    std::erase_if(Result, [](const TZySeries* Series) { return Series->IsSubComponent(); });
    return Result;
  }

  /// Refers to series of the same graph, those that stand behind included.
  void Refer(TZySeries& Series, const std::vector<TZySeries*>& Others) {
    for (const char* Name : {"MergeLegendItemWith", "DrawBandTo", "RangeFromFunction"}) {
      const TPropInfo* const Info = Series.ClassInfo().FindProperty(Name);
      TZySeries* const Target = Others[Choose(Others)];
      if (Info != nullptr && Target->ClassInfo().InheritsFrom(Info->ObjectClass())) Info->SetObject(Series, Target);
    }
  }

  /// Sets the published properties of an object and of its settings; what makes up the chart was set before. Labels of
  /// bars stay off: one that fits takes no room, and fits as long as it takes none. Edges of legends are not stored.
  void SetAll(TPersistent& Object) {
    static const std::set<std::string_view> Kept = {"Name",
                                                    "XAxis",
                                                    "YAxis",
                                                    "XData",
                                                    "YData",
                                                    "PrimaryXAxis",
                                                    "PrimaryYAxis",
                                                    "Position",
                                                    "Left",
                                                    "Top",
                                                    "Width",
                                                    "Height",
                                                    "Align",
                                                    "Parent",
                                                    "SmoothingMode",
                                                    "DataSource",
                                                    "Size",
                                                    "RubricsField",
                                                    "Font",
                                                    "DataField",
                                                    "MasterAxis",
                                                    "MergeLegendItemWith",
                                                    "DrawBandTo",
                                                    "RangeFromFunction",
                                                    "Elliptical",
                                                    "LabelPosition",
                                                    "BorderRaised",
                                                    "BorderLowered",
                                                    "ItemHeight",
                                                    "Iterations",
                                                    "Phase",
                                                    "ItemsOrderList",
                                                    "Graph",
                                                    "SnappedSeries",
                                                    "HorizontalMarker",
                                                    "VerticalMarker",
                                                    "SnapToSeriesValues"};
    for (const TPropInfo* Info : Object.ClassInfo().Properties()) {
      const bool IsOfLine = Object.ClassInfo().InheritsFrom(TZySimpleLineSettings::StaticClassInfo());
      if (Info->IsOwnedObject && !Kept.contains(Info->Name) && Info->GetObject(Object) != nullptr &&
          (HasLineGradients || !IsOfLine))
        SetAll(*Info->GetObject(Object));
      if (Kept.contains(Info->Name) || IsVector(*Info) || Roll(2) == 0) continue;
      try {
        if (Info->Kind == TPropKind::Float) {
          Info->SetFloat(Object, Roll(48) / 8.0);
        } else if (Info->TypeName != nullptr && Info->TypeName() == TypeName<TZyColor>()) {
          Info->SetOrd(Object, (Roll(4) == 0 ? 0x80000000 : 0xFF000000) + FRandom() % 0x1000000);
        } else {
          SetAtRandom(Object, *Info, Form, FRandom);
        }
      } catch (const Exception&) {  // what the setter refuses stays as it was
      }
    }
  }

  std::mt19937 FRandom;
  const bool FHasDatabase = Roll(3) == 0;
  TSampleData& FData;
  std::vector<TZyAxis*> FAxes{X, Y};
  std::vector<TZyMovable*> FMarkers;
};

}  // namespace zy::testing
