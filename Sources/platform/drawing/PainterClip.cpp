// The clip of printers and files, which want it told as paths.

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>

#include "platform/drawing/JoinedShapes.h"
#include "platform/drawing/PainterBackend.h"
#include "platform/drawing/QtGeometry.h"

namespace zy {
namespace {

QPainterPath Plane() {
  constexpr double Everywhere = 1e6;
  QPainterPath Result;
  Result.addRect(-Everywhere, -Everywhere, 2 * Everywhere, 2 * Everywhere);
  return Result;
}

QPainterPath LeftBy(const Region& Clip);

QPainterPath ShapeOf(const Region::TPart& Part) {
  if (Part.Nested != nullptr) return LeftBy(Part.Nested->Transformed(Part.Transform));
  const QTransform Place = AsQt(Part.Transform);
  if (!Part.IsRect) return (Place * QTransform::fromTranslate(0.5, 0.5)).map(Part.Path->ToQt());
  QPainterPath Shape;
  Shape.addRect(AsQt(Part.Rect));
  return Place.map(Shape);
}

/// What a region leaves of the plane. The toolkit's way to join paths is slow: for a region that is cut out as a whole.
QPainterPath LeftBy(const Region& Clip) {
  QPainterPath Result = Plane();
  for (const Region::TPart& Part : Clip.Parts())
    Result = Part.IsExcluded ? Result.subtracted(ShapeOf(Part)) : Result.intersected(ShapeOf(Part));
  return Result;
}

/// Shapes that are cut out, as paths to stay inside of: a path is turned inside out as a whole, so that no two shapes
/// of one may overlap.
///
/// From left to right, each shape goes into the first path in which its box is free: those that reach this far right
/// are kept by height, and none lies beside another. A path is written anew with each one that comes after it, so that
/// there are but a few, and the last ones, with the fewest shapes, come first. What is free in none of them goes into
/// one more as an outline.
class TCutOut {
 public:
  void Add(const QPainterPath& Shape) {
    // By the alternate rule, which the ground and the shapes of a path share, overlaps of one shape would be holes.
    const QPainterPath Plain = Shape.fillRule() == Qt::WindingFill ? Shape.simplified() : Shape;
    const QRectF Box = Plain.boundingRect();
    if (!Plain.isEmpty() && std::isfinite(Box.x() + Box.y() + Box.width() + Box.height()))
      FShapes.push_back({Box, Plain});
  }

  /// For a page that shows what lies in Seen.
  std::vector<QPainterPath> Paths(const QRectF& Seen) {
    constexpr std::size_t MostGroups = 2;
    std::stable_sort(FShapes.begin(), FShapes.end(), [](const TShapeInBox& A, const TShapeInBox& B) {
      return std::tuple(A.Box.left(), A.Box.top()) < std::tuple(B.Box.left(), B.Box.top());
    });
    std::vector<TGroup> Groups;
    std::vector<QPainterPath> Rest;
    const QPainterPath* Last = nullptr;
    for (const auto& [Box, Shape] : FShapes) {
      if (Last != nullptr && *Last == Shape) continue;  // many points at one place
      Last = &Shape;
      auto Group = Groups.begin();
      while (Group != Groups.end() && !Group->Take(Box)) ++Group;
      if (Group == Groups.end()) {
        if (Groups.size() == MostGroups) {
          Rest.push_back(Shape);
          continue;
        }
        Group = Groups.emplace(Groups.end());
        Group->Path = Plane();
        Group->Take(Box);
      }
      Group->Path.addPath(Shape);
    }
    std::vector<QPainterPath> Result;
    Result.reserve(Groups.size() + 1);
    for (TGroup& Group : Groups) Result.push_back(std::move(Group.Path));
    if (!Rest.empty()) Result.emplace_back(Plane()).addPath(JoinedShapes(Rest, Seen));
    std::sort(Result.begin(), Result.end(), [](auto& A, auto& B) { return A.elementCount() < B.elementCount(); });
    return Result;
  }

 private:
  struct TShapeInBox {
    QRectF Box;
    QPainterPath Shape;
  };
  struct TGroup {
    QPainterPath Path;
    std::map<double, QRectF> Boxes;  // by their lower edges; those that still reach to the sweep do not overlap

    /// False when the box is not free.
    bool Take(const QRectF& Box) {
      auto Near = Boxes.upper_bound(Box.top());
      while (Near != Boxes.end() && Near->second.top() < Box.bottom()) {
        if (Near->second.right() > Box.left()) return false;
        Near = Boxes.erase(Near);
      }
      Boxes.insert_or_assign(Near, Box.bottom(), Box);
      return true;
    }
  };

  std::vector<TShapeInBox> FShapes;
};

}  // namespace

void TPainterBackend::ApplyVectorClip(const Region& Clip) {
  TCutOut Holes;
  FPainter->setWorldTransform(*FBase);
  for (const Region::TPart& Part : Clip.Parts())
    if (Part.IsExcluded)
      Holes.Add(ShapeOf(Part));
    else
      FPainter->setClipPath(ShapeOf(Part), Qt::IntersectClip);
  const QRectF Seen = FBase->inverted().mapRect(QRectF(FPainter->viewport()));
  for (const QPainterPath& Path : Holes.Paths(Seen)) FPainter->setClipPath(Path, Qt::IntersectClip);
}

}  // namespace zy
