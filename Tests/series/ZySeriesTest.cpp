#include "series/ZySeries.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <map>
#include <numeric>
#include <random>
#include <set>
#include <utility>

#include "graph/SampleChart.h"

namespace zy::testing {
namespace {

TEST(ZySeriesTest, JoinsItsGraphInEveryOrderOfAssignments) {
  enum { XAxis, YAxis, XData, YData, Parents };
  std::array<int, 5> Order{XAxis, YAxis, XData, YData, Parents};
  do {
    TSampleChart Chart;
    for (TZyAxis* Axis : {Chart.X, Chart.Y}) Axis->SetParent(nullptr);
    TZyDoubleVector* const X = Chart.AddVector("XData", {0, 1, 2});
    TZyDoubleVector* const Y = Chart.AddVector("YData", {0, 5, 10});
    TZyLineSeries Series(&Chart.Form);
    std::array<bool, 5> Done{};
    const auto Set = [&](int Step, bool On) {
      Done[static_cast<std::size_t>(Step)] = On;
      if (Step == XAxis) Series.SetXAxis(On ? Chart.X : nullptr);
      if (Step == YAxis) Series.SetYAxis(On ? Chart.Y : nullptr);
      if (Step == XData) Series.SetXData(On ? X : nullptr);
      if (Step == YData) Series.SetYData(On ? Y : nullptr);
      if (Step == Parents)
        for (TZyAxis* Axis : {Chart.X, Chart.Y}) Axis->SetParent(On ? Chart.Graph : nullptr);
      Series.Calculate();
      // One vector is enough: the index stands in for the other.
      const bool IsWhole = Done[XAxis] && Done[YAxis] && Done[Parents] && (Done[XData] || Done[YData]);
      EXPECT_EQ(Listed(Chart.Graph->RelatedSeries()), std::vector<TZySeries*>(IsWhole ? 1 : 0, &Series));
    };
    for (const int Step : Order) Set(Step, true);
    for (const TZyAxis* Axis : {Chart.X, Chart.Y})
      EXPECT_TRUE(Axis->RelatedSeries().size() == 1 && Axis->RelatedSeries()[0] == &Series);
    EXPECT_EQ(Listed(X->RelatedSeries()), std::vector<IZyVectorReader*>{&Series});
    EXPECT_EQ(Listed(Y->RelatedSeries()), std::vector<IZyVectorReader*>{&Series});
    Chart.Paint();
    EXPECT_EQ(Chart.X->Stop(), 2);
    EXPECT_EQ(Series.Points().size(), 3u);
    for (const int Step : {XAxis, YAxis, XData, YData, Parents}) {
      Set(Step, false);
      Chart.Paint();
      if (Step == XData) {
        EXPECT_EQ(std::pair(Series.XStart(), Series.XStop()), std::pair(0.0, 2.0)) << "the index of the last of three";
        Series.SetXData(nullptr);
        EXPECT_NE(Series.XData(), nullptr) << "the index stays as long as there is a vector";
      }
      Set(Step, true);
    }
    for (const int Step : Order) Set(Step, false);
    EXPECT_TRUE(Chart.X->RelatedSeries().empty() && Chart.Y->RelatedSeries().empty());
    EXPECT_TRUE(X->RelatedSeries().empty() && Y->RelatedSeries().empty());
  } while (std::next_permutation(Order.begin(), Order.end()));
}

TEST(ZySeriesTest, OneVectorMayServeBothDirectionsAndManySeries) {
  TSampleChart Chart;
  TZyLineSeries* const First = Chart.AddSeries("First", {1, 2, 3}, {4, 5, 6});
  TZyLineSeries* const Second = Chart.AddSeries("Second");
  const std::vector<IZyVectorReader*> Both{First, Second};
  Second->SetXData(First->YData());
  Second->SetYData(First->YData());
  EXPECT_EQ(Listed(First->YData()->RelatedSeries()), Both);
  Chart.Paint();
  EXPECT_EQ(Second->XStart(), 4);
  EXPECT_EQ(Chart.X->Stop(), 6);
  Second->SetXData(First->XData());
  EXPECT_EQ(Listed(First->YData()->RelatedSeries()), Both) << "still the Y data";
  Second->SetYData(First->XData());
  EXPECT_EQ(Listed(First->YData()->RelatedSeries()), (std::vector<IZyVectorReader*>{First}));
  delete First->XData();
  EXPECT_EQ(Listed(Chart.Graph->RelatedSeries()), std::vector<TZySeries*>{First}) << "its X is the index now";
  EXPECT_EQ(Second->YData(), nullptr);
}

TEST(ZySeriesTest, MovesToAnotherGraphWithItsAxis) {
  TSampleChart Chart;
  TZyLineSeries* const Series = Chart.AddSeries("Series", {0, 1}, {0, 1});
  TZyGraph2D Other(&Chart.Form);
  TZyAxis Y(&Chart.Form);
  Y.SetPosition(TZyAxisPosition::Left);
  Y.SetParent(&Other);
  Series->SetYAxis(&Y);
  EXPECT_TRUE(Chart.Graph->RelatedSeries().empty());
  EXPECT_EQ(Listed(Other.RelatedSeries()), (std::vector<TZySeries*>{Series}));
  Y.SetParent(Chart.Graph);
  EXPECT_EQ(Listed(Chart.Graph->RelatedSeries()), (std::vector<TZySeries*>{Series}));
  EXPECT_TRUE(Other.RelatedSeries().empty());
}

TEST(ZySeriesTest, RangesCountPointsOnly) {
  const std::tuple<std::vector<double>, std::vector<double>, int, std::array<double, 4>> Cases[] = {
      {{0, 1, 2, 100}, {5, 6, 7}, 3, {0, 2, 5, 7}},
      {{3, 2}, {1, 2, 3, -50, 900}, 2, {2, 3, 1, 2}},
      {{-1, 1}, {4, 4}, 2, {-1, 1, 4, 4}}};
  for (const auto& [X, Y, Count, Ranges] : Cases) {
    TSampleChart Chart;
    TZyLineSeries* const Series = Chart.AddSeries("Series", X, Y);
    Series->Calculate();
    EXPECT_EQ(Series->GetCount(), Count);
    EXPECT_EQ((std::array{Series->XStart(), Series->XStop(), Series->YStart(), Series->YStop()}), Ranges);
  }
  // A lone point makes no line and so no range, nor does one without a partner.
  TSampleChart Chart;
  TZyLineSeries* const Lone = Chart.AddSeries("Lone", {7, 8}, {7});
  Chart.Paint();
  EXPECT_GT(Lone->XStart(), Lone->XStop());
  EXPECT_EQ(Chart.X->Stop(), 10);
  Lone->YData()->Add(8);
  Chart.Paint();
  EXPECT_EQ(Lone->XStop(), 8);
  Lone->SetAutoUpdate(false);
  Lone->YData()->SetValue(1, 9);
  Chart.Paint();
  EXPECT_EQ(Lone->YStop(), 8) << "takes new data by itself only when told";
  Lone->Calculate();
  EXPECT_EQ(Lone->YStop(), 9);
}

/// A chart whose parts die one by one, and references to what is left.
class TMortalChart {
 public:
  enum { Graph, X, Y, XData, YData, Series, Count };

  TMortalChart() {
    TZyLineSeries* const Line = FChart.AddSeries("Series", {0, 5, 10}, {0, 7, 10});
    FParts = {FChart.Graph, FChart.X, FChart.Y, Line->XData(), Line->YData(), Line};
    FChart.Paint();
  }
  void Kill(int Part) {
    delete std::exchange(FParts[static_cast<std::size_t>(Part)], nullptr);
    if (FParts[Graph] != nullptr) {
      const bool Whole = FParts[X] != nullptr && FParts[Y] != nullptr && FParts[Series] != nullptr &&
                         (FParts[XData] != nullptr || FParts[YData] != nullptr);
      EXPECT_EQ(FChart.Graph->RelatedSeries().size(), Whole ? 1u : 0u);
      EXPECT_EQ(FChart.Graph->PrimaryXAxis() != nullptr, FParts[X] != nullptr);
      FChart.Paint();
    }
    for (TComponent* Living : FParts) {
      if (auto* const Vector = dynamic_cast<TZyDoubleVector*>(Living)) Vector->SetValue(1, Vector->GetValue(1) + 1);
      auto* const Axis = dynamic_cast<TZyAxis*>(Living);
      if (Axis == nullptr) continue;
      Axis->RangeModified();
      Axis->GetNewRanges();
    }
  }

 private:
  TSampleChart FChart{60, 40};
  std::array<TComponent*, Count> FParts{};
};

// Worth its time under the address sanitizer above all.
TEST(ZySeriesTest, PartsDieInEveryOrder) {
  std::array<int, TMortalChart::Count> Order;
  std::iota(Order.begin(), Order.end(), 0);
  do {
    TMortalChart Chart;
    for (const int Part : Order) Chart.Kill(Part);
  } while (std::next_permutation(Order.begin(), Order.end()));
  for (int Part = 0; Part < TMortalChart::Count; ++Part) {
    TMortalChart Chart;  // the form takes the others along
    Chart.Kill(Part);
  }
}

// --- Pixels ---------------------------------------------------------------------------------------------------------

/// A series of many points on axes of 500 by 250 pixels, painted. What is 999 is an outlier.
struct TDenseChart {
  explicit TDenseChart(int Count, const std::function<double(int)>& YOf) {
    Chart.UsePlainAxes();
    std::vector<double> XValues, YValues;
    for (int i = 0; i < Count; ++i) {
      XValues.push_back(i);
      YValues.push_back(YOf(i));
    }
    Series = Chart.AddSeries("Series", XValues, YValues);
    for (int i = 0; i < Count; ++i)
      if (YValues[static_cast<std::size_t>(i)] == 999) Series->YData()->AddOutlier(i);
    Chart.Paint();
  }
  PointF PixelOf(int Index) const {
    return {Chart.X->NumberToWorld(Index), Chart.Y->NumberToWorld(Series->YData()->GetValue(Index))};
  }

  TSampleChart Chart;
  TZyLineSeries* Series = nullptr;
};

/// Expects of the pixels that they are those of data points in their order, from the first to the last, and that none
/// of the data lies more than a pixel above or below what is drawn in its column.
void ExpectTruePixels(const TDenseChart& Dense) {
  const auto& Points = Dense.Series->Points();
  const auto& Index = Dense.Series->PointIndex();
  ASSERT_EQ(Points.size(), Index.size());
  ASSERT_FALSE(Points.empty());
  EXPECT_EQ(std::pair(Index.front(), Index.back()), std::pair(0, Dense.Series->YData()->Count() - 1));
  EXPECT_EQ(std::ranges::adjacent_find(Index, std::ranges::greater_equal{}), Index.end());
  std::map<int, std::pair<float, float>> Drawn;  // top and bottom of a column and its neighbours
  for (std::size_t i = 0; i < Points.size(); ++i) {
    ASSERT_TRUE(Dense.Series->HasValuesAt(Index[i])) << i;
    ASSERT_EQ(Points[i].Y, Dense.PixelOf(Index[i]).Y) << i;
    ASSERT_NEAR(Points[i].X, Dense.PixelOf(Index[i]).X, 0.5) << i << ": at most moved to the middle of its column";
    for (const int Off : {-1, 0, 1}) {
      auto& [Top, Bottom] =
          Drawn.try_emplace(static_cast<int>(std::floor(Points[i].X)) + Off, 1e9f, -1e9f).first->second;
      Top = std::min(Top, Points[i].Y);
      Bottom = std::max(Bottom, Points[i].Y);
    }
  }
  for (int i = 0; i < Dense.Series->YData()->Count(); ++i) {
    const auto [X, Y] = Dense.PixelOf(i);
    const auto& [Top, Bottom] = Drawn[static_cast<int>(std::floor(X))];
    ASSERT_TRUE(!Dense.Series->HasValuesAt(i) || (Y >= Top - 1 && Y <= Bottom + 1)) << i;
  }
}

TEST(ZySeriesTest, ReducesManyPointsToTheColumns) {
  auto Noise = [Random = std::mt19937(1)](int) mutable { return static_cast<double>(Random()) * 1e-9; };
  const std::pair<const char*, std::function<double(int)>> Curves[] = {
      {"ramp", [](int i) { return i; }},
      {"line", [](int) { return 1; }},
      {"three waves", [](int i) { return std::sin(i * 6e-6 * M_PI); }},
      {"spike", [](int i) { return i == 500123 ? 1000 : 0; }},
      {"waves as wide as a column", [](int i) { return std::sin(i * 1e-3 * M_PI); }},
      {"noise", Noise},
      {"gaps", [Noise](int i) mutable { return i % 100 == 7    ? std::nan("")
                                               : i % 9999 == 3 ? 999
                                                               : Noise(i); }}};
  for (const auto& [Name, YOf] : Curves) {
    SCOPED_TRACE(Name);
    const TDenseChart Dense(1000000, YOf);
    EXPECT_LE(Dense.Series->Points().size(), 4u * 501u);
    ExpectTruePixels(Dense);
  }
  const TDenseChart Few(51, [](int i) { return i * 7 % 10; });
  EXPECT_EQ(Few.Series->Points().size(), 51u);
  ExpectTruePixels(Few);
}

TEST(ZySeriesTest, LeavesOutAscendingDataBeyondTheAxis) {
  // Count, start and stop of the axis, whether the data ascend, the first and the last point that is drawn.
  const std::tuple<int, double, double, bool, int, int> Cases[] = {{1000, 200, 300, true, 199, 301},
                                                                   {1000, 200.5, 299.5, true, 199, 301},
                                                                   {1000, -50, 50, true, 0, 51},
                                                                   {1000, 950, 1050, true, 949, 999},
                                                                   {1000, 2000, 3000, true, 998, 999},
                                                                   {1000, -3000, -2000, true, 0, 1},
                                                                   {1000, 200, 300, false, 0, 999},
                                                                   {21, 5, 10, true, 0, 20},
                                                                   {22, 5, 10, true, 4, 11}};
  for (const auto& [Count, Start, Stop, IsAscending, First, Last] : Cases) {
    TSampleChart Chart;
    Chart.FixEnds(Chart.X, Start, Stop);
    TZyLineSeries* const Series = Chart.AddSeries("Series");
    for (int i = 0; i < Count; ++i) {
      Series->XData()->Add(i == 1 && !IsAscending ? 0 : i);
      Series->YData()->Add(i % 2);
    }
    Chart.Paint();
    ASSERT_GE(Series->PointIndex().size(), 2u);
    EXPECT_EQ(std::pair(Series->PointIndex().front(), Series->PointIndex().back()), std::pair(First, Last))
        << Count << " points, " << Start << " to " << Stop;
  }
}

TEST(ZySeriesTest, NewSeriesWalkThroughSixColours) {
  TComponent Owner;
  std::vector<TZyColor> Colors;
  for (int i = 0; i < 12; ++i) {
    auto* const Series = new TZyLineSeries(&Owner);
    Series->SetName("Line" + std::to_string(i));
    EXPECT_TRUE(i > 0 || Series->Caption() == "ZyLineSeries1") << "the class without its first letter, and a number";
    Colors.push_back(Series->Line().Color());
  }
  EXPECT_TRUE(std::equal(Colors.begin(), Colors.begin() + 6, Colors.begin() + 6));
  EXPECT_EQ(std::set(Colors.begin(), Colors.end()).size(), 6u);
}

}  // namespace
}  // namespace zy::testing
