#include "axes/ZyAxisTransform.h"

#include <cstdint>

#include "analysis/ZyMath.h"

namespace zy {

/// Of a value on a scale that is not linear, in pixels from the start.
double TZyAxisTransform::DistanceOf(double Value) const {
  constexpr double PlaceOfNoLogarithm = -100;
  if (FMapping == TZyMapping::Calendar) return DateTimeSpan(FOrigin, Value) / FPerPixel;
  return Value > 0 ? (std::log10(Value) - FOrigin) / FPerPixel : PlaceOfNoLogarithm;
}

void TZyAxisTransform::PixelsOf(std::span<const double> Values, std::span<float> Pixels) const {
  const std::size_t Count = Values.size();
  if (FMapping != TZyMapping::Linear || !std::isfinite(FPerValue)) {
    for (std::size_t i = 0; i < Count; ++i) Pixels[i] = PixelOf(Values[i]);
    return;
  }
  // Blocks of a length that the compiler knows, for which it needs no second thought to compute them in vectors. Most
  // hold nothing that comes near to saturation: these take the short way, which gives the same bits.
  constexpr std::size_t Block = 64;
  const TZyAxisTransform Way = *this;  // no store into Pixels can change it
  const double Start = FOrigin, PerValue = FPerValue, Slope = FSign * PerValue, First = FFirst;
  const float Base = FBase;
  const auto Safe = static_cast<float>(0.9 * Saturation - First);
  const double* From = Values.data();
  float* To = Pixels.data();
  std::size_t Left = Count;
  for (; Left >= Block; Left -= Block, From += Block, To += Block) {
    std::int32_t Near = -1;
    for (std::size_t i = 0; i < Block; ++i) {
      const auto Place = static_cast<float>(First + (From[i] - Start) * Slope);
      Near &= std::fabs(Place) < Safe ? -1 : 0;
      To[i] = Base + Place;
    }
    if (Near != 0) continue;
    for (std::size_t i = 0; i < Block; ++i) To[i] = Way.PixelAt((From[i] - Start) * PerValue);
  }
  for (std::size_t i = 0; i < Left; ++i) To[i] = Way.PixelAt((From[i] - Start) * PerValue);
}

double TZyAxisTransform::ValueAt(float Pixel) const {
  const double Place = static_cast<double>(Pixel) - static_cast<double>(FBase);
  return FromScale((Place - FFirst) * FSign * FPerPixel + FOrigin);
}

double TZyAxisTransform::FromScale(double Place) const {
  return FMapping == TZyMapping::Logarithmic ? Exp10(Place) : Place;
}

}  // namespace zy
