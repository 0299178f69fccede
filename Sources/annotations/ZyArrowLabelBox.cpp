#include "annotations/ZyArrowLabelBox.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numbers>

#include "annotations/ZyCaptionCorner.h"
#include "annotations/ZyMarkerPixels.h"

namespace zy {

namespace {

void Raise(int& Extent, double Value) {
  if (Extent < Value) Extent = ToPixels(Value);
}

/// The caption as it stands on the screen.
SizeF TurnedCaption(const TZyArrowLabelLook& Look) {
  return Look.IsVertical ? SizeF{Look.Caption.Height, Look.Caption.Width} : Look.Caption;
}

}  // namespace

double AngleOfArrow(TPoint Arrow) {
  if (Arrow == TPoint{}) return 270;
  const double Angle = std::atan2(-Arrow.Y, Arrow.X) * 180 / std::numbers::pi;
  return Angle < 0 ? Angle + 360 : Angle;
}

/// Places are counted from the hot point until all are known.
TZyArrowLabelBox::TZyArrowLabelBox(const TZyArrowLabelLook& Look) {
  if (Look.HasArrow) {
    ReachArrow(Look);
    PlaceArrow(Look);
  }
  if (Look.HasCaption) {
    ReachCaption(Look);
    PlaceCaption(Look);
  }
  Enclose(Look);
}

/// The tip with its turned corners, and the line with half its width.
void TZyArrowLabelBox::ReachArrow(const TZyArrowLabelLook& Look) {
  const double Thick = static_cast<double>(Look.LineWidth);
  double Barb = Thick * static_cast<double>(Look.PointHeight) + 1;
  if (Barb < Thick) Barb = ToPixels(Thick);
  const double Tip = Thick * static_cast<double>(Look.PointLength);
  const double Length = std::hypot(Look.Arrow.X, Look.Arrow.Y);
  const double Sine = Length > 0 ? std::abs(Look.Arrow.Y) / Length : 1;
  const double Cosine = Length > 0 ? std::abs(Look.Arrow.X) / Length : 0;
  const bool IsBent = Look.Bent > 0;
  const int HalfLine = ToPixels(Thick / 2 + 0.5);
  const auto Reach = [&](TReach& Along, int Delta, bool IsBentWay, double AlongLine, double AcrossLine) {
    Along.Far = std::abs(Delta) + (!IsBent ? 0 : IsBentWay ? Look.Bent : HalfLine);
    Raise(Along.Far, AlongLine * Tip + AcrossLine * Barb + 0.5);
    Raise(Along.Near, AcrossLine * Barb - AlongLine * Tip + 0.5);
    // The corners of a wide line at its free end, in whole pixels.
    if (!IsBent) Raise(Along.Far, std::abs(Delta) + AcrossLine * Thick / 2 - 0.5);
    Raise(Along.Near, AcrossLine * Thick / 2 - std::abs(Delta) - 0.5);
  };
  Reach(FAcross, Look.Arrow.X, !Look.IsVertical, Cosine, Sine);
  Reach(FDown, Look.Arrow.Y, Look.IsVertical, Sine, Cosine);
}

void TZyArrowLabelBox::PlaceArrow(const TZyArrowLabelLook& Look) {
  constexpr float LeastStrip = 3;
  End = BentEnd = Look.Arrow;
  if (Look.Bent <= 0) return;
  (Look.IsVertical ? BentEnd.Y : BentEnd.X) +=
      (Look.IsVertical ? Look.IsDown() : !Look.IsLeft()) ? Look.Bent : -Look.Bent;
  const float Half = std::max({Look.LineWidth * Look.PointHeight + 1, Look.LineWidth, LeastStrip});
  BentStrip = {static_cast<float>(std::min(End.X, BentEnd.X)) - Half,
               static_cast<float>(std::min(End.Y, BentEnd.Y)) - Half,
               static_cast<float>(std::abs(BentEnd.X - End.X)) + 2 * Half,
               static_cast<float>(std::abs(BentEnd.Y - End.Y)) + 2 * Half};
}

void TZyArrowLabelBox::ReachCaption(const TZyArrowLabelLook& Look) {
  const auto Reach = [](TReach& Along, int Outwards, float Extent) {
    if (-Outwards > Along.Far + Along.Near) Along.Near = -Outwards - Along.Far;
    Raise(Along.Far, static_cast<double>(Extent) + Outwards + Along.Far);
  };
  const SizeF Extent = TurnedCaption(Look);
  Reach(FAcross, Look.IsLeft() ? -Look.Delta.X : Look.Delta.X, Extent.Width);
  Reach(FDown, Look.IsDown() ? Look.Delta.Y : -Look.Delta.Y, Extent.Height);
}

/// The caption grows away from the arrow's end; without an arrow from the hot point, whatever its deltas are.
void TZyArrowLabelBox::PlaceCaption(const TZyArrowLabelLook& Look) {
  const SizeF Extent = TurnedCaption(Look);
  const bool IsLeft = Look.IsLeft(), IsDown = Look.IsDown();
  const TPoint Corner = Look.HasArrow ? TPoint{BentEnd.X + Look.Delta.X, BentEnd.Y + Look.Delta.Y} : TPoint{};
  Caption.Left = IsLeft ? ToPixels(Corner.X - static_cast<double>(Extent.Width)) : Corner.X;
  Caption.Top = IsDown ? Corner.Y : ToPixels(Corner.Y - static_cast<double>(Extent.Height));
  Caption.Right = Caption.Left + ToPixels(static_cast<double>(Extent.Width));
  Caption.Bottom = Caption.Top + ToPixels(static_cast<double>(Extent.Height));
  Anchor.X = IsLeft ? static_cast<float>(Caption.Right) - Look.Border : static_cast<float>(Caption.Left) + Look.Border;
  Anchor.Y = IsDown ? static_cast<float>(Caption.Top) + Look.Border : static_cast<float>(Caption.Bottom) - Look.Border;
  Align = CaptionCorner(IsLeft, IsDown, Look.IsVertical);
}

/// A tip that reaches further than the arrow's end leaves a caption beside it a little short of room.
void TZyArrowLabelBox::Enclose(const TZyArrowLabelLook& Look) {
  const int Left = std::max(Look.IsLeft() ? FAcross.Far : FAcross.Near, -Caption.Left);
  const int Right = std::max(Look.IsLeft() ? FAcross.Near : FAcross.Far, Caption.Right - 1);
  const int Top = std::max(Look.IsDown() ? FDown.Near : FDown.Far, -Caption.Top);
  const int Bottom = std::max(Look.IsDown() ? FDown.Far : FDown.Near, Caption.Bottom - 1);
  HotDelta = {Left, Top};
  Width = Left + Right + Look.Shadow + 1;
  Height = Top + Bottom + Look.Shadow + 1;
  End = {End.X + Left, End.Y + Top};
  BentEnd = {BentEnd.X + Left, BentEnd.Y + Top};
  BentStrip.X += static_cast<float>(Left);
  BentStrip.Y += static_cast<float>(Top);
  Caption = {Caption.Left + Left, Caption.Top + Top, Caption.Right + Left, Caption.Bottom + Top};
  Anchor = {Anchor.X + static_cast<float>(Left), Anchor.Y + static_cast<float>(Top)};
}

}  // namespace zy
