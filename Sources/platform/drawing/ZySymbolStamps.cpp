#include "platform/drawing/ZySymbolStamps.h"

#include <algorithm>
#include <cmath>

#include "platform/drawing/ZyRasterBlend.h"
#include "platform/framework/TCrew.h"

namespace zy {
namespace {

constexpr std::size_t MostPixels = std::size_t{4} << 20;
constexpr std::size_t FewestSpread = 10'000;  // symbols that are shared out among the processors
constexpr int RowUnit = 4;  // rows of stamps end with transparent pixels, so that they are blended in whole groups

/// The box around the pixels that are not transparent, in a picture of Width columns. What lies within what was found
/// is not looked at.
TRasterRect InkOf(const std::uint32_t* Row, int Stride, int Width, int Height) {
  TRasterRect Ink{Width, Height, 0, 0};
  for (int Y = 0; Y < Height; ++Y, Row += Stride) {
    int Left = 0, Right = Width;
    while (Left < Ink.Left && Row[Left] == 0) ++Left;
    while (Right > Ink.Right && Row[Right - 1] == 0) --Right;
    const bool Grows = Left < Ink.Left || Right > Ink.Right;
    if (!Grows && std::all_of(Row + Left, Row + std::max(Left, Right), [](std::uint32_t Pixel) { return Pixel == 0; }))
      continue;
    Ink = {std::min(Ink.Left, Left), std::min(Ink.Top, Y), std::max(Ink.Right, Right), Y + 1};
  }
  return Ink;
}

/// As std::floor, which is a call where the compiler counts on no more than the oldest processors.
int FloorOf(float Value) {
  const auto Whole = static_cast<int>(Value);
  return Whole - (static_cast<float>(Whole) > Value ? 1 : 0);
}

/// Whether a large picture is hardly larger than what it shows, so that it is kept as it is.
bool InkFills(const TRasterRect& Ink, int Stride, int Height) {
  constexpr std::int64_t Large = 1 << 16;
  const std::int64_t Area = std::int64_t{Stride} * Height;
  const std::int64_t Inked = std::int64_t{Ink.Right - Ink.Left} * (Ink.Bottom - Ink.Top);
  return Area >= Large && 4 * Inked >= 3 * Area;
}

}  // namespace

TZySymbolStamps::TZySymbolStamps(std::size_t Capacity) : FCapacity(std::max<std::size_t>(Capacity, 1)) {}

TZySymbolStamps::TQuarters::TQuarters(const PointF& Place)
    : X(FloorOf(Place.X * 4 + 0.5f)), Y(FloorOf(Place.Y * 4 + 0.5f)) {}

void TZySymbolStamps::Clear() {
  FIndex.clear();
  FLooks.clear();
  FPixels = 0;
}

void TZySymbolStamps::DropOldest() {
  for (const TStamp& Stamp : FLooks.back().Stamps) FPixels -= Stamp.Pixels.size();
  FIndex.erase(FLooks.back().Key);
  FLooks.pop_back();
}

TZySymbolStamps::TLook* TZySymbolStamps::Find(std::string_view Key) {
  const auto Found = FIndex.find(Key);
  if (Found == FIndex.end()) return nullptr;
  FLooks.splice(FLooks.begin(), FLooks, Found->second);
  return &FLooks.front();
}

TZySymbolStamps::TLook& TZySymbolStamps::LookOf(std::string_view Key) {
  if (TLook* const Known = Find(Key)) return *Known;
  if (FLooks.size() >= FCapacity) DropOldest();
  FLooks.emplace_front().Key = Key;
  FIndex.emplace(FLooks.front().Key, FLooks.begin());
  return FLooks.front();
}

// Anything farther out cannot show; what is left fits whole numbers.
bool TZySymbolStamps::MayShow(const TRasterRect& Box, const PointF& Place) {
  const auto IsNear = [](float At, int Low, int High) {
    return At > static_cast<float>(Low) - 2 * LargestExtent - 2 && At < static_cast<float>(High) + LargestExtent + 2;
  };
  return IsNear(Place.X, Box.Left, Box.Right) && IsNear(Place.Y, Box.Top, Box.Bottom);
}

bool TZySymbolStamps::DrawMade(const TRasterTarget& Target, const TRasterClip& Clip, std::string_view Look,
                               PointF Place) {
  TRasterClip Within = Clip;
  Within.Box = Intersection(Clip.Box, {0, 0, Target.Width, Target.Height});
  if (Within.Box.IsEmpty() || !MayShow(Within.Box, Place)) return true;
  TLook* const Used = Find(Look);
  const TQuarters At(Place);
  if (Used == nullptr || !Used->Stamps[At.Stamp()].Made) return false;
  Blit(Target, Within, Used->Stamps[At.Stamp()], At.X >> 2, At.Y >> 2);
  return true;
}

void TZySymbolStamps::Draw(const TRasterTarget& Target, const TRasterClip& Clip, std::string_view Look,
                           const RectF& Extent, std::span<const PointF> Places, const TPaintSymbol& PaintSymbol) {
  TRasterClip Within = Clip;
  Within.Box = Intersection(Clip.Box, {0, 0, Target.Width, Target.Height});
  const bool Usable = std::isfinite(Extent.X) && std::isfinite(Extent.Y) && Extent.Width > 0 && Extent.Height > 0 &&
                      std::abs(Extent.X) <= LargestExtent && std::abs(Extent.Y) <= LargestExtent;
  if (Within.Box.IsEmpty() || !Usable) return;
  TLook& Used = LookOf(Look);
  const bool IsSpread = Places.size() >= FewestSpread && TCrew::Processors() > 1;
  thread_local std::vector<TQuarters> Kept;         // for its memory
  std::vector<TQuarters> Spread = std::move(Kept);  // a stamp may be made of stamps
  Spread.clear();
  for (const PointF& Place : Places) {
    if (!MayShow(Within.Box, Place)) continue;
    const TQuarters At(Place);
    TStamp& Stamp = Used.Stamps[At.Stamp()];
    if (!Stamp.Made)
      Make(Stamp, Extent, {static_cast<float>(At.X & 3) / 4, static_cast<float>(At.Y & 3) / 4}, PaintSymbol);
    IsSpread ? Spread.push_back(At) : Blit(Target, Within, Stamp, At.X >> 2, At.Y >> 2);
  }
  if (IsSpread) DrawInLanes(Target, Within, Used, Spread);
  Kept = std::move(Spread);
}

/// Draws all in their order, each processor in rows of its own.
void TZySymbolStamps::DrawInLanes(const TRasterTarget& Target, const TRasterClip& Clip, const TLook& Look,
                                  std::span<const TQuarters> Places) {
  int Above = 0, Below = 0;  // of a place, that a stamp reaches
  for (const TStamp& Stamp : Look.Stamps) {
    Above = std::min(Above, Stamp.Box.Top);
    Below = std::max(Below, Stamp.Box.Bottom);
  }
  const int Lanes = 2 * TCrew::Processors(), Height = Clip.Box.Bottom - Clip.Box.Top;
  InParallel(Lanes, [&](int Lane) {
    TRasterClip Own = Clip;
    Own.Box.Top = Clip.Box.Top + Height * Lane / Lanes;
    Own.Box.Bottom = Clip.Box.Top + Height * (Lane + 1) / Lanes;
    for (const TQuarters& At : Places)
      if ((At.Y >> 2) + Below > Own.Box.Top && (At.Y >> 2) + Above < Own.Box.Bottom)
        Blit(Target, Own, Look.Stamps[At.Stamp()], At.X >> 2, At.Y >> 2);
  });
}

/// Paints a stamp for anchors with this fraction of a pixel, and trims it.
void TZySymbolStamps::Make(TStamp& Stamp, const RectF& Extent, PointF Fraction, const TPaintSymbol& PaintSymbol) {
  const auto Low = [](float Start) { return static_cast<int>(std::floor(Start)); };
  const auto High = [](float Start, float Size, float Part) {
    return static_cast<int>(std::ceil(Start + std::min(Size, LargestExtent) + Part));
  };
  const TRasterRect Box{Low(Extent.X), Low(Extent.Y), High(Extent.X, Extent.Width, Fraction.X),
                        High(Extent.Y, Extent.Height, Fraction.Y)};
  const int Width = Box.Right - Box.Left;
  const int Height = Box.Bottom - Box.Top;
  const auto InUnits = [](int Columns) { return (Columns + RowUnit - 1) / RowUnit * RowUnit; };
  const int Stride = InUnits(Width);
  std::vector<std::uint32_t> Pixels(static_cast<std::size_t>(Stride) * static_cast<std::size_t>(Height));
  PaintSymbol({Pixels.data(), Stride, Width, Height},
              {Fraction.X - static_cast<float>(Box.Left), Fraction.Y - static_cast<float>(Box.Top)});
  const TRasterRect Ink = InkOf(Pixels.data(), Stride, Width, Height);
  Stamp.Made = true;
  Stamp.Box = {Box.Left + Ink.Left, Box.Top + Ink.Top, Box.Left + Ink.Right, Box.Top + Ink.Bottom};
  if (Ink.IsEmpty()) return;
  Stamp.Stride = InUnits(Ink.Right - Ink.Left);
  if (InkFills(Ink, Stride, Height)) {
    Stamp.Box = Box;
    Stamp.Stride = Stride;
    Stamp.Pixels = std::move(Pixels);
  } else {
    for (int Y = Ink.Top; Y < Ink.Bottom; ++Y) {
      const auto Row = Pixels.begin() + static_cast<std::ptrdiff_t>(Y) * Stride;
      Stamp.Pixels.insert(Stamp.Pixels.end(), Row + Ink.Left, Row + Ink.Right);
      Stamp.Pixels.resize(static_cast<std::size_t>(Y + 1 - Ink.Top) * static_cast<std::size_t>(Stamp.Stride));
    }
  }
  FPixels += Stamp.Pixels.size();
  while (FPixels > MostPixels && FLooks.size() > 1) DropOldest();  // the one in use comes first
}

void TZySymbolStamps::Blit(const TRasterTarget& Target, const TRasterClip& Clip, const TStamp& Stamp, int X, int Y) {
  const TRasterRect At{X + Stamp.Box.Left, Y + Stamp.Box.Top, X + Stamp.Box.Right, Y + Stamp.Box.Bottom};
  const std::ptrdiff_t Stride = Stamp.Stride;
  const bool IsWhole = At.Left >= Clip.Box.Left && At.Top >= Clip.Box.Top && At.Bottom <= Clip.Box.Bottom &&
                       At.Left + Stamp.Stride <= Clip.Box.Right;
  if (IsWhole && Clip.Mask == nullptr)
    return BlendRowsOver(Target.Pixels + At.Top * Target.Stride + At.Left, Target.Stride, Stamp.Pixels.data(),
                         Stamp.Stride, At.Bottom - At.Top);
  const TRasterRect Shown = Intersection(At, Clip.Box);
  if (Shown.IsEmpty()) return;
  const int Count = Shown.Right - Shown.Left;
  const std::uint32_t* Colors = Stamp.Pixels.data() + (Shown.Top - At.Top) * Stride + (Shown.Left - At.Left);
  std::uint32_t* Pixels = Target.Pixels + Shown.Top * Target.Stride + Shown.Left;
  for (int Row = Shown.Top; Row < Shown.Bottom; ++Row, Colors += Stride, Pixels += Target.Stride) {
    if (Clip.Mask != nullptr)
      BlendColors(Pixels, Clip.Mask + Row * Clip.MaskStride + Shown.Left, Count, Colors);
    else
      BlendOver(Pixels, Colors, Count);
  }
}

}  // namespace zy
