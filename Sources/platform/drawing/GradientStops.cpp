#include "platform/drawing/GradientStops.h"

#include <algorithm>
#include <cmath>

#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {

std::vector<TGradientStop> MakeStops(std::span<const ARGB> Colors, std::span<const float> Positions) {
  const bool IsValid = Colors.size() == Positions.size() && Colors.size() >= 2 && Positions.front() == 0 &&
                       Positions.back() == 1 && std::is_sorted(Positions.begin(), Positions.end()) &&
                       std::none_of(Positions.begin(), Positions.end(), [](float Value) { return std::isnan(Value); });
  if (!IsValid) throw ERangeError(LoadResString(_sGradientPositions));
  std::vector<TGradientStop> Result;
  for (std::size_t Index = 0; Index < Colors.size(); ++Index) Result.push_back({Positions[Index], Colors[Index]});
  return Result;
}

ARGB Mix(ARGB From, ARGB To, float Part) {
  ARGB Result = 0;
  for (int Shift = 0; Shift < 32; Shift += 8) {
    const auto A = static_cast<float>(From >> Shift & 255u), B = static_cast<float>(To >> Shift & 255u);
    Result |= static_cast<ARGB>(std::lround(A + (B - A) * Part)) << Shift;
  }
  return Result;
}

ARGB ColorAt(std::span<const TGradientStop> Stops, float Position) {
  const auto Above = std::find_if(Stops.begin(), Stops.end(),
                                  [Position](const TGradientStop& Stop) { return Stop.Position > Position; });
  if (Above == Stops.begin()) return Stops.front().Color;
  if (Above == Stops.end()) return Stops.back().Color;
  const TGradientStop& Below = *std::prev(Above);
  return Mix(Below.Color, Above->Color, (Position - Below.Position) / (Above->Position - Below.Position));
}

QGradientStops AsQt(std::span<const TGradientStop> Stops, double Scale) {
  QGradientStops Result;
  double Last = -1;
  for (const TGradientStop& Stop : Stops) {
    // The toolkit keeps one colour a position; a step stands at two that differ by a hair.
    constexpr double Hair = 1e-6;
    const double Position = std::min(std::max(static_cast<double>(Stop.Position) * Scale, Last + Hair), 1.0);
    Result.append({Position, QColor::fromRgba(Stop.Color)});
    Last = Position;
  }
  return Result;
}

void SetStops(QGradient& Gradient, const QGradientStops& Stops) {
  Gradient.setInterpolationMode(QGradient::ComponentInterpolation);  // the toolkit's own way mixes premultiplied
  Gradient.setStops(Stops);
}

}  // namespace zy
