// Whole charts in the three forms.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "persistence/ChartForms.h"
#include "persistence/RandomChart.h"

namespace zy::testing {
namespace {

std::vector<ARGB> PixelsOf(TZyGraph2D& Graph) {
  const Bitmap Picture = TSampleChart::Paint(Graph);
  std::vector<ARGB> Result;
  for (int Y = 0; Y < Picture.GetHeight(); ++Y)
    for (int X = 0; X < Picture.GetWidth(); ++X) Result.push_back(Picture.GetPixel(X, Y));
  return Result;
}

/// ZY_RANDOM_CHARTS in the environment tells how many.
int NumberOfCharts() {
  const char* const Text = std::getenv("ZY_RANDOM_CHARTS");
  return Text == nullptr ? 20 : std::atoi(Text);
}

/// Reads a chart back from one form: the same text again before and after a paint, and the same pixels.
void ExpectBack(const std::vector<std::string>& Stored, TForm3 Form, const std::vector<std::vector<ARGB>>* Pictures) {
  const TGraphPair Loaded(false);
  const std::vector<TZyGraph2D*> Graphs = Loaded.Graphs();
  for (std::size_t i = 0; i < Stored.size(); ++i) Read(*Graphs[i], Form, Stored[i]);
  for (std::size_t i = 0; i < Stored.size(); ++i) ASSERT_TRUE(Same(Written(*Graphs[i], Form), Stored[i]));
  for (int Times = 0; Times < 5; ++Times)
    for (TZyGraph2D* Graph : Graphs) {
      Graph->Modified();  // gradients of lines, and the depth of bars, follow from the data area of the layout before
      PixelsOf(*Graph);
    }
  for (std::size_t i = 0; i < Stored.size(); ++i)
    EXPECT_TRUE(Pictures == nullptr || PixelsOf(*Graphs[i]) == (*Pictures)[i]) << "graph " << i;
  for (std::size_t i = 0; i < Stored.size(); ++i)
    EXPECT_TRUE(Same(Written(*Graphs[i], Form), Stored[i])) << "after a paint";
}

TEST(ZyChartRecordTest, RandomChartsComeBackInEachForm) {
  TSampleData Data;
  for (unsigned Seed = 1; Seed <= static_cast<unsigned>(NumberOfCharts()); ++Seed) {
    std::vector<std::string> Texts[3];
    std::vector<std::vector<ARGB>> Pictures;
    bool HasLineGradients = false;  // which streams alone have
    {
      const TRandomChart Chart(Seed, Data);
      HasLineGradients = Chart.HasLineGradients;
      for (TZyGraph2D* Graph : Chart.Graphs()) {
        for (const TForm3 Form : AllForms) Texts[static_cast<int>(Form)].push_back(Written(*Graph, Form));
        Pictures.push_back(PixelsOf(*Graph));
      }
    }
    for (const TForm3 Form : AllForms) {
      SCOPED_TRACE("seed " + std::to_string(Seed) + ", form " + std::to_string(static_cast<int>(Form)));
      ExpectBack(Texts[static_cast<int>(Form)], Form, HasLineGradients && Form != TForm3::Stream ? nullptr : &Pictures);
    }
  }
}

}  // namespace
}  // namespace zy::testing
