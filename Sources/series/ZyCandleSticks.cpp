#include "series/ZyCandleSticks.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "graph/parts/ZySeriesGraph.h"
#include "graph/shapes/ZyDrawing.h"
#include "persistence/ZyArchive.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/TPropInfo.h"
#include "series/ZyPointLook.h"

namespace zy {
namespace {

/// Places of colours; those of the lines behind those of the fills.
enum TCandle : std::size_t { Bull, Bear, Flat, Kinds };

TCandle KindOf(double Open, double Close) { return Close > Open ? Bull : Close == Open ? Flat : Bear; }

}  // namespace

/// How candles lie in columns of pixels.
class TZyCandleSticks::TDense {
 public:
  TDense(const TZyCandleSticks& Candles, const TZyRecordLook& Look)
      : FCandles(Candles),
        FClose(Candles.Points()),
        FOpen(Candles.FOpen.Pixels()),
        FHigh(Candles.FHigh.Pixels()),
        FLow(Candles.FLow.Pixels()),
        FHasLine(Look.HasLine),
        FLineWidth(Look.LineWidth),
        FReach((FLineWidth - 1) / 2) {
    const float Half = Look.BarWidth / 2;
    FBody = TZyRecordColumns::OfBox(-Half, -Half + Look.BarWidth);
    FBody.Last = std::max(FBody.First, FBody.Last);
    FWhole = TZyRecordColumns::OfLine(-Half, Half, FLineWidth);
    FLeft = TZyRecordColumns::OfLine(-Half, -Half, FLineWidth);
    FRight = TZyRecordColumns::OfLine(Half, Half, FLineWidth);
    FMiddle = TZyRecordColumns::OfLine(0, 0, FLineWidth);
    for (std::size_t Place = 0; Place < FInks.size(); ++Place) FInks[Place] = Look.InkOf(Place);
  }

  int Reach() const { return std::max({-FWhole.First, FWhole.Last, -FBody.First, FBody.Last}); }

  void Lay(std::size_t Record, TZyRecordColumns& To) const {
    enum { AlongBody, AlongWick };  // lanes
    const float Open = FOpen[Record], Close = FClose[Record].Y, High = FHigh[Record], Low = FLow[Record];
    const float Upper = std::min(Open, Close), Lower = std::max(Open, Close);
    const float Top = std::min(High, Low), Bottom = std::max(High, Low);
    const bool IsThin = Lower - Upper < 1;
    TZyRecordColumns::TSpan Body{Upper, std::max(Upper, Lower - 1)}, Wick;
    if (!FHasLine && TZyRecordColumns::Rounded(Upper) == TZyRecordColumns::Rounded(Lower)) return;
    if (FHasLine) {
      Body = {Upper - FReach, (IsThin ? Upper : Lower) + FReach};
      Wick = {std::min(Top, Upper), std::max(Bottom, Lower)};
    }
    if (To.IsCovered(AlongBody, Body) && To.IsCovered(AlongWick, Wick)) return;
    To.Cover(AlongBody, Body);
    To.Cover(AlongWick, Wick);
    const int Index = FCandles.PointIndex()[Record];
    const TCandle Kind = KindOf(FCandles.OpenData()->GetValue(Index), FCandles.CloseData()->GetValue(Index));
    if (FHasLine) {
      const std::uint8_t Ink = FInks[Kinds + Kind];
      const auto Across = [&](float Y) { To.Put(FWhole, TZyRecordColumns::OfLine(Y, Y, FLineWidth), Ink); };
      const auto Upright = [&](const TZyRecordColumns::TPixels& Columns, float From, float Until) {
        To.Put(Columns, {TZyRecordColumns::Rounded(From), TZyRecordColumns::Rounded(Until)}, Ink);
      };
      Upright(FMiddle, Top, Upper);
      Upright(FMiddle, Lower, Bottom);
      Across(Upper);
      if (!IsThin) {
        Across(Lower);
        Upright(FLeft, Upper, Lower);
        Upright(FRight, Upper, Lower);
      }
    }
    To.Put(FBody, TZyRecordColumns::OfBox(Upper, Lower), FInks[Kind]);
  }

 private:
  const TZyCandleSticks& FCandles;
  std::span<const PointF> FClose;
  std::span<const float> FOpen, FHigh, FLow;
  bool FHasLine;
  float FLineWidth, FReach;
  TZyRecordColumns::TPixels FBody, FWhole, FLeft, FRight, FMiddle;
  std::array<std::uint8_t, TZyRecordLook::MostColors> FInks;
};

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
  const TCandle Kind = KindOf(OpenData()->GetValue(Idx), CloseData()->GetValue(Idx));
  return Kind == Bull ? FBullColor : Kind == Flat ? Colors::Black : FBearColor;
}

void TZyCandleSticks::DrawPoints(Graphics& Gr) {
  TZyRecordLook Look;
  const bool AreDense = HasColumns(Look);
  Look.Colors = {FBullColor, FBearColor, Colors::Black, FBullColor, FBearColor, Colors::Black};
  if (!FShadowsSameColorAsFill && Look.HasLine) std::fill_n(Look.Colors.begin() + Kinds, Kinds, Line().Color());
  if (AreDense && Look.IsOpaque()) return DrawColumns(Gr, TDense(*this, Look), Look);
  DrawEach(Gr);
}

/// A pen of the settings, and one that an application put in their place, takes its colour from candle to candle. A
/// handler that changes the data ends the drawing.
void TZyCandleSticks::DrawEach(Graphics& Gr) {
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
