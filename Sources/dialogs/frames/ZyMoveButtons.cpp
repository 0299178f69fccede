#include "dialogs/frames/ZyMoveButtons.h"

#include <array>
#include <utility>

#include "dialogs/controls/ZyDialogParts.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Font.h"
#include "platform/drawing/Graphics.h"
#include "platform/drawing/Pen.h"
#include "platform/framework/SystemColors.h"

namespace zy {

namespace {

constexpr int GlyphSize = 16, ButtonText = 18;

/// An arrow in a box of 16 pixels, upward or downward, with a bar where it ends for the way to the very end.
void DrawArrow(Graphics& Canvas, bool IsUp, bool HasBar) {
  const auto At = [IsUp](float X, float Y) { return PointF{X, IsUp ? Y : GlyphSize - Y}; };
  const SolidBrush Ink(SystemColor(ButtonText));
  const float Tip = HasBar ? 4 : 2;
  const PointF Head[] = {At(8, Tip), At(13, Tip + 6), At(3, Tip + 6)};
  Canvas.FillPolygon(Ink, Head);
  const PointF Stem[] = {At(6.5f, Tip + 6), At(9.5f, Tip + 6), At(9.5f, 14), At(6.5f, 14)};
  Canvas.FillPolygon(Ink, Stem);
  const PointF Bar[] = {At(3, 1), At(13, 1), At(13, 3), At(3, 3)};
  if (HasBar) Canvas.FillPolygon(Ink, Bar);
}

void DrawCross(Graphics& Canvas, bool IsTurned) {
  const Pen Line(SystemColor(ButtonText), 2);
  if (IsTurned) {
    Canvas.DrawLine(Line, 4, 4, 12, 12);
    Canvas.DrawLine(Line, 12, 4, 4, 12);
  } else {
    Canvas.DrawLine(Line, 8, 3, 8, 13);
    Canvas.DrawLine(Line, 3, 8, 13, 8);
  }
}

/// A letter as the style makes it.
void DrawLetter(Graphics& Canvas, const char* Letter, TFontStyles Style) {
  constexpr float Points = 11;
  const Font Face("Times New Roman", Points, Style);
  const SizeF Size = Face.MeasureString(Letter);
  Canvas.DrawString(Letter, Face, SolidBrush(SystemColor(ButtonText)), (GlyphSize - Size.Width) / 2,
                    (GlyphSize - Size.Height) / 2);
}

/// An x with a small 2 below or above.
void DrawScript(Graphics& Canvas, bool IsSub) {
  const SolidBrush Ink(SystemColor(ButtonText));
  const Font Large("Times New Roman", 10, {TFontStyle::Bold}), Small("Times New Roman", 6, {TFontStyle::Bold});
  Canvas.DrawString("x", Large, Ink, 1, IsSub ? -3.0f : 0.0f);
  Canvas.DrawString("2", Small, Ink, 9, IsSub ? 6.0f : -1.0f);
}

}  // namespace

TGlyphPainter GlyphPainter(TZyGlyph Glyph) {
  return [Glyph](Graphics& Canvas, float) {
    using enum TZyGlyph;
    switch (Glyph) {
      case Top:
      case Up:
        return DrawArrow(Canvas, true, Glyph == Top);
      case Down:
      case Bottom:
        return DrawArrow(Canvas, false, Glyph == Bottom);
      case Add:
      case Delete:
        return DrawCross(Canvas, Glyph == Delete);
      case Bold:
        return DrawLetter(Canvas, "B", {TFontStyle::Bold});
      case Italic:
        return DrawLetter(Canvas, "I", {TFontStyle::Italic});
      case Underline:
        return DrawLetter(Canvas, "U", {TFontStyle::Underline});
      case Strikeout:
        return DrawLetter(Canvas, "S", {TFontStyle::Strikeout});
      case Subscript:
      case Superscript:
        return DrawScript(Canvas, Glyph == Subscript);
    }
  };
}

TToolButton* AddToolButton(TComponent& Form, TWinControl& Parent, const char* Name, TZyText Hint, TZyGlyph Glyph,
                           std::function<void()> Click) {
  auto* const Button = AddPart<TToolButton>(Form, Parent, Name, Hint);
  Button->SetAlign(alNone);  // its place is a layout's to say
  Button->SetGlyph(GlyphPainter(Glyph), GlyphSize);
  Button->SetOnClick([Click = std::move(Click)](TObject*) { Click(); });
  return Button;
}

TToolButton* AddMoveButton(TComponent& Form, TWinControl& Parent, const char* Name, TZyText Hint,
                           TZyDragListBox::TMove Move, std::function<void()> Click) {
  constexpr TZyGlyph Glyphs[] = {TZyGlyph::Top, TZyGlyph::Up, TZyGlyph::Down, TZyGlyph::Bottom};
  auto* const Button =
      AddToolButton(Form, Parent, Name, Hint, Glyphs[static_cast<std::size_t>(Move)], std::move(Click));
  Button->SetTabStop(true);
  return Button;
}

}  // namespace zy
