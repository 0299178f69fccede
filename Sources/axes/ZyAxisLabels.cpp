// The labels of an axis, the power of ten that stands apart from them, and the place of the caption.

#include <algorithm>
#include <cmath>

#include "analysis/ZyMath.h"
#include "axes/ZyAxis.h"
#include "texts/NumberText.h"

namespace zy {

std::string TZyAxis::LabelText(std::string Text, double Value) {
  if (!mGetScaleLabel) return Text;
  TZyScaleLabelEventArgs Args{Value, std::move(Text)};
  mGetScaleLabel(this, Args);
  return std::move(Args.Caption);
}

/// Extents along and across the axis of a box that is turned by the angle of the labels.
float TZyAxis::AlongAxis(float TextWidth, float TextHeight) const {
  return GetHorizontal() ? TextWidth * FCosine + TextHeight * FSine : TextWidth * FSine + TextHeight * FCosine;
}

float TZyAxis::AcrossAxis(float TextWidth, float TextHeight) const {
  return GetHorizontal() ? TextWidth * FSine + TextHeight * FCosine : TextWidth * FCosine + TextHeight * FSine;
}

/// Line across the axis on which the labels stand, in the control: behind the ticks, or else behind the axis line.
float TZyAxis::LabelBase() const {
  const float Distance = FDistanceAxisLabels + (FTicksPointToData ? FAxisThicknes / 2 : FMajorTickLength);
  const float Origin = GetHorizontal() ? FAxTop : FAxLeft;
  return PointsOutwards() ? Origin + Distance : Origin - Distance;
}

/// How far a slanted label moves along the axis so that its end, and not its middle, points at the tick.
float TZyAxis::SlantShift(float Along) const {
  const auto Angle = static_cast<int>(std::lround(FRubricsAngle));
  if (Angle % 90 == 0) return 0;
  const float Height = FFont.Size() * (GetHorizontal() ? FSine : FCosine) * 0.8f;
  const float Shift = Height - Along / 2;
  const int Place = Quadrant(Angle);
  const bool Negative = (FPosition == TZyAxisPosition::Left || FPosition == TZyAxisPosition::Top) == (Place % 2 == 1);
  return Negative ? -Shift : Shift;
}

void TZyAxis::AddLabel(const std::string& Text, double Value, float Pos) {
  auto Label = std::make_unique<TZyRichCaptionObject>();
  Label->SetCaption(LabelText(Text, Value));
  Label->CaptionFont().Assign(&FFont);
  Label->Alignment = TZyContentAlignment::MiddleCenter;
  Label->Angle = FRubricsAngle;
  Label->ParseIfNeeded();
  const float Along = AlongAxis(Label->Width(), Label->Height());
  const float Across = AcrossAxis(Label->Width(), Label->Height());
  FMaxNumberLabelWidth = std::max(FMaxNumberLabelWidth, GetHorizontal() ? Along : Across);
  FMaxNumberLabelHeight = std::max(FMaxNumberLabelHeight, GetHorizontal() ? Across : Along);
  const float Off = PointsOutwards() ? LabelBase() + Across / 2 : LabelBase() - Across / 2;
  const float Place = Pos + SlantShift(Along);
  Label->X = GetHorizontal() ? Place : Off;
  Label->Y = GetHorizontal() ? Off : Place;
  FAxLabels.push_back(std::move(Label));
}

/// The power of ten stands behind the last label where there is room up to the end of the scale, else between the last
/// two, and outside their line where it would touch them there. A single label has none.
void TZyAxis::PlaceExtraExponent() {
  if (!FNumbersVisible || !FScale.ExtraExponent || FAxLabels.size() < 2) return;
  TZyRichCaptionObject& Power = FExtraExponentRec;
  Power.SetCaption("·10\\+" + IntToStr(FScale.LabelExponent));
  Power.CaptionFont().Assign(&FFont);
  Power.ParseForSize();
  const bool Horizontal = GetHorizontal();
  const auto Place = [Horizontal](const TZyRichCaptionObject& Label) { return Horizontal ? Label.X : Label.Y; };
  const TZyRichCaptionObject& Label = *FAxLabels.back();
  const float Last = Place(Label), End = NumberToWorld(HighEnd()), Previous = Place(*FAxLabels[FAxLabels.size() - 2]);
  const float Needed = AlongAxis(Label.Width(), Label.Height()) + (Horizontal ? Power.Width() : Power.Height());
  const bool FitsBehind = std::fabs(End - Last) > Needed;
  const float Along = (Last + (FitsBehind ? End : Previous)) / 2;
  float Off = FDistanceAxisExtraExponent;
  if (!FitsBehind && std::fabs(Previous - Last) < Needed)
    Off = std::max(Off, Horizontal ? FMaxNumberLabelHeight : FMaxNumberLabelWidth);
  const float Across = LabelBase() + (PointsOutwards() ? Off : -Off);
  Power.X = Horizontal ? Along : Across;
  Power.Y = Horizontal ? Across : Along;
  using enum TZyContentAlignment;
  if (Horizontal) {
    Power.Alignment = PointsOutwards() ? TopCenter : BottomCenter;
  } else {
    Power.Alignment = PointsOutwards() ? MiddleLeft : MiddleRight;
  }
}

/// How far the power of ten reaches across from the line of the labels; 0 without one.
float TZyAxis::ExtraExponentReach() const {
  const TZyRichCaptionObject& Power = FExtraExponentRec;
  if (Power.Caption().empty()) return 0;
  return GetHorizontal() ? std::fabs(Power.Y - LabelBase()) + Power.Height()
                         : std::fabs(Power.X - LabelBase()) + Power.Width();
}

/// How far the labels reach together with the power of ten; the caption stands behind both.
float TZyAxis::NumbersReach() const {
  return std::max(GetHorizontal() ? FMaxNumberLabelHeight : FMaxNumberLabelWidth, ExtraExponentReach());
}

/// The caption stands behind the numbers, at one end of the axis line or at its middle.
void TZyAxis::PlaceCaption() {
  FCaptionRec.ParseIfNeeded();
  const float Numbers = FNumbersVisible ? DistanceNumbersCaption() + NumbersReach() : 0;
  const float Across = PointsOutwards() ? LabelBase() + Numbers : LabelBase() - Numbers;
  const int Where = FCaptionAlignment == TAlignment::taLeftJustify ? 0
                    : FCaptionAlignment == TAlignment::taCenter    ? 1
                                                                   : 2;
  const float Part = FAxLength * static_cast<float>(Where) / 2;
  FCaptionRec.Angle = CaptionIsTurned() ? 90 : 0;
  FCaptionRec.X = GetHorizontal() ? FAxLeft + Part : Across;
  FCaptionRec.Y = GetHorizontal() ? Across : FAxTop + FAxLength - Part;
  // Nine places in rows from top to bottom. A text along the axis puts one edge at the numbers and runs along; a
  // horizontal one on a vertical axis puts a side there, and its bottom at the lower end.
  int Row, Column;
  if (GetHorizontal() || CaptionIsTurned()) {
    Row = PointsOutwards() ? 0 : 2;
    Column = Where;
  } else {
    Row = 2 - Where;
    Column = PointsOutwards() ? 0 : 2;
  }
  FCaptionRec.Alignment = static_cast<TZyContentAlignment>(3 * Row + Column);
}

std::vector<std::string> TZyAxis::LabelTexts() const {
  std::vector<std::string> Texts;
  for (const auto& Label : FAxLabels) Texts.push_back(Label->Caption());
  return Texts;
}

}  // namespace zy
