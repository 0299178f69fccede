#include "axes/ZyAxisEnds.h"

#include <algorithm>
#include <cmath>

namespace zy {

void TZyAxisEnds::ShowExactly(const TZyAxisRange& Range) {
  Show(Range);
  FExact = Range;
}

void TZyAxisEnds::SetStateOf(TEnd End, const std::vector<double>& State) {
  std::size_t Index = 0;
  for (TZyAxisRange* Range : {&FShown, &FInitial, &FLast, &FAsked, &FRounded}) Range->*End = State.at(Index++);
}

/// A range of which one end lies in the data, and the other one beyond the end that is shown, would turn the ends
/// round.
void TZyAxisEnds::ShowInData(const TZyAxisRange& Range) {
  const auto HasData = [this](double Value) { return Value >= FValues.Start && Value <= FValues.Stop; };
  const TZyAxisRange New{HasData(Range.Start) ? Range.Start : FShown.Start,
                         HasData(Range.Stop) ? Range.Stop : FShown.Stop};
  if (New.Start >= New.Stop && Range.Start < Range.Stop) return;
  if (HasData(Range.Start)) FShown.Start = FLast.Start = Range.Start;
  if (HasData(Range.Stop)) FShown.Stop = FLast.Stop = Range.Stop;
}

void TZyAxisEnds::TakeStored(const std::optional<TZyAxisRange>& Values) {
  FWaits = false;
  if (!Values) return;
  FValues = *Values;
  FAsked = FRounded = FShown;
  if (FValues.Start <= FValues.Stop || Pads()) FExact = FShown;
}

bool TZyAxisEnds::Knows(const TZyAxisRange& Data, bool Exactly) const {
  if (Data.Stop < Data.Start) return true;
  const bool KnowsStart = Exactly ? Data.Start == FValues.Start : Data.Start >= FValues.Start;
  const bool KnowsStop = Exactly ? Data.Stop == FValues.Stop : Data.Stop <= FValues.Stop;
  return (KnowsStart || Rules.StartEnd == TZyAxisEnd::Fixed) && (KnowsStop || Rules.StopEnd == TZyAxisEnd::Fixed);
}

void TZyAxisEnds::TakeValuesAsShown() {
  if (!HasValues()) FValues = FShown;
}

void TZyAxisEnds::DataChanged() {
  FValues = {Largest, -Largest};
  FExact.reset();
  FWaits = true;
}

std::optional<TZyAxisRange> TZyAxisEnds::TakeData(const TZyAxisRange& Data, bool IsDesigning) {
  FWaits = false;
  const bool HasData = Data.Stop >= Data.Start;
  if (HasData && Data == FValues) return std::nullopt;
  FValues = HasData ? Data : FInitial;
  TZyAxisRange Ends = Asked();
  if (Rules.StopEnd == TZyAxisEnd::MovingSlit) {
    if (!IsDesigning) TakeMovingSlit(Ends);
    return Ends;
  }
  if (Rules.StartEnd == TZyAxisEnd::AutoRange) Ends.Start = FValues.Start;
  if (Rules.StartEnd == TZyAxisEnd::FirstSet) Ends.Start = std::min(Ends.Start, FValues.Start);
  if (Rules.StartEnd == TZyAxisEnd::Fixed) FValues.Start = FShown.Start;
  if (Rules.StopEnd == TZyAxisEnd::AutoRange) Ends.Stop = FValues.Stop;
  if (Rules.StopEnd == TZyAxisEnd::FirstSet) Ends.Stop = std::max(Ends.Stop, FValues.Stop);
  if (Rules.StopEnd == TZyAxisEnd::Fixed) FValues.Stop = FShown.Stop;
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

/// Padding is added to the range of the data, and once more by the layout.
bool TZyAxisEnds::ShowTaken(const TZyAxisRange& Taken, const TZyAxisRange& Rounded) {
  const bool IsNew = Rounded != FLast;
  if (IsNew) Show(Rounded);
  if (!Pads() && FShown == Rounded) {
    FAsked = Taken;
    FRounded = Rounded;
  }
  return IsNew;
}

void TZyAxisEnds::Unround() {
  if (Rules.StartEnd == TZyAxisEnd::AutoRange) {
    if (FShown.Start == FRounded.Start) FRounded.Start = FLast.Start;
    FShown.Start = FLast.Start;
  }
  if (Rules.StopEnd == TZyAxisEnd::AutoRange) {
    if (FShown.Stop == FRounded.Stop) FRounded.Stop = FLast.Stop;
    FShown.Stop = FLast.Stop;
  }
}

bool TZyAxisEnds::IsClipped(const TZyScaleKind& Kind, const TZyAxisSteps& Steps) const {
  if (FWaits || !HasValues()) return false;
  const TZyBeyond Beyond = Kind.Beyond(Steps, FShown, FValues);
  return (Beyond.Start && Rules.StartEnd != TZyAxisEnd::Fixed) || (Beyond.Stop && Rules.StopEnd != TZyAxisEnd::Fixed);
}

double TZyAxisEnds::FirstPositive() const { return FValues.Start > 0 && FValues.Start < Largest ? FValues.Start : 0; }

TZyAxisRange TZyAxisEnds::Asked() const {
  return {FShown.Start == FRounded.Start ? FAsked.Start : FShown.Start,
          FShown.Stop == FRounded.Stop ? FAsked.Stop : FShown.Stop};
}

void TZyAxisEnds::Settle(const TZyEndRounding& Rounding) {
  FRoundedLength = Rounding.RoomLength();
  FIsRounded = !Pads() && !Rounding.KeepsEnds() && Rounding.Zoomed() == FRoundedZoomed && FShown == FRounded;
}

/// Zooming begins with what is shown, and comes back to it. Where a handler of the labels throws nothing is rounded,
/// and the next layout begins with the same ends; where it changes the axis the next layout rounds again.
void TZyAxisEnds::Round(const TZyEndRounding& Rounding) {
  if (FIsRounded && FRoundedLength == Rounding.RoomLength()) return;
  FIsRounded = false;
  const TZyAxisRange Asks = Rounding.KeepsEnds() || !(Pads() || Rounding.Zoomed() == FRoundedZoomed) ? FShown : Asked();
  const unsigned Known = FInvalidations;
  TZyAxisRange Ends = Asks;
  Rounding.Round(Ends.Start, Ends.Stop);
  FShown = Ends;
  FRoundedLength = Rounding.RoomLength();
  FIsRounded = FInvalidations == Known;
  if (Rounding.KeepsEnds()) return;
  FAsked = Asks;
  FRounded = Ends;
  FRoundedZoomed = Rounding.Zoomed();
}

void TZyAxisEnds::Follow(const TZyAxisRange& Master, const TZyEndRounding& Rounding) {
  FShown = Master;
  TZyAxisRange Rounded = Master;
  Rounding.Round(Rounded.Start, Rounded.Stop);
  Rounding.KeepSteps(FShown.Start, FShown.Stop);
  FIsRounded = true;
}

}  // namespace zy
