#pragma once

#include <functional>
#include <span>
#include <string_view>
#include <vector>

#include "analysis/curves/ZyCalculation.h"
#include "analysis/curves/ZyLeastSquaresTriangle.h"

namespace zy {

/// What a basis function is asked: the number of the function, from 0, and where.
struct TZyGeneralLinearFittingArgs {
  double X = 0;
  int Index = 0;
};

/// Returns the value of basis function Index at X.
using TZyGeneralLinearFittingHandler = std::function<double(TObject* Sender, const TZyGeneralLinearFittingArgs& e)>;
template <>
inline std::string_view TypeName<TZyGeneralLinearFittingHandler>() {
  return "TZyGeneralLinearFittingHandler";
}

/// The sum of Order + 1 basis functions, each times a coefficient, with the smallest weighted sum of squared deviations
/// from the points. Without mGetBasisFn the powers of x serve.
///
/// The points stream through a triangle (TZyLeastSquaresTriangle), which is then solved through its singular values. So
/// the memory depends on the order alone. Only a singular value of exactly 0 is left out. The triangle of a polynomial
/// over many points comes from sums of Chebyshev's polynomials where these tell it well (TZyChebyshevSums).
class TZyCustomGeneralLinearLeastSquaresCalculation : public TZyCalculation {
 public:
  TZyGeneralLinearFittingHandler mGetBasisFn;
  /// Orders below this one become it.
  int SmallestOrder = 0;
  /// Whether a fit without mGetBasisFn throws rather than take the powers of x.
  bool NeedsBasisFn = false;
  /// Coefficients and their standard deviations for residuals of variance 1; Order + 1 of each.
  std::vector<double> Coeffs{1, 1, 1}, DeltaCoeffs{1, 1, 1};
  /// Of the points that take part. A variance whose weights sum up to no more than 1 is 0, and so is QRel where they
  /// sum up to no more than the order.
  double AverageX = 1, AverageY = 1, VarianceX = 1, VarianceY = 1, Probability = 1, QRel = 1, SumOfResiduals = 1;

  static constexpr int LargestOrder = 1000;

  int Order() const { return FOrder; }
  /// A new order sets all coefficients to 1.
  void SetOrder(int Value);
  /// The nearest order that there is.
  int LimitedOrder(int Value) const;
  /// Throws EMathError without data or a basis function that is needed, for fewer points than coefficients, for as many
  /// points as coefficients when two share an X, and where values are too large to be computed with; coefficients then
  /// stay as they were.
  void Calculate() override;
  /// The fitted value at x.
  double GetFnWithCoeffs(double x) const;

 private:
  int TakeMeans(double& SumOfWeights);
  bool TakeSums(TZyWideColumns& Triangle) const;
  TZyWideColumns TakeRows() const;
  void Solve(TZyWideColumns Triangle);
  void TakeStatistics(double SumOfWeights);
  void TakeFitted(std::span<const double> X, std::span<double> Fitted) const;

  double FLowestX = 0, FHighestX = 0;  // of the points that the fit is made of
  int FOrder = 2;
};

/// With basis functions of the application.
class TZyGeneralLinearLeastSquaresCalculation : public TZyCustomGeneralLinearLeastSquaresCalculation {};

/// With the powers of x.
class TZyPolynomialCalculation : public TZyCustomGeneralLinearLeastSquaresCalculation {};

}  // namespace zy
