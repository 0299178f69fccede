// Clips: boxes, paths and thousands of holes, saved and restored.

#include <gtest/gtest.h>

#include <functional>

#include "drawing/Pixels.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Font.h"
#include "platform/drawing/Pen.h"

namespace zy {
namespace {

constexpr ARGB Red = 0xFFFF0000;
const SolidBrush Fill(Red);

Region Circle(float X, float Y, float Radius) {
  GraphicsPath Path;
  Path.AddEllipse({X - Radius, Y - Radius, 2 * Radius, 2 * Radius});
  return Region(Path);
}

TEST(ClipTest, EveryCallKeepsOutOfHolesAndInsidePaths) {
  const RectF Wide{-100, -100, 300, 300};
  GraphicsPath Path;
  Path.AddRectangle(Wide);
  const Bitmap Patch = PictureOf(10, 10, [](Graphics& Canvas) { Canvas.Clear(Red); });
  const LinearGradientBrush Gradient(PointF{0, 0}, PointF{100, 0}, Red, Red);
  const std::function<void(Graphics&)> Calls[] = {
      [&](Graphics& Canvas) { Canvas.FillRectangle(Fill, Wide); },
      [&](Graphics& Canvas) { Canvas.FillEllipse(Fill, Wide); },
      [&](Graphics& Canvas) { Canvas.DrawLine(Pen(Red, 200), 0, 50, 100, 50); },
      [&](Graphics& Canvas) { Canvas.FillPie(Fill, Wide, 0, 360); },
      [&](Graphics& Canvas) { Canvas.FillPath(Fill, Path); },
      [&](Graphics& Canvas) { Canvas.DrawImage(Patch, Wide); },
      [&](Graphics& Canvas) { Canvas.Clear(Red); },
      [&](Graphics& Canvas) { Canvas.FillRectangle(Gradient, Wide); },
      [&](Graphics& Canvas) { Canvas.DrawString("████████", Font("DejaVu Sans", 150), Fill, -50, -80); }};
  for (const bool Smooth : {true, false})
    for (const auto& Call : Calls) {
      SCOPED_TRACE(testing::Message() << "call " << &Call - Calls);
      const auto Draw = [&](Graphics& Canvas) {
        if (Smooth) Canvas.SetSmoothingMode(SmoothingModeAntiAlias);
        Canvas.SetClip(Circle(50, 50, 40));
        Canvas.ExcludeClip(Circle(40, 50, 10));
        Canvas.ExcludeClip(Circle(50, 50, 10));  // overlaps the first
        Canvas.ExcludeClip(RectF{70, 45, 5, 10});
        Call(Canvas);
      };
      const Bitmap Picture = PictureOf(100, 100, Draw);
      ExpectSpots(Picture, {{50, 20, Red}, {50, 80, Red}, {65, 50, Red}, {40, 50, 0}, {45, 50, 0}});
      ExpectSpots(Picture, {{55, 50, 0}, {72, 50, 0}, {5, 5, 0}, {95, 50, 0}});
    }
}

TEST(ClipTest, ASavedClipComesBackExactlyUnderAnyTransform) {
  const Bitmap Picture = PictureOf(100, 100, [](Graphics& Canvas) {
    Canvas.SetClip({10, 10, 50, 50});
    Canvas.ExcludeClip(Circle(30, 30, 8));
    const Region Saved = Canvas.GetClip();
    Canvas.RotateTransform(33);
    Canvas.ExcludeClip(RectF{0, 0, 90, 90});
    Canvas.FillRectangle(Fill, 0, 0, 5, 5);
    Canvas.ResetClip();
    Canvas.SetClip(Saved);
    Canvas.SetTransform({});
    EXPECT_EQ(Canvas.GetClip(), Saved);
    Canvas.FillRectangle(Fill, 0, 0, 100, 100);
  });
  ExpectSpots(Picture, {{10, 10, Red}, {59, 59, Red}, {9, 30, 0}, {60, 30, 0}, {15, 9, 0}, {15, 60, 0}});
  ExpectSpots(Picture, {{21, 30, Red}, {24, 30, 0}, {36, 30, 0}, {39, 30, Red}});
}

TEST(ClipTest, CopiesOfARegionGoTheirOwnWays) {
  Region First;
  First.Intersect(RectF{0, 0, 10, 10}, {});
  Region Second = First;
  Second.Exclude(RectF{1, 1, 2, 2}, {});
  First.Exclude(RectF{5, 5, 2, 2}, {});
  ASSERT_EQ(First.PartCount(), 2u);
  ASSERT_EQ(Second.PartCount(), 2u);
  EXPECT_EQ(First.Parts()[1].Rect, (RectF{5, 5, 2, 2}));
  EXPECT_EQ(Second.Parts()[1].Rect, (RectF{1, 1, 2, 2}));
}

TEST(ClipTest, TenThousandHolesLeaveALineWholeBetweenThem) {
  const Bitmap Picture = PictureOf(1000, 120, [](Graphics& Canvas) {
    Canvas.SetSmoothingMode(SmoothingModeAntiAlias);
    for (int Hole = 0; Hole < 10000; ++Hole)
      Canvas.ExcludeClip(Circle(static_cast<float>(Hole % 100) * 10 + 5, static_cast<float>(Hole / 100) + 10, 3));
    Canvas.DrawLine(Pen(Red, 3), 0, 60, 1000, 60);
    Canvas.DrawLine(Pen(Red, 3), -5, 2, 1000, 2);
  });
  EXPECT_EQ(RowText(Picture, 2, 0, 30), std::string(30, '#')) << "above all holes";
  for (int X = 10; X < 990; X += 10) ExpectSpots(Picture, {{X, 60, Red}, {X + 5, 60, 0}});
}

TEST(ClipTest, ARegionOfSeveralCutsIsExcludedAsAWhole) {
  Region Ring = Circle(50, 50, 30);
  Ring.Exclude(Circle(50, 50, 10), {});
  const auto Draw = [&](Graphics& Canvas) {
    Canvas.ExcludeClip(Ring);
    Canvas.FillRectangle(Fill, 0, 0, 100, 100);
  };
  ExpectSpots(PictureOf(100, 100, Draw), {{50, 50, Red}, {50, 30, 0}, {5, 5, Red}});
}

}  // namespace
}  // namespace zy
