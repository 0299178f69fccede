#pragma once

#include "annotations/ZyLegend.h"
#include "dialogs/frames/ZyCustomLegendSettingsFrame.h"
#include "dialogs/frames/ZySeriesListBox.h"

namespace zy {

/// The settings of a legend of a cartesian chart, with the order of its items.
class TZyLegendSettingsFrame : public TZyCustomLegendSettingsFrame {
  ZY_CLASS(TZyLegendSettingsFrame, TZyCustomLegendSettingsFrame)
  explicit TZyLegendSettingsFrame(TComponent* Owner = nullptr);
  ~TZyLegendSettingsFrame() override;

  TZyLegend* Legend() const override { return FLegend; }
  void SetLegend(TZyLegend* Value);
  /// Lists the series of all graphs on the legend's X axis in the order of its items.
  void SetList();

 protected:
  void ControlsUpdated() override;

 private:
  std::vector<TZySeries*> DefaultOrder() const;
  std::vector<TZySeries*> OrderOfItems() const;
  void CheckOrder();
  void UpdateLayers();

  TRef<TZyLegend> FLegend{this, &TZyLegendSettingsFrame::SetLegend};
  TZySeriesListBox* FSeriesListBox = nullptr;
};

}  // namespace zy
