// The kinds that Docs/OwnSeries.md and Docs/OwnCalculation.md write; their blocks are linked to this.

#include <gtest/gtest.h>

#include "graph/SampleChart.h"
#include "series/ZyFunctionSeries.h"

namespace peaks {
double HeldAt(double x, zy::TZyCustomDoubleVector& X, zy::TZyCustomDoubleVector& Y, double Fall);
}

namespace zy::testing {
namespace {

class OwnKindsTest : public ::testing::Test {
 protected:
  TZySeries& Make(const char* ClassName) {
    Chart.UseTenAxes();
    auto& Series = dynamic_cast<TZySeries&>(*FindClass(ClassName).Factory()(&Chart.Form));
    Series.SetDefaultAxis(*Chart.Graph);
    Series.SetXData(X);
    Series.SetYData(Y);
    return Series;
  }
  TSampleChart Chart;
  TZyDoubleVector* X = Chart.AddVector("XValues", {4, 0, 1, 2});
  TZyDoubleVector* Y = Chart.AddVector("YValues", {0, 3, 1, 5});
  TZyDoubleVector* Lengths = Chart.AddVector("Lengths", {4, -5});
};

TEST_F(OwnKindsTest, StemsJoinDrawAndAreHit) {
  TZySeries& Stems = Make("TStems");
  EXPECT_TRUE(Chart.Graph->RelatedSeries().empty()) << "no length yet";
  SetObjectProp(Stems, "LengthData", Lengths);
  Stems.Area().SetVisible(true);
  // A flag of 8 pixels leaves 492 of the X axis. X from 50: 4 and 0 of 10. Y upwards from 300: 0 and 4, 3 and -2.
  for (const std::string_view Call : {"246.8 200 8 8)", "246.8 300, 246.8 200", "50 225, 50 350"})
    EXPECT_EQ(Chart.CountOf(Chart.Calls(), Call), 1) << Call;
  EXPECT_EQ(Stems.YStart(), -2);
  for (const auto& [AtX, AtY, Found] : {std::tuple(247, 299, 0), {247, 302, -1}, {254, 207, 0}, {254, 210, -1}})
    EXPECT_EQ(Stems.FindPoint(AtX, AtY), Found) << AtX << ", " << AtY;
  SetObjectProp(Stems, "LengthData", nullptr);
  EXPECT_TRUE(Chart.Graph->RelatedSeries().empty()) << "the length is gone again";
}

TEST_F(OwnKindsTest, PeaksAreHeldWithAndWithoutAChart) {
  auto& Peaks = dynamic_cast<TZyFunctionSeries&>(Make("TPeakHold"));
  SetFloatProp(Peaks, "Fall", 0.5);
  Chart.Paint();
  for (const auto& [At, Held] : {std::pair(-1.0, 3.0), {1.5, 2.25}, {2.0, 5.0}, {6.0, 3.0}}) {
    EXPECT_EQ(peaks::HeldAt(At, *X, *Y, 0.5), Held) << At;
    EXPECT_EQ(Peaks.GetY(At), Held) << At;
  }
  std::string Report;
  Peaks.SetOnCalculationError([&](TObject*, const std::exception& e) { Report = e.what(); });
  for (int i = 0; i < 4; ++i) Y->AddOutlier(i);
  Chart.Paint();
  EXPECT_EQ(Report, "Peak hold: there are no points");
}

}  // namespace
}  // namespace zy::testing
