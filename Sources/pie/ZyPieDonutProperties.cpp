// The properties of a pie chart.

#include <algorithm>
#include <cmath>

#include "analysis/ZyMath.h"
#include "pie/ZyPieDonut.h"
#include "platform/framework/TPropInfo.h"
#include "series/vectors/ZyDoubleVector.h"
#include "texts/Exceptions.h"
#include "undo/ZyChange.h"
#include "undo/ZyUndoGroup.h"

namespace zy {
namespace {

constexpr float LowestElevation = 10, HighestElevation = 80, LowestWall = 0.001f, HighestWall = 100, SmallestHole = 1,
                LargestHole = 99, SmallestTotal = 10, WholeTurn = 360;

/// What is not finite is left to the setter, which refuses it.
float Limited(float Value, float Low, float High) {
  return std::isfinite(Value) ? std::clamp(Value, Low, High) : Value;
}

float Fitted(float Angle) {
  return std::isfinite(Angle) ? static_cast<float>(FitTo360Degrees(static_cast<double>(Angle))) : Angle;
}

}  // namespace

using T = TZyPieChart;
ZY_PUBLISHED(
    TZyPieChart, TZyCustomGraph, Published<&T::CaptionsField, &T::SetCaptionsField>("CaptionsField", ""),
    Published<&T::DataSource, &T::SetDataSource>("DataSource"),
    Published<&T::Captions, &T::SetCaptions>("Captions", _sPieCaptionsList),
    Published<&T::LabelPosition, &T::SetLabelPosition>("LabelPosition", TZyPieLabelPosition::Invisible,
                                                       _sBarsLabelPosition),
    Published<&T::LabelColor, &T::SetLabelColor>("LabelColor", _sBarsLabelColor).NotStored(),
    Published<&T::LabelFormat, &T::SetLabelFormat>("LabelFormat", "", _sBarsLabelFormat),
    Published<&T::LabelFrom, &T::SetLabelFrom>("LabelFrom", TZyLabelStyle::Value, _sBarsLabelFrom),
    Published<&T::LabelSize, &T::SetLabelSize>("LabelSize", 3.5f, _sBarsLabelSize),
    Published<&T::OldFontSize, &T::SetOldFontSize>("OldFontSize", 10.0f, _sBarsLabelSize).Hidden(),
    Published<&TZyCustomGraph::CaptionFont, &TZyCustomGraph::SetCaptionFont>("CaptionFont", _sGraphFont),
    Published<&T::AutoUpdate, &T::SetAutoUpdate>("AutoUpdate", true),
    Published<&T::OutliersVisible, &T::SetOutliersVisible>("OutliersVisible", false, _sSeriesOutliersVisible),
    Published<&T::OrderAscending, &T::SetOrderAscending>("OrderAscending", false, _sPieOrderAscending),
    Published<&T::DistanceAtTop, &T::SetDistanceAtTop>("DistanceAtTop", 0.0f, _sGraphDistanceBorderAxisTop),
    Published<&T::DistanceAtBottom, &T::SetDistanceAtBottom>("DistanceAtBottom", 0.0f, _sGraphDistanceBorderAxisBottom),
    Published<&T::DistanceAtLeft, &T::SetDistanceAtLeft>("DistanceAtLeft", 0.0f, _sGraphDistanceBorderAxisLeft),
    Published<&T::DistanceAtRight, &T::SetDistanceAtRight>("DistanceAtRight", 0.0f, _sGraphDistanceBorderAxisRight),
    Published<&T::PieChartType, &T::SetPieChartType>("PieChartType", TZyPieChartType::FlatPie, _sPie3D),
    Published<&T::ThreeDElevation, &T::SetThreeDElevation>("ThreeDElevation", 50.0f, _sPie3DElevation)
        .Clamped(LowestElevation, HighestElevation),
    Published<&T::ThreeDPieHeight, &T::SetThreeDPieHeight>("ThreeDPieHeight", 10.0f, _sThreeDPieHeight)
        .Clamped(LowestWall, HighestWall),
    Published<&T::DropShadow, &T::SetDropShadow>("DropShadow", true, _sPieDropShadow),
    Published<&T::DonutHoleSize, &T::SetDonutHoleSize>("DonutHoleSize", 35.0f, _sDonutHolePercent)
        .Clamped(SmallestHole, LargestHole),
    Published<&T::StartAngle, &T::SetStartAngle>("StartAngle", 0.0f, _sPieStartAngle),
    Published<&T::TotalAngle, &T::SetTotalAngle>("TotalAngle", 360.0f, _sPieTotalAngle)
        .Clamped(SmallestTotal, WholeTurn),
    Published<&T::Values, &T::SetValues>("Values", _sPieValues),
    Published<&T::ExplodePercent, &T::SetExplodePercent>("ExplodePercent", _sPieExplodePercent),
    Published<&T::SegmentBorder>("SegmentBorder"), Published<&T::CalloutArrow>("CalloutArrow"),
    Published<&T::SegmentSettingsPalette, &T::SetSegmentSettingsPalette>("SegmentSettingsPalette", _sPiePalette),
    Published<&T::CalloutArrowVisibleMode, &T::SetCalloutArrowVisibleMode>(
        "CalloutArrowVisibleMode", TZyCalloutArrowVisibleMode::VisibleIfOverlapped, _sCalloutArrowVisibleMode),
    Published<&T::CalloutBackColor, &T::SetCalloutBackColor>("CalloutBackColor", _sCalloutBackColor),
    Published<&T::CalloutGradient>("CalloutGradient"), Published<&T::CalloutFrame>("CalloutFrame"),
    Published<&T::CalloutRaised, &T::SetCalloutRaised>("CalloutRaised", false, _sCalloutRaised),
    Published<&T::CalloutLowered, &T::SetCalloutLowered>("CalloutLowered", false, _sCalloutLowered),
    Published<&T::CalloutShadow, &T::SetCalloutShadow>("CalloutShadow", false, _sCalloutShadow),
    Published<&T::CalloutDistanceToPie, &T::SetCalloutDistanceToPie>("CalloutDistanceToPie", 0.0f, _sCalloutDistance),
    Published<&T::CalloutSpaceToBorder, &T::SetCalloutSpaceToBorder>("CalloutSpaceToBorder", 10.0f,
                                                                     _sCalloutSpaceToBorder),
    Published<&T::CalloutRounding, &T::SetCalloutRounding>("CalloutRounding", 0.0f, _sCalloutRounding),
    Published<&T::ExplodeOnClick, &T::SetExplodeOnClick>("ExplodeOnClick", false, _sPieExplodeOnClick),
    Published<&T::OnGetLabel, &T::SetOnGetLabel>("OnGetLabel"), Published<&T::OnGetPen, &T::SetOnGetPen>("OnGetPen"),
    Published<&T::OnGetBrush, &T::SetOnGetBrush>("OnGetBrush"),
    Published<&T::ValueTransformation, &T::SetValueTransformation>("ValueTransformation"),
    Published<&T::ExplodePercentTransformation, &T::SetExplodePercentTransformation>("ExplodePercentTransformation"))

// --- Data -----------------------------------------------------------------------------------------------------------

/// One vector may serve as both.
void TZyPieChart::SetVector(TRef<TZyCustomDoubleVector>& Field, TZyCustomDoubleVector* Value, const char* PropName,
                            std::initializer_list<double> Samples) {
  ChangeBy(this, Field.Get(), Value, PropName, [&](TZyCustomDoubleVector* Vector) {
    TZyCustomDoubleVector* const Old = Field;
    Field = Vector;
    if (Old != nullptr && Old != FValues && Old != FExplodePercent && !Old->IsDestroying())
      Old->RemoveRelatedSeries(this);
    if (Vector != nullptr) Vector->AddRelatedSeries(this);
    auto* const Data = dynamic_cast<TZyDoubleVector*>(Vector);
    const bool IsRestored = UndoStack() != nullptr && UndoStack()->Restoring();
    if (Data != nullptr && Data->Count() == 0 && IsDesigning() && !IsLoading() && !FLoadingRecord && !IsRestored)
      Data->AddRange(Samples);
    Modified();
  });
}

void TZyPieChart::SetValues(TZyCustomDoubleVector* Value) {
  SetVector(FValues, Value, "Values", {10, 20, 12, 35, 50, 6});
}

void TZyPieChart::SetExplodePercent(TZyCustomDoubleVector* Value) {
  SetVector(FExplodePercent, Value, "ExplodePercent", {10});
}

void TZyPieChart::SetValueTransformation(TZyValueTransformation Value) {
  mValueTransformation = std::move(Value);
  Modified();
}

void TZyPieChart::SetExplodePercentTransformation(TZyValueTransformation Value) {
  mExplodePercentTransformation = std::move(Value);
  Modified();
}

void TZyPieChart::SetOutliersVisible(bool Value) {
  Change(this, FOutliersVisible, Value, "OutliersVisible", &TZyPieChart::Modified);
}

void TZyPieChart::SetOrderAscending(bool Value) {
  Change(this, FOrderAscending, Value, "OrderAscending", &TZyPieChart::Modified);
}

// --- Shape ----------------------------------------------------------------------------------------------------------

void TZyPieChart::SetPieChartType(TZyPieChartType Value) {
  Change(this, FShape.Type, Value, "PieChartType", &TZyPieChart::Modified);
}

void TZyPieChart::SetThreeDElevation(float Value) {
  Change(this, FShape.Elevation, Limited(Value, LowestElevation, HighestElevation), "ThreeDElevation",
         &TZyPieChart::Modified);
}

void TZyPieChart::SetThreeDPieHeight(float Value) {
  Change(this, FShape.PieHeight, Limited(Value, LowestWall, HighestWall), "ThreeDPieHeight", &TZyPieChart::Modified);
}

/// Labels within the ring follow the hole.
void TZyPieChart::SetDonutHoleSize(float Value) {
  Change(this, FShape.HoleSize, Limited(Value, SmallestHole, LargestHole), "DonutHoleSize", &TZyPieChart::Modified);
}

void TZyPieChart::SetStartAngle(float Value) {
  Change(this, FShape.StartAngle, Value < 0 || Value >= WholeTurn ? Fitted(Value) : Value, "StartAngle",
         &TZyPieChart::Modified);
}

void TZyPieChart::SetTotalAngle(float Value) {
  if (Value < 0 || Value > WholeTurn) Value = Fitted(Value);
  Change(this, FShape.TotalAngle, Limited(Value, SmallestTotal, WholeTurn), "TotalAngle", &TZyPieChart::Modified);
}

void TZyPieChart::SetDropShadow(bool Value) {
  Change(this, FShape.DropShadow, Value, "DropShadow", &TZyPieChart::Modified);
}

void TZyPieChart::SetDistance(float& Field, float Value, const char* PropName) {
  Change(this, Field, Value, PropName, &TZyPieChart::Modified);
}

void TZyPieChart::SetDistanceAtTop(float Value) { SetDistance(FDistances.Top, Value, "DistanceAtTop"); }

void TZyPieChart::SetDistanceAtBottom(float Value) { SetDistance(FDistances.Bottom, Value, "DistanceAtBottom"); }

void TZyPieChart::SetDistanceAtLeft(float Value) { SetDistance(FDistances.Left, Value, "DistanceAtLeft"); }

void TZyPieChart::SetDistanceAtRight(float Value) { SetDistance(FDistances.Right, Value, "DistanceAtRight"); }

void TZyPieChart::SetSegmentSettingsPalette(TZyFillPalette* Value) {
  ChangeBy(this, FPalette.Get(), Value, "SegmentSettingsPalette",
           [this](TZyFillPalette* Palette) { TakePalette(Palette); });
}

/// Without a step of undo.
void TZyPieChart::TakePalette(TZyFillPalette* Value) {
  if (FPalette != nullptr && !FPalette->IsDestroying()) FPalette->RemoveRelatedControl(*this);
  FPalette = Value;
  if (Value != nullptr) {
    Value->AddRelatedControl(*this);
    Value->SetUndoStack(UndoStack());
    if (Value->Count() == 0 && IsDesigning() && !IsLoading() && !FLoadingRecord) Value->FillDefaults();
  }
  Invalidate();
}

void TZyPieChart::SetOnGetPen(TZyPenEventHandler Value) {
  mGetPen = std::move(Value);
  Invalidate();
}

void TZyPieChart::SetOnGetBrush(TZyBrushEventHandler Value) {
  mGetBrush = std::move(Value);
  Invalidate();
}

// --- Labels ---------------------------------------------------------------------------------------------------------

void TZyPieChart::SetLabelPosition(TZyPieLabelPosition Value) {
  Change(this, FLabelPosition, Value, "LabelPosition", &TZyPieChart::Modified);
}

void TZyPieChart::SetLabelFrom(TZyLabelStyle Value) {
  Change(this, FLabelFrom, Value, "LabelFrom", &TZyPieChart::Modified);
}

void TZyPieChart::SetLabelFormat(const std::string& Value) {
  Change(this, FLabelFormat, Value, "LabelFormat", &TZyPieChart::Modified);
}

void TZyPieChart::SetLabelSize(float Value) { Change(this, FLabelSize, Value, "LabelSize", &TZyPieChart::Modified); }

void TZyPieChart::SetLabelColor(TZyColor Value) {
  ChangeBy(this, LabelColor(), Value, "LabelColor", [this](TZyColor Color) { FFont.SetFillColor(Color); });
}

void TZyPieChart::SetFont(const TZyFont& Value) {
  const TZyUndoGroup Group(UndoStack(), _sGraphFont);
  if (UndoStack() != nullptr)
    for (const char* Name : {"OldFontSize", "LabelSize"}) UndoStack()->PushProperty(this, Name);
  TZyCustomGraph::SetFont(Value);
}

void TZyPieChart::CaptionsChanging() {
  if (UndoStack() != nullptr) UndoStack()->PushProperty(this, "Captions");
}

void TZyPieChart::SetCaptions(TStringList* Value) {
  if (Value == nullptr) return FCaptions.Set(nullptr);
  if (FCaptions.IsBound()) throw Exception(LoadResString(_sCaptionsDB));
  if (Value == &FCaptions.Texts()) return;
  CaptionsChanging();
  FCaptions.Share(*Value);
}

void TZyPieChart::SetCaptionsField(const std::string& Value) { FCaptions.SetField(Value); }

void TZyPieChart::SetDataSource(TDataSource* Value) { FCaptions.SetDataSource(Value, IsLoading()); }

void TZyPieChart::SetOnGetLabel(TZyGetLabelEventHandler Value) {
  mGetLabel = std::move(Value);
  Modified();
}

// --- Callouts -------------------------------------------------------------------------------------------------------

void TZyPieChart::SetCalloutArrowVisibleMode(TZyCalloutArrowVisibleMode Value) {
  if (Value == FCalloutArrowVisibleMode) return;
  const TZyUndoGroup Group(UndoStack(), _sCalloutArrowVisibleMode);
  Change(this, FCalloutArrowVisibleMode, Value, "CalloutArrowVisibleMode", &TZyPieChart::Invalidate);
  const bool IsRestored = IsLoading() || (UndoStack() != nullptr && UndoStack()->Restoring());
  if (Value != TZyCalloutArrowVisibleMode::None && !IsRestored) FCalloutArrow.SetVisible(true);
}

void TZyPieChart::SetCalloutEdge(bool& Field, bool Value, const char* PropName) {
  if (Field == Value) return;
  const TZyUndoGroup Group(UndoStack(), TZyUndoStack::LabelOf(*this, PropName));
  Change(this, Field, Value, PropName, &TZyPieChart::CalloutLookModified);
  const bool IsRestored = IsLoading() || (UndoStack() != nullptr && UndoStack()->Restoring());
  if (Value && !IsRestored) FCalloutFrame.SetVisible(false);
}

void TZyPieChart::SetCalloutRaised(bool Value) { SetCalloutEdge(FCalloutRaised, Value, "CalloutRaised"); }

void TZyPieChart::SetCalloutLowered(bool Value) { SetCalloutEdge(FCalloutLowered, Value, "CalloutLowered"); }

void TZyPieChart::SetCalloutBackColor(TZyColor Value) {
  Change(this, FCalloutBackColor, Value, "CalloutBackColor", &TZyPieChart::CalloutLookModified);
}

void TZyPieChart::SetCalloutShadow(bool Value) {
  Change(this, FCalloutShadow, Value, "CalloutShadow", &TZyPieChart::Modified);
}

void TZyPieChart::SetCalloutDistanceToPie(float Value) {
  SetDistance(FCalloutDistanceToPie, Value, "CalloutDistanceToPie");
}

void TZyPieChart::SetCalloutSpaceToBorder(float Value) {
  SetDistance(FCalloutSpaceToBorder, Value, "CalloutSpaceToBorder");
}

void TZyPieChart::SetCalloutRounding(float Value) {
  Change(this, FCalloutRounding, Value, "CalloutRounding", &TZyPieChart::Invalidate);
}

void TZyPieChart::SetExplodeOnClick(bool Value) {
  ChangeBy(this, FExplodeOnClick, Value, "ExplodeOnClick", [this](bool Explodes) { FExplodeOnClick = Explodes; });
}

}  // namespace zy
