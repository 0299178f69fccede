#include "series/ZyFittedLine.h"

#include <algorithm>
#include <cmath>
#include <exception>

#include "graph/parts/ZySeriesGraph.h"
#include "persistence/ZyArchive.h"
#include "persistence/ZyIO.h"
#include "platform/framework/TPropInfo.h"
#include "platform/framework/TReader.h"
#include "platform/framework/TWriter.h"
#include "texts/Exceptions.h"
#include "undo/ZyUndoGroup.h"

namespace zy {

ZY_PUBLISHED(TZyFittedLine, TZyFunctionSeries,
             Published<&Self::Order, &Self::SetOrder>("Order", 0, _sFitCoeffs).Clamped(0, TZySimplexFit::LargestOrder),
             Published<&Self::Iterations, &Self::SetIterations>("Iterations", 300, _sFitIterations),
             Published<&Self::Expression, &Self::SetExpression>("Expression", "", _sFitExpression),
             Published<&Self::Coefficients, &Self::SetCoefficients>("Coefficients", _sFitCoeffs).NotStored(),
             Published<&Self::DoCovariance, &Self::SetDoCovariance>("DoCovariance", false, _sFitDoCovariance),
             Published<&Self::FittingFunction>("FittingFunction"), Published<&Self::OnIteration>("OnIteration"),
             Published<&Self::OnNewCorner>("OnNewCorner"),
             Republished("DisplayAutoStart DisplayAutoStop DisplayStart DisplayStop CoupleCalculationAndDisplay"))

TZyFittedLine::TZyFittedLine(TComponent* Owner)
    : TZyFunctionSeries(Owner, std::make_unique<TZySimplexFit>()), FFit(static_cast<TZySimplexFit&>(Calculation())) {
  constexpr int DefaultIterations = 300;
  FFit.SetIterations(DefaultIterations);
  Initialize(StaticClassInfo().Name());
  RegisterWhenAsked();
}

// --- Properties -----------------------------------------------------------------------------------------------------

/// While values are brought back, nobody is there to take an exception.
bool TZyFittedLine::IsRestoring() const {
  return IsLoading() || ReadsRecord() || (UndoStack() != nullptr && UndoStack()->Restoring());
}

/// Shows other coefficients; a fit would take them away again.
void TZyFittedLine::CurveModified() {
  if (Iterations() <= 0) CalculationModified();
  PointsModified();
  UpdateVariablesObjects(*ObjectsToUpdate());
}

void TZyFittedLine::SetOrder(int Value) {
  const int NewOrder = std::clamp(Value, 0, TZySimplexFit::LargestOrder);
  if (NewOrder == Order()) return;
  if (UndoStack() != nullptr) UndoStack()->PushProperty(this, "Coefficients");
  FFit.SetOrder(NewOrder);
  CalculationModified();
  CurveModified();
}

void TZyFittedLine::SetIterations(int Value) {
  ChangeBy(this, Iterations(), std::min(Value, LargestIterations), "Iterations", [this](int Number) {
    FFit.SetIterations(Number);
    CalculationModified();
    PointsModified();  // without data the curve comes and goes with it
  });
}

void TZyFittedLine::SetExpression(const std::string& Value) {
  if (Value == Expression()) return;
  std::exception_ptr Refused;
  {
    const TZyUndoGroup Group(UndoStack(), _sFitExpression);
    if (UndoStack() != nullptr)  // undo writes the formula first, which may change the number of coefficients
      for (const char* PropName : {"Coefficients", "Expression"}) UndoStack()->PushProperty(this, PropName);
    try {
      FFit.SetExpression(Value);
    } catch (const EMathError&) {
      Refused = std::current_exception();
    }
    if (FromExpression()) CalculationModified();
    CurveModified();
  }
  if (Refused && !IsRestoring()) std::rethrow_exception(Refused);
}

void TZyFittedLine::SetCoefficients(const std::vector<double>& Value) {
  if (Value == Coefficients()) return;
  if (Value.size() > TZySimplexFit::LargestOrder) throw ERangeError(LoadResString(_sIdxFit));
  if (UndoStack() != nullptr) UndoStack()->PushProperty(this, "Coefficients");
  FFit.SetCoefs(Value);
  CurveModified();
}

void TZyFittedLine::SetDoCovariance(bool Value) {
  ChangeBy(this, DoCovariance(), Value, "DoCovariance", [this](bool IsOn) {
    FFit.SetDoCovariance(IsOn);
    CalculationModified();
  });
}

void TZyFittedLine::SetFittingFunction(TZyFittingFunctionHandler Value) {
  mFittingFunction = std::move(Value);
  CalculationModified();
  PointsModified();
  FFit.SetFittingFkt(TZySeriesInput::Watched(mFittingFunction));
}

double TZyFittedLine::GetCoeff(int i) const {
  if (i >= 0 && i < Order()) return Coefficients()[static_cast<std::size_t>(i)];
  if (!IsDesigning()) throw ERangeError(LoadResString(_sIdxFit));
  return 0;
}

void TZyFittedLine::RegisterVariables() {
  using T = TZyFittedLine;
  TZyFunctionSeries::RegisterVariables();
  AddVariable("AverageX", _sAverageX, &T::AverageX);
  AddVariable("AverageY", _sAverageY, &T::AverageY);
  AddVariable("VarianceX", _sVarianceX, &T::VarianceX);
  AddVariable("VarianceY", _sVarianceY, &T::VarianceY);
  AddVariable("Probability", _sr2, &T::Probability);
  AddVariable("SumOfResiduals", _sSumOfResiduals, &T::SumOfResiduals);
  AddArray("Coefficients", _sCoefficient, [this](int i) { return GetCoeff(i); });
}

// --- Stored forms ---------------------------------------------------------------------------------------------------

void TZyFittedLine::DefineProperties(TFiler& Filer) {
  TZyFunctionSeries::DefineProperties(Filer);
  Filer.DefineProperty(
      "Coeffs",
      [this](TReader& Reader) {
        std::vector<double> Values;
        Reader.ReadListBegin();
        while (!Reader.EndOfList()) Values.push_back(GetFloatFromStringOrFloat(Reader));
        Reader.ReadListEnd();
        FFit.SetCoefs(Values);
      },
      [this](TWriter& Writer) {
        Writer.WriteListBegin();
        for (const double Value : Coefficients()) StoreFloatToString(Writer, Value);
        Writer.WriteListEnd();
      },
      Order() >= 1);
}

/// The coefficients come last in the texts, behind the formula, which sets their number.
void TZyFittedLine::Fields(TZyArchive& Archive) {
  using T = TZyFittedLine;
  TZyFunctionSeries::Fields(Archive);
  Archive.Level("Fit", [&] {
    std::vector<double> Values = Coefficients();
    Archive.Properties(*this, "DoCovariance Iterations");
    bool Found = Archive.IsStream() && Archive.Value("Coefficients", Values);
    Archive.Properties(*this, "Expression");
    if (Archive.IsIni()) Archive.Field<&T::Order, &T::SetOrder>(*this, "Order");
    if (!Archive.IsStream()) Found = Archive.Value("Coefficients", Values);
    if (Archive.IsReading() && Found) SetCoefficients(Values);
    Archive.EndRecord();
  });
}

// --- Curve ----------------------------------------------------------------------------------------------------------

void TZyFittedLine::CalculateFunction() {
  if (!IsDesigning()) return TZyFunctionSeries::CalculateFunction();
  SetLimits();
  TakeRangeOfCurve();
}

double TZyFittedLine::GetY(double AtX) const {
  if (!IsDesigning()) return FFit.GetY(AtX);
  if (YData() == nullptr || YData()->Count() == 0) return 0;
  const double Low = YData()->Minimum(), High = YData()->Maximum();
  const int Shift = Graph() == nullptr ? 0 : Graph()->SeriesCount();
  return Low + (High - Low) * 0.5 * (std::sin(AtX + Shift) + 1);
}

bool TZyFittedLine::HasCurve() const {
  return TZyFunctionSeries::HasCurve() || (Iterations() <= 0 && Count() == 0 && FFit.HasFunction());
}

void TZyFittedLine::TakeNewPixels() {
  if (Count() == 0) SetLimits();
  TZyFunctionSeries::TakeNewPixels();
}

}  // namespace zy
