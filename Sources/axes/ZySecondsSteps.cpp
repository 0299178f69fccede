#include "axes/ZySecondsSteps.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <span>

#include "analysis/ZyMath.h"

namespace zy {
namespace {

using enum TZyDtRegion;

/// A step between labels and the parts that major and other ticks divide it into.
struct TStep {
  double Base;
  int Majors, Ticks;
};

/// Steps from coarse to fine. Behind the last one those of Then follow, of a tenth of the size, and again.
struct TFamily {
  std::span<const TStep> First, Then;
};

constexpr TStep Decimal[] = {{1, 2, 10}, {0.5, 1, 5}, {0.2, 2, 10}};
constexpr TStep ByMinutes[] = {{0.6, 2, 12}, {0.3, 2, 6}, {0.15, 3, 15}};
constexpr TStep ByMinutesBelow[] = {{1, 2, 10}, {0.5, 2, 10}, {0.3, 2, 6}, {0.15, 3, 15}};
constexpr TStep ByHalfDays[] = {{2.4, 2, 24}, {1.2, 2, 12}, {0.6, 2, 12}, {0.3, 3, 18}};
constexpr TStep ByHours[] = {{1, 2, 10}, {0.5, 1, 5}, {0.2, 2, 8}};
constexpr TStep ByDays[] = {{1, 2, 8}, {0.5, 1, 8}, {0.2, 2, 24}};
constexpr TStep ByWeeks[] = {{1, 2, 8}, {0.4, 2, 8}, {0.2, 2, 8}};

struct TReading {
  TZyDtRegion Unit;
  TFamily Family;
};

/// Unit and family for a span in seconds.
TReading ReadingOf(double Span) {
  const double Minutes = Span / 60, Hours = Span / 3600, Days = Span / 86400;
  if (Days > 20) return {Day, {Decimal, Decimal}};
  if (Days > 7) return {Day, {ByWeeks, ByWeeks}};
  if (Days > 3) return {Day, {ByDays, ByDays}};
  if (Hours > 10) return {Hour, {ByHalfDays, ByHalfDays}};
  if (Hours > 3) return {Hour, {ByHours, ByHours}};
  if (Minutes > 50) return {Minute, {ByMinutes, ByMinutesBelow}};
  if (Minutes > 3) return {Minute, {Decimal, Decimal}};
  if (Span >= 60) return {Second, {ByMinutes, ByMinutes}};
  return {Second, {Decimal, Decimal}};
}

}  // namespace

TZySecondsFormatRange SecondsFormat(double Start, double Stop) {
  const double Largest = std::max(Start, Stop);
  if (Largest / 86400 >= 1) return 3;
  if (Largest / 3600 >= 1) return 2;
  return Largest / 60 >= 1 ? 1 : 0;
}

TZySecSteps ChooseSecSteps(double Start, double Stop, const TZyLabelRoom& Room) {
  const auto [Unit, Family] = ReadingOf(Stop - Start);
  const double Span = (Stop - Start) / SecondsIn(Unit);
  TZySecSteps Steps;
  Steps.Parameters = {Unit, Real10thExponent(Span), SecondsFormat(Start, Stop)};
  const auto Length = [&](double Value) {
    return Room.Measure(SecondsToString(Value, Steps.Parameters.Format), Value);
  };
  const double Widest = 1.4 * std::max(Length(Start), Length(Stop));
  const double Mantissa = ExpMinus(Span, Steps.Parameters.Exponent);
  const auto HaveRoom = [&](double Labels) {
    const double Count = std::trunc(Labels + 0.5);
    return Count * Widest + (Count - 1) * 70 * Room.DistanceFactor < Room.Length;
  };

  constexpr double SmallestPower = 1e-9;  // labels without length, or endless room, would refine for ever
  double Power = 10;
  std::span<const TStep> Row = Family.First;
  std::size_t i = 0;
  while (Power > SmallestPower && HaveRoom(Mantissa / (Row[i].Base * Power))) {
    if (++i < Row.size()) continue;
    i = 0;
    Row = Family.Then;
    Power /= 10;
  }
  Steps.LabelPart = Row[i].Base * Power;
  Steps.MajorTickPart = Steps.LabelPart / Row[i].Majors;
  Steps.TickPart = Steps.LabelPart / Row[i].Ticks;
  return Steps;
}

double SecondsIn(TZyDtRegion Unit) {
  switch (Unit) {
    case Day:
      return 86400;
    case Hour:
      return 3600;
    case Minute:
      return 60;
    default:
      return 1;
  }
}

double SecondsRound(TZyDtRegion Unit, double Value, double Part, int Exponent, bool Up) {
  const double Units = Value / SecondsIn(Unit);
  return (Up ? RoundUp(Units, Part, Exponent) : RoundDown(Units, Part, Exponent)) * SecondsIn(Unit);
}

}  // namespace zy
