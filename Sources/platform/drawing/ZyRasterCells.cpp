#include "platform/drawing/ZyRasterCells.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace zy {
namespace {

constexpr int BlockShift = 4;
constexpr int BlockSize = 1 << BlockShift;
constexpr int FewestEvenBlocks = 2;    // that are worth a call of their own
constexpr std::int32_t One = 1 << 16;  // full coverage, and a pixel in fixed point
constexpr double ToFixed = 65536.0;
constexpr double Rounding = 0.5;  // what is converted is never negative
constexpr double ToFine = 4294967296.0;

/// Coverage, 0 to 255, of a sum by one of the two rules.
template <bool Winding>
inline std::uint8_t CoverageOf(std::int32_t Sum) {
  std::int32_t Area;
  if constexpr (Winding) {
    Area = std::min(std::max(Sum, -One), One);
    Area = Area < 0 ? -Area : Area;
  } else {
    Area = Sum & (2 * One - 1);
    Area = Area > One ? 2 * One - Area : Area;
  }
  return static_cast<std::uint8_t>(((Area << 8) - Area + One / 2) >> 16);
}

/// Coverage of a sum over outlines that do not overlap themselves.
struct TLayerRule {
  explicit TLayerRule(int Layers) : Factor((255ULL << 32) / (static_cast<std::uint64_t>(Layers) << 16)) {}
  std::uint8_t operator()(std::int32_t Sum) const {
    constexpr std::uint64_t Half = 1ULL << 31;
    const auto Area = static_cast<std::uint64_t>(Sum < 0 ? -static_cast<std::int64_t>(Sum) : Sum);
    return static_cast<std::uint8_t>(std::min<std::uint64_t>((Area * Factor + Half) >> 32, 255));
  }
  std::uint64_t Factor;
};

/// Sums wrap around: exact for the alternate rule, and for the other one out of reach of any real outline.
inline void Grow(std::int32_t& Cell, std::int32_t Value) {
  Cell = static_cast<std::int32_t>(static_cast<std::uint32_t>(Cell) + static_cast<std::uint32_t>(Value));
}

}  // namespace

void TRasterCells::Begin(const TRasterRect& Box, bool Smooth) {
  FBox = Box;
  FSmooth = Smooth;
  const int Width = Box.Right - Box.Left;
  const int Height = Box.Bottom - Box.Top;
  FWidth = Width;
  FHeight = Height;
  // An edge on the right border touches the column behind it and one more.
  FBlocks = (Width + 2 + BlockSize - 1) >> BlockShift;
  FCellStride = static_cast<std::int64_t>(FBlocks) << BlockShift;
  FFlagStride = static_cast<std::int64_t>(FBlocks + 7) / 8 * 8;
  const auto Grown = [](auto& Buffer, std::int64_t Size) {
    if (std::size(Buffer) < static_cast<std::size_t>(Size)) Buffer.resize(static_cast<std::size_t>(Size));
  };
  Grown(FCells, FCellStride * Height);
  Grown(FFlags, FFlagStride * Height);
  Grown(FCoverage, FCellStride);
  Grown(FBreaks, Height + 1);
  FFirstRow = Height;
  FLastRow = -1;
}

void TRasterCells::AddEdge(double X0, double Y0, double X1, double Y1) {
  X0 -= FBox.Left;
  X1 -= FBox.Left;
  Y0 -= FBox.Top;
  Y1 -= FBox.Top;
  const bool Inside =
      std::min(X0, X1) >= 0 && std::max(X0, X1) <= FWidth && std::min(Y0, Y1) >= 0 && std::max(Y0, Y1) <= FHeight;
  if (Inside)
    AddInside(X0, Y0, X1, Y1);
  else
    AddClipped(X0, Y0, X1, Y1);
}

// What lies above, below or right of the box changes no pixel in it. What lies left of it counts as if on its border.
void TRasterCells::AddClipped(double X0, double Y0, double X1, double Y1) {
  if (std::max(Y0, Y1) <= 0 || std::min(Y0, Y1) >= FHeight || std::min(X0, X1) >= FWidth) return;
  const double Slope = (X1 - X0) / (Y1 - Y0);
  const auto Cut = [&](double& X, double& Y) {
    const double Kept = std::clamp(Y, 0.0, FHeight);
    if (Kept == Y) return;
    X += (Kept - Y) * Slope;
    Y = Kept;
  };
  const double FromX = X0, FromY = Y0;
  Cut(X0, Y0);
  Cut(X1, Y1);
  if (Y0 == Y1) return;
  if (X0 <= 0 && X1 <= 0) return AddInside(0, Y0, 0, Y1);
  if (X0 >= FWidth && X1 >= FWidth) return;
  const auto YAt = [&](double X) {
    return std::clamp(FromY + (X - FromX) / Slope, std::min(Y0, Y1), std::max(Y0, Y1));
  };
  if (X0 < 0) {
    const double Y = YAt(0);
    AddInside(0, Y0, 0, Y);
    X0 = 0;
    Y0 = Y;
  } else if (X0 > FWidth) {
    Y0 = YAt(FWidth);
    X0 = FWidth;
  }
  if (X1 < 0) {
    const double Y = YAt(0);
    AddInside(0, Y, 0, Y1);
    X1 = 0;
    Y1 = Y;
  } else if (X1 > FWidth) {
    Y1 = YAt(FWidth);
    X1 = FWidth;
  }
  AddInside(X0, Y0, X1, Y1);
}

// Heights come from the rounded ends, so those of edges that share a point add up exactly.
void TRasterCells::AddInside(double X0, double Y0, double X1, double Y1) {
  if (!FSmooth) return AddInsideAtCentres(X0, Y0, X1, Y1);
  std::int64_t From = static_cast<std::int64_t>(Y0 * ToFixed + Rounding);
  std::int64_t To = static_cast<std::int64_t>(Y1 * ToFixed + Rounding);
  if (From == To) return;
  std::int32_t Sign = 1;
  if (From > To) {
    std::swap(From, To);
    std::swap(X0, X1);
    std::swap(Y0, Y1);
    Sign = -1;
  }
  std::int64_t Row = From >> 16;
  const std::int64_t LastRow = (To - 1) >> 16;
  FFirstRow = std::min(FFirstRow, Row);
  FLastRow = std::max(FLastRow, LastRow);
  if (Row == LastRow) return AddSpan(Row, X0, X1, static_cast<std::int32_t>(To - From), Sign);

  const double Slope = (X1 - X0) / (Y1 - Y0);
  const double Low = std::min(X0, X1), High = std::max(X0, X1);
  double X = X0;
  if (const auto Part = static_cast<std::int32_t>(From & (One - 1)); Part != 0) {
    X = std::clamp(X0 + (static_cast<double>(Row + 1) - Y0) * Slope, Low, High);
    AddSpan(Row, X0, X, One - Part, Sign);
    ++Row;
  }
  const std::int64_t RowEnd = To >> 16;
  if (Row < RowEnd) {
    AddRows(Row, RowEnd, X, Slope, Sign);
    X = std::clamp(X0 + (static_cast<double>(RowEnd) - Y0) * Slope, Low, High);
  }
  if (const auto Part = static_cast<std::int32_t>(To & (One - 1)); Part != 0) AddSpan(RowEnd, X, X1, Part, Sign);
}

/// An edge that crosses whole rows, by 2^-32 pixel steps. The start keeps off the borders by more than the steps can be
/// wrong, so no column outside the row is reached.
void TRasterCells::AddRows(std::int64_t Row, std::int64_t RowEnd, double X, double Slope, std::int32_t Sign) {
  constexpr double Guard = 1.0 / (1 << 20);
  const auto Fine = [&](double Place) {
    return static_cast<std::int64_t>(std::clamp(Place, Guard, FWidth - Guard) * ToFine);
  };
  std::int64_t Next = Fine(X);
  if (Slope == 0) return AddUpright(Row, RowEnd, Next >> 16, Sign);
  Break(Row, RowEnd);
  // Towards the clamped end: ends are rounded in height, and a flat edge would overshoot by its slope times that.
  const std::int64_t Step = (Fine(X + static_cast<double>(RowEnd - Row) * Slope) - Next) / (RowEnd - Row);
  std::int32_t* Cells = FCells.data() + Row * FCellStride;
  std::uint8_t* Flags = FFlags.data() + Row * FFlagStride;
  const std::int64_t CellStride = FCellStride, FlagStride = FFlagStride;
  for (; Row < RowEnd; ++Row, Cells += CellStride, Flags += FlagStride) {
    const std::int64_t Xa = Next >> 16;
    Next += Step;
    const std::int64_t Xb = Next >> 16;
    const std::int64_t Column = Xa >> 16;
    if (Column == Xb >> 16) {
      const auto Behind = static_cast<std::int32_t>(((Xa & (One - 1)) + (Xb & (One - 1))) >> 1);
      Grow(Cells[Column], Sign * (One - Behind));
      Grow(Cells[Column + 1], Sign * Behind);
      Flags[Column >> BlockShift] = 1;
      if ((Column + 1) % BlockSize == 0) Flags[(Column + 1) >> BlockShift] = 1;
    } else {
      AddWideSpan(Row, std::min(Xa, Xb), std::max(Xa, Xb), One, Sign);
    }
  }
}

/// A side straight up or down; of one between two columns the second one has no share.
void TRasterCells::AddUpright(std::int64_t Row, std::int64_t RowEnd, std::int64_t X, std::int32_t Sign) {
  const std::int32_t Behind = static_cast<std::int32_t>(X & (One - 1)) * Sign;
  FUprights.push_back({Row, RowEnd, X >> 16, Sign * One - Behind, Behind});
  FBreaks[static_cast<std::size_t>(Row)] = 1;
  FBreaks[static_cast<std::size_t>(RowEnd)] = 1;
}

/// Each of these rows is a run of its own.
void TRasterCells::Break(std::int64_t Row, std::int64_t RowEnd) {
  std::memset(FBreaks.data() + Row, 1, static_cast<std::size_t>(RowEnd - Row + 1));
}

/// The start of the run behind that of Row, or RowEnd.
std::int64_t TRasterCells::NextBreak(std::int64_t Row, std::int64_t RowEnd) const {
  const std::uint8_t* const Breaks = FBreaks.data();
  if (++Row >= RowEnd || Breaks[Row] != 0) return Row;
  const void* const Found = std::memchr(Breaks + Row, 1, static_cast<std::size_t>(RowEnd - Row));
  return Found == nullptr ? RowEnd : static_cast<const std::uint8_t*>(Found) - Breaks;
}

void TRasterCells::PutUprights(bool InEachRow) {
  for (const TUpright& Edge : FUprights) {
    if (InEachRow) Break(Edge.Row, Edge.RowEnd);
    const std::int64_t Block = Edge.Column >> BlockShift;
    const std::int64_t BlockBehind = (Edge.Column + (Edge.Behind != 0 ? 1 : 0)) >> BlockShift;
    for (std::int64_t Row = Edge.Row; Row < Edge.RowEnd; Row = NextBreak(Row, Edge.RowEnd)) {
      std::int32_t* const Cells = FCells.data() + Row * FCellStride + Edge.Column;
      std::uint8_t* const Flags = FFlags.data() + Row * FFlagStride;
      Grow(Cells[0], Edge.Here);
      if (Edge.Behind != 0) Grow(Cells[1], Edge.Behind);
      Flags[Block] = 1;
      Flags[BlockBehind] = 1;
    }
  }
  FUprights.clear();
}

void TRasterCells::AddSpan(std::int64_t Row, double X0, double X1, std::int32_t Height, std::int32_t Sign) {
  FBreaks[static_cast<std::size_t>(Row)] = 1;
  FBreaks[static_cast<std::size_t>(Row) + 1] = 1;
  const auto Xa = static_cast<std::int64_t>(std::min(X0, X1) * ToFixed);
  const auto Xb = static_cast<std::int64_t>(std::max(X0, X1) * ToFixed);
  const std::int64_t Column = Xa >> 16;
  if (Column != Xb >> 16) return AddWideSpan(Row, Xa, Xb, Height, Sign);
  const std::int64_t Middle = ((Xa & (One - 1)) + (Xb & (One - 1))) >> 1;
  const auto Behind = static_cast<std::int32_t>((Height * Middle) >> 16);
  std::int32_t* Cells = FCells.data() + Row * FCellStride + Column;
  Grow(Cells[0], Sign * (Height - Behind));
  Grow(Cells[1], Sign * Behind);
  std::uint8_t* Flags = FFlags.data() + Row * FFlagStride;
  Flags[Column >> BlockShift] = 1;
  Flags[(Column + 1) >> BlockShift] = 1;
}

/// A part of an edge within one row that crosses columns, from Xa to the greater Xb.
void TRasterCells::AddWideSpan(std::int64_t Row, std::int64_t Xa, std::int64_t Xb, std::int32_t Height,
                               std::int32_t Sign) {
  std::int32_t* Cells = FCells.data() + Row * FCellStride;
  std::uint8_t* Flags = FFlags.data() + Row * FFlagStride;
  const std::int64_t First = Xa >> 16;
  const std::int64_t Last = Xb >> 16;
  for (std::int64_t Block = First >> BlockShift; Block <= (Last + 1) >> BlockShift; ++Block) Flags[Block] = 1;

  const double Rise = Height / static_cast<double>(Xb - Xa);
  // The height is shared out by rounding what was reached at each column's right border.
  std::int32_t Reached = 0;
  const auto Share = [&](std::int64_t Column, std::int32_t Reach, std::int64_t Middle) {
    const std::int32_t Part = Reach - Reached;
    Reached = Reach;
    const auto Behind = static_cast<std::int32_t>((Part * Middle) >> 16);
    Grow(Cells[Column], Sign * (Part - Behind));
    Grow(Cells[Column + 1], Sign * Behind);
  };
  double Distance = static_cast<double>(One - (Xa & (One - 1)));
  Share(First, static_cast<std::int32_t>(Rise * Distance), ((Xa & (One - 1)) + One) >> 1);
  for (std::int64_t Column = First + 1; Column < Last; ++Column) {
    Distance += One;
    Share(Column, static_cast<std::int32_t>(Rise * Distance), One / 2);
  }
  Share(Last, Height, (Xb & (One - 1)) >> 1);
}

void TRasterCells::AddInsideAtCentres(double X0, double Y0, double X1, double Y1) {
  const std::int32_t Sign = Y0 < Y1 ? 1 : -1;
  if (Sign < 0) {
    std::swap(X0, X1);
    std::swap(Y0, Y1);
  }
  const auto Row0 = static_cast<std::int64_t>(std::ceil(Y0 - 0.5));
  const auto Row1 = static_cast<std::int64_t>(std::ceil(Y1 - 0.5));
  if (Row0 >= Row1) return;
  FFirstRow = std::min(FFirstRow, Row0);
  FLastRow = std::max(FLastRow, Row1 - 1);
  Break(Row0, Row1);
  const double Slope = (X1 - X0) / (Y1 - Y0);
  for (std::int64_t Row = Row0; Row < Row1; ++Row) {
    const double X = std::clamp(X0 + (static_cast<double>(Row) + 0.5 - Y0) * Slope, 0.0, FWidth);
    const auto Column = static_cast<std::int64_t>(std::ceil(X - 0.5));
    Grow(FCells[static_cast<std::size_t>(Row * FCellStride + Column)], Sign * One);
    FFlags[static_cast<std::size_t>(Row * FFlagStride + (Column >> BlockShift))] = 1;
  }
}

void TRasterCells::Collapse() {
  PutUprights(true);  // edges that are still to come may cut the runs
  for (std::int64_t Row = FFirstRow; Row <= FLastRow; ++Row) {
    std::int32_t* Cells = FCells.data() + Row * FCellStride;
    const std::uint8_t* Flags = FFlags.data() + Row * FFlagStride;
    std::int32_t Sum = 0;
    std::int32_t Kept = 0;
    for (std::int64_t Block = 0; Block < FBlocks; ++Block) {
      if (Flags[Block] == 0) continue;
      for (std::int64_t Cell = Block << BlockShift; Cell < (Block + 1) << BlockShift; ++Cell) {
        Grow(Sum, Cells[Cell]);
        const std::int32_t Clamped = std::clamp(Sum, -One, One);
        Cells[Cell] = Clamped - Kept;
        Kept = Clamped;
      }
    }
  }
}

void TRasterCells::Sweep(bool Winding, TCoverageSink& Sink) {
  if (Winding)
    SweepRows([](std::int32_t Sum) { return CoverageOf<true>(Sum); }, Sink);
  else
    SweepRows([](std::int32_t Sum) { return CoverageOf<false>(Sum); }, Sink);
}

void TRasterCells::SweepLayers(int Layers, TCoverageSink& Sink) { SweepRows(TLayerRule(Layers), Sink); }

template <class TRule>
void TRasterCells::SweepRows(const TRule& CoverageOf, TCoverageSink& Sink) {
  PutUprights(false);
  for (std::int64_t Row = FFirstRow; Row <= FLastRow;) {
    const std::int64_t Next = NextBreak(Row, FLastRow + 1);
    SweepRun(static_cast<int>(Row), static_cast<int>(Next - Row), CoverageOf, Sink);
    Row = Next;
  }
  if (FFirstRow <= FLastRow)
    std::memset(FBreaks.data() + FFirstRow, 0, static_cast<std::size_t>(FLastRow + 2 - FFirstRow));
}

template <class TRule>
void TRasterCells::SweepRun(int Row, int Rows, const TRule& CoverageOf, TCoverageSink& Sink) {
  std::int32_t* Cells = FCells.data() + Row * FCellStride;
  std::uint8_t* Flags = FFlags.data() + Row * FFlagStride;
  const int Width = FBox.Right - FBox.Left;
  const auto NextFlag = [&](int Block) {
    for (; Block < FBlocks && Block % 8 != 0; ++Block)
      if (Flags[Block] != 0) return Block;
    for (; Block < FBlocks; Block += 8) {
      std::uint64_t Eight;
      std::memcpy(&Eight, Flags + Block, sizeof Eight);
      if (Eight == 0) continue;
      while (Flags[Block] == 0) ++Block;
      return Block;
    }
    return FBlocks;
  };
  int RunStart = -1;
  const auto EndRun = [&](int Block) {
    int From = RunStart << BlockShift;
    int To = std::min(Block << BlockShift, Width);
    // Of a narrow shape most of a block is empty.
    while (RunStart >= 0 && From < To && FCoverage[static_cast<std::size_t>(From)] == 0) ++From;
    while (RunStart >= 0 && From < To && FCoverage[static_cast<std::size_t>(To) - 1] == 0) --To;
    if (RunStart >= 0 && From < To)
      Sink.Rows(FBox.Left + From, FBox.Top + Row, To - From, FCoverage.data() + From, Rows);
    RunStart = -1;
  };

  std::int32_t Sum = 0;
  for (int Block = NextFlag(0); Block < FBlocks;) {
    if (RunStart < 0) RunStart = Block;
    std::int32_t* Part = Cells + (Block << BlockShift);
    std::uint8_t* Coverage = FCoverage.data() + (Block << BlockShift);
    // Sums are turned into coverage at once: read back as vectors, they would wait for their way through the cache.
    for (int Cell = 0; Cell < BlockSize; ++Cell) {
      Grow(Sum, Part[Cell]);
      Coverage[Cell] = CoverageOf(Sum);
    }
    std::memset(Part, 0, BlockSize * sizeof *Part);
    Flags[Block] = 0;
    ++Block;
    if (Block < FBlocks && Flags[Block] != 0) continue;
    const int Next = NextFlag(Block), From = Block << BlockShift, To = std::min(Next << BlockShift, Width);
    const std::uint8_t Even = CoverageOf(Sum);
    const bool IsLong = Next - Block >= FewestEvenBlocks;
    if (Even == 0 || (IsLong && Sink.EvenRows(FBox.Left + From, FBox.Top + Row, To - From, Even, Rows)))
      EndRun(Block);
    else
      std::memset(Coverage + BlockSize, Even, static_cast<std::size_t>(Next - Block) << BlockShift);
    Block = Next;
  }
  EndRun(FBlocks);
}

}  // namespace zy
