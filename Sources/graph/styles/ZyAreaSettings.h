#pragma once

#include <memory>

#include "graph/styles/ZyGDI.h"
#include "graph/styles/ZyGradientSettings.h"

namespace zy {

/// How to fill an area: style and two colours; a visible gradient takes the place of both.
class TZyAreaSettings : public TZyStyleSettings {
  ZY_CLASS(TZyAreaSettings, TPersistent)
  explicit TZyAreaSettings(ModifiedCallback WhenModified);

  bool Visible() const { return FVisible; }
  void SetVisible(bool Value);
  TZyAreaStyle AreaStyle() const { return FAreaStyle; }
  void SetAreaStyle(TZyAreaStyle Value);
  TZyColor ForeColor() const { return FForeColor; }
  void SetForeColor(TZyColor Value);
  TZyColor BackColor() const { return FBackColor; }
  void SetBackColor(TZyColor Value);
  /// Its changes are changes of the area.
  TZyGradientSettings& Gradient() { return FGradient; }
  const TZyGradientSettings& Gradient() const { return FGradient; }

  /// Whether the style is one colour, Total.
  bool Solid() const { return FAreaStyle == TZyAreaStyle::Total; }
  /// A brush with these settings over View.
  std::unique_ptr<Brush> GetBrush(const RectF& View) const;
  std::unique_ptr<Brush> GetBrush(const TRect& View) const;

  void Fields(TZyArchive& Archive) override;
  void SetUndoStack(TZyUndoStack* Value) override;

 private:
  bool FVisible = false;
  TZyAreaStyle FAreaStyle = TZyAreaStyle::Total;
  TZyColor FForeColor = Colors::LightGray;
  TZyColor FBackColor = Colors::DarkGray;
  TZyGradientSettings FGradient;
};

}  // namespace zy
