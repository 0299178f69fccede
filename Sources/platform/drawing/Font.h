#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/drawing/Geometry.h"
#include "platform/framework/EnumInfo.h"

class QFont;

namespace zy {

/// Looks of a font that add up.
enum class TFontStyle { Bold, Italic, Underline, Strikeout };
ZY_ENUM(TFontStyle, "Bold", "Italic", "Underline", "Strikeout")
using TFontStyles = TSet<TFontStyle>;

/// A typeface in one size. A value; copies share what the toolkit knows of the face.
///
/// Sizes are in points of 96/72 pixels, whatever resolution the screen claims, and may have fractions. All measures
/// are in logical pixels, the same for every target. Needs the application object to exist.
class Font {
 public:
  /// A family that does not exist is shown in the system's substitute, see FontFamily::IsAvailable. Throws ERangeError
  /// unless Size lies above 0 and up to MaxSize.
  Font(std::string_view FamilyName, float Size, TFontStyles Style = {});

  static constexpr float MaxSize = 10000;
  static constexpr float PixelsPerPoint = 96.0f / 72.0f;

  const std::string& GetFamilyName() const { return FFamilyName; }
  float GetSize() const { return FSize; }
  TFontStyles GetStyle() const { return FStyle; }
  /// Whether texts look as meant; see FontFamily::IsAvailable.
  bool IsAvailable() const;
  /// Distance of the base lines of two text lines.
  float GetHeight() const;
  /// Height above the base line.
  float GetAscent() const;
  /// Depth below the base line.
  float GetDescent() const;
  /// Extent of the line boxes of Text, with '\n' between lines: the longest advance width, without padding at the
  /// sides, and ascent plus descent plus the distance of the first from the last base line.
  SizeF MeasureString(std::string_view Text) const;
  /// A box that holds all pixels of a text with the top left corner of its line box at Origin: letters reach out of
  /// their line, slanted ones above all.
  RectF BoxOf(std::string_view Text, PointF Origin) const;

  /// The toolkit's font; drawn enlarged by QtScale it has this font's size. For Graphics.
  const QFont& ToQt() const { return *FQtFont; }
  double QtScale() const { return FQtScale; }

 private:
  std::string FFamilyName;
  float FSize;
  TFontStyles FStyle;
  std::shared_ptr<const QFont> FQtFont;
  double FQtScale = 1;
};

}  // namespace zy
