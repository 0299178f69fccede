#pragma once

#include <string>
#include <vector>

#include "dialogs/forms/ZySettingsForm.h"
#include "pie/ZyPieDonut.h"
#include "pie/ZyPieLegend.h"

namespace zy {

class TGroupBox;
class TComboBox;
class TZyObjectCombo;
class TZyPieDonutFillFrame;
class TZyPieGeneralSettingsFrame;
class TZyPieLabelsFrame;

/// The dialog with all settings of a pie chart and of its legends; see TZySettingsForm. Without a chart, as when that
/// has died, no page is shown.
class TZyPieSettingsForm : public TZySettingsForm {
  ZY_CLASS(TZyPieSettingsForm, TZySettingsForm)
  explicit TZyPieSettingsForm(TComponent* Owner = nullptr);
  ~TZyPieSettingsForm() override;

  TZyPieChart* PieChart() const { return FPieChart; }
  void SetPieChart(TZyPieChart* Value);
  /// Whether the dialog serves a form designer: the vectors and the quality of drawing can be chosen then, and a chart
  /// without a legend gets one, hidden.
  bool AsDesigner() const { return FAsDesigner; }
  void SetAsDesigner(bool Value);
  /// Shows the page of a legend, or the first one.
  void SetActivPage(TComponent* Target);
  void UpdateControls() override;
  /// Fills the boxes of the vectors, for a form designer.
  void UpdateCombos();

 protected:
  void Idle() override;
  void ArrangePage(TTabSheet& Page) override;

 private:
  void AddPages();
  TZyObjectCombo& AddVectorCombo(const char* ComboName, TZyText Label, TZyText HintText,
                                 void (TZyPieChart::*Set)(TZyCustomDoubleVector*));
  void SetProperties();
  void FindStack();
  void AddDesignLegend();
  void AddLegendPage(TZyPieLegend& Legend);
  void FreeLegendPages();
  bool LegendsDiffer() const;
  std::vector<TZyPieLegend*> Legends() const;

  TRef<TZyPieChart> FPieChart{this, &TZyPieSettingsForm::SetPieChart};
  TRef<TZyUndoStack> FOwnStack{this};
  TTabSheet *PieGeneral = nullptr, *OutfitSettings = nullptr, *LabelsSettings = nullptr;
  TGroupBox* AssignmentsGroup = nullptr;
  TWinControl* SmoothingPanel = nullptr;
  TComboBox* SmoothingModeCombo = nullptr;
  TZyObjectCombo *ValueDataCombo = nullptr, *ExplodeDataCombo = nullptr;
  TZyPieGeneralSettingsFrame* GeneralSettingsFrame = nullptr;
  TZyPieDonutFillFrame* PieDonutFillFrame = nullptr;
  TZyPieLabelsFrame* PieLabelsFrame = nullptr;
};

/// Opens the dialog with the settings of a pie chart; see TZyGraphSettingsTool.
class TZyPieSettingsTool : public TComponent {
  ZY_CLASS(TZyPieSettingsTool, TComponent)
  explicit TZyPieSettingsTool(TComponent* Owner = nullptr);
  ~TZyPieSettingsTool() override;

  TZyPieChart* PieChart() const { return FPieChart; }
  void SetPieChart(TZyPieChart* Value);
  /// Title of the dialog.
  const std::string& Caption() const { return FCaption; }
  void SetCaption(const std::string& Value);
  /// Shows the dialog, and does not wait.
  void Show();
  /// The same with the page of a legend in front.
  void Show(TComponent& Target);
  /// Null until it was shown.
  TZyPieSettingsForm* Dialog() const { return FDialog; }

 private:
  TRef<TZyPieChart> FPieChart{this, &TZyPieSettingsTool::SetPieChart};
  TRef<TZyPieSettingsForm> FDialog{this};
  std::string FCaption;
};

}  // namespace zy
