#pragma once

#include <algorithm>
#include <chrono>
#include <cmath>
#include <functional>
#include <memory>
#include <random>
#include <span>
#include <vector>

#include "Allocations.h"
#include "graph/ZyGraph2D.h"
#include "platform/controls/TForm.h"
#include "platform/drawing/Bitmap.h"
#include "platform/drawing/Graphics.h"
#include "series/ZyLineSeries.h"
#include "series/vectors/ZyDoubleVector.h"

namespace zy::cases {

constexpr int Width = 1200, Height = 800;
constexpr int Million = 1000000;

struct TData {
  explicit TData(int Count) {
    std::mt19937 Random(1);
    std::uniform_real_distribution<double> Noise(-2, 2);
    X.reserve(static_cast<std::size_t>(Count));
    Y.reserve(static_cast<std::size_t>(Count));
    for (int i = 0; i < Count; ++i) {
      X.push_back(i * 1000.0 / Count);
      Y.push_back(10 * std::sin(0.05 * X.back()) + Noise(Random));
    }
  }
  std::vector<double> X, Y;
};

/// A chart with its axes on a form, which owns all that is added.
struct TChart {
  TChart(int AWidth = Width, int AHeight = Height) {
    Graph->SetBounds(0, 0, AWidth, AHeight);
    Graph->SetBackColor(Colors::White);
    Graph->TestPrimaryAxis();
  }
  template <class TSeries = TZyLineSeries>
  TSeries& Add(std::span<const double> X, std::span<const double> Y) {
    auto* const Series = new TSeries(&Form);
    auto* const XData = new TZyDoubleVector(&Form);
    auto* const YData = new TZyDoubleVector(&Form);
    XData->AddRange(X);
    YData->AddRange(Y);
    Series->SetXData(XData);
    Series->SetYData(YData);
    Series->SetXAxis(Graph->PrimaryXAxis());
    Series->SetYAxis(Graph->PrimaryYAxis());
    return *Series;
  }
  /// The same with arrays that the vectors take over, as an application hands over what it has just measured.
  TZyLineSeries& Take(TData& Data) {
    TZyLineSeries& Series = Add({}, {});
    dynamic_cast<TZyDoubleVector*>(Series.XData())->SetInternalArray(std::move(Data.X));
    dynamic_cast<TZyDoubleVector*>(Series.YData())->SetInternalArray(std::move(Data.Y));
    return Series;
  }
  void Paint(Bitmap& Picture) {
    Graphics Canvas(Picture);
    Graph->PaintGr(Canvas);
  }

  TForm Form;
  TZyGraph2D* Graph = new TZyGraph2D(&Form);
};

/// What a case came to.
struct TResult {
  double Seconds = 0;
  double Best = 0;
  double Limit = 0;  // seconds of the scan
  long Allocations = 0;
};

inline double MiddleOf(std::vector<double>& Values) {
  std::sort(Values.begin(), Values.end());
  return Values[Values.size() / 2];
}

inline double SecondsOf(const std::function<void()>& Run) {
  const auto Start = std::chrono::steady_clock::now();
  Run();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - Start).count();
}

/// What it takes to look at each of a million values once.
inline double Scan(const std::vector<double>& Values) {
  double Low = Values[0], High = Values[0];
  for (const double Value : Values) {
    Low = std::min(Low, Value);
    High = std::max(High, Value);
  }
  return High - Low;
}

constexpr int FewestRuns = 5, MostRuns = 60;

/// The middle one of some runs: at least five, and up to sixty within a second and a half. A scan after each run meets
/// the same weather on the machine. Prepare runs before each and is not counted.
inline TResult Median(
    const std::function<void()>& Run, const std::function<void()>& Prepare = [] {}) {
  constexpr double Patience = 1.5;
  const std::vector<double> Values = TData(Million).Y;
  std::vector<double> Runs, Scans;
  const auto Start = std::chrono::steady_clock::now();
  for (int i = 0; i < MostRuns; ++i) {
    if (i >= FewestRuns && std::chrono::steady_clock::now() - Start > std::chrono::duration<double>(Patience)) break;
    Prepare();
    Runs.push_back(SecondsOf(Run));
    volatile double Span = Scan(Values);  // what the run left in the caches must not count
    Scans.push_back(SecondsOf([&] { Span = Scan(Values); }));
  }
  return {MiddleOf(Runs), *std::min_element(Runs.begin(), Runs.end()), MiddleOf(Scans), 0};
}

/// Paints once more and counts; a canvas comes from the window that is painted.
inline TResult WithAllocations(TResult Result, TChart& Chart, Bitmap& Picture) {
  Graphics Canvas(Picture);
  const long Before = Allocations();
  Chart.Graph->PaintGr(Canvas);
  Result.Allocations = Allocations() - Before;
  return Result;
}

struct TCase {
  const char* Name;
  double Aim;  // units; 0 for none
  std::function<TResult()> Run;
};

/// The cases of bars, and of other kinds of series of measured data.
std::span<const TCase> KindCases();
/// Those of analysis curves; of most the calculation alone.
std::span<const TCase> CurveCases();
/// Those of legends.
std::span<const TCase> LegendCases();
/// Those of pies.
std::span<const TCase> PieCases();
/// Those of markers.
std::span<const TCase> MarkerCases();

}  // namespace zy::cases
