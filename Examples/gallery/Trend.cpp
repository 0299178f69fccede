// Carbon dioxide at Mauna Loa and what follows from it: the moving average of a year, its rise per year as the slope of
// a stiff spline on a second axis, and the regression line with its band. The title is computed.

#include "gallery/Gallery.h"
#include "series/ZyInterpolation.h"
#include "series/ZyLinearRegression.h"
#include "series/ZyMovingAverage.h"

void zy::examples::MakeTrend(TChartDocument& Document) {
  TChartPage Chart(Document);
  TZyGraph2D& Graph = Chart.AddGraph("", "Year", "CO2 in ppm");
  Graph.PrimaryYAxis()->SetStart(260);
  Graph.PrimaryYAxis()->SetStartEnd(TZyAxisEnd::Fixed);
  TZyAxis& Rise = Chart.AddAxis(Graph, TZyAxisPosition::Right, "Rise in ppm per year");
  Rise.SetStart(0);
  Rise.SetStop(8);
  Rise.SetStartEnd(TZyAxisEnd::Fixed);
  Rise.SetStopEnd(TZyAxisEnd::Fixed);

  const TCsvFile File = TChartPage::Data("co2-concentration.csv");
  TZyDoubleVector& Years = Chart.AddVector();
  TZyDoubleVector& Measured = Chart.AddVector();
  for (std::size_t Row = 0; Row < File.RowCount(); ++Row) {
    Years.Add(File.Year(Row, File.Column("Date")));
    Measured.Add(File.Real(Row, File.Column("CO2")));
  }
  auto& Line = Chart.AddSeries<TZyLinearRegression>(Graph, &Years, Measured, Colors::DimGray);
  Line.ConfidenceIntervalArea().SetVisible(true);
  Line.ConfidenceIntervalArea().SetForeColor(0x40808080);
  Line.ConfidenceIntervalLine().SetVisible(true);
  Line.ConfidenceIntervalLine().SetColor(0xA0808080);
  Chart.AddSeries(Graph, &Years, Measured, 0xFF9ECAE1).SetCaption("measured");
  auto& Average = Chart.AddSeries<TZyMovingAverage>(Graph, &Years, Measured, 0xFF08519C);
  Average.SetAveragingMethod(TZyAveragingMethod::Simple);
  Average.SetAveragingDirection(TZyAveragingDirection::UpAndDownwards);
  Average.SetAveragingRangeMethod(TZyAveragingRangeMethod::NasXDistance);
  Average.SetN(0.5);
  Average.Line().SetWidth(2);
  auto& Slope = Chart.AddSeries<TZyDifferential>(Graph, &Years, Measured, Colors::Firebrick);
  Slope.SetYAxis(&Rise);
  Slope.SetInterpolationMethod(TZyInterpolationMethod::ApproximativeSpline);
  Slope.SetElasticityFactor(0.1);
  Rise.SetCaptionColor(Colors::Firebrick);
  Rise.SetNumbersColor(Colors::Firebrick);
  const std::string Name = Line.VariablesRef();
  Line.SetCaption("regression, \\b<%" + Name + ".Slope;0.00%>\\b ppm a year");
  Average.SetCaption("average of a year");
  Slope.SetCaption("rise per year");
  Chart.AddLegend(Graph, TPoint{110, 70});
  Graph.SetCaptionVisible(true);
  Graph.SetCaption("Carbon dioxide rises by <%" + Name + ".Slope;0.00%> \xC2\xB1 <%" + Name +
                   ".DeltaSlope;0.00%> ppm a year");
}
