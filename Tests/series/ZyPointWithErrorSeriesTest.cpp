#include "series/ZyPointWithErrorSeries.h"

#include <gtest/gtest.h>

#include <functional>
#include <utility>

#include "graph/SampleChart.h"
#include "undo/ZyUndoStack.h"

namespace zy::testing {
namespace {

/// Three points on axes from 0 to 10, of 50 and 25 pixels for 1; bars of all directions, with strokes of 2 pixels to
/// both sides.
class ZyPointWithErrorSeriesTest : public ::testing::Test {
 protected:
  ZyPointWithErrorSeriesTest() {
    Chart.UseTenAxes();
    Series->PointSymbol().SetVisible(false);
    Series->PointSymbol().SetSize(5);
    Series->SetDeltaXPlus(XPlus);
    Series->SetDeltaXMinus(XMinus);
    Series->SetDeltaYPlus(YPlus);
    Series->SetDeltaYMinus(YMinus);
  }
  std::vector<std::string> Bars() {
    auto Calls = Chart.Calls();
    std::erase_if(Calls, [](const std::string& Call) { return !Call.starts_with("DrawLine(pen FF808080 1, "); });
    for (std::string& Call : Calls) Call = Call.substr(25, Call.size() - 26);
    return Calls;
  }
  std::vector<double> Ranges() {
    Series->Calculate();
    return {Series->XStart(), Series->XStop(), Series->YStart(), Series->YStop()};
  }
  using TRanges = std::vector<double>;

  TSampleChart Chart;
  TZyPointWithErrorSeries* Series = Chart.AddSeries<TZyPointWithErrorSeries>("Points", {2, 4, 6}, {4, 8, 6});
  TZyDoubleVector* XPlus = Chart.AddVector("XPlus", {1, 0.5, -2});
  TZyDoubleVector* XMinus = Chart.AddVector("XMinus", {3});
  TZyDoubleVector* YPlus = Chart.AddVector("YPlus", {2, 4, 1});
  TZyDoubleVector* YMinus = Chart.AddVector("YMinus", {1, 1, 7});
};

TEST_F(ZyPointWithErrorSeriesTest, BarsEndAtTheLengthsWithStrokesAcross) {
  const std::vector<std::string> First = {"150 200, 200 200", "200 198, 200 202", "150 200, 0 200",
                                          "0 198, 0 202",     "150 200, 150 150", "148 150, 152 150",
                                          "150 200, 150 225", "148 225, 152 225"};
  std::vector<std::string> Found = Bars();
  ASSERT_EQ(Found.size(), 8u + 6 + 6) << "the third vector has one length";
  EXPECT_EQ(std::vector(Found.begin(), Found.begin() + 8), First);
  EXPECT_EQ(Found[14], "350 150, 450 150") << "by magnitude";
  Series->SetDyPlusTransformation([](TObject*, const TZyTransformEventArgs& Args) { return Args.Index - Args.Value; });
  EXPECT_EQ(Bars()[4], "150 200, 150 150") << "0 - 2, by magnitude again";
  Series->SetDeltaYMinus(nullptr);
  YPlus->Delete(2);
  YPlus->AddOutlier(1);
  Found = Bars();
  EXPECT_EQ(Found.size(), 6u + 2) << "an outlier takes its point out; nothing along Y for the last one";
  Series->ErrorIndicator().SetVisible(false);
  EXPECT_TRUE(Bars().empty());
  EXPECT_EQ(Series->Points().size(), 2u) << "also while the bars are hidden";
}

TEST_F(ZyPointWithErrorSeriesTest, RangesIncludeVisibleBars) {
  EXPECT_EQ(Ranges(), (TRanges{-1, 8, -1, 12}));
  YPlus->SetValue(1, 0);
  EXPECT_EQ(Ranges(), (TRanges{-1, 8, -1, 8})) << "any change of a length";
  Series->ErrorIndicator().SetVisible(false);
  EXPECT_EQ(Ranges(), (TRanges{2, 6, 4, 8}));
  Series->ErrorIndicator().SetVisible(true);
  for (TZyAxis* Axis : {Chart.X, Chart.Y}) {
    Chart.FixEnds(Axis, 1, 10);
    Axis->SetScaling(TZyAxisScaling::Log);
  }
  Series->RangesModified();
  EXPECT_EQ(Ranges(), (TRanges{4, 8, 3, 8})) << "ends at or below 0 do not count, nor do their points in their place";
  EXPECT_TRUE(Series->LeavesScaleOf(*Chart.Y));
  for (const int i : {0, 1, 2}) YMinus->SetValue(i, 9);
  EXPECT_EQ(Ranges()[2], 4) << "the points, where no low end counts";
  Series->SetOutliersVisible(true);
  for (TZyDoubleVector* Vector : {XPlus, XMinus, YPlus, YMinus}) delete Vector;
  EXPECT_EQ(Series->DeltaYMinus(), nullptr);
  EXPECT_EQ(Ranges(), (TRanges{2, 6, 4, 8}));
  EXPECT_FALSE(Series->LeavesScaleOf(*Chart.Y));
}

TEST_F(ZyPointWithErrorSeriesTest, ASinglePointOfBarsAloneIsShown) {
  for (auto* Data : Series->Vectors()) dynamic_cast<TZyDoubleVector&>(*Data).SetInternalArray({5});
  Series->Line().SetVisible(false);
  Series->ErrorIndicator().SetVisible(false);
  EXPECT_FALSE(Series->SeriesVisible());
  Series->PointSymbol().SetVisible(true);
  Series->PointSymbol().SetFillColor(0x80FFFFFF);
  Series->ErrorIndicator().SetVisible(true);
  EXPECT_TRUE(Series->SeriesVisible());
  const auto Calls = Chart.Calls();
  EXPECT_EQ(Chart.CountOf(Calls, "DrawLine(pen FF808080 1, "), 8);
  EXPECT_EQ(Chart.CountOf(Calls, "SetClip(not "), 1) << "bars stop at a translucent symbol";
  Series->SetVisible(false);
  EXPECT_FALSE(Series->SeriesVisible());
}

TEST_F(ZyPointWithErrorSeriesTest, WhatAHandlerLeavesHoldsForThePointsAfter) {
  const TZyPen Wide(Colors::Lime, 3);
  std::vector<double> Asked;
  Series->SetOnGetIndicatorsPen([&](TObject*, TZyPenEventArgs& Args) {
    Asked.insert(Asked.end(), {static_cast<double>(Args.Index), Args.X, Args.Y});
    if (Args.Index == 1) Args.Pen = &Wide;
    Args.Visible = Args.Index < 2;
  });
  const auto Calls = Chart.Calls();
  EXPECT_EQ(Asked, (std::vector<double>{0, 2, 4, 1, 4, 8, 2, 6, 6}));
  EXPECT_EQ(Chart.CountOf(Calls, "DrawLine(pen FF808080 1, "), 8);
  EXPECT_EQ(Chart.CountOf(Calls, "DrawLine(pen FF00FF00 3, "), 6);
  Series->SetOnGetIndicatorsPen([&](TObject*, TZyPenEventArgs&) { delete Series; });
  EXPECT_EQ(Chart.CountOf(Chart.Calls(), "DrawLine(pen FF808080 1, "), 0);
}

TEST_F(ZyPointWithErrorSeriesTest, TransformationsMayTakeAwayWhatIsRead) {
  const std::function<void()> Takes[] = {[&] { Series->SetXAxis(nullptr); }, [&] { YPlus->Clear(); },
                                         [&] { delete YMinus; }, [&] { delete Series; }};
  for (const auto& Take : Takes) {
    Series->SetXAxis(Chart.X);
    bool IsTaken = false;
    Series->SetYValueTransformation([&](TObject*, const TZyTransformEventArgs& Args) {
      if (!std::exchange(IsTaken, true)) Take();
      return Args.Value;
    });
    Chart.Paint();
    Chart.Paint();
    EXPECT_TRUE(IsTaken);
  }
}

TEST_F(ZyPointWithErrorSeriesTest, ItemsOfLegendsShowSmallBars) {
  EXPECT_EQ(Series->GetItemHeight(), 1 + 8);
  const auto Calls = Chart.CallsOf([&](Graphics& Gr) { Series->DrawListItem({&Gr, {10, 20, 50, 40}, 0}); });
  // 40 by 20 around (30, 30): reaches of (40 - 2) / 4 and (20 - 2) / 2 from 2 + 1 on.
  for (const std::string_view Call :
       {"10 40, 50 20", "33 30, 39.5 30", "39.5 28, 39.5 32", "27 30, 20.5 30", "30 27, 30 21", "28 39, 32 39"})
    EXPECT_EQ(Chart.CountOf(Calls, Call), 1) << Call;
  Series->SetDeltaXPlus(nullptr);
  Series->SetDeltaXMinus(nullptr);
  const auto Level = Chart.CallsOf([&](Graphics& Gr) { Series->DrawListItem({&Gr, {10, 20, 50, 40}, 0}); });
  EXPECT_EQ(Chart.CountOf(Level, "10 30, 50 30"), 1) << "without bars along X the line stays level";
}

TEST_F(ZyPointWithErrorSeriesTest, DesignersGetSampleLengthsAndBentData) {
  Chart.Form.SetDesigning(true);
  auto* const New = new TZyPointWithErrorSeries(&Chart.Form);
  auto* const Data = new TZyDoubleVector(&Chart.Form);
  auto* const Lengths = new TZyDoubleVector(&Chart.Form);
  New->SetDefaultAxis(*Chart.Graph);
  New->SetYData(Data);
  ASSERT_EQ(Data->Count(), 11);
  const std::vector<double> Before(Data->Values().begin(), Data->Values().end());
  New->SetDeltaYPlus(Lengths);
  ASSERT_EQ(Lengths->Count(), 11);
  for (int i = 0; i < 11; ++i) {
    EXPECT_GE(Lengths->GetValue(i), 0.5);
    EXPECT_LE(Lengths->GetValue(i), 1.0);
    EXPECT_NEAR(Data->GetValue(i), Before[static_cast<std::size_t>(i)] - Lengths->GetValue(10) * i / 10, 1e-12) << i;
  }
}

}  // namespace
}  // namespace zy::testing
