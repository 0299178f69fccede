#include "Cases.h"
#include "series/ZyArrows.h"
#include "series/ZyBars.h"
#include "series/ZyBubbles.h"
#include "series/ZyCandleSticks.h"
#include "series/ZyOHLC.h"
#include "series/ZyPointWithErrorSeries.h"

namespace zy::cases {
namespace {

/// Fills a chart before each of its first paints.
using TFill = std::function<void(TChart& Chart)>;

TResult FirstOf(const TFill& Fill) {
  Bitmap Picture(Width, Height);
  std::unique_ptr<TChart> Chart;
  const TResult Result = Median(
      [&] {
        Chart = std::make_unique<TChart>();
        Fill(*Chart);
        Chart->Paint(Picture);
      },
      [&] { Chart.reset(); });
  return WithAllocations(Result, *Chart, Picture);
}

TResult AgainOf(const TFill& Fill) {
  Bitmap Picture(Width, Height);
  TChart Chart;
  Fill(Chart);
  Chart.Paint(Picture);
  return WithAllocations(Median([&] { Chart.Paint(Picture); }), Chart, Picture);
}

/// Series of so many bars each, in three colours.
void AddBars(TChart& Chart, int Series, int Count, TZyBarStyle Style) {
  static const TData Data(Million / 10);
  constexpr TZyColor Colors[] = {0xFF4E79A7, 0xFFF28E2B, 0xFF59A14F, 0xFFE15759};
  const auto Number = static_cast<std::size_t>(Count);
  TZyBars* Bars = nullptr;
  for (int i = 0; i < Series; ++i) {
    Bars = &Chart.Add<TZyBars>({}, std::span(Data.Y).first(Number));
    Bars->SetXData(nullptr);
    Bars->Area().SetForeColor(Colors[i % 4]);
    Bars->Line().SetColor(Colors[i % 4]);
  }
  Bars->SetBarStyle(Style);
  Bars->SetOverlayStyle(Series > 1 ? TZyBarsOverlayStyle::Stack : TZyBarsOverlayStyle::Shift);
}

TFill Bars(int Series, int Count, TZyBarStyle Style) {
  return [=](TChart& Chart) { AddBars(Chart, Series, Count, Style); };
}

constexpr int Many = Million / 10, Few = 1000;

/// Records of prices that open where the last one closed, with wicks of up to a sixth of the noise.
struct TPrices {
  explicit TPrices(int Count) {
    TData Data(Count);
    X = std::move(Data.X);
    Close = std::move(Data.Y);
    std::mt19937 Random(2);
    std::uniform_real_distribution<double> Wick(0, 0.7);
    for (std::size_t i = 0; i < Close.size(); ++i) {
      Open.push_back(i == 0 ? Close[0] : Close[i - 1]);
      Low.push_back(std::min(Open[i], Close[i]) - Wick(Random));
      High.push_back(std::max(Open[i], Close[i]) + Wick(Random));
    }
  }
  std::vector<double> X, Low, Open, High, Close;
};

/// Takes the arrays over.
template <class TSeries>
TSeries& AddPrices(TChart& Chart, TPrices& Prices) {
  auto& Series = Chart.Add<TSeries>({}, {});
  const auto Vector = [&](std::vector<double>& Values) {
    auto* const Data = new TZyDoubleVector(&Chart.Form);
    Data->SetInternalArray(std::move(Values));
    return Data;
  };
  Series.SetLowData(Vector(Prices.Low));
  Series.SetOpenData(Vector(Prices.Open));
  Series.SetHighData(Vector(Prices.High));
  Series.SetXData(Vector(Prices.X));
  Series.SetCloseData(Vector(Prices.Close));
  return Series;
}

template <class TSeries>
TResult FirstPrices(int Count) {
  Bitmap Picture(Width, Height);
  std::unique_ptr<TPrices> Prices;
  std::unique_ptr<TChart> Chart;
  const TResult Result = Median(
      [&] {
        Chart = std::make_unique<TChart>();
        AddPrices<TSeries>(*Chart, *Prices);
        Chart->Paint(Picture);
      },
      [&] {
        Chart.reset();
        Prices = std::make_unique<TPrices>(Count);
      });
  return WithAllocations(Result, *Chart, Picture);
}

template <class TSeries>
TResult PricesAgain(int Count) {
  return AgainOf([Count](TChart& Chart) {
    TPrices Prices(Count);
    AddPrices<TSeries>(Chart, Prices);
  });
}

/// One more candle behind a million, with the axes following.
TResult AppendedCandle() {
  constexpr int Steps = MostRuns + 1;
  TPrices Prices(Million), More(Steps);
  TChart Chart;
  auto& Candles = AddPrices<TZyCandleSticks>(Chart, Prices);
  Bitmap Picture(Width, Height);
  Chart.Paint(Picture);
  std::size_t Next = 0;
  const auto Append = [&] {
    const std::pair<TZyCustomDoubleVector*, double> Values[] = {
        {Candles.XData(), 1000 + 0.001 * static_cast<double>(Next)},
        {Candles.LowData(), More.Low[Next]},
        {Candles.OpenData(), More.Open[Next]},
        {Candles.HighData(), More.High[Next]},
        {Candles.CloseData(), More.Close[Next]}};
    for (const auto& [Data, Value] : Values) Data->Add(Value);
    ++Next;
    Chart.Paint(Picture);
  };
  Append();
  return WithAllocations(Median(Append), Chart, Picture);
}

TZyDoubleVector* AddVector(TChart& Chart, std::span<const double> Values) {
  auto* const Vector = new TZyDoubleVector(&Chart.Form);
  Vector->AddRange(Values);
  return Vector;
}

/// So many numbers between two ends.
std::vector<double> Scatter(int Count, double From, double To, unsigned Seed) {
  std::mt19937 Random(Seed);
  std::uniform_real_distribution<double> Spread(From, To);
  std::vector<double> Result(static_cast<std::size_t>(Count));
  for (double& Value : Result) Value = Spread(Random);
  return Result;
}

/// Points of a noisy curve with bars to all sides, up to a twentieth of the axes long.
void AddErrorBars(TChart& Chart) {
  static const TData Data(Many);
  static const std::vector<double> Across = Scatter(Many, 0, 50, 2), Up = Scatter(Many, 0, 1.2, 3);
  auto& Series = Chart.Add<TZyPointWithErrorSeries>(Data.X, Data.Y);
  Series.SetDeltaXPlus(AddVector(Chart, Across));
  Series.SetDeltaXMinus(AddVector(Chart, Across));
  Series.SetDeltaYPlus(AddVector(Chart, Up));
  Series.SetDeltaYMinus(AddVector(Chart, Up));
  Series.Line().SetVisible(false);
}

/// Translucent bubbles anywhere, of 4 to 20 pixels.
void AddBubbles(TChart& Chart) {
  static const std::vector<double> X = Scatter(Many, 0, 100, 4), Y = Scatter(Many, 0, 100, 5);
  static const std::vector<double> Radius = Scatter(Many, 0.26, 1.3, 6);
  auto& Series = Chart.Add<TZyBubbles>(X, Y);
  Series.SetRadiusData(AddVector(Chart, Radius));
  Series.Area().SetVisible(true);
  Series.Area().SetForeColor(0x604E79A7);
  Series.Line().SetColor(0xA04E79A7);
}

/// Arrows anywhere, of up to 20 pixels in all directions.
void AddArrows(TChart& Chart) {
  static const std::vector<double> X = Scatter(Many, 0, 100, 7), Y = Scatter(Many, 0, 100, 8);
  static const std::vector<double> Across = Scatter(Many, -1.7, 1.7, 9), Up = Scatter(Many, -2.6, 2.6, 10);
  auto& Series = Chart.Add<TZyArrows>(X, Y);
  Series.SetDeltaX(AddVector(Chart, Across));
  Series.SetDeltaY(AddVector(Chart, Up));
}

}  // namespace

std::span<const TCase> KindCases() {
  using enum TZyBarStyle;
  static const TCase All[] = {
      {"bars1e5", 10, [] { return FirstOf(Bars(1, Many, Flat)); }},
      {"bars1e5-repaint", 0, [] { return AgainOf(Bars(1, Many, Flat)); }},
      {"bars4x1e5", 30, [] { return FirstOf(Bars(4, Many, Flat)); }},
      {"bars4x1e5-repaint", 0, [] { return AgainOf(Bars(4, Many, Flat)); }},
      {"cuboids1000", 20, [] { return FirstOf(Bars(1, Few, Cuboid)); }},
      {"cylinders1000", 20, [] { return FirstOf(Bars(1, Few, Cylinder)); }},
      {"candles1e3", 0, [] { return FirstPrices<TZyCandleSticks>(Few); }},
      {"candles1e3-repaint", 0, [] { return PricesAgain<TZyCandleSticks>(Few); }},
      {"candles1e4", 4, [] { return FirstPrices<TZyCandleSticks>(Many / 10); }},
      {"candles1e4-repaint", 2, [] { return PricesAgain<TZyCandleSticks>(Many / 10); }},
      {"candles1e5", 10, [] { return FirstPrices<TZyCandleSticks>(Many); }},
      {"candles1e5-repaint", 4, [] { return PricesAgain<TZyCandleSticks>(Many); }},
      {"candles1e6", 30, [] { return FirstPrices<TZyCandleSticks>(Million); }},
      {"candles1e6-repaint", 4, [] { return PricesAgain<TZyCandleSticks>(Million); }},
      {"candles1e6-append", 3, AppendedCandle},
      {"ohlc1e3", 0, [] { return FirstPrices<TZyOHLC>(Few); }},
      {"ohlc1e3-repaint", 0, [] { return PricesAgain<TZyOHLC>(Few); }},
      {"ohlc1e4", 4, [] { return FirstPrices<TZyOHLC>(Many / 10); }},
      {"ohlc1e4-repaint", 2, [] { return PricesAgain<TZyOHLC>(Many / 10); }},
      {"ohlc1e5", 10, [] { return FirstPrices<TZyOHLC>(Many); }},
      {"ohlc1e5-repaint", 4, [] { return PricesAgain<TZyOHLC>(Many); }},
      {"ohlc1e6", 30, [] { return FirstPrices<TZyOHLC>(Million); }},
      {"ohlc1e6-repaint", 4, [] { return PricesAgain<TZyOHLC>(Million); }},
      {"errorbars1e5", 40, [] { return FirstOf(AddErrorBars); }},
      {"errorbars1e5-repaint", 15, [] { return AgainOf(AddErrorBars); }},
      {"bubbles1e5", 60, [] { return FirstOf(AddBubbles); }},
      {"bubbles1e5-repaint", 0, [] { return AgainOf(AddBubbles); }},
      {"arrows1e5", 60, [] { return FirstOf(AddArrows); }},
      {"arrows1e5-repaint", 0, [] { return AgainOf(AddArrows); }},
  };
  return All;
}

}  // namespace zy::cases
