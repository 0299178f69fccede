// Clips: boxes, paths and thousands of holes, saved and restored.

#include <gtest/gtest.h>

#include <functional>

#include "drawing/Pixels.h"
#include "platform/drawing/Bitmap.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Font.h"
#include "platform/drawing/Graphics.h"
#include "platform/drawing/Pen.h"

namespace zy {
namespace {

constexpr ARGB Red = 0xFFFF0000, Blue = 0xFF0000FF;

Region Circle(float X, float Y, float Radius) {
  GraphicsPath Path;
  Path.AddEllipse({X - Radius, Y - Radius, 2 * Radius, 2 * Radius});
  return Region(Path);
}

/// Draws the same under every kind of call, so that none escapes a clip.
void DrawEverything(Graphics& Canvas, int Kind) {
  const SolidBrush Fill(Red);
  const RectF All{0, 0, 100, 100};
  GraphicsPath Path;
  Path.AddRectangle({-5, -5, 110, 110});
  Bitmap Picture(10, 10);
  Graphics(Picture).FillRectangle(Fill, 0, 0, 10, 10);
  const std::function<void()> Calls[] = {
      [&] { Canvas.FillRectangle(Fill, All); },
      [&] {
        Canvas.FillEllipse(Fill, {-50, -50, 200, 200});
      },
      [&] { Canvas.DrawLine(Pen(Red, 200), 0, 50, 100, 50); },
      [&] {
        Canvas.FillPie(Fill, {-100, -100, 300, 300}, 0, 360);
      },
      [&] { Canvas.FillPath(Fill, Path); },
      [&] {
        Canvas.DrawImage(Picture, {-5, -5, 110, 110});
      },
      [&] { Canvas.Clear(Red); },
      [&] {
        Canvas.FillRectangle(LinearGradientBrush(PointF{0, 0}, PointF{100, 0}, Red, Red), All);
      },
      [&] { Canvas.DrawString("████████", Font("DejaVu Sans", 150), Fill, -50, -80); }};
  Calls[Kind]();
}

TEST(ClipTest, EveryCallKeepsOutOfHolesAndInsidePaths) {
  for (const bool Smooth : {true, false})
    for (int Kind = 0; Kind <= 8; ++Kind) {
      Bitmap Picture(100, 100);
      {
        Graphics Canvas(Picture);
        if (Smooth) Canvas.SetSmoothingMode(SmoothingModeAntiAlias);
        Canvas.SetClip(Circle(50, 50, 40));
        Canvas.ExcludeClip(Circle(40, 50, 10));
        Canvas.ExcludeClip(Circle(50, 50, 10));  // overlaps the first
        Canvas.ExcludeClip(RectF{70, 45, 5, 10});
        DrawEverything(Canvas, Kind);
      }
      for (const auto& [X, Y, IsDrawn] :
           {std::tuple(50, 20, true), std::tuple(50, 80, true), std::tuple(40, 50, false), std::tuple(45, 50, false),
            std::tuple(55, 50, false), std::tuple(72, 50, false), std::tuple(65, 50, true), std::tuple(5, 5, false),
            std::tuple(95, 50, false)})
        EXPECT_EQ(Picture.GetPixel(X, Y), IsDrawn ? Red : 0u) << "call " << Kind << " at " << X << ", " << Y;
    }
}

TEST(ClipTest, ASavedClipComesBackExactlyUnderAnyTransform) {
  Bitmap Picture(100, 100), Expected(100, 100);
  for (Bitmap* Target : {&Picture, &Expected}) {
    Graphics Canvas(*Target);
    Canvas.SetClip({10, 10, 50, 50});
    Canvas.ExcludeClip(Circle(30, 30, 8));
    if (Target == &Picture) {
      const Region Saved = Canvas.GetClip();
      Canvas.RotateTransform(33);
      Canvas.ExcludeClip(RectF{0, 0, 90, 90});
      Canvas.FillRectangle(SolidBrush(Blue), 0, 0, 5, 5);
      Canvas.ResetClip();
      Canvas.SetClip(Saved);
      Canvas.SetTransform({});
      EXPECT_EQ(Canvas.GetClip(), Saved);
    }
    Canvas.FillRectangle(SolidBrush(Red), 0, 0, 100, 100);
  }
  for (int Row = 0; Row < 100; ++Row) ASSERT_EQ(RowText(Picture, Row, 0, 100), RowText(Expected, Row, 0, 100)) << Row;
}

TEST(ClipTest, CopiesOfARegionGoTheirOwnWays) {
  Region First;
  First.Intersect(RectF{0, 0, 10, 10}, {});
  Region Second = First;
  Second.Exclude(RectF{1, 1, 2, 2}, {});
  First.Exclude(RectF{5, 5, 2, 2}, {});
  EXPECT_EQ(First.PartCount(), 2u);
  EXPECT_EQ(Second.PartCount(), 2u);
  EXPECT_NE(First, Second);
  EXPECT_EQ(First.Parts()[1].Rect, (RectF{5, 5, 2, 2}));
  EXPECT_EQ(Second.Parts()[1].Rect, (RectF{1, 1, 2, 2}));
}

TEST(ClipTest, TenThousandHolesLeaveALineWholeBetweenThem) {
  Bitmap Picture(1000, 120);
  {
    Graphics Canvas(Picture);
    Canvas.SetSmoothingMode(SmoothingModeAntiAlias);
    for (int Hole = 0; Hole < 10000; ++Hole)
      Canvas.ExcludeClip(Circle(static_cast<float>(Hole % 100) * 10 + 5, static_cast<float>(Hole / 100) + 10, 3));
    Canvas.DrawLine(Pen(Red, 3), 0, 60, 1000, 60);
    Canvas.DrawLine(Pen(Red, 3), -5, 2, 1000, 2);
  }
  EXPECT_EQ(RowText(Picture, 2, 0, 30), std::string(30, '#')) << "above all holes";
  for (int Hole = 1; Hole < 99; ++Hole) {
    EXPECT_EQ(Picture.GetPixel(Hole * 10 + 5, 60), 0u);
    EXPECT_EQ(Picture.GetPixel(Hole * 10, 60), Red);
  }
}

TEST(ClipTest, ARegionOfSeveralCutsIsExcludedAsAWhole) {
  Region Ring = Circle(50, 50, 30);
  Ring.Exclude(Circle(50, 50, 10), {});
  Bitmap Picture(100, 100);
  {
    Graphics Canvas(Picture);
    Canvas.ExcludeClip(Ring);
    Canvas.FillRectangle(SolidBrush(Red), 0, 0, 100, 100);
  }
  EXPECT_EQ(Picture.GetPixel(50, 50), Red);
  EXPECT_EQ(Picture.GetPixel(50, 30), 0u);
  EXPECT_EQ(Picture.GetPixel(5, 5), Red);
}

}  // namespace
}  // namespace zy
