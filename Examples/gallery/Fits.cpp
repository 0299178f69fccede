// Curves fitted to measured data: a formula of any form, a polynomial with what it leaves over, and a spectrum.

#include <cmath>

#include "gallery/Gallery.h"
#include "series/ZyDiscreteFourier.h"
#include "series/ZyFittedLine.h"
#include "series/ZyLeastSquares.h"

namespace zy::examples {

// Four years of temperatures in Seattle, and the wave of a year that fits them best. Its shape is a formula.
void MakeFit(TChartDocument& Document) {
  TChartPage Chart(Document);
  TZyGraph2D& Graph = Chart.AddGraph("", "Days since the first of January 2012",
                                     "Highest temperature in \xC2\xB0"
                                     "C");
  const TCsvFile File = TChartPage::Data("seattle-weather.csv");
  TZyDoubleVector& Days = Chart.AddVector();
  TZyDoubleVector& Highest = Chart.AddVector();
  for (std::size_t Row = 0; Row < File.RowCount(); ++Row) {
    Days.Add(File.Day(Row, File.Column("date")) - File.Day(0, File.Column("date")));
    Highest.Add(File.Real(Row, File.Column("temp_max")));
  }
  auto& Points = Chart.AddSeries<TZyPointSeries>(Graph, &Days, Highest, 0xFF9ECAE1);
  Points.Line().SetVisible(false);
  Points.PointSymbol().SetSize(3);
  Points.PointSymbol().SetFillColor(0xFF9ECAE1);
  Points.PointSymbol().SetBorderColor(0xFF9ECAE1);
  Points.SetCaption("measured");
  auto& Fit = Chart.AddSeries<TZyFittedLine>(Graph, &Days, Highest, Colors::Firebrick);
  Fit.SetExpression("A+B*Cos(2*Pi*X/365.25)+C*Sin(2*Pi*X/365.25)");
  Fit.Line().SetWidth(2);
  Fit.SetCaption("A + B cos 2\xCF\x80x + C sin 2\xCF\x80x");
  Chart.AddLegend(Graph, TPoint{640, 60});
  const std::string Name = Fit.VariablesRef();
  Graph.SetCaptionVisible(true);
  Graph.SetCaption("Seattle: A = <%" + Name + ".Coefficients[0];0.00%>, B = <%" + Name +
                   ".Coefficients[1];0.00%>, C = <%" + Name + ".Coefficients[2];0.00%>,  \\ir\\i\\+2\\+ = <%" + Name +
                   ".Probability;0.000%>");
}

// Carbon dioxide and a polynomial through it, above; what the polynomial leaves over, below.
void MakePolynomial(TChartDocument& Document) {
  TChartPage Chart(Document);
  const auto [Lower, Upper] = Chart.AddStacked("Residuals", "", "CO2 in ppm", 0.6);
  Lower.PrimaryXAxis()->SetScaling(TZyAxisScaling::Normal);
  Lower.PrimaryXAxis()->SetCaption("Year");
  const TCsvFile File = TChartPage::Data("co2-concentration.csv");
  TZyDoubleVector& Years = Chart.AddVector();
  TZyDoubleVector& Measured = Chart.AddVector();
  TZyDoubleVector& Residuals = Chart.AddVector();
  for (std::size_t Row = 0; Row < File.RowCount(); ++Row) {
    Years.Add(File.Year(Row, File.Column("Date")));
    Measured.Add(File.Real(Row, File.Column("CO2")));
  }
  Chart.AddSeries(Upper, &Years, Measured, 0xFF6BAED6).SetCaption("measured");
  auto& Curve = Chart.AddSeries<TZyPolynomial>(Upper, &Years, Measured, Colors::Firebrick);
  Curve.SetOrder(3);
  Curve.Line().SetWidth(2);
  auto& Left = Chart.AddSeries(Lower, &Years, Residuals, Colors::SeaGreen);
  Left.Area().SetVisible(true);
  Left.Area().SetForeColor(0x602E8B57);
  Left.SetCaption("measured less polynomial");
  Curve.SetOnCalculated([&Curve, &Years, &Measured, &Residuals](TObject*) {
    std::vector<double> Values;
    Values.reserve(static_cast<std::size_t>(Years.Count()));
    for (int i = 0; i < Years.Count(); ++i) Values.push_back(Measured.GetValue(i) - Curve.GetY(Years.GetValue(i)));
    Residuals.SetInternalArray(std::move(Values));
  });
  Curve.Calculate();  // the lower graph is drawn first
  const std::string Name = Curve.VariablesRef();
  Curve.SetCaption("<%" + Name + ".Formula%>");
  Chart.AddLegend(Upper, TPoint{110, 60});
  Upper.SetCaptionVisible(true);
  Upper.SetCaption("A polynomial of carbon dioxide, \\ir\\i\\+2\\+ = <%" + Name + ".Probability;0.0000%>");
}

// What the seasons add to carbon dioxide, as a spectrum: they come once a year, and their shape twice.
void MakeSpectrum(TChartDocument& Document) {
  TChartPage Chart(Document);
  TZyGraph2D& Graph = Chart.AddGraph("How often carbon dioxide swings", "Swings per year", "Amplitude in ppm");
  TZyAxis& Angles = Chart.AddAxis(Graph, TZyAxisPosition::Right, "Phase in radians");
  Angles.SetStart(-4);
  Angles.SetStop(4);
  Angles.SetStartEnd(TZyAxisEnd::Fixed);
  Angles.SetStopEnd(TZyAxisEnd::Fixed);
  const TCsvFile File = TChartPage::Data("co2-concentration.csv");
  TZyDoubleVector& Years = Chart.AddVector();
  TZyDoubleVector& Seasons = Chart.AddVector();
  for (std::size_t Row = 0; Row < File.RowCount(); ++Row) {
    Years.Add(File.Year(Row, File.Column("Date")));
    Seasons.Add(File.Real(Row, File.Column("CO2")) - File.Real(Row, File.Column("adjusted CO2")));
  }
  auto& Spectrum = Chart.AddSeries<TZyDiscreteFourier>(Graph, &Years, Seasons, Colors::DarkBlue);
  Spectrum.SetCaption("amplitude");
  Spectrum.Line().SetWidth(2);
  Spectrum.Phase().SetYAxis(&Angles);
  Spectrum.Phase().SetCaption("phase");
  Spectrum.Phase().Line().SetColor(0x602E8B57);
  Chart.AddLegend(Graph, TPoint{640, 60});
}

}  // namespace zy::examples
