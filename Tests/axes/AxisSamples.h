#pragma once

#include <string>
#include <vector>

#include "graph/SampleChart.h"

namespace zy::testing {

/// Sets both ends of an axis and lays the chart out.
inline void Lay(TSampleChart& Chart, TZyAxis& Axis, double Start, double Stop) {
  Axis.SetStop(Stop);
  Axis.SetStart(Start);
  Chart.Graph->Calculate();
}

/// One more axis of a graph.
inline TZyAxis* AddAxis(TZyGraph2D& Graph, TZyAxisPosition Position) {
  auto* const Axis = new TZyAxis(Graph.Owner());
  Axis->SetPosition(Position);
  Axis->SetParent(&Graph);
  return Axis;
}

/// The texts of the labels, with bars between.
inline std::string LabelsOf(const TZyAxis& Axis) {
  std::string Result;
  for (const std::string& Text : Axis.LabelTexts()) Result += (Result.empty() ? "" : "|") + Text;
  return Result;
}

/// Pixels of the ticks.
inline std::vector<float> PlacesOf(const TZyAxis& Axis) {
  std::vector<float> Result;
  for (const TZyTick& Tick : Axis.Ticks()) Result.push_back(Tick.Position);
  return Result;
}

}  // namespace zy::testing
