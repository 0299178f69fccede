#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

class QPainter;
class QPrinter;

namespace zy {

class Graphics;

/// How a page lies.
enum TPrinterOrientation { poPortrait, poLandscape };

/// Prints documents: on a printer of the system, or into a PDF file.
///
/// Places on a page are printer pixels, counted from the corner of what the printer can reach. **There are always 600
/// of them to an inch**, whatever the device is made of, so that a layout holds on every printer. What is printed is
/// drawn through Handle, whose unit is a hundredth of an inch: 6 printer pixels.
class TPrinter {
 public:
  static constexpr int PixelsPerInch = 600;

  /// The system's default printer.
  TPrinter();
  /// A document that is still open is thrown away.
  ~TPrinter();
  TPrinter(const TPrinter&) = delete;
  TPrinter& operator=(const TPrinter&) = delete;

  /// The names of the system's printers.
  static std::vector<std::string> Printers();
  /// The printer in use; empty when there is none. Setting it leaves the PDF file. Throws EPrinter for a name that
  /// Printers does not give, and while a document is open.
  std::string PrinterName() const;
  void SetPrinterName(const std::string& Value);
  /// The PDF file that documents go to instead of a printer; empty for a printer. The file appears as a whole when a
  /// document ends; an old one stays until then. Setting it throws EPrinter while a document is open.
  const std::filesystem::path& FileName() const { return FFileName; }
  void SetFileName(const std::filesystem::path& Value);

  /// What the queue and the PDF file show of the next document.
  const std::string& Title() const { return FTitle; }
  void SetTitle(const std::string& Value) { FTitle = Value; }
  /// How the paper lies. Setting it throws EPrinter while a document is open.
  TPrinterOrientation Orientation() const;
  void SetOrientation(TPrinterOrientation Value);
  int Copies() const;
  void SetCopies(int Value);
  /// Printer pixels that the printer can reach, across and down. Paper and margins are those of the printer; see ToQt.
  int PageWidth() const;
  int PageHeight() const;

  /// Opens a document, with its first page. Throws EPrinter when there is no printer, when it refuses, or with a
  /// document open.
  void BeginDoc();
  /// Goes on with an empty page. Throws EPrinter without a document.
  void NewPage();
  /// Ends the document and has it printed. Throws EPrinter without a document, and when the printer failed; EFileError
  /// when the PDF file cannot be written, on a full disk say, with an old one whole. The document is closed in any
  /// case.
  void EndDoc();
  /// Throws the document away.
  void Abort();
  /// Whether a document is open.
  bool Printing() const { return FPainter != nullptr; }
  /// Number of the page, from 1; 0 without a document.
  int PageNumber() const { return FPageNumber; }
  /// Draws on the present page. Valid until the page or the document ends. Throws EPrinter without a document.
  Graphics& Handle();

  /// The toolkit's printer, for its dialogs, paper and margins.
  QPrinter& ToQt();

 private:
  friend class TPrintPreview;
  void CheckIdle() const;
  void CheckPrinting() const;
  [[noreturn]] void Fail() const;
  void StartPage();
  void Close();

  struct TPdf;

  std::unique_ptr<QPrinter> FPrinter;
  std::unique_ptr<QPainter> FPainter;
  std::unique_ptr<Graphics> FPage;
  std::filesystem::path FFileName;
  std::unique_ptr<TPdf> FPdf;  // while a document for the PDF file is open
  std::string FTitle;
  int FPageNumber = 0;
  bool FIsPreview = false;  // documents go to the toolkit's printer, whatever that stands for
};

}  // namespace zy
