#include "analysis/ZyMath.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>
#include <utility>

namespace zy {
namespace {

constexpr double LargestDouble = std::numeric_limits<double>::max();
constexpr double JustBelowHalf = 0.499999;  // not 0.5: a value on the grid must stay there
constexpr int BeyondAllDoubles = 1000;      // a shift by so many decades leaves no finite number but 0

/// Text in exponent notation with so many digits behind the point.
struct TScientific {
  TScientific(double Value, int Decimals) {
    const auto Result =
        std::to_chars(Buffer.data(), Buffer.data() + Buffer.size(), Value, std::chars_format::scientific, Decimals);
    Text = std::string_view(Buffer.data(), static_cast<std::size_t>(Result.ptr - Buffer.data()));
  }
  std::string_view Mantissa() const { return Text.substr(0, Text.find('e')); }
  std::string_view Exponent() const { return Text.substr(Text.find('e') + 1); }

  std::array<char, 40> Buffer;
  std::string_view Text;
};

double RoundToGrid(double Value, double Step, int Exponent, double Shift) {
  if (Step == 0) return Value;
  Exponent = std::clamp(Exponent, -BeyondAllDoubles, BeyondAllDoubles);  // so that it can be negated
  const double Steps = std::nearbyint(ExpMinus(Value, Exponent) / Step + Shift);
  return ExpMinus(Steps * Step, -Exponent);
}

double RoundLog(double Value, double Decades, double Step, bool Up) {
  if (!(Value > 0) || !std::isfinite(Value)) return Value;
  const double Logarithm = std::log10(Value);
  int Decade = static_cast<int>(Logarithm);  // towards zero
  const double Fraction = Logarithm - Decade;
  if (Decades > 1 || Step == 1) {
    if (Up && Fraction > 0) ++Decade;
    if (!Up && Fraction < 0) --Decade;
    if (Decades > 1)
      while (Decade % 3 != 0) Decade += Up ? 1 : -1;
    return Exp10(Decade);
  }
  if (Fraction == 0) return Exp10(Decade);
  // The mantissa below 1, in tenths of which the steps count.
  double Mantissa = Exp10(Fraction);
  if (Logarithm > 0) {
    Mantissa *= 0.1;
    ++Decade;
  }
  Mantissa = Up ? RoundUp(Mantissa, Step, 0) : RoundDown(Mantissa, Step, 0);
  if (Mantissa <= 0) {
    Mantissa += 1;
    --Decade;
  }
  // Its logarithm plus the decade would give the same number but for the last digits.
  const double Rounded = ExpMinus(Mantissa, -Decade);
  return std::isfinite(Rounded) ? Rounded : LargestDouble;
}

}  // namespace

double FitTo360Degrees(double Angle) {
  if (!std::isfinite(Angle)) return 0;
  Angle = std::fmod(Angle, 360.0);
  if (Angle < 0) Angle += 360;
  return Angle >= 360 ? 0 : Angle;
}

int Quadrant(double Angle) {
  Angle = FitTo360Degrees(Angle);
  if (Angle <= 90) return 1;
  if (Angle <= 180) return 2;
  return Angle <= 270 ? 3 : 4;
}

namespace {

std::array<double, 301> PowersOf(double Base) {
  std::array<double, 301> Result{};
  for (std::size_t i = 0; i < Result.size(); ++i) Result[i] = std::pow(Base, static_cast<double>(i));
  return Result;
}

/// 10^Exponent for 0 to 300, each computed once: a layout asks for some hundred of them. They are the values that
/// std::pow gives when the program runs, as in Exp10; those that a compiler computes differ in the last bit of some.
double PowerOfTen(int Exponent) {
  static volatile double Ten = 10;
  static const std::array<double, 301> Powers = PowersOf(Ten);
  return Powers[static_cast<std::size_t>(Exponent)];
}

}  // namespace

double Exp10(int Exponent) { return Exp10(static_cast<double>(Exponent)); }

double Exp10(double Exponent) {
  const double Power = std::pow(10.0, Exponent);
  return Power <= LargestDouble ? Power : LargestDouble;
}

namespace {

constexpr int FarDecade = 31;

/// The least number of a decade, and the largest one that no rounding of its digits takes into the next decade.
struct TDecade {
  double First, Last;
};

const TDecade& DecadeOf(int Exponent) {
  static const auto Decades = [] {
    constexpr double Slightly = 1e-5;
    std::array<TDecade, 2 * FarDecade + 1> Result;
    int Each = -FarDecade;
    for (TDecade& Decade : Result) {
      Decade.First = Each < 0 ? 1 / PowerOfTen(-Each) : PowerOfTen(Each);
      Decade.Last = Decade.First * (10 - Slightly);
      ++Each;
    }
    return Result;
  }();
  const int Place = Exponent + FarDecade;
  return Decades[static_cast<std::size_t>(Place)];
}

/// The decimal exponent of a number that no rounding of its digits takes into the next decade; nothing for others. A
/// layout asks for some hundred of them, so that this looks them up by the binary exponent.
std::optional<int> PlainExponent(double Value) {
  const double Size = std::fabs(Value);
  if (!(Size >= 1e-30 && Size <= 1e30)) return {};
  const int Binary = static_cast<int>(std::bit_cast<std::uint64_t>(Size) >> 52) - 1023;
  int Exponent = Binary * 1233 >> 12;  // times the logarithm of 2, rounded down: this one, or one more
  if (Size >= DecadeOf(Exponent + 1).First) ++Exponent;
  if (Size < DecadeOf(Exponent).First || Size > DecadeOf(Exponent).Last) return {};
  return Exponent;
}

/// Digits of a number that is one of two digits at most times a power of ten, also in sixteen digits, as steps of axes
/// are; nothing for others.
std::optional<int> FewDigits(double Size) {
  constexpr int Smallest = -20, Greatest = 15;  // for which the powers below are exact
  const std::optional<int> Exponent = PlainExponent(Size);
  if (!Exponent || *Exponent < Smallest || *Exponent > Greatest) return {};
  const int Decimals = 1 - *Exponent;  // of two digits
  double Number = 0;
  if (Decimals < 0) {
    Number = std::nearbyint(Size / PowerOfTen(-Decimals));
    if (Number * PowerOfTen(-Decimals) != Size) return {};
  } else {
    constexpr double Rounded = 4.5e-15;  // below half of the sixteenth digit; a tenth of that below a power of ten
    Number = std::nearbyint(Size * PowerOfTen(Decimals));
    const double Rest = std::fma(Size, PowerOfTen(Decimals), -Number);
    if (Rest > Rounded || Rest < (Number == 10 ? -Rounded / 10 : -Rounded)) return {};
  }
  return std::fmod(Number, 10) == 0 ? 1 : 2;
}

}  // namespace

int Real10thExponent(double Value) {
  if (!std::isfinite(Value)) return 0;
  if (const std::optional<int> Plain = PlainExponent(Value)) return *Plain;
  const TScientific Number(Value, 6);
  std::string_view Digits = Number.Exponent();
  if (Digits.front() == '+') Digits.remove_prefix(1);
  int Exponent = 0;
  std::from_chars(Digits.data(), Digits.data() + Digits.size(), Exponent);
  return Exponent;
}

double ExpMinus(double Value, int Exponent) {
  // The power itself must stay finite, for the smallest values as well.
  Exponent = std::clamp(Exponent, -BeyondAllDoubles, BeyondAllDoubles);
  if (Exponent < -300 || Exponent > 300) return ExpMinus(ExpMinus(Value, Exponent / 2), Exponent - Exponent / 2);
  // Multiplying by the positive power keeps the result exact to the last bit where 10^-e is no binary fraction.
  return Exponent < 0 ? Value * PowerOfTen(-Exponent) : Value / PowerOfTen(Exponent);
}

double RoundUp(double Value, double Step, int Exponent) { return RoundToGrid(Value, Step, Exponent, JustBelowHalf); }
double RoundDown(double Value, double Step, int Exponent) { return RoundToGrid(Value, Step, Exponent, -JustBelowHalf); }

double RoundLogUp(double Value, double Decades, double Step) { return RoundLog(Value, Decades, Step, true); }
double RoundLogDown(double Value, double Decades, double Step) { return RoundLog(Value, Decades, Step, false); }

int LastSignificant(double Value) {
  if (!std::isfinite(Value)) return 0;
  if (const std::optional<int> Few = FewDigits(std::fabs(Value))) return *Few;
  const TScientific Number(std::fabs(Value), 15);
  const std::string_view Mantissa = Number.Mantissa();
  const std::size_t Last = Mantissa.find_last_not_of(".0");
  if (Last == std::string_view::npos) return 0;
  return Last == 0 ? 1 : static_cast<int>(Last);  // the separator stands between the first digit and the others
}

void Swap(int& A, int& B) { std::swap(A, B); }
void Swap(double& A, double& B) { std::swap(A, B); }

int MySign(int Value) { return Value < 0 ? -1 : 1; }
double MySign(double Value) { return Value < 0 ? -1 : 1; }

}  // namespace zy
