#pragma once

#include <string>
#include <vector>

#include "analysis/curves/ZySimplexFit.h"
#include "series/ZyFunctionSeries.h"

namespace zy {

/// A curve whose free coefficients are fitted to its data: a formula in X and the letters A to P, or a function of the
/// application; see TZySimplexFit.
///
///     Line->SetExpression("A*Exp(-B*X)+C");
///
/// Each calculation goes on from the coefficients of the last one, so `RangesModified` refines a fit. With Iterations 0
/// the coefficients are shown as they are, and no data are needed.
class TZyFittedLine : public TZyFunctionSeries {
  ZY_CLASS(TZyFittedLine, TZyFunctionSeries)
  explicit TZyFittedLine(TComponent* Owner = nullptr);

  /// Number of coefficients; a new formula sets it, and a new number asks for another fit.
  int Order() const { return FFit.Order(); }
  void SetOrder(int Value);
  /// Most steps of one fit; limited to LargestIterations, so that no stored chart keeps its reader for ever.
  static constexpr int LargestIterations = 1'000'000;
  int Iterations() const { return FFit.Iterations(); }
  void SetIterations(int Value);
  /// The formula; see TZySimplexFit::Expression. The step of undo takes the coefficients along. One that cannot be used
  /// throws EMathError, unless it is read or restored; it is stored in either case, and the next calculation tries it
  /// again and reports it.
  const std::string& Expression() const { return FFit.Expression(); }
  void SetExpression(const std::string& Value);
  /// Where the next fit begins, and what the curve shows until then.
  const std::vector<double>& Coefficients() const { return FFit.Coefs(); }
  void SetCoefficients(const std::vector<double>& Value);
  bool DoCovariance() const { return FFit.DoCovariance(); }
  void SetDoCovariance(bool Value);
  /// The function in place of the formula. It may free the series.
  const TZyFittingFunctionHandler& FittingFunction() const { return mFittingFunction; }
  void SetFittingFunction(TZyFittingFunctionHandler Value);
  /// Runs after each step of a fit, on the control thread, with the best coefficients so far in place. It may call
  /// StopIterations, and let the application handle events.
  const TNotifyEvent& OnIteration() const { return FFit.mDoDisplay; }
  void SetOnIteration(TNotifyEvent Value) { FFit.mDoDisplay = std::move(Value); }
  const TZyFittingCornerHandler& OnNewCorner() const { return FFit.mNewCorner; }
  void SetOnNewCorner(TZyFittingCornerHandler Value) { FFit.mNewCorner = std::move(Value); }

  /// Ends a fit after its present step.
  void StopIterations() { FFit.StopIterations(); }
  /// Steps that are left of a fit.
  int Iteration() const { return FFit.Iteration(); }
  bool FromExpression() const { return FFit.FromExpression(); }
  /// Throws ERangeError for an index that is none; 0 while designing.
  double GetCoeff(int i) const;
  /// Results of the last fit.
  double AverageX() const { return FFit.AverageX(); }
  double AverageY() const { return FFit.AverageY(); }
  double VarianceX() const { return FFit.VarianceX(); }
  double VarianceY() const { return FFit.VarianceY(); }
  double Probability() const { return FFit.Probability(); }
  double SumOfResiduals() const { return FFit.SumOfResiduals(); }

  /// While designing a wave over the range of the data, so that there is something to see.
  double GetY(double AtX) const override;
  std::string GetFormula() const override { return Expression(); }
  int MinCount() const override { return 0; }
  void RegisterVariables() override;
  void DefineProperties(TFiler& Filer) override;
  void Fields(TZyArchive& Archive) override;
  void CalculateFunction() override;

 protected:
  /// Coefficients that are given need no calculation.
  bool HasCurve() const override;
  void TakeNewPixels() override;

 private:
  bool IsRestoring() const;
  void CurveModified();
  std::string CoefficientsText() const;
  void SetCoefficientsText(const std::string& Text);

  TZySimplexFit& FFit;
  TZyFittingFunctionHandler mFittingFunction;
};

}  // namespace zy
