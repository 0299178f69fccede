#include "graph/values/ZyStringFunctions.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <utility>

#include "texts/Exceptions.h"
#include "texts/NumberText.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

constexpr int MostDigits = 15;  // significant digits of shown reals

int ToInt(std::int64_t Value, std::string_view Text) {
  if (!std::in_range<int>(Value)) throw EConvertError(Format(LoadResString(_sInvalidNumber), {Text}));
  return static_cast<int>(Value);
}

/// General text with its exponent in as few characters as there are: "1.2E-5", "1.5E6".
std::string GeneralText(double Value, int Precision) {
  if (!std::isfinite(Value) || Value == 0) return FloatToStr(Value);
  std::array<char, 64> Buffer;
  const auto Result = std::to_chars(Buffer.data(), Buffer.data() + Buffer.size(), Value, std::chars_format::general,
                                    std::min(Precision, MostDigits));
  std::string Text = DeAmericanize({Buffer.data(), Result.ptr});
  if (const std::size_t At = Text.find('e'); At != std::string::npos) {
    const std::size_t Digits = Text.find_first_not_of("+-0", At + 1);
    Text.replace(At, Digits - At, Text[At + 1] == '-' ? "E-" : "E");
  }
  return Text;
}

template <class T, class TToText>
std::string Join(std::span<const T> Values, TToText ToText) {
  std::string Result;
  for (std::size_t Index = 0; Index < Values.size(); ++Index) {
    if (Index > 0) Result += ';';
    Result += ToText(Values[Index]);
  }
  return Result;
}

template <class T, class TFromText>
std::vector<T> Split(std::string_view Text, TFromText FromText) {
  std::vector<T> Result;
  while (!Text.empty()) {
    const std::size_t End = Text.find(';');
    Result.push_back(FromText(Text.substr(0, End)));
    if (End == std::string_view::npos) break;
    Text.remove_prefix(End + 1);
    if (Text.empty()) Result.push_back(FromText(Text));  // behind a last ";" an empty part is left, which is no number
  }
  return Result;
}

bool IsDigit(char C) { return C >= '0' && C <= '9'; }
bool IsLetter(char C) { return (C >= 'a' && C <= 'z') || (C >= 'A' && C <= 'Z'); }

/// Walks over a number and stops at the first character that cannot belong to it.
class TNumberScan {
 public:
  explicit TNumberScan(std::string_view Text) : FText(Text) {}

  bool Integer() {
    Sign();
    return Digits();
  }
  bool Real() {
    Sign();
    bool Found = Digits();
    if (Next() == '.') {
      ++FAt;
      Found = Digits() || Found;
    }
    if (!Found) return false;
    if (Next() != 'e' && Next() != 'E') return true;
    ++FAt;
    return Integer();
  }
  /// Where the scan stopped.
  std::size_t At() const { return FAt; }

 private:
  char Next() const { return FAt < FText.size() ? FText[FAt] : '\0'; }
  void Sign() {
    if (Next() == '+' || Next() == '-') ++FAt;
  }
  bool Digits() {
    const std::size_t First = FAt;
    while (IsDigit(Next())) ++FAt;
    return FAt > First;
  }

  std::string_view FText;
  std::size_t FAt = 0;
};

/// Takes the scanned number and one character behind it off the front.
std::string TakeNumber(std::string& Text, std::size_t Length) {
  std::string Number = Text.substr(0, Length);
  Text.erase(0, Length + 1);
  return Number;
}

bool BeginsWithNaN(std::string_view Text) {
  return Text.size() >= 3 && (Text[0] == 'N' || Text[0] == 'n') && (Text[1] == 'A' || Text[1] == 'a') &&
         (Text[2] == 'N' || Text[2] == 'n') && (Text.size() == 3 || !IsLetter(Text[3]));
}

/// EraseToNumber that stops in front of the word NaN too, and does not stop at an E within a word.
void EraseToNumberOrNaN(std::string& Text) {
  std::string Numbers = Text;
  for (std::size_t Before = Numbers.size() + 1; Numbers.size() < Before;) {
    Before = Numbers.size();
    EraseToNumber(Numbers);
  }
  const std::size_t Skipped = Text.size() - Numbers.size();
  for (std::size_t At = 0; At < Skipped; ++At) {
    if ((At == 0 || !IsLetter(Text[At - 1])) && BeginsWithNaN(std::string_view(Text).substr(At))) {
      Text.erase(0, At);
      return;
    }
  }
  Text = std::move(Numbers);
}

}  // namespace

int LastPos(char Character, std::string_view Text) {
  const std::size_t At = Text.rfind(Character);
  return At == std::string_view::npos ? -1 : static_cast<int>(At) + 1;
}

int LastPointPos(std::string_view Text) { return LastPos('.', Text); }

bool CharIn(char Character, std::string_view Text) { return Text.find(Character) != std::string_view::npos; }

std::string IndexToAlphabet(int Index) {
  std::string Result;
  for (; Index > 0; Index = (Index - 1) / 26) Result.insert(Result.begin(), static_cast<char>('A' + (Index - 1) % 26));
  return Result;
}

std::string RealToStrDigits(double Value, int Digits) {
  if (Digits <= 0) return FloatToStr(Value);
  int Precision = std::min(Digits, MostDigits);
  std::string Text = GeneralText(Value, Precision);
  while (std::cmp_greater(Text.size(), Digits) && Precision > 0) Text = GeneralText(Value, --Precision);
  return Text;
}

std::string Americanize(std::string_view Text) {
  std::string Result(Text);
  std::replace(Result.begin(), Result.end(), FormatSettings().DecimalSeparator, '.');
  return Result;
}

std::string DeAmericanize(std::string_view Text) {
  std::string Result(Text);
  std::replace(Result.begin(), Result.end(), '.', FormatSettings().DecimalSeparator);
  return Result;
}

std::string DoubleToStr(double Value) { return RealToText(Value); }

std::string SingleToStr(float Value) {
  if (!std::isfinite(Value)) return RealToText(Value);
  std::array<char, 32> Buffer;
  const auto Result = std::to_chars(Buffer.data(), Buffer.data() + Buffer.size(), Value);
  return {Buffer.data(), Result.ptr};
}

double DoubleFromStr(std::string_view Text) { return StrToFloat(DeAmericanize(Text)); }

std::string DoubleArrayToString(std::span<const double> Values) { return Join(Values, DoubleToStr); }

std::vector<double> StringToDoubleArray(std::string_view Text) { return Split<double>(Text, DoubleFromStr); }

std::string IntegerArrayToString(std::span<const int> Values) { return Join(Values, IntToStr); }

std::vector<int> StringToIntegerArray(std::string_view Text) {
  return Split<int>(Text, [](std::string_view Part) { return ToInt(StrToInt(Part), Part); });
}

void EraseToNumber(std::string& Text) {
  std::size_t Skipped = 0;
  if (Text.size() > 1 && (Text[0] == 'E' || Text[0] == 'e') && !IsIntegerDigit(Text[1])) Skipped = 1;
  while (Skipped < Text.size() && !IsAmericanNumberDigit(Text[Skipped])) ++Skipped;
  Text.erase(0, Skipped);
}

int ExtractOneInt(std::string& Text) {
  Text.erase(0, static_cast<std::size_t>(std::find_if(Text.begin(), Text.end(), IsIntegerDigit) - Text.begin()));
  TNumberScan Scan(Text);
  const bool Found = Scan.Integer();
  const std::string Number = TakeNumber(Text, Scan.At());
  try {
    if (Found) return ToInt(StrToInt(Number), Number);
  } catch (const EConvertError&) {  // beyond the range
  }
  throw EConvertError(LoadResString(_sExtrInt));
}

double ExtractOneDouble(std::string& Text) {
  EraseToNumberOrNaN(Text);
  if (BeginsWithNaN(Text)) {
    Text.erase(0, 3);
    EraseToNumberOrNaN(Text);
    return std::bit_cast<double>(std::uint64_t{0xFFF8000000000000});
  }
  TNumberScan Scan(Text);
  const bool Found = Scan.Real();
  const std::string Number = TakeNumber(Text, Scan.At());
  EraseToNumberOrNaN(Text);
  try {
    if (Found) return TextToReal(Number);
  } catch (const EConvertError&) {  // beyond the range
  }
  throw EConvertError(LoadResString(_sExtrDouble));
}

int ShiftStateToInt(TShiftState Shift) { return static_cast<int>(Shift.Bits()); }

TShiftState IntToShiftState(int Bits) {
  const auto Known = (1u << EnumInfo(TShiftStateElement{}).Values.size()) - 1;
  return TShiftState::FromBits(static_cast<std::uint32_t>(Bits) & Known);
}

std::string ShiftStateToStr(TShiftState Shift) { return IntToStr(ShiftStateToInt(Shift)); }

TShiftState StrToShiftState(std::string_view Text) { return IntToShiftState(ToInt(StrToInt(Text), Text)); }

}  // namespace zy
