// Recordings: replayed, listed, and written as files; and the encoders of pictures.

#include "platform/drawing/Metafile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "drawing/Pixels.h"
#include "graph/OtherPrograms.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Font.h"
#include "platform/drawing/Pen.h"
#include "platform/drawing/TRecordingGraphics.h"
#include "platform/framework/TStream.h"
#include "texts/Exceptions.h"

namespace zy {
namespace {

constexpr ARGB Red = 0xFFFF0000;

/// Some of everything; what it refers to dies before the caller goes on.
void DrawSheet(Graphics& Canvas) {
  Canvas.SetSmoothingMode(SmoothingModeAntiAlias);
  Canvas.FillRectangle(SolidBrush(0xFFFFFFFF), 0, 0, 200, 100);
  Canvas.TranslateTransform(5, 5);
  auto Gradient = std::make_unique<LinearGradientBrush>(RectF{0, 0, 50, 40}, Red, 0xFF0000FF, 30.0f);
  Canvas.FillRectangle(*Gradient, 0, 0, 50, 40);
  Gradient.reset();
  Canvas.FillRectangle(HatchBrush(HatchStyleWeave, Red, 0xFFFFFF00), 60, 0, 30, 40);
  Canvas.SetClip(RectF{0, 0, 150, 60}, CombineModeIntersect);
  GraphicsPath Hole;
  Hole.AddEllipse({110, 10, 20, 20});
  Canvas.ExcludeClip(Region(Hole));
  Canvas.FillPie(SolidBrush(0x8000A000), {95, -5, 60, 60}, 20, 300);
  Pen Thick(0xFF000000, 3);
  Thick.SetDashStyle(DashStyleDash);
  Thick.SetEndCap(LineCapArrowAnchor);
  const PointF Points[] = {{10, 50}, {60, 45}, {100, 55}};
  Canvas.DrawLines(Thick, Points);
  Canvas.ResetClip();
  Canvas.RotateTransform(-20);
  Canvas.DrawString("Text & <more>\nbelow", Font("Arial", 10, {TFontStyle::Bold}), SolidBrush(0xFF000080), 75, 105);
  const auto Draw = [](Graphics& Half) { Half.FillRectangle(SolidBrush(0xFF00FFFF), 0, 0, 4, 8); };
  Canvas.DrawImage(PictureOf(8, 8, Draw), 10, 70);
}

Metafile RecordedSheet() {
  Metafile Recording(200, 100);
  Graphics Canvas(Recording);
  DrawSheet(Canvas);
  return Recording;
}

TEST(MetafileTest, ReplaysTheSamePicture) {
  const Metafile Recording = RecordedSheet();
  const Bitmap Direct = PictureOf(200, 100, DrawSheet);
  const Bitmap Replayed = PictureOf(200, 100, [&](Graphics& Canvas) {
    Canvas.DrawImage(Recording, {0, 0, 200, 100});
    EXPECT_EQ(Canvas.GetTransform(), Matrix());
    EXPECT_TRUE(Canvas.GetClip().IsInfinite());
    EXPECT_EQ(Canvas.GetSmoothingMode(), SmoothingModeNone);
  });
  Metafile Outer(200, 100);  // a recording of a recording
  Graphics(Outer).DrawImage(Recording, {0, 0, 200, 100});
  const Bitmap Twice = PictureOf(200, 100, [&](Graphics& Canvas) { Canvas.DrawImage(Outer, {0, 0, 200, 100}); });
  for (int Y = 0; Y < 100; ++Y)
    for (int X = 0; X < 200; ++X) {
      ASSERT_EQ(Direct.GetPixel(X, Y), Replayed.GetPixel(X, Y)) << X << ", " << Y;
      ASSERT_EQ(Direct.GetPixel(X, Y), Twice.GetPixel(X, Y)) << X << ", " << Y;
    }
  const Bitmap Half = PictureOf(120, 70, [&](Graphics& Canvas) { Canvas.DrawImage(Recording, {10, 10, 100, 50}); });
  ExpectSpots(Half, {{5, 5, 0}, {109, 59, 0xFFFFFFFF}, {112, 30, 0}});
  EXPECT_NE(Half.GetPixel(20, 20), 0xFFFFFFFF) << "the gradient, at half its size";
}

TEST(MetafileTest, FilesAreDrawnByOtherPrograms) {
  ZY_NEED_PROGRAM("rsvg-convert");
  ZY_NEED_PROGRAM("pdftoppm");
  const Metafile Recording = RecordedSheet();
  const Bitmap Direct = PictureOf(200, 100, DrawSheet);
  const testing::TScratchFolder Folder;
  const std::string Svg = Folder / "sheet.svg", Pdf = Folder / "sheet.pdf";
  Recording.Save(Svg);
  Recording.Save(Pdf);
  const std::string Text = testing::OutputOf("cat " + Svg);
  for (const char* Part : {"viewBox=\"0 0 200 100\"", ">Text &amp; &lt;more&gt;</text>", ">below</text>"})
    EXPECT_NE(Text.find(Part), std::string::npos) << Part;
  const std::string DrawPdf = "pdftoppm -png -singlefile -scale-to-x 200 -scale-to-y 100 ";
  EXPECT_EQ(testing::OutputOf("rsvg-convert " + Svg + " -o " + (Folder / "svg.png")), "");
  EXPECT_EQ(testing::OutputOf(DrawPdf + Pdf + " " + (Folder / "pdf")), "");
  // The other program smooths the 30 x 40 pixels of the hatch.
  for (const auto& [Name, MostOff] : {std::pair("svg.png", 0), {"pdf.png", 30 * 40 + 50}}) {
    const Bitmap Drawn = Bitmap::Load(Folder / Name);
    int Off = 0;
    for (int Y = 0; Y < 100; ++Y)
      for (int X = 0; X < (Y < 40 ? 200 : 112); ++X)  // but for the glyphs
        Off += Distance(Direct.GetPixel(X, Y), Drawn.GetPixel(X, Y)) > 32 ? 1 : 0;
    EXPECT_LE(Off, MostOff) << Name;
  }
}

TEST(MetafileTest, FailuresAreNamed) {
  TMemoryStream Stream;
  EXPECT_THROW(Metafile(9, 9).Save(Stream, "WMF"), EStreamError);
  EXPECT_THROW(Metafile(9, 9).Save(std::filesystem::path("/nowhere/page.svg")), EFileError);
  EXPECT_THROW(Metafile(0, 10), ERangeError);
}

TEST(TRecordingGraphicsTest, ListsCallsWithWhatTheyDependOn) {
  TRecordingGraphics Canvas;
  Canvas.DrawLine(Pen(Red, 1.5f), 0, 1.234f, 10, 5);
  Canvas.SetSmoothingMode(SmoothingModeAntiAlias);
  Canvas.TranslateTransform(10, 20);
  Canvas.FillRectangle(SolidBrush(0x80FF00FF), 1, 2, 3, 4);
  Canvas.SetClip(RectF{0, 0, 5, 5});
  Canvas.FillRectangle(SolidBrush(Red), 1, 2, std::numeric_limits<float>::quiet_NaN(), 4);  // draws nothing
  Canvas.DrawString("abc", Font("Arial", 12), SolidBrush(Red), 7, 8);
  EXPECT_EQ(Canvas.Calls(), (std::vector<std::string>{
                                "DrawLine(pen FFFF0000 1.5, 0 1.23, 10 5)", "SetTransform(1 0 0 1, 10 20)",
                                "SetSmoothingMode(2)", "FillRectangle(80FF00FF, 1 2 3 4)",
                                "SetClip(0 0 5 5 by 1 0 0 1, 10 20)", "DrawString(\"abc\", Arial 12, FFFF0000, 7 8)"}));
  EXPECT_EQ(Canvas.CallsOf("Draw"), (std::vector<std::size_t>{0, 5}));
}

TEST(BitmapEncoderTest, PicturesComeBackFromEveryFormat) {
  const auto Draw = [](Graphics& Canvas) {
    Canvas.Clear(0xFFFFFFFF);
    Canvas.FillRectangle(SolidBrush(Red), 0, 0, 8, 4);
    Canvas.FillRectangle(SolidBrush(0xFF000080), 8, 4, 9, 5);
  };
  const testing::TScratchFolder Folder;
  for (const std::string Format : {"BMP", "gif", "JPEG", "PNG", "TIFF"}) {
    SCOPED_TRACE(Format);
    PictureOf(17, 9, Draw, 2).Save(Folder / ("picture." + Format));
    const Bitmap Loaded = Bitmap::Load(Folder / ("picture." + Format));
    ASSERT_EQ(Loaded.GetWidth(), 34);
    ASSERT_EQ(Loaded.GetHeight(), 18);
    ExpectSpots(Loaded, {{4, 2, Red}, {28, 14, 0xFF000080}, {4, 14, 0xFFFFFFFF}}, Format == "JPEG" ? 40 : 0);
  }
  TMemoryStream Broken(std::as_bytes(std::span("no picture", 10)));
  EXPECT_THROW(Bitmap::Load(Broken), EStreamError);
}

TEST(BitmapEncoderTest, GifKeepsWhatIsTransparentAndManyColours) {
  const LinearGradientBrush Gradient(RectF{0, 0, 256, 32}, 0xFFFF8000, 0xFF0040FF, 0.0f);
  const Bitmap Picture = PictureOf(256, 64, [&](Graphics& Canvas) { Canvas.FillRectangle(Gradient, 0, 0, 256, 32); });
  TMemoryStream Stream;
  Picture.Save(Stream, "GIF");
  Stream.SetPosition(0);
  const Bitmap Loaded = Bitmap::Load(Stream);
  EXPECT_EQ(Loaded.GetPixel(100, 50) >> 24, 0u);
  int Error = 0;
  for (int X = 0; X < 256; ++X)
    for (int Y = 0; Y < 32; ++Y)
      for (int Shift = 0; Shift < 24; Shift += 8)
        Error += static_cast<int>(Loaded.GetPixel(X, Y) >> Shift & 255) -
                 static_cast<int>(Picture.GetPixel(X, Y) >> Shift & 255);
  EXPECT_LT(std::abs(Error), 4 * 256 * 32 * 3) << "dithering keeps the mean";
}

}  // namespace
}  // namespace zy
