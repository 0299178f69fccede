#include "series/ZyPointWithErrorSeries.h"

#include <algorithm>
#include <cmath>

#include "graph/parts/ZySeriesGraph.h"
#include "graph/shapes/ZyDrawing.h"
#include "persistence/ZyArchive.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/TPropInfo.h"
#include "series/ZyPointLook.h"
#include "series/vectors/ZyDoubleVector.h"

namespace zy {

ZY_PUBLISHED(TZyPointWithErrorSeries, TZyPointSeries, Published<&Self::ErrorIndicator>("ErrorIndicator"),
             Published<&Self::DeltaXPlus, &Self::SetDeltaXPlus>("DeltaXPlus", _sSeriesDeltaXPlus),
             Published<&Self::DeltaXMinus, &Self::SetDeltaXMinus>("DeltaXMinus", _sSeriesDeltaXMinus),
             Published<&Self::DeltaYPlus, &Self::SetDeltaYPlus>("DeltaYPlus", _sSeriesDeltaYPlus),
             Published<&Self::DeltaYMinus, &Self::SetDeltaYMinus>("DeltaYMinus", _sSeriesDeltaYMinus),
             Published<&Self::DxPlusTransformation>("DxPlusTransformation"),
             Published<&Self::DxMinusTransformation>("DxMinusTransformation"),
             Published<&Self::DyPlusTransformation>("DyPlusTransformation"),
             Published<&Self::DyMinusTransformation>("DyMinusTransformation"),
             Published<&Self::OnGetIndicatorsPen>("OnGetIndicatorsPen"))

TZyPointWithErrorSeries::TZyPointWithErrorSeries(TComponent* Owner)
    : TZyPointSeries(Owner), FErrorIndicator(std::make_unique<TZyLineSettings>([this] { TestVisibleChanged(); })) {
  Initialize(StaticClassInfo().Name());
  FErrorIndicator->SetColor(Colors::Gray);
}

void TZyPointWithErrorSeries::SetUndoStack(TZyUndoStack* Value) {
  TZyPointSeries::SetUndoStack(Value);
  FErrorIndicator->SetUndoStack(Value);
}

void TZyPointWithErrorSeries::SetOnGetIndicatorsPen(TZyPenEventHandler Value) {
  mOnGetIndicatorsPen = std::move(Value);
  Invalidate();
}

void TZyPointWithErrorSeries::Fields(TZyArchive& Archive) {
  TZyPointSeries::Fields(Archive);
  Archive.Level("ErrorIndicator", [&] {
    Archive.Part(TZyFieldName("ErrorIndicator").Xml("Line"), *FErrorIndicator);
    Archive.Properties(*this, "DeltaXPlus DeltaXMinus DeltaYPlus DeltaYMinus");
    Archive.EndRecord();
  });
}

bool TZyPointWithErrorSeries::HasAnyDelta() const {
  return std::ranges::any_of(Deltas(), [](const TZySeriesInput* Delta) { return static_cast<bool>(*Delta); });
}

bool TZyPointWithErrorSeries::SeriesVisible() const {
  return TZyPointSeries::SeriesVisible() || (Visible() && HasBars());
}

/// Without new ranges, as while the Y axis is zoomed, the bars need their pixels all the same.
void TZyPointWithErrorSeries::TestVisibleChanged() {
  FErrorIndicatorsPen.SetColor(FErrorIndicator->Color());
  FErrorIndicatorsPen.SetWidth(FErrorIndicator->Width());
  FErrorIndicatorsPen.SetDashStyle(FErrorIndicator->DashStyle());
  if (FErrorIndicator->Visible() != FLastIndicatorsVisible) {
    FLastIndicatorsVisible = FErrorIndicator->Visible();
    const bool IsZoomed = FYAxis != nullptr && FYAxis->GetCurrentZoomStage() > 0;
    if (IsZoomed)
      PointsModified();
    else
      RangesModified();
  }
  TZyPointSeries::TestVisibleChanged();
}

// --- Lengths --------------------------------------------------------------------------------------------------------

double TZyPointWithErrorSeries::LengthAt(const TZySeriesInput& Delta, int Idx) const {
  return Idx < Delta.Count() ? std::fabs(Delta.Transform(std::fabs(Delta->GetValue(Idx)), Idx)) : 0;
}

void TZyPointWithErrorSeries::SetDelta(TZySeriesInput& Delta, TZyCustomDoubleVector* Value) {
  const bool WasEmpty = !Delta;
  SetInput(Delta, Value);
  if (Value != nullptr && IsDesigning() && !IsLoading() && !ReadsRecord()) AddSampleLengths(Delta, WasEmpty);
}

/// Lengths of a twentieth of the axis and more. Samples of data are bent, so that the bars stay within it.
void TZyPointWithErrorSeries::AddSampleLengths(TZySeriesInput& Delta, bool BendsData) {
  constexpr int Steps = 10;
  const bool IsOfX = &Delta == &FDxPlus || &Delta == &FDxMinus;
  const TZyAxis* const Axis = IsOfX ? FXAxis : FYAxis;
  const double Step = Axis == nullptr ? 0.5 : (Axis->Stop() - Axis->Start()) / 20;
  if (!FillRandom(Delta.Vector(), Steps + 1, Step) || !BendsData) return;
  auto* const Data = dynamic_cast<TZyDoubleVector*>(IsOfX ? XData() : YData());
  if (Data == nullptr || Data->PersistentValues()) return;
  const double Last = Delta->GetValue(Steps);
  for (int i = 1; i <= Steps && i < Data->Count(); ++i) Data->SetValue(i, Data->GetValue(i) - Last * i / Steps);
}

// --- Ranges ---------------------------------------------------------------------------------------------------------

/// The low end does not count at or below 0 on a logarithmic axis.
void TZyPointWithErrorSeries::TakeEnds(double Value, double Minus, double Plus, const TZyAxis& Axis, TRange& Range,
                                       TExtent& Extent) {
  const double Low = Value - Minus, High = Value + Plus;
  if (Low > 0 || !Axis.HasLogScaling()) Range.TakeLow(Low);
  Range.TakeHigh(High);
  if (std::isfinite(Low)) Extent.Lowest = std::min(Extent.Lowest, Low);
  if (std::isfinite(Minus)) Extent.LongestMinus = std::max(Extent.LongestMinus, Minus);
  if (std::isfinite(Plus)) Extent.LongestPlus = std::max(Extent.LongestPlus, Plus);
}

void TZyPointWithErrorSeries::TakeRanges(TRange& X, TRange& Y) {
  if (!HasBars()) return TZyPointSeries::TakeRanges(X, Y);
  FExtentX = FExtentY = {std::numeric_limits<double>::max(), 0, 0};
  ForEachPoint(0, Count(), [&](int i) {
    TakeEnds(FX.At(i), GetDxMinus(i), GetDxPlus(i), *FXAxis, X, FExtentX);
    TakeEnds(FY.At(i), GetDyMinus(i), GetDyPlus(i), *FYAxis, Y, FExtentY);
  });
  // Where no low end counts, the points do: there were no range at all.
  for (const auto& [Range, Input] : {std::pair(&X, &FX), {&Y, &FY}})
    if (Range->IsEmpty() && Range->High > 0) Range->TakeLow(SmallestPositive(*Input, Range->High));
}

double TZyPointWithErrorSeries::LowestOn(const TZyAxis& Axis) const {
  if (!HasBars()) return TZyPointSeries::LowestOn(Axis);
  return (&Axis == FXAxis ? FExtentX : FExtentY).Lowest;
}

TZySeries::TRange TZyPointWithErrorSeries::ReachIntoX() const {
  TRange Result = TZyPointSeries::ReachIntoX();
  if (!HasBars()) return Result;
  Result.Low -= FExtentX.LongestPlus;
  Result.High += FExtentX.LongestMinus;
  return Result;
}

// --- Pixels ---------------------------------------------------------------------------------------------------------

void TZyPointWithErrorSeries::TakePixels(int Start, int Stop) {
  const std::size_t First = Points().size();
  TZyPointSeries::TakePixels(Start, Stop);
  if (!HasBars()) return;
  TakeEndPixels(FDxPlus, FX, *FXAxis, 1, First);
  TakeEndPixels(FDxMinus, FX, *FXAxis, -1, First);
  TakeEndPixels(FDyPlus, FY, *FYAxis, 1, First);
  TakeEndPixels(FDyMinus, FY, *FYAxis, -1, First);
}

/// The ends of the bars of the kept points from First on, as far as the vector reaches.
void TZyPointWithErrorSeries::TakeEndPixels(TZySeriesInput& Delta, const TZySeriesInput& Input, const TZyAxis& Axis,
                                            double Sign, std::size_t First) {
  for (const int Idx : PointIndex().subspan(First)) {
    if (Idx >= Delta.Count()) return;
    Delta.AddPixel(Axis.NumberToWorld(Input.At(Idx) + Sign * LengthAt(Delta, Idx)));
  }
}

// --- Drawing --------------------------------------------------------------------------------------------------------

/// The bars lie above the line, and like it stop at translucent symbols.
void TZyPointWithErrorSeries::DrawLine(Graphics& Gr) {
  if (Points().size() > 1) TZyPointSeries::DrawLine(Gr);
  if (HasBars()) DrawIndicators(Gr);
}

void TZyPointWithErrorSeries::DrawIndicators(Graphics& Gr) {
  if (mOnGetIndicatorsPen) return DrawAskedIndicators(Gr);
  constexpr std::size_t Many = 1000;  // points, whose two bars along an axis are one line
  if (FEndsVersion != PixelsVersion() || FEndsSize != SymbolSize()) {
    FEnds.clear();
    FKept.Clear();
    const bool JoinsBars = Points().size() >= Many;
    for (std::size_t Pixel = 0; Pixel < Points().size(); ++Pixel) AddBars(Pixel, JoinsBars);
    FEndsVersion = PixelsVersion();
    FEndsSize = SymbolSize();
  }
  Gr.DrawSegments(FErrorIndicatorsPen, FEnds, &FKept);
}

void TZyPointWithErrorSeries::DrawAskedIndicators(Graphics& Gr) {
  const TZyPenEventHandler Handler = mOnGetIndicatorsPen;  // which may set another
  FEndsVersion = -1;                                       // the ends are those of one point after the other
  const std::uint64_t Handle = LiveHandle();
  TZyPenEventArgs Args;
  Args.Pen = &FErrorIndicatorsPen;
  Args.Visible = FErrorIndicator->Visible();
  for (std::size_t Pixel = 0; Pixel < Points().size() && !RecalculatePoints(); ++Pixel) {
    const TPointValues Values = ValuesOfPixel(PointIndex()[Pixel], Points()[Pixel].X);
    Args.Index = Values.Index;
    Args.X = Values.X;
    Args.Y = Values.Y;
    Handler(this, Args);
    TZyPointLook::TestDrawn(Handle);
    if (!Args.Visible || Args.Pen == nullptr || Pixel >= Points().size()) continue;
    FEnds.clear();
    AddBars(Pixel, false);
    for (std::size_t i = 0; i < FEnds.size(); i += 2)
      Gr.DrawLine(*Args.Pen, FEnds[i].X, FEnds[i].Y, FEnds[i + 1].X, FEnds[i + 1].Y);
  }
}

/// A line from the point to the end of each bar, with a stroke across it there.
void TZyPointWithErrorSeries::AddBars(std::size_t Pixel, bool JoinsBars) {
  const float X = Points()[Pixel].X, Y = Points()[Pixel].Y;
  const float Half = (SymbolSize() - 1) / 2;
  const std::span<const float> Right = FDxPlus.Pixels(), Left = FDxMinus.Pixels();
  const std::span<const float> Up = FDyPlus.Pixels(), Down = FDyMinus.Pixels();
  const bool HasRight = Pixel < Right.size(), HasLeft = Pixel < Left.size();
  const bool HasUp = Pixel < Up.size(), HasDown = Pixel < Down.size();
  std::array<PointF, 16> Ends;
  auto Last = Ends.begin();
  const auto Add = [&Last](const PointF& A, const PointF& B) {
    *Last++ = A;
    *Last++ = B;
  };
  const bool JoinsAcross = JoinsBars && HasRight && HasLeft, JoinsUp = JoinsBars && HasUp && HasDown;
  if (JoinsAcross) Add({Left[Pixel], Y}, {Right[Pixel], Y});
  if (JoinsUp) Add({X, Down[Pixel]}, {X, Up[Pixel]});
  const auto AddAcross = [&](float End) {
    if (!JoinsAcross) Add({X, Y}, {End, Y});
    Add({End, Y - Half}, {End, Y + Half});
  };
  const auto AddUp = [&](float End) {
    if (!JoinsUp) Add({X, Y}, {X, End});
    Add({X - Half, End}, {X + Half, End});
  };
  if (HasRight) AddAcross(Right[Pixel]);
  if (HasLeft) AddAcross(Left[Pixel]);
  if (HasUp) AddUp(Up[Pixel]);
  if (HasDown) AddUp(Down[Pixel]);
  FEnds.insert(FEnds.end(), Ends.begin(), Last);
}

// --- Items of legends -----------------------------------------------------------------------------------------------

float TZyPointWithErrorSeries::GetItemHeight() const {
  constexpr float BarsHeight = 8;
  const bool HasYBars = FErrorIndicator->Visible() && (FDyPlus || FDyMinus);
  return TZyPointSeries::GetItemHeight() + (HasYBars ? BarsHeight : 0);
}

void TZyPointWithErrorSeries::DrawListItem(const TZyLegendItemDrawArgs& e) {
  if (HasBars())
    DrawListItem(e, LegendItemStyle::Filled);
  else
    TZyPointSeries::DrawListItem(e);
}

/// The same bars in small, around the symbol.
void TZyPointWithErrorSeries::DrawListItem(const TZyLegendItemDrawArgs& e, LegendItemStyle Style) {
  if (!HasBars()) return TZyPointSeries::DrawListItem(e, Style);
  if (Style == LegendItemStyle::Filled && (FDxPlus || FDxMinus)) Style = LegendItemStyle::AscendingDiagonal;
  TZyPointSeries::DrawListItem(e, Style);
  const RectF R = TRectToRectF(e.Rect);
  const PointF C{R.X + R.Width / 2, R.Y + R.Height / 2};
  const float Width = FErrorIndicator->Width() == 0 ? 1 : FErrorIndicator->Width();
  const float Inner = (SymbolSize() - 1) / 2;
  const float Across = (R.Width - 2 * Width) / 4, Up = (R.Height - 2 * Width) / 2;
  for (const auto& [Delta, Sign] : {std::pair(&FDxPlus, 1.0f), {&FDxMinus, -1.0f}}) {
    if (!*Delta) continue;
    const float End = C.X + Sign * Across;
    e.Graphics->DrawLine(FErrorIndicatorsPen, C.X + Sign * (Inner + 1), C.Y, End, C.Y);
    e.Graphics->DrawLine(FErrorIndicatorsPen, End, C.Y - Inner, End, C.Y + Inner);
  }
  for (const auto& [Delta, Sign] : {std::pair(&FDyPlus, -1.0f), {&FDyMinus, 1.0f}}) {
    if (!*Delta) continue;
    const float End = C.Y + Sign * Up;
    e.Graphics->DrawLine(FErrorIndicatorsPen, C.X, C.Y + Sign * (Inner + 1), C.X, End);
    e.Graphics->DrawLine(FErrorIndicatorsPen, C.X - Inner, End, C.X + Inner, End);
  }
}

}  // namespace zy
