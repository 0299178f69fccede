#include "undo/controls/ZyUndoButtons.h"

#include <cmath>
#include <numbers>
#include <vector>

#include "platform/drawing/Brush.h"
#include "platform/drawing/Graphics.h"
#include "platform/drawing/Pen.h"
#include "platform/framework/TPropInfo.h"
#include "texts/ZyLocalize.h"

namespace zy {

ZY_PUBLISHED(TZyUndoButton, TZyDropDnButton)
ZY_PUBLISHED(TZyRedoButton, TZyDropDnButton)

namespace {

/// An arrow that bends back, in a box of 16 by 16: to the left, or to the right.
void PaintBentArrow(Graphics& Canvas, ARGB Color, bool ToRight) {
  const auto At = [ToRight](float X, float Y) { return PointF{ToRight ? 15 - X : X, Y}; };
  constexpr float CenterX = 8.5f, CenterY = 9, Radius = 4;
  std::vector<PointF> Bend{At(4, CenterY - Radius)};  // from inside the head, over the right side, to the lower left
  for (int Degrees = -90; Degrees <= 90; Degrees += 10) {
    const auto Angle = static_cast<float>(Degrees) * std::numbers::pi_v<float> / 180;
    Bend.push_back(At(CenterX + Radius * std::cos(Angle), CenterY + Radius * std::sin(Angle)));
  }
  Bend.push_back(At(6, CenterY + Radius));
  Canvas.DrawLines(Pen(Color, 1.75f), Bend);
  const PointF Head[] = {At(1, CenterY - Radius), At(5.5f, 1), At(5.5f, 9)};
  Canvas.FillPolygon(SolidBrush(Color), Head);
}

}  // namespace

TZyUndoButton::TZyUndoButton(TComponent* Owner) : TZyDropDnButton(Owner) { TakeOwnGlyph(); }

TZyUndoButton::~TZyUndoButton() { Destroying(); }

void TZyUndoButton::LeftClick() {
  if (UndoStack() != nullptr && UndoStack()->CanUndo()) UndoStack()->Undo(0);
}

void TZyUndoButton::RightClick() { ShowListWindow(); }

void TZyUndoButton::DoIdle(TObject*, bool& Done) {
  SetEnabled(UndoStack() != nullptr && UndoStack()->CanUndo());
  Done = true;
}

std::string TZyUndoButton::OwnName() const { return LoadResString(_sUndo); }

void TZyUndoButton::PaintOwnGlyph(Graphics& Canvas, ARGB Color) const { PaintBentArrow(Canvas, Color, false); }

TZyRedoButton::TZyRedoButton(TComponent* Owner) : TZyDropDnButton(Owner) { TakeOwnGlyph(); }

TZyRedoButton::~TZyRedoButton() { Destroying(); }

void TZyRedoButton::LeftClick() {
  if (UndoStack() != nullptr && UndoStack()->CanRedo()) UndoStack()->Redo(0);
}

void TZyRedoButton::RightClick() { ShowListWindow(); }

void TZyRedoButton::DoIdle(TObject*, bool& Done) {
  SetEnabled(UndoStack() != nullptr && UndoStack()->CanRedo());
  Done = true;
}

std::string TZyRedoButton::OwnName() const { return LoadResString(_sRedo); }

void TZyRedoButton::PaintOwnGlyph(Graphics& Canvas, ARGB Color) const { PaintBentArrow(Canvas, Color, true); }

}  // namespace zy
