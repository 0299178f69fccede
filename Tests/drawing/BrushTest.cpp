// Pixels of brushes, pens and paths against what can be computed by hand.

#include "platform/drawing/Brush.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <set>
#include <vector>

#include "drawing/Pixels.h"
#include "platform/drawing/Bitmap.h"
#include "platform/drawing/Graphics.h"
#include "platform/drawing/GraphicsPath.h"
#include "platform/drawing/Pen.h"
#include "platform/framework/Exceptions.h"

namespace zy {
namespace {

constexpr ARGB Black = 0xFF000000, White = 0xFFFFFFFF, Red = 0xFFFF0000, Green = 0xFF00FF00, Blue = 0xFF0000FF;

Bitmap Filled(const Brush& Brush, const RectF& Rect, int Width = 120, int Height = 120) {
  Bitmap Picture(Width, Height);
  Graphics Canvas(Picture);
  Canvas.FillRectangle(Brush, Rect);
  return Picture;
}

TEST(HatchBrushTest, PatternsKeepToThePixelsWhateverTheTransform) {
  for (int Style = 0; Style < HatchStyleTotal; ++Style) {
    const auto Pattern = HatchBrush::PatternOf(static_cast<HatchStyle>(Style));
    Bitmap Picture(24, 24, 2);
    {
      Graphics Canvas(Picture);
      Canvas.TranslateTransform(3, 5);
      Canvas.FillRectangle(HatchBrush(static_cast<HatchStyle>(Style), Red, Blue), 0, 0, 16, 16);
    }
    for (int Y = 5; Y < 21; ++Y)
      for (int X = 3; X < 19; ++X) {
        const bool IsSet = (Pattern[static_cast<std::size_t>(Y % 8)] >> (7 - X % 8) & 1) != 0;
        ASSERT_EQ(Picture.GetPixel(2 * X + 1, 2 * Y), IsSet ? Red : Blue) << Style << " at " << X << ", " << Y;
      }
  }
  EXPECT_THROW(HatchBrush(HatchStyleTotal, Red, Blue), ERangeError);
}

TEST(HatchBrushTest, PatternsDifferAndPercentagesRise) {
  std::set<std::vector<unsigned char>> Seen;
  const auto Share = [](HatchStyle Style) {
    int Bits = 0;
    for (const unsigned char Row : HatchBrush::PatternOf(Style)) Bits += std::popcount(Row);
    return Bits;
  };
  for (int Style = 0; Style < HatchStyleTotal; ++Style) {
    const auto Pattern = HatchBrush::PatternOf(static_cast<HatchStyle>(Style));
    EXPECT_TRUE(Seen.insert({Pattern.begin(), Pattern.end()}).second) << Style;
  }
  for (int Style = HatchStyle05Percent; Style < HatchStyle90Percent; ++Style)
    EXPECT_LT(Share(static_cast<HatchStyle>(Style)), Share(static_cast<HatchStyle>(Style + 1))) << Style;
  EXPECT_EQ(Share(HatchStyle25Percent), 16);
  EXPECT_EQ(Share(HatchStyle50Percent), 32);
  EXPECT_EQ(Share(HatchStyle05Percent) + Share(HatchStyle90Percent), 64);
}

TEST(LinearGradientBrushTest, ColoursLieWhereTheAngleAndTheStopsPutThem) {
  const RectF Box{10, 10, 100, 50};
  const Bitmap Across = Filled(LinearGradientBrush(Box, Black, White, 0), Box);
  for (const int X : {12, 35, 60, 85, 107})
    EXPECT_LE(Distance(Across.GetPixel(X, 30), 0xFF000000u | static_cast<ARGB>((X - 10) * 2.55) * 0x010101u), 2);
  const Bitmap Down = Filled(LinearGradientBrush(Box, Black, White, 90), Box);
  EXPECT_LE(Distance(Down.GetPixel(50, 35), 0xFF828282), 3);
  EXPECT_EQ(Down.GetPixel(12, 20), Down.GetPixel(100, 20));

  // At 45 degrees the shadow of the box on the gradient's line is (100 + 50) / sqrt 2 long; the top right corner lies
  // at 100 / 150 of it. A scalable angle puts the other two corners in the middle, and so do the diagonal modes.
  const Bitmap Slanted = Filled(LinearGradientBrush(Box, Black, White, 45), Box);
  EXPECT_LE(Distance(Slanted.GetPixel(10, 10), Black), 4);
  EXPECT_LE(Distance(Slanted.GetPixel(109, 10), 0xFFAAAAAA), 4);
  for (const Brush* Scalable : std::initializer_list<const Brush*>{
           new LinearGradientBrush(Box, Black, White, 45, true),
           new LinearGradientBrush(Box, Black, White, LinearGradientModeForwardDiagonal)}) {
    const Bitmap Picture = Filled(*Scalable, Box);
    EXPECT_LE(Distance(Picture.GetPixel(109, 10), 0xFF808080), 4);
    EXPECT_LE(Distance(Picture.GetPixel(10, 59), 0xFF808080), 4);
    EXPECT_LE(Distance(Picture.GetPixel(109, 59), White), 4);
    delete Scalable;
  }

  LinearGradientBrush Three(Box, Black, White, 0);
  const ARGB Colors[] = {Red, Green, Blue};
  const float Positions[] = {0, 0.25f, 1};
  Three.SetInterpolationColors(Colors, Positions);
  const Bitmap Stops = Filled(Three, {0, 0, 120, 120});
  EXPECT_LE(Distance(Stops.GetPixel(35, 5), Green), 6);
  EXPECT_LE(Distance(Stops.GetPixel(72, 5), 0xFF008080), 6);
  EXPECT_LE(Distance(Stops.GetPixel(111, 5), Red), 12) << "it repeats beyond its end";
  EXPECT_LE(Distance(Stops.GetPixel(8, 5), Blue), 12) << "and in front of its start";
}

TEST(LinearGradientBrushTest, RefusesStopsThatAreNoneAndSurvivesNoExtent) {
  LinearGradientBrush Brush(RectF{0, 0, 10, 10}, Black, White, 0);
  const ARGB Colors[] = {Red, Green, Blue};
  for (const std::vector<float>& Wrong :
       {std::vector<float>{0, 1}, {0.1f, 0.5f, 1}, {0, 0.5f, 0.9f}, {0, 2, 1}, {0, std::nanf(""), 1}})
    EXPECT_THROW(Brush.SetInterpolationColors(Colors, Wrong), ERangeError);
  EXPECT_EQ(Filled(LinearGradientBrush(RectF{5, 5, 0, 0}, Red, Blue, 30), {0, 0, 9, 9}).GetPixel(4, 4), Blue);
  EXPECT_EQ(Filled(LinearGradientBrush(PointF{3, 3}, PointF{3, 3}, Red, Blue), {0, 0, 9, 9}).GetPixel(4, 4), Blue);
  Filled(LinearGradientBrush(PointF{0, 0}, PointF{std::numeric_limits<float>::infinity(), 3}, Red, Blue), {0, 0, 9, 9});
  Filled(LinearGradientBrush(RectF{-1e30f, 0, 2e30f, 1e-30f}, Red, Blue, 77), {0, 0, 9, 9});
}

TEST(PathGradientBrushTest, RunsFromTheOutlineToItsCentrePoint) {
  GraphicsPath Ellipse;
  Ellipse.AddEllipse({10, 10, 100, 60});
  PathGradientBrush Round(Ellipse);
  const ARGB FromRim[] = {Red, Blue};
  const float Ends[] = {0, 1};
  Round.SetInterpolationColors(FromRim, Ends);
  Round.SetCenterPoint({40, 40});
  const Bitmap Picture = Filled(Round, {0, 0, 120, 120});
  EXPECT_LE(Distance(Picture.GetPixel(40, 40), Blue), 10);
  EXPECT_LE(Distance(Picture.GetPixel(108, 40), Red), 10);
  // From the centre point (40, 40) to the right end (110, 40) of the ellipse, halfway.
  EXPECT_LE(Distance(Picture.GetPixel(75, 40), 0xFF800080), 6);
  EXPECT_EQ(Picture.GetPixel(5, 40), 0u) << "nothing is painted outside";
  EXPECT_EQ(Picture.GetPixel(60, 80), 0u);

  const PointF Corners[] = {{10, 100}, {60, 10}, {110, 100}};
  PathGradientBrush Triangle{std::span<const PointF>(Corners)};
  const ARGB Surround[] = {Red, Green, Blue};
  Triangle.SetSurroundColors(Surround);
  Triangle.SetCenterColor(White);
  Triangle.SetCenterPoint({60, 70});
  const Bitmap Fan = Filled(Triangle, {0, 0, 120, 120});
  EXPECT_LE(Distance(Fan.GetPixel(60, 70), White), 8);
  EXPECT_LE(Distance(Fan.GetPixel(60, 99), 0xFF800080), 8) << "halfway between two corners";
  EXPECT_LE(Distance(Fan.GetPixel(60, 40), 0xFF80FF80), 8) << "halfway from a corner to the centre";
  EXPECT_EQ(Fan.GetPixel(20, 20), 0u);
}

TEST(PathGradientBrushTest, DegenerateShapesEndInBoundedTime) {
  const PointF Far[] = {{-1e9f, 0}, {1e9f, 1e9f}, {5, -1e9f}};
  const PointF Same[] = {{5, 5}, {5, 5}};
  const PointF Broken[] = {{0, 0}, {std::nanf(""), 5}, {9, 9}};
  for (const std::span<const PointF> Points :
       {std::span<const PointF>(Far), std::span<const PointF>(Same), std::span<const PointF>(Broken)})
    Filled(PathGradientBrush(Points), {0, 0, 50, 50});
  Filled(PathGradientBrush(GraphicsPath()), {0, 0, 50, 50});
  EXPECT_THROW(PathGradientBrush(std::span<const PointF>(Far, 1)), ERangeError);
}

TEST(GraphicsPathTest, FiguresHaveTheirAreasAndFillModes) {
  GraphicsPath Path;
  Path.AddRectangle({0, 0, 30, 30});
  Path.AddRectangle({10, 10, 10, 10});
  EXPECT_FALSE(Path.IsVisible({15, 15}));
  Path.SetFillMode(FillModeWinding);
  EXPECT_TRUE(Path.IsVisible({15, 15}));
  EXPECT_EQ(Path.GetBounds(), (RectF{0, 0, 30, 30}));

  GraphicsPath Arc;  // an arc is joined to what is open, and angles run clockwise: 0 to 90 is the lower right quarter
  Arc.AddLine(0, 50, 50, 50);
  Arc.AddArc({0, 0, 100, 100}, 0, 90);
  Arc.CloseFigure();
  const auto Figures = Arc.Flatten();
  ASSERT_EQ(Figures.size(), 1u);
  EXPECT_TRUE(Arc.IsVisible({70, 70}));
  EXPECT_FALSE(Arc.IsVisible({30, 30}));
  for (const PointF& Point : Figures.front()) {
    if (Point.X > 50.01f) {
      EXPECT_NEAR(std::hypot(Point.X - 50, Point.Y - 50), 50, 0.06);
    }
  }

  GraphicsPath Line;
  Line.AddLine(10, 10, 60, 10);
  Line.Widen(Pen(Black, 8));
  EXPECT_EQ(Line.GetBounds(), (RectF{10, 6, 50, 8}));
  GraphicsPath Text;
  Text.AddString("Hy", "Arial", {}, 40, {100, 200});
  EXPECT_NEAR(Text.GetBounds().X, 103, 3);
  EXPECT_GT(Text.GetBounds().Y, 200);
  EXPECT_LT(Text.GetBounds().Y + Text.GetBounds().Height, 250);
  const auto Copy = Path.Clone();
  Path.Reset();
  EXPECT_TRUE(Path.IsEmpty());
  EXPECT_FALSE(Copy->IsEmpty());
  Path.AddLine(std::nanf(""), 0, 1, 1);
  Path.AddEllipse({0, 0, std::numeric_limits<float>::infinity(), 1});
  EXPECT_TRUE(Path.IsEmpty());
}

TEST(PenTest, ShapesAtTheEndsLieOnTheLine) {
  GraphicsPath Head;  // a solid triangle, 4 widths long and as wide, with its tip on the line's end
  const PointF Corners[] = {{2, -4}, {0, 0}, {-2, -4}};
  Head.AddPolygon(Corners);
  Pen Arrow(Red, 5);
  Arrow.SetCustomEndCap(CustomLineCap(&Head, nullptr, LineCapFlat, 4));
  for (const bool Turned : {false, true}) {
    Bitmap Picture(120, 120);
    {
      Graphics Canvas(Picture);
      Canvas.SetSmoothingMode(SmoothingModeAntiAlias);
      Turned ? Canvas.DrawLine(Arrow, 50, 110, 50, 10) : Canvas.DrawLine(Arrow, 10, 50, 110, 50);
    }
    const auto At = [&](int Along, int Across) {
      return Turned ? Picture.GetPixel(50 + Across, 120 - Along) : Picture.GetPixel(Along, 50 + Across);
    };
    EXPECT_EQ(At(50, 0), Red);
    EXPECT_EQ(At(50, 5), 0u) << "the line is 5 wide";
    EXPECT_EQ(At(92, 7), Red) << "the head is 20 wide at its base, 20 before the tip";
    EXPECT_EQ(At(92, -7), Red);
    EXPECT_EQ(At(104, 5), 0u);
    EXPECT_EQ(At(112, 0), 0u) << "nothing lies beyond the end";
  }
}

TEST(PenTest, DrawsWithABrush) {
  Bitmap Picture(120, 40);
  {
    Graphics Canvas(Picture);
    Canvas.SetSmoothingMode(SmoothingModeAntiAlias);
    Canvas.DrawLine(Pen(LinearGradientBrush(RectF{10, 0, 100, 40}, Black, White, 0), 10), 10, 20, 110, 20);
  }
  EXPECT_LE(Distance(Picture.GetPixel(60, 20), 0xFF808080), 4);
  EXPECT_LE(Distance(Picture.GetPixel(85, 22), 0xFFC0C0C0), 4);
}

}  // namespace
}  // namespace zy
