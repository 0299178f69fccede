// Fits against the certified values of NIST's Statistical Reference Datasets, transforms against the plain sum.

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

#include "analysis/NistData.h"
#include "analysis/curves/ZyDiscreteFourierCalculation.h"
#include "analysis/curves/ZyFourierTransform.h"
#include "analysis/curves/ZyLeastSquaresCalculation.h"
#include "framework/Errors.h"
#include "series/vectors/ZyDoubleVector.h"
#include "texts/Exceptions.h"

namespace zy::testing {
namespace {

double Digits(double Found, double Certified) {
  const double Error = std::fabs(Found - Certified) / (Certified == 0 ? 1 : std::fabs(Certified));
  return Error == 0 ? 16 : -std::log10(Error);
}

TEST(ZyFitsTest, CertifiedData) {
  struct TCase {
    const char* Name;
    int Order;
    double Digits;
  };
  for (const TCase& Case : {TCase{"Filip", 10, 7},
                            {"Longley", 6, 9},
                            {"Norris", 1, 9},
                            {"Wampler1", 5, 9},
                            {"Wampler2", 5, 9},
                            {"Wampler3", 5, 9},
                            {"Wampler4", 5, 9},
                            {"Wampler5", 5, 9}}) {
    const TNistData Data(Case.Name);
    ASSERT_GE(Data.Columns.size(), 2u) << Case.Name;
    const std::size_t Rows = Data.Columns[0].size();
    const bool HasMany = Data.Columns.size() > 2;
    TZyDoubleVector X, Y;
    TZyCustomGeneralLinearLeastSquaresCalculation Fit;
    Fit.XData = &X;
    Fit.YData = &Y;
    for (std::size_t i = 0; i < Rows; ++i) {
      Y.Add(Data.Columns[0][i]);
      X.Add(HasMany ? static_cast<double>(i) : Data.Columns[1][i]);
    }
    if (HasMany)
      Fit.mGetBasisFn = [&Data](TObject*, const TZyGeneralLinearFittingArgs& e) {
        return e.Index == 0 ? 1 : Data.Columns[static_cast<std::size_t>(e.Index)][static_cast<std::size_t>(e.X)];
      };
    Fit.SetOrder(Case.Order);
    Fit.Calculate();
    const double Certified = Data.Certified("Standard Deviation").at(0);
    const double Residual = std::sqrt(Fit.SumOfResiduals / static_cast<double>(Rows - Fit.Coeffs.size()));
    double Fewest = Certified > 0 ? Digits(Residual, Certified) : 16;
    for (std::size_t k = 0; k < Fit.Coeffs.size(); ++k) {
      const std::vector<double> Row = Data.Certified("B" + std::to_string(k) + " ");
      Fewest = std::min(Fewest, Digits(Fit.Coeffs[k], Row.at(0)));
      if (Certified > 0) Fewest = std::min(Fewest, Digits(Fit.DeltaCoeffs[k] * Residual, Row.at(1)));
    }
    RecordProperty(Case.Name, std::to_string(Fewest));
    EXPECT_GE(Fewest, Case.Digits) << Case.Name;
  }
}

// Of many points a polynomial takes sums, and a basis function of the same powers row by row: both say the same, where
// the points lie evenly and where they crowd so that sums do not tell enough.
TEST(ZyFitsTest, SumsTellWhatRowsTell) {
  std::mt19937 Random(3);
  std::normal_distribution<double> Noise;
  for (const bool Crowds : {false, true}) {
    TZyDoubleVector X, Y, Weight;
    for (int i = 0; i < 3000; ++i) {
      const double x = Crowds && i > 12 ? 1 + i * 1e-7 : i * 2e-3 - 1;
      X.Add(x);
      Y.Add(std::sin(x) + 0.1 * Noise(Random));
      Weight.Add(1 + i % 3);
    }
    TZyPolynomialCalculation One, Other;
    for (TZyPolynomialCalculation* Fit : {&One, &Other}) {
      Fit->XData = &X;
      Fit->YData = &Y;
      Fit->Weight = &Weight;
      Fit->SetOrder(6);
    }
    Other.mGetBasisFn = [](TObject*, const TZyGeneralLinearFittingArgs& e) { return std::pow(e.X, e.Index); };
    One.Calculate();
    Other.Calculate();
    const double Close = Crowds ? 1e-6 : 1e-9;  // the powers of the function are rounded, and crowds magnify that
    for (std::size_t k = 0; k < One.Coeffs.size(); ++k) {
      EXPECT_NEAR(One.Coeffs[k], Other.Coeffs[k], Close * std::fabs(Other.Coeffs[k])) << Crowds << k;
      EXPECT_NEAR(One.DeltaCoeffs[k], Other.DeltaCoeffs[k], Close * Other.DeltaCoeffs[k]) << Crowds << k;
    }
    EXPECT_NEAR(One.SumOfResiduals, Other.SumOfResiduals, Close * Other.SumOfResiduals);
  }
}

TEST(ZyFitsTest, PointsThatTakePart) {
  TZyDoubleVector X, Y, Weight;
  TZyPolynomialCalculation Fit;
  EXPECT_NE(MessageOf<EMathError>([&] { Fit.Calculate(); }).find("No X"), std::string::npos);
  Fit.XData = &X;
  Fit.YData = &Y;
  Fit.Weight = &Weight;
  X.AddRange({0.0, 1.0, 1.0, 2.0});
  Y.AddRange({1.0, 50.0, 6.0, 17.0});  // 1 + 2 x + 3 x^2, but for the point that weighs nothing
  Weight.AddRange({1.0, 0.0, 2.0, 1.0});
  Fit.Calculate();
  for (int k = 0; k < 3; ++k) EXPECT_NEAR(Fit.Coeffs[static_cast<std::size_t>(k)], k + 1, 1e-13);
  EXPECT_NEAR(Fit.SumOfResiduals, 0, 1e-24);
  EXPECT_EQ(Fit.AverageX, 1);
  EXPECT_EQ(Fit.VarianceX, 2.0 / 3);
  X.SetValue(0, 2);
  EXPECT_NE(MessageOf<EMathError>([&] { Fit.Calculate(); }).find("Not enough"), std::string::npos) << "equal X";
  EXPECT_NEAR(Fit.Coeffs[2], 3, 1e-13) << "kept";
  Fit.NeedsBasisFn = true;
  EXPECT_NE(MessageOf<EMathError>([&] { Fit.Calculate(); }).find("BasisFunction"), std::string::npos);
  Fit.SmallestOrder = 2;
  Fit.SetOrder(-1);
  EXPECT_EQ(Fit.Order(), 2);
  EXPECT_EQ(Fit.Coeffs, (std::vector<double>{1, 1, 1}));
}

TEST(ZyFitsTest, TransformsOfAnyLength) {
  std::mt19937 Random(5);
  std::uniform_real_distribution<double> Value(-1, 1);
  for (std::size_t n = 1; n <= 200; ++n) {
    TComplexArray a(n);
    for (TComplex& Element : a) Element = {Value(Random), Value(Random)};
    TComplexArray Found = a;
    DiscreteFourierTransform(Found);
    TComplexArray Real = a;
    for (TComplex& Element : Real) Element.Im = 0;
    DiscreteFourierTransform(Real);
    EXPECT_EQ(Real[0].Im, 0) << "the sum of real values";
    long double Largest = 0, Error = 0;
    for (std::size_t k = 0; k < n; ++k) {
      long double Re = 0, Im = 0;
      for (std::size_t j = 0; j < n; ++j) {
        const long double Angle =
            2 * std::numbers::pi_v<long double> * static_cast<long double>(j * k % n) / static_cast<long double>(n);
        Re += a[j].Re * std::cos(Angle) - a[j].Im * std::sin(Angle);
        Im += a[j].Re * std::sin(Angle) + a[j].Im * std::cos(Angle);
      }
      Largest = std::max(Largest, std::hypot(Re, Im));
      Error = std::max(Error, std::hypot(Re - Found[k].Re, Im - Found[k].Im));
    }
    EXPECT_LE(Error, 1e-13L * Largest) << "length " << n;
  }
}

TEST(ZyFitsTest, SpectrumLines) {
  TZyDoubleVector X, Y, Weight;
  TZyDiscreteFourierCalculation Fourier;
  Fourier.XData = &X;
  Fourier.YData = &Y;
  for (int i = 0; i < 8; ++i) X.Add(i), Y.Add(i % 2 == 0 ? 3 : -3 - 4);  // mean -2, swing 5 at half the rate
  Fourier.Start = 0;
  Fourier.Stop = 7;
  Fourier.Calculate();
  ASSERT_EQ(Fourier.Amplitude().Count(), 4);
  EXPECT_NEAR(Fourier.Amplitude().GetValue(0), 4, 1e-14);
  EXPECT_NEAR(Fourier.Amplitude().GetValue(1), 0, 1e-14);
  EXPECT_EQ(Fourier.Phase().GetValue(0), 0) << "of a negative sum";
  EXPECT_DOUBLE_EQ(Fourier.Frequency(2), 2.0 / 7);
  Weight.AddRange({1.0, 0.0, 1.0, 1.0, 1.0, 1.0, 0.0, 1.0});
  Fourier.Weight = &Weight;
  Fourier.Calculate();
  EXPECT_EQ(Fourier.Amplitude().Count(), 3) << "points that weigh nothing leave no gap";
  EXPECT_NEAR(Fourier.Amplitude().GetValue(0), (3 + 3 - 7 + 3 - 7 - 7) / -3.0, 1e-13);
  Fourier.Weight = nullptr;
  TZyDoubleVector Falling, Wave;
  for (int i = 0; i <= 512; ++i) Falling.Add(1 - i / 512.0), Wave.Add(2 * std::sin(14 * std::numbers::pi * i / 512.0));
  Fourier.XData = &Falling;
  Fourier.YData = &Wave;
  Fourier.Stop = 1;
  Fourier.Calculate();
  ASSERT_EQ(Fourier.Amplitude().Count(), 512);
  EXPECT_NEAR(Fourier.Amplitude().GetValue(7), 2, 0.01) << "seven turns";
  EXPECT_LT(Fourier.Amplitude().GetValue(9), 0.02);
}

}  // namespace
}  // namespace zy::testing
