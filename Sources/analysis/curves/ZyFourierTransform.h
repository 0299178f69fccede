#pragma once

#include <vector>

namespace zy {

/// A complex number.
struct TComplex {
  double Re = 0, Im = 0;
};

/// Complex numbers in a row.
using TComplexArray = std::vector<TComplex>;

/// Replaces a of n values by its discrete Fourier transform: the sum over j of a[j] exp(+2 pi i j k / n) for each k.
/// Note the sign, and that nothing is divided by n. The roots have all the digits of a double.
///
/// Any length costs n log n: powers of two by J. W. Cooley and J. W. Tukey ("An Algorithm for the Machine Calculation
/// of Complex Fourier Series", Mathematics of Computation 19, 1965), others as a convolution with a chirp by L. I.
/// Bluestein
/// ("A linear filtering approach to the computation of discrete Fourier transform", IEEE Transactions on Audio and
/// Electroacoustics 18, 1970).
void DiscreteFourierTransform(TComplexArray& a);

}  // namespace zy
