// What a chart costs to paint: empty and for the first time, again, after a layout, and over a growing number of data.

#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>
#include <vector>

#include "graph/ZyGraph2D.h"
#include "platform/controls/TForm.h"
#include "platform/drawing/Bitmap.h"
#include "platform/drawing/Graphics.h"
#include "series/ZyLineSeries.h"
#include "series/vectors/ZyDoubleVector.h"

namespace {

using namespace zy;

constexpr int Width = 600, Height = 400;

/// The first paint of a chart without anything: it makes its axes, lays them out and draws them.
void FirstPaintOfAnEmptyChart(benchmark::State& State) {
  Bitmap Picture(Width, Height);
  for (auto _ : State) {
    State.PauseTiming();
    auto Chart = std::make_unique<TZyGraph2D>();
    Graphics Canvas(Picture);
    State.ResumeTiming();
    Chart->PaintGr(Canvas);
    State.PauseTiming();
    Chart.reset();
    State.ResumeTiming();
  }
}
BENCHMARK(FirstPaintOfAnEmptyChart)->Unit(benchmark::kMicrosecond)->UseRealTime();

void PaintAgain(benchmark::State& State) {
  Bitmap Picture(Width, Height);
  TZyGraph2D Chart;
  Graphics Canvas(Picture);
  for (auto _ : State) Chart.PaintGr(Canvas);
}
BENCHMARK(PaintAgain)->Unit(benchmark::kMicrosecond);

void LayoutAndPaint(benchmark::State& State) {
  Bitmap Picture(Width, Height);
  TZyGraph2D Chart;
  Graphics Canvas(Picture);
  for (auto _ : State) {
    Chart.Modified();
    Chart.PaintGr(Canvas);
  }
}
BENCHMARK(LayoutAndPaint)->Unit(benchmark::kMicrosecond);

/// A paint with a line of data whose pixels are known already, and one that computes them anew. The argument is the
/// number of values.
void PaintData(benchmark::State& State, bool Anew) {
  const auto Count = static_cast<std::size_t>(State.range(0));
  std::vector<double> Times(Count), Values(Count);
  for (std::size_t Index = 0; Index < Count; ++Index) {
    Times[Index] = static_cast<double>(Index) / static_cast<double>(Count);
    Values[Index] = std::sin(Times[Index] * 40) + 0.1 * std::sin(Times[Index] * 7919);
  }
  TForm Form;
  auto& Chart = *new TZyGraph2D(&Form);
  Chart.TestPrimaryAxis();
  TZyDoubleVector X, Y;
  X.AddRange(Times);
  Y.AddRange(Values);
  TZyLineSeries Series;
  Series.SetXData(&X);
  Series.SetYData(&Y);
  Series.SetXAxis(Chart.PrimaryXAxis());
  Series.SetYAxis(Chart.PrimaryYAxis());
  Bitmap Picture(Width, Height);
  Graphics Canvas(Picture);
  Chart.PaintGr(Canvas);
  for (auto _ : State) {
    if (Anew) Chart.SeriesModified();
    Chart.PaintGr(Canvas);
  }
}
BENCHMARK_CAPTURE(PaintData, PixelsKnown, false)
    ->RangeMultiplier(10)
    ->Range(1000, 10'000'000)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(PaintData, PixelsAnew, true)
    ->RangeMultiplier(10)
    ->Range(1000, 10'000'000)
    ->Unit(benchmark::kMicrosecond);

}  // namespace
