// What is stored of a legend, in the order of the stream.

#include <cmath>

#include "annotations/ZyLegend.h"
#include "graph/parts/ZyControlRecord.h"
#include "persistence/ZyArchive.h"
#include "platform/framework/ScopedFlag.h"

namespace zy {

/// One walk of an archive through a legend.
class TZyLegendRecord {
 public:
  TZyLegendRecord(TZyLegend& Legend, TZyArchive& Archive) : FLegend(Legend), FArchive(Archive) {}

  void Fields() {
    FArchive.Identity(FLegend);
    FArchive.Level("Properties", [&] { PlaceFields(); });
    OrderList();
    FArchive.Part("Font", FLegend.Font());
    FArchive.Part("Frame", FLegend.Frame());
    DistanceFields();
    TitleFields();
    LaterFields();
    if (!FArchive.IsReading()) return;
    FLegend.SetVisible(FVisible);  // not before the legend is whole
    FLegend.Modified();
  }

 private:
  using T = TZyLegend;

  template <auto Getter, auto Setter>
  void Field(const TZyFieldName& Name) {
    FArchive.Field<Getter, Setter>(FLegend, Name);
  }
  /// One that is read without a setter.
  void Real(const TZyFieldName& Name, float& Member) {
    float Value = Member;
    if (FArchive.Value(Name, Value) && std::isfinite(Value)) Member = Value;
  }
  void Count(const TZyFieldName& Name, int& Member) {
    auto Value = std::int32_t{Member};
    if (FArchive.Value(Name, Value)) Member = std::max(Value, 1);
  }

  void PlaceFields();
  void ItemFields();
  void OrderList();
  void DistanceFields();
  void TitleFields();
  void LaterFields();

  TZyLegend& FLegend;
  TZyArchive& FArchive;
  bool FVisible = FLegend.Visible();
};

void TZyLegendRecord::PlaceFields() {
  const auto SetOuter = [Legend = &FLegend](TWinControl* Value) {
    if (Value != nullptr) Legend->SetParent(Value);
  };
  FArchive.Reference(
      "Parent", [this] { return FLegend.Parent(); }, SetOuter);
  FArchive.Value("Visible", FVisible);
  HintFields(FArchive, FLegend);
  FArchive.Properties(FLegend, "Position");
  FArchive.Reference(
      "Graph", [this] { return FLegend.Graph(); },
      [Legend = &FLegend](TZyGraph2D* Value) { Legend->TakeGraph(Value); });
  FArchive.Properties(FLegend, "Top Left AutoSize Width Height");
  ItemFields();
}

void TZyLegendRecord::ItemFields() {
  float InForce = FLegend.FItemHeight;
  if (FArchive.Value("ItemHeight", InForce) && std::isfinite(InForce)) {
    FLegend.FItemHeight = FLegend.FItemHeightRead = InForce;
    FLegend.FItemHeightSet = 0;
  }
  Real("ItemWidth", FLegend.FItemWidth);
  Field<&T::ForeColor, &T::SetForeColor>("ForeColor");
  FArchive.Value("BackColor", FLegend.FBackColor);
  FArchive.Value("LegendCaptionColorFrom", FLegend.FLegendCaptionColorFrom);
  FArchive.Value("ItemsOrder", FLegend.FItemsOrder);
  Count("Rows", FLegend.FRows);
  Count("Columns", FLegend.FColumns);
}

void TZyLegendRecord::OrderList() {
  const auto Get = [this] {
    std::vector<std::string> Result;
    for (int Index = 0; Index < FLegend.ItemsOrderList()->Count(); ++Index)
      Result.push_back(FLegend.ItemsOrderList()->Get(Index));
    return Result;
  };
  const auto Set = [this](const std::vector<std::string>& Value) {
    TStringList List;
    for (const std::string& Text : Value) List.Add(Text);
    FLegend.SetItemsOrderList(&List);
  };
  FArchive.List("ItemsOrderList", Get, Set);
}

void TZyLegendRecord::DistanceFields() {
  FArchive.Level("Distances", [&] {
    Real("CornerRounding", FLegend.FCornerRounding);
    Real(TZyFieldName("ItemCaption").Ini("Distance.ItemCaption"), FLegend.FDistanceItemCaption);
    Real(TZyFieldName("BetweenLines").Ini("Distance.BetweenLines"), FLegend.FDistanceBetweenLines);
    Real(TZyFieldName("BetweenColumns").Ini("Distance.BetweenColumns"), FLegend.FDistanceBetweenColumns);
    Real(TZyFieldName("ToBorder").Ini("Distance.ToBorder"), FLegend.FDistanceToBorder);
  });
}

void TZyLegendRecord::TitleFields() {
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

/// What later versions of charts came to store.
void TZyLegendRecord::LaterFields() {
  if (!FArchive.NextGroup()) return;
  FArchive.Level("Properties", [&] { Field<&T::DropShadow, &T::SetDropShadow>("DropShadow"); });
  FArchive.Part(TZyFieldName("Gradient").Ini("BackgroundGradient"), FLegend.BackgroundGradient());
  FArchive.EndRecord();
}

void TZyLegend::Fields(TZyArchive& Archive) {
  const TScopedValue Reading(FReadsRecord, Archive.IsReading());
  TZyLegendRecord(*this, Archive).Fields();
}

}  // namespace zy
