#pragma once

#include <tuple>
#include <vector>

#include "axes/ZyAxis.h"
#include "dialogs/frames/ZySettingsFrame.h"

namespace zy {

class TZyObjectListBox;

/// The settings of an axis, or of all axes that are selected in a list.
class TZyAxisSettingsFrame : public TZySettingsFrame {
  ZY_CLASS(TZyAxisSettingsFrame, TZySettingsFrame)
  explicit TZyAxisSettingsFrame(TComponent* Owner = nullptr);
  ~TZyAxisSettingsFrame() override;

  /// The axis that is shown; null for none.
  TZyAxis* SelectedAxis() const { return FSelectedAxis; }
  void SetSelectedAxis(TZyAxis* Value);
  /// A list of axes with several selected ones, to all of which is written, as one step; null for SelectedAxis alone.
  void SetRelatedAxesList(TZyObjectListBox* List);
  /// Whether the modes of both ends, slave axes and distances can be set.
  bool ExtendedAxisOptions() const { return FExtendedAxisOptions; }
  void SetExtendedAxisOptions(bool Value);
  bool IsOutdated() override;

 protected:
  std::vector<TPersistent*> Targets() const override;
  TPersistent* Shown() const override { return FSelectedAxis; }
  bool WritesGroups() const override { return FAxesList != nullptr; }
  void ControlsUpdated() override;

 private:
  void AddEnds();
  void AddCaptions();
  void AddScaling();
  void AddTicks();
  void AddOthers();
  void AddArrows();
  void ShowEnds(const TZyAxis& Axis);
  void SetScalingGroup(const TZyAxis& Axis);
  void ShowSlaveOptions(const TZyAxis& Axis);
  std::vector<TZyAxis*> Masters(const TZyAxis& Axis) const;
  bool MastersDiffer(const TZyAxis& Axis) const;
  void FillMasters(const TZyAxis& Axis);
  std::vector<TZyAxis*> SelectedAxes() const;
  bool IsPrimary() const;
  /// What no control shows itself, and others depend on.
  using TStanding = std::tuple<bool, TZyAxisPosition, bool>;
  TStanding Standing() const { return {IsPrimary(), FSelectedAxis->Position(), FSelectedAxis->IsSlaveAxis()}; }

  bool FExtendedAxisOptions = false;
  TStanding FShownStanding;
  TRef<TZyAxis> FSelectedAxis{this, &TZyAxisSettingsFrame::SetSelectedAxis};
  TRef<TComponent> FAxesList{this};
};

}  // namespace zy
