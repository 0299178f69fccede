#include "texts/FormatFloat.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "texts/NumberText.h"

namespace zy {
namespace {

constexpr int ShownDigits = 18;   // of a real; all beyond are zeros
constexpr int LeastExponent = 4;  // most digits that a format can ask of an exponent

bool IsQuote(char C) { return C == '\'' || C == '"'; }
bool IsPlaceholder(char C) { return C == '0' || C == '#'; }

/// Position behind the quoted text that begins at Start; an unclosed one ends with the text.
std::size_t EndOfQuote(std::string_view Text, std::size_t Start) {
  const std::size_t End = Text.find(Text[Start], Start + 1);
  return End == std::string_view::npos ? Text.size() : End + 1;
}

bool IsExponent(std::string_view Text, std::size_t At) {
  return (Text[At] == 'E' || Text[At] == 'e') && At + 1 < Text.size() && (Text[At + 1] == '+' || Text[At + 1] == '-');
}

/// The magnitude of a real as decimal digits: 0.DIGITS x 10^Scale, without zeros at either end; none for zero.
struct TDecimal {
  explicit TDecimal(double Value) {
    if (Value == 0) return;
    std::array<char, 40> Buffer;
    const char* const End = std::to_chars(Buffer.data(), Buffer.data() + Buffer.size(), std::fabs(Value),
                                          std::chars_format::scientific, ShownDigits - 1)
                                .ptr;
    const char* const Mark = std::find(Buffer.data(), const_cast<char*>(End), 'e');
    std::copy_if(static_cast<const char*>(Buffer.data()), Mark, std::back_inserter(Digits),
                 [](char C) { return C != '.'; });
    std::from_chars(Mark + (Mark[1] == '+' ? 2 : 1), End, Scale);
    ++Scale;
    Trim();
  }

  /// Keeps so many digits, rounding a tie up.
  void RoundTo(std::int64_t Count) {
    if (Count >= static_cast<std::int64_t>(Digits.size())) return;
    const bool Up = Count >= 0 && Digits[static_cast<std::size_t>(Count)] >= '5';
    Digits.resize(static_cast<std::size_t>(std::max<std::int64_t>(Count, 0)));
    if (Up) {
      const std::size_t Kept = Digits.find_last_not_of('9') + 1;  // 0 when all are nines
      Digits.resize(Kept);
      if (Kept != 0) {
        ++Digits.back();
      } else {
        Digits = "1";
        ++Scale;
      }
    }
    Trim();
  }

  /// The digit of the power of ten, "0" outside.
  char At(std::int64_t Power) const {
    const std::int64_t Index = Scale - 1 - Power;
    return Index >= 0 && Index < static_cast<std::int64_t>(Digits.size()) ? Digits[static_cast<std::size_t>(Index)]
                                                                          : '0';
  }

  std::string Digits;
  int Scale = 0;

 private:
  void Trim() {
    while (!Digits.empty() && Digits.back() == '0') Digits.pop_back();
    if (Digits.empty()) Scale = 0;
  }
};

/// What a section asks for.
struct TSection {
  explicit TSection(std::string_view AText) : Text(AText) {
    std::int64_t Count = 0, FirstZero = -1, Point = -1, LastZero = -1;
    for (std::size_t i = 0; i < Text.size(); ++i) {
      const char C = Text[i];
      if (IsQuote(C)) {
        i = EndOfQuote(Text, i) - 1;
      } else if (IsPlaceholder(C)) {
        if (C == '0') {
          if (FirstZero < 0) FirstZero = Count;
          LastZero = Count;
        }
        ++Count;
      } else if (C == '.') {
        if (Point < 0) Point = Count;
      } else if (C == ',') {
        Thousands = true;
      } else if (IsExponent(Text, i)) {
        Scientific = true;
        for (i += 2; i < Text.size() && Text[i] == '0'; ++i) {
        }
        --i;
      }
    }
    Places = Point < 0 ? Count : Point;
    Decimals = Count - Places;
    if (FirstZero >= 0) {
      LeastPlaces = std::max<std::int64_t>(Places - FirstZero, 0);
      LeastDecimals = std::max<std::int64_t>(LastZero + 1 - Places, 0);
    }
  }

  std::string_view Text;
  std::int64_t Places = 0;    // placeholders in front of the point
  std::int64_t Decimals = 0;  // and behind it
  std::int64_t LeastPlaces = 0;
  std::int64_t LeastDecimals = 0;
  bool Thousands = false;
  bool Scientific = false;
};

/// Section Index of a format, counted from 0; empty when there is none.
std::string_view Section(std::string_view Format, int Index) {
  std::size_t Start = 0;
  for (std::size_t i = 0; i <= Format.size(); ++i) {
    if (i < Format.size() && IsQuote(Format[i])) {
      i = EndOfQuote(Format, i) - 1;
    } else if (i == Format.size() || Format[i] == ';') {
      if (Index-- == 0) return Format.substr(Start, i - Start);
      Start = i + 1;
    }
  }
  return {};
}

/// Writes one value by one section.
class TWriterOfDigits {
 public:
  TWriterOfDigits(const TSection& ASection, TDecimal& Value) : FSection(ASection), FValue(Value) {
    if (FSection.Scientific && !FValue.Digits.empty()) {
      FExponent = FValue.Scale - FSection.Places;
      FValue.Scale = static_cast<int>(FSection.Places);
    }
    const std::int64_t Last = static_cast<std::int64_t>(FValue.Digits.size()) - FValue.Scale;
    FDecimals = std::max(std::max<std::int64_t>(Last, 0), FSection.LeastDecimals);
    FPlaces = std::max<std::int64_t>(FValue.Scale, FSection.LeastPlaces);
    FPower = FSection.Places;
  }

  std::string Write(bool Negative) {
    if (Negative) FResult += '-';
    const std::string_view Text = FSection.Text;
    for (std::size_t i = 0; i < Text.size(); ++i) {
      const char C = Text[i];
      if (IsQuote(C)) {
        const std::size_t End = EndOfQuote(Text, i), Closed = End - (End > i + 1 && Text[End - 1] == C ? 1 : 0);
        FResult += Text.substr(i + 1, Closed - i - 1);
        i = End - 1;
      } else if (IsPlaceholder(C)) {
        Placeholder();
      } else if (IsExponent(Text, i)) {
        i = Exponent(i) - 1;
      } else if (C != '.' && C != ',') {
        FResult += C;
      }
    }
    return std::move(FResult);
  }

 private:
  /// The next digit; with the first one all those in front of it.
  void Placeholder() {
    if (!FStarted) {
      for (std::int64_t Power = FPlaces - 1; Power >= FSection.Places; --Power) Digit(Power);
      FStarted = true;
    }
    --FPower;
    if (FPower >= 0 ? FPower < FPlaces : -FPower <= FDecimals) Digit(FPower);
  }

  void Digit(std::int64_t Power) {
    if (Power == -1) FResult += FormatSettings().DecimalSeparator;
    FResult += FValue.At(Power);
    if (FSection.Thousands && Power > 0 && Power % 3 == 0) FResult += FormatSettings().ThousandSeparator;
  }

  /// The exponent whose letter stands at At; returns the position behind its zeros.
  std::size_t Exponent(std::size_t At) {
    const std::string_view Text = FSection.Text;
    std::size_t End = At + 2;
    while (End < Text.size() && Text[End] == '0') ++End;
    FResult += Text[At];
    if (FExponent < 0) {
      FResult += '-';
    } else if (Text[At + 1] == '+') {
      FResult += '+';
    }
    const std::string Digits = IntToStr(FExponent < 0 ? -FExponent : FExponent);
    const std::size_t Least = std::min<std::size_t>(End - At - 2, LeastExponent);
    if (Digits.size() < Least) FResult.append(Least - Digits.size(), '0');
    FResult += Digits;
    return End;
  }

  const TSection& FSection;
  TDecimal& FValue;
  std::string FResult;
  std::int64_t FExponent = 0;
  std::int64_t FPlaces = 0;    // digits shown in front of the point
  std::int64_t FDecimals = 0;  // and behind it, as far as placeholders reach
  std::int64_t FPower = 0;     // of the digit written last
  bool FStarted = false;
};

}  // namespace

std::string FormatFloat(std::string_view Format, double Value) {
  if (!std::isfinite(Value)) return FloatToStr(Value);
  int Index = Value > 0 ? 0 : Value < 0 ? 1 : 2;
  for (;;) {
    std::string_view Text = Section(Format, Index);
    bool Negative = false;
    if (Text.empty() && Index != 0) {
      Text = Section(Format, 0);
      Negative = Index == 1;
    }
    if (Text.empty()) return FloatToStr(Value);
    const TSection Asked(Text);
    TDecimal Decimal(Value);
    if (!Asked.Scientific && Decimal.Scale > ShownDigits) return FloatToStr(Value);
    Decimal.RoundTo(Asked.Scientific ? Asked.Places + Asked.Decimals : Decimal.Scale + Asked.Decimals);
    if (Decimal.Digits.empty() && Index != 2) {
      Index = 2;
      Value = 0;
      continue;
    }
    return TWriterOfDigits(Asked, Decimal).Write(Negative);
  }
}

}  // namespace zy
