#pragma once

#include <memory>

#include "analysis/curves/ZyLinearRegressionCalculation.h"
#include "series/ZyFunctionSeries.h"

namespace zy {

/// The straight line through the points of its data by least squares, and the band around it in which the true line
/// lies with a confidence of 95 percent, as two lines, as an area, or both.
///
/// On a logarithmic axis the fit is one of logarithms, so that the line is straight in the view; the band then is one
/// of logarithms, too. The statistics are those of TZyLinearRegressionCalculation, and variables of captions.
class TZyLinearRegression : public TZyFunctionSeries {
  ZY_CLASS(TZyLinearRegression, TZyFunctionSeries)
  explicit TZyLinearRegression(TComponent* Owner = nullptr);

  /// Whether the line passes through (0, Offset).
  bool FixedOffset() const { return FRegr.FixedOffset; }
  /// The step of undo takes the offset along, which without it is that of the last calculation.
  void SetFixedOffset(bool Value);
  /// Without FixedOffset the next calculation overwrites it, and setting it is no step of undo. A designer who sets it
  /// is asked whether it is to be fixed.
  double Offset() const { return FRegr.Offset; }
  void SetOffset(double Value);
  /// The look of the band's edges and of its inside.
  TZyLineSettings& ConfidenceIntervalLine() { return *FConfidenceIntervalLine; }
  TZyAreaSettings& ConfidenceIntervalArea() { return *FConfidenceIntervalArea; }

  /// Results of the last calculation.
  double Slope() const { return FRegr.Slope; }
  double DeltaSlope() const { return FRegr.DeltaSlope; }
  double DeltaOffset() const { return FRegr.DeltaOffset; }
  double AverageX() const { return FRegr.AverageX; }
  double AverageY() const { return FRegr.AverageY; }
  double VarianceX() const { return FRegr.VarianceX; }
  double VarianceY() const { return FRegr.VarianceY; }
  double r2() const { return FRegr.Probability; }
  double R() const { return FRegr.Correlation; }
  double Getr2() const { return r2(); }
  double GetR() const { return R(); }
  double SumOfResiduals() const { return FRegr.SumOfResiduals; }
  /// Half the width of the band at X, in what is fitted: a logarithm on a logarithmic Y axis. 0 while neither line nor
  /// area of the band is visible.
  double Confidence(double AtX) const;

  double GetY(double AtX) const override;
  std::string GetFormula() const override;
  void SetUndoStack(TZyUndoStack* Value) override;
  void TestVisibleChanged() override;
  void RegisterVariables() override;
  void Fields(TZyArchive& Archive) override;
  void CalculateFunction() override;

 protected:
  void TakeNewPixels() override;
  void DrawLine(Graphics& Gr) override;

 private:
  bool HasBand() const { return FConfidenceIntervalLine->Visible() || FConfidenceIntervalArea->Visible(); }
  void SwitchLinearOff(TZyAxis* Axis, TZyText Message);
  double YAtBand(double AtX, double Share) const;
  void TakeBand();

  TZyLinearRegressionCalculation& FRegr;
  double Ft95Percent = 0;
  std::unique_ptr<TZyLineSettings> FConfidenceIntervalLine;
  std::unique_ptr<TZyAreaSettings> FConfidenceIntervalArea;
  std::unique_ptr<TZyPen> FConfidencePen;
  std::unique_ptr<Brush> FConfidenceBrush;
  TZyPointVector FUpperConfidencePoints, FLowerConfidencePoints, FConfidenceAreaPoints;
  bool FConfidenceVisible = false;
};

}  // namespace zy
