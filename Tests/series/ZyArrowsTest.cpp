#include "series/ZyArrows.h"

#include <gtest/gtest.h>

#include "graph/SampleChart.h"

namespace zy::testing {
namespace {

/// Three arrows on axes from 0 to 10, of 50 and 25 pixels for 1 from (50, 300) on.
class ZyArrowsTest : public ::testing::Test {
 protected:
  ZyArrowsTest() {
    Chart.UseTenAxes();
    Series->SetDeltaX(DeltaX);
    Series->SetDeltaY(DeltaY);
    Series->Arrow().SetColor(Colors::Teal);
  }
  std::ptrdiff_t CountOf(std::string_view Text) { return Chart.CountOf(Chart.Calls(), Text); }
  std::vector<double> Ranges() {
    Series->Calculate();
    return {Series->XStart(), Series->XStop(), Series->YStart(), Series->YStop()};
  }
  using TRanges = std::vector<double>;

  TSampleChart Chart;
  TZyArrows* Series = Chart.AddSeries<TZyArrows>("Wind", {2, 4, 6}, {4, 8, 6});
  TZyDoubleVector* DeltaX = Chart.AddVector("DeltaX", {3, -1, 0, 7});
  TZyDoubleVector* DeltaY = Chart.AddVector("DeltaY", {0, -2, 3});
};

TEST_F(ZyArrowsTest, GoFromThePointsToTheDisplacedOnes) {
  Series->Arrow().SetVisible(false);
  EXPECT_EQ(CountOf("pen FF008080"), 0);
  EXPECT_EQ(Series->Count(), 0) << "hidden ones take no part in ranges";
  Series->Arrow().SetVisible(true);
  for (const std::string_view Call : {"150 200, 300 200)", "250 100, 200 150)", "350 150, 350 75)"})
    EXPECT_EQ(CountOf(Call), 1) << Call;
  EXPECT_EQ(Series->Tips()[1], (PointF{200, 150}));
  EXPECT_EQ(Series->FindPoint(350, 150), 2) << "tails are hit";
  EXPECT_EQ(Series->FindPoint(350, 75), -1);
  EXPECT_EQ(Ranges(), (TRanges{2, 6, 4, 9}));
  Series->SetYDeltaTransformation([](TObject*, const TZyTransformEventArgs& Args) { return -2 * Args.Value; });
  EXPECT_EQ(Ranges(), (TRanges{2, 6, 0, 12})) << "with its sign";
  DeltaX->AddOutlier(2);
  EXPECT_EQ(Ranges(), (TRanges{2, 5, 4, 12}));
  EXPECT_EQ(CountOf("pen FF008080"), 2);
  Series->SetXData(nullptr);
  EXPECT_EQ(CountOf("50 200, 200 200)"), 1) << "the index stands in for X";
  delete DeltaX;
  EXPECT_EQ(CountOf("pen FF008080"), 0);
  EXPECT_TRUE(Chart.Graph->RelatedSeries().empty());
}

TEST_F(ZyArrowsTest, PensComeFromTheEventOrRunAlongTheArrows) {
  const TZyPen Wide(Colors::Lime, 3);
  Series->Arrow().Gradient().SetVisible(true);
  Series->SetOnGetPen([&](TObject*, TZyPenEventArgs& Args) {
    if (Args.Index == 1) Args.Pen = &Wide;
    if (Args.Index == 2) Args.Visible = false;
  });
  EXPECT_EQ(CountOf("DrawLine(pen FF00FF00 3, 250 100"), 1);
  EXPECT_EQ(CountOf("350 150, 350 75"), 0) << "hidden by the handler";
  Series->SetOnGetPen(nullptr);
  Series->Arrow().Gradient().SetFirstColor(Colors::Red);
  Series->Arrow().Gradient().SetMiddleColor(Colors::Red);
  Series->Arrow().Gradient().SetLastColor(Colors::Blue);
  Series->Arrow().SetWidth(5);
  const Bitmap Picture = Chart.Paint();
  // Near tails and near the middles: to the right, down to the left, up.
  for (const auto& [X, Y] : {std::pair(156, 200), {247, 103}, {350, 146}})
    EXPECT_LT(Distance(Picture.GetPixel(X, Y), Colors::Red), 40) << X;
  for (const auto& [X, Y] : {std::pair(284, 200), {206, 144}, {350, 92}})
    EXPECT_LT(Distance(Picture.GetPixel(X, Y), Colors::Blue), 140) << X;
}

}  // namespace
}  // namespace zy::testing
