// Labels of bars, and the room that they and the depth take beyond the data.

#include <algorithm>
#include <cmath>

#include "graph/parts/ZySeriesGraph.h"
#include "series/ZyBars.h"
#include "series/ZyPointLook.h"

namespace zy {

// --- Texts ----------------------------------------------------------------------------------------------------------

/// A bar without a value has no label. Neither have those that the axis leaves out, unless the event is to be asked,
/// nor thousands that nobody can read; few of them have one whatever their size, so that the room for them does not
/// come and go with the layout.
void TZyBars::TakeLabels() {
  constexpr float SmallestFont = 1, PerPixel = 0.01f, WithoutWidth = 100;
  constexpr int Many = 2000;
  FLabels.Clear();
  FFurthest = -1;
  if (!HasLabels()) return;
  const float Width = FNarrowest > 0 && FNarrowest < std::numeric_limits<float>::max() ? FNarrowest : WithoutWidth;
  const float Size = std::min(PerPixel * Width * FLabelSize, Font::MaxSize);
  if (!(Size > 0) || (Size < SmallestFont && Count() > Many)) return;
  const bool IsInside = StaysInside();
  if (IsInside && FLabelPosition == TZyBarLabelPosition::OnTopOfBar) FLabelPosition = TZyBarLabelPosition::InTop;
  const double Sum = Values().Transform(OutliersVisible() ? Values()->SumIncludingOutliers() : Values()->Sum(), -1);
  const double PercentFactor = Sum != 0 && std::isfinite(Sum) ? 1 / Sum * 100 : 0;
  FLabels.SetCount(Count());
  for (int i = 0; i < Count(); ++i) {
    if (!HasValue(i) || (!mGetLabel && !IsInView(i))) continue;
    TZyGetLabelEventArgs Args{TextOf(i, PercentFactor), i};
    if (mGetLabel) {
      const std::uint64_t Handle = LiveHandle();
      const TZyGetLabelEventHandler Handler = mGetLabel;
      Handler(this, Args);
      TZyPointLook::TestAlive(Handle);
      if (FState.Count() <= i || FLabels.Count() <= i) return;  // data went
    }
    if (Args.Caption.empty()) continue;
    auto Label = std::make_unique<TZyRichCaptionObject>();
    Label->CaptionFont().Assign(&FFont);
    Label->CaptionFont().SetSize(Size);
    Label->SetCaption(Args.Caption);
    Label->Alignment = TZyContentAlignment::MiddleCenter;
    Label->Angle = FLabelVertical ? 90 : 0;
    Label->ParseIfNeeded();
    Label->OnVariablesChanged = [this] { LabelModified(); };
    const auto Bar = static_cast<std::size_t>(i);
    if (FBarsHorizontal)
      PlaceOnLyingBar(Bar, IsInside, *Label);
    else
      PlaceOnUprightBar(Bar, IsInside, *Label);
    FLabels[Bar] = std::move(Label);
  }
  FFurthest = FurthestLabel();
}

/// Whether the class lies between the ends of its axis, at least in part.
bool TZyBars::IsInView(int Idx) const {
  const auto [Low, High] = std::minmax({BoundaryAt(Idx), BoundaryAt(Idx + 1)});
  const TZyAxis& Axis = ClassAxis();
  return High >= Axis.Start() && Low <= Axis.Stop();
}

std::string TZyBars::TextOf(int Idx, double PercentFactor) const {
  const double Value = OwnValue(Idx);
  return LabelText(FLabelFrom, FCaptions.At(Idx), FLabelFormat, Value, Value * PercentFactor);
}

// --- Places ---------------------------------------------------------------------------------------------------------

/// Whether other bars stand on these, so that labels have no room above them.
bool TZyBars::StaysInside() const { return FOverlayStyle == TZyBarsOverlayStyle::Stack && !IsTopMost(); }

SizeF TZyBars::ExtentOf(const TZyRichCaptionObject& Label) const {
  return FLabelVertical ? SizeF{Label.Height(), Label.Width()} : SizeF{Label.Width(), Label.Height()};
}

void TZyBars::PlaceOnUprightBar(std::size_t Bar, bool IsInside, TZyRichCaptionObject& Label) const {
  using enum TZyBarLabelPosition;
  const auto [l, t] = Points()[Bar];
  const auto [r, b] = BottomRight()[Bar];
  const float h = ExtentOf(Label).Height;
  float x = l + (r - l) / 2, y = t + (b - t) / 2;
  switch (FLabelPosition) {
    case OnBottom:
      y = b - h * 0.75f;
      break;
    case GoldenCut:
      y = t + (b - t) * 0.381966f;
      break;
    case ThreeFourth:
      y = t + (b - t) * 0.25f;
      break;
    case InTop:
      y = t + h * 0.75f;
      break;
    default:
      break;
  }
  const bool Fits = t + h / 2 <= y && b - h / 2 >= y;
  if (FLabelPosition != OnTopOfBar && !Fits && IsInside) {
    y = t + (b - t) / 2;
  } else if (FLabelPosition == OnTopOfBar || !Fits) {
    y = t - h / 2;
    if (FBarStyle == TZyBarStyle::Cuboid) x += FDepthX / 2;
    if (IsSolid()) y -= FDepthY;
  }
  Label.X = x + FZylShift / 2;
  Label.Y = y;
}

void TZyBars::PlaceOnLyingBar(std::size_t Bar, bool IsInside, TZyRichCaptionObject& Label) const {
  using enum TZyBarLabelPosition;
  const auto [l, t] = Points()[Bar];
  const auto [r, b] = BottomRight()[Bar];
  const auto [w, h] = ExtentOf(Label);
  const float FromEnd = FLabelVertical ? w : w / 2 + h / 2;
  float x = l + (r - l) / 2, y = t + (b - t) / 2;
  switch (FLabelPosition) {
    case OnBottom:
      x = l + FromEnd;
      break;
    case GoldenCut:
      x = l + (r - l) * 0.6180339f;
      break;
    case ThreeFourth:
      x = l + (r - l) * 0.75f;
      break;
    case InTop:
      x = r - FromEnd;
      break;
    default:
      break;
  }
  const bool Fits = r - w / 2 >= x && l + w / 2 <= x;
  if (FLabelPosition != OnTopOfBar && !Fits && IsInside) {
    x = l + (r - l) / 2;
  } else if (FLabelPosition == OnTopOfBar || !Fits) {
    x = r + w / 2 + (FLabelVertical ? 0 : h / 4);
    if (FBarStyle == TZyBarStyle::Cuboid) y -= FDepthY / 2;
    if (IsSolid()) x += FDepthX;
  }
  Label.X = x;
  Label.Y = y - FZylShift / 2;
}

// --- Room -----------------------------------------------------------------------------------------------------------

/// An estimate from the axes alone, since the bars have no real size before the first layout.
float TZyBars::ExtraSpaceAt(TZyAxisPosition Border) const {
  using enum TZyAxisPosition;
  const bool HasAxes = FXAxis != nullptr && FYAxis != nullptr && Graph() != nullptr;
  if ((Border != Top && Border != Right) || Count() < 1 || !HasAxes) return 0;
  const double ClassWidth = (ClassAxis().Stop() - ClassAxis().Start()) / Count();
  float Result = IsSolid() ? DepthBeyond(Border, ClassWidth) : 0;
  const bool IsAtEnds = (Border == Right) == FBarsHorizontal;
  if (!IsAtEnds || !HasLabels() || StaysInside()) return Result;
  if (RecalculatePoints()) const_cast<TZyBars*>(this)->CalculatePoints();  // asking changes nothing
  return Result + LabelBeyond(Border, ClassWidth);
}

/// The depth, without what the axis leaves free beyond the data and without the half of a gap.
float TZyBars::DepthBeyond(TZyAxisPosition Border, double ClassWidth) const {
  const bool IsTop = Border == TZyAxisPosition::Top;
  const TZyAxis& Axis = *(IsTop ? FYAxis : FXAxis).Get();
  const double PerPixel = ClassAxis().NormalizeConst();
  const double Low = IsTop ? FYStart : FXStart, High = IsTop ? FYStop : FXStop;
  const bool Twisted = Axis.Twisted();
  float Result =
      -std::fabs(Axis.NumberToWorld(Twisted ? Low : High) - Axis.NumberToWorld(Twisted ? Axis.Start() : Axis.Stop()));
  const bool IsAcross = IsTop == FBarsHorizontal;
  if (IsAcross) Result -= static_cast<float>(ClassWidth * FClassesDistance / PerPixel * 0.005);
  const double PerDepth = IsTop ? 0.0026 : 0.0043;
  return Result + static_cast<float>((ClassWidth - 0.01 * FClassesDistance) * FDepth3D * PerDepth / PerPixel);
}

/// Number of the label that reaches furthest, of those beyond the ends of their bars and of the data; -1 for none. A
/// layout asks for it on another scale than that of the pixels, so that it is found along with them.
int TZyBars::FurthestLabel() const {
  const TZyAxis& Axis = ValueAxis();
  const double Low = FBarsHorizontal ? FXStart : FYStart, High = FBarsHorizontal ? FXStop : FYStop;
  const float DataEnd = Axis.NumberToWorld(Axis.Twisted() ? Low : High);
  int Result = -1;
  float Furthest = 0;
  for (std::size_t Bar = 0; Bar < FLabels.size() && Bar < Points().size(); ++Bar) {
    const TZyRichCaptionObject* const Label = FLabels[Bar].get();
    if (Label == nullptr) continue;
    const auto [w, h] = ExtentOf(*Label);
    // Distances to the right or upwards.
    const float End = FBarsHorizontal ? Label->X + w / 2 + (FLabelVertical ? 0 : h / 4) : -(Label->Y - h / 2);
    const float Behind = FBarsHorizontal ? Points()[Bar].X : -Points()[Bar].Y;
    if (End <= Behind || End < (FBarsHorizontal ? DataEnd : -DataEnd)) continue;
    if (Result >= 0 && End <= Furthest) continue;
    Result = static_cast<int>(Bar);
    Furthest = End;
  }
  return Result;
}

float TZyBars::LabelBeyond(TZyAxisPosition Border, double ClassWidth) const {
  constexpr double HeightOfSize = 0.013;
  const TZyRichCaptionObject* const Label = FFurthest < 0 ? nullptr : FLabels.GetValue(FFurthest);
  if (Label == nullptr || Label->Height() == 0) return 0;
  const double Height = HeightOfSize * FLabelSize * ClassWidth / ClassAxis().NormalizeConst();
  const double Ratio = Label->Width() / Label->Height();
  if (Border == TZyAxisPosition::Top) return static_cast<float>(FLabelVertical ? Ratio * Height : Height);
  return static_cast<float>(FLabelVertical ? Height : (Ratio + 0.25) * Height);
}

}  // namespace zy
