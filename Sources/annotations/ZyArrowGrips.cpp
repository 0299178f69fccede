#include "annotations/ZyArrowGrips.h"

#include <algorithm>

#include "annotations/ZyLabelWithArrowMarker.h"
#include "platform/controls/InputDispatch.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Graphics.h"
#include "platform/drawing/Pen.h"
#include "platform/framework/TPropInfo.h"

namespace zy {

ZY_PUBLISHED(TZyArrowGrip, TZyDraggedControl)
ZY_PUBLISHED(TZyBentLengthGrip, TZyArrowGrip)
ZY_PUBLISHED(TZyCaptionGrip, TZyArrowGrip)

namespace {

constexpr TPoint ArrowGripSize{8, 8}, BentGripSize{4, 20}, CaptionGripSize{14, 14};

}  // namespace

TZyArrowGrip::TZyArrowGrip(TZyLabelWithArrowMarker& Label) : TZyArrowGrip(Label, ArrowGripSize, crSizeAll) {}

TZyArrowGrip::TZyArrowGrip(TZyLabelWithArrowMarker& Label, TPoint Size, TCursor Pointer) : TZyDraggedControl(&Label) {
  FParentArrow = &Label;
  SetSubComponent(true);
  SetVisible(false);
  SetCursor(Pointer);
  SetBounds(0, 0, Size.X, Size.Y);
}

void TZyArrowGrip::PlaceAt(TPoint Place) {
  SetBounds(Place.X - Width() / 2, Place.Y - Height() / 2 + 1, Width(), Height());
}

bool TZyArrowGrip::IsUnderMouse() const {
  const TPoint Place = ScreenToClient(CursorPos());
  return Place.X >= 0 && Place.Y >= 0 && Place.X < Width() && Place.Y < Height();
}

void TZyArrowGrip::CMMouseEnter() {
  SetVisible(true);
  TZyDraggedControl::CMMouseEnter();
}

void TZyArrowGrip::CMMouseLeave() {
  if (FParentArrow != nullptr && FParentArrow->IsBoxUnderMouse()) {
    FParentArrow->ShowGrips();
  } else {
    SetVisible(false);
  }
  TZyDraggedControl::CMMouseLeave();
}

// --- Drags ----------------------------------------------------------------------------------------------------------

bool TZyArrowGrip::StartsBy(TShiftState Shift) const {
  return FParentArrow != nullptr && Shift == FParentArrow->StartMovingKeys();
}

void TZyArrowGrip::DragBegins() {
  if (FParentArrow != nullptr) FBefore = FParentArrow->Shape();
}

void TZyArrowGrip::DragTo(TPoint Way) {
  if (FParentArrow == nullptr) return;
  FParentArrow->TakeShape(Moved(FBefore, Way));
  TellMoving();
}

/// A bent piece that was pushed beyond its beginning is none.
void TZyArrowGrip::DragEnds(bool Keeps) {
  if (FParentArrow == nullptr) return;
  TZyArrowShape New = FParentArrow->Shape();
  New.Bent = std::max(New.Bent, 0);
  FParentArrow->TakeShape(FBefore);
  if (!Keeps) return;
  FParentArrow->ChangeShape(New);
  FParentArrow->TellArrowEndMoved();
}

TZyArrowShape TZyArrowGrip::Moved(TZyArrowShape Shape, TPoint Way) const {
  Shape.Arrow = {Shape.Arrow.X + Way.X, Shape.Arrow.Y + Way.Y};
  return Shape;
}

void TZyArrowGrip::TellMoving() { FParentArrow->TellArrowEndMoving(); }

void TZyArrowGrip::Paint(Graphics& Gr) {
  const Pen Frame(ColorToARGB("ControlDarkDark"), 1);
  Gr.FillRectangle(SolidBrush(ColorToARGB("Window")), 1, 1, 5, 5);
  Gr.DrawRectangle(Frame, 1, 1, 5, 5);
}

// --- Bent piece -----------------------------------------------------------------------------------------------------

TZyBentLengthGrip::TZyBentLengthGrip(TZyLabelWithArrowMarker& Label) : TZyArrowGrip(Label, BentGripSize, crHSplit) {}

void TZyBentLengthGrip::PlaceAt(TPoint Place) {
  if (FParentArrow != nullptr && FParentArrow->CaptionVertical()) {
    SetBounds(Place.X - 9, Place.Y - 2, 18, 4);
  } else {
    SetBounds(Place.X - 2, Place.Y - 8, 4, 18);
  }
}

TZyArrowShape TZyBentLengthGrip::Moved(TZyArrowShape Shape, TPoint Way) const {
  const bool IsVertical = FParentArrow->CaptionVertical();
  const bool GoesOn = IsVertical ? GoesDown(Shape.Arrow) : !GoesLeft(Shape.Arrow);
  const int Longer = IsVertical ? Way.Y : Way.X;
  Shape.Bent += GoesOn ? Longer : -Longer;
  return Shape;
}

void TZyBentLengthGrip::Paint(Graphics& Gr) {
  const auto W = static_cast<float>(Width()), H = static_cast<float>(Height());
  Gr.FillRectangle(SolidBrush(ColorToARGB("ControlDark")), 0, 0, W, H);
  Gr.DrawRectangle(Pen(ColorToARGB("Control"), 1), 0, 0, W - 1, H - 1);
}

// --- Caption --------------------------------------------------------------------------------------------------------

TZyCaptionGrip::TZyCaptionGrip(TZyLabelWithArrowMarker& Label) : TZyArrowGrip(Label, CaptionGripSize, crSizeAll) {}

void TZyCaptionGrip::PlaceAt(TPoint Place) { SetBounds(Place.X - Width(), Place.Y - Height(), Width(), Height()); }

TZyArrowShape TZyCaptionGrip::Moved(TZyArrowShape Shape, TPoint Way) const {
  Shape.Caption = {Shape.Caption.X + Way.X, Shape.Caption.Y + Way.Y};
  return Shape;
}

/// Arrows into the four directions.
void TZyCaptionGrip::Paint(Graphics& Gr) {
  constexpr float Middle = 6, Far = 12, Head = 2;
  const Pen Halo(ColorToARGB("Window"), 3), Line(ColorToARGB("ControlDarkDark"), 1);
  for (const Pen* Each : {&Halo, &Line}) {
    Gr.DrawLine(*Each, Middle, 0, Middle, Far);
    Gr.DrawLine(*Each, 0, Middle, Far, Middle);
  }
  for (const float End : {0.0f, Far}) {
    const float Back = End == 0 ? Head : Far - Head;
    for (const float Side : {-Head, Head}) {
      Gr.DrawLine(Line, Middle, End, Middle + Side, Back);
      Gr.DrawLine(Line, End, Middle, Back, Middle + Side);
    }
  }
}

}  // namespace zy
