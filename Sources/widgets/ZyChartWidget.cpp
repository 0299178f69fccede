#include "widgets/ZyChartWidget.h"

#include <QMetaMethod>
#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <utility>

#include "annotations/ZyLegend.h"
#include "annotations/ZyMovable.h"
#include "looks/ZyLook.h"
#include "platform/drawing/QtText.h"
#include "series/ZyLineSeries.h"
#include "series/vectors/ZyDoubleVector.h"
#include "widgets/ZyWatchedChart.h"

namespace zy {
namespace {

constexpr const char* LegendName = "Legend";

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
    const bool Had = GetCanZoomBack();
    TZyWatchedChart::ZoomBack();
    if (Had && FChartWidget != nullptr) emit FChartWidget->zoomed();
  }
  void ZoomReset() override {
    const bool Had = GetCanZoomBack();
    TZyWatchedChart::ZoomReset();
    if (Had && FChartWidget != nullptr) emit FChartWidget->zoomed();
  }
  /// By the bars and by keys. A thumb is told of when it is let go.
  void Scroll(TObject* Sender, TScrollCode ScrollCode, int& ScrollPos) override {
    const std::array<double, 4> Before = Ends();
    TZyWatchedChart::Scroll(Sender, ScrollCode, ScrollPos);
    if (ScrollCode == scTrack || ScrollCode == scEndScroll || FChartWidget == nullptr) return;
    if (ScrollCode == scPosition || Ends() != Before) emit FChartWidget->panned();
  }

 protected:
  void BoundsChanged() override {
    Quietly([this] { TZyWatchedChart::BoundsChanged(); });
  }
  bool Tell(TZyGestureEvent Event) override {
    constexpr void (ZyChartWidget::*Signals[])() = {&ZyChartWidget::zoomStarted, &ZyChartWidget::zoomed,
                                                    &ZyChartWidget::panStarted, &ZyChartWidget::panned};
    const auto Signal = Signals[static_cast<int>(Event)];
    const QPointer<ZyChartWidget> Widget = FChartWidget;
    if (!TZyWatchedChart::Tell(Event)) return false;
    if (Widget != nullptr) emit(Widget->*Signal)();
    return Widget != nullptr;
  }

 private:
  std::array<double, 4> Ends() const {
    const TZyAxis *const X = PrimaryXAxis(), *const Y = PrimaryYAxis();
    return {X != nullptr ? X->Start() : 0, X != nullptr ? X->Stop() : 0, Y != nullptr ? Y->Start() : 0,
            Y != nullptr ? Y->Stop() : 0};
  }

  QPointer<ZyChartWidget> FChartWidget;
};

ZyChartWidget::ZyChartWidget(QWidget* Parent) : ZyCustomChartWidget(Parent) {
  auto* const Chart = new TWatched(&Owner(), *this);
  Chart->SetName("Graph");
  Chart->TestPrimaryAxis();
  ShowChart(*Chart);
}

ZyChartWidget::~ZyChartWidget() { FreeOwned(); }

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
  GiveLook(*Result);  // as long as it has no stack of undo
  Result->SetParent(&Graph());
  Result->SetGraph(&Graph());
  Result->SetPosition(TZyLegendPosition::RightCenterOfAxis);
  return Result;
}

// --- What the mouse is over -----------------------------------------------------------------------------------------

/// The slot of one may delete the series, or the widget.
void ZyChartWidget::ClickedAt(const QPoint& Place) {
  const auto [Clicked, Item] = Asked(TLegendItem(), [&] { return LegendItemAt(Place); });
  if (const auto* const Legend = dynamic_cast<TZyLegend*>(Clicked)) {
    const std::vector<TZySeries*> Items = Legend->Items();
    TZySeries* const Series = Item < 0 || Item >= std::ssize(Items) ? nullptr : Items[static_cast<std::size_t>(Item)];
    if (Series != nullptr) emit legendItemClicked(Series);
    return;
  }
  if (!isSignalConnected(QMetaMethod::fromSignal(&ZyChartWidget::pointClicked))) return;
  const auto Hit = Asked(TZyFindSeriesPointResult(), [&] { return Graph().FindSeriesPoint(Place.x(), Place.y()); });
  if (Hit.Found) emit pointClicked(Hit.InSeries, Hit.Index);
}

/// Each move looks for a point, so it does as long as somebody hears of it.
void ZyChartWidget::HoversAt(const std::optional<QPoint>& Place) {
  if (!isSignalConnected(QMetaMethod::fromSignal(&ZyChartWidget::pointHovered))) return;
  TZyFindSeriesPointResult Hit;
  if (Place) Hit = Asked(Hit, [&] { return Graph().FindSeriesPoint(Place->x(), Place->y()); });
  const std::uint64_t Series = Hit.Found ? Hit.InSeries->LiveHandle() : 0;
  const int Index = Hit.Found ? Hit.Index : -1;
  if (Series == std::exchange(FHovered, Series) && Index == FHoveredIndex) return;
  FHoveredIndex = Index;
  emit pointHovered(Hit.Found ? Hit.InSeries : nullptr, Index);
}

void ZyChartWidget::Join(TZySeries& Series, TZyCustomDoubleVector* X, TZyCustomDoubleVector* Y) {
  constexpr std::size_t Prefix = 3;  // of the names of classes
  Series.SetName(Owner().FirstFreeName(Series.ClassName() + Prefix));
  Series.SetXData(X);
  Series.SetYData(Y);
  Graph().AddSeries(Series);
  if (const std::optional<TZyLook> Present = PresentLook())
    ApplyLook(Series, *Present, std::max<std::size_t>(Graph().RelatedSeries().size(), 1) - 1);
}

/// Vectors that are given to series while a form is designed get samples by themselves.
void ZyChartWidget::ShowSamples() {
  if (!Graph().RelatedSeries().empty()) return;
  Owner().SetDesigning(true);
  for (int i = 0; i < 2; ++i) AddSeries<TZyLineSeries>(nullptr, new TZyDoubleVector(&Owner()));
  Owner().SetDesigning(false);
}

}  // namespace zy
