#include "pie/ZyCalloutBoxes.h"

#include <algorithm>
#include <cmath>

#include "graph/shapes/ZyDrawing.h"

namespace zy {

TZyCalloutBoxes::TZyCalloutBoxes(std::vector<RectF>& Boxes) : FBoxes(Boxes) {
  if (Boxes.empty()) return;
  const auto [First, Last] = std::ranges::minmax(Boxes, {}, &RectF::X);
  FFirst = First.X;
  FWidest = std::ranges::max(Boxes, {}, &RectF::Width).Width;
  FHighest = std::ranges::max(Boxes, {}, &RectF::Height).Height;
  const float Span = Last.X - First.X, Narrowest = Span / static_cast<float>(Boxes.size());
  FColumnWidth = std::max(FWidest, Narrowest);
  if (!(FColumnWidth > 0)) FColumnWidth = 1;
  const std::size_t Count = ColumnOf(Last.X) + 1;
  FBelow.resize(Count);
  FAbove.resize(Count);
  for (std::size_t i = 0; i < Boxes.size(); ++i) {
    if (Boxes[i].Y > 0) FBelow[ColumnOf(Boxes[i].X)].push_back(i);
    if (Boxes[i].Y < 0) FAbove[ColumnOf(Boxes[i].X)].push_back(i);
  }
}

std::size_t TZyCalloutBoxes::ColumnOf(float X) const {
  const float Column = std::floor((X - FFirst) / FColumnWidth);
  return Column > 0 ? static_cast<std::size_t>(Column) : 0;
}

void TZyCalloutBoxes::PushApart(std::vector<bool>& Moved) {
  for (const bool Down : {true, true, false, false}) Push(Down, Moved);
}

void TZyCalloutBoxes::Push(bool Down, std::vector<bool>& Moved) {
  std::vector<std::vector<std::size_t>>& Columns = Down ? FBelow : FAbove;
  for (std::size_t Step = 0; Step < FBoxes.size(); ++Step) {
    const std::size_t i = Down ? Step : FBoxes.size() - 1 - Step;
    const RectF Box = FBoxes[i];
    if (Down ? Box.Y + Box.Height < 0 : Box.Y > FHighest) continue;  // too far from the boxes of that side
    const std::size_t Last = std::min(ColumnOf(Box.X + Box.Width), Columns.size() - 1);
    for (std::size_t Column = ColumnOf(Box.X - FWidest); Column <= Last; ++Column)
      for (const std::size_t j : Columns[Column]) {
        RectF& Other = FBoxes[j];
        const bool Comes = Down ? Other.Y >= Box.Y : Other.Y <= Box.Y && Other.Y < 0;  // one may have come down
        if (j == i || !Comes || !RectanglesOverlaping(Box, Other)) continue;
        Other.Y = Down ? Box.Y + Box.Height : Box.Y - Box.Height;
        Moved[j] = true;
      }
  }
}

}  // namespace zy
