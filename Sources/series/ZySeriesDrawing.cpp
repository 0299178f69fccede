// Drawing of a series from its list of pixels, and hit tests in it.

#include <cmath>
#include <limits>
#include <optional>

#include "graph/parts/ZySeriesGraph.h"
#include "graph/shapes/ZyDrawing.h"
#include "platform/drawing/ClipGuard.h"
#include "series/ZyFunctionSeries.h"
#include "series/ZyPointLook.h"

namespace zy {
namespace {

constexpr unsigned Opaque = 255;

bool IsTranslucent(const TZyPointSymbolSettings& Settings) { return GetAlpha(Settings.FillColor()) < Opaque; }

}  // namespace

TZySeries::TPointValues TZySeries::ValuesOfPixel(int Index, float) const { return {Index, FX.At(Index), FY.At(Index)}; }

bool TZySeries::HasTranslucentSymbols() const {
  return IsTranslucent(*FPointSymbolSettings) || IsTranslucent(*FOutOfRangeSymbolSettings);
}

void TZySeries::PaintGr(Graphics& Gr) {
  if (SeriesVisible()) PaintPoints(Gr);
}

void TZySeries::PaintPoints(Graphics& Gr) {
  if (Graph() == nullptr || FXAxis == nullptr || FYAxis == nullptr) return;
  if (IsBandStale()) FState.PixelsModified();
  if (FState.PixelsAreStale()) CalculatePoints();
  if (FPointCount == 0) return;
  if (!FPen.Get() || !FBrush.Get()) TestVisibleChanged();
  DrawPoints(Gr);
}

void TZySeries::DrawPoints(Graphics& Gr) {
  if (FPointCount >= FewestPointsOfLine()) {
    std::optional<TClipGuard> Clip;
    if (HasTranslucentSymbols()) {
      Clip.emplace(Gr);
      ShootHolesToClip(Gr);
    }
    DrawLine(Gr);
  }
  if (!SymbolsCoverThemselves()) DrawSymbols(Gr);
}

/// The graph draws the symbols once more above the axes. Those of opaque colours then hide what was drawn here but for
/// a seam at their edges, so that once is enough.
bool TZySeries::SymbolsCoverThemselves() const {
  const TZyPointSymbolSettings& Symbol = *FPointSymbolSettings;
  return Symbol.Visible() && !mPointSymbol && FRangeFromFunction == nullptr && FSymbolPen.IsOwn() &&
         FSymbolBrush.IsOwn() && !IsTranslucent(Symbol) && GetAlpha(Symbol.BorderColor()) == Opaque;
}

bool TZySeries::IsInRange(std::size_t Pixel) const {
  const TZyFunctionSeries* const Function = RangeFromFunction();
  if (Function == nullptr) return true;
  const double X = FX->GetValue(PointIndex()[Pixel]);
  return X >= Function->GetCalcStart() && X <= Function->GetCalcStop();
}

/// Cuts the symbols out of the clip, so that lines do not shine through them. Opaque symbols cover the line by
/// themselves.
void TZySeries::ShootHolesToClip(Graphics& Gr) {
  const TZyPointSymbolSettings& Inside = *FPointSymbolSettings;
  const TZyPointSymbolSettings& Outside = *FOutOfRangeSymbolSettings;
  if (RangeFromFunction() == nullptr && !Inside.Visible() && !mPointSymbol) return;  // holes without symbols
  for (std::size_t Pixel = 0; Pixel < Points().size(); ++Pixel) {
    const PointF& Place = Points()[Pixel];
    if (RangeFromFunction() == nullptr || (IsInRange(Pixel) && IsTranslucent(Inside))) {
      ExcludeSymbolSpace(Gr, Place.X, Place.Y, Inside.Size(), Inside.PointSymbol());
    } else if (!IsInRange(Pixel) && IsTranslucent(Outside) && Outside.Visible()) {
      ExcludeSymbolSpace(Gr, Place.X, Place.Y, Outside.Size(), Outside.PointSymbol());
    }
  }
}

// --- Area and line --------------------------------------------------------------------------------------------------

void TZySeries::DrawLine(Graphics& Gr) {
  if (FAreaSettings->Visible()) DrawArea(Gr);
  if (!FLineSettings->Visible()) return;
  if (mGetPen) {
    DrawSegments(Gr);
  } else if (CanDoCanvasDraw()) {
    DrawUnsmoothed(Gr);
  } else {
    Gr.DrawLines(*FPen, Points());
  }
}

void TZySeries::DrawArea(Graphics& Gr) {
  if (mGetBrush) return DrawSegmentAreas(Gr);
  Gr.FillPolygon(*FBrush, AreaPoints());
}

/// Half a pixel of overlap hides the seams.
void TZySeries::DrawSegmentAreas(Graphics& Gr) {
  const float Base = FYAxis->Start() > 0 ? BaseLine() : BaseLine() - 0.5f;
  TZyPointLook Look(*this);
  for (std::size_t i = 0; i + 1 < Points().size(); ++i) {
    const PointF P = Points()[i], Q = Points()[i + 1];
    Look.Reset();
    if (!Look.AskBrush(i)) continue;
    const PointF Corners[] = {P, {Q.X + 0.5f, Q.Y}, {Q.X + 0.5f, Base}, {P.X, Base}};
    Gr.FillPolygon(Look.Brush(), Corners);
  }
}

void TZySeries::DrawSegments(Graphics& Gr) {
  TZyPointLook Look(*this);
  for (std::size_t i = 0; i + 1 < Points().size(); ++i) {
    const PointF P = Points()[i], Q = Points()[i + 1];
    Look.Reset();
    if (Look.AskPen(i)) Gr.DrawLine(Look.Pen(), P.X, P.Y, Q.X, Q.Y);
  }
}

/// The way of long, plain, opaque lines on an unsmoothed graph: whole pixels, a plain pen, no mitres.
void TZySeries::DrawUnsmoothed(Graphics& Gr) {
  TZyPen Plain(FLineSettings->Color(), std::max(std::round(FLineSettings->Width()), 1.0f));
  Plain.SetDashStyle(FLineSettings->DashStyle());
  Plain.SetMiterLimit(0);
  const TZyPen& Used = FPen.IsOwn() ? Plain : *FPen;
  FWholePixels.assign(Points().begin(), Points().end());
  for (PointF& Point : FWholePixels) Point = {std::round(Point.X), std::round(Point.Y)};
  const TClipGuard Clip(Gr);
  Gr.SetClip(Graph()->DrawingArea(), CombineModeIntersect);
  Gr.DrawLines(Used, FWholePixels);
}

bool TZySeries::CanDoCanvasDraw() const {
  constexpr int MinPoints = 101;
  if (Graph() == nullptr || !Graph()->DrawsUnsmoothed()) return false;
  if (Count() < MinPoints || GetAlpha(FLineSettings->Color()) < Opaque) return false;
  return FLineSettings->Width() <= 1 || FLineSettings->DashStyle() == DashStyleSolid;
}

// --- Symbols --------------------------------------------------------------------------------------------------------

const TZyPen& TZySeries::OutOfRangePen() {
  static const TZyPen Pen(Colors::DimGray);
  return Pen;
}

const Brush& TZySeries::OutOfRangeBrush() {
  static const SolidBrush Fill(Colors::LightGray);
  return Fill;
}

void TZySeries::DrawSymbols(Graphics& Gr) {
  if (!FVisible || FState.PixelsAreStale() || Graph() == nullptr) return;
  if (mPointSymbol) return DrawAskedSymbols(Gr);
  const TZyPointSymbolSettings& Inside = *FPointSymbolSettings;
  if (!Inside.Visible()) return;
  if (RangeFromFunction() == nullptr)
    return DrawPointSymbols(Gr, *FSymbolPen, *FSymbolBrush, Points(), Inside.Size(), Inside.PointSymbol());
  const TZyPointSymbolSettings& Outside = *FOutOfRangeSymbolSettings;
  for (std::size_t Pixel = 0; Pixel < Points().size(); ++Pixel) {
    const PointF& Place = Points()[Pixel];
    if (IsInRange(Pixel)) {
      DrawPointSymbol(Gr, *FSymbolPen, *FSymbolBrush, Place.X, Place.Y, Inside.Size(), Inside.PointSymbol());
    } else if (Outside.Visible()) {
      DrawPointSymbol(Gr, OutOfRangePen(), OutOfRangeBrush(), Place.X, Place.Y, Outside.Size(), Outside.PointSymbol());
    }
  }
}

void TZySeries::DrawAskedSymbols(Graphics& Gr) {
  const PointSymbolEventHandler Handler = mPointSymbol;  // which may set another
  const std::uint64_t Handle = LiveHandle();
  for (std::size_t Pixel = 0; Pixel < Points().size() && !FState.PixelsAreStale(); ++Pixel) {
    const PointF Place = Points()[Pixel];
    const TPointValues Values = ValuesOfPixel(PointIndex()[Pixel], Place.X);
    PointSymbolEventArgs Args;
    Args.Index = Values.Index;
    Args.X = Values.X;
    Args.Y = Values.Y;
    Args.Size = FPointSymbolSettings->Size();
    Args.Pen = FSymbolPen.Get();
    Args.Brush = FSymbolBrush.Get();
    Args.Symbol = FPointSymbolSettings->PointSymbol();
    Args.Visible = FPointSymbolSettings->Visible();
    Handler(this, Args);
    TZyPointLook::TestDrawn(Handle);
    if (Args.Visible && Args.Pen != nullptr && Args.Brush != nullptr)
      DrawPointSymbol(Gr, *Args.Pen, *Args.Brush, Place.X, Place.Y, Args.Size, Args.Symbol);
  }
}

float TZySeries::ExtraSpaceAt(TZyAxisPosition) const {
  const TZyPointSymbolSettings& Symbol = *FPointSymbolSettings;
  if (!FVisible || !Symbol.Visible() || !FX || FX->Count() < 2) return 0;
  return (Symbol.Size() + Symbol.BorderLineWidth()) / 2 + 1;
}

// --- Hit tests ------------------------------------------------------------------------------------------------------

int TZySeries::FindPoint(int X, int Y, float Delta) const {
  if (FState.PixelsAreStale()) return -1;
  const PointF Place{static_cast<float>(X), static_cast<float>(Y)};
  const int Position = FPixelIndex.FirstWithin(Points(), Place, Delta);
  return Position < 0 ? -1 : PointIndex()[static_cast<std::size_t>(Position)];
}

int TZySeries::FindPoint(int X, int Y) const {
  const TZyPointSymbolSettings& Symbol = *FPointSymbolSettings;
  return FindPoint(X, Y, Symbol.Visible() ? Symbol.Size() : 1.0f);
}

TZyNearestPointResult TZySeries::Nearest(PointF From, TZyPixelIndex::TMetric Metric) const {
  TZyNearestPointResult Result;
  Result.Distance = std::numeric_limits<float>::max();
  if (FState.PixelsAreStale() || Graph() == nullptr) return Result;
  const auto Found = FPixelIndex.Nearest(Points(), Graph()->DrawingArea(), From, Metric);
  if (Found.Position < 0) return Result;
  const auto Pixel = static_cast<std::size_t>(Found.Position);
  const TPointValues Values = ValuesOfPixel(PointIndex()[Pixel], Points()[Pixel].X);
  return {true, Found.Distance, Values.Index, Values.X, Values.Y, Points()[Pixel]};
}

TZyNearestPointResult TZySeries::NearestPoint(PointF FromPosition) const {
  return Nearest(FromPosition, TZyPixelIndex::TMetric::Both);
}

TZyNearestPointResult TZySeries::NearestX(float FromX) const { return Nearest({FromX, 0}, TZyPixelIndex::TMetric::X); }

TZyNearestPointResult TZySeries::NearestY(float FromY) const { return Nearest({0, FromY}, TZyPixelIndex::TMetric::Y); }

}  // namespace zy
