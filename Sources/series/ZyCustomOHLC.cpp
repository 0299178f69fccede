#include "series/ZyCustomOHLC.h"

#include <algorithm>
#include <cmath>

#include "graph/parts/ZySeriesGraph.h"
#include "persistence/ZyArchive.h"
#include "platform/framework/TPropInfo.h"
#include "undo/ZyUndoGroup.h"

namespace zy {

ZY_PUBLISHED(TZyCustomOHLC, TZySeries, Published<&Self::BarWidth, &Self::SetBarWidth>("BarWidth", _sCustomOHLCBarWidth),
             Published<&Self::OpenData, &Self::SetOpenData>("OpenData", _sCustomOHLCOpenData),
             Published<&Self::CloseData, &Self::SetCloseData>("CloseData", _sCustomOHLCCloseData),
             Published<&Self::HighData, &Self::SetHighData>("HighData", _sCustomOHLCHighData),
             Published<&Self::LowData, &Self::SetLowData>("LowData", _sCustomOHLCLowData),
             Published<&Self::LowValueTransformation>("LowValueTransformation"),
             Published<&Self::OpenValueTransformation>("OpenValueTransformation"),
             Published<&Self::HighValueTransformation>("HighValueTransformation"),
             Published<&Self::CloseValueTransformation>("CloseValueTransformation"),
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

void TZyCustomOHLC::TakePixels(int Start, int Stop) {
  ForEachPoint(Start, Stop + 1, [&](int i) {
    Keep(GetCalcPoint(i), i);
    FLow.AddPixel(FYAxis->NumberToWorld(GetLow(i)));
    FOpen.AddPixel(FYAxis->NumberToWorld(GetOpen(i)));
    FHigh.AddPixel(FYAxis->NumberToWorld(GetHigh(i)));
  });
}

int TZyCustomOHLC::FindPoint(int X, int Y) const {
  const auto x = static_cast<float>(X), y = static_cast<float>(Y);
  const float Half = (1 + FBarWidth) / 2 + Overhang();
  return FirstPoint([&](std::size_t i) {
    return std::fabs(Points()[i].X - x) <= Half && FHigh.Pixels()[i] <= y && y <= FLow.Pixels()[i];
  });
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
  for (auto& [Data, Values] :
       {std::pair(LowData(), &Low), {HighData(), &High}, {CloseData(), &Close}, {OpenData(), &Open}}) {
    for (double& Value : *Values) Value = (Value - Least) * Scale + Start;
    FillValues(Data, *Values);
  }
  FillSample(XData(), FXAxis->Start(), (FXAxis->Stop() - FXAxis->Start()) / Steps, 0.2, FXAxis->Stop());
  FYAxis->ShrinkOtherYs();
}

}  // namespace zy
