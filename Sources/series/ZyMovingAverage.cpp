#include "series/ZyMovingAverage.h"

#include <algorithm>
#include <cmath>

#include "platform/framework/TPropInfo.h"
#include "undo/ZyChange.h"

namespace zy {

ZY_PUBLISHED(TZyMovingAverage, TZyFunctionSeries,
             Published<&TZyMovingAverage::AveragingMethod, &TZyMovingAverage::SetAveragingMethod>(
                 "AveragingMethod", TZyAveragingMethod::LinearWeighted),
             Published<&TZyMovingAverage::AveragingDirection, &TZyMovingAverage::SetAveragingDirection>(
                 "AveragingDirection", TZyAveragingDirection::OnlyDownwards),
             Published<&TZyMovingAverage::AveragingRangeMethod, &TZyMovingAverage::SetAveragingRangeMethod>(
                 "AveragingRangeMethod", TZyAveragingRangeMethod::NasCount),
             Published<&TZyMovingAverage::N, &TZyMovingAverage::SetN>("N", 10.0),
             Published<&TZyMovingAverage::ExponentialFactorForN, &TZyMovingAverage::SetExponentialFactorForN>(
                 "ExponentialFactorForN", 0.9),
             Republished("DisplayAutoStart DisplayAutoStop DisplayStart DisplayStop CoupleCalculationAndDisplay"))

TZyMovingAverage::TZyMovingAverage(TComponent* Owner)
    : TZyFunctionSeries(Owner, std::make_unique<TZyMovingAverageCalculation>()),
      FAvg(static_cast<TZyMovingAverageCalculation&>(Calculation())) {
  Initialize(StaticClassInfo().Name());
  TZyMovingAverage::RegisterVariables();
}

template <class TField, class TValue>
void TZyMovingAverage::ChangeSetting(TField& Field, TValue Value, TZyText Label, const char* PropName) {
  Change(this, Field, Value, Label, PropName, &TZyMovingAverage::CalculationModified);
}

void TZyMovingAverage::SetAveragingMethod(TZyAveragingMethod Value) {
  ChangeSetting(FAvg.AveragingMethod, Value, _sMvgAvgAveragingMethod, "AveragingMethod");
}

void TZyMovingAverage::SetAveragingDirection(TZyAveragingDirection Value) {
  ChangeSetting(FAvg.AveragingDirection, Value, _sMvgAvgAveragingDirection, "AveragingDirection");
}

void TZyMovingAverage::SetAveragingRangeMethod(TZyAveragingRangeMethod Value) {
  ChangeSetting(FAvg.AveragingRangeMethod, Value, _sMvgAvgAveragingRangeMethod, "AveragingRangeMethod");
}

void TZyMovingAverage::SetN(double Value) { ChangeSetting(FAvg.N, std::fabs(Value), _sMvgAvgN, "N"); }

void TZyMovingAverage::SetExponentialFactorForN(double Value) {
  ChangeSetting(FAvg.ExponentialFactorForN, std::min(std::fabs(Value), 1.0), _sMvgAvgExponentialFactorForN,
                "ExponentialFactorForN");
}

std::string TZyMovingAverage::GetFormula() const {
  switch (AveragingMethod()) {
    case TZyAveragingMethod::Simple:
      return LoadResString(_sSimple);
    case TZyAveragingMethod::LinearWeighted:
      return LoadResString(_sLinearWeighted);
    default:
      return LoadResString(_sExponentiallyWeighted);
  }
}

void TZyMovingAverage::RegisterVariables() {
  TZyFunctionSeries::RegisterVariables();
  AddVariableToList("N", LoadResString(_sAveragingN), this, GlobalVariableList(), [this] { return N(); });
  AddVariableToList("ExponentialFactorForN", LoadResString(_sExponentialFactorForN), this, GlobalVariableList(),
                    [this] { return ExponentialFactorForN(); });
}

}  // namespace zy
