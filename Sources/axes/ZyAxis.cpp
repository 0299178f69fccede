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
namespace {

/// Distance in pixels at which the way from values to pixels saturates: within what a drawing surface survives, and far
/// enough that a line from there still heads the right way.
constexpr double Saturation = 100000;

}  // namespace

ZY_PUBLISHED(TZyAxis, TGraphicControl, Published<&TZyAxis::Caption, &TZyAxis::SetCaption>("Caption"),
             Published<&TZyAxis::CaptionVisible, &TZyAxis::SetCaptionVisible>("CaptionVisible", true),
             Published<&TZyAxis::CaptionDistanceAfter, &TZyAxis::SetCaptionDistanceAfter>("CaptionDistanceAfter", 0.0f),
             Published<&TZyAxis::CaptionDistanceBefore, &TZyAxis::SetCaptionDistanceBefore>("CaptionDistanceBefore",
                                                                                            0.0f),
             Published<&TZyAxis::DistanceNumbersCaption, &TZyAxis::SetDistanceNumbersCaption>("DistanceNumbersCaption")
                 .NotStored(),
             Published<&TZyAxis::DistanceToBorder, &TZyAxis::SetDistanceToBorder>("DistanceToBorder").NotStored(),
             Published<&TZyAxis::CaptionFont>("CaptionFont"), Published<&TZyAxis::Font>("Font"),
             Published<&TZyAxis::NumbersVisible, &TZyAxis::SetNumbersVisible>("NumbersVisible", true),
             Published<&TZyAxis::ForeColor, &TZyAxis::SetForeColor>("ForeColor", Colors::Black),
             Published<&TZyAxis::TickColor, &TZyAxis::SetTickColor>("TickColor"),
             Published<&TZyAxis::MajorTickColor, &TZyAxis::SetMajorTickColor>("MajorTickColor"),
             Published<&TZyAxis::Position, &TZyAxis::SetPosition>("Position", TZyAxisPosition::Bottom),
             Published<&TZyAxis::Twisted, &TZyAxis::SetTwisted>("Twisted", false),
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
      FFont([this] { DoInvalidate(); }),
      FCaptionRec([this] { DoInvalidate(); }),
      FValuesStart(std::numeric_limits<double>::max()),
      FValuesStop(-std::numeric_limits<double>::max()) {
  SetBounds(0, 0, 400, 20);
  FFont.SetName("Arial");
  FFont.SetSize(12);
  FFont.SetStyle({TFontStyle::Bold});
  FFont.SetFillColor(Colors::DarkBlue);
  FFont.OnNeedsResize = [this] { Modified(); };
  TZyFont& CaptionFont = FCaptionRec.CaptionFont();
  CaptionFont.SetName("Times New Roman");
  CaptionFont.SetSize(14);
  CaptionFont.SetStyle({TFontStyle::Bold});
  CaptionFont.SetFillColor(Colors::DarkRed);
  CaptionFont.OnNeedsResize = [this] { Modified(); };
}

TZyAxis::~TZyAxis() {
  Destroying();
  if (TZyGraph2D* const Parent = Graph(); Parent != nullptr && !Parent->IsDestroying()) Parent->Modified();
}

TZyGraph2D* TZyAxis::Graph() const { return dynamic_cast<TZyGraph2D*>(Parent()); }

// --- Change protocol ------------------------------------------------------------------------------------------------

void TZyAxis::DoInvalidate() {
  if (Parent() != nullptr) Invalidate();
}

void TZyAxis::Modified() {
  FNeedsRecalculate = true;
  FValuesRounded = false;
  DoInvalidate();
}

void TZyAxis::SetParent(TWinControl* Value) {
  if (Value == Parent()) return;
  TGraphicControl::SetParent(Value);
  if (IsDestroying()) return;
  const std::vector<TZySeries*> Related = FRelatedSeries;  // series may leave while they follow the axis
  for (TZySeries* Series : Related) Series->TestAllAssigned();
  Modified();
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

// --- Properties -----------------------------------------------------------------------------------------------------

void TZyAxis::SetUndoStack(TZyUndoStack* Value) { FUndoStack = Value; }

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

void TZyAxis::SetEnd(double& End, double& InitialEnd, double& LastEnd, double Value, TZyText Label,
                     const char* PropName) {
  if (!std::isfinite(Value) || Value == End) return;
  if (FUndoStack != nullptr) FUndoStack->PushProperty(this, LoadResString(Label), PropName);
  End = InitialEnd = LastEnd = Value;
  Modified();
}

void TZyAxis::SetStart(double Value) { SetEnd(FStart, FInitialStart, FLastStart, Value, _sAxisStart, "Start"); }

void TZyAxis::SetStop(double Value) { SetEnd(FStop, FInitialStop, FLastStop, Value, _sAxisStop, "Stop"); }

// --- Values and pixels ----------------------------------------------------------------------------------------------

float TZyAxis::NumberToWorld(double Value) const {
  const bool Forward = GetHorizontal() != FTwisted;
  const float Base = GetHorizontal() ? FAxLeft : FAxTop;
  const double FromStart = (Value - FStart) / FNormalizeConst;
  if (std::fabs(FromStart) < Saturation)
    return Base + static_cast<float>(Forward ? FromStart : static_cast<double>(FAxLength) - FromStart);
  const bool Negative = FromStart < 0;
  return Base + static_cast<float>(Negative == Forward ? -Saturation : Saturation);
}

double TZyAxis::WorldToNumber(float Pixel) const {
  const bool Forward = GetHorizontal() != FTwisted;
  const double Distance = static_cast<double>(Pixel) - static_cast<double>(GetHorizontal() ? FAxLeft : FAxTop);
  return (Forward ? Distance : static_cast<double>(FAxLength) - Distance) * FNormalizeConst + FStart;
}

}  // namespace zy
