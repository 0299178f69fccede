#include "analysis/ZyMath.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string_view>

namespace zy {
namespace {

constexpr double LargestDouble = std::numeric_limits<double>::max();
constexpr double JustBelowHalf = 0.499999;  // not 0.5: a value on the grid must stay there

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

double Exp10(int Exponent) { return Exp10(static_cast<double>(Exponent)); }

double Exp10(double Exponent) {
  const double Power = std::pow(10.0, Exponent);
  return Power <= LargestDouble ? Power : LargestDouble;
}

int Real10thExponent(double Value) {
  if (!std::isfinite(Value)) return 0;
  const TScientific Number(Value, 6);
  std::string_view Digits = Number.Exponent();
  if (Digits.front() == '+') Digits.remove_prefix(1);
  int Exponent = 0;
  std::from_chars(Digits.data(), Digits.data() + Digits.size(), Exponent);
  return Exponent;
}

double ExpMinus(double Value, int Exponent) {
  // The power itself must stay finite, for the smallest values as well.
  if (Exponent < -300 || Exponent > 300) return ExpMinus(ExpMinus(Value, Exponent / 2), Exponent - Exponent / 2);
  // Multiplying by the positive power keeps the result exact to the last bit where 10^-e is no binary fraction.
  return Exponent == 0 ? Value : Exponent < 0 ? Value * std::pow(10.0, -Exponent) : Value / std::pow(10.0, Exponent);
}

double RoundUp(double Value, double Step, int Exponent) {
  if (Step == 0) return Value;
  const double Steps = std::nearbyint(ExpMinus(Value, Exponent) / Step + JustBelowHalf);
  return ExpMinus(Steps * Step, -Exponent);
}

double RoundDown(double Value, double Step, int Exponent) {
  if (Step == 0) return Value;
  const double Steps = std::nearbyint(ExpMinus(Value, Exponent) / Step - JustBelowHalf);
  return ExpMinus(Steps * Step, -Exponent);
}

int LastSignificant(double Value) {
  if (!std::isfinite(Value)) return 0;
  const TScientific Number(std::fabs(Value), 15);
  const std::string_view Mantissa = Number.Mantissa();
  const std::size_t Last = Mantissa.find_last_not_of(".0");
  if (Last == std::string_view::npos) return 0;
  return Last == 0 ? 1 : static_cast<int>(Last);  // the separator stands between the first digit and the others
}

}  // namespace zy
