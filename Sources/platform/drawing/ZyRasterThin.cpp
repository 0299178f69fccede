#include "platform/drawing/ZyRasterThin.h"

#include <algorithm>
#include <cmath>
#include <cstring>

// One set of functions for all processors: where the compiler can choose at run time, it makes a second one for those
// that work on 32 bytes at once. A sanitizer's own code must not run before the choice is made.
#if defined(__GNUC__) && !defined(__clang__) && defined(__x86_64__) && defined(__linux__) && \
    !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
#define ZY_WIDER_AS_WELL __attribute__((target_clones("avx2", "default")))
#else
#define ZY_WIDER_AS_WELL
#endif
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

/// A segment that stays within the clip with two pixels of room. Along is the row and Across the place within it of a
/// steep one; column and place within that of a flat one.
template <bool Opaque, bool Steep>
ZY_ALWAYS_INLINE void Segment(const TInk& Ink, const TWords& Channels, TFixed From, TFixed To) {
  if constexpr (!Steep) {
    std::swap(From.X, From.Y);
    std::swap(To.X, To.Y);
  }
  if (From.Y > To.Y) std::swap(From, To);
  const std::ptrdiff_t Stride = Ink.Target.Stride, Line = Steep ? Stride : 1, Next = Steep ? 1 : Stride;
  const std::int32_t First = From.Y >> 16, Last = To.Y >> 16;
  const auto Rise = static_cast<std::int32_t>(static_cast<double>(To.X - From.X) / (To.Y - From.Y) * One);
  std::int32_t Across =
      From.X - Half + static_cast<std::int32_t>((std::int64_t{First * One + Half - From.Y} * Rise) >> 16);
  std::uint32_t* Row = Ink.Target.Pixels + First * Line;
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
  // The first and the last row are covered in part; an even number of them is drawn, if need be with one more that is
  // not covered at all.
  constexpr std::int32_t Whole = FullWeight;
  const std::int32_t Rows = Last - First + 1, PartOfLast = (To.Y & (One - 1)) >> 9;
  const std::int32_t PartOfFirst = (std::min(To.Y, (First + 1) * One) - From.Y) >> 9;
  SetWeights(Weights, Places);
  Spread(Parts, PartOfFirst, Rows > 2 ? Whole : Rows == 2 ? PartOfLast : 0);
  Weights = (Weights * (TWords)Parts) >> 7;
  Put();
  if (Rows <= 2) return;
  for (std::int32_t Left = Rows - 2; Left > 2; Left -= 2) {
    SetWeights(Weights, Places);
    Put();
  }
  SetWeights(Weights, Places);
  const bool IsEven = Rows % 2 == 0;
  Spread(Parts, IsEven ? Whole : PartOfLast, IsEven ? PartOfLast : 0);
  Weights = (Weights * (TWords)Parts) >> 7;
  Put();
}

/// A segment that may leave the clip: pixel by pixel.
template <bool Steep>
void CutSegment(const TInk& Ink, TRasterPoint From, TRasterPoint To) {
  if constexpr (!Steep) {
    std::swap(From.X, From.Y);
    std::swap(To.X, To.Y);
  }
  if (From.Y > To.Y) std::swap(From, To);
  const TRasterRect& Clip = Ink.Clip;
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
      std::uint32_t* const Pixel =
          Ink.Target.Pixels + (Steep ? Row * Ink.Target.Stride + Column : Column * Ink.Target.Stride + Row);
      std::uint8_t Channels[4];
      std::memcpy(Channels, Pixel, sizeof Channels);
      for (int k = 0; k < 4; ++k) {
        const int Hidden = (Channels[k] * Ink.Alpha + 128) * 257 >> 16;
        Channels[k] =
            static_cast<std::uint8_t>(Channels[k] + (((Ink.Channels[k] - Hidden) * Weight + HalfWeight) >> 7));
      }
      std::memcpy(Pixel, Channels, sizeof Channels);
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

/// Runs a segment where there is room for it; false elsewhere.
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

}  // namespace

TRasterThin::TRasterThin(const TRasterTarget& Target, const TRasterRect& Clip, std::uint32_t Color)
    : FInk{Target, Clip, static_cast<std::uint16_t>(Color >> 24), {}} {
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
  FInk.Alpha == 255 ? OpaqueSegments(FInk, Points) : TranslucentSegments(FInk, Points);
  if (EndCap != TRasterCap::Flat) Cap(Points.back(), Points[Points.size() - 2]);
}

}  // namespace zy
