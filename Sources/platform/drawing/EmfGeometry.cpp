#include "platform/drawing/EmfGeometry.h"

#include <QPolygonF>
#include <algorithm>
#include <array>
#include <cmath>

namespace zy {
namespace {

/// Calls Use with the points of each figure, curves as lines.
template <typename TUse>
void ForEachFigure(const QPainterPath& Path, const TUse& Use) {
  for (const QPolygonF& Figure : Path.toSubpathPolygons()) {
    if (Figure.size() > 1) Use(Figure);
  }
}

/// How far a point lies within one side of a rectangle; negative beyond it.
double Within(const QPointF& Point, const QRectF& Limits, int Side) {
  switch (Side) {
    case 0:
      return Point.x() - Limits.left();
    case 1:
      return Limits.right() - Point.x();
    case 2:
      return Point.y() - Limits.top();
    default:
      return Limits.bottom() - Point.y();
  }
}

/// A polygon cut at one side (I. E. Sutherland and G. W. Hodgman, "Reentrant polygon clipping", 1974).
QPolygonF CutAt(const QPolygonF& Polygon, const QRectF& Limits, int Side) {
  QPolygonF Result;
  for (qsizetype Index = 0; Index < Polygon.size(); ++Index) {
    const QPointF Start = Polygon[Index];
    const QPointF Stop = Polygon[(Index + 1) % Polygon.size()];
    const double From = Within(Start, Limits, Side);
    const double To = Within(Stop, Limits, Side);
    if (From >= 0) Result.append(Start);
    if ((From < 0) != (To < 0)) Result.append(Start + (Stop - Start) * (From / (From - To)));
  }
  return Result;
}

/// The part of a line inside Limits, if any.
std::optional<QLineF> CutLine(QPointF Start, QPointF Stop, const QRectF& Limits) {
  for (int Side = 0; Side < 4; ++Side) {
    const double From = Within(Start, Limits, Side);
    const double To = Within(Stop, Limits, Side);
    if (From < 0 && To < 0) return {};
    const QPointF Crossing = Start + (Stop - Start) * (From / (From - To));
    if (From < 0) Start = Crossing;
    if (To < 0) Stop = Crossing;
  }
  return QLineF(Start, Stop);
}

/// The steps from 0 to 1.
std::vector<TColorStep> StepsOfOnePeriod(const QGradientStops& Stops, double Shortest) {
  std::vector<TColorStep> Result;
  const QRgb First = Stops.front().second.rgba();
  if (Stops.front().first > 0) Result.push_back({0, First});
  for (qsizetype Index = 0; Index + 1 < Stops.size(); ++Index) {
    const auto& [Start, FromColor] = Stops[Index];
    const auto& [Stop, ToColor] = Stops[Index + 1];
    if (!(Stop > Start)) continue;
    const std::array From{FromColor.red(), FromColor.green(), FromColor.blue()};
    const std::array To{ToColor.red(), ToColor.green(), ToColor.blue()};
    int Count = 1;
    for (std::size_t Channel = 0; Channel < 3; ++Channel)
      Count = std::max(Count, std::abs(To[Channel] - From[Channel]));
    Count = std::clamp(static_cast<int>(std::min((Stop - Start) / Shortest, 256.0)), 1, Count);
    for (int Step = 0; Step < Count; ++Step) {
      const double Middle = (Step + 0.5) / Count;
      const auto Mixed = [&](std::size_t Channel) {
        return static_cast<int>(std::lround(From[Channel] + (To[Channel] - From[Channel]) * Middle));
      };
      Result.push_back({Start + (Stop - Start) * Step / Count, qRgb(Mixed(0), Mixed(1), Mixed(2))});
    }
  }
  if (Stops.back().first < 1 || Result.empty()) Result.push_back({Stops.back().first, Stops.back().second.rgba()});
  return Result;
}

}  // namespace

bool IsClosed(const QPainterPath& Path) {
  QPointF Start;
  QPointF Last;
  for (int Index = 0; Index < Path.elementCount(); ++Index) {
    const QPainterPath::Element Element = Path.elementAt(Index);
    if (Element.isMoveTo()) {
      if (!Coincide(Start, Last)) return false;
      Start = Element;
    }
    Last = Element;
  }
  return Coincide(Start, Last);
}

std::optional<QRectF> AsRectangle(const QPainterPath& Path) {
  const std::vector<QPointF> Points = AsLines(Path);
  if (Points.size() != 5 || !Coincide(Points.front(), Points.back())) return {};
  for (std::size_t Index = 0; Index < 4; ++Index) {
    const QPointF Way = Points[Index + 1] - Points[Index];
    const QPointF Next = Points[(Index + 1) % 4 + 1] - Points[Index + 1 == 4 ? 0 : Index + 1];
    const auto IsAcross = [](const QPointF& Side) { return std::abs(Side.y()) < 1e-6; };
    const auto IsDown = [](const QPointF& Side) { return std::abs(Side.x()) < 1e-6; };
    if (!(IsAcross(Way) && IsDown(Next)) && !(IsDown(Way) && IsAcross(Next))) return {};
  }
  return QRectF(Points[0], Points[2]).normalized();
}

std::vector<QPointF> AsLines(const QPainterPath& Path) {
  std::vector<QPointF> Result;
  Result.reserve(static_cast<std::size_t>(Path.elementCount()));
  for (int Index = 0; Index < Path.elementCount(); ++Index) {
    const QPainterPath::Element Element = Path.elementAt(Index);
    if (Index == 0 ? !Element.isMoveTo() : !Element.isLineTo()) return {};
    Result.push_back(Element);
  }
  return Result;
}

QPainterPath AreaWithin(const QPainterPath& Path, const QRectF& Limits) {
  if (Limits.contains(Path.controlPointRect())) return Path;
  QPainterPath Result;
  Result.setFillRule(Path.fillRule());
  ForEachFigure(Path, [&](QPolygonF Figure) {
    for (int Side = 0; Side < 4; ++Side) Figure = CutAt(Figure, Limits, Side);
    if (Figure.size() < 3) return;
    Result.addPolygon(Figure);
    Result.closeSubpath();
  });
  return Result;
}

QPainterPath OutlineWithin(const QPainterPath& Path, const QRectF& Limits) {
  if (Limits.contains(Path.controlPointRect())) return Path;
  QPainterPath Result;
  ForEachFigure(Path, [&](const QPolygonF& Figure) {
    bool IsGoingOn = false;
    for (qsizetype Index = 1; Index < Figure.size(); ++Index) {
      const std::optional<QLineF> Part = CutLine(Figure[Index - 1], Figure[Index], Limits);
      if (!Part) {
        IsGoingOn = false;
        continue;
      }
      if (!IsGoingOn || !Coincide(Result.currentPosition(), Part->p1())) Result.moveTo(Part->p1());
      Result.lineTo(Part->p2());
      IsGoingOn = true;
    }
  });
  return Result;
}

std::optional<QPainterPath> Dashed(const QPainterPath& Path, const std::vector<double>& Pattern, double Offset) {
  constexpr int MostDashes = 100'000;
  double Period = 0;
  for (const double Length : Pattern) Period += Length;
  if (!std::isfinite(Period) || !(Period > 0)) return {};
  QPainterPath Result;
  int Count = 0;
  ForEachFigure(Path, [&](const QPolygonF& Figure) {
    std::size_t Index = 0;
    double Left = std::fmod(std::fmod(Offset, Period) + Period, Period);
    while (Left >= Pattern[Index]) {
      Left -= Pattern[Index];
      Index = (Index + 1) % Pattern.size();
    }
    Left = Pattern[Index] - Left;
    if (Index % 2 == 0) Result.moveTo(Figure.front());
    for (qsizetype Corner = 1; Corner < Figure.size() && Count < MostDashes; ++Corner) {
      const QLineF Side(Figure[Corner - 1], Figure[Corner]);
      const double Length = Side.length();
      double Done = 0;
      while (Length - Done > Left && Count < MostDashes) {
        Done += Left;
        const QPointF Place = Side.pointAt(Done / Length);
        if (Index % 2 == 0) {
          Result.lineTo(Place);
          ++Count;
        } else {
          Result.moveTo(Place);
        }
        Index = (Index + 1) % Pattern.size();
        Left = Pattern[Index];
      }
      Left -= Length - Done;
      if (Index % 2 == 0) Result.lineTo(Side.p2());
    }
  });
  if (Count >= MostDashes) return {};
  return Result;
}

std::optional<std::vector<TColorStep>> ColorSteps(const QGradient& Gradient, double From, double To, double Shortest) {
  constexpr std::size_t MostSteps = 4096;
  const QGradientStops Stops = Gradient.stops();
  const std::vector<TColorStep> Period = StepsOfOnePeriod(Stops, Shortest);
  std::vector<TColorStep> Result;
  if (Gradient.spread() == QGradient::PadSpread) {
    if (From < 0) Result.push_back({From, Stops.front().second.rgba()});
    Result.insert(Result.end(), Period.begin(), Period.end());
    if (To > 1) Result.push_back({1, Stops.back().second.rgba()});
    return Result;
  }
  const double First = std::floor(From);
  if (!((To - First + 1) * static_cast<double>(Period.size()) < MostSteps)) return {};
  for (double Start = First; Start < To; ++Start) {
    if (Gradient.spread() == QGradient::ReflectSpread && std::fmod(std::abs(Start), 2) == 1) {
      for (std::size_t Index = Period.size(); Index-- > 0;) {
        const double Stop = Index + 1 < Period.size() ? Period[Index + 1].From : 1;
        Result.push_back({Start + 1 - Stop, Period[Index].Color});
      }
    } else {
      for (const TColorStep& Step : Period) Result.push_back({Start + Step.From, Step.Color});
    }
  }
  return Result;
}

}  // namespace zy
