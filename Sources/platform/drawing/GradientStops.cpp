#include "platform/drawing/GradientStops.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

/// Between two stops; see Mix. Written out for the compiler's vectoriser, channel after channel, as it is done for each
/// shape anew. Steps and Length count from the start of the gradient.
void FillBetween(std::span<std::uint32_t> Colors, std::size_t First, float StepLength, const TGradientStop& From,
                 const TGradientStop& To) {
  const float Length = std::max(To.Position - From.Position, 1e-6f);
  std::ranges::fill(Colors, 0u);
  for (int Shift = 0; Shift < 32; Shift += 8) {
    const auto A = static_cast<float>(From.Color >> Shift & 255), B = static_cast<float>(To.Color >> Shift & 255);
    const float Slope = (B - A) / Length * StepLength;
    const float Start = A + (B - A) / Length * (StepLength / 2 - From.Position) + 0.5f;
    for (std::size_t Step = 0; Step < Colors.size(); ++Step) {
      const float Value = std::clamp(Start + Slope * static_cast<float>(First + Step), 0.5f, 255.5f);
      Colors[Step] |= static_cast<ARGB>(static_cast<int>(Value)) << Shift;
    }
  }
  if (From.Color >> 24 == 255 && To.Color >> 24 == 255) return;
  for (std::uint32_t& Color : Colors) Color = qPremultiply(Color);
}

/// The colour of a whole period, as it looks from afar.
QColor Average(const QGradientStops& Stops) {
  double Alpha = 0, Red = 0, Green = 0, Blue = 0;
  for (qsizetype Index = 1; Index < Stops.size(); ++Index) {
    const double Share = (Stops[Index].first - Stops[Index - 1].first) / 2;
    for (const QColor& Color : {Stops[Index - 1].second, Stops[Index].second}) {
      Alpha += Share * Color.alpha();
      Red += Share * Color.red();
      Green += Share * Color.green();
      Blue += Share * Color.blue();
    }
  }
  const auto Whole = [](double Channel) { return std::clamp(static_cast<int>(std::lround(Channel)), 0, 255); };
  return {Whole(Red), Whole(Green), Whole(Blue), Whole(Alpha)};
}

}  // namespace

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

void FillSteps(std::span<std::uint32_t> Colors, std::span<const TGradientStop> Stops) {
  const auto Steps = static_cast<float>(Colors.size());
  std::size_t First = 0;
  for (std::size_t Index = 1; Index < Stops.size(); ++Index) {
    const auto Last = static_cast<std::size_t>(std::lround(Stops[Index].Position * Steps));
    FillBetween(Colors.subspan(First, Last - First), First, 1 / Steps, Stops[Index - 1], Stops[Index]);
    First = Last;
  }
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

namespace {

bool IsRepeated(const QBrush& Brush) {
  return Brush.style() == Qt::LinearGradientPattern && Brush.gradient()->spread() == QGradient::RepeatSpread;
}

/// Where along a linear gradient a box begins and ends, in periods; infinite where nothing can be said, as under a
/// transform so steep that there is no way back. To leads from the shapes to the box.
std::pair<double, double> PlacesOf(const QBrush& Brush, const QTransform& To, const QRectF& Box) {
  const auto& Gradient = *static_cast<const QLinearGradient*>(Brush.gradient());
  const QPointF Way = Gradient.finalStop() - Gradient.start();
  const double Square = QPointF::dotProduct(Way, Way);
  constexpr double Infinity = std::numeric_limits<double>::infinity(), Exact = 1e-3;
  std::pair Result(Infinity, -Infinity);
  const QTransform There = Brush.transform() * To;
  bool IsInvertible = false;
  const QTransform Back = There.inverted(&IsInvertible);
  for (const QPointF& Corner : {Box.topLeft(), Box.topRight(), Box.bottomRight(), Box.bottomLeft()}) {
    const QPointF Point = Back.map(Corner), Missed = There.map(Point) - Corner;
    const double Place = QPointF::dotProduct(Point - Gradient.start(), Way) / Square;
    const bool IsBack = IsInvertible && Missed.manhattanLength() <= Exact * (Box.width() + Box.height());
    if (!IsBack || !std::isfinite(Place)) return {-Infinity, Infinity};
    Result = {std::min(Result.first, Place), std::max(Result.second, Place)};
  }
  return Result;
}

}  // namespace

QBrush WithCountablePeriods(const QBrush& Brush, const QTransform& ToPage, const QRectF& Page) {
  constexpr double Most = 1000, Farthest = 1e5, Least = 1e-9;  // periods
  if (Brush.style() != Qt::LinearGradientPattern || Page.isEmpty()) return Brush;
  const bool Repeats = IsRepeated(Brush);
  const QGradientStops Colors = Brush.gradient()->stops();
  const auto [First, Last] = PlacesOf(Brush, ToPage, Page);
  const bool IsCountable = std::abs(First) <= Farthest && std::abs(Last) <= Farthest;
  if (!IsCountable || (Repeats && Last - First > Most)) return QBrush(Average(Colors));
  if (Last - First > Least) return Brush;
  std::vector<TGradientStop> Stops;
  for (const auto& [Position, Color] : Colors) Stops.push_back({static_cast<float>(Position), Color.rgba()});
  const double Middle = (First + Last) / 2;
  const double Place = Repeats ? Middle - std::floor(Middle) : std::clamp(Middle, 0.0, 1.0);
  return QBrush(QColor::fromRgba(ColorAt(Stops, static_cast<float>(Place))));
}

QBrush WithOnePeriod(const QBrush& Brush, const QRectF& Box, const QTransform& ToPixels) {
  constexpr double HalfPixel = 0.501, Most = 0.25;  // pixels, and periods
  if (!IsRepeated(Brush) || Box.isEmpty()) return Brush;
  const auto [First, Last] = PlacesOf(Brush, {}, Box);
  const auto [Left, Right] = PlacesOf(Brush, ToPixels, QRectF(0, 0, 1, 1));  // of a pixel
  const double Beside = std::min(HalfPixel * (Right - Left), Most);
  if (!(First >= -Beside && Last <= 1 + Beside)) return Brush;
  QLinearGradient Once = *static_cast<const QLinearGradient*>(Brush.gradient());
  Once.setSpread(QGradient::PadSpread);
  QBrush Result(Once);
  Result.setTransform(Brush.transform());
  return Result;
}

}  // namespace zy
