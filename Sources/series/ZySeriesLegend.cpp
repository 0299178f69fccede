// Items of a legend that stand for a series.

#include <algorithm>
#include <cmath>
#include <optional>

#include "graph/parts/ZySeriesGraph.h"
#include "graph/shapes/ZyDrawing.h"
#include "platform/drawing/Graphics.h"
#include "series/ZyFunctionSeries.h"

namespace zy {
namespace {

bool IsDiagonal(LegendItemStyle Style) {
  return Style == LegendItemStyle::AscendingDiagonal || Style == LegendItemStyle::DescendingDiagonal;
}

}  // namespace

float TZySeries::GetItemHeight() const {
  constexpr float AreaHeight = 6, SymbolMargin = 2;
  float Result = FLineSettings->Visible() ? std::round(FLineSettings->Width()) : 0;
  if (FAreaSettings->Visible()) Result += AreaHeight;
  if (FPointSymbolSettings->Visible())
    Result = std::max(Result, std::round(FPointSymbolSettings->Size()) + SymbolMargin);
  return Result;
}

void TZySeries::DrawListItem(const TZyLegendItemDrawArgs& e) {
  const bool HasMarks = FLineSettings->Visible() || FPointSymbolSettings->Visible();
  DrawListItem(e, HasMarks ? LegendItemStyle::HalfHorizontal : LegendItemStyle::Filled);
}

void TZySeries::DrawListItem(const TZyLegendItemDrawArgs& e, LegendItemStyle Style) {
  Graphics& Gr = *e.Graphics;
  const RectF R = TRectToRectF(e.Rect);
  const TZyPointSymbolSettings& Inside = *FPointSymbolSettings;
  const bool ShowsBoth = RangeFromFunction() != nullptr;
  PointF P1{R.X + R.Width / 2, R.Y + R.Height / 2}, P2 = P1;
  if (ShowsBoth) {
    P1.X -= R.Width / 4;
    P2.X = P1.X + R.Width / 2;
    if (IsDiagonal(Style)) {
      const float Up = Style == LegendItemStyle::AscendingDiagonal ? R.Height / 2 : -R.Height / 2;
      P1.Y += Up / 2;
      P2.Y = P1.Y - Up;
    }
  }
  std::optional<Region> OriginalClip;
  if (Inside.Visible() && HasTranslucentSymbols()) {
    OriginalClip = Gr.GetClip();
    ExcludeSymbolSpace(Gr, P1.X, P1.Y, Inside.Size(), Inside.PointSymbol());
    if (ShowsBoth) ExcludeSymbolSpace(Gr, P2.X, P2.Y, Inside.Size(), Inside.PointSymbol());
    if (Style == LegendItemStyle::Filled) Style = LegendItemStyle::HalfHorizontal;
  }
  const bool Ascends = Style == LegendItemStyle::AscendingDiagonal;
  const PointF LowLeft{R.X, R.Y + R.Height}, LowRight{R.X + R.Width, R.Y + R.Height};
  const PointF From = Ascends ? LowLeft : PointF{R.X, R.Y}, To = Ascends ? PointF{R.X + R.Width, R.Y} : LowRight;
  if (FAreaSettings->Visible()) {
    const auto AreaFill = FAreaSettings->GetBrush(R);
    if (Style == LegendItemStyle::Filled) {
      Gr.FillRectangle(*AreaFill, R);
    } else if (Style == LegendItemStyle::HalfHorizontal) {
      Gr.FillRectangle(*AreaFill, R.X, R.Y + R.Height / 2, R.Width, R.Height / 2);
    } else {
      const PointF Triangle[] = {From, To, Ascends ? LowRight : LowLeft};
      Gr.FillPolygon(FBrush ? *FBrush : *AreaFill, Triangle);
    }
  }
  if (FLineSettings->Visible()) {
    const auto LineOfItem = FLineSettings->GetPen(R, 0);
    if (IsDiagonal(Style)) {
      Gr.DrawLine(*LineOfItem, From.X, From.Y, To.X, To.Y);
    } else {
      Gr.DrawLine(*LineOfItem, R.X, R.Y + R.Height / 2, R.X + R.Width, R.Y + R.Height / 2);
    }
  }
  if (OriginalClip) Gr.SetClip(*OriginalClip);
  if (!Inside.Visible()) return;
  DrawPointSymbol(Gr, *FSymbolPen, *FSymbolBrush, P1.X, P1.Y, Inside.Size(), Inside.PointSymbol());
  if (ShowsBoth)
    DrawPointSymbol(Gr, OutOfRangePen(), OutOfRangeBrush(), P2.X, P2.Y, Inside.Size(), Inside.PointSymbol());
}

void TZySeries::DrawMergedItems(const TZyLegendItemDrawArgs& e) {
  using enum LegendItemStyle;
  std::vector<TZySeries*> Members;
  if (Graph() != nullptr && FMergeLegendItemWith == nullptr) {
    Members.push_back(this);
  } else if (Graph() != nullptr) {
    Graph()->ForEachSeries([&](TZySeries& Each) {
      if (&Each == this || &Each == FMergeLegendItemWith) Members.push_back(&Each);
    });
  }
  const auto HasLine = [](const TZySeries* Series) { return Series->FLineSettings->Visible(); };
  const auto HasArea = [](const TZySeries* Series) { return Series->FAreaSettings->Visible(); };
  const auto Lines = std::count_if(Members.begin(), Members.end(), HasLine);
  const auto Areas = std::count_if(Members.begin(), Members.end(), HasArea);
  const auto Most = std::max(Lines, Areas);
  int Shown = 0;  // members with a line or an area so far
  for (TZySeries* Member : Members) {
    if (!Member->FVisible) continue;
    if (Shown > 2 || (Shown == 0 && ((Areas == 1 && Lines == 0) || Most < 2))) {
      Member->DrawListItem(e);
    } else if (Shown == 0) {
      Member->DrawListItem(e, Most == 2 ? HalfHorizontal : DescendingDiagonal);
    } else if (Shown == 1) {
      Member->DrawListItem(e, Most < 3 ? AscendingDiagonal : HalfHorizontal);
    } else {
      Member->DrawListItem(e, AscendingDiagonal);
    }
    if (HasLine(Member) || HasArea(Member)) ++Shown;
  }
}

}  // namespace zy
