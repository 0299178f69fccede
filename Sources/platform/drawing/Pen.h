#pragma once

#include <span>
#include <vector>

#include "platform/drawing/Argb.h"
#include "platform/framework/EnumInfo.h"

class QPen;

namespace zy {

/// How a line is broken up.
enum TDashStyle {
  DashStyleSolid,
  DashStyleDash,
  DashStyleDot,
  DashStyleDashDot,
  DashStyleDashDotDot,
  DashStyleCustom  ///< by the pen's own pattern, see Pen::SetDashPattern
};
ZY_ENUM(TDashStyle, "DashStyleSolid", "DashStyleDash", "DashStyleDot", "DashStyleDashDot", "DashStyleDashDotDot",
        "DashStyleCustom")

/// What lines and outlines are drawn with. Ends are flat and corners mitred.
class Pen {
 public:
  /// Width in pixels; fractions are legal, and what is thinner than a pixel is drawn as one pixel.
  explicit Pen(ARGB Color, float Width = 1);

  ARGB GetColor() const { return FColor; }
  void SetColor(ARGB Value) { FColor = Value; }
  float GetWidth() const { return FWidth; }
  void SetWidth(float Value) { FWidth = Value; }
  TDashStyle GetDashStyle() const { return FDashStyle; }
  void SetDashStyle(TDashStyle Value) { FDashStyle = Value; }
  /// Lengths of dash and gap in turn, in units of the pen's width. Sets DashStyleCustom; entries that are not above 0
  /// are taken as 1, and an odd count repeats the list.
  void SetDashPattern(std::span<const float> Pattern);
  /// Longest mitre of a corner, in units of the pen's width; sharper corners are cut off.
  float GetMiterLimit() const { return FMiterLimit; }
  void SetMiterLimit(float Value) { FMiterLimit = Value; }

  /// The toolkit's pen of the same look, for Graphics.
  QPen ToQt() const;

 private:
  ARGB FColor;
  float FWidth;
  float FMiterLimit = 10;
  TDashStyle FDashStyle = DashStyleSolid;
  std::vector<float> FDashPattern;
};

}  // namespace zy
