#include "platform/drawing/ZyRasterBlend.h"

#include <algorithm>
#include <cstring>

#include "platform/framework/WiderAsWell.h"

// Loops over bytes in chunks of fixed size, written for the compiler's vectoriser: channels are never told apart but
// for the alpha, which is taken from the pixel's value, so byte order does not matter.

namespace zy {
namespace {

/// Pixels that are looked at together, and those that are blended together where coverage changes.
constexpr int ChunkSize = 16;
constexpr int GroupSize = 4;

constexpr std::uint32_t FourTimes(std::uint32_t Byte) {
  Byte |= Byte << 8;
  return Byte | Byte << 16;
}

/// Pixels = Source + Pixels * (1 - alpha of Source).
template <int Size>
inline void PutOver(std::uint32_t* Pixels, const std::uint32_t* Source) {
  std::uint32_t Rest[Size];
  for (int I = 0; I < Size; ++I) Rest[I] = FourTimes(255 - (Source[I] >> 24));
  std::uint8_t Old[4 * Size], Keep[4 * Size], Add[4 * Size];
  std::memcpy(Old, Pixels, sizeof Old);
  std::memcpy(Keep, Rest, sizeof Keep);
  std::memcpy(Add, Source, sizeof Add);
  for (int I = 0; I < 4 * Size; ++I) Old[I] = static_cast<std::uint8_t>(Add[I] + ScaledByte(Old[I], Keep[I]));
  std::memcpy(Pixels, Old, sizeof Old);
}

/// The same with Source scaled by one coverage first.
template <int Size>
inline void PutEven(std::uint32_t* Pixels, const std::uint32_t* Source, std::uint8_t Coverage) {
  std::uint8_t Channels[4 * Size];
  std::memcpy(Channels, Source, sizeof Channels);
  for (int I = 0; I < 4 * Size; ++I) Channels[I] = ScaledByte(Channels[I], Coverage);
  std::uint32_t Part[Size];
  std::memcpy(Part, Channels, sizeof Part);
  PutOver<Size>(Pixels, Part);
}

/// What the coverages of some pixels have in common.
enum class TCovered { None, Partly, Even, Full };

inline TCovered CoveredChunk(const std::uint8_t* Coverage) {
  std::uint64_t Words[2];
  std::memcpy(Words, Coverage, sizeof Words);
  if (Words[0] != Words[1]) return TCovered::Partly;
  if (Words[0] == 0) return TCovered::None;
  if (Words[0] == ~std::uint64_t{0}) return TCovered::Full;
  return Words[0] == Coverage[0] * std::uint64_t{0x0101010101010101} ? TCovered::Even : TCovered::Partly;
}

inline TCovered CoveredGroup(const std::uint8_t* Coverage) {
  std::uint32_t Word;
  std::memcpy(&Word, Coverage, sizeof Word);
  if (Word == 0) return TCovered::None;
  return Word == ~std::uint32_t{0} ? TCovered::Full : TCovered::Partly;
}

/// Blends Size pixels of one colour that are covered in full.
template <int Size>
inline void PutFull(std::uint32_t* Pixels, const std::uint32_t* Source, bool Opaque) {
  if (Opaque)
    std::memcpy(Pixels, Source, Size * sizeof *Pixels);
  else
    PutOver<Size>(Pixels, Source);
}

/// The four channels of a pixel in lanes of 16 bits, so that one multiplication scales them all.
constexpr std::uint64_t Lanes(std::uint32_t Pixel) {
  return (Pixel & 0x00FF00FF) | static_cast<std::uint64_t>(Pixel & 0xFF00FF00) << 24;
}

constexpr std::uint32_t Packed(std::uint64_t Lanes) {
  return static_cast<std::uint32_t>(Lanes) | static_cast<std::uint32_t>(Lanes >> 24);
}

constexpr std::uint64_t Scaled(std::uint64_t Lanes, std::uint32_t Factor) {
  constexpr std::uint64_t Half = 0x0080008000800080, Bytes = 0x00FF00FF00FF00FF;
  const std::uint64_t Product = Lanes * Factor + Half;
  return (Product + (Product >> 8 & Bytes)) >> 8 & Bytes;
}

/// One pixel of a colour that covers it partly.
inline void PutCovered(std::uint32_t& Pixel, std::uint32_t Color, std::uint8_t Coverage) {
  const std::uint64_t Part = Scaled(Lanes(Color), Coverage);
  const auto Alpha = static_cast<std::uint32_t>(Part >> 48);
  Pixel = Packed(Part + Scaled(Lanes(Pixel), 255 - Alpha));
}

}  // namespace

ZY_WIDEST_AS_WELL void ScaleBytes(std::uint8_t* Values, const std::uint8_t* Factors, int Count) {
  for (int I = 0; I < Count; ++I) Values[I] = ScaledByte(Values[I], Factors[I]);
}

ZY_WIDEST_AS_WELL void ScaleBytes(std::uint8_t* Values, std::uint8_t Factor, int Count) {
  for (int I = 0; I < Count; ++I) Values[I] = ScaledByte(Values[I], Factor);
}

namespace {

/// Blends Count pixels; those from I on have the colours Source(I).
template <typename TSource>
inline void Blend(std::uint32_t* Pixels, const std::uint8_t* Coverage, int Count, bool Opaque, TSource Source) {
  const auto Group = [&](int At) {
    switch (CoveredGroup(Coverage + At)) {
      case TCovered::None:
        break;
      case TCovered::Full:
        PutFull<GroupSize>(Pixels + At, Source(At), Opaque);
        break;
      default:
        for (int I = 0; I < GroupSize; ++I) PutCovered(Pixels[At + I], Source(At)[I], Coverage[At + I]);
        break;
    }
  };
  int I = 0;
  for (; I + ChunkSize <= Count; I += ChunkSize) {
    switch (CoveredChunk(Coverage + I)) {
      case TCovered::None:
        break;
      case TCovered::Full:
        PutFull<ChunkSize>(Pixels + I, Source(I), Opaque);
        break;
      case TCovered::Even:
        PutEven<ChunkSize>(Pixels + I, Source(I), Coverage[I]);
        break;
      case TCovered::Partly:
        for (int Part = 0; Part < ChunkSize; Part += GroupSize) Group(I + Part);
        break;
    }
  }
  for (; I + GroupSize <= Count; I += GroupSize) Group(I);
  for (; I < Count; ++I)
    if (Coverage[I] != 0) PutCovered(Pixels[I], *Source(I), Coverage[I]);
}

/// A ground is mostly white: all bytes are the same, and a fill with one byte is the quickest there is.
void Fill(std::uint32_t* Pixels, int Count, std::uint32_t Color) {
  if (Color == FourTimes(Color >> 24))
    std::memset(Pixels, static_cast<int>(Color >> 24), static_cast<std::size_t>(Count) * sizeof *Pixels);
  else
    std::fill_n(Pixels, Count, Color);
}

}  // namespace

void BlendColor(std::uint32_t* Pixels, const std::uint8_t* Coverage, int Count, std::uint32_t Color) {
  std::uint32_t Colors[ChunkSize];
  std::fill_n(Colors, ChunkSize, Color);
  Blend(Pixels, Coverage, Count, Color >> 24 == 255, [&](int) { return Colors; });
}

ZY_WIDEST_AS_WELL void BlendColors(std::uint32_t* Pixels, const std::uint8_t* Coverage, int Count,
                                   const std::uint32_t* Colors) {
  std::uint32_t InAll = 0xFF000000;
  for (int I = 0; I < Count; ++I) InAll &= Colors[I];
  Blend(Pixels, Coverage, Count, InAll >> 24 == 255, [&](int I) { return Colors + I; });
}

namespace {

/// Size columns of alike rows: what is added and what is kept of the pixels is known before the first one.
template <int Size>
void BlendColumns(std::uint32_t* Pixels, std::ptrdiff_t Stride, int Rows, const std::uint8_t* Coverage,
                  const std::uint32_t* Colors) {
  std::uint32_t Part[Size], Any = 0;
  for (int I = 0; I < Size; ++I) Any |= Part[I] = Packed(Scaled(Lanes(Colors[I]), Coverage[I]));
  if (Any == 0) return;
  for (int Row = 0; Row < Rows; ++Row, Pixels += Stride) PutOver<Size>(Pixels, Part);
}

}  // namespace

void BlendRows(std::uint32_t* Pixels, std::ptrdiff_t Stride, int Rows, const std::uint8_t* Coverage, int Count,
               const std::uint32_t* Colors) {
  int I = 0;
  for (; I + GroupSize <= Count; I += GroupSize)
    BlendColumns<GroupSize>(Pixels + I, Stride, Rows, Coverage + I, Colors + I);
  for (; I < Count; ++I) BlendColumns<1>(Pixels + I, Stride, Rows, Coverage + I, Colors + I);
}

void BlendEven(std::uint32_t* Pixels, std::uint8_t Coverage, int Count, std::uint32_t Color) {
  const std::uint32_t Part = Packed(Scaled(Lanes(Color), Coverage));
  if (Part >> 24 == 255) return Fill(Pixels, Count, Part);
  const auto Keep = static_cast<std::uint16_t>(255 - (Part >> 24));
  int I = 0;
  std::uint8_t Add[4 * ChunkSize];
  for (std::ptrdiff_t K = 0; Count >= ChunkSize && K < ChunkSize; ++K) std::memcpy(Add + 4 * K, &Part, sizeof Part);
  for (; I + ChunkSize <= Count; I += ChunkSize) {
    std::uint8_t Old[4 * ChunkSize];
    std::memcpy(Old, Pixels + I, sizeof Old);
    for (int K = 0; K < 4 * ChunkSize; ++K)
      Old[K] = static_cast<std::uint8_t>(Add[K] + ScaledByte(Old[K], static_cast<std::uint8_t>(Keep)));
    std::memcpy(Pixels + I, Old, sizeof Old);
  }
  for (; I < Count; ++I) Pixels[I] = Packed(Lanes(Part) + Scaled(Lanes(Pixels[I]), Keep));
}

ZY_WIDEST_AS_WELL void BlendRowsOver(std::uint32_t* Pixels, std::ptrdiff_t Stride, const std::uint32_t* Colors,
                                     int Width, int Height) {
  for (int Row = 0; Row < Height; ++Row, Pixels += Stride, Colors += Width)
    for (int I = 0; I < Width; I += GroupSize) PutOver<GroupSize>(Pixels + I, Colors + I);
}

ZY_WIDEST_AS_WELL void BlendOver(std::uint32_t* Pixels, const std::uint32_t* Colors, int Count) {
  int I = 0;
  for (; I + ChunkSize <= Count; I += ChunkSize) PutOver<ChunkSize>(Pixels + I, Colors + I);
  for (; I + GroupSize <= Count; I += GroupSize) PutOver<GroupSize>(Pixels + I, Colors + I);
  for (; I < Count; ++I) Pixels[I] = Packed(Lanes(Colors[I]) + Scaled(Lanes(Pixels[I]), 255 - (Colors[I] >> 24)));
}

}  // namespace zy
