#include "series/ZyLinearRegression.h"

#include <algorithm>
#include <cmath>

#include "analysis/ZyMath.h"
#include "analysis/ZyMathStatistics.h"
#include "analysis/ZyParseFktLists.h"
#include "graph/parts/ZySeriesGraph.h"
#include "persistence/ZyArchive.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/Application.h"
#include "platform/framework/TPropInfo.h"
#include "series/ZyPointLook.h"
#include "texts/Exceptions.h"
#include "undo/ZyUndoGroup.h"

namespace zy {

ZY_PUBLISHED(TZyLinearRegression, TZyFunctionSeries,
             Published<&Self::FixedOffset, &Self::SetFixedOffset>("FixedOffset", false, _sLinRegFixOffset),
             Published<&Self::Offset, &Self::SetOffset>("Offset", 1.0, _sLinRegOffset),
             Published<&Self::ConfidenceIntervalLine>("ConfidenceIntervalLine"),
             Published<&Self::ConfidenceIntervalArea>("ConfidenceIntervalArea"),
             Republished("DisplayAutoStart DisplayAutoStop DisplayStart DisplayStop CoupleCalculationAndDisplay"))

TZyLinearRegression::TZyLinearRegression(TComponent* Owner)
    : TZyFunctionSeries(Owner, std::make_unique<TZyLinearRegressionCalculation>()),
      FRegr(static_cast<TZyLinearRegressionCalculation&>(Calculation())),
      FConfidenceIntervalLine(std::make_unique<TZyLineSettings>([this] { TestVisibleChanged(); })),
      FConfidenceIntervalArea(std::make_unique<TZyAreaSettings>([this] { TestVisibleChanged(); })) {
  const auto Translucent = [this](unsigned Alpha) { return (Alpha << 24) | (Line().Color() & 0xFFFFFF); };
  FConfidenceIntervalLine->SetColor(Translucent(100));
  FConfidenceIntervalLine->SetDashStyle(DashStyleDash);
  FConfidenceIntervalLine->SetVisible(false);
  FConfidenceIntervalArea->SetForeColor(Translucent(10));
  Initialize(StaticClassInfo().Name());
  RegisterWhenAsked();
}

void TZyLinearRegression::SetUndoStack(TZyUndoStack* Value) {
  TZyFunctionSeries::SetUndoStack(Value);
  FConfidenceIntervalLine->SetUndoStack(Value);
  FConfidenceIntervalArea->SetUndoStack(Value);
}

void TZyLinearRegression::SetFixedOffset(bool Value) {
  if (Value == FixedOffset()) return;
  const TZyUndoGroup Group(UndoStack(), *this, {"FixedOffset", "Offset"});
  FRegr.FixedOffset = Value;
  CalculationModified();
}

void TZyLinearRegression::SetOffset(double Value) {
  if (Value == Offset() || !std::isfinite(Value)) return;
  const bool IsRestored = UndoStack() != nullptr && UndoStack()->Restoring();
  if (IsDesigning() && !IsLoading() && !ReadsRecord() && !IsRestored && !FixedOffset() &&
      Application().Confirm(LoadResString(_sOnlySetIfFixed)))
    SetFixedOffset(true);
  if (FixedOffset() && UndoStack() != nullptr) UndoStack()->PushProperty(this, "Offset");
  FRegr.Offset = Value;
  CalculationModified();
}

void TZyLinearRegression::Fields(TZyArchive& Archive) {
  TZyFunctionSeries::Fields(Archive);
  Archive.Level("LinearRegression", *this, "FixedOffset Offset ConfidenceIntervalLine ConfidenceIntervalArea");
}

void TZyLinearRegression::RegisterVariables() {
  using T = TZyLinearRegression;
  TZyFunctionSeries::RegisterVariables();
  AddVariable("Offset", _sOffset1, &T::Offset);
  AddVariable("Slope", _sSlope, &T::Slope);
  AddVariable("DeltaSlope", _sDeltaSlope, &T::DeltaSlope);
  AddVariable("DeltaOffset", _sDeltaOffset, &T::DeltaOffset);
  AddVariable("AverageX", _sAverageX, &T::AverageX);
  AddVariable("AverageY", _sAverageY, &T::AverageY);
  AddVariable("VarianceX", _sVarianceX, &T::VarianceX);
  AddVariable("VarianceY", _sVarianceY, &T::VarianceY);
  AddVariable("Probability", _sr2, &T::Getr2);
  AddVariable("Correlation", _sR, &T::GetR);
  AddVariable("SumOfResiduals", _sSumOfResiduals, &T::SumOfResiduals);
}

std::string TZyLinearRegression::GetFormula() const {
  const auto IsLog = [](const TZyAxis* Axis) { return Axis != nullptr && Axis->HasLogScaling(); };
  return std::string(IsLog(YAxis()) ? "lg(Y)=a+b(" : "Y=a+b(") + (IsLog(XAxis()) ? "lg(X))" : "X)");
}

// --- Calculation ----------------------------------------------------------------------------------------------------

/// A paint calculates, so this is no step of undo: it would take away what could be redone, and undoing it would only
/// bring it again.
void TZyLinearRegression::SwitchLinearOff(TZyAxis* Axis, TZyText Message) {
  const bool IsLog = Axis->Scaling() == TZyAxisScaling::Log || Axis->Scaling() == TZyAxisScaling::LogEE;
  if (!IsLog || !(Axis->LogToNormalScalingLevel() > 0)) return;
  {
    struct TSilence {
      TZyAxis& Axis;
      TZyUndoStack* Stack;
      ~TSilence() { Axis.SetUndoStack(Stack); }
    } const Silence{*Axis, Axis->UndoStack()};
    Axis->SetUndoStack(nullptr);
    Axis->SetLogToNormalScalingLevel(0);
  }
  const std::uint64_t Alive = LiveHandle();
  Application().ShowMessage(LoadResString(Message));  // the host's own way to show it may free anything
  TZyPointLook::TestAlive(Alive);
  if (XAxis() == nullptr || YAxis() == nullptr) throw EAbort(LoadResString(_sSeriesChanged));
}

/// With a band the range of Y reaches to its outer edges at the two ends. Points of one X have no line, and no range.
void TZyLinearRegression::CalculateFunction() {
  if (Count() < MinCount()) return;
  SwitchLinearOff(XAxis(), _sLogXandRegr);
  SwitchLinearOff(YAxis(), _sLogYandRegr);
  SetLimits();
  FRegr.XLog = XAxis()->HasLogScaling();
  FRegr.YLog = YAxis()->HasLogScaling();
  CalculateCurve();
  if (HasBand()) Ft95Percent = T95Percent(FRegr.SumW);
  TRange Y;
  if (FRegr.HasLine() && !(ClipYValues() && AnyOtherSeries())) {
    const double Outwards = Slope() < 0 ? 1 : -1;
    const bool HasStart = !FRegr.XLog || DisplayStart() > 0;  // else the axis itself begins to the right of it
    Y.Take(YAtBand(HasStart ? DisplayStart() : XStart(), Outwards));
    Y.Take(YAtBand(DisplayStop(), -Outwards));
  }
  FYStart = Y.Low;
  FYStop = Y.High;
  TellCalculated();
}

double TZyLinearRegression::Confidence(double AtX) const {
  return HasBand() ? FRegr.Confidence(FRegr.XLog ? std::log10(AtX) : AtX, Ft95Percent) : 0;
}

double TZyLinearRegression::GetY(double AtX) const { return YAtBand(AtX, 0); }

/// Y so many times the half width of the band above the line.
double TZyLinearRegression::YAtBand(double AtX, double Share) const {
  const double X = FRegr.XLog ? std::log10(AtX) : AtX;
  const double Y = Slope() * X + Offset() + (Share == 0 ? 0 : Share * Confidence(AtX));
  return FRegr.YLog ? Exp10(Y) : Y;
}

// --- Pixels and drawing ---------------------------------------------------------------------------------------------

/// Two points. Of a line that goes on far beyond the axis a part is enough, which pixels can tell exactly.
void TZyLinearRegression::TakeNewPixels() {
  constexpr double Beyond = 10;  // lengths of the axis
  FUpperConfidencePoints.Clear();
  FLowerConfidencePoints.Clear();
  FConfidenceAreaPoints.Clear();
  if (!HasCurve() || Count() < MinCount() || !FRegr.HasLine()) return;
  const bool IsLog = XAxis()->HasLogScaling();
  const auto PlaceOf = [IsLog](double x) { return IsLog ? std::log10(x) : x; };
  const auto ValueOf = [IsLog](double Place) { return IsLog ? Exp10(Place) : Place; };
  const double One = PlaceOf(XAxis()->Start()), Other = PlaceOf(XAxis()->Stop());
  const double Reach = Beyond * std::fabs(Other - One);
  const auto Take = [&](double x) { Keep({XAxis()->NumberToWorld(x), YAxis()->NumberToWorld(GetY(x))}, -1); };
  const double Start = std::min(One, Other) - Reach;
  Take(ValueOf(PlaceOf(DisplayStart()) > Start ? PlaceOf(DisplayStart()) : Start));  // which may have no logarithm
  Take(ValueOf(std::min(PlaceOf(DisplayStop()), std::max(One, Other) + Reach)));
  if (HasBand() && Count() > 2) TakeBand();
}

/// Where the curve is cut at the data area, the band begins a tenth before it.
void TZyLinearRegression::TakeBand() {
  const bool IsLog = XAxis()->HasLogScaling();
  const auto [Low, High] = std::minmax({XAxis()->Start(), XAxis()->Stop()});
  double Start = std::max(DisplayStart(), Low), Stop = std::min(DisplayStop(), High);
  if (ClipYValues() && IsLog) {
    const double Margin = std::pow(Stop / Start, 0.1);
    Start /= Margin;
    Stop *= Margin;
  } else if (ClipYValues()) {
    const double Margin = 0.1 * (Stop - Start);
    Start -= Margin;
    Stop += Margin;
  }
  ForEachColumn(Start, Stop, [this](double x) {
    const float X = XAxis()->NumberToWorld(x);
    FUpperConfidencePoints.Add({X, YAxis()->NumberToWorld(YAtBand(x, 1))});
    FLowerConfidencePoints.Add({X, YAxis()->NumberToWorld(YAtBand(x, -1))});
  });
  const int Number = FUpperConfidencePoints.Count();
  for (int i = 0; i < Number; ++i) FConfidenceAreaPoints.Add(FUpperConfidencePoints.GetValue(i));
  for (int i = Number; i-- > 0;) FConfidenceAreaPoints.Add(FLowerConfidencePoints.GetValue(i));
  if (Number > 0) FConfidenceAreaPoints.Add(FUpperConfidencePoints.GetValue(0));
}

void TZyLinearRegression::DrawLine(Graphics& Gr) {
  if (Count() > 2 && FUpperConfidencePoints.Count() > 1) {
    if (!FConfidencePen || !FConfidenceBrush) TestVisibleChanged();
    if (FConfidenceIntervalLine->Visible()) {
      Gr.DrawLines(*FConfidencePen, FUpperConfidencePoints.Values());
      Gr.DrawLines(*FConfidencePen, FLowerConfidencePoints.Values());
    }
    if (FConfidenceIntervalArea->Visible()) Gr.FillPolygon(*FConfidenceBrush, FConfidenceAreaPoints.Values());
  }
  TZyFunctionSeries::DrawLine(Gr);
}

void TZyLinearRegression::TestVisibleChanged() {
  TZyFunctionSeries::TestVisibleChanged();
  if (Graph() != nullptr) {
    FConfidencePen = FConfidenceIntervalLine->GetPen(Graph()->DrawingArea(), 0);
    FConfidenceBrush = FConfidenceIntervalArea->GetBrush(Graph()->DrawingArea());
  }
  if (HasBand() == FConfidenceVisible) return;
  FConfidenceVisible = HasBand();
  RangesModified();
  Invalidate();
}

}  // namespace zy
