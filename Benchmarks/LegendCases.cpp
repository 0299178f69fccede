// A legend of many items, and the drag of one over many points.

#include <string>

#include "WindowCase.h"
#include "annotations/ZyLegend.h"

namespace zy::cases {
namespace {

constexpr int Many = 10000, Few = 100;

/// A chart with so many short lines, and a legend of them.
struct TLegendChart : TChart {
  explicit TLegendChart(int Count) {
    const TData Data(4);
    for (int Index = 0; Index < Count; ++Index)
      Add(Data.X, Data.Y).SetCaption("item " + std::to_string(Index) + " of the legend");
    Legend->SetGraph(Graph);
    Legend->SetParent(Graph);
    Legend->SetColumns(5);
    Legend->SetItemWidth(40);
  }
  TZyLegend* Legend = new TZyLegend(&Form);
};

/// Paints of the legend alone, listed and measured anew before each or not.
TResult PaintLegend(int Count, bool Anew) {
  TLegendChart Chart(Count);
  Bitmap Picture(Width, Height);
  Graphics Canvas(Picture);
  const auto Prepare = [&] {
    if (Anew) Chart.Legend->Modified();
  };
  const auto Paint = [&] { Chart.Legend->PaintGr(Canvas); };
  Paint();
  TResult Result = Median(Paint, Prepare);
  const long Before = Allocations();
  Paint();
  Result.Allocations = Allocations() - Before;
  return Result;
}

/// One move of a legend that the mouse drags over a line, from the event to the pixels of the window.
TResult MoveLegend(int Count) {
  TWindowChart Chart(Count);
  auto& Legend = *new TZyLegend(&Chart.Form);
  Legend.SetParent(Chart.Graph);
  Legend.SetGraph(Chart.Graph);
  Legend.SetBackColor(Colors::White);
  Legend.SetBounds(200, 200, 0, 0);
  Chart.Show();
  return Chart.Moves({210, 210}, true);
}

}  // namespace

std::span<const TCase> LegendCases() {
  static const TCase All[] = {
      {"legend100", 4, [] { return PaintLegend(Few, true); }},
      {"legend100-repaint", 0.5, [] { return PaintLegend(Few, false); }},
      {"legend1e4", 0, [] { return PaintLegend(Many, true); }},
      {"legend1e4-repaint", 0, [] { return PaintLegend(Many, false); }},
      {"legend-move1e6", 0.3, [] { return MoveLegend(Million); }},
      {"legend-move1e7", 0.3, [] { return MoveLegend(10 * Million); }},
  };
  return All;
}

}  // namespace zy::cases
