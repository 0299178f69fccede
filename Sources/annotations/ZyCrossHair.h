#pragma once

#include <array>

#include "annotations/ZyCrossHairBox.h"
#include "annotations/ZyLineMarkers.h"

namespace zy {

/// A horizontal and a vertical line marker that cross at a point, with a handle to drag both and a caption beside it.
///
/// The line markers are parts of the cross hair and go with it: they stand on its axes and are drawn as Line says.
/// Whoever drags or sets one of them moves the cross hair in that direction alone.
class TZyCrossHair : public TZyMovable {
  ZY_CLASS(TZyCrossHair, TZyMovable)
  explicit TZyCrossHair(TComponent* Owner = nullptr);
  ~TZyCrossHair() override;

  /// Null only after it was freed by itself.
  TZyHorizontalMarker* HorizontalMarker() const { return FHorizontal; }
  TZyVerticalMarker* VerticalMarker() const { return FVertical; }
  /// Pointers over the lines.
  TCursor HorizontalCursor() const;
  void SetHorizontalCursor(TCursor Value);
  TCursor VerticalCursor() const;
  void SetVerticalCursor(TCursor Value);
  TZyXHairCaptionPosition CaptionPosition() const { return FCaptionQuadrant; }
  void SetCaptionPosition(TZyXHairCaptionPosition Value);

  void SetClipToData(bool Value) override;
  void SetUndoStack(TZyUndoStack* Value) override;
  void SetParent(TWinControl* Value) override;
  /// The caption; the lines paint themselves.
  void PaintGr(Graphics& Gr) override;
  /// The caption, and a square around the crossing of the lines.
  bool CMHitTest(int X, int Y) override;
  /// XML has nothing of the line markers.
  void Fields(TZyArchive& Archive) override;

 protected:
  void SetHotDelta() override;
  void Modified() override;
  void CMVisibleChanged() override;
  void CMEnabledChanged() override;
  void CaptionPlaceField(TZyArchive& Archive) override;

 private:
  template <class TMarker>
  class TLine;
  void MakeLines();
  std::array<TZyLineMarker*, 2> Lines() const { return {FHorizontal, FVertical}; }

  TRef<TZyHorizontalMarker> FHorizontal{this};
  TRef<TZyVerticalMarker> FVertical{this};
  TZyXHairCaptionPosition FCaptionQuadrant = TZyXHairCaptionPosition::RightTop;
};

}  // namespace zy
