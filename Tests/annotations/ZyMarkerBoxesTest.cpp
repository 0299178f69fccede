// Where the parts of markers stand in their boxes. The rows were worked out by hand.

#include <gtest/gtest.h>

#include "annotations/ZyArrowLabelBox.h"
#include "annotations/ZyCrossHairBox.h"
#include "annotations/ZyLineMarkerBox.h"

namespace zy::testing {
namespace {

using enum TZyContentAlignment;

std::string Text(const TRect& Rect) {
  return std::to_string(Rect.Left) + "," + std::to_string(Rect.Top) + " " + std::to_string(Rect.Right) + "," +
         std::to_string(Rect.Bottom);
}
/// What all boxes have: extent, caption and the point of the text that lies at its anchor.
template <class TBox>
std::string Text(const TBox& Box) {
  return std::to_string(Box.Width) + "x" + std::to_string(Box.Height) + " " + Text(Box.Caption) + " " +
         std::string(EnumInfo(Box.Align).Values[static_cast<std::size_t>(Box.Align)]);
}

TEST(ZyMarkerBoxesTest, LineMarkersAndTheirCaptionsAtEachPlace) {
  const struct {
    bool IsHorizontal, IsVertical;
    TZyContentAlignment Place;
    TPoint Delta;
    std::string Line, Box;
    PointF Anchor;
  } Cases[] = {
      {true, false, TopLeft, {0, 0}, "0,17 200,22", "200x22 0,0 60,20 TopLeft", {0, 0}},
      {true, false, TopRight, {10, 4}, "0,21 200,26", "210x26 150,0 210,20 TopRight", {210, 0}},
      {true, false, MiddleLeft, {3, 0}, "63,8 263,13", "263x20 0,0 60,20 TopRight", {60, 0}},
      {true, false, MiddleRight, {5, 0}, "0,8 200,13", "265x20 205,0 265,20 TopLeft", {205, 0}},
      {true, false, MiddleCenter, {-10, 3}, "0,10 200,15", "200x20 60,0 120,20 TopCenter", {90, 0}},
      {true, false, BottomCenter, {0, 2}, "0,0 200,5", "200x24 70,4 130,24 TopCenter", {100, 4}},
      {true, false, BottomLeft, {-7, 0}, "0,0 200,5", "200x22 7,2 67,22 TopLeft", {7, 2}},
      {true, false, BottomLeft, {7, 0}, "7,0 207,5", "207x22 0,2 60,22 TopLeft", {0, 2}},
      {true, true, TopLeft, {0, 0}, "0,57 200,62", "200x62 0,0 20,60 TopLeft", {0, 60}},
      {true, true, TopRight, {0, -10}, "0,48 200,53", "200x60 180,0 200,60 TopLeft", {180, 60}},
      {true, true, MiddleCenter, {9, 5}, "0,35 200,40", "200x60 90,0 110,60 TopCenter", {90, 30}},
      {true, true, BottomRight, {0, 3}, "0,0 200,5", "200x66 180,6 200,66 TopRight", {180, 5.5f}},
      {false, false, TopLeft, {0, 0}, "58,0 63,200", "63x200 0,0 60,20 TopRight", {60, 0}},
      {false, false, TopCenter, {0, 5}, "28,25 33,225", "60x225 0,0 60,20 TopCenter", {30, 0}},
      {false, false, MiddleRight, {4, -10}, "0,0 5,200", "66x200 6,80 66,100 TopLeft", {6, 80}},
      {false, false, BottomCenter, {-40, 3}, "68,0 73,200", "73x223 0,203 60,223 TopCenter", {30, 203}},
      {false, false, BottomRight, {-11, 0}, "8,0 13,200", "60x200 0,180 60,200 TopLeft", {0, 180}},
      {false, true, TopLeft, {0, 0}, "18,0 23,200", "23x200 0,0 20,60 TopRight", {0, 0}},
  };
  for (const auto& Case : Cases) {
    const TZyLineMarkerBox Box({.IsHorizontal = Case.IsHorizontal,
                                .Length = 200,
                                .HasCaption = true,
                                .Caption = {60, 20},
                                .Delta = Case.Delta,
                                .Place = Case.Place,
                                .IsVertical = Case.IsVertical});
    EXPECT_EQ(Text(Box), Case.Box) << Case.Line;
    EXPECT_EQ(Text(Box.Line), Case.Line) << Case.Box;
    EXPECT_NEAR(Box.Anchor.X, Case.Anchor.X, 0.5) << Case.Box;
    EXPECT_NEAR(Box.Anchor.Y, Case.Anchor.Y, 0.5) << Case.Box;
  }
  const TZyLineMarkerBox Rounded({.IsHorizontal = false,
                                  .Length = 200,
                                  .HasCaption = true,
                                  .Caption = {60.4f, 20},
                                  .Delta = {41, 0},
                                  .Place = TopCenter});
  EXPECT_EQ(Text(Rounded), "74x220 14,0 74,20 TopCenter") << "43.5, 30.2 and what follows from them, at each step";
  EXPECT_EQ(Text(Rounded.Line), "0,20 5,220");
}

TEST(ZyMarkerBoxesTest, CaptionsBeyondAnEndStayInTheParent) {
  const auto BoxOf = [](bool IsHorizontal, TZyContentAlignment Place) {
    return TZyLineMarkerBox({.IsHorizontal = IsHorizontal,
                             .Length = 200,
                             .HasCaption = true,
                             .Caption = {60, 20},
                             .Delta = {},
                             .Place = Place,
                             .Before = 12,
                             .After = 7});
  };
  EXPECT_EQ(Text(BoxOf(true, MiddleLeft).Line), "12,8 212,13");
  EXPECT_EQ(Text(BoxOf(true, MiddleRight).Caption), "147,0 207,20");
  EXPECT_EQ(Text(BoxOf(false, TopCenter).Line), "28,12 33,212");
  EXPECT_EQ(Text(BoxOf(false, BottomCenter).Caption), "0,187 60,207");
}

TEST(ZyMarkerBoxesTest, HandlesOfCrossHairs) {
  using enum TZyXHairCaptionPosition;
  const struct {
    TZyXHairCaptionPosition Place;
    TPoint Delta;
    bool IsVertical;
    int Shadow;
    TPoint Hot;
    PointF Anchor;
    std::string Box;
  } Cases[] = {
      {RightTop, {3, 5}, false, 0, {2, 25}, {9, 16}, "66x28 5,0 65,20 BottomLeft"},
      {RightBottom, {0, -10}, false, 0, {2, 10}, {6, 4}, "63x21 2,0 62,20 TopLeft"},
      {LeftBottom, {0, 0}, false, 5, {60, 2}, {56, 6}, "68x28 0,2 60,22 TopRight"},
      {LeftTop, {-70, 0}, true, 0, {2, 60}, {68, 56}, "73x63 52,0 72,60 BottomLeft"},
  };
  for (const auto& Case : Cases) {
    const TZyCrossHairBox Box({.LineWidth = 3,
                               .HasCaption = true,
                               .Caption = {60, 20},
                               .Border = 4,
                               .Delta = Case.Delta,
                               .Place = Case.Place,
                               .IsVertical = Case.IsVertical,
                               .Shadow = Case.Shadow});
    EXPECT_EQ(Text(Box), Case.Box);
    EXPECT_EQ(Box.HotDelta, Case.Hot) << Case.Box;
    EXPECT_EQ(Box.Anchor, Case.Anchor) << Case.Box;
  }
  const TZyCrossHairBox Bare({.LineWidth = 3, .Caption = {}, .Delta = {}});
  EXPECT_EQ(Bare.HotDelta, (TPoint{8, 8}));
  EXPECT_EQ(Text(Bare).substr(0, 5), "17x17");
}

TEST(ZyMarkerBoxesTest, LabelsInEightDirections) {
  const struct {
    TPoint Arrow;
    int Bent;
    bool IsVertical;
    TPoint Delta, Hot, BentEnd;
    std::string Box;
  } Cases[] = {
      {{30, 0}, 0, false, {}, {0, 24}, {30, 24}, "91x29 30,4 90,24 BottomLeft"},
      {{30, -30}, 0, false, {}, {0, 50}, {30, 20}, "91x51 30,0 90,20 BottomLeft"},
      {{0, -30}, 0, false, {}, {4, 50}, {4, 20}, "69x51 4,0 64,20 BottomLeft"},
      {{-30, -30}, 0, false, {}, {90, 50}, {60, 20}, "91x51 0,0 60,20 BottomRight"},
      {{-30, 0}, 0, false, {}, {90, 24}, {60, 24}, "91x29 0,4 60,24 BottomRight"},
      {{-30, 30}, 0, false, {}, {90, 0}, {60, 30}, "91x51 0,30 60,50 TopRight"},
      {{0, 30}, 0, false, {}, {4, 0}, {4, 30}, "69x51 4,30 64,50 TopLeft"},
      {{30, 30}, 0, false, {}, {0, 0}, {30, 30}, "91x51 30,30 90,50 TopLeft"},
      {{0, 0}, 0, false, {}, {4, 0}, {4, 0}, "69x27 4,0 64,20 TopLeft"},
      {{30, -30}, 12, false, {}, {0, 51}, {42, 21}, "103x52 42,1 102,21 BottomLeft"},
      {{-30, 30}, 12, false, {}, {102, 0}, {60, 30}, "103x52 0,30 60,50 TopRight"},
      {{-30, -30}, 12, true, {}, {51, 102}, {21, 60}, "52x103 1,0 21,60 BottomLeft"},
      {{30, -30}, 0, false, {-50, 0}, {20, 50}, {50, 20}, "61x51 0,0 60,20 BottomLeft"},
  };
  for (const auto& Case : Cases) {
    const TZyArrowLabelBox Box({.Arrow = Case.Arrow,
                                .Bent = Case.Bent,
                                .HasCaption = true,
                                .Caption = {60, 20},
                                .Delta = Case.Delta,
                                .IsVertical = Case.IsVertical});
    EXPECT_EQ(Text(Box), Case.Box);
    EXPECT_EQ(Box.HotDelta, Case.Hot) << Case.Box;
    EXPECT_EQ(Box.BentEnd, Case.BentEnd) << Case.Box;
  }
  const TZyArrowLabelBox Plain(
      {.HasArrow = false, .Arrow = {}, .HasCaption = true, .Caption = {60, 20}, .Delta = {7, 0}});
  EXPECT_EQ(Text(Plain), "68x21 0,0 60,20 TopLeft") << "deltas only make the box larger";
}

TEST(ZyMarkerBoxesTest, NothingSticksOut) {
  const auto Enclosed = [](const auto& Box, const TRect& Other) {
    EXPECT_GE(std::min({Box.Caption.Left, Box.Caption.Top, Other.Left, Other.Top}), 0);
    EXPECT_LE(std::max(Box.Caption.Right, Other.Right), Box.Width);
    EXPECT_LE(std::max(Box.Caption.Bottom, Other.Bottom), Box.Height);
  };
  for (const bool IsVertical : {true, false})
    for (int Place = 0; Place < 9; ++Place)
      for (const TPoint Delta : {TPoint{-70, 70}, {-3, 3}, {0, 0}, {4, -4}, {90, -90}}) {
        for (const bool IsHorizontal : {true, false}) {
          const TZyLineMarkerBox Line({.IsHorizontal = IsHorizontal,
                                       .Length = 200,
                                       .HasCaption = true,
                                       .Caption = {60, 20},
                                       .Delta = Delta,
                                       .Place = static_cast<TZyContentAlignment>(Place),
                                       .IsVertical = IsVertical});
          Enclosed(Line, Line.Line);
          EXPECT_EQ(IsHorizontal ? Line.Line.Width() : Line.Line.Height(), 200);
        }
        for (const float Thick : {1.0f, 9.0f}) {
          const TPoint Arrow{(Place % 3 - 1) * 25, (Place / 3 - 1) * 25};
          const TZyArrowLabelBox Label({.LineWidth = Thick,
                                        .PointHeight = 0.1f,
                                        .Arrow = Arrow,
                                        .Bent = Place * 3,
                                        .HasCaption = true,
                                        .Caption = {60, 20},
                                        .Delta = Delta,
                                        .IsVertical = IsVertical});
          const int Half = static_cast<int>(Thick / 2);
          for (const TPoint End : {Label.HotDelta, Label.End})
            Enclosed(Label, TRect{End.X, End.Y, End.X + 1, End.Y + 1});
          if (Arrow.X == 0) Enclosed(Label, {Label.HotDelta.X - Half, 0, Label.HotDelta.X + Half + 1, 1});
        }
      }
}

}  // namespace
}  // namespace zy::testing
