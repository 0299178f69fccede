#pragma once

#include <memory>

#include "analysis/curves/ZyLeastSquaresCalculation.h"
#include "series/ZyFunctionSeries.h"

namespace zy {

/// Base of the curves that are a sum of Order + 1 basis functions, each times a coefficient, fitted to the data by
/// weighted least squares; see TZyCustomGeneralLinearLeastSquaresCalculation.
class TZyCustomGeneralLinearLeastSquares : public TZyFunctionSeries {
  ZY_CLASS(TZyCustomGeneralLinearLeastSquares, TZyFunctionSeries)

  /// Highest index of the coefficients. A new one sets them to 1 until the next calculation. Limited to 0, or 2 of a
  /// polynomial, and to TZyCustomGeneralLinearLeastSquaresCalculation::LargestOrder.
  int Order() const { return FPoly.Order(); }
  void SetOrder(int Value);

  /// Results of the last calculation. The coefficients throw ERangeError above Order; while designing they are 0 there.
  double Coeff(int i) const { return GetCoeff(i); }
  double DeltaCoeff(int i) const { return GetDeltaCoeff(i); }
  double GetCoeff(int i) const { return At(FPoly.Coeffs, i); }
  double GetDeltaCoeff(int i) const { return At(FPoly.DeltaCoeffs, i); }
  double AverageX() const { return FPoly.AverageX; }
  double AverageY() const { return FPoly.AverageY; }
  double VarianceX() const { return FPoly.VarianceX; }
  double VarianceY() const { return FPoly.VarianceY; }
  double r2() const { return FPoly.Probability; }
  double QRel() const { return FPoly.QRel; }
  double SumOfResiduals() const { return FPoly.SumOfResiduals; }

  double GetY(double AtX) const override { return FPoly.GetFnWithCoeffs(AtX); }
  std::string GetFormula() const override;
  int MinCount() const override { return Order() + 1; }
  void RegisterVariables() override;
  void Fields(TZyArchive& Archive) override;

 protected:
  TZyCustomGeneralLinearLeastSquares(TComponent* Owner,
                                     std::unique_ptr<TZyCustomGeneralLinearLeastSquaresCalculation> Calculation);
  TZyCustomGeneralLinearLeastSquaresCalculation& Poly() { return FPoly; }
  /// The node of the record in XML.
  virtual const char* LevelName() const { return "GeneralLinearLeastSquares"; }

 private:
  double At(const std::vector<double>& Values, int i) const;

  TZyCustomGeneralLinearLeastSquaresCalculation& FPoly;
};

/// With basis functions of the application.
class TZyGeneralLinearLeastSquares : public TZyCustomGeneralLinearLeastSquares {
  ZY_CLASS(TZyGeneralLinearLeastSquares, TZyCustomGeneralLinearLeastSquares)
  explicit TZyGeneralLinearLeastSquares(TComponent* Owner = nullptr);

  /// Asked for the value of each basis function at each point, and at each place where the curve is drawn. Without it a
  /// calculation fails; while designing the powers of x stand in.
  const TZyGeneralLinearFittingHandler& BasisFunction() const { return mBasisFunction; }
  void SetBasisFunction(TZyGeneralLinearFittingHandler Value);

  void CalculateFunction() override;

 private:
  TZyGeneralLinearFittingHandler mBasisFunction;
};

/// With the powers of x: a polynomial of degree Order, from 2 on.
class TZyPolynomial : public TZyCustomGeneralLinearLeastSquares {
  ZY_CLASS(TZyPolynomial, TZyCustomGeneralLinearLeastSquares)
  explicit TZyPolynomial(TComponent* Owner = nullptr);

  std::string GetFormula() const override;

 protected:
  const char* LevelName() const override { return "Polynomial"; }
};

}  // namespace zy
