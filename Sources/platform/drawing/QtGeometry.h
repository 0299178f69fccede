#pragma once

// Geometry between this folder's types and the toolkit's; for the sources of this folder and of the controls.

#include <QPointF>
#include <QPolygonF>
#include <QRectF>
#include <QTransform>
#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <span>

#include "platform/drawing/Geometry.h"
#include "platform/drawing/Matrix.h"

namespace zy {

/// What takes the circle of radius 1 about the origin to an ellipse.
inline QTransform UnitCircleTo(const RectF& Ellipse) {
  const double RadiusX = Ellipse.Width / 2, RadiusY = Ellipse.Height / 2;
  return {RadiusX, 0, 0, RadiusY, Ellipse.X + RadiusX, Ellipse.Y + RadiusY};
}

inline bool AreFinite(std::initializer_list<float> Values) {
  return std::all_of(Values.begin(), Values.end(), [](float Value) { return std::isfinite(Value); });
}

inline bool AreFinite(std::span<const PointF> Points) {
  return std::all_of(Points.begin(), Points.end(),
                     [](const PointF& Point) { return std::isfinite(Point.X) && std::isfinite(Point.Y); });
}

inline QPointF AsQt(const PointF& Source) { return {Source.X, Source.Y}; }
inline PointF FromQt(const QPointF& Source) { return {static_cast<float>(Source.x()), static_cast<float>(Source.y())}; }

inline QRectF AsQt(const RectF& Source) { return {Source.X, Source.Y, Source.Width, Source.Height}; }
inline RectF FromQt(const QRectF& Source) {
  return {static_cast<float>(Source.x()), static_cast<float>(Source.y()), static_cast<float>(Source.width()),
          static_cast<float>(Source.height())};
}

inline QTransform AsQt(const Matrix& Source) {
  const auto& [M11, M12, M21, M22, Dx, Dy] = Source.Elements();
  return {M11, M12, M21, M22, Dx, Dy};
}
inline Matrix FromQt(const QTransform& Source) {
  return {Source.m11(), Source.m12(), Source.m21(), Source.m22(), Source.dx(), Source.dy()};
}

inline QPolygonF AsQt(std::span<const PointF> Points) {
  QPolygonF Result(static_cast<qsizetype>(Points.size()));
  std::transform(Points.begin(), Points.end(), Result.data(), [](const PointF& Point) { return AsQt(Point); });
  return Result;
}

}  // namespace zy
