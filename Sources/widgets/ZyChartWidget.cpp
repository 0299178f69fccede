#include "widgets/ZyChartWidget.h"

#include <algorithm>
#include <optional>

#include "annotations/ZyLegend.h"
#include "annotations/ZyMovable.h"
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
  /// Zooming, panning, layouts for other extents are no other content.
  void SeriesModified() override {
    Quietly([this] { TZyWatchedChart::SeriesModified(); });
  }
  void Calculate() override {
    Quietly([this] { TZyWatchedChart::Calculate(); });
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
  void BoundsChanged() override {
    Quietly([this] { TZyWatchedChart::BoundsChanged(); });
  }
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

namespace {

/// The look itself; none for one that is the application's own.
std::optional<TZyLook> LookOf(ZyChartWidget::Look Value) {
  switch (Value) {
    case ZyChartWidget::LightLook:
      return TZyLook::Light();
    case ZyChartWidget::DarkLook:
      return TZyLook::Dark();
    case ZyChartWidget::PrintLook:
      return TZyLook::Print();
    case ZyChartWidget::HighContrastLook:
      return TZyLook::HighContrast();
    case ZyChartWidget::PaletteLook:
      return TZyLook::OfPalette();
    default:
      return std::nullopt;
  }
}

}  // namespace

void ZyChartWidget::setLook(Look Value) {
  FLook = Value;
  delete Part(FollowerName);
  Guarded([&] {
    if (Value != PaletteLook) {
      if (const std::optional<TZyLook> Present = LookOf(Value)) ApplyLook(Graph(), *Present);
      return;
    }
    auto* const Follower = new TZyPaletteLook(&Owner());
    Follower->SetName(FollowerName);
    Follower->SetGraph(&Graph());
  });
}

QString ZyChartWidget::xCaption() const {
  const TZyAxis* const Axis = Graph().PrimaryXAxis();
  return Axis == nullptr ? QString() : ToQString(Axis->Caption());
}

void ZyChartWidget::setXCaption(const QString& Value) {
  Guarded([&] {
    Graph().TestPrimaryAxis();
    Graph().PrimaryXAxis()->SetCaption(Value.toStdString());
  });
}

QString ZyChartWidget::yCaption() const {
  const TZyAxis* const Axis = Graph().PrimaryYAxis();
  return Axis == nullptr ? QString() : ToQString(Axis->Caption());
}

void ZyChartWidget::setYCaption(const QString& Value) {
  Guarded([&] {
    Graph().TestPrimaryAxis();
    Graph().PrimaryYAxis()->SetCaption(Value.toStdString());
  });
}

TControl* ZyChartWidget::Legend(bool Make) {
  auto* Result = dynamic_cast<TZyLegend*>(Part(LegendName));
  if (Result != nullptr || !Make) return Result;
  Result = new TZyLegend(&Owner());
  Result->SetName(LegendName);
  Result->SetParent(&Graph());
  Result->SetGraph(&Graph());
  Result->SetPosition(TZyLegendPosition::RightCenterOfAxis);
  GiveLook(*Result);
  return Result;
}

void ZyChartWidget::GiveLook(TControl& Part) const {
  const std::optional<TZyLook> Present = LookOf(FLook);
  if (!Present) return;
  if (auto* const Legend = dynamic_cast<TZyCustomLegend*>(&Part)) ApplyLook(*Legend, *Present);
  if (auto* const Marker = dynamic_cast<TZyMovable*>(&Part)) ApplyLook(*Marker, *Present);
}

void ZyChartWidget::Join(TZySeries& Series, TZyCustomDoubleVector* X, TZyCustomDoubleVector* Y) {
  constexpr std::size_t Prefix = 3;  // of the names of classes
  Series.SetName(Owner().FirstFreeName(Series.ClassName() + Prefix));
  Series.SetXData(X);
  Series.SetYData(Y);
  Graph().AddSeries(Series);
  if (const std::optional<TZyLook> Present = LookOf(FLook); Present && !Present->SeriesColors.empty()) {
    const std::size_t Place = std::max<std::size_t>(Graph().RelatedSeries().size(), 1) - 1;
    SetSeriesColor(Series, Present->SeriesColors[Place % Present->SeriesColors.size()]);
  }
}

/// Vectors that are given to series while a form is designed get samples by themselves.
void ZyChartWidget::ShowSamples() {
  if (!Graph().RelatedSeries().empty()) return;
  Owner().SetDesigning(true);
  for (int i = 0; i < 2; ++i) AddSeries<TZyLineSeries>(nullptr, new TZyDoubleVector(&Owner()));
  Owner().SetDesigning(false);
}

}  // namespace zy
