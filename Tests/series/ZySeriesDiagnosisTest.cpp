#include <gtest/gtest.h>

#include <limits>

#include "graph/ZyGraph2D.h"
#include "platform/controls/TForm.h"
#include "series/ZyLinearRegression.h"
#include "series/ZyPointWithErrorSeries.h"
#include "series/vectors/ZyDoubleVector.h"

namespace zy::testing {
namespace {

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();

class SeriesDiagnosis : public ::testing::Test {
 protected:
  SeriesDiagnosis() {
    Graph.SetName("Graph");
    Graph.SetParent(&Form);
    Graph.SetBounds(0, 0, 400, 300);
  }

  TZyDoubleVector* Vector(std::initializer_list<double> Values) {
    auto* const Result = new TZyDoubleVector(&Form);
    Result->AddRange(std::vector<double>(Values));
    return Result;
  }
  template <class TSeries = TZyLineSeries>
  TSeries& Series(TZyDoubleVector* Y) {
    auto* const Result = new TSeries(&Form);
    Result->SetCaption("S");
    Result->SetYData(Y);
    return *Result;
  }
  /// What is said of one series in a chart of its own.
  std::string Said(TZySeries& Of) {
    const std::vector<std::string> All = Graph.Diagnose();
    const auto About = std::ranges::find_if(All, [](const std::string& Each) { return Each.starts_with("S "); });
    EXPECT_EQ(Of.Diagnose(), About == All.end() ? "" : *About);
    return About == All.end() ? "" : *About;
  }

  TForm Form;
  TZyGraph2D& Graph = *new TZyGraph2D(&Form);
};

TEST_F(SeriesDiagnosis, SeriesAreShownInWhateverOrderTheyAreConnected) {
  TZyLineSeries& DataFirst = Series(Vector({1, 2, 3}));
  Graph.AddSeries(DataFirst);
  EXPECT_EQ(Said(DataFirst), "");
  TZyLineSeries& AxesFirst = Series(nullptr);
  Graph.AddSeries(AxesFirst);
  EXPECT_EQ(Said(AxesFirst), "S is in no graph: neither XData nor YData is set");
  AxesFirst.SetYData(Vector({1, 2}));
  EXPECT_EQ(Said(AxesFirst), "");
  TZyLineSeries& Default = Series(Vector({4, 5}));
  Default.SetDefaultAxis(Graph);
  EXPECT_EQ(Said(Default), "");
  EXPECT_EQ(Graph.RelatedSeries().size(), 3u);
}

TEST_F(SeriesDiagnosis, AnEmptyChartSaysWhy) {
  EXPECT_EQ(Graph.Diagnose(),
            std::vector<std::string>{"Graph has no series: one joins when it has both axes and data"});
  Graph.SetBounds(0, 0, 5, 5);
  EXPECT_EQ(Graph.Diagnose().front(), "Graph has no room for a data area in 5 x 5 pixels");
}

TEST_F(SeriesDiagnosis, EachReasonIsTold) {
  TZyDoubleVector& Y = *Vector({1, 2, 3});
  TZyLineSeries& Line = Series(&Y);
  EXPECT_EQ(Said(Line), "S is in no graph: XAxis is not set");
  Graph.AddSeries(Line);
  EXPECT_EQ(Said(Line), "");
  Line.SetVisible(false);
  EXPECT_EQ(Said(Line), "S is hidden: Visible is off");
  Line.SetVisible(true);
  Line.Line().SetVisible(false);
  EXPECT_EQ(Said(Line), "S draws nothing: line, area and symbols are switched off");
  Line.Line().SetVisible(true);
  Y.Clear();
  EXPECT_EQ(Said(Line), "S has no points: the vector of YData is empty");
  Y.AddRange(std::vector<double>{NaN, NaN});
  EXPECT_EQ(Said(Line), "S has no points: none has finite values");
  Y.SetValue(0, 1);
  Y.SetValue(1, 2);
  EXPECT_EQ(Said(Line), "");
  for (int i : {0, 1}) Y.SetOutlier(i, true);
  EXPECT_EQ(Said(Line), "S has no points: all are marked as outliers");
  for (int i : {0, 1}) Y.SetOutlier(i, false);

  TZyAxis& Axis = *Graph.PrimaryYAxis();
  Axis.SetName("YAxis");
  for (int i : {0, 1}) Y.SetValue(i, -1 - i);
  Axis.SetScaling(TZyAxisScaling::Log);
  EXPECT_EQ(Said(Line), "S has no place on YAxis, which is logarithmic: none of its values is above 0");
  Axis.SetScaling(TZyAxisScaling::Normal);
  Axis.SetStartEnd(TZyAxisEnd::Fixed);
  Axis.SetStopEnd(TZyAxisEnd::Fixed);
  Axis.SetStart(10);
  Axis.SetStop(20);
  EXPECT_EQ(Said(Line), "S lies beside YAxis, which shows 10 to 20: its values go from -2 to -1");
}

TEST_F(SeriesDiagnosis, PointsThatDrawNothingAreTold) {
  TZyDoubleVector &X = *Vector({1, 2, 3}), &Y = *Vector({NaN, 1, NaN});
  auto& Points = Series<TZyPointSeries>(&Y);
  Points.SetXData(&X);
  Graph.AddSeries(Points);
  EXPECT_EQ(Said(Points), "") << "symbols show lone points";
  Points.PointSymbol().SetVisible(false);
  EXPECT_EQ(Said(Points),
            "S draws nothing: a line needs two points that are no gaps or outliers, and symbols are switched off");
  X.AddRange(std::vector<double>{4});
  Y.AddRange(std::vector<double>{-3});
  EXPECT_EQ(Said(Points), "") << "a line goes past gaps";
  Graph.PrimaryYAxis()->SetScaling(TZyAxisScaling::Log);
  EXPECT_EQ(Said(Points), "") << "and down to the edge";
  Graph.PrimaryYAxis()->SetScaling(TZyAxisScaling::Normal);
  X.Delete(3);
  Y.Delete(3);
  Points.PointSymbol().SetVisible(true);
  Points.Line().SetVisible(false);
  TZyAxis& Axis = *Graph.PrimaryXAxis();
  Axis.SetStartEnd(TZyAxisEnd::Fixed);
  Axis.SetStopEnd(TZyAxisEnd::Fixed);
  Axis.SetStart(1.2);
  Axis.SetStop(1.8);
  for (int i : {0, 2}) Y.SetValue(i, 1);
  EXPECT_EQ(Said(Points), "S draws nothing: none of its points lies in what its axes show");
  Points.Line().SetVisible(true);
  EXPECT_EQ(Said(Points), "") << "a line from point to point crosses it";
  Points.PointSymbol().SetVisible(false);
  Points.Line().SetColor(0x00FF0000);
  EXPECT_EQ(Said(Points), "S draws nothing: its colors are transparent");
  TZyPen Own(Colors::Blue, 3);
  Points.SetLinePen(&Own);
  EXPECT_EQ(Said(Points), "");
  Points.SetLinePen(nullptr);
  Points.Line().SetColor(0xFFFF0000);
  Axis.SetStop(20);
  const double WithX[] = {-1, -2, 3}, WithY[] = {5, 4, -2};
  for (int i = 0; i < 3; ++i) X.SetValue(i, WithX[i]), Y.SetValue(i, WithY[i]);
  for (TZyAxis* Each : Graph.Axes()) Each->SetScaling(TZyAxisScaling::Log);
  EXPECT_EQ(Said(Points), "S has no point that is above 0 on all of its logarithmic axes");
  Points.SetName("Second");
  EXPECT_TRUE(Points.Diagnose().starts_with("S (Second) ")) << "another one may be called S as well";
  Graph.BeginUpdate();
  EXPECT_EQ(Graph.Diagnose(),
            std::vector<std::string>{"Graph takes in nothing new: BeginUpdate was called, and EndUpdate not yet"});
  Graph.EndUpdate();
  Graph.SetVisible(false);
  EXPECT_EQ(Graph.Diagnose().front(), "Graph is hidden: Visible is off");
}

TEST_F(SeriesDiagnosis, KindsTellWhatTheyLack) {
  auto& Regression = Series<TZyLinearRegression>(Vector({1}));
  Graph.AddSeries(Regression);
  EXPECT_EQ(Said(Regression), "S has 1 points and needs 2");
  Regression.SetYData(Vector({1, 2, 4}));
  EXPECT_EQ(Said(Regression), "");
}

}  // namespace
}  // namespace zy::testing
