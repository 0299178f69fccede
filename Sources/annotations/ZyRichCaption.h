#pragma once

#include <memory>
#include <string>
#include <vector>

#include "annotations/ZyFont.h"
#include "platform/framework/EnumInfo.h"

namespace zy {

class Graphics;

/// A text in the caption language.
using TZyRichCaption = std::string;

/// Which point of a caption's box lies on its anchor.
enum class TZyContentAlignment {
  TopLeft,
  TopCenter,
  TopRight,
  MiddleLeft,
  MiddleCenter,
  MiddleRight,
  BottomLeft,
  BottomCenter,
  BottomRight
};

/// A caption laid out for painting: text, font, anchor point, angle and alignment.
///
/// Its owner calls ParseForSize when text or font have changed and PaintGr when it paints.
class TZyRichCaptionObject {
 public:
  /// NeedsInvalidate runs when the look of the font changes.
  explicit TZyRichCaptionObject(ModifiedCallback NeedsInvalidate = {}) : FFont(std::move(NeedsInvalidate)) {}

  const TZyRichCaption& Caption() const { return FCaption; }
  void SetCaption(const TZyRichCaption& Value) { FCaption = Value; }
  TZyFont& CaptionFont() { return FFont; }
  const TZyFont& CaptionFont() const { return FFont; }

  /// Measures the text; Width and Height are valid afterwards. The measures are the same for every target.
  void ParseForSize();
  /// Size of the unrotated caption in pixels.
  float Width() const { return FWidth; }
  float Height() const { return FHeight; }
  /// Paints the caption at its anchor, turned by its angle around it.
  void PaintGr(Graphics& Gr) const;

  float X = 0;  ///< anchor point in pixels
  float Y = 0;
  float Angle = 0;  ///< degrees, counter-clockwise on the screen
  TZyContentAlignment Alignment = TZyContentAlignment::TopLeft;

 private:
  TZyRichCaption FCaption;
  TZyFont FFont;
  float FWidth = 0;
  float FHeight = 0;
};

/// Captions in the order of their painting.
using TZyRichCaptionObjects = std::vector<std::unique_ptr<TZyRichCaptionObject>>;

}  // namespace zy
