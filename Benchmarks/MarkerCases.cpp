// Markers that the mouse moves over many points.

#include "WindowCase.h"
#include "annotations/ZyCrossHair.h"

namespace zy::cases {
namespace {

TResult MoveLine(int Count) {
  TWindowChart Chart(Count);
  auto& Line = *new TZyHorizontalMarker(&Chart.Form);
  Line.SetParent(Chart.Graph);
  Line.SetYAxis(Chart.Graph->PrimaryYAxis());
  Line.SetCaption("limit");
  Line.SetCaptionVisible(true);
  Line.SetY(5);
  Chart.Show();
  return Chart.Moves({Line.Left() + 20, Line.Top() + Line.Height() - 3}, true);
}

/// A cross hair that follows the mouse from point to point, with the values of each.
TResult TrackPoints(int Count) {
  TWindowChart Chart(Count);
  auto& Cross = *new TZyCrossHair(&Chart.Form);
  Cross.SetParent(Chart.Graph);
  Cross.SetXAxis(Chart.Graph->PrimaryXAxis());
  Cross.SetYAxis(Chart.Graph->PrimaryYAxis());
  Cross.SetSnapToSeriesValues(true);
  Cross.SetEnabled(false);
  Chart.Graph->SetOnMouseMove([&](TObject*, TShiftState, int X, int Y) {
    Cross.MoveTo({X, Y});
    Cross.SetCaption(std::to_string(Cross.X()) + "\r" + std::to_string(Cross.Y()));
  });
  Chart.Show();
  return Chart.Moves({210, 210}, false);
}

}  // namespace

std::span<const TCase> MarkerCases() {
  static const TCase All[] = {
      {"marker-move1e6", 0.3, [] { return MoveLine(Million); }},
      {"marker-move1e7", 0.3, [] { return MoveLine(10 * Million); }},
      {"cross-track1e6", 1, [] { return TrackPoints(Million); }},
  };
  return All;
}

}  // namespace zy::cases
