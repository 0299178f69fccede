#include "series/ZyOHLC.h"

#include <gtest/gtest.h>

#include <cmath>

#include "graph/SampleChart.h"

namespace zy::testing {
namespace {

class ZyOHLCTest : public ::testing::Test {
 protected:
  ZyOHLCTest() {
    Chart.UseTenAxes();
    Series->SetLowData(Low);
    Series->SetOpenData(Open);
    Series->SetHighData(High);
  }
  TSampleChart Chart;
  TZyOHLC* Series = Chart.AddSeries<TZyOHLC>("Prices", {2, 6, 8}, {5, 3, 7});
  TZyDoubleVector* Low = Chart.AddVector("Low", {1, 2, 3});
  TZyDoubleVector* Open = Chart.AddVector("Open", {2, 4, 5});
  TZyDoubleVector* High = Chart.AddVector("High", {6, 9, 8, 10});
};

TEST_F(ZyOHLCTest, RangesGoFromLowToHighOverTheShortestVector) {
  Series->Calculate();
  EXPECT_EQ(Series->Count(), 3);
  EXPECT_EQ(Series->XStart(), 2);
  EXPECT_EQ(Series->XStop(), 8);
  EXPECT_EQ(Series->YStart(), 1);
  EXPECT_EQ(Series->YStop(), 9);
  Open->AddOutlier(1);
  Series->Calculate();
  EXPECT_EQ(Series->YStop(), 8);
  Series->SetYData(nullptr);
  EXPECT_TRUE(Chart.Graph->RelatedSeries().empty()) << "the index is no close";
}

TEST_F(ZyOHLCTest, DrawsABarWithTwoTicksAndIsHitWithinThem) {
  for (const float Width : {0.0f, HUGE_VALF}) {
    Series->SetBarWidth(Width);
    EXPECT_EQ(Series->BarWidth(), 1);
  }
  Series->SetBarWidth(10);
  Series->SetIndicatorLength(-3);
  EXPECT_EQ(Series->IndicatorLength(), 1);
  Series->SetIndicatorLength(7);
  Series->Area().Gradient().SetVisible(true);
  const auto Calls = Chart.Calls();
  EXPECT_FALSE(Series->Area().Gradient().Visible());
  // The bar and a tick at both sides take 12 of the 500 pixels of the X axis. The first record: x 2 of 10 in 488 pixels
  // from 50; low 1, open 2, high 6, close 5 of 10 in 250 pixels, upwards from 300.
  for (const std::string_view Call :
       {"FillRectangle(FF00008B, 142.6 150 10 125)", "DrawRectangle(pen FF00008B 1, 142.6 150 10 125)",
        "142.6 250, 135.6 250", "152.6 175, 159.6 175"})
    EXPECT_EQ(Chart.CountOf(Calls, Call), 1) << Call;
  for (const auto& [X, Y, Found] : {std::tuple(136, 200, 0), {135, 200, -1}, {160, 275, 0}, {150, 276, -1}})
    EXPECT_EQ(Series->FindPoint(X, Y), Found) << X << ", " << Y;
  int Asked = 0;
  Series->SetOnGetPen([&](TObject*, TZyPenEventArgs& Args) {
    ++Asked;
    if (Args.Index == 1) Args.Visible = false;
  });
  EXPECT_EQ(Chart.CountOf(Chart.Calls(), "DrawRectangle(pen FF00008B"), 1) << "what a handler hides stays hidden";
  EXPECT_EQ(Asked, 3);
}

}  // namespace
}  // namespace zy::testing
