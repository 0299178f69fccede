// Income against health by country on a logarithmic axis: a bubble for each country, whose area is its population.

#include <algorithm>
#include <cmath>
#include <numeric>
#include <vector>

#include "gallery/Gallery.h"
#include "series/ZyBubbles.h"

void zy::examples::MakePopulation(TChartDocument& Document) {
  TChartPage Chart(Document);
  TZyGraph2D& Graph =
      Chart.AddGraph("Income, health and population", "Income per person in dollars", "Life expectancy in years");
  Graph.PrimaryXAxis()->SetScaling(TZyAxisScaling::Log);
  Graph.MajorGridVertical().SetVisible(true);

  const TCsvFile File = TChartPage::Data("gapminder-health-income.csv");
  const std::size_t Region = File.Column("region"), People = File.Column("population");
  std::vector<std::size_t> Rows(File.RowCount());
  std::iota(Rows.begin(), Rows.end(), std::size_t{0});
  // The large ones first, so that they do not hide others.
  std::ranges::sort(Rows, std::greater<>(), [&](std::size_t Row) { return File.Real(Row, People); });
  const std::pair<const char*, TZyColor> Regions[] = {{"south_asia", 0x90DC143C},
                                                      {"europe_central_asia", 0x904169E1},
                                                      {"middle_east_north_africa", 0x902E8B57},
                                                      {"sub_saharan_africa", 0x90FF8C00},
                                                      {"america", 0x909932CC},
                                                      {"east_asia_pacific", 0x9020B2AA}};
  for (const auto& [Name, Color] : Regions) {
    TZyDoubleVector& Incomes = Chart.AddVector();
    TZyDoubleVector& Years = Chart.AddVector();
    TZyDoubleVector& Radii = Chart.AddVector();
    for (const std::size_t Row : Rows) {
      if (File.Text(Row, Region) != Name) continue;
      constexpr double YearsOfABillion = 3;
      Incomes.Add(File.Real(Row, File.Column("income")));
      Years.Add(File.Real(Row, File.Column("health")));
      Radii.Add(YearsOfABillion * std::sqrt(File.Real(Row, People) / 1e9));
    }
    auto& Bubbles = Chart.AddSeries<TZyBubbles>(Graph, &Incomes, Years, Color | 0xFF000000);
    Bubbles.SetRadiusData(&Radii);
    Bubbles.SetCaption(TChartPage::ReadableName(Name));
    Bubbles.Area().SetVisible(true);
    Bubbles.Area().SetForeColor(Color);
  }
  Chart.AddLegend(Graph, TZyLegendPosition::BottomCenterOfGraph).SetRows(2);
}
