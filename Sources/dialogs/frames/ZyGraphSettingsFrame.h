#pragma once

#include "dialogs/frames/ZySettingsFrame.h"
#include "graph/ZyGraph2D.h"

namespace zy {

/// The settings of a graph: title, data area, grids, ways to zoom, distances and background.
class TZyGraphSettingsFrame : public TZySettingsFrame {
  ZY_CLASS(TZyGraphSettingsFrame, TZySettingsFrame)
  /// While a form is designed, Owner's last graph is taken.
  explicit TZyGraphSettingsFrame(TComponent* Owner = nullptr);
  ~TZyGraphSettingsFrame() override;

  /// The graph that is shown; null for none.
  TZyGraph2D* Graph() const { return FGraph; }
  void SetGraph(TZyGraph2D* Value);
  /// Whether what is about zooming, panning and scrolling can be set.
  bool ZoomScrollPanningOptions() const { return FZoomScrollPanningOptions; }
  void SetZoomScrollPanningOptions(bool Value);
  /// Offers the axes that the graph could have as primary ones.
  void UpdateCombos();

 protected:
  std::vector<TPersistent*> Targets() const override;
  void ControlsUpdated() override;

 private:
  /// The six controls of what begins a gesture, and the property that they make.
  struct TShift;

  static const TShift& ZoomShift();
  static const TShift& PanShift();
  void AddTitle();
  void AddDataArea();
  void AddGrid(bool IsVertical);
  void AddZoom();
  void AddZoomShift(const TShift& Shift);
  void AddDistances();
  void SetZoomAndPanning(const TShift& Shift);
  void ShiftClicked(const TShift& Shift);
  TShiftState ShiftOf(const TShift& Shift) const;

  bool FZoomScrollPanningOptions = false;
  TRef<TZyGraph2D> FGraph{this, &TZyGraphSettingsFrame::SetGraph};
};

}  // namespace zy
