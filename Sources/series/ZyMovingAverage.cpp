#include "series/ZyMovingAverage.h"

#include <algorithm>
#include <cmath>

#include "persistence/ZyArchive.h"
#include "platform/framework/TPropInfo.h"
#include "undo/ZyChange.h"

namespace zy {

ZY_PUBLISHED(TZyMovingAverage, TZyFunctionSeries,
             Published<&TZyMovingAverage::AveragingMethod, &TZyMovingAverage::SetAveragingMethod>(
                 "AveragingMethod", TZyAveragingMethod::LinearWeighted)
                 .Labelled(_sMvgAvgAveragingMethod),
             Published<&TZyMovingAverage::AveragingDirection, &TZyMovingAverage::SetAveragingDirection>(
                 "AveragingDirection", TZyAveragingDirection::OnlyDownwards)
                 .Labelled(_sMvgAvgAveragingDirection),
             Published<&TZyMovingAverage::AveragingRangeMethod, &TZyMovingAverage::SetAveragingRangeMethod>(
                 "AveragingRangeMethod", TZyAveragingRangeMethod::NasCount)
                 .Labelled(_sMvgAvgAveragingRangeMethod),
             Published<&TZyMovingAverage::N, &TZyMovingAverage::SetN>("N", 10.0).Labelled(_sMvgAvgN),
             Published<&TZyMovingAverage::ExponentialFactorForN, &TZyMovingAverage::SetExponentialFactorForN>(
                 "ExponentialFactorForN", 0.9)
                 .Labelled(_sMvgAvgExponentialFactorForN),
             Republished("DisplayAutoStart DisplayAutoStop DisplayStart DisplayStop CoupleCalculationAndDisplay"))

TZyMovingAverage::TZyMovingAverage(TComponent* Owner)
    : TZyFunctionSeries(Owner, std::make_unique<TZyMovingAverageCalculation>()),
      FAvg(static_cast<TZyMovingAverageCalculation&>(Calculation())) {
  Initialize(StaticClassInfo().Name());
  TZyMovingAverage::RegisterVariables();
}

template <class TField, class TValue>
void TZyMovingAverage::ChangeSetting(TField& Field, TValue Value, const char* PropName) {
  Change(this, Field, Value, PropName, &TZyMovingAverage::CalculationModified);
}

void TZyMovingAverage::SetAveragingMethod(TZyAveragingMethod Value) {
  ChangeSetting(FAvg.AveragingMethod, Value, "AveragingMethod");
}

void TZyMovingAverage::SetAveragingDirection(TZyAveragingDirection Value) {
  ChangeSetting(FAvg.AveragingDirection, Value, "AveragingDirection");
}

void TZyMovingAverage::SetAveragingRangeMethod(TZyAveragingRangeMethod Value) {
  ChangeSetting(FAvg.AveragingRangeMethod, Value, "AveragingRangeMethod");
}

void TZyMovingAverage::SetN(double Value) { ChangeSetting(FAvg.N, std::fabs(Value), "N"); }

void TZyMovingAverage::SetExponentialFactorForN(double Value) {
  ChangeSetting(FAvg.ExponentialFactorForN, std::min(std::fabs(Value), 1.0), "ExponentialFactorForN");
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

void TZyMovingAverage::Fields(TZyArchive& Archive) {
  using T = TZyMovingAverage;
  TZyFunctionSeries::Fields(Archive);
  Archive.Level("MovingAverage", [&] {
    Archive.Field<&T::AveragingMethod, &T::SetAveragingMethod>(*this, "AveragingMethod");
    Archive.Field<&T::AveragingDirection, &T::SetAveragingDirection>(*this, "AveragingDirection");
    Archive.Field<&T::AveragingRangeMethod, &T::SetAveragingRangeMethod>(*this, "AveragingRangeMethod");
    Archive.Field<&T::N, &T::SetN>(*this, "N");
    Archive.Field<&T::ExponentialFactorForN, &T::SetExponentialFactorForN>(*this, "ExponentialFactorForN");
    Archive.EndRecord();
  });
}

void TZyMovingAverage::RegisterVariables() {
  TZyFunctionSeries::RegisterVariables();
  AddVariableToList("N", LoadResString(_sAveragingN), this, GlobalVariableList(), [this] { return N(); });
  AddVariableToList("ExponentialFactorForN", LoadResString(_sExponentialFactorForN), this, GlobalVariableList(),
                    [this] { return ExponentialFactorForN(); });
}

}  // namespace zy
