#pragma once

#include "analysis/curves/ZyMovingAverageCalculation.h"
#include "series/ZyFunctionSeries.h"

namespace zy {

/// Replaces each point by a weighted mean of its neighbours, and draws a smooth curve through the means. The settings
/// are those of TZyMovingAverageCalculation.
class TZyMovingAverage : public TZyFunctionSeries {
  ZY_CLASS(TZyMovingAverage, TZyFunctionSeries)
  explicit TZyMovingAverage(TComponent* Owner = nullptr);

  TZyAveragingMethod AveragingMethod() const { return FAvg.AveragingMethod; }
  void SetAveragingMethod(TZyAveragingMethod Value) { SetSetting(FAvg.AveragingMethod, Value, "AveragingMethod"); }
  TZyAveragingDirection AveragingDirection() const { return FAvg.AveragingDirection; }
  void SetAveragingDirection(TZyAveragingDirection Value) {
    SetSetting(FAvg.AveragingDirection, Value, "AveragingDirection");
  }
  TZyAveragingRangeMethod AveragingRangeMethod() const { return FAvg.AveragingRangeMethod; }
  void SetAveragingRangeMethod(TZyAveragingRangeMethod Value) {
    SetSetting(FAvg.AveragingRangeMethod, Value, "AveragingRangeMethod");
  }
  /// Stored as a magnitude.
  double N() const { return FAvg.N; }
  void SetN(double Value) { SetSetting(FAvg.N, FAvg.Magnitude(Value), "N"); }
  /// Stored as a magnitude of up to 1.
  double ExponentialFactorForN() const { return FAvg.ExponentialFactorForN; }
  void SetExponentialFactorForN(double Value) {
    SetSetting(FAvg.ExponentialFactorForN, FAvg.LimitedFactor(Value), "ExponentialFactorForN");
  }

  double GetY(double AtX) const override;
  std::string GetFormula() const override;
  void RegisterVariables() override;
  void Fields(TZyArchive& Archive) override;

 private:
  TZyMovingAverageCalculation& FAvg;
};

}  // namespace zy
