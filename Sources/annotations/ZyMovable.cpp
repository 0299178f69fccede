#include "annotations/ZyMovable.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "graph/ZyGraph2D.h"
#include "graph/parts/ZyMarkerListener.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/ScopedFlag.h"
#include "platform/framework/TPropInfo.h"
#include "series/ZySeries.h"
#include "undo/ZyChange.h"

namespace zy {

using T = TZyMovable;
ZY_PUBLISHED(
    TZyMovable, TZyDraggedControl, Published<&T::Caption, &T::SetCaption>("Caption", _sMarkerCaption),
    Published<&T::CaptionVisible, &T::SetCaptionVisible>("CaptionVisible", false, _sMarkerCaptionVisible),
    Published<&T::CaptionVertical, &T::SetCaptionVertical>("CaptionVertical", false, _sMarkerCaptionVertical),
    Published<&T::CaptionDeltaX, &T::SetCaptionDeltaX>("CaptionDeltaX", 0, _sMarkerCaptionDeltaX),
    Published<&T::CaptionDeltaY, &T::SetCaptionDeltaY>("CaptionDeltaY", 0, _sMarkerCaptionDeltaY),
    Published<&T::ForeColor, &T::SetForeColor>("ForeColor", _sMarkerForeColor).NotStored(),
    Published<&T::ClipToData, &T::SetClipToData>("ClipToData", _sMarkerClipToData).StoredIf<&T::StoresClipToData>(),
    Published<&T::MouseDrag, &T::SetMouseDrag>("MouseDrag", true),
    Published<&T::StartMovingKeys, &T::SetStartMovingKeys>("StartMovingKeys", TShiftState{ssLeft}),
    Published<&T::SnapToSeriesValues, &T::SetSnapToSeriesValues>("SnapToSeriesValues", false),
    Published<&T::SnapToFunctions, &T::SetSnapToFunctions>("SnapToFunctions", true, _sMarkerSnapToFunctions),
    Published<&T::OnMarkerMoving, &T::SetOnMarkerMoving>("OnMarkerMoving"),
    Published<&T::OnMarkerMoved, &T::SetOnMarkerMoved>("OnMarkerMoved"),
    Published<&T::CaptionBackColor, &T::SetCaptionBackColor>("CaptionBackColor", Colors::Transparent,
                                                             _sCaptionBackColor),
    Published<&T::CaptionBackGradient>("CaptionBackGradient"), Published<&T::CaptionBackFrame>("CaptionBackFrame"),
    Published<&T::CaptionBackRaised, &T::SetCaptionBackRaised>("CaptionBackRaised", false, _sCaptionBackRaised),
    Published<&T::CaptionBackLowered, &T::SetCaptionBackLowered>("CaptionBackLowered", false, _sCaptionBackLowered),
    Published<&T::CaptionBackShadow, &T::SetCaptionBackShadow>("CaptionBackShadow", false, _sCaptionBackShadow),
    Published<&T::CaptionBackSpaceToBorder, &T::SetCaptionBackSpaceToBorder>("CaptionBackSpaceToBorder", 40.0f,
                                                                             _sCaptionBackSpaceToBorder),
    Published<&T::CaptionBackRounding, &T::SetCaptionBackRounding>("CaptionBackRounding", 0.0f, _sCaptionBackRounding),
    Published<&T::ParentFont, &T::SetParentFont>("ParentFont", true),
    Published<&T::Font, &T::SetFont>("Font", _sMarkerFont).StoredIf<&T::HasOwnFont>(),
    // The bounds follow from what is shown.
    Published<&T::Left, &T::SetLeft>("Left").NotStored(), Published<&T::Top, &T::SetTop>("Top").NotStored(),
    Published<&T::Width, &T::SetWidth>("Width").NotStored(), Published<&T::Height, &T::SetHeight>("Height").NotStored(),
    // Heirs publish what they have of these.
    Published<&T::Line>("Line").Hidden(), Published<&T::XAxis, &T::SetXAxis>("XAxis", _sMarkerXAxis).Hidden(),
    Published<&T::X, &T::SetX>("X", 0.0, _sMarkerX).Hidden(),
    Published<&T::YAxis, &T::SetYAxis>("YAxis", _sMarkerYAxis).Hidden(),
    Published<&T::Y, &T::SetY>("Y", 0.0, _sMarkerY).Hidden(),
    Published<&T::SnappedSeries, &T::SetSnappedSeries>("SnappedSeries", _sMarkerSnappedSeries).Hidden(),
    Published<&T::SnappedIdx, &T::SetSnappedIdx>("SnappedIdx", -1).Hidden(),
    Published<&T::SnapsToOne, &T::SetSnapsToOne>("SnapsToOne", false).Hidden())

TZyMovable::TZyMovable(TComponent* Owner) : TZyDraggedControl(Owner), FCaptionRec([this] { FontChanged(); }) {
  FLine.SetColor(ColorToARGB("ControlText"));
  FBackFrame.SetVisible(false);
  FBackFrame.SetColor(ColorToARGB("WindowFrame"));
  Font().SetFillColor(ColorToARGB("ControlText"));
  Font().OnNeedsResize = [this] { FontChanged(); };
  FCaptionRec.OnVariablesChanged = [this] { Modified(); };
  SetParentFont(true);
  TZyDraggedControl::SetBounds(1, 1, Width(), Height());
}

TZyMovable::~TZyMovable() { Destroying(); }

// --- Place ----------------------------------------------------------------------------------------------------------

void TZyMovable::SetX(double Value) {
  if (Change(this, FX, Value, "X", &TZyMovable::Modified)) TellMoved();
}

void TZyMovable::SetY(double Value) {
  if (Change(this, FY, Value, "Y", &TZyMovable::Modified)) TellMoved();
}

void TZyMovable::SetXAxis(TZyAxis* Value) {
  if (Value == FXAxis) return;
  if (FUndo != nullptr) FUndo->PushProperty(this, "XAxis");
  FXAxis = Value;
  TakeStackOf(Value);
  Modified();
}

void TZyMovable::SetYAxis(TZyAxis* Value) {
  if (Value == FYAxis) return;
  if (FUndo != nullptr) FUndo->PushProperty(this, "YAxis");
  FYAxis = Value;
  TakeStackOf(Value);
  Modified();
}

/// Not while a record is read: nothing of the marker was there before.
void TZyMovable::TakeStackOf(const TZyAxis* Axis) {
  if (FUndo == nullptr && Axis != nullptr && !FReadsRecord) SetUndoStack(Axis->UndoStack());
}

void TZyMovable::StandWith(const TZyMovable& Other) {
  FXAxis = Other.FXAxis.Get();
  FYAxis = Other.FYAxis.Get();
  FX = Other.FX;
  FY = Other.FY;
  Modified();
}

void TZyMovable::SetUndoStack(TZyUndoStack* Value) { FUndo.Set(Value); }

void TZyMovable::SetClipToData(bool Value) { Change(this, FClipToData, Value, "ClipToData", &TZyMovable::Modified); }

void TZyMovable::SetParent(TWinControl* Value) {
  TZyDraggedControl::SetParent(Value);
  const auto* const Chart = dynamic_cast<TZyGraph2D*>(Value);
  if (Chart != nullptr && IsDesigning() && !IsLoading() && !IsDestroying()) {
    const bool TakesX = MovesAlongX() && FXAxis == nullptr, TakesY = MovesAlongY() && FYAxis == nullptr;
    if (TakesX) SetXAxis(Chart->PrimaryXAxis());
    if (TakesY) SetYAxis(Chart->PrimaryYAxis());
    if (TakesX || TakesY) TakeHotPoint({Left() + FHotDelta.X, Top() + FHotDelta.Y});
    if (FUndo == nullptr) SetUndoStack(Chart->UndoStack());
  }
  if (Value != nullptr && !IsDestroying()) UpdatePosition();
}

/// Far away where a value has no place on the axis, or one that is no pixel.
TPoint TZyMovable::HotPoint() const {
  constexpr double Far = 1 << 20;
  const auto Pixel = [Far](const TZyAxis* Axis, double Value) {
    const double Place = Axis != nullptr ? static_cast<double>(Axis->NumberToWorld(Value)) : Value;
    return std::isnan(Place) ? static_cast<int>(-Far) : static_cast<int>(std::nearbyint(std::clamp(Place, -Far, Far)));
  };
  return {Pixel(FXAxis, FX), Pixel(FYAxis, FY)};
}

void TZyMovable::TakeHotPoint(TPoint Value) {
  const auto Take = [](const TZyAxis* Axis, int Pixel, double& Number) {
    const double New = Axis != nullptr ? Axis->WorldToNumber(static_cast<float>(Pixel)) : Pixel;
    if (std::isfinite(New)) Number = New;
  };
  if (MovesAlongX()) Take(FXAxis, Value.X, FX);
  if (MovesAlongY()) Take(FYAxis, Value.Y, FY);
}

void TZyMovable::UpdatePosition() {
  if (Parent() == nullptr || IsDestroying() || IsLoading()) return;
  FCaptionRec.ParseIfNeeded();
  SetHotDelta();
  const TPoint Corner = CornerFor(HotPoint());
  const TScopedValue Setting(FSetting, true);
  SetBounds(Corner.X, Corner.Y, FSize.X, FSize.Y);
}

void TZyMovable::Modified() {
  UpdatePosition();
  Invalidate();
}

void TZyMovable::SetHotDelta() {
  FSize = {Width(), Height()};
  FHotDelta = {FSize.X / 2, FSize.Y / 2};
}

void TZyMovable::TakeBox(const TZyMarkerBox& Box) {
  FSize = {Box.Width, Box.Height};
  FHotDelta = Box.HotDelta;
  FCaptionRect = Box.Caption;
  FCaptionRec.X = Box.Anchor.X;
  FCaptionRec.Y = Box.Anchor.Y;
  FCaptionRec.Alignment = Box.Align;
}

void TZyMovable::SetBounds(int Left, int Top, int Width, int Height) {
  const bool IsMoved = !FSetting && !IsLoading() && (Left != this->Left() || Top != this->Top());
  TZyDraggedControl::SetBounds(Left, Top, Width, Height);
  if (FSetting || IsLoading()) return;
  if (!IsMoved) return UpdatePosition();
  const auto Within = [](std::int64_t Place) {  // bounds may lie at the ends of the numbers
    constexpr std::int64_t Furthest = 1 << 24;
    return static_cast<int>(std::clamp(Place, -Furthest, Furthest));
  };
  TakeHotPoint({Within(std::int64_t{Left} + FHotDelta.X), Within(std::int64_t{Top} + FHotDelta.Y)});
  PlaceChanged();
}

RectF TZyMovable::OuterRect() const {
  const auto* const Chart = dynamic_cast<const TZyGraph2D*>(Parent());
  if (FClipToData && Chart != nullptr) return Chart->DrawingArea();
  if (Parent() == nullptr) return {0, 0, 300, 300};
  return {0, 0, static_cast<float>(Parent()->ClientWidth()), static_cast<float>(Parent()->ClientHeight())};
}

RectF TZyMovable::ClipRect() const {
  RectF Result = OuterRect();
  Result.X -= static_cast<float>(Left());
  Result.Y -= static_cast<float>(Top());
  return Result;
}

void TZyMovable::CMVisibleChanged() {
  TZyDraggedControl::CMVisibleChanged();
  UpdatePosition();
  if (Visible()) BringToFront();
}

/// Returns whether the marker is still there.
bool TZyMovable::Tell(const TNotifyEvent& Event) {
  const std::uint64_t Alive = LiveHandle();
  if (const TNotifyEvent Handler = Event) Handler(this);
  return FromLiveHandle(Alive) != nullptr;
}

void TZyMovable::TellMove(const TNotifyEvent& Event, bool IsOver) {
  if (!Tell(Event)) return;
  if (auto* const Listener = dynamic_cast<IZyMarkerListener*>(Parent())) Listener->MarkerMoves(*this, IsOver);
}

/// What no heir paints is a cross.
void TZyMovable::PaintGr(Graphics& Gr) {
  const RectF Client{0, 0, static_cast<float>(Width()), static_cast<float>(Height())};
  const auto Cross = FLine.GetPen(Client, 0);
  Gr.DrawLine(*Cross, 0, 0, Client.Width, Client.Height);
  Gr.DrawLine(*Cross, 0, Client.Height, Client.Width, 0);
}

}  // namespace zy
