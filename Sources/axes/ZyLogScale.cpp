#include "axes/ZyLogScale.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "analysis/ZyMath.h"
#include "texts/NumberText.h"

namespace zy {
namespace {

constexpr float GapBetweenLabels = 30;  // pixels
constexpr double MostDecades = 1000;    // more than there are
constexpr double Nearly = 1e-9;         // relative; far beyond rounding, far below any step

/// A number of decades as an integer, whatever it is made of.
int WholeNumber(double Decades) {
  return std::isnan(Decades) ? 0 : static_cast<int>(std::clamp(Decades, -MostDecades, MostDecades));
}

int DecadesOf(double Start, double Stop) { return WholeNumber(std::round(std::log10(Stop) - std::log10(Start))); }

int WholeDecades(double Part) { return static_cast<int>(std::lround(std::clamp(Part, 1.0, MostDecades))); }

int FloorDivided(int Value, int Divisor) { return Value >= 0 ? Value / Divisor : -((Divisor - 1 - Value) / Divisor); }

/// Whether ticks stand at whole decades only.
bool CountsDecades(const TZyAxisSteps& Steps) { return Steps.MajorTickPart > 1.001; }

/// The power of ten at or above (at or below) a value whose exponent is a multiple of the major step, so that a tick
/// stands there; the value itself where there is none.
double RoundDecades(const TZyAxisSteps& Steps, double Value, bool Up) {
  const int Step = WholeDecades(Steps.MajorTickPart);
  const double Multiple = std::log10(Value) / Step;
  const double Rounded = Exp10(WholeNumber((Up ? std::ceil(Multiple - Nearly) : std::floor(Multiple + Nearly)) * Step));
  return Rounded > 0 && Rounded < std::numeric_limits<double>::max() ? Rounded : Value;
}

void TakeLogarithms(TZyAxisSteps& Steps, double Start, double Stop) {
  Steps.LogStart = std::log10(Start);
  Steps.LogStop = std::log10(Stop);
}

bool IsLabel(const TZyAxisSteps& Steps, int Decade, double Fraction) {
  if (Steps.LabelPart <= 1 && std::lround(Fraction * 10 / Steps.LabelPart) % 10 == 0) return true;
  return Fraction == 0 && Decade % WholeDecades(Steps.LabelPart) == 0;
}

}  // namespace

// --- Ends -----------------------------------------------------------------------------------------------------------

void TZyLogScale::RepairOrder(double& Start, double& Stop) const {
  if (!(Start > Stop)) return;
  Start = 1;
  Stop = 10;
}

void TZyLogScale::RepairValues(double& Start, double& Stop, const TZyFirstPositive& FirstPositive) const {
  if (Start <= 0) Start = FirstPositive(Stop);
  if (Start <= 0) Start = 0.01;
  if (Stop <= 0) Stop = 1;
  if (Start >= Stop) Start = Stop / 100;
}

void TZyLogScale::TakeMapping(TZyAxisSteps& Steps, const TZyStepRules& Rules, double Start, double Stop) const {
  TakeLogarithms(Steps, Start, Stop);
  const double Level = Rules.LogToNormalScalingLevel;
  Steps.HasLogScaling = Level == 0 || Steps.LogStop - Steps.LogStart > Level;
}

bool TZyLogScale::MayRoundTo(const TZyAxisSteps& Steps, double Part, double Start, double Stop) const {
  return Steps.HasLogScaling || TZyLinearScale::MayRoundTo(Steps, Part, Start, Stop);
}

/// A scale that is linear by its level keeps ends above 0, so that it is able to turn back.
double TZyLogScale::RoundEnd(const TZyAxisSteps& Steps, double Value, bool Up, bool ToMajor) const {
  const double Part = ToMajor ? Steps.MajorTickPart : Steps.TickPart;
  double Rounded = 0;
  if (Steps.HasLogScaling && CountsDecades(Steps)) {
    Rounded = RoundDecades(Steps, Value, Up);
  } else if (Steps.HasLogScaling) {
    Rounded = Up ? RoundLogUp(Value, Steps.MajorTickPart, Part) : RoundLogDown(Value, Steps.MajorTickPart, Part);
  } else {
    Rounded = TZyLinearScale::RoundEnd(Steps, Value, Up, ToMajor);
  }
  return Rounded > 0 ? Rounded : Value;
}

// --- Steps ----------------------------------------------------------------------------------------------------------

/// Steps are no finer than tenths of a decade, and major ones no finer than decades.
void TZyLogScale::TakeSteps(TZyAxisSteps& Steps, const TZyStepRules& Rules, const TZyLabelRoom& Room, double Start,
                            double Stop, bool Chooses) const {
  if (!Steps.HasLogScaling) return TZyLinearScale::TakeSteps(Steps, Rules, Room, Start, Stop, Chooses);
  if (Chooses) ChooseDecades(Steps, Room, Start, Stop);
  Steps.RangeExponent = DecadesOf(Start, Stop);
  Steps.MajorTickPart = std::max(Steps.MajorTickPart, 1.0);
  Steps.TickPart = std::clamp(Steps.TickPart, 0.1, Steps.MajorTickPart);
  Steps.LabelPart = std::max(Steps.LabelPart, Steps.TickPart);
}

/// A label for every so many decades: of whole decades up to two, and of multiples of three beyond.
void TZyLogScale::ChooseDecades(TZyAxisSteps& Steps, const TZyLabelRoom& Room, double Start, double Stop) const {
  const auto Decades = static_cast<float>(DecadesOf(Start, Stop)), Length = static_cast<float>(Room.Length);
  const auto Measured = [&](double End) { return static_cast<float>(Room.Measure(MeasuredLabel(End), End)); };
  const float Widest = 0.51f * std::max(Measured(Start), Measured(Stop));
  float Step = 1;
  for (;; ++Step) {
    const float Count = std::trunc(Decades / Step + 0.5f) + 1;
    const float Needed = Count * Widest + (Count - 1) * GapBetweenLabels * static_cast<float>(Room.DistanceFactor);
    if (!(Needed > Length) || Count <= 1) break;  // a single label stays, with room or without
  }
  if (Step < 3) {
    Steps.MajorTickPart = 1;
    Steps.TickPart = 0.1;
  } else {
    Step = 3 * std::round(Step / 3);
    Steps.MajorTickPart = static_cast<double>(Step);
    Steps.TickPart = Steps.MajorTickPart / 3;
  }
  Steps.LabelPart = static_cast<double>(Step);
}

void TZyLogScale::TakeFormat(TZyAxisSteps& Steps, const TZyStepRules& Rules, double Start, double Stop) const {
  if (!Steps.HasLogScaling) return TZyLinearScale::TakeFormat(Steps, Rules, Start, Stop);
  TakeLogarithms(Steps, Start, Stop);
}

/// Ends without a logarithm lie on a linear scale.
void TZyLogScale::KeepSteps(TZyAxisSteps& Steps, const TZyStepRules& Rules, const TZyLabelRoom& Room, double Start,
                            double Stop) const {
  if (!Steps.HasLogScaling) return;
  if (Start > 0 && Stop > 0) return TakeLogarithms(Steps, Start, Stop);
  Steps.HasLogScaling = false;
  ChooseSteps(Steps, Rules, Room, LowEnd(Start, Stop), HighEnd(Start, Stop));
}

double TZyLogScale::MajorIncrement(const TZyAxisSteps& Steps) const {
  return Steps.HasLogScaling ? Steps.MajorTickPart : TZyLinearScale::MajorIncrement(Steps);
}

double TZyLogScale::MinorIncrement(const TZyAxisSteps& Steps) const {
  constexpr double PartOfDecade = 0.04;
  return Steps.HasLogScaling ? PartOfDecade : TZyLinearScale::MinorIncrement(Steps);
}

void TZyLogScale::FollowSpan(TZyAxisSteps& Steps, const TZyStepRules& Rules, double Start, double Stop) const {
  if (!Steps.HasLogScaling) TZyLinearScale::FollowSpan(Steps, Rules, Start, Stop);
}

// --- Ticks ----------------------------------------------------------------------------------------------------------

/// A scale without a tick of a decade inside, such as 1.2 to 1.8, has those of an even one. One whose ends were set to
/// what has no logarithm since they were rounded has none until the next layout.
void TZyLogScale::PutTicks(TZyTickWriter& Writer, TZyAxisSteps& Steps, const TZyStepRules& Rules,
                           const TZyLabelRoom& Room, const TStrings& Rubrics) const {
  if (!Steps.HasLogScaling) return TZyLinearScale::PutTicks(Writer, Steps, Rules, Room, Rubrics);
  if (!(Writer.Low() > 0) || !std::isfinite(Writer.High())) return;
  if (CountsDecades(Steps)) {
    PutDecades(Writer, Steps);
  } else {
    PutInsideDecades(Writer, Steps);
  }
  if (!Writer.empty() || Writer.High() > 10 * Writer.Low()) return;
  TZyAxisSteps Even = Steps;
  ChooseSteps(Even, Rules, Room, Writer.Low(), Writer.High());
  TZyLinearScale::PutTicks(Writer, Even, Rules, Room, Rubrics);
}

/// Ticks at whole decades, major ones at the multiples of their step.
void TZyLogScale::PutDecades(TZyTickWriter& Writer, const TZyAxisSteps& Steps) const {
  const int MajorStep = WholeDecades(Steps.MajorTickPart);
  const int Step = std::min(WholeDecades(Steps.TickPart), MajorStep);
  const int First = WholeNumber(std::ceil(std::log10(Writer.Low()) - Nearly));
  const int Last = WholeNumber(std::floor(std::log10(Writer.High()) + Nearly));
  for (int Decade = First; Decade <= Last; ++Decade) {
    const int BehindMajor = Decade - FloorDivided(Decade, MajorStep) * MajorStep;
    if (BehindMajor % Step != 0) continue;
    const double Value = Exp10(Decade);
    const bool IsMajor = BehindMajor == 0;
    Writer.Put(Value, IsMajor, IsMajor && IsLabel(Steps, Decade, 0), [&] { return LogLabel(Value); });
  }
}

/// Ticks at multiples of the powers of ten. Tenths of a decade begin at its double: the fraction 0.1 is 2, 0.8 is 9. A
/// scale that begins inside a decade has its first tick one step behind its start.
void TZyLogScale::PutInsideDecades(TZyTickWriter& Writer, const TZyAxisSteps& Steps) const {
  const double Step = std::max(Steps.TickPart, 0.1);
  const double Offset = Step <= 0.1001 ? 0.1 : 0;
  const double Last = Writer.High() * (1 + Nearly);
  const double Logarithm = std::log10(RoundLogUp(Writer.Low(), Steps.MajorTickPart, Steps.TickPart));
  int Decade = WholeNumber(std::floor(Logarithm + Nearly));
  double Fraction = Logarithm - Decade < Nearly ? 0 : Exp10(Logarithm - Decade - 1);
  if (Fraction + Offset >= 0.99) {
    Fraction = 0;
    ++Decade;
  }
  for (;;) {
    const double Value = ExpMinus(Fraction > 0 ? (Fraction + Offset) * 10 : 1, -Decade);
    if (!(Value <= Last)) return;
    Writer.Put(Value, Fraction == 0, IsLabel(Steps, Decade, Fraction), [&] { return LogLabel(Value); });
    Fraction += Step;
    if (Fraction + Offset < 0.99) continue;
    Fraction = 0;
    ++Decade;
  }
}

std::string TZyLogScale::LogLabel(double Value) const { return FloatToStr(Value); }

std::string TZyLogScale::MeasuredLabel(double Value) const { return FloatToStr(Value); }

}  // namespace zy
