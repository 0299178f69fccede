#include "widgets/ZyPieWidget.h"

#include <QMetaMethod>
#include <utility>

#include "pie/ZyFillPalette.h"
#include "pie/ZyPieLegend.h"
#include "series/vectors/ZyDoubleVector.h"
#include "widgets/ZyWatchedChart.h"

namespace zy {
namespace {

constexpr const char* LegendName = "Legend";
constexpr const char* ValuesName = "Values";

}  // namespace

class ZyPieWidget::TWatched : public TZyWatchedChart<TZyPieChart> {
 public:
  using TZyWatchedChart::TZyWatchedChart;

  void Modified() override {
    NoteContent();
    TZyWatchedChart::Modified();
  }

 protected:
  void BoundsChanged() override {
    Quietly([this] { TZyWatchedChart::BoundsChanged(); });
  }
};

ZyPieWidget::ZyPieWidget(QWidget* Parent) : ZyCustomChartWidget(Parent) {
  auto* const Palette = new TZyFillPalette(&Owner());
  Palette->SetName("Palette");
  Palette->FillDefaults();
  auto* const Numbers = new TZyDoubleVector(&Owner());
  Numbers->SetName(ValuesName);
  auto* const Chart = new TWatched(&Owner(), *this);
  Chart->SetName("Pie");
  Chart->SetValues(Numbers);
  Chart->SetSegmentSettingsPalette(Palette);
  ShowChart(*Chart);
}

ZyPieWidget::~ZyPieWidget() { FreeOwned(); }

TZyDoubleVector* ZyPieWidget::Values() const {
  return dynamic_cast<TZyDoubleVector*>(Owner().FindComponent(ValuesName));
}

ZyPieWidget::Shape ZyPieWidget::shape() const { return static_cast<Shape>(Graph().PieChartType()); }

void ZyPieWidget::setShape(Shape Value) {
  if (Value < FlatPie || Value > ThreeDDonut) return;  // of a form, which may have any number
  Guarded([&] { Graph().SetPieChartType(static_cast<TZyPieChartType>(Value)); });
}

TControl* ZyPieWidget::Legend(bool Make) {
  auto* Result = dynamic_cast<TZyPieLegend*>(Owner().FindComponent(LegendName));
  if (Result != nullptr || !Make) return Result;
  Result = new TZyPieLegend(&Owner());
  Result->SetName(LegendName);
  GiveLook(*Result);  // as long as it has no stack of undo
  Result->SetParent(&Graph());
  Result->SetPieChart(&Graph());
  return Result;
}

// --- What the mouse is over -----------------------------------------------------------------------------------------

/// The index of the value whose segment is seen at a place, -1 for none.
int ZyPieWidget::ValueAt(const QPoint& Place) {
  return Asked(-1, [&] {
    const int Segment = Graph().SegmentAt(static_cast<float>(Place.x()), static_cast<float>(Place.y()));
    return Segment < 0 ? -1 : Graph().GetLegendItemIndex(Segment);
  });
}

void ZyPieWidget::ClickedAt(const QPoint& Place) {
  const auto [Clicked, Item] = Asked(TLegendItem(), [&] { return LegendItemAt(Place); });
  if (Clicked != nullptr) {
    const int Index = Item < 0 || Item >= Graph().GetCount() ? -1 : Graph().GetLegendItemIndex(Item);
    if (Index >= 0) emit legendItemClicked(Index);
  } else if (const int Index = ValueAt(Place); Index >= 0) {
    emit segmentClicked(Index);
  }
}

/// Each move looks for a segment, so it does as long as somebody hears of it.
void ZyPieWidget::HoversAt(const std::optional<QPoint>& Place) {
  if (!isSignalConnected(QMetaMethod::fromSignal(&ZyPieWidget::segmentHovered))) return;
  const int Index = Place ? ValueAt(*Place) : -1;
  if (Index != std::exchange(FHovered, Index)) emit segmentHovered(Index);
}

void ZyPieWidget::ShowSamples() {
  TZyDoubleVector* const Numbers = Values();
  if (Numbers == nullptr || Numbers->Count() > 0) return;
  Numbers->AddRange({45, 30, 15, 10});
  for (const char* Text : {"A", "B", "C", "D"}) Graph().Captions()->Add(Text);
}

}  // namespace zy
