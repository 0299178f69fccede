// A step through nine points by the three methods of interpolation.

#include "gallery/Gallery.h"
#include "series/ZyInterpolation.h"

void zy::examples::MakeCurves(TChartDocument& Document) {
  TChartPage Chart(Document);
  TZyGraph2D& Graph = Chart.AddGraph("A step through nine points, by three methods", "X", "Y");
  TZyDoubleVector &X = Chart.AddVector(), &Y = Chart.AddVector();
  X.AddRange({0.0, 1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0, 8.0});
  Y.AddRange({1.0, 1.1, 0.9, 1.0, 4.0, 5.1, 4.9, 5.0, 5.0});
  constexpr std::tuple<TZyInterpolationMethod, const char*, TZyColor> Curves[] = {
      {TZyInterpolationMethod::Akima, "Akima", 0xFF1F77B4},
      {TZyInterpolationMethod::CubicSpline, "cubic spline", 0xFFD62728},
      {TZyInterpolationMethod::ApproximativeSpline, "approximative spline", 0xFF2CA02C}};
  for (const auto& [Method, Caption, Color] : Curves) {
    auto& Curve = Chart.AddSeries<TZyInterpolation>(Graph, &X, Y, Color);
    Curve.SetInterpolationMethod(Method);
    Curve.SetClipYValues(false);
    Curve.Line().SetWidth(2);
    Curve.SetCaption(Caption);
  }
  auto& Points = Chart.AddSeries<TZyPointSeries>(Graph, &X, Y, Colors::Black);
  Points.Line().SetVisible(false);
  Points.PointSymbol().SetSize(8);
  Points.PointSymbol().SetPointSymbol(TZyPointSymbol::Circle);
  Points.PointSymbol().SetBorderColor(Colors::Black);
  Points.PointSymbol().SetFillColor(Colors::White);
  Points.SetCaption("points");
  Chart.AddLegend(Graph, TPoint{680, 360});
}
