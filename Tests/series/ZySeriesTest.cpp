#include "series/ZySeries.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <map>
#include <numeric>
#include <random>

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
    const std::function<void(bool)> Steps[] = {[&](bool On) { Series.SetXAxis(On ? Chart.X : nullptr); },
                                               [&](bool On) { Series.SetYAxis(On ? Chart.Y : nullptr); },
                                               [&](bool On) { Series.SetXData(On ? X : nullptr); },
                                               [&](bool On) { Series.SetYData(On ? Y : nullptr); },
                                               [&](bool On) {
                                                 for (TZyAxis* Axis : {Chart.X, Chart.Y})
                                                   Axis->SetParent(On ? Chart.Graph : nullptr);
                                               }};
    const auto& Joined = Chart.Graph->RelatedSeries();
    const std::vector<TZySeries*> Only{&Series};
    const std::vector<IZyVectorReader*> OnlyReader{&Series};
    std::array<bool, 5> Done{};
    for (const int Step : Order) {
      Steps[Step](true);
      Done[static_cast<std::size_t>(Step)] = true;
      Series.Calculate();
      // One vector is enough: the index stands in for the other.
      const bool IsWhole = Done[XAxis] && Done[YAxis] && Done[Parents] && (Done[XData] || Done[YData]);
      EXPECT_EQ(Joined.size(), IsWhole ? 1u : 0u);
    }
    ASSERT_EQ(Joined, Only);
    EXPECT_EQ(Chart.X->RelatedSeries(), Only);
    EXPECT_EQ(Chart.Y->RelatedSeries(), Only);
    EXPECT_EQ(X->RelatedSeries(), OnlyReader);
    EXPECT_EQ(Y->RelatedSeries(), OnlyReader);
    Chart.Paint();
    EXPECT_EQ(Chart.X->Stop(), 2);
    EXPECT_EQ(Series.Points().size(), 3u);
    for (const int Step : {XAxis, YAxis, XData, YData, Parents}) {
      Steps[Step](false);
      const bool HasIndexer = Step == XData || Step == YData;
      EXPECT_EQ(Joined.size(), HasIndexer ? 1u : 0u);
      Chart.Paint();
      if (Step == XData) {
        EXPECT_EQ(Series.XStart(), 0);
        EXPECT_EQ(Series.XStop(), 2) << "the index of the last of three";
        Series.SetXData(nullptr);
        EXPECT_NE(Series.XData(), nullptr) << "the index stays as long as there is a vector";
      }
      Steps[Step](true);
      ASSERT_EQ(Joined, Only);
    }
    for (const int Step : Order) Steps[Step](false);
    EXPECT_TRUE(Chart.X->RelatedSeries().empty() && Chart.Y->RelatedSeries().empty());
    EXPECT_TRUE(X->RelatedSeries().empty() && Y->RelatedSeries().empty());
  } while (std::next_permutation(Order.begin(), Order.end()));
}

TEST(ZySeriesTest, OneVectorMayServeBothDirectionsAndManySeries) {
  TSampleChart Chart;
  TZyLineSeries* const First = Chart.AddSeries("First", {1, 2, 3}, {4, 5, 6});
  TZyLineSeries* const Second = Chart.AddSeries("Second");
  Second->SetXData(First->YData());
  Second->SetYData(First->YData());
  EXPECT_EQ(First->YData()->RelatedSeries(), (std::vector<IZyVectorReader*>{First, Second}));
  Chart.Paint();
  EXPECT_EQ(Second->XStart(), 4);
  EXPECT_EQ(Chart.X->Stop(), 6);
  Second->SetXData(First->XData());
  EXPECT_EQ(First->YData()->RelatedSeries(), (std::vector<IZyVectorReader*>{First, Second})) << "still the Y data";
  Second->SetYData(First->XData());
  EXPECT_EQ(First->YData()->RelatedSeries(), (std::vector<IZyVectorReader*>{First}));
  TZyCustomDoubleVector* const Shared = First->XData();
  delete Shared;
  EXPECT_EQ(Chart.Graph->RelatedSeries(), std::vector<TZySeries*>{First}) << "its X is the index now";
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
  EXPECT_EQ(Other.RelatedSeries(), (std::vector<TZySeries*>{Series}));
  Y.SetParent(Chart.Graph);
  EXPECT_EQ(Chart.Graph->RelatedSeries(), (std::vector<TZySeries*>{Series}));
  EXPECT_TRUE(Other.RelatedSeries().empty());
}

TEST(ZySeriesTest, RangesCountPointsOnly) {
  const struct {
    std::initializer_list<double> X, Y;
    double XStart, XStop, YStart, YStop;
  } Cases[] = {{{0, 1, 2, 100}, {5, 6, 7}, 0, 2, 5, 7},
               {{3, 2}, {1, 2, 3, -50, 900}, 2, 3, 1, 2},
               {{-1, 1}, {4, 4}, -1, 1, 4, 4}};
  for (const auto& Case : Cases) {
    TSampleChart Chart;
    TZyLineSeries* const Series = Chart.AddSeries("Series", Case.X, Case.Y);
    Series->Calculate();
    EXPECT_EQ(Series->GetCount(), static_cast<int>(std::min(Case.X.size(), Case.Y.size())));
    EXPECT_EQ(Series->XStart(), Case.XStart);
    EXPECT_EQ(Series->XStop(), Case.XStop);
    EXPECT_EQ(Series->YStart(), Case.YStart);
    EXPECT_EQ(Series->YStop(), Case.YStop);
  }
  // A lone point makes no line and so no range.
  TSampleChart Chart;
  TZyLineSeries* const Lone = Chart.AddSeries("Lone", {7}, {7});
  Chart.Paint();
  EXPECT_GT(Lone->XStart(), Lone->XStop());
  EXPECT_EQ(Chart.X->Stop(), 10);
  Lone->XData()->Add(8);
  Chart.Paint();
  EXPECT_GT(Lone->XStart(), Lone->XStop()) << "still one point only";
  Lone->YData()->Add(8);
  Chart.Paint();
  EXPECT_EQ(Lone->XStop(), 8);
}

TEST(ZySeriesTest, TakesNewDataByItselfOnlyWhenTold) {
  TSampleChart Chart;
  TZyLineSeries* const Series = Chart.AddSeries("Series", {0, 10}, {0, 10});
  Series->SetAutoUpdate(false);
  Chart.Paint();
  EXPECT_TRUE(Series->Points().empty());
  Series->Calculate();
  Chart.Paint();
  EXPECT_EQ(Series->Points().size(), 2u);
}

/// A chart whose parts die one by one, and references to what is left.
class TMortalChart {
 public:
  enum { Graph, X, Y, XData, YData, Series, Count };

  TMortalChart() {
    TZyLineSeries* const Line = FChart->AddSeries("Series", {0, 5, 10}, {0, 7, 10});
    FParts = {FChart->Graph, FChart->X, FChart->Y, Line->XData(), Line->YData(), Line};
    FChart->Paint();
  }
  void Kill(int Part) {
    delete FParts[static_cast<std::size_t>(Part)];
    FParts[static_cast<std::size_t>(Part)] = nullptr;
    if (FParts[Graph] != nullptr) {
      const bool Whole = FParts[X] != nullptr && FParts[Y] != nullptr && FParts[Series] != nullptr &&
                         (FParts[XData] != nullptr || FParts[YData] != nullptr);
      EXPECT_EQ(FChart->Graph->RelatedSeries().size(), Whole ? 1u : 0u);
      EXPECT_EQ(FChart->Graph->PrimaryXAxis() != nullptr, FParts[X] != nullptr);
      FChart->Paint();
    }
    if (FParts[XData] != nullptr) FChart->Form.FindComponent("SeriesX");
    if (auto* const Vector = dynamic_cast<TZyDoubleVector*>(FParts[YData]))
      Vector->SetValue(1, Vector->GetValue(1) + 1);
    for (const int Axis : {X, Y})
      if (auto* const Living = dynamic_cast<TZyAxis*>(FParts[static_cast<std::size_t>(Axis)])) {
        Living->RangeModified();
        Living->GetNewRanges();
      }
  }

 private:
  std::unique_ptr<TSampleChart> FChart = std::make_unique<TSampleChart>(60, 40);
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

/// A series of many points on axes of 500 by 250 pixels, painted.
struct TDenseChart {
  explicit TDenseChart(int Count, const std::function<double(int)>& YOf) {
    Chart.UsePlainAxes();
    for (int i = 0; i < Count; ++i) {
      X.push_back(i);
      Y.push_back(YOf(i));
    }
    dynamic_cast<TZyDoubleVector&>(*Series->XData()).AddRange(X);
    dynamic_cast<TZyDoubleVector&>(*Series->YData()).AddRange(Y);
    Chart.Paint();
  }
  PointF PixelOf(int Index) const {
    const auto At = static_cast<std::size_t>(Index);
    return {Chart.X->NumberToWorld(X[At]), Chart.Y->NumberToWorld(Y[At])};
  }

  TSampleChart Chart;
  std::vector<double> X, Y;
  TZyLineSeries* Series = Chart.AddSeries("Series");
};

/// Expects of the pixels that they are those of data points in their order, from the first to the last, and that none
/// of the data lies more than a pixel above or below what is drawn in its column.
void ExpectTruePixels(const TDenseChart& Dense) {
  const auto& Points = Dense.Series->Points();
  const auto& Index = Dense.Series->PointIndex();
  const int Count = static_cast<int>(Dense.X.size());
  ASSERT_EQ(Points.size(), Index.size());
  ASSERT_FALSE(Points.empty());
  EXPECT_EQ(Index.front(), 0);
  EXPECT_EQ(Index.back(), Count - 1);
  EXPECT_TRUE(std::is_sorted(Index.begin(), Index.end()));
  EXPECT_EQ(std::adjacent_find(Index.begin(), Index.end()), Index.end());
  struct TExtent {
    float Top = 1e9f, Bottom = -1e9f;
    void Take(const TExtent& Other) {
      Top = std::min(Top, Other.Top);
      Bottom = std::max(Bottom, Other.Bottom);
    }
  };
  std::map<int, TExtent> Drawn, Data;
  for (std::size_t i = 0; i < Points.size(); ++i) {
    ASSERT_EQ(Points[i].Y, Dense.PixelOf(Index[i]).Y) << i;
    ASSERT_NEAR(Points[i].X, Dense.PixelOf(Index[i]).X, 0.5) << i << ": at most moved to the middle of its column";
    Drawn[static_cast<int>(std::floor(Points[i].X))].Take({Points[i].Y, Points[i].Y});
  }
  for (int i = 0; i < Count; ++i) {
    const PointF Pixel = Dense.PixelOf(i);
    Data[static_cast<int>(std::floor(Pixel.X))].Take({Pixel.Y, Pixel.Y});
  }
  for (const auto& [Column, Extent] : Data) {
    TExtent Near;
    for (int Off = -1; Off <= 1; ++Off)
      if (const auto Found = Drawn.find(Column + Off); Found != Drawn.end()) Near.Take(Found->second);
    EXPECT_LE(Near.Top, Extent.Top + 1) << Column;
    EXPECT_GE(Near.Bottom, Extent.Bottom - 1) << Column;
  }
}

TEST(ZySeriesTest, ReducesManyPointsToTheColumns) {
  const std::pair<const char*, std::function<double(int)>> Curves[] = {
      {"ramp", [](int i) { return i; }},
      {"line", [](int) { return 1; }},
      {"three waves", [](int i) { return std::sin(i * 6e-6 * M_PI); }},
      {"spike", [](int i) { return i == 500123 ? 1000 : 0; }},
      {"waves as wide as a column", [](int i) { return std::sin(i * 1e-3 * M_PI); }},
      {"noise", [Random = std::mt19937(1)](int) mutable { return static_cast<double>(Random()) * 1e-9; }}};
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
  const struct {
    int Count;
    double Start, Stop;
    bool Ascending;
    int First, Last;
  } Cases[] = {
      {1000, 200, 300, true, 199, 301},   {1000, 200.5, 299.5, true, 199, 301},
      {1000, -50, 50, true, 0, 51},       {1000, 950, 1050, true, 949, 999},
      {1000, 2000, 3000, true, 998, 999}, {1000, -3000, -2000, true, 0, 1},
      {1000, 200, 300, false, 0, 999},    {21, 5, 10, true, 0, 20},  // too few to be worth it
      {22, 5, 10, true, 4, 11},
  };
  for (const auto& Case : Cases) {
    SCOPED_TRACE(::testing::Message() << Case.Count << " points, " << Case.Start << " to " << Case.Stop);
    TSampleChart Chart;
    Chart.X->SetStop(Case.Stop);
    Chart.X->SetStart(Case.Start);
    Chart.X->SetStartEnd(TZyAxisEnd::Fixed);
    Chart.X->SetStopEnd(TZyAxisEnd::Fixed);
    TZyLineSeries* const Series = Chart.AddSeries("Series");
    for (int i = 0; i < Case.Count; ++i) {
      Series->XData()->Add(i);
      Series->YData()->Add(i % 2);
    }
    if (!Case.Ascending) Series->XData()->SetValue(1, 0.0);
    Chart.Paint();
    ASSERT_GE(Series->PointIndex().size(), 2u);
    EXPECT_EQ(Series->PointIndex().front(), Case.First);
    EXPECT_EQ(Series->PointIndex().back(), Case.Last);
  }
}

TEST(ZySeriesTest, NewSeriesWalkThroughSixColours) {
  TComponent Owner;
  std::vector<TZyColor> Colors;
  std::vector<std::string> Captions;
  for (int i = 0; i < 12; ++i) {
    auto* const Series = new TZyLineSeries(&Owner);
    Series->SetName("Line" + std::to_string(i));
    Colors.push_back(Series->Line().Color());
    Captions.push_back(Series->Caption());
  }
  EXPECT_EQ(Captions.front(), "ZyLineSeries1") << "the class without its first letter, and a number";
  for (std::size_t i = 0; i < 6; ++i) {
    EXPECT_EQ(Colors[i], Colors[i + 6]);
    EXPECT_EQ(std::count(Colors.begin(), Colors.begin() + 6, Colors[i]), 1);
  }
}

}  // namespace
}  // namespace zy::testing
