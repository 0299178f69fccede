#include "platform/controls/TControl.h"

#include <algorithm>
#include <utility>

#include "platform/controls/InputDispatch.h"
#include "platform/controls/TPopupMenu.h"
#include "platform/controls/TWinControl.h"
#include "platform/framework/TPropInfo.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {

ZY_PUBLISHED(
    TControl, TComponent, Published<&TControl::Left, &TControl::SetLeft>("Left"),
    Published<&TControl::Top, &TControl::SetTop>("Top"), Published<&TControl::Width, &TControl::SetWidth>("Width"),
    Published<&TControl::Height, &TControl::SetHeight>("Height"),
    Published<&TControl::Align, &TControl::SetAlign>("Align", alNone),
    Published<&TControl::Anchors, &TControl::SetAnchors>("Anchors", TAnchors{akLeft, akTop}),
    Published<&TControl::Cursor, &TControl::SetCursor>("Cursor", crDefault),
    Published<&TControl::Hint, &TControl::SetHint>("Hint", std::string()),
    Published<&TControl::ParentShowHint, &TControl::SetParentShowHint>("ParentShowHint", true),
    Published<&TControl::ShowHint, &TControl::SetShowHint>("ShowHint").StoredIf<&TControl::HasOwnShowHint>(),
    Published<&TControl::Enabled, &TControl::SetEnabled>("Enabled", true),
    Published<&TControl::Visible, &TControl::SetVisible>("Visible", true),
    Published<&TControl::ParentFont, &TControl::SetParentFont>("ParentFont", true).Hidden(),
    Published<&TControl::ControlFont, &TControl::SetControlFont>("Font").StoredIf<&TControl::HasOwnFont>().Hidden(),
    Published<&TControl::PopupMenu, &TControl::SetPopupMenu>("PopupMenu").StoredIf<&TControl::HasPopupMenu>(),
    Published<&TControl::OnClick, &TControl::SetOnClick>("OnClick"),
    Published<&TControl::OnDblClick, &TControl::SetOnDblClick>("OnDblClick"),
    Published<&TControl::OnMouseDown, &TControl::SetOnMouseDown>("OnMouseDown"),
    Published<&TControl::OnMouseMove, &TControl::SetOnMouseMove>("OnMouseMove"),
    Published<&TControl::OnMouseUp, &TControl::SetOnMouseUp>("OnMouseUp"),
    Published<&TControl::OnMouseWheel, &TControl::SetOnMouseWheel>("OnMouseWheel"),
    Published<&TControl::OnGesture, &TControl::SetOnGesture>("OnGesture"),
    Published<&TControl::OnContextPopup, &TControl::SetOnContextPopup>("OnContextPopup"),
    Published<&TControl::OnMouseEnter, &TControl::SetOnMouseEnter>("OnMouseEnter"),
    Published<&TControl::OnMouseLeave, &TControl::SetOnMouseLeave>("OnMouseLeave"))

TControl::TControl(TComponent* Owner) : TComponent(Owner), FFont([this] { FontChanged(); }) {}

TControl::~TControl() {
  Destroying();
  if (FParent != nullptr) FParent->RemoveControl(this);
}

void TControl::SetParent(TWinControl* Value) {
  if (Value == FParent) return;
  for (const TControl* Outer = Value; Outer != nullptr; Outer = Outer->FParent)
    if (Outer == this) throw EInvalidOperation(Format(LoadResString(_sControlInItself), {Name()}));
  if (FParent != nullptr) FParent->RemoveControl(this);
  if (Value == nullptr) return;
  Value->InsertControl(this);
  NoteAnchorBase();
  ParentFontChanged();
  RealignParent();
}

TComponent* TControl::ParentComponent() const { return FParent; }

void TControl::SetParentComponent(TComponent* Value) { SetParent(dynamic_cast<TWinControl*>(Value)); }

void TControl::Loaded() {
  Inherited::Loaded();
  NoteAnchorBase();
  if (FAutoSize) AdjustSize();
}

// --- Place ----------------------------------------------------------------------------------------------------------

void TControl::SetBounds(int Left, int Top, int Width, int Height) {
  const bool Placed = std::exchange(FPlacedByParent, false);  // what Resize does is the control's own again
  Left = std::clamp(Left, -MostExtent, MostExtent);
  Top = std::clamp(Top, -MostExtent, MostExtent);
  Width = std::clamp(Width, 0, MostExtent);
  Height = std::clamp(Height, 0, MostExtent);
  const bool Resized = Width != FWidth || Height != FHeight;
  if (!Resized && Left == FLeft && Top == FTop) return;
  Invalidate();
  FLeft = Left;
  FTop = Top;
  FWidth = Width;
  FHeight = Height;
  if (!Placed) NoteAnchorBase();
  ApplyBounds();
  Invalidate();
  if (Resized) {
    InsideResized();
    Resize();
  }
  if (!Placed) RealignParent();
}

void TControl::SetAlign(TAlign Value) {
  if (Value == FAlign) return;
  FAlign = Value;
  NoteAnchorBase();
  if (FParent != nullptr) FParent->AlignControls();
}

void TControl::SetAnchors(TAnchors Value) {
  if (Value == FAnchors) return;
  FAnchors = Value;
  NoteAnchorBase();
}

void TControl::SetAutoSize(bool Value) {
  if (Value == FAutoSize) return;
  FAutoSize = Value;
  if (FAutoSize) AdjustSize();
}

TPoint TControl::ClientToScreen(TPoint Place) const {
  if (FParent == nullptr) return {Place.X + FLeft, Place.Y + FTop};
  return FParent->ClientToScreen({Place.X + FLeft, Place.Y + FTop});
}

TPoint TControl::ScreenToClient(TPoint Place) const {
  const TPoint Corner = ClientToScreen({0, 0});
  return {Place.X - Corner.X, Place.Y - Corner.Y};
}

void TControl::BringToFront() {
  if (FParent != nullptr) FParent->MoveControl(*this, true);
}

void TControl::SendToBack() {
  if (FParent != nullptr) FParent->MoveControl(*this, false);
}

void TControl::NoteAnchorBase() {
  if (FParent != nullptr) FAnchorBase = {BoundsRect(), FParent->ClientWidth(), FParent->ClientHeight()};
}

void TControl::PlaceBy(const TRect& Place) {
  FPlacedByParent = true;
  SetBounds(Place.Left, Place.Top, Place.Width(), Place.Height());
  FPlacedByParent = false;
}

void TControl::RealignParent() {
  if (FParent != nullptr && FAlign != alNone) FParent->AlignControls();
}

// --- Looks ----------------------------------------------------------------------------------------------------------

void TControl::SetVisible(bool Value) {
  if (Value == FVisible) return;
  VisibleChanging();
  FVisible = Value;
  ApplyVisible();
  InvalidateBox();
  RealignParent();
  CMVisibleChanged();
}

void TControl::NoteVisible(bool Value) {
  if (Value == FVisible) return;
  VisibleChanging();
  FVisible = Value;
  CMVisibleChanged();
}

void TControl::SetEnabled(bool Value) {
  if (Value == FEnabled) return;
  FEnabled = Value;
  ApplyEnabled();
  CMEnabledChanged();
}

void TControl::SetCursor(TCursor Value) {
  if (Value == FCursor) return;
  FCursor = Value;
  ShowCursorOf(*this);
}

void TControl::SetHint(const std::string& Value) {
  if (Value == FHint) return;
  FHint = Value;
  ApplyHint();
}

bool TControl::ShowHint() const { return FParentShowHint && FParent != nullptr ? FParent->ShowHint() : FShowHint; }

void TControl::SetShowHint(bool Value) {
  FShowHint = Value;
  FParentShowHint = false;
}

void TControl::SetParentShowHint(bool Value) {
  if (!Value) FShowHint = ShowHint();
  FParentShowHint = Value;
}

void TControl::SetParentFont(bool Value) {
  if (Value == FParentFont) return;
  FParentFont = Value;
  ParentFontChanged();
}

void TControl::SetControlStyle(TControlStyle Value) {
  if (Value == FControlStyle) return;
  FControlStyle = Value;
  ApplyStyle();
}

void TControl::FontChanged() {
  if (!FTakingFont) FParentFont = false;
  CMFontChanged();
  if (FAutoSize) AdjustSize();
  SpreadFont();
}

void TControl::ParentFontChanged() {
  if (!FParentFont || FParent == nullptr) return;
  FTakingFont = true;
  FFont.Assign(&FParent->ControlFont());
  FTakingFont = false;
}

// --- Painting -------------------------------------------------------------------------------------------------------

void TControl::Invalidate() {
  if (FVisible) InvalidateBox();
}

void TControl::Repaint() {
  if (FVisible && FParent != nullptr) FParent->RepaintBox(FLeft, FTop, FWidth, FHeight);
}

void TControl::Update() {
  if (FParent != nullptr) FParent->Update();
}

void TControl::InvalidateBox() {
  if (FParent != nullptr) FParent->InvalidateBox(FLeft, FTop, FWidth, FHeight);
}

void TControl::DrawParentBackground(Graphics& Canvas) { TWinControl::PaintBehind(*this, Canvas); }

// --- Mouse ----------------------------------------------------------------------------------------------------------

bool TControl::MouseCapture() const { return GetCapture() == this; }

void TControl::SetMouseCapture(bool Value) {
  if (Value == MouseCapture()) return;
  if (Value) {
    SetCapture(*this);
  } else {
    ReleaseCapture();
  }
}

// Handlers are copied before they run: they may take themselves, or the whole control, away.

void TControl::Click() {
  if (const TNotifyEvent Event = FOnClick) Event(this);
}

void TControl::DblClick() {
  if (const TNotifyEvent Event = FOnDblClick) Event(this);
}

void TControl::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
  if (const TMouseEvent Event = FOnMouseDown) Event(this, Button, Shift, X, Y);
}

void TControl::MouseMove(TShiftState Shift, int X, int Y) {
  if (const TMouseMoveEvent Event = FOnMouseMove) Event(this, Shift, X, Y);
}

void TControl::MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) {
  if (const TMouseEvent Event = FOnMouseUp) Event(this, Button, Shift, X, Y);
}

bool TControl::MouseWheel(TShiftState Shift, int WheelDelta, int X, int Y) {
  bool Handled = false;
  if (const TMouseWheelEvent Event = FOnMouseWheel) Event(this, Shift, WheelDelta, X, Y, Handled);
  return Handled;
}

bool TControl::Gesture(const TGesture& Gesture) {
  bool Handled = false;
  if (const TGestureEvent Event = FOnGesture) Event(this, Gesture, Handled);
  return Handled;
}

bool TControl::CMHitTest(int, int) { return true; }

TPopupMenu* TControl::PopupMenu() const { return FPopupMenu; }

void TControl::SetPopupMenu(TPopupMenu* Value) { FPopupMenu = Value; }

bool TControl::DoContextPopup(int X, int Y) {
  const std::uint64_t Alive = LiveHandle();
  bool Handled = false;
  if (const TContextPopupEvent Event = FOnContextPopup) Event(this, {X, Y}, Handled);
  if (Handled || FromLiveHandle(Alive) == nullptr) return true;
  TPopupMenu* const Menu = FPopupMenu;
  if (Menu == nullptr || !Menu->AutoPopup()) return false;
  Menu->SetPopupComponent(this);
  const TPoint Place = ClientToScreen({std::max(X, 0), std::max(Y, 0)});
  Menu->Popup(Place.X, Place.Y);
  return true;
}

void TControl::CMMouseEnter() {
  if (const TNotifyEvent Event = FOnMouseEnter) Event(this);
}

void TControl::CMMouseLeave() {
  if (const TNotifyEvent Event = FOnMouseLeave) Event(this);
}

// --- For descendants ------------------------------------------------------------------------------------------------

void TControl::Resize() {}

void TControl::VisibleChanging() {}

void TControl::CMVisibleChanged() {}

void TControl::CMEnabledChanged() { Invalidate(); }

void TControl::CMFontChanged() { Invalidate(); }

void TControl::AdjustSize() {}

void TControl::ApplyBounds() {}

void TControl::ApplyVisible() {}

void TControl::ApplyEnabled() {}

void TControl::ApplyStyle() {}

void TControl::ApplyHint() {}

}  // namespace zy
