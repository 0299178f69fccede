#include "annotations/ZyRichCaption.h"

#include "platform/drawing/Brush.h"
#include "platform/drawing/Graphics.h"

namespace zy {

void TZyRichCaptionObject::ParseForSize() {
  const SizeF Size = FCaption.empty() ? SizeF{} : FFont.AsFont().MeasureString(FCaption);
  FWidth = Size.Width;
  FHeight = Size.Height;
}

void TZyRichCaptionObject::PaintGr(Graphics& Gr) const {
  if (FCaption.empty()) return;
  const int Row = static_cast<int>(Alignment) / 3, Column = static_cast<int>(Alignment) % 3;
  const float Left = -FWidth * static_cast<float>(Column) / 2;
  const float Top = -FHeight * static_cast<float>(Row) / 2;
  const SolidBrush Fill(FFont.FillColor());
  if (Angle == 0) return Gr.DrawString(FCaption, FFont.AsFont(), Fill, X + Left, Y + Top);
  const Matrix Saved = Gr.GetTransform();
  Gr.TranslateTransform(X, Y);
  Gr.RotateTransform(-Angle);
  Gr.DrawString(FCaption, FFont.AsFont(), Fill, Left, Top);
  Gr.SetTransform(Saved);
}

}  // namespace zy
