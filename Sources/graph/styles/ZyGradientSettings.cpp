#include "graph/styles/ZyGradientSettings.h"

#include <algorithm>

#include "analysis/ZyMath.h"
#include "graph/styles/ZyGradientBrushes.h"
#include "persistence/ZyArchive.h"
#include "platform/framework/TPropInfo.h"
#include "undo/ZyChange.h"

namespace zy {

ZY_PUBLISHED(
    TZyGradientSettings, TPersistent,
    Published<&TZyGradientSettings::Visible, &TZyGradientSettings::SetVisible>("Visible", false, _sGradientVisible),
    Published<&TZyGradientSettings::Style, &TZyGradientSettings::SetStyle>("Style", TZyGradientStyle::Linear,
                                                                           _sGradientStyle),
    Published<&TZyGradientSettings::FirstColor, &TZyGradientSettings::SetFirstColor>("FirstColor", 0xFFD3D3D3,
                                                                                     _sGradientFirstColor),
    Published<&TZyGradientSettings::MiddleColor, &TZyGradientSettings::SetMiddleColor>("MiddleColor", 0xFFB0B0B0,
                                                                                       _sGradientMiddleColor),
    Published<&TZyGradientSettings::LastColor, &TZyGradientSettings::SetLastColor>("LastColor", 0xFF808080,
                                                                                   _sGradientLastColor),
    Published<&TZyGradientSettings::LinearAngle, &TZyGradientSettings::SetLinearAngle>("LinearAngle", 0.0f,
                                                                                       _sGradientLinearAngle)
        .Clamped(0, 360),
    Published<&TZyGradientSettings::LinearCenter, &TZyGradientSettings::SetLinearCenter>("LinearCenter", 0.5f,
                                                                                         _sGradientLinearCenter)
        .Clamped(0, 1),
    Published<&TZyGradientSettings::RadialCenterX, &TZyGradientSettings::SetRadialCenterX>("RadialCenterX", 0.5f,
                                                                                           _sGradientRadialCenterX)
        .Clamped(0, 1),
    Published<&TZyGradientSettings::RadialCenterY, &TZyGradientSettings::SetRadialCenterY>("RadialCenterY", 0.5f,
                                                                                           _sGradientRadialCenterY)
        .Clamped(0, 1))

namespace {

/// From 0 to 1; what is no number counts as 0.
float Fraction(float Value) { return Value > 0 ? std::min(Value, 1.0f) : 0.0f; }

}  // namespace

void TZyGradientSettings::SetVisible(bool Value) {
  Change(this, FVisible, Value, "Visible", &TZyGradientSettings::Modified);
}

void TZyGradientSettings::SetStyle(TZyGradientStyle Value) {
  Change(this, FStyle, Value, "Style", &TZyGradientSettings::Modified);
}

void TZyGradientSettings::SetFirstColor(TZyColor Value) {
  Change(this, FFirstColor, Value, "FirstColor", &TZyGradientSettings::Modified);
}

void TZyGradientSettings::SetMiddleColor(TZyColor Value) {
  Change(this, FMiddleColor, Value, "MiddleColor", &TZyGradientSettings::Modified);
}

void TZyGradientSettings::SetLastColor(TZyColor Value) {
  Change(this, FLastColor, Value, "LastColor", &TZyGradientSettings::Modified);
}

void TZyGradientSettings::SetLinearAngle(float Value) {
  const auto Angle = static_cast<float>(FitTo360Degrees(static_cast<double>(Value)));
  // A hair below 0 is rounded to the full circle.
  Change(this, FLinearAngle, Angle < 360 ? Angle : 0, "LinearAngle", &TZyGradientSettings::Modified);
}

void TZyGradientSettings::SetLinearCenter(float Value) {
  Change(this, FLinearCenter, Fraction(Value), "LinearCenter", &TZyGradientSettings::Modified);
}

void TZyGradientSettings::SetRadialCenterX(float Value) {
  Change(this, FRadialCenter.X, Fraction(Value), "RadialCenterX", &TZyGradientSettings::Modified);
}

void TZyGradientSettings::SetRadialCenterY(float Value) {
  Change(this, FRadialCenter.Y, Fraction(Value), "RadialCenterY", &TZyGradientSettings::Modified);
}

std::unique_ptr<Brush> TZyGradientSettings::GetBrush(const RectF& View, float Angle) const {
  switch (FStyle) {
    case TZyGradientStyle::Radial:
      return RadialBrush(View, FRadialCenter, FFirstColor, FMiddleColor, FLastColor);
    case TZyGradientStyle::Elliptical:
      return EllipticalBrush(View, FRadialCenter, FFirstColor, FMiddleColor, FLastColor);
    case TZyGradientStyle::Linear:
      break;
  }
  return LinearBrush(View, FLinearAngle + Angle, FLinearCenter, FFirstColor, FMiddleColor, FLastColor);
}

std::unique_ptr<Brush> TZyGradientSettings::GetBrush(const TRect& View, float Angle) const {
  return GetBrush(ToRectF(View), Angle);
}

/// Part of each font, and so copied with each label of a chart: not through the table of properties.
void TZyGradientSettings::Assign(const TPersistent* Source) {
  const auto* const Other = dynamic_cast<const TZyGradientSettings*>(Source);
  if (Other == nullptr) return TZyStyleSettings::Assign(Source);
  FVisible = Other->FVisible;
  FStyle = Other->FStyle;
  FFirstColor = Other->FFirstColor;
  FMiddleColor = Other->FMiddleColor;
  FLastColor = Other->FLastColor;
  FLinearAngle = Other->FLinearAngle;
  FLinearCenter = Other->FLinearCenter;
  FRadialCenter = Other->FRadialCenter;
  Modified();
}

void TZyGradientSettings::Fields(TZyArchive& Archive) {
  using T = TZyGradientSettings;
  Archive.Field<&T::Visible, &T::SetVisible>(*this, "Visible");
  Archive.Field<&T::Style, &T::SetStyle>(*this, "Style");
  Archive.Field<&T::FirstColor, &T::SetFirstColor>(*this, "FirstColor");
  Archive.Field<&T::MiddleColor, &T::SetMiddleColor>(*this, "MiddleColor");
  Archive.Field<&T::LastColor, &T::SetLastColor>(*this, "LastColor");
  Archive.Field<&T::LinearAngle, &T::SetLinearAngle>(*this, TZyFieldName("LinearAngle").Default("90"));
  Archive.Field<&T::LinearCenter, &T::SetLinearCenter>(*this, TZyFieldName("LinearCenter").Default("0.5"));
  Archive.Field<&T::RadialCenterX, &T::SetRadialCenterX>(*this, TZyFieldName("RadialCenterX").Default("0.5"));
  Archive.Field<&T::RadialCenterY, &T::SetRadialCenterY>(*this, TZyFieldName("RadialCenterY").Default("0.5"));
  Archive.EndRecord();
}

}  // namespace zy
