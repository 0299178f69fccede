#include "pie/ZyPieCalculation.h"

#include <gtest/gtest.h>

#include <algorithm>

#include <cmath>
#include <limits>
#include <numeric>
#include <random>

#include "graph/shapes/ZyDrawing.h"
#include "pie/ZyCalloutBoxes.h"

namespace zy {
namespace {

using enum TZyPieChartType;

struct TPieInput {
  std::vector<double> Values;
  std::vector<double> Explosions = {};
  bool OrderAscending = false;
  TZyPieShape Shape = {};
};

TZyPieCalculation Arranged(const TPieInput& Input) {
  TZyPieCalculation Result(Input.Shape);
  const double Total = std::accumulate(Input.Values.begin(), Input.Values.end(), 0.0);
  for (std::size_t i = 0; i < Input.Values.size(); ++i)
    Result.Add(static_cast<int>(i), Input.Values[i],
               Input.Values[i] * static_cast<double>(Input.Shape.TotalAngle) / Total,
               i < Input.Explosions.size() ? Input.Explosions[i] : 0);
  Result.Arrange(Input.OrderAscending);
  return Result;
}

void ExpectNear(PointF Place, PointF Expected, float Tolerance, const char* What, std::size_t Index) {
  EXPECT_NEAR(Place.X, Expected.X, Tolerance) << What << ' ' << Index;
  EXPECT_NEAR(Place.Y, Expected.Y, Tolerance) << What << ' ' << Index;
}

// Worked out by a program of its own from the description: angles, shifts, overhangs, and the box in a space of pixels.
TEST(ZyPieCalculation, TurnsValuesIntoAnglesShiftsAndABox) {
  struct TRow {
    const char* What;
    TPieInput Input;
    RectF Space;
    std::vector<int> Indices, Order;
    std::vector<float> Starts;
    std::size_t Moved;
    PointF Shift;  // in pixels, of the segment that moved
    TZyPieOverhangs Overhangs;
    RectF Box;
    float Wall;
  };
  const std::vector<double> Six = {10, 20, 12, 35, 50, 6};
  const TRow Rows[] = {
      {"flat",
       {Six},
       {0, 0, 249, 249},
       {0, 1, 2, 3, 4, 5},
       {0, 1, 2, 3, 4, 5},
       {0, 27.06767f, 81.20301f, 113.68421f, 208.42105f, 343.7594f},
       0,
       {0, 0},
       {0, 0, 0.04f, 0.04f},
       {0, 0, 239.42308f, 239.42308f},
       0},
      {"solid with two segments out, one of them by more than all",
       {Six, {0, 25, 0, 0, 150}, false, {.Type = ThreeDPie, .StartAngle = 300}},
       {10, 20, 300, 200},
       {0, 1, 2, 3, 4, 5},
       {4, 5, 0, 1, 2, 3},
       {300, 327.06767f, 21.20301f, 53.68421f, 148.42105f, 283.7594f},
       4,
       {-58.70644f, -42.79413f},
       {0.28282f, 0.41233f, 0.16244f, 0.28f},
       {68.70644f, 74.97321f, 207.57454f, 103.78727f},
       20.75746f},
      {"sorted, three quarters of a turn, without a shadow",
       {Six, {0, 25}, true, {.Type = ThreeDPie, .StartAngle = 20, .TotalAngle = 270, .DropShadow = false}},
       {0, 0, 400, 300},
       {5, 0, 2, 1, 3, 4},
       {5, 4, 0, 1, 2, 3},
       {20, 32.18045f, 52.4812f, 76.84211f, 117.44361f, 188.49624f},
       3,
       {-3.12677f, 24.95107f},
       {0, 0, 0, 0.32476f},
       {0, 17.52447f, 400, 200},
       40}};
  for (const TRow& Row : Rows) {
    SCOPED_TRACE(Row.What);
    TZyPieCalculation Pie = Arranged(Row.Input);
    Pie.FitInto(Row.Space);
    ASSERT_EQ(Pie.Segments().size(), Row.Indices.size());
    for (std::size_t i = 0; i < Row.Indices.size(); ++i) {
      EXPECT_EQ(Pie.Segments()[i].DataIndex, Row.Indices[i]) << i;
      EXPECT_NEAR(Pie.Segments()[i].Start, Row.Starts[i], 1e-3f) << i;
    }
    EXPECT_EQ(Pie.Order(), Row.Order);
    ExpectNear(Pie.Segments()[Row.Moved].Shift, Row.Shift, 2e-3f, "shift", Row.Moved);
    const TZyPieOverhangs& Over = Pie.Overhangs();
    ExpectNear({Over.Left, Over.Top}, {Row.Overhangs.Left, Row.Overhangs.Top}, 1e-4f, "overhang", 0);
    ExpectNear({Over.Right, Over.Bottom}, {Row.Overhangs.Right, Row.Overhangs.Bottom}, 1e-4f, "overhang", 1);
    ExpectNear({Pie.PieRect().X, Pie.PieRect().Y}, {Row.Box.X, Row.Box.Y}, 1e-2f, "corner", 0);
    ExpectNear({Pie.PieRect().Width, Pie.PieRect().Height}, {Row.Box.Width, Row.Box.Height}, 1e-2f, "extent", 0);
    EXPECT_NEAR(Pie.WallHeight(), Row.Wall, 1e-3f);
  }
}

// One that holds all sides keeps its room at that to which it moves, wherever its angles begin.
TEST(ZyPieCalculation, WholePiesThatMoveOutStayWithinTheirSpace) {
  for (int Start = 0; Start < 360; Start += 45) {
    TZyPieCalculation Pie =
        Arranged({{5}, {20}, false, {.StartAngle = static_cast<float>(Start), .DropShadow = false}});
    Pie.FitInto({0, 0, 100, 100});
    const PointF Corner{Pie.PieRect().X + Pie.Segments()[0].Shift.X, Pie.PieRect().Y + Pie.Segments()[0].Shift.Y};
    EXPECT_GE(std::min(Corner.X, Corner.Y), -0.01f) << Start;
    EXPECT_LE(std::max(Corner.X, Corner.Y) + Pie.PieRect().Width, 100.01f) << Start;
  }
}

// From the same program; the last three of the small ones have made room.
TEST(ZyPieCalculation, PutsCalloutsBesideTheRim) {
  TZyPieCalculation Flat = Arranged({{1, 1, 1, 1, 1, 1, 1, 1, 30}});
  Flat.PlaceCallouts({4, 5, 10}, std::vector<SizeF>(9, {3, 1.2f}));
  Flat.FitInto({0, 0, 600, 400});
  const PointF FlatLabels[] = {{485.86607f, 200.20394f}, {481.27836f, 234.34597f}, {470.40426f, 267.14469f},
                               {453.63829f, 297.35899f}, {431.62635f, 323.85805f}, {405.12436f, 345.82207f},
                               {375.43418f, 367.7861f},  {343.66755f, 389.75012f}, {114.13393f, 54.98542f}};
  for (std::size_t i = 0; i < std::size(FlatLabels); ++i) {
    ExpectNear(Flat.Labels()[i], FlatLabels[i], 0.02f, "label", i);
    EXPECT_EQ(Flat.Callouts()[i].Overlayed, i >= 5 && i <= 7) << i;
  }
  EXPECT_NEAR(Flat.Callouts()[7].Bent.Y, (1.03472f + 1) * 366.06707f / 2, 0.02f);  // where the box stood

  TZyPieCalculation Solid = Arranged({{5, 1, 4, 2, 2}, {0, 30}, false, {.Type = ThreeDPie, .StartAngle = 90}});
  Solid.PlaceCallouts({4, 0, 10}, std::vector<SizeF>{{2, 1.2f}, {6, 1.2f}, {3, 2.4f}, {2, 1.2f}, {8, 1.2f}});
  Solid.FitInto({5, 5, 500, 400});
  const PointF SolidLabels[] = {{47.19714f, 337.83305f},
                                {112.17472f, 34.19622f},
                                {309.99462f, 55.16126f},
                                {484.16087f, 299.42865f},
                                {305.22712f, 375.80378f}};
  for (std::size_t i = 0; i < std::size(SolidLabels); ++i)
    ExpectNear(Solid.Labels()[i], SolidLabels[i], 0.02f, "label", i);
}

TEST(ZyPieCalculation, PutsLabelsAtTheGoldenCut) {
  for (const auto& [Type, Radius] : {std::pair{FlatPie, 0.618034f}, {FlatDonut, 0.751722f}}) {
    TZyPieCalculation Pie = Arranged({{1, 1}, {}, false, {.Type = Type, .DropShadow = false}});
    Pie.PlaceInside();
    Pie.FitInto({0, 0, 200, 200});
    ExpectNear(Pie.Labels()[0], {100, 100 + 100 * Radius}, 0.01f, "label", 0);
  }
  EXPECT_EQ(TZyPieCalculation::AlignedAngle(30), -30);
  EXPECT_EQ(TZyPieCalculation::AlignedAngle(100), 80);
  EXPECT_EQ(TZyPieCalculation::AlignedAngle(300), -300);
  EXPECT_EQ(TZyPieCalculation::AlignedAngle(460), 80);  // of a large segment, as at 100
}

TEST(ZyPieCalculation, SweepsAddUpToTheTotalAngle) {
  std::mt19937 Random(7);
  for (int Round = 0; Round < 200; ++Round) {
    TPieInput Input{.Values = std::vector<double>(1 + Random() % 60), .OrderAscending = Random() % 2 == 0};
    for (double& Value : Input.Values)
      Value = std::ldexp(static_cast<double>(1 + Random() % 1000), static_cast<int>(Random() % 20) - 10);
    Input.Shape = {.Type = static_cast<TZyPieChartType>(Random() % 4),
                   .StartAngle = static_cast<float>(Random() % 360)};
    const TZyPieCalculation Pie = Arranged(Input);
    double Sum = 0;
    for (const TZyPieSegment& Segment : Pie.Segments()) Sum += static_cast<double>(Segment.Sweep);
    EXPECT_NEAR(Sum, 360, 1e-3);
    const double Last = static_cast<double>(Pie.Segments().back().Stop() - Input.Shape.StartAngle);
    EXPECT_NEAR(std::remainder(Last, 360.0), 0, 2e-2) << Round;
    std::vector<int> Order = Pie.Order();
    std::ranges::sort(Order);
    for (std::size_t i = 0; i < Order.size(); ++i) EXPECT_EQ(Order[i], static_cast<int>(i));
  }
}

/// All pairs, as the passes are told.
void PushAllPairs(std::vector<RectF>& Boxes, std::vector<bool>& Moved) {
  const auto Count = static_cast<int>(Boxes.size());
  for (const int Way : {1, 1, -1, -1})
    for (int Step = 0; Step < Count; ++Step) {
      const auto i = static_cast<std::size_t>(Way > 0 ? Step : Count - 1 - Step);
      const RectF Box = Boxes[i];
      for (std::size_t j = 0; j < Boxes.size(); ++j) {
        const bool Comes = Way > 0 ? Boxes[j].Y > 0 && Boxes[j].Y >= Box.Y : Boxes[j].Y < 0 && Boxes[j].Y <= Box.Y;
        if (j == i || !Comes || !RectanglesOverlaping(Box, Boxes[j])) continue;
        Boxes[j].Y = Box.Y + static_cast<float>(Way) * Box.Height;
        Moved[j] = true;
      }
    }
}

TEST(ZyCalloutBoxes, MoveAsIfAllPairsWereCompared) {
  std::mt19937 Random(11);
  const auto Real = [&Random](double Low, double High) {
    return static_cast<float>(std::uniform_real_distribution<double>(Low, High)(Random));
  };
  for (int Round = 0; Round < 300; ++Round) {
    std::vector<RectF> Boxes(Random() % 80);
    const float Widest = Real(0, 1.5), Highest = Real(0, 0.6);
    for (RectF& Box : Boxes) Box = {Real(-1.5, 1.5), Real(-1.5, 1.5), Real(0, 1) * Widest, Real(0, 1) * Highest};
    if (!Boxes.empty()) Boxes[Random() % Boxes.size()].Y = 0;
    std::vector<RectF> Expected = Boxes;
    std::vector<bool> Moved(Boxes.size()), MovedToo(Boxes.size());
    PushCalloutsApart(Boxes, Moved);
    PushAllPairs(Expected, MovedToo);
    ASSERT_EQ(Boxes, Expected) << Round;
    ASSERT_EQ(Moved, MovedToo) << Round;
  }
}

// In their order down the right side, where all lie above each other, nothing is in the way of what comes later.
TEST(ZyPieCalculation, CalloutsDownTheRightSideNeverOverlap) {
  std::mt19937 Random(3);
  for (int Round = 0; Round < 200; ++Round) {
    TPieInput Input{.Values = std::vector<double>(1 + Random() % 60)};
    for (double& Value : Input.Values) Value = static_cast<double>(1 + Random() % 100);
    Input.Shape = {.Type = Round % 2 == 0 ? FlatPie : ThreeDDonut, .StartAngle = 330, .TotalAngle = 60};
    TZyPieCalculation Pie = Arranged(Input);
    const TZyCalloutLook Look{3 + static_cast<float>(Random() % 8), 0, 10};
    const SizeF Extent{5 + static_cast<float>(Random() % 9), 1.2f};
    Pie.PlaceCallouts(Look, std::vector<SizeF>(Input.Values.size(), Extent));
    const float Squeeze = Input.Shape.Squeeze(), Padding = 10 * Look.LabelSize * 0.0002f;
    const float Width = 2 * (Extent.Width * Look.LabelSize * 0.01f + Padding);
    const float Height = 2 * (Extent.Height * Look.LabelSize * 0.01f + Padding) / Squeeze;
    for (std::size_t i = 0; i < Pie.Labels().size(); ++i)
      for (std::size_t j = 0; j < i; ++j) {
        const PointF A = Pie.Labels()[i], B = Pie.Labels()[j];
        EXPECT_TRUE(std::fabs(A.X - B.X) > Width - 1e-3f || std::fabs(A.Y - B.Y) > Height - 1e-3f)
            << Round << ": " << i << ", " << j << " of " << Pie.Labels().size();
      }
  }
}

TEST(ZyPieCalculation, EndsForEveryInput) {
  constexpr double NaN = std::numeric_limits<double>::quiet_NaN(), Infinity = std::numeric_limits<double>::infinity();
  const auto NoNumber = static_cast<float>(NaN);
  TZyPieCalculation Pie({.Type = ThreeDPie});
  for (const double Odd : {NaN, Infinity, -Infinity, 1e300}) Pie.Add(0, Odd, Odd, 0);
  EXPECT_TRUE(Pie.Segments().empty());
  for (const double Explosion : {NaN, Infinity, -1e9, 1e9, 0.0}) Pie.Add(0, 1, 72, Explosion);
  Pie.Arrange(true);
  Pie.PlaceCallouts({3.5f, -1e6f, 10},
                    std::vector<SizeF>{{NoNumber, 1}, {1, NoNumber}, {1e30f, 1e30f}, {1e-30f, 1e6f}, {-5, -5}});
  for (const PointF& Label : Pie.Labels()) EXPECT_TRUE(std::isfinite(Label.X) && std::isfinite(Label.Y));
  for (const RectF Space : {RectF{0, 0, -50, -50}, RectF{0, 0, 0, 100}}) {
    TZyPieCalculation Small = Arranged({{1, 2}});
    Small.FitInto(Space);
    EXPECT_EQ(Small.PieRect().Width, 0);
    EXPECT_EQ(Small.PieRect().Height, 0);
  }
}

// In a chart of 400 x 300 with margins of 10, 20, 30 and 40, a legend of 61 x 25 at a distance of 5.
TEST(ZyPieLegendPlace, StandsAtEightPlaces) {
  using enum TZyPieLegendPosition;
  struct TRow {
    TZyPieLegendPosition Position;
    TPoint Place;
    TZyPieMargins Margins;
  };
  const TRow Rows[] = {{LeftTop, {10, 20}, {76, 20, 30, 40}},        {LeftCenter, {10, 128}, {76, 20, 30, 40}},
                       {LeftBottom, {10, 235}, {76, 20, 30, 40}},    {CenterTop, {160, 20}, {10, 50, 30, 40}},
                       {CenterBottom, {160, 235}, {10, 20, 30, 70}}, {RightTop, {309, 20}, {10, 20, 96, 40}},
                       {RightCenter, {309, 128}, {10, 20, 96, 40}},  {RightBottom, {309, 235}, {10, 20, 96, 40}}};
  for (const TRow& Row : Rows) {
    TZyPieMargins Margins{10, 20, 30, 40};
    EXPECT_EQ(PlacePieLegend(Row.Position, {400, 300}, {61, 25}, 5, Margins), Row.Place);
    EXPECT_EQ(std::tie(Margins.Left, Margins.Top, Margins.Right, Margins.Bottom),
              std::tie(Row.Margins.Left, Row.Margins.Top, Row.Margins.Right, Row.Margins.Bottom));
  }
}

}  // namespace
}  // namespace zy
