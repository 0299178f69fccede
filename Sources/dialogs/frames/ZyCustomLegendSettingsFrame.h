#pragma once

#include "annotations/ZyCustomLegend.h"
#include "dialogs/frames/ZySettingsFrame.h"

namespace zy {

/// The settings that the legends of all charts have. Heirs add what is theirs between the parts.
class TZyCustomLegendSettingsFrame : public TZySettingsFrame {
  ZY_CLASS(TZyCustomLegendSettingsFrame, TZySettingsFrame)
  ~TZyCustomLegendSettingsFrame() override;

 protected:
  TZyCustomLegendSettingsFrame(TComponent* Owner, const TClassInfo& Edited) : TZySettingsFrame(Owner, Edited) {}

  /// The legend that is shown; null for none.
  virtual TZyCustomLegend* Legend() const = 0;
  std::vector<TPersistent*> Targets() const override;
  void ControlsUpdated() override;
  /// Enables columns or rows, whichever the order of the items goes by.
  void UpdateEnabled();

  void AddLook();
  void AddTitle();
  void AddItemsOrder();
  /// The controls of the distances behind those that stand already.
  void AddItemDistances();
};

}  // namespace zy
