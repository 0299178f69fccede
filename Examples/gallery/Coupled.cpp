// Two graphs on one X axis: prices above, the volume of trade below. The lower graph has the axis, both follow it.

#include "gallery/Gallery.h"

void zy::examples::MakeCoupled(TChartDocument& Document) {
  TChartPage Chart(Document);
  const auto [Lower, Upper] =
      Chart.AddStacked("Volume in billions", "S&P 500 in the years of the financial crisis", "Closing price", 0.6);
  Lower.PrimaryYAxis()->SetStart(0);
  Lower.PrimaryYAxis()->SetStartEnd(TZyAxisEnd::Fixed);

  const TCsvFile Prices = TChartPage::Data("sp500-2000.csv");
  TZyDoubleVector& Days = Chart.AddVector();
  TZyDoubleVector& Closes = Chart.AddVector();
  TZyDoubleVector& Volumes = Chart.AddVector();
  for (std::size_t Row = 0; Row < Prices.RowCount(); ++Row) {
    const std::string Date = Prices.Text(Row, Prices.Column("date"));
    if (Date < "2007" || Date >= "2011") continue;
    Days.Add(Prices.Day(Row, Prices.Column("date")));
    Closes.Add(Prices.Real(Row, Prices.Column("close")));
    Volumes.Add(Prices.Real(Row, Prices.Column("volume")) / 1e9);
  }
  Chart.AddSeries(Upper, &Days, Closes, Colors::DarkBlue).SetCaption("closing price");
  auto& Volume = Chart.AddSeries(Lower, &Days, Volumes, Colors::Gray);
  Volume.Area().SetVisible(true);
  Volume.Area().SetForeColor(0x60808080);
  Volume.SetCaption("volume of the day");
  Chart.AddLegend(Upper, TPoint{690, 60});  // of both graphs
}
