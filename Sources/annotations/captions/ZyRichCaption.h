#pragma once

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "analysis/ZyParseFktLists.h"
#include "annotations/captions/ZyCaptionLayout.h"
#include "annotations/captions/ZyCaptionText.h"
#include "annotations/captions/ZyFont.h"
#include "platform/framework/EnumInfo.h"

namespace zy {

class Graphics;

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
ZY_ENUM(TZyContentAlignment, "TopLeft", "TopCenter", "TopRight", "MiddleLeft", "MiddleCenter", "MiddleRight",
        "BottomLeft", "BottomCenter", "BottomRight")

/// A caption: text, font, anchor point, angle and alignment, and the runs that they give.
///
/// Its owner calls ParseForSize when it has set the text, ParseIfNeeded before it uses the measures, and PaintGr when
/// it paints. A caption with variables is laid out anew by itself when one of them may have changed.
class TZyRichCaptionObject : public TZyVariableDependent {
 public:
  /// NeedsInvalidate runs when the look of the font has changed.
  explicit TZyRichCaptionObject(ModifiedCallback NeedsInvalidate = {});

  const TZyRichCaption& Caption() const { return FCaption; }
  /// Only stores the text.
  void SetCaption(const TZyRichCaption& Value);
  TZyFont& CaptionFont() { return FFont; }
  const TZyFont& CaptionFont() const { return FFont; }
  /// Takes the place of the font's colour unless it is 0. Those runs change that have the colour of the first one.
  TZyColor ColorOverride() const { return FColorOverride; }
  void SetColorOverride(TZyColor Value);
  /// The colour of what the text gives no other one.
  TZyColor FillColor() const { return FColorOverride != 0 ? FColorOverride : FFont.FillColor(); }

  /// Evaluates the variables and lays the text out. The measures are the same for every target. An empty text changes
  /// nothing. Throws what a variable throws, and EConvertError for a malformed colour; the layout of before stays then.
  void ParseForSize();
  /// The same if text, font or alignment have changed since; the variables count as part of the text. Never throws:
  /// what cannot be evaluated leaves the layout of before or, when there is none, shows the text as it is written.
  void ParseIfNeeded();
  /// Size of the unrotated caption in pixels, 0 before it is laid out.
  float Width() const { return FLayout != nullptr ? FLayout->Width : 0; }
  float Height() const { return FLayout != nullptr ? FLayout->Height : 0; }
  /// The texts of all runs, with nothing between them, not even at line breaks.
  const std::string& PlainText() const;
  /// The runs in the order of the text, and the widths of the lines in pixels; valid until the next change.
  std::span<const TZySubCaption> SubCaptions() const;
  std::span<const float> LineWidths() const;
  /// Paints the caption, unless its text is empty, at its anchor, turned by its angle around it.
  void PaintGr(Graphics& Gr);

  /// Lays the caption out anew and tells OnVariablesChanged, unless nothing has changed. A caption that cannot be
  /// evaluated keeps what it shows.
  void VariablesChanged() override;

  float X = 0;  ///< anchor point in pixels
  float Y = 0;
  float Angle = 0;  ///< degrees, counter-clockwise on the screen
  TZyContentAlignment Alignment = TZyContentAlignment::TopLeft;
  /// Tells the owner that the caption has another size or look because of a variable.
  ModifiedCallback OnVariablesChanged;

 private:
  void DoFontInvalidate();
  void TakeColor();
  TZyCaptionLook Look() const;

  TZyRichCaption FCaption;
  ModifiedCallback mNeedsInvalidate;
  TZyFont FFont;
  TZyColor FColorOverride = 0;
  bool FNeedsParse = false;
  std::shared_ptr<const TZyCaptionLayout> FLayout;
};

/// Captions in the order of their painting, which belong to this list; an element may be null.
class TZyRichCaptionObjects : public std::vector<std::unique_ptr<TZyRichCaptionObject>> {
 public:
  int Count() const;
  /// Appends, and returns the new count.
  int Add(std::unique_ptr<TZyRichCaptionObject> Value);
  /// Throws ERangeError outside 0 to Count - 1.
  TZyRichCaptionObject* GetValue(int i) const;
  /// A write past the end extends the list. Throws ERangeError for a negative index.
  void SetValue(int i, std::unique_ptr<TZyRichCaptionObject> Value);
  /// Removes one element; nothing outside the list.
  void Delete(int i);
  void SetCount(int Value);
  void Clear();
};

}  // namespace zy
