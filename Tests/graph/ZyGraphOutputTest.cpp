// Charts as files, pictures, on the clipboard and on paper, read back by other programs.

#include <gtest/gtest.h>

#include <QImage>
#include <QPrinter>
#include <algorithm>
#include <fstream>
#include <tuple>

#include "annotations/ZyRichLabel.h"
#include "drawing/Pixels.h"
#include "graph/OtherPrograms.h"
#include "graph/SampleChart.h"
#include "platform/controls/TClipboard.h"
#include "platform/controls/TLabel.h"
#include "platform/controls/TPrinter.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Metafile.h"
#include "platform/drawing/TBitmap.h"
#include "platform/drawing/TMetafile.h"
#include "platform/framework/Exceptions.h"
#include "platform/framework/TStream.h"
#include "platform/framework/WholeFile.h"

namespace zy {
namespace {

using testing::OutputOf;
using testing::TSampleChart;
using testing::TScratchFolder;
using enum TZyImageFileFormat;

constexpr TZyImageFileFormat AllFormats[] = {EMF, BMP, JPEG, PNG, GIF, TIFF, EXIF, Icon, SVG, PDF};
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
    const auto Bytes = Stream.Bytes();
    return {reinterpret_cast<const char*>(Bytes.data()), Bytes.size()};
  }
  Bitmap SavedPicture(bool RemoveTransparency = false, TColor Color = 0xFFFFFF) {
    const std::string Bytes = Saved(PNG, RemoveTransparency, Color);
    TMemoryStream Stream(std::as_bytes(std::span(Bytes)));
    return Bitmap::Load(Stream);
  }
};

bool SamePixels(const Bitmap& A, const Bitmap& B) {
  for (int Y = 0; Y < A.GetHeight(); ++Y)
    for (int X = 0; X < A.GetWidth(); ++X)
      if (A.GetPixel(X, Y) != B.GetPixel(X, Y)) return false;
  return A.GetWidth() == B.GetWidth() && A.GetHeight() == B.GetHeight();
}

/// The box of pixels of a colour.
struct TFound {
  int Left = 100'000, Top = 100'000, Right = -1, Bottom = -1;
};
TFound FindColor(const Bitmap& Page, ARGB Color) {
  TFound Box;
  for (int Y = 0; Y < Page.GetHeight(); ++Y)
    for (int X = 0; X < Page.GetWidth(); ++X)
      if (Distance(Page.GetPixel(X, Y), Color) < 8)
        Box = {std::min(Box.Left, X), std::min(Box.Top, Y), std::max(Box.Right, X), std::max(Box.Bottom, Y)};
  return Box;
}

TEST(GraphFilesTest, PicturesAreReadByAnotherProgram) {
  ZY_NEED_PROGRAM("identify");
  TOutputChart Chart;
  const TScratchFolder Folder;
  for (const auto& [Format, Name, Tolerance] :
       {std::tuple(BMP, "BMP", 0), {JPEG, "JPEG", 12}, {PNG, "PNG", 0}, {GIF, "GIF", 0}, {TIFF, "TIFF", 0}}) {
    const std::string File = Folder / (std::string("chart.") + Name);
    Chart.Graph->SaveImage(File, Format);
    int Width = 0, Height = 0;
    char Kind[8] = "", Back[16] = "", Area[16] = "";
    const std::string Output =
        OutputOf("convert " + File + " -depth 8 -format '%m %w %h %[hex:u.p{5,190}] %[hex:u.p{150,130}]' info:");
    ASSERT_EQ(std::sscanf(Output.c_str(), "%7s %d %d %15s %15s", Kind, &Width, &Height, Back, Area), 5) << Output;
    EXPECT_TRUE(std::string(Kind).starts_with(Name)) << Kind;
    EXPECT_EQ(Width, 300) << Name;
    EXPECT_EQ(Height, 200) << Name;
    const auto Color = [](const char* Hex) {
      return static_cast<ARGB>(std::stoul(std::string(Hex).substr(0, 6), nullptr, 16)) | 0xFF000000u;
    };
    EXPECT_LE(Distance(Color(Back), Colors::Navy), Tolerance) << Output;
    EXPECT_LE(Distance(Color(Area), Colors::Orange), Tolerance) << Output;
  }
}

TEST(GraphFilesTest, SvgIsDrawnByAnotherProgram) {
  ZY_NEED_PROGRAM("rsvg-convert");
  TOutputChart Chart;
  const TScratchFolder Folder;
  Chart.Graph->SaveImage(Folder / "chart.svg", SVG);
  EXPECT_EQ(OutputOf("rsvg-convert " + (Folder / "chart.svg") + " -o " + (Folder / "drawn.png")), "");
  const Bitmap Drawn = Bitmap::Load(Folder / "drawn.png"), Screen = Chart.Paint();
  ASSERT_EQ(Drawn.GetWidth(), 300);
  ASSERT_EQ(Drawn.GetHeight(), 200);
  EXPECT_EQ(Drawn.GetPixel(5, 190), Colors::Navy);
  EXPECT_EQ(Drawn.GetPixel(150, 130), Colors::Orange);
  int Different = 0;
  for (int Y = 0; Y < 200; ++Y)
    for (int X = 0; X < 300; ++X) Different += Distance(Drawn.GetPixel(X, Y), Screen.GetPixel(X, Y)) > 64;
  EXPECT_LT(Different, 300 * 200 / 100) << "the same chart but for the edges of glyphs";
}

TEST(GraphFilesTest, PdfKeepsTextAndSize) {
  ZY_NEED_PROGRAM("pdftotext");
  TOutputChart Chart;
  Chart.X->SetNumbersVisible(true);
  const TScratchFolder Folder;
  const std::string File = Folder / "chart.pdf";
  Chart.Graph->SaveImage(File, PDF);
  const std::string Text = OutputOf("pdftotext -layout " + File + " -");
  EXPECT_NE(Text.find("Harvest of 1914"), std::string::npos) << Text;
  EXPECT_NE(Text.find("0.5"), std::string::npos) << Text;
  EXPECT_NE(OutputOf("pdfinfo " + File).find("225 x 150 pts"), std::string::npos) << "300 x 200 pixels of 1/96 inch";
  const std::string Fonts = OutputOf("pdffonts " + File);
  EXPECT_NE(Fonts.find("LiberationSans "), std::string::npos) << Fonts;
  EXPECT_NE(Fonts.find(" yes no  yes "), std::string::npos) << "embedded and with its characters: " << Fonts;
}

TEST(GraphFilesTest, EmfIsDrawnByAnotherProgram) {
  ZY_NEED_PROGRAM("soffice");
  TOutputChart Chart;
  const TScratchFolder Folder;
  Chart.Graph->SaveImage(Folder / "chart.emf", EMF);
  const std::string Output =
      OutputOf("soffice -env:UserInstallation=file://" + (Folder / "profile") +
               " --headless --convert-to png --outdir " + (Folder / "drawn") + " " + (Folder / "chart.emf"));
  const Bitmap Page = Bitmap::Load(Folder / "drawn/chart.png");
  const TFound Box = FindColor(Page, Colors::Navy);
  ASSERT_GT(Box.Right, Box.Left + 100) << Output;
  const int Width = Box.Right - Box.Left + 1, Height = Box.Bottom - Box.Top + 1;
  EXPECT_NEAR(Width, Height * 1.5, 3);
  EXPECT_LE(Distance(Page.GetPixel(Box.Left + Width / 2, Box.Top + Height * 13 / 20), Colors::Orange), 2);
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
  std::string Content;
  std::getline(std::ifstream(File), Content);
  EXPECT_EQ(Content, "old");
  EXPECT_TRUE(Folder.IsEmptyBut(1));
  EXPECT_THROW(Chart.Graph->SaveImage(Folder / "no/folder.png", PNG), EFileError);
  Chart.Graph->SaveImage(Folder / "icon.ico", Icon);
  EXPECT_EQ(std::filesystem::file_size(Folder / "icon.ico"), 0u);
  Chart.Graph->SaveImage(File, PNG);
  EXPECT_EQ(Bitmap::Load(File).GetWidth(), 300);
}

TEST(GraphImageTest, TransparencyStaysOrTakesTheColour) {
  TOutputChart Chart;
  Chart.Graph->SetBackColor(Colors::Transparent);
  Bitmap Picture = Chart.SavedPicture();
  EXPECT_EQ(Picture.GetPixel(5, 190) >> 24, 0u);
  EXPECT_EQ(QImage::fromData(QByteArray::fromStdString(Chart.Saved(PNG))).pixel(5, 190), 0x00FFFFFFu) << "white";
  EXPECT_EQ(Picture.GetPixel(150, 130), Colors::Orange);
  Picture = Chart.SavedPicture(true, Yellow);
  EXPECT_EQ(Picture.GetPixel(5, 190), Colors::Yellow);
  EXPECT_EQ(Picture.GetPixel(150, 130), Colors::Orange);

  Chart.Graph->SetDataAreaColor(Colors::Yellow);
  const std::unique_ptr<TBitmap> Copy = Chart.Graph->AsTBitmap(Yellow);
  EXPECT_TRUE(Copy->Transparent());
  EXPECT_EQ(Copy->TransparentColor(), Yellow);
  EXPECT_EQ(Copy->Pixel(5, 190), Yellow);
  Bitmap Sheet(310, 200);
  Graphics(Sheet).Clear(Colors::Lime);
  {
    Graphics Canvas(Sheet);
    Copy->Draw(Canvas, 10, 0);
  }
  EXPECT_EQ(Sheet.GetPixel(15, 190), Colors::Lime);
  EXPECT_EQ(Sheet.GetPixel(160, 130), Colors::Lime) << "what the chart draws in that colour goes, too";
}

TEST(GraphImageTest, NoOutputChangesTheScreenOrLeavesAFlag) {
  TOutputChart Chart;
  for (const int Width : {280, 300}) {
    const auto Screen = [&Chart] {
      Bitmap Picture(300, 200);
      Graphics Canvas(Picture);
      Chart.Form.PaintTo(Canvas);
      return Picture;
    };
    Chart.Graph->SetWidth(Width);
    const Bitmap Before = Screen();
    Chart.Graph->Modified();
    Chart.Saved(SVG);  // lays out
    const int Invalidations = Chart.Graph->Invalidations;
    for (const TZyImageFileFormat Format : AllFormats) Chart.Saved(Format);
    Chart.Graph->CopyToClipboard();
    Chart.Graph->SetDoingMetafile(true);
    Metafile Recording(300, 200);
    Chart.Graph->PaintToImage(Recording);
    EXPECT_FALSE(Chart.Graph->DoingMetafile());
    EXPECT_FALSE(Chart.Graph->DoingImage());
    EXPECT_EQ(Chart.Graph->Invalidations, Invalidations);
    EXPECT_TRUE(SamePixels(Before, Screen()));
    EXPECT_TRUE(SamePixels(Chart.Paint(), Chart.SavedPicture())) << "pixels of the screen";
  }
}

/// A marker in the chart, drawn as a red box with its corner at its own.
class TBoxMarker : public TGraphicControl, public IZyGraphMarker {
 public:
  using TGraphicControl::TGraphicControl;
  void PaintGr(Graphics& Gr) override {
    if (Fails) throw EInvalidOperation("no");
    Gr.FillRectangle(SolidBrush(Colors::Red), 0, 0, 10, 10);
  }
  void UpdatePosition() override {}
  void SetUndoStack(TZyUndoStack*) override {}
  bool Fails = false;
};

TEST(GraphImageTest, ShowsMarkersAndRichLabelsButNoOtherControls) {
  TOutputChart Chart;
  auto* const Marker = new TBoxMarker(&Chart.Form);
  auto* const Hidden = new TBoxMarker(&Chart.Form);
  auto* const Label = new TZyRichLabel(&Chart.Form);
  auto* const Plain = new TLabel(&Chart.Form);
  int Left = 100;
  for (TControl* Control : std::initializer_list<TControl*>{Marker, Hidden, Label, Plain}) {
    Control->SetParent(Chart.Graph);
    Control->SetBounds(Left, 170, 10, 10);
    Left += 40;
  }
  Hidden->SetVisible(false);
  Label->SetAutoSize(false);
  Label->SetBounds(180, 170, 10, 10);
  Label->SetBackColor(Colors::Lime);
  Plain->SetCaption("XXXXXXXXX");
  const Bitmap Picture = Chart.SavedPicture();
  EXPECT_EQ(Picture.GetPixel(105, 175), Colors::Red);
  EXPECT_EQ(Picture.GetPixel(111, 175), Colors::Navy);
  EXPECT_EQ(Picture.GetPixel(145, 175), Colors::Navy);
  EXPECT_EQ(Picture.GetPixel(185, 175), Colors::Lime);
  for (int X = 215; X < 245; ++X) EXPECT_EQ(Picture.GetPixel(X, 175), Colors::Navy) << X;

  Marker->Fails = true;
  TMemoryStream Stream;
  for (const TZyImageFileFormat Format : {PNG, SVG})
    EXPECT_THROW(Chart.Graph->SaveImage(Stream, Format), EInvalidOperation);
  EXPECT_EQ(Stream.Size(), 0);
  EXPECT_FALSE(Chart.Graph->DoingImage());
  EXPECT_FALSE(Chart.Graph->DoingMetafile());
}

TEST(GraphImageTest, LeavesScrollBarsOut) {
  TOutputChart Chart;
  Chart.Graph->Zoom().SetHScrollbarVisible(true);
  Chart.Graph->Zoom().SetVScrollbarVisible(true);
  Chart.Paint();
  Chart.Graph->ZoomTo({100, 60}, {200, 120});
  ASSERT_FALSE(Chart.Graph->VerticalScrollbar()->Visible());
  TMemoryStream Stream;
  Chart.Graph->SaveImage(Stream, EMF);  // lays out, and brings the bars
  const TScrollBar &Across = *Chart.Graph->HorizontalScrollBar(), &Upright = *Chart.Graph->VerticalScrollbar();
  ASSERT_TRUE(Across.Visible() && Upright.Visible());
  EXPECT_EQ(Chart.Graph->ImageGraphLeft(), Upright.Width());
  const Bitmap Picture = Chart.SavedPicture(), Screen = Chart.Paint();
  ASSERT_EQ(Picture.GetWidth(), 300 - Upright.Width());
  ASSERT_EQ(Picture.GetHeight(), 200 - Across.Height());
  for (int X = 0; X < Picture.GetWidth(); ++X)
    ASSERT_EQ(Picture.GetPixel(X, 100), Screen.GetPixel(X + Upright.Width(), 100)) << X;
  TMemoryStream Drawing(Stream.Bytes());
  TMetafile Metafile;
  Metafile.LoadFromStream(Drawing);
  EXPECT_EQ(Metafile.Width(), Picture.GetWidth());
}

TEST(GraphImageTest, CoupledGraphsAreOnePicture) {
  TOutputChart Chart;
  TZyGraph2D* Others[2];
  int Height = 50;
  for (TZyGraph2D*& Other : Others) {
    Other = new TZyGraph2D(&Chart.Form);
    Other->SetParent(&Chart.Form);
    Other->SetBounds(0, 300, 300, Height += 50);
    Other->SetBackColor(Height == 100 ? Colors::Lime : Colors::Yellow);
    Other->SetPrimaryXAxis(Chart.X);
    Other->TestPrimaryAxis();
  }
  EXPECT_EQ(Others[0]->ImgageGraphHeight(), 200 + 100 + 150);
  TMemoryStream FromMaster, FromChild;
  Chart.Graph->SaveImage(FromMaster, PNG);
  Others[1]->SaveImage(FromChild, PNG);
  ASSERT_TRUE(std::ranges::equal(FromMaster.Bytes(), FromChild.Bytes()));
  FromMaster.SetPosition(0);
  const Bitmap Picture = Bitmap::Load(FromMaster);
  ASSERT_EQ(Picture.GetHeight(), 450);
  EXPECT_EQ(Picture.GetPixel(2, 2), Colors::Yellow) << "the last of the coupled graphs on top";
  EXPECT_EQ(Picture.GetPixel(2, 149), Colors::Yellow);
  EXPECT_EQ(Picture.GetPixel(2, 150), Colors::Lime);
  EXPECT_EQ(Picture.GetPixel(2, 250), Colors::Navy);
  EXPECT_EQ(Picture.GetPixel(2, 449), Colors::Navy);
}

TEST(GraphMetafileTest, IsAnEnhancedMetafile) {
  TOutputChart Chart;
  const std::unique_ptr<TMetafile> Copy = Chart.Graph->AsTMetafile();
  EXPECT_EQ(Copy->Width(), 300);
  EXPECT_EQ(Copy->Height(), 200);
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
  EXPECT_TRUE(Chart.Graph->AsTMetafile()->Empty());
  EXPECT_TRUE(Chart.Graph->AsTBitmap(Yellow)->Empty());
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
  const std::string Png = Clipboard().AsBytes("image/png");
  TMemoryStream Stream(std::as_bytes(std::span(Png)));
  EXPECT_TRUE(SamePixels(Bitmap::Load(Stream), Chart.SavedPicture()));
}

TEST(GraphPrintTest, FitsThePictureIntoTheRectangle) {
  ZY_NEED_PROGRAM("pdftoppm");
  TOutputChart Chart;
  const TScratchFolder Folder;
  TPrinter Printer;
  Printer.SetFileName(Folder / "page.pdf");
  Printer.SetTitle("Harvest");
  const double Inch = TPrinter::PixelsPerInch;
  ASSERT_GT(Printer.PageWidth(), 6 * Inch) << "any usual paper";
  Printer.BeginDoc();
  Chart.Graph->PrintTo(nullptr, {0, 0, 100, 100});
  Chart.Graph->PrintTo(&Printer, {600, 1200, 3600, 4200});  // as wide as 5 inches: room is left at the bottom
  Printer.NewPage();
  Chart.Graph->PrintTo(&Printer, {600, 1200, 3600, 2400});  // as high as 2 inches: 3 wide, in the middle
  Chart.Graph->PrintTo(&Printer, {600, 1200, 600, 2400});   // nothing
  EXPECT_EQ(Printer.PageNumber(), 2);
  EXPECT_FALSE(std::filesystem::exists(Folder / "page.pdf")) << "the file comes as a whole";
  Printer.EndDoc();
  EXPECT_FALSE(Chart.Graph->DoingMetafile());
  ASSERT_EQ(OutputOf("pdftoppm -png -r 100 " + (Folder / "page.pdf") + " " + (Folder / "page")), "");
  EXPECT_NE(OutputOf("pdftotext " + (Folder / "page.pdf") + " -").find("Harvest of 1914"), std::string::npos);
  const QMarginsF Margins = Printer.ToQt().pageLayout().margins(QPageLayout::Inch);
  int Number = 1;
  for (const auto& [Left, Top, Right, Bottom] : {std::tuple(1.0, 2.0, 6.0, 2 + 5 / 1.5), {2.0, 2.0, 5.0, 4.0}}) {
    const TFound Box = FindColor(Bitmap::Load(Folder / ("page-" + std::to_string(Number++) + ".png")), Colors::Navy);
    EXPECT_NEAR(Box.Left, (Left + Margins.left()) * 100, 1.5);
    EXPECT_NEAR(Box.Top, (Top + Margins.top()) * 100, 1.5);
    EXPECT_NEAR(Box.Right, (Right + Margins.left()) * 100, 2.5);
    EXPECT_NEAR(Box.Bottom, (Bottom + Margins.top()) * 100, 2.5);
  }
}

TEST(PrinterTest, SaysWhatItCannotDo) {
  TOutputChart Chart;
  const TScratchFolder Folder;
  TPrinter Printer;
  EXPECT_THROW(Chart.Graph->PrintTo(&Printer, {0, 0, 100, 100}), EPrinter);
  EXPECT_THROW(Printer.SetPrinterName("no such printer"), EPrinter);
  EXPECT_THROW(Printer.EndDoc(), EPrinter);
  if (TPrinter::Printers().empty()) {
    EXPECT_THROW(Printer.BeginDoc(), EPrinter);
  }
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
  EXPECT_EQ(std::filesystem::file_size(Printer.FileName()), 3u);
  EXPECT_TRUE(Folder.IsEmptyBut(1));
  const int Portrait = Printer.PageWidth();
  Printer.SetOrientation(poLandscape);
  EXPECT_GT(Printer.PageWidth(), Portrait);
}

}  // namespace
}  // namespace zy
