#include "series/ZyCandleSticks.h"

#include <cmath>

#include "graph/parts/ZySeriesGraph.h"
#include "graph/shapes/ZyDrawing.h"
#include "persistence/ZyArchive.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/TPropInfo.h"
#include "series/ZyPointLook.h"

namespace zy {

ZY_PUBLISHED(TZyCandleSticks, TZyCustomOHLC,
             Published<&Self::BullColor, &Self::SetBullColor>("BullColor", Colors::Green, _sCandlesBullColor),
             Published<&Self::BearColor, &Self::SetBearColor>("BearColor", Colors::Red, _sCandlesBearColor),
             Published<&Self::ShadowsSameColorAsFill, &Self::SetShadowsSameColorAsFill>(
                 "ShadowsSameColorAsFill", false, _sCandlesShadowsSameColorAsFill))

TZyCandleSticks::TZyCandleSticks(TComponent* Owner) : TZyCustomOHLC(Owner) {
  constexpr float Width = 6;
  Initialize(StaticClassInfo().Name());
  SetBarWidth(Width);
  Line().SetColor(Colors::Black);
}

void TZyCandleSticks::Fields(TZyArchive& Archive) {
  TZyCustomOHLC::Fields(Archive);
  Archive.Level("CandleSticks", *this, "BullColor BearColor ShadowsSameColorAsFill");
}

TZyColor TZyCandleSticks::ColorOf(int Idx) const {
  const double Open = OpenData()->GetValue(Idx), Close = CloseData()->GetValue(Idx);
  return Close > Open ? FBullColor : Close == Open ? Colors::Black : FBearColor;
}

/// A pen of the settings, and one that an application put in their place, takes its colour from candle to candle. A
/// handler that changes the data ends the drawing.
void TZyCandleSticks::DrawPoints(Graphics& Gr) {
  const float Half = BarWidth() / 2;
  TZyPen Pen = *LinePen();
  SolidBrush Fill(Colors::Black);
  TZyPointLook Look(*this);
  Look.SetPen(Pen);
  for (std::size_t i = 0; i < Points().size() && !RecalculatePoints(); ++i) {
    const auto [X, Close] = Points()[i];
    const auto [Upper, Lower] = std::minmax({FOpen.Pixels()[i], Close});
    const float Top = TopOf(i), Bottom = BottomOf(i);
    const RectF Body{X - Half, Upper, BarWidth(), Lower - Upper};
    Fill.SetColor(ColorOf(PointIndex()[i]));
    Pen.SetColor(FShadowsSameColorAsFill ? Fill.GetColor() : Line().Color());
    Gr.FillRectangle(Fill, Body);
    if (!Look.AskPen(i)) continue;
    if (Body.Height < 1)
      Gr.DrawLine(Look.Pen(), X - Half, Upper, X + Half, Upper);
    else
      Gr.DrawRectangle(Look.Pen(), Body);
    Gr.DrawLine(Look.Pen(), X, Lower, X, Bottom);
    Gr.DrawLine(Look.Pen(), X, Upper, X, Top);
  }
}

float TZyCandleSticks::GetItemHeight() const { return std::round(BarWidth() + 2); }

void TZyCandleSticks::DrawListItem(const TZyLegendItemDrawArgs& e, LegendItemStyle) {
  Graphics& Gr = *e.Graphics;
  const RectF R = TRectToRectF(e.Rect);
  const float Middle = R.Height / 2 + R.Y - 1, Top = Middle - BarWidth() / 2, Quarter = R.Width / 4;
  Gr.FillRectangle(SolidBrush(FBullColor), R.X + Quarter, Top, Quarter, BarWidth());
  Gr.FillRectangle(SolidBrush(FBearColor), R.X + R.Width / 2, Top, Quarter, BarWidth());
  if (!Line().Visible()) return;
  const auto Pen = Line().GetPen(R, 0);
  if (FShadowsSameColorAsFill)
    Pen->SetColor(FBullColor);
  else
    Gr.DrawRectangle(*Pen, R.X + Quarter, Top, R.Width / 2, BarWidth());
  Gr.DrawLine(*Pen, R.X, Middle, R.X + Quarter, Middle);
  if (FShadowsSameColorAsFill) Pen->SetColor(FBearColor);
  Gr.DrawLine(*Pen, R.X + 3 * Quarter, Middle, R.X + R.Width, Middle);
}

}  // namespace zy
