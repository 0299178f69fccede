#pragma once

#include <memory>

#include "graph/styles/ZyStyleSettings.h"
#include "graph/values/ZyColors.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Geometry.h"
#include "platform/framework/EnumInfo.h"

namespace zy {

/// The way of a gradient's colours: along a direction, or from a circle or an ellipse inwards to a point.
enum class TZyGradientStyle { Linear, Radial, Elliptical };
ZY_ENUM(TZyGradientStyle, "Linear", "Radial", "Elliptical")

/// A gradient of three colours, used in place of a plain colour while it is visible.
class TZyGradientSettings : public TZyStyleSettings {
  ZY_CLASS(TZyGradientSettings, TPersistent)
  explicit TZyGradientSettings(ModifiedCallback WhenModified) : TZyStyleSettings(std::move(WhenModified)) {}

  bool Visible() const { return FVisible; }
  void SetVisible(bool Value);
  TZyGradientStyle Style() const { return FStyle; }
  void SetStyle(TZyGradientStyle Value);
  TZyColor FirstColor() const { return FFirstColor; }
  void SetFirstColor(TZyColor Value);
  TZyColor MiddleColor() const { return FMiddleColor; }
  void SetMiddleColor(TZyColor Value);
  TZyColor LastColor() const { return FLastColor; }
  void SetLastColor(TZyColor Value);
  /// Direction of a linear gradient in degrees, clockwise from the x axis; brought into 0 to below 360.
  float LinearAngle() const { return FLinearAngle; }
  void SetLinearAngle(float Value);
  /// Place of the middle colour of a linear gradient, from 0 to 1.
  float LinearCenter() const { return FLinearCenter; }
  void SetLinearCenter(float Value);
  /// Place of the last colour of the other gradients in the rectangle, from 0 to 1.
  float RadialCenterX() const { return FRadialCenter.X; }
  void SetRadialCenterX(float Value);
  float RadialCenterY() const { return FRadialCenter.Y; }
  void SetRadialCenterY(float Value);

  /// The brush of these settings over View. Angle, in degrees, is added to that of a linear gradient and turns it along
  /// with a turned object.
  std::unique_ptr<Brush> GetBrush(const RectF& View, float Angle) const;
  std::unique_ptr<Brush> GetBrush(const TRect& View, float Angle) const;

  void Assign(const TPersistent* Source) override;
  void Fields(TZyArchive& Archive) override;

 private:
  bool FVisible = false;
  TZyGradientStyle FStyle = TZyGradientStyle::Linear;
  TZyColor FFirstColor = 0xFFD3D3D3;
  TZyColor FMiddleColor = 0xFFB0B0B0;
  TZyColor FLastColor = 0xFF808080;
  float FLinearAngle = 0;
  float FLinearCenter = 0.5f;
  PointF FRadialCenter{0.5f, 0.5f};
};

}  // namespace zy
