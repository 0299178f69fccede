#pragma once

#include <span>
#include <string>

#include "annotations/ZyLabelWithArrowMarker.h"
#include "annotations/ZyLegend.h"
#include "annotations/ZyLineMarkers.h"
#include "common/ChartDocument.h"
#include "common/CsvFile.h"
#include "graph/ZyGraph2D.h"
#include "persistence/ZyIO.h"
#include "pie/ZyPieLegend.h"
#include "series/ZyPointSeries.h"
#include "series/vectors/ZyDoubleVector.h"

namespace zy::examples {

/// What the charts of the gallery have in common. The document owns all that is made. Everything has a name: what has
/// none is not saved.
struct TChartPage {
  explicit TChartPage(TChartDocument& ADocument) : Document(ADocument) {}

  /// A chart with a title and the captions of its two axes, as large as the page unless its place is given.
  TZyGraph2D& AddGraph(const char* Title, const char* XCaption, const char* YCaption);
  /// The lower graph of a page and, on its X axis of dates, one above it that takes a part of the height.
  struct TStacked {
    TZyGraph2D &Lower, &Upper;
  };
  TStacked AddStacked(const char* LowerCaption, const char* Title, const char* UpperCaption, double Part);
  /// One more axis, before the series: they would take the colours of the look.
  TZyAxis& AddAxis(TZyGraph2D& Graph, TZyAxisPosition Position, const char* Caption);
  /// A legend of the series of the graph and of those coupled to it.
  TZyLegend& AddLegend(TZyGraph2D& Graph, TZyLegendPosition Position);
  /// One that floats over the graph, with its corner at a place in it.
  TZyLegend& AddLegend(TZyGraph2D& Graph, TPoint Place);
  /// A pie of a vector of its own, with a palette; a segment for each of the texts that are its captions.
  TZyPieChart& AddPie(const char* Title, TZyPieChartType Type, std::span<const TZyColor> Colors);
  TZyPieLegend& AddPieLegend(TZyPieChart& Pie, TZyPieLegendPosition Position);
  TZyDoubleVector& AddVector() { return Add<TZyDoubleVector>("Data"); }
  /// A marker on the primary axes of the graph.
  template <class TMarker>
  TMarker& AddMarker(TZyGraph2D& Graph, const char* Caption) {
    auto& Marker = Add<TMarker>("Marker");
    Marker.SetParent(&Graph);
    Marker.SetXAxis(Graph.PrimaryXAxis());
    Marker.SetYAxis(Graph.PrimaryYAxis());
    Marker.SetCaption(Caption);
    Marker.SetCaptionVisible(true);
    return Marker;
  }
  /// A series on the primary axes of the graph.
  template <class TSeries = TZyLineSeries>
  TSeries& AddSeries(TZyGraph2D& Graph, TZyDoubleVector* X, TZyDoubleVector& Y, TZyColor Color) {
    auto& Series = Add<TSeries>("Series");
    Series.SetXAxis(Graph.PrimaryXAxis());
    Series.SetYAxis(Graph.PrimaryYAxis());
    Series.SetXData(X);
    Series.SetYData(&Y);
    Series.Line().SetColor(Color);
    return Series;
  }
  /// A name of the data in the words of a reader.
  static std::string ReadableName(std::string Name);
  static TCsvFile Data(const char* FileName) { return TCsvFile(std::string(ZY_EXAMPLE_DATA "/") + FileName); }

  /// A component under the next free name.
  template <class TPart>
  TPart& Add(const char* BaseName) {
    auto* const Part = new TPart(&Document.Holder());
    Part->SetName(UniqueName(&Document.Holder(), BaseName));
    return *Part;
  }

  TChartDocument& Document;
};

// The charts: each fills the page of a document, whose size counts.
void MakeShares(TChartDocument& Document);
void MakeCarbonDioxide(TChartDocument& Document);
void MakeWeather(TChartDocument& Document);
void MakeHealth(TChartDocument& Document);
void MakeDay(TChartDocument& Document);
void MakeCoupled(TChartDocument& Document);
void MakeSides(TChartDocument& Document);
void MakeRubrics(TChartDocument& Document);
void MakeOHLC(TChartDocument& Document);
void MakeCandles(TChartDocument& Document);
void MakeElectricity(TChartDocument& Document);
void MakeElectricityCuboids(TChartDocument& Document);
void MakeElectricityCylinders(TChartDocument& Document);
void MakeElectricityLying(TChartDocument& Document);
void MakeElectricityLyingCuboids(TChartDocument& Document);
void MakeElectricityLyingCylinders(TChartDocument& Document);
void MakePopulation(TChartDocument& Document);
void MakeWind(TChartDocument& Document);
void MakeMonths(TChartDocument& Document);
void MakeCurves(TChartDocument& Document);
void MakeTrend(TChartDocument& Document);
void MakeAverages(TChartDocument& Document);
void MakeFit(TChartDocument& Document);
void MakePolynomial(TChartDocument& Document);
void MakeSpectrum(TChartDocument& Document);
void MakeZeroOrigin(TChartDocument& Document);
void MakePie(TChartDocument& Document);
void MakeDonut(TChartDocument& Document);
void MakeSolidPie(TChartDocument& Document);
void MakeSolidDonut(TChartDocument& Document);
void MakeForty(TChartDocument& Document);
void MakeBoundPie(TChartDocument& Document);

struct TEntry {
  const char* Name;  // of files
  const char* Title;
  void (*Make)(TChartDocument& Document);
  bool HasItsData = true;  // in its files; else they name the database
};

/// All of them.
std::span<const TEntry> Entries();

/// The usual size of a page.
constexpr int PageWidth = 900, PageHeight = 560;

}  // namespace zy::examples
