// The setters of an axis: limits, undo, and what a change makes stale.

#include <algorithm>
#include <cmath>
#include <numbers>

#include "analysis/ZyMath.h"
#include "axes/ZyAxis.h"
#include "axes/ZyAxisUndo.h"
#include "graph/ZyGraph2D.h"
#include "platform/framework/Reflection.h"
#include "undo/ZyChange.h"

namespace zy {

void TZyAxis::SetCaption(const TZyRichCaption& Value) {
  const TZyRichCaption Trimmed = Value.substr(0, Value.find_last_not_of(' ') + 1);
  if (Trimmed == FCaptionRec.Caption()) return;
  if (FUndoStack != nullptr) FUndoStack->PushProperty(this, LoadResString(_sAxisCaption), "Caption");
  FCaptionRec.SetCaption(Trimmed);
  FCaptionSet = true;
  Modified();
}

void TZyAxis::SetCaptionVisible(bool Value) {
  Change(this, FCaptionVisible, Value, _sAxisCaptionVisible, "CaptionVisible", &TZyAxis::Modified);
}

void TZyAxis::SetCaptionDistanceBefore(float Value) {
  Change(this, FCaptionDistanceBefore, Value, _sAxisCaptionDistanceBefore, "CaptionDistanceBefore", &TZyAxis::Modified);
}

void TZyAxis::SetCaptionDistanceAfter(float Value) {
  Change(this, FCaptionDistanceAfter, Value, _sAxisCaptionDistanceAfter, "CaptionDistanceAfter", &TZyAxis::Modified);
}

float TZyAxis::DistanceNumbersCaption() const {
  return PointsOutwards() ? FCaptionDistanceBefore : FCaptionDistanceAfter;
}

void TZyAxis::SetDistanceNumbersCaption(float Value) {
  Change(this, PointsOutwards() ? FCaptionDistanceBefore : FCaptionDistanceAfter, Value, _sAxisDistanceNumbersCaption,
         "DistanceNumbersCaption", &TZyAxis::Modified);
}

float TZyAxis::DistanceToBorder() const { return PointsOutwards() ? FCaptionDistanceAfter : FCaptionDistanceBefore; }

void TZyAxis::SetDistanceToBorder(float Value) {
  Change(this, PointsOutwards() ? FCaptionDistanceAfter : FCaptionDistanceBefore, Value, _sAxisDistanceToBorder,
         "DistanceToBorder", &TZyAxis::Modified);
}

void TZyAxis::SetNumbersVisible(bool Value) {
  Change(this, FNumbersVisible, Value, _sAxisNumbersVisible, "NumbersVisible", &TZyAxis::Modified);
}

void TZyAxis::SetForeColor(TZyColor Value) {
  if (!Change(this, FForeColor, Value, _sAxisForeColor, "ForeColor", &TZyAxis::DoInvalidate)) return;
  if (FTickColorFollows) FTickColor = Value;
  if (FMajorTickColorFollows) FMajorTickColor = Value;
}

void TZyAxis::SetTickColor(TZyColor Value) {
  if (Change(this, FTickColor, Value, _sAxisTickColor, "TickColor", &TZyAxis::DoInvalidate))
    FTickColorFollows = FTickColor == FForeColor;
}

void TZyAxis::SetMajorTickColor(TZyColor Value) {
  if (Change(this, FMajorTickColor, Value, _sAxisMajorTickColor, "MajorTickColor", &TZyAxis::DoInvalidate))
    FMajorTickColorFollows = FMajorTickColor == FForeColor;
}

void TZyAxis::SetPosition(TZyAxisPosition Value) {
  Change(this, FPosition, Value, _sAxisPosition, "Position", &TZyAxis::Modified);
}

void TZyAxis::SetTwisted(bool Value) { Change(this, FTwisted, Value, _sAxisTwisted, "Twisted", &TZyAxis::Modified); }

void TZyAxis::SetTicksPointToData(bool Value) {
  Change(this, FTicksPointToData, Value, _sAxisTicksPointToData, "TicksPointToData", &TZyAxis::Modified);
}

void TZyAxis::SetAxisThicknes(float Value) {
  Change(this, FAxisThicknes, std::fabs(Value), _sAxisThicknes, "AxisThicknes", &TZyAxis::Modified);
}

void TZyAxis::SetMajorTickThicknes(float Value) {
  Change(this, FMajorTickThicknes, std::fabs(Value), _sAxisMajorTickThicknes, "MajorTickThicknes", &TZyAxis::Modified);
}

void TZyAxis::SetTickThicknes(float Value) {
  Change(this, FTickThicknes, std::fabs(Value), _sAxisTickThicknes, "TickThicknes", &TZyAxis::Modified);
}

void TZyAxis::SetTickLength(float Value) {
  const float Length = std::fabs(Value);
  const auto After = Length > FMajorTickLength ? &TZyAxis::Modified : &TZyAxis::DoInvalidate;
  Change(this, FTickLength, Length, _sAxisTickLength, "TickLength", After);
}

void TZyAxis::SetMajorTickLength(float Value) {
  const float Length = std::fabs(Value);
  const auto After = Length >= FTickLength ? &TZyAxis::Modified : &TZyAxis::DoInvalidate;
  Change(this, FMajorTickLength, Length, _sAxisMajorTickLength, "MajorTickLength", After);
}

void TZyAxis::SetLabelDistanceFactor(float Value) {
  Change(this, FLabelDistanceFactor, std::clamp(Value, 0.1f, 10.0f), _sAxisLabelDistanceFactor, "LabelDistanceFactor",
         &TZyAxis::Modified);
}

void TZyAxis::SetExtraDigits(int Value) {
  Change(this, FExtraDigits, Value, _sAxisExtraDigits, "ExtraDigits", &TZyAxis::Modified);
}

void TZyAxis::SetDistanceValuesAxis(float Value) {
  Change(this, FDistanceValuesAxis, Value, _sAxisDistanceValuesAxis, "DistanceValuesAxis", &TZyAxis::Modified);
}

void TZyAxis::SetDistanceAxisLabels(float Value) {
  Change(this, FDistanceAxisLabels, Value, _sAxisDistanceAxisLabels, "DistanceAxisLabels", &TZyAxis::Modified);
}

void TZyAxis::SetDistanceAxisExtraExponent(float Value) {
  Change(this, FDistanceAxisExtraExponent, Value, _sAxisDistanceAxisExtraExponent, "DistanceAxisExtraExponent",
         &TZyAxis::Modified);
}

void TZyAxis::SetCaptionAlignment(TAlignment Value) {
  Change(this, FCaptionAlignment, Value, _sAxisCaptionAlignment, "CaptionAlignment", &TZyAxis::Modified);
}

void TZyAxis::SetCaptionHorizontalOnVerticalAxis(bool Value) {
  Change(this, FCaptionHorizontalOnVerticalAxis, Value, _sAxisHorizontalCaptiononVerticalAxis,
         "CaptionHorizontalOnVerticalAxis", &TZyAxis::Modified);
}

void TZyAxis::SetRubricsAngle(float Value) {
  const auto Fitted = static_cast<float>(FitTo360Degrees(static_cast<double>(Value)));
  if (!std::isfinite(Fitted)) return;
  if (!Change(this, FRubricsAngle, Fitted, _sAxisRubricsAngle, "RubricsAngle", &TZyAxis::Modified)) return;
  const double Radians = static_cast<double>(Fitted) * std::numbers::pi / 180;
  FSine = static_cast<float>(std::fabs(std::sin(Radians)));
  FCosine = static_cast<float>(std::fabs(std::cos(Radians)));
}

// --- Fonts ----------------------------------------------------------------------------------------------------------

void TZyAxis::SetFont(const TZyFont& Value) {
  FFont.PushToUndoStack(FUndoStack, LoadResString(_sAxisFont));
  FFont.Assign(&Value);
}

void TZyAxis::SetCaptionFont(const TZyFont& Value) {
  CaptionFont().PushToUndoStack(FUndoStack, LoadResString(_sAxisCaptionFont));
  CaptionFont().Assign(&Value);
}

void TZyAxis::SetCaptionColor(TZyColor Value) {
  if (Value == CaptionColor()) return;
  if (FUndoStack != nullptr) FUndoStack->PushProperty(this, LoadResString(_sAxisCaptionColor), "CaptionColor");
  FSettingColor = true;
  CaptionFont().SetFillColor(Value);
  FSettingColor = false;
  DoInvalidate();
}

void TZyAxis::SetNumbersColor(TZyColor Value) {
  if (Value == NumbersColor()) return;
  if (FUndoStack != nullptr) FUndoStack->PushProperty(this, LoadResString(_sAxisNumbersColor), "NumbersColor");
  FSettingColor = true;
  FFont.SetFillColor(Value);
  for (const auto& Label : FAxLabels) Label->CaptionFont().SetFillColor(Value);
  FExtraExponentRec.CaptionFont().SetFillColor(Value);
  FSettingColor = false;
  DoInvalidate();
}

// --- Kind of scale, and steps ---------------------------------------------------------------------------------------

void TZyAxis::SetScaling(TZyAxisScaling Value) {
  if (Value == FScaling) return;
  const bool ForcesParts = Value > TZyAxisScaling::LogEE && !FAutoTickParts;
  const TAxisUndoGroup Group =
      ForcesParts
          ? TAxisUndoGroup(*this, _sAxisScaling, {"TickPart", "MajorTickPart", "LabelPart", "AutoTickParts", "Scaling"})
          : TAxisUndoGroup(*this, _sAxisScaling, {"Scaling"});
  FScaling = Value;
  if (ForcesParts) FAutoTickParts = true;
  FScale.HasLogScaling = HasLogKind();
  if (TZyGraph2D* const Parent = Graph()) Parent->ZoomReset();
  Modified();
}

void TZyAxis::SetLogToNormalScalingLevel(double Value) {
  if (!std::isfinite(Value)) return;
  Change(this, FLogToNormalScalingLevel, std::max(Value, 0.0), _sAxisLogToNormalScalingLevel, "LogToNormalScalingLevel",
         HasLogKind() ? &TZyAxis::Modified : &TZyAxis::DoNothing);
}

void TZyAxis::SetAutoTickParts(bool Value) {
  if (Value == FAutoTickParts || (ChoosesOwnParts() && !Restoring())) return;
  const TAxisUndoGroup Group(*this, _sAxisAutoTickParts, {"TickPart", "MajorTickPart", "LabelPart", "AutoTickParts"});
  FAutoTickParts = Value;
  Modified();
}

void TZyAxis::SetTickPartTo(double& Field, double Value, TZyText Label, const char* PropName) {
  if (!std::isfinite(Value)) return;
  if (Restoring()) {
    Field = Value;
    return Modified();
  }
  if (FAutoTickParts) return;
  Change(this, Field, Value == 0 ? 0.001 : std::fabs(Value), Label, PropName, &TZyAxis::Modified);
}

void TZyAxis::SetLabelPart(double Value) { SetTickPartTo(FScale.LabelPart, Value, _sAxisLabelPart, "LabelPart"); }

void TZyAxis::SetMajorTickPart(double Value) {
  SetTickPartTo(FScale.MajorTickPart, Value, _sAxisMajorTickPart, "MajorTickPart");
}

void TZyAxis::SetTickPart(double Value) { SetTickPartTo(FScale.TickPart, Value, _sAxisTickPart, "TickPart"); }

void TZyAxis::SetTickTable(const TZyTickTable& Value) {
  if (Value == FTickTable) return;
  FTickTable = Value;
  Modified();
}

void TZyAxis::SetDateTimeFormats(const TZyDateTimeFormats& Value) {
  if (Value == FDateTimeFormats) return;
  FDateTimeFormats = Value;
  Modified();
}

void TZyAxis::SetMajorGridMode(TZyMajorGridMode Value) {
  Change(this, FMajorGridMode, Value, _sMajorGridMode, "MajorGridMode", &TZyAxis::Modified);
}

void TZyAxis::SetReal(double& Field, double Value, TZyText Label, const char* PropName) {
  if (std::isfinite(Value)) Change(this, Field, Value, Label, PropName, &TZyAxis::Modified);
}

void TZyAxis::SetMaxForExtraExponent(double Value) {
  SetReal(FMaxForExtraExponent, Value, _sAxisMaxForExtraExponent, "MaxForExtraExponent");
}

void TZyAxis::SetMinForExtraExponent(double Value) {
  SetReal(FMinForExtraExponent, Value, _sAxisMinForExtraExponent, "MinForExtraExponent");
}

// --- Master and slave -----------------------------------------------------------------------------------------------

void TZyAxis::SetMasterAxis(TZyAxis* Value) {
  if (Value == FMasterAxis || Value == this) return;
  if (Restoring() || IsLoading()) {  // IsSlaveAxis comes by itself then
    FMasterAxis = Value;
    return Modified();
  }
  if (Value != nullptr && (Value->GetHorizontal() != GetHorizontal() || Value->IsSlave())) return;
  const TAxisUndoGroup Group =
      FIsSlaveAxis ? TAxisUndoGroup(*this, _sAxisMasterAxis, {"IsSlaveAxis", "MasterAxis"})
                   : TAxisUndoGroup(*this, _sAxisMasterAxis, {"Start", "Stop", "Scaling", "IsSlaveAxis", "MasterAxis"});
  FMasterAxis = Value;
  FIsSlaveAxis = Value != nullptr;
  Modified();
}

void TZyAxis::SetIsSlaveAxis(bool Value) {
  Change(this, FIsSlaveAxis, Value, _sAxisIsSlaveAxis, "IsSlaveAxis", &TZyAxis::Modified);
}

void TZyAxis::SetSlaveSlope(double Value) { SetReal(FSlaveSlope, Value, _sAxisSlaveSlope, "SlaveSlope"); }

void TZyAxis::SetSlaveOffset(double Value) { SetReal(FSlaveOffset, Value, _sAxisSlaveOffset, "SlaveOffset"); }

void TZyAxis::SetAutoSize(bool Value) {
  if (Value == AutoSize()) return;
  TGraphicControl::SetAutoSize(Value);
  if (Value) Modified();
}

}  // namespace zy
