#pragma once

#include <functional>

#include "dialogs/frames/ZySeriesListBox.h"
#include "platform/controls/TSpeedButton.h"
#include "texts/ZyLocalize.h"

namespace zy {

/// Pictures of buttons, drawn in the desktop's colours.
enum class TZyGlyph { Top, Up, Down, Bottom, Add, Delete, Bold, Italic, Underline, Strikeout, Subscript, Superscript };
/// Draws one of them.
TGlyphPainter GlyphPainter(TZyGlyph Glyph);

/// A button with a picture, which leaves the keyboard where it is.
TToolButton* AddToolButton(TComponent& Form, TWinControl& Parent, const char* Name, TZyText Hint, TZyGlyph Glyph,
                           std::function<void()> Click);
/// One of the four buttons that move the selected item of a list.
TToolButton* AddMoveButton(TComponent& Form, TWinControl& Parent, const char* Name, TZyText Hint,
                           TZyDragListBox::TMove Move, std::function<void()> Click);

}  // namespace zy
