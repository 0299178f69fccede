#include "series/ZyCustomOHLC.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "graph/parts/ZySeriesGraph.h"
#include "persistence/ZyArchive.h"
#include "platform/controls/TWinControl.h"
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

// --- Ranges ---------------------------------------------------------------------------------------------------------

/// Whether all values are finite, and those of the vectors themselves.
bool TZyCustomOHLC::IsWhole() const {
  return std::ranges::all_of(FInputs, [](const TZySeriesInput* Input) {
    return *Input && !Input->IsTransformed() && !(*Input)->GetHasGaps();
  });
}

bool TZyCustomOHLC::HasTrackedRanges() const {
  const auto IsTracked = [this](const TZySeriesInput* Input) {
    return Input->Count() == FX.Count() && (OutliersVisible() || !(*Input)->AnyOutliers());
  };
  const auto SearchesAbove0 = [](const TZyAxis* Axis, const TZySeriesInput& Input) {
    return Axis != nullptr && Axis->HasLogScaling() && Input->Minimum() < 0;
  };
  return IsWhole() && std::ranges::all_of(FInputs, IsTracked) && !SearchesAbove0(FXAxis, FX) &&
         !SearchesAbove0(FYAxis, FLow);
}

void TZyCustomOHLC::TakeRanges(TRange& X, TRange& Y) {
  TRange Low, High;
  if (IsWhole()) {
    ForEachStretch(0, Count(), [&](int First, int Last) {
      const TZyExtremes AlongX = FX->FindExtremes(First, Last);
      X.Take(AlongX.Low);
      X.Take(AlongX.High);
      Low.Take(FLow->FindExtremes(First, Last).Low);
      High.Take(FHigh->FindExtremes(First, Last).High);
    });
  } else {
    ForEachPoint(0, Count(), [&](int i) {
      const TRecord Record = RecordAt(i);
      if (!Record.IsFinite()) return;
      X.Take(Record.X);
      Low.Take(Record.Low);
      High.Take(Record.High);
    });
  }
  if (Low.IsEmpty() || High.IsEmpty()) return;
  if (FXAxis->HasLogScaling() && X.Low < 0) X.Low = SmallestPositive(FX, X.Low);
  if (FYAxis->HasLogScaling() && Low.Low < 0) Low.Low = SmallestPositive(FLow, Low.Low);
  Y.Take(Low.Low);
  Y.Take(High.High);
}

/// A record that came at the end, or changed within the ranges, leaves those in front of it as they are.
void TZyCustomOHLC::DataWritten(const TZyCustomDoubleVector&, int Idx) {
  if (Idx < LastCount() && !HasTrackedRanges()) return DataInvalidated();
  FState.PixelsModifiedFrom(Idx);
  Invalidate();
}

// --- Pixels ---------------------------------------------------------------------------------------------------------

/// Bars have no gradient.
void TZyCustomOHLC::CalculatePoints() {
  if (Area().Gradient().Visible()) Silently(Area(), [this] { Area().Gradient().SetVisible(false); });
  TZySeries::CalculatePoints();
}

void TZyCustomOHLC::PaintGr(Graphics& Gr) {
  if (Visible()) PaintPoints(Gr);
}

void TZyCustomOHLC::TakePixels(int Start, int Stop) {
  if (IsWhole()) return ForEachStretch(Start, Stop + 1, [this](int First, int Last) { TakeStretch(First, Last); });
  ForEachPoint(Start, Stop + 1, [&](int i) {
    const TRecord Record = RecordAt(i);
    if (!Record.IsFinite()) return;
    Keep({FXAxis->NumberToWorld(Record.X), FYAxis->NumberToWorld(Record.Close)}, i);
    FLow.AddPixel(FYAxis->NumberToWorld(Record.Low));
    FOpen.AddPixel(FYAxis->NumberToWorld(Record.Open));
    FHigh.AddPixel(FYAxis->NumberToWorld(Record.High));
  });
}

/// The same for untransformed records of finite values, some hundreds at a time.
void TZyCustomOHLC::TakeStretch(int First, int Last) {
  constexpr int Block = 512;
  std::array<float, Block> X, Y;
  std::array<double, Block> Scratch;
  const std::span<PointF> Kept = KeepStretch(First, Last);
  const std::pair<TZySeriesInput*, std::span<float>> Others[] = {{&FLow, FLow.AddPixels(Last - First)},
                                                                 {&FOpen, FOpen.AddPixels(Last - First)},
                                                                 {&FHigh, FHigh.AddPixels(Last - First)}};
  for (int From = First; From < Last; From += Block) {
    const int Number = std::min(Block, Last - From);
    const auto Place = static_cast<std::size_t>(From - First), Length = static_cast<std::size_t>(Number);
    FXAxis->NumberToWorld(FX->ValuesAt(From, Number, Scratch), X);
    FYAxis->NumberToWorld(FY->ValuesAt(From, Number, Scratch), Y);
    for (std::size_t i = 0; i < Length; ++i) Kept[Place + i] = {X[i], Y[i]};
    for (const auto& [Input, Pixels] : Others)
      FYAxis->NumberToWorld((*Input)->ValuesAt(From, Number, Scratch), Pixels.subspan(Place, Length));
  }
}

/// Whether the kept records stand from left to right.
bool TZyCustomOHLC::HasAscendingPixels() const {
  return !FX.IsTransformed() && FX->GetIsSorted() && !FXAxis->HasLogScaling() && !FXAxis->Twisted();
}

bool TZyCustomOHLC::HasColumns(TZyRecordLook& Look) {
  constexpr float FewestForPixel = 2, Widest = 1e5f;  // as far as pixels go
  Look.Area = Graph()->DrawingArea();
  Look.BarWidth = std::min(FBarWidth, Widest);
  Look.Overhang = std::min(Overhang(), Widest);
  Look.LineWidth = std::min(LinePen()->EffectiveWidth(), Widest);
  Look.HasLine = Line().Visible();
  const bool AreDense = static_cast<float>(Points().size()) > FewestForPixel * std::max(Look.Area.Width, 1.0f);
  // A layout that had no room for what its bars ask for may leave any area.
  const TWinControl& Control = Graph()->Control();
  const auto Fits = [](float From, float Size, int Most) {
    return From >= 0 && Size >= 0 && From + Size <= static_cast<float>(Most) + 1;
  };
  if (!Fits(Look.Area.X, Look.Area.Width, Control.Width())) return false;
  if (!Fits(Look.Area.Y, Look.Area.Height, Control.Height())) return false;
  return AreDense && !OnGetPen() && !OnGetBrush() && LinePen()->DashStyle() == DashStyleSolid;
}

int TZyCustomOHLC::FindPoint(int X, int Y) const {
  const auto x = static_cast<float>(X), y = static_cast<float>(Y);
  const float Half = (1 + FBarWidth) / 2 + Overhang();
  const auto IsHit = [&](std::size_t i) {
    return std::fabs(Points()[i].X - x) <= Half && TopOf(i) <= y && y <= BottomOf(i);
  };
  if (RecalculatePoints() || !FX || !HasAscendingPixels()) return FirstPoint(IsHit);
  const auto First = std::ranges::lower_bound(Points(), x - Half, {}, &PointF::X);
  for (auto i = static_cast<std::size_t>(First - Points().begin()); i < Points().size(); ++i) {
    if (Points()[i].X > x + Half) break;
    if (IsHit(i)) return PointIndex()[i];
  }
  return -1;
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
  bool IsFilled = false;
  for (auto& [Data, Values] :
       {std::pair(LowData(), &Low), {HighData(), &High}, {CloseData(), &Close}, {OpenData(), &Open}}) {
    for (double& Value : *Values) Value = (Value - Least) * Scale + Start;
    IsFilled = FillValues(Data, *Values) || IsFilled;
  }
  FillSample(XData(), FXAxis->Start(), (FXAxis->Stop() - FXAxis->Start()) / Steps, 0.2, FXAxis->Stop());
  if (IsFilled) FYAxis->ShrinkOtherYs();
}

}  // namespace zy
