// Values and pixels.

#include <cmath>
#include <cstdint>

#include "analysis/ZyMath.h"
#include "axes/ZyAxis.h"
#include "axes/ZyDateTime.h"

namespace zy {
namespace {

/// Distance in pixels at which the way from values to pixels saturates: within what a drawing surface survives, and far
/// enough that a line from there still heads the right way.
constexpr double Saturation = 100000;

/// Where values without a logarithm stand, in pixels from the start.
constexpr double PlaceOfNoLogarithm = -100;

/// From a distance in pixels from the start to a pixel, whichever way the axis runs. Nothing in it branches, so that a
/// compiler can do many values at a time; what is no number counts as far beyond the stop.
struct TDirection {
  float Base;     // pixel of the axis line's left or upper end
  double Origin;  // of the start from there
  double Sign;

  float PixelAt(double FromStart) const {
    const double Below = FromStart < Saturation ? FromStart : Saturation;
    const double Within = Below > -Saturation ? Below : -Saturation;
    const double From = std::fabs(FromStart) < Saturation ? Origin : 0;
    return Base + static_cast<float>(From + Sign * Within);
  }
};

TDirection DirectionOf(const TZyAxis& Axis) {
  const bool Horizontal = Axis.GetHorizontal();
  const float Base = Horizontal ? Axis.AxLeft() : Axis.AxTop();
  if (Horizontal != Axis.Twisted()) return {Base, 0, 1};
  return {Base, static_cast<double>(Axis.AxLength()), -1};
}

double LogDistance(double Value, double LogStart, double NormalizeConst) {
  return Value > 0 ? (std::log10(Value) - LogStart) / NormalizeConst : PlaceOfNoLogarithm;
}

}  // namespace

float TZyAxis::NumberToWorld(double Value) const {
  const TDirection Direction = DirectionOf(*this);
  if (FScale.HasLogScaling) return Direction.PixelAt(LogDistance(Value, FScale.LogStart, FNormalizeConst));
  if (FScaling == TZyAxisScaling::DateTime) return Direction.PixelAt(DateTimeSpan(FStart, Value) / FNormalizeConst);
  const double PerValue = 1 / FNormalizeConst;
  if (!std::isfinite(PerValue)) return Direction.PixelAt((Value - FStart) / FNormalizeConst);
  return Direction.PixelAt((Value - FStart) * PerValue);
}

void TZyAxis::NumberToWorld(std::span<const double> Values, std::span<float> Pixels) const {
  const std::size_t Count = Values.size();
  const double PerValue = 1 / FNormalizeConst;
  if (FScale.HasLogScaling || FScaling == TZyAxisScaling::DateTime || !std::isfinite(PerValue)) {
    for (std::size_t i = 0; i < Count; ++i) Pixels[i] = NumberToWorld(Values[i]);
    return;
  }
  // Blocks of a length that the compiler knows, for which it needs no second thought to compute them in vectors. Most
  // hold nothing that comes near to saturation: these take the short way, which gives the same bits.
  constexpr std::size_t Block = 64;
  const TDirection Direction = DirectionOf(*this);
  const double Start = FStart, Slope = Direction.Sign * PerValue, Origin = Direction.Origin;
  const auto Safe = static_cast<float>(0.9 * Saturation - Origin);
  const double* From = Values.data();
  float* To = Pixels.data();
  std::size_t Left = Count;
  for (; Left >= Block; Left -= Block, From += Block, To += Block) {
    std::int32_t Near = -1;
    for (std::size_t i = 0; i < Block; ++i) {
      const auto Place = static_cast<float>(Origin + (From[i] - Start) * Slope);
      Near &= std::fabs(Place) < Safe ? -1 : 0;
      To[i] = Direction.Base + Place;
    }
    if (Near != 0) continue;
    for (std::size_t i = 0; i < Block; ++i) To[i] = Direction.PixelAt((From[i] - Start) * PerValue);
  }
  for (std::size_t i = 0; i < Left; ++i) To[i] = Direction.PixelAt((From[i] - Start) * PerValue);
}

double TZyAxis::WorldToNumber(float Pixel) const {
  const TDirection Direction = DirectionOf(*this);
  const double Place = static_cast<double>(Pixel) - static_cast<double>(Direction.Base);
  const double FromStart = (Place - Direction.Origin) * Direction.Sign;
  if (FScale.HasLogScaling) return Exp10(FromStart * FNormalizeConst + FScale.LogStart);
  return FromStart * FNormalizeConst + FStart;
}

}  // namespace zy
