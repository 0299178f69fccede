// Prices with their averages of 20, 50 and 200 days of trade and, on the same dates, the volume of trade and its
// running integral, that is, all that was traded up to a day.

#include "gallery/Gallery.h"
#include "series/ZyInterpolation.h"
#include "series/ZyMovingAverage.h"

void zy::examples::MakeAverages(TChartDocument& Document) {
  TChartPage Chart(Document);
  const auto [Lower, Upper] =
      Chart.AddStacked("Volume, bn a day", "S&P 500 and its averages of 20, 50 and 200 days", "Price in points", 0.62);
  TZyAxis& Traded = Chart.AddAxis(Lower, TZyAxisPosition::Right, "In all, bn");

  const TCsvFile File = TChartPage::Data("sp500-2000.csv");
  TZyDoubleVector &Days = Chart.AddVector(), &Closes = Chart.AddVector(), &Volumes = Chart.AddVector();
  for (std::size_t Row = 0; Row < File.RowCount(); ++Row) {
    if (File.Text(Row, File.Column("date")) < "2015-01-01") continue;
    Days.Add(File.Day(Row, File.Column("date")));
    Closes.Add(File.Real(Row, File.Column("close")));
    Volumes.Add(File.Real(Row, File.Column("volume")) / 1e9);
  }
  Chart.AddSeries(Upper, &Days, Closes, 0xFFBBBBBB).SetCaption("closing price");
  constexpr std::pair<int, TZyColor> Averages[] = {{20, 0xFFE6A117}, {50, 0xFFC8391F}, {200, 0xFF1F4E9C}};
  for (const auto& [Number, Color] : Averages) {
    auto& Average = Chart.AddSeries<TZyMovingAverage>(Upper, &Days, Closes, Color);
    Average.SetAveragingMethod(TZyAveragingMethod::Simple);
    Average.SetN(Number - 1);  // values before each one
    Average.Line().SetWidth(1.5);
    Average.SetCaption("average of " + std::to_string(Number) + " days");
  }
  auto& Volume = Chart.AddSeries(Lower, &Days, Volumes, 0xFF9AA5B1);
  Volume.Area().SetVisible(true);
  Volume.Area().SetForeColor(0x609AA5B1);
  auto& Sum = Chart.AddSeries<TZyIntegral>(Lower, &Days, Volumes, Colors::SeaGreen);
  Sum.SetYAxis(&Traded);
  Sum.Line().SetWidth(2);
  Volume.SetCaption("volume of a day");
  Sum.SetCaption("traded up to a day");
  Chart.AddLegend(Upper, TPoint{110, 60});  // of both graphs
  Traded.SetCaptionColor(Colors::SeaGreen);
  Traded.SetNumbersColor(Colors::SeaGreen);
}
