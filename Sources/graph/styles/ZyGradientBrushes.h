#pragma once

#include <memory>

#include "graph/values/ZyColors.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Geometry.h"

namespace zy {

/// The same rectangle by its corner and extent.
RectF ToRectF(const TRect& Rect);

/// Brush of three colours along a direction: First at one end, Middle at Center (0 to 1), Last at the other end of
/// Rect. Angle is in degrees, clockwise from the x axis. The colours reach one pixel further to the left and to the
/// top, so that no edge of Rect falls on a seam.
std::unique_ptr<Brush> LinearBrush(const RectF& Rect, float Angle, float Center, TZyColor First, TZyColor Middle,
                                   TZyColor Last);
std::unique_ptr<Brush> LinearBrush(const TRect& Rect, float Angle, float Center, TZyColor First, TZyColor Middle,
                                   TZyColor Last);

/// Brush of three colours from the circle through Rect's corners (First) inwards to a point (Last). CenterPoint is
/// relative to Rect, from 0 to 1 in each direction.
std::unique_ptr<Brush> RadialBrush(const RectF& Rect, PointF CenterPoint, TZyColor First, TZyColor Middle,
                                   TZyColor Last);
std::unique_ptr<Brush> RadialBrush(const TRect& Rect, PointF CenterPoint, TZyColor First, TZyColor Middle,
                                   TZyColor Last);

/// The same from the ellipse through the corners that has Rect's proportions.
std::unique_ptr<Brush> EllipticalBrush(const RectF& Rect, PointF CenterPoint, TZyColor First, TZyColor Middle,
                                       TZyColor Last);
std::unique_ptr<Brush> EllipticalBrush(const TRect& Rect, PointF CenterPoint, TZyColor First, TZyColor Middle,
                                       TZyColor Last);

}  // namespace zy
