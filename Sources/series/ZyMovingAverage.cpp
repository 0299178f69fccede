#include "series/ZyMovingAverage.h"

#include "persistence/ZyArchive.h"
#include "platform/framework/TPropInfo.h"

namespace zy {

ZY_PUBLISHED(TZyMovingAverage, TZyFunctionSeries,
             Published<&Self::AveragingMethod, &Self::SetAveragingMethod>("AveragingMethod",
                                                                          TZyAveragingMethod::LinearWeighted,
                                                                          _sMvgAvgAveragingMethod),
             Published<&Self::AveragingDirection, &Self::SetAveragingDirection>("AveragingDirection",
                                                                                TZyAveragingDirection::OnlyDownwards,
                                                                                _sMvgAvgAveragingDirection),
             Published<&Self::AveragingRangeMethod, &Self::SetAveragingRangeMethod>("AveragingRangeMethod",
                                                                                    TZyAveragingRangeMethod::NasCount,
                                                                                    _sMvgAvgAveragingRangeMethod),
             Published<&Self::N, &Self::SetN>("N", 10.0, _sMvgAvgN),
             Published<&Self::ExponentialFactorForN, &Self::SetExponentialFactorForN>("ExponentialFactorForN", 0.9,
                                                                                      _sMvgAvgExponentialFactorForN),
             Republished("DisplayAutoStart DisplayAutoStop DisplayStart DisplayStop CoupleCalculationAndDisplay"))

TZyMovingAverage::TZyMovingAverage(TComponent* Owner)
    : TZyFunctionSeries(Owner, std::make_unique<TZyMovingAverageCalculation>()),
      FAvg(static_cast<TZyMovingAverageCalculation&>(Calculation())) {
  Initialize(StaticClassInfo().Name());
  RegisterWhenAsked();
}

double TZyMovingAverage::GetY(double AtX) const {
  if (FAvg.IsStale() && XData() != nullptr && YData() != nullptr) CalculateCurve();
  return FAvg.GetY(AtX);
}

std::string TZyMovingAverage::GetFormula() const {
  constexpr TZyText Formulas[] = {_sSimple, _sLinearWeighted, _sExponentiallyWeighted};
  return LoadResString(Formulas[static_cast<std::size_t>(AveragingMethod())]);
}

void TZyMovingAverage::Fields(TZyArchive& Archive) {
  TZyFunctionSeries::Fields(Archive);
  Archive.Level("MovingAverage", *this,
                "AveragingMethod AveragingDirection AveragingRangeMethod N ExponentialFactorForN");
}

void TZyMovingAverage::RegisterVariables() {
  TZyFunctionSeries::RegisterVariables();
  AddVariable("N", _sAveragingN, &Self::N);
  AddVariable("ExponentialFactorForN", _sExponentialFactorForN, &Self::ExponentialFactorForN);
}

}  // namespace zy
