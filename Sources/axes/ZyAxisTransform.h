#pragma once

#include <cmath>
#include <span>

#include "axes/ZyAxisTypes.h"
#include "axes/ZyDateTime.h"

namespace zy {

/// How values lie along an axis.
enum class TZyMapping {
  Linear,
  Logarithmic,
  Calendar  ///< by the distance in days, which is no difference of day numbers before the first day
};

/// The way from values to pixels and back: a small value, made of an axis as it stands.
///
/// Pixels are in coordinates of the axis's parent. Values far outside saturate 100000 pixels away from the start; where
/// places are logarithms, what is not positive lies 100 pixels before it. Who maps many values takes the transform
/// once.
class TZyAxisTransform {
 public:
  /// Origin is the value at the start, its decadic logarithm where places are logarithms; PerPixel are values (days,
  /// decades) from pixel to pixel.
  TZyAxisTransform(TZyMapping Mapping, double Origin, double PerPixel, const TZyAxisGeometry& Geometry)
      : FMapping(Mapping),
        FOrigin(Origin),
        FPerPixel(PerPixel),
        FPerValue(1 / PerPixel),
        FBase(Geometry.Along()),
        FFirst(Geometry.Forward() ? 0 : static_cast<double>(Geometry.Length)),
        FSign(Geometry.Forward() ? 1 : -1) {}

  TZyMapping Mapping() const { return FMapping; }
  double PerPixel() const { return FPerPixel; }
  bool Forward() const { return FSign > 0; }

  float PixelOf(double Value) const {
    if (FMapping != TZyMapping::Linear) return PixelAt(DistanceOf(Value));
    return PixelAt(std::isfinite(FPerValue) ? (Value - FOrigin) * FPerValue : (Value - FOrigin) / FPerPixel);
  }
  /// The pixels of many values, the very same ones. Pixels has room for all of them.
  void PixelsOf(std::span<const double> Values, std::span<float> Pixels) const;
  /// Value at a pixel. Dates count from the start in calendar distance.
  double ValueAt(float Pixel) const;

  /// A value as a place on the scale, where equal distances are equal numbers of pixels, and back: its decade where
  /// places are logarithms, itself otherwise.
  double ToScale(double Value) const { return FMapping == TZyMapping::Logarithmic ? std::log10(Value) : Value; }
  double FromScale(double Place) const;

 private:
  /// Distance in pixels at which the way from values to pixels saturates: within what a drawing surface survives, and
  /// far enough that a line from there still heads the right way.
  static constexpr double Saturation = 100000;

  double DistanceOf(double Value) const;
  /// From a distance in pixels from the start to a pixel, whichever way the axis runs. Nothing in it branches, so that
  /// a compiler can do many values at a time; what is no number counts as far beyond the stop.
  float PixelAt(double FromStart) const {
    const double Below = FromStart < Saturation ? FromStart : Saturation;
    const double Within = Below > -Saturation ? Below : -Saturation;
    const double From = std::fabs(FromStart) < Saturation ? FFirst : 0;
    return FBase + static_cast<float>(From + FSign * Within);
  }

  TZyMapping FMapping;
  double FOrigin, FPerPixel, FPerValue;
  float FBase;    // pixel of the line's left or upper end
  double FFirst;  // of the start from there
  double FSign;
};

}  // namespace zy
