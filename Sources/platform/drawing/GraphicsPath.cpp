#include "platform/drawing/GraphicsPath.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainterPath>
#include <QPainterPathStroker>
#include <QPen>
#include <algorithm>
#include <cmath>
#include <numbers>

#include "platform/drawing/Pen.h"
#include "platform/drawing/QtGeometry.h"
#include "platform/drawing/QtText.h"

namespace zy {

GraphicsPath::GraphicsPath(FillMode Mode) : FPath(std::make_unique<QPainterPath>()) { SetFillMode(Mode); }
GraphicsPath::~GraphicsPath() = default;
GraphicsPath::GraphicsPath(const GraphicsPath& Other)
    : FPath(std::make_unique<QPainterPath>(*Other.FPath)), FOpen(Other.FOpen), FOnlyEllipse(Other.FOnlyEllipse) {}
GraphicsPath& GraphicsPath::operator=(const GraphicsPath& Other) {
  if (this != &Other) *this = GraphicsPath(Other);
  return *this;
}
GraphicsPath::GraphicsPath(GraphicsPath&& Other) noexcept = default;
GraphicsPath& GraphicsPath::operator=(GraphicsPath&& Other) noexcept = default;
std::unique_ptr<GraphicsPath> GraphicsPath::Clone() const { return std::make_unique<GraphicsPath>(*this); }

void GraphicsPath::LineTo(PointF Point) {
  if (FOpen) {
    FPath->lineTo(Point.X, Point.Y);
  } else {
    FPath->moveTo(Point.X, Point.Y);
  }
  FOpen = true;
  FOnlyEllipse = {};
}

void GraphicsPath::AddLine(float X1, float Y1, float X2, float Y2) {
  const PointF Ends[] = {{X1, Y1}, {X2, Y2}};
  AddLines(Ends);
}

void GraphicsPath::AddLines(std::span<const PointF> Points) {
  if (!AreFinite(Points)) return;
  for (const PointF& Point : Points) LineTo(Point);
}

void GraphicsPath::AddArc(const RectF& Rect, float StartAngle, float SweepAngle) {
  if (!AreFinite({Rect.X, Rect.Y, Rect.Width, Rect.Height, StartAngle, SweepAngle})) return;
  // The toolkit's angles are those of the circle that is stretched to the ellipse; quarter turns are the same in both.
  const auto OnCircle = [&Rect](double Angle) {
    const double Quarters = std::floor(Angle / 90), Rest = (Angle - 90 * Quarters) * (std::numbers::pi / 180);
    const bool IsOdd = std::fmod(std::fabs(Quarters), 2) != 0;
    const double Along = IsOdd ? Rect.Height : Rect.Width, Across = IsOdd ? Rect.Width : Rect.Height;
    if (Rest == 0 || !(Along > 0) || !(Across > 0)) return Angle;
    return 90 * Quarters + std::atan2(std::sin(Rest) * Along, std::cos(Rest) * Across) * (180 / std::numbers::pi);
  };
  const double First = std::fmod(StartAngle, 360.0f);
  const double Start = OnCircle(First);
  const double Sweep = OnCircle(First + static_cast<double>(std::clamp(SweepAngle, -360.0f, 360.0f))) - Start;
  if (!FOpen) FPath->arcMoveTo(AsQt(Rect), -Start);
  FPath->arcTo(AsQt(Rect), -Start, -Sweep);
  FOpen = true;
  FOnlyEllipse = {};
}

void GraphicsPath::AddEllipse(const RectF& Rect) {
  if (!AreFinite({Rect.X, Rect.Y, Rect.Width, Rect.Height})) return;
  FOnlyEllipse = FPath->isEmpty() ? Rect : RectF{};
  FPath->addEllipse(AsQt(Rect));
  FOpen = false;
}

void GraphicsPath::AddPie(const RectF& Rect, float StartAngle, float SweepAngle) {
  if (!AreFinite({Rect.X, Rect.Y, Rect.Width, Rect.Height, StartAngle, SweepAngle})) return;
  FOpen = false;
  LineTo({Rect.X + Rect.Width / 2, Rect.Y + Rect.Height / 2});
  AddArc(Rect, StartAngle, SweepAngle);
  CloseFigure();
}

void GraphicsPath::AddPolygon(std::span<const PointF> Points) {
  if (Points.empty() || !AreFinite(Points)) return;
  FOpen = false;
  AddLines(Points);
  CloseFigure();
}

void GraphicsPath::AddRectangle(const RectF& Rect) {
  if (!AreFinite({Rect.X, Rect.Y, Rect.Width, Rect.Height})) return;
  FOnlyEllipse = {};
  FPath->addRect(AsQt(Rect));
  FOpen = false;
}

void GraphicsPath::AddString(std::string_view Text, std::string_view FamilyName, TFontStyles Style, float Size,
                             PointF Origin) {
  const float Points = Size / Font::PixelsPerPoint;
  if (!AreFinite({Size, Origin.X, Origin.Y}) || !(Size > 0) || Points > Font::MaxSize) return;
  const Font Face(FamilyName, Points, Style);
  double BaseLine = Face.GetAscent();
  FOnlyEllipse = {};
  FOpen = false;
  QPainterPath Glyphs;
  ForEachLine(Text, [&](std::string_view Line) {
    Glyphs.addText(QPointF(0, BaseLine / Face.QtScale()), Face.ToQt(), ToShownLine(Line));
    BaseLine += Face.GetHeight();
  });
  FPath->addPath(QTransform::fromTranslate(Origin.X, Origin.Y).scale(Face.QtScale(), Face.QtScale()).map(Glyphs));
}

void GraphicsPath::AddPath(const GraphicsPath& Other) {
  FOnlyEllipse = FPath->isEmpty() ? Other.FOnlyEllipse : RectF{};
  FPath->addPath(*Other.FPath);
  FOpen = false;
}

void GraphicsPath::CloseFigure() {
  if (FOpen) FPath->closeSubpath();
  FOpen = false;
}

void GraphicsPath::Reset() { *this = GraphicsPath(); }

bool GraphicsPath::IsEmpty() const { return FPath->isEmpty(); }

FillMode GraphicsPath::GetFillMode() const {
  return FPath->fillRule() == Qt::WindingFill ? FillModeWinding : FillModeAlternate;
}

void GraphicsPath::SetFillMode(FillMode Value) {
  FPath->setFillRule(Value == FillModeWinding ? Qt::WindingFill : Qt::OddEvenFill);
}

void GraphicsPath::Transform(const Matrix& Matrix) {
  *FPath = AsQt(Matrix).map(*FPath);
  FOnlyEllipse = {};
}

void GraphicsPath::Widen(const Pen& Pen) {
  const QPen Stroke = Pen.ToQt();
  *FPath = QPainterPathStroker(Stroke).createStroke(*FPath);
  SetFillMode(FillModeWinding);
  FOpen = false;
  FOnlyEllipse = {};
}

RectF GraphicsPath::GetBounds() const { return FromQt(FPath->boundingRect()); }

bool GraphicsPath::IsVisible(PointF Point) const { return FPath->contains(QPointF(Point.X, Point.Y)); }

std::vector<std::vector<PointF>> GraphicsPath::Flatten(const Matrix& Transform) const {
  std::vector<std::vector<PointF>> Result;
  constexpr double Finer = 4;  // the toolkit flattens to some quarter of a unit
  for (const QPolygonF& Polygon : FPath->toSubpathPolygons(AsQt(Transform) * QTransform::fromScale(Finer, Finer))) {
    auto& Figure = Result.emplace_back();
    Figure.reserve(static_cast<std::size_t>(Polygon.size()));
    for (const QPointF& Point : Polygon) Figure.push_back(FromQt(Point / Finer));
  }
  return Result;
}

bool GraphicsPath::operator==(const GraphicsPath& Other) const { return *FPath == *Other.FPath; }

}  // namespace zy
