#pragma once

#include "dialogs/frames/ZyCustomLegendSettingsFrame.h"
#include "dialogs/frames/ZySettingsFrame.h"
#include "pie/ZyPieDonut.h"
#include "pie/ZyPieLegend.h"

namespace zy {

class TZyFillPaletteFrame;

/// Base of the frames that show settings of a pie chart.
class TZyPieFrame : public TZySettingsFrame {
  ZY_CLASS(TZyPieFrame, TZySettingsFrame)
  ~TZyPieFrame() override;

  /// The chart that is shown; null for none.
  TZyPieChart* PieChart() const { return FPieChart; }
  virtual void SetPieChart(TZyPieChart* Value);

 protected:
  explicit TZyPieFrame(TComponent* Owner);
  std::vector<TPersistent*> Targets() const override;

 private:
  TRef<TZyPieChart> FPieChart{this, &TZyPieFrame::SetPieChart};
};

/// The canvas of a pie chart and its title.
class TZyPieGeneralSettingsFrame : public TZyPieFrame {
  ZY_CLASS(TZyPieGeneralSettingsFrame, TZyPieFrame)
  explicit TZyPieGeneralSettingsFrame(TComponent* Owner = nullptr);
  ~TZyPieGeneralSettingsFrame() override;

 protected:
  void ControlsUpdated() override;
};

/// The shape of a pie or donut, and the fills of its segments.
class TZyPieDonutFillFrame : public TZyPieFrame {
  ZY_CLASS(TZyPieDonutFillFrame, TZyPieFrame)
  explicit TZyPieDonutFillFrame(TComponent* Owner = nullptr);
  ~TZyPieDonutFillFrame() override;
  void SetPieChart(TZyPieChart* Value) override;

 protected:
  void ControlsUpdated() override;

 private:
  TZyFillPaletteFrame* FillPaletteFrame = nullptr;
};

/// The labels of the segments, their captions and callouts.
class TZyPieLabelsFrame : public TZyPieFrame {
  ZY_CLASS(TZyPieLabelsFrame, TZyPieFrame)
  explicit TZyPieLabelsFrame(TComponent* Owner = nullptr);
  ~TZyPieLabelsFrame() override;

 private:
  void AddText();
  void AddCallouts();
};

/// The settings of a legend of a pie chart.
class TZyPieLegendSettingsFrame : public TZyCustomLegendSettingsFrame {
  ZY_CLASS(TZyPieLegendSettingsFrame, TZyCustomLegendSettingsFrame)
  explicit TZyPieLegendSettingsFrame(TComponent* Owner = nullptr);
  ~TZyPieLegendSettingsFrame() override;

  TZyPieLegend* Legend() const override { return FLegend; }
  void SetLegend(TZyPieLegend* Value);

 private:
  TRef<TZyPieLegend> FLegend{this, &TZyPieLegendSettingsFrame::SetLegend};
};

}  // namespace zy
