// The months of four years in Seattle: mean wind against mean temperature, with the standard deviations of the days as
// error bars in both directions.

#include <array>
#include <cmath>
#include <vector>

#include "gallery/Gallery.h"
#include "series/ZyPointWithErrorSeries.h"

namespace {

struct TStatistics {
  double Mean = 0, Deviation = 0;
};

TStatistics StatisticsOf(const std::vector<double>& Values) {
  TStatistics Result;
  const auto Count = static_cast<double>(Values.size());
  for (const double Value : Values) Result.Mean += Value / Count;
  for (const double Value : Values) Result.Deviation += (Value - Result.Mean) * (Value - Result.Mean) / (Count - 1);
  Result.Deviation = std::sqrt(Result.Deviation);
  return Result;
}

}  // namespace

void zy::examples::MakeMonths(TChartDocument& Document) {
  TChartPage Chart(Document);
  TZyGraph2D& Graph = Chart.AddGraph("Wind and warmth of the months in Seattle, 2012 to 2015", "Wind in m/s",
                                     "Highest temperature of the day in °C");
  Graph.MajorGridVertical().SetVisible(true);

  const TCsvFile File = TChartPage::Data("seattle-weather.csv");
  std::array<std::vector<double>, 12> Winds, Temperatures;
  for (std::size_t Row = 0; Row < File.RowCount(); ++Row) {
    const std::size_t Month = std::stoul(File.Text(Row, File.Column("date")).substr(5, 2)) - 1;
    Winds.at(Month).push_back(File.Real(Row, File.Column("wind")));
    Temperatures.at(Month).push_back(File.Real(Row, File.Column("temp_max")));
  }
  struct TSeason {
    const char* Caption;
    std::array<std::size_t, 3> Months;  // from 0
    TZyColor Color;
  };
  for (const auto& [Caption, Months, Color] : {TSeason{"winter", {11, 0, 1}, 0xFF4A7FB5},
                                               {"spring", {2, 3, 4}, 0xFF4E9F50},
                                               {"summer", {5, 6, 7}, 0xFFD1495B},
                                               {"autumn", {8, 9, 10}, 0xFFC98A2B}}) {
    TZyDoubleVector& X = Chart.AddVector();
    TZyDoubleVector& Y = Chart.AddVector();
    TZyDoubleVector& Across = Chart.AddVector();
    TZyDoubleVector& Up = Chart.AddVector();
    for (const std::size_t Month : Months) {
      const TStatistics Wind = StatisticsOf(Winds.at(Month)), Temperature = StatisticsOf(Temperatures.at(Month));
      X.Add(Wind.Mean);
      Y.Add(Temperature.Mean);
      Across.Add(Wind.Deviation);
      Up.Add(Temperature.Deviation);
    }
    auto& Series = Chart.AddSeries<TZyPointWithErrorSeries>(Graph, &X, Y, Color);
    Series.SetCaption(Caption);
    Series.SetDeltaXPlus(&Across);
    Series.SetDeltaXMinus(&Across);
    Series.SetDeltaYPlus(&Up);
    Series.SetDeltaYMinus(&Up);
    Series.ErrorIndicator().SetColor(Color);
    Series.Line().SetVisible(false);
    Series.PointSymbol().SetPointSymbol(TZyPointSymbol::Circle);
    Series.PointSymbol().SetSize(9);
    Series.PointSymbol().SetBorderColor(Color);
    Series.PointSymbol().SetFillColor(Colors::White);
  }
  Chart.AddLegend(Graph, TPoint{760, 60}).SetCornerRounding(14);
}
