#pragma once

#include <cstddef>
#include <vector>

#include "platform/drawing/Geometry.h"

namespace zy {

/// Boxes on one side of a pie's middle, by their places: what a box overlaps is found and moved in whole groups.
///
/// A balanced tree over the boxes in the order of X. Each node knows the limits of the boxes below it, so that those
/// which overlap all or none of another box are not visited one by one. Boxes that were pushed lie at one height, and
/// count as one from then on.
class TZyBoxTree {
 public:
  /// Members are indexes of Boxes, whose X, widths and heights stay.
  TZyBoxTree(const std::vector<RectF>& Boxes, std::vector<std::size_t> Members);

  /// Moves all boxes but Self that Box overlaps, and that come behind it in that direction, to just past it.
  void Push(const RectF& Box, std::size_t Self, bool Down);
  /// The present height of a member.
  float YOf(std::size_t Member) const;
  bool Contains(std::size_t Box) const { return FPlaces[Box] != Nowhere; }
  /// Gives the boxes their new heights, and Moved true for each that was pushed.
  void Store(std::vector<RectF>& Boxes, std::vector<bool>& Moved) const;

 private:
  struct TNode {
    float MinX, MaxX, MinRight, MaxRight, MinHeight, MaxHeight;
    float MinY, MaxY;
    bool IsPushed = false;  // all below are at MinY
  };
  struct TPush {
    const RectF& Box;
    std::size_t Self;  // place of the box itself
    bool Down;
    float Bottom, NewY;
  };

  void Build(std::size_t Node, std::size_t First, std::size_t Count, const std::vector<RectF>& Boxes);
  void Visit(std::size_t Node, std::size_t First, std::size_t Count, const TPush& Push);
  static bool IsMissed(const TNode& Node, const TPush& Push);
  static bool IsHit(const TNode& Node, const TPush& Push);
  void SpreadPush(std::size_t Node, std::size_t Count);
  /// A node's children lie behind it, the second one behind all of the first.
  static std::size_t Second(std::size_t Node, std::size_t Count) { return Node + 2 * ((Count + 1) / 2); }

  static constexpr std::size_t Nowhere = ~std::size_t{0};
  std::vector<std::size_t> FMembers;  // by X
  std::vector<std::size_t> FPlaces;   // of boxes among them
  std::vector<TNode> FNodes;
};

/// Boxes around a pie that make room for each other: those below its middle go down, those above go up. Y runs down
/// from the middle; a box is given by its middle and its extent, which compare as corners and extents do.
///
/// In each of four passes, two downwards and two upwards, a box moves every other one that it overlaps, and that lies
/// in its direction or beside it, to just past itself. Boxes of one extent that lie above each other, and come in their
/// order down the right side, do not overlap afterwards; where the order runs against the direction, some still may.
/// Boxes on the middle line itself never move. Moved gets true for each box that was pushed. Boxes must be finite.
void PushCalloutsApart(std::vector<RectF>& Boxes, std::vector<bool>& Moved);

}  // namespace zy
