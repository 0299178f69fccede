#include "annotations/ZyCustomLegendRecord.h"

#include <algorithm>
#include <cmath>

#include "graph/parts/ZyControlRecord.h"
#include "platform/controls/TWinControl.h"

namespace zy {

void TZyCustomLegendRecord::Fields() {
  FArchive.Identity(FLegend);
  FArchive.Level("Properties", [&] {
    PlaceFields();
    ItemFields();
  });
  ListFields();
  FArchive.Part("Font", FLegend.Font());
  FArchive.Part("Frame", FLegend.Frame());
  DistanceFields();
  LabelFields();
  TitleFields();
  LastFields();
  if (!FArchive.IsReading()) return;
  FLegend.SetVisible(FVisible);  // not before the legend is whole
  FLegend.Modified();
}

void TZyCustomLegendRecord::Real(const TZyFieldName& Name, float& Member) {
  float Value = Member;
  if (FArchive.Value(Name, Value) && std::isfinite(Value)) Member = Value;
}

void TZyCustomLegendRecord::Count(const TZyFieldName& Name, int& Member) {
  auto Value = std::int32_t{Member};
  if (FArchive.Value(Name, Value)) Member = std::max(Value, 1);
}

void TZyCustomLegendRecord::PlaceFields() {
  const auto SetOuter = [Legend = &FLegend](TWinControl* Value) {
    if (Value != nullptr) Legend->SetParent(Value);
  };
  FArchive.Reference(
      "Parent", [this] { return FLegend.Parent(); }, SetOuter);
  FArchive.Value("Visible", FVisible);
  HintFields(FArchive, FLegend);
  ChartFields();
  FArchive.Properties(FLegend, "AutoSize Width Height");
}

void TZyCustomLegendRecord::ItemFields() {
  float InForce = FLegend.FItemHeight;
  if (FArchive.Value("ItemHeight", InForce) && std::isfinite(InForce)) {
    FLegend.FItemHeight = FLegend.FItemHeightRead = InForce;
    FLegend.FItemHeightSet = 0;
  }
  Real("ItemWidth", FLegend.FItemWidth);
  Field<&T::ForeColor, &T::SetForeColor>("ForeColor");
  FArchive.Value("BackColor", FLegend.FBackColor);
  ColorFields();
  FArchive.Value("ItemsOrder", FLegend.FItemsOrder);
  Count("Rows", FLegend.FRows);
  Count("Columns", FLegend.FColumns);
}

void TZyCustomLegendRecord::DistanceFields() {
  FArchive.Level("Distances", [&] {
    Real("CornerRounding", FLegend.FCornerRounding);
    DistanceToChart();
    Real(TZyFieldName("ItemCaption").Ini("Distance.ItemCaption"), FLegend.FDistanceItemCaption);
    Real(TZyFieldName("BetweenLines").Ini("Distance.BetweenLines"), FLegend.FDistanceBetweenLines);
    Real(TZyFieldName("BetweenColumns").Ini("Distance.BetweenColumns"), FLegend.FDistanceBetweenColumns);
    Real(TZyFieldName("ToBorder").Ini("Distance.ToBorder"), FLegend.FDistanceToBorder);
  });
}

void TZyCustomLegendRecord::TitleFields() {
  Field<&T::CaptionVisible, &T::SetCaptionVisible>(TZyFieldName("Caption.Visible").Xml("Caption/Properties/Visible"));
  Field<&T::Caption, &T::SetCaption>(TZyFieldName("Caption").Xml("Caption/Text").MultiLine());
  FArchive.Part(TZyFieldName("Caption/Properties").Ini("Caption"), [&] {
    Field<&T::CaptionAlignment, &T::SetCaptionAlignment>("Alignment");
    Field<&T::CaptionColor, &T::SetCaptionColor>("Color");
    Field<&T::CaptionDistanceBefore, &T::SetCaptionDistanceBefore>("DistanceBefore");
    Field<&T::CaptionDistanceAfter, &T::SetCaptionDistanceAfter>("DistanceAfter");
  });
  FArchive.Part(TZyFieldName("Caption/Font").Ini("Caption.Font"), FLegend.CaptionFont());
}

void TZyCustomLegendRecord::GroundFields() {
  FArchive.Level("Properties", [&] { Field<&T::DropShadow, &T::SetDropShadow>("DropShadow"); });
  FArchive.Part(TZyFieldName("Gradient").Ini("BackgroundGradient"), FLegend.BackgroundGradient());
}

}  // namespace zy
