// Frames and runs of boxes.

#include <algorithm>
#include <cmath>
#include <vector>

#include "platform/drawing/ZyRaster.h"
#include "platform/drawing/ZyRasterBlend.h"

namespace zy {
namespace {

/// How much of a pixel lies between two edges.
double PartOf(int Pixel, double From, double To) {
  return std::max(0.0, std::min(To, Pixel + 1.0) - std::max<double>(From, Pixel));
}

std::uint32_t InkOf(std::uint32_t Color) {
  std::uint32_t Result = 0;
  TSolidPaint(Color).IsSolid(Result);
  return Result;
}

/// What a frame leaves out of its box: the inner box, and a triangle with two sides of Cut at each corner.
struct TFrame {
  /// How much of a pixel is covered.
  std::uint8_t CoverageOf(int Column, int Row) const {
    double Part = PartOf(Column, Outer.Left, Outer.Right) * PartOf(Row, Outer.Top, Outer.Bottom) -
                  PartOf(Column, Inner.Left, Inner.Right) * PartOf(Row, Inner.Top, Inner.Bottom);
    if (Cut > 0)
      for (const auto& [Left, Right] : {std::pair(Column - Outer.Left, Column + 1 - Outer.Left),
                                        std::pair(Outer.Right - Column - 1, Outer.Right - Column)})
        for (const auto& [Top, Bottom] :
             {std::pair(Row - Outer.Top, Row + 1 - Outer.Top), std::pair(Outer.Bottom - Row - 1, Outer.Bottom - Row)})
          Part -= CutUpTo(Right, Bottom) - CutUpTo(Left, Bottom) - CutUpTo(Right, Top) + CutUpTo(Left, Top);
    return CoverageOfPart(std::clamp(Part, 0.0, 1.0));
  }
  /// The part of a triangle that lies within a box from its corner.
  double CutUpTo(double Width, double Height) const {
    const double X = std::clamp(Width, 0.0, Cut), Y = std::clamp(Height, 0.0, Cut), Beyond = std::max(X + Y - Cut, 0.0);
    return X * Y - Beyond * Beyond / 2;
  }
  /// Whether a row looks like the one above it.
  bool IsAsAbove(int Row) const { return Row - 1 >= Outer.Top + Half && Row + 1 <= Outer.Bottom - Half; }

  TZyRaster::TEdges Outer, Inner;
  double Cut, Half;
};

}  // namespace

void TZyRaster::FillFrame(TEdges Box, double Width, bool CutsCorners, std::uint32_t Color) {
  constexpr double Farthest = 1e6;
  for (double* Edge : {&Box.Left, &Box.Top, &Box.Right, &Box.Bottom}) *Edge = std::clamp(*Edge, -Farthest, Farthest);
  const double Half = Width / 2, MiddleX = (Box.Left + Box.Right) / 2, MiddleY = (Box.Top + Box.Bottom) / 2;
  const TFrame Frame{{Box.Left - Half, Box.Top - Half, Box.Right + Half, Box.Bottom + Half},
                     {std::min(Box.Left + Half, MiddleX), std::min(Box.Top + Half, MiddleY),
                      std::max(Box.Right - Half, MiddleX), std::max(Box.Bottom - Half, MiddleY)},
                     CutsCorners ? Half : 0,
                     Width};
  const TRasterRect& Clip = FClip.Box;
  if (Clip.IsEmpty()) return;
  const auto ColumnOf = [&](double Edge) { return std::clamp(static_cast<int>(Edge), Clip.Left, Clip.Right); };
  const auto RowOf = [&](double Edge) { return std::clamp(static_cast<int>(Edge), Clip.Top, Clip.Bottom); };
  const int First = ColumnOf(std::floor(Frame.Outer.Left)), LeftEnd = ColumnOf(std::ceil(Frame.Inner.Left));
  const int RightFirst = std::max(ColumnOf(std::floor(Frame.Inner.Right)), LeftEnd);
  const int End = std::max(ColumnOf(std::ceil(Frame.Outer.Right)), RightFirst);
  thread_local std::vector<std::uint8_t> Coverage;  // of the sides, kept for its memory
  Coverage.resize(std::max(Coverage.size(), static_cast<std::size_t>(End - First)));
  std::uint8_t *const Left = Coverage.data(), *const Right = Left + (LeftEnd - First);
  const std::uint32_t Ink = InkOf(Color);
  const int Top = RowOf(std::floor(Frame.Outer.Top)), Bottom = RowOf(std::ceil(Frame.Outer.Bottom));
  std::uint8_t Between = 0;
  for (int Row = Top; Row < Bottom; ++Row) {
    if (Row == Top || !Frame.IsAsAbove(Row)) {
      for (int Column = First; Column < LeftEnd; ++Column) Left[Column - First] = Frame.CoverageOf(Column, Row);
      for (int Column = RightFirst; Column < End; ++Column) Right[Column - RightFirst] = Frame.CoverageOf(Column, Row);
      if (LeftEnd < RightFirst) Between = Frame.CoverageOf(LeftEnd, Row);
    }
    std::uint32_t* const Pixels = FTarget.Pixels + Row * FTarget.Stride;
    BlendColor(Pixels + First, Left, LeftEnd - First, Ink);
    BlendColor(Pixels + RightFirst, Right, End - RightFirst, Ink);
    if (Between > 0) BlendEven(Pixels + LeftEnd, Between, RightFirst - LeftEnd, Ink);
  }
}

void TZyRaster::FillBoxes(std::span<const TRasterRect> Boxes, std::uint32_t Color) {
  const std::uint32_t Ink = InkOf(Color);
  const bool IsOpaque = Ink >> 24 == 255;
  for (const TRasterRect& Each : Boxes) {
    const TRasterRect Box = Intersection(Each, FClip.Box);
    if (Box.IsEmpty()) continue;
    std::uint32_t* Row = FTarget.Pixels + Box.Top * FTarget.Stride + Box.Left;
    const int Width = Box.Right - Box.Left;
    for (int Rows = Box.Bottom - Box.Top; Rows > 0; --Rows, Row += FTarget.Stride) {
      if (IsOpaque)
        std::fill_n(Row, Width, Ink);
      else
        BlendEven(Row, 255, Width, Ink);
    }
  }
}

}  // namespace zy
