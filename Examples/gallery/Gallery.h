#pragma once

#include <initializer_list>
#include <string>

#include "common/CsvFile.h"
#include "graph/ZyGraph2D.h"
#include "platform/controls/TFrame.h"
#include "series/ZyPointSeries.h"
#include "series/vectors/ZyDoubleVector.h"

namespace zy::examples {

/// What the charts of the gallery have in common. Page owns all that is made.
struct TChartPage {
  explicit TChartPage(TFrame& APage) : Page(APage) {}

  /// A chart with a title and the captions of its two axes, as large as the page unless its place is given.
  TZyGraph2D& AddGraph(const char* Title, const char* XCaption, const char* YCaption);
  TZyAxis& AddAxis(TZyGraph2D& Graph, TZyAxisPosition Position, const char* Caption);
  TZyDoubleVector& AddVector() { return *new TZyDoubleVector(&Page); }
  /// A series on the primary axes of the graph.
  template <class TSeries = TZyLineSeries>
  TSeries& AddSeries(TZyGraph2D& Graph, TZyDoubleVector* X, TZyDoubleVector& Y, TZyColor Color) {
    auto* const Series = new TSeries(&Page);
    Series->SetXAxis(Graph.PrimaryXAxis());
    Series->SetYAxis(Graph.PrimaryYAxis());
    Series->SetXData(X);
    Series->SetYData(&Y);
    Series->Line().SetColor(Color);
    return *Series;
  }
  static TCsvFile Data(const char* FileName) { return TCsvFile(std::string(ZY_EXAMPLE_DATA "/") + FileName); }

  TFrame& Page;
};

// The charts: each fills a page.
void MakeShares(TFrame& Page);
void MakeCarbonDioxide(TFrame& Page);
void MakeWeather(TFrame& Page);
void MakeHealth(TFrame& Page);
void MakeDay(TFrame& Page);
void MakeCoupled(TFrame& Page);
void MakeSides(TFrame& Page);
void MakeRubrics(TFrame& Page);
void MakeZeroOrigin(TFrame& Page);

}  // namespace zy::examples
