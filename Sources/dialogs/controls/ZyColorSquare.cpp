#include "dialogs/controls/ZyColorSquare.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "platform/drawing/Brush.h"
#include "platform/drawing/Graphics.h"
#include "platform/drawing/Pen.h"

namespace zy {

void DrawColorSquare(Graphics& Canvas, const RectF& Box, TZyColor Color) {
  const SolidBrush White(Colors::White), Black(Colors::Black);
  const float HalfWidth = std::floor((Box.Width - 2) / 2), HalfHeight = std::floor((Box.Height - 2) / 2);
  const RectF Inside{Box.X + 1, Box.Y + 1, Box.Width - 2, Box.Height - 2};
  Canvas.SetSmoothingMode(SmoothingModeNone);
  Canvas.FillRectangle(White, Inside);
  Canvas.FillRectangle(Black, Inside.X, Inside.Y, HalfWidth, HalfHeight);
  Canvas.FillRectangle(Black, Inside.X + Inside.Width - HalfWidth, Inside.Y + Inside.Height - HalfHeight, HalfWidth,
                       HalfHeight);
  Canvas.FillRectangle(SolidBrush(Color), Inside);
  constexpr TZyColor Frame = 0xFF808080;
  Canvas.DrawRectangle(Pen(Frame, 1), Box.X, Box.Y, Box.Width - 1, Box.Height - 1);
}

void DrawChequer(Graphics& Canvas, const RectF& Box, float Cell) {
  Canvas.FillRectangle(SolidBrush(Colors::White), Box);
  std::vector<RectF> Cells;
  for (int Row = 0; static_cast<float>(Row) * Cell < Box.Height; ++Row)
    for (int Column = 1 - Row % 2; static_cast<float>(Column) * Cell < Box.Width; Column += 2) {
      const float X = static_cast<float>(Column) * Cell, Y = static_cast<float>(Row) * Cell;
      Cells.push_back({Box.X + X, Box.Y + Y, std::min(Cell, Box.Width - X), std::min(Cell, Box.Height - Y)});
    }
  Canvas.FillRectangles(SolidBrush(Colors::Black), Cells);
}

}  // namespace zy
