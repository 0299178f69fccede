#pragma once

#include <array>
#include <cstddef>

#include "axes/ZyScaleKind.h"
#include "graph/ZyDataAreaPainter.h"

namespace zy {

class TControl;
class TZyGraph2D;
class TZySeries;

/// One paint of a chart that is laid out: the one order in which everything is drawn, for screen, picture and printer.
class TZyGraphPainter {
 public:
  TZyGraphPainter(TZyGraph2D& Graph, Graphics& Gr);
  void Paint();

 private:
  static TZyDataAreaLook LookOf(TZyGraph2D& Graph);
  static IZySolidSeries* SolidsOf(const TZyGraph2D& Graph);
  RectF Whole() const;
  RectF Client() const;
  RectF DataClip(const TZySeries& Series);
  TZyBeyond BeyondOf(const TZyAxis& Axis);
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
  struct TAsked {
    const TZyAxis* Axis = nullptr;
    TZyBeyond Beyond;
  };
  std::array<TAsked, 8> FBeyond;  // of the axes that were asked last
  std::size_t FAsked = 0;
};

}  // namespace zy
