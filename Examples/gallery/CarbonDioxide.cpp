// Carbon dioxide at Mauna Loa: the trend as a line, and what the seasons add to it as an area on an axis of its own.

#include "gallery/Gallery.h"

void zy::examples::MakeCarbonDioxide(TChartDocument& Document) {
  TChartPage Chart(Document);
  TZyGraph2D& Graph = Chart.AddGraph("Carbon dioxide at Mauna Loa", "Date", "CO2 in ppm");
  Graph.PrimaryXAxis()->SetScaling(TZyAxisScaling::DateTime);
  Graph.PrimaryYAxis()->SetStart(260);
  Graph.PrimaryYAxis()->SetStartEnd(TZyAxisEnd::Fixed);
  TZyAxis& Seasons = Chart.AddAxis(Graph, TZyAxisPosition::Right, "Seasonal component in ppm");
  Seasons.SetStart(-4);
  Seasons.SetStop(24);
  Seasons.SetStartEnd(TZyAxisEnd::Fixed);
  Seasons.SetStopEnd(TZyAxisEnd::Fixed);

  const TCsvFile File = TChartPage::Data("co2-concentration.csv");
  const std::size_t Date = File.Column("Date"), Measured = File.Column("CO2"), Trend = File.Column("adjusted CO2");
  TZyDoubleVector& Days = Chart.AddVector();
  TZyDoubleVector& Trends = Chart.AddVector();
  TZyDoubleVector& Differences = Chart.AddVector();
  for (std::size_t Row = 0; Row < File.RowCount(); ++Row) {
    Days.Add(File.Day(Row, Date));
    Trends.Add(File.Real(Row, Trend));
    Differences.Add(File.Real(Row, Measured) - File.Real(Row, Trend));
  }
  auto& Season = Chart.AddSeries(Graph, &Days, Differences, Colors::SeaGreen);
  Season.SetYAxis(&Seasons);
  Season.Area().SetVisible(true);
  Season.Area().SetForeColor(0x602E8B57);
  Season.SetCaption("what the seasons add");
  auto& Line = Chart.AddSeries(Graph, &Days, Trends, Colors::Firebrick);
  Line.SetCaption("trend");
  Line.Line().SetWidth(2);
  Chart.AddLegend(Graph, TPoint{120, 90});
}
