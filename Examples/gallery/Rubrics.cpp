// An axis of texts: what Iowa generated from three sources of energy in each year.

#include <map>

#include "gallery/Gallery.h"

void zy::examples::MakeRubrics(TChartDocument& Document) {
  TChartPage Chart(Document);
  TZyGraph2D& Graph = Chart.AddGraph("Electricity of Iowa by source", "", "Net generation in GWh");
  const TCsvFile File = TChartPage::Data("iowa-electricity.csv");
  TStringList Years;
  std::map<std::string, TZyDoubleVector*> Sources;
  for (std::size_t Row = 0; Row < File.RowCount(); ++Row) {
    const std::string Year = File.Text(Row, File.Column("year")).substr(0, 4);
    if (Years.IndexOf(Year) < 0) Years.Add(Year);
    TZyDoubleVector*& Values = Sources[File.Text(Row, File.Column("source"))];
    if (Values == nullptr) Values = &Chart.AddVector();
    Values->Add(File.Real(Row, File.Column("net_generation")));
  }
  TZyDoubleVector& Middles = Chart.AddVector();  // a text stands in the middle of its cell
  for (int Cell = 0; Cell < Years.Count(); ++Cell) Middles.Add(Cell + 0.5);
  TZyAxis& Axis = *Graph.PrimaryXAxis();
  Axis.SetScaling(TZyAxisScaling::Rubrics);
  Axis.SetRubrics(&Years);
  Axis.SetRubricsAngle(45);
  Axis.SetCaptionVisible(false);
  Axis.SetStop(Years.Count());
  Axis.SetStartEnd(TZyAxisEnd::FirstSet);
  Axis.SetStopEnd(TZyAxisEnd::FirstSet);

  const TZyColor Tints[] = {Colors::DimGray, Colors::DarkOrange, Colors::SeaGreen};
  const TZyPointSymbol Symbols[] = {TZyPointSymbol::Square, TZyPointSymbol::Circle, TZyPointSymbol::Diamond};
  std::size_t Count = 0;
  for (const auto& [Source, Values] : Sources) {
    const TZyColor Tint = Tints[Count % std::size(Tints)];
    auto& Series = Chart.AddSeries<TZyPointSeries>(Graph, &Middles, *Values, Tint);
    Series.SetCaption(Source);
    Series.Line().SetWidth(2);
    Series.PointSymbol().SetPointSymbol(Symbols[Count++ % std::size(Symbols)]);
    Series.PointSymbol().SetBorderColor(Tint);
    Series.PointSymbol().SetFillColor(Tint);
    Series.PointSymbol().SetSize(9);
  }
  Chart.AddLegend(Graph, TZyLegendPosition::RightTopOfAxis);
}
