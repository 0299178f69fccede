#include "platform/drawing/Graphics.h"

#include <gtest/gtest.h>
#include <malloc.h>

#include <QImage>
#include <QPainter>
#include <cmath>
#include <filesystem>
#include <limits>

#include "drawing/Pixels.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Font.h"
#include "platform/drawing/FontFamily.h"
#include "platform/drawing/Pen.h"
#include "platform/framework/TStream.h"
#include "texts/Exceptions.h"

namespace zy {
namespace {

const Pen Black(0xFF000000);
const SolidBrush Ink(0xFF000000);
constexpr float Nan = std::numeric_limits<float>::quiet_NaN(), Infinite = std::numeric_limits<float>::infinity();

/// Every rule about pixels holds for each of these.
struct TTarget {
  SmoothingMode Smoothing;
  int Ratio;
};

class OnEveryTarget : public testing::TestWithParam<TTarget> {
 protected:
  OnEveryTarget() { Canvas.SetSmoothingMode(GetParam().Smoothing); }
  /// Logical pixels From to From + 9 of the middle of a logical row or column.
  std::string Row(int Y, int From) const { return RowText(Picture, Y * Ratio + Ratio / 2, From * Ratio, 10 * Ratio); }
  std::string Column(int X, int From) const {
    return ColumnText(Picture, X * Ratio + Ratio / 2, From * Ratio, 10 * Ratio);
  }
  std::string Expected(const std::string& Text) const { return Stretched(Text, Ratio); }
  std::string Expected(const std::string& Rough, const std::string& Smooth, const std::string& RoughTwice,
                       const std::string& SmoothTwice) const {
    const bool IsSmooth = GetParam().Smoothing != SmoothingModeNone;
    return Ratio == 1 ? (IsSmooth ? Smooth : Rough) : IsSmooth ? SmoothTwice : RoughTwice;
  }

  int Ratio = GetParam().Ratio;
  Bitmap Picture{60, 60, static_cast<float>(Ratio)};
  Graphics Canvas{Picture};
};

INSTANTIATE_TEST_SUITE_P(Targets, OnEveryTarget,
                         testing::Values(TTarget{SmoothingModeNone, 1}, TTarget{SmoothingModeHighQuality, 1},
                                         TTarget{SmoothingModeNone, 2}, TTarget{SmoothingModeHighQuality, 2}));

TEST_P(OnEveryTarget, LinesAndBoxesCoverWholePixels) {
  Canvas.DrawLine(Black, 5, 4, 25, 4);
  EXPECT_EQ(Column(15, 0), Expected("....#....."));
  Canvas.DrawLine(Black, 54, 5, 54, 25);
  EXPECT_EQ(Row(15, 50), Expected("....#....."));
  Canvas.DrawLine(Pen(0xFF000000, 3), 5, 14, 25, 14);
  EXPECT_EQ(Column(15, 10), Expected("...###...."));
  Canvas.FillRectangle(Ink, 12, 24, 5, 3);
  EXPECT_EQ(Row(25, 10), Expected("..#####..."));
  EXPECT_EQ(Column(13, 20), Expected("....###..."));
  Canvas.DrawRectangle(Black, 12, 34, 5, 3);
  EXPECT_EQ(Row(35, 10), Expected("..#....#.."));
  EXPECT_EQ(Row(34, 10), Expected("..######.."));
  EXPECT_EQ(Column(14, 30), Expected("....#..#.."));
  Canvas.Clear(0);
  Canvas.FillRectangle(Ink, 12, 14, 0, 3);
  Canvas.FillRectangle(Ink, 12, 14, -4, 3);
  EXPECT_LT(InkBox(Picture).Right, 0);
}

TEST_P(OnEveryTarget, OpenLinesAndPolygonsEndInPixelCentres) {
  const std::string Line = Expected("..######..", "..+####+..", "....############....", ".....##########.....");
  Canvas.DrawLine(Black, 12, 10, 17, 10);
  EXPECT_EQ(Row(10, 10), Line);
  Canvas.DrawLine(Black, 17, 20, 12, 20);
  EXPECT_EQ(Row(20, 10), Line);
  const PointF Corner[] = {{12, 30}, {17, 30}, {17, 36}}, Box[] = {{12, 44}, {17, 44}, {17, 49}, {12, 49}};
  Canvas.DrawLines(Black, Corner);
  EXPECT_EQ(Row(30, 10).substr(0, 7u * Ratio), Expected("..#####", "..+####", "....##########", ".....#########"));
  EXPECT_EQ(Column(17, 32), Expected("#####.....", "####+.....", "##########..........", "#########..........."));
  Canvas.FillPolygon(Ink, Box);
  EXPECT_EQ(Row(46, 13).substr(0, 4u * Ratio), Expected("####"));
  EXPECT_EQ(Row(46, 0), Expected(".........."));
  EXPECT_EQ(Row(46, 18), Expected(".........."));
}

TEST_P(OnEveryTarget, ClipsAreBoxesOfPixels) {
  const auto Fill = [this] {
    Canvas.Clear(0);
    Canvas.FillRectangle(Ink, -20, -20, 80, 80);
  };
  Canvas.SetClip(RectF{12, 12, 6, 6});
  Canvas.TranslateTransform(15, 15);
  Canvas.SetClip(RectF{0, 0, 20, 2}, CombineModeIntersect);
  Fill();
  EXPECT_EQ(Row(15, 10), Expected(".....###.."));
  EXPECT_EQ(Column(16, 10), Expected(".....##..."));
  Canvas.Clear(0);
  Canvas.SetClip(RectF{0, 0, 2, 2});  // replaces
  Canvas.SetClip(RectF{10, 10, 2, 2}, CombineModeIntersect);
  Fill();
  EXPECT_LT(InkBox(Picture).Right, 0) << "clips that do not meet leave nothing";
  Canvas.ResetClip();
  Fill();
  EXPECT_EQ(Row(0, 0), Expected("##########"));
  Canvas.SetClip(RectF{-3, 0, 5, 40});
  Canvas.Clear(0);
  EXPECT_EQ(Row(20, 10), Expected("##.....###")) << "only within the clip";
}

TEST_P(OnEveryTarget, TransformsActOnShapesAndKeepThemOnThePixels) {
  Canvas.TranslateTransform(20, 10);
  Canvas.RotateTransform(90);
  EXPECT_EQ(Canvas.GetTransform().TransformPoint({5, 0}), (PointF{20, 15}));
  Canvas.DrawLine(Black, -8, 0, 12, 0);  // runs down column 20
  EXPECT_EQ(Row(12, 15), Expected(".....#...."));
  Canvas.Clear(0);
  Canvas.SetClip(RectF{0, 0, 4, 100});
  Canvas.FillRectangle(Ink, 0, -100, 100, 200);
  EXPECT_EQ(Column(15, 7), Expected("...####..."));
}

TEST(GraphicsTest, ForeignPaintersComeBackAsTheyWere) {
  QImage Image(40, 40, QImage::Format_ARGB32_Premultiplied);
  Image.fill(0);
  QPainter Painter(&Image);
  Painter.translate(10, 10);
  Painter.setClipRect(0, 0, 5, 5);
  {
    Graphics Canvas(Painter);
    Canvas.ResetClip();  // the host's clip stays
    Canvas.FillRectangle(Ink, -10, -10, 40, 40);
    Canvas.SetClip(RectF{0, 0, 20, 20});
    Canvas.SetTransform(Matrix(2, 0, 0, 2, 7, 7));
    Canvas.SetSmoothingMode(SmoothingModeAntiAlias);
  }
  EXPECT_EQ(Painter.transform(), QTransform::fromTranslate(10, 10));
  EXPECT_EQ(Painter.clipBoundingRect(), QRectF(0, 0, 5, 5));
  EXPECT_FALSE(Painter.testRenderHint(QPainter::Antialiasing));
  for (const int X : {9, 10, 15}) EXPECT_EQ(qAlpha(Image.pixel(X, 10)), X == 10 ? 255 : 0) << X;
}

/// The outline of a box goes past the toolkit, which draws it as a path.
TEST(GraphicsTest, FramesLookAsTheToolkitDrawsThem) {
  const RectF Boxes[] = {
      {5, 6, 30, 20}, {5.25f, 6.5f, 30.5f, 20.1f}, {-8.3f, -4, 80, 30.7f}, {9, 9, 0.5f, 20}, {7.6f, 3, 12, 0}};
  for (const RectF& Box : Boxes)
    for (const float Width : {1.0f, 1.6f, 5.0f})
      for (const bool IsSharp : {true, false}) {
        Pen Line(0xB0306090, Width);
        if (!IsSharp) Line.SetMiterLimit(0);
        const auto Picture = [&](bool AsPath) {
          return PictureOf(
              50, 40,
              [&](Graphics& Gr) {
                Gr.SetSmoothingMode(SmoothingModeAntiAlias);
                GraphicsPath Path;
                Path.AddRectangle(Box);
                if (AsPath)
                  Gr.DrawPath(Line, Path);
                else
                  Gr.DrawRectangle(Line, Box);
              },
              2);
        };
        const Bitmap Ours = Picture(false), Theirs = Picture(true);
        int Differ = 0;
        for (int Y = 0; Y < 80; ++Y)
          for (int X = 0; X < 100; ++X)
            Differ += Distance(Ours.ToQt().pixel(X, Y), Theirs.ToQt().pixel(X, Y)) > 3 ? 1 : 0;
        EXPECT_LE(Differ, 4) << "the toolkit counts twice where two sides meet: " << Box.X << " " << Width << IsSharp;
      }
}

/// Boxes in one go are those one by one, with no seam between them where pixels are cut.
TEST(GraphicsTest, ManyBoxesAreOneShape) {
  const RectF Boxes[] = {{3, 3, 1, 9}, {4, 2, 1, 8}, {5, 4, 6, 1}, {20, 3, 2, 2}};
  for (const SmoothingMode Mode : {SmoothingModeNone, SmoothingModeAntiAlias}) {
    const auto Picture = [&](bool InOneGo, float Scale) {
      return PictureOf(40, 30, [&](Graphics& Gr) {
        Gr.SetSmoothingMode(Mode);
        Gr.SetTransform(Matrix(Scale, 0, 0, Scale, 0, 0));
        if (InOneGo) return Gr.FillRectangles(Ink, Boxes);
        for (const RectF& Box : Boxes) Gr.FillRectangle(Ink, Box);
      });
    };
    EXPECT_EQ(Picture(true, 1).ToQt(), Picture(false, 1).ToQt());
  }
  const Bitmap Cut = PictureOf(40, 30, [&](Graphics& Gr) {
    Gr.SetSmoothingMode(SmoothingModeAntiAlias);
    Gr.SetTransform(Matrix(1.3f, 0, 0, 1.3f, 0, 0));
    Gr.FillRectangles(Ink, Boxes);
  });
  EXPECT_GE(Cut.GetPixel(5, 8) >> 24, 250u) << "1.3 times 4 lies within this column";
}

TEST(GraphicsTest, CoordinatesThatAreNotFiniteDrawNothing) {
  Bitmap Picture(20, 20);
  Graphics Canvas(Picture);
  for (const float Bad : {Nan, Infinite, -Infinite}) {
    const PointF Points[] = {{2, 2}, {Bad, 5}, {9, 9}};
    Canvas.DrawLine(Black, 1, 1, Bad, 10);
    Canvas.DrawLines(Black, Points);
    Canvas.DrawRectangle(Black, 1, 1, Bad, 10);
    Canvas.FillRectangle(Ink, Bad, 1, 10, 10);
    Canvas.FillPolygon(Ink, Points);
    Canvas.DrawString("text", Font("Arial", 8), Ink, 0, Bad);
  }
  EXPECT_LT(InkBox(Picture).Right, 0);
  Canvas.DrawLine(Black, -1e9f, 10, 1e9f, 10);
  EXPECT_EQ(RowText(Picture, 10, 0, 20), std::string(20, '#'));
}

TEST(PenTest, CountlessDashesAreASolidLine) {
  Pen Dotted(0xFF000000);
  Dotted.SetDashStyle(DashStyleDot);
  const PointF Points[] = {{0, 2}, {20, 2}, {1e30f, 2}};
  const Bitmap Picture = PictureOf(40, 10, [&](Graphics& Canvas) {
    Canvas.DrawLines(Dotted, Points);
    Canvas.DrawRectangle(Dotted, RectF{-1e20f, 5, 2e20f, 1e20f});
  });
  for (const int Y : {2, 5}) EXPECT_EQ(RowText(Picture, Y, 0, 40), std::string(40, '#'));
}

TEST(PenTest, DashesCountInWidths) {
  const auto Row = [](const Pen& Pen) {
    return RowText(PictureOf(40, 6, [&](Graphics& Canvas) { Canvas.DrawLine(Pen, 0, 2, 39, 2); }), 2, 0, 16);
  };
  for (const auto& [Style, Expected] : {std::pair(DashStyleSolid, "################"),
                                        {DashStyleDash, "###.###.###.###."},
                                        {DashStyleDot, "#.#.#.#.#.#.#.#."},
                                        {DashStyleDashDot, "###.#.###.#.###."},
                                        {DashStyleDashDotDot, "###.#.#.###.#.#."}}) {
    Pen Dashed(0xFF000000);
    Dashed.SetDashStyle(Style);
    EXPECT_EQ(Row(Dashed), Expected);
  }
  Pen Custom(0xFF000000, 2);
  const float Lengths[] = {2, 1, -1};  // odd, and one that is none
  Custom.SetDashPattern(Lengths);
  EXPECT_EQ(Row(Custom), "####..##....##..");
}

TEST(MatrixTest, StepsJoinInTheOrderAsked) {
  Matrix Inner, Outer, About, Skew;
  Inner.Translate(10, 0);
  Inner.Rotate(90);  // acts first
  EXPECT_EQ(Inner.TransformPoint({1, 0}), (PointF{10, 1}));
  Outer.Translate(10, 0);
  Outer.Rotate(90, MatrixOrderAppend);
  EXPECT_EQ(Outer.TransformPoint({1, 0}), (PointF{0, 11}));
  About.RotateAt(-270, {5, 5});
  EXPECT_EQ(About.TransformPoint({6, 5}), (PointF{5, 6}));
  Skew.RotateAt(30, {5, 5});
  Skew.RotateAt(60, {5, 5});
  EXPECT_NEAR(Skew.TransformPoint({6, 5}).X, 5, 1e-6);
  EXPECT_NEAR(Skew.TransformPoint({6, 5}).Y, 6, 1e-6);
}

TEST(FontTest, MeasuresFollowTheFace) {
  // Widths of the metric-compatible faces are those of the original ones: per 2048 units, H 1479, i 455.
  const Font Large("Arial", 72);  // 96 pixels
  const float Line = Large.GetAscent() + Large.GetDescent();
  EXPECT_NEAR(Large.MeasureString("H").Width, 96.0 * 1479 / 2048, 0.1);
  EXPECT_FLOAT_EQ(Large.MeasureString("H").Height, Line);
  EXPECT_FLOAT_EQ(Large.MeasureString("").Width, 0);
  EXPECT_NEAR(Large.MeasureString("H\niiii\n").Width, 4 * 96.0 * 455 / 2048, 0.2);
  EXPECT_NEAR(Large.MeasureString("H\niiii\n").Height, Line + 2 * Large.GetHeight(), 1e-3);
  EXPECT_GT(Font("Arial", 72, {TFontStyle::Bold}).MeasureString("Bold").Width, Large.MeasureString("Bold").Width);
  EXPECT_NO_THROW(Large.MeasureString("\xFF\xC3"));
}

TEST(FontTest, TabsAndControlCharactersAreMeasuredAsTheyAreDrawn) {
  const Font Face("Arial", 12);
  for (const auto& [Text, Shown] : {std::pair("ab\tH", "ab      H"),
                                    {"\tH", "        H"},
                                    {"a\x01\r\x1F"
                                     "bH",
                                     "abH"}}) {
    EXPECT_FLOAT_EQ(Face.MeasureString(Text).Width, Face.MeasureString(Shown).Width) << Shown;
    const Bitmap Picture = PictureOf(
        150, 30, [&, &Line = Text](Graphics& Gr) { Gr.DrawString(Line, Face, SolidBrush(0xFF000000), 5, 5); });
    EXPECT_NEAR(InkBox(Picture).Right + 1, 5 + Face.MeasureString(Text).Width, 2.5) << Shown;
  }
}

TEST(FontTest, FractionsOfAPointCount) {
  const auto Width = [](float Size) { return Font("Arial", Size).MeasureString("Time in seconds").Width; };
  for (const float Size : {5.0f, 7.5f, 8.0f, 8.25f, 8.3f, 9.0f, 10.4f, 11.0f, 13.7f})
    EXPECT_NEAR(Width(Size) / Size * 72 / Width(72), 1, 0.01) << Size;
  EXPECT_LT(Width(8.0f), Width(8.3f));
  for (const float Bad : {0.0f, -1.0f, 1e6f, Nan}) EXPECT_THROW(Font("Arial", Bad), ERangeError) << Bad;
}

TEST(FontTest, TextsAreDrawnWhereTheirBoxIs) {
  for (const float Size : {8.0f, 8.3f, 9.0f, 20.0f})
    for (const int Ratio : {1, 2}) {
      SCOPED_TRACE(testing::Message() << Size << " x" << Ratio);
      const Font Face("Arial", Size);
      const auto Draw = [&](Graphics& Canvas) { Canvas.DrawString("HHHH", Face, Ink, 20, 10); };
      const TInkBox Box = InkBox(PictureOf(120, 60, Draw, static_cast<float>(Ratio)));
      // The letter stands on the base line, 1409 of 2048 units high; its sides keep 168 units from the advance.
      const double Pixels = double{Size} * 96 / 72 * Ratio;
      EXPECT_NEAR(Box.Bottom + 1, (10.0 + Face.GetAscent()) * Ratio, 1.01);
      EXPECT_NEAR(Box.Bottom + 1 - Box.Top, Pixels * 1409 / 2048, 1.2);
      EXPECT_NEAR(Box.Left, 20.0 * Ratio + Pixels * 168 / 2048, 1.01);
      EXPECT_NEAR(Box.Right + 1, (20.0 + Face.MeasureString("HHHH").Width) * Ratio - Pixels * 168 / 2048, 1.3);
    }
}

// A picture of another format goes to the toolkit as it is.
TEST(FontTest, KeptTextsLookAsTheToolkitDrawsThem) {
  for (const float Ratio : {1.0f, 2.0f})
    for (const auto& [Size, Style] : {std::pair(9.0f, TFontStyles{}), {10.0f, TFontStyles{TFontStyle::Italic}}})
      for (const float Degrees : {0.0f, 90.0f, -90.0f})
        for (const PointF At : {PointF{70, 70}, {70.25f, 70.5f}, {70.75f, 70.125f}, {70.5f, 70.875f}}) {
          const auto Draw = [&](Graphics& Canvas) {
            Canvas.Clear(0xFFFFFFFF);
            Canvas.TranslateTransform(At.X, At.Y);
            Canvas.RotateTransform(Degrees);
            Canvas.DrawString("Way, 10 km", Font("Arial", Size, Style), SolidBrush(0xFF3060A0), 0, 0);
          };
          PictureOf(140, 140, Draw, Ratio);  // made, and then made use of
          const Bitmap Kept = PictureOf(140, 140, Draw, Ratio);
          QImage Plain(Kept.ToQt().size(), QImage::Format_RGB32);
          Plain.setDevicePixelRatio(double{Ratio});
          QPainter Painter(&Plain);
          Graphics Canvas(Painter);
          Draw(Canvas);
          long Covered = 0, Difference = 0;
          for (int Y = 0; Y < Plain.height(); ++Y)
            for (int X = 0; X < Plain.width(); ++X) {
              const int Red = qRed(Plain.pixel(X, Y));
              Covered += 255 - Red;
              Difference += std::abs(Red - static_cast<int>(Kept.GetPixel(X, Y) >> 16 & 255));
            }
          // Upright ones come to lie at the nearest quarter of a pixel; a whole one beside it would be all different.
          EXPECT_LE(Difference, Degrees == 0 ? 0 : Covered / 2)
              << Ratio << ' ' << Size << ' ' << Degrees << ' ' << At.X;
          EXPECT_GT(Covered, 10000);
        }
}

TEST(FontTest, OneBitGlyphsHaveNoGreyPixels) {
  for (const TextRenderingHint Hint : {TextRenderingHintSystemDefault, TextRenderingHintSingleBitPerPixelGridFit}) {
    const Bitmap Picture = PictureOf(80, 30, [&](Graphics& Canvas) {
      Canvas.SetTextRenderingHint(Hint);
      Canvas.DrawString("Seconds", Font("Arial", 12), Ink, 2, 2);
    });
    std::string Rows;
    for (int Row = 0; Row < 30; ++Row) Rows += RowText(Picture, Row, 0, 80);
    EXPECT_EQ(Rows.find('+') != std::string::npos, Hint == TextRenderingHintSystemDefault);
    EXPECT_GT(InkBox(Picture).Right, 40);
  }
}

TEST(GraphicsTest, WhatAPosterNeededIsGivenBack) {
  const auto Megabytes = [] {
    const struct mallinfo2 Info = mallinfo2();  // nothing under a sanitizer, which then finds nothing here
    return static_cast<double>(Info.uordblks + Info.hblkhd) / (1 << 20);
  };
  const double Before = Megabytes();
  {
    Bitmap Poster(5000, 4000);
    Graphics Canvas(Poster);
    Canvas.SetSmoothingMode(SmoothingModeAntiAlias);
    const PointF Corners[] = {{10, 10}, {4990, 1300}, {2500, 3990}};
    Canvas.FillPolygon(SolidBrush(0x80112233), Corners);
    GraphicsPath Hole;
    Hole.AddEllipse({10, 10, 4980, 3980});
    Canvas.ExcludeClip(Region(Hole));
    Canvas.FillRectangle(SolidBrush(0xFF445566), 0, 0, 5000, 4000);
    EXPECT_EQ(Poster.GetPixel(1, 1), 0xFF445566);
  }
  Bitmap Screen(100, 100);
  Graphics(Screen).Clear(0xFFFFFFFF);
  EXPECT_LT(Megabytes(), Before + 8) << "as soon as something smaller is painted";
}

TEST(FontFamilyTest, KnowsWhatExists) {
  for (const char* Name : {"Arial", "Times New Roman", "Liberation Sans", "liberation sans", "DejaVu Sans"})
    EXPECT_TRUE(FontFamily(Name).IsAvailable()) << Name;
  for (const char* Name : {"", "No Such Family", "Arial Which Is Not"})
    EXPECT_FALSE(FontFamily(Name).IsAvailable()) << Name;
}

TEST(BitmapTest, FailuresAreNamedAndLeaveNothingBehind) {
  const Bitmap Picture(3, 3);
  const auto File = std::filesystem::temp_directory_path() / "zyphos-bitmap-test.nonsense";
  TMemoryStream Stream;
  EXPECT_THROW(Picture.Save(Stream, "nonsense"), EStreamError);
  EXPECT_EQ(Stream.Size(), 0);
  EXPECT_THROW(Picture.Save("/no/such/folder/a.png"), EFileError);
  EXPECT_THROW(Picture.Save(File), EStreamError);
  EXPECT_FALSE(std::filesystem::exists(File));
  EXPECT_THROW(Bitmap(0, 3), ERangeError);
  EXPECT_THROW(Bitmap(3, 2000000000), ERangeError);
  EXPECT_THROW(Bitmap(3, 3, Nan), ERangeError);
  EXPECT_THROW(Picture.GetPixel(3, 0), ERangeError);
}

}  // namespace
}  // namespace zy
