#include "series/ZyPointLook.h"

#include "series/ZySeries.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {

TZyPointLook::TZyPointLook(TZySeries& Series)
    : FSeries(Series), FHandle(Series.LiveHandle()), mGetPen(Series.OnGetPen()), mGetBrush(Series.OnGetBrush()) {
  Reset();
}

void TZyPointLook::TestAlive(std::uint64_t Series) {
  if (TPersistent::FromLiveHandle(Series) == nullptr) throw EAbort(LoadResString(_sSeriesFreed));
}

void TZyPointLook::TestDrawn(std::uint64_t Series) {
  TestAlive(Series);
  if (dynamic_cast<const TZySeries&>(*TPersistent::FromLiveHandle(Series)).Graph() == nullptr)
    throw EAbort(LoadResString(_sSeriesFreed));
}

void TZyPointLook::Reset() {
  FOwnPen = FSeries.FPen.Shared();
  FOwnBrush = FSeries.FBrush.Shared();
  FBrush.Brush = FSeries.AreaBrush();
  FBrush.Visible = FSeries.Area().Visible();
  FPen.Pen = FSeries.LinePen();
  FPen.Visible = FSeries.Line().Visible();
}

/// Runs an event for a kept point, with what all events have. False when there is no such point any more.
template <class THandler, class TArgs>
bool TZyPointLook::Ask(const THandler& Handler, TArgs& Args, std::size_t Pixel) {
  if (FSeries.RecalculatePoints() || Pixel >= FSeries.Points().size()) return false;
  if (!Handler) return true;
  const TZySeries::TPointValues Values = FSeries.ValuesOfPixel(FSeries.PointIndex()[Pixel], FSeries.Points()[Pixel].X);
  Args.Index = Values.Index;
  Args.X = Values.X;
  Args.Y = Values.Y;
  Handler(&FSeries, Args);
  TestDrawn(FHandle);
  return true;
}

void TZyPointLook::ResetBrush() {
  FOwnBrush = FSeries.FBrush.Shared();
  FBrush.Brush = FSeries.AreaBrush();
}

float TZyPointLook::PenWidth() const { return FPen.Pen == nullptr ? 0 : FPen.Pen->Width(); }

bool TZyPointLook::AskBrush(std::size_t Pixel) {
  return Ask(mGetBrush, FBrush, Pixel) && FBrush.Visible && FBrush.Brush != nullptr;
}

bool TZyPointLook::AskPen(std::size_t Pixel) {
  return Ask(mGetPen, FPen, Pixel) && FPen.Visible && FPen.Pen != nullptr;
}

}  // namespace zy
