#pragma once

#include <string>

#include "dialogs/forms/ZyGraphEdit.h"

namespace zy {

/// Opens the dialog with the settings of a graph. The dialog is made when it is first shown, and belongs to this.
///
///     auto* const Tool = new TZyGraphSettingsTool(Form);
///     Tool->SetGraph(Graph);
///     Tool->Show();
///
/// While a form is designed, a new tool takes the last graph of its owner.
class TZyGraphSettingsTool : public TComponent {
  ZY_CLASS(TZyGraphSettingsTool, TComponent)
  explicit TZyGraphSettingsTool(TComponent* Owner = nullptr);
  ~TZyGraphSettingsTool() override;

  TZyGraph2D* Graph() const { return FGraph; }
  void SetGraph(TZyGraph2D* Value);
  /// Title of the dialog.
  const std::string& Caption() const { return FCaption; }
  void SetCaption(const std::string& Value);
  /// What the dialog offers beyond the usual; see TGraphEdit.
  bool ExtendedAxisOptions() const { return FExtendedAxisOptions; }
  void SetExtendedAxisOptions(bool Value) { SetOption(FExtendedAxisOptions, Value); }
  bool ExtendedBarLabelOptions() const { return FExtendedBarLabelOptions; }
  void SetExtendedBarLabelOptions(bool Value) { SetOption(FExtendedBarLabelOptions, Value); }
  bool InteractiveCalculationRanges() const { return FInteractiveCalculationRanges; }
  void SetInteractiveCalculationRanges(bool Value) { SetOption(FInteractiveCalculationRanges, Value); }
  bool ShowOutliersSupport() const { return FShowOutliersSupport; }
  void SetShowOutliersSupport(bool Value) { SetOption(FShowOutliersSupport, Value); }
  bool ShowFitCovariance() const { return FShowFitCovariance; }
  void SetShowFitCovariance(bool Value) { SetOption(FShowFitCovariance, Value); }
  bool ZoomScrollPanningOptions() const { return FZoomScrollPanningOptions; }
  void SetZoomScrollPanningOptions(bool Value) { SetOption(FZoomScrollPanningOptions, Value); }

  /// Shows the dialog, and does not wait.
  void Show();
  /// The same with the page of an axis, a series, a legend or a graph in front.
  void Show(TComponent& Target);
  /// Null until it was shown.
  TGraphEdit* Dialog() const { return FDialog; }

 private:
  void SetOption(bool& Option, bool Value);
  void HandOptions();

  TRef<TZyGraph2D> FGraph{this, &TZyGraphSettingsTool::SetGraph};
  TRef<TGraphEdit> FDialog{this};
  bool FExtendedAxisOptions = false, FExtendedBarLabelOptions = false;
  bool FInteractiveCalculationRanges = true;
  bool FShowOutliersSupport = false;
  bool FShowFitCovariance = false, FZoomScrollPanningOptions = false;
  std::string FCaption;
};

}  // namespace zy
