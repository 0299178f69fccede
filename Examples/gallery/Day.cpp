// A day in January and one in July: hourly normals of the temperature on a time-of-day axis.

#include <cmath>

#include "gallery/Gallery.h"

void zy::examples::MakeDay(TChartDocument& Document) {
  TChartPage Chart(Document);
  TZyGraph2D& Graph = Chart.AddGraph("Seattle, normal temperatures of a day in January and in July", "Time of day",
                                     "Temperature in °C");
  TZyAxis& Times = *Graph.PrimaryXAxis();
  Times.SetScaling(TZyAxisScaling::DateTime);
  TZyDateTimeFormats Formats = Times.DateTimeFormats();
  Formats.DayAndHour = Formats.Day = Formats.Minute = "hh:nn";
  Times.SetDateTimeFormats(Formats);

  const TCsvFile File = TChartPage::Data("seattle-weather-hourly-normals.csv");
  for (const auto& [Day, Color] :
       {std::pair{"2010-01-15", Colors::SteelBlue}, std::pair{"2010-07-15", Colors::OrangeRed}}) {
    TZyDoubleVector& Hours = Chart.AddVector();
    TZyDoubleVector& Temperatures = Chart.AddVector();
    for (std::size_t Row = 0; Row < File.RowCount(); ++Row) {
      if (!File.Text(Row, File.Column("date")).starts_with(Day)) continue;
      const double Moment = File.Day(Row, File.Column("date"));
      Hours.Add(Moment - std::floor(Moment));
      Temperatures.Add(File.Real(Row, File.Column("temperature")));
    }
    auto& Series = Chart.AddSeries<TZyPointSeries>(Graph, &Hours, Temperatures, Color);
    Series.SetCaption(Color == Colors::SteelBlue ? "15 January" : "15 July");
    Series.PointSymbol().SetPointSymbol(TZyPointSymbol::Circle);
    Series.PointSymbol().SetSize(7);
    Series.PointSymbol().SetBorderColor(Color);
    Series.PointSymbol().SetFillColor(Colors::White);
  }
  auto& Noon = Chart.AddMarker<TZyVerticalMarker>(Graph, "noon");
  Noon.SetX(0.5);
  Noon.SetCaptionPosition(TZyContentAlignment::MiddleRight);
  Noon.Line().SetColor(Colors::Gray);
  Noon.Line().SetDashStyle(DashStyleDash);
  Chart.AddLegend(Graph, TZyLegendPosition::BottomCenterOfGraph);
}
