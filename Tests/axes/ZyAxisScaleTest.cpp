// What decides about the scale of an axis: steps, masters, padding, and its events.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "axes/AxisSamples.h"
#include "undo/ZyUndoStack.h"

namespace zy::testing {
namespace {

using enum TZyAxisScaling;

constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

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

TEST(ZyAxisScaleTest, PaddingIsAddedOnceHoweverOftenTheAxisIsLaidOut) {
  TSampleChart Chart;
  Chart.X->SetEndRounding(TZyAxisEndRounding::RndNothing);
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
