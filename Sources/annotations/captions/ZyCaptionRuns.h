#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "annotations/captions/ZyCaptionText.h"
#include "graph/values/ZyColors.h"
#include "platform/drawing/Font.h"

namespace zy {

class TZyVariableDependent;

/// How a part of a caption differs from the caption's own font.
struct TZyCaptionStyle {
  TFontStyles Toggled;  ///< those in which it is the opposite of the font
  bool Superscript = false;
  bool Subscript = false;  ///< with both a part is a superscript
  std::optional<TZyColor> Color;
  std::string Family;  ///< empty for the font's own

  bool operator==(const TZyCaptionStyle&) const = default;
};

/// What is one piece for those who edit a caption: a variable. Also what a caption holds that cannot be taken apart,
/// such as markup that begins within a value and ends behind it, and characters that no editor takes.
struct TZyCaptionAtom {
  std::string Source;  ///< the part of the caption that it stands for
  std::string Value;   ///< in the caption language, without variables
  std::string Shown;   ///< the value's text; '\n' breaks lines

  /// What stands between the marks <% and %>, else all that it stands for.
  std::string Variable() const;
};

/// A part of a caption in one style.
struct TZyCaptionRun {
  TZyCaptionStyle Style;  ///< of an atom, the style in which its value begins
  std::string Text;       ///< '\n' breaks lines; empty with an atom
  std::shared_ptr<const TZyCaptionAtom> Atom;
};
using TZyCaptionRuns = std::vector<TZyCaptionRun>;

/// What becomes of a caption that cannot be evaluated.
enum class TZyCaptionReading {
  Strict,  ///< it throws
  Lenient  ///< "..." stands for a value, and a caption with a malformed colour is shown as it is written
};

/// The runs of a caption, their variables evaluated. Dependent, unless null, is noted with the containers of the
/// variables. Throws what ParseVariables throws, and EConvertError for a malformed colour.
TZyCaptionRuns ReadCaption(std::string_view Caption, TZyVariableDependent* Dependent,
                           TZyCaptionReading Reading = TZyCaptionReading::Strict);

/// The caption of these runs, which looks as they do and reads as they are. Line ends are carriage return and line
/// feed. At its end the style is that of the caption again.
///
/// One thing cannot be written: backslashes with a change of the style right behind them. They take the style of what
/// follows.
std::string WriteCaption(TZyCaptionRuns Runs);

/// The style behind a text without variables that begins in a style. Throws EConvertError for a malformed colour.
TZyCaptionStyle StyleBehind(std::string_view Value, TZyCaptionStyle Style);

/// The value of one variable as an atom. Throws what FindTheVar throws, and EConvertError for what is no name.
std::shared_ptr<const TZyCaptionAtom> CaptionAtomOf(const std::string& Variable, TZyVariableDependent* Dependent);

/// What runs show, with the atoms as their values.
TZyCaptionRuns WithoutAtoms(const TZyCaptionRuns& Runs);

}  // namespace zy
