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
enum TTrend : std::size_t { Bull, Bear, Flat, Trends };

TTrend TrendOf(double Open, double Close) { return Close > Open ? Bull : Close == Open ? Flat : Bear; }

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
        FReach(TZyRecordColumns::ReachOf(FLineWidth)) {
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

  bool IsHidden(std::size_t Record, const TZyRecordColumns& To) const {
    const TCandle One = At(Record);
    return To.IsCovered(AlongBody, BodyOf(One)) && To.IsCovered(AlongWick, WickOf(One));
  }

  void Lay(std::size_t Record, TZyRecordColumns& To) const {
    const TCandle One = At(Record);
    To.Cover(AlongBody, BodyOf(One));
    To.Cover(AlongWick, WickOf(One));
    const int Index = FCandles.PointIndex()[Record];
    const TTrend Trend = TrendOf(FCandles.OpenData()->GetValue(Index), FCandles.CloseData()->GetValue(Index));
    if (FHasLine) {
      const std::uint8_t Ink = FInks[Trends + Trend];
      const auto Across = [&](float Y) { To.Put(FWhole, TZyRecordColumns::OfLine(Y, Y, FLineWidth), Ink); };
      const auto Upright = [&](const TZyRecordColumns::TPixels& Columns, float From, float Until) {
        const auto [First, Last] = std::minmax({TZyRecordColumns::Rounded(From), TZyRecordColumns::Rounded(Until)});
        To.Put(Columns, {First, Last}, Ink);
      };
      Upright(FMiddle, One.Top, One.Upper);
      Upright(FMiddle, One.Lower, One.Bottom);
      Across(One.Upper);
      if (!One.IsThin()) {
        Across(One.Lower);
        Upright(FLeft, One.Upper, One.Lower);
        Upright(FRight, One.Upper, One.Lower);
      }
    }
    To.Put(FBody, TZyRecordColumns::OfBox(One.Upper, One.Lower), FInks[Trend]);
  }

 private:
  enum TLane : std::size_t { AlongBody, AlongWick };
  struct TCandle {
    float Top, Upper, Lower, Bottom;
    bool IsThin() const { return Lower - Upper < 1; }
  };

  TCandle At(std::size_t Record) const {
    const float Open = FOpen[Record], Close = FClose[Record].Y, High = FHigh[Record], Low = FLow[Record];
    return {std::min(High, Low), std::min(Open, Close), std::max(Open, Close), std::max(High, Low)};
  }
  /// A body without a line that covers no row is nothing.
  TZyRecordColumns::TSpan BodyOf(const TCandle& One) const {
    if (FHasLine) return {One.Upper - FReach, (One.IsThin() ? One.Upper : One.Lower) + FReach};
    if (TZyRecordColumns::Rounded(One.Upper) == TZyRecordColumns::Rounded(One.Lower)) return {};
    return {One.Upper, std::max(One.Upper, One.Lower - 1)};
  }
  TZyRecordColumns::TSpan WickOf(const TCandle& One) const {
    if (!FHasLine) return {};
    return {std::min(One.Top, One.Upper), std::max(One.Bottom, One.Lower)};
  }

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
  const TTrend Trend = TrendOf(OpenData()->GetValue(Idx), CloseData()->GetValue(Idx));
  return Trend == Bull ? FBullColor : Trend == Flat ? Colors::Black : FBearColor;
}

void TZyCandleSticks::DrawPoints(Graphics& Gr) {
  TZyRecordLook Look;
  const bool AreDense = HasColumns(Look);
  Look.Colors = {FBullColor, FBearColor, Colors::Black, FBullColor, FBearColor, Colors::Black};
  if (!FShadowsSameColorAsFill && Look.HasLine) std::fill_n(Look.Colors.begin() + Trends, Trends, Line().Color());
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
