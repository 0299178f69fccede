#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "annotations/captions/ZySubCaption.h"

namespace zy {

/// Side of a caption at which its lines begin or end together.
enum class TZyCaptionColumn { Left, Center, Right };

/// What decides how a caption looks, beside its text. Refers to the name of the font.
struct TZyCaptionLook {
  std::string_view FontName;
  float FontSize = 0;  ///< points
  TFontStyles FontStyle;
  TZyCaptionColumn Column = TZyCaptionColumn::Left;
  TZyColor Color = 0;
  TZyCharDrawEffects DrawEffects;

  bool operator==(const TZyCaptionLook&) const = default;
  /// Whether captions of both looks have their runs at the same places.
  bool HasShapeOf(const TZyCaptionLook& Other) const {
    return FontName == Other.FontName && FontSize == Other.FontSize && FontStyle == Other.FontStyle &&
           Column == Other.Column;
  }
};

/// A text in the caption language as runs at their places. Needs the application object to exist.
struct TZyCaptionLayout {
  /// Lays a text out, with its variables replaced by their values. Throws EConvertError for a malformed colour.
  ///
  /// "\n\r", "\r\n", "\n" and "\r" break lines. A backslash and a letter change the look of what follows: b bold,
  /// i italic, u underline, o strike-out, + superscript, - subscript, each back when it comes again; c[A=255, R=0, G=0,
  /// B=0] colour; f[Times New Roman] family; without anything in the brackets the caption's own. Of several backslashes
  /// in a row all but the first are text, and so is what follows them. In front of any other character a backslash is
  /// dropped.
  ///
  /// The character behind c or f, whatever it is, stands for the bracket. Without a "]" behind that one the letter and
  /// what follows it are text like any other, in the caption's own colour or family.
  ///
  /// A family that is missing is "Arial" up to the next change of the family.
  TZyCaptionLayout(std::string_view Text, const TZyCaptionLook& Look);

  TZyCaptionLook Look() const;

  std::string Text;
  std::vector<TZySubCaption> SubCaptions;  ///< in the order of the text
  std::string PlainText;                   ///< the texts of all runs, with nothing between them
  /// Widths in pixels of the lines up to the last one that has a run.
  std::vector<float> LineWidths{0.0f};
  float Width = 0;  ///< pixels
  float Height = 0;

 private:
  void AlignLines();

  std::string FFontName;
  TZyCaptionLook FLook;  // with FFontName as the name
};

/// The layout of such a text and look. It is shared, and those that were asked for lately are found again without any
/// allocation. For the control thread only.
std::shared_ptr<const TZyCaptionLayout> CaptionLayoutOf(std::string_view Text, const TZyCaptionLook& Look);

/// A text in the caption language that shows Text as it is written.
std::string CaptionVerbatim(std::string_view Text);

/// A font with what the toolkit takes time to find out about it.
struct TZyCaptionFace {
  Font Face;
  bool IsAvailable;
  float LineHeight;  ///< pixels
};

/// The face of these properties, kept as layouts are.
TZyCaptionFace CaptionFaceOf(std::string_view FamilyName, float Size, TFontStyles Style);

}  // namespace zy
