#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "graph/values/ZyColors.h"

namespace zy {

class TZyCustomGraph;
class TZyCustomLegend;
class TZyGraph2D;
class TZyMovable;
class TZyPieChart;
class TZyRichLabel;
class TZySeries;

/// How a chart looks as a whole. A copy of one of those below is where an own look begins:
///
///     TZyLook Mine = TZyLook::Dark();
///     Mine.Back = 0xFF101820;
///     ApplyLook(*Graph, Mine);
struct TZyLook {
  std::string FontName = "Arial";
  float TextSize = 10;   ///< of numbers, legends and markers, in points
  float TitleSize = 14;  ///< of the chart's title, in points; captions of axes lie between
  TZyColor Text = Colors::Black;
  TZyColor Back = Colors::White;            ///< of the whole chart, and of legends
  TZyColor DataArea = Colors::Transparent;  ///< Transparent where it looks like the rest
  TZyColor Axis = Colors::Black;            ///< axes and their ticks
  TZyColor Frame = Colors::Transparent;     ///< around data area and legends; Transparent for none
  TZyColor MajorGrid = Colors::LightGray;   ///< Transparent for none
  TZyColor MinorGrid = Colors::Transparent;
  float LineWidth = 1;  ///< of series, in pixels
  /// Of the series in turn. Those of the looks below are Okabe and Ito's.
  std::vector<TZyColor> SeriesColors;

  /// Black on white, a light grid.
  static const TZyLook& Light();
  /// Light on dark gray.
  static const TZyLook& Dark();
  /// For paper: black lines of axes, no fills, a fine grid, black as the first colour.
  static const TZyLook& Print();
  /// White and strong colours on black, thicker lines, larger texts.
  static const TZyLook& HighContrast();
  /// Light or dark as the application's palette is, in its colours.
  static TZyLook OfPalette();
};

/// Gives a chart a look: the graph, its axes, series, legends and markers as they are now, in one step of undo.
/// Captions, visibility of what is more than a line of the grid, dash styles, symbols and gradients stay as they are;
/// margins become those in which texts keep clear of each other.
void ApplyLook(TZyGraph2D& Graph, const TZyLook& Look);

/// The same for a pie chart: ground, title, labels, callouts and legends. Segments keep their colours, which are a
/// matter of the palette (TZyFillPalette), and so do labels as long as they lie upon segments, and the boxes of
/// callouts that are none yet: give the look once more when labels have become callouts.
void ApplyLook(TZyPieChart& Pie, const TZyLook& Look);

/// One of the two, by the kind of the chart.
void ApplyLook(TZyCustomGraph& Chart, const TZyLook& Look);

/// The same for one legend, as for one that comes later.
void ApplyLook(TZyCustomLegend& Legend, const TZyLook& Look);
/// The same for one marker.
void ApplyLook(TZyMovable& Marker, const TZyLook& Look);
/// The same for one label, which has no stack of undo: the one above logs what it gives to labels by that of the graph.
void ApplyLook(TZyRichLabel& Label, const TZyLook& Look);

/// The same for one series, the one in place Place of its chart (from 0), whose colour it takes.
void ApplyLook(TZySeries& Series, const TZyLook& Look, std::size_t Place);

/// One colour for a series: its line, its area and symbols, bars of errors, bands and arrows, whose translucency stays.
void SetSeriesColor(TZySeries& Series, TZyColor Color);

}  // namespace zy
