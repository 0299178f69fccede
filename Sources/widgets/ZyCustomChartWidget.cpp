#include "widgets/ZyCustomChartWidget.h"

#include <QApplication>
#include <QPainter>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <utility>

#include "platform/drawing/QtText.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"
#include "widgets/PublishedPaths.h"

namespace zy {
namespace {

constexpr std::string_view LegendPart = "Legend.";

QColor ToQt(TZyColor Color) { return QColor::fromRgba(Color); }

}  // namespace

ZyCustomChartWidget::ZyCustomChartWidget(QWidget* Parent) : ZyControlWidget(Parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

// --- Properties -----------------------------------------------------------------------------------------------------

QString ZyCustomChartWidget::caption() const { return ToQString(Chart().Caption()); }

void ZyCustomChartWidget::setCaption(const QString& Value) {
  Guarded([&] {
    Chart().SetCaptionVisible(!Value.isEmpty());
    Chart().SetCaption(Value.toStdString());
  });
}

QColor ZyCustomChartWidget::backColor() const { return ToQt(Chart().BackColor()); }

void ZyCustomChartWidget::setBackColor(const QColor& Value) {
  Chart().SetBackColor(Value.isValid() ? Value.rgba() : Colors::Transparent);
}

bool ZyCustomChartWidget::legendVisible() const {
  const TControl* const Present = const_cast<ZyCustomChartWidget*>(this)->Legend(false);
  return Present != nullptr && Present->Visible();
}

void ZyCustomChartWidget::setLegendVisible(bool Value) {
  if (TControl* const Present = Legend(Value)) Present->SetVisible(Value);
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
    Chart().PaintOn(Painter, {0, 0, static_cast<float>(Page.width()), static_cast<float>(Page.height())});
  });
}

void ZyCustomChartWidget::printPreview() {
  QPrinter Printer(QPrinter::HighResolution);
  Printer.setPageOrientation(QPageLayout::Landscape);
  Printer.setDocName(ToQString(Chart().CaptionAsString()));
  QPrintPreviewDialog Dialog(&Printer, window());
  connect(&Dialog, &QPrintPreviewDialog::paintRequested, this, &ZyCustomChartWidget::print);
  Dialog.exec();
}

void ZyCustomChartWidget::refresh() { Chart().Invalidate(); }

// --- What the chart tells -------------------------------------------------------------------------------------------

void ZyCustomChartWidget::NoteClick(const QPoint& From, const QPoint& Place) {
  if ((Place - From).manhattanLength() < QApplication::startDragDistance()) emit clicked(Place);
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
