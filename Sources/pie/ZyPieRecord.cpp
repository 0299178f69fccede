// What is stored of a pie chart, in the order of the stream.

#include "pie/ZyPieRecord.h"

#include <algorithm>
#include <cmath>

#include "analysis/ZyMath.h"
#include "graph/parts/ZyControlRecord.h"
#include "persistence/ZyStoredObjects.h"
#include "pie/ZyPieLegend.h"
#include "platform/framework/Reflection.h"
#include "platform/framework/ScopedFlag.h"
#include "platform/framework/TPropInfo.h"
#include "series/vectors/ZyDoubleVector.h"

namespace zy {

void TZyPieRecord::Fields() {
  FArchive.Identity(FChart);
  FArchive.Alternative(TZyFieldName("SaveData").Xml("").Ini(""), FChart.SavesData(), [&] { DataFields(); });
  LegendFields();
  FArchive.Level("Properties", [&] {
    PlaceFields();
    TitleFields();
    FArchive.Part(TZyFieldName("PieDonut/Labels/Font").Ini("Labels.Font"), FChart.FFont);
    if (FArchive.IsReading()) FChart.FLabelsFont.FontChanged();  // the chart's own from now on
    FArchive.Level("PieDonut", [&] {
      ShapeFields();
      LookFields();
      PaletteFields();
    });
  });
}

void TZyPieRecord::Real(const TZyFieldName& Name, float& Member, const char* PropName) {
  float Value = Member;
  if (!FArchive.Value(Name, Value) || !std::isfinite(Value)) return;
  const TPropInfo& Row = FindPropInfo(FChart, PropName);
  Member = std::clamp(Value, static_cast<float>(Row.Lowest), static_cast<float>(Row.Highest));
}

// --- Data -----------------------------------------------------------------------------------------------------------

void TZyPieRecord::DataFields() {
  VectorField("Values", FChart.Values(), &TZyPieChart::SetValues);
  VectorField("ExplodePercent", FChart.ExplodePercent(), &TZyPieChart::SetExplodePercent);
  CaptionFields();
}

/// A vector that cannot be found again by its name is not stored.
void TZyPieRecord::VectorField(const TZyFieldName& Name, TZyCustomDoubleVector* Vector,
                               void (TZyPieChart::*Set)(TZyCustomDoubleVector*)) {
  const TClassInfo& Class = TZyDoubleVector::StaticClassInfo();
  auto* const Written = dynamic_cast<TZyDoubleVector*>(Vector);
  const bool IsThere = Written != nullptr && IsStored(*Written);
  FArchive.Alternative(TZyFieldName(Name).Section(), IsThere, [&] {
    FArchive.Record(Name, Class.Name(), Written, [&](const TZyIdentity& Who, const TReadObject& Read) {
      if (Who.Reference.empty()) return;
      auto* Found = Existing<TZyDoubleVector>(Who, Class.Name());
      if (Found == nullptr) Found = static_cast<TZyDoubleVector*>(&MakeStored(Who, Class));
      (FChart.*Set)(Found);
      Read(*Found);
    });
  });
}

void TZyPieRecord::CaptionFields() {
  const auto Link = [&] {
    FArchive.Reference<&T::DataSource, &T::SetDataSource>(FChart,
                                                          TZyFieldName("DataSource").Xml("Database/DataSource"));
    Field<&T::CaptionsField, &T::SetCaptionsField>(TZyFieldName("CaptionsField").Xml("Database/CaptionsField"));
    if (FArchive.IsReading()) FChart.FCaptions.SetBound(true);
  };
  FArchive.Alternative(TZyFieldName("Database").Ini("FromDatabase"), FChart.FCaptions.IsBound(), Link,
                       [&] { FChart.FCaptions.Fields(FArchive, TZyFieldName("Captions").Square().Later()); });
}

// --- Legends --------------------------------------------------------------------------------------------------------

void TZyPieRecord::LegendFields() {
  std::vector<TZyRecord*> Stored;
  for (IZyGraphLegend* Legend : FChart.RelatedLegends()) {
    auto* const Record = dynamic_cast<TZyRecord*>(&Legend->Control());
    if (Record != nullptr && IsStored(Legend->Control())) Stored.push_back(Record);
  }
  if (FArchive.IsReading())
    for (IZyGraphLegend* Legend : FChart.RelatedLegends()) FChart.RemoveRelatedLegend(Legend);
  FArchive.Records("RelatedLegends", Stored, false, [this](const TZyIdentity& Who, const TReadObject& Read) {
    if (!Who.Reference.empty()) ReadLegend(Who, Read);
  });
}

void TZyPieRecord::ReadLegend(const TZyIdentity& Who, const TReadObject& Read) {
  const TClassInfo& Class = TZyPieLegend::StaticClassInfo();
  auto* Legend = Existing<TZyPieLegend>(Who, Class.Name());
  if (Legend == nullptr) {
    Legend = static_cast<TZyPieLegend*>(&MakeStored(Who, Class));
    Legend->SetParent(&FChart);
  }
  Read(*Legend);
  if (Legend->Parent() == nullptr) Legend->SetParent(&FChart);
  Legend->JoinGraph(FChart);
}

// --- The chart's own ------------------------------------------------------------------------------------------------

void TZyPieRecord::PlaceFields() {
  FArchive.Properties(FChart, "Visible Anchors Align Top Left Width Height BorderStyle");
  HintFields(FArchive, FChart);
  FArchive.Properties(FChart, "BackColor");
  FArchive.Part(TZyFieldName("Gradient").Ini("BackgroundGradient"), FChart.BackgroundGradient());
  FArchive.Level("BorderDistances", [&] {
    Real(TZyFieldName("Top").Ini("DistanceAtTop"), FChart.FDistances.Top, "DistanceAtTop");
    Real(TZyFieldName("Bottom").Ini("DistanceAtBottom"), FChart.FDistances.Bottom, "DistanceAtBottom");
    Real(TZyFieldName("Left").Ini("DistanceAtLeft"), FChart.FDistances.Left, "DistanceAtLeft");
    Real(TZyFieldName("Right").Ini("DistanceAtRight"), FChart.FDistances.Right, "DistanceAtRight");
  });
}

/// XML has the visibility of the title in both of its nodes.
void TZyPieRecord::TitleFields() {
  FArchive.Level("Caption", [&] {
    Field<&T::CaptionVisible, &T::SetCaptionVisible>(TZyFieldName("Visible").Ini("Caption.Visible"));
    Field<&T::Caption, &T::SetCaption>(TZyFieldName("Text").Ini("Caption").MultiLine());
    FArchive.Part(TZyFieldName("Properties").Ini("Caption"), [&] {
      if (FArchive.IsXml()) Field<&T::CaptionVisible, &T::SetCaptionVisible>(TZyFieldName("Visible").Later());
      Field<&T::CaptionAlignment, &T::SetCaptionAlignment>("Alignment");
      Field<&T::CaptionColor, &T::SetCaptionColor>("Color");
      Field<&T::CaptionDistanceBefore, &T::SetCaptionDistanceBefore>("DistanceBefore");
      Field<&T::CaptionDistanceAfter, &T::SetCaptionDistanceAfter>("DistanceAfter");
    });
    FArchive.Part(TZyFieldName("Font").Ini("Caption.Font"), FChart.CaptionFont());
  });
}

void TZyPieRecord::ShapeFields() {
  TZyPieShape& Shape = FChart.FShape;
  Real("StartAngle", Shape.StartAngle, "StartAngle");
  if (FArchive.IsReading())
    Shape.StartAngle = static_cast<float>(FitTo360Degrees(static_cast<double>(Shape.StartAngle)));
  Real("TotalAngle", Shape.TotalAngle, "TotalAngle");
  Real("Elevation", Shape.Elevation, "ThreeDElevation");
  Real("PieHeight", Shape.PieHeight, "ThreeDPieHeight");
  Real("DonutHoleSize", Shape.HoleSize, "DonutHoleSize");
  FArchive.Level(TZyFieldName("Labels"), [&] {
    Real(TZyFieldName("Size").Ini("Labels.Size"), FChart.FLabelSize, "LabelSize");
    FArchive.Level("Callouts", [&] {
      Real(TZyFieldName("Rounding").Ini("Callouts.Rounding"), FChart.FCalloutRounding, "CalloutRounding");
      Real(TZyFieldName("DistanceToPie").Ini("Callouts.DistanceToPie"), FChart.FCalloutDistanceToPie,
           "CalloutDistanceToPie");
      Real(TZyFieldName("SpaceToBorder").Ini("Callouts.SpaceToBorder"), FChart.FCalloutSpaceToBorder,
           "CalloutSpaceToBorder");
    });
  });
  FArchive.Value("ChartType", Shape.Type);
  FArchive.Value("AutoUpdate", FChart.FAutoUpdate);
  FArchive.Value("OutliersVisible", FChart.FOutliersVisible);
  FArchive.Value("OrderAscending", FChart.FOrderAscending);
  FArchive.Value("DropShadow", Shape.DropShadow);
}

void TZyPieRecord::LookFields() {
  FArchive.Level("Labels", [&] {
    FArchive.Value(TZyFieldName("From").Ini("Labels.From"), FChart.FLabelFrom);
    FArchive.Value(TZyFieldName("Position").Ini("Labels.Position"), FChart.FLabelPosition);
    FArchive.Value(TZyFieldName("Format").Ini("Labels.Format").MultiLine(), FChart.FLabelFormat);
    if (FArchive.IsIni()) Field<&T::LabelColor, &T::SetLabelColor>("Labels.Color");
    FArchive.Level("Callouts", [&] {
      FArchive.Value(TZyFieldName("ArrowVisibleMode").Ini("Callouts.ArrowVisibleMode"),
                     FChart.FCalloutArrowVisibleMode);
      FArchive.Value(TZyFieldName("BackColor").Ini("Callouts.BackColor"), FChart.FCalloutBackColor);
      FArchive.Value(TZyFieldName("Raised").Ini("Callouts.Raised"), FChart.FCalloutRaised);
      FArchive.Value(TZyFieldName("Lowered").Ini("Callouts.Lowered"), FChart.FCalloutLowered);
      FArchive.Value(TZyFieldName("Shadow").Ini("Callouts.Shadow"), FChart.FCalloutShadow);
    });
  });
  FArchive.Part("SegmentBorder", FChart.FSegmentBorder);
  FArchive.Level("Labels", [&] {
    FArchive.Level("Callouts", [&] {
      FArchive.Part(TZyFieldName("Gradient").Ini("Callouts.Gradient"), FChart.FCalloutGradient);
      FArchive.Part(TZyFieldName("Frame").Ini("Callouts.Frame"), FChart.FCalloutFrame);
      FArchive.Part(TZyFieldName("Arrow").Ini("Callouts.Arrow"), FChart.FCalloutArrow);
    });
  });
}

/// A record without entries leaves the chart the palette that it has, unless it names another one.
void TZyPieRecord::PaletteFields() {
  TZyFillPalette* const Present = FChart.SegmentSettingsPalette();
  std::string Reference = GetComponentRef(Present);
  if (FArchive.Value(TZyFieldName("Palette").Xml("Palette/Name"), Reference))
    if (auto* const Named = dynamic_cast<TZyFillPalette*>(GetComponentFromRef(Reference)))
      FChart.SetSegmentSettingsPalette(Named);
  const int Count = Present == nullptr ? 0 : Present->Count();
  TZyFillPalette* Target = nullptr;
  const auto Start = [&](int Entries) {
    if (Entries == 0) return;
    Target = &PaletteToRead(Reference);
    Target->Clear();
  };
  FArchive.Items(TZyFieldName("Palette").Square(), FArchive.IsReading() ? 0 : Count, Start, [&](int Index) {
    if (!FArchive.IsReading()) return Present->Items(Index).Fields(FArchive);
    TZyFillSettings Entry;
    Entry.Fields(FArchive);
    Target->Add(Entry);
  });
}

TZyFillPalette& TZyPieRecord::PaletteToRead(const std::string& Reference) {
  if (TZyFillPalette* const Present = FChart.SegmentSettingsPalette()) return *Present;
  const bool IsFree =
      RefOwner(Reference) != nullptr && GetComponentFromRef(Reference) == nullptr && !ComponentName(Reference).empty();
  TComponent* PaletteOwner = IsFree ? RefOwner(Reference) : FChart.Owner();
  if (PaletteOwner == nullptr) PaletteOwner = &FChart;
  auto* const Palette = new TZyFillPalette(PaletteOwner);
  FChart.SetSegmentSettingsPalette(Palette);
  Palette->SetName(IsFree ? std::string(ComponentName(Reference)) : UniqueName(PaletteOwner, "ZyFillPalette"));
  return *Palette;
}

/// What is read writes the font and all else without consequences; the layout comes when all is there.
void TZyPieChart::Fields(TZyArchive& Archive) {
  TZyPieRecord Record(*this, Archive);
  if (!Archive.IsReading()) return Record.Fields();
  const TScopedValue Loading(FLoadingRecord, true);
  const TScopedValue Held(FCanSet, false);
  const TZyGraphUpdate Update(*this);
  Record.Fields();
}

void TZyPieChart::EndRead() {
  FFontSizeSeen = FFont.Size();
  FNeedsRecalculate = true;
  Modified();
  Invalidate();
}

}  // namespace zy
