#include "graph/ZyDrawing.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <numbers>

#include "drawing/Pixels.h"
#include "platform/drawing/Bitmap.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Pen.h"
#include "platform/drawing/TRecordingGraphics.h"

namespace zy::testing {
namespace {

using TCalls = std::vector<std::string>;

constexpr TZyColor Gray = 0xFF808080;
constexpr TZyColor Black = 0xFF000000;

/// A picture with all its pixels set by one drawing.
Bitmap Picture(int Width, int Height, const std::function<void(Graphics&)>& Draw) {
  Bitmap Result(Width, Height);
  Graphics Gr(Result);
  Draw(Gr);
  return Result;
}

/// Columns of the first and the last pixel of a row that is more than half covered; {-1, -1} for none.
std::pair<int, int> SpanOfRow(const Bitmap& Picture, int Y) {
  std::pair<int, int> Span{-1, -1};
  for (int X = 0; X < Picture.GetWidth(); ++X) {
    if (GetAlpha(Picture.GetPixel(X, Y)) < 128) continue;
    if (Span.first < 0) Span.first = X;
    Span.second = X;
  }
  return Span;
}

std::pair<int, int> SpanOfColumn(const Bitmap& Picture, int X) {
  std::pair<int, int> Span{-1, -1};
  for (int Y = 0; Y < Picture.GetHeight(); ++Y) {
    if (GetAlpha(Picture.GetPixel(X, Y)) < 128) continue;
    if (Span.first < 0) Span.first = Y;
    Span.second = Y;
  }
  return Span;
}

// ---- Rectangles ----

TEST(Drawing, OrdersCornersAndKeepsRectanglesFromBeingEmpty) {
  EXPECT_EQ(OrderedRect(9, 2, 4, 7), (TRect{4, 2, 9, 7}));
  EXPECT_EQ(OrderedRect(4.0f, 7.5f, 9.0f, 2.0f), (RectF{4, 2, 5, 5.5f}));
  EXPECT_EQ(OrderedRect(3.0f, 4.0f, 3.0f, 4.0f), (RectF{3, 4, 0.0001f, 0.0001f}));
  EXPECT_EQ(TRectToRectF({1, 2, 11, 22}), (RectF{1, 2, 10, 20}));
}

TEST(Drawing, RectanglesOverlapByTheEdgesOfTheFirst) {
  const RectF A{0, 0, 10, 10};
  EXPECT_TRUE(RectanglesOverlaping(A, {5, 5, 20, 20}));
  EXPECT_TRUE(RectanglesOverlaping(A, {10, 10, 5, 5}));
  EXPECT_FALSE(RectanglesOverlaping(A, {10.1f, 0, 5, 5}));
  EXPECT_FALSE(RectanglesOverlaping(A, {0, -5.1f, 5, 5}));
  EXPECT_FALSE(RectanglesOverlaping(A, {2, 2, 3, 3}));
  EXPECT_TRUE(RectanglesOverlaping({2, 2, 3, 3}, A));
}

// ---- Point symbols ----

TEST(Drawing, DrawsEachSymbolAroundItsPlace) {
  const std::string P = "(pen FF0000FF 1, ", B = "(FF00FF00, ";
  const TCalls Cross = {"DrawLine" + P + "20 30, 25 30)", "DrawLine" + P + "20 30, 15 30)",
                        "DrawLine" + P + "20 30, 20 35)", "DrawLine" + P + "20 30, 20 25)"};
  TCalls Star = Cross;
  for (const char* End : {"23.54 33.54)", "16.46 33.54)", "23.54 26.46)", "16.46 26.46)"})
    Star.push_back("DrawLine" + P + "20 30, " + End);
  const auto Polygon = [&](const std::string& Corners) {
    return TCalls{"FillPolygon" + B + Corners + ")", "DrawPolygon" + P + Corners + ")"};
  };
  const std::pair<TZyPointSymbol, TCalls> Cases[] = {
      {TZyPointSymbol::Dot, {"FillRectangle(FF0000FF, 20 30 1 1)"}},
      {TZyPointSymbol::Cross, Cross},
      {TZyPointSymbol::Ex,
       {"DrawLine" + P + "20 30, 25 35)", "DrawLine" + P + "20 30, 15 35)", "DrawLine" + P + "20 30, 25 25)",
        "DrawLine" + P + "20 30, 15 25)"}},
      {TZyPointSymbol::Star, Star},
      {TZyPointSymbol::FiveStar, Polygon("20 24.8, 21.35 28.5, 25 28.5, 22 30.6, 23.2 34.1, 20 32, 16.8 34.1, 18 30.6, "
                                         "15 28.5, 18.65 28.5")},
      {TZyPointSymbol::Circle, {"FillEllipse" + B + "15 25 10 10)", "DrawEllipse" + P + "15 25 10 10)"}},
      {TZyPointSymbol::Square, Polygon("15 25, 25 25, 25 35, 15 35")},
      {TZyPointSymbol::Diamond, Polygon("20 25, 25 30, 20 35, 15 30")},
      {TZyPointSymbol::Delta, Polygon("20 24.23, 25 32.89, 15 32.89")},
      {TZyPointSymbol::Nabla, Polygon("15 27.11, 25 27.11, 20 35.77")}};
  for (const auto& [Symbol, Calls] : Cases) {
    TRecordingGraphics Gr;
    DrawPointSymbol(Gr, Pen(0xFF0000FF), SolidBrush(0xFF00FF00), 20, 30, 11, Symbol);
    EXPECT_EQ(Gr.Calls(), Calls) << static_cast<int>(Symbol);
  }
}

TEST(Drawing, AWidePenMakesTheSymbolSmallerAndTheDotLarger) {
  const SolidBrush Fill(Black);
  const auto Calls = [&](float Width, float Size, TZyPointSymbol Symbol) {
    TRecordingGraphics Gr;
    DrawPointSymbol(Gr, Pen(Black, Width), Fill, 20, 30, Size, Symbol);
    return Gr.Calls().front();
  };
  EXPECT_EQ(Calls(3, 11, TZyPointSymbol::Circle), "FillEllipse(FF000000, 16 26 8 8)");
  EXPECT_EQ(Calls(0, 11, TZyPointSymbol::Circle), "FillEllipse(FF000000, 15 25 10 10)");
  EXPECT_EQ(Calls(0, 11, TZyPointSymbol::Dot), "FillRectangle(FF000000, 20 30 1 1)");
  for (const float Size : {0.0f, 3.0f, 40.0f})
    EXPECT_EQ(Calls(3, Size, TZyPointSymbol::Dot), "FillRectangle(FF000000, 19 29 3 3)");
}

TEST(Drawing, ADotLiesOnThePixelsOfALineThroughIt) {
  const Bitmap Dot = Picture(9, 9, [](Graphics& Gr) {
    Gr.SetSmoothingMode(SmoothingModeAntiAlias);
    DrawPointSymbol(Gr, Pen(Black, 3), SolidBrush(Black), 4, 4, 1, TZyPointSymbol::Dot);
  });
  for (int X = 0; X < 9; ++X) EXPECT_EQ(Dot.GetPixel(X, 4), X >= 3 && X <= 5 ? Black : 0) << X;
}

TEST(Drawing, ManySymbolsLookLikeEachByItself) {
  const PointF Points[] = {{20, 20}, {26, 23}, {60.25f, 19.75f}, {59, 40}};
  const HatchBrush Hatch(HatchStyleCross, 0xFF00FF00, 0xFFFFFFFF);
  const SolidBrush Solid(0x8000FF00);
  for (int Index = 0; Index <= static_cast<int>(TZyPointSymbol::Nabla); ++Index) {
    const auto Symbol = static_cast<TZyPointSymbol>(Index);
    for (const Brush* const Fill : {static_cast<const Brush*>(&Solid), static_cast<const Brush*>(&Hatch)}) {
      const auto Draw = [&](bool AtOnce) {
        return Picture(90, 70, [&](Graphics& Gr) {
          Gr.Clear(Colors::White);
          Gr.SetSmoothingMode(SmoothingModeAntiAlias);
          const Pen Line(0xC00000FF, 3);
          if (AtOnce) return DrawPointSymbols(Gr, Line, *Fill, Points, 23, Symbol);
          for (const PointF& Point : Points) DrawPointSymbol(Gr, Line, *Fill, Point.X, Point.Y, 23, Symbol);
        });
      };
      const Bitmap AtOnce = Draw(true), OneByOne = Draw(false);
      for (int Y = 0; Y < 70; ++Y)
        for (int X = 0; X < 90; ++X)
          ASSERT_LE(Distance(AtOnce.GetPixel(X, Y), OneByOne.GetPixel(X, Y)), 4) << Index << " at " << X << " " << Y;
    }
  }
}

TEST(Drawing, FilledSymbolsCutAHoleOfTheirShape) {
  for (int Index = 0; Index <= static_cast<int>(TZyPointSymbol::Nabla); ++Index) {
    const auto Symbol = static_cast<TZyPointSymbol>(Index);
    const bool HasInside = Symbol >= TZyPointSymbol::FiveStar;
    const Bitmap Hole = Picture(41, 41, [&](Graphics& Gr) {
      ExcludeSymbolSpace(Gr, 20, 20, 21, Symbol);
      EXPECT_EQ(Gr.GetClip().IsInfinite(), !HasInside) << Index;
      Gr.FillRectangle(SolidBrush(Black), 0, 0, 41, 41);
    });
    const Bitmap Solid = Picture(41, 41, [&](Graphics& Gr) {
      Gr.SetSmoothingMode(SmoothingModeAntiAlias);
      if (HasInside) DrawPointSymbol(Gr, Pen(0x00000000), SolidBrush(Black), 20, 20, 21, Symbol);
    });
    for (int Y = 0; Y < 41; ++Y)
      for (int X = 0; X < 41; ++X)
        ASSERT_NEAR(static_cast<int>(GetAlpha(Hole.GetPixel(X, Y))),
                    255 - static_cast<int>(GetAlpha(Solid.GetPixel(X, Y))), 24)
            << Index << " at " << X << " " << Y;
  }
}

// ---- Bars ----

TEST(Drawing, ABarHasThreeShadedFaces) {
  TRecordingGraphics Gr;
  Draw3DBar(Gr, Black, Gray, 30, 60, 10, 20, -8, 4);
  const std::string Front = "linear 9 39.5 to 30 39.5 0:FF9A9A9A 0.5:FF808080 1:FF666666";
  const std::string FrontFrame = "linear 9 39.5 to 30 39.5 0:FF000000 0.5:FF000000 1:FF000000";
  const std::string Top = "10 20, 30 20, 38 16, 18 16)", Side = "30 20, 38 16, 38 56, 30 60)";
  const TCalls Expected = {"FillPolygon(" + Front + ", 10 20, 18 16, 38 16, 38 56, 30 60, 10 60)",
                           "FillPolygon(" + Front + ", 10 20, 30 20, 30 60, 10 60)",
                           "DrawRectangle(pen " + FrontFrame + " 1, 10 20 20 40)",
                           "FillPolygon(path 22.67 18.67 FFAAAAAA in FFA6A6A6 FF9A9A9A FF8D8D8D FFA0A0A0, " + Top,
                           "DrawPolygon(pen path 22.67 18.67 FFAAAAAA in FF000000 FF000000 FF000000 FF000000 1, " + Top,
                           "FillPolygon(linear 29 39.5 to 38 39.5 0:FF4D4D4D 0.5:FF404040 1:FF333333, " + Side,
                           "DrawPolygon(pen linear 29 39.5 to 38 39.5 0:FF000000 0.5:FF000000 1:FF000000 1, " + Side};
  EXPECT_EQ(Gr.Calls(), Expected);
}

TEST(Drawing, ATranslucentBarHasNoSilhouetteAndAFramelessOneNoOutline) {
  TRecordingGraphics Gr;
  Draw3DBar(Gr, Colors::Transparent, 0xFE808080, 10, 20, 30, 60, 8, 4, -50, 200);
  ASSERT_EQ(Gr.Calls().size(), 3u);
  EXPECT_EQ(Gr.CallsOf("FillPolygon").size(), 3u);
  EXPECT_EQ(Gr.Calls()[0],
            "FillPolygon(linear -51 39.5 to 150 39.5 0:FE9A9A9A 0.5:FE808080 1:FE666666, 10 20, 30 20, 30 60, 10 60)");
}

TEST(Drawing, TheTopOfABarIsBrightestInside) {
  const Bitmap Bar =
      Picture(120, 80, [](Graphics& Gr) { Draw3DBar(Gr, Colors::Transparent, Gray, 10, 50, 60, 75, 40, 40); });
  const auto Shade = [&](int X, int Y) { return static_cast<int>(GetR(Bar.GetPixel(X, Y))); };
  EXPECT_NEAR(Shade(48, 37), 170, 2);  // near the centre: 1.325
  EXPECT_NEAR(Shade(97, 11), 141, 4);  // corner at the right, behind: 1.1
  EXPECT_NEAR(Shade(53, 11), 160, 4);  // corner at the left, behind: 1.25
}

// ---- Tangent ----

TEST(Drawing, TheTangentHasTheSlope) {
  for (const float A : {0.5f, 6.0f, 40.0f})
    for (const float B : {1.0f, 9.0f})
      for (const float Slope : {-20.0f, -1.5f, -0.01f, 0.3f, 4.0f}) {
        const double Angle = EllipseTangentAngle(A, B, Slope) * std::numbers::pi / 180;
        // Normal of the ellipse x^2 / A^2 + y^2 / B^2 = 1 in the direction of the angle.
        const double NormalX = std::cos(Angle) / (A * A), NormalY = std::sin(Angle) / (B * B);
        const double Along = (-Slope * NormalX + NormalY) / std::hypot(NormalX, NormalY) / std::hypot(Slope, 1);
        EXPECT_NEAR(Along, 0, 1e-3) << A << " " << B << " " << Slope;
        EXPECT_LT(std::cos(Angle), 0);
      }
}

// ---- Cylinders ----

TEST(Drawing, AnUprightCylinderIsDrawnInItsOwnSystem) {
  TRecordingGraphics Gr;
  Matrix Before;
  Before.Translate(100, 200);
  Gr.SetTransform(Before);
  DrawCylinderVertical(Gr, Black, Gray, 30, 100, 10, 40, 0, 8);
  ASSERT_EQ(Gr.Calls().size(), 5u);
  EXPECT_EQ(Gr.Calls()[0], "SetTransform(1 0 0 1, 110 240)");
  EXPECT_TRUE(Gr.Calls()[1].starts_with(
      "FillPath(linear 0 30 to 20 30 0:FF808080 0.25:FFB3B3B3 0.5:FF808080 0.75:FF4D4D4D 1:FF333333, "))
      << Gr.Calls()[1];
  EXPECT_EQ(Gr.Calls()[2], "FillEllipse(linear 10.63 -9.15 to 9.37 1.15 0:FFB3B3B3 1:FF666666, 0 -8 20 8)");
  EXPECT_EQ(Gr.Calls()[3], "FillEllipse(path 6 -1.2 0:00FFFFFF 0.5:3CFFFFFF 1:8CFFFFFF, 0 -8 20 8)");
  EXPECT_EQ(Gr.Calls()[4], "DrawEllipse(pen linear 10.63 -9.15 to 9.37 1.15 0:FF000000 1:FF000000 1, 0 -8 20 8)");
  EXPECT_EQ(Gr.GetTransform(), Before);
}

TEST(Drawing, ALyingCylinderIsDrawnInItsOwnSystem) {
  TRecordingGraphics Gr;
  DrawCylinderHorizontal(Gr, Black, Gray, 10, 40, 70, 60, 8, 0);
  ASSERT_EQ(Gr.Calls().size(), 4u);
  EXPECT_EQ(Gr.Calls()[0], "SetTransform(1 0 0 1, 10 40)");
  EXPECT_TRUE(Gr.Calls()[1].starts_with(
      "FillPath(linear 0 0 to 0 20 0:FF808080 0.35:FFB3B3B3 0.5:FF808080 0.75:FF5A5A5A 1:FF333333, "))
      << Gr.Calls()[1];
  EXPECT_EQ(Gr.Calls()[2], "FillEllipse(linear 57.25 7.54 to 70.75 12.46 0:FF333333 1:FF666666, 60 0 8 20)");
  EXPECT_EQ(Gr.Calls()[3], "DrawEllipse(pen linear 57.25 7.54 to 70.75 12.46 0:FF000000 1:FF000000 1, 60 0 8 20)");
  EXPECT_EQ(Gr.GetTransform(), Matrix());
  Gr.ClearCalls();
  DrawCylinderHorizontal(Gr, Colors::Transparent, Gray, 10, 40, 70, 60, 8, 2);
  EXPECT_EQ(Gr.Calls()[0], "SetTransform(1 -0.25 0 1, 10 40)");
  EXPECT_TRUE(Gr.CallsOf("Draw").empty());
  EXPECT_EQ(Gr.Calls().back().substr(Gr.Calls().back().find_last_of(',')), ", 60 15 8 20)");
}

// The caps of a leaning cylinder are an ellipse sheared by Lean / Depth. Its half extent across the side is
// sqrt(a^2 + (Lean / 2)^2), and the side runs along there.
TEST(Drawing, TheSideOfALeaningCylinderTouchesItsCaps) {
  for (const TZyColor Fill : {Gray, TZyColor{0xFE808080}}) {
    const Bitmap Standing = Picture(100, 140, [&](Graphics& Gr) {
      Gr.SetSmoothingMode(SmoothingModeAntiAlias);
      DrawCylinderVertical(Gr, Colors::Transparent, Fill, 20, 40, 60, 120, 20, 12);
    });
    // Middle at 20 + (40 + 20) / 2 = 50, half extent sqrt(20^2 + 10^2) = 22.36.
    std::pair<int, int> Widest{100, -1};
    for (int Y = 0; Y < 140; ++Y) {
      const auto Span = SpanOfRow(Standing, Y);
      if (Span.first >= 0) Widest = {std::min(Widest.first, Span.first), std::max(Widest.second, Span.second)};
      if (Y >= 50 && Y <= 100) {
        ASSERT_EQ(Span, (std::pair{28, 72})) << Y;
      }
    }
    EXPECT_EQ(Widest, (std::pair{28, 72}));

    const Bitmap Lying = Picture(140, 100, [&](Graphics& Gr) {
      Gr.SetSmoothingMode(SmoothingModeAntiAlias);
      DrawCylinderHorizontal(Gr, Colors::Transparent, Fill, 20, 40, 100, 80, 12, 20);
    });
    // Middle at 40 + (40 - 20) / 2 = 50.
    Widest = {100, -1};
    for (int X = 0; X < 140; ++X) {
      const auto Span = SpanOfColumn(Lying, X);
      if (Span.first >= 0) Widest = {std::min(Widest.first, Span.first), std::max(Widest.second, Span.second)};
      if (X >= 40 && X <= 90) {
        ASSERT_EQ(Span, (std::pair{28, 72})) << X;
      }
    }
    EXPECT_EQ(Widest, (std::pair{28, 72}));
  }
}

TEST(Drawing, TheBandsOfACylinderRunAlongItsSide) {
  for (const float Lean : {0.0f, 9.0f}) {
    const Bitmap Standing = Picture(100, 140, [&](Graphics& Gr) {
      DrawCylinderVertical(Gr, Colors::Transparent, Gray, 20, 40, 60, 120, Lean, 15);
    });
    const auto [Left, Right] = SpanOfRow(Standing, 80);
    for (int X = Left; X <= Right; ++X) {
      EXPECT_NEAR(static_cast<int>(GetR(Standing.GetPixel(X, 60))), static_cast<int>(GetR(Standing.GetPixel(X, 100))),
                  1);
      if (X > Left + 12) {
        EXPECT_LE(GetR(Standing.GetPixel(X, 80)), GetR(Standing.GetPixel(X - 1, 80))) << X;
      }
    }
    const Bitmap Lying = Picture(140, 100, [&](Graphics& Gr) {
      DrawCylinderHorizontal(Gr, Colors::Transparent, Gray, 20, 40, 100, 80, 15, Lean);
    });
    const auto [Top, Bottom] = SpanOfColumn(Lying, 60);
    for (int Y = Top; Y <= Bottom; ++Y) {
      EXPECT_NEAR(static_cast<int>(GetR(Lying.GetPixel(45, Y))), static_cast<int>(GetR(Lying.GetPixel(85, Y))), 1);
      if (Y > Top + 18) {
        EXPECT_LE(GetR(Lying.GetPixel(60, Y)), GetR(Lying.GetPixel(60, Y - 1))) << Y;
      }
    }
    EXPECT_GE(GetR(Lying.GetPixel(60, Top)), 0x80u);
  }
}

TEST(Drawing, ACylinderLooksTheSameInAMovedSystem) {
  const auto Draw = [](Graphics& Gr, float By) {
    Gr.Clear(Colors::White);
    Gr.SetSmoothingMode(SmoothingModeAntiAlias);
    Gr.TranslateTransform(By, By);
    DrawCylinderVertical(Gr, Black, Gray, 10 - By, 40 - By, 40 - By, 90 - By, 9, 15);
    DrawCylinderHorizontal(Gr, Black, Gray, 60 - By, 40 - By, 110 - By, 70 - By, 15, 9);
  };
  const Bitmap Here = Picture(140, 100, [&](Graphics& Gr) { Draw(Gr, 0); });
  const Bitmap Moved = Picture(140, 100, [&](Graphics& Gr) { Draw(Gr, 13); });
  for (int Y = 0; Y < 100; ++Y)
    for (int X = 0; X < 140; ++X) ASSERT_LE(Distance(Here.GetPixel(X, Y), Moved.GetPixel(X, Y)), 2) << X << " " << Y;
}

// ---- Boxes and shadows ----

TEST(Drawing, RoundsCornersByDiameter) {
  const auto Rounded = RoundRectPath({0, 0, 40, 20}, 10);
  EXPECT_FALSE(Rounded->IsVisible({1, 1}));
  EXPECT_TRUE(Rounded->IsVisible({2, 2}));
  EXPECT_FALSE(Rounded->IsVisible({39, 19}));
  EXPECT_EQ(Rounded->GetBounds(), (RectF{0, 0, 40, 20}));
  const auto RoundEnds = RoundRectPath({0, 0, 40, 20}, 100);
  EXPECT_FALSE(RoundEnds->IsVisible({2.5f, 2.5f}));
  EXPECT_TRUE(RoundEnds->IsVisible({3, 3}));
  EXPECT_TRUE(RoundRectPath({0, 0, 40, 20}, 0)->IsVisible({0.1f, 0.1f}));
}

TEST(Drawing, APlainBoxIsCrispAndAFrameExcludesABevel) {
  TRecordingGraphics Gr;
  Gr.SetSmoothingMode(SmoothingModeHighQuality);
  DrawRoundRect(Gr, SolidBrush(Gray), Pen(Black, 2), {10, 20, 40, 30}, 0, true, false, true, true);
  EXPECT_EQ(Gr.Calls(), (TCalls{"FillRectangle(FF808080, 10 20 40 30)", "DrawRectangle(pen FF000000 2, 10 20 40 30)"}));
  EXPECT_EQ(Gr.GetSmoothingMode(), SmoothingModeHighQuality);
  Gr.ClearCalls();
  DrawRoundRect(Gr, SolidBrush(Gray), Pen(Black, 2), {10, 20, 40, 30}, 8, true, false, true, false);
  EXPECT_EQ(Gr.Calls()[0], "SetSmoothingMode(3)");
  EXPECT_EQ(Gr.CallsOf("FillPath(FF808080").size(), 1u);
  EXPECT_EQ(Gr.CallsOf("DrawPath(pen FF000000 2").size(), 1u);
  EXPECT_EQ(Gr.Calls().size(), 3u);
}

// What is filled are the pixels from 10 to 49, which is from 9.5 to 49.5 when centres count.
TEST(Drawing, APlainBevelHasTwoMitredHalves) {
  const auto Calls = [](bool Raised, bool Lowered) {
    TRecordingGraphics Gr;
    DrawRoundRect(Gr, SolidBrush(Gray), Pen(Black), {10, 20, 40, 30}, 0, false, false, Raised, Lowered);
    TCalls Result;
    for (const std::size_t Index : Gr.CallsOf("FillPath")) Result.push_back(Gr.Calls()[Index]);
    return Result;
  };
  const std::string TopLeft = ", 9.5 19.5, 49.5 19.5, 48 21, 11 21, 11 48, 9.5 49.5, 9.5 19.5)";
  const std::string BottomRight = ", 49.5 49.5, 9.5 49.5, 11 48, 48 48, 48 21, 49.5 19.5, 49.5 49.5)";
  const std::string InnerTopLeft = ", 11 21, 48 21, 46.5 22.5, 12.5 22.5, 12.5 46.5, 11 48, 11 21)";
  const std::string InnerBottomRight = ", 48 48, 11 48, 12.5 46.5, 46.5 46.5, 46.5 22.5, 48 21, 48 48)";
  const std::string Light = "FillPath(D2FFFFFF", Shade = "FillPath(5A000000";
  EXPECT_EQ(Calls(true, false), (TCalls{Light + TopLeft, Shade + BottomRight}));
  EXPECT_EQ(Calls(false, true), (TCalls{Shade + TopLeft, Light + BottomRight}));
  EXPECT_EQ(Calls(true, true),
            (TCalls{Light + TopLeft, Shade + BottomRight, Shade + InnerTopLeft, Light + InnerBottomRight}));
  EXPECT_TRUE(Calls(false, false).empty());
}

TEST(Drawing, ARoundBevelFollowsTheOutline) {
  for (const float Rounding : {6.0f, 20.0f, 100.0f}) {
    const Bitmap Box = Picture(60, 60, [&](Graphics& Gr) {
      Gr.SetSmoothingMode(SmoothingModeAntiAlias);
      DrawRoundRect(Gr, SolidBrush(Gray), Pen(Black), {10, 10, 40, 40}, Rounding, false, false, true, false);
    });
    const auto Shade = [&](int X, int Y) { return GetR(Box.GetPixel(X, Y)); };
    EXPECT_GT(Shade(11, 30), 0xC0u);
    EXPECT_GT(Shade(30, 11), 0xC0u);
    EXPECT_LT(Shade(49, 30), 0x60u);
    EXPECT_LT(Shade(30, 49), 0x60u);
    // Inside, and along the diagonal from the top right, there is nothing of it.
    for (int Step = 13; Step <= 46; ++Step) EXPECT_EQ(Shade(Step, 30), 0x80u) << Rounding << " " << Step;
    EXPECT_EQ(GetAlpha(Box.GetPixel(9, 9)), 0u);
  }
}

TEST(Drawing, ABoxTooSmallForABevelHasNone) {
  TRecordingGraphics Gr;
  DrawRoundRect(Gr, SolidBrush(Gray), Pen(Black), {10, 10, 40, 3}, 0, false, false, true, true);
  DrawRoundRect(Gr, SolidBrush(Gray), Pen(Black), {10, 10, 40, 0}, 5, false, true, true, true);
  EXPECT_TRUE(Gr.CallsOf("FillPath(D2FFFFFF").empty());
}

TEST(Drawing, AShadowAddsUpBesideTheShape) {
  TRecordingGraphics Gr;
  GraphicsPath Path;
  Path.AddRectangle({10, 10, 20, 20});
  DrawShadow(Gr, Path, 5, 4);
  const auto Layers = Gr.CallsOf("FillPath(33000000, ");
  ASSERT_EQ(Layers.size(), 6u);
  EXPECT_EQ(Gr.Calls()[Layers.front()], "FillPath(33000000, 11 10.8, 31 10.8, 31 30.8, 11 30.8, 11 10.8)");
  EXPECT_EQ(Gr.Calls()[Layers.back()], "FillPath(33000000, 16 14.8, 36 14.8, 36 34.8, 16 34.8, 16 14.8)");
  EXPECT_EQ(Gr.Calls().front(), "SetClip(not 10 10, 30 10, 30 30, 10 30, 10 10)");
  EXPECT_TRUE(Gr.GetClip().IsInfinite());
  Gr.ClearCalls();
  DrawShadow(Gr, Path, 0.2f, 0.2f);
  EXPECT_EQ(Gr.CallsOf("FillPath(FF000000, ").size(), 2u);
}

TEST(Drawing, NoGapShowsBetweenABoxAndItsShadow) {
  const auto Box = [](bool Shadow) {
    return Picture(60, 60, [&](Graphics& Gr) {
      Gr.SetSmoothingMode(SmoothingModeAntiAlias);
      DrawRoundRect(Gr, SolidBrush(0x80FF0000), Pen(Black), {10, 10, 30, 30}, 0, false, Shadow, false, false);
    });
  };
  const Bitmap With = Box(true), Without = Box(false);
  for (int X = 10; X < 40; ++X) EXPECT_EQ(With.GetPixel(X, 30), Without.GetPixel(X, 30)) << X;
  // Each of the six layers, of 51 / 255, covers the first pixel beside the box.
  EXPECT_NEAR(static_cast<int>(GetAlpha(With.GetPixel(40, 30))), 255 * (1 - std::pow(0.8, 6)), 3);
  EXPECT_EQ(GetAlpha(Without.GetPixel(40, 30)), 0u);
}

}  // namespace
}  // namespace zy::testing
