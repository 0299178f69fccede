// Where the controls in a control stand: aligned and anchored ones, and their order.

#include <algorithm>

#include "platform/controls/TWinControl.h"

namespace zy {
namespace {

constexpr TAlign AlignOrder[] = {alTop, alBottom, alLeft, alRight, alClient};

/// Of two controls at one edge, the one that is nearer to it now stays so.
int DistanceFromEdge(const TControl& Control, TAlign Align) {
  const TRect Box = Control.BoundsRect();
  switch (Align) {
    case alTop:
      return Box.Top;
    case alBottom:
      return -Box.Bottom;
    case alLeft:
      return Box.Left;
    case alRight:
      return -Box.Right;
    default:
      return 0;
  }
}

/// Cuts what Control gets at its edge off Free.
TRect TakeEdge(TRect& Free, const TControl& Control) {
  TRect Result = Free;
  switch (Control.Align()) {
    case alTop:
      Result.Bottom = Free.Top += Control.Height();
      Result.Top = Result.Bottom - Control.Height();
      break;
    case alBottom:
      Result.Top = Free.Bottom -= Control.Height();
      Result.Bottom = Result.Top + Control.Height();
      break;
    case alLeft:
      Result.Right = Free.Left += Control.Width();
      Result.Left = Result.Right - Control.Width();
      break;
    case alRight:
      Result.Left = Free.Right -= Control.Width();
      Result.Right = Result.Left + Control.Width();
      break;
    default:
      break;
  }
  return Result;
}

/// One direction of an anchored control: its place Low to High in an extent that grew by Growth.
void Follow(bool AtLow, bool AtHigh, int Growth, int& Low, int& High) {
  if (AtLow && AtHigh) {
    High += Growth;
  } else if (!AtLow) {
    const int Shift = AtHigh ? Growth : Growth / 2;
    Low += Shift;
    High += Shift;
  }
}

}  // namespace

void TWinControl::AlignControls() {
  if (FAligning) {
    FAlignAgain = true;
    return;
  }
  FAligning = true;
  // A control that changes its own extent in its Resize asks for another round. One that never settles is left so.
  constexpr int MaxRounds = 4;
  for (int Round = 0; Round < MaxRounds; ++Round) {
    FAlignAgain = false;
    AlignOnce();
    if (!FAlignAgain) break;
  }
  FAligning = false;
}

void TWinControl::AlignOnce() {
  TRect Free = ClientRect();
  for (const TAlign Align : AlignOrder) {
    std::vector<TControl*> Aligned;
    for (TControl* Control : FControls)
      if (Control->Align() == Align && Control->Visible()) Aligned.push_back(Control);
    std::ranges::stable_sort(Aligned, {},
                             [Align](const TControl* Control) { return DistanceFromEdge(*Control, Align); });
    for (TControl* Control : Aligned)
      if (std::ranges::find(FControls, Control) != FControls.end()) Control->PlaceBy(TakeEdge(Free, *Control));
  }
  for (TControl* Control : std::vector(FControls))
    if (std::ranges::find(FControls, Control) != FControls.end()) PlaceAnchored(*Control);
}

void TWinControl::PlaceAnchored(TControl& Control) const {
  const TAnchors Anchors = Control.Anchors();
  if (Control.Align() != alNone || Anchors == TAnchors{akLeft, akTop}) return;
  TRect Place = Control.FAnchorBase.Place;
  Follow(Anchors.Contains(akLeft), Anchors.Contains(akRight), ClientWidth() - Control.FAnchorBase.OuterWidth,
         Place.Left, Place.Right);
  Follow(Anchors.Contains(akTop), Anchors.Contains(akBottom), ClientHeight() - Control.FAnchorBase.OuterHeight,
         Place.Top, Place.Bottom);
  // An anchored edge may lie before the other one; the control is empty then, and comes back when there is room.
  Control.PlaceBy(Place);
}

}  // namespace zy
