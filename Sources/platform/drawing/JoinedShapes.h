#pragma once

#include <QPainterPath>
#include <QRectF>
#include <span>

// For the sources of this folder.

namespace zy {

/// The outline around many shapes that lie over each other, as figures that do not: what is in any of the shapes, each
/// by its own rule, is in an odd number of the figures. Curves become lines; nothing is off by more than a 16th of the
/// unit.
///
/// Only what lies in rows that meet Within is told. The cost follows the heights of the shapes and the length of the
/// outline, not how many of them lie over each other.
QPainterPath JoinedShapes(std::span<const QPainterPath> Shapes, const QRectF& Within);

}  // namespace zy
