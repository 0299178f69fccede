#include "dialogs/forms/ZyGraphSettingsTool.h"

#include "platform/framework/TPropInfo.h"
#include "texts/ZySettingsTexts.h"

namespace zy {

ZY_PUBLISHED(TZyGraphSettingsTool, TComponent, Published<&Self::Graph, &Self::SetGraph>("Graph"),
             Published<&Self::ExtendedAxisOptions, &Self::SetExtendedAxisOptions>("ExtendedAxisOptions", false),
             Published<&Self::ExtendedBarLabelOptions, &Self::SetExtendedBarLabelOptions>("ExtendedBarLabelOptions",
                                                                                          false),
             Published<&Self::InteractiveCalculationRanges, &Self::SetInteractiveCalculationRanges>(
                 "InteractiveCalculationRanges", true),
             Published<&Self::ShowOutliersSupport, &Self::SetShowOutliersSupport>("ShowOutliersSupport", false),
             Published<&Self::ShowFitCovariance, &Self::SetShowFitCovariance>("ShowFitCovariance", false),
             Published<&Self::ZoomScrollPanningOptions, &Self::SetZoomScrollPanningOptions>("ZoomScrollPanningOptions",
                                                                                            false),
             Published<&Self::Caption, &Self::SetCaption>("Caption", ""))

TZyGraphSettingsTool::TZyGraphSettingsTool(TComponent* Owner) : TComponent(Owner) {
  if (!IsDesigning() || Owner == nullptr) return;
  for (TComponent* Each : Owner->Components())
    if (auto* const Found = dynamic_cast<TZyGraph2D*>(Each)) FGraph = Found;
  if (FGraph != nullptr) FCaption = LoadResString(_sSetPropertiesOf) + " " + FGraph->CaptionAsString();
}

TZyGraphSettingsTool::~TZyGraphSettingsTool() {
  Destroying();
  delete FDialog.Get();
}

void TZyGraphSettingsTool::SetGraph(TZyGraph2D* Value) {
  FGraph = Value;
  if (FDialog != nullptr) FDialog->SetGraph(Value);
}

void TZyGraphSettingsTool::SetCaption(const std::string& Value) {
  FCaption = Value;
  if (FDialog != nullptr) FDialog->SetCaption(Value);
}

void TZyGraphSettingsTool::SetOption(bool& Option, bool Value) {
  Option = Value;
  if (FDialog != nullptr) HandOptions();
}

void TZyGraphSettingsTool::HandOptions() {
  FDialog->SetExtendedAxisOptions(FExtendedAxisOptions);
  FDialog->SetExtendedBarLabelOptions(FExtendedBarLabelOptions);
  FDialog->SetInteractiveCalculationRanges(FInteractiveCalculationRanges);
  FDialog->SetShowFitCovariance(FShowFitCovariance);
  FDialog->SetShowOutliersSupport(FShowOutliersSupport);
  FDialog->SetZoomScrollPanningOptions(FZoomScrollPanningOptions);
}

/// Without a caption of the tool's the form keeps its own.
void TZyGraphSettingsTool::Show() {
  if (FDialog == nullptr) FDialog = new TGraphEdit(nullptr);
  if (!FCaption.empty()) FDialog->SetCaption(FCaption);
  HandOptions();
  FDialog->SetGraph(FGraph);
  FDialog->Show();
}

void TZyGraphSettingsTool::Show(TComponent& Target) {
  Show();
  FDialog->SetActivPage(&Target);
}

}  // namespace zy
