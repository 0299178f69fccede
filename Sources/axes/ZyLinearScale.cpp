#include "axes/ZyLinearScale.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "analysis/ZyMath.h"
#include "texts/NumberText.h"

namespace zy {
namespace {

constexpr float GapBetweenLabels = 70;   // pixels
constexpr double Half = 0.5 + 1e-9;      // so that what is a half but for rounding counts as one
constexpr double SmallPart = 1e-6;       // of a step; a label that near to the end stands
constexpr int MostDecimals = 18;         // and most digits before the point; a real has no more to show
constexpr int FarExponent = 1000;        // beyond those of all reals, and still fit for sums
constexpr double SnapToMultiples = 0.6;  // steps of the user's own need not divide each other

/// A row of the table of steps, and the power of ten that it is used with.
struct TTableStep {
  std::size_t Row = 0;
  double Power = 10;

  TTableStep Next() const { return Row < 2 ? TTableStep{Row + 1, Power} : TTableStep{0, Power / 10}; }
  double LabelPart(const TZyTickTable& Table) const { return Table.LabelParts[Row] * Power; }
  void Take(TZyAxisSteps& Steps, const TZyTickTable& Table) const {
    Steps.LabelPart = LabelPart(Table);
    Steps.MajorTickPart = Table.MajorParts[Row] * Power;
    Steps.TickPart = Table.MinorParts[Row] * Power;
  }
};

bool IsUsable(const TZyTickTable& Table) {
  const auto AllPositive = [](const std::array<double, 3>& Parts) {
    return std::all_of(Parts.begin(), Parts.end(), [](double Part) { return Part > 0 && std::isfinite(Part); });
  };
  return AllPositive(Table.LabelParts) && AllPositive(Table.MajorParts) && AllPositive(Table.MinorParts);
}

/// The decimals that tell one label from the next, and whether the power of ten stands apart from them.
void TakeDigits(TZyAxisSteps& Steps, const TZyStepRules& Rules) {
  const int Exponent = Steps.LabelExponent;
  const int Extra = std::clamp(Rules.ExtraDigits, -FarExponent, FarExponent);
  int Digits =
      Exponent - Steps.RangeExponent - Real10thExponent(Steps.LabelPart) + LastSignificant(Steps.LabelPart) - 1;
  Steps.ExtraExponent = (Real10thExponent(Rules.MaxForExtraExponent) < Exponent && Exponent >= Digits) ||
                        Real10thExponent(Rules.MinForExtraExponent) > Exponent;
  Digits = std::max(Digits + Extra, 0);
  if (Extra > 0 && Exponent + Extra >= Digits && !Steps.ExtraExponent) Digits = Exponent + Extra;
  Steps.Digits = Digits;
}

/// Digits and exponent for the steps as they are, without any limit to these.
void TakeNumberFormat(TZyAxisSteps& Steps, const TZyStepRules& Rules, double Start, double Stop) {
  const int StartExponent = Real10thExponent(Start);
  const int StopExponent = Real10thExponent(Stop);
  if (StopExponent > StartExponent) {
    Steps.LabelExponent = Stop == 0 ? StartExponent : StopExponent;
  } else {
    Steps.LabelExponent = Start == 0 ? StopExponent : StartExponent;
  }
  TakeDigits(Steps, Rules);
}

}  // namespace

/// A number with more digits than a fixed text can show gets a general one.
std::string LinearLabel(const TZyAxisSteps& Steps, double Value) {
  if (Steps.ExtraExponent) return FloatToStrFixed(ExpMinus(Value, Steps.LabelExponent), Steps.Digits);
  const int Decimals = std::max(Steps.Digits - Steps.LabelExponent, 0);
  if (Decimals > MostDecimals || std::fabs(Value) >= 1e18) return FloatToStr(Value);
  return FloatToStrFixed(Value, Decimals);
}

/// Steps of the user's own that are wider than the span would widen it tenfold with each rounding.
bool TZyLinearScale::MayRoundTo(const TZyAxisSteps& Steps, double Part, double Start, double Stop) const {
  return !(PartSize(Steps, Part) > (Stop - Start) * 1.000001);
}

void TZyLinearScale::TakeSteps(TZyAxisSteps& Steps, const TZyStepRules& Rules, const TZyLabelRoom& Room, double Start,
                               double Stop, bool Chooses) const {
  if (Chooses) {
    ChooseSteps(Steps, Rules, Room, Start, Stop);
  } else {
    Steps.RangeExponent = Real10thExponent(Stop - Start);
  }
  TZyLinearScale::TakeFormat(Steps, Rules, Start, Stop);
}

void TZyLinearScale::TakeFormat(TZyAxisSteps& Steps, const TZyStepRules& Rules, double Start, double Stop) const {
  TakeNumberFormat(Steps, Rules, Start, Stop);
  LimitParts(Steps);
}

void TZyLinearScale::FollowSpan(TZyAxisSteps& Steps, const TZyStepRules& Rules, double Start, double Stop) const {
  if (!Rules.AutoTickParts) Steps.RangeExponent = Real10thExponent(Stop - Start);
}

void TZyLinearScale::PutTicks(TZyTickWriter& Writer, TZyAxisSteps& Steps, const TZyStepRules&, const TZyLabelRoom&,
                              const TStrings&) const {
  PutEvenTicks(Writer, Steps, SnapToMultiples, [&Steps](double Value, double) { return LinearLabel(Steps, Value); });
  if (Steps.ExtraExponent) Writer.SetExponent(Steps.LabelExponent);
}

/// Refines the step until its labels no longer fit into the room, and takes that step: a label wants more room by the
/// estimate than it really needs. It does not go below what the reals at the ends can tell apart, and goes on to a
/// second label, without which no scale can be read, for half of the room.
void TZyLinearScale::ChooseSteps(TZyAxisSteps& Steps, const TZyStepRules& Rules, const TZyLabelRoom& Room, double Start,
                                 double Stop) const {
  static const TZyTickTable DefaultTable;
  const TZyTickTable& Table = IsUsable(Rules.TickTable) ? Rules.TickTable : DefaultTable;
  const auto Length = static_cast<float>(Room.Length), Factor = static_cast<float>(Room.DistanceFactor);
  Steps.RangeExponent = Real10thExponent(Stop - Start);
  const double Span = ExpMinus(Stop - Start, Steps.RangeExponent);
  const double Spacing = std::max(std::fabs(Start), std::fabs(Stop)) * std::numeric_limits<double>::epsilon();
  const double FinestPart = ExpMinus(Spacing, Steps.RangeExponent);
  TTableStep Step;
  const auto Needed = [&](const TTableStep& Candidate) {
    Candidate.Take(Steps, Table);  // the digits follow the step
    TZyLinearScale::TakeFormat(Steps, Rules, Start, Stop);
    const auto Measured = [&](double End) { return static_cast<float>(Room.Measure(LinearLabel(Steps, End), End)); };
    const float Widest = std::max(Measured(Start), Measured(Stop));
    const auto Count = static_cast<float>(std::trunc(Span / Steps.LabelPart + Half) + 1);
    return Count * Widest + (Count - 1) * GapBetweenLabels * Factor;
  };
  const auto PartOf = [&Table](const TTableStep& Taken) { return Taken.LabelPart(Table); };
  while (Needed(Step) < Length && PartOf(Step) > FinestPart) Step = Step.Next();
  const auto HasTwoLabels = [&] {
    const double Size = ExpMinus(PartOf(Step), -Steps.RangeExponent);
    return RoundUp(Start, PartOf(Step), Steps.RangeExponent) + Size <= Stop + SmallPart * Size;
  };
  while (!HasTwoLabels() && Needed(Step.Next()) / 2 <= Length && PartOf(Step) > FinestPart) Step = Step.Next();
  const double LabelPart = PartOf(Step);
  // Rounded to majors further apart than it is wide, a span would widen without end.
  while (Table.MajorParts[Step.Row] * Step.Power > Span * (1 + SmallPart)) Step = Step.Next();
  Step.Take(Steps, Table);
  Steps.LabelPart = LabelPart;
}

}  // namespace zy
