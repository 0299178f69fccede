#include "platform/drawing/ZyRasterThin.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "platform/framework/WiderAsWell.h"

#define ZY_ALWAYS_INLINE inline __attribute__((always_inline))
#define ZY_INLINE_LAMBDA __attribute__((always_inline))

namespace zy {
namespace {

using TInk = TRasterThin::TInk;

constexpr std::int32_t One = 1 << 16, Half = One / 2;
constexpr std::int16_t FullWeight = 128;
constexpr std::int16_t HalfWeight = FullWeight / 2;  // rounds

// Vectors as both compilers know them: the channels of four pixels, two of each row.
using TPixels = std::uint32_t __attribute__((vector_size(16)));
using TBytes = std::uint8_t __attribute__((vector_size(16)));
using TPairs = std::uint64_t __attribute__((vector_size(16)));
using TWords = std::int16_t __attribute__((vector_size(32)));
using TPlaces = std::uint16_t __attribute__((vector_size(32)));
using TFours = std::uint64_t __attribute__((vector_size(32)));  // four words of 16 bits each

/// Puts Ink over four pixels, as far as Weights of 0 to 128 say.
template <bool Opaque>
ZY_ALWAYS_INLINE void Blend(TBytes& Pixels, const TWords& Weights, const TWords& Ink, std::uint16_t Alpha) {
  const TWords Old = __builtin_convertvector(Pixels, TWords);
  TWords Grows;
  if constexpr (Opaque) {
    Grows = Ink - Old;
  } else {
    const TPlaces Product = __builtin_convertvector(Pixels, TPlaces) * Alpha + std::uint16_t{128};
    Grows = Ink - (TWords)((Product + (Product >> 8)) >> 8);
  }
  Pixels = __builtin_convertvector(Old + ((Grows * Weights + HalfWeight) >> 7), TBytes);
}

/// One word for the pixels of the first row, another for those of the second.
ZY_ALWAYS_INLINE void Spread(TPlaces& Words, std::int32_t First, std::int32_t Second) {
  constexpr TFours IsSecond{0, 0, ~std::uint64_t{0}, ~std::uint64_t{0}};
  const TPlaces Low = static_cast<std::uint16_t>(First) + TPlaces{},
                High = static_cast<std::uint16_t>(Second) + TPlaces{};
  Words = (TPlaces)(((TFours)Low & ~IsSecond) | ((TFours)High & IsSecond));
}

constexpr TFours IsLeft{~std::uint64_t{0}, 0, ~std::uint64_t{0}, 0};  // lanes of the left pixels

/// Places of two rows, of 65536 to a pixel: what is left of the left pixel's share, and the right one's.
ZY_ALWAYS_INLINE void SetPlaces(TPlaces& Places, std::int32_t First, std::int32_t Second) {
  Spread(Places, First, Second);
  Places ^= (TPlaces)IsLeft;
}

ZY_ALWAYS_INLINE void SetWeights(TWords& Weights, const TPlaces& Places) {
  Weights = (TWords)(((Places >> 8) + std::uint16_t{1}) >> 1);
}

/// Two pixels each of two rows, or of two columns.
template <bool Steep>
ZY_ALWAYS_INLINE void Load(TBytes& Pixels, const std::uint32_t* A, const std::uint32_t* B, std::ptrdiff_t Next) {
  if constexpr (Steep) {
    std::uint64_t Two[2];
    std::memcpy(&Two[0], A, 8);
    std::memcpy(&Two[1], B, 8);
    Pixels = (TBytes)TPairs{Two[0], Two[1]};
  } else {
    Pixels = (TBytes)TPixels{A[0], A[Next], B[0], B[Next]};
  }
}

template <bool Steep>
ZY_ALWAYS_INLINE void Store(const TBytes& Pixels, std::uint32_t* A, std::uint32_t* B, std::ptrdiff_t Next) {
  if constexpr (Steep) {
    const std::uint64_t Two[2] = {((TPairs)Pixels)[0], ((TPairs)Pixels)[1]};
    std::memcpy(A, &Two[0], 8);
    std::memcpy(B, &Two[1], 8);
  } else {
    const auto Four = (TPixels)Pixels;
    A[0] = Four[0];
    A[Next] = Four[1];
    B[0] = Four[2];
    B[Next] = Four[3];
  }
}

/// A place in 1/65536.
struct TFixed {
  std::int32_t X, Y;
};

/// A segment from row to row when it is steep, from column to column when it is flat: Along counts these, Across is the
/// place within each, of 65536 to a pixel. The first and the last one are covered in part.
struct TRun {
  std::int32_t First, Count, Across, Rise, PartOfFirst, PartOfLast;

  std::int32_t PartOf(std::int32_t i) const { return i == 0 ? PartOfFirst : i + 1 == Count ? PartOfLast : FullWeight; }
};

template <bool Steep>
ZY_ALWAYS_INLINE TRun RunOf(TFixed From, TFixed To) {
  if constexpr (!Steep) {
    std::swap(From.X, From.Y);
    std::swap(To.X, To.Y);
  }
  if (From.Y > To.Y) std::swap(From, To);
  TRun Run;
  Run.First = From.Y >> 16;
  Run.Count = (To.Y >> 16) - Run.First + 1;
  Run.Rise = static_cast<std::int32_t>(static_cast<double>(To.X - From.X) / (To.Y - From.Y) * One);
  Run.Across =
      From.X - Half + static_cast<std::int32_t>((std::int64_t{Run.First * One + Half - From.Y} * Run.Rise) >> 16);
  Run.PartOfFirst = (std::min(To.Y, (Run.First + 1) * One) - From.Y) >> 9;
  Run.PartOfLast = (To.Y & (One - 1)) >> 9;
  return Run;
}

/// Draws what stays within the clip with two pixels of room.
template <bool Opaque, bool Steep>
ZY_ALWAYS_INLINE void DrawRun(const TInk& Ink, const TWords& Channels, const TRun& Run) {
  const std::ptrdiff_t Stride = Ink.Target.Stride, Line = Steep ? Stride : 1, Next = Steep ? 1 : Stride;
  const std::int32_t Rise = Run.Rise;
  std::int32_t Across = Run.Across;
  std::uint32_t* Row = Ink.Target.Pixels + Run.First * Line;
  TPlaces Places, Parts, Steps;
  TWords Weights;
  SetPlaces(Places, Across, Across + Rise);
  Spread(Steps, 2 * Rise, 2 * Rise);
  Steps = (Steps ^ (TPlaces)IsLeft) - (TPlaces)IsLeft;
  const auto Put = [&]() ZY_INLINE_LAMBDA {
    std::uint32_t* const A = Row + (Across >> 16) * Next;
    std::uint32_t* const B = Row + Line + ((Across + Rise) >> 16) * Next;
    TBytes Pixels;
    Load<Steep>(Pixels, A, B, Next);
    Blend<Opaque>(Pixels, Weights, Channels, Ink.Alpha);
    Store<Steep>(Pixels, A, B, Next);
    Row += 2 * Line;
    Across += 2 * Rise;
    Places += Steps;
  };
  // An even number of rows is drawn, if need be with one more that is not covered at all.
  constexpr std::int32_t Whole = FullWeight;
  SetWeights(Weights, Places);
  Spread(Parts, Run.PartOfFirst, Run.Count > 2 ? Whole : Run.Count == 2 ? Run.PartOfLast : 0);
  Weights = (Weights * (TWords)Parts) >> 7;
  Put();
  if (Run.Count <= 2) return;
  for (std::int32_t Left = Run.Count - 2; Left > 2; Left -= 2) {
    SetWeights(Weights, Places);
    Put();
  }
  SetWeights(Weights, Places);
  const bool IsEven = Run.Count % 2 == 0;
  Spread(Parts, IsEven ? Whole : Run.PartOfLast, IsEven ? Run.PartOfLast : 0);
  Weights = (Weights * (TWords)Parts) >> 7;
  Put();
}

/// Puts the colour over one pixel, as far as Weight of 0 to 128 says.
void PutPixel(const TInk& Ink, int X, int Y, int Weight) {
  std::uint32_t* const Pixel = Ink.Target.Pixels + Y * Ink.Target.Stride + X;
  std::uint8_t Channels[4];
  std::memcpy(Channels, Pixel, sizeof Channels);
  for (int k = 0; k < 4; ++k) {
    const int Hidden = (Channels[k] * Ink.Alpha + 128) * 257 >> 16;
    Channels[k] = static_cast<std::uint8_t>(Channels[k] + (((Ink.Channels[k] - Hidden) * Weight + HalfWeight) >> 7));
  }
  std::memcpy(Pixel, Channels, sizeof Channels);
}

/// What DrawRun draws of rows of a steep segment, or of columns of a flat one: the same pixels one by one, where they
/// are shown.
template <bool Steep>
void DrawSlowly(const TInk& Ink, const TRun& Run, std::int32_t Begin, std::int32_t End) {
  for (std::int32_t i = Begin; i < End; ++i) {
    const std::int32_t Across = Run.Across + i * Run.Rise, Right = (Across & (One - 1)) >> 8, Left = 255 - Right;
    const std::int32_t Part = Run.PartOf(i);
    for (int Side = 0; Side < 2; ++Side) {
      const std::int32_t Weight = (((Side == 0 ? Left : Right) + 1) >> 1) * Part >> 7;
      const int Place = (Across >> 16) + Side, X = Steep ? Place : Run.First + i, Y = Steep ? Run.First + i : Place;
      if (X >= Ink.Shown.Left && X < Ink.Shown.Right) PutPixel(Ink, X, Y, Weight);
    }
  }
}

/// Some rows of a steep segment, or columns of a flat one.
struct TStretch {
  std::int32_t Begin, End;
};

std::int64_t FloorOf(std::int64_t A, std::int64_t B) { return A / B - (A % B < 0 ? 1 : 0); }  // B > 0

/// Where the run lies in whole pixels from Low up to, but not including, High, counted across it.
TStretch Between(const TRun& Run, std::int32_t Low, std::int32_t High) {
  if (Run.Rise == 0) {
    const std::int32_t At = Run.Across >> 16;
    return {0, At >= Low && At < High ? Run.Count : 0};
  }
  const std::int64_t ToLow = std::int64_t{Low} * One - Run.Across, ToHigh = std::int64_t{High} * One - Run.Across;
  const std::int64_t Begin = Run.Rise > 0 ? -FloorOf(-ToLow, Run.Rise) : FloorOf(-ToHigh, -Run.Rise) + 1;
  const std::int64_t End = Run.Rise > 0 ? -FloorOf(-ToHigh, Run.Rise) : FloorOf(-ToLow, -Run.Rise) + 1;
  const auto InRun = [&](std::int64_t i) {
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(i, 0, Run.Count));
  };
  return {InRun(Begin), InRun(End)};
}

/// What is shown of a segment when only some columns are: quickly where a row more and the pixels beside stay in them.
template <bool Opaque, bool Steep>
void DrawShown(const TInk& Ink, const TWords& Channels, const TRun& Run) {
  const auto [Left, Right] = std::pair(Ink.Shown.Left, Ink.Shown.Right);
  const auto Columns = [&](int Low, int High) {
    return TStretch{std::clamp(Low - Run.First, 0, Run.Count), std::clamp(High - Run.First, 0, Run.Count)};
  };
  const TStretch Touched = Steep ? Between(Run, Left - 1, Right) : Columns(Left, Right);
  const TStretch Quick = Steep ? Between(Run, Left + 1, Right - 3) : Columns(Left, Right - 2);
  if (Quick.Begin >= Quick.End) return DrawSlowly<Steep>(Ink, Run, Touched.Begin, Touched.End);
  DrawSlowly<Steep>(Ink, Run, Touched.Begin, Quick.Begin);
  DrawRun<Opaque, Steep>(Ink, Channels,
                         {Run.First + Quick.Begin, Quick.End - Quick.Begin, Run.Across + Quick.Begin * Run.Rise,
                          Run.Rise, Run.PartOf(Quick.Begin), Run.PartOf(Quick.End - 1)});
  DrawSlowly<Steep>(Ink, Run, Quick.End, Touched.End);
}

/// A segment that may leave the clip: pixel by pixel.
template <bool Steep>
void CutSegment(const TInk& Ink, TRasterPoint From, TRasterPoint To) {
  if constexpr (!Steep) {
    std::swap(From.X, From.Y);
    std::swap(To.X, To.Y);
  }
  if (From.Y > To.Y) std::swap(From, To);
  const TRasterRect& Clip = Ink.Shown;
  const auto [Low, High] = Steep ? std::pair(Clip.Top, Clip.Bottom) : std::pair(Clip.Left, Clip.Right);
  const auto [Least, Most] = Steep ? std::pair(Clip.Left, Clip.Right) : std::pair(Clip.Top, Clip.Bottom);
  const double Slope = (To.X - From.X) / (To.Y - From.Y);
  const int Begin = std::max(Low, static_cast<int>(std::floor(From.Y)));
  const int End = std::min(High, static_cast<int>(std::ceil(To.Y)));
  for (int Row = Begin; Row < End; ++Row) {
    const double Side = From.X + (Row + 0.5 - From.Y) * Slope - 0.5, Near = std::floor(Side);
    const double Part = std::min<double>(To.Y, Row + 1) - std::max<double>(From.Y, Row);
    for (int i = 0; i < 2; ++i) {
      const int Column = static_cast<int>(Near) + i;
      if (Column < Least || Column >= Most) continue;
      const double Covered = (i == 0 ? 1 - (Side - Near) : Side - Near) * Part;
      const auto Weight = static_cast<int>(std::lround(Covered * FullWeight));
      Steep ? PutPixel(Ink, Column, Row, Weight) : PutPixel(Ink, Row, Column, Weight);
    }
  }
}

void CutSegment(const TInk& Ink, TRasterPoint From, TRasterPoint To) {
  const TRasterGuard Guard(Ink.Clip, 2);
  if (!Guard.Holds(From) || !Guard.Holds(To)) {
    double Start, End;
    if (!Guard.Cut(From, To, Start, End)) return;
    const TRasterPoint First = Guard.At(From, To, Start);
    To = Guard.At(From, To, End);
    From = First;
  }
  if (From.X == To.X && From.Y == To.Y) return;
  std::fabs(To.Y - From.Y) > std::fabs(To.X - From.X) ? CutSegment<true>(Ink, From, To)
                                                      : CutSegment<false>(Ink, From, To);
}

/// Where a segment lies when only some columns are shown: DrawRun may touch Reach more at either end.
enum class TPlace { Beside, AtEdge, Within };

TPlace PlaceOf(const TRasterRect& Shown, TFixed From, TFixed To) {
  constexpr std::int32_t Reach = 3;
  const std::int32_t Left = std::min(From.X, To.X) >> 16, Right = std::max(From.X, To.X) >> 16;
  if (Left - Reach >= Shown.Left && Right + Reach < Shown.Right) return TPlace::Within;
  return Right + Reach < Shown.Left || Left - Reach >= Shown.Right ? TPlace::Beside : TPlace::AtEdge;
}

template <bool Opaque, bool Steep>
ZY_ALWAYS_INLINE void Segment(const TInk& Ink, const TWords& Channels, TFixed From, TFixed To) {
  const TPlace Place = Ink.ShowsAll ? TPlace::Within : PlaceOf(Ink.Shown, From, To);
  if (Place == TPlace::Within)
    DrawRun<Opaque, Steep>(Ink, Channels, RunOf<Steep>(From, To));
  else if (Place == TPlace::AtEdge)
    DrawShown<Opaque, Steep>(Ink, Channels, RunOf<Steep>(From, To));
}

/// Draws the segments that have room in the clip as a whole, and cuts the others.
template <bool Opaque>
ZY_ALWAYS_INLINE void Segments(const TInk& Ink, std::span<const PointF> Points) {
  constexpr int LargestFixed = 32000;
  const auto Left = static_cast<float>(Ink.Clip.Left + 2), Top = static_cast<float>(Ink.Clip.Top + 2);
  const auto Right = static_cast<float>(std::min(Ink.Clip.Right - 3, LargestFixed));
  const auto Bottom = static_cast<float>(std::min(Ink.Clip.Bottom - 3, LargestFixed));
  TWords Channels;
  std::memcpy(&Channels, Ink.Channels, sizeof Channels);
  TFixed Last{};
  bool HadRoom = false;
  for (std::size_t i = 0; i < Points.size(); ++i) {
    const PointF Point = Points[i];
    const bool HasRoom = Point.X >= Left && Point.X <= Right && Point.Y >= Top && Point.Y <= Bottom;
    const TFixed Here =
        HasRoom ? TFixed{static_cast<std::int32_t>(Point.X * One), static_cast<std::int32_t>(Point.Y * One)} : TFixed{};
    if (HasRoom && HadRoom) {
      const std::int32_t Width = std::abs(Here.X - Last.X), Height = std::abs(Here.Y - Last.Y);
      if (Height > Width)
        Segment<Opaque, true>(Ink, Channels, Last, Here);
      else if (Width > 0)
        Segment<Opaque, false>(Ink, Channels, Last, Here);
    } else if (i > 0) {
      CutSegment(Ink, {Points[i - 1].X, Points[i - 1].Y}, {Point.X, Point.Y});
    }
    Last = Here;
    HadRoom = HasRoom;
  }
}

ZY_WIDER_AS_WELL void OpaqueSegments(const TInk& Ink, std::span<const PointF> Points) { Segments<true>(Ink, Points); }

ZY_WIDER_AS_WELL void TranslucentSegments(const TInk& Ink, std::span<const PointF> Points) {
  Segments<false>(Ink, Points);
}

void AllSegments(const TInk& Ink, std::span<const PointF> Points) {
  Ink.Alpha == 255 ? OpaqueSegments(Ink, Points) : TranslucentSegments(Ink, Points);
}

/// Whether lines through the points may touch the columns that are shown.
bool MayShow(const TRasterRect& Shown, std::span<const PointF> Points) {
  float Left = Points[0].X, Right = Left;
  for (const PointF& Point : Points) {
    Left = std::min(Left, Point.X);
    Right = std::max(Right, Point.X);
  }
  constexpr float Reach = 4;
  return Right + Reach >= static_cast<float>(Shown.Left) && Left - Reach <= static_cast<float>(Shown.Right);
}

}  // namespace

TRasterThin::TRasterThin(const TRasterTarget& Target, const TRasterRect& Clip, std::uint32_t Color)
    : TRasterThin(Target, Clip, Color, Clip.Left, Clip.Right) {}

TRasterThin::TRasterThin(const TRasterTarget& Target, const TRasterRect& Clip, std::uint32_t Color, int Left, int Right)
    : FInk{Target, Clip, Clip, Left <= Clip.Left && Right >= Clip.Right, static_cast<std::uint16_t>(Color >> 24), {}} {
  FInk.Shown.Left = std::max(Clip.Left, Left);
  FInk.Shown.Right = std::min(Clip.Right, Right);
  std::uint8_t Channels[4];
  std::memcpy(Channels, &Color, sizeof Channels);
  for (int i = 0; i < 16; ++i) FInk.Channels[i] = Channels[i % 4];
}

void TRasterThin::Line(std::span<const PointF> Points, TRasterCap StartCap, TRasterCap EndCap) {
  if (Points.size() < 2) return;
  const auto Cap = [this](PointF End, PointF Before) {
    const float X = End.X - Before.X, Y = End.Y - Before.Y, Longest = std::max(std::fabs(X), std::fabs(Y));
    if (Longest > 0) CutSegment(FInk, {End.X, End.Y}, {End.X + X * (0.5f / Longest), End.Y + Y * (0.5f / Longest)});
  };
  if (StartCap != TRasterCap::Flat) Cap(Points[0], Points[1]);
  constexpr std::size_t Together = 32;  // segments that are passed over at once when they lie in other columns
  if (FInk.ShowsAll) AllSegments(FInk, Points);
  for (std::size_t i = 0; !FInk.ShowsAll && i + 1 < Points.size(); i += Together)
    if (const auto Part = Points.subspan(i, std::min(Together + 1, Points.size() - i)); MayShow(FInk.Shown, Part))
      AllSegments(FInk, Part);
  if (EndCap != TRasterCap::Flat) Cap(Points.back(), Points[Points.size() - 2]);
}

}  // namespace zy
