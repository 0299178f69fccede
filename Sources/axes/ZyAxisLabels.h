#pragma once

#include <functional>
#include <string>
#include <vector>

#include "annotations/captions/ZyRichCaption.h"
#include "axes/ZyAxisLook.h"
#include "axes/ZyAxisTicks.h"

namespace zy {

/// Room in pixels beyond the two ends of an axis: at the left or the bottom, at the right or the top. Negative where
/// nothing reaches the end.
struct TZyOverhang {
  float Low = 0;
  float High = 0;
};

/// The labels of an axis and the power of ten that stands apart from them: their texts, room and places.
class TZyAxisLabels {
 public:
  /// The angle in degrees, counter-clockwise, by which the labels are turned.
  float Angle() const { return FAngle; }
  void SetAngle(float Value);

  /// The text of a label in the place of one; a handler may have another.
  using TText = std::function<std::string(std::string Text, double Value)>;
  /// Makes the labels of ticks anew, in a font, for an axis whose line is where it is. OnVariablesChanged runs when a
  /// variable gives one of them another size.
  void Take(const TZyAxisTicks& Ticks, const TZyAxisGeometry& Geometry, const TZyAxisLook& Look, const TZyFont& Font,
            const TText& TextOf, const ModifiedCallback& OnVariablesChanged);
  /// Places the power of ten. End is the pixel of the upper end of the scale.
  void PlaceExponent(const TZyAxisTicks& Ticks, const TZyAxisGeometry& Geometry, const TZyAxisLook& Look,
                     const TZyFont& Font, float End);
  void SetColor(TZyColor Value);
  void Clear();
  void Paint(Graphics& Gr);
  void PaintExponent(Graphics& Gr) { FExponent.PaintGr(Gr); }

  const TZyRichCaptionObjects& Labels() const { return FLabels; }
  const TZyRichCaptionObject& ExtraExponent() const { return FExponent; }
  std::vector<std::string> Texts() const;
  /// Takes out the first label, or the first one whose centre lies nearer than Distance to a pixel along the axis.
  void EraseFirst();
  void EraseNear(float Position, float Distance, bool Horizontal);

  // ---- Room ----

  /// Extents along and across an axis of a box that is turned by the angle of the labels.
  float Along(float Width, float Height, bool Horizontal) const;
  float Across(float Width, float Height, bool Horizontal) const;
  /// Room of a text along the axis, estimated without measuring.
  float Estimate(const std::string& Text, float FontSize, bool Horizontal) const;
  /// Room of the largest label across the axis; 0 without labels.
  float Room() const { return FRoom; }
  /// How far the power of ten reaches across from the line of the labels; 0 without one. And how far the labels reach
  /// together with it.
  float ExponentReach(const TZyAxisGeometry& Geometry, const TZyAxisLook& Look) const;
  float Reach(const TZyAxisGeometry& Geometry, const TZyAxisLook& Look) const;
  /// How far the labels reach beyond the ends of the line. There are some; Reversed says that the last one lies at the
  /// left or lower end.
  TZyOverhang Overhang(const TZyAxisGeometry& Geometry, bool Reversed) const;

 private:
  TZyRichCaptionObject& Add(const TZyTickLabel& Label, const TZyAxisGeometry& Geometry, const TZyAxisLook& Look,
                            const TZyFont& Font, const TText& TextOf);
  float SlantShift(float Along, float FontSize, const TZyAxisGeometry& Geometry) const;

  float FAngle = 0;
  float FSine = 0, FCosine = 1;  // absolute values
  TZyRichCaptionObjects FLabels;
  TZyRichCaptionObject FExponent;
  float FRoom = 0;
};

/// Line across the axis on which the labels stand, in the control: behind the ticks, or else at the axis line.
float LabelBase(const TZyAxisGeometry& Geometry, const TZyAxisLook& Look);

}  // namespace zy
