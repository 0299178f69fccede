#pragma once

#include "annotations/ZyMovable.h"

namespace zy {

/// Base of lines across the data area, each with a caption at one of nine places around it. At a value that its axis
/// does not show there is no caption, and a line only without ClipToData.
class TZyLineMarker : public TZyMovable {
  ZY_CLASS(TZyLineMarker, TZyMovable)
  void PaintGr(Graphics& Gr) override;
  /// The strip around the line, and the caption.
  bool CMHitTest(int X, int Y) override;

 protected:
  TZyLineMarker(TComponent* Owner, bool IsHorizontal);
  void SetHotDelta() override;
  bool MovesAlongX() const override { return !FIsHorizontal; }
  bool MovesAlongY() const override { return FIsHorizontal; }
  TPoint CornerFor(TPoint HotPoint) const override;

 private:
  bool IsInRange() const;
  void PaintLine(Graphics& Gr);

  bool FIsHorizontal;
};

/// A line at a value of a Y axis.
class TZyHorizontalMarker : public TZyLineMarker {
  ZY_CLASS(TZyHorizontalMarker, TZyLineMarker)
  explicit TZyHorizontalMarker(TComponent* Owner = nullptr);
  void Fields(TZyArchive& Archive) override;
};

/// A line at a value of an X axis.
class TZyVerticalMarker : public TZyLineMarker {
  ZY_CLASS(TZyVerticalMarker, TZyLineMarker)
  explicit TZyVerticalMarker(TComponent* Owner = nullptr);
  void Fields(TZyArchive& Archive) override;
};

}  // namespace zy
