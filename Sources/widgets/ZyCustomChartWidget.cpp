#include "widgets/ZyCustomChartWidget.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <memory>
#include <utility>

#include "annotations/ZyCustomLegend.h"
#include "annotations/ZyMovable.h"
#include "looks/ZyLook.h"
#include "looks/ZyPaletteLook.h"
#include "platform/drawing/QtText.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"
#include "widgets/PublishedPaths.h"

namespace zy {
namespace {

constexpr std::string_view LegendPart = "Legend.";
constexpr const char* FollowerName = "PaletteLook";

QColor ToQt(TZyColor Color) { return QColor::fromRgba(Color); }

}  // namespace

ZyCustomChartWidget::ZyCustomChartWidget(QWidget* Parent) : ZyControlWidget(Parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void ZyCustomChartWidget::ShowChart(TZyCustomGraph& Value) {
  Show(Value);
  Value.SetTabStop(true);
  setFocusPolicy(Qt::StrongFocus);  // which the chart's own widget, the proxy, takes as well
}

// --- Properties -----------------------------------------------------------------------------------------------------

QString ZyCustomChartWidget::caption() const { return ToQString(Chart().Caption()); }

void ZyCustomChartWidget::setCaption(const QString& Value) {
  Guarded([&] {
    Chart().SetCaptionVisible(!Value.isEmpty());
    Chart().SetCaption(Value.toStdString());
  });
}

void ZyCustomChartWidget::setLook(Look Value) {
  if (Value < OwnLook || Value > PaletteLook) return;  // of a form, which may have any number
  FLook = Value;
  delete Owner().FindComponent(FollowerName);
  Guarded([&] {
    if (Value != PaletteLook) {
      if (const std::optional<TZyLook> Present = PresentLook()) ApplyLook(Chart(), *Present);
      return;
    }
    auto* const Follower = new TZyPaletteLook(&Owner());
    Follower->SetName(FollowerName);
    Follower->SetGraph(&Chart());
  });
}

std::optional<TZyLook> ZyCustomChartWidget::PresentLook() const {
  switch (FLook) {
    case LightLook:
      return TZyLook::Light();
    case DarkLook:
      return TZyLook::Dark();
    case PrintLook:
      return TZyLook::Print();
    case HighContrastLook:
      return TZyLook::HighContrast();
    case PaletteLook:
      return TZyLook::OfPalette();
    default:
      return std::nullopt;
  }
}

void ZyCustomChartWidget::GiveLook(TControl& Part) const {
  const std::optional<TZyLook> Present = PresentLook();
  if (!Present) return;
  if (auto* const Legend = dynamic_cast<TZyCustomLegend*>(&Part)) ApplyLook(*Legend, *Present);
  if (auto* const Marker = dynamic_cast<TZyMovable*>(&Part)) ApplyLook(*Marker, *Present);
}

QColor ZyCustomChartWidget::backColor() const { return ToQt(Chart().BackColor()); }

void ZyCustomChartWidget::setBackColor(const QColor& Value) {
  Guarded([&] { Chart().SetBackColor(Value.isValid() ? Value.rgba() : Colors::Transparent); });
}

bool ZyCustomChartWidget::legendVisible() const {
  const TControl* const Present = const_cast<ZyCustomChartWidget*>(this)->Legend(false);
  return Present != nullptr && Present->Visible();
}

void ZyCustomChartWidget::setLegendVisible(bool Value) {
  Guarded([&] {
    if (TControl* const Present = Legend(Value)) Present->SetVisible(Value);
  });
}

TPersistent* ZyCustomChartWidget::RootOf(std::string& Path, bool Make) {
  if (!Path.starts_with(LegendPart)) return &Chart();
  Path.erase(0, LegendPart.size());
  if (Make) MakeParts();  // which legendVisible alone shows
  return Legend(false);
}

std::vector<std::string> ZyCustomChartWidget::PropertyPaths() const {
  std::vector<std::string> Result = ZyControlWidget::PropertyPaths();
  if (TControl* const Present = const_cast<ZyCustomChartWidget*>(this)->Legend(false))
    for (const TPublishedPath& Each : PublishedPaths(*Present, {}))
      Result.push_back(std::string(LegendPart) + Each.Path);
  return Result;
}

void ZyCustomChartWidget::MakeParts() {
  if (Legend(false) == nullptr) Legend(true)->SetVisible(false);
}

// --- Ways out -------------------------------------------------------------------------------------------------------

void ZyCustomChartWidget::print(QPrinter* Printer) {
  if (Printer == nullptr) return;
  Guarded([&] {
    QPainter Painter;
    if (!Painter.begin(Printer))
      throw EPrinter(Format(LoadResString(_sCannotPrint), {Printer->printerName().toStdString()}));
    const QRectF Page = Printer->pageRect(QPrinter::DevicePixel);
    const QPointF Corner = Printer->fullPage() ? Page.topLeft() : QPointF();  // the origin is the paper's then
    Chart().PaintOn(Painter, {static_cast<float>(Corner.x()), static_cast<float>(Corner.y()),
                              static_cast<float>(Page.width()), static_cast<float>(Page.height())});
  });
}

/// The window may be deleted while the dialog is there, and the dialog with it.
void ZyCustomChartWidget::printPreview() {
  QPrinter Printer(QPrinter::HighResolution);
  Printer.setPageOrientation(QPageLayout::Landscape);
  Printer.setDocName(ToQString(Chart().CaptionAsString()));
  const QPointer Dialog = new QPrintPreviewDialog(&Printer, window());
  connect(Dialog, &QPrintPreviewDialog::paintRequested, this, &ZyCustomChartWidget::print);
  Dialog->exec();
  delete Dialog;
}

void ZyCustomChartWidget::refresh() { Chart().Invalidate(); }

// --- What the chart tells -------------------------------------------------------------------------------------------

namespace {

QPoint PlaceOf(const QEvent& Event) {
  return Event.isSinglePointEvent() ? static_cast<const QSinglePointEvent&>(Event).position().toPoint() : QPoint();
}

bool IsOfLeftButton(const QEvent& Event) { return static_cast<const QMouseEvent&>(Event).button() == Qt::LeftButton; }

}  // namespace

/// What went as far as a drag once stays one.
void ZyCustomChartWidget::NotePress(const QEvent& Event) {
  const auto Type = Event.type();
  if ((Type == QEvent::MouseButtonPress || Type == QEvent::MouseButtonDblClick) && IsOfLeftButton(Event))
    FPressed = PlaceOf(Event);
  if (FPressed && (Type == QEvent::MouseMove || Type == QEvent::MouseButtonRelease) &&
      (PlaceOf(Event) - *FPressed).manhattanLength() >= QApplication::startDragDistance())
    FPressed.reset();
}

void ZyCustomChartWidget::TellMouse(const QEvent& Event) {
  const QPoint Place = PlaceOf(Event);
  switch (Event.type()) {
    case QEvent::MouseButtonRelease: {
      if (!IsOfLeftButton(Event) || !std::exchange(FPressed, std::nullopt)) return;
      const QPointer<ZyCustomChartWidget> Alive = this;
      emit clicked(Place);
      if (Alive != nullptr) ClickedAt(Place);
      return;
    }
    case QEvent::MouseButtonDblClick:
      if (IsOfLeftButton(Event)) emit doubleClicked(Place);
      return;
    case QEvent::MouseMove:
      if (static_cast<const QMouseEvent&>(Event).buttons() == Qt::NoButton) HoversAt(Place);
      return;
    case QEvent::Leave:
      return HoversAt(std::nullopt);
    default:
      return;
  }
}

ZyCustomChartWidget::TLegendItem ZyCustomChartWidget::LegendItemAt(const QPoint& Place) const {
  auto* const Legend = dynamic_cast<TZyCustomLegend*>(Chart().ControlAtPos(Place.x(), Place.y()));
  if (Legend == nullptr) return {};
  return {Legend, Legend->ItemAt(Place.x() - Legend->Left(), Place.y() - Legend->Top())};
}

void ZyCustomChartWidget::NoteContent() {
  if (std::exchange(FContentNoted, true)) return;
  const auto Tell = [this] {
    FContentNoted = false;
    emit contentChanged();
  };
  QMetaObject::invokeMethod(this, Tell, Qt::QueuedConnection);
}

}  // namespace zy
