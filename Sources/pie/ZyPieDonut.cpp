#include "pie/ZyPieDonut.h"

#include <cmath>

#include "persistence/ZyIO.h"
#include "platform/framework/ScopedFlag.h"
#include "series/vectors/ZyDoubleVector.h"
#include "series/vectors/ZyVectors.h"

namespace zy {

TZyPieChart::TZyPieChart(TComponent* Owner)
    : TZyCustomGraph(Owner),
      FFont([this] { FontLookModified(); }),
      FCalloutBackColor(ColorToARGB("Info")),
      FCaptions(
          this, &TZyPieChart::SetDataSource, [this] { CaptionsChanging(); }, [this] { Modified(); },
          [this] { Modified(); }),
      FSegmentBorder([this] { Invalidate(); }),
      FCalloutFrame([this] { CalloutLookModified(); }),
      FCalloutArrow([this] { Invalidate(); }),
      FCalloutGradient([this] { CalloutLookModified(); }) {
  constexpr int Extent = 250;
  TCustomPanel::SetBounds(0, 0, Extent, Extent);  // NOLINT(bugprone-parent-virtual-call): nothing is laid out yet
  FFont.OnNeedsResize = [this] { FontModified(); };
  FSegmentBorder.SetColor(Colors::Black);
  FCalloutFrame.SetColor(ColorToARGB("WindowFrame"));
  FCalloutArrow.SetColor(ColorToARGB("WindowFrame"));
  FNeedsRecalculate = true;
  FPollingThread.OnPoll = [this] { DBPoll(); };
}

TZyPieChart::~TZyPieChart() { Destroying(); }

void TZyPieChart::SetUndoStack(TZyUndoStack* Value) {
  TZyCustomGraph::SetUndoStack(Value);
  if (FPalette != nullptr) FPalette->SetUndoStack(Value);
  FSegmentBorder.SetUndoStack(Value);
  FCalloutFrame.SetUndoStack(Value);
  FCalloutArrow.SetUndoStack(Value);
  FCalloutGradient.SetUndoStack(Value);
}

void TZyPieChart::SetName(const std::string& Value) {
  const bool IsFirst = Name().empty();
  TZyCustomGraph::SetName(Value);
  if (!IsDesigning() || !IsFirst || IsLoading() || Owner() == nullptr) return;
  TZyFillPalette* Palette = nullptr;
  bool HasVector = false;
  for (TComponent* Component : Owner()->Components()) {
    if (Palette == nullptr) Palette = dynamic_cast<TZyFillPalette*>(Component);
    HasVector = HasVector || dynamic_cast<TZyDoubleVector*>(Component) != nullptr;
  }
  if (FPalette == nullptr) {
    if (Palette == nullptr) {
      Palette = new TZyFillPalette(Owner());
      Palette->SetName(UniqueName(Owner(), "ZyFillPalette"));
    }
    SetSegmentSettingsPalette(Palette);
  }
  if (HasVector) return;
  auto* const Vector = new TZyDoubleVector(Owner());
  Vector->SetName(UniqueName(Owner(), "ZyDoubleVector"));
  SetValues(Vector);
}

// --- Change protocol ------------------------------------------------------------------------------------------------

/// Legends that stand in the chart ask it for room, which is what they are told of here.
void TZyPieChart::Modified() {
  if (!FAutoUpdate || !FCanSet || IsDestroying()) return;
  FNeedsRecalculate = true;
  if (!FTellingLegends) {
    const TScopedValue Telling(FTellingLegends, true);
    for (IZyGraphLegend* Legend : RelatedLegends()) Legend->Modified();
  }
  if (!Updating()) Invalidate();
}

void TZyPieChart::BoundsChanged() {
  Modified();
  Invalidate();
}

/// Swatches of legends that stand elsewhere show the fills as well.
void TZyPieChart::InvalidateBox() {
  TZyCustomGraph::InvalidateBox();
  for (IZyGraphLegend* Legend : RelatedLegends())
    if (Legend->Control().Parent() != this) Legend->Control().Invalidate();
}

/// The family or the size: a size that a user sets scales the labels, and one that a layout sets does not.
void TZyPieChart::FontModified() {
  if (!FCanSet) return;
  FLabelsFont.FontChanged();
  const float Size = FFont.Size();
  const bool IsRestored = IsLoading() || (UndoStack() != nullptr && UndoStack()->Restoring());
  if (Size != FFontSizeSeen && Size > 0 && !IsRestored) {
    if (FOldFontSize > 0 && std::isfinite(Size / FOldFontSize * FLabelSize)) FLabelSize *= Size / FOldFontSize;
    FOldFontSize = Size;
  }
  FFontSizeSeen = Size;
  if (FLabelPosition != TZyPieLabelPosition::Invisible) Modified();
}

void TZyPieChart::FontLookModified() {
  if (!FCanSet) return;
  FLabelsFont.FontChanged();
  for (const auto& Label : FLabels) Label->CaptionFont().Assign(&FFont);
  Invalidate();
}

void TZyPieChart::ParentFontChanged() {
  TCustomPanel::ParentFontChanged();  // NOLINT(bugprone-parent-virtual-call): the title keeps its font
  {
    const TScopedValue Taking(FCanSet, false);
    FLabelsFont.Take();
  }
  FFontSizeSeen = FFont.Size();
  Modified();
}

/// A box that shows anything takes more room than its text.
void TZyPieChart::CalloutLookModified() {
  if (HasCalloutBox() != FHasCalloutBox) Modified();
  Invalidate();
}

bool TZyPieChart::HasCalloutBox() const {
  return FCalloutFrame.Visible() || FCalloutRaised || FCalloutLowered || FCalloutGradient.Visible() ||
         GetAlpha(FCalloutBackColor) > 0;
}

/// Runs on the control thread, some ten times a second. What a database changed reaches the chart through the vectors.
void TZyPieChart::DBPoll() {
  if (Updating() || FNeedsRecalculate || IsDestroying()) return;
  for (TZyCustomDoubleVector* Vector : {FValues.Get(), FExplodePercent.Get()})
    if (auto* const Data = dynamic_cast<TZyDoubleVector*>(Vector); Data != nullptr && Data->DBData()) Data->UpdateDB();
}

// --- Segments -------------------------------------------------------------------------------------------------------

int TZyPieChart::GetCount() const { return FLayout == nullptr ? 0 : static_cast<int>(FLayout->Segments().size()); }

int TZyPieChart::GetLegendItemIndex(int i) const {
  if (i < 0 || i >= GetCount()) detail::VectorIndexOutOfRange(i);
  return FLayout->Segments()[static_cast<std::size_t>(i)].DataIndex;
}

TZyFillSettings& TZyPieChart::PaletteItem(int i) {
  if (FPalette == nullptr || FPalette->Count() == 0 || i < 0) return FDefaultFill;
  return FPalette->Items(i % FPalette->Count());
}

double TZyPieChart::TransformValue(double Value, int Idx) const {
  if (!mValueTransformation) return Value;
  return mValueTransformation(const_cast<TZyPieChart*>(this), {Value, Idx});
}

/// While the chart waits for its layout, that of the values as they are now.
double TZyPieChart::PresentPercentFactor() const {
  if (!FNeedsRecalculate || FValues == nullptr) return FPercentFactor;
  const double Sum = TransformValue(FOutliersVisible ? FValues->SumIncludingOutliers() : FValues->Sum(), -1);
  constexpr double Whole = 100;
  return Sum != 0 && std::isfinite(Sum) ? Whole / Sum : 0;
}

TZyRichCaption TZyPieChart::GetSegmentCaption(int Idx, TZyLabelStyle Style, const std::string& Format) const {
  double Value = 0, Percent = 0;
  if (Style != TZyLabelStyle::CaptionsList && FValues != nullptr && Idx >= 0 && Idx < FValues->Count()) {
    Value = TransformValue(FValues->GetValue(Idx), Idx);
    Percent = Value * PresentPercentFactor();
  }
  TZyGetLabelEventArgs Args{LabelText(Style, FCaptions.At(Idx), Format, Value, Percent), Idx};
  if (const TZyGetLabelEventHandler Handler = mGetLabel) Handler(const_cast<TZyPieChart*>(this), Args);
  return std::move(Args.Caption);
}

}  // namespace zy
