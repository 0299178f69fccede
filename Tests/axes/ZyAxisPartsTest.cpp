// The parts of an axis, without one: values and pixels of all kinds of scale, ends, ticks and their painting.

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include "axes/ZyAxisEnds.h"
#include "axes/ZyAxisPainter.h"
#include "axes/ZyScrollRange.h"
#include "axes/ZyZoomStages.h"
#include "platform/drawing/TRecordingGraphics.h"

namespace zy::testing {
namespace {

using enum TZyAxisScaling;

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

/// An axis from pixel 50 on at the bottom, or from pixel 20 on at the left.
TZyAxisGeometry PlainGeometry(bool OnX, bool Twisted, float Length) {
  return {OnX ? TZyAxisPosition::Bottom : TZyAxisPosition::Left, Twisted, 50, 20, Length};
}

TZyAxisTransform TransformOf(TZyAxisScaling Scaling, double Level, double Start, double Stop,
                             const TZyAxisGeometry& Geometry) {
  TZyAxisSteps Steps;
  TZyStepRules Rules;
  Rules.LogToNormalScalingLevel = Level;
  const TZyScaleKind& Kind = TZyScaleKind::Of(Scaling);
  Kind.TakeMapping(Steps, Rules, Start, Stop);
  return {Kind.Mapping(Steps), Steps.HasLogScaling ? Steps.LogStart : Start,
          Kind.PerPixel(Steps, Start, Stop, Geometry.Length), Geometry};
}

TEST(ZyAxisPartsTest, MapsEachKindOfScale) {
  // Pixels by hand: base 50 on X and 20 on Y, plus the part of the length that the value has of the span, from the
  // other end where the axis grows to the left or upwards.
  const struct {
    TZyAxisScaling Scaling;
    double Level, Start, Stop;
    bool OnX, Twisted, IsLog;
    double Value;
    float Pixel;
  } Cases[] = {
      {Normal, 0, 0, 10, true, false, false, 5, 100},
      {Normal, 0, 0, 10, true, true, false, 0, 150},
      {Normal, 0, 0, 10, true, false, false, -1, 40},
      {Normal, 0, 0, 10, false, false, false, 10, 20},
      {Normal, 0, 0, 10, false, false, false, 0, 120},
      {Normal, 0, 0, 10, false, true, false, 0, 20},
      {Log, 0, 1, 10000, true, false, true, 10, 75},  // a quarter of four decades
      {LogEE, 0, 1, 10000, true, false, true, 100, 100},
      {Log, 0, 1, 10000, true, true, true, 10, 125},
      {Log, 0, 1, 10000, true, false, true, 0, -50},  // without a logarithm: 100 pixels before the start
      {Log, 0, 1, 10000, true, false, true, -7, -50},
      {Log, 0, 1, 10000, true, true, true, 0, 250},  // which lies at the other end
      {Log, 0, 1, 10000, false, false, true, 0, 220},
      {Log, 2, 10, 510, true, false, false, 260, 100},  // 1.7 decades stay linear below a level of 2
      {Log, 2, 1, 1000, true, false, true, 1000, 150},
      {LogEE, 4, 1, 10000, true, false, false, 5000.5, 100},  // at the level, not above it
      {Seconds, 0, 0, 7200, true, false, false, 1800, 75},
      {DateTime, 0, 45000, 45010, true, false, false, 45002.5, 75},
      {DateTime, 0, -2.25, 1.75, true, false, false, -1.25, 50 + 100 / 3.5f},  // 3.5 days from 6 to 18 o'clock
      {Rubrics, 0, 0, 4, true, false, false, 1, 75},
  };
  for (const auto& Case : Cases) {
    SCOPED_TRACE(::testing::Message() << "scaling " << static_cast<int>(Case.Scaling) << " value " << Case.Value);
    const TZyAxisTransform Transform =
        TransformOf(Case.Scaling, Case.Level, Case.Start, Case.Stop, PlainGeometry(Case.OnX, Case.Twisted, 100));
    EXPECT_EQ(Transform.Mapping() == TZyMapping::Logarithmic, Case.IsLog);
    EXPECT_NEAR(Transform.PixelOf(Case.Value), Case.Pixel, 0.001);
    if (Case.Start >= 0 && (!Case.IsLog || Case.Value > 0)) {
      EXPECT_NEAR(Transform.ValueAt(Case.Pixel), Case.Value, 1e-6 * std::fabs(Case.Value) + 1e-9);
    }
  }
}

TEST(ZyAxisPartsTest, FarValuesSaturateOnEveryKind) {
  for (const auto Scaling : {Normal, Log, Seconds, DateTime, Rubrics})
    for (const bool Twisted : {false, true}) {
      // A span so small that any other value is far away.
      const TZyAxisTransform Transform = TransformOf(Scaling, 0, 1, 1 + 1e-9, PlainGeometry(true, Twisted, 100));
      const float Side = Twisted ? -100000 : 100000;
      for (const double Far : {2.0, 1e300, Infinity}) EXPECT_EQ(Transform.PixelOf(Far), 50 + Side) << Far;
      if (Scaling != Log) {
        EXPECT_EQ(Transform.PixelOf(-1e6), 50 - Side);
      }
      EXPECT_TRUE(std::isfinite(Transform.PixelOf(NotANumber)));
    }
}

TEST(ZyAxisPartsTest, ManyValuesGiveTheVeryPixelsOfSingleOnes) {
  std::mt19937_64 Random(7);
  std::vector<double> Values{0, -0.0, 1, Infinity, -Infinity, NotANumber, 1e300, -1e300, 5e-324};
  std::uniform_real_distribution<double> Near(-5, 15);
  for (int i = 0; i < 500; ++i) Values.push_back(Near(Random));
  for (int i = 0; i < 300; ++i) Values.push_back(std::bit_cast<double>(Random()));  // any bits
  for (const auto Scaling : {Normal, Log, Seconds, DateTime, Rubrics})
    for (const int Side : {0, 1, 2, 3}) {
      const TZyAxisTransform Transform =
          TransformOf(Scaling, 0, 0.3, 9.7, PlainGeometry(Side % 2 == 0, Side >= 2, Side % 2 == 0 ? 337 : 211));
      for (const std::size_t Count :
           {std::size_t{0}, std::size_t{1}, std::size_t{63}, std::size_t{64}, Values.size()}) {
        std::vector<float> Pixels(Count + 1, 42);
        Transform.PixelsOf(std::span(Values).first(Count), Pixels);
        for (std::size_t i = 0; i < Count; ++i)
          EXPECT_EQ(std::bit_cast<std::uint32_t>(Pixels[i]), std::bit_cast<std::uint32_t>(Transform.PixelOf(Values[i])))
              << Values[i];
        EXPECT_EQ(Pixels[Count], 42);
      }
    }
}

TEST(ZyAxisPartsTest, MovingRangeJumpsAheadOfTheData) {
  const struct {
    double Width, Increment, LastValue, Start, Stop;
  } Cases[] = {{100, 25, 130, 50, 150},
               {100, 25, 90, 0, 100},
               {90, 0, 100, 30, 120},  // a third of the width
               {0, 0, 5, 0, 10},       // the width that the ends have
               {10, 1, 1e6, 999990, 1e6}};
  for (const auto& Case : Cases) {
    TZyAxisEnds Ends;
    Ends.Rules.StopEnd = TZyAxisEnd::MovingSlit;
    Ends.Rules.MovingSlitWidth = Case.Width;
    Ends.Rules.MovingSlitIncrement = Case.Increment;
    const auto Taken = Ends.TakeData({0, Case.LastValue}, false);
    ASSERT_TRUE(Taken.has_value());
    EXPECT_DOUBLE_EQ(Taken->Start, Case.Start) << Case.LastValue;
    EXPECT_DOUBLE_EQ(Taken->Stop, Case.Stop) << Case.LastValue;
  }
}

TEST(ZyAxisPartsTest, StagesFollowEachOtherAndGoAround) {
  TZyZoomStages Stages;
  Stages.Begin({0, 10});
  Stages.Begin({1, 2});  // there is one
  Stages.Push({2, 8});
  Stages.Push({3, 4});
  EXPECT_EQ(Stages.Behind(), 0);
  EXPECT_EQ(Stages.Show(Stages.Before()), (TZyAxisRange{2, 8}));
  Stages.Push({5, 6});  // in the place of the last one
  EXPECT_EQ(std::pair(Stages.Count(), Stages.Current()), std::pair(3, 2));
  EXPECT_EQ(Stages.Show(0), Stages.Whole());
  EXPECT_EQ(Stages.Before(), 2);
}

TEST(ZyAxisPartsTest, AVisibleRangeMovesWithinTheWholeOne) {
  const TZyAxisTransform Linear = TransformOf(Normal, 0, 0, 100, PlainGeometry(true, false, 100));
  const TZyScrollRange Range(Linear, {20, 60}, {0, 100});
  EXPECT_EQ(std::pair(Range.SizeOnBar(20, 60), Range.PositionOnBar(60)), std::pair(4000, 6000));
  const auto UpToTens = [](double Start) { return std::ceil(Start / 10 - 1e-9) * 10; };
  EXPECT_EQ(Range.MovedBy(-3, {}), (TZyAxisRange{17, 57}));
  EXPECT_EQ(Range.MovedBy(70, {}), (TZyAxisRange{60, 100}));
  EXPECT_EQ(Range.MovedBy(-30, UpToTens), (TZyAxisRange{0, 40}));
  EXPECT_EQ(Range.MovedBy(10, UpToTens), (TZyAxisRange{30, 70}));
  // Steps wider than what is seen do not turn it round at the end.
  EXPECT_EQ(TZyScrollRange(Linear, {93, 97}, {0, 99}).MovedBy(5, UpToTens), (TZyAxisRange{95, 99}));
  EXPECT_EQ(Range.ScaledAround(20, 60, 40, 0.5), (TZyAxisRange{30, 50}));
  EXPECT_EQ(Range.ScaledAround(20, 60, 40, 1e-15), std::nullopt);
}

TEST(ZyAxisPartsTest, EndsThatAreShownInDataKeepTheirOrder) {
  TZyAxisEnds Ends;
  Ends.TakeData({0, 0.21}, false);
  Ends.Show({0.1, 0.195});
  Ends.ShowInData({0.205, 0.3});  // of which only the start has data, behind the stop that is shown
  EXPECT_EQ(Ends.Shown(), (TZyAxisRange{0.1, 0.195}));
  Ends.ShowInData({0.15, 0.3});
  EXPECT_EQ(Ends.Shown(), (TZyAxisRange{0.15, 0.195}));
}

TEST(ZyAxisPartsTest, ValuesBeyondTheEndsCountAsTheyAreDrawn) {
  const struct {
    TZyAxisScaling Scaling;
    TZyAxisRange Ends, Values;
    bool Start, Stop;
  } Cases[] = {
      {Normal, {0, 10}, {0, 10 + 1e-9}, false, false},  {Normal, {0, 10}, {-1, 11}, true, true},
      {Log, {1e-3, 1e9}, {5e-4, 1e9}, true, false},     {Log, {1e-3, 1e9}, {-5, 1e8}, false, false},  // has no place
      {DateTime, {100, 50}, {60, 90}, false, false},    {DateTime, {100, 50}, {60, 101}, true, false},
      {DateTime, {-2.25, 3}, {-2.75, 3}, false, false},  // six and eighteen o'clock of one day
  };
  for (const auto& Case : Cases) {
    TZyAxisSteps Steps;
    Steps.HasLogScaling = Case.Scaling == Log;
    const TZyBeyond Beyond = TZyScaleKind::Of(Case.Scaling).Beyond(Steps, Case.Ends, Case.Values);
    EXPECT_EQ(std::pair(Beyond.Start, Beyond.Stop), std::pair(Case.Start, Case.Stop)) << &Case - Cases;
  }
}

TEST(ZyAxisPartsTest, TicksThatCoverEachOtherCountAsTheOneThatSaysMost) {
  TZyAxisTicks Ticks;
  EXPECT_TRUE(Ticks.Add({10, 0, false, false, false}));
  EXPECT_TRUE(Ticks.Add({10.5f, 1, true, false, false}));  // a major one in the place of a minor one
  EXPECT_FALSE(Ticks.Add({11, 2, true, false, false}));    // no better
  EXPECT_TRUE(Ticks.Add({11.2f, 3, false, true, true}));   // one with a label
  EXPECT_FALSE(Ticks.Add({11.9f, 4, true, true, false}));
  EXPECT_TRUE(Ticks.Add({12.2f, 5, false, false, false}));  // a pixel off
  ASSERT_EQ(Ticks.Ticks().size(), 2u);
  EXPECT_EQ(Ticks.Ticks()[0].Value, 3);
  Ticks.EraseNear(11.25f, 0.1f);
  ASSERT_EQ(Ticks.Ticks().size(), 1u);
  EXPECT_EQ(Ticks.Ticks()[0].Value, 5);
}

TEST(ZyAxisPartsTest, TicksStartAtTheFarSideOfTheLine) {
  // A line of 3 pixels at 100 covers one pixel on each side of its own. A tick starts at the side away from which it
  // points: 99 for one that points to larger coordinates, 101 for the other.
  using enum TZyAxisPosition;
  const struct {
    TZyAxisPosition Position;
    bool ToData;
    const char* Call;
  } Cases[] = {{Bottom, false, "7 99, 7 109)"}, {Bottom, true, "7 101, 7 91)"}, {Top, false, "7 101, 7 91)"},
               {Left, false, "101 7, 91 7)"},   {Left, true, "99 7, 109 7)"},   {Right, false, "99 7, 109 7)"}};
  for (const auto& Case : Cases) {
    const TZyAxisGeometry Geometry{Case.Position, false, 100, 100, 50};
    TZyAxisLook Look;
    Look.AxisThicknes = 3;
    Look.TicksPointToData = Case.ToData;
    TZyAxisTicks Ticks;
    Ticks.Add({7.3f, 0, true, false, false});
    TRecordingGraphics Canvas;
    TZyAxisPainter(Geometry, Look, false).PaintTicks(Canvas, Ticks);
    ASSERT_EQ(Canvas.Calls().size(), 1u);
    EXPECT_NE(Canvas.Calls()[0].find(Case.Call), std::string::npos) << Canvas.Calls()[0];
  }
}

}  // namespace
}  // namespace zy::testing
