#include "analysis/curves/ZyFourierTransform.h"

#include <bit>
#include <cmath>
#include <numbers>
#include <utility>

namespace zy {
namespace {

TComplex Sum(TComplex a, TComplex b) { return {a.Re + b.Re, a.Im + b.Im}; }
TComplex Difference(TComplex a, TComplex b) { return {a.Re - b.Re, a.Im - b.Im}; }
TComplex Product(TComplex a, TComplex b) { return {a.Re * b.Re - a.Im * b.Im, a.Re * b.Im + a.Im * b.Re}; }
TComplex Conjugate(TComplex a) { return {a.Re, -a.Im}; }
TComplex TimesI(TComplex a) { return {-a.Im, a.Re}; }

/// exp(2 pi i k / n), from its own angle.
TComplex Root(std::size_t k, std::size_t n) {
  const double Angle = 2 * std::numbers::pi * (static_cast<double>(k) / static_cast<double>(n));
  return {std::cos(Angle), std::sin(Angle)};
}

/// exp(2 pi i k / n) for any k below n as one product of two from tables, so that no error grows.
class TRoots {
 public:
  explicit TRoots(std::size_t n) {
    for (std::size_t k = 0; k < Fine && k < n; ++k) FFine.push_back(Root(k, n));
    for (std::size_t k = 0; k < n; k += Fine) FCoarse.push_back(Root(k, n));
  }
  TComplex At(std::size_t k) const { return Product(FCoarse[k / Fine], FFine[k % Fine]); }

 private:
  static constexpr std::size_t Fine = 1024;
  TComplexArray FFine, FCoarse;
};

/// The transform of a power of two, depth first, so that all but the largest steps stay in the nearest cache. It
/// divides the values modulo x^n - 1 by the factors of that polynomial, four at a time, down to the values at its
/// roots. These come in the order of the reversed bits of their numbers.
class TTransform {
 public:
  explicit TTransform(std::size_t n) : FCount(n), FRoots(n / 2) {
    const TRoots Roots(n);
    std::size_t Reversed = 0;
    for (TComplex& Each : FRoots) {
      Each = Roots.At(Reversed);
      std::size_t Bit = n / 4;
      for (; (Reversed & Bit) != 0; Bit /= 2) Reversed ^= Bit;
      Reversed ^= Bit;
    }
  }

  void Forward(TComplex* a) const { Forward(a, FCount, 0); }
  /// Back from the reversed order, times n.
  void Backward(TComplex* a) const { Backward(a, FCount, 0); }

 private:
  /// Block s of its size: the values modulo x^n - w, where w is the square of root s.
  void Forward(TComplex* a, std::size_t n, std::size_t s) const {
    if (n < 2) return;
    const TComplex Outer = FRoots[s];
    if (n == 2) {
      const TComplex Low = a[0], High = Product(a[1], Outer);
      a[0] = Sum(Low, High);
      a[1] = Difference(Low, High);
      return;
    }
    const TComplex Inner = FRoots[2 * s], Both = Product(Outer, Inner);
    const std::size_t q = n / 4;
    for (std::size_t k = 0; k < q; ++k) {
      const TComplex A = a[k], B = Product(a[k + q], Inner), C = Product(a[k + 2 * q], Outer),
                     D = Product(a[k + 3 * q], Both);
      const TComplex AC = Sum(A, C), BD = Sum(B, D), AMinusC = Difference(A, C), Turned = TimesI(Difference(B, D));
      a[k] = Sum(AC, BD);
      a[k + q] = Difference(AC, BD);
      a[k + 2 * q] = Sum(AMinusC, Turned);
      a[k + 3 * q] = Difference(AMinusC, Turned);
    }
    for (std::size_t i = 0; q > 1 && i < 4; ++i) Forward(a + i * q, q, 4 * s + i);
  }

  void Backward(TComplex* a, std::size_t n, std::size_t s) const {
    if (n < 2) return;
    const TComplex Outer = Conjugate(FRoots[s]);
    if (n == 2) {
      const TComplex One = a[0], Other = a[1];
      a[0] = Sum(One, Other);
      a[1] = Product(Difference(One, Other), Outer);
      return;
    }
    const TComplex Inner = Conjugate(FRoots[2 * s]), Both = Product(Outer, Inner);
    const std::size_t q = n / 4;
    for (std::size_t i = 0; q > 1 && i < 4; ++i) Backward(a + i * q, q, 4 * s + i);
    for (std::size_t k = 0; k < q; ++k) {
      const TComplex AC = Sum(a[k], a[k + q]), BD = Difference(a[k], a[k + q]),
                     AMinusC = Sum(a[k + 2 * q], a[k + 3 * q]), Turned = TimesI(Difference(a[k + 2 * q], a[k + 3 * q]));
      a[k] = Sum(AC, AMinusC);
      a[k + q] = Product(Difference(BD, Turned), Inner);
      a[k + 2 * q] = Product(Difference(AC, AMinusC), Outer);
      a[k + 3 * q] = Product(Sum(BD, Turned), Both);
    }
  }

  std::size_t FCount;
  TComplexArray FRoots;  // in reversed order; those of a shorter transform are the first ones
};

/// Puts values back into the order of their numbers.
void ReverseBits(TComplexArray& a) {
  const std::size_t n = a.size();
  for (std::size_t i = 1, j = 0; i < n; ++i) {
    std::size_t Bit = n / 2;
    for (; (j & Bit) != 0; Bit /= 2) j ^= Bit;
    j ^= Bit;
    if (i < j) std::swap(a[i], a[j]);
  }
}

/// With jk = (j^2 + k^2 - (k - j)^2) / 2 the sum is a convolution, and that is a product of transforms, whose order
/// does not matter.
void TransformByChirp(TComplexArray& a) {
  const std::size_t n = a.size(), m = std::bit_ceil(2 * n - 1);
  const TRoots Roots(2 * n);
  TComplexArray Chirp(n), Data(m), Kernel(m);
  std::size_t Square = 0;  // k^2 modulo 2 n, without the large product
  for (std::size_t k = 0; k < n; ++k) {
    Chirp[k] = Roots.At(Square);
    Square += 2 * k + 1;
    if (Square >= 2 * n) Square -= 2 * n;
    Data[k] = Product(a[k], Chirp[k]);
    Kernel[k] = Conjugate(Chirp[k]);
    if (k > 0) Kernel[m - k] = Kernel[k];
  }
  const TTransform Transform(m);
  Transform.Forward(Data.data());
  Transform.Forward(Kernel.data());
  for (std::size_t k = 0; k < m; ++k) Data[k] = Product(Data[k], Kernel[k]);
  Transform.Backward(Data.data());
  const double Scale = 1 / static_cast<double>(m);
  for (std::size_t k = 0; k < n; ++k) a[k] = Product({Data[k].Re * Scale, Data[k].Im * Scale}, Chirp[k]);
}

}  // namespace

void DiscreteFourierTransform(TComplexArray& a) {
  if (a.size() < 2) return;
  TComplex Total;
  for (const TComplex& Each : a) Total = Sum(Total, Each);
  if (std::has_single_bit(a.size())) {
    TTransform(a.size()).Forward(a.data());
    ReverseBits(a);
  } else {
    TransformByChirp(a);
  }
  a.front() = Total;  // that of real values is real
}

}  // namespace zy
