#include "dialogs/frames/ZyAxisSettingsFrame.h"

#include <algorithm>
#include <cmath>

#include "annotations/ZyCaptionEdit.h"
#include "dialogs/controls/ZyColorPickCombo.h"
#include "dialogs/controls/ZyNumericUpDn.h"
#include "dialogs/frames/ZyObjectItems.h"
#include "graph/ZyGraph2D.h"
#include "platform/controls/TButtonControl.h"
#include "platform/controls/TPanel.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Graphics.h"
#include "platform/drawing/Pen.h"
#include "platform/framework/SystemColors.h"
#include "platform/framework/TPropInfo.h"
#include "texts/ZySettingsTexts.h"
#include "undo/ZyUndoGroup.h"

namespace zy {

ZY_PUBLISHED(TZyAxisSettingsFrame, TZySettingsFrame)

TZyAxisSettingsFrame::TZyAxisSettingsFrame(TComponent* Owner) : TZySettingsFrame(Owner, TZyAxis::StaticClassInfo()) {
  AddEnds();
  AddCaptions();
  AddScaling();
  AddTicks();
  AddOthers();
  SetExtendedAxisOptions(false);
  AllAdded();
}

TZyAxisSettingsFrame::~TZyAxisSettingsFrame() { Destroying(); }

namespace {

/// Part of the present desktop's colours.
constexpr int WindowText = 8, GrayText = 17, Window = 5;

/// Names of the pictures in the order of the positions.
constexpr const char* PositionImages[] = {"BottomAxisImage", "LeftAxisImage", "TopAxisImage", "RightAxisImage"};

/// A chart's corner with an axis, its numbers and its caption, at one of the four sides: what the distances are
/// between.
void DrawAxisImage(Graphics& Canvas, const TPanel& Panel, TZyAxisPosition Position) {
  constexpr float Axis = 12, Tick = 6, Number = 12, Caption = 34, Edge = 50, Inset = 4;
  const bool IsHorizontal = Position == TZyAxisPosition::Bottom || Position == TZyAxisPosition::Top;
  const bool IsFar = Position == TZyAxisPosition::Bottom || Position == TZyAxisPosition::Right;
  const auto Long = static_cast<float>(IsHorizontal ? Panel.Width() : Panel.Height());
  const auto Across = static_cast<float>(IsHorizontal ? Panel.Height() : Panel.Width());
  const float Data = IsFar ? Across - Edge : Edge;
  const float Outward = IsFar ? 1 : -1;
  const auto At = [&](float Along, float Out) {
    const float Place = Data + Outward * Out;
    return IsHorizontal ? PointF{Along, Place} : PointF{Place, Along};
  };
  const auto Draw = [&](float Width, PointF From, PointF To) {
    Canvas.DrawLine(Pen(SystemColor(WindowText), Width), From.X, From.Y, To.X, To.Y);
  };
  const Pen Gray(SystemColor(GrayText), 1);
  const PointF Corner = At(Inset, 0), Far = At(Long - Inset, -(Across - Edge) + Inset);
  const RectF Box{std::min(Corner.X, Far.X), std::min(Corner.Y, Far.Y), std::fabs(Far.X - Corner.X),
                  std::fabs(Far.Y - Corner.Y)};
  Canvas.FillRectangle(SolidBrush(SystemColor(Window)), Box);
  Canvas.DrawRectangle(Gray, Box.X, Box.Y, Box.Width, Box.Height);
  Draw(1, At(Inset, Axis), At(Long - Inset, Axis));
  const int Steps = IsHorizontal ? 8 : 4;
  for (int Step = 0; Step <= Steps; ++Step) {
    const float Along = Inset + (Long - 2 * Inset) * static_cast<float>(Step) / static_cast<float>(Steps);
    Draw(1, At(Along, Axis), At(Along, Axis + Tick));
    if (Step % 2 == 1) Draw(3, At(Along - 4, Axis + Number), At(Along + 4, Axis + Number));
  }
  Draw(4, At(Long / 2 - 30, Caption), At(Long / 2 + 30, Caption));
}

}  // namespace

// --- Controls -------------------------------------------------------------------------------------------------------

void TZyAxisSettingsFrame::AddEnds() {
  AddPanel("AxStartStopPanel");
  auto& Shown = AddCheck("AxVisibleCheck", "Visible", _sSettingsVisible);
  Shown.SetHint(LoadResString(_sAxisVisibe));
  SetLabel(Shown, _sAxisVisibe);
  AddCheck("AxTwistedCheck", "Twisted", _sAxisTwist);
  AddFreeCheck("AxAutrangeCheck", _sAxisAuto, _sAxisAutoRange, [this] {
    const TZyAxisEnd End = Part<TCheckBox>("AxAutrangeCheck").Checked() ? TZyAxisEnd::AutoRange : TZyAxisEnd::Fixed;
    std::optional<TZyUndoGroup> Group;
    for (TZyAxis* const Axis : SelectedAxes()) {
      if (Axis->StartEnd() == End && Axis->StopEnd() == End) continue;
      if (!Group.has_value()) Group.emplace(UndoStack(), _sAxisAutoRange);
      Axis->SetStartEnd(End);
      Axis->SetStopEnd(End);
    }
  });
  AddLine(_sAxisFrom);
  AddEdit("AxStartEdit", "Start");
  AddCombo("AxStartAutoCombo", "StartEnd", _sAxisStartModes);
  AddLine(_sAxisTo);
  AddEdit("AxStopEdit", "Stop");
  AddCombo("AxStopAutoCombo", "StopEnd", _sAxisStopModes);
  AddLine(_sAxisSlitWidth);
  AddEdit("AxSlitWidthEdit", "MovingSlitWidth");
  AddLine(_sAxisSlitIncrement);
  AddEdit("AxSlitIncrementEdit", "MovingSlitIncrement");
}

void TZyAxisSettingsFrame::AddCaptions() {
  AddGroup("AxCaptionGroup", _sGroupCaption);
  AddCheck("AxCaptionVisibleCheck", "CaptionVisible", _sSettingsVisible);
  AddCheck("AxCaptionHorizontalCheck", "CaptionHorizontalOnVerticalAxis", _sAxisHorizontalCaption);
  AddLine(_sAxisText);
  AddCaption("AxCaptionEdit", "Caption", "CaptionFont", "CaptionColor");
  AddLine(_sSettingsFontAndColor);
  AddFont("AxCaptionFontButton", "CaptionFont");
  AddColor("AxCaptionColorPick", "CaptionColor");
  AddLine(_sSettingsAlignment);
  AddRadio("AxCaptionLeftRadio", "CaptionAlignment", static_cast<int>(TAlignment::taLeftJustify), _sSettingsLeft);
  AddRadio("AxCaptionCenterRadio", "CaptionAlignment", static_cast<int>(TAlignment::taCenter), _sSettingsCenter);
  AddRadio("AxCaptionRightRadio", "CaptionAlignment", static_cast<int>(TAlignment::taRightJustify), _sSettingsRight);
}

void TZyAxisSettingsFrame::AddScaling() {
  constexpr double FullTurn = 360, Turn = 45;
  AddGroup("AxScalingGroup", _sGroupScaling);
  AddSubPanel("AxScalingPanel");
  AddLine(_sAxisKind);
  AddCombo("AxScalingCombo", "Scaling", _sAxisScalings);
  AddLine(_sAxisRounding);
  WithoutGroup(AddCombo("AxEndRoundingCombo", "EndRounding", _sAxisRoundings));
  AddCheck("AxShowNumbersCheck", "NumbersVisible", _sAxisShowNumbers);
  AddFont("AxScalingFontButton", "Font");
  AddColor("AxScalingNumbersColorPick", "NumbersColor");
  AddLine(_sAxisAngle);
  auto& Angle = AddUpDown("AxCaptionAngleEdit", "RubricsAngle", 0, FullTurn, Turn);
  Angle.SetDigits(0);
  AddLine(_sAxisRubricsLabel);
  AddLines("AxRubrixEdit", "Rubrics", "Font", "NumbersColor");
  EndSubPanel();
}

void TZyAxisSettingsFrame::AddTicks() {
  constexpr double LeastFactor = 0.1, MostFactor = 10;
  AddSubPanel("AxTicksPanel");
  AddCheck("AxAutoPartCheck", "AutoTickParts", _sAxisAutoParts);
  AddLine(_sAxisPartitions);
  AddEdit("AxMajorTicksPartEdit", "MajorTickPart");
  AddEdit("AxMinorTicksPartEdit", "TickPart");
  AddEdit("AxNumbersPartEdit", "LabelPart");
  AddLine(_sAxisLineLabel);
  AddColor("AxLineColorPick", "ForeColor");
  AddUpDown("AxLineWidthUpDown", "AxisThicknes");
  AddLine(_sAxisMajorLabel);
  AddColor("AxMajorTicksColorPick", "MajorTickColor");
  AddUpDown("AxMajorTicksWidthUpDown", "MajorTickThicknes");
  AddUpDown("AxMajorTicksLengthUpDown", "MajorTickLength");
  AddLine(_sAxisMinorLabel);
  AddColor("AxMinorTicksColorPick", "TickColor");
  AddUpDown("AxMinorTicksWidthUpDown", "TickThicknes");
  AddUpDown("AxMinorTicksLengthUpDown", "TickLength");
  AddLine(_sAxisLabelsDistance);
  AddUpDown("LabelsDistanceEdit", "LabelDistanceFactor", LeastFactor, MostFactor, LeastFactor);
  AddLine(_sAxisTicksPoint);
  AddRadio("AxTicksToCaptionRadio", "TicksPointToData", 0, _sAxisTicksToCaption);
  AddRadio("AxTicksToDataRadio", "TicksPointToData", 1, _sAxisTicksToData);
  EndSubPanel();
}

void TZyAxisSettingsFrame::AddOthers() {
  AddGroup("ArrowPointGroup", _sGroupArrowPoint);
  AddArrows();
  AddGroup("AxSlaveOptionsGroup", _sGroupSlave);
  AddLine(_sAxisMaster);
  FirstOnly(AddReference("MasterAxisCombo", "MasterAxis"));
  Part<TWinControl>("MasterAxisCombo").SetHint(LoadResString(_sAxisMasterHint));
  AddLine(_sAxisOffset);
  FirstOnly(AddEdit("SlaveOffsetEdit", "SlaveOffset"));
  AddLine(_sAxisSlope);
  FirstOnly(AddEdit("SlaveSlopeEdit", "SlaveSlope"));

  AddGroup("AxDistancesGroup", _sGroupDistances);
  constexpr int Flat = 80, Upright = 110;
  for (int Index = 0; Index < 4; ++Index) {
    const auto Position = static_cast<TZyAxisPosition>(Index);
    AddPicture(PositionImages[Index], Index % 2 == 0 ? Flat : Upright, _sAxisDistancesHint,
               [Position](Graphics& Canvas, TPanel& Panel) { DrawAxisImage(Canvas, Panel, Position); });
  }
  const std::tuple<TZyText, const char*, const char*> Distances[] = {
      {_sAxisDataAxis, "AxDistanceAxisDataUpDown", "DistanceValuesAxis"},
      {_sAxisAxisNumbers, "AxDistanceNumbersAxisUpDown", "DistanceAxisLabels"},
      {_sAxisExponent, "AxDistanceExtraExponentUpDown", "DistanceAxisExtraExponent"},
      {_sAxisNumbersCaption, "AxDistanceCaptionNumbersUpDown", "DistanceNumbersCaption"},
      {_sAxisBorder, "AxDistanceToBorderUpDown", "DistanceToBorder"}};
  for (const auto& [Label, PartName, Path] : Distances) {
    AddLine(Label);
    AddUpDown(PartName, Path);
  }
}

void TZyAxisSettingsFrame::AddArrows() {
  const std::tuple<const char*, const char*, TZyText> Lengths[] = {
      {"ArrPointLengthUpDown", "ArrowPoint.PointLength", _sAxisArrowPointLength},
      {"ArrPointInnerUpDown", "ArrowPoint.InnerLength", _sAxisArrowInnerLength}};
  SetLabel(AddCheck("ArrPointCheck", "ArrowPoint.Visible", _sSettingsVisible), _sAxisArrowVisible);
  AddLine(_sAxisArrowHeight);
  SetLabel(AddUpDown("ArrPointHeightUpDown", "ArrowPoint.PointHeight"), _sAxisArrowPointHeight);
  AddLine(_sAxisArrowLength);
  for (const auto& [PartName, Path, Label] : Lengths) SetLabel(AddUpDown(PartName, Path), Label);
}

// --- The axes -------------------------------------------------------------------------------------------------------

void TZyAxisSettingsFrame::SetSelectedAxis(TZyAxis* Value) {
  FSelectedAxis = Value;
  SetUndoStack(Value == nullptr ? nullptr : Value->UndoStack());
  UpdateControls();
}

void TZyAxisSettingsFrame::SetRelatedAxesList(TZyObjectListBox* List) { FAxesList = List; }

void TZyAxisSettingsFrame::SetExtendedAxisOptions(bool Value) {
  FExtendedAxisOptions = Value;
  for (const char* PartName : {"AxStartAutoCombo", "AxStopAutoCombo", "AxSlaveOptionsGroup", "AxDistancesGroup"})
    ShowPart(PartName, Value);
  ShowPart("AxAutrangeCheck", !Value);
  UpdateControls();
}

/// In the order of the list.
std::vector<TZyAxis*> TZyAxisSettingsFrame::SelectedAxes() const {
  std::vector<TZyAxis*> Result;
  if (FSelectedAxis == nullptr) return Result;
  const auto* const List = static_cast<const TZyObjectListBox*>(FAxesList.Get());
  for (int Index = 0; List != nullptr && Index < List->ObjectCount(); ++Index)
    if (auto* const Axis = dynamic_cast<TZyAxis*>(List->ObjectAt(Index)); Axis != nullptr && List->Selected(Index))
      Result.push_back(Axis);
  if (std::ranges::find(Result, FSelectedAxis.Get()) == Result.end()) Result = {FSelectedAxis};
  return Result;
}

std::vector<TPersistent*> TZyAxisSettingsFrame::Targets() const {
  const std::vector<TZyAxis*> Axes = SelectedAxes();
  return {Axes.begin(), Axes.end()};
}

// --- What depends on the axis ---------------------------------------------------------------------------------------

bool TZyAxisSettingsFrame::IsPrimary() const {
  const auto* const Graph = FSelectedAxis == nullptr ? nullptr : dynamic_cast<TZyGraph2D*>(FSelectedAxis->Parent());
  return Graph != nullptr && (Graph->PrimaryXAxis() == FSelectedAxis || Graph->PrimaryYAxis() == FSelectedAxis);
}

/// Also when the graph has another primary axis, or the axis stands on another side or follows another one, or others
/// run the same way now.
bool TZyAxisSettingsFrame::IsOutdated() {
  return TZySettingsFrame::IsOutdated() ||
         (FSelectedAxis != nullptr && (Standing() != FShownStanding || MastersDiffer(*FSelectedAxis)));
}

void TZyAxisSettingsFrame::ControlsUpdated() {
  const TZyAxis& Axis = *FSelectedAxis;
  FShownStanding = Standing();
  EnablePart("AxVisibleCheck", !IsPrimary());
  EnablePart("AxCaptionHorizontalCheck", !Axis.GetHorizontal());
  if (Axis.GetHorizontal()) Part<TCheckBox>("AxCaptionHorizontalCheck").SetChecked(true);
  Part<TZyCaptionEdit>("AxCaptionEdit").SetAlignment(Axis.CaptionAlignment());
  for (int Index = 0; Index < 4; ++Index) ShowPart(PositionImages[Index], Index == static_cast<int>(Axis.Position()));
  ShowEnds(Axis);
  SetScalingGroup(Axis);
  ShowSlaveOptions(Axis);
}

void TZyAxisSettingsFrame::ShowEnds(const TZyAxis& Axis) {
  const bool IsSlave = Axis.IsSlaveAxis(), IsDate = Axis.Scaling() == TZyAxisScaling::DateTime;
  Part<TCheckBox>("AxAutrangeCheck").SetChecked(Axis.StartEnd() == TZyAxisEnd::AutoRange);
  for (const char* PartName : {"AxScalingCombo", "AxAutrangeCheck", "AxStartAutoCombo", "AxStopAutoCombo"})
    EnablePart(PartName, !IsSlave);
  EnablePart("AxStartEdit", Axis.StartEnd() != TZyAxisEnd::AutoRange && !IsSlave);
  EnablePart("AxStopEdit", Axis.StopEnd() != TZyAxisEnd::AutoRange && !IsSlave);
  for (const char* PartName : {"AxStartEdit", "AxStopEdit"}) Part<TZyDoubleEdit>(PartName).SetAsDateTime(IsDate);
  const bool HasSlit =
      FExtendedAxisOptions && (Axis.StartEnd() == TZyAxisEnd::MovingSlit || Axis.StopEnd() == TZyAxisEnd::MovingSlit);
  for (const char* PartName : {"AxSlitWidthEdit", "AxSlitIncrementEdit"}) {
    Part<TZyDoubleEdit>(PartName).SetAsTimeSpan(IsDate);
    ShowPart(PartName, HasSlit);
  }
}

void TZyAxisSettingsFrame::SetScalingGroup(const TZyAxis& Axis) {
  constexpr int Low = 63, High = 147;
  const bool HasRubrics = Axis.Scaling() == TZyAxisScaling::Rubrics;
  ShowPart("AxRubrixEdit", HasRubrics);
  auto& Panel = Part<TPanel>("AxScalingPanel");
  if (!Panel.HasWidget()) Panel.SetBounds(Panel.Left(), Panel.Top(), Panel.Width(), HasRubrics ? High : Low);
  const bool MayPart = Axis.Scaling() < TZyAxisScaling::Seconds;
  EnablePart("AxAutoPartCheck", MayPart);
  for (const char* PartName : {"AxMajorTicksPartEdit", "AxMinorTicksPartEdit", "AxNumbersPartEdit"})
    EnablePart(PartName, !Axis.AutoTickParts());
}

void TZyAxisSettingsFrame::ShowSlaveOptions(const TZyAxis& Axis) {
  ShowPart("AxSlaveOptionsGroup", FExtendedAxisOptions && !IsPrimary() && SelectedAxes().size() == 1);
  FillMasters(Axis);
  for (const char* PartName : {"SlaveOffsetEdit", "SlaveSlopeEdit"}) EnablePart(PartName, Axis.IsSlaveAxis());
}

/// The axes of the list, or of the graph, that run the same way.
std::vector<TZyAxis*> TZyAxisSettingsFrame::Masters(const TZyAxis& Axis) const {
  std::vector<TZyAxis*> Result;
  const auto Offer = [&](TZyAxis& Other) {
    if (&Other != &Axis && Other.GetHorizontal() == Axis.GetHorizontal()) Result.push_back(&Other);
  };
  if (const auto* const List = static_cast<const TZyObjectListBox*>(FAxesList.Get())) {
    for (int Index = 0; Index < List->ObjectCount(); ++Index)
      if (auto* const Other = dynamic_cast<TZyAxis*>(List->ObjectAt(Index))) Offer(*Other);
  } else if (const auto* const Graph = dynamic_cast<const TZyGraph2D*>(Axis.Parent())) {
    Graph->ForEachAxis(Offer);
  }
  return Result;
}

/// Whether the list offers other axes than there are.
bool TZyAxisSettingsFrame::MastersDiffer(const TZyAxis& Axis) const {
  const auto& Combo = Part<TZyObjectCombo>("MasterAxisCombo");
  int Index = 0;  // of the one before: the first is no axis
  for (const TZyAxis* Master : Masters(Axis))
    if (Combo.ObjectAt(++Index) != Master) return true;
  return Index + 1 != Combo.ObjectCount();
}

void TZyAxisSettingsFrame::FillMasters(const TZyAxis& Axis) {
  auto& Combo = Part<TZyObjectCombo>("MasterAxisCombo");
  Combo.ClearObjects();
  Combo.AddObject(LoadResString(_sNotASlave), nullptr);
  for (TZyAxis* Master : Masters(Axis)) Combo.AddObject("A", Master);
  Combo.SetItemIndex(Axis.MasterAxis() == nullptr ? 0 : Combo.IndexOfObject(Axis.MasterAxis()));
}

}  // namespace zy
