#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/ZyParseFkt.h"
#include "analysis/curves/ZyCalculation.h"
#include "analysis/curves/ZySimplexInverse.h"

namespace zy {

/// What a function to fit is asked: where, and with which coefficients.
struct TZyFittingFunctionArgs {
  double X = 0;
  std::span<const double> Coefficients;
};

/// The value of a function to fit.
using TZyFittingFunctionHandler = std::function<double(TObject* Sender, const TZyFittingFunctionArgs& e)>;
template <>
inline std::string_view TypeName<TZyFittingFunctionHandler>() {
  return "TZyFittingFunctionHandler";
}

/// Told the coefficients of a corner that is about to be evaluated. What it writes into them counts, so that it can
/// keep a search within bounds.
using TZyFittingCornerHandler = std::function<void(TObject* Sender, std::span<double> Corner)>;
template <>
inline std::string_view TypeName<TZyFittingCornerHandler>() {
  return "TZyFittingCornerHandler";
}

/// Fits a function with free coefficients to data by a downhill simplex (J. A. Nelder and R. Mead, "A Simplex Method
/// for Function Minimization", The Computer Journal 7, 1965): it looks for the coefficients with the smallest weighted
/// sum of squared deviations in Y or, with DoCovariance, of the areas between each point and the curve.
///
/// The function is a formula in X and the coefficients A to P, or one of the application. Each fit goes on from the
/// coefficients of the last one; there is no test of convergence but a sum of 0. Points that are not finite take no
/// part, and a corner whose sum is no number counts as infinitely bad.
///
/// Handlers may change the settings of the fit, and may destroy it; the search then ends in EAbort.
class TZySimplexFit : public TZyCalculation {
 public:
  using TNotifyEvent = std::function<void(TObject* Sender)>;

  /// Most coefficients.
  static constexpr int LargestOrder = 1000;
  /// How many coefficients have a letter in formulas.
  static constexpr int Letters = 16;

  TZySimplexFit();
  ~TZySimplexFit() override;

  // ---- Settings ----

  /// Number of coefficients. New ones are 0.5, the others stay. Values are limited to 0 and LargestOrder.
  int Order() const { return static_cast<int>(FCoefs.size()); }
  void SetOrder(int Value);
  /// The coefficients, which also set the order. Throws ERangeError for more than LargestOrder.
  const std::vector<double>& Coefs() const { return FCoefs; }
  void SetCoefs(std::span<const double> Value);
  void SetCoef(int Index, double Value);
  /// The formula. Its highest letter that stands alone tells the order, so `A*X+B` has two coefficients. The letter E
  /// is one of them, and not Euler's number. Unless there is a function, a text without X, one without a coefficient
  /// while Iterations is above 0, and one that the parser refuses throw EMathError; it is stored all the same, and
  /// Calculate tries it again.
  const std::string& Expression() const { return FExpression; }
  void SetExpression(std::string_view Value);
  /// The function in place of a formula; empty for none. Without one the formula counts again, as SetExpression tells.
  const TZyFittingFunctionHandler& FittingFkt() const { return FFittingFkt; }
  void SetFittingFkt(TZyFittingFunctionHandler Value);
  bool FromExpression() const { return !FFittingFkt; }
  /// Whether there is something to evaluate.
  bool HasFunction() const { return FFittingFkt || FIsChecked; }
  /// A search of n takes n + 1 steps; 0 and below leave the coefficients as they are.
  int Iterations() const { return FIterations; }
  void SetIterations(int Value) { FIterations = Value; }
  /// Whether deviations in X and in Y count at the same time. A fit for which the data have no inverse switches it off.
  bool DoCovariance() const { return FDoCovariance; }
  void SetDoCovariance(bool Value) { FDoCovariance = Value; }
  /// Runs after each step, with the best coefficients in place.
  TNotifyEvent mDoDisplay;
  /// Runs before each corner is evaluated.
  TZyFittingCornerHandler mNewCorner;

  // ---- The fit ----

  /// Searches. Throws EMathError without data, formula or function, order, enough points, for data without an inverse
  /// curve when one is asked for, and when no corner had a finite sum; coefficients then stay as they were.
  void Calculate() override;
  /// Ends the search after the present step; for mDoDisplay.
  void StopIterations() { FStopIterations = true; }
  /// Steps that are left of the present search.
  int Iteration() const { return FIteration; }
  /// The function at X, with the coefficients as they are. Throws EMathError without a function, and what it throws.
  double GetY(double AtX) const;

  /// Of the last fit; 1 before the first one. A variance whose weights sum up to no more than 1 is 0, and the
  /// probability of values that do not vary is 1.
  double SumOfResiduals() const { return FCurrentChiSquare; }
  double AverageX() const { return FAverageX; }
  double AverageY() const { return FAverageY; }
  double VarianceX() const { return FVarianceX; }
  double VarianceY() const { return FVarianceY; }
  double Probability() const { return FProbability; }

 private:
  class TSearch;
  /// Points that take part, with their places in the vectors.
  struct TData : TPoints {
    std::vector<int> Index;
  };

  TData GatherPoints() const;
  void PrepareParser();
  void CheckExpression();
  void PointAtCoefs() { FCurrentCorner = FCoefs; }
  void Changed();
  void GetStatistics(const TData& Data);

  bool FDoCovariance = false;
  bool FStopIterations = false;
  bool FIsChecked = false;  // the formula stands in the parser
  int FIteration = 0;
  int FIterations = 0;
  std::string FExpression;
  std::vector<double> FCoefs;
  std::span<const double> FCurrentCorner;  // what the letters read
  mutable double FX = 0;                   // what X reads
  double FCurrentChiSquare = 1;
  double FAverageX = 1, FAverageY = 1, FVarianceX = 1, FVarianceY = 1, FProbability = 1;
  TZyFittingFunctionHandler FFittingFkt;
  std::unique_ptr<TZyFunctionParser> FFunctionParser;
  // A number that is another one after each change of the settings, and when the fit is gone; searches share it.
  std::shared_ptr<unsigned> FChanges = std::make_shared<unsigned>(0);
};

}  // namespace zy
