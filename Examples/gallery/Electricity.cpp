// Electricity by source and year: stacked bars, flat and as solids, upright and lying. The years stand in the middle of
// their classes.

#include <algorithm>
#include <map>

#include "gallery/Gallery.h"
#include "series/ZyBars.h"
#include "texts/NumberText.h"

namespace zy::examples {
namespace {

void MakeElectricityAs(TChartDocument& Document, TZyBarStyle Style, bool IsHorizontal) {
  TChartPage Chart(Document);
  const char *const Year = "Year", *const Generation = "Net generation in 1,000 MWh";
  TZyGraph2D& Graph = Chart.AddGraph("Electricity in Iowa by source", IsHorizontal ? Generation : Year,
                                     IsHorizontal ? Year : Generation);
  Graph.SetDataAreaColor(0xFFF4F4F0);
  const TCsvFile File = TChartPage::Data("iowa-electricity.csv");
  const std::size_t YearColumn = File.Column("year"), SourceColumn = File.Column("source");
  std::map<int, std::map<std::string, double>> ByYear;
  for (std::size_t Row = 0; Row < File.RowCount(); ++Row)
    ByYear[std::stoi(File.Text(Row, YearColumn))][File.Text(Row, SourceColumn)] =
        File.Real(Row, File.Column("net_generation"));
  TZyDoubleVector& Edges = Chart.AddVector();
  for (const auto& [Number, Sources] : ByYear) Edges.Add(Number - 0.5);
  Edges.Add(ByYear.rbegin()->first + 0.5);
  const auto Share = [&](const std::string& Source) {  // of the last year, as a formula
    auto& Latest = ByYear.rbegin()->second;
    double Total = 0;
    for (const auto& [Name, Value] : Latest) Total += Value;
    return "100*" + FloatToStr(Latest[Source]) + "/" + FloatToStr(Total);
  };
  std::vector<TZyBars*> Stacked;
  for (const auto& [Source, Color] : {std::pair{std::string("Fossil Fuels"), 0xFF8C7B6B},
                                      {"Nuclear Energy", 0xFFE8B93A},
                                      {"Renewables", 0xFF4E9F50}}) {
    TZyDoubleVector& Values = Chart.AddVector();
    for (auto& [Number, Sources] : ByYear) Values.Add(Sources[Source]);
    auto& Bars = Chart.AddSeries<TZyBars>(Graph, &Edges, Values, Colors::White);
    Bars.SetCaption(Source + R"(, \b<%)" + Share(Source) + R"(;0.0%> %\b)");
    Bars.Area().SetForeColor(static_cast<TZyColor>(Color));
    Stacked.push_back(&Bars);
  }
  TZyBars& Last = *Stacked.back();
  Last.SetOverlayStyle(TZyBarsOverlayStyle::Stack);
  Last.SetBarStyle(Style);
  Last.SetClassesDistance(Style == TZyBarStyle::Flat ? 20 : 40);
  Last.SetBarsHorizontal(IsHorizontal);
  TZyLegend& Legend =
      Chart.AddLegend(Graph, IsHorizontal ? TZyLegendPosition::TopCenterOfAxis : TZyLegendPosition::BottomCenterOfAxis);
  Legend.SetCaption("<%" + Graph.VariablesRef() + ".Caption%>: shares in " + IntToStr(ByYear.rbegin()->first));
  Legend.SetCaptionVisible(true);
  Legend.SetCaptionDistanceAfter(4);
}

}  // namespace

void MakeElectricity(TChartDocument& Document) { MakeElectricityAs(Document, TZyBarStyle::Flat, false); }

void MakeElectricityCuboids(TChartDocument& Document) { MakeElectricityAs(Document, TZyBarStyle::Cuboid, false); }

void MakeElectricityCylinders(TChartDocument& Document) { MakeElectricityAs(Document, TZyBarStyle::Cylinder, false); }

void MakeElectricityLying(TChartDocument& Document) { MakeElectricityAs(Document, TZyBarStyle::Flat, true); }

void MakeElectricityLyingCuboids(TChartDocument& Document) { MakeElectricityAs(Document, TZyBarStyle::Cuboid, true); }

void MakeElectricityLyingCylinders(TChartDocument& Document) {
  MakeElectricityAs(Document, TZyBarStyle::Cylinder, true);
}

}  // namespace zy::examples
