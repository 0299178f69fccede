// Axes on all four sides: the right one runs downwards and points at the data, the upper one is a slave of the lower.

#include <cmath>
#include <numbers>

#include "gallery/Gallery.h"

void zy::examples::MakeSides(TChartDocument& Document) {
  TChartPage Chart(Document);
  TZyGraph2D& Graph = Chart.AddGraph("Four sides", "Angle in degrees", "Sine");
  TZyAxis& Top = Chart.AddAxis(Graph, TZyAxisPosition::Top, "Angle in grads");
  Top.SetMasterAxis(Graph.PrimaryXAxis());
  Top.SetSlaveSlope(400.0 / 360);
  TZyAxis& Right = Chart.AddAxis(Graph, TZyAxisPosition::Right, "Cosine, downwards");
  Right.SetTwisted(true);
  Right.SetTicksPointToData(true);
  Graph.DataAreaFrame().SetVisible(true);

  TZyDoubleVector& Angles = Chart.AddVector();
  TZyDoubleVector& Sines = Chart.AddVector();
  TZyDoubleVector& Cosines = Chart.AddVector();
  for (int Degree = 0; Degree <= 360; Degree += 5) {
    Angles.Add(Degree);
    Sines.Add(std::sin(Degree * std::numbers::pi / 180));
    Cosines.Add(std::cos(Degree * std::numbers::pi / 180));
  }
  auto& Sine = Chart.AddSeries(Graph, &Angles, Sines, Colors::Crimson);
  Sine.Line().SetWidth(2);
  Sine.SetCaption("sine");
  auto& Cosine = Chart.AddSeries(Graph, &Angles, Cosines, Colors::DodgerBlue);
  Cosine.SetYAxis(&Right);
  Cosine.Line().SetDashStyle(DashStyleDash);
  Cosine.Line().SetWidth(2);
  Cosine.SetCaption("cosine");
  Chart.AddLegend(Graph, TZyLegendPosition::LeftCenterOfAxis);
}
