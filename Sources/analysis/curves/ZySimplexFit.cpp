#include "analysis/curves/ZySimplexFit.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

#include "platform/framework/WideRegisters.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

constexpr double NewCoefficient = 0.5;
constexpr std::string_view Argument = "X";
constexpr std::array<std::string_view, TZySimplexFit::Letters> LetterNames = {"A", "B", "C", "D", "E", "F", "G", "H",
                                                                              "I", "J", "K", "L", "M", "N", "O", "P"};

/// Whether a letter has an operator, a bracket or nothing on both sides somewhere: that of a function's name has not.
bool StandsAlone(std::string_view Text, char Letter) {
  constexpr std::string_view Before = "+-*/^([", Behind = "+-*/^)]";
  for (std::size_t i = Text.find(Letter); i != std::string_view::npos; i = Text.find(Letter, i + 1)) {
    const bool IsFree = i == 0 || Before.find(Text[i - 1]) != std::string_view::npos;
    if (IsFree && (i + 1 == Text.size() || Behind.find(Text[i + 1]) != std::string_view::npos)) return true;
  }
  return false;
}

}  // namespace

/// One search, with what it needs at hand: whatever handlers do to the fit meanwhile, nothing of the search goes.
class TZySimplexFit::TSearch {
 public:
  TSearch(TZySimplexFit& Fit, TData&& Data, std::optional<TZySimplexInverse>& Inverse)
      : FFit(Fit), FData(std::move(Data)), FInverse(Inverse), FValues(FData.X.size()) {}
  TSearch(const TSearch&) = delete;
  TSearch& operator=(const TSearch&) = delete;
  ~TSearch() {
    if (*FChanges == FKnown) FFit.PointAtCoefs();
  }

  void Run() {
    MakeSimplex();
    do {
      Step();
    } while (!FFit.FStopIterations && FFit.FIteration >= 0 && FFit.FCurrentChiSquare != 0);
    if (std::isfinite(FFit.FCurrentChiSquare)) return FFit.GetStatistics(FData);
    throw EMathError(LoadResString(_sFitWithoutValue));
  }

 private:
  using TCorner = std::vector<double>;

  void TestUnchanged() const {
    if (*FChanges != FKnown) throw EAbort(LoadResString(_sSeriesChanged));
  }

  TCorner& Row(int r) { return FSimplex[static_cast<std::size_t>(r)]; }
  double& Value(int r) { return FChiSqrs[static_cast<std::size_t>(r)]; }
  void Evaluate(int r) { Value(r) = ValueOf(Row(r)); }

  double ValueOf(TCorner& Corner) {
    FFit.FCurrentCorner = Corner;
    if (FNewCorner) {
      FNewCorner(FSender, Corner);
      TestUnchanged();
    }
    TakeValues(Corner);
    double Sum = 0;
    const std::size_t Count = FValues.size();
    if (FInverse) {
      for (std::size_t i = 0; i < Count; ++i) {
        const double InX = FData.X[i] - FInverse->XAt(FData.Index[i], FValues[i]);
        Sum += std::fabs(InX * (FData.Y[i] - FValues[i])) * FData.W[i];
      }
    } else {
      for (std::size_t i = 0; i < Count; ++i) {
        const double InY = FData.Y[i] - FValues[i];
        Sum += InY * InY * FData.W[i];
      }
    }
    return std::isnan(Sum) ? std::numeric_limits<double>::infinity() : Sum;
  }

  void TakeValues(const TCorner& Corner) {
    if (!FFunction) {
      const auto Names = std::span(LetterNames).first(std::min(Corner.size(), LetterNames.size()));
      return FFit.FFunctionParser->GetResults(Argument, FData.X, FValues, Names);
    }
    for (std::size_t i = 0; i < FValues.size(); ++i) {
      FValues[i] = FFunction(FSender, {FData.X[i], Corner});
      TestUnchanged();
    }
  }

  void MakeSimplex() {
    constexpr double Stretch = 2.05;
    const TCorner Start = FFit.FCoefs;
    FSimplex.assign(Start.size() + 1, Start);
    FChiSqrs.resize(Start.size() + 1);
    FCenter.resize(Start.size());
    for (std::size_t i = 0; i < Start.size(); ++i) FSimplex[i][i] *= Stretch;
    for (int r = 0; r <= Order(); ++r) Evaluate(r);
    Rank();
  }

  int Order() const { return static_cast<int>(FCenter.size()); }

  /// Best, worst and second-worst row; the later one of equals.
  void Rank() {
    FMin = FMax = 0;
    for (int r = 0; r <= Order(); ++r) {
      if (Value(r) >= Value(FMax)) {
        FMax = r;
      } else if (Value(r) <= Value(FMin)) {
        FMin = r;
      }
    }
    FTwo = FMin;
    for (int r = 0; r <= Order(); ++r)
      if (r != FMax && Value(r) >= Value(FTwo)) FTwo = r;
  }

  void TakeCenter() {
    std::ranges::fill(FCenter, 0.0);
    for (int r = 0; r <= Order(); ++r)
      for (std::size_t v = 0; r != FMax && v < FCenter.size(); ++v) FCenter[v] += Row(r)[v];
    for (double& Place : FCenter) Place /= Order();
  }

  /// Sets the worst corner so many times as far beyond the centre as it lay before it, and evaluates it.
  void MoveWorst(double Factor) {
    TCorner& Worst = Row(FMax);
    for (std::size_t v = 0; v < FCenter.size(); ++v) Worst[v] = FCenter[v] + Factor * (FCenter[v] - Worst[v]);
    Evaluate(FMax);
  }

  void Expand() {
    const TCorner Reflected = Row(FMax);
    const double Best = Value(FMax);
    MoveWorst(-2.0);
    if (Value(FMax) < Best) return;
    Row(FMax) = Reflected;
    Value(FMax) = Best;
  }

  /// A contraction that reaches the second-worst value makes all corners close in on the best one.
  void Contract() {
    MoveWorst(-0.5);
    if (Value(FTwo) < Value(FMax)) return;
    for (int r = 0; r <= Order(); ++r) {
      if (r == FMin) continue;
      for (std::size_t v = 0; v < FCenter.size(); ++v) Row(r)[v] = (Row(r)[v] + Row(FMin)[v]) * 0.5;
      Evaluate(r);
    }
  }

  void Step() {
    TakeCenter();
    MoveWorst(1.0);
    if (Value(FMin) > Value(FMax)) {
      Expand();
    } else if (Value(FTwo) < Value(FMax)) {
      Contract();
    }
    Rank();
    FFit.FCurrentChiSquare = Value(FMin);
    FFit.FCoefs = Row(FMin);
    FFit.PointAtCoefs();
    if (FDoDisplay) {
      FDoDisplay(FSender);
      TestUnchanged();
      ClearWideRegisters();  // it may have painted
    }
    --FFit.FIteration;
  }

  TZySimplexFit& FFit;
  const std::shared_ptr<unsigned> FChanges = FFit.FChanges;
  const unsigned FKnown = *FChanges;
  TObject* const FSender = FFit.Sender;
  // Copies: they may set others while they run.
  const TZyFittingFunctionHandler FFunction = FFit.FFittingFkt;
  const TZyFittingCornerHandler FNewCorner = FFit.mNewCorner;
  const TNotifyEvent FDoDisplay = FFit.mDoDisplay;
  const TData FData;
  const std::optional<TZySimplexInverse>& FInverse;
  std::vector<double> FValues;  // of the function at the points
  std::vector<TCorner> FSimplex;
  std::vector<double> FChiSqrs;  // value of each corner
  TCorner FCenter;               // of all corners but the worst
  int FMin = 0, FMax = 0, FTwo = 0;
};

TZySimplexFit::TZySimplexFit() = default;

TZySimplexFit::~TZySimplexFit() { ++*FChanges; }

void TZySimplexFit::Changed() {
  ++*FChanges;
  PointAtCoefs();
}

// --- Settings -------------------------------------------------------------------------------------------------------

void TZySimplexFit::SetOrder(int Value) {
  FCoefs.resize(static_cast<std::size_t>(std::clamp(Value, 0, LargestOrder)), NewCoefficient);
  Changed();
}

void TZySimplexFit::SetCoefs(std::span<const double> Value) {
  if (Value.size() > LargestOrder) throw ERangeError(LoadResString(_sIdxFit));
  FCoefs = {Value.begin(), Value.end()};
  Changed();
}

void TZySimplexFit::SetCoef(int Index, double Value) {
  if (Index < 0 || Index >= Order()) throw ERangeError(LoadResString(_sIdxFit));
  FCoefs[static_cast<std::size_t>(Index)] = Value;
  Changed();
}

void TZySimplexFit::SetExpression(std::string_view Value) {
  if (Value == FExpression) return;
  FExpression = Value;
  FIsChecked = false;
  Changed();
  if (FromExpression() && !FExpression.empty()) CheckExpression();
}

void TZySimplexFit::SetFittingFkt(TZyFittingFunctionHandler Value) {
  FFittingFkt = std::move(Value);
  Changed();
  if (FromExpression() && !FExpression.empty()) CheckExpression();
}

void TZySimplexFit::PrepareParser() {
  if (FFunctionParser) return;
  FFunctionParser = std::make_unique<TZyFunctionParser>();
  const auto Add = [this](std::string_view Id, const std::string& Comment, TZyDoubleGetter Getter) {
    AddVariableToList(std::string(Id), Comment, nullptr, FFunctionParser->FObjectsToUpdate, std::move(Getter));
  };
  Add(Argument, LoadResString(_sFitX), [this] { return FX; });
  for (std::size_t k = 0; k < LetterNames.size(); ++k) {
    const std::string Letter(1, static_cast<char>('a' + k));
    Add(LetterNames[k], Format(LoadResString(_sFitVariable), {Letter}),
        [this, k] { return k < FCurrentCorner.size() ? FCurrentCorner[k] : 0; });
  }
}

/// Square brackets count as round ones, since the parser takes both.
void TZySimplexFit::CheckExpression() {
  FIsChecked = false;
  PrepareParser();
  std::string Text = AsciiUpper(FExpression);
  std::erase(Text, ' ');
  if (!StandsAlone(Text, 'X')) throw EMathError(LoadResString(_sNoX));
  int Count = Letters;
  while (Count > 0 && !StandsAlone(Text, static_cast<char>('A' + Count - 1))) --Count;
  if (Count == 0 && FIterations > 0) throw EMathError(LoadResString(_sNoAP));
  SetOrder(Count);
  FFunctionParser->SetExpression({});  // what it refused once is refused again, and what it names may have come since
  FFunctionParser->SetExpression(FExpression);
  FIsChecked = true;
}

// --- The fit --------------------------------------------------------------------------------------------------------

double TZySimplexFit::GetY(double AtX) const {
  if (FFittingFkt) {
    const TZyFittingFunctionHandler Function = FFittingFkt;
    return Function(Sender, {AtX, FCurrentCorner});
  }
  if (!FIsChecked) throw EMathError(LoadResString(_sNoFittingFktDefined));
  FX = AtX;
  return FFunctionParser->GetResult();
}

TZySimplexFit::TData TZySimplexFit::GatherPoints() const {
  TData Data;
  const int Count = PointCount();
  for (int i = 0; i < Count; ++i) {
    if (!IsValid(i)) continue;
    const double X = Xi(i), Y = Yi(i), W = Wi(i);
    if (!std::isfinite(X) || !std::isfinite(Y) || !std::isfinite(W)) continue;
    Data.X.push_back(X);
    Data.Y.push_back(Y);
    Data.W.push_back(W);
    Data.Index.push_back(i);
  }
  return Data;
}

void TZySimplexFit::Calculate() {
  if (FIterations > 0) PointCount();  // throws without vectors, before anything else does
  if (FromExpression() && FExpression.empty()) throw EMathError(LoadResString(_sNoFittingFktDefined));
  if (FromExpression() && !FIsChecked) CheckExpression();
  FIteration = FIterations;
  FStopIterations = false;
  if (FIterations <= 0) return;
  if (Order() <= 0) throw EMathError(LoadResString(_sSimplexNoOrder));
  const std::shared_ptr<unsigned> Changes = FChanges;
  const unsigned Known = *Changes;
  TData Data = GatherPoints();
  if (*Changes != Known) throw EAbort(LoadResString(_sSeriesChanged));
  if (Order() > Data.Count()) throw EMathError(LoadResString(_sNotEnoughData));
  std::optional<TZySimplexInverse> Inverse;
  if (FDoCovariance) {
    try {
      std::vector<double> X, Y;  // as the vectors have them
      for (const int i : Data.Index) {
        X.push_back(XData->GetValue(i));
        Y.push_back(YData->GetValue(i));
      }
      Inverse.emplace(std::move(X), std::move(Y));
    } catch (const std::exception&) {
      FDoCovariance = false;
      throw EMathError(LoadResString(_sRecIndef));
    }
  }
  const std::vector<double> Before = FCoefs;
  std::ranges::replace(FCoefs, 0.0, 1.0);  // the first simplex scales each coefficient
  ClearWideRegisters();
  try {
    TSearch(*this, std::move(Data), Inverse).Run();
  } catch (...) {
    if (*Changes == Known) FCoefs = Before;  // unless it was a handler who set others
    throw;
  }
}

void TZySimplexFit::GetStatistics(const TData& Data) {
  double SumOfX = 0, SumOfY = 0, SumOfWeights = 0;
  const std::size_t Count = Data.X.size();
  for (std::size_t i = 0; i < Count; ++i) {
    SumOfX += Data.X[i] * Data.W[i];
    SumOfY += Data.Y[i] * Data.W[i];
    SumOfWeights += Data.W[i];
  }
  FAverageX = SumOfWeights > 0 ? SumOfX / SumOfWeights : 0;
  FAverageY = SumOfWeights > 0 ? SumOfY / SumOfWeights : 0;
  FVarianceX = FVarianceY = 0;
  for (std::size_t i = 0; i < Count; ++i) {
    const double InX = Data.X[i] - FAverageX, InY = Data.Y[i] - FAverageY;
    FVarianceX += InX * InX * Data.W[i];
    FVarianceY += InY * InY * Data.W[i];
  }
  const double Spread = FDoCovariance ? std::sqrt(FVarianceX * FVarianceY) : FVarianceY;
  FProbability = Spread > 0 ? 1 - FCurrentChiSquare / Spread : 1;
  for (double* Variance : {&FVarianceX, &FVarianceY}) *Variance = SumOfWeights > 1 ? *Variance / (SumOfWeights - 1) : 0;
}

}  // namespace zy
