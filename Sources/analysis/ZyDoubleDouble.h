#pragma once

namespace zy {

/// A number as the sum of two doubles, with about 32 digits and the range of a double.
///
/// For the few sums that lose more digits than a double has. Sums and products by D. E. Knuth ("The Art of Computer
/// Programming", volume 2, 1969) and T. J. Dekker ("A Floating-Point Technique for Extending the Available Precision",
/// Numerische Mathematik 18, 1971). Wants arithmetic that is neither contracted nor reordered. What overflows, and what
/// is no number, is none in the result either.
class TZyDoubleDouble {
 public:
  constexpr TZyDoubleDouble(double Value = 0) : FHigh(Value) {}
  /// The exact difference.
  static TZyDoubleDouble Difference(double a, double b) { return ExactSum(a, -b); }
  /// The nearest double.
  explicit operator double() const { return FHigh; }

  TZyDoubleDouble operator-() const { return {-FHigh, -FLow}; }
  friend TZyDoubleDouble operator+(const TZyDoubleDouble& a, const TZyDoubleDouble& b) {
    const TZyDoubleDouble Sum = ExactSum(a.FHigh, b.FHigh);
    return Normal(Sum.FHigh, Sum.FLow + (a.FLow + b.FLow));
  }
  friend TZyDoubleDouble operator-(const TZyDoubleDouble& a, const TZyDoubleDouble& b) { return a + -b; }
  friend TZyDoubleDouble operator*(const TZyDoubleDouble& a, const TZyDoubleDouble& b) {
    const TZyDoubleDouble Product = ExactProduct(a.FHigh, b.FHigh);
    return Normal(Product.FHigh, Product.FLow + (a.FHigh * b.FLow + a.FLow * b.FHigh));
  }
  friend TZyDoubleDouble operator*(const TZyDoubleDouble& a, double b) {
    const TZyDoubleDouble Product = ExactProduct(a.FHigh, b);
    return Normal(Product.FHigh, Product.FLow + a.FLow * b);
  }
  friend TZyDoubleDouble operator/(const TZyDoubleDouble& a, const TZyDoubleDouble& b) {
    const double Quotient = a.FHigh / b.FHigh;
    const TZyDoubleDouble Rest = a - b * Quotient;
    return Normal(Quotient, Rest.FHigh / b.FHigh);
  }

 private:
  constexpr TZyDoubleDouble(double High, double Low) : FHigh(High), FLow(Low) {}
  static TZyDoubleDouble ExactSum(double a, double b) {
    const double Sum = a + b, Other = Sum - a;
    return {Sum, (a - (Sum - Other)) + (b - Other)};
  }
  static TZyDoubleDouble ExactProduct(double a, double b) {
    const double Product = a * b;
    const TZyDoubleDouble A = Halves(a), B = Halves(b);
    return {Product, ((A.FHigh * B.FHigh - Product) + A.FHigh * B.FLow + A.FLow * B.FHigh) + A.FLow * B.FLow};
  }
  /// Two parts of half the digits each, whose products are exact. (A fused multiplication would do without, but as a
  /// call of the library's it costs more than all of this.)
  static TZyDoubleDouble Halves(double a) {
    constexpr double Split = (1 << 27) + 1;
    const double Shifted = Split * a, High = Shifted - (Shifted - a);
    return {High, a - High};
  }
  static TZyDoubleDouble Normal(double Large, double Small) {
    const double Sum = Large + Small;
    return {Sum, Small - (Sum - Large)};
  }

  double FHigh, FLow = 0;
};

}  // namespace zy
