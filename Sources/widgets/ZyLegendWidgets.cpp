#include "widgets/ZyLegendWidgets.h"

#include "annotations/ZyLegend.h"
#include "pie/ZyPieLegend.h"
#include "widgets/ZyChartWidget.h"
#include "widgets/ZyPieWidget.h"

namespace zy {

/// A legend that no chart lays out measures itself when its widget is painted.
template <class TLegend>
class ZyCustomLegendWidget::TWatched : public TZyPlacedControl<TLegend> {
 public:
  using TZyPlacedControl<TLegend>::TZyPlacedControl;
  void Modified() override {
    TLegend::Modified();
    if (this->FWidget != nullptr && this->FWidget->ChartWidget() == nullptr) this->FWidget->update();
  }
};

// --- The chart ------------------------------------------------------------------------------------------------------

/// The name that it has now.
QString ZyCustomLegendWidget::chart() const {
  return FName.isEmpty() || FFound == nullptr ? FName : FFound->objectName();
}

void ZyCustomLegendWidget::setChart(const QString& Value) {
  FName = Value;
  FFound = nullptr;
  Find();
}

TZyCustomLegend* ZyCustomLegendWidget::Legend() const { return static_cast<TZyCustomLegend*>(Placed()); }

ZyCustomChartWidget* ZyCustomLegendWidget::Listed() const { return ChartWidget() != nullptr ? ChartWidget() : FFound.data(); }

ZyControlWidget* ZyCustomLegendWidget::LooksLike() const { return Listed(); }

void ZyCustomLegendWidget::Joined() {
  FFound = nullptr;
  List(ChartWidget());
  Find();
}

void ZyCustomLegendWidget::showEvent(QShowEvent* Event) {
  Find();
  ZyPlacedWidget::showEvent(Event);
}

void ZyCustomLegendWidget::paintEvent(QPaintEvent* Event) {
  Find();
  if (ChartWidget() == nullptr && Legend() != nullptr) Guarded([this] { Legend()->PreparePaint(); });
  ZyPlacedWidget::paintEvent(Event);
}

void ZyCustomLegendWidget::Find() {
  if (Placed() == nullptr || Listed() != nullptr) return;
  FFound = Nearest();
  Guarded([this] {
    List(FFound);
    if (FFound != nullptr) FFound->GiveLook(*Legend());
  });
}

/// Of those in the closest widget around this that has one. What lies around a form in the designer is none of it.
ZyCustomChartWidget* ZyCustomLegendWidget::Nearest() const {
  for (const QWidget* Around = parentWidget(); Around != nullptr; Around = Around->parentWidget()) {
    if (Around->inherits("QDesignerFormWindowInterface")) break;
    for (ZyCustomChartWidget* Each : Around->findChildren<ZyCustomChartWidget*>(FName))
      if (Fits(*Each)) return Each;
    if (Around->isWindow()) break;
  }
  return nullptr;
}

// --- Of charts with axes --------------------------------------------------------------------------------------------

ZyLegendWidget::ZyLegendWidget(QWidget* Parent) : ZyCustomLegendWidget(Parent) {
  auto* const Result = new TWatched<TZyLegend>(&Owner(), *this);
  Result->SetName("Legend");
  Place(*Result);
}

TZyLegend* ZyLegendWidget::Control() const { return static_cast<TZyLegend*>(Placed()); }

ZyLegendWidget::Position ZyLegendWidget::position() const {
  return Control() == nullptr ? Position() : static_cast<Position>(Control()->Position());
}

void ZyLegendWidget::setPosition(Position Value) {
  if (Control() != nullptr) Guarded([&] { Control()->SetPosition(static_cast<TZyLegendPosition>(Value)); });
}

bool ZyLegendWidget::Fits(const ZyCustomChartWidget& Chart) const {
  return qobject_cast<const ZyChartWidget*>(&Chart) != nullptr;
}

void ZyLegendWidget::List(ZyCustomChartWidget* Chart) {
  Control()->SetGraph(Chart == nullptr ? nullptr : &static_cast<ZyChartWidget*>(Chart)->Graph());
}

bool ZyLegendWidget::TakesPlace() const { return Control()->Position() == TZyLegendPosition::FreeFloating; }

// --- Of pies --------------------------------------------------------------------------------------------------------

ZyPieLegendWidget::ZyPieLegendWidget(QWidget* Parent) : ZyCustomLegendWidget(Parent) {
  auto* const Result = new TWatched<TZyPieLegend>(&Owner(), *this);
  Result->SetName("Legend");
  Place(*Result);
}

TZyPieLegend* ZyPieLegendWidget::Control() const { return static_cast<TZyPieLegend*>(Placed()); }

ZyPieLegendWidget::Position ZyPieLegendWidget::position() const {
  return Control() == nullptr ? Position() : static_cast<Position>(Control()->Position());
}

void ZyPieLegendWidget::setPosition(Position Value) {
  if (Control() != nullptr) Guarded([&] { Control()->SetPosition(static_cast<TZyPieLegendPosition>(Value)); });
}

bool ZyPieLegendWidget::IsPlace(const QString& Path) const { return Path == "Position"; }

bool ZyPieLegendWidget::Fits(const ZyCustomChartWidget& Chart) const {
  return qobject_cast<const ZyPieWidget*>(&Chart) != nullptr;
}

void ZyPieLegendWidget::List(ZyCustomChartWidget* Chart) {
  Control()->SetPieChart(Chart == nullptr ? nullptr : &static_cast<ZyPieWidget*>(Chart)->Graph());
}

}  // namespace zy
