// Charts as files, pictures, on the clipboard and on paper, read back by other programs.

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QTimer>
#include <QVBoxLayout>
#include <QWidget>
#include <cmath>
#include <tuple>

#include "annotations/ZyRichLabel.h"
#include "drawing/Pixels.h"
#include "graph/ChartStubs.h"
#include "graph/OtherPrograms.h"
#include "platform/controls/TClipboard.h"
#include "platform/controls/TLabel.h"
#include "platform/controls/TPrintPreview.h"
#include "platform/controls/TPrinter.h"
#include "platform/drawing/Metafile.h"
#include "platform/drawing/TBitmap.h"
#include "platform/drawing/TMetafile.h"
#include "platform/framework/TStream.h"
#include "platform/framework/WholeFile.h"

namespace zy::testing {
namespace {

using enum TZyImageFileFormat;

constexpr TColor Yellow = 0x00FFFF;  // as 0x00BBGGRR

/// A chart of 300 by 200 pixels: an orange data area on navy, a title, a red curve with its top in the middle.
class TOutputChart : public TSampleChart {
 public:
  TOutputChart() : TSampleChart(300, 200) {
    UsePlainAxes();
    Graph->SetDistanceBorderAxisTop(10);
    Graph->SetDistanceBorderAxisBottom(50);
    Graph->SetBackColor(Colors::Navy);
    Graph->SetDataAreaColor(Colors::Orange);
    Graph->SetCaption("Harvest of 1914");
    Graph->SetCaptionVisible(true);
    Graph->SetCaptionColor(Colors::White);
    AddSeries("Series", {0, 1, 2}, {0, 1, 0})->Line().SetColor(Colors::Red);
  }
  std::string Saved(TZyImageFileFormat Format, bool RemoveTransparency = false, TColor Color = 0xFFFFFF) {
    TMemoryStream Stream;
    Graph->SaveImage(Stream, Format, RemoveTransparency, Color);
    return AsText(Stream);
  }
  Bitmap SavedPicture() { return PictureOf(Saved(PNG)); }
  static Bitmap PictureOf(const std::string& Bytes) {
    TMemoryStream Stream(AsBytes(Bytes));
    return Bitmap::Load(Stream);
  }
};

/// How many pixels differ from the chart of 300 by 200 on the screen by more than the edges of a glyph.
int DifferencesFromScreen(TOutputChart& Chart, const Bitmap& Picture) {
  const Bitmap Screen = Chart.Paint();
  if (Picture.GetWidth() != 300 || Picture.GetHeight() != 200) return 300 * 200;
  int Result = 0;
  for (int Y = 0; Y < 200; ++Y)
    for (int X = 0; X < 300; ++X) Result += Distance(Picture.GetPixel(X, Y), Screen.GetPixel(X, Y)) > 64;
  return Result;
}

bool SamePixels(const Bitmap& A, const Bitmap& B) {
  return A.ToQt().convertToFormat(QImage::Format_ARGB32) == B.ToQt().convertToFormat(QImage::Format_ARGB32);
}

TEST(GraphFilesTest, OtherProgramsReadTheSameChart) {
  ZY_NEED_PROGRAM("identify");
  ZY_NEED_PROGRAM("rsvg-convert");
  TOutputChart Chart;
  const TScratchFolder Folder;
  const std::string Read = Folder / "read.png";
  for (const auto& [Format, Name] :
       {std::pair(BMP, "BMP"), {JPEG, "JPEG"}, {PNG, "PNG"}, {GIF, "GIF"}, {TIFF, "TIFF"}, {SVG, "SVG"}}) {
    const std::string File = Folder / (std::string("chart.") + Name);
    Chart.Graph->SaveImage(File, Format);
    EXPECT_TRUE(Format == SVG || OutputOf("identify -format %m " + File).starts_with(Name)) << Name;
    ASSERT_EQ(OutputOf(Format == SVG ? "rsvg-convert " + File + " -o " + Read : "convert " + File + " " + Read), "");
    const Bitmap Picture = Bitmap::Load(Read);
    EXPECT_LT(DifferencesFromScreen(Chart, Picture), Format == SVG || Format == JPEG ? 1200 : 1) << Name;
    EXPECT_LE(Distance(Picture.GetPixel(150, 130), Colors::Orange), Format == JPEG ? 12 : 0) << Name;
  }
}

TEST(GraphFilesTest, PdfKeepsTextAndSize) {
  ZY_NEED_PROGRAM("pdftotext");
  TOutputChart Chart;
  const TScratchFolder Folder;
  const std::string File = Folder / "chart.pdf";
  Chart.Graph->SaveImage(File, PDF);
  EXPECT_EQ(OutputOf("pdftotext " + File + " - | head -1"), "Harvest of 1914\n");
  EXPECT_NE(OutputOf("pdfinfo " + File).find("225 x 150 pts"), std::string::npos) << "300 x 200 pixels of 1/96 inch";
}

TEST(GraphFilesTest, AFailedSaveLeavesTheOldFile) {
  TOutputChart Chart;
  const TScratchFolder Folder;
  const std::string File = Folder / "chart.png";
  SaveWholeFile(File, std::string_view("old"));
  Chart.Graph->SetBounds(0, 0, 40'000, 200);
  EXPECT_THROW(Chart.Graph->SaveImage(File, PNG), ERangeError);
  Chart.Graph->SetBounds(0, 0, 300, 0);
  Chart.Graph->SaveImage(File, PNG);
  Chart.Graph->SetBounds(0, 0, 300, 200);
  Chart.Graph->SaveImage(File, EXIF);
  EXPECT_EQ(OutputOf("cat " + File), "old");
  EXPECT_TRUE(Folder.IsEmptyBut(1));
  Chart.Graph->SaveImage(Folder / "icon.ico", Icon);
  EXPECT_EQ(std::filesystem::file_size(Folder / "icon.ico"), 0u);
}

TEST(GraphImageTest, TransparencyStaysOrTakesTheColour) {
  TOutputChart Chart;
  Chart.Graph->SetBackColor(Colors::Transparent);
  EXPECT_EQ(QImage::fromData(QByteArray::fromStdString(Chart.Saved(PNG))).pixel(5, 190), 0x00FFFFFFu) << "white";
  const Bitmap Picture = Chart.PictureOf(Chart.Saved(PNG, true, Yellow));
  EXPECT_EQ(Picture.GetPixel(5, 190), Colors::Yellow);
  EXPECT_EQ(Picture.GetPixel(150, 130), Colors::Orange);

  Chart.Graph->SetDataAreaColor(Colors::Yellow);
  const std::unique_ptr<TBitmap> Copy = Chart.Graph->AsTBitmap(Yellow);
  EXPECT_EQ(Copy->Pixel(5, 190), Yellow);
  const Bitmap Sheet = zy::PictureOf(310, 200, [&Copy](Graphics& Canvas) {
    Canvas.Clear(Colors::Lime);
    Copy->Draw(Canvas, 10, 0);
  });
  EXPECT_EQ(Sheet.GetPixel(15, 190), Colors::Lime);
  EXPECT_EQ(Sheet.GetPixel(160, 130), Colors::Lime) << "what the chart draws in that colour goes, too";
}

TEST(GraphImageTest, NoOutputChangesTheScreenOrLeavesAFlag) {
  TOutputChart Chart;
  for (const int Width : {280, 300}) {
    const auto Screen = [&Chart] { return PictureOf(300, 200, [&](Graphics& Gr) { Chart.Form.PaintTo(Gr); }); };
    Chart.Graph->SetWidth(Width);
    const Bitmap Before = Screen();
    Chart.Graph->Modified();
    Chart.Saved(SVG);  // lays out
    const int Invalidations = Chart.Graph->Invalidations;
    for (const TZyImageFileFormat Format : {EMF, BMP, JPEG, PNG, GIF, TIFF, EXIF, Icon, SVG, PDF}) Chart.Saved(Format);
    Chart.Graph->CopyToClipboard();
    Chart.Graph->SetDoingMetafile(true);
    Metafile Recording(300, 200);
    Chart.Graph->PaintToImage(Recording);
    EXPECT_FALSE(Chart.Graph->DoingMetafile() || Chart.Graph->DoingImage());
    EXPECT_EQ(Chart.Graph->Invalidations, Invalidations);
    EXPECT_TRUE(SamePixels(Before, Screen()));
    EXPECT_TRUE(SamePixels(Chart.Paint(), Chart.SavedPicture())) << "pixels of the screen";
  }
}

TEST(GraphImageTest, ShowsMarkersAndRichLabelsButNoOtherControls) {
  TOutputChart Chart;
  TStubMarker Marker(&Chart.Form), Hidden(&Chart.Form);
  TZyRichLabel Label(&Chart.Form);
  TLabel Plain(&Chart.Form);
  Label.SetAutoSize(false);
  Label.SetBackColor(Colors::Lime);
  Plain.SetCaption("XXXXXXXXX");
  int Left = 60;
  for (TControl* Control : std::initializer_list<TControl*>{&Marker, &Hidden, &Label, &Plain}) {
    Control->SetParent(Chart.Graph);
    Control->SetBounds(Left += 40, 170, 10, 10);
  }
  Hidden.SetVisible(false);
  const Bitmap Picture = Chart.SavedPicture();
  for (int X = 100; X < 250; ++X) {
    const ARGB Expected = X < 110 ? Colors::Red : X >= 180 && X < 190 ? Colors::Lime : Colors::Navy;
    EXPECT_EQ(Picture.GetPixel(X, 175), Expected) << X;
  }
  Marker.Fails = true;
  for (const TZyImageFileFormat Format : {PNG, SVG}) EXPECT_THROW(Chart.Saved(Format), EInvalidOperation);
  EXPECT_FALSE(Chart.Graph->DoingImage() || Chart.Graph->DoingMetafile());
}

TEST(GraphImageTest, LeavesScrollBarsOut) {
  TOutputChart Chart;
  Chart.Graph->Zoom().SetHScrollbarVisible(true);
  Chart.Graph->Zoom().SetVScrollbarVisible(true);
  Chart.Paint();
  Chart.Graph->ZoomTo({100, 60}, {200, 120});
  TMemoryStream Drawing(AsBytes(Chart.Saved(EMF)));  // lays out, and brings the bars
  const int Left = Chart.Graph->VerticalScrollbar()->Width(), Bottom = Chart.Graph->HorizontalScrollBar()->Height();
  EXPECT_EQ(Chart.Graph->ImageGraphLeft(), Left);
  const Bitmap Picture = Chart.SavedPicture(), Screen = Chart.Paint();
  ASSERT_EQ(std::pair(Picture.GetWidth(), Picture.GetHeight()), std::pair(300 - Left, 200 - Bottom));
  for (int X = 0; X < Picture.GetWidth(); ++X) ASSERT_EQ(Picture.GetPixel(X, 100), Screen.GetPixel(X + Left, 100)) << X;
  TMetafile Metafile;
  Metafile.LoadFromStream(Drawing);
  EXPECT_EQ(Metafile.Width(), Picture.GetWidth());
}

TEST(GraphImageTest, CoupledGraphsAreOnePicture) {
  TOutputChart Chart;
  const auto AddOther = [&](int Height, TZyColor Color) {
    TZyGraph2D* const Other = &Chart.AddCoupled();
    Other->SetBounds(0, 300, 300, Height);
    Other->SetBackColor(Color);
    Other->TestPrimaryAxis();
    return Other;
  };
  AddOther(100, Colors::Lime);
  TZyGraph2D* const Last = AddOther(150, Colors::Yellow);
  EXPECT_EQ(Last->ImgageGraphHeight(), 200 + 100 + 150);
  TMemoryStream FromChild;
  Last->SaveImage(FromChild, PNG);
  ASSERT_EQ(AsText(FromChild), Chart.Saved(PNG));
  const Bitmap Picture = Chart.SavedPicture();
  EXPECT_EQ(BoxOf(Picture, Colors::Yellow), (TRect{0, 0, 299, 149})) << "the last of the coupled graphs on top";
  EXPECT_EQ(BoxOf(Picture, Colors::Lime), (TRect{0, 150, 299, 249}));
  EXPECT_EQ(Picture.GetPixel(2, 250), Colors::Navy);
  EXPECT_EQ(Picture.GetHeight(), 450);
}

TEST(GraphImageTest, HasTheSizeAndTheResolutionThatWereAskedFor) {
  TOutputChart Chart;
  QWidget Window;
  auto* const Column = new QVBoxLayout(&Window);
  Column->addWidget(Chart.Graph->Widget());
  Window.resize(420, 300);
  Window.show();
  QApplication::processEvents();
  const QRect Place = Chart.Graph->Widget()->geometry();
  const Bitmap Before = Chart.Paint();
  const auto Saved = [&Chart](TZyImageFileFormat Format, const TZyPictureSize& Size) {
    TMemoryStream Stream;
    Chart.Graph->SaveImage(Stream, Format, Size);
    return QByteArray::fromStdString(AsText(Stream));
  };
  const QImage Printed = QImage::fromData(Saved(PNG, TZyPictureSize::Millimeters(160, 100, 300)));
  EXPECT_EQ(Printed.size(), QSize(1890, 1181)) << "160 / 25.4 * 300";
  EXPECT_EQ(Printed.dotsPerMeterX(), 11811);
  EXPECT_EQ(QImage::fromData(Saved(JPEG, TZyPictureSize::Millimeters(16, 10, 300))).dotsPerMeterX(), 11811);
  EXPECT_TRUE(Saved(SVG, TZyPictureSize::Millimeters(127, 100)).contains("width=\"480\""));  // 5 inches
  // Twice as fine is what a screen of double density shows.
  const QImage Fine = QImage::fromData(Saved(PNG, TZyPictureSize::Pixels(600, 400, 192)));
  EXPECT_EQ(Chart.Paint().ToQt(), Before.ToQt()) << "the screen stays";
  EXPECT_EQ(Chart.Graph->Widget()->geometry(), Place);
  TOutputChart Plain;
  Bitmap Wanted(300, 200, 2);
  Plain.Graph->PaintToImage(Wanted);
  EXPECT_EQ(Fine.convertToFormat(QImage::Format_ARGB32), Wanted.ToQt().convertToFormat(QImage::Format_ARGB32));
  EXPECT_THROW(Saved(PNG, TZyPictureSize::Pixels(40'000, 10)), ERangeError);
  EXPECT_THROW(Saved(PNG, {0, 0, std::nan("")}), ERangeError);
  EXPECT_EQ(Chart.Graph->Width(), Place.width());

  // On a form that gives the chart its place, with another graph on its axis and a scroll bar.
  TOutputChart Aligned;
  Aligned.Form.SetBounds(0, 0, 500, 400);
  Aligned.Graph->SetAlign(alTop);
  TZyGraph2D& Lower = Aligned.AddCoupled();
  Lower.SetAlign(alClient);
  Aligned.Paint();
  Aligned.X->SetStart(0.5);
  TMemoryStream Stream;
  Aligned.Graph->SaveImage(Stream, PNG, TZyPictureSize::Pixels(701, 555));
  EXPECT_EQ(TOutputChart::PictureOf(AsText(Stream)).ToQt().size(), QSize(701, 555));
  EXPECT_EQ(Aligned.Graph->BoundsRect(), (TRect{0, 0, 500, 200}));
  EXPECT_EQ(Lower.BoundsRect(), (TRect{0, 200, 500, 400}));
}

TEST(GraphImageTest, AnyPainterOfTheToolkitTakesIt) {
  TOutputChart Chart;
  QImage Sheet(800, 600, QImage::Format_RGB32);
  Sheet.fill(Qt::white);
  QPainter Painter(&Sheet);
  Chart.Graph->PaintOn(Painter, {100, 50, 600, 500});  // 3 to 2 fits 600 by 400
  Painter.end();
  EXPECT_EQ(Sheet.pixel(400, 50 + 2 * 130), Colors::Orange);
  EXPECT_EQ(Sheet.pixel(101, 51), Colors::Navy);
  EXPECT_EQ(Sheet.pixel(698, 448), Colors::Navy);
  for (const QPoint& Outside : {QPoint(98, 50), QPoint(702, 50), QPoint(400, 47), QPoint(400, 453)})
    EXPECT_EQ(Sheet.pixel(Outside), 0xFFFFFFFFu) << Outside.x();
}

TEST(GraphMetafileTest, IsAnEnhancedMetafile) {
  TOutputChart Chart;
  const std::unique_ptr<TMetafile> Copy = Chart.Graph->AsTMetafile();
  EXPECT_EQ(std::pair(Copy->Width(), Copy->Height()), std::pair(300, 200));
  EXPECT_NEAR(Copy->MMWidth(), 300 / 96.0 * 2540, 1);
  TMemoryStream Stream;
  Copy->SaveToStream(Stream);
  Copy->SaveToStream(Stream);
  Stream.SetPosition(0);
  TMetafile Loaded;
  Loaded.LoadFromStream(Stream);
  EXPECT_EQ(Stream.Remaining(), static_cast<std::int64_t>(Copy->Bytes().size())) << "one of two";
  for (const std::size_t Size : {Copy->Bytes().size() - 4, std::size_t{100}, std::size_t{3}}) {
    TMemoryStream Cut(Copy->Bytes().first(Size));
    EXPECT_THROW(Loaded.LoadFromStream(Cut), EStreamError);
  }
  EXPECT_FALSE(Loaded.Empty());
  Chart.Graph->SetWidth(0);
  EXPECT_TRUE(Chart.Graph->AsTMetafile()->Empty() && Chart.Graph->AsTBitmap(Yellow)->Empty());
}

TEST(GraphClipboardTest, HoldsEveryFormAtOnce) {
  TOutputChart Chart;
  Clipboard().SetAsText("before");
  Chart.Graph->CopyToClipboard();
  EXPECT_EQ(Clipboard().AsText(), "");
  EXPECT_NE(Clipboard().AsBytes("image/svg+xml").find("Harvest of 1914"), std::string::npos);
  EXPECT_TRUE(Clipboard().AsBytes("application/pdf").starts_with("%PDF-"));
  EXPECT_EQ(Clipboard().AsBytes("image/x-emf").substr(40, 4), " EMF");
  EXPECT_TRUE(Clipboard().HasFormat("application/x-qt-image"));
  EXPECT_TRUE(SamePixels(Chart.PictureOf(Clipboard().AsBytes("image/png")), Chart.SavedPicture()));
}

TEST(GraphPrintTest, FitsThePictureIntoTheRectangle) {
  ZY_NEED_PROGRAM("pdftoppm");
  TOutputChart Chart;
  const TScratchFolder Folder;
  const std::string File = Folder / "page.pdf";
  TPrinter Printer;
  Printer.SetFileName(File);
  ASSERT_GT(Printer.PageWidth(), 6 * TPrinter::PixelsPerInch) << "any usual paper";
  Printer.BeginDoc();
  Chart.Graph->PrintTo(nullptr, {0, 0, 100, 100});
  Chart.Graph->PrintTo(&Printer, {600, 1200, 3600, 4200});  // as wide as 5 inches: room is left at the bottom
  Printer.NewPage();
  Chart.Graph->PrintTo(&Printer, {600, 1200, 3600, 2400});  // as high as 2 inches: 3 wide, in the middle
  Chart.Graph->PrintTo(&Printer, {600, 1200, 600, 2400});   // nothing
  EXPECT_EQ(Printer.PageNumber(), 2);
  EXPECT_FALSE(std::filesystem::exists(File)) << "the file comes as a whole";
  Printer.EndDoc();
  EXPECT_FALSE(Chart.Graph->DoingMetafile());
  ASSERT_EQ(OutputOf("pdftoppm -png -r 100 " + File + " " + (Folder / "page")), "");
  EXPECT_NE(OutputOf("pdftotext " + File + " -").find("Harvest of 1914"), std::string::npos);
  const QMarginsF Margins = Printer.ToQt().pageLayout().margins(QPageLayout::Inch);
  int Number = 1;
  for (const auto& [Left, Top, Right, Bottom] : {std::tuple(1.0, 2.0, 6.0, 2 + 5 / 1.5), {2.0, 2.0, 5.0, 4.0}}) {
    const TRect Box = BoxOf(Bitmap::Load(Folder / ("page-" + std::to_string(Number++) + ".png")), Colors::Navy);
    EXPECT_NEAR(Box.Left, (Left + Margins.left()) * 100, 1.5);
    EXPECT_NEAR(Box.Top, (Top + Margins.top()) * 100, 1.5);
    EXPECT_NEAR(Box.Right, (Right + Margins.left()) * 100, 2.5);
    EXPECT_NEAR(Box.Bottom, (Bottom + Margins.top()) * 100, 2.5);
  }
}

/// Lets files of this process grow to 100 bytes and no more.
class TFullDisk {
 public:
  TFullDisk() : FHandler(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &FBefore);
    const rlimit Small{100, FBefore.rlim_max};
    setrlimit(RLIMIT_FSIZE, &Small);
  }
  ~TFullDisk() {
    setrlimit(RLIMIT_FSIZE, &FBefore);
    std::signal(SIGXFSZ, FHandler);
  }

 private:
  void (*FHandler)(int);
  rlimit FBefore;
};

TEST(GraphPrintTest, ThePreviewShowsPagesWithoutAPrinter) {
  TOutputChart Chart;
  TPrinter Printer;
  int Pages = 0, Orange = 0;
  const auto LookAndClose = [&] {
    QWidget* const Dialog = QApplication::activeModalWidget();
    ASSERT_NE(Dialog, nullptr);
    auto* const Preview = Dialog->findChild<QPrintPreviewWidget*>();
    Pages = Preview->pageCount();
    const QImage Shown = Dialog->grab().toImage().convertToFormat(QImage::Format_RGB32);
    for (int Y = 0; Y < Shown.height(); ++Y)
      for (int X = 0; X < Shown.width(); ++X) Orange += Shown.pixel(X, Y) == Colors::Orange;
    Dialog->close();
  };
  QTimer::singleShot(100, LookAndClose);
  const auto Print = [&Chart](TPrinter& To) {
    To.BeginDoc();
    Chart.Graph->PrintTo(&To, {0, 0, To.PageWidth(), To.PageHeight()});
    To.NewPage();
    Chart.Graph->PrintTo(&To, {0, 0, To.PageWidth(), To.PageHeight()});
    To.EndDoc();
  };
  EXPECT_FALSE(TPrintPreview::Execute(Printer, Print));
  EXPECT_EQ(Pages, 2);
  EXPECT_GT(Orange, 1000);
  EXPECT_THROW(TPrintPreview::Execute(Printer, [](TPrinter& To) { To.EndDoc(); }), EPrinter);
  EXPECT_FALSE(Printer.Printing());
}

TEST(PrinterTest, SaysWhatItCannotDo) {
  TOutputChart Chart;
  const TScratchFolder Folder;
  TPrinter Printer;
  EXPECT_THROW(Chart.Graph->PrintTo(&Printer, {0, 0, 100, 100}), EPrinter);
  EXPECT_THROW(Printer.SetPrinterName("no such printer"), EPrinter);
  EXPECT_THROW(Printer.EndDoc(), EPrinter);
  Printer.SetFileName(Folder / "no/folder.pdf");
  EXPECT_THROW(Printer.BeginDoc(), EPrinter);
  EXPECT_FALSE(Printer.Printing());
  Printer.SetFileName(Folder / "page.pdf");
  SaveWholeFile(Printer.FileName(), std::string_view("old"));
  Printer.BeginDoc();
  EXPECT_THROW(Printer.BeginDoc(), EPrinter);
  EXPECT_THROW(Printer.SetFileName(""), EPrinter);
  Chart.Graph->PrintTo(&Printer, {0, 0, 3000, 2000});
  Printer.Abort();
  EXPECT_EQ(OutputOf("cat " + (Folder / "page.pdf")), "old");
  EXPECT_TRUE(Folder.IsEmptyBut(1));
  Printer.BeginDoc();
  Chart.Graph->PrintTo(&Printer, {0, 0, 3000, 2000});
  {
    const TFullDisk NoRoom;
    EXPECT_THROW(Printer.EndDoc(), EFileError);
  }
  EXPECT_FALSE(Printer.Printing());
  EXPECT_EQ(OutputOf("cat " + (Folder / "page.pdf")), "old");
  EXPECT_TRUE(Folder.IsEmptyBut(1));
  const int Portrait = Printer.PageWidth();
  Printer.SetOrientation(poLandscape);
  EXPECT_GT(Printer.PageWidth(), Portrait);
}

}  // namespace
}  // namespace zy::testing
