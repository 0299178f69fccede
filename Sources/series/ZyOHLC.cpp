#include "series/ZyOHLC.h"

#include <algorithm>
#include <cmath>

#include "graph/parts/ZySeriesGraph.h"
#include "graph/shapes/ZyDrawing.h"
#include "persistence/ZyArchive.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/TPropInfo.h"
#include "series/ZyPointLook.h"

namespace zy {

/// How bars lie in columns of pixels.
class TZyOHLC::TDense {
 public:
  /// Places of colours.
  enum { Fill, Outline };

  TDense(const TZyOHLC& Bars, const TZyRecordLook& Look)
      : FClose(Bars.Points()),
        FOpen(Bars.FOpen.Pixels()),
        FHigh(Bars.FHigh.Pixels()),
        FLow(Bars.FLow.Pixels()),
        FHasFill(Look.HasFill),
        FHasLine(Look.HasLine),
        FLineWidth(Look.LineWidth),
        FReach(TZyRecordColumns::ReachOf(FLineWidth)),
        FFillInk(Look.InkOf(Fill)),
        FLineInk(Look.InkOf(Outline)) {
    const float Half = Look.BarWidth / 2, End = Half + Look.Overhang;
    FBar = TZyRecordColumns::OfBox(-Half, -Half + Look.BarWidth);
    FBar.Last = std::max(FBar.First, FBar.Last);
    FWhole = TZyRecordColumns::OfLine(-Half, Half, FLineWidth);
    FLeft = TZyRecordColumns::OfLine(-Half, -Half, FLineWidth);
    FRight = TZyRecordColumns::OfLine(Half, Half, FLineWidth);
    FOpenTick = {TZyRecordColumns::Rounded(-End), TZyRecordColumns::Rounded(-Half)};
    FCloseTick = {TZyRecordColumns::Rounded(Half), TZyRecordColumns::Rounded(End)};
  }

  int Reach() const {
    return std::max({-FWhole.First, FWhole.Last, -FBar.First, FBar.Last, -FOpenTick.First, FCloseTick.Last});
  }

  /// All at once, since hardly any place of a tick is guessed right.
  bool IsHidden(std::size_t Record, const TZyRecordColumns& To) const {
    if (!FHasLine || !FHasFill) return false;
    const auto [Top, Bottom] = BarOf(Record);
    const int Covered = static_cast<int>(To.IsCovered(AlongBar, {Top - FReach, Bottom + FReach})) +
                        static_cast<int>(To.HasLineAt(AtOpen, FirstRow(FOpen[Record]))) +
                        static_cast<int>(To.HasLineAt(AtClose, FirstRow(FClose[Record].Y)));
    return Covered == 3;
  }

  void Lay(std::size_t Record, TZyRecordColumns& To) const {
    const auto [Top, Bottom] = BarOf(Record);
    if (FHasLine) {
      LayLine(AtClose, FCloseTick, FClose[Record].Y, To);
      LayLine(AtOpen, FOpenTick, FOpen[Record], To);
    }
    if (FHasLine && FHasFill) {
      LayBar({Top - FReach, Bottom + FReach}, Top, Bottom, To);
    } else if (FHasLine) {
      LayLine(AtEdges, FWhole, Top, To);
      LayLine(AtEdges, FWhole, Bottom, To);
      LayBar({Top, Bottom}, Top, Bottom, To);
    } else if (TZyRecordColumns::Rounded(Top) != TZyRecordColumns::Rounded(Bottom)) {
      LayBar({Top, std::max(Top, Bottom - 1)}, Top, Bottom, To);
    }
  }

 private:
  using TRows = TZyRecordColumns::TPixels;
  enum TLane : std::size_t { AlongBar, AtOpen, AtClose, AtEdges };

  TRows RowsAt(float Y) const { return TZyRecordColumns::OfLine(Y, Y, FLineWidth); }

  TZyRecordColumns::TSpan BarOf(std::size_t Record) const {
    const float High = FHigh[Record], Low = FLow[Record];
    return {std::min(High, Low), std::max(High, Low)};
  }
  int FirstRow(float Y) const { return TZyRecordColumns::Rounded(Y - FReach); }

  void LayLine(TLane Lane, const TZyRecordColumns::TPixels& Columns, float Y, TZyRecordColumns& To) const {
    if (To.HasLineAt(Lane, FirstRow(Y))) return;
    To.NoteLine(Lane, FirstRow(Y));
    To.Put(Columns, RowsAt(Y), FLineInk);
  }

  void LayBar(const TZyRecordColumns::TSpan& Span, float Top, float Bottom, TZyRecordColumns& To) const {
    if (To.IsCovered(AlongBar, Span)) return;
    To.Cover(AlongBar, Span);
    if (FHasLine) {
      const TRows Rows{TZyRecordColumns::Rounded(Top), TZyRecordColumns::Rounded(Bottom)};
      if (FHasFill) To.Put(FWhole, RowsAt(Top), FLineInk);
      if (FHasFill) To.Put(FWhole, RowsAt(Bottom), FLineInk);
      To.Put(FLeft, Rows, FLineInk);
      To.Put(FRight, Rows, FLineInk);
    }
    if (FHasFill) To.Put(FBar, TZyRecordColumns::OfBox(Top, Bottom), FFillInk);
  }

  std::span<const PointF> FClose;
  std::span<const float> FOpen, FHigh, FLow;
  bool FHasFill, FHasLine;
  float FLineWidth, FReach;
  std::uint8_t FFillInk, FLineInk;
  TZyRecordColumns::TPixels FBar, FWhole, FLeft, FRight, FOpenTick, FCloseTick;
};

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
  TZyRecordLook Look;
  const auto* const Fill = dynamic_cast<const SolidBrush*>(AreaBrush());
  Look.HasFill = Area().Visible();
  const bool HasColors = (!Look.HasFill || Fill != nullptr) && GetAlpha(LinePen()->Color()) > 0;
  if (HasColumns(Look) && HasColors) {
    Look.Colors.fill(Look.HasLine ? LinePen()->Color() : Fill != nullptr ? Fill->GetColor() : Colors::Black);
    if (Look.HasFill && Fill != nullptr) Look.Colors[TDense::Fill] = Fill->GetColor();
    if (Look.IsOpaque()) return DrawColumns(Gr, TDense(*this, Look), Look);
  }
  DrawEach(Gr);
}

void TZyOHLC::DrawEach(Graphics& Gr) {
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
    const Brush* const Own = AreaBrush();
    const auto Fitting = Own == nullptr ? Area().GetBrush(R) : nullptr;  // before the first paint
    Gr.FillRectangle(Own != nullptr ? *Own : *Fitting, R.X, Top, R.Width, BarWidth());
  }
  if (!Line().Visible()) return;
  const auto Pen = Line().GetPen(R, 0);
  const float Edge = LinePen() == nullptr ? Pen->Width() : LinePen()->Width();
  Gr.DrawRectangle(*Pen, R.X + Edge / 2, Top, R.Width - Edge, BarWidth());
  Gr.DrawLine(*Pen, R.X + R.Width / 4, Top, R.X + R.Width / 4, Top - FIndicatorLength);
  Gr.DrawLine(*Pen, R.X + R.Width * 3 / 4, Bottom, R.X + R.Width * 3 / 4, Bottom + FIndicatorLength);
}

}  // namespace zy
