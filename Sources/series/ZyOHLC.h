#pragma once

#include "series/ZyCustomOHLC.h"

namespace zy {

/// A thin bar from low to high, with a tick to the left at open and one to the right at close.
class TZyOHLC : public TZyCustomOHLC {
  ZY_CLASS(TZyOHLC, TZyCustomOHLC)
  explicit TZyOHLC(TComponent* Owner = nullptr);

  /// Length of the ticks in pixels; less than 0 is stored as 1.
  float IndicatorLength() const { return FIndicatorLength; }
  void SetIndicatorLength(float Value) {
    SetLook(FIndicatorLength, Value >= 0 && std::isfinite(Value) ? Value : 1, "IndicatorLength");
  }

  void Fields(TZyArchive& Archive) override;
  float GetItemHeight() const override;
  void DrawListItem(const TZyLegendItemDrawArgs& e, LegendItemStyle Style) override;
  void DrawListItem(const TZyLegendItemDrawArgs& e) override { DrawListItem(e, LegendItemStyle::Filled); }

 protected:
  float Overhang() const override { return FIndicatorLength; }
  void DrawPoints(Graphics& Gr) override;

 private:
  class TDense;

  void DrawEach(Graphics& Gr);

  float FIndicatorLength = 5;
};

}  // namespace zy
