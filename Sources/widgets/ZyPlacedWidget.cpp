#include "widgets/ZyPlacedWidget.h"

#include <QEvent>
#include <QPaintEngine>
#include <QPainter>
#include <QPointer>
#include <exception>

#include "graph/parts/ZyGraphParts.h"
#include "platform/controls/TGraphicControl.h"
#include "platform/controls/TPanel.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/ScopedFlag.h"
#include "widgets/ZyCustomChartWidget.h"

namespace zy {

/// Where the control lies while it is on no chart, which would tell what it throws.
class ZyPlacedWidget::THost : public TPanel {
 public:
  THost(TComponent* Owner, ZyPlacedWidget& Widget) : TPanel(Owner), FWidget(&Widget) {}

 protected:
  bool WidgetEvent(QEvent& Event) override {
    const QPointer<ZyPlacedWidget> Widget = FWidget;  // a handler may free both
    try {
      return TPanel::WidgetEvent(Event);
    } catch (const std::exception& Error) {
      if (Widget == nullptr || !Widget->TellError(Error.what())) throw;
      return true;
    }
  }

 private:
  QPointer<ZyPlacedWidget> FWidget;
};

ZyPlacedWidget::ZyPlacedWidget(QWidget* Parent) : ZyControlWidget(Parent) {
  FHost = new THost(&Owner(), *this);
  FHost->SetName("Host");
  Show(*FHost);
}

ZyPlacedWidget::~ZyPlacedWidget() {
  FPlaced = nullptr;
  FreeOwned();
}

void ZyPlacedWidget::Place(TGraphicControl& Control) {
  FPlaced = &Control;
  Join();
}

ZyCustomChartWidget* ZyPlacedWidget::ChartWidget() const { return FChart; }

ZyControlWidget* ZyPlacedWidget::LooksLike() const { return FChart; }

void ZyPlacedWidget::ShowSamples() {
  FIsDesigned = true;
  setAttribute(Qt::WA_TransparentForMouseEvents, false);
}

QSize ZyPlacedWidget::sizeHint() const {
  if (FPlaced == nullptr) return minimumSizeHint();
  return QSize(FPlaced->Width(), FPlaced->Height()).expandedTo(minimumSizeHint());
}

/// A place that is written holds, wherever the form has put the widget before.
TPersistent* ZyPlacedWidget::RootOf(std::string& Path, bool Make) {
  if (Make && IsPlace(QString::fromStdString(Path))) FKnown = pos();
  return FPlaced;
}

// --- Place ----------------------------------------------------------------------------------------------------------

void ZyPlacedWidget::Join() {
  auto* Chart = qobject_cast<ZyCustomChartWidget*>(parentWidget());
  if (Chart != nullptr && !Fits(*Chart)) Chart = nullptr;
  if (FPlaced->Parent() != nullptr && Chart == FChart) return;
  FChart = Chart;
  Guarded([&] {
    FPlaced->SetParent(Chart != nullptr ? static_cast<TWinControl*>(&Chart->Chart()) : FHost);
    FHost->Widget()->setVisible(Chart == nullptr);
    setFocusProxy(Chart == nullptr ? FHost->Widget() : nullptr);
    setAttribute(Qt::WA_TransparentForMouseEvents, Chart != nullptr && !FIsDesigned);
    Joined();
    if (Chart != nullptr) Chart->GiveLook(*FPlaced);
  });
  Follow();
}

/// The bounds of the control are others, or should be told anew.
void ZyPlacedWidget::Follow() {
  if (FPlaced == nullptr || FIsTaking) return;
  if (FChart == nullptr) return updateGeometry();
  if (TakesPlace() && pos() != FKnown) return TakePlace();  // a place from the time when it was hidden
  const QPoint Corner = FChart->contentsRect().topLeft();
  const QRect Box(Corner.x() + FPlaced->Left(), Corner.y() + FPlaced->Top(), FPlaced->Width(), FPlaced->Height());
  FKnown = Box.topLeft();
  setGeometry(Box);
}

/// As if the control had been dropped there; while a form is designed, its kind may do more then.
void ZyPlacedWidget::TakePlace() {
  FKnown = pos();
  Guarded([&] {
    const TScopedValue Taking(FIsTaking, true);
    const QPoint Place = pos() - FChart->contentsRect().topLeft();
    FPlaced->SetBounds(Place.x(), Place.y(), FPlaced->Width(), FPlaced->Height());
    if (!FIsDesigned) return;
    Owner().SetDesigning(true);
    FPlaced->SetParent(FPlaced->Parent());
    Owner().SetDesigning(false);
  });
  Follow();
}

void ZyPlacedWidget::moveEvent(QMoveEvent* Event) {
  ZyControlWidget::moveEvent(Event);
  if (pos() != FKnown) Follow();
}

/// On a chart the extent is the control's.
void ZyPlacedWidget::resizeEvent(QResizeEvent* Event) {
  ZyControlWidget::resizeEvent(Event);
  if (FChart != nullptr && FPlaced != nullptr && size() != QSize(FPlaced->Width(), FPlaced->Height())) Follow();
}

void ZyPlacedWidget::showEvent(QShowEvent* Event) {
  ZyControlWidget::showEvent(Event);
  Follow();
}

/// The chart paints the control; but the designer drags a picture of the widget alone.
void ZyPlacedWidget::paintEvent(QPaintEvent*) {
  if (!FIsDesigned || FChart == nullptr || FPlaced == nullptr) return;
  QPainter Painter(this);
  const QPaintDevice& Target = *Painter.paintEngine()->paintDevice();
  if (QSize(Target.width(), Target.height()) != (QSizeF(size()) * devicePixelRatioF()).toSize()) return;
  Guarded([&] {
    Graphics Canvas(Painter);
    if (auto* const Marker = dynamic_cast<IZyPicturePart*>(FPlaced)) Marker->PaintGr(Canvas);
    if (auto* const Legend = dynamic_cast<IZyGraphLegend*>(FPlaced)) Legend->PaintGr(Canvas);
  });
}

bool ZyPlacedWidget::event(QEvent* Event) {
  if (FPlaced == nullptr) return ZyControlWidget::event(Event);
  const QEvent::Type Kind = Event->type();
  if (Kind == QEvent::ParentChange) Join();
  if (Kind == QEvent::ShowToParent || Kind == QEvent::HideToParent) FPlaced->SetVisible(Kind == QEvent::ShowToParent);
  return ZyControlWidget::event(Event);
}

}  // namespace zy
