// Tick partitions and number labels.

#include <algorithm>
#include <cmath>

#include "analysis/ZyMath.h"
#include "axes/ZyAxis.h"
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
    const float Widest = std::max(ApproxLen(NormalCaption(Start)), ApproxLen(NormalCaption(Stop)));
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

float TZyAxis::ApproxLen(const std::string& Text) const {
  const float Along = static_cast<float>(Text.size()) * FFont.Size() * 1.6f;
  return GetHorizontal() ? Along : FFont.Size() * 2.5f;
}

/// Line across the axis on which the labels stand, in the control.
float TZyAxis::LabelBase() const {
  const float Distance = FDistanceAxisLabels + (FTicksPointToData ? 0 : FMajorTickLength);
  const float Origin = GetHorizontal() ? FAxTop : FAxLeft;
  return PointsOutwards() ? Origin + Distance : Origin - Distance;
}

void TZyAxis::CalculateTicks() {
  if (FAxLength <= 0) FAxLength = LengthWithoutRoom;
  FTicks.clear();
  FMajorTick.clear();
  FMajorGridTick.clear();
  FAxLabels.clear();
  FMaxNumberLabelHeight = FMaxNumberLabelWidth = 0;
  FNormalizeConst = (FStop - FStart) / static_cast<double>(FAxLength);
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
      AddLabel(NormalCaption(Value), Pos);
      NextLabel = RoundUp(Value + Tolerance, FScale.LabelPart, FScale.RangeExponent);
    }
    FTicks.push_back(Pos);
    FMajorTick.push_back(IsMajor);
    FMajorGridTick.push_back(IsLabel);
    Value += Step;
    if (IsMajor) NextMajor = RoundUp(Value, FScale.MajorTickPart, FScale.RangeExponent);
  }
  PlaceCaption();
}

void TZyAxis::AddLabel(const std::string& Text, float Pos) {
  auto Label = std::make_unique<TZyRichCaptionObject>();
  Label->SetCaption(Text);
  Label->CaptionFont().Assign(&FFont);
  Label->Alignment = TZyContentAlignment::MiddleCenter;
  Label->ParseForSize();
  FMaxNumberLabelWidth = std::max(FMaxNumberLabelWidth, Label->Width());
  FMaxNumberLabelHeight = std::max(FMaxNumberLabelHeight, Label->Height());
  const float Base = LabelBase();
  switch (FPosition) {
    case TZyAxisPosition::Bottom:
      Label->X = Pos;
      Label->Y = Base + Label->Height() / 2;
      break;
    case TZyAxisPosition::Top:
      Label->X = Pos;
      Label->Y = Base - Label->Height() / 2;
      break;
    case TZyAxisPosition::Left:
      Label->X = Base - Label->Width() / 2;
      Label->Y = Pos;
      break;
    case TZyAxisPosition::Right:
      Label->X = Base + Label->Width() / 2;
      Label->Y = Pos;
      break;
  }
  FAxLabels.push_back(std::move(Label));
}

void TZyAxis::PlaceCaption() {
  FCaptionRec.ParseForSize();
  const float Labels = GetHorizontal() ? FMaxNumberLabelHeight : FMaxNumberLabelWidth;
  const float Numbers = FNumbersVisible ? DistanceNumbersCaption() + Labels : 0;
  const float Base = LabelBase();
  const bool Outwards = PointsOutwards();
  const float Across = Outwards ? Base + Numbers : Base - Numbers;
  FCaptionRec.Angle = GetHorizontal() ? 0 : 90;
  FCaptionRec.Alignment = Outwards ? TZyContentAlignment::TopCenter : TZyContentAlignment::BottomCenter;
  FCaptionRec.X = GetHorizontal() ? FAxLeft + FAxLength / 2 : Across;
  FCaptionRec.Y = GetHorizontal() ? Across : FAxTop + FAxLength / 2;
}

std::vector<std::string> TZyAxis::LabelTexts() const {
  std::vector<std::string> Texts;
  for (const auto& Label : FAxLabels) Texts.push_back(Label->Caption());
  return Texts;
}

}  // namespace zy
