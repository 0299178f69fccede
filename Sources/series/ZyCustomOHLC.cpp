#include "series/ZyCustomOHLC.h"

#include <algorithm>
#include <cmath>

#include "graph/parts/ZySeriesGraph.h"
#include "persistence/ZyArchive.h"
#include "platform/framework/TPropInfo.h"
#include "undo/ZyUndoGroup.h"

namespace zy {

ZY_PUBLISHED(
    TZyCustomOHLC, TZySeries,
    Published<&TZyCustomOHLC::BarWidth, &TZyCustomOHLC::SetBarWidth>("BarWidth").Labelled(_sCustomOHLCBarWidth),
    Published<&TZyCustomOHLC::OpenData, &TZyCustomOHLC::SetOpenData>("OpenData").Labelled(_sCustomOHLCOpenData),
    Published<&TZyCustomOHLC::CloseData, &TZyCustomOHLC::SetCloseData>("CloseData").Labelled(_sCustomOHLCCloseData),
    Published<&TZyCustomOHLC::HighData, &TZyCustomOHLC::SetHighData>("HighData").Labelled(_sCustomOHLCHighData),
    Published<&TZyCustomOHLC::LowData, &TZyCustomOHLC::SetLowData>("LowData").Labelled(_sCustomOHLCLowData),
    Published<&TZyCustomOHLC::LowValueTransformation>("LowValueTransformation"),
    Published<&TZyCustomOHLC::OpenValueTransformation>("OpenValueTransformation"),
    Published<&TZyCustomOHLC::HighValueTransformation>("HighValueTransformation"),
    Published<&TZyCustomOHLC::CloseValueTransformation>("CloseValueTransformation"),
    Republished("AutoUpdate OutliersVisible XAxis YAxis XData YData Line XValueTransformation OnGetPen"))

TZyCustomOHLC::TZyCustomOHLC(TComponent* Owner) : TZySeries(Owner) { FY.SetUse(TZyInputUse::Needed); }

void TZyCustomOHLC::SetCloseData(TZyCustomDoubleVector* Value) {
  if (Value == YData()) return;
  const TZyUndoGroup Group(UndoStack(), _sCustomOHLCCloseData);
  SetYData(Value);
}

void TZyCustomOHLC::Fields(TZyArchive& Archive) {
  TZySeries::Fields(Archive);
  Archive.Level("CustomOHLC", *this, "OpenData HighData LowData BarWidth");
}

void TZyCustomOHLC::TakeRanges(TRange& X, TRange& Y) {
  ForEachPoint(0, Count(), [&](int i) {
    X.Take(FX.At(i));
    Y.Take(GetLow(i));
    Y.Take(GetHigh(i));
  });
}

/// Bars have no gradient.
void TZyCustomOHLC::CalculatePoints() {
  if (Area().Gradient().Visible()) Silently(Area(), [this] { Area().Gradient().SetVisible(false); });
  TZySeries::CalculatePoints();
}

void TZyCustomOHLC::PaintGr(Graphics& Gr) {
  if (Visible()) PaintPoints(Gr);
}

void TZyCustomOHLC::KeepPixels(int Count) {
  for (TZySingleVector* Pixels : {&FLowPoint, &FOpenPoint, &FHighPoint}) Pixels->Shrink(Count);
}

void TZyCustomOHLC::TakePixels(int Start, int Stop) {
  ForEachPoint(Start, Stop + 1, [&](int i) {
    Keep(GetCalcPoint(i), i);
    FLowPoint.Add(FYAxis->NumberToWorld(GetLow(i)));
    FOpenPoint.Add(FYAxis->NumberToWorld(GetOpen(i)));
    FHighPoint.Add(FYAxis->NumberToWorld(GetHigh(i)));
  });
}

int TZyCustomOHLC::FindPoint(int X, int Y) const {
  const auto x = static_cast<float>(X), y = static_cast<float>(Y);
  const float Half = (1 + FBarWidth) / 2 + Overhang();
  return FirstPoint([&](std::size_t i) {
    return std::fabs(Points()[i].X - x) <= Half && HighPoints()[i] <= y && y <= LowPoints()[i];
  });
}

float TZyCustomOHLC::ExtraSpaceAt(TZyAxisPosition Border) const {
  const bool AtSide = Border == TZyAxisPosition::Left || Border == TZyAxisPosition::Right;
  return AtSide ? FBarWidth / 2 + Overhang() : 0;
}

/// Bars of random length along a rising line, scaled into the Y axis.
void TZyCustomOHLC::AddSampleData() {
  constexpr int Steps = 10, Reach = 3;
  const double Start = FYAxis->Start(), Span = FYAxis->Stop() - Start, Step = Span / Steps;
  std::vector<double> Low, High, Close, Open;
  for (int i = 0; i <= Steps; ++i) {
    const double Base = i * Step + Start;
    Low.push_back(Base - Random() * Step * Reach);
    High.push_back(Base + Random() * Step * Reach);
    Close.push_back(Low.back() + Random() * (High.back() - Low.back()));
    Open.push_back(Low.back() + Random() * (High.back() - Low.back()));
  }
  const double Least = *std::ranges::min_element(Low), Scale = Span / (*std::ranges::max_element(High) - Least);
  for (std::vector<double>* Values : {&Low, &High, &Close, &Open})
    for (double& Value : *Values) Value = (Value - Least) * Scale + Start;
  FillValues(LowData(), Low);
  FillValues(HighData(), High);
  FillValues(CloseData(), Close);
  FillValues(OpenData(), Open);
  FillSample(XData(), FXAxis->Start(), (FXAxis->Stop() - FXAxis->Start()) / Steps, 0.2, FXAxis->Stop());
  FYAxis->ShrinkOtherYs();
}

}  // namespace zy
