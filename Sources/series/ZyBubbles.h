#pragma once

#include "series/ZySeries.h"

namespace zy {

/// A filled circle or ellipse around each point, with a radius of its own in values of the axes.
///
/// Where a scale is not even, as on a logarithmic axis, the radius counts from the point to higher values, and the
/// bubble has the same extent to the other side.
class TZyBubbles : public TZySeries {
  ZY_CLASS(TZyBubbles, TZySeries)
  explicit TZyBubbles(TComponent* Owner = nullptr);

  /// Radius of each point, by its magnitude.
  TZyCustomDoubleVector* RadiusData() const { return FRadius.Vector(); }
  void SetRadiusData(TZyCustomDoubleVector* Value) { SetInput(FRadius, Value); }
  const TZyValueTransformation& RadiusTransformation() const { return FRadius.Transformation(); }
  void SetRadiusTransformation(TZyValueTransformation Value) { SetTransformation(FRadius, std::move(Value)); }
  /// Whether the radius counts in X along X and in Y along Y; else in Y alone, and bubbles are round.
  bool Elliptical() const { return FElliptical; }
  void SetElliptical(bool Value);

  /// Width and height in pixels of each kept bubble; `Points` has the top left corners.
  std::span<const PointF> Sizes() const { return FSize.Values().first(Points().size()); }

  void Fields(TZyArchive& Archive) override;
  int MinCount() const override { return 1; }
  double LowestOn(const TZyAxis& Axis) const override { return LowestOf(&Axis == FXAxis ? FX : FY); }
  using TZySeries::FindPoint;
  /// The first bubble whose rectangle holds the place, corners included.
  int FindPoint(int X, int Y) const override;
  using TZySeries::DrawListItem;
  void DrawListItem(const TZyLegendItemDrawArgs& e, LegendItemStyle Style) override;
  void DrawListItem(const TZyLegendItemDrawArgs& e) override { DrawListItem(e, LegendItemStyle::Filled); }

 protected:
  bool HasTrackedRanges() const override { return false; }
  void TakeRanges(TRange& X, TRange& Y) override;
  TRange ReachIntoX() const override;
  void KeepPixels(int Count) override { FSize.Shrink(Count); }
  void TakeNewPixels() override;
  void TakePixels(int Start, int Stop) override;
  void DrawPoints(Graphics& Gr) override;
  void AddSampleData() override;

 private:
  double GetR(int Idx) const;
  static void TakeEnds(const TZyAxis& Axis, double At, double Radius, TRange& Range);
  RectF RectOf(std::size_t Pixel) const;
  bool DrawStamps(Graphics& Gr);
  void DrawBubble(Graphics& Gr, const RectF& R, const Brush* Fill, const TZyPen* Edge) const;
  void EllipticalModified();

  bool FElliptical = false;
  double FRatio = 1;    // of the lengths of the axes, as the ranges were taken with it
  double FLargest = 0;  // radius, in the units of the scale that it counts on
  TZySeriesInput FRadius{*this, "RadiusData", TZyInputUse::Needed};
  TZyPointVector FSize;
};

}  // namespace zy
