// What decides about the scale of an axis: steps, masters, padding, and its events.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <tuple>

#include "axes/AxisSamples.h"
#include "texts/Exceptions.h"
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

TEST(ZyAxisScaleTest, StepsThatALayoutFittedComeBack) {
  TSampleChart Chart;
  TZyAxis& Axis = *Chart.X;
  TZyAxis Master(&Chart.Form);
  Master.SetParent(Chart.Graph);
  Master.SetScaling(Log);
  TZyUndoStack Stack;
  Axis.SetUndoStack(&Stack);
  Axis.SetAutoTickParts(false);
  Axis.SetTickPart(0.02);
  Axis.SetMajorTickPart(0.1);
  Axis.SetLabelPart(0.2);
  const auto Settings = [&] {
    return std::tuple(Axis.Scaling(), Axis.TickPart(), Axis.MajorTickPart(), Axis.LabelPart());
  };
  const std::function<void()> Changes[] = {[&] { Axis.SetTickPart(3); }, [&] { Axis.SetScaling(Log); },
                                           [&] { Axis.SetMasterAxis(&Master); }, [&] { Axis.SetIsSlaveAxis(true); }};
  for (const auto& Change : Changes) {
    Chart.Paint();
    const auto Before = Settings();
    Change();
    Chart.Paint();
    const auto After = Settings();
    EXPECT_NE(After, Before) << &Change - Changes;
    Stack.Undo();
    Chart.Paint();
    EXPECT_EQ(Settings(), Before) << &Change - Changes;
    Stack.Redo();
    Chart.Paint();
    EXPECT_EQ(Settings(), After) << &Change - Changes;
    Stack.Undo();
    if (&Change == &Changes[2]) {  // one that is no slave any more, but still has its master
      Axis.SetMasterAxis(&Master);
      Axis.SetIsSlaveAxis(false);
    }
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

TEST(ZyAxisScaleTest, PaddingKeepsTheLogarithmOfALinearScale) {
  TSampleChart Chart;
  Chart.X->SetLogToNormalScalingLevel(2);
  Chart.X->SetScaling(Log);
  Chart.X->SetStartPadding(0.1);
  Lay(Chart, *Chart.X, 10, 510);  // 1.7 decades; 0.1 of the span below them is -40
  EXPECT_GT(Chart.X->Start(), 0);
  EXPECT_GE(Chart.X->AxLabels().size(), 2u);
  // Nor do ends that a handler sets while it is laid out lead anywhere.
  Chart.X->SetLogToNormalScalingLevel(0);
  Chart.Graph->Calculate();
  Chart.X->SetOnGetTicks([&](TObject*) { Chart.X->SetStartStop(-5, 1e308); });
  Chart.X->CalculateTicks();
  for (const float Tick : PlacesOf(*Chart.X)) EXPECT_TRUE(std::isfinite(Tick));
}

TEST(ZyAxisScaleTest, OnlyWhatTheUserChangesIsAStepOfUndo) {
  TSampleChart Chart;
  TZyUndoStack Stack;
  Chart.X->SetUndoStack(&Stack);
  TZyLineSeries* const Series = Chart.AddSeries("Series", {0, 100}, {0, 1});
  Chart.X->SetStop(62);
  Chart.X->SetStopEnd(TZyAxisEnd::Fixed);
  Chart.X->Rubrics()->SetText("one\ntwo\n");
  Chart.Paint();
  const auto State = [&] { return std::tuple(Chart.X->Start(), Chart.X->Stop(), Stack.UndoCount()); };
  const auto Before = State();
  const auto ZoomIn = [&] {
    Chart.X->ZoomIn(20, 40);
    Chart.Paint();
    EXPECT_EQ(Chart.X->Stop(), 40);
  };
  ZoomIn();
  Chart.Graph->ZoomReset();
  Chart.Paint();
  EXPECT_EQ(State(), Before);
  ZoomIn();
  Series->XData()->Add(120);
  Series->YData()->Add(0.5);
  Chart.Paint();
  EXPECT_EQ(State(), Before);
  TStringList Same;
  Same.Assign(Chart.X->Rubrics());
  Chart.X->SetRubrics(&Same);
  Chart.X->Rubrics()->BeginUpdate();
  Chart.X->Rubrics()->EndUpdate();
  EXPECT_EQ(State(), Before);
  Chart.X->Rubrics()->Add("three");
  EXPECT_EQ(Stack.UndoCount(), std::get<2>(Before) + 1);
}

TEST(ZyAxisScaleTest, WhatIsPaintedWithinAnUpdateHasOneScale) {
  TSampleChart Chart;
  TZyLineSeries* const Series = Chart.AddSeries("Series", {0, 10}, {0, 10});
  Chart.Paint();
  const std::vector<float> Places = PlacesOf(*Chart.X);
  Chart.Graph->BeginUpdate();
  Series->XData()->Add(1000);
  Series->YData()->Add(5);
  Chart.Y->SetStart(-90);
  Chart.Paint();
  for (const TZyAxis* Axis : {Chart.X, Chart.Y})
    for (const TZyTick& Tick : Axis->Ticks()) EXPECT_EQ(Axis->NumberToWorld(Tick.Value), Tick.Position);
  EXPECT_EQ(PlacesOf(*Chart.X), Places);
  Chart.Graph->EndUpdate();
  Chart.Paint();
  EXPECT_EQ(Chart.X->Stop(), 1000);
}

TEST(ZyAxisScaleTest, CaptionsAndLabelsKeepTheirVariables) {
  TSampleChart Chart;
  EXPECT_THROW(Chart.X->SetCaption("<%Form.Nobody.Name%>"), EMathError);
  Chart.X->SetCaption("blanks \t\n");
  EXPECT_EQ(Chart.X->Caption(), "blanks");
  const std::string Long(1500, '.');
  Chart.Graph->SetCaption("one");
  Chart.Y->SetCaption("<%Form.Graph.Name%>" + Long);
  Chart.X->SetOnGetScaleLabel([](TObject*, TZyScaleLabelEventArgs& Args) { Args.Caption = "<%Form.Graph.Caption%>"; });
  Chart.Graph->Calculate();
  const float Height = Chart.Graph->DrawingArea().Height;
  Chart.Graph->SetCaption("one\ntwo");
  EXPECT_TRUE(Chart.X->NeedsRecalculate());
  EXPECT_FALSE(Chart.Y->NeedsRecalculate()) << "its caption is as it was";
  Chart.Graph->Calculate();
  EXPECT_LT(Chart.Graph->DrawingArea().Height, Height - 5) << "the labels have one line more";
}

TEST(ZyAxisScaleTest, SamplesThatSeriesShareAreScaledOnce) {
  TSampleChart Chart;
  Chart.Form.SetDesigning(true);
  TZyLineSeries *const One = Chart.AddSeries("One", {0, 10}, {0, 1}), *const Two = Chart.AddSeries("Two", {}, {1, 0});
  static_cast<TZyDoubleVector*>(One->XData())->SetPersistentValues(false);
  Two->SetXData(One->XData());
  Chart.Paint();
  Chart.X->SetDesigning(true);
  Chart.X->SetStop(30);
  EXPECT_EQ(One->XData()->GetValue(1), 30);
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
