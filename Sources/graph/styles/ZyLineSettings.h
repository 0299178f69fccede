#pragma once

#include <memory>

#include "graph/styles/ZyGDI.h"
#include "graph/styles/ZyGradientSettings.h"

namespace zy {

/// How to draw a line: colour, width in pixels, dash style; a visible gradient takes the place of the colour.
class TZySimpleLineSettings : public TZyStyleSettings {
  ZY_CLASS(TZySimpleLineSettings, TPersistent)
  explicit TZySimpleLineSettings(ModifiedCallback WhenModified);

  TZyColor Color() const { return FColor; }
  void SetColor(TZyColor Value);
  TDashStyle DashStyle() const { return FDashStyle; }
  void SetDashStyle(TDashStyle Value);
  float Width() const { return FWidth; }
  void SetWidth(float Value);
  /// Its changes are changes of the line.
  TZyGradientSettings& Gradient() { return FGradient; }
  const TZyGradientSettings& Gradient() const { return FGradient; }

  /// A pen with these settings for drawing inside View. Angle, in degrees, turns a linear gradient along with a turned
  /// object.
  virtual std::unique_ptr<TZyPen> GetPen(const RectF& View, float Angle) const;
  std::unique_ptr<TZyPen> GetPen(const TRect& View, float Angle) const;

  void Fields(TZyArchive& Archive) override;
  std::string RecordName() const override { return "Line"; }
  void SetUndoStack(TZyUndoStack* Value) override;

 protected:
  bool FVisible = true;

 private:
  TZyColor FColor = Colors::Red;
  TDashStyle FDashStyle = DashStyleSolid;
  float FWidth = 1;
  TZyGradientSettings FGradient;
};

/// A line that can be switched off.
class TZyLineSettings : public TZySimpleLineSettings {
  ZY_CLASS(TZyLineSettings, TZySimpleLineSettings)
  using TZySimpleLineSettings::TZySimpleLineSettings;

  bool Visible() const { return FVisible; }
  void SetVisible(bool Value);
  /// Visible is copied through its setter, which is a step of its own that can be undone.
  void Assign(const TPersistent* Source) override;
  void Fields(TZyArchive& Archive) override;
};

}  // namespace zy
