// The setters of an axis: limits, undo, and what a change makes stale.

#include <algorithm>
#include <cmath>

#include "analysis/ZyMath.h"
#include "axes/ZyAxis.h"
#include "axes/ZyAxisPainter.h"
#include "graph/parts/ZyAxisGraph.h"
#include "platform/framework/ScopedFlag.h"
#include "texts/Exceptions.h"
#include "undo/ZyChange.h"
#include "undo/ZyUndoGroup.h"

namespace zy {

void TZyAxis::SetCaption(const TZyRichCaption& Value) {
  ChangeBy(this, Caption(), TrimRight(Value), "Caption", [this](const TZyRichCaption& Text) {
    FCaptionRec.SetCaption(Text);
    FCaptionOfName.WasSet();
    Modified();
    // What is loaded may name what is not there yet, and an axis without a parent as well; the layout parses them.
    if (Parent() != nullptr && !IsLoading()) FCaptionRec.ParseForSize();
  });
}

void TZyAxis::SetCaptionVisible(bool Value) {
  Change(this, FLook.CaptionVisible, Value, "CaptionVisible", &TZyAxis::Modified);
}

void TZyAxis::SetCaptionDistanceBefore(float Value) {
  Change(this, FLook.CaptionDistanceBefore, Value, "CaptionDistanceBefore", &TZyAxis::Modified);
}

void TZyAxis::SetCaptionDistanceAfter(float Value) {
  Change(this, FLook.CaptionDistanceAfter, Value, "CaptionDistanceAfter", &TZyAxis::Modified);
}

float TZyAxis::DistanceNumbersCaption() const { return DistanceNumbersCaptionOf(FLook, FGeometry); }

void TZyAxis::SetDistanceNumbersCaption(float Value) {
  Change(this, DistanceNumbersCaptionOf(FLook, FGeometry), Value, "DistanceNumbersCaption", &TZyAxis::Modified);
}

float TZyAxis::DistanceToBorder() const { return DistanceToBorderOf(FLook, FGeometry); }

void TZyAxis::SetDistanceToBorder(float Value) {
  Change(this, DistanceToBorderOf(FLook, FGeometry), Value, "DistanceToBorder", &TZyAxis::Modified);
}

void TZyAxis::SetNumbersVisible(bool Value) {
  Change(this, FLook.NumbersVisible, Value, "NumbersVisible", &TZyAxis::Modified);
}

void TZyAxis::SetForeColor(TZyColor Value) {
  if (!Change(this, FLook.ForeColor, Value, "ForeColor", &TZyAxis::DoInvalidate)) return;
  if (FTickColorFollows) FLook.TickColor = Value;
  if (FMajorTickColorFollows) FLook.MajorTickColor = Value;
}

void TZyAxis::SetTickColor(TZyColor Value) {
  if (Change(this, FLook.TickColor, Value, "TickColor", &TZyAxis::DoInvalidate))
    FTickColorFollows = FLook.TickColor == FLook.ForeColor;
}

void TZyAxis::SetMajorTickColor(TZyColor Value) {
  if (Change(this, FLook.MajorTickColor, Value, "MajorTickColor", &TZyAxis::DoInvalidate))
    FMajorTickColorFollows = FLook.MajorTickColor == FLook.ForeColor;
}

void TZyAxis::SetPosition(TZyAxisPosition Value) {
  Change(this, FGeometry.Position, Value, "Position", &TZyAxis::Modified);
}

void TZyAxis::SetTwisted(bool Value) { Change(this, FGeometry.Twisted, Value, "Twisted", &TZyAxis::Modified); }

void TZyAxis::SetTicksPointToData(bool Value) {
  Change(this, FLook.TicksPointToData, Value, "TicksPointToData", &TZyAxis::Modified);
}

void TZyAxis::SetAxisThicknes(float Value) {
  Change(this, FLook.AxisThicknes, std::fabs(Value), "AxisThicknes", &TZyAxis::Modified);
}

void TZyAxis::SetMajorTickThicknes(float Value) {
  Change(this, FLook.MajorTickThicknes, std::fabs(Value), "MajorTickThicknes", &TZyAxis::Modified);
}

void TZyAxis::SetTickThicknes(float Value) {
  Change(this, FLook.TickThicknes, std::fabs(Value), "TickThicknes", &TZyAxis::Modified);
}

void TZyAxis::SetTickLength(float Value) {
  const float Length = std::fabs(Value);
  const auto After = Length > FLook.MajorTickLength ? &TZyAxis::Modified : &TZyAxis::DoInvalidate;
  Change(this, FLook.TickLength, Length, "TickLength", After);
}

void TZyAxis::SetMajorTickLength(float Value) {
  const float Length = std::fabs(Value);
  const auto After = Length >= FLook.TickLength ? &TZyAxis::Modified : &TZyAxis::DoInvalidate;
  Change(this, FLook.MajorTickLength, Length, "MajorTickLength", After);
}

void TZyAxis::SetLabelDistanceFactor(float Value) {
  Change(this, FStepRules.LabelDistanceFactor, std::clamp(Value, 0.1f, 10.0f), "LabelDistanceFactor",
         &TZyAxis::Modified);
}

void TZyAxis::SetExtraDigits(int Value) {
  Change(this, FStepRules.ExtraDigits, Value, "ExtraDigits", &TZyAxis::Modified);
}

void TZyAxis::SetDistanceValuesAxis(float Value) {
  Change(this, FLook.DistanceValuesAxis, Value, "DistanceValuesAxis", &TZyAxis::Modified);
}

void TZyAxis::SetDistanceAxisLabels(float Value) {
  Change(this, FLook.DistanceAxisLabels, Value, "DistanceAxisLabels", &TZyAxis::Modified);
}

void TZyAxis::SetDistanceAxisExtraExponent(float Value) {
  Change(this, FLook.DistanceAxisExtraExponent, Value, "DistanceAxisExtraExponent", &TZyAxis::Modified);
}

void TZyAxis::SetCaptionAlignment(TAlignment Value) {
  Change(this, FLook.CaptionAlignment, Value, "CaptionAlignment", &TZyAxis::Modified);
}

void TZyAxis::SetCaptionHorizontalOnVerticalAxis(bool Value) {
  Change(this, FLook.CaptionHorizontalOnVerticalAxis, Value, "CaptionHorizontalOnVerticalAxis", &TZyAxis::Modified);
}

void TZyAxis::SetRubricsAngle(float Value) {
  const auto Fitted = static_cast<float>(FitTo360Degrees(static_cast<double>(Value)));
  ChangeBy(this, RubricsAngle(), Fitted, "RubricsAngle", [this](float Angle) {
    FLabels.SetAngle(Angle);
    Modified();
  });
}

// --- Fonts ----------------------------------------------------------------------------------------------------------

void TZyAxis::SetFont(const TZyFont& Value) {
  FFont.PushToUndoStack(FUndo, LoadResString(_sAxisFont));
  FFont.Assign(&Value);
}

void TZyAxis::SetCaptionFont(const TZyFont& Value) {
  CaptionFont().PushToUndoStack(FUndo, LoadResString(_sAxisCaptionFont));
  CaptionFont().Assign(&Value);
}

void TZyAxis::SetColor(TZyFont& Font, TZyColor Value) {
  const TScopedValue Setting(FSettingColor, true);
  Font.SetFillColor(Value);
}

void TZyAxis::SetCaptionColor(TZyColor Value) {
  ChangeBy(this, CaptionColor(), Value, "CaptionColor", [this](TZyColor Color) {
    SetColor(CaptionFont(), Color);
    DoInvalidate();
  });
}

void TZyAxis::SetNumbersColor(TZyColor Value) {
  ChangeBy(this, NumbersColor(), Value, "NumbersColor", [this](TZyColor Color) {
    SetColor(FFont, Color);
    FLabels.SetColor(Color);
    DoInvalidate();
  });
}

// --- Rubrics --------------------------------------------------------------------------------------------------------

void TZyAxis::SetRubrics(const TStringList* Value) {
  if (Value != nullptr && FRubrics.IsBound()) throw Exception(LoadResString(_sRubricsDB));
  FRubrics.Set(Value);
}

void TZyAxis::SetRubricsField(const std::string& Value) { FRubrics.SetField(Value); }

void TZyAxis::SetDataSource(TDataSource* Value) { FRubrics.SetDataSource(Value, IsLoading()); }

// --- Kind of scale, and steps ---------------------------------------------------------------------------------------

/// One step of undo for a property together with those that its setter changes too. Undo writes the values back from
/// the last to the first.
void TZyAxis::PushAll(TZyText Label, std::initializer_list<const char*> PropNames) {
  if (FUndo == nullptr) return;
  for (const char* PropName : PropNames) FUndo->PushProperty(this, LoadResString(Label), PropName);
}

/// A layout fits steps of the user's own to each other, to the scale and to those of a master: a step that brings that
/// about takes them along.
void TZyAxis::PushOwnParts(TZyText Label) {
  if (!AutoTickParts()) PushAll(Label, {"TickPart", "MajorTickPart", "LabelPart"});
}

void TZyAxis::SetScaling(TZyAxisScaling Value) {
  if (Value == Scaling()) return;
  const TZyScaleKind& Kind = TZyScaleKind::Of(Value);
  const TZyUndoGroup Group(FUndo, _sAxisScaling);
  PushOwnParts(_sAxisScaling);
  if (Kind.ChoosesOwnSteps() && !AutoTickParts()) {
    PushAll(_sAxisScaling, {"AutoTickParts"});
    FStepRules.AutoTickParts = true;
  }
  PushAll(_sAxisScaling, {"Scaling"});
  FKind = &Kind;
  FSteps.HasLogScaling = Kind.IsLogarithmic();
  if (IZyAxisGraph* const Parent = Graph(); Parent != nullptr && !LoadingRecord()) Parent->ZoomReset();
  Modified();
}

void TZyAxis::SetLogToNormalScalingLevel(double Value) {
  Change(this, FStepRules.LogToNormalScalingLevel, std::max(Value, 0.0), "LogToNormalScalingLevel",
         FKind->IsLogarithmic() ? &TZyAxis::Modified : &TZyAxis::DoNothing);
}

void TZyAxis::SetAutoTickParts(bool Value) {
  if (Value == AutoTickParts() || (FKind->ChoosesOwnSteps() && !Restoring())) return;
  const TZyUndoGroup Group(FUndo, _sAxisAutoTickParts);
  PushAll(_sAxisAutoTickParts, {"TickPart", "MajorTickPart", "LabelPart", "AutoTickParts"});
  FStepRules.AutoTickParts = Value;
  Modified();
}

void TZyAxis::SetTickPartTo(double& Field, double Value, TZyText Label) {
  if (!std::isfinite(Value) || (FStepRules.AutoTickParts && !Restoring())) return;
  const double Part = Value == 0 ? 0.001 : std::fabs(Value);
  if (Part == Field) return;
  const TZyUndoGroup Group(FUndo, Label);
  PushOwnParts(Label);
  Field = Part;
  Modified();
}

void TZyAxis::SetLabelPart(double Value) { SetTickPartTo(FSteps.LabelPart, Value, _sAxisLabelPart); }

void TZyAxis::SetMajorTickPart(double Value) { SetTickPartTo(FSteps.MajorTickPart, Value, _sAxisMajorTickPart); }

void TZyAxis::SetTickPart(double Value) { SetTickPartTo(FSteps.TickPart, Value, _sAxisTickPart); }

void TZyAxis::SetTickTable(const TZyTickTable& Value) {
  if (Value == FStepRules.TickTable) return;
  FStepRules.TickTable = Value;
  Modified();
}

void TZyAxis::SetDateTimeFormats(const TZyDateTimeFormats& Value) {
  if (Value == FStepRules.DateTimeFormats) return;
  FStepRules.DateTimeFormats = Value;
  Modified();
}

void TZyAxis::SetMajorGridMode(TZyMajorGridMode Value) {
  Change(this, FMajorGridMode, Value, "MajorGridMode", &TZyAxis::Modified);
}

void TZyAxis::SetReal(double& Field, double Value, const char* PropName) {
  Change(this, Field, Value, PropName, &TZyAxis::Modified);
}

void TZyAxis::SetMaxForExtraExponent(double Value) {
  SetReal(FStepRules.MaxForExtraExponent, Value, "MaxForExtraExponent");
}

void TZyAxis::SetMinForExtraExponent(double Value) {
  SetReal(FStepRules.MinForExtraExponent, Value, "MinForExtraExponent");
}

// --- Master and slave -----------------------------------------------------------------------------------------------

/// What an axis has of its own and a master will write over.
void TZyAxis::PushOfNoSlave(TZyText Label) {
  if (IsSlave()) return;
  PushOwnParts(Label);
  PushAll(Label, {"StartState", "StopState", "Scaling"});
}

void TZyAxis::SetMasterAxis(TZyAxis* Value) {
  if (Value == FMasterAxis || Value == this) return;
  if (Restoring() || IsLoading()) {  // IsSlaveAxis comes by itself then
    if (LoadingRecord()) PushAll(_sAxisMasterAxis, {"MasterAxis"});
    FMasterAxis = Value;
    return Modified();
  }
  if (Value != nullptr && (Value->GetHorizontal() != GetHorizontal() || Value->IsSlave())) return;
  const TZyUndoGroup Group(FUndo, _sAxisMasterAxis);
  PushOfNoSlave(_sAxisMasterAxis);
  PushAll(_sAxisMasterAxis, {"IsSlaveAxis", "MasterAxis"});
  FMasterAxis = Value;
  FIsSlaveAxis = Value != nullptr;
  Modified();
}

void TZyAxis::SetIsSlaveAxis(bool Value) {
  if (Value == FIsSlaveAxis) return;
  const TZyUndoGroup Group(FUndo, _sAxisIsSlaveAxis);
  if (FMasterAxis != nullptr) PushOfNoSlave(_sAxisIsSlaveAxis);
  PushAll(_sAxisIsSlaveAxis, {"IsSlaveAxis"});
  FIsSlaveAxis = Value;
  Modified();
}

/// The very values of a master have its very steps as well.
void TZyAxis::SetSlaveMapping(double& Field, double Value, TZyText Label, const char* PropName) {
  if (!std::isfinite(Value) || Value == Field) return;
  const TZyUndoGroup Group(FUndo, Label);
  if (IsSlave()) PushOwnParts(Label);
  PushAll(Label, {PropName});
  Field = Value;
  Modified();
}

void TZyAxis::SetSlaveSlope(double Value) { SetSlaveMapping(FSlaveSlope, Value, _sAxisSlaveSlope, "SlaveSlope"); }

void TZyAxis::SetSlaveOffset(double Value) { SetSlaveMapping(FSlaveOffset, Value, _sAxisSlaveOffset, "SlaveOffset"); }

void TZyAxis::SetAutoSize(bool Value) {
  if (Value == AutoSize()) return;
  TGraphicControl::SetAutoSize(Value);
  if (Value) Modified();
}

}  // namespace zy
