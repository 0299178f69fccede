// The steps of ticks and labels, chosen for the room that there is, and the number format that they need.

#include <algorithm>
#include <cmath>
#include <limits>

#include "analysis/ZyMath.h"
#include "axes/ZyAxis.h"
#include "platform/controls/TWinControl.h"
#include "texts/NumberText.h"

namespace zy {
namespace {

constexpr float GapBetweenLabels = 70;     // pixels
constexpr float GapBetweenLogLabels = 30;  // pixels
constexpr double Half = 0.5 + 1e-9;        // so that what is a half but for rounding counts as one
constexpr double SmallPart = 1e-6;         // of a step; a label that near to the end stands
constexpr int MostDecimals = 18;           // and most digits before the point; a real has no more to show
constexpr int FarExponent = 1000;          // beyond those of all reals, and still fit for sums

bool IsUsable(const TZyTickTable& Table) {
  const auto AllPositive = [](const std::array<double, 3>& Parts) {
    return std::all_of(Parts.begin(), Parts.end(), [](double Part) { return Part > 0 && std::isfinite(Part); });
  };
  return AllPositive(Table.LabelParts) && AllPositive(Table.MajorParts) && AllPositive(Table.MinorParts);
}

std::ptrdiff_t CharacterCount(const std::string& Text) {
  return std::count_if(Text.begin(), Text.end(), [](char C) { return (static_cast<unsigned char>(C) & 0xC0) != 0x80; });
}

int DecadesOf(double Start, double Stop) { return static_cast<int>(std::lround(std::log10(Stop) - std::log10(Start))); }

}  // namespace

/// Extent along the axis that the layout gives the control. A new control and one whose parent was resized get it only
/// in the next pass, while ranges are taken before it.
float TZyAxis::LayoutLength() const {
  if (Parent() == nullptr) return static_cast<float>(GetHorizontal() ? Width() : Height());
  return static_cast<float>(GetHorizontal() ? Parent()->ClientWidth() : Parent()->ClientHeight());
}

/// Room of a label along the axis, estimated without measuring.
float TZyAxis::ApproxLen(std::string Text, double Value) {
  const std::string Shown = LabelText(std::move(Text), Value);
  return AlongAxis(static_cast<float>(CharacterCount(Shown)) * FFont.Size() * 1.6f, FFont.Size() * 2.5f);
}

TZyLabelRoom TZyAxis::LabelRoom() {
  return {static_cast<double>(LayoutLength()), static_cast<double>(FLabelDistanceFactor),
          [this](std::string Text, double Value) { return static_cast<double>(ApproxLen(std::move(Text), Value)); }};
}

// --- Choice of the steps --------------------------------------------------------------------------------------------

/// Refines the step until its labels no longer fit into the room, and takes that step: a label wants more room by this
/// estimate than it really needs. It does not go below what the reals at the ends can tell apart, and goes on to a
/// second label, without which no scale can be read, for half of the room.
void TZyAxis::GetNormalAxisParts(double Start, double Stop) {
  static const TZyTickTable DefaultTable;
  const TZyTickTable& Table = IsUsable(FTickTable) ? FTickTable : DefaultTable;
  const float Room = LayoutLength();
  FScale.RangeExponent = Real10thExponent(Stop - Start);
  const double Span = ExpMinus(Stop - Start, FScale.RangeExponent);
  const double Spacing = std::max(std::fabs(Start), std::fabs(Stop)) * std::numeric_limits<double>::epsilon();
  const double FinestPart = ExpMinus(Spacing, FScale.RangeExponent);
  TTableStep Step;
  const auto Needed = [&](const TTableStep& Candidate) {
    TakeParts(Table, Candidate);  // the digits follow the step
    GetExponentAndDigits(Start, Stop);
    const float Widest = std::max(ApproxLen(NormalCaption(Start), Start), ApproxLen(NormalCaption(Stop), Stop));
    const auto Count = static_cast<float>(std::trunc(Span / FScale.LabelPart + Half) + 1);
    return Count * Widest + (Count - 1) * GapBetweenLabels * FLabelDistanceFactor;
  };
  const auto PartOf = [&Table](const TTableStep& Taken) { return Table.LabelParts[Taken.Row] * Taken.Power; };
  while (Needed(Step) < Room && PartOf(Step) > FinestPart) Step = Step.Next();
  const auto HasTwoLabels = [&] {
    const double Size = PartSize(PartOf(Step));
    return RoundUp(Start, PartOf(Step), FScale.RangeExponent) + Size <= Stop + SmallPart * Size;
  };
  while (!HasTwoLabels() && Needed(Step.Next()) / 2 <= Room && PartOf(Step) > FinestPart) Step = Step.Next();
  const double LabelPart = PartOf(Step);
  // Rounded to majors further apart than it is wide, a span would widen without end.
  while (Table.MajorParts[Step.Row] * Step.Power > Span * (1 + SmallPart)) Step = Step.Next();
  TakeParts(Table, Step);
  FScale.LabelPart = LabelPart;
}

void TZyAxis::TakeParts(const TZyTickTable& Table, const TTableStep& Step) {
  FScale.LabelPart = Table.LabelParts[Step.Row] * Step.Power;
  FScale.MajorTickPart = Table.MajorParts[Step.Row] * Step.Power;
  FScale.TickPart = Table.MinorParts[Step.Row] * Step.Power;
}

/// A label for every so many decades: of whole decades up to two, and of multiples of three beyond.
void TZyAxis::GetLogAxisParts(double Start, double Stop) {
  FScale.RangeExponent = DecadesOf(Start, Stop);
  const float Decades = static_cast<float>(FScale.RangeExponent), Room = LayoutLength();
  const auto Length = [this](double Value) {
    const bool AsPower = FScaling == TZyAxisScaling::LogEE;
    return ApproxLen(AsPower ? "10" + IntToStr(std::lround(std::log10(Value))) : FloatToStr(Value), Value);
  };
  const float Widest = 0.51f * std::max(Length(Start), Length(Stop));
  float Step = 1;
  for (;; ++Step) {
    const float Count = std::trunc(Decades / Step + 0.5f) + 1;
    const float Needed = Count * Widest + (Count - 1) * GapBetweenLogLabels * FLabelDistanceFactor;
    if (!(Needed > Room) || Count <= 1) break;  // a single label stays, with room or without
  }
  if (Step < 3) {
    FScale.MajorTickPart = 1;
    FScale.TickPart = 0.1;
  } else {
    Step = 3 * std::round(Step / 3);
    FScale.MajorTickPart = static_cast<double>(Step);
    FScale.TickPart = FScale.MajorTickPart / 3;
  }
  FScale.LabelPart = static_cast<double>(Step);
}

void TZyAxis::GetDtParameters(double Start, double Stop) {
  FScale.DateTime = ChooseDtParameters(Start, Stop, FDateTimeFormats, LabelRoom());
}

void TZyAxis::GetSecParameters(double Start, double Stop) {
  const TZySecSteps Steps = ChooseSecSteps(Start, Stop, LabelRoom());
  FScale.RangeExponent = Real10thExponent(Stop - Start);
  FScale.Seconds = Steps.Parameters;
  FScale.LabelPart = Steps.LabelPart;
  FScale.MajorTickPart = Steps.MajorTickPart;
  FScale.TickPart = Steps.TickPart;
}

/// A logarithmic axis has no ticks finer than tenths of a decade, and no major ones inside it.
void TZyAxis::LimitLogParts() {
  FScale.MajorTickPart = std::max(FScale.MajorTickPart, 1.0);
  FScale.TickPart = std::clamp(FScale.TickPart, 0.1, FScale.MajorTickPart);
  FScale.LabelPart = std::max(FScale.LabelPart, FScale.TickPart);
}

/// Size of a step in values of the axis.
double TZyAxis::PartSize(double Part) const {
  if (FScaling == TZyAxisScaling::Seconds)
    return ExpMinus(Part, -FScale.Seconds.Exponent) * SecondsIn(FScale.Seconds.Rgn);
  return ExpMinus(Part, -FScale.RangeExponent);
}

namespace {

/// Days in a unit of the calendar, rather less than more: a step of a scroll bar must not jump over one.
double DaysIn(TZyDtRegion Unit) {
  constexpr double Days[] = {365, 28, 0.99, 1.0 / 24, 1.0 / 1440, 1.0 / 86400, 1.0 / 86400000};
  return Days[static_cast<std::size_t>(Unit)];
}

}  // namespace

double TZyAxis::MajorIncrement() const {
  if (FScale.HasLogScaling) return FScale.MajorTickPart;
  if (FScaling != TZyAxisScaling::DateTime) return PartSize(FScale.MajorTickPart);
  return FScale.DateTime.MajorMod * FScale.DateTime.Increment * DaysIn(FScale.DateTime.MajorRgn);
}

double TZyAxis::MinorIncrement() const {
  constexpr double PartOfDecade = 0.04;
  if (FScale.HasLogScaling) return PartOfDecade;
  if (FScaling != TZyAxisScaling::DateTime) return PartSize(FScale.TickPart);
  return FScale.DateTime.Increment * DaysIn(FScale.DateTime.MinorRgn);
}

// --- Number format --------------------------------------------------------------------------------------------------

void TZyAxis::GetExponentAndDigits(double Start, double Stop) {
  const int StartExponent = Real10thExponent(Start);
  const int StopExponent = Real10thExponent(Stop);
  if (StopExponent > StartExponent) {
    FScale.LabelExponent = Stop == 0 ? StartExponent : StopExponent;
  } else {
    FScale.LabelExponent = Start == 0 ? StopExponent : StartExponent;
  }
  if (FScaling == TZyAxisScaling::DateTime) return;
  if (FScaling == TZyAxisScaling::Seconds) {
    FScale.Seconds.Format = SecondsFormat(Start, Stop);
  } else {
    TakeDigits();
  }
  if (!(FScale.TickPart >= 0.00001)) FScale.TickPart = 0.1;
  FScale.MajorTickPart = std::max(FScale.MajorTickPart, FScale.TickPart);
  FScale.LabelPart = std::max(FScale.LabelPart, FScale.TickPart);
}

/// The decimals that tell one label from the next, and whether the power of ten stands apart from them.
void TZyAxis::TakeDigits() {
  const int Exponent = FScale.LabelExponent;
  const int Extra = std::clamp(FExtraDigits, -FarExponent, FarExponent);
  int Digits =
      Exponent - FScale.RangeExponent - Real10thExponent(FScale.LabelPart) + LastSignificant(FScale.LabelPart) - 1;
  FScale.ExtraExponent = (Real10thExponent(FMaxForExtraExponent) < Exponent && Exponent >= Digits) ||
                         Real10thExponent(FMinForExtraExponent) > Exponent;
  Digits = std::max(Digits + Extra, 0);
  if (Extra > 0 && Exponent + Extra >= Digits && !FScale.ExtraExponent) Digits = Exponent + Extra;
  FScale.Digits = Digits;
}

/// A number with more digits than a fixed text can show gets a general one.
std::string TZyAxis::NormalCaption(double Value) const {
  if (FScale.ExtraExponent) return FloatToStrFixed(ExpMinus(Value, FScale.LabelExponent), FScale.Digits);
  const int Decimals = std::max(FScale.Digits - FScale.LabelExponent, 0);
  if (Decimals > MostDecimals || std::fabs(Value) >= 1e18) return FloatToStr(Value);
  return FloatToStrFixed(Value, Decimals);
}

std::string TZyAxis::LogCaption(double Value) const {
  return FScaling == TZyAxisScaling::LogEE ? "10\\+" + IntToStr(Real10thExponent(Value)) : FloatToStr(Value);
}

}  // namespace zy
