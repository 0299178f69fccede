#pragma once

#include "analysis/curves/ZyCalculation.h"
#include "analysis/curves/ZyFourierTransform.h"
#include "series/vectors/ZyDoubleVector.h"

namespace zy {

/// Amplitude and phase of the discrete Fourier transform of the data, one line for each frequency up to half of the
/// points.
///
/// Data by ascending X count as equidistant, whatever their gaps; a point that does not take part leaves no gap. Others
/// are first laid onto 1024 equidistant points of a smooth curve from Start to Stop, which must be finite then.
class TZyDiscreteFourierCalculation : public TZyCalculation {
 public:
  /// Throws EMathError without data, for too few points to lay a curve through, and where Stop does not lie above
  /// Start. The lines then stay as they were.
  void Calculate() override;
  /// Frequency of line i, in turns for each unit of X.
  double Frequency(int i) const { return i * FDelta; }
  double Delta() const { return FDelta; }
  /// Magnitude of each line divided by the number of lines, and its angle in radians. Of a negative real value the
  /// angle is 0 like that of a positive one.
  TZyDoubleVector& Amplitude() { return FAmplitude; }
  TZyDoubleVector& Phase() { return FPhase; }

 private:
  TComplexArray Values() const;
  TComplexArray Resampled() const;

  double FDelta = 0;
  TZyDoubleVector FPhase, FAmplitude;
};

}  // namespace zy
