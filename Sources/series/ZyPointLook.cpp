#include "series/ZyPointLook.h"

#include "series/ZySeries.h"

namespace zy {
namespace {

/// Runs an event for a kept point, with what all events have.
template <class THandler, class TArgs>
void Ask(TZySeries& Series, const THandler& Handler, TArgs& Args, std::size_t Pixel) {
  if (!Handler) return;
  const TZySeries::TPointValues Values = Series.ValuesOfPixel(Series.PointIndex()[Pixel], Series.Points()[Pixel].X);
  Args.Index = Values.Index;
  Args.X = Values.X;
  Args.Y = Values.Y;
  Handler(&Series, Args);
}

}  // namespace

void TZyPointLook::Reset() {
  FBrush.Brush = FSeries.AreaBrush();
  FBrush.Visible = FSeries.Area().Visible();
  FPen.Pen = FSeries.LinePen();
  FPen.Visible = FSeries.Line().Visible();
}

bool TZyPointLook::AskBrush(std::size_t Pixel) {
  Ask(FSeries, FSeries.OnGetBrush(), FBrush, Pixel);
  return FBrush.Visible && FBrush.Brush != nullptr;
}

bool TZyPointLook::AskPen(std::size_t Pixel) {
  Ask(FSeries, FSeries.OnGetPen(), FPen, Pixel);
  return FPen.Visible && FPen.Pen != nullptr;
}

}  // namespace zy
