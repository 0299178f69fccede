#include "graph/shapes/ZyDrawing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>

#include "drawing/Pixels.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Pen.h"
#include "platform/drawing/TRecordingGraphics.h"

namespace zy::testing {
namespace {

using TCalls = std::vector<std::string>;

constexpr TZyColor Gray = 0xFF808080;
constexpr TZyColor Black = 0xFF000000;

/// A smooth picture with all its pixels set by one drawing.
Bitmap Picture(int Width, int Height, const std::function<void(Graphics&)>& Draw) {
  return PictureOf(Width, Height, [&Draw](Graphics& Gr) {
    Gr.SetSmoothingMode(SmoothingModeAntiAlias);
    Draw(Gr);
  });
}

/// The calls of one drawing, without the paths that a gradient fills.
TCalls CallsOf(const std::function<void(Graphics&)>& Draw) {
  TRecordingGraphics Gr;
  Draw(Gr);
  TCalls Result = Gr.Calls();
  for (std::string& Call : Result)
    if (Call.starts_with("FillPath(linear")) Call.resize(Call.find(", "));
  return Result;
}

/// The largest difference of two pictures of one size.
int Difference(const Bitmap& A, const Bitmap& B) {
  int Result = 0;
  for (int Y = 0; Y < A.GetHeight(); ++Y)
    for (int X = 0; X < A.GetWidth(); ++X) Result = std::max(Result, Distance(A.GetPixel(X, Y), B.GetPixel(X, Y)));
  return Result;
}

/// The first and the last of 100 pixels across a cylinder that are more than half covered; {100, -1} for none.
std::pair<int, int> SpanOf(const Bitmap& Picture, bool Lies, int Along) {
  std::pair<int, int> Span{100, -1};
  for (int Across = 0; Across < 100; ++Across) {
    if (GetAlpha(Lies ? Picture.GetPixel(Along, Across) : Picture.GetPixel(Across, Along)) < 128) continue;
    Span = {std::min(Span.first, Across), Across};
  }
  return Span;
}

TEST(Drawing, RectanglesAreNeverEmptyAndOverlapByTheEdgesOfTheFirst) {
  EXPECT_EQ(OrderedRect(9, 2, 4, 7), (TRect{4, 2, 9, 7}));
  EXPECT_EQ(OrderedRect(4.0f, 7.5f, 9.0f, 2.0f), (RectF{4, 2, 5, 5.5f}));
  EXPECT_EQ(OrderedRect(3.0f, 4.0f, 3.0f, 4.0f), (RectF{3, 4, 0.0001f, 0.0001f}));
  EXPECT_EQ(TRectToRectF({1, 2, 11, 22}), (RectF{1, 2, 10, 20}));
  const RectF A{0, 0, 10, 10}, Inside{2, 2, 3, 3};
  for (const RectF& B : {RectF{5, 5, 20, 20}, {10, 10, 5, 5}}) EXPECT_TRUE(RectanglesOverlaping(A, B)) << B.X;
  for (const RectF& B : {RectF{10.1f, 0, 5, 5}, {0, -5.1f, 5, 5}, Inside})
    EXPECT_FALSE(RectanglesOverlaping(A, B)) << B.X;
  EXPECT_TRUE(RectanglesOverlaping(Inside, A));
}

TEST(Drawing, DrawsEachSymbolAroundItsPlace) {
  const std::string P = "(pen FF0000FF 1, ", B = "(FF00FF00, ";
  const auto Lines = [&](std::initializer_list<const char*> Ends) {
    TCalls Result;
    for (const char* End : Ends) Result.push_back("DrawLine" + P + "20 30, " + End + ")");
    return Result;
  };
  const auto Polygon = [&](const std::string& Corners) {
    return TCalls{"FillPolygon" + B + Corners + ")", "DrawPolygon" + P + Corners + ")"};
  };
  const TCalls Cases[] = {
      {"FillRectangle(FF0000FF, 20 30 1 1)"},
      Lines({"25 30", "15 30", "20 35", "20 25"}),
      Lines({"25 35", "15 35", "25 25", "15 25"}),
      Lines({"25 30", "15 30", "20 35", "20 25", "23.54 33.54", "16.46 33.54", "23.54 26.46", "16.46 26.46"}),
      Polygon("20 24.8, 21.35 28.5, 25 28.5, 22 30.6, 23.2 34.1, 20 32, 16.8 34.1, 18 30.6, 15 28.5, 18.65 28.5"),
      {"FillEllipse" + B + "15 25 10 10)", "DrawEllipse" + P + "15 25 10 10)"},
      Polygon("15 25, 25 25, 25 35, 15 35"),
      Polygon("20 25, 25 30, 20 35, 15 30"),
      Polygon("20 24.23, 25 32.89, 15 32.89"),
      Polygon("15 27.11, 25 27.11, 20 35.77")};
  int Symbol = 0;  // dot, cross, ex, star, five star, circle, square, diamond, delta, nabla
  for (const TCalls& Expected : Cases) {
    TRecordingGraphics Gr;
    DrawPointSymbol(Gr, Pen(0xFF0000FF), SolidBrush(0xFF00FF00), 20, 30, 11, static_cast<TZyPointSymbol>(Symbol));
    EXPECT_EQ(Gr.Calls(), Expected) << Symbol;
    ++Symbol;
  }
}

TEST(Drawing, AWidePenMakesTheSymbolSmallerAndTheDotLarger) {
  const std::tuple<float, float, TZyPointSymbol, const char*> Cases[] = {
      {3, 11, TZyPointSymbol::Circle, "FillEllipse(FF000000, 16 26 8 8)"},
      {0, 11, TZyPointSymbol::Circle, "FillEllipse(FF000000, 15 25 10 10)"},
      {0, 11, TZyPointSymbol::Dot, "FillRectangle(FF000000, 20 30 1 1)"},
      {3, 40, TZyPointSymbol::Dot, "FillRectangle(FF000000, 19 29 3 3)"}};
  for (const auto& [Width, Size, Symbol, Call] : Cases) {
    TRecordingGraphics Gr;
    DrawPointSymbol(Gr, Pen(Black, Width), SolidBrush(Black), 20, 30, Size, Symbol);
    EXPECT_EQ(Gr.Calls().front(), Call);
  }
}

TEST(Drawing, ManySymbolsLookLikeEachByItself) {
  const PointF Points[] = {{20, 20}, {26, 23}, {60.25f, 19.75f}, {59, 40}};
  const HatchBrush Hatch(HatchStyleCross, 0xFF00FF00, 0xFFFFFFFF);
  const SolidBrush Solid(0x8000FF00);
  const Pen Line(0xC00000FF, 3);
  for (int Index = 0; Index <= static_cast<int>(TZyPointSymbol::Nabla); ++Index)
    for (const Brush* const Fill : {static_cast<const Brush*>(&Solid), static_cast<const Brush*>(&Hatch)}) {
      const auto Draw = [&](bool AtOnce) {
        return Picture(90, 70, [&](Graphics& Gr) {
          const auto Symbol = static_cast<TZyPointSymbol>(Index);
          Gr.Clear(Colors::White);
          if (AtOnce) return DrawPointSymbols(Gr, Line, *Fill, Points, 23, Symbol);
          for (const PointF& Point : Points) DrawPointSymbol(Gr, Line, *Fill, Point.X, Point.Y, 23, Symbol);
        });
      };
      EXPECT_LE(Difference(Draw(true), Draw(false)), 4) << Index;
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
      if (HasInside) DrawPointSymbol(Gr, Pen(0x00000000), SolidBrush(Black), 20, 20, 21, Symbol);
    });
    for (int Y = 0; Y < 41; ++Y)
      for (int X = 0; X < 41; ++X)
        ASSERT_NEAR(GetAlpha(Hole.GetPixel(X, Y)), 255 - GetAlpha(Solid.GetPixel(X, Y)), 24)
            << Index << " at " << X << " " << Y;
  }
}

TEST(Drawing, ABarHasThreeShadedFaces) {
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
  EXPECT_EQ(CallsOf([](Graphics& Gr) { Draw3DBar(Gr, Black, Gray, 30, 60, 10, 20, -8, 4); }), Expected);
  const Bitmap Painted = Picture(80, 80, [](Graphics& Gr) { Draw3DBar(Gr, Black, 0xFF80FFFF, 40, 20, 60, 60, 8, 4); });
  for (const int X : {50, 55, 60})
    ExpectSpots(Painted, {{X, 16, Black}, {X, 20, Black}, {60, X, Black}, {40, X, Black}}, 40);
  // A translucent one has no silhouette, one without a frame no outline.
  const TCalls Calls =
      CallsOf([](Graphics& Gr) { Draw3DBar(Gr, Colors::Transparent, 0xFE808080, 10, 20, 30, 60, 8, 4, -50, 200); });
  ASSERT_EQ(Calls.size(), 3u);
  for (const std::string& Call : Calls) EXPECT_TRUE(Call.starts_with("FillPolygon")) << Call;
  EXPECT_EQ(Calls[0],
            "FillPolygon(linear -51 39.5 to 150 39.5 0:FE9A9A9A 0.5:FE808080 1:FE666666, 10 20, 30 20, 30 60, 10 60)");
}

TEST(Drawing, ACylinderIsDrawnInItsOwnSystem) {
  const auto Calls = [](const std::function<void(Graphics&)>& Draw) {
    return CallsOf([&](Graphics& Gr) {
      Gr.TranslateTransform(100, 200);
      const Matrix Before = Gr.GetTransform();
      Draw(Gr);
      EXPECT_EQ(Gr.GetTransform(), Before);
    });
  };
  EXPECT_EQ(Calls([](Graphics& Gr) { DrawCylinderVertical(Gr, Black, Gray, 30, 100, 10, 40, 0, 8); }),
            (TCalls{"SetTransform(1 0 0 1, 110 240)",
                    "FillPath(linear 0 30 to 20 30 0:FF808080 0.25:FFB3B3B3 0.5:FF808080 0.75:FF4D4D4D 1:FF333333",
                    "FillEllipse(linear 10.63 -9.15 to 9.37 1.15 0:FFB3B3B3 1:FF666666, 0 -8 20 8)",
                    "FillEllipse(path 6 -1.2 0:00FFFFFF 0.5:3CFFFFFF 1:8CFFFFFF, 0 -8 20 8)",
                    "DrawEllipse(pen linear 10.63 -9.15 to 9.37 1.15 0:FF000000 1:FF000000 1, 0 -8 20 8)"}));
  EXPECT_EQ(Calls([](Graphics& Gr) { DrawCylinderHorizontal(Gr, Black, Gray, 10, 40, 70, 60, 8, 0); }),
            (TCalls{"SetTransform(1 0 0 1, 110 240)",
                    "FillPath(linear 0 0 to 0 20 0:FF808080 0.35:FFB3B3B3 0.5:FF808080 0.75:FF5A5A5A 1:FF333333",
                    "FillEllipse(linear 57.25 7.54 to 70.75 12.46 0:FF333333 1:FF666666, 60 0 8 20)",
                    "DrawEllipse(pen linear 57.25 7.54 to 70.75 12.46 0:FF000000 1:FF000000 1, 60 0 8 20)"}));
  const TCalls Leaning =
      Calls([](Graphics& Gr) { DrawCylinderHorizontal(Gr, Colors::Transparent, Gray, 10, 40, 70, 60, 8, 2); });
  ASSERT_EQ(Leaning.size(), 3u) << "no frame";
  EXPECT_EQ(Leaning.front(), "SetTransform(1 -0.25 0 1, 110 240)");
  EXPECT_TRUE(Leaning.back().ends_with(", 60 15 8 20)")) << Leaning.back();
}

// The caps of a leaning cylinder are an ellipse sheared by Lean / Depth. Its half extent across the side is
// sqrt(a^2 + (Lean / 2)^2), and the side runs along there: 22.36 for 20 and 20, on either side of 50.
TEST(Drawing, TheSideOfALeaningCylinderTouchesItsCaps) {
  for (const TZyColor Fill : {Gray, TZyColor{0xFE808080}})
    for (const bool Lies : {false, true}) {
      const Bitmap Cylinder = Picture(140, 140, [&](Graphics& Gr) {
        if (Lies) return DrawCylinderHorizontal(Gr, Colors::Transparent, Fill, 20, 40, 100, 80, 12, 20);
        DrawCylinderVertical(Gr, Colors::Transparent, Fill, 20, 40, 60, 120, 20, 12);
      });
      for (int Along = 0; Along < 140; ++Along) {
        const auto [First, Last] = SpanOf(Cylinder, Lies, Along);
        const bool IsSide = Along >= 50 && Along <= 90;
        EXPECT_TRUE(IsSide ? First == 28 && Last == 72 : First >= 28 && Last <= 72) << Lies << " " << Along;
      }
    }
}

// Rows count from the edge of a body 20 high that leans by 2 over 8: a slope of 1/4. Colours run across it, turned and
// then moved by the height: at a row they have gone (row + 20 / 4) / (22 sqrt(1 + 1/16)) of their way.
TEST(Drawing, TheBandsOfALeaningLyingCylinderLieAlongItsSide) {
  const Bitmap Cylinder = Picture(
      140, 60, [](Graphics& Gr) { DrawCylinderHorizontal(Gr, Colors::Transparent, Gray, 10, 20, 110, 40, 8, 2); });
  const std::pair<double, double> Shades[] = {{0, 128}, {0.35, 179}, {0.5, 128}, {0.75, 90}, {1, 51}, {2, 51}};
  for (const int Row : {1, 4, 8, 12, 17, 18})
    for (const int X : {40, 90}) {
      const double Way = (Row + 5) / (22 * std::sqrt(1 + 1.0 / 16));
      std::size_t To = 1;
      while (Shades[To].first <= Way) ++To;
      const auto [From, Shade] = Shades[To - 1];
      const double Expected = Shade + (Shades[To].second - Shade) * (Way - From) / (Shades[To].first - From);
      EXPECT_NEAR(GetR(Cylinder.GetPixel(X, 20 + Row)), Expected, 3) << Row << " " << X;
    }
}

TEST(Drawing, RoundsCornersByDiameter) {
  const auto Rounded = RoundRectPath({0, 0, 40, 20}, 10), RoundEnds = RoundRectPath({0, 0, 40, 20}, 100);
  EXPECT_TRUE(Rounded->IsVisible({2, 2}) && RoundEnds->IsVisible({3, 3}));
  EXPECT_FALSE(Rounded->IsVisible({1, 1}) || Rounded->IsVisible({39, 19}) || RoundEnds->IsVisible({2.5f, 2.5f}));
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
  ASSERT_EQ(Gr.Calls().size(), 3u);
  EXPECT_EQ(Gr.Calls()[0], "SetSmoothingMode(3)");
  EXPECT_TRUE(Gr.Calls()[1].starts_with("FillPath(FF808080")) << Gr.Calls()[1];
  EXPECT_TRUE(Gr.Calls()[2].starts_with("DrawPath(pen FF000000 2")) << Gr.Calls()[2];
}

// What is filled are the pixels from 10 to 49, which is from 9.5 to 49.5 when centres count.
TEST(Drawing, APlainBevelHasTwoMitredHalves) {
  const auto Bevel = [](const RectF& Box, float Rounding, bool Raised, bool Lowered) {
    TCalls Calls = CallsOf([&](Graphics& Gr) {
      DrawRoundRect(Gr, SolidBrush(Gray), Pen(Black), Box, Rounding, false, false, Raised, Lowered);
    });
    std::erase_if(Calls, [](const std::string& Call) {
      return !Call.starts_with("FillPath") || Call.starts_with("FillPath(FF");
    });
    return Calls;
  };
  const std::string TopLeft = ", 9.5 19.5, 49.5 19.5, 48 21, 11 21, 11 48, 9.5 49.5, 9.5 19.5)";
  const std::string BottomRight = ", 49.5 49.5, 9.5 49.5, 11 48, 48 48, 48 21, 49.5 19.5, 49.5 49.5)";
  const std::string InnerTopLeft = ", 11 21, 48 21, 46.5 22.5, 12.5 22.5, 12.5 46.5, 11 48, 11 21)";
  const std::string InnerBottomRight = ", 48 48, 11 48, 12.5 46.5, 46.5 46.5, 46.5 22.5, 48 21, 48 48)";
  const std::string Light = "FillPath(D2FFFFFF", Shade = "FillPath(5A000000";
  const RectF Box{10, 20, 40, 30};
  EXPECT_EQ(Bevel(Box, 0, true, false), (TCalls{Light + TopLeft, Shade + BottomRight}));
  EXPECT_EQ(Bevel(Box, 0, false, true), (TCalls{Shade + TopLeft, Light + BottomRight}));
  EXPECT_EQ(Bevel(Box, 0, true, true),
            (TCalls{Light + TopLeft, Shade + BottomRight, Shade + InnerTopLeft, Light + InnerBottomRight}));
  EXPECT_EQ(Bevel(Box, 0, false, false), TCalls{});
  EXPECT_EQ(Bevel({10, 10, 40, 3}, 0, true, true), TCalls{}) << "too small";
  EXPECT_EQ(Bevel({10, 10, 40, 0}, 5, true, true), TCalls{}) << "too small";
}

TEST(Drawing, ARoundBevelFollowsTheOutline) {
  for (const float Rounding : {6.0f, 100.0f}) {
    const Bitmap Box = Picture(60, 60, [&](Graphics& Gr) {
      DrawRoundRect(Gr, SolidBrush(Gray), Pen(Black), {10, 10, 40, 40}, Rounding, false, false, true, false);
    });
    const auto Shade = [&](int X, int Y) { return GetR(Box.GetPixel(X, Y)); };
    EXPECT_GT(std::min(Shade(11, 30), Shade(30, 11)), 0xC0u);
    EXPECT_LT(std::max(Shade(49, 30), Shade(30, 49)), 0x60u);
    for (int X = 13; X <= 46; ++X) EXPECT_EQ(Shade(X, 30), 0x80u) << Rounding << " " << X;
    EXPECT_EQ(GetAlpha(Box.GetPixel(9, 9)), 0u);
  }
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

TEST(Drawing, ManyLayersOfAShadowInOneGoAreThoseOneByOne) {
  const auto Shadow = [](bool IsOneByOne) {
    return Picture(200, 160, [&](Graphics& Gr) {
      Gr.SetSmoothingMode(SmoothingModeAntiAlias);
      GraphicsPath Ring;
      Ring.AddArc({10.3f, 12.6f, 150, 100}, 30, 300);
      Ring.AddArc({60.3f, 42.6f, 50, 40}, 330, -300);
      Ring.CloseFigure();
      DrawShadow(Gr, Ring, 20.4f, 20.4f, IsOneByOne);
    });
  };
  const Bitmap InOneGo = Shadow(false), OneByOne = Shadow(true);
  int Darkest = 0;
  for (int Y = 0; Y < 160; ++Y)
    for (int X = 0; X < 200; ++X) {
      const auto Alpha = static_cast<int>(GetAlpha(InOneGo.GetPixel(X, Y)));
      Darkest = std::max(Darkest, Alpha);
      ASSERT_NEAR(Alpha, static_cast<int>(GetAlpha(OneByOne.GetPixel(X, Y))), 5) << X << ' ' << Y;
    }
  EXPECT_GT(Darkest, 120);
}

}  // namespace
}  // namespace zy::testing
