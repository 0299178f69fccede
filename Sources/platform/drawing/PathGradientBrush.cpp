#include <QBrush>
#include <QImage>
#include <QRadialGradient>
#include <algorithm>
#include <cmath>

#include "platform/drawing/Brush.h"
#include "platform/drawing/GradientStops.h"
#include "platform/drawing/GraphicsPath.h"
#include "platform/drawing/QtGeometry.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

constexpr float Rim = 2;           // pixels beyond the outline that take its colours: edges of shapes lie half outside
constexpr float LargestFan = 768;  // pixels along a side of a fan's picture; larger shapes get a coarser one

RectF BoundsOf(std::span<const PointF> Points) {
  const auto [Left, Right] =
      std::minmax_element(Points.begin(), Points.end(), [](const PointF& A, const PointF& B) { return A.X < B.X; });
  const auto [Top, Bottom] =
      std::minmax_element(Points.begin(), Points.end(), [](const PointF& A, const PointF& B) { return A.Y < B.Y; });
  return {Left->X, Top->Y, Right->X - Left->X, Bottom->Y - Top->Y};
}

/// A triangle of a fan: how far a point lies from the outline towards the centre, and how far along the outline.
class TFanTriangle {
 public:
  TFanTriangle(PointF First, PointF Second, PointF Center)
      : FFirst(First), FAlong{Second.X - First.X, Second.Y - First.Y}, FIn{Center.X - First.X, Center.Y - First.Y} {
    FArea = FAlong.X * FIn.Y - FAlong.Y * FIn.X;
  }
  bool IsEmpty() const { return !(std::fabs(FArea) > 1e-6f); }
  /// False when the point lies outside.
  bool Locate(PointF Point, float& Inwards, float& Along) const {
    const float X = Point.X - FFirst.X, Y = Point.Y - FFirst.Y;
    Inwards = (FAlong.X * Y - FAlong.Y * X) / FArea;
    const float Second = (X * FIn.Y - Y * FIn.X) / FArea;
    constexpr float Hair = 1e-4f;
    if (Inwards < -Hair || Second < -Hair || Inwards + Second > 1 + Hair) return false;
    Inwards = std::clamp(Inwards, 0.0f, 1.0f);
    Along = Inwards < 1 ? std::clamp(Second / (1 - Inwards), 0.0f, 1.0f) : 0;
    return true;
  }

 private:
  PointF FFirst, FAlong, FIn;
  float FArea;
};

/// Gives each empty pixel beside a filled one its colour.
void Spread(QImage& Picture) {
  const QImage Before = Picture.copy();
  for (int Y = 0; Y < Picture.height(); ++Y) {
    auto* const Row = reinterpret_cast<QRgb*>(Picture.scanLine(Y));
    for (int X = 0; X < Picture.width(); ++X) {
      for (int Near = 0; Near < 9 && Row[X] == 0; ++Near) {
        const QPoint Beside(X + Near % 3 - 1, Y + Near / 3 - 1);
        if (Before.valid(Beside)) Row[X] = reinterpret_cast<const QRgb*>(Before.constScanLine(Beside.y()))[Beside.x()];
      }
    }
  }
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
  FFan.reset();
}

void PathGradientBrush::SetCenterColor(ARGB Value) {
  FCenterColor = Value;
  FStops.clear();
  FFan.reset();
}

void PathGradientBrush::SetSurroundColors(std::span<const ARGB> Colors) {
  if (Colors.empty()) throw ERangeError(LoadResString(_sGradientColors));
  FSurroundColors.assign(Colors.begin(), Colors.end());
  FStops.clear();
  FFan.reset();
}

void PathGradientBrush::SetInterpolationColors(std::span<const ARGB> Colors, std::span<const float> Positions) {
  FStops = MakeStops(Colors, Positions);
  FFan.reset();
}

ARGB PathGradientBrush::ColorAt(float Inwards, std::size_t Corner, float AlongEdge) const {
  if (!FStops.empty()) return zy::ColorAt(FStops, Inwards);
  const auto Surround = [this](std::size_t Index) {
    return FSurroundColors[std::min(Index % FPoints.size(), FSurroundColors.size() - 1)];
  };
  const ARGB Edge = FPoints.empty() ? FSurroundColors.front() : Mix(Surround(Corner), Surround(Corner + 1), AlongEdge);
  return Mix(Edge, FCenterColor, Inwards);
}

QBrush PathGradientBrush::ToQt() const {
  QBrush Result = FIsEllipse ? RadialBrush() : FanBrush();
  Result.setTransform(Result.transform() * AsQt(FTransform));
  return Result;
}

/// A circle of radius 1 about the origin that is stretched to the ellipse.
QBrush PathGradientBrush::RadialBrush() const {
  const double RadiusX = FBounds.Width / 2, RadiusY = FBounds.Height / 2;
  const double CenterX = FBounds.X + RadiusX, CenterY = FBounds.Y + RadiusY;
  QPointF Focus((FCenter.X - CenterX) / RadiusX, (FCenter.Y - CenterY) / RadiusY);
  const double Distance = std::hypot(Focus.x(), Focus.y());
  constexpr double Farthest = 0.99;  // a focus on the circle itself has no gradient
  if (Distance > Farthest) Focus *= Farthest / Distance;
  const double Outside = 1 + Rim / std::max(RadiusX, RadiusY);
  QRadialGradient Gradient(QPointF(0, 0), Outside, Focus);
  std::vector<TGradientStop> FromCenter;
  if (FStops.empty()) FromCenter = {{0, FCenterColor}, {1, FSurroundColors.front()}};
  for (auto Stop = FStops.rbegin(); Stop != FStops.rend(); ++Stop)
    FromCenter.push_back({1 - Stop->Position, Stop->Color});
  QGradientStops Stops = AsQt(FromCenter, 1 / Outside);
  const QColor Edge = QColor::fromRgba(FromCenter.back().Color);
  Stops.append({1 - 1e-6, Edge});
  Stops.append({1, QColor(Edge.red(), Edge.green(), Edge.blue(), 0)});
  Gradient.setStops(Stops);
  QBrush Result(Gradient);
  Result.setTransform(QTransform(RadiusX, 0, 0, RadiusY, CenterX, CenterY));
  return Result;
}

/// Stored pixels for each logical one in the picture of a fan: fewer for large shapes, and for those whose triangles
/// lie on each other so often that painting them all would take long.
float PathGradientBrush::FanScale() const {
  constexpr double MostVisits = 1.6e7;  // of pixels, by all triangles
  const float Larger = std::max(FBounds.Width, FBounds.Height);
  const float Scale = Larger > LargestFan ? LargestFan / Larger : Larger > LargestFan / 2 ? 1.0f : 2.0f;
  double Visits = 0;
  for (std::size_t Corner = 0; Corner < FPoints.size(); ++Corner) {
    const PointF Ends[] = {FPoints[Corner], FPoints[(Corner + 1) % FPoints.size()], FCenter};
    const RectF Box = BoundsOf(Ends);
    Visits +=
        std::min(static_cast<double>(Box.Width), static_cast<double>(FBounds.Width)) * static_cast<double>(Scale) *
        std::min(static_cast<double>(Box.Height), static_cast<double>(FBounds.Height)) * static_cast<double>(Scale);
  }
  return Visits > MostVisits ? Scale * static_cast<float>(std::sqrt(MostVisits / Visits)) : Scale;
}

/// A picture of the fan, with its colours carried on a little way beyond the outline.
QBrush PathGradientBrush::FanBrush() const {
  const float Scale = FanScale();
  const float Left = FBounds.X - Rim, Top = FBounds.Y - Rim;
  if (FFan == nullptr) {
    auto Fan = std::make_shared<QImage>(static_cast<int>(std::ceil((FBounds.Width + 2 * Rim) * Scale)),
                                        static_cast<int>(std::ceil((FBounds.Height + 2 * Rim) * Scale)),
                                        QImage::Format_ARGB32_Premultiplied);
    Fan->fill(0);
    // Where triangles lie on each other the last one shows. From the last to the first, each pixel is coloured once.
    std::vector<bool> IsDone(static_cast<std::size_t>(Fan->width()) * static_cast<std::size_t>(Fan->height()));
    std::vector<int> LeftInRow(static_cast<std::size_t>(Fan->height()), Fan->width());
    for (std::size_t Corner = FPoints.size(); Corner-- > 0;) {
      const PointF Ends[] = {FPoints[Corner], FPoints[(Corner + 1) % FPoints.size()], FCenter};
      const TFanTriangle Triangle(Ends[0], Ends[1], Ends[2]);
      if (Triangle.IsEmpty()) continue;
      const RectF Box = BoundsOf(Ends);
      const auto PixelAt = [Scale](float Place) { return static_cast<int>(std::clamp(Place * Scale, -1e6f, 1e6f)); };
      const int Bottom = std::min(PixelAt(Box.Y + Box.Height - Top) + 1, Fan->height() - 1);
      const int Right = std::min(PixelAt(Box.X + Box.Width - Left) + 1, Fan->width() - 1);
      for (int Y = std::max(PixelAt(Box.Y - Top) - 1, 0); Y <= Bottom; ++Y) {
        if (LeftInRow[static_cast<std::size_t>(Y)] == 0) continue;
        auto* const Row = reinterpret_cast<QRgb*>(Fan->scanLine(Y));
        const auto FirstOfRow = static_cast<std::size_t>(Y) * static_cast<std::size_t>(Fan->width());
        for (int X = std::max(PixelAt(Box.X - Left) - 1, 0); X <= Right; ++X) {
          const std::size_t Pixel = FirstOfRow + static_cast<std::size_t>(X);
          if (IsDone[Pixel]) continue;
          float Inwards = 0, Along = 0;
          const PointF Place{Left + (static_cast<float>(X) + 0.5f) / Scale,
                             Top + (static_cast<float>(Y) + 0.5f) / Scale};
          if (!Triangle.Locate(Place, Inwards, Along)) continue;
          Row[X] = qPremultiply(ColorAt(Inwards, Corner, Along));
          IsDone[Pixel] = true;
          --LeftInRow[static_cast<std::size_t>(Y)];
        }
      }
    }
    for (int Round = 0; Round < static_cast<int>(Rim * Scale); ++Round) Spread(*Fan);
    FFan = std::move(Fan);
  }
  QBrush Result(*FFan);
  Result.setTransform(
      QTransform::fromTranslate(Left, Top).scale(1.0 / static_cast<double>(Scale), 1.0 / static_cast<double>(Scale)));
  return Result;
}

}  // namespace zy
