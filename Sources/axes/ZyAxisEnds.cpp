#include "axes/ZyAxisEnds.h"

#include <algorithm>
#include <cmath>

namespace zy {

void TZyAxisEnds::ShowInData(const TZyAxisRange& Range) {
  const auto HasData = [this](double Value) { return Value >= FValues.Start && Value <= FValues.Stop; };
  if (HasData(Range.Start)) FShown.Start = FLast.Start = Range.Start;
  if (HasData(Range.Stop)) FShown.Stop = FLast.Stop = Range.Stop;
}

void TZyAxisEnds::TakeValuesAsShown() {
  if (!HasValues()) FValues = FShown;
}

void TZyAxisEnds::DataChanged() {
  FValues = {Largest, -Largest};
  FWaits = true;
}

std::optional<TZyAxisRange> TZyAxisEnds::TakeData(const TZyAxisRange& Data, bool IsDesigning) {
  FWaits = false;
  const bool HasData = Data.Stop >= Data.Start;
  if (HasData && Data == FValues) return std::nullopt;
  FValues = HasData ? Data : FInitial;
  TZyAxisRange Ends = FShown;
  if (Rules.StopEnd == TZyAxisEnd::MovingSlit) {
    if (!IsDesigning) TakeMovingSlit(Ends);
    return Ends;
  }
  if (Rules.StartEnd == TZyAxisEnd::AutoRange) Ends.Start = FValues.Start;
  if (Rules.StartEnd == TZyAxisEnd::FirstSet) Ends.Start = std::min(FShown.Start, FValues.Start);
  if (Rules.StartEnd == TZyAxisEnd::Fixed) FValues.Start = Ends.Start;
  if (Rules.StopEnd == TZyAxisEnd::AutoRange) Ends.Stop = FValues.Stop;
  if (Rules.StopEnd == TZyAxisEnd::FirstSet) Ends.Stop = std::max(FShown.Stop, FValues.Stop);
  if (Rules.StopEnd == TZyAxisEnd::Fixed) FValues.Stop = Ends.Stop;
  return Ends;
}

/// The range jumps by whole increments, as often as it takes to reach the data; counted, not stepped, since data may
/// lie any number of them ahead.
void TZyAxisEnds::TakeMovingSlit(TZyAxisRange& Ends) {
  double &Width = Rules.MovingSlitWidth, &Increment = Rules.MovingSlitIncrement;
  if (Width <= 0) Width = FInitial.Stop - FInitial.Start;
  if (Increment > Width || Increment <= 0) Increment = Width / 3;
  const double First = FInitial.Start + Width;
  const double Jumps = Increment > 0 ? std::ceil((FValues.Stop - First) / Increment) : 0;
  Ends.Stop = First + std::max(Jumps, 0.0) * Increment;
  Ends.Start = Ends.Stop - Width > FValues.Start ? Ends.Stop - Width : FInitial.Start;
}

bool TZyAxisEnds::ShowTaken(const TZyAxisRange& Rounded) {
  if (Rounded == FLast) return false;
  Show(Rounded);
  return true;
}

void TZyAxisEnds::Unround() {
  if (Rules.StartEnd == TZyAxisEnd::AutoRange) FShown.Start = FLast.Start;
  if (Rules.StopEnd == TZyAxisEnd::AutoRange) FShown.Stop = FLast.Stop;
}

bool TZyAxisEnds::IsClipped(const TZyScaleKind& Kind) const {
  if (FWaits || !HasValues()) return false;
  const double Low = Rules.StartEnd == TZyAxisEnd::Fixed ? FShown.Start : FValues.Start;
  const double High = Rules.StopEnd == TZyAxisEnd::Fixed ? FShown.Stop : FValues.Stop;
  const double LowEnd = Kind.LowEnd(FShown.Start, FShown.Stop), HighEnd = Kind.HighEnd(FShown.Start, FShown.Stop);
  const double Nearly = (HighEnd - LowEnd) * 1e-8;
  return LowEnd - Nearly > Low || HighEnd + Nearly < High;
}

double TZyAxisEnds::FirstPositive() const { return FValues.Start > 0 && FValues.Start < Largest ? FValues.Start : 0; }

void TZyAxisEnds::Round(const TZyEndRounding& Rounding) {
  if (FIsRounded) return;
  FIsRounded = true;
  if (FShown == FPadded && (Rules.StartPadding > 0 || Rules.StopPadding > 0)) FShown = FUnpadded;
  FUnpadded = FShown;
  Rounding.Round(FShown.Start, FShown.Stop);
  FPadded = FShown;
}

bool TZyAxisEnds::Follow(const TZyAxisRange& Master, const TZyEndRounding& Rounding) {
  if (!std::isfinite(Master.Start) || !std::isfinite(Master.Stop) || Master.Start == Master.Stop) {
    Round(Rounding);
    return false;
  }
  FShown = Master;
  Rounding.Round(FShown.Start, FShown.Stop);
  FShown = Master;
  Rounding.KeepSteps(FShown.Start, FShown.Stop);
  FIsRounded = true;
  return true;
}

}  // namespace zy
