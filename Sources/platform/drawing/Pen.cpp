#include "platform/drawing/Pen.h"

#include <QPen>
#include <algorithm>
#include <cmath>

namespace zy {
namespace {

/// The ends that are shapes of their own; null for those that a line itself can have.
std::shared_ptr<const CustomLineCap> ShapeOf(LineCap Cap) {
  GraphicsPath Shape;
  switch (Cap) {
    case LineCapTriangle: {
      const PointF Points[] = {{-0.5f, 0}, {0.5f, 0}, {0, 0.5f}};
      Shape.AddPolygon(Points);
      break;
    }
    case LineCapSquareAnchor:
      Shape.AddRectangle({-0.75f, -0.75f, 1.5f, 1.5f});
      break;
    case LineCapRoundAnchor:
      Shape.AddEllipse({-1, -1, 2, 2});
      break;
    case LineCapDiamondAnchor: {
      const PointF Points[] = {{-1, 0}, {0, 1}, {1, 0}, {0, -1}};
      Shape.AddPolygon(Points);
      break;
    }
    case LineCapArrowAnchor: {
      const PointF Points[] = {{-1, -1.732f}, {1, -1.732f}, {0, 0}};
      Shape.AddPolygon(Points);
      return std::make_shared<const CustomLineCap>(&Shape, nullptr, LineCapFlat, 1.0f);
    }
    default:
      return nullptr;
  }
  return std::make_shared<const CustomLineCap>(&Shape, nullptr);
}

Qt::PenCapStyle AsQt(LineCap Cap) {
  return Cap == LineCapSquare ? Qt::SquareCap : Cap == LineCapRound ? Qt::RoundCap : Qt::FlatCap;
}

}  // namespace

CustomLineCap::CustomLineCap(const GraphicsPath* FillPath, const GraphicsPath* StrokePath, LineCap BaseCap,
                             float BaseInset)
    : FFillPath(FillPath == nullptr ? GraphicsPath() : *FillPath),
      FStrokePath(StrokePath == nullptr ? GraphicsPath() : *StrokePath),
      FBaseCap(BaseCap),
      FBaseInset(BaseInset) {}

Pen::Pen(ARGB Color, float Width) : FSolid(Color), FWidth(Width) {}

Pen::Pen(const Brush& Fill, float Width) : FSolid(0), FWidth(Width) { SetBrush(Fill); }

ARGB Pen::GetColor() const { return FOther == nullptr ? FSolid.GetColor() : 0; }

void Pen::SetColor(ARGB Value) {
  FSolid.SetColor(Value);
  FOther = nullptr;
}

void Pen::SetBrush(const Brush& Value) {
  if (const auto* const Solid = dynamic_cast<const SolidBrush*>(&Value)) return SetColor(Solid->GetColor());
  FOther = Value.Clone();
}

float Pen::EffectiveWidth() const { return std::isfinite(FWidth) ? std::max(FWidth, 1.0f) : 1.0f; }

void Pen::SetDashPattern(std::span<const float> Pattern) {
  FDashPattern.clear();
  const auto Usable = [](float Length) { return std::isfinite(Length) && Length > 0 ? Length : 1.0f; };
  const int Rounds = Pattern.size() % 2 == 0 ? 1 : 2;
  for (int Round = 0; Round < Rounds; ++Round)
    std::transform(Pattern.begin(), Pattern.end(), std::back_inserter(FDashPattern), Usable);
  FDashStyle = DashStyleCustom;
}

std::vector<float> Pen::DashPattern() const {
  switch (FDashStyle) {
    case DashStyleDash:
      return {3, 1};
    case DashStyleDot:
      return {1, 1};
    case DashStyleDashDot:
      return {3, 1, 1, 1};
    case DashStyleDashDotDot:
      return {3, 1, 1, 1, 1, 1};
    case DashStyleCustom:
      return FDashPattern;
    case DashStyleSolid:
      break;
  }
  return {};
}

void Pen::SetStartCap(LineCap Value) {
  FStartCap = Value;
  FStartShape = ShapeOf(Value);
}

void Pen::SetEndCap(LineCap Value) {
  FEndCap = Value;
  FEndShape = ShapeOf(Value);
}

void Pen::SetCustomStartCap(const CustomLineCap& Value) {
  FStartCap = LineCapCustom;
  FStartShape = std::make_shared<const CustomLineCap>(Value);
}

void Pen::SetCustomEndCap(const CustomLineCap& Value) {
  FEndCap = LineCapCustom;
  FEndShape = std::make_shared<const CustomLineCap>(Value);
}

QPen Pen::ToQt() const {
  // Not cosmetic: the width follows the transform and the screen's pixel ratio. The toolkit knows one cap for both
  // ends.
  const Qt::PenJoinStyle Join = FLineJoin == LineJoinMiter   ? Qt::MiterJoin
                                : FLineJoin == LineJoinBevel ? Qt::BevelJoin
                                                             : Qt::RoundJoin;
  QPen Result(Qt::black, EffectiveWidth(), Qt::SolidLine, AsQt(FEndShape ? FEndShape->GetBaseCap() : FEndCap), Join);
  Result.setMiterLimit(FMiterLimit);
  if (const std::vector<float> Pattern = DashPattern(); !Pattern.empty())
    Result.setDashPattern(QList<qreal>(Pattern.begin(), Pattern.end()));
  return Result;
}

}  // namespace zy
