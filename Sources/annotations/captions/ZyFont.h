#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "graph/styles/ZyGradientSettings.h"
#include "persistence/ZyRecord.h"
#include "platform/drawing/Font.h"
#include "platform/framework/EnumInfo.h"

namespace zy {

class TControlFont;
class TZyUndoStack;

/// Ways to set characters off from what lies behind them. The order is that of the bits in stored forms.
enum class TZyCharDrawEffect { Shadow, Outline, Lowered, Raised };
ZY_ENUM(TZyCharDrawEffect, "Shadow", "Outline", "Lowered", "Raised")
using TZyCharDrawEffects = TSet<TZyCharDrawEffect>;

/// How the edges of characters are drawn.
enum class TZyTextRenderingHint {
  SystemDefault,
  SingleBitPerPixelGridFit,
  SingleBitPerPixel,
  AntiAliasGridFit,
  AntiAlias,
  ClearTypeGridFit
};
ZY_ENUM(TZyTextRenderingHint, "SystemDefault", "SingleBitPerPixelGridFit", "SingleBitPerPixel", "AntiAliasGridFit",
        "AntiAlias", "ClearTypeGridFit")

/// The font of a caption: family, size in points, style, colour or gradient, effect.
///
/// Setters push no undo; who lets the user change a font calls PushToUndoStack first.
class TZyFont : public TZyStyleSettings {
  ZY_CLASS(TZyFont, TPersistent)
  /// NeedsInvalidate runs when only the look changed, OnNeedsResize when the layout did.
  explicit TZyFont(ModifiedCallback NeedsInvalidate = {});

  const std::string& Name() const { return FName; }
  void SetName(const std::string& Value);
  /// Setting 0 or less falls back to the whole size. Throws ERangeError for more than Font::MaxSize and for what is no
  /// number.
  float Size() const { return FSize > 0 ? FSize : static_cast<float>(FWholeSize); }
  void SetSize(float Value);
  /// The size last set, rounded.
  int WholeSize() const { return FWholeSize; }
  /// The whole size in pixels, as controls tell it: below 0, since it is that of the characters alone. Setting it, of
  /// either sign, leaves a size with a fraction as it is.
  int Height() const;
  void SetHeight(int Value);
  /// A number that forms keep; texts are in Unicode whatever it is.
  int Charset() const { return FCharset; }
  void SetCharset(int Value);
  TFontStyles Style() const { return FStyle; }
  void SetStyle(TFontStyles Value);
  TZyColor FillColor() const { return FFillColor; }
  void SetFillColor(TZyColor Value);
  /// The colour as a control's, without alpha. Setting it makes the colour opaque.
  TColor Color() const { return ARGBToTColor(FFillColor); }
  void SetColor(TColor Value);
  /// At most one effect. One that is added takes the place of the present one; of two that are added the first in the
  /// order of the enumeration counts.
  TZyCharDrawEffects DrawEffects() const { return FDrawEffects; }
  void SetDrawEffects(TZyCharDrawEffects Value);
  TZyTextRenderingHint RenderingHint() const { return FRenderingHint; }
  void SetRenderingHint(TZyTextRenderingHint Value);
  /// Takes the place of the colour while it is visible.
  TZyGradientSettings& Gradient() { return FGradient; }
  const TZyGradientSettings& Gradient() const { return FGradient; }

  const ModifiedCallback& OnNeedsInvalidate() const { return WhenModified(); }
  ModifiedCallback OnNeedsResize;

  /// The drawing surface's font of this description.
  Font AsFont() const { return Font(FName, Size(), FStyle); }
  /// A control's font of these properties.
  std::unique_ptr<TControlFont> AsTFont() const;
  void SetAsTFont(const TControlFont& Value);
  /// From another one, or from the font of a control, which changes no effect.
  void Assign(const TPersistent* Source) override;
  void Fields(TZyArchive& Archive) override;
  std::string RecordName() const override { return "Font"; }
  /// Logs all that this font is as one step, before a change. Nothing happens without a stack.
  void PushToUndoStack(TZyUndoStack* Stack, std::string_view Comment);

 private:
  void AssignFont(const TZyFont& Source);
  void AssignPlain(const TControlFont& Source);
  void NeedsResize();

  static constexpr int DefaultCharset = 1;

  std::string FName = "Arial";
  int FWholeSize = 10;
  float FSize = 10;
  int FCharset = DefaultCharset;
  TFontStyles FStyle;
  TZyColor FFillColor = Colors::Black;
  TZyCharDrawEffects FDrawEffects;
  TZyTextRenderingHint FRenderingHint = TZyTextRenderingHint::SystemDefault;
  TZyGradientSettings FGradient;
};

}  // namespace zy
