#include "platform/drawing/Graphics.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <cmath>
#include <filesystem>
#include <limits>

#include "drawing/Pixels.h"
#include "platform/drawing/Bitmap.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Font.h"
#include "platform/drawing/FontFamily.h"
#include "platform/drawing/Pen.h"
#include "platform/framework/Exceptions.h"
#include "platform/framework/TStream.h"

namespace zy {
namespace {

const Pen Black(0xFF000000);
const SolidBrush Ink(0xFF000000);

/// Every rule about pixels holds for each of these.
struct TTarget {
  SmoothingMode Smoothing;
  int Ratio;
};

class OnEveryTarget : public testing::TestWithParam<TTarget> {
 protected:
  OnEveryTarget() { Canvas.SetSmoothingMode(GetParam().Smoothing); }
  bool Smooth() const { return GetParam().Smoothing != SmoothingModeNone; }
  /// Logical pixels From to From + 9 of the middle of a logical row or column.
  std::string Row(int Y, int From) const { return RowText(Picture, Y * Ratio + Ratio / 2, From * Ratio, 10 * Ratio); }
  std::string Column(int X, int From) const {
    return ColumnText(Picture, X * Ratio + Ratio / 2, From * Ratio, 10 * Ratio);
  }
  std::string Expected(const std::string& Text) const { return Stretched(Text, Ratio); }

  int Ratio = GetParam().Ratio;
  Bitmap Picture{40, 40, static_cast<float>(Ratio)};
  Graphics Canvas{Picture};
};

INSTANTIATE_TEST_SUITE_P(Targets, OnEveryTarget,
                         testing::Values(TTarget{SmoothingModeNone, 1}, TTarget{SmoothingModeHighQuality, 1},
                                         TTarget{SmoothingModeNone, 2}, TTarget{SmoothingModeHighQuality, 2}));

TEST_P(OnEveryTarget, LinesRunThroughPixelCentres) {
  Canvas.DrawLine(Black, 5, 10, 25, 10);
  EXPECT_EQ(Column(15, 5), Expected(".....#...."));
  Canvas.Clear(0);
  Canvas.DrawLine(Black, 10, 5, 10, 25);
  EXPECT_EQ(Row(15, 5), Expected(".....#...."));
  Canvas.Clear(0);
  Canvas.DrawLine(Pen(0xFF000000, 3), 5, 10, 25, 10);
  EXPECT_EQ(Column(15, 5), Expected("....###..."));
}

TEST_P(OnEveryTarget, OpenLinesIncludeTheirEndPixels) {
  Canvas.DrawLine(Black, 12, 10, 17, 10);
  Canvas.DrawLine(Black, 17, 20, 12, 20);
  const PointF Corner[] = {{12, 30}, {17, 30}, {17, 36}};
  Canvas.DrawLines(Black, Corner);
  if (!Smooth()) {
    for (const int Y : {10, 20, 30}) EXPECT_EQ(Row(Y, 10), Expected("..######..")) << Y;
    EXPECT_EQ(Column(17, 29), Expected(".#######.."));
  } else if (Ratio == 1) {
    for (const int Y : {10, 20}) EXPECT_EQ(Row(Y, 10), "..+####+..") << Y;
  } else {
    for (const int Y : {10, 20}) EXPECT_EQ(Row(Y, 10), ".....##########.....") << Y;
  }
}

TEST_P(OnEveryTarget, BoxesCoverWholePixels) {
  Canvas.FillRectangle(Ink, 12, 14, 5, 3);
  EXPECT_EQ(Row(15, 10), Expected("..#####..."));
  EXPECT_EQ(Column(13, 10), Expected("....###..."));
  Canvas.Clear(0);
  Canvas.FillRectangle(Ink, 12, 14, 0, 3);
  Canvas.FillRectangle(Ink, 12, 14, -4, 3);
  EXPECT_LT(InkBox(Picture).Right, 0);
}

TEST_P(OnEveryTarget, OutlinesLieOnTheFourSides) {
  Canvas.DrawRectangle(Black, 12, 14, 5, 3);
  EXPECT_EQ(Row(15, 10), Expected("..#....#.."));
  EXPECT_EQ(Row(14, 10), Expected("..######.."));
  EXPECT_EQ(Column(14, 10), Expected("....#..#.."));
}

TEST_P(OnEveryTarget, PolygonsAreFilledWithinTheirOutline) {
  const PointF Box[] = {{12, 14}, {17, 14}, {17, 19}, {12, 19}};
  Canvas.FillPolygon(Ink, Box);
  // Between the centres of columns 12 and 17: the inner pixels in full, and half of the outer ones when smooth.
  EXPECT_EQ(Row(16, 13).substr(0, static_cast<std::size_t>(4 * Ratio)), Expected("####"));
  EXPECT_EQ(Row(16, 0).find_first_not_of('.'), std::string::npos);
  if (Ratio == 2) {
    EXPECT_EQ(Row(16, 10), ".....##########.....");
  } else if (Smooth()) {
    EXPECT_EQ(Row(16, 10), "..+####+..");
  }
}

TEST_P(OnEveryTarget, ClipsAreBoxesOfPixelsAndRestoreExactly) {
  Canvas.SetClip(RectF{12, 12, 6, 6});
  const Region Outer = Canvas.GetClip();
  Canvas.TranslateTransform(15, 15);
  Canvas.SetClip(RectF{0, 0, 20, 2}, CombineModeIntersect);
  Canvas.FillRectangle(Ink, -20, -20, 80, 80);
  EXPECT_EQ(Row(15, 10), Expected(".....###.."));
  EXPECT_EQ(Column(16, 10), Expected(".....##..."));

  Canvas.Clear(0);
  Canvas.SetClip(Outer);  // under another transform than it was set with
  Canvas.FillRectangle(Ink, -20, -20, 80, 80);
  EXPECT_EQ(Row(15, 10), Expected("..######.."));
  EXPECT_EQ(Canvas.GetClip(), Outer);

  Canvas.Clear(0);
  Canvas.SetClip(RectF{0, 0, 2, 2});  // replaces
  Canvas.SetClip(RectF{10, 10, 2, 2}, CombineModeIntersect);
  Canvas.FillRectangle(Ink, -20, -20, 80, 80);
  Canvas.ResetClip();
  EXPECT_LT(InkBox(Picture).Right, 0) << "clips that do not meet leave nothing";
  Canvas.FillRectangle(Ink, -15, -15, 40, 40);
  EXPECT_EQ(Row(0, 0), Expected("##########"));
}

TEST_P(OnEveryTarget, ClearReplacesWhatWasThereWithinTheClip) {
  Canvas.Clear(0xFFFFFFFF);
  Canvas.SetClip(RectF{12, 0, 5, 40});
  Canvas.Clear(0x00000000);
  EXPECT_EQ(Row(10, 10), Expected("##.....###"));
}

TEST_P(OnEveryTarget, TransformsActOnShapesAndKeepThemOnThePixels) {
  Canvas.TranslateTransform(20, 10);
  Canvas.RotateTransform(90);
  EXPECT_EQ(Canvas.GetTransform().TransformPoint({5, 0}), (PointF{20, 15}));
  Canvas.DrawLine(Black, -8, 0, 12, 0);  // runs down column 20
  EXPECT_EQ(Row(12, 15), Expected(".....#...."));
  const Matrix Turned = Canvas.GetTransform();
  Canvas.SetTransform(Matrix());
  Canvas.Clear(0);
  Canvas.SetTransform(Turned);
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
  EXPECT_EQ(qAlpha(Image.pixel(10, 10)), 255);
  EXPECT_EQ(qAlpha(Image.pixel(9, 10)), 0);
  EXPECT_EQ(qAlpha(Image.pixel(15, 10)), 0);
}

TEST(GraphicsTest, CoordinatesThatAreNotFiniteDrawNothing) {
  Bitmap Picture(20, 20);
  Graphics Canvas(Picture);
  const float Nan = std::numeric_limits<float>::quiet_NaN();
  const float Infinite = std::numeric_limits<float>::infinity();
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
  Bitmap Picture(40, 10);
  Graphics Canvas(Picture);
  Pen Dotted(0xFF000000);
  Dotted.SetDashStyle(DashStyleDot);
  const PointF Points[] = {{0, 2}, {20, 2}, {1e30f, 2}};
  Canvas.DrawLines(Dotted, Points);
  Canvas.DrawRectangle(Dotted, RectF{-1e20f, 5, 2e20f, 1e20f});
  for (const int Y : {2, 5})
    for (int X = 0; X < 40; ++X) EXPECT_EQ(Picture.GetPixel(X, Y), 0xFF000000) << X << ' ' << Y;
}

TEST(PenTest, DashesCountInWidths) {
  struct TCase {
    TDashStyle Style;
    const char* Row;
  };
  for (const TCase& Case : {TCase{DashStyleSolid, "################"}, TCase{DashStyleDash, "###.###.###.###."},
                            TCase{DashStyleDot, "#.#.#.#.#.#.#.#."}, TCase{DashStyleDashDot, "###.#.###.#.###."},
                            TCase{DashStyleDashDotDot, "###.#.#.###.#.#."}}) {
    Bitmap Picture(40, 4);
    Graphics Canvas(Picture);
    Pen Dashed(0xFF000000);
    Dashed.SetDashStyle(Case.Style);
    Canvas.DrawLine(Dashed, 0, 2, 39, 2);
    EXPECT_EQ(RowText(Picture, 2, 0, 16), Case.Row) << Case.Style;
  }
  Bitmap Picture(40, 6);
  Graphics Canvas(Picture);
  Pen Custom(0xFF000000, 2);
  const float Lengths[] = {2, 1, -1};  // odd, and one that is none
  Custom.SetDashPattern(Lengths);
  Canvas.DrawLine(Custom, 0, 2, 39, 2);
  EXPECT_EQ(RowText(Picture, 2, 0, 16), "####..##....##..");
}

TEST(MatrixTest, StepsJoinInTheOrderAsked) {
  Matrix Inner;
  Inner.Translate(10, 0);
  Inner.Rotate(90);  // acts first
  EXPECT_EQ(Inner.TransformPoint({1, 0}), (PointF{10, 1}));
  Matrix Outer;
  Outer.Translate(10, 0);
  Outer.Rotate(90, MatrixOrderAppend);
  EXPECT_EQ(Outer.TransformPoint({1, 0}), (PointF{0, 11}));
  Matrix About;
  About.RotateAt(-270, {5, 5});
  EXPECT_EQ(About.TransformPoint({6, 5}), (PointF{5, 6}));
  Matrix Skew;
  Skew.RotateAt(30, {5, 5});
  Skew.RotateAt(60, {5, 5});
  EXPECT_NEAR(Skew.TransformPoint({6, 5}).X, 5, 1e-6);
  EXPECT_NEAR(Skew.TransformPoint({6, 5}).Y, 6, 1e-6);
}

TEST(FontTest, MeasuresFollowTheFace) {
  // Widths of the metric-compatible faces are those of the original ones: per 2048 units, H 1479, i 455.
  const Font Large("Arial", 72);  // 96 pixels
  Bitmap Picture(10, 10);
  Graphics Canvas(Picture);
  EXPECT_NEAR(Canvas.MeasureString("H", Large).Width, 96.0 * 1479 / 2048, 0.1);
  EXPECT_NEAR(Canvas.MeasureString("iiii", Large).Width, 4 * 96.0 * 455 / 2048, 0.2);
  EXPECT_FLOAT_EQ(Canvas.MeasureString("H", Large).Height, Large.GetAscent() + Large.GetDescent());
  EXPECT_FLOAT_EQ(Canvas.MeasureString("", Large).Width, 0);
  EXPECT_NEAR(Canvas.MeasureString("H\niiii\n", Large).Height,
              Large.GetAscent() + Large.GetDescent() + 2 * Large.GetHeight(), 1e-3);
  EXPECT_FLOAT_EQ(Canvas.MeasureString("H\niiii\n", Large).Width, Canvas.MeasureString("iiii", Large).Width);
  EXPECT_GT(Canvas.MeasureString("Bold", Font("Arial", 72, {TFontStyle::Bold})).Width,
            Canvas.MeasureString("Bold", Large).Width);
  EXPECT_NO_THROW(Canvas.MeasureString("\xFF\xC3", Large));
}

TEST(FontTest, FractionsOfAPointCount) {
  const float Reference = Font("Arial", 72).MeasureString("Time in seconds").Width / 72;
  for (const float Size : {5.0f, 7.5f, 8.0f, 8.25f, 8.3f, 9.0f, 10.4f, 11.0f, 13.7f}) {
    EXPECT_NEAR(Font("Arial", Size).MeasureString("Time in seconds").Width / Size, Reference, Reference * 0.01) << Size;
  }
  EXPECT_LT(Font("Arial", 8.0f).MeasureString("Time in seconds").Width,
            Font("Arial", 8.3f).MeasureString("Time in seconds").Width);
  for (const float Bad : {0.0f, -1.0f, 1e6f, std::numeric_limits<float>::quiet_NaN()})
    EXPECT_THROW(Font("Arial", Bad), ERangeError) << Bad;
}

TEST(FontTest, TextsAreDrawnWhereTheirBoxIs) {
  for (const float Size : {8.0f, 8.3f, 9.0f, 20.0f}) {
    for (const int Ratio : {1, 2}) {
      Bitmap Picture(120, 60, static_cast<float>(Ratio));
      Graphics Canvas(Picture);
      const Font Face("Arial", Size);
      Canvas.DrawString("HHHH", Face, Ink, 20, 10);
      const TInkBox Box = InkBox(Picture);
      const SizeF Extent = Canvas.MeasureString("HHHH", Face);
      // The letter stands on the base line, 1409 of 2048 units high; its sides keep 168 units from the advance.
      const double Pixels = double{Size} * 96 / 72 * Ratio;
      EXPECT_NEAR(Box.Bottom + 1, (10.0 + Face.GetAscent()) * Ratio, 1.01) << Size << " x" << Ratio;
      EXPECT_NEAR(Box.Bottom + 1 - Box.Top, Pixels * 1409 / 2048, 1.2) << Size << " x" << Ratio;
      EXPECT_NEAR(Box.Left, 20.0 * Ratio + Pixels * 168 / 2048, 1.01) << Size << " x" << Ratio;
      EXPECT_NEAR(Box.Right + 1, (20.0 + Extent.Width) * Ratio - Pixels * 168 / 2048, 1.3) << Size << " x" << Ratio;
    }
  }
}

// A picture of another format goes to the toolkit as it is.
TEST(FontTest, KeptTextsLookAsTheToolkitDrawsThem) {
  const auto Draw = [](Graphics& Canvas, const Font& Face, PointF At, float Degrees) {
    Canvas.Clear(0xFFFFFFFF);
    Canvas.TranslateTransform(At.X, At.Y);
    Canvas.RotateTransform(Degrees);
    Canvas.DrawString("Way, 10 km", Face, SolidBrush(0xFF3060A0), 0, 0);
  };
  for (const int Ratio : {1, 2})
    for (const auto& [Size, Style] : {std::pair(9.0f, TFontStyles{}), {10.0f, TFontStyles{TFontStyle::Italic}}})
      for (const float Degrees : {0.0f, 90.0f, -90.0f})
        for (const PointF At : {PointF{70, 70}, {70.25f, 70.5f}, {70.75f, 70.125f}, {70.5f, 70.875f}}) {
          const Font Face("Arial", Size, Style);
          Bitmap Kept(140, 140, static_cast<float>(Ratio));
          QImage Plain(140 * Ratio, 140 * Ratio, QImage::Format_RGB32);
          Plain.setDevicePixelRatio(Ratio);
          for (int Round = 0; Round < 2; ++Round) {  // made, and made use of
            Graphics Canvas(Kept);
            Draw(Canvas, Face, At, Degrees);
          }
          QPainter Painter(&Plain);
          Graphics Canvas(Painter);
          Draw(Canvas, Face, At, Degrees);
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
  Bitmap Picture(80, 30);
  Graphics Canvas(Picture);
  const auto HasGrey = [&] {
    for (int Row = 0; Row < 30; ++Row)
      if (RowText(Picture, Row, 0, 80).find('+') != std::string::npos) return true;
    return false;
  };
  Canvas.DrawString("Seconds", Font("Arial", 12), Ink, 2, 2);
  EXPECT_TRUE(HasGrey());
  Canvas.Clear(0);
  Canvas.SetTextRenderingHint(TextRenderingHintSingleBitPerPixelGridFit);
  Canvas.DrawString("Seconds", Font("Arial", 12), Ink, 2, 2);
  EXPECT_FALSE(HasGrey());
  EXPECT_GT(InkBox(Picture).Right, 40);
}

TEST(FontFamilyTest, KnowsWhatExists) {
  for (const char* Name : {"Arial", "Times New Roman", "Liberation Sans", "liberation sans", "DejaVu Sans"})
    EXPECT_TRUE(FontFamily(Name).IsAvailable()) << Name;
  for (const char* Name : {"", "No Such Family", "Arial Which Is Not"})
    EXPECT_FALSE(FontFamily(Name).IsAvailable()) << Name;
}

TEST(BitmapTest, PngKeepsEveryPixel) {
  Bitmap Picture(30, 20, 2);
  Graphics(Picture).FillRectangle(SolidBrush(0xFF1020F0), 0, 0, 15, 20);
  TMemoryStream Stream;
  Picture.Save(Stream, "PNG");
  QImage Read;
  ASSERT_TRUE(
      Read.loadFromData(reinterpret_cast<const uchar*>(Stream.Bytes().data()), static_cast<int>(Stream.Size()), "PNG"));
  EXPECT_EQ(Read.size(), QSize(60, 40));
  EXPECT_EQ(Read.pixel(29, 39), 0xFF1020F0u);
  EXPECT_EQ(qAlpha(Read.pixel(30, 0)), 0);

  const auto File = std::filesystem::temp_directory_path() / "zyphos-bitmap-test.png";
  Picture.Save(File);
  EXPECT_EQ(std::filesystem::file_size(File), static_cast<std::uintmax_t>(Stream.Size()));
  std::filesystem::remove(File);
}

TEST(BitmapTest, FailuresAreNamedAndLeaveNothingBehind) {
  const Bitmap Picture(3, 3);
  TMemoryStream Stream;
  EXPECT_THROW(Picture.Save(Stream, "nonsense"), EStreamError);
  EXPECT_EQ(Stream.Size(), 0);
  EXPECT_THROW(Picture.Save("/no/such/folder/a.png"), EFileError);
  const auto File = std::filesystem::temp_directory_path() / "zyphos-bitmap-test.nonsense";
  EXPECT_THROW(Picture.Save(File), EStreamError);
  EXPECT_FALSE(std::filesystem::exists(File));
  EXPECT_THROW(Bitmap(0, 3), ERangeError);
  EXPECT_THROW(Bitmap(3, 2000000000), ERangeError);
  EXPECT_THROW(Bitmap(3, 3, std::numeric_limits<float>::quiet_NaN()), ERangeError);
  EXPECT_THROW(Picture.GetPixel(3, 0), ERangeError);
}

}  // namespace
}  // namespace zy
