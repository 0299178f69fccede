#pragma once

#include <functional>
#include <string>

#include "graph/ZyColors.h"
#include "graph/ZyStyles.h"
#include "platform/drawing/Font.h"
#include "platform/framework/TPersistent.h"

namespace zy {

/// The font of a caption: family, size in points, style and text colour.
class TZyFont : public TPersistent {
  ZY_CLASS(TZyFont, TPersistent)
  /// NeedsInvalidate runs when only the look changed, OnNeedsResize when the layout did.
  explicit TZyFont(ModifiedCallback NeedsInvalidate = {});

  const std::string& Name() const { return FName; }
  void SetName(const std::string& Value);
  float Size() const { return FSize; }
  void SetSize(float Value);
  TFontStyles Style() const { return FStyle; }
  void SetStyle(TFontStyles Value);
  TZyColor FillColor() const { return FFillColor; }
  void SetFillColor(TZyColor Value);

  ModifiedCallback OnNeedsResize;

  /// The drawing surface's font of this description.
  Font AsFont() const { return Font(FName, FSize, FStyle); }
  void Assign(const TPersistent* Source) override;

 private:
  void NeedsResize();

  ModifiedCallback mNeedsInvalidate;
  std::string FName = "Arial";
  float FSize = 10;
  TFontStyles FStyle;
  TZyColor FFillColor = Colors::Black;
};

}  // namespace zy
