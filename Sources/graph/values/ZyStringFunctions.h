#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/framework/ShiftState.h"

namespace zy {

// ---- Characters ----

/// Position of the last Character in Text, counted in bytes from 1; -1 when there is none.
int LastPos(char Character, std::string_view Text);
/// LastPos of the character ".".
int LastPointPos(std::string_view Text);
bool CharIn(char Character, std::string_view Text);
/// "A" for 1, "Z" for 26, "AA" for 27 and so on; empty for 0 and below.
std::string IndexToAlphabet(int Index);

// ---- Reals as texts ----

/// Text of a real for showing that fits into Digits characters whenever a precision of up to 15 significant digits can
/// do that, in the locale's decimal separator. With Digits of 0 or below the general text.
std::string RealToStrDigits(double Value, int Digits);

/// Replaces the locale's decimal separator by ".".
std::string Americanize(std::string_view Text);
/// Replaces "." by the locale's decimal separator.
std::string DeAmericanize(std::string_view Text);

/// Stored text of a real: the shortest that reads back as the very same value, with a decimal point in every locale.
std::string DoubleToStr(double Value);
/// The same for a single: the shortest text that reads back as the very same single.
std::string SingleToStr(float Value);
/// Inverse of both; takes the locale's decimal separator too. Throws EConvertError for a text that is no number.
double DoubleFromStr(std::string_view Text);

/// Stored texts joined by ";"; empty for no values.
std::string DoubleArrayToString(std::span<const double> Values);
/// Inverse of DoubleArrayToString. Throws EConvertError.
std::vector<double> StringToDoubleArray(std::string_view Text);
std::string IntegerArrayToString(std::span<const int> Values);
/// Inverse of IntegerArrayToString. Throws EConvertError.
std::vector<int> StringToIntegerArray(std::string_view Text);

// ---- Numbers out of a text that holds other things as well ----

/// True for "+", "-" and the digits.
constexpr bool IsIntegerDigit(char C) { return C == '+' || C == '-' || (C >= '0' && C <= '9'); }
/// True for ".", "E" and "e" as well.
constexpr bool IsAmericanNumberDigit(char C) { return IsIntegerDigit(C) || C == '.' || C == 'E' || C == 'e'; }

/// Drops leading characters up to the next one that a number can begin with.
void EraseToNumber(std::string& Text);
/// Takes the first integer off the front of Text, together with the one character behind it. Throws EConvertError when
/// there is none, or one beyond 32 bits.
int ExtractOneInt(std::string& Text);
/// Takes the first real, with a decimal point, off the front of Text, with all that follows up to the next. The word
/// NaN counts as a number. Throws EConvertError when there is none, or one beyond the range of reals.
double ExtractOneDouble(std::string& Text);

// ---- Keys and mouse buttons ----

/// The bits of a shift state as a number, and as decimal text. Bits without a meaning are dropped on the way back.
int ShiftStateToInt(TShiftState Shift);
TShiftState IntToShiftState(int Bits);
std::string ShiftStateToStr(TShiftState Shift);
/// Throws EConvertError for a text that is no number.
TShiftState StrToShiftState(std::string_view Text);

}  // namespace zy
