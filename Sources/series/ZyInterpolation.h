#pragma once

#include "analysis/curves/ZyInterpolationCalculation.h"
#include "series/ZyFunctionSeries.h"

namespace zy {

/// A curve through the points of its data, or near them. The settings are those of TZyInterpolationCalculation.
class TZyInterpolation : public TZyFunctionSeries {
  ZY_CLASS(TZyInterpolation, TZyFunctionSeries)
  explicit TZyInterpolation(TComponent* Owner = nullptr);

  TZyInterpolationMethod InterpolationMethod() const { return FInterpolation.InterpolationMethod(); }
  /// The approximative spline needs six points, the others three; it switches SmoothPoints off in the same step of
  /// undo, and tells the user.
  void SetInterpolationMethod(TZyInterpolationMethod Value);
  bool SmoothPoints() const { return FInterpolation.DoSmoothing(); }
  /// With the approximative spline it stays off, and the user is told.
  void SetSmoothPoints(bool Value);
  double SmoothingRange() const { return FInterpolation.SmoothM(); }
  void SetSmoothingRange(double Value);
  double ElasticityFactor() const { return FInterpolation.ElasticityFactor(); }
  /// Values of 0 or below become 1E-300.
  void SetElasticityFactor(double Value);

  double GetSmoothM() const { return SmoothingRange(); }
  double GetElasticityFactor() const { return ElasticityFactor(); }
  /// Local extrema of what the series shows, searched at the first question after a calculation.
  virtual const TZyDoublePointArray& GetMinima();
  virtual const TZyDoublePointArray& GetMaxima();
  /// One coordinate of extremum i. Throw ERangeError outside.
  double GetXMinima(int i) { return At(GetMinima(), i).X; }
  double GetYMinima(int i) { return At(GetMinima(), i).Y; }
  double GetXMaxima(int i) { return At(GetMaxima(), i).X; }
  double GetYMaxima(int i) { return At(GetMaxima(), i).Y; }

  double GetY(double AtX) const override { return Curve().Interpolate(AtX); }
  std::string GetFormula() const override;
  int MinCount() const override;
  void RegisterVariables() override;
  void Fields(TZyArchive& Archive) override;

 protected:
  /// The calculation, brought up to date with a setting that no paint has followed yet.
  TZyInterpolationCalculation& Curve() const;

  /// For the constructors of heirs, which have a name and default axes of their own.
  struct TBase {};
  TZyInterpolation(TComponent* Owner, TBase);

 private:
  static const TZyDoublePoint& At(const TZyDoublePointArray& Points, int i);

  TZyInterpolationCalculation& FInterpolation;
};

/// The slope of that curve.
class TZyDifferential : public TZyInterpolation {
  ZY_CLASS(TZyDifferential, TZyInterpolation)
  explicit TZyDifferential(TComponent* Owner = nullptr);

  double GetY(double AtX) const override { return Curve().Slope(AtX); }
  const TZyDoublePointArray& GetMinima() override { return Curve().GetDiffMinima(); }
  const TZyDoublePointArray& GetMaxima() override { return Curve().GetDiffMaxima(); }
  std::string GetFormula() const override;
  /// The primary X axis and, since a slope rarely shares the scale of its data, the first other Y axis of the graph
  /// that is no slave. Without one a designer is asked whether to make it; else it is the primary Y axis.
  void TakeDefaultAxis(IZyAxisGraph& FromGraph) override;

 protected:
  using TZyInterpolation::TZyInterpolation;
};

/// The integral of that curve, from the first point on.
class TZyIntegral : public TZyDifferential {
  ZY_CLASS(TZyIntegral, TZyDifferential)
  explicit TZyIntegral(TComponent* Owner = nullptr);

  double GetY(double AtX) const override { return Curve().Integral(AtX); }
  const TZyDoublePointArray& GetMinima() override { return Curve().GetIntMinima(); }
  const TZyDoublePointArray& GetMaxima() override { return Curve().GetIntMaxima(); }
  std::string GetFormula() const override;
};

}  // namespace zy
