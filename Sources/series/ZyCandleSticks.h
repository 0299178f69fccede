#pragma once

#include "series/ZyCustomOHLC.h"

namespace zy {

/// A coloured body between open and close, with wicks to high and low.
class TZyCandleSticks : public TZyCustomOHLC {
  ZY_CLASS(TZyCandleSticks, TZyCustomOHLC)
  explicit TZyCandleSticks(TComponent* Owner = nullptr);

  /// Colours of the bodies that close above, and below, their open; those that close at it are black. The values of the
  /// vectors decide, without transformations.
  TZyColor BullColor() const { return FBullColor; }
  void SetBullColor(TZyColor Value) { Change(this, FBullColor, Value, "BullColor", &TZyCandleSticks::Invalidate); }
  TZyColor BearColor() const { return FBearColor; }
  void SetBearColor(TZyColor Value) { Change(this, FBearColor, Value, "BearColor", &TZyCandleSticks::Invalidate); }
  /// Whether outlines and wicks have the colour of the body, and not that of the line.
  bool ShadowsSameColorAsFill() const { return FShadowsSameColorAsFill; }
  void SetShadowsSameColorAsFill(bool Value) {
    Change(this, FShadowsSameColorAsFill, Value, "ShadowsSameColorAsFill", &TZyCandleSticks::Invalidate);
  }

  /// Bodies are there without a line and an area, too.
  bool SeriesVisible() const override { return Visible(); }
  void Fields(TZyArchive& Archive) override;
  float GetItemHeight() const override;
  /// Two bodies that lie on their sides; outlines and wicks are there where the line is visible.
  void DrawListItem(const TZyLegendItemDrawArgs& e, LegendItemStyle Style) override;
  void DrawListItem(const TZyLegendItemDrawArgs& e) override { DrawListItem(e, LegendItemStyle::Filled); }

 protected:
  void DrawPoints(Graphics& Gr) override;

 private:
  class TDense;

  TZyColor ColorOf(int Idx) const;
  void DrawEach(Graphics& Gr);

  TZyColor FBullColor = Colors::Green;
  TZyColor FBearColor = Colors::Red;
  bool FShadowsSameColorAsFill = false;
};

}  // namespace zy
