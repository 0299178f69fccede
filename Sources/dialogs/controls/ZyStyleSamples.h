#pragma once

#include <cstdint>
#include <string>

#include "graph/styles/ZyGDI.h"
#include "graph/styles/ZyLineSettings.h"
#include "graph/styles/ZyPointSymbolSettings.h"
#include "platform/drawing/Geometry.h"

namespace zy {

class Graphics;

/// Fills an item of a list with the desktop's ground, and frames the selected one.
void DrawItemGround(Graphics& Canvas, const TRect& Box);
void DrawItemFrame(Graphics& Canvas, const TRect& Box);

/// Draws dash styles as lines.
struct TZyDashSample {
  using TValue = TDashStyle;
  static constexpr int Count = 5, ItemHeight = 16;
  static std::string ItemText(int Index);
  static std::string ItemName(int Index) { return ItemText(Index); }
  void Draw(Graphics& Canvas, int Index, const TRect& Box) const;

  TZyColor LineColor = Colors::Red;
  float LineWidth = 1;
  std::uint64_t UseLineSettings = 0;  ///< live handle of settings that take the place of both; 0 for none
};

/// Draws area styles as filled boxes.
struct TZyAreaSample {
  using TValue = TZyAreaStyle;
  static constexpr int Count = static_cast<int>(TZyAreaStyle::Total) + 1, ItemHeight = 20;
  static std::string ItemText(int) { return "1"; }
  static std::string ItemName(int Index) { return std::string(EnumInfo(TZyAreaStyle{}).Values[std::size_t(Index)]); }
  void Draw(Graphics& Canvas, int Index, const TRect& Box) const;

  TZyColor ForeColor = Colors::LightGray, BackColor = Colors::DarkGray;
};

/// Draws point symbols.
struct TZySymbolSample {
  using TValue = TZyPointSymbol;
  static constexpr int Count = static_cast<int>(TZyPointSymbol::Nabla) + 1, ItemHeight = 20;
  static std::string ItemText(int) { return "1"; }
  static std::string ItemName(int Index) { return std::string(EnumInfo(TZyPointSymbol{}).Values[std::size_t(Index)]); }
  void Draw(Graphics& Canvas, int Index, const TRect& Box) const;

  TZyColor BorderColor = Colors::Blue, FillColor = Colors::Blue;
  float BorderLineWidth = 1;
};

}  // namespace zy
