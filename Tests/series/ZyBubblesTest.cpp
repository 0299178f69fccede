#include "series/ZyBubbles.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "graph/SampleChart.h"

namespace zy::testing {
namespace {

/// Two bubbles on axes from 0 to 10, of 500 by 250 pixels.
class ZyBubblesTest : public ::testing::Test {
 protected:
  ZyBubblesTest() {
    Chart.UseTenAxes();
    Series->SetRadiusData(Radius);
    Series->Area().SetVisible(true);
  }
  TSampleChart Chart;
  TZyBubbles* Series = Chart.AddSeries<TZyBubbles>("Bubbles", {2, 6}, {4, 8});
  TZyDoubleVector* Radius = Chart.AddVector("Radius", {1, -2});
};

TEST_F(ZyBubblesTest, RangesTakeInTheRadiiInBothDirections) {
  Chart.Paint();
  Series->RangesModified();
  Chart.Paint();
  EXPECT_EQ(Series->YStart(), 3);
  EXPECT_EQ(Series->YStop(), 10);
  // k = (6 - 2) * 250 / ((10 - 3) * 500): a radius in Y as a part of the span of X.
  const double k = 4.0 * Chart.Y->AxLength() / (7.0 * Chart.X->AxLength());
  EXPECT_NEAR(Series->XStart(), 2 - k, 1e-12);
  EXPECT_NEAR(Series->XStop(), 6 + 2 * k, 1e-12);
  Series->SetElliptical(true);
  Series->SetRadiusTransformation([](TObject*, const TZyTransformEventArgs& Args) { return -2 * Args.Value; });
  Chart.Paint();
  EXPECT_EQ(Series->XStart(), 0);
  EXPECT_EQ(Series->XStop(), 10);
  EXPECT_EQ(Series->YStart(), 2);
  EXPECT_EQ(Series->YStop(), 12);
  Radius->AddOutlier(1);
  Series->Calculate();
  EXPECT_EQ(Series->YStop(), 6);
  Chart.Y->SetPosition(TZyAxisPosition::Left);
  for (auto* Data : {Series->XData(), Series->YData()}) dynamic_cast<TZyDoubleVector&>(*Data).SetInternalArray({5, 5});
  Radius->SetInternalArray({0, 0});
  Series->SetElliptical(false);
  Series->Calculate();
  EXPECT_EQ(Series->XStart(), 5) << "no ratio of spans: the points alone";
}

TEST_F(ZyBubblesTest, CirclesAreRoundAndHitByTheirRectangle) {
  const auto Calls = Chart.Calls();
  EXPECT_EQ(Chart.CountOf(Calls, "FillEllipse"), 2);
  EXPECT_EQ(Chart.CountOf(Calls, "DrawEllipse"), 2);
  ASSERT_EQ(Series->Sizes().size(), 2u);
  EXPECT_NEAR(Series->Sizes()[1].X, 100, 1e-3) << "2 of 10 in 250 pixels, both ways";
  EXPECT_NEAR(Series->Sizes()[1].Y, 100, 1e-3);
  const PointF Corner = Series->Points()[1];
  EXPECT_NEAR(Corner.X, 50 + 300 - 50, 1e-3);
  EXPECT_NEAR(Corner.Y, 50 + 250 - 200 - 50, 1e-3);
  const auto FindAt = [&](float X, float Y) { return Series->FindPoint(static_cast<int>(X), static_cast<int>(Y)); };
  EXPECT_EQ(FindAt(Corner.X, Corner.Y), 1) << "corners count";
  EXPECT_EQ(FindAt(Corner.X - 1, Corner.Y), -1);
  Radius->Delete(1);
  EXPECT_EQ(FindAt(Corner.X, Corner.Y), -1) << "nothing is found while pixels are out of date";
  Chart.Paint();
  EXPECT_EQ(Series->Points().size(), 1u);
  EXPECT_EQ(Series->Sizes().size(), 1u);
}

TEST_F(ZyBubblesTest, ABrushOfAHandlerIsForOneBubble) {
  const SolidBrush Own(Colors::Lime), Other(Colors::Red);
  Series->SetAreaBrush(&Own);
  Series->SetOnGetBrush([&](TObject*, TZyBrushEventArgs& Args) {
    if (Args.Index == 0) Args.Brush = &Other;
  });
  const auto Calls = Chart.Calls();
  EXPECT_EQ(Chart.CountOf(Calls, "FillEllipse(FFFF0000"), 1);
  EXPECT_EQ(Chart.CountOf(Calls, "FillEllipse(FF00FF00"), 1);
  Series->SetAreaBrush(nullptr);
}

TEST_F(ZyBubblesTest, StandsAroundItsPointOnAnyScale) {
  const auto Box = [this](std::size_t i) {
    const PointF P = Series->Points()[i], S = Series->Sizes()[i];
    return std::array{P.X, P.Y, S.X, S.Y};
  };
  Chart.X->SetTwisted(true);
  Chart.Y->SetTwisted(true);
  Chart.Paint();
  EXPECT_EQ(Box(1), (std::array{200.0f, 200.0f, 100.0f, 100.0f})) << "around (550 - 300, 50 + 200)";
  for (TZyAxis* Axis : {Chart.X, Chart.Y}) {
    Axis->SetTwisted(false);
    Chart.FixEnds(Axis, 1, 100);
    Axis->SetScaling(TZyAxisScaling::Log);
  }
  for (auto* Data : {Series->XData(), Series->YData()}) dynamic_cast<TZyDoubleVector&>(*Data).SetInternalArray({1, 10});
  Radius->SetInternalArray({0, 90});
  Chart.Paint();
  EXPECT_EQ(Box(1), (std::array{175.0f, 50.0f, 250.0f, 250.0f})) << "up to 100 from 10: a decade of 125 pixels";
  EXPECT_EQ(Series->YStart(), 1) << "10 to 100 downwards: no place below 0";
  EXPECT_EQ(Series->YStop(), 100);
  EXPECT_NEAR(Series->XStop(), 10 * std::pow(10, 0.25), 1e-9) << "a decade of Y is a quarter of one of X, by the spans";
  Series->SetElliptical(true);
  Chart.Paint();
  EXPECT_EQ(Box(1), (std::array{50.0f, 50.0f, 500.0f, 250.0f}));
  EXPECT_EQ(Series->XStop(), 100);
}

TEST_F(ZyBubblesTest, ShowsTheEdgeOfOneFarLargerThanTheChart) {
  Chart.Graph->SetBackColor(Colors::White);
  Series->SetXData(Chart.AddVector("Middle", {5}));
  dynamic_cast<TZyDoubleVector&>(*Series->YData()).SetInternalArray({-98});
  Radius->SetInternalArray({100});
  Series->Area().SetForeColor(Colors::Lime);
  Series->Line().SetColor(Colors::Navy);
  const Bitmap Picture = Chart.Paint();
  // A circle of 2500 pixels around (300, 2750): 200 pixels beside its top it is 8 pixels lower.
  for (const auto& [X, Top] : {std::pair(300, 250), {100, 258}, {500, 258}}) {
    EXPECT_EQ(Picture.GetPixel(X, Top - 3), Colors::White) << X;
    EXPECT_LT(Distance(Picture.GetPixel(X, Top), Colors::Navy), 70) << X;
    EXPECT_EQ(Picture.GetPixel(X, Top + 3), Colors::Lime) << X;
  }
}

TEST_F(ZyBubblesTest, LeavesAndComesBackWithItsRadius) {
  Series->SetXData(nullptr);
  Chart.Paint();
  EXPECT_EQ(Chart.Graph->RelatedSeries().size(), 1u) << "the index stands in for X";
  Series->SetRadiusData(nullptr);
  EXPECT_TRUE(Chart.Graph->RelatedSeries().empty());
  Series->SetRadiusData(Radius);
  EXPECT_EQ(Chart.Graph->RelatedSeries().size(), 1u);
  delete Radius;
  EXPECT_EQ(Series->RadiusData(), nullptr);
  EXPECT_TRUE(Chart.Graph->RelatedSeries().empty());
}

}  // namespace
}  // namespace zy::testing
