// Recordings: replayed, listed, and written as files; and the encoders of pictures.

#include "platform/drawing/Metafile.h"

#include <gtest/gtest.h>

#include <cmath>
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
  const Font Bold("Arial", 10, {TFontStyle::Bold, TFontStyle::Underline, TFontStyle::Strikeout});
  Canvas.DrawString("Te\x01xt &\t<more>\nbelow", Bold, SolidBrush(0xFF000080), 75, 105);
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

/// The page as other programs draw it from a file.
Bitmap FromSvg(const Metafile& Page, const testing::TScratchFolder& Folder) {
  Page.Save(Folder / "page.svg");
  EXPECT_EQ(testing::OutputOf("rsvg-convert " + (Folder / "page.svg") + " -o " + (Folder / "svg.png")), "");
  return Bitmap::Load(Folder / "svg.png");
}
Bitmap FromPdf(const Metafile& Page, const testing::TScratchFolder& Folder) {
  Page.Save(Folder / "page.pdf");
  const std::string Width = std::to_string(std::lround(Page.GetWidth())),
                    Height = std::to_string(std::lround(Page.GetHeight()));
  const std::string Draw = "pdftoppm -png -singlefile -scale-to-x " + Width + " -scale-to-y " + Height + " ";
  EXPECT_EQ(testing::OutputOf(Draw + (Folder / "page.pdf") + " " + (Folder / "pdf")), "");
  return Bitmap::Load(Folder / "pdf.png");
}

TEST(MetafileTest, FilesAreDrawnByOtherPrograms) {
  ZY_NEED_PROGRAM("rsvg-convert");
  ZY_NEED_PROGRAM("pdftoppm");
  const Metafile Recording = RecordedSheet();
  const Bitmap Direct = PictureOf(200, 100, DrawSheet);
  const testing::TScratchFolder Folder;
  // The other program smooths the 30 x 40 pixels of the hatch.
  for (const auto& [Drawn, MostOff] :
       {std::pair(FromSvg(Recording, Folder), 0), {FromPdf(Recording, Folder), 30 * 40 + 50}}) {
    int Off = 0;
    for (int Y = 0; Y < 100; ++Y)
      for (int X = 0; X < (Y < 40 ? 200 : 112); ++X)  // but for the glyphs
        Off += Distance(Direct.GetPixel(X, Y), Drawn.GetPixel(X, Y)) > 32 ? 1 : 0;
    EXPECT_LE(Off, MostOff);
  }
  const std::string Text = testing::OutputOf("cat " + (Folder / "page.svg"));
  for (const char* Part :
       {"viewBox=\"0 0 200 100\"", "\"underline line-through\"", ">Text &amp;  &lt;more&gt;</text>", ">below</text>"})
    EXPECT_NE(Text.find(Part), std::string::npos) << Part;
}

/// Gradients, some translucent and all going on beyond their shapes, and clips of every kind.
void DrawGradientsAndClips(Graphics& Canvas) {
  Canvas.SetSmoothingMode(SmoothingModeAntiAlias);
  Canvas.Clear(0xFFFFFFFF);
  const ARGB Fading[] = {0xFF00A000, 0x40FFFF00, 0x000000FF, 0xC0FF0000};
  const auto FanOver = [&](std::initializer_list<PointF> Corners) {
    PathGradientBrush Fan{std::span<const PointF>(Corners)};
    Fan.SetSurroundColors(Fading);
    Fan.SetCenterColor(0xFF202060);
    return Fan;
  };
  Canvas.FillRectangle(LinearGradientBrush(PointF{9, 0}, PointF{111, 0}, Red, 0x000000FF), 10, 10, 100, 30);
  Canvas.FillRectangle(FanOver({{140, 20}, {180, 10}, {200, 50}, {150, 45}}), 120, 5, 110, 60);
  GraphicsPath Ellipse;
  Ellipse.AddEllipse({20, 60, 70, 40});
  PathGradientBrush Round(Ellipse);
  Round.SetInterpolationColors(std::span(Fading).first(3), std::vector<float>{0, 0.5f, 1});
  Canvas.FillEllipse(Round, {20, 60, 70, 40});
  Pen Wide(FanOver({{118, 88}, {182, 88}, {182, 112}, {118, 112}}), 4);
  Canvas.DrawRectangle(Wide, {120, 90, 60, 20});
  Canvas.DrawEllipse(Pen(LinearGradientBrush(PointF{195, 0}, PointF{235, 0}, 0xFF0000FF, 0x00FF0000), 8),
                     {200, 75, 30, 40});
  GraphicsPath Head, Arc;
  const PointF Corners[] = {{2, -4}, {0, 0}, {-2, -4}};
  Head.AddPolygon(Corners);
  Pen Arrow(0xFF800080, 3);
  Arrow.SetCustomEndCap(CustomLineCap(&Head, nullptr, LineCapFlat, 3));
  Arc.AddArc({20, 120, 60, 60}, 180, 180);
  Canvas.DrawPath(Arrow, Arc);

  GraphicsPath Star(FillModeWinding);
  const PointF Tips[] = {{120, 125}, {134, 168}, {97, 141}, {143, 141}, {106, 168}};
  Star.AddPolygon(Tips);
  Region Ring = Region(Ellipse).Transformed(Matrix(0.5f, 0, 0, 0.5f, 140, 100));
  Ring.Exclude(RectF{160, 135, 12, 10}, {});
  Canvas.ExcludeClip(Region(Star));
  Canvas.ExcludeClip(Ring);
  Canvas.ExcludeClip(RectF{200, 170, -30, -50});  // of no extent
  for (const float X : {195.0f, 203.0f, 211.0f, 219.0f}) {
    GraphicsPath Hole;
    Hole.AddEllipse({X - 6, 134 + X / 20, 12, 12});
    Canvas.ExcludeClip(Region(Hole));
  }
  Canvas.FillRectangle(SolidBrush(0xFF4080C0), 90, 120, 145, 60);
  for (const Region& Nothing : {Region(GraphicsPath()), [] {
                                  Region Box;
                                  Box.Intersect(RectF{230, 192, -60, -60}, {});
                                  return Box;
                                }()}) {
    Canvas.SetClip(Nothing);
    Canvas.FillRectangle(SolidBrush(0xFF000000), 0, 0, 240, 192);
  }
  Canvas.ResetClip();
  Canvas.SetClip(Ellipse, CombineModeIntersect);
  Canvas.SetClip(RectF{10, 85, 60, 20}, CombineModeIntersect);  // beyond the ellipse on three sides
  Canvas.FillRectangle(SolidBrush(0xFF4080C0), 0, 0, 240, 192);
  Canvas.ResetClip();
  Canvas.ExcludeClip(Region());  // the whole page
  Canvas.FillRectangle(SolidBrush(0xFF000000), 0, 0, 240, 192);
}

/// How many pixels differ but for those along edges, which each program covers in its own way.
int PixelsOff(const Bitmap& A, const Bitmap& B) {
  int Off = 0;
  for (int Y = 1; Y < A.GetHeight() - 1; ++Y)
    for (int X = 1; X < A.GetWidth() - 1; ++X) {
      int Edge = 0;
      for (int Near = 0; Near < 9; ++Near)
        for (const Bitmap* const Picture : {&A, &B})
          Edge =
              std::max(Edge, Distance(Picture->GetPixel(X, Y), Picture->GetPixel(X + Near % 3 - 1, Y + Near / 3 - 1)));
      Off += Edge < 40 && Distance(A.GetPixel(X, Y), B.GetPixel(X, Y)) > 10 ? 1 : 0;
    }
  return Off;
}

TEST(MetafileTest, GradientsAndClipsAreAlikeInAllFormats) {
  ZY_NEED_PROGRAM("rsvg-convert");
  ZY_NEED_PROGRAM("pdftoppm");
  Metafile Page(240, 192);
  Graphics(Page).DrawImage(
      [] {
        Metafile Sheet(240, 192);
        Graphics Canvas(Sheet);
        DrawGradientsAndClips(Canvas);
        return Sheet;
      }(),
      {0, 0, 240, 192});
  const Bitmap Direct = PictureOf(240, 192, DrawGradientsAndClips);
  // Halfway, half of (128, 0, 128) on white; the centre of a fan; beyond it; the arrow's head; a star's middle, the
  // ring and its hole, holes that overlap, the ground beside them.
  ExpectSpots(Direct, {{60, 25, 0xFFBF7FBF}, {167, 31, 0xFF202060}, {125, 10, 0xFFFFFFFF}, {220, 60, 0xFFFFFFFF}}, 4);
  ExpectSpots(Direct, {{80, 142, 0xFF800080}, {78, 142, 0xFF800080}, {20, 148, 0xFF800080}, {120, 150, 0xFFFFFFFF}});
  ExpectSpots(Direct, {{155, 140, 0xFFFFFFFF}, {165, 140, 0xFF4080C0}, {205, 151, 0xFFFFFFFF}, {95, 125, 0xFF4080C0}});
  ExpectSpots(Direct, {{50, 92, 0xFF4080C0}, {15, 92, 0xFFFFFFFF}});
  const testing::TScratchFolder Folder;
  EXPECT_LE(PixelsOff(Direct, FromSvg(Page, Folder)), 10);
  EXPECT_LE(PixelsOff(Direct, FromPdf(Page, Folder)), 10);
}

TEST(MetafileTest, GradientsBeginAnewAtNoEdgeOfTheirOwnBox) {
  ZY_NEED_PROGRAM("pdftoppm");
  const testing::TScratchFolder Folder;
  Metafile Page(240, 192);
  {
    Graphics Canvas(Page);
    for (const ARGB Opacity : {0xFF000000, 0xFE000000}) {  // the second as a picture
      const float Top = Opacity == 0xFF000000 ? 20 : 100;
      const RectF Box{20.5f, Top, 60, 60};
      Canvas.FillRectangle(LinearGradientBrush(Box, Opacity, Opacity | 0xFFFF00, LinearGradientModeHorizontal), Box.X,
                           Box.Y, Box.Width, Box.Height);
    }
  }
  // Half a pixel of black on white is a grey, half a pixel of yellow is none.
  const Bitmap Shown = FromPdf(Page, Folder);
  for (const int Y : {50, 130}) {
    const ARGB Color = Shown.GetPixel(20, Y);
    EXPECT_NEAR(Color >> 16 & 255, Color & 255, 5) << Y;
  }
}

TEST(MetafileTest, GradientsThatNobodyCanTellApartArePlain) {
  ZY_NEED_PROGRAM("pdftoppm");
  const testing::TScratchFolder Folder;
  for (const float Thin : {1e-30f, 1e-6f, 0.05f}) {
    Metafile Page(240, 192);
    {
      Graphics Canvas(Page);
      const LinearGradientBrush Ramp({0, 0}, {0, Thin}, 0xFF200040, 0xFF6080C0);
      Canvas.FillRectangle(Ramp, 20, 20, 60, 60);
      Canvas.DrawLine(Pen(Ramp, 9), 100, 30, 200, 30);
      Canvas.DrawString("W", Font("Arial", 9), Ramp, 100, 60);
    }
    TMemoryStream File;
    Page.Save(File, "PDF");
    EXPECT_LT(File.Bytes().size(), 40'000) << Thin;
    // The mean of both colours.
    ExpectSpots(FromPdf(Page, Folder), {{50, 50, 0xFF404080}, {150, 30, 0xFF404080}, {10, 50, 0xFFFFFFFF}}, 2);
  }
  Metafile Page(240, 192);
  Graphics(Page).FillRectangle(LinearGradientBrush({-1e24f, 0}, {0, 0}, 0xFF200040, 0xFF6080C0), 20, 20, 60, 60);
  ExpectSpots(FromPdf(Page, Folder), {{50, 50, 0xFF6080C0}}, 2);  // beside a period's end
}

TEST(MetafileTest, HolesThatLieOverEachOtherAreCutOutAtTheCostOfTheirOutline) {
  ZY_NEED_PROGRAM("pdftoppm");
  const testing::TScratchFolder Folder;
  GraphicsPath Circle, Star(FillModeWinding), Box;
  Circle.AddEllipse({-6, -6, 12, 12});
  const PointF Tips[] = {{0, -8}, {5, 7}, {-8, -2}, {8, -2}, {-5, 7}};
  Star.AddPolygon(Tips);
  Box.AddRectangle({-5, -5, 10, 10});
  for (const GraphicsPath* const Hole : {&Circle, &Star, &Box}) {
    std::uintmax_t Bytes[2];
    for (const int Count : {1000, 3000}) {
      const auto Draw = [&](Graphics& Canvas) {
        Canvas.SetSmoothingMode(SmoothingModeAntiAlias);
        Canvas.Clear(0xFFFFFFFF);
        for (int Index = 0; Index < Count; ++Index) {
          const float Way = static_cast<float>(Index) / static_cast<float>(Count);
          const Matrix Place(1, 0, 0, 1, 10 + 220 * Way, 50 + 36 * std::sin(Way * 30));
          Canvas.ExcludeClip(Region(*Hole).Transformed(Place));
        }
        Canvas.FillRectangle(SolidBrush(0xFF4080C0), 0, 0, 240, 100);
      };
      Metafile Page(240, 100);
      {
        Graphics Canvas(Page);
        Draw(Canvas);
      }
      EXPECT_LE(PixelsOff(PictureOf(240, 100, Draw), FromPdf(Page, Folder)), 10) << Count;
      Bytes[Count > 1000] = std::filesystem::file_size(Folder / "page.pdf");
    }
    EXPECT_LT(Bytes[1], 2 * Bytes[0]) << "three times as many";
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
  EXPECT_LT(std::abs(Error), 1 * 256 * 32 * 3) << "the mean stays";
}

TEST(BitmapEncoderTest, GifKeepsFlatGroundsAmongThousandsOfColours) {
  constexpr ARGB Ground = 0xFFF7F3E9, Other = 0xFF123457;
  const Bitmap Picture = PictureOf(200, 100, [](Graphics& Canvas) {
    Canvas.Clear(Ground);
    Canvas.FillRectangle(SolidBrush(Other), 100, 0, 100, 20);
    for (int Row = 40; Row < 90; ++Row) {
      const auto Shade = static_cast<ARGB>(Row - 40) * 5;
      const LinearGradientBrush Line(RectF{0, 0, 200, 1}, 0xFF000000 | Shade << 16, 0xFF0000FF | Shade << 8, 0.0f);
      Canvas.FillRectangle(Line, 0, static_cast<float>(Row), 200, 1);
    }
  });
  TMemoryStream Stream;
  Picture.Save(Stream, "GIF");
  Stream.SetPosition(0);
  const Bitmap Loaded = Bitmap::Load(Stream);
  ExpectSpots(Loaded, {{5, 5, Ground}, {150, 95, Ground}, {150, 5, Other}});
  int Worst = 0;
  for (int Row = 40; Row < 90; ++Row)
    for (int X = 0; X < 200; ++X) Worst = std::max(Worst, Distance(Loaded.GetPixel(X, Row), Picture.GetPixel(X, Row)));
  EXPECT_LT(Worst, 25) << "half of a step of a cube with six of them to a channel";
}

}  // namespace
}  // namespace zy
