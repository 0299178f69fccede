// Income against health by country: translucent symbols on a logarithmic axis, one series for each region.

#include <map>

#include "gallery/Gallery.h"

void zy::examples::MakeHealth(TChartDocument& Document) {
  TChartPage Chart(Document);
  TZyGraph2D& Graph =
      Chart.AddGraph("Income and health of nations", "Income per person in dollars", "Life expectancy in years");
  Graph.PrimaryXAxis()->SetScaling(TZyAxisScaling::Log);
  Graph.MajorGridVertical().SetVisible(true);

  const TCsvFile File = TChartPage::Data("gapminder-health-income.csv");
  const std::map<std::string, TZyColor> Regions{{"south_asia", 0x90DC143C},
                                                {"europe_central_asia", 0x904169E1},
                                                {"middle_east_north_africa", 0x902E8B57},
                                                {"sub_saharan_africa", 0x90FF8C00},
                                                {"america", 0x909932CC},
                                                {"east_asia_pacific", 0x9020B2AA}};
  for (const auto& [Region, Color] : Regions) {
    TZyDoubleVector& Incomes = Chart.AddVector();
    TZyDoubleVector& Years = Chart.AddVector();
    for (std::size_t Row = 0; Row < File.RowCount(); ++Row) {
      if (File.Text(Row, File.Column("region")) != Region) continue;
      Incomes.Add(File.Real(Row, File.Column("income")));
      Years.Add(File.Real(Row, File.Column("health")));
    }
    auto& Series = Chart.AddSeries<TZyPointSeries>(Graph, &Incomes, Years, Color);
    Series.SetCaption(TChartPage::ReadableName(Region));
    Series.Line().SetVisible(false);
    Series.PointSymbol().SetPointSymbol(TZyPointSymbol::Circle);
    Series.PointSymbol().SetFillColor(Color);
    Series.PointSymbol().SetBorderColor(Color | 0xFF000000);
  }
  TZyLegend& Legend = Chart.AddLegend(Graph, TZyLegendPosition::RightCenterOfAxis);
  Legend.SetCaption("Region");
  Legend.SetCaptionVisible(true);
  Legend.SetCaptionDistanceAfter(4);
}
