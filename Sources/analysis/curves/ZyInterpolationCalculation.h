#pragma once

#include <array>
#include <functional>
#include <span>
#include <string_view>
#include <vector>

#include "analysis/curves/ZyCalculation.h"
#include "platform/framework/EnumInfo.h"

namespace zy {

/// How a curve runs through points: by local slopes, as a cubic spline, or near the points as a spline that smooths.
enum class TZyInterpolationMethod { Akima, CubicSpline, ApproximativeSpline };
ZY_ENUM(TZyInterpolationMethod, "Akima", "CubicSpline", "ApproximativeSpline")

/// A place on a curve.
struct TZyDoublePoint {
  double X = 0, Y = 0;
  bool operator==(const TZyDoublePoint&) const = default;
};
using TZyDoublePointArray = std::vector<TZyDoublePoint>;

/// A curve through points, piecewise cubic: its value, slope, curvature and running integral anywhere, and where these
/// have their extrema.
///
/// - `Akima` follows steps of the data without overshooting far (H. Akima, "A New Method of Interpolation and Smooth
///   Curve Fitting Based on Local Procedures", Journal of the ACM 17, 1970).
/// - `CubicSpline` has a continuous curvature, with ends of the kind "not a knot" (C. de Boor, "A Practical Guide to
///   Splines", 1978, chapter IV).
/// - `ApproximativeSpline` passes near the points, as near as their weights ask (C. H. Reinsch, "Smoothing by Spline
///   Functions", Numerische Mathematik 10, 1967): of all curves the one with the smallest sum of w (y - s(x))^2 plus
///   the integral of the squared second derivative of s, where w is the weight of a point times ElasticityFactor.
///
/// Points with the same X count as one with the mean of their Y, points of weight 0 not at all. Beyond the last point
/// Akima's curve goes on as it continues the data, that of the cubic spline without slope and the smoothing one
/// straight; before the first one each goes on with its first piece. A value that is too large for a number reads 0.
class TZyInterpolationCalculation : public TZyCalculation {
 public:
  /// Throws EMathError for fewer than three points, or six of the approximative spline.
  void Calculate() override;
  /// The data changed; the next question computes anew.
  void Changed();
  /// Whether the next question computes anew.
  bool IsStale() const { return FRecalculate; }

  // ---- Settings ----

  TZyInterpolationMethod InterpolationMethod() const { return FInterpolationMethod; }
  /// The approximative spline smooths by itself: it switches DoSmoothing off, and says so by OnInformation.
  void SetInterpolationMethod(TZyInterpolationMethod Value);
  /// Whether the Y are smoothed before a curve is laid through them, each by its neighbours nearer than SmoothM. Stays
  /// off with the approximative spline, which is said by OnInformation.
  bool DoSmoothing() const { return FDoSmoothing; }
  void SetDoSmoothing(bool Value);
  /// In units of X; 0 smooths nothing.
  double SmoothM() const { return FSmoothM; }
  void SetSmoothM(double Value);
  /// What the weights of the approximative spline are multiplied by: less makes the curve stiffer, up to the regression
  /// line of the points, more draws it into the points. Values of 0 or below become 1E-300.
  double ElasticityFactor() const { return FElasticityFactor; }
  void SetElasticityFactor(double Value);
  static double LimitedElasticity(double Value);
  /// Told what the user ought to know of a setting that was not taken; empty at first.
  std::function<void(std::string_view Text)> OnInformation;

  // ---- Questions, which compute first when data or settings changed ----

  double Interpolate(double x);
  double Slope(double x);
  double Curvature(double x);
  /// From the first point to x; negative before it.
  double Integral(double x);
  /// Local extrema of the curve, of its slope and of its integral, by ascending X but for two on one piece. They are
  /// searched at the first question. Without data they are those of before.
  const TZyDoublePointArray& GetMinima() { return Extrema(Curve).Minima; }
  const TZyDoublePointArray& GetMaxima() { return Extrema(Curve).Maxima; }
  const TZyDoublePointArray& GetDiffMinima() { return Extrema(Differential).Minima; }
  const TZyDoublePointArray& GetDiffMaxima() { return Extrema(Differential).Maxima; }
  const TZyDoublePointArray& GetIntMinima() { return Extrema(IntegralOfIt).Minima; }
  const TZyDoublePointArray& GetIntMaxima() { return Extrema(IntegralOfIt).Maxima; }

  // ---- The pieces; they stand as they were computed last ----

  /// Number of the piece that holds x: 0 before the second point, the last one from the last point on. One step along a
  /// sweep, a bisection anywhere.
  int FindIndex(double x) const;
  /// Value and slope on piece k at a distance t from its start.
  double DYAtK(int k, double t) const;
  double DSlopeAtK(int k, double t) const;
  /// Number of points that the curve is built on, after those of the same X became one.
  int Count() const { return FIntCount; }

 private:
  /// The curve on a piece is A + B t + C t^2 + D t^3 at a distance t from its start.
  struct TPiece {
    double A = 0, B = 0, C = 0, D = 0;
  };
  enum TExtremaOf { Curve, Differential, IntegralOfIt };
  struct TExtrema {
    bool AreStale = true;
    TZyDoublePointArray Minima, Maxima;
  };

  void MergeEqualX(TPoints& Points) const;
  void AkimaCoeffs(TPoints&& Points);
  void NormalSplineCoeffs(TPoints&& Points);
  void ApproximativeSplineCoeffs(const TPoints& Points);

  const TPiece& Piece(int k) const { return FPieces[static_cast<std::size_t>(k)]; }
  double Knot(int k) const { return FX[static_cast<std::size_t>(k)]; }
  bool Holds(int k, double x) const;
  template <class TOf>
  double At(double x, const TOf& Of);
  static double IntegralOf(const TPiece& Piece, double t);
  void TakeSums();

  const TExtrema& Extrema(TExtremaOf Kind);
  void FindExtrema(TExtrema& Found);
  void FindDifferentialExtrema(TExtrema& Found);
  void FindIntegralExtrema(TExtrema& Found);
  double ZeroOf(int k) const;

  bool FRecalculate = true;
  bool FDoSmoothing = false;
  TZyInterpolationMethod FInterpolationMethod = TZyInterpolationMethod::Akima;
  double FSmoothM = 0;
  double FElasticityFactor = 1;
  int FIntCount = 0;
  mutable int FLastIndex = 0;   // the piece that was asked for last
  std::vector<double> FX;       // where the pieces start, and where the last one ends if it does
  std::vector<TPiece> FPieces;  // one for each point at least
  std::vector<double> FSums;    // of the integrals of all pieces before each; empty until somebody asks
  std::array<TExtrema, 3> FExtrema;
};

}  // namespace zy
