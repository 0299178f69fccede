// Fits and transforms by other libraries, in turns with ours.

#include <fftw3.h>
#include <gsl/gsl_multifit.h>
#include <gsl/gsl_multimin.h>

#include <Eigen/QR>
#include <array>
#include <cstring>

#include "OtherLibrary.h"
#include "analysis/curves/ZyFourierTransform.h"
#include "analysis/curves/ZyLeastSquaresCalculation.h"
#include "analysis/curves/ZySimplexFit.h"

namespace {

using namespace zy;
using namespace zy::cases;

/// Largest relative difference of coefficients.
template <class TOther>
double Difference(const std::vector<double>& Ours, const TOther& Other) {
  double Largest = 0;
  for (std::size_t k = 0; k < Ours.size(); ++k)
    Largest = std::max(Largest, std::fabs(Ours[k] - Other(k)) / std::fabs(Ours[k]));
  return Largest;
}

/// Theirs get the design matrix of a million rows ready-made.
void ComparePolynomials(int Order) {
  const auto n = static_cast<std::size_t>(Order) + 1;
  TData Data(Million);
  for (double& x : Data.X) x = x / 500 - 1;  // they keep no digits over 0 to 1000
  TZyDoubleVector X, Y;
  X.SetInternalArray(std::vector(Data.X));
  Y.SetInternalArray(std::vector(Data.Y));
  TZyPolynomialCalculation Fit;
  Fit.XData = &X;
  Fit.YData = &Y;
  Fit.SetOrder(Order);
  gsl_matrix* const Rows = gsl_matrix_alloc(Million, n);
  gsl_vector* const Right = gsl_vector_alloc(Million);
  Eigen::MatrixXd Matrix(Million, static_cast<Eigen::Index>(n));
  Eigen::VectorXd Values(Million);
  for (std::size_t i = 0; i < Million; ++i) {
    double Power = 1;
    for (std::size_t c = 0; c < n; ++c, Power *= Data.X[i]) {
      gsl_matrix_set(Rows, i, c, Power);
      Matrix(static_cast<Eigen::Index>(i), static_cast<Eigen::Index>(c)) = Power;
    }
    gsl_vector_set(Right, i, Data.Y[i]);
    Values[static_cast<Eigen::Index>(i)] = Data.Y[i];
  }
  gsl_vector* const Found = gsl_vector_alloc(n);
  gsl_matrix* const Covariance = gsl_matrix_alloc(n, n);
  gsl_multifit_linear_workspace* const Work = gsl_multifit_linear_alloc(Million, n);
  double Sum = 0;
  const std::string Name = "polynomial " + std::to_string(Order);
  Compare((Name + ", GSL").c_str(), [&] { Fit.Calculate(); },
          [&] { gsl_multifit_linear(Rows, Right, Found, Covariance, &Sum, Work); },
          [&] { return Difference(Fit.Coeffs, [&](std::size_t k) { return gsl_vector_get(Found, k); }); });
  Eigen::VectorXd Solution;
  Compare(
      (Name + ", Eigen").c_str(), [&] { Fit.Calculate(); }, [&] { Solution = Matrix.householderQr().solve(Values); },
      [&] { return Difference(Fit.Coeffs, [&](std::size_t k) { return Solution[static_cast<Eigen::Index>(k)]; }); });
  gsl_multifit_linear_free(Work);
  gsl_matrix_free(Covariance);
  gsl_vector_free(Found);
  gsl_vector_free(Right);
  gsl_matrix_free(Rows);
}

struct TDecay {
  std::vector<double> X, Y;
};

/// As many steps of a simplex as ours takes, with a compiled function; ours evaluates a formula.
void CompareSimplex() {
  TDecay Decay;
  for (int i = 0; i < 100'000; ++i) {
    Decay.X.push_back(i * 1e-4);
    Decay.Y.push_back(3 * std::exp(-0.7 * Decay.X.back()) + 0.2 * Decay.X.back() + 1 + 0.1 * std::sin(1e3 * i));
  }
  TZyDoubleVector X, Y;
  X.AddRange(Decay.X);
  Y.AddRange(Decay.Y);
  TZySimplexFit Fit;
  Fit.XData = &X;
  Fit.YData = &Y;
  Fit.SetIterations(300);
  Fit.SetExpression("A*Exp(-B*X)+C*X+D");
  gsl_multimin_function Function{[](const gsl_vector* c, void* Data) {
                                   const auto& Points = *static_cast<TDecay*>(Data);
                                   const double* const k = c->data;
                                   double Sum = 0;
                                   for (std::size_t i = 0; i < Points.X.size(); ++i) {
                                     const double x = Points.X[i];
                                     const double d = Points.Y[i] - (k[0] * std::exp(-k[1] * x) + k[2] * x + k[3]);
                                     Sum += d * d;
                                   }
                                   return Sum;
                                 },
                                 4, &Decay};
  gsl_vector* const Start = gsl_vector_alloc(4);
  gsl_vector* const Size = gsl_vector_alloc(4);
  gsl_multimin_fminimizer* const Search = gsl_multimin_fminimizer_alloc(gsl_multimin_fminimizer_nmsimplex2, 4);
  Compare(
      "simplex, GSL",
      [&] {
        Fit.SetCoefs(std::vector<double>(4, 0.5));
        Fit.Calculate();
      },
      [&] {
        gsl_vector_set_all(Start, 0.5);
        gsl_vector_set_all(Size, 0.525);
        gsl_multimin_fminimizer_set(Search, &Function, Start, Size);
        for (int i = 0; i <= 300; ++i) gsl_multimin_fminimizer_iterate(Search);
      },
      [&] { return Difference(Fit.Coefs(), [&](std::size_t k) { return gsl_vector_get(Search->x, k); }); });
  gsl_multimin_fminimizer_free(Search);
  gsl_vector_free(Size);
  gsl_vector_free(Start);
}

void CompareTransforms(std::size_t Length) {
  TComplexArray Values(Length), Ours;
  for (std::size_t i = 0; i < Length; ++i) Values[i].Re = std::sin(1e-3 * static_cast<double>(i * i % 7919));
  std::vector<std::array<double, 2>> Theirs(Length);
  const auto Fill = [&](auto* To) { std::memcpy(To, Values.data(), Length * sizeof(TComplex)); };
  auto* const Place = reinterpret_cast<fftw_complex*>(Theirs.data());
  Compare(("transform " + std::to_string(Length) + ", FFTW").c_str(),
          [&] {
            Ours = Values;
            DiscreteFourierTransform(Ours);
          },
          [&] {  // planned anew each time, as ours makes its tables
            const fftw_plan Plan =
                fftw_plan_dft_1d(static_cast<int>(Length), Place, Place, FFTW_BACKWARD, FFTW_ESTIMATE);
            Fill(Theirs.data());
            fftw_execute(Plan);
            fftw_destroy_plan(Plan);
            fftw_cleanup();
          },
          [&] {
            double Largest = 0, Error = 0;
            for (std::size_t k = 0; k < Length; ++k) {
              Largest = std::max(Largest, std::hypot(Ours[k].Re, Ours[k].Im));
              Error = std::max(Error, std::hypot(Ours[k].Re - Theirs[k][0], Ours[k].Im - Theirs[k][1]));
            }
            return Error / Largest;
          });
}

}  // namespace

int main() {
  ComparePolynomials(3);
  ComparePolynomials(10);
  CompareSimplex();
  CompareTransforms(std::size_t{1} << 20);
  CompareTransforms(1'000'003);
}
