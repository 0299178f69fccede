#pragma once

// What an enhanced metafile cannot be told as it is, taken to pieces; for EmfDevice.

#include <QGradient>
#include <QPainterPath>
#include <QRectF>
#include <optional>
#include <vector>

namespace zy {

/// Whether two points, in pixels, are one in the file.
inline bool Coincide(const QPointF& A, const QPointF& B) { return (A - B).manhattanLength() < 1e-3; }

/// Whether every figure comes back to its start.
bool IsClosed(const QPainterPath& Path);
/// The rectangle along the axes that a path consists of, if it does.
std::optional<QRectF> AsRectangle(const QPainterPath& Path);
/// The points of a path that is a single figure of straight lines; empty for any other.
std::vector<QPointF> AsLines(const QPainterPath& Path);

/// A path of which nothing lies beyond Limits; inside of them it covers what it did. Curves become lines.
QPainterPath AreaWithin(const QPainterPath& Path, const QRectF& Limits);
/// The same for its outline.
QPainterPath OutlineWithin(const QPainterPath& Path, const QRectF& Limits);

/// The dashes of an outline, each a line of its own; nothing when they are more than anybody can see. Dashes and gaps
/// alternate in Pattern; Offset is where in it an outline starts. All in the unit of the path.
std::optional<QPainterPath> Dashed(const QPainterPath& Path, const std::vector<double>& Pattern, double Offset);

/// From is where, along a gradient, a colour starts; it lasts until the next one.
struct TColorStep {
  double From;
  QRgb Color;
};
/// A gradient between the places From and To along it as steps of one colour, none shorter than Shortest unless the
/// gradient's stops are. Nothing when they are too many.
std::optional<std::vector<TColorStep>> ColorSteps(const QGradient& Gradient, double From, double To, double Shortest);

}  // namespace zy
