// The ticks of each kind of scale, and which of them have labels.

#include <algorithm>
#include <cmath>

#include "analysis/ZyMath.h"
#include "axes/ZyAxis.h"
#include "graph/ZyGraph2D.h"

namespace zy {
namespace {

constexpr float LengthWithoutRoom = 100;  // pixels
constexpr double MostSteps = 10000;       // of a loop; steps of the user's own may be as fine as they like
constexpr float NearestTicks = 0.9f;      // pixels; a bit below 1, for ticks exactly one pixel apart
constexpr double MostDecades = 1000;      // more than there are
constexpr double Nearly = 1e-9;           // relative; far beyond rounding, far below any step

int WholeDecades(double Part) { return static_cast<int>(std::lround(std::clamp(Part, 1.0, MostDecades))); }

int FloorDivided(int Value, int Divisor) { return Value >= 0 ? Value / Divisor : -((Divisor - 1 - Value) / Divisor); }

}  // namespace

void TZyAxis::CalculateTicks() {
  if (mGetTicks) mGetTicks(this);
  if (!(FAxLength > 0)) FAxLength = LengthWithoutRoom;
  FTicks.clear();
  FMajorTick.clear();
  FMajorGridTick.clear();
  FAxLabels.clear();
  FMaxNumberLabelHeight = FMaxNumberLabelWidth = 0;
  FExtraExponentRec.SetCaption({});
  FExtraExponentRec.ParseForSize();
  SetUpScale();
  TakeTicks();
  PlaceCaption();
}

void TZyAxis::SetUpScale() {
  const auto Length = static_cast<double>(FAxLength);
  if (FScale.HasLogScaling) {
    FNormalizeConst = (FScale.LogStop - FScale.LogStart) / Length;
  } else if (FScaling == TZyAxisScaling::DateTime) {
    FNormalizeConst = DateTimeSpan(FStart, FStop) / Length;
  } else {
    FNormalizeConst = (FStop - FStart) / Length;
  }
  if (!FAutoTickParts && !FScale.HasLogScaling && !ChoosesOwnParts())
    FScale.RangeExponent = Real10thExponent(FStop - FStart);
}

void TZyAxis::TakeTicks() {
  if (FScale.HasLogScaling) return TakeLogTicks();
  if (FScaling == TZyAxisScaling::DateTime) return TakeDateTimeTicks();
  if (FScaling == TZyAxisScaling::Rubrics) return TakeRubrics();
  TakeEvenTicks();
  if (FScaling != TZyAxisScaling::Seconds) PlaceExtraExponent();
}

/// Ticks that would cover each other count as one, the one that says most. Tells whether this one stands.
bool TZyAxis::AddTick(float Pos, bool Major, bool Labelled, bool Grid) {
  const auto Rank = [](bool IsMajor, bool IsLabelled) { return IsLabelled ? 2 : IsMajor ? 1 : 0; };
  if (!FTicks.empty() && std::fabs(Pos - FTicks.back()) < NearestTicks) {
    if (Rank(Major, Labelled) <= Rank(FMajorTick.back(), FLastTickLabelled)) return false;
    FTicks.pop_back();
    FMajorTick.pop_back();
    FMajorGridTick.pop_back();
  }
  FTicks.push_back(Pos);
  FMajorTick.push_back(Major);
  FMajorGridTick.push_back(Grid);
  FLastTickLabelled = Labelled;
  return true;
}

/// Evenly spaced ticks of plain numbers and of seconds, on the grid of their step whether the ends lie on it or not.
void TZyAxis::TakeEvenTicks() {
  const bool IsSeconds = FScaling == TZyAxisScaling::Seconds;
  const double Low = LowEnd(), High = HighEnd();
  double Part = FScale.TickPart > 0 ? FScale.TickPart : 1;
  while ((High - Low) / PartSize(Part) > MostSteps) Part *= 10;
  const double LabelPart = std::max(FScale.LabelPart, Part), MajorPart = std::max(FScale.MajorTickPart, Part);
  const double First = std::clamp(RoundToPart(Low, Part, true), Low, High);
  const double Last = std::clamp(RoundToPart(High, Part, false), First, High);
  const long Steps = std::lround((Last - First) / PartSize(Part));
  const double Step = Steps > 0 ? (Last - First) / static_cast<double>(Steps) : PartSize(Part);
  // Steps of the user's own need not divide each other: the tick nearest to a multiple stands for it then.
  const double Tolerance = (IsSeconds ? 0.004 : 0.6) * Step;
  double NextMajor = RoundToPart(Low, MajorPart, true);
  double NextLabel = RoundToPart(Low, LabelPart, true);
  double Previous = 0;
  for (long Index = 0; Index <= Steps; ++Index) {
    double Value = First + static_cast<double>(Index) * Step;
    if (std::fabs(Value) < Nearly * Step) Value = 0;
    if (Index > 0 && Value <= Previous) continue;  // finer than the reals are
    Previous = Value;
    const bool IsLabel = FNumbersVisible && std::fabs(Value - NextLabel) < Tolerance;
    const bool IsMajor = std::fabs(Value - NextMajor) < Tolerance;
    const float Pos = NumberToWorld(Value);
    if (AddTick(Pos, IsMajor, IsLabel, FMajorGridMode == TZyMajorGridMode::AtLabel ? IsLabel : IsMajor) && IsLabel)
      AddLabel(IsSeconds ? SecondsToString(NextLabel, FScale.Seconds.Format) : NormalCaption(Value), Value, Pos);
    if (IsLabel) NextLabel = RoundToPart(Value + Tolerance, LabelPart, true);
    if (IsMajor) NextMajor = RoundToPart(Value + Step, MajorPart, true);
  }
}

// --- Logarithmic scales ---------------------------------------------------------------------------------------------

/// A scale without a tick of a decade inside, such as 1.2 to 1.8, has those of an even one.
void TZyAxis::TakeLogTicks() {
  if (FScale.MajorTickPart > 1.001) {
    TakeDecadeTicks();
  } else {
    TakeTicksInDecades();
  }
  if (!FTicks.empty()) return;
  const TScale Kept = FScale;
  GetNormalAxisParts(LowEnd(), HighEnd());
  TakeEvenTicks();
  PlaceExtraExponent();
  FScale = Kept;
}

/// Ticks at whole decades, major ones at the multiples of their step.
void TZyAxis::TakeDecadeTicks() {
  const int MajorStep = WholeDecades(FScale.MajorTickPart);
  const int Step = std::min(WholeDecades(FScale.TickPart), MajorStep);
  const int First = static_cast<int>(std::ceil(std::log10(LowEnd()) - Nearly));
  const int Last = static_cast<int>(std::floor(std::log10(HighEnd()) + Nearly));
  for (int Decade = First; Decade <= Last; ++Decade) {
    const int BehindMajor = Decade - FloorDivided(Decade, MajorStep) * MajorStep;
    if (BehindMajor % Step != 0) continue;
    const double Value = Exp10(Decade);
    const float Pos = NumberToWorld(Value);
    const bool IsMajor = BehindMajor == 0;
    const bool IsLabel = FNumbersVisible && IsMajor && IsLogLabel(Decade, 0);
    if (AddTick(Pos, IsMajor, IsLabel, FMajorGridMode == TZyMajorGridMode::AtLabel ? IsLabel : IsMajor) && IsLabel)
      AddLabel(LogCaption(Value), Value, Pos);
  }
}

bool TZyAxis::IsLogLabel(int Decade, double Fraction) const {
  if (FScale.LabelPart <= 1 && std::lround(Fraction * 10 / FScale.LabelPart) % 10 == 0) return true;
  return Fraction == 0 && Decade % WholeDecades(FScale.LabelPart) == 0;
}

/// Ticks at multiples of the powers of ten. Tenths of a decade begin at its double: the fraction 0.1 is 2, 0.8 is 9. A
/// scale that begins inside a decade has its first tick one step behind its start.
void TZyAxis::TakeTicksInDecades() {
  const double Step = std::max(FScale.TickPart, 0.1);
  const double Offset = Step <= 0.1001 ? 0.1 : 0;
  const double Last = HighEnd() * (1 + Nearly);
  const double Logarithm = std::log10(RoundLogUp(LowEnd(), FScale.MajorTickPart, FScale.TickPart));
  int Decade = static_cast<int>(std::floor(Logarithm + Nearly));
  double Fraction = Logarithm - Decade < Nearly ? 0 : Exp10(Logarithm - Decade - 1);
  if (Fraction + Offset >= 0.99) {
    Fraction = 0;
    ++Decade;
  }
  for (;;) {
    const double Value = ExpMinus(Fraction > 0 ? (Fraction + Offset) * 10 : 1, -Decade);
    if (!(Value <= Last)) return;
    const float Pos = NumberToWorld(Value);
    const bool IsMajor = Fraction == 0;
    const bool IsLabel = FNumbersVisible && IsLogLabel(Decade, Fraction);
    if (AddTick(Pos, IsMajor, IsLabel, FMajorGridMode == TZyMajorGridMode::AtLabel ? IsLabel : IsMajor) && IsLabel)
      AddLabel(LogCaption(Value), Value, Pos);
    Fraction += Step;
    if (Fraction + Offset < 0.99) continue;
    Fraction = 0;
    ++Decade;
  }
}

// --- Calendar and rubrics -------------------------------------------------------------------------------------------

void TZyAxis::TakeDateTimeTicks() {
  const double Low = LowEnd(), High = HighEnd(), Pixel = std::fabs(FNormalizeConst);
  // Steps that were chosen for other ends may be far too fine for these.
  if (DateTimeSpan(Low, High) / MinorIncrement() > MostSteps) GetDtParameters(Low, High);
  double Previous = MinDateTime - 1;
  for (TZyDateTimeTicks Ticks(FScale.DateTime, Low); DateTimeSpan(Ticks.Value(), High) >= -Pixel; Ticks.Next()) {
    const double Value = Ticks.Value();
    if (DateTimeSpan(Previous, Value) <= 0 || Value > MaxDateTime) return;
    Previous = Value;
    if (DateTimeSpan(Low, Value) < -Pixel) continue;  // dates are whole milliseconds
    const float Pos = NumberToWorld(Value);
    const bool IsLabel = FNumbersVisible && Ticks.Labelled();
    const bool Grid = FMajorGridMode == TZyMajorGridMode::AtLabel ? IsLabel : Ticks.Major();
    if (AddTick(Pos, Ticks.Major(), IsLabel, Grid) && IsLabel)
      AddLabel(DateTimeLabel(FScale.DateTime, Value), Value, Pos);
  }
}

/// The whole number i stands for the i-th text, which is centred in the cell from i to i + 1. A scale of more cells
/// than pixels shows every tenth, hundredth ... of them.
void TZyAxis::TakeRubrics() {
  const double Low = LowEnd(), High = HighEnd();
  double Step = 1;
  while ((High - Low) / Step > static_cast<double>(FAxLength)) Step *= 10;
  const double HalfCell = std::round(0.5 / FNormalizeConst);
  const auto Shift = static_cast<float>(GetHorizontal() != FTwisted ? HalfCell : -HalfCell);
  const double First = RoundUp(Low, Step, 0);
  const double Cells = std::floor((High - First) / Step + Nearly);
  for (int Index = 0; Index <= Cells; ++Index) {  // counted: far from 0 a step may be lost in a sum
    const double Value = First + Index * Step;
    const float Pos = NumberToWorld(Value);
    const bool HasText = FNumbersVisible && Value >= 0 && Value < High && Value < FRubrics.Count();
    if (AddTick(Pos, true, HasText, true) && HasText)
      AddLabel(FRubrics.Get(static_cast<int>(Value)), Value, Pos + Shift);
  }
}

}  // namespace zy
