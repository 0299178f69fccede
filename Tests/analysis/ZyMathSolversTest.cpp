#include "analysis/ZyMathSolvers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>

#include "framework/Errors.h"
#include "texts/Exceptions.h"

namespace zy {
namespace {

TEST(ZyMathSolversTest, PolynomialsMatchTheCertifiedData) {
  // Rows of the NIST StRD data sets Wampler1 and Wampler2, whose certified coefficients are exact.
  EXPECT_EQ(Polynom(20, TDoubleDynArray{1, 1, 1, 1, 1, 1}), 3368421);
  EXPECT_NEAR(Polynom(20, TDoubleDynArray{1, 0.1, 0.01, 0.001, 0.0001, 0.00001}), 63, 1e-13);
}

TEST(ZyMathSolversTest, BandsOfEveryWidthSolveTheirEquations) {
  constexpr std::size_t N = 7;
  const auto Element = [](std::size_t i, std::size_t j) {
    return i == j ? 50.0 : 3 * static_cast<double>(i) - 2 * static_cast<double>(j) - 1.5;
  };
  for (std::size_t Lower = 0; Lower <= 4; ++Lower)
    for (std::size_t Upper = 0; Lower + Upper <= N; ++Upper) {
      TDoubleDynMatrix Matrix(N, TDoubleDynArray(Lower + Upper + 1, std::nan("")));
      for (std::size_t i = 0; i < N; ++i)
        for (std::size_t j = i - std::min(i, Lower); j <= std::min(N - 1, i + Upper); ++j)
          Matrix[i][Lower + j - i] = Element(i, j);
      const TDoubleDynArray Right{3, -1, 4, 1, -5, 9, 2};
      TDoubleDynArray X = Right;
      SolveBandMatrix(static_cast<int>(N), static_cast<int>(Lower), static_cast<int>(Upper), Matrix, X);
      for (std::size_t i = 0; i < N; ++i) {
        double Sum = 0;
        for (std::size_t j = i - std::min(i, Lower); j <= std::min(N - 1, i + Upper); ++j) Sum += Element(i, j) * X[j];
        EXPECT_NEAR(Sum, Right[i], 1e-13) << Lower << ", " << Upper << " row " << i;
      }
    }
}

TEST(ZyMathSolversTest, TridiagonalSystemHasItsClosedForm) {
  constexpr int N = 1000;
  TDoubleDynArray Lower(N, -2.0), Main(N, 4.0), Upper(N - 1, -2.0), Right(N, 2.0);
  Lower[0] = std::nan("");  // not read
  SolveTridiagonalEquationSystem(N, Lower, Main, Upper, Right);
  for (int i = 1; i <= N; ++i)
    EXPECT_NEAR(Right[static_cast<std::size_t>(i - 1)] / (i * (N + 1.0 - i) / 2), 1, 1e-11) << i;
}

TEST(ZyMathSolversTest, SystemsThatCannotBeSolvedAreRefused) {
  struct TCase {
    int N, Lower, Upper;
    TDoubleDynArray Main;  // of a tridiagonal system where there are no bandwidths
  };
  const std::pair<const char*, std::vector<TCase>> Messages[] = {
      {"Not enough data points to calculate function",
       {{2, 1, 0, {}}, {3, 2, 2, {}}, {4, INT_MAX, 2, {}}, {6, 1, 1, {}}, {3, 1, 2, {}}}},
      {"The dimension of the matrix must be positive", {{3, 1, -1, {}}}},
      {"Not enough data, matrix is to small to solve", {{1, 0, 0, {1, 1, 1}}, {4, 0, 0, {1, 1, 1}}}},
      {"Matrix is not tridiagonal", {{3, 0, 0, {4, 0.25, 1}}, {2, 0, 0, {1, 1, 9}}, {3, 0, 0, {1, std::nan(""), 1}}}}};
  for (const auto& [Message, Cases] : Messages)
    for (const auto& Case : Cases) {
      TDoubleDynMatrix Matrix(5, {1, 4, 1});
      TDoubleDynArray Lower(3, 1.0), Main = Case.Main, Upper(3, 1.0), Right(5, 1.0);
      EXPECT_EQ(testing::MessageOf<EMathError>([&] {
                  Main.empty() ? SolveBandMatrix(Case.N, Case.Lower, Case.Upper, Matrix, Right)
                               : SolveTridiagonalEquationSystem(Case.N, Lower, Main, Upper, Right);
                }),
                Message);
      EXPECT_EQ(Right, TDoubleDynArray(5, 1.0));
    }
}

}  // namespace
}  // namespace zy
