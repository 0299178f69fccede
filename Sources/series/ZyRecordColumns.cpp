#include "series/ZyRecordColumns.h"

#include <algorithm>
#include <cmath>

#include "platform/drawing/Brush.h"
#include "platform/drawing/Graphics.h"

namespace zy {
namespace {

/// Inks of pixels, column by column from top to bottom, 0 for none; and which rows of each column are inked at all.
/// Kept for its memory.
struct TSheet {
  std::vector<std::uint8_t> Inks;
  std::vector<TZyRecordColumns::TPixels> Rows;
};

TSheet& Sheet() {
  thread_local TSheet Result;
  return Result;
}

}  // namespace

bool TZyRecordLook::IsOpaque() const {
  return std::ranges::all_of(Colors, [](TZyColor Color) { return GetAlpha(Color) == 255; });
}

std::uint8_t TZyRecordLook::InkOf(std::size_t Place) const {
  return static_cast<std::uint8_t>(std::ranges::find(Colors, Colors[Place]) - Colors.begin() + 1);
}

TZyRecordColumns::TPixels TZyRecordColumns::OfLine(float From, float To, float Width) {
  const float Reach = ReachOf(Width);
  return {Rounded(From - Reach), Rounded(To - Reach) + static_cast<int>(2 * Reach)};
}

/// Columns from First on are taken anew. Records at the edges of the data area may leave it.
void TZyRecordColumns::Begin(const TZyRecordLook& Look, int Reach, int First) {
  FLook = Look;
  const RectF& Area = Look.Area;
  constexpr int Farthest = 1000;
  const int Beside = std::min(Reach, Farthest) + 1, Above = std::min(Rounded(Look.LineWidth), Farthest) + 1;
  FFirst = std::max(First, Rounded(Area.X) - Beside);
  FLast = Rounded(Area.X + Area.Width) + Beside;
  FTop = Rounded(Area.Y) - Above;
  FRows = std::max(Rounded(Area.Y + Area.Height) + Above - FTop + 1, 0);
  FColumn = std::numeric_limits<int>::min();
  for (std::vector<RectF>& Boxes : FBoxes)
    while (!Boxes.empty() && Boxes.back().X >= static_cast<float>(FFirst)) Boxes.pop_back();
  FLines.assign(Lanes * static_cast<std::size_t>(FRows + 2), 0);
  FMark = 0;
  const auto Columns = static_cast<std::size_t>(std::max(FLast - FFirst + 1, 0));
  Sheet().Inks.assign(Columns * static_cast<std::size_t>(FRows), 0);
  Sheet().Rows.assign(Columns, {FRows, -1});
}

void TZyRecordColumns::Enter(int Column) {
  constexpr float Infinity = std::numeric_limits<float>::infinity();
  FColumn = Column;
  ++FMark;
  FCovered.fill({Infinity, -Infinity});
}

/// Rows that do not go on those that are covered take their place where they are more.
void TZyRecordColumns::Cover(std::size_t Lane, const TSpan& Span) {
  if (Span.Top > Span.Bottom) return;
  TSpan& Covered = FCovered[Lane];
  const bool IsEmpty = Covered.Top > Covered.Bottom;
  const bool Touches =
      !IsEmpty && Rounded(Span.Top) <= Rounded(Covered.Bottom) + 1 && Rounded(Covered.Top) <= Rounded(Span.Bottom) + 1;
  if (Touches) {
    Covered.Top = std::min(Covered.Top, Span.Top);
    Covered.Bottom = std::max(Covered.Bottom, Span.Bottom);
  } else if (IsEmpty || Span.Bottom - Span.Top > Covered.Bottom - Covered.Top) {
    Covered = Span;
  }
}

void TZyRecordColumns::Put(TPixels Columns, TPixels Rows, std::uint8_t Ink) {
  const int Top = std::max(Rows.First - FTop, 0), Bottom = std::min(Rows.Last - FTop, FRows - 1);
  if (Top > Bottom || Columns.First > FLast - FColumn || Columns.Last < FFirst - FColumn) return;
  const int First = std::max(FColumn + Columns.First, FFirst) - FFirst;
  const int Last = std::min(FColumn + Columns.Last, FLast) - FFirst;
  TSheet& To = Sheet();
  for (int Column = First; Column <= Last; ++Column) {
    std::uint8_t* const Inks = To.Inks.data() + static_cast<std::ptrdiff_t>(Column) * FRows;
    for (int Row = Top; Row <= Bottom; ++Row) Inks[Row] = Inks[Row] == 0 ? Ink : Inks[Row];
    TPixels& Inked = To.Rows[static_cast<std::size_t>(Column)];
    Inked = {std::min(Inked.First, Top), std::max(Inked.Last, Bottom)};
  }
}

void TZyRecordColumns::End() {
  const TSheet& From = Sheet();
  for (int Column = FFirst; Column <= FLast; ++Column) {
    const auto Place = static_cast<std::size_t>(Column - FFirst);
    const auto [Top, Bottom] = From.Rows[Place];
    if (Top > Bottom) continue;
    const auto Upper = static_cast<std::size_t>(Top), Length = static_cast<std::size_t>(Bottom - Top) + 1;
    TakeColumn(Column, std::span(From.Inks).subspan(Place * static_cast<std::size_t>(FRows) + Upper, Length), Top);
  }
}

/// A box for each run of rows of one ink.
void TZyRecordColumns::TakeColumn(int Column, std::span<const std::uint8_t> Rows, int Top) {
  for (auto Run = Rows.begin(); Run != Rows.end();) {
    const auto End = std::find_if(Run, Rows.end(), [&](std::uint8_t Ink) { return Ink != *Run; });
    if (*Run != 0)
      FBoxes[*Run - 1u].push_back({static_cast<float>(Column),
                                   static_cast<float>(FTop + Top + static_cast<int>(Run - Rows.begin())), 1,
                                   static_cast<float>(End - Run)});
    Run = End;
  }
}

void TZyRecordColumns::Draw(Graphics& Gr) const {
  for (std::size_t Ink = 0; Ink < FBoxes.size(); ++Ink)
    if (!FBoxes[Ink].empty()) Gr.FillRectangles(SolidBrush(FLook.Colors[Ink]), FBoxes[Ink]);
}

}  // namespace zy
