#include "axes/ZyAxis.h"

#include <algorithm>
#include <cmath>

#include "graph/parts/ZyAxisGraph.h"
#include "persistence/ZyIO.h"
#include "platform/controls/TWinControl.h"
#include "platform/framework/TPropInfo.h"
#include "platform/framework/TReader.h"
#include "platform/framework/TWriter.h"

namespace zy {

ZY_PUBLISHED(
    TZyAxis, TGraphicControl, Published<&TZyAxis::Caption, &TZyAxis::SetCaption>("Caption", _sAxisCaption),
    Published<static_cast<TZyAxisArrowPoint& (TZyAxis::*)()>(&TZyAxis::ArrowPoint)>("ArrowPoint"),
    Published<&TZyAxis::CaptionAlignment, &TZyAxis::SetCaptionAlignment>("CaptionAlignment", TAlignment::taCenter,
                                                                         _sAxisCaptionAlignment),
    Published<&TZyAxis::CaptionColor, &TZyAxis::SetCaptionColor>("CaptionColor", _sAxisCaptionColor).NotStored(),
    Published<&TZyAxis::CaptionHorizontalOnVerticalAxis, &TZyAxis::SetCaptionHorizontalOnVerticalAxis>(
        "CaptionHorizontalOnVerticalAxis", false, _sAxisHorizontalCaptiononVerticalAxis),
    Published<&TZyAxis::CaptionVisible, &TZyAxis::SetCaptionVisible>("CaptionVisible", true, _sAxisCaptionVisible),
    Published<&TZyAxis::CaptionDistanceAfter, &TZyAxis::SetCaptionDistanceAfter>("CaptionDistanceAfter", 0.0f,
                                                                                 _sAxisCaptionDistanceAfter),
    Published<&TZyAxis::CaptionDistanceBefore, &TZyAxis::SetCaptionDistanceBefore>("CaptionDistanceBefore", 0.0f,
                                                                                   _sAxisCaptionDistanceBefore),
    Published<&TZyAxis::DistanceNumbersCaption, &TZyAxis::SetDistanceNumbersCaption>("DistanceNumbersCaption",
                                                                                     _sAxisDistanceNumbersCaption)
        .NotStored(),
    Published<&TZyAxis::DistanceToBorder, &TZyAxis::SetDistanceToBorder>("DistanceToBorder", _sAxisDistanceToBorder)
        .NotStored(),
    Published<&TZyAxis::CaptionFont, &TZyAxis::SetCaptionFont>("CaptionFont", _sAxisCaptionFont),
    Published<&TZyAxis::Font, &TZyAxis::SetFont>("Font", _sAxisFont).StoredIf<&TZyAxis::GetStoreFont>(),
    Published<&TZyAxis::ParentFont, &TZyAxis::SetParentFont>("ParentFont", false),
    Published<&TZyAxis::NumbersColor, &TZyAxis::SetNumbersColor>("NumbersColor", _sAxisNumbersColor).NotStored(),
    Published<&TZyAxis::RubricsAngle, &TZyAxis::SetRubricsAngle>("RubricsAngle", 0.0f, _sAxisRubricsAngle),
    Published<&TZyAxis::Scaling, &TZyAxis::SetScaling>("Scaling", TZyAxisScaling::Normal, _sAxisScaling),
    Published<&TZyAxis::LogToNormalScalingLevel, &TZyAxis::SetLogToNormalScalingLevel>("LogToNormalScalingLevel", 0.0,
                                                                                       _sAxisLogToNormalScalingLevel),
    Published<&TZyAxis::MovingSlitWidth, &TZyAxis::SetMovingSlitWidth>("MovingSlitWidth", 0.0, _sAxisMovingSlitWidth),
    Published<&TZyAxis::MovingSlitIncrement, &TZyAxis::SetMovingSlitIncrement>("MovingSlitIncrement", 0.0,
                                                                               _sAxisMovingSlitIncrement),
    Published<&TZyAxis::Rubrics, &TZyAxis::SetRubrics>("Rubrics", _sAxisRubrics),
    Published<&TZyAxis::RubricsField, &TZyAxis::SetRubricsField>("RubricsField", ""),
    Published<&TZyAxis::DataSource, &TZyAxis::SetDataSource>("DataSource"),
    Published<&TZyAxis::NumbersVisible, &TZyAxis::SetNumbersVisible>("NumbersVisible", true, _sAxisNumbersVisible),
    Published<&TZyAxis::ForeColor, &TZyAxis::SetForeColor>("ForeColor", Colors::Black, _sAxisForeColor),
    Published<&TZyAxis::TickColor, &TZyAxis::SetTickColor>("TickColor", _sAxisTickColor),
    Published<&TZyAxis::MajorTickColor, &TZyAxis::SetMajorTickColor>("MajorTickColor", _sAxisMajorTickColor),
    Published<&TZyAxis::Position, &TZyAxis::SetPosition>("Position", TZyAxisPosition::Bottom, _sAxisPosition),
    Published<&TZyAxis::Twisted, &TZyAxis::SetTwisted>("Twisted", false, _sAxisTwisted),
    Published<&TZyAxis::AutoTickParts, &TZyAxis::SetAutoTickParts>("AutoTickParts", true, _sAxisAutoTickParts),
    Published<&TZyAxis::LabelPart, &TZyAxis::SetLabelPart>("LabelPart", _sAxisLabelPart)
        .StoredIf<&TZyAxis::HasOwnTickParts>(),
    Published<&TZyAxis::MajorTickPart, &TZyAxis::SetMajorTickPart>("MajorTickPart", _sAxisMajorTickPart)
        .StoredIf<&TZyAxis::HasOwnTickParts>(),
    Published<&TZyAxis::TickPart, &TZyAxis::SetTickPart>("TickPart", _sAxisTickPart)
        .StoredIf<&TZyAxis::HasOwnTickParts>(),
    Published<&TZyAxis::MajorGridMode, &TZyAxis::SetMajorGridMode>("MajorGridMode", TZyMajorGridMode::AtLabel,
                                                                   _sMajorGridMode),
    Published<&TZyAxis::IsSlaveAxis, &TZyAxis::SetIsSlaveAxis>("IsSlaveAxis", false, _sAxisIsSlaveAxis),
    Published<&TZyAxis::SlaveSlope, &TZyAxis::SetSlaveSlope>("SlaveSlope", 1.0, _sAxisSlaveSlope),
    Published<&TZyAxis::SlaveOffset, &TZyAxis::SetSlaveOffset>("SlaveOffset", 0.0, _sAxisSlaveOffset),
    Published<&TZyAxis::MasterAxis, &TZyAxis::SetMasterAxis>("MasterAxis", _sAxisMasterAxis),
    Published<&TZyAxis::StartPadding, &TZyAxis::SetStartPadding>("StartPadding", 0.0),
    Published<&TZyAxis::StopPadding, &TZyAxis::SetStopPadding>("StopPadding", 0.0),
    Published<&TZyAxis::EndRounding, &TZyAxis::SetEndRounding>("EndRounding", TZyAxisEndRounding::RndToMajorZoomToMinor,
                                                               _sAxisEndRounding),
    Published<&TZyAxis::MaxForExtraExponent, &TZyAxis::SetMaxForExtraExponent>("MaxForExtraExponent", 1000.0,
                                                                               _sAxisMaxForExtraExponent),
    Published<&TZyAxis::MinForExtraExponent, &TZyAxis::SetMinForExtraExponent>("MinForExtraExponent", 0.001,
                                                                               _sAxisMinForExtraExponent),
    Published<&TZyAxis::DistanceAxisExtraExponent, &TZyAxis::SetDistanceAxisExtraExponent>(
        "DistanceAxisExtraExponent", 10.0f, _sAxisDistanceAxisExtraExponent),
    Published<&TZyAxis::OnGetScaleLabel>("OnGetScaleLabel"), Published<&TZyAxis::OnGetTicks>("OnGetTicks"),
    Published<&TZyAxis::OnCalculated>("OnCalculated"),
    Published<&TZyAxis::TicksPointToData, &TZyAxis::SetTicksPointToData>("TicksPointToData", false,
                                                                         _sAxisTicksPointToData),
    Published<&TZyAxis::AxisThicknes, &TZyAxis::SetAxisThicknes>("AxisThicknes", 1.0f, _sAxisThicknes),
    Published<&TZyAxis::MajorTickThicknes, &TZyAxis::SetMajorTickThicknes>("MajorTickThicknes", 1.0f,
                                                                           _sAxisMajorTickThicknes),
    Published<&TZyAxis::TickThicknes, &TZyAxis::SetTickThicknes>("TickThicknes", 1.0f, _sAxisTickThicknes),
    Published<&TZyAxis::TickLength, &TZyAxis::SetTickLength>("TickLength", 6.0f, _sAxisTickLength),
    Published<&TZyAxis::MajorTickLength, &TZyAxis::SetMajorTickLength>("MajorTickLength", 10.0f, _sAxisMajorTickLength),
    Published<&TZyAxis::LabelDistanceFactor, &TZyAxis::SetLabelDistanceFactor>("LabelDistanceFactor", 1.0f,
                                                                               _sAxisLabelDistanceFactor)
        .Clamped(0.1f, 10.0f),
    Published<&TZyAxis::ExtraDigits, &TZyAxis::SetExtraDigits>("ExtraDigits", 0, _sAxisExtraDigits),
    Published<&TZyAxis::DistanceValuesAxis, &TZyAxis::SetDistanceValuesAxis>("DistanceValuesAxis", 0.0f,
                                                                             _sAxisDistanceValuesAxis),
    Published<&TZyAxis::DistanceAxisLabels, &TZyAxis::SetDistanceAxisLabels>("DistanceAxisLabels", 0.0f,
                                                                             _sAxisDistanceAxisLabels),
    Published<&TZyAxis::Start, &TZyAxis::SetStart>("Start", _sAxisStart).NotStored(),
    Published<&TZyAxis::Stop, &TZyAxis::SetStop>("Stop", _sAxisStop).NotStored(),
    Published<&TZyAxis::StartState, &TZyAxis::SetStartState>("StartState", _sAxisStart).Hidden(),
    Published<&TZyAxis::StopState, &TZyAxis::SetStopState>("StopState", _sAxisStop).Hidden(),
    Published<&TZyAxis::StartEnd, &TZyAxis::SetStartEnd>("StartEnd", TZyAxisEnd::AutoRange, _sAxisStartEnd),
    Published<&TZyAxis::StopEnd, &TZyAxis::SetStopEnd>("StopEnd", TZyAxisEnd::AutoRange, _sAxisStopEnd))

TZyAxis::TZyAxis(TComponent* Owner)
    : TGraphicControl(Owner),
      FArrowPoint([this] { Modified(); }),
      FFont([this] { NumbersFontChanged(); }),
      FCaptionRec([this] { FontChanged(); }),
      FRubrics(
          this, &TZyAxis::SetDataSource,
          [this] {
            if (FUndo != nullptr) FUndo->PushProperty(this, "Rubrics");
          },
          [this] { Modified(); },
          [this] {
            if (FKind->ShowsRubrics()) Modified();
          }) {
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
}

TZyAxis::~TZyAxis() {
  Destroying();
  if (IZyAxisGraph* const Parent = Graph(); Parent != nullptr && !Parent->Control().IsDestroying()) Parent->Modified();
}

/// Asked thousands of times in a layout, so that the cast is made once for each parent. One that dies has another class
/// from there on.
IZyAxisGraph* TZyAxis::Graph() const {
  TWinControl* const Present = Parent();
  if (Present == nullptr || Present->IsDestroying()) return dynamic_cast<IZyAxisGraph*>(Present);
  if (Present != FCastParent) {
    FGraph = dynamic_cast<IZyAxisGraph*>(Present);
    FCastParent = Present;
  }
  return FGraph;
}

/// Undo and records write what was there: no limit and no dependence on another property changes it then.
bool TZyAxis::Restoring() const { return LoadingRecord() || (FUndo != nullptr && FUndo->Restoring()); }

bool TZyAxis::LoadingRecord() const {
  const IZyAxisGraph* const Parent = Graph();
  return FReadsRecord || (Parent != nullptr && Parent->LoadingRecord());
}

// --- Change protocol ------------------------------------------------------------------------------------------------

void TZyAxis::DoInvalidate() {
  if (Parent() != nullptr) Invalidate();
}

void TZyAxis::Modified() {
  FNeedsRecalculate = true;
  FEnds.Invalidate();
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
  FCastParent = nullptr;  // a new parent may stand where a dead one stood
  TGraphicControl::SetParent(Value);
  if (IsDestroying()) return;
  for (IZyAxisSeries* Series : FRelatedSeries) Series->TestAllAssigned();
  Modified();
  const IZyAxisGraph* const NewGraph = Graph();
  if (NewGraph != nullptr && IsDesigning() && !IsLoading() && !NewGraph->DoingPrimary() && !LoadingRecord())
    PlaceAsDesigned();
}

/// The designer drops a new axis near the side where it is wanted. The diagonals of the graph divide it into the four
/// sides' triangles.
void TZyAxis::PlaceAsDesigned() {
  IZyAxisGraph& NewGraph = *Graph();
  const TWinControl& Container = *Parent();
  const double Width = std::max(Container.Width(), 1);
  const double Slope = Container.Height() / Width;
  const bool BelowFalling = Top() > Left() * Slope;
  const bool BelowRising = Top() > (Width - Left()) * Slope;
  if (BelowFalling) {
    FGeometry.Position = BelowRising ? TZyAxisPosition::Bottom : TZyAxisPosition::Left;
  } else {
    FGeometry.Position = BelowRising ? TZyAxisPosition::Right : TZyAxisPosition::Top;
  }
  if (GetHorizontal()) {
    SetBounds(0, Top(), Container.Width(), Height());
  } else {
    SetBounds(Left(), 0, TControl::Width(), Container.Height());
  }
  Calculate();
  if (FUndo == nullptr) SetUndoStack(NewGraph.UndoStack());
  NewGraph.Modified();
}

/// A layout that shows an axis because the chart needs it is no step of the user's.
void TZyAxis::VisibleChanging() {
  if (FUndo != nullptr && !LayoutRunning) FUndo->PushProperty(this, LoadResString(_sAxisVisibe), "Visible");
  TGraphicControl::VisibleChanging();
}

void TZyAxis::CMVisibleChanged() {
  TGraphicControl::CMVisibleChanged();
  if (IZyAxisGraph* const Parent = Graph(); Parent != nullptr && !LayoutRunning) Parent->Modified();
}

// --- The mouse over an axis is the mouse over its graph -------------------------------------------------------------

void TZyAxis::Click() {
  if (IZyAxisGraph* const Parent = Graph()) Parent->Control().Click();
  TGraphicControl::Click();
}

void TZyAxis::DblClick() {
  if (IZyAxisGraph* const Parent = Graph()) Parent->Control().DblClick();
  TGraphicControl::DblClick();
}

void TZyAxis::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
  if (IZyAxisGraph* const Parent = Graph()) Parent->Control().MouseDown(Button, Shift, X + Left(), Y + Top());
  TGraphicControl::MouseDown(Button, Shift, X, Y);
}

void TZyAxis::MouseMove(TShiftState Shift, int X, int Y) {
  if (IZyAxisGraph* const Parent = Graph()) Parent->Control().MouseMove(Shift, X + Left(), Y + Top());
  TGraphicControl::MouseMove(Shift, X, Y);
}

void TZyAxis::MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) {
  if (IZyAxisGraph* const Parent = Graph()) Parent->Control().MouseUp(Button, Shift, X + Left(), Y + Top());
  TGraphicControl::MouseUp(Button, Shift, X, Y);
}

void TZyAxis::Resize() {
  CheckResize();
  TGraphicControl::Resize();
}

void TZyAxis::SetName(const std::string& Value) {
  FCaptionOfName.Follow(*this, Value);
  TGraphicControl::SetName(Value);
}

/// What goes with a master that dies is no step of the user's.
void TZyAxis::LoseMaster(TZyAxis*) {
  FMasterAxis = nullptr;
  FIsSlaveAxis = false;
  Modified();
}

/// The ends are streamed as texts, so that every value comes back to the last bit and reads well.
void TZyAxis::DefineProperties(TFiler& Filer) {
  TGraphicControl::DefineProperties(Filer);
  const auto DefineEnd = [this, &Filer](std::string_view EndName, double Initial, void (TZyAxisEnds::*Set)(double)) {
    Filer.DefineProperty(
        EndName,
        [this, Set](TReader& Reader) {
          const double Value = GetFloatFromStringOrFloat(Reader);
          if (!std::isfinite(Value)) return;
          (FEnds.*Set)(Value);
          Modified();
        },
        [Initial](TWriter& Writer) { StoreFloatToString(Writer, Initial); }, true);
  };
  DefineEnd("StartText", FEnds.Initial().Start, &TZyAxisEnds::SetStart);
  DefineEnd("StopText", FEnds.Initial().Stop, &TZyAxisEnds::SetStop);
}

void TZyAxis::RemoveRelatedSeries(IZyAxisSeries* Series) {
  if (FRelatedSeries.Remove(Series)) RangeModified();
}

void TZyAxis::SetUndoStack(TZyUndoStack* Value) { FUndo.Set(Value); }

}  // namespace zy
