#include "axes/ZyAxis.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "graph/ZyGraph2D.h"
#include "persistence/ZyIO.h"
#include "platform/framework/TPropInfo.h"
#include "platform/framework/TReader.h"
#include "platform/framework/TWriter.h"
#include "series/ZySeries.h"
#include "undo/ZyChange.h"

namespace zy {

ZY_PUBLISHED(
    TZyAxis, TGraphicControl, Published<&TZyAxis::Caption, &TZyAxis::SetCaption>("Caption"),
    Published<static_cast<TZyAxisArrowPoint& (TZyAxis::*)()>(&TZyAxis::ArrowPoint)>("ArrowPoint"),
    Published<&TZyAxis::CaptionAlignment, &TZyAxis::SetCaptionAlignment>("CaptionAlignment", TAlignment::taCenter),
    Published<&TZyAxis::CaptionColor, &TZyAxis::SetCaptionColor>("CaptionColor").NotStored(),
    Published<&TZyAxis::CaptionHorizontalOnVerticalAxis, &TZyAxis::SetCaptionHorizontalOnVerticalAxis>(
        "CaptionHorizontalOnVerticalAxis", false),
    Published<&TZyAxis::CaptionVisible, &TZyAxis::SetCaptionVisible>("CaptionVisible", true),
    Published<&TZyAxis::CaptionDistanceAfter, &TZyAxis::SetCaptionDistanceAfter>("CaptionDistanceAfter", 0.0f),
    Published<&TZyAxis::CaptionDistanceBefore, &TZyAxis::SetCaptionDistanceBefore>("CaptionDistanceBefore", 0.0f),
    Published<&TZyAxis::DistanceNumbersCaption, &TZyAxis::SetDistanceNumbersCaption>("DistanceNumbersCaption")
        .NotStored(),
    Published<&TZyAxis::DistanceToBorder, &TZyAxis::SetDistanceToBorder>("DistanceToBorder").NotStored(),
    Published<&TZyAxis::CaptionFont, &TZyAxis::SetCaptionFont>("CaptionFont"),
    Published<&TZyAxis::Font, &TZyAxis::SetFont>("Font").StoredIf<&TZyAxis::GetStoreFont>(),
    Published<&TZyAxis::ParentFont, &TZyAxis::SetParentFont>("ParentFont", false),
    Published<&TZyAxis::NumbersColor, &TZyAxis::SetNumbersColor>("NumbersColor").NotStored(),
    Published<&TZyAxis::RubricsAngle, &TZyAxis::SetRubricsAngle>("RubricsAngle", 0.0f),
    Published<&TZyAxis::Scaling, &TZyAxis::SetScaling>("Scaling", TZyAxisScaling::Normal),
    Published<&TZyAxis::LogToNormalScalingLevel, &TZyAxis::SetLogToNormalScalingLevel>("LogToNormalScalingLevel", 0.0),
    Published<&TZyAxis::MovingSlitWidth, &TZyAxis::SetMovingSlitWidth>("MovingSlitWidth", 0.0),
    Published<&TZyAxis::MovingSlitIncrement, &TZyAxis::SetMovingSlitIncrement>("MovingSlitIncrement", 0.0),
    Published<&TZyAxis::Rubrics, &TZyAxis::SetRubrics>("Rubrics"),
    Published<&TZyAxis::RubricsField, &TZyAxis::SetRubricsField>("RubricsField", ""),
    Published<&TZyAxis::DataSource, &TZyAxis::SetDataSource>("DataSource"),
    Published<&TZyAxis::NumbersVisible, &TZyAxis::SetNumbersVisible>("NumbersVisible", true),
    Published<&TZyAxis::ForeColor, &TZyAxis::SetForeColor>("ForeColor", Colors::Black),
    Published<&TZyAxis::TickColor, &TZyAxis::SetTickColor>("TickColor"),
    Published<&TZyAxis::MajorTickColor, &TZyAxis::SetMajorTickColor>("MajorTickColor"),
    Published<&TZyAxis::Position, &TZyAxis::SetPosition>("Position", TZyAxisPosition::Bottom),
    Published<&TZyAxis::Twisted, &TZyAxis::SetTwisted>("Twisted", false),
    Published<&TZyAxis::AutoTickParts, &TZyAxis::SetAutoTickParts>("AutoTickParts", true),
    Published<&TZyAxis::LabelPart, &TZyAxis::SetLabelPart>("LabelPart").StoredIf<&TZyAxis::HasOwnTickParts>(),
    Published<&TZyAxis::MajorTickPart, &TZyAxis::SetMajorTickPart>("MajorTickPart")
        .StoredIf<&TZyAxis::HasOwnTickParts>(),
    Published<&TZyAxis::TickPart, &TZyAxis::SetTickPart>("TickPart").StoredIf<&TZyAxis::HasOwnTickParts>(),
    Published<&TZyAxis::MajorGridMode, &TZyAxis::SetMajorGridMode>("MajorGridMode", TZyMajorGridMode::AtLabel),
    Published<&TZyAxis::IsSlaveAxis, &TZyAxis::SetIsSlaveAxis>("IsSlaveAxis", false),
    Published<&TZyAxis::SlaveSlope, &TZyAxis::SetSlaveSlope>("SlaveSlope", 1.0),
    Published<&TZyAxis::SlaveOffset, &TZyAxis::SetSlaveOffset>("SlaveOffset", 0.0),
    Published<&TZyAxis::MasterAxis, &TZyAxis::SetMasterAxis>("MasterAxis"),
    Published<&TZyAxis::StartPadding, &TZyAxis::SetStartPadding>("StartPadding", 0.0),
    Published<&TZyAxis::StopPadding, &TZyAxis::SetStopPadding>("StopPadding", 0.0),
    Published<&TZyAxis::EndRounding, &TZyAxis::SetEndRounding>("EndRounding",
                                                               TZyAxisEndRounding::RndToMajorZoomToMinor),
    Published<&TZyAxis::MaxForExtraExponent, &TZyAxis::SetMaxForExtraExponent>("MaxForExtraExponent", 1000.0),
    Published<&TZyAxis::MinForExtraExponent, &TZyAxis::SetMinForExtraExponent>("MinForExtraExponent", 0.001),
    Published<&TZyAxis::DistanceAxisExtraExponent, &TZyAxis::SetDistanceAxisExtraExponent>("DistanceAxisExtraExponent",
                                                                                           10.0f),
    Published<&TZyAxis::OnGetScaleLabel>("OnGetScaleLabel"), Published<&TZyAxis::OnGetTicks>("OnGetTicks"),
    Published<&TZyAxis::OnCalculated>("OnCalculated"),
    Published<&TZyAxis::TicksPointToData, &TZyAxis::SetTicksPointToData>("TicksPointToData", false),
    Published<&TZyAxis::AxisThicknes, &TZyAxis::SetAxisThicknes>("AxisThicknes", 1.0f),
    Published<&TZyAxis::MajorTickThicknes, &TZyAxis::SetMajorTickThicknes>("MajorTickThicknes", 1.0f),
    Published<&TZyAxis::TickThicknes, &TZyAxis::SetTickThicknes>("TickThicknes", 1.0f),
    Published<&TZyAxis::TickLength, &TZyAxis::SetTickLength>("TickLength", 6.0f),
    Published<&TZyAxis::MajorTickLength, &TZyAxis::SetMajorTickLength>("MajorTickLength", 10.0f),
    Published<&TZyAxis::LabelDistanceFactor, &TZyAxis::SetLabelDistanceFactor>("LabelDistanceFactor", 1.0f),
    Published<&TZyAxis::ExtraDigits, &TZyAxis::SetExtraDigits>("ExtraDigits", 0),
    Published<&TZyAxis::DistanceValuesAxis, &TZyAxis::SetDistanceValuesAxis>("DistanceValuesAxis", 0.0f),
    Published<&TZyAxis::DistanceAxisLabels, &TZyAxis::SetDistanceAxisLabels>("DistanceAxisLabels", 0.0f),
    Published<&TZyAxis::Start, &TZyAxis::SetStart>("Start").NotStored(),
    Published<&TZyAxis::Stop, &TZyAxis::SetStop>("Stop").NotStored(),
    Published<&TZyAxis::StartEnd, &TZyAxis::SetStartEnd>("StartEnd", TZyAxisEnd::AutoRange),
    Published<&TZyAxis::StopEnd, &TZyAxis::SetStopEnd>("StopEnd", TZyAxisEnd::AutoRange))

TZyAxis::TZyAxis(TComponent* Owner)
    : TGraphicControl(Owner),
      FArrowPoint([this] { Modified(); }),
      FFont([this] { NumbersFontChanged(); }),
      FCaptionRec([this] { FontChanged(); }),
      FValuesStart(std::numeric_limits<double>::max()),
      FValuesStop(-std::numeric_limits<double>::max()) {
  SetBounds(0, 0, 400, 20);
  TGraphicControl::SetAutoSize(true);
  SetParentFont(false);
  SetControlStyle({csCaptureMouse, csClickEvents, csDoubleClicks, csParentBackground});
  FFont.SetName("Arial");
  FFont.SetSize(12);
  FFont.SetStyle({TFontStyle::Bold});
  FFont.SetFillColor(Colors::DarkBlue);
  FFont.OnNeedsResize = [this] { NumbersFontChanged(); };
  TZyFont& CaptionFont = FCaptionRec.CaptionFont();
  CaptionFont.SetName("Times New Roman");
  CaptionFont.SetSize(14);
  CaptionFont.SetStyle({TFontStyle::Bold});
  CaptionFont.SetFillColor(Colors::DarkRed);
  CaptionFont.OnNeedsResize = [this] { Modified(); };
  FCaptionRec.OnVariablesChanged = [this] { Modified(); };
  SetUpRubrics();
}

TZyAxis::~TZyAxis() {
  Destroying();
  if (TZyGraph2D* const Parent = Graph(); Parent != nullptr && !Parent->IsDestroying()) Parent->Modified();
}

TZyGraph2D* TZyAxis::Graph() const { return dynamic_cast<TZyGraph2D*>(Parent()); }

bool TZyAxis::Panning() const {
  const TZyGraph2D* const Parent = Graph();
  return Parent != nullptr && Parent->Panning();
}

/// Ends that follow the fingers are not rounded.
bool TZyAxis::KeepsEnds() const {
  const TZyGraph2D* const Parent = Graph();
  return Parent != nullptr && (Parent->Panning() || Parent->Pinching());
}

/// Undo writes what was there: no limit and no dependence on another property changes it then.
bool TZyAxis::Restoring() const { return FUndoStack != nullptr && FUndoStack->Restoring(); }

// --- Change protocol ------------------------------------------------------------------------------------------------

void TZyAxis::DoInvalidate() {
  if (Parent() != nullptr) Invalidate();
}

void TZyAxis::Modified() {
  FNeedsRecalculate = true;
  FValuesRounded = false;
  DoInvalidate();
}

void TZyAxis::NumbersFontChanged() {
  FNumbersFont.FontChanged();
  FontChanged();
}

void TZyAxis::ParentFontChanged() {
  TGraphicControl::ParentFontChanged();
  FNumbersFont.Take();
}

void TZyAxis::FontChanged() {
  if (!FSettingColor) Modified();
}

void TZyAxis::SetParent(TWinControl* Value) {
  if (Value == Parent()) return;
  TGraphicControl::SetParent(Value);
  if (IsDestroying()) return;
  const std::vector<TZySeries*> Related = FRelatedSeries;  // series may leave while they follow the axis
  for (TZySeries* Series : Related) Series->TestAllAssigned();
  Modified();
  const TZyGraph2D* const NewGraph = Graph();
  if (NewGraph != nullptr && IsDesigning() && !IsLoading() && !NewGraph->DoingPrimary()) PlaceAsDesigned();
}

/// The designer drops a new axis near the side where it is wanted. The diagonals of the graph divide it into the four
/// sides' triangles.
void TZyAxis::PlaceAsDesigned() {
  TZyGraph2D& NewGraph = *Graph();
  const double Width = std::max(NewGraph.Width(), 1);
  const double Slope = NewGraph.Height() / Width;
  const bool BelowFalling = Top() > Left() * Slope;
  const bool BelowRising = Top() > (Width - Left()) * Slope;
  if (BelowFalling) {
    FPosition = BelowRising ? TZyAxisPosition::Bottom : TZyAxisPosition::Left;
  } else {
    FPosition = BelowRising ? TZyAxisPosition::Right : TZyAxisPosition::Top;
  }
  if (GetHorizontal()) {
    SetBounds(0, Top(), NewGraph.Width(), Height());
  } else {
    SetBounds(Left(), 0, TControl::Width(), NewGraph.Height());
  }
  Calculate();
  if (FUndoStack == nullptr) SetUndoStack(NewGraph.UndoStack());
  NewGraph.Modified();
}

/// A layout that shows an axis because the chart needs it is no step of the user's.
void TZyAxis::VisibleChanging() {
  if (FUndoStack != nullptr && !LayoutRunning) FUndoStack->PushProperty(this, LoadResString(_sAxisVisibe), "Visible");
  TGraphicControl::VisibleChanging();
}

void TZyAxis::CMVisibleChanged() {
  TGraphicControl::CMVisibleChanged();
  if (TZyGraph2D* const Parent = Graph(); Parent != nullptr && !LayoutRunning) Parent->Modified();
}

void TZyAxis::Click() {
  if (TZyGraph2D* const Parent = Graph()) Parent->Click();
  TGraphicControl::Click();
}

void TZyAxis::DblClick() {
  if (TZyGraph2D* const Parent = Graph()) Parent->DblClick();
  TGraphicControl::DblClick();
}

void TZyAxis::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
  if (TZyGraph2D* const Parent = Graph()) Parent->MouseDown(Button, Shift, X + Left(), Y + Top());
  TGraphicControl::MouseDown(Button, Shift, X, Y);
}

void TZyAxis::MouseMove(TShiftState Shift, int X, int Y) {
  if (TZyGraph2D* const Parent = Graph()) Parent->MouseMove(Shift, X + Left(), Y + Top());
  TGraphicControl::MouseMove(Shift, X, Y);
}

void TZyAxis::MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) {
  if (TZyGraph2D* const Parent = Graph()) Parent->MouseUp(Button, Shift, X + Left(), Y + Top());
  TGraphicControl::MouseUp(Button, Shift, X, Y);
}

void TZyAxis::Resize() {
  CheckResize();
  TGraphicControl::Resize();
}

void TZyAxis::SetName(const std::string& Value) {
  if (IsDesigning() && !FCaptionSet) {
    SetCaption(Value);
    FCaptionSet = false;
  }
  TGraphicControl::SetName(Value);
}

void TZyAxis::Notification(TComponent* AComponent, TOperation Operation) {
  TGraphicControl::Notification(AComponent, Operation);
  if (Operation == TOperation::Remove && AComponent == FUndoStack) SetUndoStack(nullptr);
  if (Operation == TOperation::Remove && AComponent == FDataSource) SetDataSource(nullptr);
  if (Operation == TOperation::Remove && AComponent == FMasterAxis) {
    FMasterAxis = nullptr;
    FIsSlaveAxis = false;
    if (!IsDestroying()) Modified();
  }
}

/// The ends are streamed as texts, so that every value comes back to the last bit and reads well.
void TZyAxis::DefineProperties(TFiler& Filer) {
  TGraphicControl::DefineProperties(Filer);
  const auto DefineEnd = [this, &Filer](std::string_view EndName, double& End, double& InitialEnd, double& LastEnd) {
    Filer.DefineProperty(
        EndName,
        [&](TReader& Reader) {
          const double Value = GetFloatFromStringOrFloat(Reader);
          if (!std::isfinite(Value)) return;
          End = InitialEnd = LastEnd = Value;
          Modified();
        },
        [&](TWriter& Writer) { StoreFloatToString(Writer, InitialEnd); }, true);
  };
  DefineEnd("StartText", FStart, FInitialStart, FLastStart);
  DefineEnd("StopText", FStop, FInitialStop, FLastStop);
}

bool TZyAxis::AddRelatedSeries(TZySeries* Series) {
  if (std::find(FRelatedSeries.begin(), FRelatedSeries.end(), Series) != FRelatedSeries.end()) return false;
  FRelatedSeries.push_back(Series);
  return true;
}

void TZyAxis::RemoveRelatedSeries(TZySeries* Series) {
  if (std::erase(FRelatedSeries, Series) > 0) RangeModified();
}

void TZyAxis::SetUndoStack(TZyUndoStack* Value) {
  FUndoStack = Value;
  FArrowPoint.SetUndoStack(Value);
}

}  // namespace zy
