#include "platform/drawing/JoinedShapes.h"

#include <QPolygonF>
#include <QTransform>
#include <algorithm>
#include <cmath>
#include <deque>
#include <tuple>
#include <utility>
#include <vector>

namespace zy {
namespace {

// All lengths are in rows, which are as high as columns would be wide.
constexpr double RowsPerUnit = 8;

/// What lies in a row from one side to another.
struct TSpan {
  double From, To;
};

/// A part of the outline that runs down from row to row: as few points as keep within a part of a row. It is joined
/// with another side at either end.
class TSide {
 public:
  explicit TSide(QPointF Start) : FPoints{Start} {}
  void Add(QPointF Point) {
    constexpr double Tolerance = 0.4;
    const QPointF Way = Point - FPoints[FKept];
    const double Slope = Way.x() / Way.y();
    if (FKept + 1 < FPoints.size() && Slope >= FLeast && Slope <= FMost) {
      FPoints.back() = Point;
      FLeast = std::max(FLeast, Slope - Tolerance / Way.y());
      FMost = std::min(FMost, Slope + Tolerance / Way.y());
      return;
    }
    FKept = FPoints.size() - 1;
    const QPointF Next = Point - FPoints[FKept];
    FLeast = (Next.x() - Tolerance) / Next.y();
    FMost = (Next.x() + Tolerance) / Next.y();
    FPoints.push_back(Point);
  }
  const std::vector<QPointF>& Points() const { return FPoints; }

  TSide *MateAbove = nullptr, *MateBelow = nullptr;
  bool IsTold = false;

 private:
  std::vector<QPointF> FPoints;
  std::size_t FKept = 0;         // the last point that stays whatever comes
  double FLeast = 0, FMost = 0;  // slopes from there that pass all points since
};

/// A span with the sides that it lies between.
struct TSidedSpan {
  TSpan Span;
  TSide *Left = nullptr, *Right = nullptr;
};

/// The spans of a shape in each row, told by the middles of the rows.
template <class TTake>
void ForEachSpan(const QPainterPath& Shape, int First, int End, const TTake& Take) {
  std::vector<std::pair<int, double>> Crossings;
  for (const QPolygonF& Figure : Shape.toSubpathPolygons(QTransform::fromScale(RowsPerUnit, RowsPerUnit)))
    for (qsizetype Index = 0; Index < Figure.size(); ++Index) {
      auto [Upper, Lower] = std::pair(Figure[Index], Figure[(Index + 1) % Figure.size()]);
      if (Upper.y() > Lower.y()) std::swap(Upper, Lower);
      const auto RowOf = [&](double Y) { return static_cast<int>(std::ceil(std::clamp<double>(Y - 0.5, First, End))); };
      const double Slope = (Lower.x() - Upper.x()) / (Lower.y() - Upper.y());
      for (int Row = RowOf(Upper.y()); Row < RowOf(Lower.y()); ++Row)
        Crossings.emplace_back(Row, Upper.x() + (Row + 0.5 - Upper.y()) * Slope);
    }
  std::sort(Crossings.begin(), Crossings.end());
  for (std::size_t Index = 0; Index + 1 < Crossings.size(); Index += 2)
    Take(Crossings[Index].first, TSpan{Crossings[Index].second, Crossings[Index + 1].second});
}

void Join(std::vector<TSpan>& Spans) {
  std::sort(Spans.begin(), Spans.end(), [](const TSpan& A, const TSpan& B) { return A.From < B.From; });
  std::size_t Count = 0;
  for (const TSpan& Span : Spans)
    if (Count > 0 && Span.From <= Spans[Count - 1].To)
      Spans[Count - 1].To = std::max(Spans[Count - 1].To, Span.To);
    else
      Spans[Count++] = Span;
  Spans.resize(Count);
}

/// The sides of what was joined, row by row.
class TOutline {
 public:
  /// Spans of the next row, none of which touch.
  void AddRow(int Row, std::span<const TSpan> Spans) {
    FBelow.clear();
    for (const TSpan& Span : Spans) FBelow.push_back({Span});
    const std::span Above(FAbove), Below(FBelow);
    for (std::size_t A = 0, B = 0; A < Above.size() || B < Below.size();) {
      // What hangs together across the edge between the rows.
      const std::size_t FirstA = A, FirstB = B;
      double Reach = -HUGE_VAL;
      const auto Take = [&](std::span<const TSidedSpan> Parts, std::size_t& Index, bool IsFirst) {
        if (Index == Parts.size() || !(IsFirst || Parts[Index].Span.From < Reach)) return false;
        Reach = std::max(Reach, Parts[Index++].Span.To);
        return true;
      };
      const bool BeginsAbove = B == Below.size() || (A < Above.size() && Above[A].Span.From < Below[B].Span.From);
      Take(BeginsAbove ? Above : Below, BeginsAbove ? A : B, true);
      while (Take(Above, A, false) || Take(Below, B, false)) {
      }
      Connect(Row, Above.subspan(FirstA, A - FirstA), Below.subspan(FirstB, B - FirstB));
    }
    for (TSidedSpan& Part : FBelow) {
      Part.Left->Add({Part.Span.From, Row + 0.5});
      Part.Right->Add({Part.Span.To, Row + 0.5});
    }
    FAbove.swap(FBelow);
  }

  QPainterPath Path() {
    QPainterPath Result;
    for (TSide& First : FSides) {
      if (First.IsTold) continue;
      QPolygonF Figure;
      for (TSide* Side = &First; !Side->IsTold; Side = Side->MateAbove) {  // down one side and up the next
        Side->IsTold = true;
        for (const QPointF& Point : Side->Points()) Figure << Point;
        Side = Side->MateBelow;
        Side->IsTold = true;
        for (auto Point = Side->Points().rbegin(); Point != Side->Points().rend(); ++Point) Figure << *Point;
      }
      Result.addPolygon(QTransform::fromScale(1 / RowsPerUnit, 1 / RowsPerUnit).map(Figure));
      Result.closeSubpath();
    }
    return Result;
  }

 private:
  /// The outer sides go on, gaps above end here and gaps below begin.
  void Connect(int Row, std::span<TSidedSpan> Above, std::span<TSidedSpan> Below) {
    const double Edge = Row;
    const auto Begin = [&](double X, double MateX) {
      TSide& Side = FSides.emplace_back(QPointF(X, Edge));
      TSide& Mate = FSides.emplace_back(QPointF(MateX, Edge));
      Side.MateAbove = &Mate;
      Mate.MateAbove = &Side;
      return std::pair(&Side, &Mate);
    };
    const auto End = [&](TSide& Side, double X, TSide& Mate, double MateX) {
      Side.Add({X, Edge});
      Mate.Add({MateX, Edge});
      Side.MateBelow = &Mate;
      Mate.MateBelow = &Side;
    };
    for (std::size_t Gap = 1; Gap < Above.size(); ++Gap)
      End(*Above[Gap - 1].Right, Above[Gap - 1].Span.To, *Above[Gap].Left, Above[Gap].Span.From);
    for (std::size_t Gap = 1; Gap < Below.size(); ++Gap)
      std::tie(Below[Gap - 1].Right, Below[Gap].Left) = Begin(Below[Gap - 1].Span.To, Below[Gap].Span.From);
    if (Below.empty())
      return End(*Above.front().Left, Above.front().Span.From, *Above.back().Right, Above.back().Span.To);
    if (Above.empty()) {
      std::tie(Below.front().Left, Below.back().Right) = Begin(Below.front().Span.From, Below.back().Span.To);
    } else {
      Below.front().Left = Above.front().Left;
      Below.back().Right = Above.back().Right;
    }
  }

  std::deque<TSide> FSides;
  std::vector<TSidedSpan> FAbove, FBelow;
};

}  // namespace

QPainterPath JoinedShapes(std::span<const QPainterPath> Shapes, const QRectF& Within) {
  QRectF Box;
  for (const QPainterPath& Shape : Shapes) Box |= Shape.boundingRect();
  const double Top = std::max(Within.top(), Box.top());
  const double Bottom = std::min(Within.bottom(), Box.bottom());
  if (Top >= Bottom) return {};  // beside it, maybe farther than rows can count
  const int First = static_cast<int>(std::floor(Top * RowsPerUnit));
  const int End = static_cast<int>(std::ceil(Bottom * RowsPerUnit));
  std::vector<std::vector<TSpan>> Rows(static_cast<std::size_t>(End - First));
  for (const QPainterPath& Shape : Shapes)
    ForEachSpan(Shape, First, End,
                [&](int Row, TSpan Span) { Rows[static_cast<std::size_t>(Row - First)].push_back(Span); });
  TOutline Outline;
  for (int Row = First; Row < End; ++Row) {
    std::vector<TSpan>& Spans = Rows[static_cast<std::size_t>(Row - First)];
    Join(Spans);
    Outline.AddRow(Row, Spans);
  }
  Outline.AddRow(End, {});
  return Outline.Path();
}

}  // namespace zy
