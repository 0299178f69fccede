// What formulas cost: many arguments at once and one by one beside the same expression compiled, and parsing by length.

#include <benchmark/benchmark.h>

#include <cmath>
#include <string>
#include <vector>

#include "analysis/ZyParseFkt.h"

namespace {

using namespace zy;

/// An expression of ten operations, as text and compiled.
struct TCase {
  const char* Text;
  void (*Compiled)(const std::vector<double>& X, std::vector<double>& Y);
};

template <typename TExpression>
void Loop(const std::vector<double>& X, std::vector<double>& Y, TExpression Expression) {
  for (std::size_t i = 0; i < X.size(); ++i) Y[i] = Expression(X[i]);
}

const TCase Cases[] = {
    {"3*X*X*X-2*X*X+5*X-7+X",
     [](const std::vector<double>& X, std::vector<double>& Y) {
       Loop(X, Y, [](double x) { return 3 * x * x * x - 2 * x * x + 5 * x - 7 + x; });
     }},
    {"(X^2-3*X+2)/(X^2+1)+4*X/(5+X)",
     [](const std::vector<double>& X, std::vector<double>& Y) {
       Loop(X, Y, [](double x) { return (x * x - 3 * x + 2) / (x * x + 1) + 4 * x / (5 + x); });
     }},
    {"2*Exp(-X/3)*Sin(6*X+1)+X*X-1/X",
     [](const std::vector<double>& X, std::vector<double>& Y) {
       Loop(X, Y, [](double x) { return 2 * std::exp(-x / 3) * std::sin(6 * x + 1) + x * x - 1 / x; });
     }},
};

/// A parser with the variable X, and a million arguments.
struct TSample {
  explicit TSample(std::int64_t Case) {
    AddVariableToList("X", "", nullptr, Parser.FObjectsToUpdate, [this] { return Argument; });
    Parser.SetExpression(Cases[Case].Text);
    for (std::size_t i = 0; i < X.size(); ++i) X[i] = 1e-3 + 1e-5 * static_cast<double>(i);
  }
  TZyFunctionParser Parser;
  double Argument = 0;
  std::vector<double> X = std::vector<double>(1'000'000);
  std::vector<double> Y = std::vector<double>(1'000'000);
};

void Compiled(benchmark::State& State) {
  TSample Sample(State.range(0));
  for (auto _ : State) {
    Cases[State.range(0)].Compiled(Sample.X, Sample.Y);
    benchmark::DoNotOptimize(Sample.Y.data());
    benchmark::ClobberMemory();
  }
}
BENCHMARK(Compiled)->ArgName("case")->DenseRange(0, 2)->Unit(benchmark::kMillisecond);

void AllAtOnce(benchmark::State& State) {
  TSample Sample(State.range(0));
  for (auto _ : State) Sample.Parser.GetResults("X", Sample.X, Sample.Y);
}
BENCHMARK(AllAtOnce)->ArgName("case")->DenseRange(0, 2)->Unit(benchmark::kMillisecond);

void OneByOne(benchmark::State& State) {
  TSample Sample(State.range(0));
  for (auto _ : State) {
    for (std::size_t i = 0; i < Sample.X.size(); ++i) {
      Sample.Argument = Sample.X[i];
      Sample.Y[i] = Sample.Parser.GetResult();
    }
  }
}
BENCHMARK(OneByOne)->ArgName("case")->DenseRange(0, 2)->Unit(benchmark::kMillisecond);

/// Parsing of a formula of so many bytes.
void Parse(benchmark::State& State) {
  TSample Sample(0);
  std::string Text = "X";
  while (Text.size() < static_cast<std::size_t>(State.range(0))) Text += "+Sin(2.5*X)^2";
  Sample.Parser.SetExpression(Text);
  for (auto _ : State) Sample.Parser.Parse();
  State.SetBytesProcessed(State.iterations() * static_cast<std::int64_t>(Text.size()));
}
BENCHMARK(Parse)->ArgName("bytes")->Arg(20)->Arg(1'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
