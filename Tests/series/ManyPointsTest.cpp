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
  struct TDifference {
    double Mean = 0;
    int Most = 0;
  };
  static TDifference DifferenceOf(const Bitmap& A, const Bitmap& B) {
    TDifference Result;
    for (int Y = 0; Y < A.GetHeight(); ++Y)
      for (int X = 0; X < A.GetWidth(); ++X) {
        const int Here = Distance(A.GetPixel(X, Y), B.GetPixel(X, Y));
        Result.Mean += Here;
        Result.Most = std::max(Result.Most, Here);
      }
    Result.Mean /= A.GetWidth() * A.GetHeight();
    return Result;
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
  for (TZySeries* Series : {static_cast<TZySeries*>(Arrows), static_cast<TZySeries*>(Bubbles)}) {
    for (TZySeries* Each : {static_cast<TZySeries*>(Arrows), static_cast<TZySeries*>(Bubbles)})
      Each->SetVisible(Each == Series);
    const Bitmap Fast = Chart.Paint();
    Series->SetOnGetPen([](TObject*, TZyPenEventArgs&) {});
    const Bitmap All = Chart.Paint();
    const auto [Mean, Most] = DifferenceOf(Fast, All);
    EXPECT_GT(Mean, 0) << "one way alone is compared with itself";
    EXPECT_LT(Mean, 2);
    EXPECT_LE(Most, 60);
  }
}

}  // namespace
}  // namespace zy::testing
