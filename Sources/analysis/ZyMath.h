#pragma once

namespace zy {

/// The angle in degrees brought into 0 up to, but not including, 360.
double FitTo360Degrees(double Angle);
/// Quadrant of an angle in degrees: 1 up to and including 90, 2 up to 180, 3 up to 270, else 4.
int Quadrant(double Angle);

/// Ten to the power of the exponent; the largest finite double where the power is larger.
double Exp10(int Exponent);
double Exp10(double Exponent);

/// Decimal exponent of the value as it prints with 7 significant digits, so that 9.99999999 has exponent 1. 0 for 0 and
/// for what is not finite.
int Real10thExponent(double Value);
/// Value divided by ten to the power of Exponent.
double ExpMinus(double Value, int Exponent);

/// The next point at or above (at or below) Value of the grid Step x 10^Exponent. A value that lies on the grid within
/// a millionth of a step stays there. Step 0 returns the value.
double RoundUp(double Value, double Step, int Exponent);
double RoundDown(double Value, double Step, int Exponent);

/// Number of significant decimal digits of the value's magnitude as it prints with 16: 3 for 1.25, 1 for 1000, 0 for 0.
int LastSignificant(double Value);

}  // namespace zy
