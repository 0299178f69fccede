#include "analysis/curves/ZyLinearRegressionCalculation.h"

#include <cmath>
#include <limits>

#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

constexpr double Largest = std::numeric_limits<double>::max();

[[noreturn]] void ThrowTooFewPoints() { throw EMathError(LoadResString(_sNotEnoughData)); }

}  // namespace

double TZyLinearRegressionCalculation::Xi(int i) const {
  const double Value = TZyCalculation::Xi(i);
  return XLog ? std::log10(Value) : Value;
}

double TZyLinearRegressionCalculation::Yi(int i) const {
  const double Value = TZyCalculation::Yi(i);
  return YLog ? std::log10(Value) : Value;
}

void TZyLinearRegressionCalculation::Calculate() {
  PointCount();  // throws without vectors
  SumX = SumY = SumW = SumWXX = SumWXY = SumWdXY = Qxx = Qyy = 0;
  AverageX = AverageY = VarianceX = VarianceY = SumOfResiduals = Probability = Correlation = Slope = 0;
  DeltaSlope = -Largest;
  DeltaOffset = Largest;
  const int UsedPoints = TakeMeans();
  if (!(SumW > 0)) ThrowTooFewPoints();
  TakeDeviations();
  if (SumW > 1) {
    VarianceX = Qxx / (SumW - 1);
    VarianceY = Qyy / (SumW - 1);
  }
  if (FixedOffset) {
    CalculateWithFixedOffset();
  } else {
    Offset = 0;
    CalculateWithOffset(UsedPoints);
  }
}

/// Sums of the distances from the first point: of data far from 0 they keep the digits that sums of values lose.
int TZyLinearRegressionCalculation::TakeMeans() {
  int Used = 0;
  double FirstX = 0, FirstY = 0, DX = 0, DY = 0;
  ForEachPoint([&](double X, double Y, double W) {
    if (Used++ == 0) {
      FirstX = X;
      FirstY = Y;
    }
    SumW += W;
    DX += W * (X - FirstX);
    DY += W * (Y - FirstY);
  });
  SumX = DX + FirstX * SumW;
  SumY = DY + FirstY * SumW;
  AverageX = FirstX + DX / SumW;
  AverageY = FirstY + DY / SumW;
  return Used;
}

/// What is left of the deviations themselves corrects the rounding of the means (T. F. Chan, G. H. Golub, R. J.
/// LeVeque, "Algorithms for Computing the Sample Variance", The American Statistician 37, 1983).
void TZyLinearRegressionCalculation::TakeDeviations() {
  double LeftX = 0, LeftY = 0;
  ForEachPoint([&](double X, double Y, double W) {
    const double DX = X - AverageX, DY = Y - AverageY, WX = W * DX, WY = W * DY;
    LeftX += WX;
    LeftY += WY;
    Qxx += WX * DX;
    Qyy += WY * DY;
    SumWdXY += WX * DY;
  });
  Qxx -= LeftX * LeftX / SumW;
  Qyy -= LeftY * LeftY / SumW;
  SumWdXY -= LeftX * LeftY / SumW;
}

void TZyLinearRegressionCalculation::CalculateWithFixedOffset() {
  ForEachPoint([&](double X, double Y, double W) {
    SumWXX += W * X * X;
    SumWXY += W * X * (Y - Offset);
  });
  if (!(SumWXX > 0) || SumW == 1) ThrowTooFewPoints();
  SumWdXY = 0;
  Slope = SumWXY / SumWXX;
  ForEachPoint([&](double X, double Y, double W) {
    const double Residual = Y - X * Slope - Offset;
    SumOfResiduals += W * Residual * Residual;
  });
  DeltaOffset = 0;
  if (SumW > 1) DeltaSlope = std::sqrt(SumOfResiduals / ((SumW - 1) * SumWXX));
  Probability = Qyy > 0 ? 1 - SumOfResiduals / Qyy : SumOfResiduals > 0 ? 0 : 1;
}

void TZyLinearRegressionCalculation::CalculateWithOffset(int UsedPoints) {
  if (UsedPoints < 2) ThrowTooFewPoints();
  if (!(Qxx > 0)) {
    Slope = Offset = Largest;
    Correlation = Probability = 1;
    return;
  }
  Slope = SumWdXY / Qxx;
  Offset = AverageY - Slope * AverageX;
  ForEachPoint([&](double X, double Y, double W) {
    const double Residual = (Y - AverageY) - Slope * (X - AverageX);
    SumOfResiduals += W * Residual * Residual;
  });
  Correlation = Qyy > 0 ? Slope * std::sqrt(Qxx / Qyy) : 1;
  Probability = Qyy > 0 ? 1 - SumOfResiduals / Qyy : 1;
  if (SumW == 2) ThrowTooFewPoints();
  if (SumW < 2) return;
  DeltaSlope = std::sqrt(SumOfResiduals / ((SumW - 2) * Qxx));
  DeltaOffset = std::sqrt((1 / SumW + AverageX * AverageX / Qxx) * SumOfResiduals / (SumW - 2));
}

/// The spread of y about its mean stands for that about the line, and the point of t below the root.
double TZyLinearRegressionCalculation::Confidence(double x, double T95) const {
  if (!(Qxx > 0) || !(SumW > 2)) return 0;
  const double Distance = x - AverageX;
  return std::sqrt((1 / SumW + Distance * Distance / Qxx) * (Qyy / (SumW - 2)) * T95);
}

}  // namespace zy
