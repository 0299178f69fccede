#include "series/ZyOHLC.h"

#include <cmath>

#include "graph/parts/ZySeriesGraph.h"
#include "graph/shapes/ZyDrawing.h"
#include "persistence/ZyArchive.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/TPropInfo.h"
#include "series/ZyPointLook.h"

namespace zy {

ZY_PUBLISHED(TZyOHLC, TZyCustomOHLC,
             Published<&Self::IndicatorLength, &Self::SetIndicatorLength>("IndicatorLength", 5.0f,
                                                                          _sOHLCIndicatorLength),
             Republished("Area OnGetBrush"))

TZyOHLC::TZyOHLC(TComponent* Owner) : TZyCustomOHLC(Owner) {
  Initialize(StaticClassInfo().Name());
  Line().SetColor(Colors::DarkBlue);
  Area().SetForeColor(Colors::DarkBlue);
  Area().SetVisible(true);
}

void TZyOHLC::Fields(TZyArchive& Archive) {
  TZyCustomOHLC::Fields(Archive);
  Archive.Level("OHLC", *this, "IndicatorLength");
}

void TZyOHLC::DrawPoints(Graphics& Gr) {
  const float Half = BarWidth() / 2;
  TZyPointLook Look(*this);
  for (std::size_t i = 0; i < Points().size(); ++i) {
    const PointF Close = Points()[i];
    const float Top = TopOf(i), Open = FOpen.Pixels()[i], Left = Close.X - Half, Right = Close.X + Half;
    const RectF Bar{Left, Top, BarWidth(), BottomOf(i) - Top};
    if (Look.AskBrush(i)) Gr.FillRectangle(Look.Brush(), Bar);
    if (!Look.AskPen(i)) continue;
    Gr.DrawRectangle(Look.Pen(), Bar);
    Gr.DrawLine(Look.Pen(), Left, Open, Left - FIndicatorLength, Open);
    Gr.DrawLine(Look.Pen(), Right, Close.Y, Right + FIndicatorLength, Close.Y);
  }
}

float TZyOHLC::GetItemHeight() const { return std::round(2 * FIndicatorLength + BarWidth() + 2); }

/// A bar that lies on its side.
void TZyOHLC::DrawListItem(const TZyLegendItemDrawArgs& e, LegendItemStyle) {
  Graphics& Gr = *e.Graphics;
  const RectF R = TRectToRectF(e.Rect);
  const float Top = R.Height / 2 + R.Y - 1 - BarWidth() / 2, Bottom = Top + BarWidth();
  if (Area().Visible()) {
    const auto Fitting = AreaBrush() == nullptr ? Area().GetBrush(R) : nullptr;  // before the first paint
    Gr.FillRectangle(Fitting ? *Fitting : *AreaBrush(), R.X, Top, R.Width, BarWidth());
  }
  if (!Line().Visible()) return;
  const auto Pen = Line().GetPen(R, 0);
  const float Edge = LinePen() == nullptr ? Pen->Width() : LinePen()->Width();
  Gr.DrawRectangle(*Pen, R.X + Edge / 2, Top, R.Width - Edge, BarWidth());
  Gr.DrawLine(*Pen, R.X + R.Width / 4, Top, R.X + R.Width / 4, Top - FIndicatorLength);
  Gr.DrawLine(*Pen, R.X + R.Width * 3 / 4, Bottom, R.X + R.Width * 3 / 4, Bottom + FIndicatorLength);
}

}  // namespace zy
