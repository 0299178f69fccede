#include "series/ZyPixelIndex.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace zy {
namespace {

constexpr std::size_t FewPixels = 4096;  // walked faster than anything else
constexpr float CellSize = 16;
constexpr float LargestExtent = 8192;  // of the cells; what lies outside belongs to the cells at the border

bool Within(const PointF& Pixel, PointF Place, float Delta) {
  return std::fabs(Pixel.X - Place.X) <= Delta && std::fabs(Pixel.Y - Place.Y) <= Delta;
}

bool Within(const PointF& Pixel, const RectF& Area, TZyPixelIndex::TMetric Metric) {
  const bool InX = Pixel.X >= Area.X && Pixel.X <= Area.X + Area.Width;
  const bool InY = Pixel.Y >= Area.Y && Pixel.Y <= Area.Y + Area.Height;
  return (InX || Metric == TZyPixelIndex::TMetric::Y) && (InY || Metric == TZyPixelIndex::TMetric::X);
}

float DistanceOf(const PointF& Pixel, PointF From, TZyPixelIndex::TMetric Metric) {
  switch (Metric) {
    case TZyPixelIndex::TMetric::X:
      return std::fabs(Pixel.X - From.X);
    case TZyPixelIndex::TMetric::Y:
      return std::fabs(Pixel.Y - From.Y);
    default:
      return std::hypot(Pixel.X - From.X, Pixel.Y - From.Y);
  }
}

}  // namespace

TZyPixelIndex::TCell TZyPixelIndex::CellOf(PointF Place) const {
  const auto Number = [](float Distance, int Count) {
    return static_cast<int>(std::clamp(Distance / CellSize, 0.0f, static_cast<float>(Count - 1)));
  };
  return {Number(Place.X - FOrigin.X, FColumns), Number(Place.Y - FOrigin.Y, FRows)};
}

std::size_t TZyPixelIndex::NumberOf(TCell Cell) const {
  return static_cast<std::size_t>(Cell.Row) * static_cast<std::size_t>(FColumns) +
         static_cast<std::size_t>(Cell.Column);
}

std::span<const int> TZyPixelIndex::PositionsIn(int Column, int Row) const {
  const std::size_t Cell = NumberOf({Column, Row});
  const auto First = static_cast<std::size_t>(FCellStart[Cell]), Last = static_cast<std::size_t>(FCellStart[Cell + 1]);
  return std::span(FPositions).subspan(First, Last - First);
}

void TZyPixelIndex::Build(std::span<const PointF> Pixels) {
  if (FIsBuilt) return;
  FIsBuilt = true;
  PointF Low{LargestExtent, LargestExtent}, High{0, 0};
  for (const PointF& Pixel : Pixels) {
    Low = {std::min(Low.X, Pixel.X), std::min(Low.Y, Pixel.Y)};
    High = {std::max(High.X, Pixel.X), std::max(High.Y, Pixel.Y)};
  }
  FOrigin = {std::max(Low.X, 0.0f), std::max(Low.Y, 0.0f)};
  const auto CellsFor = [](float Extent) {
    return static_cast<int>(std::clamp(Extent, 0.0f, LargestExtent) / CellSize) + 1;
  };
  FColumns = CellsFor(High.X - FOrigin.X);
  FRows = CellsFor(High.Y - FOrigin.Y);
  FCellStart.assign(static_cast<std::size_t>(FColumns) * static_cast<std::size_t>(FRows) + 1, 0);
  for (const PointF& Pixel : Pixels) ++FCellStart[NumberOf(CellOf(Pixel))];
  for (std::size_t Cell = 1; Cell < FCellStart.size(); ++Cell) FCellStart[Cell] += FCellStart[Cell - 1];
  FPositions.resize(Pixels.size());
  for (std::size_t i = Pixels.size(); i-- > 0;)
    FPositions[static_cast<std::size_t>(--FCellStart[NumberOf(CellOf(Pixels[i]))])] = static_cast<int>(i);
}

int TZyPixelIndex::FirstWithin(std::span<const PointF> Pixels, PointF Place, float Delta) {
  if (Pixels.size() <= FewPixels) {
    const auto Found =
        std::find_if(Pixels.begin(), Pixels.end(), [&](const PointF& Pixel) { return Within(Pixel, Place, Delta); });
    return Found == Pixels.end() ? -1 : static_cast<int>(Found - Pixels.begin());
  }
  Build(Pixels);
  const TCell From = CellOf({Place.X - Delta, Place.Y - Delta}), To = CellOf({Place.X + Delta, Place.Y + Delta});
  int First = std::numeric_limits<int>::max();
  for (int Row = From.Row; Row <= To.Row; ++Row)
    for (int Column = From.Column; Column <= To.Column; ++Column)
      for (const int Position : PositionsIn(Column, Row)) {
        if (Position >= First) break;
        if (Within(Pixels[static_cast<std::size_t>(Position)], Place, Delta)) First = Position;
      }
  return First == std::numeric_limits<int>::max() ? -1 : First;
}

TZyPixelIndex::TNearest TZyPixelIndex::Nearest(std::span<const PointF> Pixels, const RectF& Area, PointF From,
                                               TMetric Metric) {
  TNearest Result{-1, std::numeric_limits<float>::max()};
  const auto Take = [&](int Position) {
    const PointF& Pixel = Pixels[static_cast<std::size_t>(Position)];
    if (!Within(Pixel, Area, Metric)) return;
    const float Distance = DistanceOf(Pixel, From, Metric);
    const bool IsBetter = Distance < Result.Distance || (Distance == Result.Distance && Position < Result.Position);
    if (IsBetter) Result = {Position, Distance};
  };
  if (Pixels.size() <= FewPixels) {
    for (int Position = 0; Position < static_cast<int>(Pixels.size()); ++Position) Take(Position);
    return Result;
  }
  Build(Pixels);
  const auto TakeCell = [&](int Column, int Row) {
    if (Column < 0 || Row < 0 || Column >= FColumns || Row >= FRows) return;
    for (const int Position : PositionsIn(Column, Row)) Take(Position);
  };
  // Rings of cells around the place, or strips at both sides of it, until all others lie farther away.
  const TCell Middle = CellOf(From);
  const int Rings = std::max(FColumns, FRows);
  for (int Ring = 0; Ring <= Rings && static_cast<float>(Ring - 1) * CellSize <= Result.Distance; ++Ring) {
    for (const int Side : {-Ring, Ring}) {
      if (Metric == TMetric::X) {
        for (int Row = 0; Row < FRows; ++Row) TakeCell(Middle.Column + Side, Row);
      } else if (Metric == TMetric::Y) {
        for (int Column = 0; Column < FColumns; ++Column) TakeCell(Column, Middle.Row + Side);
      } else {
        for (int Along = -Ring; Along <= Ring; ++Along) TakeCell(Middle.Column + Along, Middle.Row + Side);
        for (int Along = -Ring + 1; Along < Ring; ++Along) TakeCell(Middle.Column + Side, Middle.Row + Along);
      }
      if (Ring == 0) break;
    }
  }
  return Result;
}

}  // namespace zy
