#include "analysis/curves/ZyDiscreteFourierCalculation.h"

#include <cmath>
#include <numbers>

#include "analysis/curves/ZyInterpolationCalculation.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {

void TZyDiscreteFourierCalculation::Calculate() {
  constexpr double NearPi = 1e-15;
  PointCount();  // throws without vectors, before anything else does
  if (!(Stop > Start)) throw EMathError(LoadResString(_sNotEnoughData));
  TComplexArray Lines = XData->OnlyAscending() ? Values() : Resampled();
  DiscreteFourierTransform(Lines);
  Lines.resize(Lines.size() / 2);
  std::vector<double> Phases, Amplitudes;
  Phases.reserve(Lines.size());
  Amplitudes.reserve(Lines.size());
  for (const TComplex& Line : Lines) {
    const double Angle = Line.Re == 0 ? 0 : std::atan2(Line.Im, Line.Re);
    Phases.push_back(std::fabs(Angle - std::numbers::pi) <= NearPi ? 0 : Angle);
    Amplitudes.push_back(std::hypot(Line.Re, Line.Im) / static_cast<double>(Lines.size()));
  }
  FPhase.SetInternalArray(std::move(Phases));
  FAmplitude.SetInternalArray(std::move(Amplitudes));
  FDelta = 1 / (Stop - Start);
}

/// Points that are not finite are left out, like those of weight 0.
TComplexArray TZyDiscreteFourierCalculation::Values() const {
  TComplexArray Result;
  for (const double Value : ValidPoints(false).Y) Result.push_back({Value, 0});
  return Result;
}

/// Of the values that the spectrum is asked for: its outliers and its transformations.
TComplexArray TZyDiscreteFourierCalculation::Resampled() const {
  constexpr int Points = 1024;
  TZyInterpolationCalculation Curve;
  Curve.XData = XData;
  Curve.YData = YData;
  Curve.Weight = Weight;
  Curve.Start = Start;
  Curve.Stop = Stop;
  Curve.OutliersVisible = OutliersVisible;
  Curve.Sender = Sender;
  Curve.mXValueTransformation = mXValueTransformation;
  Curve.mYValueTransformation = mYValueTransformation;
  Curve.mWeightValueTransformation = mWeightValueTransformation;
  Curve.Calculate();
  TComplexArray Result(Points);
  const double Step = (Stop - Start) / (Points - 1);
  for (int i = 0; i < Points; ++i) Result[static_cast<std::size_t>(i)].Re = Curve.Interpolate(Start + i * Step);
  return Result;
}

}  // namespace zy
