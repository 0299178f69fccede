// From data to pixels.

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numeric>

#include "graph/parts/ZySeriesGraph.h"
#include "series/ZyLineSeries.h"
#include "undo/ZyUndoStack.h"

namespace zy {
namespace {

/// From this many points on, those outside the X axis are left out.
constexpr int FewestPointsToSkip = 21;
/// More points than this on a column of pixels are reduced before anything else looks at them.
constexpr float ManyPerColumn = 4;

/// So many of the last pixels of a line may be others when points follow.
constexpr int OpenRuns = 3;

/// The first index from First on, up to Last, whose value lies not below Limit; Last when there is none. Looks Stride
/// ahead at first, and from there farther and farther to the side where it must be.
int FirstNotBelow(const TZyCustomDoubleVector& Data, int First, int Last, double Limit, int Stride) {
  const std::span<const double> Values = Data.Values();
  const auto IsBelow = [&](int i) {
    return (Values.empty() ? static_cast<double>(i) : Values[static_cast<std::size_t>(i)]) < Limit;
  };
  int Low = First, High = Last;  // all before Low lie below the limit, and none from High on
  const int Guess = Last - First > Stride ? First + Stride : Last;
  const bool IsAhead = Guess < Last && IsBelow(Guess);
  (IsAhead ? Low : High) = IsAhead ? Guess + 1 : Guess;
  for (int Step = 1; Low < High; Step += Step < Last / 2 ? Step : 0) {
    const int Probe = IsAhead ? Low + std::min(Step, High - Low) - 1 : High - std::min(Step, High - Low);
    const bool IsBelowHere = IsBelow(Probe);
    (IsBelowHere ? Low : High) = IsBelowHere ? Probe + 1 : Probe;
    if (IsBelowHere != IsAhead) break;
  }
  while (Low < High) {
    const int Middle = Low + (High - Low) / 2;
    if (IsBelow(Middle)) {
      Low = Middle + 1;
    } else {
      High = Middle;
    }
  }
  return Low;
}

}  // namespace

/// The pixels of data points by ascending index, computed some hundreds at a time.
class TZySeries::TPixelBlocks {
 public:
  TPixelBlocks(const TZySeries& Series, int Last)
      : FSeries(Series), FNextOutlier(Series.NextOutlier(0)), FLast(Last), FHasGapsBeside(Series.HasGapsBeside()) {}

  PointF At(int Idx) {
    const auto Place = static_cast<std::size_t>(Load(Idx));
    return {FX[Place], FY[Place]};
  }
  int IndexOf(int Idx) const { return Idx; }
  static bool SameColumn(const PointF& P, int, const PointF& Q, int) { return std::fabs(P.X - Q.X) < 1; }
  /// The next point with values; one behind the last when there is none.
  int Next(int Idx) {
    for (++Idx; Idx <= FLast; ++Idx) {
      const auto Place = static_cast<std::size_t>(Load(Idx));
      if (FIsWhole || (FSeries.HasValuesAt(Idx) && std::isfinite(FX[Place]) && std::isfinite(FY[Place]))) break;
    }
    return Idx;
  }

 private:
  static constexpr int Block = 512;

  int Load(int Idx) {
    if (Idx < FFirst || Idx >= FFirst + FCount) {
      FFirst = Idx;
      FCount = std::min(Block, FLast + 1 - Idx);
      const bool XIsFinite = Convert(FSeries.FX, *FSeries.FXAxis, FX);
      const bool YIsFinite = Convert(FSeries.FY, *FSeries.FYAxis, FY);
      if (FNextOutlier < FFirst) FNextOutlier = FSeries.NextOutlier(FFirst);
      FIsWhole = XIsFinite && YIsFinite && !FHasGapsBeside && FNextOutlier >= FFirst + FCount;
    }
    return Idx - FFirst;
  }

  /// Whether all values are finite. What a transformation makes of one that is not has no pixel.
  bool Convert(const TZySeriesInput& Input, const TZyAxis& Axis, std::array<float, Block>& Pixels) {
    std::span<const double> Values = Input->ValuesAt(FFirst, FCount, FScratch);
    double Sum = 0;
    for (const double Value : Values) Sum += Value * 0;  // not-a-number as soon as one is not finite
    if (Input.IsTransformed()) {
      // A copy, since the handler may make the vector move.
      if (Values.data() != FScratch.data()) std::ranges::copy(Values, FScratch.begin());
      for (std::size_t i = 0; i < Values.size(); ++i)
        Sum += 0 * (FScratch[i] = Input.Transform(FScratch[i], FFirst + static_cast<int>(i)));
      Values = std::span<const double>(FScratch).first(Values.size());
    }
    Axis.NumberToWorld(Values, Pixels);
    if (Sum == 0) return true;
    for (std::size_t i = 0; i < Values.size(); ++i)
      if (!std::isfinite(Values[i])) Pixels[i] = std::numeric_limits<float>::quiet_NaN();
    return false;
  }

  const TZySeries& FSeries;
  int FNextOutlier;
  int FLast;
  const bool FHasGapsBeside;
  int FFirst = 0, FCount = 0;
  bool FIsWhole = true;  // all points of the block have values
  std::array<float, Block> FX, FY;
  std::array<double, Block> FScratch;
};

/// The pixels to which columns were reduced; all of them have values.
class TZySeries::TReducedPixels {
 public:
  explicit TReducedPixels(const std::vector<TReducedPixel>& Pixels) : FPixels(Pixels) {}
  PointF At(int Place) const { return FPixels[static_cast<std::size_t>(Place)].Pixel; }
  int IndexOf(int Place) const { return FPixels[static_cast<std::size_t>(Place)].Index; }
  int Next(int Place) const { return Place + 1; }
  bool SameColumn(const PointF&, int P, const PointF&, int Q) const { return ColumnOf(P) == ColumnOf(Q); }

 private:
  float ColumnOf(int Place) const { return FPixels[static_cast<std::size_t>(Place)].Column; }

  const std::vector<TReducedPixel>& FPixels;
};

PointF TZySeries::GetCalcPoint(int Idx) const {
  return {FXAxis->NumberToWorld(FX.At(Idx)), FYAxis->NumberToWorld(FY.At(Idx))};
}

/// Of ascending data one point on each side stays outside the axis, so that the line leaves the data area and is cut by
/// the clip. Start above Stop when no point has values.
void TZySeries::GetCalcPointsStartStop(int& Start, int& Stop) const {
  Start = Stop = 0;
  if (Count() == 0) return;
  Start = FState.LastPointsCount();
  Stop = Count() - 1;
  const bool IsSorted = FX->GetIsSorted();
  if ((FX->OnlyAscending() || IsSorted) && Stop - Start >= FewestPointsToSkip) {
    const TRange Reach = ReachIntoX();
    if (IsSorted && !FX.IsTransformed()) {
      Start = FirstNotBelow(*FX.Vector(), Start + 1, Stop, Reach.Low, Count() / 2) - 1;
      const double AboveStop = std::nextafter(Reach.High, std::numeric_limits<double>::infinity());
      Stop = FirstNotBelow(*FX.Vector(), Start + 1, Stop, AboveStop, Count() / 2);
    } else {
      while (Start + 1 < Stop && FX.At(Start + 1) < Reach.Low) ++Start;
      while (Stop - 1 > Start && FX.At(Stop - 1) > Reach.High) --Stop;
    }
  }
  Start = std::min(Start, Stop);
  while (Start <= Stop && !HasPixelAt(Start)) ++Start;
  while (Stop > Start && !HasPixelAt(Stop)) --Stop;
}

TZySeries::TRange TZySeries::ReachIntoX() const { return {FXAxis->Start(), FXAxis->Stop()}; }

bool TZySeries::HasPixelAt(int Idx) const {
  const auto IsFinite = [Idx](const TZySeriesInput& Input) {
    return !Input.IsTransformed() || std::isfinite(Input.At(Idx));
  };
  return HasValuesAt(Idx) && IsFinite(FX) && IsFinite(FY);
}

/// Whether vectors other than X and Y may lack values.
bool TZySeries::HasGapsBeside() const {
  return std::ranges::any_of(FInputs, [this](const TZySeriesInput* Input) {
    const bool Counts = *Input && Input != &FX && Input != &FY && Input->Use() != TZyInputUse::Apart;
    return Counts && Input->Vector()->GetHasGaps();
  });
}

/// Should a handler throw, or change what the pixels follow from, these stay out of date, and the next paint begins
/// anew; of data that shrank meanwhile there is none. One that frees the series throws as well, and nothing of it is
/// touched then.
void TZySeries::CalculatePoints() {
  if (FCalculatingPoints) return;  // bands that point at each other
  struct TRound {
    explicit TRound(TZySeries& ASeries) : Series(ASeries) { Series.FCalculatingPoints = true; }
    ~TRound() {
      if (FromLiveHandle(Handle) == nullptr) return;
      Series.FCalculatingPoints = false;
      if (!IsDone) Series.FState.PixelsModified();
    }
    TZySeries& Series;
    const std::uint64_t Handle = Series.LiveHandle();
    const unsigned Changes = Series.FState.Changes();
    const int Count = Series.Count();
    bool IsDone = false;
  } Round(*this);
  const auto IsTakenAnew = [this](int Pixel) { return FPointIndex.GetValue(Pixel) >= FState.LastPointsCount(); };
  if (FState.LastPointsCount() == 0) FPointCount = 0;
  while (FPointCount > 0 && IsTakenAnew(FPointCount - 1)) --FPointCount;
  // The last runs of the thinning ended where the data did: they go on with those that came.
  for (int Run = 0; Run < OpenRuns && FPointCount > 0; ++Run)
    FState.TakePixelsFrom(FPointIndex.GetValue(--FPointCount));
  FPoints.Clear();
  FPoints.CheckCount(FPointCount);
  FPointIndex.Clear();
  FPointIndex.CheckCount(FPointCount);
  for (TZySeriesInput* Input : FInputs) Input->KeepPixels(FPointCount);
  KeepPixels(FPointCount);
  FAreaPointCount = FPointCount;
  FPixelIndex.Reset();
  ++FPixelsVersion;
  TakeNewPixels();
  FPartnerVersion = BandPartner() == nullptr ? -1 : BandPartner()->FPixelsVersion;
  if (FPointCount > 0) AddBandPoints();
  Round.IsDone = FState.Changes() == Round.Changes;
  if (Count() < Round.Count) ForgetPixels();
  if (!Round.IsDone) return;
  FState.PixelsTaken();
  if (Graph() != nullptr) Graph()->PointsCalculated();
}

void TZySeries::TakeNewPixels() {
  FPointsForSymbols = FPointSymbolSettings->Visible();
  if (Count() == 0) return;
  int Start = 0, Stop = -1;
  GetCalcPointsStartStop(Start, Stop);
  if (Start <= Stop) TakePixels(Start, Stop);
}

void TZySeries::TakePixels(int Start, int Stop) {
  TPixelBlocks Pixels(*this, Stop);
  if (FPointsForSymbols) {
    ThinToSymbols(Pixels, Start, Stop);
  } else if (MayReduce(Start, Stop)) {
    ReduceToColumns(Start, Stop);
    TReducedPixels Reduced(FReduced);
    ThinToLine(Reduced, 0, static_cast<int>(FReduced.size()) - 1);
  } else {
    ThinToLine(Pixels, Start, Stop);
  }
}

void TZySeries::ForgetPixels() {
  FPoints.Clear();
  FPointIndex.Clear();
  FPointCount = FAreaPointCount = 0;
  FPixelIndex.Reset();
  ++FPixelsVersion;
}

void TZySeries::Keep(const PointF& Pixel, int Idx) {
  FPoints.Add(Pixel);
  FPointIndex.Add(Idx);
  ++FPointCount;
}

std::span<PointF> TZySeries::KeepStretch(int First, int Last) {
  const int Number = Last - First;
  const std::span<int> Indexes = FPointIndex.Extend(Number);
  std::iota(Indexes.begin(), Indexes.end(), First);
  FPointCount += Number;
  return FPoints.Extend(Number);
}

/// Every symbol counts that does not lie on the one before.
void TZySeries::ThinToSymbols(TPixelBlocks& Pixels, int Start, int Stop) {
  PointF Last = Pixels.At(Start);
  Keep(Last, Start);
  for (int i = Pixels.Next(Start); i <= Stop; i = Pixels.Next(i)) {
    const PointF Pixel = Pixels.At(i);
    if (!(std::fabs(Pixel.X - Last.X) > 1) && !(std::fabs(Pixel.Y - Last.Y) > 1)) continue;
    Keep(Pixel, i);
    Last = Pixel;
  }
}

/// Keeps of each pixel column the turning points of the line, a column being as wide to both sides of where a run
/// begins or else one of those that the data were reduced to: points that fall on the pixel before vanish, and a run
/// that goes on in one vertical direction collapses to its end.
template <class TPixels>
void TZySeries::ThinToLine(TPixels& Pixels, int Start, int Stop) {
  const auto SamePixel = [&](const PointF& P, int PlaceOfP, const PointF& Q, int PlaceOfQ) {
    return std::fabs(P.Y - Q.Y) < 1 && Pixels.SameColumn(P, PlaceOfP, Q, PlaceOfQ);
  };
  PointF A = Pixels.At(Start);
  int PlaceOfA = Start;
  int i = Pixels.Next(Start);
  while (i <= Stop) {
    Keep(A, Pixels.IndexOf(PlaceOfA));
    PointF B = Pixels.At(i);
    while (i < Stop && SamePixel(A, PlaceOfA, B, i)) B = Pixels.At(i = Pixels.Next(i));
    if (i < Stop - 1 && Pixels.SameColumn(A, PlaceOfA, B, i)) {
      const bool Downwards = B.Y > A.Y;
      while (i < Stop - 1) {
        const int Next = Pixels.Next(i);
        const PointF C = Pixels.At(Next);
        if (!Pixels.SameColumn(A, PlaceOfA, C, Next) || (Downwards ? C.Y < B.Y : C.Y > B.Y)) break;
        B = C;
        i = Next;
      }
    }
    A = B;
    PlaceOfA = i;
    i = Pixels.Next(i);
  }
  Keep(A, Pixels.IndexOf(PlaceOfA));
}

// --- Reduction of columns -------------------------------------------------------------------------------------------

bool TZySeries::MayReduce(int Start, int Stop) const {
  if (FX.IsTransformed() || FY.IsTransformed() || HasGapsBeside() || !FX->GetIsSorted()) return false;
  return static_cast<float>(Stop - Start) > ManyPerColumn * std::max(FXAxis->AxLength(), 1.0f);
}

/// Goes over ascending data by columns of pixels, so that the cost follows the length of the axis. A column reaches
/// half a pixel to both sides of its centre.
void TZySeries::ReduceToColumns(int Start, int Stop) {
  FReduced.clear();
  const bool Rightwards = FXAxis->NumberToWorld(FXAxis->Start()) <= FXAxis->NumberToWorld(FXAxis->Stop());
  const std::span<const double> XValues = FX->Values();
  int First = Start, Width = 1, Outlier = NextOutlier(Start);
  while (First <= Stop) {
    const float Centre = std::round(FXAxis->NumberToWorld(FX->GetValue(First)));
    const double Edge = FXAxis->WorldToNumber(Rightwards ? Centre + 0.5f : Centre - 0.5f);
    const int Last = std::max(First + 1, FirstNotBelow(*FX.Vector(), First, Stop + 1, Edge, Width));
    Width = Last - First;
    if (const auto Ahead = static_cast<std::size_t>(Last) + static_cast<std::size_t>(Width); Ahead < XValues.size())
      __builtin_prefetch(&XValues[Ahead]);  // where the next column is looked for
    ReduceColumn(First, Last, Centre, Outlier);
    First = Last;
  }
}

/// Keeps the first, smallest, largest and last point of those from First up to, but not including, Last: all that a
/// line within one column of pixels shows (Jugel, Jerzak, Hackenbroich, Markl: M4, PVLDB 7(10), 2014). Extremes stand
/// in the middle of the column, so that the line between them goes straight up or down: there it fills the column, as
/// all the points together would. So does an end in the same row of pixels, as the thinning takes it for the extreme.
void TZySeries::ReduceColumn(int First, int Last, float Centre, int& Outlier) {
  constexpr int Few = 4;
  int Ends[2] = {-1, -1};
  TZyExtremes Whole;
  const auto Y = [this, Values = FY->Values()](int i) {
    return Values.empty() ? FY->GetValue(i) : Values[static_cast<std::size_t>(i)];
  };
  const bool IsFew = Last - First <= Few;
  for (int From = First; From < Last;) {
    if (Outlier < From) Outlier = NextOutlier(From);
    const int Next = std::min(Outlier, Last);
    int To = Next;
    while (From < To && !std::isfinite(Y(From))) ++From;
    while (From < To && !std::isfinite(Y(To - 1))) --To;
    for (int i = From; IsFew && i < To; ++i)
      if (std::isfinite(Y(i))) FReduced.push_back({GetCalcPoint(i), i, Centre});
    if (!IsFew && From < To) {
      if (Ends[0] < 0) Ends[0] = From;
      Ends[1] = To - 1;
      const TZyExtremes Run = FY->FindExtremes(From, To);
      if (Run.Low < Whole.Low) {
        Whole.Low = Run.Low;
        Whole.Minimum = Run.Minimum;
      }
      if (Run.High > Whole.High) {
        Whole.High = Run.High;
        Whole.Maximum = Run.Maximum;
      }
    }
    From = Next + (Next == Outlier ? 1 : 0);
  }
  if (Ends[0] < 0) return;
  int Extremes[] = {Whole.Minimum, Whole.Maximum};
  float Heights[] = {FYAxis->NumberToWorld(Whole.Low), FYAxis->NumberToWorld(Whole.High)};
  if (Extremes[0] > Extremes[1]) {
    std::swap(Extremes[0], Extremes[1]);
    std::swap(Heights[0], Heights[1]);
  }
  constexpr float Within = 0.49f;  // the way from column to column is no third one
  const auto KeepEnd = [&](int i) {
    PointF Pixel = GetCalcPoint(i);
    Pixel.X = std::clamp(Pixel.X, Centre - Within, Centre + Within);
    if (std::fabs(Pixel.Y - Heights[0]) < 1 || std::fabs(Pixel.Y - Heights[1]) < 1) Pixel.X = Centre;
    FReduced.push_back({Pixel, i, Centre});
  };
  if (Ends[0] != Extremes[0]) KeepEnd(Ends[0]);
  FReduced.push_back({{Centre, Heights[0]}, Extremes[0], Centre});
  if (Extremes[1] != Extremes[0]) FReduced.push_back({{Centre, Heights[1]}, Extremes[1], Centre});
  if (Ends[1] != Extremes[1]) KeepEnd(Ends[1]);
}

// --- Area -----------------------------------------------------------------------------------------------------------

/// The other line of the band, null while it has nothing to close the band with. A record may name the series itself.
const TZySeries* TZySeries::BandPartner() const {
  const TZySeries* const Partner = FDrawBandTo;
  const bool HasLine = Partner != nullptr && Partner != this && Partner->Count() > 0 && Partner->FXAxis != nullptr &&
                       Partner->FYAxis != nullptr;
  return HasLine ? Partner : nullptr;
}

/// Whether it has other pixels than when the band was closed.
bool TZySeries::IsBandStale() const {
  const TZySeries* const Partner = BandPartner();
  if (Partner == nullptr) return FPartnerVersion >= 0;
  return Partner->RecalculatePoints() || Partner->FPixelsVersion != FPartnerVersion;
}

float TZySeries::BaseLine() const {
  return FYAxis->Start() > 0 ? FYAxis->NumberToWorld(FYAxis->Start()) : FYAxis->NumberToWorld(0);
}

void TZySeries::AddBandPoints() {
  FPoints.CheckCount(FPointCount);
  if (BandPartner() != nullptr) {
    TZySeries* const Partner = FDrawBandTo;
    if (!FAreaSettings->Visible()) Silently(*FAreaSettings, [this] { FAreaSettings->SetVisible(true); });
    if (Partner->RecalculatePoints()) Partner->CalculatePoints();
    FPartnerVersion = Partner->FPixelsVersion;
    const std::span<const PointF> Others = Partner->Points();
    for (auto Point = Others.rbegin(); Point != Others.rend(); ++Point) FPoints.Add(*Point);
    FAreaPointCount = FPointCount + static_cast<int>(Others.size());
    return;
  }
  const float Base = BaseLine() - 0.5f;
  FPoints.Add({FPoints.GetX(FPointCount - 1), Base});
  FPoints.Add({FPoints.GetX(0), Base});
  FAreaPointCount = FPointCount + 2;
}

}  // namespace zy
