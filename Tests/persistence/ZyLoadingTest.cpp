// What loading does to a chart that is there already.

#include <gtest/gtest.h>

#include "framework/Errors.h"
#include "graph/ChartStubs.h"
#include "persistence/ChartForms.h"
#include "persistence/ZyIO.h"
#include "series/ZyPointSeries.h"
#include "undo/ZyUndoStack.h"

namespace zy::testing {
namespace {

std::string Replaced(std::string Text, std::string_view From, std::string_view By) {
  for (std::size_t At = 0; (At = Text.find(From, At)) != std::string::npos; At += By.size())
    Text.replace(At, From.size(), By);
  return Text;
}

TEST(ZyLoadingTest, LegendsThatAreNotStoredLeave) {
  TSampleChart Chart;
  TStubLegend Legend(Chart, TZyLegendPosition::FreeFloating, 1, 1);
  Chart.Graph->AddRelatedLegend(&Legend);
  const std::string Text = Written(*Chart.Graph, TForm3::Xml);
  Read(*Chart.Graph, TForm3::Xml, Text);
  EXPECT_TRUE(Chart.Graph->RelatedLegends().empty());
  EXPECT_EQ(Legend.Parent(), Chart.Graph);
}

/// A series that lacks an axis waits, and is stored again with its data.
TEST(ZyLoadingTest, TheDataOfWaitingSeriesAreStored) {
  TSampleChart Chart;
  Chart.AddSeries("A", {1, 2}, {3, 4});
  const std::string Text = Written(*Chart.Graph, TForm3::Xml);
  Read(*Chart.Graph, TForm3::Xml, Replaced(Text, "XAxis=\"Form.X\" YAxis", "XAxis=\"\" YAxis"));
  ASSERT_EQ(Chart.Graph->SeriesCount(), 0);
  const std::string Again = Written(*Chart.Graph, TForm3::Xml);
  EXPECT_NE(Again.find("<TZyDoubleVector Name=\"Form.AY\""), std::string::npos);
}

TEST(ZyLoadingTest, ABandToTheSeriesItselfIsNone) {
  std::vector<double> Values(5000);
  for (std::size_t i = 0; i < Values.size(); ++i) Values[i] = static_cast<double>(i * 7919 % Values.size());
  TSampleChart Chart;
  Chart.AddSeries("A", Values, Values)->Area().SetVisible(true);
  const auto Plain = Chart.Calls();
  const std::string Text = Written(*Chart.Graph, TForm3::Xml);
  Read(*Chart.Graph, TForm3::Xml, Replaced(Text, "DrawBandTo=\"\"", "DrawBandTo=\"Form.A\""));
  EXPECT_EQ(Chart.Calls(), Plain);
}

/// Whether a scale is logarithmic follows from what was read, and not from the last layout.
TEST(ZyLoadingTest, RangesOfSeriesFollowTheStoredScale) {
  TSampleChart Chart;
  TZySeries* const Series = Chart.AddSeries("A", {1, 2, 3}, {-5, 1, 1000});
  Chart.Y->SetScaling(TZyAxisScaling::Log);
  Chart.Paint();
  const std::string Log = Written(*Chart.Graph, TForm3::Stream);
  Chart.Y->SetLogToNormalScalingLevel(10);
  Series->RangesModified();
  for (int Times = 0; Times < 2; ++Times) Chart.Paint(), Series->RangesModified();
  const std::string Linear = Written(*Chart.Graph, TForm3::Stream);
  ASSERT_FALSE(Chart.Y->HasLogScaling());
  for (const auto& [Text, Start] : {std::pair{&Log, 1.0}, {&Linear, -5.0}, {&Log, 1.0}}) {
    Read(*Chart.Graph, TForm3::Stream, *Text);
    EXPECT_EQ(Series->YStart(), Start);
  }
}

/// No samples take the place of data that were stored as none, and no series gets another layer.
TEST(ZyLoadingTest, AFormUnderDesignTakesWhatIsStored) {
  TSampleChart Chart;
  Chart.AddSeries("A")->SetLayer(1);
  Chart.AddSeries("B", {1, 2}, {3, 4})->SetLayer(0);
  for (const TForm3 Form : AllForms) {
    const std::string Text = Written(*Chart.Graph, Form);
    Chart.Form.SetName("Closed");
    TForm Design;
    Design.SetDesigning(true);
    Design.SetName("Form");
    auto* const Graph = new TZyGraph2D(&Design);
    Graph->SetName("Graph");
    Read(*Graph, Form, Text);
    EXPECT_TRUE(Same(Written(*Graph, Form), Text));
    Design.SetName("Design");
    Chart.Form.SetName("Form");
  }
}

/// An undo of the load leaves a new series as it was stored, since there is nothing before that it could go back to.
TEST(ZyLoadingTest, WhatLoadingMakesIsNoStepOfUndo) {
  TSampleChart Chart;
  auto* const Series = Chart.AddSeries<TZyPointSeries>("A", {1, 2}, {3, 4});
  Series->PointSymbol().SetSize(17);
  const std::string Text = Written(*Chart.Graph, TForm3::Stream);
  delete Series;
  TZyUndoStack Stack(nullptr);
  Chart.Graph->SetUndoStack(&Stack);
  Read(*Chart.Graph, TForm3::Stream, Text);
  while (Stack.CanUndo()) Stack.Undo();
  auto* const Made = dynamic_cast<TZyPointSeries*>(Chart.Form.FindComponent("A"));
  ASSERT_NE(Made, nullptr);
  EXPECT_EQ(Made->PointSymbol().Size(), 17);
  EXPECT_EQ(Made->UndoStack(), &Stack);
}

/// What stands first in the list refers to what gives way to a series of the stored class, and to a part of another
/// one.
TEST(ZyLoadingTest, ReferencesFindWhatWasMadeAnew) {
  TSampleChart Chart;
  TZySeries& First = *Chart.AddSeries("A", {1, 2}, {3, 4});
  TZySeries& Second = *Chart.AddSeries("B", {1, 2}, {3, 4});
  TZySeries& Holder = *Chart.AddSeries("C", {1, 2}, {3, 4});
  auto* const Part = new TZyLineSeries(&Holder);
  Part->SetName("Part");
  Part->SetSubComponent(true);
  Part->SetXAxis(Chart.X);
  Part->SetYAxis(Chart.Y);
  Part->SetXData(Holder.XData());
  Part->SetYData(Holder.YData());
  First.SetMergeLegendItemWith(&Second);
  Second.SetMergeLegendItemWith(Part);
  ASSERT_EQ(GetComponentRef(Part), "Form.C.Part");
  for (const TForm3 Form : AllForms) {
    const std::string Text = Written(*Chart.Graph, Form);
    EXPECT_EQ(Text.find("Name=\"Form.C.Part\""), std::string::npos) << "goes with its series";
    delete Chart.Form.FindComponent("B");
    Chart.AddSeries<TZyPointSeries>("B2")->SetName("B");
    Read(*Chart.Graph, Form, Text);
    EXPECT_EQ(First.MergeLegendItemWith(), Chart.Form.FindComponent("B"));
    EXPECT_NE(First.MergeLegendItemWith(), nullptr);
    EXPECT_EQ(dynamic_cast<TZySeries&>(*Chart.Form.FindComponent("B")).MergeLegendItemWith(), Part);
    delete Chart.Form.FindComponent("B2X");
    delete Chart.Form.FindComponent("B2Y");
  }
}

TEST(ZyLoadingTest, NamesWithoutOwnerAndOwnersWithoutName) {
  TSampleChart Chart;
  Chart.AddSeries("A", {1, 2}, {3, 4});
  const std::string Text = Written(*Chart.Graph, TForm3::Ini);
  const std::size_t Before = Chart.Form.Components().size();
  for (int Times = 0; Times < 2; ++Times) {  // the second time it is there
    Read(*Chart.Graph, TForm3::Ini, Replaced(Text, "Name=Form.A\n", "Name=Alone\n"));
    EXPECT_EQ(Chart.Graph->SeriesCount(), 1);
  }
  delete Application().FindComponent("Alone");
  EXPECT_THROW(Read(*Chart.Graph, TForm3::Ini, Replaced(Text, "Name=Form.A\n", "Name=Form.\n")), EReadError);
  EXPECT_EQ(Chart.Form.Components().size(), Before);
}

TEST(ZyLoadingTest, OutliersComeBackInTheirOrderEachOnce) {
  TZyDoubleVector Vector;
  Vector.AddRange({1, 2, 3, 4, 5, 6});
  for (const int Mark : {5, 1, 3}) Vector.AddOutlier(Mark);
  TMemIniFile Ini;
  Vector.WriteTo(Ini, "V");
  EXPECT_EQ(Ini.ReadString("V", "Outliers", ""), "5 1 3");
  Ini.WriteString("V", "Outliers", "5 1 5 3 1");
  Vector.ReadFrom(Ini, "V");
  EXPECT_TRUE(std::ranges::equal(Vector.Outliers().Marked(), std::array{5, 1, 3}));
  EXPECT_TRUE(std::ranges::equal(Vector.Outliers().Sorted(), std::array{1, 3, 5}));
  EXPECT_EQ(Vector.Maximum(), 5);
}

}  // namespace
}  // namespace zy::testing
