#include "dialogs/frames/ZyCustomLegendSettingsFrame.h"

#include "annotations/ZyCaptionEdit.h"
#include "dialogs/controls/ZyColorPickCombo.h"
#include "dialogs/controls/ZyNumericUpDn.h"
#include "platform/controls/TButtonControl.h"
#include "platform/framework/TPropInfo.h"
#include "texts/ZySettingsTexts.h"

namespace zy {

ZY_PUBLISHED(TZyCustomLegendSettingsFrame, TZySettingsFrame)

TZyCustomLegendSettingsFrame::~TZyCustomLegendSettingsFrame() { Destroying(); }

std::vector<TPersistent*> TZyCustomLegendSettingsFrame::Targets() const {
  if (Legend() == nullptr) return {};
  return {Legend()};
}

void TZyCustomLegendSettingsFrame::AddLook() {
  AddPanel("TopPanel");
  AddCheck("LegendVisibleCheck", "Visible", _sSettingsVisible).SetHint(LoadResString(_sLegendVisible));
  AddLine(_sLegendText);
  SetWriter(AddFont("FontBtn", "Font"),
            [this](TPersistent& Each) { static_cast<TZyCustomLegend&>(Each).SetFont(ChosenFont()); });
  AddColor("FontColorPick", "ForeColor");
  AddGroup("BorderGroup", _sGroupBorder);
  AddCheck("BorderLineCheck", "Frame.Visible", _sLegendBorderLine);
  AddDashes("BorderDashStyles", "Frame.DashStyle");
  AddUpDown("BorderLineWidthUpDown", "Frame.Width");
  AddColor("BorderLineColorPick", "Frame.Color");
  AddGradient("FrameGradientCheck", "FrameGradientFrame", "Frame.Gradient", _sSettingsGradient);
  AddCheck("DropShadowCheck", "DropShadow", _sLegendShadow);
  AddCheck("RaisedCheck", "BorderRaised", _sLegendRaised);
  AddCheck("LoweredCheck", "BorderLowered", _sLegendLowered);
  AddLine(_sLegendRounding);
  AddUpDown("CornerRoundingUpDown", "CornerRounding").SetDigits(0);
  AddGroup("BackgroundGroup", _sGroupBackground);
  AddLine(_sLegendFill);
  AddColor("BackColorPick", "BackColor");
  AddGradient("GradientCheck", "BackGradientFrame", "BackgroundGradient", _sSettingsGradient);
}

void TZyCustomLegendSettingsFrame::AddTitle() {
  AddGroup("TitleGroup", _sGroupTitle);
  AddCheck("TitleVisibleCheck", "CaptionVisible", _sSettingsVisible);
  AddLine(_sAxisText);
  AddCaption("TitleEdit", "Caption", "CaptionFont", "CaptionColor");
  AddLine(_sSettingsFontAndColor);
  SetWriter(AddFont("TitleFontBtn", "CaptionFont"),
            [this](TPersistent& Each) { static_cast<TZyCustomLegend&>(Each).SetCaptionFont(ChosenFont()); });
  AddColor("TitleColorPick", "CaptionColor");
  AddLine(_sSettingsDistances);
  AddUpDown("TopDistUpDown", "CaptionDistanceBefore");
  AddUpDown("BottomDistUpDown", "CaptionDistanceAfter");
  AddLine(_sSettingsAlignment);
  AddRadio("TitleLeftRadio", "CaptionAlignment", static_cast<int>(TAlignment::taLeftJustify), _sSettingsLeft);
  AddRadio("TitleCenterRadio", "CaptionAlignment", static_cast<int>(TAlignment::taCenter), _sSettingsCenter);
  AddRadio("TitleRightRadio", "CaptionAlignment", static_cast<int>(TAlignment::taRightJustify), _sSettingsRight);
}

void TZyCustomLegendSettingsFrame::AddItemsOrder() {
  constexpr double Most = 100;
  AddLine(_sLegendFill);
  AddRadio("ByColumnRadio", "ItemsOrder", static_cast<int>(TZyItemsOrder::ByColumn), _sLegendByColumn);
  AddRadio("ByRowRadio", "ItemsOrder", static_cast<int>(TZyItemsOrder::ByRow), _sLegendByRow);
  AddLine(_sLegendColumnsLabel).SetName("ColumnsLab");
  AddUpDown("ColumnsUpDown", "Columns", 1, Most);
  AddLine(_sLegendRowsLabel).SetName("RowsLab");
  AddUpDown("RowsUpDown", "Rows", 1, Most);
}

void TZyCustomLegendSettingsFrame::AddItemDistances() {
  AddLine(_sLegendToBorder);
  AddUpDown("ToBorderUpDown", "DistanceToBorder");
  AddLine(_sLegendToCaption);
  AddUpDown("ItemCaptionUpDown", "DistanceItemCaption");
  AddLine(_sLegendColumnGap);
  AddUpDown("BetweenColumnsUpDown", "DistanceBetweenColumns");
  AddLine(_sLegendLineGap);
  AddUpDown("BetweenLinesUpDown", "DistanceBetweenLines");
  AddLine(_sLegendSample);
  AddUpDown("ItemHeightUpDown", "ItemHeight");
  AddUpDown("ItemWidthUpDown", "ItemWidth");
}

void TZyCustomLegendSettingsFrame::ControlsUpdated() {
  Part<TZyCaptionEdit>("TitleEdit").SetAlignment(Legend()->CaptionAlignment());
  UpdateEnabled();
}

void TZyCustomLegendSettingsFrame::UpdateEnabled() {
  const bool IsByColumn = Part<TRadioButton>("ByColumnRadio").Checked();
  for (const char* PartName : {"ColumnsLab", "ColumnsUpDown"}) EnablePart(PartName, IsByColumn);
  for (const char* PartName : {"RowsLab", "RowsUpDown"}) EnablePart(PartName, !IsByColumn);
}

}  // namespace zy
