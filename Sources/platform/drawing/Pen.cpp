#include "platform/drawing/Pen.h"

#include <QPen>
#include <algorithm>
#include <cmath>

namespace zy {
namespace {

QList<qreal> PatternOf(TDashStyle Style, const std::vector<float>& Custom) {
  switch (Style) {
    case DashStyleDash:
      return {3, 1};
    case DashStyleDot:
      return {1, 1};
    case DashStyleDashDot:
      return {3, 1, 1, 1};
    case DashStyleDashDotDot:
      return {3, 1, 1, 1, 1, 1};
    case DashStyleCustom:
      return QList<qreal>(Custom.begin(), Custom.end());
    case DashStyleSolid:
      break;
  }
  return {};
}

}  // namespace

Pen::Pen(ARGB Color, float Width) : FColor(Color), FWidth(Width) {}

void Pen::SetDashPattern(std::span<const float> Pattern) {
  FDashPattern.clear();
  const auto Usable = [](float Length) { return std::isfinite(Length) && Length > 0 ? Length : 1.0f; };
  const int Rounds = Pattern.size() % 2 == 0 ? 1 : 2;
  for (int Round = 0; Round < Rounds; ++Round)
    std::transform(Pattern.begin(), Pattern.end(), std::back_inserter(FDashPattern), Usable);
  FDashStyle = DashStyleCustom;
}

QPen Pen::ToQt() const {
  // Not cosmetic: the width follows the transform and the screen's pixel ratio.
  const qreal Width = std::isfinite(FWidth) ? std::max(FWidth, 1.0f) : 1.0f;
  QPen Result(QColor::fromRgba(FColor), Width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
  Result.setMiterLimit(FMiterLimit);
  if (const QList<qreal> Pattern = PatternOf(FDashStyle, FDashPattern); !Pattern.isEmpty())
    Result.setDashPattern(Pattern);
  return Result;
}

}  // namespace zy
