#include "widgets/ZyMarkerWidgets.h"

#include "annotations/ZyCrossHair.h"
#include "annotations/ZyLabelWithArrowMarker.h"
#include "annotations/ZyLineMarkers.h"
#include "platform/framework/Reflection.h"
#include "widgets/ZyChartWidget.h"

namespace zy {

/// The events of the marker stay the application's. Their handlers may free the widget.
template <class TMarker>
class ZyMarkerWidget::TWatched : public TZyPlacedControl<TMarker> {
 public:
  using TZyPlacedControl<TMarker>::TZyPlacedControl;

 protected:
  void TellMoving() override {
    const QPointer<ZyPlacedWidget> Widget = this->FWidget;
    TMarker::TellMoving();
    if (Widget != nullptr) emit static_cast<ZyMarkerWidget*>(Widget.data())->moving();
  }
  void TellMoved() override {
    const QPointer<ZyPlacedWidget> Widget = this->FWidget;
    TMarker::TellMoved();
    if (Widget != nullptr) emit static_cast<ZyMarkerWidget*>(Widget.data())->moved();
  }
};

template <class TMarker>
void ZyMarkerWidget::Make() {
  auto* const Result = new TWatched<TMarker>(&Owner(), *this);
  Result->SetName("Marker");
  Result->SetSubComponent(true);  // a chart that is read frees its markers and makes those of the record
  Place(*Result);
}

TZyMovable* ZyMarkerWidget::Marker() const { return static_cast<TZyMovable*>(Placed()); }

bool ZyMarkerWidget::IsPlace(const QString& Path) const { return Path == "X" || Path == "Y"; }

bool ZyMarkerWidget::Fits(const ZyCustomChartWidget& Chart) const {
  return qobject_cast<const ZyChartWidget*>(&Chart) != nullptr;
}

/// Axes of another chart are none for this one. A kind has those that it publishes.
void ZyMarkerWidget::Joined() {
  auto* const Chart = static_cast<ZyChartWidget*>(ChartWidget());
  if (Chart != nullptr) Chart->Graph().TestPrimaryAxis();
  const auto Stand = [&](const char* Name, TZyAxis* Primary) {
    if (GetPropInfo(*Marker(), Name) != nullptr) SetObjectProp(*Marker(), Name, Primary);
  };
  Stand("XAxis", Chart == nullptr ? nullptr : Chart->Graph().PrimaryXAxis());
  Stand("YAxis", Chart == nullptr ? nullptr : Chart->Graph().PrimaryYAxis());
}

ZyHorizontalMarkerWidget::ZyHorizontalMarkerWidget(QWidget* Parent) : ZyMarkerWidget(Parent) {
  Make<TZyHorizontalMarker>();
}
TZyHorizontalMarker* ZyHorizontalMarkerWidget::Control() const { return static_cast<TZyHorizontalMarker*>(Placed()); }

ZyVerticalMarkerWidget::ZyVerticalMarkerWidget(QWidget* Parent) : ZyMarkerWidget(Parent) { Make<TZyVerticalMarker>(); }
TZyVerticalMarker* ZyVerticalMarkerWidget::Control() const { return static_cast<TZyVerticalMarker*>(Placed()); }

ZyCrossHairWidget::ZyCrossHairWidget(QWidget* Parent) : ZyMarkerWidget(Parent) { Make<TZyCrossHair>(); }
TZyCrossHair* ZyCrossHairWidget::Control() const { return static_cast<TZyCrossHair*>(Placed()); }

ZyArrowLabelWidget::ZyArrowLabelWidget(QWidget* Parent) : ZyMarkerWidget(Parent) { Make<TZyLabelWithArrowMarker>(); }
TZyLabelWithArrowMarker* ZyArrowLabelWidget::Control() const { return static_cast<TZyLabelWithArrowMarker*>(Placed()); }

}  // namespace zy
