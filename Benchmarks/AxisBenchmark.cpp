// The way from values to pixels for a million values, beside a plain multiply and add of the same values.

#include <benchmark/benchmark.h>

#include <random>
#include <vector>

#include "axes/ZyAxis.h"

namespace {

using namespace zy;

constexpr std::size_t Count = 1000000;

std::vector<double> RandomValues() {
  std::mt19937 Random(1);
  std::uniform_real_distribution<double> Distribution(-1, 11);
  std::vector<double> Result(Count);
  for (double& Value : Result) Value = Distribution(Random);
  return Result;
}

void MultiplyAdd(benchmark::State& State) {
  const std::vector<double> Values = RandomValues();
  std::vector<float> Pixels(Count);
  double Scale = 40, Offset = 50;
  for (auto _ : State) {
    benchmark::DoNotOptimize(Scale);
    benchmark::DoNotOptimize(Offset);
    for (std::size_t i = 0; i < Count; ++i) Pixels[i] = static_cast<float>(Values[i] * Scale + Offset);
    benchmark::ClobberMemory();
  }
}
BENCHMARK(MultiplyAdd)->Unit(benchmark::kMicrosecond);

void ManyValues(benchmark::State& State) {
  TZyAxis Axis;
  Axis.SetScaling(static_cast<TZyAxisScaling>(State.range(0)));
  const std::vector<double> Values = RandomValues();
  std::vector<float> Pixels(Count);
  for (auto _ : State) {
    Axis.NumberToWorld(Values, Pixels);
    benchmark::ClobberMemory();
  }
}
BENCHMARK(ManyValues)->Unit(benchmark::kMicrosecond)->Arg(0)->Arg(1)->Arg(4);  // linear, logarithmic, dates

void OneByOne(benchmark::State& State) {
  TZyAxis Axis;
  const std::vector<double> Values = RandomValues();
  std::vector<float> Pixels(Count);
  for (auto _ : State) {
    for (std::size_t i = 0; i < Count; ++i) Pixels[i] = Axis.NumberToWorld(Values[i]);
    benchmark::ClobberMemory();
  }
}
BENCHMARK(OneByOne)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
