#include "axes/ZyAxisLabels.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "analysis/ZyMath.h"
#include "texts/NumberText.h"

namespace zy {

float LabelBase(const TZyAxisGeometry& Geometry, const TZyAxisLook& Look) {
  const float Distance = Look.DistanceAxisLabels + (Look.TicksPointToData ? 0 : Look.MajorTickLength);
  return Geometry.PointsOutwards() ? Geometry.Across() + Distance : Geometry.Across() - Distance;
}

void TZyAxisLabels::SetAngle(float Value) {
  FAngle = Value;
  const double Radians = static_cast<double>(FAngle) * std::numbers::pi / 180;
  FSine = static_cast<float>(std::fabs(std::sin(Radians)));
  FCosine = static_cast<float>(std::fabs(std::cos(Radians)));
}

// --- Room -----------------------------------------------------------------------------------------------------------

float TZyAxisLabels::Along(float Width, float Height, bool Horizontal) const {
  return Horizontal ? Width * FCosine + Height * FSine : Width * FSine + Height * FCosine;
}

float TZyAxisLabels::Across(float Width, float Height, bool Horizontal) const {
  return Horizontal ? Width * FSine + Height * FCosine : Width * FCosine + Height * FSine;
}

float TZyAxisLabels::Estimate(const std::string& Text, float FontSize, bool Horizontal) const {
  const auto Characters =
      std::count_if(Text.begin(), Text.end(), [](char C) { return (static_cast<unsigned char>(C) & 0xC0) != 0x80; });
  return Along(static_cast<float>(Characters) * FontSize * 1.6f, FontSize * 2.5f, Horizontal);
}

float TZyAxisLabels::ExponentReach(const TZyAxisGeometry& Geometry, const TZyAxisLook& Look) const {
  if (FExponent.Caption().empty()) return 0;
  const float Base = LabelBase(Geometry, Look);
  return Geometry.Horizontal() ? std::fabs(FExponent.Y - Base) + FExponent.Height()
                               : std::fabs(FExponent.X - Base) + FExponent.Width();
}

float TZyAxisLabels::Reach(const TZyAxisGeometry& Geometry, const TZyAxisLook& Look) const {
  return std::max(FRoom, ExponentReach(Geometry, Look));
}

TZyOverhang TZyAxisLabels::Overhang(const TZyAxisGeometry& Geometry, bool Reversed) const {
  constexpr float GapAtRightEnd = 2;
  const TZyRichCaptionObject* Low = FLabels.front().get();
  const TZyRichCaptionObject* High = FLabels.back().get();
  if (Reversed) std::swap(Low, High);
  const bool Horizontal = Geometry.Horizontal();
  const auto Half = [&](const TZyRichCaptionObject& Label) {
    return Along(Label.Width(), Label.Height(), Horizontal) / 2;
  };
  const float End = Geometry.Along() + Geometry.Length;
  if (Horizontal) return {Geometry.Left - (Low->X - Half(*Low)), High->X + Half(*High) + GapAtRightEnd - End};
  return {Low->Y + Half(*Low) - End, Geometry.Top - (High->Y - Half(*High))};
}

// --- Labels ---------------------------------------------------------------------------------------------------------

void TZyAxisLabels::Clear() {
  FLabels.clear();
  FRoom = 0;
  FExponent.SetCaption({});
  FExponent.ParseForSize();
}

void TZyAxisLabels::Take(const TZyAxisTicks& Ticks, const TZyAxisGeometry& Geometry, const TZyAxisLook& Look,
                         const TZyFont& Font, const TText& TextOf, const ModifiedCallback& OnVariablesChanged) {
  for (const TZyTickLabel& Label : Ticks.Labels())
    Add(Label, Geometry, Look, Font, TextOf).OnVariablesChanged = OnVariablesChanged;
}

TZyRichCaptionObject& TZyAxisLabels::Add(const TZyTickLabel& Label, const TZyAxisGeometry& Geometry,
                                         const TZyAxisLook& Look, const TZyFont& Font, const TText& TextOf) {
  auto Object = std::make_unique<TZyRichCaptionObject>();
  Object->SetCaption(TextOf(Label.Text, Label.Value));
  Object->CaptionFont().Assign(&Font);
  Object->Alignment = TZyContentAlignment::MiddleCenter;
  Object->Angle = FAngle;
  Object->ParseIfNeeded();
  const bool Horizontal = Geometry.Horizontal();
  const float Extent = Along(Object->Width(), Object->Height(), Horizontal);
  const float Depth = Across(Object->Width(), Object->Height(), Horizontal);
  FRoom = std::max(FRoom, Depth);
  const float Base = LabelBase(Geometry, Look);
  const float Off = Geometry.PointsOutwards() ? Base + Depth / 2 : Base - Depth / 2;
  const float Place = Label.Position + SlantShift(Extent, Font.Size(), Geometry);
  Object->X = Horizontal ? Place : Off;
  Object->Y = Horizontal ? Off : Place;
  FLabels.push_back(std::move(Object));
  return *FLabels.back();
}

/// How far a slanted label moves along the axis so that its end, and not its middle, points at the tick.
float TZyAxisLabels::SlantShift(float Extent, float FontSize, const TZyAxisGeometry& Geometry) const {
  const auto Rounded = static_cast<int>(std::lround(FAngle));
  if (Rounded % 90 == 0) return 0;
  const float Height = FontSize * (Geometry.Horizontal() ? FSine : FCosine) * 0.8f;
  const float Shift = Height - Extent / 2;
  const bool Negative = !Geometry.PointsOutwards() == (Quadrant(Rounded) % 2 == 1);
  return Negative ? -Shift : Shift;
}

/// The power of ten stands half way between the last label and the end of the scale, or, where the label stands at the
/// end, half way between the last two; outside their line where it would touch them there. A single label has none.
void TZyAxisLabels::PlaceExponent(const TZyAxisTicks& Ticks, const TZyAxisGeometry& Geometry, const TZyAxisLook& Look,
                                  const TZyFont& Font, float End) {
  constexpr float AtEnd = 0.5f;  // pixels
  if (!Look.NumbersVisible || !Ticks.HasExponent() || FLabels.size() < 2) return;
  FExponent.SetCaption("·10\\+" + IntToStr(Ticks.Exponent()));
  FExponent.CaptionFont().Assign(&Font);
  FExponent.ParseForSize();
  const bool Horizontal = Geometry.Horizontal();
  const auto Place = [Horizontal](const TZyRichCaptionObject& Label) { return Horizontal ? Label.X : Label.Y; };
  const TZyRichCaptionObject& Label = *FLabels.back();
  const float Last = Place(Label), Previous = Place(*FLabels[FLabels.size() - 2]);
  const float Needed =
      Along(Label.Width(), Label.Height(), Horizontal) + (Horizontal ? FExponent.Width() : FExponent.Height());
  const float Other = std::fabs(End - Last) > AtEnd ? End : Previous;
  const float Position = (Last + Other) / 2;
  float Off = Look.DistanceAxisExtraExponent;
  if (std::fabs(Other - Last) < Needed) Off = std::max(Off, FRoom);
  const float Line = LabelBase(Geometry, Look) + (Geometry.PointsOutwards() ? Off : -Off);
  FExponent.X = Horizontal ? Position : Line;
  FExponent.Y = Horizontal ? Line : Position;
  using enum TZyContentAlignment;
  if (Horizontal) {
    FExponent.Alignment = Geometry.PointsOutwards() ? TopCenter : BottomCenter;
  } else {
    FExponent.Alignment = Geometry.PointsOutwards() ? MiddleLeft : MiddleRight;
  }
}

void TZyAxisLabels::SetColor(TZyColor Value) {
  for (const auto& Label : FLabels) Label->CaptionFont().SetFillColor(Value);
  FExponent.CaptionFont().SetFillColor(Value);
}

void TZyAxisLabels::Paint(Graphics& Gr) {
  for (const auto& Label : FLabels) Label->PaintGr(Gr);
}

std::vector<std::string> TZyAxisLabels::Texts() const {
  std::vector<std::string> Result;
  for (const auto& Label : FLabels) Result.push_back(Label->Caption());
  return Result;
}

void TZyAxisLabels::EraseFirst() {
  if (!FLabels.empty()) FLabels.erase(FLabels.begin());
}

void TZyAxisLabels::EraseNear(float Position, float Distance, bool Horizontal) {
  const auto Label = std::find_if(FLabels.begin(), FLabels.end(), [&](const auto& Candidate) {
    return std::fabs((Horizontal ? Candidate->X : Candidate->Y) - Position) < Distance;
  });
  if (Label != FLabels.end()) FLabels.erase(Label);
}

}  // namespace zy
