#pragma once

#include "platform/controls/ControlTypes.h"
#include "platform/drawing/Geometry.h"
#include "platform/framework/EnumInfo.h"

namespace zy {

/// The form of a pie chart; the latter two are solids.
enum class TZyPieChartType { FlatPie, FlatDonut, ThreeDPie, ThreeDDonut };
ZY_ENUM(TZyPieChartType, "FlatPie", "FlatDonut", "ThreeDPie", "ThreeDDonut")

/// Where the labels of segments stand: inside, level or along the radius, or in boxes outside.
enum class TZyPieLabelPosition { Invisible, InsideHorizontal, InsideAligned, Callouts };
ZY_ENUM(TZyPieLabelPosition, "Invisible", "InsideHorizontal", "InsideAligned", "Callouts")

/// Which callouts have a line to their segment: none, those that were moved since they overlapped others, all.
enum class TZyCalloutArrowVisibleMode { None, VisibleIfOverlapped, AllVisible };
ZY_ENUM(TZyCalloutArrowVisibleMode, "None", "VisibleIfOverlapped", "AllVisible")

/// Where a legend stands beside a pie.
enum class TZyPieLegendPosition {
  LeftTop,
  LeftCenter,
  LeftBottom,
  CenterTop,
  CenterBottom,
  RightTop,
  RightCenter,
  RightBottom
};
ZY_ENUM(TZyPieLegendPosition, "LeftTop", "LeftCenter", "LeftBottom", "CenterTop", "CenterBottom", "RightTop",
        "RightCenter", "RightBottom")

/// What the layout of a pie asks of a legend, beside what all legends answer.
class IZyPieLegend {
 public:
  virtual ~IZyPieLegend() = default;
  virtual TZyPieLegendPosition Position() const = 0;
  /// Pixels to the pie.
  virtual float DistanceToPie() const = 0;
};

/// Pixels that are taken at the sides of a chart.
struct TZyPieMargins {
  float Left = 0;
  float Top = 0;
  float Right = 0;
  float Bottom = 0;
};

/// Where a legend stands in a chart of that extent, between the margins, which grow by its extent and its distance.
TPoint PlacePieLegend(TZyPieLegendPosition Position, SizeF Chart, SizeF Legend, float Distance, TZyPieMargins& Margins);

}  // namespace zy
