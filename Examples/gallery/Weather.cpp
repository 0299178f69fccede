// A year of weather in Seattle: a band from the lowest to the highest temperature of each day, and the rain below it.

#include "gallery/Gallery.h"

void zy::examples::MakeWeather(TChartDocument& Document) {
  TChartPage Chart(Document);
  TZyGraph2D& Graph = Chart.AddGraph("Seattle, 2012", "Date", "Temperature in °C");
  Graph.PrimaryXAxis()->SetScaling(TZyAxisScaling::DateTime);
  TZyAxis& Rain = Chart.AddAxis(Graph, TZyAxisPosition::Right, "Precipitation in mm");
  Rain.SetStop(150);
  Rain.SetStopEnd(TZyAxisEnd::Fixed);

  const TCsvFile File = TChartPage::Data("seattle-weather.csv");
  constexpr std::size_t Year = 366;
  TZyDoubleVector& Days = Chart.AddVector();
  TZyDoubleVector& Lowest = Chart.AddVector();
  TZyDoubleVector& Highest = Chart.AddVector();
  TZyDoubleVector& Amounts = Chart.AddVector();
  for (std::size_t Row = 0; Row < Year; ++Row) {
    Days.Add(File.Day(Row, File.Column("date")));
    Lowest.Add(File.Real(Row, File.Column("temp_min")));
    Highest.Add(File.Real(Row, File.Column("temp_max")));
    Amounts.Add(File.Real(Row, File.Column("precipitation")));
  }
  auto& Low = Chart.AddSeries(Graph, &Days, Lowest, Colors::SteelBlue);
  auto& High = Chart.AddSeries(Graph, &Days, Highest, Colors::OrangeRed);
  High.SetDrawBandTo(&Low);
  High.Area().SetForeColor(0x60FFA07A);
  auto& Drops = Chart.AddSeries(Graph, &Days, Amounts, Colors::RoyalBlue);
  Drops.SetYAxis(&Rain);
  Drops.Area().SetVisible(true);
  Drops.Area().SetForeColor(0x804169E1);
  Low.SetCaption("lowest temperature");
  High.SetCaption("highest temperature, and the band between both");
  Drops.SetCaption("rain");
  auto& Freezing = Chart.AddMarker<TZyHorizontalMarker>(Graph, "freezing");
  Freezing.SetCaptionPosition(TZyContentAlignment::TopCenter);
  Freezing.Line().SetColor(Colors::SteelBlue);
  Freezing.Line().SetDashStyle(DashStyleDash);
  Chart.AddLegend(Graph, TZyLegendPosition::TopCenterOfAxis);
}
