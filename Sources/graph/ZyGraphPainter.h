#pragma once

#include "graph/ZyDataAreaPainter.h"

namespace zy {

class TControl;
class TZyGraph2D;

/// One paint of a chart that is laid out: the one order in which everything is drawn, for screen, picture and printer.
class TZyGraphPainter {
 public:
  TZyGraphPainter(TZyGraph2D& Graph, Graphics& Gr);
  void Paint();

 private:
  static TZyDataAreaLook LookOf(TZyGraph2D& Graph);
  static IZySolidSeries* SolidsOf(const TZyGraph2D& Graph);
  RectF Whole() const;
  RectF DataClip() const;
  void PaintBackground();
  template <class TDraw>
  void PaintClippedToData(const TDraw& Draw);
  template <class TPart>
  void PaintMoved(const TControl& Control, const TPart& Part);
  void PaintAxes();
  void PaintLegends();

  TZyGraph2D& FGraph;
  Graphics& FGr;
  TZyDataAreaLook FLook;
  TZyDataAreaPainter FDataArea;
};

}  // namespace zy
