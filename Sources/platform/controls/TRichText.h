#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/drawing/Font.h"
#include "platform/drawing/Geometry.h"
#include "platform/framework/Argb.h"

namespace zy {

class Graphics;

/// Format of characters in a rich text.
struct TRichFormat {
  TFontStyles Style;
  bool Superscript = false;
  bool Subscript = false;     ///< with both a text is a superscript
  std::optional<ARGB> Color;  ///< none for that of the control
  std::string Name;           ///< family; empty for that of the control

  bool operator==(const TRichFormat&) const = default;
};

/// What a text is drawn with.
struct TRichLook {
  std::string Name;
  float Size = 9;  ///< points
  TFontStyles Style;
  ARGB Color = 0xFF000000;
};

/// A piece of a rich text that caret and selection never enter, drawn by itself.
class TRichAtom {
 public:
  virtual ~TRichAtom() = default;
  /// Its text; '\n' breaks lines.
  virtual std::string Shown() const = 0;
  /// Extent in pixels; the base line of the last line is that of the text around.
  virtual SizeF Measure(const TRichLook& Look) const = 0;
  virtual void Paint(Graphics& Canvas, PointF TopLeft, const TRichLook& Look) const = 0;
};

/// A part of a rich text in one format.
struct TRichRun {
  TRichFormat Format;
  std::string Text;  ///< '\n' breaks lines; empty with an atom
  std::shared_ptr<const TRichAtom> Atom;
};
using TRichRuns = std::vector<TRichRun>;

/// Where an atom stands, counted in characters of 16 bits of what is shown, a line end as 1.
struct TRichAtomPlace {
  int Start = 0;
  int Length = 0;
  std::shared_ptr<const TRichAtom> Atom;
  int Position = 0;  ///< the same start with every atom counted as 1
};

}  // namespace zy
