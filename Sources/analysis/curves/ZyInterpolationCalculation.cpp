#include "analysis/curves/ZyInterpolationCalculation.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "analysis/ZyMathStatistics.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {

void TZyInterpolationCalculation::Calculate() {
  const bool IsApproximative = FInterpolationMethod == TZyInterpolationMethod::ApproximativeSpline;
  const int FewestPoints = IsApproximative ? 6 : 3;
  PointCount();  // throws without vectors
  for (TExtrema& Each : FExtrema) Each = {};
  FIntCount = FLastIndex = 0;
  FSums.clear();
  TPoints Points = ValidPoints(false, IsApproximative);
  if (!ReadsPlainly() || !XData->GetIsSorted()) {  // what is ascending as stored may not be so when transformed
    if (!std::ranges::is_sorted(Points.X)) Points.Sort();
    MergeEqualX(Points);
  }
  if (Points.Count() < FewestPoints) throw EMathError(LoadResString(_sNotEnoughData));
  if (FDoSmoothing && !IsApproximative) Smooth(FSmoothM, Points.X, Points.Y);
  const int Count = Points.Count();
  switch (FInterpolationMethod) {
    case TZyInterpolationMethod::CubicSpline:
      NormalSplineCoeffs(std::move(Points));
      break;
    case TZyInterpolationMethod::ApproximativeSpline:
      ApproximativeSplineCoeffs(Points);
      break;
    default:
      AkimaCoeffs(std::move(Points));
  }
  FIntCount = Count;
  FRecalculate = false;
}

void TZyInterpolationCalculation::Changed() {
  FRecalculate = true;
  for (TExtrema& Each : FExtrema) Each.AreStale = true;
}

/// From the last point to the first, so that three equal ones become one pair by pair.
void TZyInterpolationCalculation::MergeEqualX(TPoints& Points) const {
  if (std::ranges::adjacent_find(Points.X) == Points.X.end()) return;
  std::size_t Kept = Points.X.size();  // those from here on are final
  for (std::size_t i = Points.X.size(); i-- > 0;) {
    if (Kept < Points.X.size() && Points.X[Kept] == Points.X[i]) {
      Points.Y[Kept] = Points.Y[Kept] / 2 + Points.Y[i] / 2;
      if (!Points.W.empty()) Points.W[Kept] = Points.W[Kept] / 2 + Points.W[i] / 2;
      continue;
    }
    --Kept;
    Points.X[Kept] = Points.X[i];
    Points.Y[Kept] = Points.Y[i];
    if (!Points.W.empty()) Points.W[Kept] = Points.W[i];
  }
  for (std::vector<double>* Values : {&Points.X, &Points.Y, &Points.W})
    if (!Values->empty()) Values->erase(Values->begin(), Values->begin() + static_cast<std::ptrdiff_t>(Kept));
}

// --- Settings -------------------------------------------------------------------------------------------------------

void TZyInterpolationCalculation::SetInterpolationMethod(TZyInterpolationMethod Value) {
  FInterpolationMethod = Value;
  Changed();
  if (Value != TZyInterpolationMethod::ApproximativeSpline || !FDoSmoothing) return;
  FDoSmoothing = false;
  if (OnInformation) OnInformation(LoadResString(_sNoSmoothingWithApproxSpline));
}

void TZyInterpolationCalculation::SetDoSmoothing(bool Value) {
  if (Value && FInterpolationMethod == TZyInterpolationMethod::ApproximativeSpline) {
    if (OnInformation) OnInformation(LoadResString(_sNoSmoothingWithApproxSpline));
    return;
  }
  FDoSmoothing = Value;
  Changed();
}

void TZyInterpolationCalculation::SetSmoothM(double Value) {
  FSmoothM = Value;
  if (FInterpolationMethod != TZyInterpolationMethod::ApproximativeSpline) Changed();
}

void TZyInterpolationCalculation::SetElasticityFactor(double Value) {
  FElasticityFactor = LimitedElasticity(Value);
  if (FInterpolationMethod == TZyInterpolationMethod::ApproximativeSpline) Changed();
}

double TZyInterpolationCalculation::LimitedElasticity(double Value) {
  constexpr double Smallest = 1e-300;
  return Value > 0 ? Value : Smallest;
}

// --- Questions ------------------------------------------------------------------------------------------------------

bool TZyInterpolationCalculation::Holds(int k, double x) const {
  return k >= 0 && k < FIntCount - 1 && (k == 0 || Knot(k) <= x) && x < Knot(k + 1);
}

/// Where the last answer does not help, the place that evenly spaced points would have does, or is near: from there a
/// search that doubles its steps, so that it costs the logarithm of the distance.
int TZyInterpolationCalculation::FindIndex(double x) const {
  const int Last = FIntCount - 1;
  if (Last < 1 || std::isnan(x)) return 0;
  if (x >= Knot(Last)) return Last;
  if (x < Knot(1)) return 0;
  for (const int k : {FLastIndex, FLastIndex + 1})
    if (Holds(k, x)) return FLastIndex = k;
  const double Share = (x - Knot(0)) / (Knot(Last) - Knot(0));
  int Low = Share >= 0 && Share < 1 ? static_cast<int>(Share * Last) : 0;
  int High = Low + 1;
  for (int Step = 1; Low > 0 && Knot(Low) > x; Step *= 2) {
    High = Low;
    Low = std::max(Low - Step, 0);
  }
  for (int Step = 1; High < Last && Knot(High) <= x; Step *= 2) {
    Low = High;
    High = High > Last - Step ? Last : High + Step;
  }
  const auto First = FX.begin();
  return FLastIndex = static_cast<int>(std::upper_bound(First + Low + 1, First + High, x) - First) - 1;
}

double TZyInterpolationCalculation::DYAtK(int k, double t) const {
  const TPiece& P = Piece(k);
  return ((P.D * t + P.C) * t + P.B) * t + P.A;
}

double TZyInterpolationCalculation::DSlopeAtK(int k, double t) const {
  const TPiece& P = Piece(k);
  return (2 * P.C + 3 * P.D * t) * t + P.B;
}

template <class TOf>
double TZyInterpolationCalculation::At(double x, const TOf& Of) {
  if (FRecalculate) Calculate();
  if (FIntCount == 0) return 0;
  const int k = FindIndex(x);
  const double Value = Of(k, x - Knot(k));
  return std::isfinite(Value) ? Value : 0;
}

double TZyInterpolationCalculation::Interpolate(double x) {
  return At(x, [this](int k, double t) { return DYAtK(k, t); });
}

double TZyInterpolationCalculation::Slope(double x) {
  return At(x, [this](int k, double t) { return DSlopeAtK(k, t); });
}

double TZyInterpolationCalculation::Curvature(double x) {
  return At(x, [this](int k, double t) { return 2 * Piece(k).C + 6 * t * Piece(k).D; });
}

double TZyInterpolationCalculation::Integral(double x) {
  return At(x, [this](int k, double t) {
    if (FSums.empty()) TakeSums();
    return FSums[static_cast<std::size_t>(k)] + IntegralOf(Piece(k), t);
  });
}

double TZyInterpolationCalculation::IntegralOf(const TPiece& P, double t) {
  return (((P.D * t / 4 + P.C / 3) * t + P.B / 2) * t + P.A) * t;
}

/// The sums of all pieces once, so that an integral anywhere costs a search. What rounding drops of a sum is carried
/// along (W. Kahan, "Further Remarks on Reducing Truncation Errors", Communications of the ACM 8, 1965).
void TZyInterpolationCalculation::TakeSums() {
  FSums.resize(static_cast<std::size_t>(FIntCount));
  double Sum = 0, Dropped = 0;
  for (int k = 0; k + 1 < FIntCount; ++k) {
    const double Part = IntegralOf(Piece(k), Knot(k + 1) - Knot(k)) - Dropped;
    const double Next = Sum + Part;
    Dropped = std::isfinite(Next) ? (Next - Sum) - Part : 0;
    FSums[static_cast<std::size_t>(k) + 1] = Sum = Next;
  }
}

}  // namespace zy
