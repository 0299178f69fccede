// Twenty years of the S&P 500 on a date axis: prices on the left, the same on a logarithmic scale on the right.

#include <algorithm>

#include "gallery/Gallery.h"

void zy::examples::MakeShares(TChartDocument& Document) {
  TChartPage Chart(Document);
  TZyGraph2D& Graph = Chart.AddGraph("S&P 500, daily closing prices", "Date", "Price in points");
  Graph.PrimaryXAxis()->SetScaling(TZyAxisScaling::DateTime);
  TZyAxis& LogAxis = Chart.AddAxis(Graph, TZyAxisPosition::Right, "Price in points, logarithmic");
  LogAxis.SetScaling(TZyAxisScaling::Log);

  const TCsvFile Prices = TChartPage::Data("sp500-2000.csv");
  const std::size_t Date = Prices.Column("date"), Close = Prices.Column("close");
  TZyDoubleVector& Days = Chart.AddVector();
  TZyDoubleVector& Closes = Chart.AddVector();
  for (std::size_t Row = 0; Row < Prices.RowCount(); ++Row) {
    Days.Add(Prices.Day(Row, Date));
    Closes.Add(Prices.Real(Row, Close));
  }
  Chart.AddSeries(Graph, &Days, Closes, Colors::SteelBlue).SetCaption("on the linear scale");
  auto& OnLog = Chart.AddSeries(Graph, &Days, Closes, Colors::DarkOrange);
  OnLog.SetCaption("on the logarithmic scale");
  OnLog.SetYAxis(&LogAxis);
  Chart.AddLegend(Graph, TZyLegendPosition::BottomCenterOfAxis);
  const auto Lowest = std::ranges::min_element(Closes.Values());
  auto& Label = Chart.AddMarker<TZyLabelWithArrowMarker>(Graph, "the lowest close");
  Label.SetX(Days.Values()[static_cast<std::size_t>(Lowest - Closes.Values().begin())]);
  Label.SetY(*Lowest);
  Label.SetArrowDeltaX(-45);
  Label.SetArrowDeltaY(4);
  Label.SetBentLength(10);
  for (auto [Axis, Color] :
       {std::pair{Graph.PrimaryYAxis(), Colors::SteelBlue}, std::pair{&LogAxis, Colors::DarkOrange}}) {
    Axis->SetCaptionColor(Color);
    Axis->SetNumbersColor(Color);
  }
}
