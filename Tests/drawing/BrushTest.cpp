// Pixels of brushes, pens and paths against what can be computed by hand.

#include "platform/drawing/Brush.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <set>
#include <vector>

#include "drawing/Pixels.h"
#include "platform/drawing/Graphics.h"
#include "platform/drawing/GraphicsPath.h"
#include "platform/drawing/Pen.h"
#include "texts/Exceptions.h"

namespace zy {
namespace {

constexpr ARGB Black = 0xFF000000, White = 0xFFFFFFFF, Red = 0xFFFF0000, Green = 0xFF00FF00, Blue = 0xFF0000FF;
constexpr float Nan = std::numeric_limits<float>::quiet_NaN(), Infinite = std::numeric_limits<float>::infinity();
const RectF All{0, 0, 120, 120};

Bitmap Filled(const Brush& Brush, const RectF& Rect = All) {
  return PictureOf(120, 120, [&](Graphics& Canvas) { Canvas.FillRectangle(Brush, Rect); });
}

TEST(HatchBrushTest, PatternsDifferAndKeepToThePixelsWhateverTheTransform) {
  std::set<std::string> Seen;
  std::vector<int> Shares(HatchStyleTotal);
  for (int Index = 0; Index < HatchStyleTotal; ++Index) {
    const auto Style = static_cast<HatchStyle>(Index);
    const auto Pattern = HatchBrush::PatternOf(Style);
    EXPECT_TRUE(Seen.emplace(Pattern.begin(), Pattern.end()).second) << Style;
    for (const unsigned char Row : Pattern) Shares[Style] += std::popcount(Row);
    const auto Draw = [&](Graphics& Canvas) {
      Canvas.TranslateTransform(3, 5);
      Canvas.FillRectangle(HatchBrush(Style, Red, Blue), 0, 0, 16, 16);
    };
    const Bitmap Picture = PictureOf(24, 24, Draw, 2);
    for (int Y = 5; Y < 21; ++Y)
      for (int X = 3; X < 19; ++X) {
        const bool IsSet = (Pattern[static_cast<std::size_t>(Y % 8)] >> (7 - X % 8) & 1) != 0;
        ASSERT_EQ(Picture.GetPixel(2 * X + 1, 2 * Y), IsSet ? Red : Blue) << Style << " at " << X << ", " << Y;
      }
  }
  const auto Percentages =
      std::span(Shares).subspan(HatchStyle05Percent, HatchStyle90Percent - HatchStyle05Percent + 1);
  EXPECT_EQ(std::ranges::adjacent_find(Percentages, std::greater_equal()), Percentages.end());
  EXPECT_EQ(Shares[HatchStyle25Percent], 16);
  EXPECT_EQ(Shares[HatchStyle50Percent], 32);
  EXPECT_EQ(Shares[HatchStyle05Percent] + Shares[HatchStyle90Percent], 64);
  EXPECT_THROW(HatchBrush(HatchStyleTotal, Red, Blue), ERangeError);
}

TEST(LinearGradientBrushTest, ColoursLieWhereTheAngleAndTheStopsPutThem) {
  const RectF Box{10, 10, 100, 50};
  const Bitmap Across = Filled(LinearGradientBrush(Box, Black, White, 0), Box);
  for (const int X : {12, 35, 60, 85, 107})
    ExpectSpots(Across, {{X, 30, Black | static_cast<ARGB>((X - 10) * 2.55) * 0x010101u}}, 2);
  ExpectSpots(Filled(LinearGradientBrush(Box, Black, White, 90), Box),
              {{50, 35, 0xFF828282}, {12, 20, 0xFF363636}, {100, 20, 0xFF363636}}, 3);
  // At 45 degrees the shadow of the box on the gradient's line is (100 + 50) / sqrt 2 long; the top right corner lies
  // at 100 / 150 of it. A scalable angle puts the other two corners in the middle, and so do the diagonal modes.
  ExpectSpots(Filled(LinearGradientBrush(Box, Black, White, 45), Box), {{10, 10, Black}, {109, 10, 0xFFAAAAAA}}, 4);
  for (const Bitmap& Picture : {Filled(LinearGradientBrush(Box, Black, White, 45, true), Box),
                                Filled(LinearGradientBrush(Box, Black, White, LinearGradientModeForwardDiagonal), Box)})
    ExpectSpots(Picture, {{109, 10, 0xFF808080}, {10, 59, 0xFF808080}, {109, 59, White}}, 4);

  LinearGradientBrush Three(Box, Black, White, 0);
  const ARGB Colors[] = {Red, Green, Blue};
  Three.SetInterpolationColors(Colors, std::vector<float>{0, 0.25f, 1});
  ExpectSpots(Filled(Three), {{35, 5, Green}, {72, 5, 0xFF008080}}, 6);
  ExpectSpots(Filled(Three), {{111, 5, Red}, {8, 5, Blue}}, 12);  // it repeats on both sides
  ExpectSpots(Filled(LinearGradientBrush(PointF{10, 0}, PointF{110, 0}, Black, White)),
              {{10, 5, Black}, {110, 5, White}, {9, 5, 0xFFFDFDFD}, {111, 5, 0xFF020202}}, 1);  // beyond its very ends
  for (const std::vector<float>& Wrong :
       {std::vector<float>{0, 1}, {0.1f, 0.5f, 1}, {0, 0.5f, 0.9f}, {0, 2, 1}, {0, Nan, 1}})
    EXPECT_THROW(Three.SetInterpolationColors(Colors, Wrong), ERangeError);
}

TEST(LinearGradientBrushTest, BeginsAnewAtNoEdgeOfItsOwnBox) {
  for (const double Ratio : {1.0, 1.25, 1.5, 1.75, 2.0, 3.0})
    for (const bool IsUpright : {false, true})
      for (float Start = 5; Start < 8; Start += 0.25f) {
        QImage Picture(100, 100, QImage::Format_ARGB32_Premultiplied);
        Picture.setDevicePixelRatio(Ratio);
        Picture.fill(Qt::white);
        const RectF Box = IsUpright ? RectF{2, Start, 25, 20} : RectF{Start, 2, 20, 25};
        {
          QPainter Painter(&Picture);
          Graphics Canvas(Painter);
          Canvas.SetSmoothingMode(SmoothingModeAntiAlias);
          const auto Mode = IsUpright ? LinearGradientModeVertical : LinearGradientModeHorizontal;
          Canvas.FillRectangle(LinearGradientBrush(Box, 0xFFFF0000, 0xFF0000FF, Mode), Box.X, Box.Y, Box.Width,
                               Box.Height);
        }
        const int Middle = static_cast<int>((static_cast<double>(Start) + 10) * Ratio);
        for (int Place = 0; Place < 100; ++Place) {
          const QRgb Color = IsUpright ? Picture.pixel(20, Place) : Picture.pixel(Place, 20);
          const int Redder = Place < Middle ? qRed(Color) - qBlue(Color) : qBlue(Color) - qRed(Color);
          EXPECT_TRUE(Redder >= 0 || std::abs(Place - Middle) <= 2) << Ratio << ' ' << Start << ' ' << Place;
        }
      }
}

TEST(PathGradientBrushTest, RunsFromTheOutlineToItsCentrePoint) {
  GraphicsPath Ellipse;
  Ellipse.AddEllipse({10, 10, 100, 60});
  PathGradientBrush Round(Ellipse);
  const ARGB FromRim[] = {Red, Blue};
  Round.SetInterpolationColors(FromRim, std::vector<float>{0, 1});
  Round.SetCenterPoint({40, 40});
  // The right end of the ellipse is (110, 40).
  ExpectSpots(Filled(Round), {{40, 40, Blue}, {75, 40, 0xFF800080}, {108, 40, Red}}, 10);
  ExpectSpots(Filled(Round), {{5, 40, 0}, {60, 80, 0}});

  const PointF Corners[] = {{10, 100}, {60, 10}, {110, 100}};
  PathGradientBrush Triangle{std::span<const PointF>(Corners)};
  const ARGB Surround[] = {Red, Green, Blue};
  Triangle.SetSurroundColors(Surround);
  Triangle.SetCenterColor(White);
  Triangle.SetCenterPoint({60, 70});
  // In the centre, halfway between two corners (and a thirtieth inwards) and halfway from a corner to the centre.
  ExpectSpots(Filled(Triangle), {{60, 70, White}, {60, 99, 0xFF840984}, {60, 40, 0xFF80FF80}, {20, 20, 0}}, 1);

  const PointF Small[] = {{10, 10}, {30, 10}, {30, 30}, {10, 30}};
  PathGradientBrush Square{std::span<const PointF>(Small)};
  Square.SetCenterColor(Blue);
  ExpectSpots(Filled(Square), {{20, 20, Blue}, {44, 20, 0}, {20, 44, 0}, {5, 5, 0}}, 26);  // it does not repeat
}

TEST(BrushTest, DegenerateGradientsEndInBoundedTime) {
  ExpectSpots(Filled(LinearGradientBrush(RectF{5, 5, 0, 0}, Red, Blue, 30)), {{4, 4, Blue}});
  ExpectSpots(Filled(LinearGradientBrush(PointF{3, 3}, PointF{3, 3}, Red, Blue)), {{4, 4, Blue}});
  Filled(LinearGradientBrush(PointF{0, 0}, PointF{Infinite, 3}, Red, Blue));
  Filled(LinearGradientBrush(RectF{-1e30f, 0, 2e30f, 1e-30f}, Red, Blue, 77));
  const PointF Far[] = {{-1e9f, 0}, {1e9f, 1e9f}, {5, -1e9f}}, Same[] = {{5, 5}, {5, 5}};
  const PointF Broken[] = {{0, 0}, {Nan, 5}, {9, 9}};
  for (const std::span<const PointF> Points : {std::span<const PointF>(Far), {Same}, {Broken}})
    Filled(PathGradientBrush(Points));
  Filled(PathGradientBrush(GraphicsPath()));
  EXPECT_THROW(PathGradientBrush(std::span<const PointF>(Far, 1)), ERangeError);
}

TEST(GraphicsPathTest, FiguresHaveTheirAreasAndFillModes) {
  GraphicsPath Path;
  Path.AddRectangle({0, 0, 30, 30});
  Path.AddRectangle({10, 10, 10, 10});
  EXPECT_FALSE(Path.IsVisible({15, 15}));
  Path.SetFillMode(FillModeWinding);
  EXPECT_TRUE(Path.IsVisible({15, 15}));

  GraphicsPath Arc;  // an arc is joined to what is open, and angles run clockwise: 0 to 90 is the lower right quarter
  Arc.AddLine(0, 50, 50, 50);
  Arc.AddArc({0, 0, 100, 100}, 0, 90);
  Arc.CloseFigure();
  EXPECT_TRUE(Arc.IsVisible({70, 70}));
  EXPECT_FALSE(Arc.IsVisible({30, 30}));
  const auto Figures = Arc.Flatten();
  ASSERT_EQ(Figures.size(), 1u);
  for (const PointF& Point : Figures.front())
    EXPECT_TRUE(Point.X <= 50.01f || std::abs(std::hypot(Point.X - 50, Point.Y - 50) - 50) < 0.06) << Point.X;

  GraphicsPath Line, Text;
  Line.AddLine(10, 10, 60, 10);
  Line.Widen(Pen(Black, 8));
  EXPECT_EQ(Line.GetBounds(), (RectF{10, 6, 50, 8}));
  Text.AddString("Hy", "Arial", {}, 40, {100, 200});
  const RectF Bounds = Text.GetBounds();
  EXPECT_NEAR(Bounds.X, 103, 3);
  EXPECT_TRUE(Bounds.Y > 200 && Bounds.Y + Bounds.Height < 250) << Bounds.Y;

  const auto Copy = Path.Clone();
  Path.Reset();
  Path.AddLine(Nan, 0, 1, 1);
  Path.AddEllipse({0, 0, Infinite, 1});
  EXPECT_TRUE(Path.IsEmpty());
  EXPECT_EQ(Copy->GetBounds(), (RectF{0, 0, 30, 30}));
}

TEST(PenTest, ShapesAtTheEndsLieOnTheLine) {
  GraphicsPath Head;  // a solid triangle, 4 widths long and as wide, with its tip on the line's end
  const PointF Corners[] = {{2, -4}, {0, 0}, {-2, -4}};
  Head.AddPolygon(Corners);
  Pen Arrow(Red, 5);
  Arrow.SetCustomEndCap(CustomLineCap(&Head, nullptr, LineCapFlat, 4));
  const Bitmap Picture = PictureOf(240, 120, [&](Graphics& Canvas) {
    Canvas.SetSmoothingMode(SmoothingModeAntiAlias);
    Canvas.DrawLine(Arrow, 10, 50, 110, 50);
    Canvas.DrawLine(Arrow, 170, 110, 170, 10);
  });
  // The line is 5 wide, the head 20 wide at its base, 20 before the tip; nothing lies beyond the end.
  for (const auto& [Along, Across, Color] :
       {TSpot{50, 0, Red}, {50, 5, 0}, {92, 7, Red}, {92, -7, Red}, {104, 5, 0}, {112, 0, 0}})
    ExpectSpots(Picture, {{Along, 50 + Across, Color}, {170 + Across, 120 - Along, Color}});
}

TEST(PenTest, DrawsWithABrush) {
  const Pen Wide(LinearGradientBrush(RectF{10, 0, 100, 40}, Black, White, 0), 10);
  ExpectSpots(PictureOf(120, 40, [&](Graphics& Canvas) { Canvas.DrawLine(Wide, 10, 20, 110, 20); }),
              {{60, 20, 0xFF808080}, {85, 22, 0xFFC0C0C0}}, 4);
}

}  // namespace
}  // namespace zy
