#pragma once

#include "platform/framework/EnumInfo.h"

namespace zy {

class Graphics;
class TControl;
class TZyCustomGraph;
class TZySeries;
class TZyUndoStack;

// What a graph and its layout ask of the things in and around it, so that they know none of the classes above them.
// A class implements an interface beside its own base; the graph finds it by a dynamic cast.

/// Where a legend stands.
enum class TZyLegendPosition {
  BottomCenterOfGraph,
  BottomCenterOfAxis,
  LeftCenterOfGraph,
  LeftCenterOfAxis,
  LeftTopOfAxis,
  TopCenterOfGraph,
  TopCenterOfAxis,
  RightCenterOfGraph,
  RightCenterOfAxis,
  RightTopOfAxis,
  FreeFloating
};
ZY_ENUM(TZyLegendPosition, "BottomCenterOfGraph", "BottomCenterOfAxis", "LeftCenterOfGraph", "LeftCenterOfAxis",
        "LeftTopOfAxis", "TopCenterOfGraph", "TopCenterOfAxis", "RightCenterOfGraph", "RightCenterOfAxis",
        "RightTopOfAxis", "FreeFloating")

/// What a step of a scroll bar moves by: the visible range, the distance of two ticks, a pixel.
enum class TZyScrollIncrement { Page, MajorTick, MinorTick, Pixel };
ZY_ENUM(TZyScrollIncrement, "Page", "MajorTick", "MinorTick", "Pixel")

/// A legend: a control in the graph, or in any other parent, that lists its series.
class IZyGraphLegend {
 public:
  virtual ~IZyGraphLegend() = default;
  /// The legend itself.
  virtual TControl& Control() = 0;
  /// The side of a graph that it takes room at, as far as its layout has to know.
  virtual TZyLegendPosition Dock() const { return TZyLegendPosition::FreeFloating; }
  /// Brings size and content up to date.
  virtual void PreparePaint() = 0;
  /// Draws the legend in its own coordinates; the graph does it for legends inside it.
  virtual void PaintGr(Graphics& Gr) = 0;
  /// Whether the legend is being dragged; it paints itself on the screen then, above the picture of the graph.
  virtual bool IsMoving() const { return false; }
  /// The content is stale.
  virtual void Modified() = 0;
  virtual void SetUndoStack(TZyUndoStack* Value) = 0;
};

/// A legend that is stored with its graph: a TZyRecord with a name.
class IZyStoredLegend {
 public:
  virtual ~IZyStoredLegend() = default;
  /// Belongs to the graph from now on, and stands in its list of legends.
  virtual void JoinGraph(TZyCustomGraph& Graph) = 0;
};

/// A control on the graph that its pictures show: it paints itself on the screen, and is painted into files.
class IZyPicturePart {
 public:
  virtual ~IZyPicturePart() = default;
  /// Draws the control in its own coordinates, into whatever it may be.
  virtual void PaintGr(Graphics& Gr) = 0;
};

/// A marker: a control in the graph whose place follows the axes. It is stored with the graph when it is a TZyRecord
/// with a name, and freed when the graph reads its record.
class IZyGraphMarker : public IZyPicturePart {
 public:
  /// Runs after each layout.
  virtual void UpdatePosition() = 0;
  virtual void SetUndoStack(TZyUndoStack* Value) = 0;
};

/// A marker that holds on to a point of a series.
class IZySnappingMarker {
 public:
  virtual ~IZySnappingMarker() = default;
  /// The marker itself.
  virtual TControl& Control() = 0;
  /// The series that it holds on to, null while it does not.
  virtual TZySeries* LinkedSeries() const = 0;
  /// Data index of the point, -1 for none.
  virtual int SnappedIdx() const = 0;
  /// The point has another index now. Moves nothing, and is no step of undo.
  virtual void TakeSnappedIdx(int Value) = 0;
  /// Moves to values of the axes, as far as the marker has a place in that direction.
  virtual void SnapTo(double X, double Y) = 0;
};

/// Series that are drawn as solids and so turn the data area of their graph into a room.
class IZySolidSeries {
 public:
  virtual ~IZySolidSeries() = default;
  /// Whether they are drawn so now.
  virtual bool IsSolid() const = 0;
  /// Brings stale points up to date.
  virtual void PrepareDepth() = 0;
  /// Pixels to the right and up by which the back lies off the front.
  virtual float HorizontalDepth() const = 0;
  virtual float VerticalDepth() const = 0;
};

}  // namespace zy
