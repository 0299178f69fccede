#include "Cases.h"
#include "series/ZyBars.h"

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
  };
  return All;
}

}  // namespace zy::cases
