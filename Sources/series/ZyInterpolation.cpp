#include "series/ZyInterpolation.h"

#include <algorithm>

#include "analysis/ZyParseFktLists.h"
#include "graph/parts/ZySeriesGraph.h"
#include "persistence/ZyArchive.h"
#include "platform/controls/TWinControl.h"
#include "platform/framework/Application.h"
#include "platform/framework/TPropInfo.h"
#include "texts/Exceptions.h"
#include "undo/ZyUndoGroup.h"

namespace zy {
namespace {

std::string TextOf(TZyInterpolationMethod Method, TZyText Akima, TZyText Spline, TZyText Approximative) {
  const TZyText Texts[] = {Akima, Spline, Approximative};
  return LoadResString(Texts[static_cast<std::size_t>(Method)]);
}

}  // namespace

ZY_PUBLISHED(TZyInterpolation, TZyFunctionSeries,
             Published<&Self::InterpolationMethod, &Self::SetInterpolationMethod>("InterpolationMethod",
                                                                                  TZyInterpolationMethod::Akima,
                                                                                  _sInterpolationMethod),
             Published<&Self::SmoothPoints, &Self::SetSmoothPoints>("SmoothPoints", false, _sFnSmoothPoints),
             Published<&Self::SmoothingRange, &Self::SetSmoothingRange>("SmoothingRange", 0.0, _sFnSmoothingRange),
             Published<&Self::ElasticityFactor, &Self::SetElasticityFactor>("ElasticityFactor", 1.0,
                                                                            _sFnElasticityFactor),
             Republished("DisplayAutoStart DisplayAutoStop DisplayStart DisplayStop CoupleCalculationAndDisplay"))
ZY_PUBLISHED(TZyDifferential, TZyInterpolation)
ZY_PUBLISHED(TZyIntegral, TZyDifferential)

TZyInterpolation::TZyInterpolation(TComponent* Owner) : TZyInterpolation(Owner, TBase{}) {
  Initialize(StaticClassInfo().Name());
}

TZyInterpolation::TZyInterpolation(TComponent* Owner, TBase)
    : TZyFunctionSeries(Owner, std::make_unique<TZyInterpolationCalculation>()),
      FInterpolation(static_cast<TZyInterpolationCalculation&>(Calculation())) {
  FInterpolation.OnInformation = [this](std::string_view Text) {
    if (!ReadsRecord() && !IsLoading()) Application().ShowMessage(Text);
  };
  RegisterWhenAsked();
}

// --- Settings -------------------------------------------------------------------------------------------------------

/// Undo brings the method back first, under which the points can be smoothed.
void TZyInterpolation::SetInterpolationMethod(TZyInterpolationMethod Value) {
  if (Value == InterpolationMethod()) return;
  const TZyUndoGroup Group(UndoStack(), _sInterpolationMethod);
  if (UndoStack() != nullptr && Value == TZyInterpolationMethod::ApproximativeSpline && SmoothPoints())
    UndoStack()->PushProperty(this, "SmoothPoints");
  ChangeBy(this, InterpolationMethod(), Value, "InterpolationMethod", [this](TZyInterpolationMethod Method) {
    FInterpolation.SetInterpolationMethod(Method);
    CalculationModified();
  });
}

void TZyInterpolation::SetSmoothPoints(bool Value) {
  if (Value && InterpolationMethod() == TZyInterpolationMethod::ApproximativeSpline)
    return FInterpolation.SetDoSmoothing(Value);  // which says why not
  ChangeBy(this, SmoothPoints(), Value, "SmoothPoints", [this](bool IsOn) {
    FInterpolation.SetDoSmoothing(IsOn);
    if (SmoothingRange() != 0) CalculationModified();
  });
}

void TZyInterpolation::SetSmoothingRange(double Value) {
  ChangeBy(this, SmoothingRange(), Value, "SmoothingRange", [this](double Range) {
    FInterpolation.SetSmoothM(Range);
    if (SmoothPoints()) CalculationModified();
  });
}

void TZyInterpolation::SetElasticityFactor(double Value) {
  ChangeBy(this, ElasticityFactor(), TZyInterpolationCalculation::LimitedElasticity(Value), "ElasticityFactor",
           [this](double Factor) {
             FInterpolation.SetElasticityFactor(Factor);
             if (InterpolationMethod() == TZyInterpolationMethod::ApproximativeSpline) CalculationModified();
           });
}

int TZyInterpolation::MinCount() const {
  return InterpolationMethod() == TZyInterpolationMethod::ApproximativeSpline ? 6 : 3;
}

void TZyInterpolation::Fields(TZyArchive& Archive) {
  using T = TZyInterpolation;
  TZyFunctionSeries::Fields(Archive);
  Archive.Level("Interpolation", [&] {
    Archive.Field<&T::InterpolationMethod, &T::SetInterpolationMethod>(*this, "Method");
    Archive.Properties(*this, "SmoothPoints SmoothingRange ElasticityFactor");
    Archive.EndRecord();
  });
}

// --- Curve ----------------------------------------------------------------------------------------------------------

TZyInterpolationCalculation& TZyInterpolation::Curve() const {
  if (FInterpolation.IsStale() && XData() != nullptr && YData() != nullptr) CalculateCurve();
  return FInterpolation;
}

const TZyDoublePointArray& TZyInterpolation::GetMinima() { return Curve().GetMinima(); }

const TZyDoublePointArray& TZyInterpolation::GetMaxima() { return Curve().GetMaxima(); }

const TZyDoublePoint& TZyInterpolation::At(const TZyDoublePointArray& Points, int i) {
  if (i < 0 || static_cast<std::size_t>(i) >= Points.size())
    throw ERangeError(Format(LoadResString(_sVectorIdxOutOfRange), {i}));
  return Points[static_cast<std::size_t>(i)];
}

std::string TZyInterpolation::GetFormula() const {
  return TextOf(InterpolationMethod(), _sAkimaInt, _sNormalSplineInt, _sApproxSplineInt);
}

void TZyInterpolation::RegisterVariables() {
  TZyFunctionSeries::RegisterVariables();
  AddVariable("SmoothingRange", _sSmoothingRange, &TZyInterpolation::GetSmoothM);
  AddVariable("ElasticityFactor", _sElasticityFactor, &TZyInterpolation::GetElasticityFactor);
  AddArray("Maxima.X", _sMaxima, [this](int i) { return GetXMaxima(i); });
  AddArray("Maxima.Y", _sMaxima, [this](int i) { return GetYMaxima(i); });
  AddArray("Minima.X", _sMinima, [this](int i) { return GetXMinima(i); });
  AddArray("Minima.Y", _sMinima, [this](int i) { return GetYMinima(i); });
}

// --- Slope and integral ---------------------------------------------------------------------------------------------

TZyDifferential::TZyDifferential(TComponent* Owner) : TZyDifferential(Owner, TBase{}) {
  Initialize(StaticClassInfo().Name());
}

std::string TZyDifferential::GetFormula() const {
  return TextOf(InterpolationMethod(), _sAkimaDiff, _sNormalSplineDiff, _sApproxSplineDiff);
}

void TZyDifferential::TakeDefaultAxis(IZyAxisGraph& FromGraph) {
  TWinControl& Control = FromGraph.Control();
  FXAxis = FromGraph.PrimaryXAxis();
  const auto IsSecond = [&](TControl* Each) {
    const auto* const Axis = dynamic_cast<TZyAxis*>(Each);
    return Axis != nullptr && Axis != FromGraph.PrimaryYAxis() && !Axis->GetHorizontal() && !Axis->IsSlaveAxis();
  };
  const auto& Controls = Control.Controls();
  const auto Found = std::ranges::find_if(Controls, IsSecond);
  if (Found != Controls.end()) FYAxis = static_cast<TZyAxis*>(*Found);
  if (FYAxis != nullptr) return;
  if (!IsDesigning() || !Application().Confirm(LoadResString(_sNoSecondaryAxis))) {
    FYAxis = FromGraph.PrimaryYAxis();
    return;
  }
  auto* const Axis = new TZyAxis(Control.Owner());
  Axis->SetParent(&Control);
  Axis->SetLeft(Control.Width());
  Axis->SetTop(Control.Height() / 2);
  Axis->SetName(UniqueName(Control.Owner(), "YAxis"));
  Axis->SetCaption("2nd Y-Axis");
  Axis->Calculate();
  Axis->Modified();
  FYAxis = Axis;
}

TZyIntegral::TZyIntegral(TComponent* Owner) : TZyDifferential(Owner, TBase{}) { Initialize(StaticClassInfo().Name()); }

std::string TZyIntegral::GetFormula() const {
  return TextOf(InterpolationMethod(), _sAkimaIntegral, _sNormalSplineIntegral, _sApproxSplineIntegral);
}

}  // namespace zy
