#include "analysis/curves/ZyFourierTransform.h"

#include <bit>
#include <cmath>
#include <numbers>
#include <utility>

namespace zy {
namespace {

TComplex Product(const TComplex& a, const TComplex& b) {
  return {a.Re * b.Re - a.Im * b.Im, a.Re * b.Im + a.Im * b.Re};
}

/// exp(2 pi i k / n), each from its own angle, so that no error grows along a table.
TComplex Root(std::size_t k, std::size_t n) {
  const double Angle = 2 * std::numbers::pi * (static_cast<double>(k) / static_cast<double>(n));
  return {std::cos(Angle), std::sin(Angle)};
}

TComplexArray RootsFor(std::size_t n) {
  TComplexArray Roots(n / 2);
  for (std::size_t k = 0; k < Roots.size(); ++k) Roots[k] = Root(k, n);
  return Roots;
}

/// Butterflies from large to small, then the places with their bits reversed. The length is a power of two.
void TransformPowerOfTwo(TComplexArray& a, const TComplexArray& Roots) {
  const std::size_t n = a.size();
  for (std::size_t Half = n / 2, Step = 1; Half > 0; Half /= 2, Step *= 2) {
    for (std::size_t First = 0; First < n; First += 2 * Half) {
      for (std::size_t k = 0; k < Half; ++k) {
        TComplex &Low = a[First + k], &High = a[First + k + Half];
        const TComplex Difference{Low.Re - High.Re, Low.Im - High.Im};
        Low = {Low.Re + High.Re, Low.Im + High.Im};
        High = Product(Difference, Roots[k * Step]);
      }
    }
  }
  for (std::size_t i = 1, j = 0; i < n; ++i) {
    std::size_t Bit = n / 2;
    for (; (j & Bit) != 0; Bit /= 2) j ^= Bit;
    j ^= Bit;
    if (i < j) std::swap(a[i], a[j]);
  }
}

/// With jk = (j^2 + k^2 - (k - j)^2) / 2 the sum is a convolution, and that is a product of transforms.
void TransformByChirp(TComplexArray& a) {
  const std::size_t n = a.size(), m = std::bit_ceil(2 * n - 1);
  const TComplexArray Roots = RootsFor(m);
  TComplexArray Chirp(n), Data(m), Kernel(m);
  std::size_t Square = 0;  // k^2 modulo 2 n, without the large product
  for (std::size_t k = 0; k < n; ++k) {
    Chirp[k] = Root(Square, 2 * n);
    Square = (Square + 2 * k + 1) % (2 * n);
    Data[k] = Product(a[k], Chirp[k]);
    Kernel[k] = {Chirp[k].Re, -Chirp[k].Im};
    if (k > 0) Kernel[m - k] = Kernel[k];
  }
  TransformPowerOfTwo(Data, Roots);
  TransformPowerOfTwo(Kernel, Roots);
  // The way back is the same transform of the conjugate values.
  for (std::size_t k = 0; k < m; ++k) {
    Data[k] = Product(Data[k], Kernel[k]);
    Data[k].Im = -Data[k].Im;
  }
  TransformPowerOfTwo(Data, Roots);
  const double Scale = 1 / static_cast<double>(m);
  for (std::size_t k = 0; k < n; ++k) a[k] = Product({Data[k].Re * Scale, -Data[k].Im * Scale}, Chirp[k]);
}

}  // namespace

void DiscreteFourierTransform(TComplexArray& a) {
  if (a.size() < 2) return;
  if (std::has_single_bit(a.size()))
    TransformPowerOfTwo(a, RootsFor(a.size()));
  else
    TransformByChirp(a);
}

}  // namespace zy
