// Values and pixels of all kinds of scale, and the setters that decide between them.

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>

#include "axes/AxisSamples.h"
#include "undo/ZyUndoStack.h"

namespace zy::testing {
namespace {

using enum TZyAxisScaling;

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

/// Plain axes of given lengths between their ends: X from pixel 50 on, Y from pixel 20 on.
struct TPlainScale : TSampleChart {
  TPlainScale(int XLength, int YLength) : TSampleChart(50 + XLength + 50, 20 + YLength + 100) {
    UsePlainAxes();
    Graph->SetDistanceBorderAxisTop(20);
    for (TZyAxis* Axis : {X, Y}) Axis->SetEndRounding(TZyAxisEndRounding::RndNothing);
  }
};

TEST(ZyAxisScaleTest, MapsEachKindOfScale) {
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
    TPlainScale Chart(100, 100);
    TZyAxis& Axis = Case.OnX ? *Chart.X : *Chart.Y;
    Axis.SetScaling(Case.Scaling);
    Axis.SetLogToNormalScalingLevel(Case.Level);
    Axis.SetTwisted(Case.Twisted);
    Lay(Chart, Axis, Case.Start, Case.Stop);
    SCOPED_TRACE(::testing::Message() << "scaling " << static_cast<int>(Case.Scaling) << " value " << Case.Value);
    EXPECT_EQ(Axis.HasLogScaling(), Case.IsLog);
    EXPECT_NEAR(Axis.NumberToWorld(Case.Value), Case.Pixel, 0.001);
    if (Case.Start >= 0 && (!Case.IsLog || Case.Value > 0)) {
      EXPECT_NEAR(Axis.WorldToNumber(Case.Pixel), Case.Value, 1e-6 * std::fabs(Case.Value) + 1e-9);
    }
  }
}

TEST(ZyAxisScaleTest, FarValuesSaturateOnEveryKind) {
  for (const auto Scaling : {Normal, Log, Seconds, DateTime, Rubrics})
    for (const bool Twisted : {false, true}) {
      TPlainScale Chart(100, 100);
      Chart.X->SetScaling(Scaling);
      Chart.X->SetTwisted(Twisted);
      Lay(Chart, *Chart.X, 1, 1 + 1e-9);  // a span so small that any other value is far away
      const float Side = Twisted ? -100000 : 100000;
      for (const double Far : {2.0, 1e300, Infinity}) EXPECT_EQ(Chart.X->NumberToWorld(Far), 50 + Side) << Far;
      if (Scaling != Log) {
        EXPECT_EQ(Chart.X->NumberToWorld(-1e6), 50 - Side);
      }
      EXPECT_TRUE(std::isfinite(Chart.X->NumberToWorld(NotANumber)));
    }
}

TEST(ZyAxisScaleTest, ManyValuesGiveTheVeryPixelsOfSingleOnes) {
  std::mt19937_64 Random(7);
  std::vector<double> Values{0, -0.0, 1, Infinity, -Infinity, NotANumber, 1e300, -1e300, 5e-324};
  std::uniform_real_distribution<double> Near(-5, 15);
  for (int i = 0; i < 500; ++i) Values.push_back(Near(Random));
  for (int i = 0; i < 300; ++i) Values.push_back(std::bit_cast<double>(Random()));  // any bits
  for (const auto Scaling : {Normal, Log, Seconds, DateTime, Rubrics})
    for (const int Side : {0, 1, 2, 3}) {
      TPlainScale Chart(337, 211);
      TZyAxis& Axis = Side % 2 == 0 ? *Chart.X : *Chart.Y;
      Axis.SetScaling(Scaling);
      Axis.SetTwisted(Side >= 2);
      Lay(Chart, Axis, 0.3, 9.7);
      for (const std::size_t Count :
           {std::size_t{0}, std::size_t{1}, std::size_t{63}, std::size_t{64}, Values.size()}) {
        std::vector<float> Pixels(Count + 1, 42);
        Axis.NumberToWorld(std::span(Values).first(Count), Pixels);
        for (std::size_t i = 0; i < Count; ++i)
          EXPECT_EQ(std::bit_cast<std::uint32_t>(Pixels[i]),
                    std::bit_cast<std::uint32_t>(Axis.NumberToWorld(Values[i])))
              << Values[i];
        EXPECT_EQ(Pixels[Count], 42);
      }
    }
}

TEST(ZyAxisScaleTest, StepsAreTheUsersOnlyWhileTheyAreNotAutomatic) {
  TZyAxis Axis;
  const double Automatic = Axis.LabelPart();
  Axis.SetLabelPart(7);
  EXPECT_EQ(Axis.LabelPart(), Automatic);
  Axis.SetAutoTickParts(false);
  const std::pair<double, double> Parts[] = {{0, 0.001}, {-0.25, 0.25}, {NotANumber, 0.25}, {3, 3}};
  for (const auto& [Set, Read] : Parts) {
    Axis.SetLabelPart(Set);
    Axis.SetMajorTickPart(Set);
    Axis.SetTickPart(Set);
    for (const double Part : {Axis.LabelPart(), Axis.MajorTickPart(), Axis.TickPart()}) EXPECT_EQ(Part, Read);
  }
  for (const auto Scaling : {Seconds, DateTime, Rubrics}) {
    Axis.SetScaling(Log);
    Axis.SetAutoTickParts(false);
    Axis.SetScaling(Scaling);
    EXPECT_TRUE(Axis.AutoTickParts());
    Axis.SetAutoTickParts(false);
    EXPECT_TRUE(Axis.AutoTickParts());
  }
}

TEST(ZyAxisScaleTest, AMasterIsAnotherAxisOfTheSameDirectionThatHasNone) {
  TZyAxis Axis, Other, Across, Slave;
  Across.SetPosition(TZyAxisPosition::Left);
  Slave.SetMasterAxis(&Other);
  for (TZyAxis* Refused : {&Axis, &Across, &Slave}) {
    Axis.SetMasterAxis(Refused);
    EXPECT_EQ(Axis.MasterAxis(), nullptr);
  }
  {
    TZyAxis Brief;
    Axis.SetMasterAxis(&Brief);
    EXPECT_EQ(Axis.MasterAxis(), &Brief);
    EXPECT_TRUE(Axis.IsSlaveAxis());
  }
  EXPECT_EQ(Axis.MasterAxis(), nullptr);
}

TEST(ZyAxisScaleTest, UndoBringsBackAMasterThatCouldNotBeSetNow) {
  TForm Form;
  TZyUndoStack Stack;
  TZyAxis Axis(&Form), Master(&Form);
  Axis.SetName("Axis");
  Master.SetName("Master");
  Axis.SetUndoStack(&Stack);
  Axis.SetMasterAxis(&Master);
  Axis.SetPosition(TZyAxisPosition::Left);
  Axis.SetMasterAxis(nullptr);
  Axis.Rubrics()->SetText("one\ntwo\n");
  Stack.Undo(1);
  EXPECT_EQ(Axis.Rubrics()->Count(), 0);
  EXPECT_EQ(Axis.MasterAxis(), &Master);
  EXPECT_TRUE(Axis.IsSlaveAxis());
  Stack.Redo(1);
  EXPECT_EQ(Axis.Rubrics()->Count(), 2);
  EXPECT_EQ(Axis.MasterAxis(), nullptr);
  EXPECT_FALSE(Axis.IsSlaveAxis());
}

TEST(ZyAxisScaleTest, SlavesShowTheEndsOfTheirMaster) {
  TSampleChart Chart;
  TZyAxis &Fahrenheit = *AddAxis(*Chart.Graph, TZyAxisPosition::Top),
          &Copy = *AddAxis(*Chart.Graph, TZyAxisPosition::Bottom);
  for (TZyAxis* Slave : {&Fahrenheit, &Copy}) Slave->SetMasterAxis(Chart.X);
  Fahrenheit.SetSlaveSlope(1.8);
  Fahrenheit.SetSlaveOffset(32);
  Chart.X->BringToFront();      // the slaves are laid out before their master
  Lay(Chart, *Chart.X, 0, 97);  // rounds to 100
  EXPECT_EQ(Fahrenheit.Start(), 32);
  EXPECT_EQ(Fahrenheit.Stop(), 212);
  EXPECT_NEAR(Fahrenheit.NumberToWorld(50), Chart.X->NumberToWorld(10), 0.01);
  EXPECT_EQ(Copy.LabelTexts(), Chart.X->LabelTexts());
  EXPECT_EQ(PlacesOf(Copy), PlacesOf(*Chart.X));
  // A slope that turns the ends round is drawn without a fault.
  Fahrenheit.SetSlaveSlope(-1);
  Chart.Graph->Calculate();
  EXPECT_EQ(Fahrenheit.Start(), 32);
  EXPECT_EQ(Fahrenheit.Stop(), -68);
  for (const float Tick : PlacesOf(Fahrenheit)) EXPECT_TRUE(std::isfinite(Tick));
}

TEST(ZyAxisScaleTest, MovingRangeJumpsAheadOfTheData) {
  const struct {
    double Width, Increment, LastValue, Start, Stop;
  } Cases[] = {{100, 25, 130, 50, 150},
               {100, 25, 90, 0, 100},
               {90, 0, 100, 30, 120},  // a third of the width
               {0, 0, 5, 0, 10},       // the width that the ends have
               {10, 1, 1e6, 999990, 1e6}};
  for (const auto& Case : Cases) {
    TPlainScale Chart(400, 300);
    Chart.X->SetStopEnd(TZyAxisEnd::MovingSlit);
    Chart.X->SetMovingSlitWidth(Case.Width);
    Chart.X->SetMovingSlitIncrement(Case.Increment);
    Chart.AddSeries("Series", {0, Case.LastValue}, {1, 2});
    Chart.Paint();
    EXPECT_DOUBLE_EQ(Chart.X->Start(), Case.Start) << Case.LastValue;
    EXPECT_DOUBLE_EQ(Chart.X->Stop(), Case.Stop) << Case.LastValue;
  }
}

TEST(ZyAxisScaleTest, PaddingIsAddedOnceHoweverOftenTheAxisIsLaidOut) {
  TPlainScale Chart(400, 300);
  Chart.X->SetStartPadding(0.1);
  Chart.X->SetStopPadding(0.25);
  for (const bool Twisted : {false, true, false}) {
    Chart.X->SetTwisted(Twisted);
    Chart.Graph->Calculate();
    EXPECT_DOUBLE_EQ(Chart.X->Start(), -1);
    EXPECT_DOUBLE_EQ(Chart.X->Stop(), 12.5);
  }
  Lay(Chart, *Chart.X, 0, 20);
  EXPECT_DOUBLE_EQ(Chart.X->Start(), -2);
  EXPECT_DOUBLE_EQ(Chart.X->Stop(), 25);
}

TEST(ZyAxisScaleTest, HandlersSeeEveryLabelAndEveryLayout) {
  TSampleChart Chart;
  int Ticks = 0, Layouts = 0;
  Chart.X->SetOnGetTicks([&](TObject* Sender) { Ticks += Sender == Chart.X ? 1 : 100; });
  Chart.X->SetOnCalculated([&](TObject*) { Layouts += TZyAxis::LayoutRunning ? 100 : 1; });
  Chart.X->SetOnGetScaleLabel([](TObject*, TZyScaleLabelEventArgs& Args) {
    Args.Caption = "about " + std::to_string(static_cast<int>(Args.Value));
  });
  Chart.Graph->Calculate();
  EXPECT_EQ(Layouts, 1);
  EXPECT_EQ(Ticks, 3);
  // "about 10" is 8 * 19.2 pixels by the estimate: step 5 takes 3 * 153.6 + 2 * 70 = 600.8 of the 600 that there are.
  EXPECT_EQ(LabelsOf(*Chart.X), "about 0|about 5|about 10");
}

}  // namespace
}  // namespace zy::testing
