// Tick partitions and number labels.

#include <algorithm>
#include <cmath>

#include "analysis/ZyMath.h"
#include "axes/ZyAxis.h"
#include "axes/ZyDateTime.h"
#include "graph/ZyGraph2D.h"
#include "platform/controls/TWinControl.h"
#include "platform/framework/NumberText.h"

namespace zy {
namespace {

// The step table: label, major and minor steps of each refinement, in parts of a power of ten.
constexpr double LabelParts[] = {1, 0.5, 0.2};
constexpr double MajorParts[] = {0.5, 0.5, 0.1};
constexpr double MinorParts[] = {0.1, 0.1, 0.02};

constexpr float GapBetweenLabels = 70;    // pixels
constexpr float LengthWithoutRoom = 100;  // pixels
constexpr double MostTicks = 1e6;         // far beyond what the step table can give; a span without measure has more

}  // namespace

/// Extent along the axis that the layout gives the control. A new control and one whose parent was resized get it only
/// in the next pass, while ranges are taken before it.
float TZyAxis::LayoutLength() const {
  if (Parent() == nullptr) return static_cast<float>(GetHorizontal() ? Width() : Height());
  return static_cast<float>(GetHorizontal() ? Parent()->ClientWidth() : Parent()->ClientHeight());
}

/// Refines the step until its labels no longer fit into the room, and takes that step: a label wants more room by this
/// estimate than it really needs.
void TZyAxis::GetNormalAxisParts(double Start, double Stop) {
  const float Room = LayoutLength();
  FScale.RangeExponent = Real10thExponent(Stop - Start);
  const double Span = ExpMinus(Stop - Start, FScale.RangeExponent);
  std::size_t Row = 0;
  double Power = 10;
  for (;;) {
    const double Part = LabelParts[Row] * Power;  // the digits may be asked with ticks of an earlier, coarser scale
    FScale.LabelPart = Part;
    GetExponentAndDigits(Start, Stop);
    const float Widest = std::max(ApproxLen(NormalCaption(Start), Start), ApproxLen(NormalCaption(Stop), Stop));
    const auto Count = static_cast<float>(std::trunc(Span / Part + 0.5) + 1);
    const float Needed = Count * Widest + (Count - 1) * GapBetweenLabels * FLabelDistanceFactor;
    if (!(Needed < Room)) break;
    Row = (Row + 1) % std::size(LabelParts);
    if (Row == 0) Power /= 10;
  }
  FScale.LabelPart = LabelParts[Row] * Power;
  FScale.MajorTickPart = MajorParts[Row] * Power;
  FScale.TickPart = MinorParts[Row] * Power;
}

void TZyAxis::GetExponentAndDigits(double Start, double Stop) {
  const int StartExponent = Real10thExponent(Start);
  const int StopExponent = Real10thExponent(Stop);
  if (StopExponent > StartExponent) {
    FScale.LabelExponent = Stop == 0 ? StartExponent : StopExponent;
  } else {
    FScale.LabelExponent = Start == 0 ? StopExponent : StartExponent;
  }
  FScale.Digits = FScale.LabelExponent - FScale.RangeExponent - Real10thExponent(FScale.LabelPart) +
                  LastSignificant(FScale.LabelPart) - 1;
  FScale.Digits = std::max(FScale.Digits + FExtraDigits, 0);
  if (FExtraDigits > 0 && FScale.LabelExponent + FExtraDigits >= FScale.Digits)
    FScale.Digits = FScale.LabelExponent + FExtraDigits;
  if (FScale.TickPart < 0.00001) FScale.TickPart = 0.1;
  FScale.MajorTickPart = std::max(FScale.MajorTickPart, FScale.TickPart);
  FScale.LabelPart = std::max(FScale.LabelPart, FScale.TickPart);
}

std::string TZyAxis::NormalCaption(double Value) const {
  return FloatToStrFixed(Value, FScale.LabelExponent < FScale.Digits ? FScale.Digits - FScale.LabelExponent : 0);
}

/// Extents along and across the axis of a box that is turned by the angle of the labels.
float TZyAxis::AlongAxis(float TextWidth, float TextHeight) const {
  return GetHorizontal() ? TextWidth * FCosine + TextHeight * FSine : TextWidth * FSine + TextHeight * FCosine;
}

float TZyAxis::AcrossAxis(float TextWidth, float TextHeight) const {
  return GetHorizontal() ? TextWidth * FSine + TextHeight * FCosine : TextWidth * FCosine + TextHeight * FSine;
}

std::string TZyAxis::LabelText(std::string Text, double Value) {
  if (!mGetScaleLabel) return Text;
  TZyScaleLabelEventArgs Args{Value, std::move(Text)};
  mGetScaleLabel(this, Args);
  return std::move(Args.Caption);
}

/// Room of a label along the axis, estimated without measuring.
float TZyAxis::ApproxLen(std::string Text, double Value) {
  const std::string Shown = LabelText(std::move(Text), Value);
  return AlongAxis(static_cast<float>(Shown.size()) * FFont.Size() * 1.6f, FFont.Size() * 2.5f);
}

/// Line across the axis on which the labels stand, in the control.
float TZyAxis::LabelBase() const {
  const float Distance = FDistanceAxisLabels + (FTicksPointToData ? 0 : FMajorTickLength);
  const float Origin = GetHorizontal() ? FAxTop : FAxLeft;
  return PointsOutwards() ? Origin + Distance : Origin - Distance;
}

void TZyAxis::CalculateTicks() {
  if (mGetTicks) mGetTicks(this);
  if (!(FAxLength > 0)) FAxLength = LengthWithoutRoom;
  FTicks.clear();
  FMajorTick.clear();
  FMajorGridTick.clear();
  FAxLabels.clear();
  FMaxNumberLabelHeight = FMaxNumberLabelWidth = 0;
  SetUpScale();
  TakeTicks();
  PlaceCaption();
}

void TZyAxis::SetUpScale() {
  const auto Length = static_cast<double>(FAxLength);
  if (FScale.HasLogScaling) {
    FNormalizeConst = (FScale.LogStop - FScale.LogStart) / Length;
  } else if (FScaling == TZyAxisScaling::DateTime) {
    FNormalizeConst = DateTimeSpan(FStart, FStop) / Length;
  } else {
    FNormalizeConst = (FStop - FStart) / Length;
  }
  if (!FAutoTickParts && !HasLogKind() && FScaling != TZyAxisScaling::DateTime)
    FScale.RangeExponent = Real10thExponent(FStop - FStart);
}

/// Evenly spaced values from end to end; all kinds of scale have these for now.
void TZyAxis::TakeTicks() {
  const double Part = FScale.TickPart == 0 ? 1 : FScale.TickPart;
  const double Wanted = ExpMinus(FStop - FStart, FScale.RangeExponent) / Part + 1;
  const long Count = Wanted < MostTicks ? std::max(2L, std::lround(Wanted)) : 2;
  const double Step = (FStop - FStart) / static_cast<double>(Count - 1);
  const double Tolerance = 0.6 * Step;
  double Value = FStart;
  double NextMajor = RoundUp(FStart, FScale.MajorTickPart, FScale.RangeExponent);
  double NextLabel = RoundUp(FStart, FScale.LabelPart, FScale.RangeExponent);
  for (long Index = 0; Index < Count; ++Index) {
    const float Pos = NumberToWorld(Value);
    const bool IsLabel = FNumbersVisible && std::fabs(Value - NextLabel) < Tolerance;
    const bool IsMajor = std::fabs(Value - NextMajor) < Tolerance;
    if (IsLabel) {
      AddLabel(NormalCaption(Value), Value, Pos);
      NextLabel = RoundUp(Value + Tolerance, FScale.LabelPart, FScale.RangeExponent);
    }
    FTicks.push_back(Pos);
    FMajorTick.push_back(IsMajor);
    FMajorGridTick.push_back(FMajorGridMode == TZyMajorGridMode::AtLabel ? IsLabel : IsMajor);
    Value += Step;
    if (IsMajor) NextMajor = RoundUp(Value, FScale.MajorTickPart, FScale.RangeExponent);
  }
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

/// The caption stands behind the numbers, at one end of the axis line or at its middle.
void TZyAxis::PlaceCaption() {
  FCaptionRec.ParseIfNeeded();
  const float Labels = GetHorizontal() ? FMaxNumberLabelHeight : FMaxNumberLabelWidth;
  const float Numbers = FNumbersVisible ? DistanceNumbersCaption() + Labels : 0;
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
