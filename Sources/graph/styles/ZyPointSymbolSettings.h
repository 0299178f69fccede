#pragma once

#include "graph/styles/ZyGradientSettings.h"

namespace zy {

/// Symbols at data points. The first four are lines alone; the others have an inside.
enum class TZyPointSymbol { Dot, Cross, Ex, Star, FiveStar, Circle, Square, Diamond, Delta, Nabla };
ZY_ENUM(TZyPointSymbol, "Dot", "Cross", "Ex", "Star", "FiveStar", "Circle", "Square", "Diamond", "Delta", "Nabla")

/// How to draw the symbols at data points; size and line width in pixels.
class TZyPointSymbolSettings : public TZyStyleSettings {
  ZY_CLASS(TZyPointSymbolSettings, TPersistent)
  explicit TZyPointSymbolSettings(ModifiedCallback WhenModified) : TZyStyleSettings(std::move(WhenModified)) {}

  bool Visible() const { return FVisible; }
  void SetVisible(bool Value);
  float Size() const { return FSize; }
  void SetSize(float Value);
  float BorderLineWidth() const { return FBorderLineWidth; }
  void SetBorderLineWidth(float Value);
  TZyColor BorderColor() const { return FBorderColor; }
  void SetBorderColor(TZyColor Value);
  TZyColor FillColor() const { return FFillColor; }
  void SetFillColor(TZyColor Value);
  TZyPointSymbol PointSymbol() const { return FPointSymbol; }
  void SetPointSymbol(TZyPointSymbol Value);

  void Fields(TZyArchive& Archive) override;

 private:
  bool FVisible = true;
  float FSize = 11;
  float FBorderLineWidth = 1;
  TZyColor FBorderColor = Colors::Blue;
  TZyColor FFillColor = Colors::Blue;
  TZyPointSymbol FPointSymbol = TZyPointSymbol::Circle;
};

}  // namespace zy
