#include "dialogs/forms/ZyPieSettings.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QWidget>
#include <algorithm>

#include "dialogs/forms/ZyComponentsOf.h"
#include "dialogs/frames/ZyObjectItems.h"
#include "dialogs/frames/ZyPieFrames.h"
#include "persistence/ZyIO.h"
#include "platform/controls/TGroupBox.h"
#include "platform/controls/TPanel.h"
#include "platform/framework/ScopedFlag.h"
#include "platform/framework/TPropInfo.h"
#include "series/vectors/ZyDoubleVector.h"
#include "texts/ZySettingsTexts.h"

namespace zy {

ZY_PUBLISHED(TZyPieSettingsForm, TZySettingsForm)
ZY_PUBLISHED(TZyPieSettingsTool, TComponent, Published<&Self::PieChart, &Self::SetPieChart>("PieChart"),
             Published<&Self::Caption, &Self::SetCaption>("Caption", ""))

namespace {

constexpr const char* LegendFrameName = "LegendEdit";

}  // namespace

TZyPieSettingsForm::TZyPieSettingsForm(TComponent* Owner)
    : TZySettingsForm(Owner, "PieSettingsPages", _sSetPieProperties) {
  AddPages();
  SetProperties();
}

TZyPieSettingsForm::~TZyPieSettingsForm() { Destroying(); }

// --- Controls -------------------------------------------------------------------------------------------------------

void TZyPieSettingsForm::AddPages() {
  PieGeneral = &AddPage("PieGeneral", LoadResString(_sPageGeneral));
  GeneralSettingsFrame = new TZyPieGeneralSettingsFrame(this);
  AddFrame(*PieGeneral, *GeneralSettingsFrame, "GeneralSettingsFrame");
  AssignmentsGroup = AddPart<TGroupBox>(*this, *PieGeneral, "AssignmentsGroup");
  AssignmentsGroup->SetCaption(LoadResString(_sGroupAssignments));
  ValueDataCombo = &AddVectorCombo("ValueDataCombo", _sPieValuesLabel, _sPieValuesHint, &TZyPieChart::SetValues);
  ExplodeDataCombo =
      &AddVectorCombo("ExplodeDataCombo", _sPieExplodeLabel, _sPieExplodeHint, &TZyPieChart::SetExplodePercent);

  OutfitSettings = &AddPage("OutfitSettings", LoadResString(_sPagePie));
  PieDonutFillFrame = new TZyPieDonutFillFrame(this);
  AddFrame(*OutfitSettings, *PieDonutFillFrame, "PieDonutFillFrame");
  SmoothingPanel = AddPart<TPanel>(*this, *OutfitSettings, "SmoothingPanel");
  SmoothingModeCombo = new TComboBox(this);
  SmoothingModeCombo->SetName("SmoothingModeCombo");
  SmoothingModeCombo->SetHint(LoadResString(_sGraphSmoothingHint));
  SmoothingModeCombo->SetStyle(csDropDownList);
  SmoothingModeCombo->Items().SetText(LoadResString(_sGraphSmoothings));
  SmoothingModeCombo->SetParent(SmoothingPanel);
  AddLabel(*this, *SmoothingModeCombo, _sGraphSmoothing)->SetName("SmoothingModeLab");
  SmoothingModeCombo->SetOnSelect([this](TObject*) {
    if (FCanSet && FPieChart != nullptr)
      FPieChart->SetSmoothingMode(static_cast<TZySmoothingMode>(SmoothingModeCombo->ItemIndex()));
  });

  LabelsSettings = &AddPage("LabelsSettings", LoadResString(_sPageLabels));
  PieLabelsFrame = new TZyPieLabelsFrame(this);
  AddFrame(*LabelsSettings, *PieLabelsFrame, "PieLabelsFrame");
  Pages().SetOnChange([this](TObject*) { UpdateControls(); });
}

TZyObjectCombo& TZyPieSettingsForm::AddVectorCombo(const char* ComboName, TZyText Label, TZyText HintText,
                                                   void (TZyPieChart::*Set)(TZyCustomDoubleVector*)) {
  auto* const Combo = AddPart<TZyObjectCombo>(*this, *AssignmentsGroup, ComboName, HintText);
  Combo->SetTabStop(true);
  AddLabel(*this, *Combo, Label);
  Combo->SetOnSelect([this, Combo, Set](TObject*) {
    if (FCanSet && FPieChart != nullptr)
      (FPieChart->*Set)(dynamic_cast<TZyCustomDoubleVector*>(Combo->SelectedObject()));
  });
  return *Combo;
}

void TZyPieSettingsForm::ArrangePage(TTabSheet& Page) {
  if (Page.Widget()->layout() != nullptr) return;
  if (&Page == PieGeneral) {
    auto* const Grid = new QGridLayout(AssignmentsGroup->Widget());
    int Row = 0;
    for (TZyObjectCombo* Combo : {ValueDataCombo, ExplodeDataCombo}) {
      Grid->addWidget(static_cast<TWinControl*>(Combo->Label())->Widget(), Row, 0);
      Grid->addWidget(Combo->Widget(), Row++, 1);
    }
    Grid->setColumnStretch(1, 1);
  }
  TZySettingsForm::ArrangePage(Page);
}

// --- The chart ------------------------------------------------------------------------------------------------------

void TZyPieSettingsForm::SetPieChart(TZyPieChart* Value) {
  if (Value == FPieChart.Get() && Value != nullptr) return;
  FPieChart = Value;
  SetProperties();
  if (FAsDesigner && UndoStack() != nullptr) UndoStack()->Clear();
}

void TZyPieSettingsForm::SetAsDesigner(bool Value) {
  if (Value == FAsDesigner) return;
  FAsDesigner = Value;
  SetProperties();
}

std::vector<TZyPieLegend*> TZyPieSettingsForm::Legends() const {
  std::vector<TZyPieLegend*> Result;
  if (FPieChart == nullptr) return Result;
  for (IZyGraphLegend* Each : FPieChart->RelatedLegends())
    if (auto* const Legend = dynamic_cast<TZyPieLegend*>(&Each->Control())) Result.push_back(Legend);
  return Result;
}

void TZyPieSettingsForm::FreeLegendPages() {
  for (TTabSheet* Page : Pages().Pages())
    if (FrameOn(Page, LegendFrameName) != nullptr) delete Page;
}

void TZyPieSettingsForm::SetProperties() {
  if (PieLabelsFrame == nullptr) return;
  Pages().SetVisible(FPieChart != nullptr);
  FreeLegendPages();
  if (FPieChart == nullptr) {
    SecondLine().SetVisible(false);
    TakeUndoStack(nullptr);
  } else {
    if (FAsDesigner) AddDesignLegend();
    FindStack();
    SecondLine().SetVisible(UndoStack() != nullptr);
  }
  const TZyQuietStack Quiet(UndoStack());
  const TScopedValue Shows(FCanSet, false);
  UpdateCombos();
  AssignmentsGroup->SetVisible(FAsDesigner);
  SmoothingPanel->SetVisible(FAsDesigner);
  for (TZyPieLegend* Legend : Legends()) AddLegendPage(*Legend);
  GeneralSettingsFrame->SetPieChart(FPieChart);
  PieDonutFillFrame->SetPieChart(FPieChart);
  PieLabelsFrame->SetPieChart(FPieChart);
  UpdateControls();
}

/// A designer wants one to set.
void TZyPieSettingsForm::AddDesignLegend() {
  if (!FPieChart->RelatedLegends().empty() || FPieChart->Owner() == nullptr) return;
  auto* const Legend = new TZyPieLegend(FPieChart->Owner());
  Legend->SetName(UniqueName(FPieChart->Owner(), "ZyPieLegend"));
  Legend->SetCaption(Legend->Name());
  Legend->SetVisible(false);
  Legend->SetParent(FPieChart);
  Legend->SetPieChart(FPieChart);
}

void TZyPieSettingsForm::FindStack() {
  TZyUndoStack* Found = FPieChart->UndoStack();
  if (FOwnStack != nullptr && FOwnStack.Get() != Found) delete FOwnStack.Get();
  if (Found == nullptr && FPieChart->IsDesigning()) {
    Found = new TZyUndoStack(this);
    FOwnStack = Found;
    FPieChart->SetUndoStack(Found);
  }
  TakeUndoStack(Found);
}

void TZyPieSettingsForm::AddLegendPage(TZyPieLegend& Legend) {
  TTabSheet& Page = AddPage(nullptr, Legend.CaptionAsString());
  auto* const Frame = new TZyPieLegendSettingsFrame(&Page);
  AddFrame(Page, *Frame, LegendFrameName);
  Frame->SetLegend(&Legend);
}

void TZyPieSettingsForm::UpdateCombos() {
  for (TZyObjectCombo* Combo : {ValueDataCombo, ExplodeDataCombo}) {
    Combo->ClearObjects();
    if (!FAsDesigner) continue;
    Combo->AddObject(LoadResString(_sSettingsNone), nullptr);
    AddVectorsTo(*Combo, FPieChart == nullptr ? nullptr : FPieChart->Owner());
  }
}

// --- Keeping in step ------------------------------------------------------------------------------------------------

bool TZyPieSettingsForm::LegendsDiffer() const {
  std::vector<TZyPieLegend*> Shown;
  for (const TTabSheet* Page : Pages().Pages())
    if (const auto* const Frame = dynamic_cast<const TZyPieLegendSettingsFrame*>(FrameOn(Page, LegendFrameName)))
      Shown.push_back(Frame->Legend());
  return Shown != Legends();
}

void TZyPieSettingsForm::UpdateControls() {
  if (FPieChart == nullptr) return;
  const TZyQuietStack Quiet(UndoStack());
  const TScopedValue Shows(FCanSet, false);
  if (LegendsDiffer()) {
    TTabSheet* const Active = Pages().ActivePage();
    const bool Stays = FrameOn(Active, LegendFrameName) == nullptr;
    FreeLegendPages();
    for (TZyPieLegend* Legend : Legends()) AddLegendPage(*Legend);
    if (!Stays) Pages().SetActivePageIndex(0);
  }
  GeneralSettingsFrame->UpdateControls();
  const auto Choose = [](TZyObjectCombo& Combo, const TComponent* Vector) {
    Combo.SetItemIndex(Vector == nullptr ? 0 : Combo.IndexOfObject(Vector));
  };
  if (FAsDesigner) {
    Choose(*ValueDataCombo, FPieChart->Values());
    Choose(*ExplodeDataCombo, FPieChart->ExplodePercent());
  }
  PieDonutFillFrame->UpdateControls();
  SmoothingModeCombo->SetItemIndex(static_cast<int>(FPieChart->SmoothingMode()));
  PieLabelsFrame->UpdateControls();
  for (TTabSheet* Page : Pages().Pages()) {
    auto* const Legend = dynamic_cast<TZyPieLegendSettingsFrame*>(FrameOn(Page, LegendFrameName));
    if (Legend == nullptr) continue;
    Page->SetCaption(Legend->Legend()->CaptionAsString());
    if (Page == Pages().ActivePage() && Legend->CanSet()) Legend->UpdateControls();
  }
}

void TZyPieSettingsForm::Idle() {
  TZySettingsForm::Idle();
  if (FPieChart != nullptr && LegendsDiffer()) UpdateControls();
}

void TZyPieSettingsForm::SetActivPage(TComponent* Target) {
  for (TTabSheet* Page : Pages().Pages()) {
    const auto* const Legend = dynamic_cast<TZyPieLegendSettingsFrame*>(FrameOn(Page, LegendFrameName));
    if (Legend != nullptr && static_cast<TComponent*>(Legend->Legend()) == Target) return Pages().SetActivePage(Page);
  }
  Pages().SetActivePage(PieGeneral);
}

// --- The tool -------------------------------------------------------------------------------------------------------

TZyPieSettingsTool::TZyPieSettingsTool(TComponent* Owner) : TComponent(Owner) {
  if (!IsDesigning() || Owner == nullptr) return;
  for (TComponent* Each : Owner->Components())
    if (auto* const Found = dynamic_cast<TZyPieChart*>(Each)) FPieChart = Found;
  if (FPieChart != nullptr) FCaption = LoadResString(_sSetPropertiesOf) + " " + FPieChart->CaptionAsString();
}

TZyPieSettingsTool::~TZyPieSettingsTool() {
  Destroying();
  delete FDialog.Get();
}

void TZyPieSettingsTool::SetPieChart(TZyPieChart* Value) {
  FPieChart = Value;
  if (FDialog != nullptr) FDialog->SetPieChart(Value);
}

void TZyPieSettingsTool::SetCaption(const std::string& Value) {
  FCaption = Value;
  if (FDialog != nullptr) FDialog->SetCaption(Value);
}

void TZyPieSettingsTool::Show() {
  if (FDialog == nullptr) FDialog = new TZyPieSettingsForm(nullptr);
  if (!FCaption.empty()) FDialog->SetCaption(FCaption);
  FDialog->SetPieChart(FPieChart);
  FDialog->Show();
}

void TZyPieSettingsTool::Show(TComponent& Target) {
  Show();
  FDialog->SetActivPage(&Target);
}

}  // namespace zy
