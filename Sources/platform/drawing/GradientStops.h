#pragma once

// Colours along a gradient; for the sources of this folder.

#include <QBrush>
#include <QRectF>
#include <QTransform>
#include <span>
#include <vector>

#include "platform/drawing/Brush.h"

namespace zy {

/// Tested stops; see LinearGradientBrush::SetInterpolationColors. Throws ERangeError.
std::vector<TGradientStop> MakeStops(std::span<const ARGB> Colors, std::span<const float> Positions);

/// Colour at a position from 0 to 1. Channels are interpolated apart, alpha included.
ARGB ColorAt(std::span<const TGradientStop> Stops, float Position);

/// The colour that lies at Part, from 0 to 1, of the way from one to another.
ARGB Mix(ARGB From, ARGB To, float Part);

/// The colours of equal steps along a gradient, premultiplied.
void FillSteps(std::span<std::uint32_t> Colors, std::span<const TGradientStop> Stops);

/// The toolkit's stops, squeezed into 0 to Scale.
QGradientStops AsQt(std::span<const TGradientStop> Stops, double Scale);

/// Gives a gradient of the toolkit its stops, interpolated as ColorAt does it. That is how SVG viewers do it, too.
void SetStops(QGradient& Gradient, const QGradientStops& Stops);

/// The brush for a page to which ToPage leads from the shapes. The toolkit writes down each period of a gradient on the
/// whole of a page, and fails where it can tell no part of one: one with more of them than anybody could tell apart
/// becomes its colour on average, one that changes nowhere on the page the colour that it has there, and any other
/// brush stays as it is, as all do for a page without a size.
QBrush WithCountablePeriods(const QBrush& Brush, const QTransform& ToPage, const QRectF& Page);

/// The brush for a shape within a box, to which it leads, with pixels of ToPixels. A linear gradient of which the shape
/// has one period at most need not repeat. Where it did, the half pixel by which boxes and gradients lie apart would
/// be a line of the other end's colour along the shape's edge.
QBrush WithOnePeriod(const QBrush& Brush, const QRectF& Box, const QTransform& ToPixels);

}  // namespace zy
