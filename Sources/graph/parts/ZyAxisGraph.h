#pragma once

#include <vector>

namespace zy {

struct RectF;
class TScrollBar;
class TWinControl;
class TZyAxis;
class TZyUndoStack;

/// What an axis and the layout pass ask of the graph that is the axis's parent. An axis finds it by a dynamic cast; a
/// parent of another kind only gives room.
class IZyAxisGraph {
 public:
  virtual ~IZyAxisGraph() = default;

  // ---- For an axis ----

  /// The graph itself.
  virtual TWinControl& Control() = 0;
  virtual TZyUndoStack* UndoStack() const = 0;
  /// The content changed: it is laid out and painted anew.
  virtual void Modified() = 0;
  /// Between BeginUpdate and EndUpdate nothing is computed.
  virtual void BeginUpdate() = 0;
  virtual void EndUpdate() = 0;
  virtual bool Updating() const = 0;
  /// Gestures that move the ends: while one runs they are not rounded.
  virtual bool Panning() const = 0;
  virtual bool Pinching() const = 0;
  /// While the graph paints for a printer or a file: places keep their fractions.
  virtual bool DoingMetafile() const = 0;
  /// While the graph makes its default axes.
  virtual bool DoingPrimary() const = 0;
  /// While the graph reads its record; changes of ranges are none then.
  virtual bool LoadingRecord() const = 0;
  /// Gives the axes the ranges of their data again and forgets the stages.
  virtual void ZoomReset() = 0;
  /// Ends zooming by the user, and scrolling in a direction: a range moves by itself there.
  virtual void EndUserZoom(bool Horizontal) = 0;

  // ---- For the layout pass ----

  virtual TZyAxis* PrimaryXAxis() const = 0;
  virtual TZyAxis* PrimaryYAxis() const = 0;
  /// Whether these two cross at the value 0.
  virtual bool ZeroOrigin() const = 0;
  /// All child axes and, behind them, the X axis of a coupled graph.
  virtual std::vector<TZyAxis*> AxesToLayOut() const = 0;
  /// Whether the X axis is the child of another graph.
  virtual bool IsCoupledGraph() const = 0;
  /// The graphs that use this graph's X axis.
  virtual std::vector<IZyAxisGraph*> GraphsOnXAxis() const = 0;
  /// Margins in pixels to the control's edges.
  virtual float DistanceBorderAxisTop() const = 0;
  virtual float DistanceBorderAxisBottom() const = 0;
  virtual float DistanceBorderAxisLeft() const = 0;
  virtual float DistanceBorderAxisRight() const = 0;
  /// Whether a line runs around the control.
  virtual bool HasBorder() const = 0;
  /// Where the place below the title begins, which begins at Top itself: Top when there is none, else a whole pixel.
  virtual float BelowTitle(float Top) const = 0;
  virtual void PlaceTitle() = 0;
  /// The scroll bars, null for none, and whether they may appear where data lie outside.
  virtual TScrollBar* HorizontalScrollBar() const = 0;
  virtual TScrollBar* VerticalScrollbar() const = 0;
  virtual bool MayScroll(bool Horizontal) const = 0;
  /// Which scroll bars the end of the next paint shows.
  virtual void SetDoScrollBars(bool Horizontal, bool Vertical) = 0;
  /// The data area in client pixels; width and height count one pixel more than the distance between the edges.
  virtual const RectF& DrawingArea() const = 0;
  virtual void SetDrawingArea(const RectF& Value) = 0;
  /// Whether solids are drawn with walls behind them.
  virtual bool ShowsWalls() const = 0;
  /// The series have to compute their pixels anew.
  virtual void SeriesModified() = 0;
};

}  // namespace zy
