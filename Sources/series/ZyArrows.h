#pragma once

#include "series/ZySeries.h"

namespace zy {

/// An arrow from each point to the point displaced by two more vectors, as for winds and flows.
class TZyArrows : public TZySeries {
  ZY_CLASS(TZyArrows, TZySeries)
  explicit TZyArrows(TComponent* Owner = nullptr);

  /// Line and tip. While it is invisible, the arrows take no part in the ranges of the axes. A linear gradient runs
  /// along each arrow, but not with OnGetPen or a pen of the caller's.
  TZyArrowSettings& Arrow() { return static_cast<TZyArrowSettings&>(Line()); }
  /// From the point to the tip, in values of the axes; may be negative.
  TZyCustomDoubleVector* DeltaX() const { return FdX.Vector(); }
  void SetDeltaX(TZyCustomDoubleVector* Value) { SetInput(FdX, Value); }
  TZyCustomDoubleVector* DeltaY() const { return FdY.Vector(); }
  void SetDeltaY(TZyCustomDoubleVector* Value) { SetInput(FdY, Value); }
  const TZyValueTransformation& XDeltaTransformation() const { return FdX.Transformation(); }
  void SetXDeltaTransformation(TZyValueTransformation Value) { SetTransformation(FdX, std::move(Value)); }
  const TZyValueTransformation& YDeltaTransformation() const { return FdY.Transformation(); }
  void SetYDeltaTransformation(TZyValueTransformation Value) { SetTransformation(FdY, std::move(Value)); }

  /// Pixels of the tips; `Points` has the tails.
  std::span<const PointF> Tips() const { return FTips.Values().first(Points().size()); }

  int MinCount() const override { return 1; }
  bool SeriesVisible() const override { return Visible() && HasArrows(); }
  double LowestOn(const TZyAxis& Axis) const override { return &Axis == FXAxis ? XStart() : YStart(); }
  void Calculate() override;
  void Fields(TZyArchive& Archive) override;

 protected:
  bool HasTrackedRanges() const override { return false; }
  void TakeRanges(TRange& X, TRange& Y) override;
  TRange ReachIntoX() const override;
  void KeepPixels(int Count) override { FTips.Shrink(Count); }
  void TakePixels(int Start, int Stop) override;
  void DrawPoints(Graphics& Gr) override;
  void AddSampleData() override;

 private:
  bool HasArrows() const { return const_cast<TZyArrows*>(this)->Line().Visible(); }
  void DrawGradients(Graphics& Gr);

  TZySeriesInput FdX{*this, "DeltaX", TZyInputUse::Needed};
  TZySeriesInput FdY{*this, "DeltaY", TZyInputUse::Needed};
  TRange FReach;  // of the displacements along X, as the ranges were taken
  TZyPointVector FTips;
  std::vector<PointF> FEnds;  // of all arrows, to draw; kept for its memory
};

}  // namespace zy
