#include "platform/drawing/ZyRasterSum.h"

#include <algorithm>
#include <cmath>

#include "platform/drawing/ZyRasterBlend.h"

namespace zy {
namespace {

constexpr int Parts = 256;            // of a pixel
constexpr double Unit = 1024;         // of the sums, for what lets through 1 / e
constexpr int MostOpaque = 8 * 1024;  // lets through less than half a 255th
constexpr int MostBoxes = 500'000;    // whose sum fits

/// Opacity for each sum up to MostOpaque.
const std::array<std::uint8_t, MostOpaque + 1>& Opacities() {
  static const auto Table = [] {
    std::array<std::uint8_t, MostOpaque + 1> Result;
    for (std::size_t Sum = 0; Sum < Result.size(); ++Sum)
      Result[Sum] = CoverageOfPart(1 - std::exp(-static_cast<double>(Sum) / Unit));
    return Result;
  }();
  return Table;
}

/// The pixels of a row or a column that a span touches, and how much of the first and the last one it covers.
struct TSpan {
  TSpan(int From, int To)
      : First(From / Parts),
        Last((To - 1) / Parts),
        FirstPart(std::min(To, (First + 1) * Parts) - From),
        LastPart(First == Last ? FirstPart : To - Last * Parts) {}
  int PartOf(int Pixel) const { return Pixel == First ? FirstPart : Pixel == Last ? LastPart : Parts; }

  int First, Last;
  int FirstPart, LastPart;
};

using TWeights = std::array<std::uint32_t, Parts + 1>;

/// A run of pixels along the longer side of a box, the next of which lies ToNext behind.
inline void AddRun(std::uint32_t* Steps, std::ptrdiff_t ToNext, int PartAcross, const TSpan& Along,
                   const TWeights& Weights) {
  const auto WeightOf = [&](int PartAlong) {
    return Weights[static_cast<std::size_t>(PartAcross * PartAlong / Parts)];
  };
  const std::uint32_t First = WeightOf(Along.FirstPart);
  std::uint32_t* const Begin = Steps + Along.First * ToNext;
  Begin[0] += First;
  if (Along.First == Along.Last) {
    Begin[ToNext] -= First;
    return;
  }
  const std::uint32_t Full = WeightOf(Parts), Last = WeightOf(Along.LastPart);
  std::uint32_t* const End = Steps + Along.Last * ToNext;
  Begin[ToNext] += Full - First;
  End[0] += Last - Full;
  End[ToNext] -= Last;
}

}  // namespace

TRasterSum::TScratch& TRasterSum::Scratch() {
  thread_local TScratch Result;
  return Result;
}

TRasterSum::TRasterSum(const TRasterRect& Box, std::uint8_t Alpha, std::vector<std::uint16_t>& Sums)
    : FBox(Box),
      FWidth(static_cast<float>(Box.Right - Box.Left)),
      FHeight(static_cast<float>(Box.Bottom - Box.Top)),
      FStride(Box.Right - Box.Left + 1),
      FSums(Sums) {
  const auto Width = static_cast<std::size_t>(Box.Right - Box.Left);
  const auto Height = static_cast<std::size_t>(Box.Bottom - Box.Top);
  FSums.assign(Width * Height, 0);
  TScratch& Kept = Scratch();
  const std::size_t Cells = (Width + 1) * (Height + 1);
  for (auto* Steps : {&Kept.Down, &Kept.Across})
    if (Steps->size() < Cells) Steps->resize(Cells);
  FDown = Kept.Down.data();
  FAcross = Kept.Across.data();
  for (std::size_t Part = 0; Part < FWeights.size(); ++Part) {
    const double Through = 1 - static_cast<double>(Alpha) / 255 * static_cast<double>(Part) / Parts;
    const double Weight = Through > 0 ? -std::log(Through) * Unit : MostOpaque;
    FWeights[Part] = static_cast<std::uint32_t>(std::lround(std::min<double>(Weight, MostOpaque)));
  }
}

void TRasterSum::Add(float Left, float Top, float Right, float Bottom) {
  const auto Cut = [](float Value, float High) {
    return static_cast<int>(std::clamp(Value, 0.0f, High) * Parts + 0.5f);  // NOLINT(bugprone-incorrect-roundings)
  };
  const auto X = static_cast<float>(FBox.Left), Y = static_cast<float>(FBox.Top);
  if (!(Left < Right) || !(Top < Bottom)) return;  // nor what is no number
  const int From = Cut(Left - X, FWidth), To = Cut(Right - X, FWidth);
  const int Upper = Cut(Top - Y, FHeight), Lower = Cut(Bottom - Y, FHeight);
  if (From >= To || Upper >= Lower) return;
  if (++FCount == MostBoxes) AddUp();
  const TSpan Columns(From, To), Rows(Upper, Lower);
  if (Columns.Last - Columns.First <= Rows.Last - Rows.First) {
    for (int Run = Columns.First; Run <= Columns.Last; ++Run)
      AddRun(FDown + Run, FStride, Columns.PartOf(Run), Rows, FWeights);
  } else {
    for (int Run = Rows.First; Run <= Rows.Last; ++Run)
      AddRun(FAcross + Run * FStride, 1, Rows.PartOf(Run), Columns, FWeights);
  }
}

void TRasterSum::AddUp() {
  if (FCount == 0) return;
  FCount = 0;
  const auto Width = static_cast<std::size_t>(FStride - 1);
  std::vector<std::uint32_t>& Row = Scratch().Row;
  Row.assign(Width, 0);
  std::uint32_t *Down = FDown, *Across = FAcross;
  std::uint16_t* Sums = FSums.data();
  for (int Y = FBox.Top; Y < FBox.Bottom; ++Y, Down += FStride, Across += FStride, Sums += Width) {
    std::uint32_t AlongRow = 0;
    for (std::size_t X = 0; X < Width; ++X) {
      Row[X] += Down[X];
      AlongRow += Across[X];
      Sums[X] = static_cast<std::uint16_t>(std::min<std::uint32_t>(Sums[X] + Row[X] + AlongRow, MostOpaque));
    }
    std::fill_n(Down, FStride, 0u);
    std::fill_n(Across, FStride, 0u);
  }
  std::fill_n(Down, FStride, 0u);  // behind the last row
}

void TRasterSum::Blend(const TRasterTarget& Target, const TRasterClip& Clip, const TRasterRect& Box,
                       std::span<const std::uint16_t> Sums, std::uint32_t Color) {
  const auto& Table = Opacities();
  const int Width = Box.Right - Box.Left;
  std::vector<std::uint8_t>& Row = Scratch().Opacities;
  Row.resize(static_cast<std::size_t>(Width));
  const std::uint16_t* Sum = Sums.data();
  for (int Y = Box.Top; Y < Box.Bottom; ++Y) {
    for (std::uint8_t& Opacity : Row) Opacity = Table[*Sum++];
    if (Clip.Mask != nullptr) ScaleBytes(Row.data(), Clip.Mask + Y * Clip.MaskStride + Box.Left, Width);
    BlendColor(Target.Pixels + Y * Target.Stride + Box.Left, Row.data(), Width, Color | 0xFF000000);
  }
}

}  // namespace zy
