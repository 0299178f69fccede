#pragma once

#include <string>

#include "annotations/captions/ZyFont.h"
#include "platform/drawing/Font.h"
#include "platform/drawing/Geometry.h"

namespace zy {

class Brush;
class Graphics;

/// A run of a caption: text of one look within one line.
class TZySubCaption {
 public:
  explicit TZySubCaption(Font Face) : RunFont(std::move(Face)) {}

  /// Width of its letters in pixels, without room beside them.
  float GetWidth() const { return RunFont.MeasureString(Caption).Width; }
  /// Draws the run under the present transform. A solid brush is set to the run's colour, any other is used as it is.
  /// Letters that are outlined, lowered or raised are not filled.
  void PaintGr(Graphics& Gr, Brush& Fill) const;
  /// The family that is drawn with: the one asked for, or "Arial" in its place.
  const std::string& FontName() const { return RunFont.GetFamilyName(); }

  PointF Position;      ///< top left corner of its box in the caption, in pixels
  std::string Caption;  ///< holds no line break
  Font RunFont;
  TZyCharDrawEffects DrawEffects;
  TZyColor Color = 0;
  int LineIndex = 0;  ///< from 0

 private:
  void PaintShape(Graphics& Gr, const Brush& Fill) const;
  void PaintShadow(Graphics& Gr) const;
};

}  // namespace zy
