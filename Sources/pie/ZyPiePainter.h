#pragma once

#include <memory>
#include <string>

#include "pie/ZyPieCalculation.h"
#include "pie/ZyPieFaces.h"
#include "series/ZySeriesEvents.h"

namespace zy {

class Brush;
class Graphics;
class TZyPen;
class TZyPieChart;

/// One paint of a pie chart that is laid out.
///
/// Solids are drawn without any depth: four passes over all segments, each from the back to the front, for the cuts,
/// the far wall of the hole, the outer wall and the top faces. A wall is filled like its segment and shaded by a
/// gradient that is laid over it.
class TZyPiePainter {
 public:
  TZyPiePainter(TZyPieChart& Chart, Graphics& Gr);
  void Paint();

 private:
  /// A segment that is about to be drawn, as the events left it.
  struct TTurn {
    int Segment;
    TZyPieFaces Faces;
    const TZyPen* SegmentPen;
    const Brush* Fill;
    std::unique_ptr<Brush> Own;
  };

  void PaintBackground();
  void PaintEmpty();
  void PaintShadow();
  float ShadowStart() const;
  std::string ShadowLook() const;
  bool HasOverlaps() const;
  GraphicsPath ShadowOutline() const;
  void PaintSegments();
  template <class TDraw>
  void Pass(const TDraw& Draw);
  TTurn Prepare(int Segment);

  // The parts of a segment.
  void DrawTop(const TTurn& Turn);
  void DrawGlass(const TTurn& Turn);
  void DrawCuts(const TTurn& Turn);
  void DrawCut(const TTurn& Turn, float Angle, const TZyPieFaces::TCut& Cut, bool IsWhole = true);
  void DrawInnerWall(const TTurn& Turn);
  void DrawOuterWall(const TTurn& Turn);
  void DrawWall(const TTurn& Turn, const GraphicsPath& Wall, const Brush& Shade);

  // Labels.
  void PaintLabels();
  void PaintCallouts();
  void PaintCalloutLine(std::size_t Index, const TZyPen& Line);
  RectF BoxOf(std::size_t Index) const;

  TZyPieChart& FChart;
  Graphics& FGr;
  std::shared_ptr<const TZyPieCalculation> FLayout;
  const TZyPenEventHandler mGetPen;  // may be replaced meanwhile; what they give may be theirs
  const TZyBrushEventHandler mGetBrush;
  std::unique_ptr<TZyPen> FBorderPen;
  bool FHasBorder;
  bool FIsClosed;  // a ring without any cut that is seen
};

}  // namespace zy
