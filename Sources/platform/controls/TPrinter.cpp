#include "platform/controls/TPrinter.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>
#include <algorithm>
#include <cmath>

#include "platform/drawing/Graphics.h"
#include "platform/drawing/QtText.h"
#include "platform/framework/WholeFile.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

constexpr double UnitsPerInch = 100;  // of Handle

int AsPixels(double Inches) { return static_cast<int>(std::floor(Inches * TPrinter::PixelsPerInch)); }

}  // namespace

struct TPrinter::TPdf {
  explicit TPdf(const QPrinter& Printer) : Writer((Buffer.open(QIODevice::WriteOnly), &Buffer)) {
    Writer.setResolution(PixelsPerInch);
    Writer.setPageLayout(Printer.pageLayout());
    Writer.setTitle(Printer.docName());
    Writer.setCreator(Printer.creator());
  }
  std::string_view Bytes() const { return {Buffer.data().constData(), static_cast<std::size_t>(Buffer.size())}; }

  QBuffer Buffer;
  QPdfWriter Writer;
};

TPrinter::TPrinter() : FPrinter(std::make_unique<QPrinter>(QPrinter::HighResolution)) {
  FPrinter->setResolution(PixelsPerInch);
  FPrinter->setCreator("Zyphos");
}

TPrinter::~TPrinter() { Abort(); }

void TPrinter::CheckIdle() const {
  if (Printing()) throw EPrinter(LoadResString(_sPrinting));
}

void TPrinter::CheckPrinting() const {
  if (!Printing()) throw EPrinter(LoadResString(_sNotPrinting));
}

void TPrinter::Fail() const {
  throw EPrinter(Format(LoadResString(_sCannotPrint), {FFileName.empty() ? PrinterName() : FFileName.string()}));
}

std::vector<std::string> TPrinter::Printers() {
  std::vector<std::string> Names;
  for (const QString& Name : QPrinterInfo::availablePrinterNames()) Names.push_back(Name.toStdString());
  return Names;
}

std::string TPrinter::PrinterName() const { return FPrinter->printerName().toStdString(); }

void TPrinter::SetPrinterName(const std::string& Value) {
  CheckIdle();
  const std::vector<std::string> Known = Printers();
  if (std::find(Known.begin(), Known.end(), Value) == Known.end())
    throw EPrinter(Format(LoadResString(_sUnknownPrinter), {Value}));
  FFileName.clear();
  FPrinter->setOutputFormat(QPrinter::NativeFormat);
  FPrinter->setPrinterName(ToQString(Value));
  FPrinter->setResolution(PixelsPerInch);
}

void TPrinter::SetFileName(const std::filesystem::path& Value) {
  CheckIdle();
  FFileName = Value;
  FPrinter->setOutputFormat(Value.empty() ? QPrinter::NativeFormat : QPrinter::PdfFormat);
  FPrinter->setResolution(PixelsPerInch);
}

TPrinterOrientation TPrinter::Orientation() const {
  return FPrinter->pageLayout().orientation() == QPageLayout::Landscape ? poLandscape : poPortrait;
}

void TPrinter::SetOrientation(TPrinterOrientation Value) {
  CheckIdle();
  FPrinter->setPageOrientation(Value == poLandscape ? QPageLayout::Landscape : QPageLayout::Portrait);
}

int TPrinter::Copies() const { return FPrinter->copyCount(); }

void TPrinter::SetCopies(int Value) { FPrinter->setCopyCount(std::max(Value, 1)); }

int TPrinter::PageWidth() const { return AsPixels(FPrinter->pageRect(QPrinter::Inch).width()); }

int TPrinter::PageHeight() const { return AsPixels(FPrinter->pageRect(QPrinter::Inch).height()); }

/// A PDF file is put together in memory: the toolkit does not tell when it cannot write to one.
void TPrinter::BeginDoc() {
  CheckIdle();
  const bool IsFile = !FFileName.empty() && !FIsPreview;
  const std::filesystem::path Folder = FFileName.parent_path();
  if (IsFile && !Folder.empty() && !std::filesystem::is_directory(Folder)) Fail();
  if (!IsFile && !FIsPreview && (FPrinter->outputFormat() != QPrinter::NativeFormat || !FPrinter->isValid()))
    throw EPrinter(LoadResString(_sNoPrinter));
  FPrinter->setDocName(ToQString(FTitle));
  QPagedPaintDevice* Device = FPrinter.get();
  if (IsFile) {
    FPdf = std::make_unique<TPdf>(*FPrinter);
    Device = &FPdf->Writer;
  }
  FPainter = std::make_unique<QPainter>();
  if (!FPainter->begin(Device)) {
    Abort();
    Fail();
  }
  FPageNumber = 1;
  StartPage();
}

void TPrinter::StartPage() {
  FPage.reset();
  FPainter->resetTransform();
  const QPaintDevice& Device = *FPainter->device();
  FPainter->scale(Device.logicalDpiX() / UnitsPerInch, Device.logicalDpiY() / UnitsPerInch);
  FPage = std::make_unique<Graphics>(*FPainter);
}

void TPrinter::NewPage() {
  CheckPrinting();
  FPage.reset();
  const bool HasPage = FPdf != nullptr ? FPdf->Writer.newPage() : FPrinter->newPage();
  if (!HasPage) Fail();
  ++FPageNumber;
  StartPage();
}

QPrinter& TPrinter::ToQt() { return *FPrinter; }

Graphics& TPrinter::Handle() {
  CheckPrinting();
  if (FPage == nullptr) StartPage();  // no new page was to be had
  return *FPage;
}

void TPrinter::Close() {
  FPage.reset();
  FPainter.reset();
  FPageNumber = 0;
}

void TPrinter::EndDoc() {
  CheckPrinting();
  Close();
  const auto Pdf = std::move(FPdf);
  if (Pdf == nullptr && FPrinter->printerState() == QPrinter::Error) Fail();
  if (Pdf != nullptr) SaveWholeFile(FFileName, Pdf->Bytes());
}

void TPrinter::Abort() {
  if (FPdf == nullptr && FPainter != nullptr && FPainter->isActive()) FPrinter->abort();
  Close();
  FPdf.reset();
}

}  // namespace zy
