#pragma once

#include <cstdint>

namespace zy {

/// The angle in degrees brought into 0 up to, but not including, 360. 0 for what is not finite.
double FitTo360Degrees(double Angle);
/// Quadrant of an angle in degrees: 1 up to and including 90, 2 up to 180, 3 up to 270, else 4.
int Quadrant(double Angle);

/// Ten to the power of the exponent; the largest finite double where the power is larger or no number.
double Exp10(int Exponent);
double Exp10(double Exponent);

/// Decimal exponent of the value as it prints with 7 significant digits, so that 9.99999999 has exponent 1. 0 for 0 and
/// for what is not finite.
int Real10thExponent(double Value);
/// Value divided by ten to the power of Exponent.
double ExpMinus(double Value, int Exponent);

/// The next point at or above (at or below) Value of the grid Step x 10^Exponent: the loose labelling of P. S.
/// Heckbert, "Nice Numbers for Graph Labels", Graphics Gems, 1990. A value that lies on the grid within a millionth of
/// a step stays there. Ties go to the even multiple (IEEE 754). Step 0 returns the value.
double RoundUp(double Value, double Step, int Exponent);
double RoundDown(double Value, double Step, int Exponent);

/// The same on a logarithmic scale. With Decades above 1, the next power of ten whose exponent is a multiple of 3.
/// Otherwise with Step 1 the next power of ten, and with another Step the next multiple of that part of the decade's
/// upper end: with 0.2, 3 goes up to 4 and 0.3 to 0.4. Every power of ten is on these grids. A multiple of 0 is no end
/// of a logarithmic scale, the decade's lower end stands in for it. A value without a logarithm is returned as it is.
double RoundLogUp(double Value, double Decades, double Step);
double RoundLogDown(double Value, double Decades, double Step);

/// Number of significant decimal digits of the value's magnitude as it prints with 16: 3 for 1.25, 1 for 1000, 0 for 0.
int LastSignificant(double Value);

/// Exchanges two numbers.
void Swap(int& A, int& B);
void Swap(double& A, double& B);

/// -1 for a negative number, +1 otherwise, also for 0 and for what is not a number.
int MySign(int Value);
double MySign(double Value);

/// A place whose coordinates have 16 bits.
struct TSmallPoint {
  std::int16_t X = 0;
  std::int16_t Y = 0;
  bool operator==(const TSmallPoint&) const = default;
};

/// Whether the point, of members X and Y, lies in the rectangle or on its edges. Right and bottom edge belong to it:
/// for rectangles of Left, Top, Right and Bottom that is one pixel more than what they paint.
template <typename TPlace, typename TRectangle>
constexpr bool PointInRect(const TPlace& Point, const TRectangle& Rect) {
  const double X = Point.X, Y = Point.Y;
  if constexpr (requires { Rect.Left; }) {
    return Rect.Left <= X && X <= Rect.Right && Rect.Top <= Y && Y <= Rect.Bottom;
  } else {
    const double Left = Rect.X, Top = Rect.Y;
    return Left <= X && X <= Left + Rect.Width && Top <= Y && Y <= Top + Rect.Height;
  }
}

}  // namespace zy
