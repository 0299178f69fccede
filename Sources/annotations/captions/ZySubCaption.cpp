#include "annotations/captions/ZySubCaption.h"

#include "platform/drawing/Brush.h"
#include "platform/drawing/Graphics.h"
#include "platform/drawing/Pen.h"

namespace zy {
namespace {

constexpr TZyColor ShadowColor = 0x24000000;
constexpr int ShadowCopies = 9;
constexpr PointF ShadowStep{0.4f, 0.3f};
constexpr TZyColor DarkEdge = 0x5A000000;
constexpr TZyColor LightEdge = 0xD2FFFFFF;
/// Size of the letters' shapes in pixels for each point of the font: somewhat larger than the letters themselves.
constexpr float ShapePixelsPerPoint = 1.625f;

void FillMoved(Graphics& Gr, TZyColor Color, const GraphicsPath& Shape, float Distance) {
  const Matrix Saved = Gr.GetTransform();
  Gr.TranslateTransform(Distance, Distance);
  Gr.FillPath(SolidBrush(Color), Shape);
  Gr.SetTransform(Saved);
}

}  // namespace

void TZySubCaption::PaintGr(Graphics& Gr, Brush& Fill) const {
  if (auto* const Solid = dynamic_cast<SolidBrush*>(&Fill)) Solid->SetColor(Color);
  if (DrawEffects == TZyCharDrawEffects{TZyCharDrawEffect::Shadow}) {
    PaintShadow(Gr);
  } else if (!DrawEffects.Empty()) {
    return PaintShape(Gr, Fill);
  }
  Gr.DrawString(Caption, RunFont, Fill, Position.X, Position.Y, StringFormat::GenericDefault());
}

void TZySubCaption::PaintShadow(Graphics& Gr) const {
  const Matrix Saved = Gr.GetTransform();
  const SolidBrush Dark(ShadowColor);
  for (int Copy = 0; Copy < ShadowCopies; ++Copy) {
    Gr.TranslateTransform(ShadowStep.X, ShadowStep.Y);
    Gr.DrawString(Caption, RunFont, Dark, Position.X, Position.Y, StringFormat::GenericDefault());
  }
  Gr.SetTransform(Saved);
}

/// The edges of a raised or lowered letter show only beside it. Shapes are as smooth as letters are, whatever else in
/// the picture is not.
void TZySubCaption::PaintShape(Graphics& Gr, const Brush& Fill) const {
  const float Size = RunFont.GetSize() * ShapePixelsPerPoint;
  GraphicsPath Shape;
  Shape.AddString(Caption, FontName(), RunFont.GetStyle(), Size,
                  {Position.X + StringFormat::GenericDefault().Padding() * Size, Position.Y});
  const SmoothingMode Saved = Gr.GetSmoothingMode();
  Gr.SetSmoothingMode(SmoothingModeAntiAlias);
  if (DrawEffects.Contains(TZyCharDrawEffect::Outline)) {
    Gr.DrawPath(Pen(Fill, 1), Shape);
  } else {
    const float Away = DrawEffects.Contains(TZyCharDrawEffect::Raised) ? 1.0f : -1.0f;
    const Region SavedClip = Gr.GetClip();
    Gr.ExcludeClip(Region(Shape));
    FillMoved(Gr, DarkEdge, Shape, Away);
    FillMoved(Gr, LightEdge, Shape, -Away);
    Gr.SetClip(SavedClip);
  }
  Gr.SetSmoothingMode(Saved);
}

}  // namespace zy
