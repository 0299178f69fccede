#include "dialogs/frames/ZySeriesSettingsFrame.h"

#include <algorithm>

#include "axes/ZyAxis.h"
#include "dialogs/controls/ZyDoubleEdit.h"
#include "dialogs/frames/ZyObjectItems.h"
#include "graph/ZyGraph2D.h"
#include "graph/values/ZyStringFunctions.h"
#include "platform/controls/TButtonControl.h"
#include "platform/controls/TCustomComboBox.h"
#include "platform/controls/TPanel.h"
#include "platform/controls/TScrollBox.h"
#include "platform/controls/TSpeedButton.h"
#include "platform/controls/TStaticText.h"
#include "platform/framework/ScopedFlag.h"
#include "platform/framework/TPropInfo.h"
#include "series/ZyArrows.h"
#include "series/ZyBars.h"
#include "series/ZyBubbles.h"
#include "series/ZyCandleSticks.h"
#include "series/ZyFittedLine.h"
#include "series/ZyInterpolation.h"
#include "series/ZyLeastSquares.h"
#include "series/ZyLinearRegression.h"
#include "series/ZyMovingAverage.h"
#include "series/ZyOHLC.h"
#include "series/ZyPointWithErrorSeries.h"
#include "texts/ZySettingsTexts.h"
#include "undo/ZyUndoGroup.h"

namespace zy {

ZY_PUBLISHED(TZySeriesSettingsFrame, TZySettingsFrame)

TZySeriesSettingsFrame::TZySeriesSettingsFrame(TComponent* Owner)
    : TZySettingsFrame(Owner, TZySeries::StaticClassInfo()) {
  AddSeriesPanel();
  AddPoints();
  AddLinePanels();
  AddAreas();
  AddArrows();
  AddBars();
  AddOhlc();
  AddLabels();
  AddRanges();
  AddRegression();
  AddInterpolation();
  AddAverage();
  AddFit();
  AddAssignments();
  AllAdded();
}

TZySeriesSettingsFrame::~TZySeriesSettingsFrame() {
  UnhookErrors();
  FRange.End();
  Destroying();
}

// --- The series -----------------------------------------------------------------------------------------------------

void TZySeriesSettingsFrame::SetSelectedSeries(TZySeries* Value) {
  if (Value == FSelectedSeries.Get() && Value != nullptr) return;
  EndInteractiveRange();
  UnhookErrors();
  FSelectedSeries = Value;
  SetUndoStack(Value == nullptr ? nullptr : Value->UndoStack());
  if (Value == nullptr) return;
  FillPartners();
  KeepPlain();
  UpdateControls();
  UpdateGroups();
  HookErrors();
}

/// Prices are filled with one colour: what is stored otherwise is set right when the user chooses them, as steps that
/// can be undone, and left alone while a dialog is being filled.
void TZySeriesSettingsFrame::KeepPlain() {
  if (!Is(TZyOHLC::StaticClassInfo()) || (UndoStack() != nullptr && !UndoStack()->Enabled())) return;
  auto& Prices = static_cast<TZyOHLC&>(*FSelectedSeries);
  Prices.Area().Gradient().SetVisible(false);
  Prices.Area().SetAreaStyle(TZyAreaStyle::Total);
}

std::vector<TPersistent*> TZySeriesSettingsFrame::Targets() const {
  if (FSelectedSeries == nullptr) return {};
  return {FSelectedSeries.Get()};
}

void TZySeriesSettingsFrame::SetOption(bool& Option, bool Value) {
  Option = Value;
  if (FSelectedSeries == nullptr) return;
  FillPartners();
  UpdateControls();
  UpdateGroups();
}

void TZySeriesSettingsFrame::SetInteractiveCalculationRanges(bool Value) {
  EndInteractiveRange();
  SetOption(FInteractiveCalculationRanges, Value);
}

TZyFunctionSeries* TZySeriesSettingsFrame::Curve() const {
  return dynamic_cast<TZyFunctionSeries*>(FSelectedSeries.Get());
}

void TZySeriesSettingsFrame::ListsChanged() {
  if (FSelectedSeries == nullptr) return;
  if (UndoStack() != FSelectedSeries->UndoStack()) SetUndoStack(FSelectedSeries->UndoStack());
  FillPartners();
  UpdateControls();
  UpdateGroups();
}

/// The other series of the list, as far as the property can have them: curves for what lies beyond, lines for bands.
void TZySeriesSettingsFrame::FillPartners() {
  const auto* const List = static_cast<const TZySeriesListBox*>(FSeriesList.Get());
  for (const char* PartName : {"MergeLegendItemCombo", "BandToCombo", "RangeFromCombo"}) {
    auto& Combo = Part<TZyObjectCombo>(PartName);
    const TClassInfo& Kind = FindRowOf(TZyPointSeries::StaticClassInfo(), PathOf(Combo))->ObjectClass();
    Combo.ClearObjects();
    Combo.AddObject(LoadResString(_sSettingsNone), nullptr);
    for (int Index = 0; FAsDesigner && List != nullptr && Index < List->ObjectCount(); ++Index) {
      TZySeries* const Other = List->SeriesAt(Index);
      const bool Fits = Other != nullptr && Other->ClassInfo().InheritsFrom(Kind);
      if (Fits && Other != FSelectedSeries) Combo.AddObject("S", Other);
    }
  }
}

// --- What is shown --------------------------------------------------------------------------------------------------

void TZySeriesSettingsFrame::UpdateGroups() {
  if (FSelectedSeries == nullptr) return;
  const auto IsAny = [this](std::initializer_list<const TClassInfo*> Classes) {
    return std::ranges::any_of(Classes, [this](const TClassInfo* Class) { return Is(*Class); });
  };
  const TClassInfo &Line = TZyLineSeries::StaticClassInfo(), &Bars = TZyBars::StaticClassInfo(),
                   &Bubbles = TZyBubbles::StaticClassInfo(), &Ohlc = TZyOHLC::StaticClassInfo(),
                   &Candles = TZyCandleSticks::StaticClassInfo(), &Arrows = TZyArrows::StaticClassInfo(),
                   &Points = TZyPointSeries::StaticClassInfo(), &Errors = TZyPointWithErrorSeries::StaticClassInfo();
  const std::pair<const char*, bool> Parts[] = {
      {"SymbolStylesPanel", Is(Points)},
      {"OutOfRangePanel", Is(Points) && FShowOutOfRangeSupport},
      {"LineStylesPanel", IsAny({&Line, &Arrows, &Ohlc, &Candles, &Bars, &Bubbles})},
      {"ErrorStylesPanel", Is(Errors)},
      {"AreaStylesPanel", IsAny({&Line, &Ohlc, &Bars, &Bubbles})},
      {"BandPanel", Is(Line) && Part<TZyObjectCombo>("BandToCombo").ObjectCount() > 1},
      {"ArrowPointPanel", Is(Arrows)},
      {"BarsPanel", Is(Bars)},
      {"OHLCPanel", Is(Ohlc)},
      {"CandleStickPanel", Is(Candles)},
      {"BubblePanel", Is(Bubbles)},
      {"LabelGroup", Is(Bars)},
      {"CalculationsGroup", Is(TZyFunctionSeries::StaticClassInfo())},
      {"CalcLinRegGroup", Is(TZyLinearRegression::StaticClassInfo())},
      {"CalcPolinomialGroup", Is(TZyPolynomial::StaticClassInfo())},
      {"CalcInterpolationGroup", Is(TZyInterpolation::StaticClassInfo())},
      {"CalcMovingAverageGroup", Is(TZyMovingAverage::StaticClassInfo())},
      {"CalcFitGroup", Is(TZyFittedLine::StaticClassInfo())},
      {"AssignmentsGroup", FAsDesigner},
      {"WeightAssignPanel", Is(TZyFunctionSeries::StaticClassInfo())},
      {"RadiusAssignPanel", Is(Bubbles)},
      {"ArrowDeltaPanel", Is(Arrows)},
      {"AssignOHLCPanel", Is(TZyCustomOHLC::StaticClassInfo())},
      {"AssignErrorsPanel", Is(Errors)},
      {"AssYDataCombo", !Is(TZyCustomOHLC::StaticClassInfo())},
      {"MergeWithLab", FAsDesigner},
      {"MergeLegendItemCombo", FAsDesigner}};
  for (const auto& [PartName, IsShown] : Parts) ShowPart(PartName, IsShown);
}

void TZySeriesSettingsFrame::ControlsUpdated() {
  ShowPart("ShowOutliersCheck", FShowOutliersSupport);
  ShowPart("AreaFillPanel", Part<TCheckBox>("SeriesAreaCheck").Checked());
  ShowPart("NormalFillPanel",
           Part<TCheckBox>("SeriesAreaCheck").Checked() && Part<TRadioButton>("NormalRadio").Checked());
  if (!Part<TCheckBox>("SeriesAreaCheck").Checked()) ShowPart("AreaGradientFrame", false);
  ShowBars();
  ShowLabels();
  if (Curve() != nullptr) ShowRanges();
  if (const auto* const Regression = dynamic_cast<const TZyLinearRegression*>(FSelectedSeries.Get()))
    EnablePart("OffsetEdit", Regression->FixedOffset());
  if (const auto* const Spline = dynamic_cast<const TZyInterpolation*>(FSelectedSeries.Get())) {
    const bool IsApproximative = Spline->InterpolationMethod() == TZyInterpolationMethod::ApproximativeSpline;
    for (const char* PartName : {"IntWeightLab", "IntWeightEdit"}) ShowPart(PartName, IsApproximative);
    for (const char* PartName : {"IntSmoothCheck", "IntSmoothEdit"}) ShowPart(PartName, !IsApproximative);
  }
  if (const auto* const Average = dynamic_cast<const TZyMovingAverage*>(FSelectedSeries.Get())) {
    const bool HasFactor = Average->AveragingMethod() == TZyAveragingMethod::ExponentiallyWeighted;
    for (const char* PartName : {"AlphaLab", "AlphaEdit"}) ShowPart(PartName, HasFactor);
  }
  if (dynamic_cast<const TZyPolynomial*>(FSelectedSeries.Get()) != nullptr) Part<TPanel>("PoliFormulaLab").Invalidate();
  ShowFit();
  if (auto* const List = static_cast<TZySeriesListBox*>(FSeriesList.Get())) List->Invalidate();
}

// --- Bars -----------------------------------------------------------------------------------------------------------

/// Solids, and the bars of prices, are filled with one colour.
void TZySeriesSettingsFrame::ShowBars() {
  const auto* const Bars = dynamic_cast<const TZyBars*>(FSelectedSeries.Get());
  const bool IsFlat = Bars == nullptr || Bars->BarStyle() == TZyBarStyle::Flat;
  const bool MayShade = IsFlat && !Is(TZyOHLC::StaticClassInfo());
  for (const char* PartName : {"LineGradientCheck", "SeriesLineWidthUpDown"}) EnablePart(PartName, IsFlat);
  for (const char* PartName : {"AreaBackColorPick", "SeriesHatchStyles", "GradientRadio", "AreaGradientFrame"})
    EnablePart(PartName, MayShade);
  if (Bars == nullptr) return;
  Part<TRadioButton>("BarFlatRadio").SetChecked(IsFlat);
  Part<TRadioButton>("BarCylinderRadio").SetChecked(Bars->BarStyle() == TZyBarStyle::Cylinder);
  Part<TRadioButton>("BarCuboidRadio").SetChecked(Bars->BarStyle() == TZyBarStyle::Cuboid);
}

/// What solids cannot have goes with the same step.
void TZySeriesSettingsFrame::SetBarStyle(int Style) {
  auto& Bars = dynamic_cast<TZyBars&>(*FSelectedSeries);
  const auto Value = static_cast<TZyBarStyle>(Style);
  if (Value == Bars.BarStyle()) return;
  const TZyUndoGroup Group(UndoStack(), _sBarsStyle);
  const std::uint64_t Alive = LiveHandle();
  Bars.SetBarStyle(Value);
  if (FromLiveHandle(Alive) == nullptr || FSelectedSeries != &Bars || Value == TZyBarStyle::Flat) return;
  Bars.Line().Gradient().SetVisible(false);
  Bars.Area().Gradient().SetVisible(false);
  Bars.Area().SetAreaStyle(TZyAreaStyle::Total);
}

void TZySeriesSettingsFrame::ShowLabels() {
  const auto* const Bars = dynamic_cast<const TZyBars*>(FSelectedSeries.Get());
  if (Bars == nullptr) return;
  using enum TZyLabelStyle;
  const TZyLabelStyle From = Bars->LabelFrom();
  const bool NamesCaptions = From == CaptionsList || From == CaptionAndValue || From == CaptionAndPercent;
  for (const char* PartName : {"LabFormatEdit", "LabFromCombo"}) ShowPart(PartName, FExtendedBarLabelOptions);
  ShowPart("LabCaptionsEdit",
           FExtendedBarLabelOptions && NamesCaptions && const_cast<TZyBars*>(Bars)->Captions() != nullptr);
}

// --- Ranges of curves -----------------------------------------------------------------------------------------------

void TZySeriesSettingsFrame::ShowRanges() {
  const TZyFunctionSeries& Shown = *Curve();
  const bool IsDate = Shown.XAxis() != nullptr && Shown.XAxis()->Scaling() == TZyAxisScaling::DateTime;
  const bool IsFree = FInteractiveCalculationRanges, IsCoupled = Shown.CoupleCalculationAndDisplay();
  const std::pair<const char*, bool> Edits[] = {
      {"RangeCalcStartEdit", IsFree || !Shown.AutoStart()},
      {"RangeCalcStopEdit", IsFree || !Shown.AutoStop()},
      {"RangeDispStartEdit", !IsCoupled && (IsFree || !Shown.DisplayAutoStart())},
      {"RangeDispStopEdit", !IsCoupled && (IsFree || !Shown.DisplayAutoStop())}};
  for (const auto& [PartName, IsEnabled] : Edits) {
    EnablePart(PartName, IsEnabled);
    Part<TZyDoubleEdit>(PartName).SetAsDateTime(IsDate);
  }
  for (const char* PartName : {"InteractiveCalcRangeBar", "InteractiveDispRangeBar"}) ShowPart(PartName, IsFree);
  for (const char* PartName :
       {"RangeCalcStartAutoCheck", "RangeCalcStopAutoCheck", "RangeDispStartAutoCheck", "RangeDispStopAutoCheck"})
    ShowPart(PartName, !IsFree);
  for (const char* PartName : {"RangeDispStartAutoCheck", "RangeDispStopAutoCheck", "InteractiveDispRangeBtn"})
    EnablePart(PartName, !IsCoupled);
  if (IsCoupled && FRange.IsActive() && FRange.IsDisplay()) EndInteractiveRange();
  FRange.Show();
}

/// One of both buttons at most is down.
void TZySeriesSettingsFrame::RangeButtonClicked(TSpeedButton& Button, bool IsDisplay) {
  if (!FCanSet || Curve() == nullptr) return;
  const bool IsDown = Button.Down();
  EndInteractiveRange();
  if (!IsDown) return;
  Button.SetDown(true);
  FRange.Begin(*Curve(), IsDisplay, [this] { UpdateControls(); });
  if (!FRange.IsActive()) Button.SetDown(false);
  SetRangeGraph(FRange.IsActive() ? dynamic_cast<TZyGraph2D*>(Curve()->XAxis()->Parent()) : nullptr);
}

/// A graph that dies takes the range along.
void TZySeriesSettingsFrame::SetRangeGraph(TZyGraph2D* Value) {
  FRangeGraph = Value;
  if (Value == nullptr && FRange.IsActive()) EndInteractiveRange();
}

void TZySeriesSettingsFrame::EndInteractiveRange() {
  FRange.End();
  FRangeGraph = nullptr;
  for (const char* PartName : {"InteractiveCalcRangeBtn", "InteractiveDispRangeBtn"})
    Part<TSpeedButton>(PartName).SetDown(false);
}

void TZySeriesSettingsFrame::CMVisibleChanged() {
  Inherited::CMVisibleChanged();
  if (!Visible() && !IsDestroying()) EndInteractiveRange();
}

// --- Errors of calculations -----------------------------------------------------------------------------------------

void TZySeriesSettingsFrame::HookErrors() {
  TZyFunctionSeries* const Shown = Curve();
  if (Shown == nullptr || Shown->OnCalculationError()) return;
  FOnErrorSet = true;
  Shown->SetOnCalculationError([this, Alive = LiveHandle()](TObject*, const std::exception& Reason) {
    if (FromLiveHandle(Alive) != nullptr) CalcError(Reason);
  });
}

void TZySeriesSettingsFrame::UnhookErrors() {
  if (std::exchange(FOnErrorSet, false) && Curve() != nullptr) Curve()->SetOnCalculationError(nullptr);
}

void TZySeriesSettingsFrame::CalcError(const std::exception& Reason) { ShowError(Reason.what()); }

void TZySeriesSettingsFrame::TestOrder() {
  auto* const Fit = dynamic_cast<TZyPolynomial*>(FSelectedSeries.Get());
  if (Fit != nullptr && Fit->GetCount() < Fit->Order() + 1) ShowError(LoadResString(_sNotEnoughData));
}

// --- Fitted lines ---------------------------------------------------------------------------------------------------

void TZySeriesSettingsFrame::ShowFit() {
  const auto* const Line = dynamic_cast<const TZyFittedLine*>(FSelectedSeries.Get());
  if (Line == nullptr) return;
  ShowPart("ExpressionPanel", Line->FromExpression());
  for (const char* PartName : {"PlusBtn", "MinusBtn"}) ShowPart(PartName, FAsDesigner);
  ShowPart("FitPanel", !FAsDesigner);
  EnablePart("MinusBtn", Line->Order() >= 1);
  for (const char* PartName : {"OptimizeVarianceRadio", "OptimizeCovarianceRadio"})
    ShowPart(PartName, FShowFitCovariance);
  if (FCoefficients.size() != Line->Coefficients().size()) MakeCoefficients(*Line);
  for (std::size_t i = 0; i < FCoefficients.size(); ++i)
    if (FCoefficients[i]->Value() != Line->Coefficients()[i]) FCoefficients[i]->SetValue(Line->Coefficients()[i]);
}

/// A label and an edit for each coefficient.
void TZySeriesSettingsFrame::MakeCoefficients(const TZyFittedLine& Line) {
  constexpr int Step = 24, LabelTop = 4, LabelWidth = 52, EditLeft = 55, EditWidth = 140, EditHeight = 22;
  auto& Scroll = Part<TScrollBox>("FitVarsScroll");
  for (TControl* Each : std::vector(Scroll.Controls())) delete Each;
  FCoefficients.clear();
  for (std::size_t i = 0; i < Line.Coefficients().size(); ++i) {
    const int Top = static_cast<int>(i) * Step;
    auto* const Label = new TStaticText(this);
    Label->SetBounds(0, Top + LabelTop, LabelWidth, EditHeight - LabelTop);
    std::string Letter = IndexToAlphabet(static_cast<int>(i) + 1);
    for (char& Each : Letter) Each = Each >= 'A' && Each <= 'Z' ? static_cast<char>(Each - 'A' + 'a') : Each;
    Label->SetCaption(Letter + " =");
    Label->SetParent(&Scroll);
    auto* const Edit = new TZyDoubleEdit(this);
    Edit->SetBounds(EditLeft, Top, EditWidth, EditHeight);
    Edit->SetTabStop(true);
    Edit->SetHint(LoadResString(_sFitCoeffs));
    Edit->SetParent(&Scroll);
    Label->SetFocusControl(Edit);
    const auto Changed = [this, i](TObject*) { UserActs([this, i] { SetCoefficient(i); }); };
    Edit->SetOnExit(Changed);
    Edit->SetOnDblClick(Changed);
    FCoefficients.push_back(Edit);
  }
}

void TZySeriesSettingsFrame::SetCoefficient(std::size_t Index) {
  auto* const Line = dynamic_cast<TZyFittedLine*>(FSelectedSeries.Get());
  if (Line == nullptr || Index >= FCoefficients.size() || Index >= Line->Coefficients().size()) return;
  std::vector<double> Values = Line->Coefficients();
  Values[Index] = FCoefficients[Index]->Value();
  Line->SetCoefficients(Values);
}

void TZySeriesSettingsFrame::ChangeOrder(int By) {
  if (auto* const Line = dynamic_cast<TZyFittedLine*>(FSelectedSeries.Get())) Line->SetOrder(Line->Order() + By);
}

void TZySeriesSettingsFrame::DoFit() {
  auto* const Line = dynamic_cast<TZyFittedLine*>(FSelectedSeries.Get());
  if (Line == nullptr || Line->Order() <= 0) return;
  Line->RangesModified();
  Line->Calculate();
}

}  // namespace zy
