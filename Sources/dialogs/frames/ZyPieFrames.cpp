#include "dialogs/frames/ZyPieFrames.h"

#include <tuple>

#include "annotations/ZyCaptionEdit.h"
#include "dialogs/controls/ZyColorPickCombo.h"
#include "dialogs/controls/ZyNumericUpDn.h"
#include "dialogs/frames/ZyFillPaletteFrame.h"
#include "platform/controls/TButtonControl.h"
#include "platform/controls/TCustomComboBox.h"
#include "platform/framework/TPropInfo.h"
#include "texts/ZySettingsTexts.h"
#include "undo/ZyUndoGroup.h"

namespace zy {

ZY_PUBLISHED(TZyPieFrame, TZySettingsFrame)
ZY_PUBLISHED(TZyPieGeneralSettingsFrame, TZyPieFrame)
ZY_PUBLISHED(TZyPieDonutFillFrame, TZyPieFrame)
ZY_PUBLISHED(TZyPieLabelsFrame, TZyPieFrame)
ZY_PUBLISHED(TZyPieLegendSettingsFrame, TZyCustomLegendSettingsFrame)

TZyPieFrame::TZyPieFrame(TComponent* Owner) : TZySettingsFrame(Owner, TZyPieChart::StaticClassInfo()) {}

TZyPieFrame::~TZyPieFrame() { Destroying(); }

void TZyPieFrame::SetPieChart(TZyPieChart* Value) {
  FPieChart = Value;
  SetUndoStack(Value == nullptr ? nullptr : Value->UndoStack());
  UpdateControls();
}

std::vector<TPersistent*> TZyPieFrame::Targets() const {
  if (FPieChart == nullptr) return {};
  return {FPieChart.Get()};
}

// --- Canvas and title -----------------------------------------------------------------------------------------------

TZyPieGeneralSettingsFrame::TZyPieGeneralSettingsFrame(TComponent* Owner) : TZyPieFrame(Owner) {
  AddGroup("CanvasGroup", _sGroupCanvas);
  AddLine(_sGraphTopBottom);
  AddUpDown("TopUpDown", "DistanceAtTop");
  AddUpDown("BottomUpDown", "DistanceAtBottom");
  AddLine(_sGraphLeftRight);
  AddUpDown("LeftUpDown", "DistanceAtLeft");
  AddUpDown("RightUpDown", "DistanceAtRight");
  AddLine(_sGroupBackground);
  AddColor("BackGrndColorPick", "BackColor");
  AddGradient("BackGradientCheck", "BackGradientFrame", "BackgroundGradient", _sSettingsGradient);
  AddGroup("TitleGroup", _sGroupTitle);
  AddCheck("TitleVisibleCheck", "CaptionVisible", _sSettingsVisible);
  AddLine(_sAxisText);
  AddCaption("TitleEdit", "Caption", "CaptionFont", "CaptionColor");
  AddLine(_sSettingsFontAndColor);
  SetWriter(AddFont("TitleFontBtn", "CaptionFont"),
            [this](TPersistent& Each) { static_cast<TZyPieChart&>(Each).SetCaptionFont(ChosenFont()); });
  AddColor("TitleColorPick", "CaptionColor");
  AddLine(_sSettingsDistances);
  AddUpDown("TopDistUpDown", "CaptionDistanceBefore");
  AddUpDown("BottomDistUpDown", "CaptionDistanceAfter");
  AllAdded();
}

TZyPieGeneralSettingsFrame::~TZyPieGeneralSettingsFrame() { Destroying(); }

void TZyPieGeneralSettingsFrame::ControlsUpdated() {
  Part<TZyCaptionEdit>("TitleEdit").SetAlignment(PieChart()->CaptionAlignment());
}

// --- Shape and fills ------------------------------------------------------------------------------------------------

TZyPieDonutFillFrame::TZyPieDonutFillFrame(TComponent* Owner) : TZyPieFrame(Owner) {
  constexpr double LeastHeight = 0.001;
  AddGroup("ChartGroup", _sGroupChart);
  AddLine(_sPieType);
  AddCombo("ChartTypeCombo", "PieChartType", _sPieTypes);
  AddLine(_sPieHole);
  AddUpDown("DonutHoleUpDn", "DonutHoleSize", 1, 99);
  AddLine(_sPieElevation);
  AddUpDown("ElevationUpDn", "ThreeDElevation", 10, 80, 5);
  AddUpDown("PieHeightUpDn", "ThreeDPieHeight", LeastHeight, 100, 2);
  AddLine(_sPieAngles);
  AddUpDown("StartAngleUpDn", "StartAngle", 0, 360, 5);
  AddUpDown("TotalAngleUpDn", "TotalAngle", 10, 360, 5);
  AddCheck("DropShadowCheck", "DropShadow", _sLegendShadow);
  AddCheck("OrderAscendingCheck", "OrderAscending", _sPieOrder);
  AddGroup("SegmentsGroup", _sGroupSegments);
  AddCheck("BorderLineCheck", "SegmentBorder.Visible", _sPieBorder);
  AddUpDown("BorderWidthUpDown", "SegmentBorder.Width");
  AddColor("BorderColorPick", "SegmentBorder.Color");
  FillPaletteFrame = new TZyFillPaletteFrame(this);
  FillPaletteFrame->SetName("FillPaletteFrame");
  AddWide(*FillPaletteFrame);
  AllAdded();
}

TZyPieDonutFillFrame::~TZyPieDonutFillFrame() { Destroying(); }

void TZyPieDonutFillFrame::SetPieChart(TZyPieChart* Value) {
  FillPaletteFrame->SetPalette(Value == nullptr ? nullptr : Value->SegmentSettingsPalette());
  TZyPieFrame::SetPieChart(Value);
}

/// The chart may have another palette by now.
void TZyPieDonutFillFrame::ControlsUpdated() {
  if (FillPaletteFrame->Palette() != PieChart()->SegmentSettingsPalette())
    FillPaletteFrame->SetPalette(PieChart()->SegmentSettingsPalette());
  else
    FillPaletteFrame->UpdateControls();
}

// --- Labels ---------------------------------------------------------------------------------------------------------

TZyPieLabelsFrame::TZyPieLabelsFrame(TComponent* Owner) : TZyPieFrame(Owner) {
  AddText();
  AddCallouts();
  AllAdded();
}

TZyPieLabelsFrame::~TZyPieLabelsFrame() { Destroying(); }

void TZyPieLabelsFrame::AddText() {
  constexpr double SizeStep = 0.05;
  AddGroup("TextGroup", _sGroupText);
  AddLine(_sLabelsPosition);
  AddCombo("LabelPositionCombo", "LabelPosition", _sPieLabelPositions);
  AddLine(_sLabelsFrom);
  AddCombo("LabFromCombo", "LabelFrom", _sLabelSources);
  AddLine(_sLabelsFormat);
  Inherited::AddText("LabFormatEdit", "LabelFormat", _sLabelsFormatHint);
  AddLine(_sLabelsSize);
  AddUpDown("LabSizeUpDown", "LabelSize", 0, 100, SizeStep);
  SetWriter(AddFont("FontButton", "Font"),
            [this](TPersistent& Each) { static_cast<TZyPieChart&>(Each).SetFont(ChosenFont()); });
  AddColor("LabelColorPick", "LabelColor");
  AddGroup("CaptionsGroup", _sGroupCaptions);
  auto& Captions = AddLines("CaptionsEdit", "Captions", "Font", "LabelColor");
  SetWriter(Captions, [this, &Captions](TPersistent& Object) {
    auto& Chart = static_cast<TZyPieChart&>(Object);
    if (Chart.Captions() == nullptr) return;
    const TZyUndoGroup Group(UndoStack(), _sPieCaptions);
    TakeLines(Captions, *Chart.Captions());
  });
}

void TZyPieLabelsFrame::AddCallouts() {
  constexpr double Far = 1000, Near = 200, Step = 5;
  AddGroup("CalloutGroup", _sGroupCallouts);
  AddLine(_sCalloutDistanceLabel);
  AddUpDown("CalloutPieDistanceUpDn", "CalloutDistanceToPie", 0, Far, Step);
  AddCheck("CalloutFrameCheck", "CalloutFrame.Visible", _sLegendBorderLine);
  AddUpDown("CalloutBorderWidthUpDn", "CalloutFrame.Width");
  AddColor("CalloutBorderColorPick", "CalloutFrame.Color");
  AddLine(_sCalloutSpace);
  AddUpDown("CalloutBorderSpaceUpDn", "CalloutSpaceToBorder", 0, Near, Step);
  AddLine(_sLegendRounding);
  AddUpDown("CalloutCornerUpDn", "CalloutRounding", 0, Near, Step);
  AddLine(_sCalloutArrows);
  AddCombo("ArrowVisbleModeCombo", "CalloutArrowVisibleMode", _sCalloutArrowModes);
  AddLine(_sCalloutArrowLine);
  AddUpDown("ArrowLineWidthUpDown", "CalloutArrow.Width");
  AddColor("ArrowColorPick", "CalloutArrow.Color");
  AddLine(_sAxisArrowHeight);
  AddUpDown("ArrowHeightUpDown", "CalloutArrow.PointHeight");
  AddLine(_sAxisArrowLength);
  AddUpDown("ArrowPointLengthUpDown", "CalloutArrow.PointLength");
  AddUpDown("ArrowInnerLengthUpDown", "CalloutArrow.InnerLength");
  AddCheck("CalloutRaisedCheck", "CalloutRaised", _sLegendRaised);
  AddCheck("CalloutLoweredCheck", "CalloutLowered", _sLegendLowered);
  AddCheck("CalloutShadowCheck", "CalloutShadow", _sLegendShadow);
  AddLine(_sLegendFill);
  AddColor("CalloutBackColorPick", "CalloutBackColor");
  AddCheck("CalloutGradientCheck", "CalloutGradient.Visible", _sSettingsGradient);
  AddSubPanel("CalloutGradientPanel");
  AddGradientFrame("CalloutGradientFrame", "CalloutGradient");
  EndSubPanel();
  Exclude(
      {"CalloutFrameCheck", "CalloutRaisedCheck", "CalloutLoweredCheck", "CalloutShadowCheck", "CalloutGradientCheck"});
}

// --- Legends --------------------------------------------------------------------------------------------------------

TZyPieLegendSettingsFrame::TZyPieLegendSettingsFrame(TComponent* Owner)
    : TZyCustomLegendSettingsFrame(Owner, TZyPieLegend::StaticClassInfo()) {
  AddLook();
  AddTitle();
  AddGroup("LayoutGroup", _sGroupLayout);
  AddLine(_sSettingsPosition);
  AddCombo("PositionCombo", "Position", _sPieLegendPositions);
  AddLine(_sLabelsFrom);
  AddCombo("LabFromCombo", "LabelsFrom", _sLabelSources);
  AddLine(_sLabelsFormat);
  AddText("LabFormatEdit", "LabelFormat", _sLabelsFormatHint);
  AddItemsOrder();
  AddGroup("DistancesGroup", _sGroupDistances);
  AddLine(_sPieLegendToPie);
  AddUpDown("ToPieUpDn", "DistanceToPie", 0, 100, 2).SetHint(LoadResString(_sPieLegendToPieHint));
  AddItemDistances();
  Exclude({"BorderLineCheck", "RaisedCheck", "LoweredCheck", "DropShadowCheck", "FrameGradientCheck"});
  AllAdded();
}

TZyPieLegendSettingsFrame::~TZyPieLegendSettingsFrame() { Destroying(); }

void TZyPieLegendSettingsFrame::SetLegend(TZyPieLegend* Value) {
  FLegend = Value;
  SetUndoStack(Value == nullptr ? nullptr : Value->UndoStack());
  UpdateControls();
}

}  // namespace zy
