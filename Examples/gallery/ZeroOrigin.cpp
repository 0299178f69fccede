// Axes that cross at zero, as in a textbook: a polynomial with its roots.

#include "gallery/Gallery.h"

void zy::examples::MakeZeroOrigin(TChartDocument& Document) {
  TChartPage Chart(Document);
  TZyGraph2D& Graph = Chart.AddGraph(R"(y = (\ix\i\+3\+ - 4\ix\i) / 2)", "x", "y");
  Graph.SetZeroOrigin(true);
  for (TZyAxis* Axis : Graph.Axes()) {
    Axis->ArrowPoint().SetVisible(true);
    Axis->SetCaptionAlignment(TAlignment::taRightJustify);
  }

  TZyDoubleVector& X = Chart.AddVector();
  TZyDoubleVector& Y = Chart.AddVector();
  for (int Step = -150; Step <= 150; ++Step) {
    X.Add(Step / 50.0);
    Y.Add((X[X.Count() - 1] * X[X.Count() - 1] * X[X.Count() - 1] - 4 * X[X.Count() - 1]) / 2);
  }
  auto& Curve = Chart.AddSeries(Graph, &X, Y, Colors::DarkRed);
  Curve.Line().SetWidth(2);
  Curve.SetCaption(R"(\iy\i of \ix\i)");

  TZyDoubleVector& Roots = Chart.AddVector();
  TZyDoubleVector& Zeros = Chart.AddVector();
  Roots.AddRange({-2, 0, 2});
  Zeros.AddRange({0, 0, 0});
  auto& Marks = Chart.AddSeries<TZyPointSeries>(Graph, &Roots, Zeros, Colors::Black);
  Marks.Line().SetVisible(false);
  Marks.PointSymbol().SetPointSymbol(TZyPointSymbol::Circle);
  Marks.PointSymbol().SetFillColor(Colors::Gold);
  Marks.SetCaption("roots");
  Chart.AddLegend(Graph, TPoint{690, 380});
}
