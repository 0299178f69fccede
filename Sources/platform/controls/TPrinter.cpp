#include "platform/controls/TPrinter.h"

#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <algorithm>
#include <cmath>
#include <random>
#include <system_error>
#include <utility>

#include "platform/drawing/Graphics.h"
#include "platform/drawing/QtText.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

constexpr double UnitsPerInch = 100;  // of Handle

int AsPixels(double Inches) { return static_cast<int>(std::floor(Inches * TPrinter::PixelsPerInch)); }

}  // namespace

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

/// A name of its own beside the file, so that the file is there in one step.
std::filesystem::path TPrinter::TemporaryFile() const {
  std::filesystem::path Result = FFileName;
  return Result.concat(".").concat(std::to_string(std::random_device()())).concat(".tmp");
}

void TPrinter::BeginDoc() {
  CheckIdle();
  if (FFileName.empty() && (FPrinter->outputFormat() != QPrinter::NativeFormat || !FPrinter->isValid()))
    throw EPrinter(LoadResString(_sNoPrinter));
  FTemporary = FFileName.empty() ? std::filesystem::path() : TemporaryFile();
  FPrinter->setOutputFileName(ToQString(FTemporary.string()));
  if (!FFileName.empty()) FPrinter->setOutputFormat(QPrinter::PdfFormat);
  FPrinter->setDocName(ToQString(FTitle));
  FPainter = std::make_unique<QPainter>();
  if (!FPainter->begin(FPrinter.get())) {
    Abort();
    Fail();
  }
  FPageNumber = 1;
  StartPage();
}

void TPrinter::StartPage() {
  FPage.reset();
  FPainter->resetTransform();
  FPainter->scale(FPrinter->logicalDpiX() / UnitsPerInch, FPrinter->logicalDpiY() / UnitsPerInch);
  FPage = std::make_unique<Graphics>(*FPainter);
}

void TPrinter::NewPage() {
  CheckPrinting();
  FPage.reset();
  if (!FPrinter->newPage()) Fail();
  ++FPageNumber;
  StartPage();
}

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
  const std::filesystem::path Temporary = std::exchange(FTemporary, {});
  if (FPrinter->printerState() == QPrinter::Error) Fail();
  if (Temporary.empty()) return;
  std::error_code Error, Ignored;
  std::filesystem::rename(Temporary, FFileName, Error);
  if (!Error) return;
  std::filesystem::remove(Temporary, Ignored);
  throw EFileError(Format(LoadResString(_sCannotWriteFile), {FFileName.string()}));
}

void TPrinter::Abort() {
  if (FPainter != nullptr && FPainter->isActive()) FPrinter->abort();
  Close();
  std::error_code Ignored;
  if (const auto Temporary = std::exchange(FTemporary, {}); !Temporary.empty())
    std::filesystem::remove(Temporary, Ignored);
}

}  // namespace zy
