// Pictures of many points, which are drawn in quicker ways, beside those of all points one by one, as they are when an
// event asks for each.

#include <gtest/gtest.h>

#include <array>
#include <random>

#include "graph/SampleChart.h"
#include "series/ZyArrows.h"
#include "series/ZyBubbles.h"
#include "series/ZyPointWithErrorSeries.h"

namespace zy::testing {
namespace {

class ManyPointsTest : public ::testing::Test {
 protected:
  ManyPointsTest() {
    Chart.UseTenAxes();
    Chart.Graph->SetBackColor(Colors::White);
  }

  std::vector<double> Scatter(double From, double To) {
    std::uniform_real_distribution<double> Spread(From, To);
    std::vector<double> Result(5000);
    for (double& Value : Result) Value = Spread(Random);
    return Result;
  }
  TZyDoubleVector* Lengths(double From, double To) {
    return Chart.AddVector("Lengths" + std::to_string(++Number), Scatter(From, To));
  }
  template <class TSeries>
  TSeries* Add() {
    return Chart.AddSeries<TSeries>("Many" + std::to_string(++Number), Scatter(0, 10), Scatter(0, 10));
  }

  /// What differs of two pictures: the mean of all pixels, and the most of one.
  static std::pair<double, int> DifferenceOf(const Bitmap& A, const Bitmap& B) {
    double Sum = 0;
    int Most = 0;
    for (int Y = 0; Y < A.GetHeight(); ++Y)
      for (int X = 0; X < A.GetWidth(); ++X) {
        const int Here = Distance(A.GetPixel(X, Y), B.GetPixel(X, Y));
        Sum += Here;
        Most = std::max(Most, Here);
      }
    return {Sum / (A.GetWidth() * A.GetHeight()), Most};
  }

  std::mt19937 Random{5};
  int Number = 0;
  TSampleChart Chart;
};

TEST_F(ManyPointsTest, BarsOfErrorsAreThoseOfAllPointsAgainAndAgain) {
  auto* const Series = Add<TZyPointWithErrorSeries>();
  Series->Line().SetVisible(false);
  Series->PointSymbol().SetVisible(false);
  Series->SetDeltaXPlus(Lengths(0, 0.5));
  Series->SetDeltaYMinus(Lengths(0, 0.5));
  Series->SetDeltaYPlus(Lengths(-0.1, 0.1));
  const auto Compare = [&](const char* What) {
    SCOPED_TRACE(What);
    Chart.Paint();
    const Bitmap Fast = Chart.Paint();
    int Asked = 0;
    Series->SetOnGetIndicatorsPen([&Asked](TObject*, TZyPenEventArgs&) { ++Asked; });
    const Bitmap All = Chart.Paint();
    Series->SetOnGetIndicatorsPen(nullptr);
    EXPECT_GT(Asked, 4900) << "all that lie on pixels of their own";
    const auto [Mean, Most] = DifferenceOf(Fast, All);
    EXPECT_LT(Mean, 0.5);
    EXPECT_LE(Most, 24);
  };
  Compare("opaque");
  Series->ErrorIndicator().SetColor(0x20FF0000);
  Compare("translucent");
  Series->ErrorIndicator().SetWidth(2.5);
  Compare("wide");
  Series->PointSymbol().SetSize(20);
  Compare("other strokes");
  Chart.Y->SetTwisted(true);
  Compare("other pixels");
}

TEST_F(ManyPointsTest, ArrowsAndBubblesAreThoseOfAllPoints) {
  auto* const Arrows = Add<TZyArrows>();
  Arrows->SetDeltaX(Lengths(-0.5, 0.5));
  Arrows->SetDeltaY(Lengths(-1, 1));
  Arrows->Arrow().SetColor(0xC0204080);
  auto* const Bubbles = Add<TZyBubbles>();
  Bubbles->SetRadiusData(Lengths(0.05, 0.6));
  Bubbles->Area().SetVisible(true);
  Bubbles->Area().SetForeColor(0x404E79A7);
  Bubbles->Line().SetColor(0xA0E15759);
  for (TZySeries* Series : std::initializer_list<TZySeries*>{Arrows, Bubbles}) {
    Arrows->SetVisible(Series == Arrows);
    Bubbles->SetVisible(Series == Bubbles);
    const Bitmap Fast = Chart.Paint();
    Series->SetOnGetPen([](TObject*, TZyPenEventArgs&) {});
    const Bitmap All = Chart.Paint();
    const auto [Mean, Most] = DifferenceOf(Fast, All);
    EXPECT_GT(Mean, 0) << "one way alone is compared with itself";
    EXPECT_LT(Mean, 2);
    EXPECT_LE(Most, 60);
  }
}

/// One of 40 points, at its index, is longer than all others; the X axis goes from 10 to 20.
TEST_F(ManyPointsTest, WhatReachesIntoAZoomedAxisIsDrawn) {
  const struct {
    const char *Kind, *Length;
    int Longest;
    double Value;
    int First, Last;  // one beyond those that may reach in
  } Cases[] = {{"TZyPointWithErrorSeries", "DeltaXPlus", 5, 6, 3, 21},
               {"TZyPointWithErrorSeries", "DeltaXMinus", 24, 5, 9, 26},
               {"TZyArrows", "DeltaX", 5, 6, 3, 21},
               {"TZyArrows", "DeltaX", 24, -5, 9, 26},
               {"TZyBubbles", "RadiusData", 8, 6, 6, 24}};  // of Y, 3 of X
  for (const auto& [Kind, Length, Longest, Value, First, Last] : Cases) {
    SCOPED_TRACE(Kind);
    std::vector<double> Xs, Lengths(40, 0.5);
    for (int i = 0; i < 40; ++i) Xs.push_back(i);
    Lengths[static_cast<std::size_t>(Longest)] = Value;
    auto& Series = dynamic_cast<TZySeries&>(*FindClass(Kind).Factory()(&Chart.Form));
    Series.SetDefaultAxis(*Chart.Graph);
    for (const TPropInfo* Info : Series.ClassInfo().Properties())
      if (Info->Kind == TPropKind::Class && Info->ObjectClass().InheritsFrom(TZyCustomDoubleVector::StaticClassInfo()))
        Info->SetObject(Series, Chart.AddVector("V" + std::to_string(++Number), std::vector<double>(40, 0.5)));
    Series.SetXData(Chart.AddVector("X" + std::to_string(++Number), Xs));
    SetObjectProp(Series, Length, Chart.AddVector("Lengths" + std::to_string(++Number), Lengths));
    Chart.FixEnds(Chart.X, 10, 20);
    Chart.Paint();
    EXPECT_EQ(Series.PointIndex().front(), First);
    EXPECT_EQ(Series.PointIndex().back(), Last);
    delete &Series;
  }
}

}  // namespace
}  // namespace zy::testing
