#include "widgets/ZyChartWidget.h"

#include "annotations/ZyLegend.h"
#include "looks/ZyLook.h"
#include "looks/ZyPaletteLook.h"
#include "platform/drawing/QtText.h"
#include "series/ZyLineSeries.h"
#include "series/vectors/ZyDoubleVector.h"
#include "widgets/ZyWatchedChart.h"

namespace zy {
namespace {

constexpr const char* LegendName = "Legend";
constexpr const char* FollowerName = "PaletteLook";

}  // namespace

class ZyChartWidget::TWatched : public TZyWatchedChart<TZyGraph2D> {
 public:
  TWatched(TComponent* Owner, ZyChartWidget& Widget) : TZyWatchedChart(Owner, Widget), FChartWidget(&Widget) {}

  bool AddRelatedSeries(TZySeries* Series) override {
    NoteContent();
    return TZyWatchedChart::AddRelatedSeries(Series);
  }
  void RemoveRelatedSeries(TZySeries* Series) override {
    NoteContent();
    TZyWatchedChart::RemoveRelatedSeries(Series);
  }
  void SeriesInvalidated() override {
    NoteContent();
    TZyWatchedChart::SeriesInvalidated();
  }
  void ZoomBack() override {
    TZyWatchedChart::ZoomBack();
    if (FChartWidget != nullptr) emit FChartWidget->zoomed();
  }
  void ZoomReset() override {
    TZyWatchedChart::ZoomReset();
    if (FChartWidget != nullptr) emit FChartWidget->zoomed();
  }

 protected:
  bool Tell(TZyGestureEvent Event) override {
    const QPointer<ZyChartWidget> Widget = FChartWidget;
    if (!TZyWatchedChart::Tell(Event)) return false;
    if (Widget != nullptr && Event == TZyGestureEvent::EndZoom) emit Widget->zoomed();
    if (Widget != nullptr && Event == TZyGestureEvent::EndPanning) emit Widget->panned();
    return Widget != nullptr;
  }

 private:
  QPointer<ZyChartWidget> FChartWidget;
};

ZyChartWidget::ZyChartWidget(QWidget* Parent) : ZyCustomChartWidget(Parent) {
  auto* const Chart = new TWatched(&Owner(), *this);
  Chart->SetName("Graph");
  Chart->TestPrimaryAxis();
  Show(*Chart);
}

ZyChartWidget::~ZyChartWidget() { FreeOwned(); }

void ZyChartWidget::setLook(Look Value) {
  FLook = Value;
  delete Part(FollowerName);
  switch (Value) {
    case OwnLook:
      return;
    case LightLook:
      return ApplyLook(Graph(), TZyLook::Light());
    case DarkLook:
      return ApplyLook(Graph(), TZyLook::Dark());
    case PrintLook:
      return ApplyLook(Graph(), TZyLook::Print());
    case HighContrastLook:
      return ApplyLook(Graph(), TZyLook::HighContrast());
    case PaletteLook: {
      auto* const Follower = new TZyPaletteLook(&Owner());
      Follower->SetName(FollowerName);
      return Follower->SetGraph(&Graph());
    }
  }
}

QString ZyChartWidget::xCaption() const { return ToQString(Graph().PrimaryXAxis()->Caption()); }

void ZyChartWidget::setXCaption(const QString& Value) {
  Guarded([&] { Graph().PrimaryXAxis()->SetCaption(Value.toStdString()); });
}

QString ZyChartWidget::yCaption() const { return ToQString(Graph().PrimaryYAxis()->Caption()); }

void ZyChartWidget::setYCaption(const QString& Value) {
  Guarded([&] { Graph().PrimaryYAxis()->SetCaption(Value.toStdString()); });
}

TControl* ZyChartWidget::Legend(bool Make) {
  auto* Result = dynamic_cast<TZyLegend*>(Part(LegendName));
  if (Result != nullptr || !Make) return Result;
  Result = new TZyLegend(&Owner());
  Result->SetName(LegendName);
  Result->SetParent(&Graph());
  Result->SetGraph(&Graph());
  Result->SetPosition(TZyLegendPosition::RightCenterOfAxis);
  return Result;
}

void ZyChartWidget::Join(TZySeries& Series, TZyCustomDoubleVector* X, TZyCustomDoubleVector* Y) {
  constexpr std::size_t Prefix = 3;  // of the names of classes
  Series.SetName(Owner().FirstFreeName(Series.ClassName() + Prefix));
  Series.SetXData(X);
  Series.SetYData(Y);
  Graph().AddSeries(Series);
}

/// Vectors that are given to series while a form is designed get samples by themselves.
void ZyChartWidget::ShowSamples() {
  if (!Graph().RelatedSeries().empty()) return;
  Owner().SetDesigning(true);
  for (int i = 0; i < 2; ++i) AddSeries<TZyLineSeries>(nullptr, new TZyDoubleVector(&Owner()));
  Owner().SetDesigning(false);
}

}  // namespace zy
