#include "series/ZyDiscreteFourier.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "graph/values/ZyColors.h"
#include "platform/framework/TPropInfo.h"
#include "texts/Exceptions.h"

namespace zy {

ZY_PUBLISHED(TZyDiscreteFourier, TZyFunctionSeries, Published<&Self::Phase>("Phase"),
             Published<&Self::ClipYValues, &Self::SetClipYValues>("ClipYValues", false, _sFunctionsClipYValues),
             Republished("PointSymbol OnGetPointSymbol"))

TZyDiscreteFourier::TZyDiscreteFourier(TComponent* Owner)
    : TZyFunctionSeries(Owner, std::make_unique<TZyDiscreteFourierCalculation>()),
      FCalc(static_cast<TZyDiscreteFourierCalculation&>(Calculation())),
      FPhaseSeries(std::make_unique<TZyChildSeries>(this)) {
  FDoPointSettingsStorage = true;
  SetClipYValues(false);
  Phase().SetName("Phase");
  Phase().SetSubComponent(true);
  Phase().SetVisible(false);
  Phase().Line().SetColor(ColorToARGB("Green"));
  Phase().SetYData(&FCalc.Phase());
  Phase().SetXValueTransformation(
      [this](TObject* Sender, const TZyTransformEventArgs& e) { return GetFrequency(Sender, e); });
  Initialize(StaticClassInfo().Name());
  RegisterWhenAsked();
}

TZyDiscreteFourier::~TZyDiscreteFourier() { Destroying(); }

double TZyDiscreteFourier::GetFrequency(TObject*, const TZyTransformEventArgs& e) const {
  return FCalc.Frequency(e.Index);
}

std::string TZyDiscreteFourier::GetFormula() const { return "Y\\-k\\- = Σy\\-n\\- e\\+(-2πi/n kn)"; }

// --- Phase ----------------------------------------------------------------------------------------------------------

void TZyDiscreteFourier::GivePhaseAxes() {
  Phase().SetXAxis(XAxis());
  if (Phase().YAxis() == nullptr) Phase().TakeYAxis(YAxis());
}

void TZyDiscreteFourier::SetXAxis(TZyAxis* Value) {
  TZyFunctionSeries::SetXAxis(Value);
  Phase().SetXAxis(Value);
}

void TZyDiscreteFourier::SetYAxis(TZyAxis* Value) {
  TZyFunctionSeries::SetYAxis(Value);
  if (Value != nullptr) GivePhaseAxes();
}

void TZyDiscreteFourier::SetUndoStack(TZyUndoStack* Value) {
  TZyFunctionSeries::SetUndoStack(Value);
  Phase().SetUndoStack(Value);
}

void TZyDiscreteFourier::TakeDefaultAxis(IZyAxisGraph& FromGraph) {
  TZyFunctionSeries::TakeDefaultAxis(FromGraph);
  GivePhaseAxes();
}

// --- Calculation ----------------------------------------------------------------------------------------------------

void TZyDiscreteFourier::CalculateFunction() {
  if (Count() < MinCount()) return;
  SetLimits();
  CalculateCurve();
  if (XAxis() == nullptr || YAxis() == nullptr) throw EAbort(LoadResString(_sSeriesChanged));  // by a handler
  FXStart = FCalc.Frequency(0);
  FXStop = FCalc.Frequency(FCalc.Amplitude().Count() - 1);
  XAxis()->RangeModified();
  TRange Y;
  for (const double Value : FCalc.Amplitude().Values()) Y.Take(Value);
  FYStart = Y.Low;
  FYStop = Y.High;
  TellCalculated();
  GivePhaseAxes();
  if (Phase().Visible()) Phase().Calculate();
}

double TZyDiscreteFourier::GetY(double AtX) const {
  const std::span<const double> Lines = FCalc.Amplitude().Values();
  if (RecalculatePoints() || Lines.empty()) return 0;
  const auto LineAt = [Last = static_cast<double>(Lines.size() - 1)](double Place) {
    return Place > 0 ? static_cast<std::size_t>(std::min(Place, Last)) : 0;
  };
  const double Place = std::floor(AtX / FCalc.Delta());
  const std::size_t Before = LineAt(Place), Behind = LineAt(Place + 1);
  if (Before == Behind) return Lines[Before];
  const double Offset = AtX - FCalc.Frequency(static_cast<int>(Before));
  return Lines[Before] + Offset * (Lines[Behind] - Lines[Before]) / FCalc.Delta();
}

int TZyDiscreteFourier::FindPoint(int X, int Y, float Delta) const {
  return FirstPoint([&](std::size_t i) {
    const PointF& Pixel = Points()[i];
    return std::fabs(Pixel.X - static_cast<float>(X)) <= Delta && std::fabs(Pixel.Y - static_cast<float>(Y)) <= Delta;
  });
}

TZySeries::TPointValues TZyDiscreteFourier::ValuesOfPixel(int Index, float PixelX) const {
  if (Index < 0 || Index >= FCalc.Amplitude().Count()) return TZyFunctionSeries::ValuesOfPixel(Index, PixelX);
  return {-1, FCalc.Frequency(Index), FCalc.Amplitude().GetValue(Index)};
}

// --- Pixels ---------------------------------------------------------------------------------------------------------

void TZyDiscreteFourier::KeepLine(int i) {
  Keep({XAxis()->NumberToWorld(FCalc.Frequency(i)), YAxis()->NumberToWorld(FCalc.Amplitude().GetValue(i))}, i);
}

/// One point for each line, from the one before the axis to the one behind it.
void TZyDiscreteFourier::TakeNewPixels() {
  constexpr int ManyPerColumn = 4;
  if (!HasCurve() || Count() < MinCount()) return;
  const int Number = FCalc.Amplitude().Count();
  const auto [Low, High] = std::minmax({XAxis()->Start(), XAxis()->Stop()});
  if (Number == 0) return;
  const auto LineAt = [&](double Place) { return Place > 0 ? static_cast<int>(std::min(Place, Number - 1.0)) : 0; };
  const int First = LineAt(std::floor(Low / FCalc.Delta())), Last = LineAt(std::ceil(High / FCalc.Delta()));
  if (Last - First > ManyPerColumn * std::max(XAxis()->Width(), 1)) return ReduceToColumns(First, Last);
  for (int i = First; i <= Last; ++i) KeepLine(i);
}

void TZyDiscreteFourier::ReduceToColumns(int First, int Last) {
  const std::span<const double> Lines = FCalc.Amplitude().Values();
  const auto ColumnOf = [this](int i) { return std::lround(XAxis()->NumberToWorld(FCalc.Frequency(i))); };
  for (int From = First, To; From <= Last; From = To) {
    const auto Column = ColumnOf(From);
    int Lowest = From, Highest = From;
    for (To = From; To <= Last && ColumnOf(To) == Column; ++To) {
      if (Lines[static_cast<std::size_t>(To)] < Lines[static_cast<std::size_t>(Lowest)]) Lowest = To;
      if (Lines[static_cast<std::size_t>(To)] > Lines[static_cast<std::size_t>(Highest)]) Highest = To;
    }
    std::array Kept{From, Lowest, Highest, To - 1};
    std::ranges::sort(Kept);
    const auto End = std::unique(Kept.begin(), Kept.end());
    std::for_each(Kept.begin(), End, [this](int i) { KeepLine(i); });
  }
}

}  // namespace zy
