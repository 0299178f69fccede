// What is stored of a legend of series beside what all legends have.

#include "annotations/ZyCustomLegendRecord.h"
#include "annotations/ZyLegend.h"
#include "platform/framework/ScopedFlag.h"

namespace zy {

class TZyLegendRecord : public TZyCustomLegendRecord {
 public:
  TZyLegendRecord(TZyLegend& Legend, TZyArchive& Archive) : TZyCustomLegendRecord(Legend, Archive), FLegend(Legend) {}

 private:
  void ChartFields() override {
    FArchive.Properties(FLegend, "Position");
    FArchive.Reference(
        "Graph", [this] { return FLegend.Graph(); },
        [Legend = &FLegend](TZyGraph2D* Value) { Legend->TakeGraph(Value); });
    FArchive.Properties(FLegend, "Top Left");
  }

  void ColorFields() override { FArchive.Value("LegendCaptionColorFrom", FLegend.FLegendCaptionColorFrom); }

  void ListFields() override {
    const auto Get = [this] {
      std::vector<std::string> Result;
      Result.reserve(static_cast<std::size_t>(FLegend.ItemsOrderList()->Count()));
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

  /// What later versions of charts came to store.
  void LastFields() override {
    if (!FArchive.NextGroup()) return;
    GroundFields();
    FArchive.EndRecord();
  }

  TZyLegend& FLegend;
};

void TZyLegend::Fields(TZyArchive& Archive) {
  const TScopedValue Reading(FReadsRecord, Archive.IsReading());
  TZyLegendRecord(*this, Archive).Fields();
}

}  // namespace zy
