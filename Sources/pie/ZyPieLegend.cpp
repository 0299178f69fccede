#include "pie/ZyPieLegend.h"

#include "annotations/ZyCustomLegendRecord.h"
#include "graph/ZyGraph2D.h"
#include "platform/framework/ScopedFlag.h"
#include "platform/framework/TPropInfo.h"
#include "texts/Exceptions.h"
#include "undo/ZyChange.h"
#include "undo/ZyUndoGroup.h"

namespace zy {

using T = TZyPieLegend;
ZY_PUBLISHED(TZyPieLegend, TZyCustomLegend, Published<&T::PieChart, &T::SetPieChart>("PieChart", _sLegendPieChart),
             Published<&T::Position, &T::SetPosition>("Position", TZyPieLegendPosition::RightCenter, _sLegendPosition),
             Published<&T::LabelsFrom, &T::SetLabelsFrom>("LabelsFrom", TZyLabelStyle::CaptionsList,
                                                          _sPieLegendLabelsFrom),
             Published<&T::LabelFormat, &T::SetLabelFormat>("LabelFormat", "", _sBarsLabelFormat),
             Published<&T::DistanceToPie, &T::SetDistanceToPie>("DistanceToPie", 8.0f, _sPieLegendDistanceToPie))

TZyPieLegend::TZyPieLegend(TComponent* Owner) : TZyCustomLegend(Owner) {
  constexpr float SwatchWidth = 20;
  FItemWidth = SwatchWidth;
}

TZyPieLegend::~TZyPieLegend() {
  Destroying();
  TakeChart(nullptr);
}

// --- Properties -----------------------------------------------------------------------------------------------------

void TZyPieLegend::SetPieChart(TZyPieChart* Value) {
  ChangeBy(this, FPieChart.Get(), Value, "PieChart", [this](TZyPieChart* Chart) { TakeChart(Chart); });
}

/// Without a step of undo. Joins the list of the chart again when a reader has emptied it.
void TZyPieLegend::TakeChart(TZyPieChart* Value) {
  TZyPieChart* const Old = FPieChart;
  FPieChart = Value;
  if (Old != nullptr && Old != Value && !Old->IsDestroying()) {
    Old->RemoveRelatedLegend(this);
    Old->Modified();  // which has the room back
  }
  if (Value != nullptr) {
    Value->AddRelatedLegend(this);
    SetUndoStack(Value->UndoStack());
  }
  Modified();
}

void TZyPieLegend::JoinGraph(TZyCustomGraph& Graph) { TakeChart(dynamic_cast<TZyPieChart*>(&Graph)); }

/// The order of the items follows, and is not always what it was made to be afterwards: undo writes both back.
void TZyPieLegend::SetPosition(TZyPieLegendPosition Value) {
  if (Value == FPosition) return;
  {
    const TZyUndoGroup Group(UndoStack(), _sLegendPosition);
    if (UndoStack() != nullptr)
      for (const char* Name : {"ItemsOrder", "Position"}) UndoStack()->PushProperty(this, Name);
  }
  FPosition = Value;
  OrderByPlace(Value == TZyPieLegendPosition::CenterTop || Value == TZyPieLegendPosition::CenterBottom);
  Modified();
}

void TZyPieLegend::SetLabelsFrom(TZyLabelStyle Value) {
  Change(this, FLabelsFrom, Value, "LabelsFrom", &TZyPieLegend::Modified);
}

void TZyPieLegend::SetLabelFormat(const std::string& Value) {
  Change(this, FLabelFormat, Value, "LabelFormat", &TZyPieLegend::Modified);
}

void TZyPieLegend::SetDistanceToPie(float Value) {
  Change(this, FDistanceToPie, Value, "DistanceToPie", &TZyPieLegend::Modified);
}

void TZyPieLegend::SetParent(TWinControl* Value) {
  TWinControl* const Old = Parent();
  TZyCustomLegend::SetParent(Value);
  const bool IsInChart = FPieChart != nullptr && (Old == FPieChart.Get() || Value == FPieChart.Get());
  if (Old != Value && IsInChart && !FPieChart->IsDestroying())
    FPieChart->Modified();  // which has the room back, or not
  if (!IsDesigning() || IsLoading() || IsDestroying() || Value == nullptr) return;
  TakeDroppedPosition();
  if (FPieChart != nullptr) return;
  auto* Found = dynamic_cast<TZyPieChart*>(Value);
  if (Owner() != nullptr)
    for (TComponent* Component : Owner()->Components())
      if (Found == nullptr) Found = dynamic_cast<TZyPieChart*>(Component);
  if (Found != nullptr) SetPieChart(Found);
}

void TZyPieLegend::TakeDroppedPosition() {
  using enum TZyPieLegendPosition;
  if (Parent()->Width() <= 0 || Parent()->Height() <= 0) return;
  const double Across = static_cast<double>(Left()) / Parent()->Width(),
               Down = static_cast<double>(Top()) / Parent()->Height();
  const auto InThird = [Across](TZyPieLegendPosition First, TZyPieLegendPosition Second, TZyPieLegendPosition Third) {
    return Across < 1.0 / 3 ? First : Across < 2.0 / 3 ? Second : Third;
  };
  if (Down < 1.0 / 3)
    SetPosition(InThird(LeftTop, CenterTop, RightTop));
  else if (Down < 2.0 / 3)
    SetPosition(Across < 0.5 ? LeftCenter : RightCenter);
  else
    SetPosition(InThird(LeftBottom, CenterBottom, RightBottom));
}

// --- Change protocol ------------------------------------------------------------------------------------------------

/// The chart around a legend makes room anew; it tells its legends in turn, which ends there.
void TZyPieLegend::Modified() {
  if (IsDestroying()) return;
  FRecalculate = true;
  if (FPieChart != nullptr && Parent() == FPieChart.Get()) FPieChart->Modified();
  Invalidate();
}

/// A legend that stands elsewhere may be asked before its chart is laid out; one that stands in it is asked then.
void TZyPieLegend::PreparePaint() {
  if (IsDestroying()) return;
  if (FPieChart == nullptr)
    if (auto* const Found = dynamic_cast<TZyPieChart*>(Parent())) TakeChart(Found);
  if (FPieChart == nullptr && FRecalculate) NewList();  // which empties it
  if (FPieChart == nullptr || FPieChart->Updating() || IsLoading() || FPieChart->IsLoading()) return;
  if (Parent() != FPieChart.Get()) FPieChart->BringUpToDate();
  if (FRecalculate && FPieChart != nullptr && FPieChart->HasSegments()) Recalculate();
}

void TZyPieLegend::CMVisibleChanged() {
  TZyCustomLegend::CMVisibleChanged();
  if (auto* const Chart = dynamic_cast<TZyPieChart*>(Parent())) Chart->Modified();
}

bool TZyPieLegend::IsPaintedByParent() const { return dynamic_cast<TZyGraph2D*>(Parent()) != nullptr; }

// --- Items ----------------------------------------------------------------------------------------------------------

/// Handlers of the chart and of the legend may free the legend, or take it away from the chart.
void TZyPieLegend::NewList() {
  SetCaptions({});
  FRecalculate = true;
  std::vector<TZyRichCaption> Texts;
  const std::uint64_t Alive = LiveHandle();
  for (int Segment = 0; FPieChart != nullptr && Segment < FPieChart->GetCount(); ++Segment) {
    const int Idx = FPieChart->GetLegendItemIndex(Segment);
    const TZyRichCaption Text = FPieChart->GetSegmentCaption(Idx, FLabelsFrom, FLabelFormat);
    if (FromLiveHandle(Alive) == nullptr) throw EAbort(LoadResString(_sLegendFreed));
    if (FPieChart == nullptr) break;
    Texts.push_back(AskCaption(&FPieChart->PaletteItem(Segment), Text, Idx));
  }
  SetCaptions(Texts);
}

void TZyPieLegend::PaintItems(Graphics& Gr) {
  if (FPieChart == nullptr) return;
  for (int Segment = 0; Segment < FPieChart->GetCount() && Segment < FLegendCaptions.Count(); ++Segment) {
    TZyFillSettings& Fill = FPieChart->PaletteItem(Segment);
    PaintItem(Gr, static_cast<std::size_t>(Segment), &Fill, FPieChart->GetLegendItemIndex(Segment),
              [&Fill](const TZyLegendItemDrawArgs& e) { Fill.DrawListItem(e); });
    if (FPieChart == nullptr) return;  // a handler took it away
  }
}

// --- Record ---------------------------------------------------------------------------------------------------------

/// What is stored of a pie legend beside what all legends have. Its place follows from the layout; INI leaves it out.
class TZyPieLegendRecord : public TZyCustomLegendRecord {
 public:
  TZyPieLegendRecord(TZyPieLegend& Legend, TZyArchive& Archive)
      : TZyCustomLegendRecord(Legend, Archive), FLegend(Legend) {}

 private:
  void ChartFields() override {
    FArchive.Properties(FLegend, "Position");
    FArchive.Reference(
        "PieChart", [this] { return FLegend.PieChart(); },
        [Legend = &FLegend](TZyPieChart* Value) { Legend->TakeChart(Value); });
    if (!FArchive.IsIni()) FArchive.Properties(FLegend, "Top Left");
  }
  void DistanceToChart() override { Real(TZyFieldName("ToPie").Ini("Distance.ToPie"), FLegend.FDistanceToPie); }
  void LabelFields() override {
    FArchive.Level("Labels", [&] {
      FArchive.Value(TZyFieldName("From").Ini("LabelsFrom"), FLegend.FLabelsFrom);
      FArchive.Value(TZyFieldName("Format").Ini("LabelFormat").MultiLine(), FLegend.FLabelFormat);
      if (!FArchive.IsXml()) return;
      FArchive.Field<&TZyPieLegend::ForeColor, &TZyPieLegend::SetForeColor>(FLegend, TZyFieldName("Color").Later());
      FArchive.Part(TZyFieldName("Font").Later(), FLegend.Font());
    });
  }
  void LastFields() override {
    GroundFields();
    FArchive.EndRecord();
  }

  TZyPieLegend& FLegend;
};

void TZyPieLegend::Fields(TZyArchive& Archive) {
  const TScopedValue Reading(FReadsRecord, Archive.IsReading());
  TZyPieLegendRecord(*this, Archive).Fields();
}

}  // namespace zy
