// The layout of a pie chart: from values to places in pixels.

#include <algorithm>
#include <cmath>

#include "pie/ZyPieDonut.h"
#include "platform/framework/ScopedFlag.h"
#include "series/vectors/ZyDoubleVector.h"
#include "texts/Exceptions.h"

namespace zy {
namespace {

/// Points of a font for each hundred pixels of a pie.
constexpr float PerPercent = 0.01f;

}  // namespace

void TZyPieChart::BringUpToDate() {
  if (FNeedsRecalculate) Calculate();
}

void TZyPieChart::Calculate() {
  if (Updating() || !FCanSet || IsDestroying()) return;
  const TScopedValue Calculating(FCanSet, false);
  FNeedsRecalculate = true;  // until all is done: a handler may throw in the middle
  ReadData();
  TZyPieMargins Margins = StartMargins();
  const auto Calculation = std::make_shared<TZyPieCalculation>(FShape);
  AddSegments(*Calculation);
  Calculation->Arrange(FOrderAscending);
  FLabels.Clear();
  if (FLabelPosition != TZyPieLabelPosition::Invisible) MeasureLabels(*Calculation);
  FLayout = Calculation;  // legends list what there is now
  PlaceLegends(Margins);
  PlaceTitle(Margins);
  FPieExplodedRect = {Margins.Left, Margins.Top, static_cast<float>(ClientWidth()) - Margins.Left - Margins.Right - 1,
                      static_cast<float>(ClientHeight()) - Margins.Top - Margins.Bottom - 1};
  Calculation->FitInto(FPieExplodedRect);
  PlaceLabels(*Calculation);
  FNeedsRecalculate = false;
}

void TZyPieChart::ReadData() {
  for (TZyCustomDoubleVector* Vector : {FValues.Get(), FExplodePercent.Get()})
    if (auto* const Data = dynamic_cast<TZyDoubleVector*>(Vector); Data != nullptr && Data->DBData()) Data->UpdateDB();
  FCaptions.Update();
}

TZyPieMargins TZyPieChart::StartMargins() {
  constexpr float ShadowX = 5, ShadowY = 4;
  TZyPieMargins Margins = FDistances;
  if (CaptionVisible() && !Caption().empty()) {
    FTitleRec.ParseIfNeeded();
    Margins.Top += CaptionDistanceBefore() + FTitleRec.Height() + CaptionDistanceAfter();
    FTitleRec.Y = CaptionDistanceBefore();
  }
  if (FLabelPosition == TZyPieLabelPosition::Callouts && FCalloutShadow) {
    Margins.Bottom += ShadowY;
    Margins.Right += ShadowX;
  }
  return Margins;
}

/// The values that count, by their index. Handlers that are asked of them may change the vector, or free it.
std::vector<TZyPieChart::TIndexed> TZyPieChart::TakenValues() const {
  std::vector<TIndexed> Result;
  const int Count = FValues->Count();
  std::vector<double> Scratch(FValues->Values().empty() ? static_cast<std::size_t>(Count) : 0);
  const std::span<const double> All = FValues->ValuesAt(0, Count, Scratch);
  const bool SkipsOutliers = !FOutliersVisible && FValues->AnyOutliers();
  Result.reserve(All.size());
  for (int Idx = 0; Idx < Count; ++Idx)
    if (!SkipsOutliers || !FValues->IsOutlier(Idx)) Result.push_back({Idx, All[static_cast<std::size_t>(Idx)]});
  return Result;
}

/// A total of nothing, or below it, has no shares: there are no segments then. Neither has a value that is no number or
/// infinite.
void TZyPieChart::AddSegments(TZyPieCalculation& Calculation) {
  FPercentFactor = PresentPercentFactor();
  FTotalSum = 0;
  if (FValues == nullptr) return;
  const std::vector<TIndexed> Taken = TakenValues();
  if (mValueTransformation) {
    for (const auto& [Idx, Raw] : Taken)
      if (const double Value = TransformValue(Raw, Idx); std::isfinite(Value)) FTotalSum += Value;
  } else {
    FTotalSum = FOutliersVisible ? FValues->SumIncludingOutliers() : FValues->Sum();
  }
  if (!(FTotalSum > 0) || !std::isfinite(FTotalSum)) return;
  const double DegreesPerUnit = static_cast<double>(FShape.TotalAngle) / FTotalSum;
  for (const auto& [Idx, Raw] : Taken) {
    if (!(Raw > 0) || !std::isfinite(Raw)) continue;
    const double Value = TransformValue(Raw, Idx);
    Calculation.Add(Idx, Value, Value * DegreesPerUnit, ExplosionOf(Idx));
  }
}

double TZyPieChart::ExplosionOf(int Idx) const {
  const bool HasOwn = FExplodePercent != nullptr && Idx < FExplodePercent->Count();
  const double Own = HasOwn ? FExplodePercent->GetValue(Idx) : 0;
  if (!mExplodePercentTransformation) return Own;
  return mExplodePercentTransformation(const_cast<TZyPieChart*>(this), {Own, Idx});
}

void TZyPieChart::SetFontSize(float Points) {
  if (!(Points > 0)) return;
  FFont.SetSize(std::min(Points, Font::MaxSize));
  FFontSizeSeen = FFont.Size();
}

/// Only the extent of texts by the size of their font counts here; the size itself follows from that of the pie.
void TZyPieChart::MeasureLabels(TZyPieCalculation& Calculation) {
  using enum TZyPieLabelPosition;
  SetFontSize(static_cast<float>(ClientWidth()) * PerPercent * FLabelSize);
  FHasCalloutBox = HasCalloutBox();
  TZyRichCaptionObjects Labels;
  std::vector<SizeF> Extents;
  for (const TZyPieSegment& Segment : Calculation.Segments()) {
    auto Label = std::make_unique<TZyRichCaptionObject>();
    Label->CaptionFont().Assign(&FFont);
    Label->Alignment = TZyContentAlignment::MiddleCenter;
    Label->SetCaption(GetSegmentCaption(Segment.DataIndex, FLabelFrom, FLabelFormat));
    if (FLabelPosition == InsideAligned) Label->Angle = TZyPieCalculation::AlignedAngle(Segment.Middle());
    if (FLabelPosition == Callouts) {
      Label->ParseIfNeeded();
      Extents.push_back({Label->Width() / FFont.Size(), Label->Height() / FFont.Size()});
    }
    Labels.Add(std::move(Label));
  }
  if (FLabelPosition == Callouts)
    Calculation.PlaceCallouts({FLabelSize, FCalloutDistanceToPie, FHasCalloutBox ? FCalloutSpaceToBorder : 0}, Extents);
  else
    Calculation.PlaceInside();
  FLabels = std::move(Labels);
}

void TZyPieChart::PlaceLegends(TZyPieMargins& Margins) {
  const SizeF Extent{static_cast<float>(ClientWidth()), static_cast<float>(ClientHeight())};
  for (IZyGraphLegend* Legend : RelatedLegends()) {
    TControl& Control = Legend->Control();
    if (!FAutoUpdate) Legend->Modified();  // nobody told it of what is laid out now
    if (!Control.Visible()) continue;
    try {
      Legend->PreparePaint();
    } catch (const EAbort&) {
      continue;  // a handler freed it
    }
    const auto* const Listed = dynamic_cast<const IZyPieLegend*>(Legend);
    if (Listed == nullptr || !Control.Visible() || Control.Parent() != this) continue;
    const SizeF Size{static_cast<float>(Control.Width()), static_cast<float>(Control.Height())};
    const TPoint Place = PlacePieLegend(Listed->Position(), Extent, Size, Listed->DistanceToPie(), Margins);
    Control.SetBounds(Place.X, Place.Y, Control.Width(), Control.Height());
  }
}

void TZyPieChart::PlaceTitle(const TZyPieMargins& Margins) {
  const auto Width = static_cast<float>(ClientWidth());
  switch (CaptionAlignment()) {
    case TAlignment::taLeftJustify:
      FTitleRec.X = Margins.Left;
      break;
    case TAlignment::taRightJustify:
      FTitleRec.X = Width - Margins.Right;
      break;
    case TAlignment::taCenter:
      FTitleRec.X = (Width - Margins.Left - Margins.Right) / 2 + Margins.Left;
      break;
  }
}

void TZyPieChart::PlaceLabels(const TZyPieCalculation& Calculation) {
  if (FLabelPosition == TZyPieLabelPosition::Invisible) return;
  SetFontSize(Calculation.PieRect().Width * PerPercent * FLabelSize);
  for (std::size_t i = 0; i < FLabels.size() && i < Calculation.Labels().size(); ++i) {
    TZyRichCaptionObject& Label = *FLabels[i];
    Label.CaptionFont().SetSize(FFont.Size());
    Label.X = Calculation.Labels()[i].X;
    Label.Y = Calculation.Labels()[i].Y;
    Label.ParseIfNeeded();
    Label.OnVariablesChanged = [this] { Modified(); };
  }
}

}  // namespace zy
