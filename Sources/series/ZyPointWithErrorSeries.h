#pragma once

#include <array>

#include "platform/drawing/KeptSegments.h"
#include "series/ZyPointSeries.h"

namespace zy {

/// Points with error bars: up to four at each, to both sides along X and along Y.
///
/// The length of each bar comes from a vector of its own, by its magnitude and in values of the axis. Points beyond the
/// end of such a vector have no bar there; an outlier or a gap in one takes its whole point out. The ranges of the axes
/// include the bars while they are visible; on a logarithmic axis an end at or below 0 does not count, and with none
/// but such ends the range starts at the lowest point.
class TZyPointWithErrorSeries : public TZyPointSeries {
  ZY_CLASS(TZyPointWithErrorSeries, TZyPointSeries)
  explicit TZyPointWithErrorSeries(TComponent* Owner = nullptr);

  /// The look of the bars, in one colour.
  TZyLineSettings& ErrorIndicator() { return *FErrorIndicator; }
  /// Lengths of the bars to higher and to lower values; null for none. While a form is designed, an empty vector gets
  /// sample values.
  TZyCustomDoubleVector* DeltaXPlus() const { return FDxPlus.Vector(); }
  void SetDeltaXPlus(TZyCustomDoubleVector* Value) { SetDelta(FDxPlus, Value); }
  TZyCustomDoubleVector* DeltaXMinus() const { return FDxMinus.Vector(); }
  void SetDeltaXMinus(TZyCustomDoubleVector* Value) { SetDelta(FDxMinus, Value); }
  TZyCustomDoubleVector* DeltaYPlus() const { return FDyPlus.Vector(); }
  void SetDeltaYPlus(TZyCustomDoubleVector* Value) { SetDelta(FDyPlus, Value); }
  TZyCustomDoubleVector* DeltaYMinus() const { return FDyMinus.Vector(); }
  void SetDeltaYMinus(TZyCustomDoubleVector* Value) { SetDelta(FDyMinus, Value); }
  /// Events that turn the lengths of the vectors, already positive, into those that are shown.
  const TZyValueTransformation& DxPlusTransformation() const { return FDxPlus.Transformation(); }
  void SetDxPlusTransformation(TZyValueTransformation Value) { SetTransformation(FDxPlus, std::move(Value)); }
  const TZyValueTransformation& DxMinusTransformation() const { return FDxMinus.Transformation(); }
  void SetDxMinusTransformation(TZyValueTransformation Value) { SetTransformation(FDxMinus, std::move(Value)); }
  const TZyValueTransformation& DyPlusTransformation() const { return FDyPlus.Transformation(); }
  void SetDyPlusTransformation(TZyValueTransformation Value) { SetTransformation(FDyPlus, std::move(Value)); }
  const TZyValueTransformation& DyMinusTransformation() const { return FDyMinus.Transformation(); }
  void SetDyMinusTransformation(TZyValueTransformation Value) { SetTransformation(FDyMinus, std::move(Value)); }
  /// Asked for the pen of the bars of each point. What a handler changes holds for the points after it, too.
  const TZyPenEventHandler& OnGetIndicatorsPen() const { return mOnGetIndicatorsPen; }
  void SetOnGetIndicatorsPen(TZyPenEventHandler Value);

  /// Length of a bar in values of its axis, never negative; 0 without a vector and beyond its end.
  double GetDxPlus(int Idx) const { return LengthAt(FDxPlus, Idx); }
  double GetDxMinus(int Idx) const { return LengthAt(FDxMinus, Idx); }
  double GetDyPlus(int Idx) const { return LengthAt(FDyPlus, Idx); }
  double GetDyMinus(int Idx) const { return LengthAt(FDyMinus, Idx); }

  bool SeriesVisible() const override;
  void SetUndoStack(TZyUndoStack* Value) override;
  void TestVisibleChanged() override;
  double LowestOn(const TZyAxis& Axis) const override;
  float GetItemHeight() const override;
  void DrawListItem(const TZyLegendItemDrawArgs& e, LegendItemStyle Style) override;
  void DrawListItem(const TZyLegendItemDrawArgs& e) override;
  void Fields(TZyArchive& Archive) override;

 protected:
  std::string WhyNothingDrawn() const override;
  bool HasTrackedRanges() const override { return !HasBars() && TZyPointSeries::HasTrackedRanges(); }
  void TakeRanges(TRange& X, TRange& Y) override;
  TRange ReachIntoX() const override;
  void TakePixels(int Start, int Stop) override;
  void DrawLine(Graphics& Gr) override;
  int FewestPointsOfLine() const override { return HasBars() ? 1 : TZyPointSeries::FewestPointsOfLine(); }

 private:
  /// What the bars of a direction do to its axis.
  struct TExtent {
    double Lowest = 0, LongestMinus = 0, LongestPlus = 0;
  };

  std::array<const TZySeriesInput*, 4> Deltas() const { return {&FDxPlus, &FDxMinus, &FDyPlus, &FDyMinus}; }
  bool HasAnyDelta() const;
  bool HasBars() const { return FErrorIndicator->Visible() && HasAnyDelta(); }
  double LengthAt(const TZySeriesInput& Delta, int Idx) const;
  void SetDelta(TZySeriesInput& Delta, TZyCustomDoubleVector* Value);
  void AddSampleLengths(TZySeriesInput& Delta, bool BendsData);
  static void TakeEnds(double Value, double Minus, double Plus, const TZyAxis& Axis, TRange& Range, TExtent& Extent);
  void TakeEndPixels(TZySeriesInput& Delta, const TZySeriesInput& Input, const TZyAxis& Axis, double Sign,
                     std::size_t First);
  void DrawIndicators(Graphics& Gr);
  void DrawAskedIndicators(Graphics& Gr);
  void AddBars(std::size_t Pixel, bool JoinsBars);

  std::unique_ptr<TZyLineSettings> FErrorIndicator;
  TZyPen FErrorIndicatorsPen{Colors::Gray};
  bool FLastIndicatorsVisible = true;
  TZyPenEventHandler mOnGetIndicatorsPen;
  TExtent FExtentX, FExtentY;  // as the ranges were taken
  std::vector<PointF> FEnds;   // of the lines to draw
  int FEndsVersion = -1;       // of the pixels that they are of
  float FEndsSize = 0;         // of the symbols then
  TKeptSegments FKept;
  TZySeriesInput FDxPlus{*this, "DeltaXPlus", TZyInputUse::Partial};
  TZySeriesInput FDxMinus{*this, "DeltaXMinus", TZyInputUse::Partial};
  TZySeriesInput FDyPlus{*this, "DeltaYPlus", TZyInputUse::Partial};
  TZySeriesInput FDyMinus{*this, "DeltaYMinus", TZyInputUse::Partial};
};

}  // namespace zy
