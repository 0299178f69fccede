#include "pie/ZyCalloutBoxes.h"

#include <algorithm>

namespace zy {

TZyBoxTree::TZyBoxTree(const std::vector<RectF>& Boxes, std::vector<std::size_t> Members)
    : FMembers(std::move(Members)), FPlaces(Boxes.size(), Nowhere) {
  std::ranges::stable_sort(FMembers, {}, [&Boxes](std::size_t Member) { return Boxes[Member].X; });
  for (std::size_t Place = 0; Place < FMembers.size(); ++Place) FPlaces[FMembers[Place]] = Place;
  if (FMembers.empty()) return;
  FNodes.resize(2 * FMembers.size());
  Build(0, 0, FMembers.size(), Boxes);
}

void TZyBoxTree::Build(std::size_t Node, std::size_t First, std::size_t Count, const std::vector<RectF>& Boxes) {
  if (Count == 1) {
    const RectF& Box = Boxes[FMembers[First]];
    const float Right = Box.X + Box.Width;
    FNodes[Node] = {Box.X, Box.X, Right, Right, Box.Height, Box.Height, Box.Y, Box.Y};
    return;
  }
  const std::size_t Half = (Count + 1) / 2;
  Build(Node + 1, First, Half, Boxes);
  Build(Second(Node, Count), First + Half, Count - Half, Boxes);
  const TNode &A = FNodes[Node + 1], &B = FNodes[Second(Node, Count)];
  FNodes[Node] = {std::min(A.MinX, B.MinX),           std::max(A.MaxX, B.MaxX),
                  std::min(A.MinRight, B.MinRight),   std::max(A.MaxRight, B.MaxRight),
                  std::min(A.MinHeight, B.MinHeight), std::max(A.MaxHeight, B.MaxHeight),
                  std::min(A.MinY, B.MinY),           std::max(A.MaxY, B.MaxY)};
}

void TZyBoxTree::Push(const RectF& Box, std::size_t Self, bool Down) {
  if (FMembers.empty()) return;
  const float NewY = Down ? Box.Y + Box.Height : Box.Y - Box.Height;
  Visit(0, 0, FMembers.size(), {Box, FPlaces[Self], Down, Box.Y + Box.Height, NewY});
}

/// Whether the box overlaps none of the boxes below a node, or they do not lie in its direction.
bool TZyBoxTree::IsMissed(const TNode& Node, const TPush& Push) {
  const RectF& Box = Push.Box;
  const auto [Left, Right] = std::minmax({Box.X, Box.X + Box.Width});
  const auto [Top, Bottom] = std::minmax({Box.Y, Push.Bottom});
  if (Node.MinX > Right || Node.MaxRight < Left || Node.MinY > Bottom || Node.MaxY + Node.MaxHeight < Top) return true;
  return Push.Down ? Node.MaxY < Box.Y || !(Node.MaxY > 0) : Node.MinY > Box.Y || !(Node.MinY < 0);
}

/// Whether it overlaps all of them, an edge of it lying within each both ways, and they lie in its direction.
bool TZyBoxTree::IsHit(const TNode& Node, const TPush& Push) {
  const RectF& Box = Push.Box;
  const auto HasX = [&](float Edge) { return Node.MaxX <= Edge && Edge <= Node.MinRight; };
  const auto HasY = [&](float Edge) { return Node.MaxY <= Edge && Edge <= Node.MinY + Node.MinHeight; };
  if (!HasX(Box.X) && !HasX(Box.X + Box.Width)) return false;
  if (!HasY(Box.Y) && !HasY(Push.Bottom)) return false;
  return Push.Down ? Node.MinY >= Box.Y && Node.MinY > 0 : Node.MaxY <= Box.Y && Node.MaxY < 0;
}

void TZyBoxTree::Visit(std::size_t Node, std::size_t First, std::size_t Count, const TPush& Push) {
  TNode& Here = FNodes[Node];
  if (IsMissed(Here, Push)) return;
  const bool HoldsSelf = Push.Self >= First && Push.Self < First + Count;
  if (!HoldsSelf && IsHit(Here, Push)) {
    Here.MinY = Here.MaxY = Push.NewY;
    Here.IsPushed = true;
    return;
  }
  if (Count == 1) return;
  SpreadPush(Node, Count);
  const std::size_t Half = (Count + 1) / 2;
  Visit(Node + 1, First, Half, Push);
  Visit(Second(Node, Count), First + Half, Count - Half, Push);
  const TNode &A = FNodes[Node + 1], &B = FNodes[Second(Node, Count)];
  Here.MinY = std::min(A.MinY, B.MinY);
  Here.MaxY = std::max(A.MaxY, B.MaxY);
}

void TZyBoxTree::SpreadPush(std::size_t Node, std::size_t Count) {
  if (!FNodes[Node].IsPushed) return;
  FNodes[Node].IsPushed = false;
  for (const std::size_t Child : {Node + 1, Second(Node, Count)}) {
    FNodes[Child].MinY = FNodes[Child].MaxY = FNodes[Node].MinY;
    FNodes[Child].IsPushed = true;
  }
}

float TZyBoxTree::YOf(std::size_t Member) const {
  std::size_t Node = 0, First = 0, Count = FMembers.size();
  while (Count > 1 && !FNodes[Node].IsPushed) {
    const std::size_t Half = (Count + 1) / 2;
    const bool IsSecond = FPlaces[Member] >= First + Half;
    Node = IsSecond ? Second(Node, Count) : Node + 1;
    First += IsSecond ? Half : 0;
    Count = IsSecond ? Count - Half : Half;
  }
  return FNodes[Node].MinY;
}

void TZyBoxTree::Store(std::vector<RectF>& Boxes, std::vector<bool>& Moved) const {
  for (const std::size_t Member : FMembers) {
    const float Y = YOf(Member);
    if (Y != Boxes[Member].Y) Moved[Member] = true;
    Boxes[Member].Y = Y;
  }
}

void PushCalloutsApart(std::vector<RectF>& Boxes, std::vector<bool>& Moved) {
  std::vector<std::size_t> BelowMiddle, AboveMiddle;
  for (std::size_t i = 0; i < Boxes.size(); ++i) {
    if (Boxes[i].Y > 0) BelowMiddle.push_back(i);
    if (Boxes[i].Y < 0) AboveMiddle.push_back(i);
  }
  TZyBoxTree Below(Boxes, std::move(BelowMiddle)), Above(Boxes, std::move(AboveMiddle));
  for (const bool Down : {true, true, false, false})
    for (std::size_t Step = 0; Step < Boxes.size(); ++Step) {
      const std::size_t i = Down ? Step : Boxes.size() - 1 - Step;
      RectF Box = Boxes[i];
      if (Below.Contains(i)) Box.Y = Below.YOf(i);
      if (Above.Contains(i)) Box.Y = Above.YOf(i);
      (Down ? Below : Above).Push(Box, i, Down);
    }
  Below.Store(Boxes, Moved);
  Above.Store(Boxes, Moved);
}

}  // namespace zy
