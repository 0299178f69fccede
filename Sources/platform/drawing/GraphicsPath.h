#pragma once

#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "platform/drawing/Font.h"
#include "platform/drawing/Geometry.h"
#include "platform/drawing/Matrix.h"

class QPainterPath;

namespace zy {

class Pen;

/// What of a path lies inside: every other area, or all that the outline winds around.
enum FillMode { FillModeAlternate, FillModeWinding };

/// Figures of lines and curves, to draw, to fill, to clip with.
///
/// Lines and arcs that are added to an open figure are joined to its end by a line; closed shapes are figures of their
/// own and leave no figure open. Angles are in degrees, clockwise from the x axis. A shape with a coordinate that is
/// not finite is left out. A value; copies are independent.
class GraphicsPath {
 public:
  explicit GraphicsPath(FillMode Mode = FillModeAlternate);
  ~GraphicsPath();
  GraphicsPath(const GraphicsPath& Other);
  GraphicsPath& operator=(const GraphicsPath& Other);
  GraphicsPath(GraphicsPath&& Other) noexcept;
  GraphicsPath& operator=(GraphicsPath&& Other) noexcept;
  std::unique_ptr<GraphicsPath> Clone() const;

  void AddLine(float X1, float Y1, float X2, float Y2);
  void AddLines(std::span<const PointF> Points);
  /// Part of the ellipse in Rect, from StartAngle on through SweepAngle.
  void AddArc(const RectF& Rect, float StartAngle, float SweepAngle);
  void AddEllipse(const RectF& Rect);
  /// The same part with the lines to the ellipse's centre.
  void AddPie(const RectF& Rect, float StartAngle, float SweepAngle);
  void AddPolygon(std::span<const PointF> Points);
  void AddRectangle(const RectF& Rect);
  /// Outlines of a text. Size is in pixels; Origin is the top left corner of the first line's box.
  void AddString(std::string_view Text, std::string_view FamilyName, TFontStyles Style, float Size, PointF Origin);
  /// The figures of another path.
  void AddPath(const GraphicsPath& Other);

  /// Begins a new figure without closing the present one.
  void StartFigure() { FOpen = false; }
  /// Closes the present figure by a line to its start and begins a new one.
  void CloseFigure();
  /// Removes all figures and sets the fill mode to FillModeAlternate.
  void Reset();
  bool IsEmpty() const;

  FillMode GetFillMode() const;
  void SetFillMode(FillMode Value);
  void Transform(const Matrix& Matrix);
  /// Replaces the figures by the area that a pen covers when it draws them; filled by the winding mode.
  void Widen(const Pen& Pen);
  /// Smallest rectangle that holds all points and curves.
  RectF GetBounds() const;
  /// Whether the point lies inside the path, by its fill mode.
  bool IsVisible(PointF Point) const;
  /// The figures as polygons, with curves within a sixteenth of a pixel when they are drawn through Transform.
  std::vector<std::vector<PointF>> Flatten(const Matrix& Transform = {}) const;

  bool operator==(const GraphicsPath& Other) const;
  /// The toolkit's path, for Graphics.
  const QPainterPath& ToQt() const { return *FPath; }

 private:
  friend class PathGradientBrush;

  void LineTo(PointF Point);

  std::unique_ptr<QPainterPath> FPath;
  bool FOpen = false;
  RectF FOnlyEllipse;  // of a path that is nothing but one ellipse; else empty
};

}  // namespace zy
