#pragma once

#include <array>
#include <functional>

#include "annotations/captions/ZyRichCaption.h"
#include "platform/framework/EnumInfo.h"

namespace zy {

class TObject;

/// Side of the data area at which an axis stands.
enum class TZyAxisPosition { Bottom, Left, Top, Right };
ZY_ENUM(TZyAxisPosition, "Bottom", "Left", "Top", "Right")

/// Where an end of an axis comes from.
enum class TZyAxisEnd {
  AutoRange,  ///< follows the data
  FirstSet,   ///< the value that was set, widened outwards when data lie beyond it
  Fixed,      ///< the value that was set
  MovingSlit  ///< a range of fixed width that jumps forward as data grow
};
ZY_ENUM(TZyAxisEnd, "AutoRange", "FirstSet", "Fixed", "MovingSlit")

/// What the values of an axis are, and how they lie along it.
enum class TZyAxisScaling {
  Normal,    ///< plain numbers, evenly spaced
  Log,       ///< positive numbers by their logarithms, labels as plain numbers
  LogEE,     ///< the same with powers of ten as labels
  Seconds,   ///< time spans in seconds
  DateTime,  ///< dates as day numbers with a fraction
  Rubrics    ///< 0, 1, 2 ... stand for texts
};
ZY_ENUM(TZyAxisScaling, "Normal", "Log", "LogEE", "Seconds", "DateTime", "Rubrics")

/// To what the ends of an axis are rounded, and to what while the chart is zoomed.
enum class TZyAxisEndRounding {
  RndToMajorZoomToMinor,
  RndToMajorZoomToNothing,
  RndToMajor,
  RndToMinorZoomToNothing,
  RndToMinor,
  RndNothing
};
ZY_ENUM(TZyAxisEndRounding, "RndToMajorZoomToMinor", "RndToMajorZoomToNothing", "RndToMajor", "RndToMinorZoomToNothing",
        "RndToMinor", "RndNothing")

/// Where the lines of the major grid stand.
enum class TZyMajorGridMode { AtLabel, AtMajorTick };
ZY_ENUM(TZyMajorGridMode, "AtLabel", "AtMajorTick")

/// A label about to be shown. A handler may replace its caption.
struct TZyScaleLabelEventArgs {
  double Value = 0;
  TZyRichCaption Caption;
};
using TZyScaleLabelEventHandler = std::function<void(TObject* Sender, TZyScaleLabelEventArgs& Args)>;

/// The steps between which a linear axis chooses, from coarse to fine, in parts of a power of ten. Behind the last one
/// those of the next lower power follow.
struct TZyTickTable {
  std::array<double, 3> LabelParts{1, 0.5, 0.2};
  std::array<double, 3> MajorParts{0.5, 0.5, 0.1};
  std::array<double, 3> MinorParts{0.1, 0.1, 0.02};
  bool operator==(const TZyTickTable&) const = default;
};

/// The ends of a scale, or of a part of it.
struct TZyAxisRange {
  double Start = 0;
  double Stop = 0;
  bool operator==(const TZyAxisRange&) const = default;
};

/// Where an axis stands, and its line in the axis's parent.
struct TZyAxisGeometry {
  TZyAxisPosition Position = TZyAxisPosition::Bottom;
  bool Twisted = false;  ///< values grow to the left, or downwards
  float Left = 0;        ///< where the line starts in the control
  float Top = 0;
  float Length = 400;  ///< pixels between the ends

  bool Horizontal() const { return Position == TZyAxisPosition::Bottom || Position == TZyAxisPosition::Top; }
  /// Whether values grow in the direction of the pixels.
  bool Forward() const { return Horizontal() != Twisted; }
  /// Whether the axis lies below or right of its data area, and so its texts behind each other outwards.
  bool PointsOutwards() const { return Position == TZyAxisPosition::Bottom || Position == TZyAxisPosition::Right; }
  /// Coordinate of the line across its direction, and of its left or upper end along it.
  float Across() const { return Horizontal() ? Top : Left; }
  float Along() const { return Horizontal() ? Left : Top; }
};

}  // namespace zy
