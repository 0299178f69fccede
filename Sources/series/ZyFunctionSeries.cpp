#include "series/ZyFunctionSeries.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "analysis/ZyMath.h"
#include "analysis/ZyParseFktLists.h"
#include "graph/parts/ZySeriesGraph.h"
#include "persistence/ZyArchive.h"
#include "platform/data/DataExcerpt.h"
#include "platform/data/TDataSet.h"
#include "platform/drawing/ClipGuard.h"
#include "platform/framework/TPropInfo.h"
#include "series/ZyPointLook.h"
#include "series/vectors/ZyDoubleVector.h"
#include "texts/Exceptions.h"
#include "texts/ZyTableTexts.h"
#include "undo/ZyChange.h"
#include "undo/ZyUndoGroup.h"

namespace zy {
namespace {

/// What leaves out rows is good for a picture, and for no curve.
void TestIsWhole(const TZyFunctionSeries& Series) {
  for (const TZyCustomDoubleVector* Each : Series.Vectors()) {
    const auto* const Vector = dynamic_cast<const TZyDoubleVector*>(Each);
    if (Vector == nullptr || Vector->DataSource() == nullptr) continue;
    const auto* const Excerpt = dynamic_cast<const IDataExcerpt*>(Vector->DataSource()->DataSet());
    if (Excerpt != nullptr && Excerpt->IsExcerpt())
      throw EMathError(
          Format(LoadResString(_sTableExcerpt), {Series.ToString(), Excerpt->RowCount(), Excerpt->RowSource()}));
  }
}

}  // namespace

// The display range is published by the kinds whose curve reaches beyond its data.
ZY_PUBLISHED(
    TZyFunctionSeries, TZyLineSeries, Published<&Self::Weight, &Self::SetWeight>("Weight", _sFunctionsWeight),
    Published<&Self::AutoStart, &Self::SetAutoStart>("AutoStart", true, _sFunctionsAutoStart),
    Published<&Self::AutoStop, &Self::SetAutoStop>("AutoStop", true, _sFunctionsAutoStop),
    Published<&Self::CalculationStart, &Self::SetCalculationStart>("CalculationStart", 0.0,
                                                                   _sFunctionsCalculationStart),
    Published<&Self::CalculationStop, &Self::SetCalculationStop>("CalculationStop", 0.0, _sFunctionsCalculationStop),
    Published<&Self::ClipYValues, &Self::SetClipYValues>("ClipYValues", true, _sFunctionsClipYValues),
    Published<&Self::WeightValueTransformation>("WeightValueTransformation"),
    Published<&Self::OnCalculated>("OnCalculated"), Published<&Self::OnCalculationError>("OnCalculationError"),
    Published<&Self::DisplayAutoStart, &Self::SetDisplayAutoStart>("DisplayAutoStart", true,
                                                                   _sFunctionsDisplayAutoStart)
        .Hidden(),
    Published<&Self::DisplayAutoStop, &Self::SetDisplayAutoStop>("DisplayAutoStop", true, _sFunctionsDisplayAutoStop)
        .Hidden(),
    Published<&Self::DisplayStart, &Self::SetDisplayStart>("DisplayStart", 0.0, _sFunctionsDisplayStart).Hidden(),
    Published<&Self::DisplayStop, &Self::SetDisplayStop>("DisplayStop", 0.0, _sFunctionsDisplayStop).Hidden(),
    Published<&Self::CoupleCalculationAndDisplay, &Self::SetCoupleCalculationAndDisplay>(
        "CoupleCalculationAndDisplay", true, _sFunctionsCoupleCalculationAndDisplay)
        .Hidden())

TZyFunctionSeries::TZyFunctionSeries(TComponent* Owner, std::unique_ptr<TZyCalculation> Calculation)
    : TZyLineSeries(Owner), FCalculation(std::move(Calculation)) {
  FCalculation->Sender = this;
}

std::string TZyFunctionSeries::GetFormula() const { throw EMethodNotFound(LoadResString(_sFormulaMustbeOverridden)); }

void TZyFunctionSeries::RegisterVariables() {
  TZyLineSeries::RegisterVariables();
  AddStringToList("Formula", LoadResString(_sSeriesFormula), this, GlobalStringList(), [this] { return GetFormula(); });
  AddVariable("CalculationStart", _sCalcStart, &Self::GetCalcStart);
  AddVariable("CalculationStop", _sCalcStop, &Self::GetCalcStop);
  AddVariable("DisplayStart", _sDisplayStart, &Self::GetDisplayStart);
  AddVariable("DisplayStop", _sDisplayStop, &Self::GetDisplayStop);
}

void TZyFunctionSeries::Fields(TZyArchive& Archive) {
  TZyLineSeries::Fields(Archive);
  Archive.Level("FunctionSeries", *this,
                "Weight AutoStart AutoStop DisplayAutoStart DisplayAutoStop CalculationStart CalculationStop "
                "DisplayStart DisplayStop CoupleCalculationAndDisplay ClipYValues");
}

// --- Calculation ----------------------------------------------------------------------------------------------------

/// The count is taken first: a formula that fails is not tried again at every paint, and a handler that changes a
/// setting, or paints, asks for a calculation after this one. The range, and a fit of logarithms, depend on the scaling
/// of the axes.
void TZyFunctionSeries::Calculate() {
  if (FIsCalculating) return;
  const bool HasLogX = FXAxis != nullptr && FXAxis->HasLogScaling(),
             HasLogY = FYAxis != nullptr && FYAxis->HasLogScaling();
  if (HasLogX != FHadLogX || HasLogY != FHadLogY) CalculationModified();
  FHadLogX = HasLogX;
  FHadLogY = HasLogY;
  if (!TakeCount()) return;
  SetRange(*FXAxis, FXStart, FXStop, RangeOfX());
  FState.RangesTaken();
  const TZyCalculationErrorHandler Handler = mCalculationError;
  const std::uint64_t Alive = LiveHandle();
  struct TCalculating {
    std::uint64_t Series;
    bool& Flag;
    ~TCalculating() {
      if (FromLiveHandle(Series) != nullptr) Flag = false;
    }
  };
  try {
    const TCalculating Calculating{Alive, FIsCalculating = true};
    FHasCurve = false;
    TestIsWhole(*this);
    CalculateFunction();
    UpdateVariablesObjects(*ObjectsToUpdate());
    if (FYAxis != nullptr) FYAxis->RangeModified();
    FHasCurve = true;
    PointsModified();
  } catch (
      const EAbort&) {  // a handler freed the curve, or changed what it is computed from: once more at the next paint
    if (FromLiveHandle(Alive) == nullptr) return;
    ForgetPixels();
    CalculationModified();
  } catch (const std::exception& Error) {
    if (FromLiveHandle(Alive) == nullptr) return;
    ForgetPixels();
    FState.PixelsTaken();
    Invalidate();
    if (!Handler) throw;
    Handler(this, Error);  // last of all: it may free the series
  }
}

/// The range of the data, on a logarithmic axis without what is not positive; it covers a display range set by hand.
TZySeries::TRange TZyFunctionSeries::RangeOfX() {
  TRange Range = RangeOf(FX, FY, *FXAxis);
  if (FXAxis->HasLogScaling() && Range.Low <= 0) Range.Low = SmallestPositive(FX, Range.Low);
  if (FCoupleCalculationAndDisplay) return Range;
  if (!FDisplayAutoStart) Range.Low = std::min(Range.Low, FDisplayStart);
  if (!FDisplayAutoStop) Range.High = std::max(Range.High, FDisplayStop);
  return Range;
}

void TZyFunctionSeries::SetLimits() {
  const bool HasData = FXStart <= FXStop;
  if (FAutoStart && HasData) FCalcStart = FXStart;
  if (FAutoStop && HasData) FCalcStop = FXStop;
  if (FCoupleCalculationAndDisplay) {
    FDisplayStart = FCalcStart;
    FDisplayStop = FCalcStop;
    return;
  }
  if (FDisplayAutoStart && HasData) FDisplayStart = FXStart;
  if (FDisplayAutoStop && HasData) FDisplayStop = FXStop;
}

void TZyFunctionSeries::CalculateFunction() {
  if (Count() < MinCount()) return;
  SetLimits();
  CalculateCurve();
  TakeRangeOfCurve();
}

void TZyFunctionSeries::TakeRangeOfCurve() {
  if (FXAxis == nullptr || FYAxis == nullptr) throw EAbort(LoadResString(_sSeriesChanged));  // by a handler
  TRange Y;
  Sample(FDisplayStart, FDisplayStop, [&](double x) { Y.Take(GetY(x)); });
  if (FClipYValues && AnyOtherSeries()) Y = {};
  FYStart = Y.Low;
  FYStop = Y.High;
  TellCalculated();
}

void TZyFunctionSeries::TellCalculated() {
  const TNotifyEvent Handler = mCalculated;  // it may set another, or free the series
  const std::uint64_t Alive = LiveHandle();
  if (!Handler) return;
  Handler(this);
  TZyPointLook::TestAlive(Alive);
}

/// The transformation of an input for the calculation, by way of the input, which ends the calculation when a handler
/// takes its data away.
TZyValueTransformation TZyFunctionSeries::Handed(const TZySeriesInput& Input) {
  if (!Input.IsTransformed()) return {};
  return [&Input](TObject*, const TZyTransformEventArgs& e) { return Input.Transform(e.Value, e.Index); };
}

void TZyFunctionSeries::CalculateCurve() const {
  TZyCalculation& Curve = *FCalculation;
  struct TLoan {
    TZyCalculation& Curve;
    std::uint64_t Series;  // a transformation may free it, with the calculation
    ~TLoan() {
      if (FromLiveHandle(Series) != nullptr) Curve.XData = Curve.YData = Curve.Weight = nullptr;
    }
  } const Loan{Curve, LiveHandle()};
  Curve.OutliersVisible = OutliersVisible();
  Curve.XData = XData();
  Curve.YData = YData();
  Curve.Weight = Weight();
  constexpr double LargestDouble = std::numeric_limits<double>::max();
  const bool HasRange = FXStart <= FXStop;
  Curve.Start = FAutoStart && !HasRange ? -LargestDouble : FCalcStart;
  Curve.Stop = FAutoStop && !HasRange ? LargestDouble : FCalcStop;
  if (!IsDesigning()) {
    Curve.mXValueTransformation = Handed(FX);
    Curve.mYValueTransformation = Handed(FY);
    Curve.mWeightValueTransformation = Handed(FWeight);
  }
  Curve.Calculate();
}

bool TZyFunctionSeries::AnyOtherSeries() const {
  if (FYAxis == nullptr) return false;
  return std::ranges::any_of(FYAxis->RelatedSeries(), [](const IZyAxisSeries* Each) {
    return Each->SeriesVisible() && dynamic_cast<const TZyFunctionSeries*>(Each) == nullptr;
  });
}

/// Once for each column of pixels of the X axis, ends included; a range of no width, or on an axis of none, is sampled
/// at its start alone.
template <class TSample>
void TZyFunctionSeries::Sample(double Start, double Stop, const TSample& Do) const {
  if (!(Start <= Stop) || !std::isfinite(Start) || !std::isfinite(Stop)) return;
  const int Columns = Start < Stop ? std::max(FXAxis->Width(), 0) : 0;
  const double Span = Stop - Start;
  const double Step = std::isfinite(Span) ? Span / std::max(Columns, 1) : Stop / Columns - Start / Columns;
  for (int i = 0; i < Columns; ++i) Do(Start + i * Step);
  Do(Columns > 0 ? Stop : Start);
}

void TZyFunctionSeries::CalculatePoints() {
  FState.PixelsModified();  // the curve is sampled as a whole
  TZyLineSeries::CalculatePoints();
}

/// A curve without a value at some place where it is drawn is not drawn at all, which OnCalculationError is told: a
/// paint goes on.
void TZyFunctionSeries::TakeNewPixels() {
  if (!HasCurve() || Count() < MinCount()) return;
  const double Start = std::max(FDisplayStart, std::min(FXAxis->Start(), FXAxis->Stop()));
  const double Stop = std::min(FDisplayStop, std::max(FXAxis->Start(), FXAxis->Stop()));
  const auto Take = [this](double x) { Keep({FXAxis->NumberToWorld(x), FYAxis->NumberToWorld(GetY(x))}, -1); };
  const std::uint64_t Alive = LiveHandle();
  try {
    ForEachColumn(Start, Stop, Take);
  } catch (const EAbort&) {
    throw;
  } catch (const std::exception& Error) {  // a function of the application has no value there
    if (FromLiveHandle(Alive) == nullptr) throw EAbort(LoadResString(_sSeriesFreed));
    ForgetPixels();
    const TZyCalculationErrorHandler Handler = mCalculationError;
    if (Handler) Handler(this, Error);
    TZyPointLook::TestAlive(Alive);
  }
}

void TZyFunctionSeries::ForEachColumn(double Start, double Stop, const std::function<void(double x)>& Do) const {
  if (FXAxis->HasLogScaling()) {
    Sample(std::log10(Start), std::log10(Stop), [&](double l) { Do(Exp10(l)); });
  } else {
    Sample(Start, Stop, Do);
  }
}

TZySeries::TPointValues TZyFunctionSeries::ValuesOfPixel(int, float PixelX) const {
  const double X = FXAxis->WorldToNumber(PixelX);
  return {-1, X, GetY(X)};
}

int TZyFunctionSeries::FindPoint(int X, int Y, float Delta) const {
  const auto Fits = [&](const PointF& Pixel) {
    return std::fabs(Pixel.X - static_cast<float>(X)) <= Delta && std::fabs(Pixel.Y - static_cast<float>(Y)) <= Delta;
  };
  return !RecalculatePoints() && std::ranges::any_of(Points(), Fits) ? 0 : -1;
}

void TZyFunctionSeries::PaintGr(Graphics& Gr) {
  if (!SeriesVisible()) return;
  if (!FClipYValues || Graph() == nullptr) return TZyLineSeries::PaintGr(Gr);
  const TClipGuard Clip(Gr);
  Gr.SetClip(Graph()->DrawingArea());
  TZyLineSeries::PaintGr(Gr);
}

// --- Setters --------------------------------------------------------------------------------------------------------

void TZyFunctionSeries::SetWeight(TZyCustomDoubleVector* Value) {
  constexpr int SampleCount = 10;
  auto* const Sample = dynamic_cast<TZyDoubleVector*>(Value);
  if (IsDesigning() && !IsLoading() && !ReadsRecord() && Sample != nullptr && Sample != Weight() &&
      Sample->Count() == 0)
    for (int i = 0; i < SampleCount; ++i) Sample->Add(1);
  SetInput(FWeight, Value);
}

/// The step takes along what the next calculation writes over, and for redo what switching off leaves as it is. Whether
/// the value changed.
bool TZyFunctionSeries::SetAuto(bool& Field, bool Value, std::initializer_list<std::string_view> Names) {
  if (Field == Value) return false;
  const TZyUndoGroup Group(UndoStack(), *this, Names);
  Field = Value;
  if (Value) CalculationModified();
  return true;
}

void TZyFunctionSeries::SetAutoStart(bool Value) { SetAuto(FAutoStart, Value, {"AutoStart", "CalculationStart"}); }

void TZyFunctionSeries::SetAutoStop(bool Value) { SetAuto(FAutoStop, Value, {"AutoStop", "CalculationStop"}); }

void TZyFunctionSeries::SetDisplayAutoStart(bool Value) {
  SetAuto(FDisplayAutoStart, Value, {"DisplayAutoStart", "DisplayStart"});
}

void TZyFunctionSeries::SetDisplayAutoStop(bool Value) {
  SetAuto(FDisplayAutoStop, Value, {"DisplayAutoStop", "DisplayStop"});
}

void TZyFunctionSeries::SetCoupleCalculationAndDisplay(bool Value) {
  if (SetAuto(FCoupleCalculationAndDisplay, Value, {"CoupleCalculationAndDisplay", "DisplayStop", "DisplayStart"}))
    CalculationModified();
}

/// Within the data only other pixels are shown; beyond them the range of the series grows.
void TZyFunctionSeries::SetDisplayLimit(double& Field, double Value, const char* PropName, bool LiesOutside) {
  Change(this, Field, Value, PropName,
         LiesOutside ? &TZyFunctionSeries::CalculationModified : &TZyFunctionSeries::DisplayModified);
}

void TZyFunctionSeries::SetDisplayStart(double Value) {
  SetDisplayLimit(FDisplayStart, Value, "DisplayStart", Value < FXStart);
}

void TZyFunctionSeries::SetDisplayStop(double Value) {
  SetDisplayLimit(FDisplayStop, Value, "DisplayStop", Value > FXStop);
}

}  // namespace zy
