#include "dialogs/controls/ZyDoubleEdit.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>

#include "axes/ZyDateTimeText.h"
#include "dialogs/controls/ZyDateTimeInput.h"
#include "graph/values/ZyStringFunctions.h"
#include "platform/framework/TPropInfo.h"
#include "texts/Exceptions.h"
#include "texts/FormatFloat.h"
#include "texts/NumberText.h"
#include "texts/Utf8.h"

namespace zy {

// Limits and ways of showing stand before the value, so that a stored value finds them there already.
ZY_PUBLISHED(
    TZyCustomDoubleEdit, TCustomEdit,
    Published<&TZyCustomDoubleEdit::AsDateTime, &TZyCustomDoubleEdit::SetAsDateTime>("AsDateTime", false).Hidden(),
    Published<&TZyCustomDoubleEdit::AsTimeSpan, &TZyCustomDoubleEdit::SetAsTimeSpan>("AsTimeSpan", false).Hidden(),
    Published<&TZyCustomDoubleEdit::DoHashes, &TZyCustomDoubleEdit::SetDoHashes>("DoHashes", true).Hidden(),
    Published<&TZyCustomDoubleEdit::Format, &TZyCustomDoubleEdit::SetFormat>("Format", std::string()).Hidden(),
    Published<&TZyCustomDoubleEdit::MinValue, &TZyCustomDoubleEdit::SetMinValue>("MinValue", 0.0).Hidden(),
    Published<&TZyCustomDoubleEdit::MaxValue, &TZyCustomDoubleEdit::SetMaxValue>("MaxValue", 0.0).Hidden(),
    Published<&TZyCustomDoubleEdit::Value, &TZyCustomDoubleEdit::SetValue>("Value", 0.0).Hidden(),
    Published<&TZyCustomDoubleEdit::PropertyLinks>("PropertyLinks").Hidden(),
    Published<&TZyCustomDoubleEdit::OnValueChanged, &TZyCustomDoubleEdit::SetOnValueChanged>("OnValueChanged").Hidden())
ZY_PUBLISHED(TZyDoubleEdit, TZyCustomDoubleEdit,
             Republished("AsDateTime AsTimeSpan DoHashes Format MinValue MaxValue Value PropertyLinks OnValueChanged"))

namespace {

constexpr double FirstDateTime = -693593.0;
constexpr double LastDateTime = 2958465.99998843;

/// A typed text without what a format shows around the number: groups of digits, a unit.
std::string WithoutFormat(std::string_view Text, std::string_view Format) {
  std::string Plain(Text);
  if (Format.find(',') != std::string_view::npos) std::erase(Plain, FormatSettings().ThousandSeparator);
  constexpr std::string_view Number = "0123456789+-.";
  const auto IsOfNumber = [Number](char C) {
    return Number.find(C) != std::string_view::npos || C == FormatSettings().DecimalSeparator;
  };
  const auto First = std::ranges::find_if(Plain, IsOfNumber);
  auto Last = Plain.end();
  while (Last != First && !IsOfNumber(*(Last - 1))) --Last;
  return std::string(First, Last);
}

}  // namespace

TZyCustomDoubleEdit::TZyCustomDoubleEdit(TComponent* Owner) : TZyNumberEdit(Owner) {
  SetText("0");
  LinkBy("Value");
}

TZyCustomDoubleEdit::~TZyCustomDoubleEdit() { Destroying(); }

std::string TZyCustomDoubleEdit::DoubleStr(double Value) const {
  constexpr double MostDigits = 1e18;
  if (!FFormat.empty()) return FormatFloat(FFormat, Value);
  if (FDigits >= 0 && std::fabs(Value) < MostDigits) return FloatToStrFixed(Value, FDigits);
  return FloatToStr(Value);
}

double TZyCustomDoubleEdit::Check(double Value) const {
  const double Within = TZyNumberEdit::Check(Value);
  return FAsDateTime ? std::clamp(Within, FirstDateTime, LastDateTime) : Within;
}

void TZyCustomDoubleEdit::CheckDateTimeMinMax() {
  if (FAsDateTime && MaxValue() > MinValue()) ClampLimits(FirstDateTime, LastDateTime);
}

void TZyCustomDoubleEdit::SetMode(bool& Mode, bool& Other, bool Value) {
  if (Value == Mode) return;
  Mode = Value;
  if (Value) Other = false;
  CheckDateTimeMinMax();
  SetValue(TZyNumberEdit::Value());
}

void TZyCustomDoubleEdit::SetAsDateTime(bool Value) { SetMode(FAsDateTime, FAsTimeSpan, Value); }

void TZyCustomDoubleEdit::SetAsTimeSpan(bool Value) { SetMode(FAsTimeSpan, FAsDateTime, Value); }

void TZyCustomDoubleEdit::SetDoHashes(bool Value) {
  if (Value == FDoHashes) return;
  FDoHashes = Value;
  ShowAnew();
}

void TZyCustomDoubleEdit::SetFormat(const std::string& Value) {
  if (Value == FFormat) return;
  FFormat = Value;
  ShowAnew();
}

void TZyCustomDoubleEdit::SetDigits(int Value) {
  const int Within = std::clamp(Value, 0, 18);
  if (Within == FDigits) return;
  FDigits = Within;
  ShowAnew();
}

void TZyCustomDoubleEdit::ShowAllDigits() {
  FDigits = -1;
  ShowAnew();
}

std::string TZyCustomDoubleEdit::TextOf(double Value) const {
  if (FAsDateTime) return DateTimeToString("c", Value);
  return FAsTimeSpan ? DoubleToTimeSpanStr(Value) : DoubleStr(Value);
}

std::optional<double> TZyCustomDoubleEdit::Parse(const std::string& Text) const {
  try {
    if (FAsDateTime) return DateTimeOfInput(Text);
    const double Number = FAsTimeSpan       ? DoubleFomTimeSpanStr(Text)
                          : FFormat.empty() ? DoubleFromStr(Text)
                                            : DoubleFromStr(WithoutFormat(Text, FFormat));
    if (std::isfinite(Number)) return Number;
  } catch (const EConvertError&) {
  }
  return std::nullopt;
}

bool TZyCustomDoubleEdit::Accepts(char32_t Key) const {
  const TFormatSettings& Locale = FormatSettings();
  std::string Allowed = std::string("0123456789+-Ee.") + Locale.DecimalSeparator;
  if (FAsDateTime || FAsTimeSpan)
    Allowed += Locale.TimeAMString + Locale.TimePMString + Locale.DateSeparator + Locale.TimeSeparator + ' ';
  std::string Typed;
  AppendUtf8(Typed, Key);
  return Allowed.find(Typed) != std::string::npos;
}

/// The shown digits tell no more.
bool TZyCustomDoubleEdit::IsSame(double Left, double Right) const {
  return Left == Right || (static_cast<float>(Left) == static_cast<float>(Right) && !FAsDateTime && !FAsTimeSpan) ||
         TextOf(Left) == TextOf(Right);
}

std::string TZyCustomDoubleEdit::Fitted(int Width) {
  std::string Shown = TextOf(Value());
  if (!FAsDateTime && !FAsTimeSpan) {
    constexpr int MostDigits = 19, LeastDigits = 2, Slack = 2;
    for (int Digits = MostDigits; Digits > LeastDigits && WidthOf(Shown) > Width + Slack; --Digits)
      Shown = RealToStrDigits(Value(), Digits - 1);
    Width += Slack;
  }
  return FDoHashes ? TextOrHashes(std::move(Shown), Width) : Shown;
}

TZyDoubleEdit::TZyDoubleEdit(TComponent* Owner) : TZyCustomDoubleEdit(Owner) {}

TZyDoubleEdit::~TZyDoubleEdit() { Destroying(); }

}  // namespace zy
