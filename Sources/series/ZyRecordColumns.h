#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

#include "graph/values/ZyColors.h"
#include "platform/drawing/Geometry.h"

namespace zy {

class Graphics;

/// What a picture of records depends on beside the data.
struct TZyRecordLook {
  RectF Area;  // of the data
  float BarWidth = 0, Overhang = 0, LineWidth = 0;
  bool HasFill = true, HasLine = true;
  /// The colours of what is drawn, all of them opaque, in an order of the kind's own.
  static constexpr std::size_t MostColors = 6;
  std::array<TZyColor, MostColors> Colors{};

  bool IsOpaque() const;
  /// The ink of a colour by its place: the same for equal colours, never 0.
  std::uint8_t InkOf(std::size_t Place) const;
  bool operator==(const TZyRecordLook&) const = default;
};

/// The picture of records that stand far denser than pixels: what all of them together show, as boxes of whole pixels.
///
/// The last record lies on top. So records are laid from the last to the first, and each inks only pixels that are free
/// still. Of those in one column of pixels most lie below others altogether; that is seen by some comparisons, so that
/// the cost of the rest follows the pixels. Records that came behind the others renew only the columns that they reach.
class TZyRecordColumns {
 public:
  /// Rows that a record takes, in one of its lanes: columns that all records of a column of pixels take alike. None
  /// with Top below Bottom.
  struct TSpan {
    float Top = 1, Bottom = 0;
  };
  static constexpr std::size_t Lanes = 4;

  /// Columns or rows of pixels, the last one included, that a line of a width covers between two places, and those of
  /// a filled box.
  struct TPixels {
    int First, Last;
  };
  static TPixels OfLine(float From, float To, float Width);
  /// How far the middles of its outer pixels lie from that of the line.
  static float ReachOf(float Width) { return static_cast<float>(std::max(Rounded(Width), 1) - 1) / 2; }
  static TPixels OfBox(float From, float To) { return {Rounded(From), Rounded(To) - 1}; }
  /// To the nearest whole number, halves upwards.
  static int Rounded(float Value) {
    constexpr int Offset = 1 << 20;  // makes it positive: rounding is cutting off then
    return static_cast<int>(static_cast<double>(Value) + (Offset + 0.5)) - Offset;
  }

  /// Only the first Count records are as they were.
  void KeepRecords(std::size_t Count) { FTaken = std::min(FTaken, Count); }

  /// Brings the boxes up to date. AreAscending tells that no record stands left of the one before. Kind knows the
  /// records by their numbers: `Reach()` is how many columns one takes at most to either side of its own;
  /// `IsHidden(Record, *this)` tells quickly that one adds nothing, as most do, and may say no where it does not;
  /// `Lay(Record, *this)` calls Put for what is not covered of it, from what lies on top downwards, and tells what it
  /// covers.
  template <class TKind>
  void Update(const TKind& Kind, std::span<const PointF> Places, const TZyRecordLook& Look, bool AreAscending) {
    if (!(Look == FLook)) FTaken = 0;
    if (FTaken == Places.size() && FTaken > 0) return;
    const int Reach = Kind.Reach();
    const bool GoesOn = FTaken > 0 && AreAscending;
    Begin(Look, Reach, GoesOn ? Rounded(Places[FTaken - 1].X) - Reach : std::numeric_limits<int>::min());
    for (std::size_t Record = Places.size(); Record-- > 0;) {
      const int Column = Rounded(Places[Record].X);
      if (AreAscending && Column + Reach < FFirst) break;
      if (Column != FColumn) Enter(Column);
      if (!Kind.IsHidden(Record, *this)) Kind.Lay(Record, *this);
    }
    FTaken = Places.size();
    End();
  }
  /// Whether rows of a lane are covered by records that lie on top; no lane has all of them known.
  bool IsCovered(std::size_t Lane, const TSpan& Span) const {
    const TSpan& Covered = FCovered[Lane];
    return (Span.Top >= Covered.Top && Span.Bottom <= Covered.Bottom) || Span.Top > Span.Bottom;
  }
  void Cover(std::size_t Lane, const TSpan& Span);
  /// The same of a level line by its first row.
  bool HasLineAt(std::size_t Lane, int Row) const { return FLines[PlaceOf(Lane, Row)] == FMark; }
  void NoteLine(std::size_t Lane, int Row) { FLines[PlaceOf(Lane, Row)] = FMark; }
  /// Inks what is free of columns, counted from that of the record, and rows.
  void Put(TPixels Columns, TPixels Rows, std::uint8_t Ink);

  void Draw(Graphics& Gr) const;

 private:
  /// Those above and below the sheet share a place each.
  std::size_t PlaceOf(std::size_t Lane, int Row) const {
    return Lane * static_cast<std::size_t>(FRows + 2) + static_cast<std::size_t>(std::clamp(Row - FTop, -1, FRows) + 1);
  }
  void Begin(const TZyRecordLook& Look, int Reach, int First);
  void Enter(int Column);
  void End();
  void TakeColumn(int Column, std::span<const std::uint8_t> Rows, int Top);

  TZyRecordLook FLook;
  std::size_t FTaken = 0;                                            // records that the boxes show
  std::array<std::vector<RectF>, TZyRecordLook::MostColors> FBoxes;  // from left to right
  // While the boxes are brought up to date:
  int FFirst = 0, FLast = -1;         // columns
  int FTop = 0, FRows = 0;            // the upper row, and how many there are
  int FColumn = 0;                    // of the record
  std::array<TSpan, Lanes> FCovered;  // of each lane, without a gap
  std::vector<int> FLines;            // for each lane and row, equal to FMark where there is a line
  int FMark = 0;                      // another one for each column
};

}  // namespace zy
