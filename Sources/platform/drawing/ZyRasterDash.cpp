#include <cmath>

#include "platform/drawing/ZyRasterStroke.h"

namespace zy {

void TRasterDasher::Run(TRasterStroker& Stroker, const TRasterGuard& Guard, std::span<const PointF> Points,
                        const TRasterStroke& Stroke, std::span<const double> Lengths) {
  FStroker = &Stroker;
  FGuard = &Guard;
  FLengths = Lengths;
  FDashCap = Stroke.DashCap;
  FPeriod = 0;
  for (const double Length : Lengths) FPeriod += Length;
  FEntry = 0;
  FLeftOver = Lengths[0];
  const double Offset = std::isfinite(Stroke.DashOffset) ? std::fmod(Stroke.DashOffset, FPeriod) : 0.0;
  Advance(Offset < 0 ? Offset + FPeriod : Offset);

  const auto At = [&](std::size_t Index) {
    const PointF& Point = Points[Index < Points.size() ? Index : 0];
    return TRasterPoint{Point.X, Point.Y};
  };
  FOpen = FHolding = false;
  FHeld.clear();
  FDirection = {1, 0};
  if (FEntry % 2 == 0 && Guard.Holds(At(0))) {
    FHolding = Stroke.Closed;
    BeginDash(At(0), Stroke.Closed ? FDashCap : Stroke.StartCap);
  }
  const std::size_t Segments = Stroke.Closed ? Points.size() : Points.size() - 1;
  for (std::size_t Index = 0; Index < Segments; ++Index) Segment(At(Index), At(Index + 1));
  if (Stroke.Closed)
    CloseLine();
  else if (FOpen)
    EndDash(Stroke.EndCap);
}

void TRasterDasher::Segment(TRasterPoint From, TRasterPoint To) {
  const TRasterPoint Way = To - From;
  const double Length = std::hypot(Way.X, Way.Y);
  if (!(Length > 0)) return;
  FDirection = Way * (1 / Length);
  double Start = 0, End = 1;
  if ((!FGuard->Holds(From) || !FGuard->Holds(To)) && !FGuard->Cut(From, To, Start, End)) {
    if (FOpen) EndDash(TRasterCap::Flat);
    return Advance(Length);
  }
  // Places are measured from where the visible part starts, which may be far from the segment's own start.
  const TRasterPoint Entry = Start > 0 ? FGuard->At(From, To, Start) : From;
  const TRasterPoint Exit = End < 1 ? FGuard->At(From, To, End) : To;
  const double Visible = End < 1 || Start > 0 ? (End - Start) * Length : Length;
  if (Start > 0) {
    if (FOpen) EndDash(TRasterCap::Flat);
    Advance(Start * Length);
  }
  if (!FOpen && FEntry % 2 == 0) BeginDash(Entry, TRasterCap::Flat);
  double Walked = 0;
  while (FLeftOver <= Visible - Walked) {
    Walked += FLeftOver;
    const TRasterPoint Place = Entry + FDirection * Walked;
    if (FEntry % 2 == 0) {
      AddPoint(Place);
      EndDash(FDashCap);
    } else {
      BeginDash(Place, FDashCap);
    }
    FEntry = FEntry + 1 == FLengths.size() ? 0 : FEntry + 1;
    FLeftOver = FLengths[FEntry];
  }
  FLeftOver -= Visible - Walked;
  if (FOpen) AddPoint(Exit);
  if (End < 1) {
    if (FOpen) EndDash(TRasterCap::Flat);
    Advance((1 - End) * Length);
  }
}

void TRasterDasher::Advance(double Length) {
  Length = std::fmod(Length, FPeriod);
  while (Length >= FLeftOver) {
    Length -= FLeftOver;
    FEntry = FEntry + 1 == FLengths.size() ? 0 : FEntry + 1;
    FLeftOver = FLengths[FEntry];
  }
  FLeftOver -= Length;
}

void TRasterDasher::BeginDash(TRasterPoint Point, TRasterCap Cap) {
  FOpen = true;
  if (FHolding)
    FHeld.push_back(Point);
  else
    FStroker->Begin(Point, Cap);
}

void TRasterDasher::AddPoint(TRasterPoint Point) {
  if (FHolding)
    FHeld.push_back(Point);
  else
    FStroker->LineTo(Point);
}

void TRasterDasher::EndDash(TRasterCap Cap) {
  FOpen = false;
  if (FHolding)
    FHeldEnd = Cap;
  else
    FStroker->End(Cap, FDirection);
  FHolding = false;
}

/// The dash that ends the line goes on as the one that started it.
void TRasterDasher::CloseLine() {
  if (FHolding) {  // one dash all around
    FHolding = false;
    if (FHeld.empty()) return;
    FStroker->Begin(FHeld.front(), FDashCap);
    for (const TRasterPoint& Point : FHeld) FStroker->LineTo(Point);
    return FStroker->Close();
  }
  if (FHeld.empty()) {
    if (FOpen) EndDash(FDashCap);
    return;
  }
  if (!FOpen) FStroker->Begin(FHeld.front(), FDashCap);
  for (const TRasterPoint& Point : FHeld) FStroker->LineTo(Point);
  FOpen = false;
  FStroker->End(FHeldEnd, FDirection);
}

}  // namespace zy
