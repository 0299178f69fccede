#include "dialogs/frames/ZyGraphSettingsFrame.h"

#include <array>
#include <string>

#include "annotations/ZyCaptionEdit.h"
#include "axes/ZyAxis.h"
#include "dialogs/frames/ZyObjectItems.h"
#include "platform/controls/TButtonControl.h"
#include "platform/framework/Application.h"
#include "platform/framework/TPropInfo.h"
#include "texts/ZySettingsTexts.h"

namespace zy {

ZY_PUBLISHED(TZyGraphSettingsFrame, TZySettingsFrame)

struct TZyGraphSettingsFrame::TShift {
  std::array<const char*, 3> Buttons, Keys;
  TShiftState (TZyZoomSettings::*Get)() const;
  void (TZyZoomSettings::*Set)(TShiftState);
};

namespace {

constexpr std::array<TShiftStateElement, 3> ShiftButtons{ssLeft, ssMiddle, ssRight}, ShiftKeys{ssShift, ssCtrl, ssAlt};

}  // namespace

TZyGraphSettingsFrame::TZyGraphSettingsFrame(TComponent* Owner)
    : TZySettingsFrame(Owner, TZyGraph2D::StaticClassInfo()) {
  AddTitle();
  AddDataArea();
  AddGrid(true);
  AddGrid(false);
  AddZoom();
  AddDistances();
  SetZoomScrollPanningOptions(false);
  AllAdded();
  if (!IsDesigning() || Owner == nullptr) return;
  for (TComponent* Each : Owner->Components())
    if (auto* const Found = dynamic_cast<TZyGraph2D*>(Each)) SetGraph(Found);
}

TZyGraphSettingsFrame::~TZyGraphSettingsFrame() { Destroying(); }

// --- Controls -------------------------------------------------------------------------------------------------------

void TZyGraphSettingsFrame::AddTitle() {
  AddGroup("TitleGroup", _sGroupTitle);
  AddCheck("TitleVisibleCheck", "CaptionVisible", _sSettingsVisible);
  AddLine(_sAxisText);
  AddCaption("TitleEdit", "Caption", "Font", "CaptionColor");
  AddLine(_sSettingsFontAndColor);
  SetWriter(AddFont("TitleFontBtn", "Font"),
            [this](TPersistent& Graph) { static_cast<TZyGraph2D&>(Graph).SetCaptionFont(ChosenFont()); });
  AddColor("TitleColorPick", "CaptionColor");
  AddLine(_sSettingsDistances);
  AddUpDown("TopDistUpDown", "CaptionDistanceBefore");
  AddUpDown("BottomDistUpDown", "CaptionDistanceAfter");
}

void TZyGraphSettingsFrame::AddDataArea() {
  AddGroup("DataAreaGroup", _sGroupDataArea);
  AddLine(_sSettingsColor);
  AddColor("DataAreaColorPick", "DataAreaColor");
  AddGradient("DataGradientCheck", "DataGradientFrame", "DataAreaGradient", _sSettingsGradient);
  AddCheck("DataFrameCheck", "DataAreaFrame.Visible", _sGraphFrame);
  AddDashes("DataFrameDashStyles", "DataAreaFrame.DashStyle");
  AddUpDown("DataFrameWidthUpDn", "DataAreaFrame.Width");
  AddColor("DataFrameColorPick", "DataAreaFrame.Color");
  AddGradient("DataFrameGradientCheck", "DataAreaBorderGradientFrame", "DataAreaFrame.Gradient", _sGraphFrameGradient);
  AddLine(_sGraphPrimaryX);
  AddReference("PrimaryXCombo", "PrimaryXAxis");
  AddLine(_sGraphPrimaryY);
  AddReference("PrimaryYCombo", "PrimaryYAxis");
}

/// The names differ by their first letters only.
void TZyGraphSettingsFrame::AddGrid(bool IsVertical) {
  const std::string Letter = IsVertical ? "V" : "H", Word = IsVertical ? "Vertical" : "Horizontal";
  AddGroup((Word + "GridGroup").c_str(), IsVertical ? _sGroupVerticalGrid : _sGroupHorizontalGrid);
  for (const bool IsMajor : {true, false}) {
    const std::string Kind = IsMajor ? "Major" : "Minor", Path = Format("%sGrid%s", {Kind, Word}), Part = Letter + Kind;
    AddCheck((Part + "Check").c_str(), (Path + ".Visible").c_str(), IsMajor ? _sGridMajor : _sGridMinor);
    AddDashes((Part + "DashStyles").c_str(), (Path + ".DashStyle").c_str());
    AddUpDown((Part + "WidthUpDown").c_str(), (Path + ".Width").c_str());
    AddColor((Part + "ColorPick").c_str(), (Path + ".Color").c_str());
    AddGradient((Word + Kind + "GradientCheck").c_str(), (Word + Kind + "GradientFrame").c_str(),
                (Path + ".Gradient").c_str(), IsMajor ? _sGridMajorGradient : _sGridMinorGradient);
  }
  const char* const Path = IsVertical ? "PrimaryXAxis.MajorGridMode" : "PrimaryYAxis.MajorGridMode";
  AddLine(_sGridAt);
  AddRadio(IsVertical ? "VWithLabelsRadio" : "HWithLabelsRadio", Path, static_cast<int>(TZyMajorGridMode::AtLabel),
           _sGridLabels);
  AddRadio(IsVertical ? "VWithMajorTicksRadio" : "HWithMajorTicksRadioRadio", Path,
           static_cast<int>(TZyMajorGridMode::AtMajorTick), _sGridTicks);
}

void TZyGraphSettingsFrame::AddZoom() {
  AddGroup("ZoomPanGroup", _sGroupZoomPan);
  AddCheck("AutoZoomCheck", "Zoom.Auto", _sZoomAutoLabel);
  AddCheck("OptimizeSeriesCheck", "Zoom.OptimizeSeries", _sZoomOptimizeLabel);
  AddCheck("HScrollCheck", "Zoom.HScrollbarVisible", _sZoomHBar);
  AddCheck("VScrollCheck", "Zoom.VScrollbarVisible", _sZoomVBar);
  AddLine(_sZoomLarge);
  AddCombo("LargeIncCombo", "Zoom.ScrollLargeIncrement", _sZoomIncrements);
  AddLine(_sZoomSmall);
  AddCombo("SmallIncCombo", "Zoom.ScrollSmallIncrement", _sZoomIncrements);
  AddCheck("ZoomBackOnClickCheck", "Zoom.BackOnClickBeside", _sZoomBackLabel);
  AddCheck("ZoomResetOnDoubleClickCheck", "Zoom.ResetOnDoubleClickBeside", _sZoomResetLabel);
  AddCheck("ZoomResetOnDragFrameCheck", "Zoom.ResetOnRightBottomLeftTopFrame", _sZoomResetFrameLabel);
  AddLine(_sZoomStages);
  AddRadio("ZoomCircularRadio", "Zoom.BufferType", static_cast<int>(TZyZoomBufferType::AsCircularBuffer),
           _sZoomCircular)
      .SetHint(LoadResString(_sZoomStagesHint));
  AddRadio("ZoomStackRadio", "Zoom.BufferType", static_cast<int>(TZyZoomBufferType::AsStack), _sZoomStack)
      .SetHint(LoadResString(_sZoomStagesHint));
  AddZoomShift(ZoomShift());
  AddZoomShift(PanShift());
}

const TZyGraphSettingsFrame::TShift& TZyGraphSettingsFrame::ZoomShift() {
  static const TShift Result{{"ZoomMouseLeftRadio", "ZoomMouseMiddleRadio", "ZoomMouseRightRadio"},
                             {"ZoomShiftCheck", "ZoomCtrlCheck", "ZoomAltCheck"},
                             &TZyZoomSettings::StartZoom,
                             &TZyZoomSettings::SetZoomShift};
  return Result;
}

const TZyGraphSettingsFrame::TShift& TZyGraphSettingsFrame::PanShift() {
  static const TShift Result{{"PanMouseLeftRadio", "PanMouseMiddleRadio", "PanMouseRightRadio"},
                             {"PanShiftCheck", "PanCtrlCheck", "PanAltCheck"},
                             &TZyZoomSettings::StartPanning,
                             &TZyZoomSettings::SetPanningShift};
  return Result;
}

void TZyGraphSettingsFrame::AddZoomShift(const TShift& Shift) {
  const bool IsZoom = &Shift == &ZoomShift();
  const TZyText HintText = IsZoom ? _sZoomStartZoom : _sZoomStartPanning;
  const auto Click = [this, &Shift] { ShiftClicked(Shift); };
  AddLine(IsZoom ? _sZoomStart : _sPanStart);
  constexpr TZyText ButtonTexts[] = {_sMouseLeft, _sMouseMiddle, _sMouseRight};
  for (std::size_t i = 0; i < Shift.Buttons.size(); ++i)
    AddFreeRadio(Shift.Buttons[i], ButtonTexts[i], HintText, Click);
  AddLine(_sZoomWithKeys);
  constexpr TZyText KeyTexts[] = {_sKeyShift, _sKeyCtrl, _sKeyAlt};
  for (std::size_t i = 0; i < Shift.Keys.size(); ++i) AddBesideCheck(Shift.Keys[i], KeyTexts[i], HintText, Click);
}

void TZyGraphSettingsFrame::AddDistances() {
  AddGroup("DistancesGroup", _sGroupDistances);
  AddLine(_sGraphTopBottom);
  AddUpDown("TopUpDown", "DistanceBorderAxisTop");
  AddUpDown("BottomUpDown", "DistanceBorderAxisBottom");
  AddLine(_sGraphLeftRight);
  AddUpDown("LeftUpDown", "DistanceBorderAxisLeft");
  AddUpDown("RightUpDown", "DistanceBorderAxisRight");
  AddGroup("BackgroundGroup", _sGroupBackground);
  AddLine(_sSettingsColor);
  AddColor("BackGrndColorPick", "BackColor");
  AddGradient("BackGradientCheck", "BackGradientFrame", "BackgroundGradient", _sSettingsGradient);
  AddPanel("BottomPanel");
  AddLine(_sGraphSmoothing);
  AddCombo("SmoothingModeCombo", "SmoothingMode", _sGraphSmoothings).SetHint(LoadResString(_sGraphSmoothingHint));
}

// --- The graph ------------------------------------------------------------------------------------------------------

void TZyGraphSettingsFrame::SetGraph(TZyGraph2D* Value) {
  FGraph = Value;
  SetUndoStack(Value == nullptr ? nullptr : Value->UndoStack());
  UpdateCombos();
  UpdateControls();
}

std::vector<TPersistent*> TZyGraphSettingsFrame::Targets() const {
  if (FGraph == nullptr) return {};
  return {FGraph.Get()};
}

void TZyGraphSettingsFrame::SetZoomScrollPanningOptions(bool Value) {
  FZoomScrollPanningOptions = Value;
  ShowPart("ZoomPanGroup", Value);
}

void TZyGraphSettingsFrame::UpdateCombos() {
  auto& XCombo = Part<TZyObjectCombo>("PrimaryXCombo");
  auto& YCombo = Part<TZyObjectCombo>("PrimaryYCombo");
  XCombo.ClearObjects();
  YCombo.ClearObjects();
  if (FGraph == nullptr) return;
  const auto Offer = [&](TZyAxis& Axis) {
    TZyObjectCombo& Combo = Axis.GetHorizontal() ? XCombo : YCombo;
    if (Combo.IndexOfObject(&Axis) < 0) Combo.AddObject(Axis.GetHorizontal() ? "X" : "Y", &Axis);
  };
  FGraph->ForEachAxis(Offer);
  for (TZyAxis* Axis : {FGraph->PrimaryXAxis(), FGraph->PrimaryYAxis()})
    if (Axis != nullptr) Offer(*Axis);
  if (FGraph->Owner() == nullptr) return;
  for (TComponent* Each : FGraph->Owner()->Components()) {
    auto* const Other = dynamic_cast<TZyGraph2D*>(Each);
    if (Other != nullptr && Other->Visible()) Other->ForEachAxis(Offer);
  }
}

void TZyGraphSettingsFrame::ControlsUpdated() {
  for (const TShift* Shift : {&ZoomShift(), &PanShift()}) SetZoomAndPanning(*Shift);
  Part<TZyCaptionEdit>("TitleEdit").SetAlignment(FGraph->CaptionAlignment());
}

// --- What begins zooming and panning --------------------------------------------------------------------------------

void TZyGraphSettingsFrame::SetZoomAndPanning(const TShift& Shift) {
  const TShiftState State = (FGraph->Zoom().*Shift.Get)();
  for (std::size_t i = 0; i < ShiftButtons.size(); ++i) {
    Part<TRadioButton>(Shift.Buttons[i]).SetChecked(State.Contains(ShiftButtons[i]));
    Part<TCheckBox>(Shift.Keys[i]).SetChecked(State.Contains(ShiftKeys[i]));
  }
}

TShiftState TZyGraphSettingsFrame::ShiftOf(const TShift& Shift) const {
  TShiftState Result;
  for (std::size_t i = 0; i < ShiftButtons.size(); ++i) {
    if (Part<TRadioButton>(Shift.Buttons[i]).Checked()) Result.Include(ShiftButtons[i]);
    if (Part<TCheckBox>(Shift.Keys[i]).Checked()) Result.Include(ShiftKeys[i]);
  }
  return Result;
}

/// Two equal ones would not tell a drag that zooms from one that pans.
void TZyGraphSettingsFrame::ShiftClicked(const TShift& Shift) {
  if (FGraph == nullptr) return;
  const TShift& Other = &Shift == &ZoomShift() ? PanShift() : ZoomShift();
  const TShiftState State = ShiftOf(Shift);
  if (State == (FGraph->Zoom().*Other.Get)()) return Application().ShowMessage(LoadResString(_sShiftPann));
  (FGraph->Zoom().*Shift.Set)(State);
}

}  // namespace zy
