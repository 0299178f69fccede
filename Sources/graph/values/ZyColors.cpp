#include "graph/values/ZyColors.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "platform/framework/SystemColors.h"
#include "texts/Exceptions.h"
#include "texts/NumberText.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

/// Desktop colours by the names of the table and the numbers of SystemColor.
struct TSystemName {
  std::string_view Name;
  int Number;
};
constexpr TSystemName SystemNames[] = {
    {"ActiveBorder", 10},
    {"ActiveCaption", 2},
    {"ActiveCaptionText", 9},
    {"AppWorkspace", 12},
    {"Control", 15},
    {"ControlDark", 16},
    {"ControlDarkDark", 21},
    {"ControlLight", 22},
    {"ControlLightLight", 20},
    {"ControlText", 18},
    {"Desktop", 1},
    {"GrayText", 17},
    {"Highlight", 13},
    {"HighlightText", 14},
    {"HotTrack", 26},
    {"InactiveBorder", 11},
    {"InactiveCaption", 3},
    {"InactiveCaptionText", 19},
    {"Info", 24},
    {"InfoText", 23},
    {"Menu", 4},
    {"MenuText", 7},
    {"ScrollBar", 0},
    {"Window", 5},
    {"WindowFrame", 6},
    {"WindowText", 8},
};

struct TFixedColor {
  std::string_view Name;
  TZyColor Value;
};
constexpr TFixedColor FixedColors[] = {
    {"Transparent", Colors::Transparent},
#define ZY_COLOR(Name, Value) {#Name, Value},
#include "graph/values/ZyColorNames.inl"
#undef ZY_COLOR
};

static_assert(std::size(SystemNames) == FirstFixedColor - 1);
static_assert(std::size(SystemNames) + std::size(FixedColors) == NamedColorCount);

void CheckIndex(int Index) {
  if (Index < 1 || Index > NamedColorCount) throw ERangeError(Format(LoadResString(_sVectorIdxOutOfRange), {Index}));
}

bool SameName(std::string_view Left, std::string_view Right) {
  const auto Upper = [](char C) { return C >= 'a' && C <= 'z' ? C - 32 : C; };
  return std::equal(Left.begin(), Left.end(), Right.begin(), Right.end(),
                    [Upper](char A, char B) { return Upper(A) == Upper(B); });
}

/// Largest and smallest channel.
struct TExtremes {
  explicit TExtremes(TZyColor Color)
      : Max(static_cast<int>(std::max({GetR(Color), GetG(Color), GetB(Color)}))),
        Min(static_cast<int>(std::min({GetR(Color), GetG(Color), GetB(Color)}))) {}
  int Max;
  int Min;
};

// Whole channels in numerator and denominator keep these quotients exact where the contrast rules have their limits.

double BrightnessOf(TZyColor Color) {
  const TExtremes Channels(Color);
  return (Channels.Max + Channels.Min) / 510.0;
}

double SaturationOf(TZyColor Color) {
  const auto [Max, Min] = TExtremes(Color);
  if (Max == Min) return 0;
  const int Sum = Max + Min;
  return static_cast<double>(Max - Min) / (Sum <= 255 ? Sum : 510 - Sum);
}

double HueOf(TZyColor Color) {
  const auto [Max, Min] = TExtremes(Color);
  if (Max == Min) return 0;
  const auto R = static_cast<int>(GetR(Color)), G = static_cast<int>(GetG(Color)), B = static_cast<int>(GetB(Color));
  const double Delta = Max - Min;
  double Hue = 0;
  if (R == Max) {
    Hue = 60 * (G - B) / Delta;
  } else if (G == Max) {
    Hue = 120 + 60 * (B - R) / Delta;
  } else {
    Hue = 240 + 60 * (R - G) / Delta;
  }
  return Hue < 0 ? Hue + 360 : Hue;
}

unsigned ChannelByte(double Value) {
  if (!(Value > 0)) return 0;
  return static_cast<unsigned>(std::lround(std::min(Value, 1.0) * 255));
}

double ChannelOf(double P, double Q, double T) {
  if (T < 0) T += 1;
  if (T > 1) T -= 1;
  if (6 * T < 1) return P + (Q - P) * T * 6;
  if (2 * T < 1) return Q;
  if (3 * T < 2) return P + (Q - P) * (2.0 / 3 - T) * 6;
  return P;
}

}  // namespace

std::string_view ColorName(int Index) {
  CheckIndex(Index);
  return Index < FirstFixedColor ? SystemNames[Index - 1].Name : FixedColors[Index - FirstFixedColor].Name;
}

TZyColor NamedColor(int Index) {
  CheckIndex(Index);
  return Index < FirstFixedColor ? SystemColor(SystemNames[Index - 1].Number)
                                 : FixedColors[Index - FirstFixedColor].Value;
}

TZyColor ColorToARGB(std::string_view Text) {
  for (int Index = 1; Index <= NamedColorCount; ++Index)
    if (SameName(Text, ColorName(Index))) return NamedColor(Index);
  const std::int64_t Number = StrToInt(Text);
  if (Number < INT32_MIN || Number > UINT32_MAX) throw EConvertError(Format(LoadResString(_sInvalidNumber), {Text}));
  return static_cast<TZyColor>(Number);
}

std::string ARGBToString(TZyColor Color, bool WithSystem) {
  for (int Index = WithSystem ? 1 : FirstFixedColor; Index <= NamedColorCount; ++Index)
    if (NamedColor(Index) == Color) return std::string(ColorName(Index));
  std::string Result = "$";
  for (int Shift = 28; Shift >= 0; Shift -= 4) Result += "0123456789ABCDEF"[Color >> Shift & 15u];
  return Result;
}

TColor ColorToRGB(TColor Color) {
  if ((static_cast<std::uint32_t>(Color) & 0xFF000000u) != static_cast<std::uint32_t>(SystemColorFlag)) return Color;
  return ARGBToTColor(SystemColor(Color & 0xFFFFFF));
}

TZyColor TColorToARGB(TColor Color) {
  const auto Bits = static_cast<std::uint32_t>(ColorToRGB(Color));
  return ColorToARGB(255, Bits, Bits >> 8, Bits >> 16);
}

std::string ARGBToRichID(TZyColor Color) {
  return Format("[A=%d, R=%d, G=%d, B=%d]", {GetAlpha(Color), GetR(Color), GetG(Color), GetB(Color)});
}

std::string RGBToRichID(TColor Color) { return ARGBToRichID(TColorToARGB(Color)); }

TZyColor RichIDToTZyColor(std::string_view Text) {
  TZyColor Result = 0;
  std::string_view Rest = Text;
  for (const std::string_view Mark : {"A=", "R=", "G=", "B="}) {
    const std::size_t At = Rest.find(Mark);
    if (At == std::string_view::npos) throw EConvertError(Format(LoadResString(_sInvalidNumber), {Text}));
    Rest.remove_prefix(At + Mark.size());
    const std::string_view Number = Mark == "B=" ? Rest : Rest.substr(0, Rest.find(','));
    Result = Result << 8 | (static_cast<TZyColor>(StrToInt(Number)) & 255u);
  }
  return Result;
}

TColor RichIDToTColor(std::string_view Text) { return ARGBToTColor(RichIDToTZyColor(Text)); }

float GetBrightness(TZyColor Color) { return static_cast<float>(BrightnessOf(Color)); }

float GetHue(TZyColor Color) { return static_cast<float>(HueOf(Color)); }

float GetSaturation(TZyColor Color) { return static_cast<float>(SaturationOf(Color)); }

TZyColor HSLToColor(double H, double S, double L) {
  if (L == 0) return Colors::Black;
  if (S == 0) return ColorToARGB(255, ChannelByte(L), ChannelByte(L), ChannelByte(L));
  const double Q = L <= 0.5 ? (1 + S) * L : L + S - L * S;
  const double P = 2 * L - Q;
  return ColorToARGB(255, ChannelByte(ChannelOf(P, Q, H + 1.0 / 3)), ChannelByte(ChannelOf(P, Q, H)),
                     ChannelByte(ChannelOf(P, Q, H - 1.0 / 3)));
}

TZyColor Brighten(TZyColor Color, double Factor) {
  const TZyColor Shade = HSLToColor(HueOf(Color) / 360, SaturationOf(Color), BrightnessOf(Color) * Factor);
  return (Shade & 0x00FFFFFFu) | (Color & 0xFF000000u);
}

TZyColor ContrastBackGroundARGB(TZyColor Color) {
  const double Hue = HueOf(Color), Brightness = BrightnessOf(Color);
  const bool IsYellow = Hue > 45 && Hue < 85;
  if (IsYellow) return Brightness >= 0.5 ? Colors::DimGray : Colors::White;
  return Brightness < 0.8 ? Colors::White : Colors::DimGray;
}

TZyColor ContrastBackGround(TColor Color) { return ContrastBackGroundARGB(TColorToARGB(Color)); }

TZyColor ContrastForeColorARGB(TZyColor Color) {
  const double Hue = HueOf(Color), Brightness = BrightnessOf(Color);
  if (Hue >= 45 && Hue <= 250) return Brightness >= 0.5 ? Colors::DarkRed : Colors::LightCoral;
  return Brightness < 0.75 ? Colors::LightGreen : Colors::DarkGreen;
}

}  // namespace zy
