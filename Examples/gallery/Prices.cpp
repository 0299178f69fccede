// Prices as OHLC bars and as candlesticks, with the volume of trade as bars below: two graphs on one X axis. The
// records are of weeks, made of those of days: the first open, the highest, the lowest, the last close, the sum of the
// volumes.

#include <algorithm>
#include <cmath>

#include "gallery/Gallery.h"
#include "series/ZyBars.h"
#include "series/ZyCandleSticks.h"
#include "series/ZyOHLC.h"

namespace zy::examples {
namespace {

struct TWeek {
  double Monday, Open, High, Low, Close, Volume;
};

/// The weeks of a file of days from a date on up to, but not including, another.
std::vector<TWeek> WeeksOf(const TCsvFile& File, std::string_view From, std::string_view To) {
  constexpr double FirstMonday = 2, DaysOfWeek = 7;  // as day numbers count
  std::vector<TWeek> Result;
  for (std::size_t Row = 0; Row < File.RowCount(); ++Row) {
    const std::string Date = File.Text(Row, File.Column("date"));
    if (Date < From || Date >= To) continue;
    const auto Real = [&](const char* Name) { return File.Real(Row, File.Column(Name)); };
    const double Day = File.Day(Row, File.Column("date"));
    const double Monday = std::floor((Day - FirstMonday) / DaysOfWeek) * DaysOfWeek + FirstMonday;
    if (Result.empty() || Result.back().Monday != Monday)
      Result.push_back({Monday, Real("open"), Real("high"), Real("low"), 0, 0});
    TWeek& Week = Result.back();
    Week.High = std::max(Week.High, Real("high"));
    Week.Low = std::min(Week.Low, Real("low"));
    Week.Close = Real("close");
    Week.Volume += Real("volume") / 1e9;
  }
  return Result;
}

/// Returns the series of prices.
template <class TSeries>
TSeries& MakePricesAs(TChartDocument& Document) {
  constexpr double DaysOfWeek = 7;
  TChartPage Chart(Document);
  const auto [Lower, Upper] =
      Chart.AddStacked("Volume, bn", "S&P 500, records of weeks made of those of days", "Price in points", 0.7);

  TZyDoubleVector &Days = Chart.AddVector(), &Low = Chart.AddVector(), &Open = Chart.AddVector(),
                  &High = Chart.AddVector(), &Close = Chart.AddVector(), &Edges = Chart.AddVector(),
                  &Volumes = Chart.AddVector();
  for (const TWeek& Week : WeeksOf(TChartPage::Data("sp500-2000.csv"), "2018-07-02", "2020-03-30")) {
    Days.Add(Week.Monday + DaysOfWeek / 2);
    Low.Add(Week.Low);
    Open.Add(Week.Open);
    High.Add(Week.High);
    Close.Add(Week.Close);
    if (Edges.Count() == 0) Edges.Add(Week.Monday);
    Edges.Add(Week.Monday + DaysOfWeek);
    Volumes.Add(Week.Volume);
  }
  auto& Bars = Chart.AddSeries<TZyBars>(Lower, &Edges, Volumes, Colors::Gray);
  Bars.Area().SetForeColor(Colors::LightGray);
  Bars.SetClassesDistance(20);
  auto& Prices = Chart.AddSeries<TSeries>(Upper, &Days, Close, Colors::DarkBlue);
  Prices.SetLowData(&Low);
  Prices.SetOpenData(&Open);
  Prices.SetHighData(&High);
  Prices.SetCaption("prices of a week");
  Bars.SetCaption("volume of a week");
  Chart.AddLegend(Upper, TZyLegendPosition::TopCenterOfAxis);
  return Prices;
}

}  // namespace

void MakeOHLC(TChartDocument& Document) {
  auto& Prices = MakePricesAs<TZyOHLC>(Document);
  Prices.SetBarWidth(1);
  Prices.SetIndicatorLength(3);
}

void MakeCandles(TChartDocument& Document) {
  auto& Prices = MakePricesAs<TZyCandleSticks>(Document);
  Prices.Line().SetColor(0xFF303030);
  Prices.SetBullColor(0xFF3C9D6B);
  Prices.SetBearColor(0xFFD0503C);
}

}  // namespace zy::examples
