#include "widgets/ZyPieWidget.h"

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
  Show(*Chart);
  connect(this, &ZyCustomChartWidget::clicked, this, [this](const QPoint& Place) {
    const int Segment = Graph().SegmentAt(static_cast<float>(Place.x()), static_cast<float>(Place.y()));
    if (Segment >= 0) emit segmentClicked(Segment);
  });
}

ZyPieWidget::~ZyPieWidget() { FreeOwned(); }

TZyDoubleVector* ZyPieWidget::Values() const {
  return dynamic_cast<TZyDoubleVector*>(Owner().FindComponent(ValuesName));
}

ZyPieWidget::Shape ZyPieWidget::shape() const { return static_cast<Shape>(Graph().PieChartType()); }

void ZyPieWidget::setShape(Shape Value) { Graph().SetPieChartType(static_cast<TZyPieChartType>(Value)); }

TControl* ZyPieWidget::Legend(bool Make) {
  auto* Result = dynamic_cast<TZyPieLegend*>(Owner().FindComponent(LegendName));
  if (Result != nullptr || !Make) return Result;
  Result = new TZyPieLegend(&Owner());
  Result->SetName(LegendName);
  Result->SetParent(&Graph());
  Result->SetPieChart(&Graph());
  return Result;
}

void ZyPieWidget::ShowSamples() {
  TZyDoubleVector* const Numbers = Values();
  if (Numbers == nullptr || Numbers->Count() > 0) return;
  Numbers->AddRange({45, 30, 15, 10});
  for (const char* Text : {"A", "B", "C", "D"}) Graph().Captions()->Add(Text);
}

}  // namespace zy
