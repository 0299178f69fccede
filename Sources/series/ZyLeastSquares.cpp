#include "series/ZyLeastSquares.h"

#include "graph/values/ZyStringFunctions.h"
#include "persistence/ZyArchive.h"
#include "platform/framework/TPropInfo.h"
#include "texts/Exceptions.h"

namespace zy {

ZY_PUBLISHED(TZyCustomGeneralLinearLeastSquares, TZyFunctionSeries,
             Published<&Self::Order, &Self::SetOrder>("Order", 2, _sPolynOrder)
                 .Clamped(0, TZyCustomGeneralLinearLeastSquaresCalculation::LargestOrder),
             Republished("DisplayAutoStart DisplayAutoStop DisplayStart DisplayStop CoupleCalculationAndDisplay"))
ZY_PUBLISHED(TZyGeneralLinearLeastSquares, TZyCustomGeneralLinearLeastSquares,
             Published<&Self::BasisFunction>("BasisFunction"))
ZY_PUBLISHED(TZyPolynomial, TZyCustomGeneralLinearLeastSquares)

TZyCustomGeneralLinearLeastSquares::TZyCustomGeneralLinearLeastSquares(
    TComponent* Owner, std::unique_ptr<TZyCustomGeneralLinearLeastSquaresCalculation> Calculation)
    : TZyFunctionSeries(Owner, std::move(Calculation)),
      FPoly(static_cast<TZyCustomGeneralLinearLeastSquaresCalculation&>(TZyFunctionSeries::Calculation())) {}

/// A basis function that sets it ends the calculation, whose coefficients are gone.
void TZyCustomGeneralLinearLeastSquares::SetOrder(int Value) {
  ChangeBy(this, Order(), FPoly.LimitedOrder(Value), "Order", [this](int NewOrder) {
    TZySeriesInput::NoteChange();
    FPoly.SetOrder(NewOrder);
    CalculationModified();
  });
}

double TZyCustomGeneralLinearLeastSquares::At(const std::vector<double>& Values, int i) const {
  if (i >= 0 && i <= Order()) return Values[static_cast<std::size_t>(i)];
  if (!IsDesigning()) throw ERangeError(LoadResString(_sIdxPoly));
  return 0;
}

std::string TZyCustomGeneralLinearLeastSquares::GetFormula() const { return "Y=Σ\\-i\\-a\\-i\\-Xf\\-i\\-(X)"; }

void TZyCustomGeneralLinearLeastSquares::RegisterVariables() {
  using T = TZyCustomGeneralLinearLeastSquares;
  TZyFunctionSeries::RegisterVariables();
  AddVariable("AverageX", _sAverageX, &T::AverageX);
  AddVariable("AverageY", _sAverageY, &T::AverageY);
  AddVariable("VarianceX", _sVarianceX, &T::VarianceX);
  AddVariable("VarianceY", _sVarianceY, &T::VarianceY);
  AddVariable("Probability", _sr2, &T::r2);
  AddVariable("QRel", _sQRel, &T::QRel);
  AddVariable("SumOfResiduals", _sSumOfResiduals, &T::SumOfResiduals);
  AddArray("Coefficients", _sCoefficient, [this](int i) { return GetCoeff(i); });
  AddArray("DeltaCoefficients", _sDeltaCoefficient, [this](int i) { return GetDeltaCoeff(i); });
}

void TZyCustomGeneralLinearLeastSquares::Fields(TZyArchive& Archive) {
  TZyFunctionSeries::Fields(Archive);
  Archive.Level(LevelName(), *this, "Order");
}

TZyGeneralLinearLeastSquares::TZyGeneralLinearLeastSquares(TComponent* Owner)
    : TZyCustomGeneralLinearLeastSquares(Owner, std::make_unique<TZyGeneralLinearLeastSquaresCalculation>()) {
  Initialize(StaticClassInfo().Name());
  RegisterWhenAsked();
}

void TZyGeneralLinearLeastSquares::SetBasisFunction(TZyGeneralLinearFittingHandler Value) {
  TZySeriesInput::NoteChange();
  mBasisFunction = std::move(Value);
  Poly().mGetBasisFn = TZySeriesInput::Watched(mBasisFunction);
  CalculationModified();
}

void TZyGeneralLinearLeastSquares::CalculateFunction() {
  Poly().NeedsBasisFn = !IsDesigning();
  TZyCustomGeneralLinearLeastSquares::CalculateFunction();
}

TZyPolynomial::TZyPolynomial(TComponent* Owner)
    : TZyCustomGeneralLinearLeastSquares(Owner, std::make_unique<TZyPolynomialCalculation>()) {
  Poly().SmallestOrder = 2;
  Initialize(StaticClassInfo().Name());
  RegisterWhenAsked();
}

/// All terms up to the order of 5; beyond, the first ones and the last.
std::string TZyPolynomial::GetFormula() const {
  constexpr int MostTerms = 5;
  const auto Term = [](int i) {
    std::string Letters = IndexToAlphabet(i + 1);
    for (char& Letter : Letters) Letter = static_cast<char>(Letter - 'A' + 'a');
    return "+" + Letters + "X\\+" + std::to_string(i) + "\\+";
  };
  std::string Result = "Y=a+bX";
  for (int i = 2; i <= (Order() > MostTerms ? MostTerms - 1 : Order()); ++i) Result += Term(i);
  if (Order() > MostTerms) Result += "+..." + Term(Order());
  return Result;
}

}  // namespace zy
