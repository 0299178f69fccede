#include <QBrush>
#include <QImage>
#include <QRadialGradient>
#include <algorithm>
#include <cmath>

#include "platform/drawing/Brush.h"
#include "platform/drawing/GradientFan.h"
#include "platform/drawing/GradientStops.h"
#include "platform/drawing/GraphicsPath.h"
#include "platform/drawing/QtGeometry.h"
#include "platform/framework/WideRegisters.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

constexpr float Rim = 2;  // pixels beyond the outline that take its colours: edges of shapes lie half outside

RectF BoundsOf(std::span<const PointF> Points) {
  const auto [Left, Right] =
      std::minmax_element(Points.begin(), Points.end(), [](const PointF& A, const PointF& B) { return A.X < B.X; });
  const auto [Top, Bottom] =
      std::minmax_element(Points.begin(), Points.end(), [](const PointF& A, const PointF& B) { return A.Y < B.Y; });
  return {Left->X, Top->Y, Right->X - Left->X, Bottom->Y - Top->Y};
}

}  // namespace

PathGradientBrush::PathGradientBrush(std::span<const PointF> Points) : FPoints(Points.begin(), Points.end()) {
  if (FPoints.size() < 2) throw ERangeError(LoadResString(_sGradientPoints));
  if (!AreFinite(Points)) FPoints.assign(2, PointF{});
  if (FPoints.size() > 2 && FPoints.front() == FPoints.back()) FPoints.pop_back();
  FBounds = BoundsOf(FPoints);
  if (!std::isfinite(FBounds.Width) || !std::isfinite(FBounds.Height)) {  // farther apart than a single can tell
    FPoints.assign(2, PointF{});
    FBounds = {};
  }
  for (const PointF& Point : FPoints) {
    FCenter.X += Point.X / static_cast<float>(FPoints.size());
    FCenter.Y += Point.Y / static_cast<float>(FPoints.size());
  }
}

PathGradientBrush::PathGradientBrush(const GraphicsPath& Path) {
  const RectF& Ellipse = Path.FOnlyEllipse;
  if (Ellipse.Width > 0 && Ellipse.Height > 0) {
    FIsEllipse = true;
    FBounds = Ellipse;
    FCenter = {Ellipse.X + Ellipse.Width / 2, Ellipse.Y + Ellipse.Height / 2};
    return;
  }
  const auto Figures = Path.Flatten();
  const bool HasFigure = !Figures.empty() && Figures.front().size() >= 2;
  *this = PathGradientBrush(HasFigure ? std::span<const PointF>(Figures.front())
                                      : std::span<const PointF>(std::vector<PointF>(2)));
}

void PathGradientBrush::SetCenterPoint(PointF Value) {
  if (!AreFinite({Value.X, Value.Y})) return;
  FCenter = Value;
}

void PathGradientBrush::SetCenterColor(ARGB Value) {
  FCenterColor = Value;
  FStops.clear();
}

void PathGradientBrush::SetSurroundColors(std::span<const ARGB> Colors) {
  if (Colors.empty()) throw ERangeError(LoadResString(_sGradientColors));
  FSurroundColors.assign(Colors.begin(), Colors.end());
  FStops.clear();
}

void PathGradientBrush::SetInterpolationColors(std::span<const ARGB> Colors, std::span<const float> Positions) {
  FStops = MakeStops(Colors, Positions);
}

QBrush PathGradientBrush::ToQt(const RectF& Box) const {
  if (!FIsEllipse) return FanBrush(Box);
  QBrush Result = RadialBrush();
  Result.setTransform(Result.transform() * AsQt(FTransform));
  return Result;
}

PathGradientBrush::TRadial PathGradientBrush::Radial() const {
  const double RadiusX = FBounds.Width / 2, RadiusY = FBounds.Height / 2;
  QPointF Focus((FCenter.X - FBounds.X - RadiusX) / RadiusX, (FCenter.Y - FBounds.Y - RadiusY) / RadiusY);
  const double Distance = std::hypot(Focus.x(), Focus.y());
  constexpr double Farthest = 0.99;  // a focus on the circle itself has no gradient
  if (Distance > Farthest) Focus *= Farthest / Distance;
  TRadial Result{FBounds, Focus.x(), Focus.y(), 1 + Rim / std::max(RadiusX, RadiusY), {}};
  if (FStops.empty()) Result.FromFocus = {{0, FCenterColor}, {1, FSurroundColors.front()}};
  for (auto Stop = FStops.rbegin(); Stop != FStops.rend(); ++Stop)
    Result.FromFocus.push_back({1 - Stop->Position, Stop->Color});
  return Result;
}

QBrush PathGradientBrush::RadialBrush() const {
  const TRadial Radial = this->Radial();
  QRadialGradient Gradient(QPointF(0, 0), Radial.Outside, QPointF(Radial.FocusX, Radial.FocusY));
  QGradientStops Stops = AsQt(Radial.FromFocus, 1 / Radial.Outside);
  const QColor Edge = QColor::fromRgba(Radial.FromFocus.back().Color);
  Stops.append({1 - 1e-6, Edge});
  Stops.append({1, QColor(Edge.red(), Edge.green(), Edge.blue(), 0)});
  SetStops(Gradient, Stops);
  QBrush Result(Gradient);
  Result.setTransform(UnitCircleTo(FBounds));
  return Result;
}

void PathGradientBrush::PaintFan(QImage& Picture, const QTransform& ToPicture) const {
  const QTransform Place = AsQt(FTransform) * ToPicture;
  std::vector<QPointF> Corners;
  for (const PointF& Point : FPoints) Corners.push_back(Place.map(AsQt(Point)));
  const double Scale = std::sqrt(std::abs(ToPicture.determinant()));
  const TGradientFan Fan(std::move(Corners), Place.map(AsQt(FCenter)), std::max(static_cast<double>(Rim) * Scale, 1.0));
  if (FStops.empty())
    Fan.Paint(Picture, FSurroundColors, FCenterColor);
  else
    Fan.Paint(Picture, FStops);
}

/// A picture of the fan: as large as the box, so that it does not repeat there.
QBrush PathGradientBrush::FanBrush(const RectF& Box) const {
  constexpr double Finer = 2, LargestSide = 2000;  // pixels of the picture
  const double Width = Box.Width, Height = Box.Height, Side = std::max(Width, Height);
  if (!(Width > 0 && Height > 0) || !std::isfinite(Side)) return QBrush(Qt::transparent);
  const double Scale = std::min(Finer, LargestSide / Side);
  QImage Picture(static_cast<int>(std::ceil(Width * Scale)), static_cast<int>(std::ceil(Height * Scale)),
                 QImage::Format_ARGB32_Premultiplied);
  Picture.fill(0);
  ClearWideRegisters();
  const QTransform FromPicture(1 / Scale, 0, 0, 1 / Scale, Box.X, Box.Y);
  PaintFan(Picture, FromPicture.inverted());
  QBrush Result(Picture);
  Result.setTransform(FromPicture);
  return Result;
}

}  // namespace zy
