#include "annotations/ZyMovable.h"

#include <algorithm>
#include <cmath>

#include "graph/ZyGraph2D.h"
#include "graph/shapes/ZyDrawing.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/ScopedFlag.h"
#include "platform/framework/TPropInfo.h"
#include "series/ZyFunctionSeries.h"
#include "undo/ZyChange.h"
#include "undo/ZyUndoGroup.h"

namespace zy {

using T = TZyMovable;
ZY_PUBLISHED(
    TZyMovable, TGraphicControl, Published<&T::Caption, &T::SetCaption>("Caption", _sMarkerCaption),
    Published<&T::CaptionVisible, &T::SetCaptionVisible>("CaptionVisible", false, _sMarkerCaptionVisible),
    Published<&T::CaptionVertical, &T::SetCaptionVertical>("CaptionVertical", false, _sMarkerCaptionVertical),
    Published<&T::CaptionDeltaX, &T::SetCaptionDeltaX>("CaptionDeltaX", 0, _sMarkerCaptionDeltaX),
    Published<&T::CaptionDeltaY, &T::SetCaptionDeltaY>("CaptionDeltaY", 0, _sMarkerCaptionDeltaY),
    Published<&T::ForeColor, &T::SetForeColor>("ForeColor", _sMarkerForeColor).NotStored(),
    Published<&T::ClipToData, &T::SetClipToData>("ClipToData", true, _sMarkerClipToData),
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
    Published<&T::Font>("Font").StoredIf<&T::HasOwnFont>())

namespace {

bool IsFunction(const TZySeries* Series) { return dynamic_cast<const TZyFunctionSeries*>(Series) != nullptr; }

}  // namespace

TZyMovable::TZyMovable(TComponent* Owner) : TGraphicControl(Owner), FCaptionRec([this] { FontChanged(); }) {
  FLine.SetColor(ColorToARGB("ControlText"));
  FBackFrame.SetVisible(false);
  FBackFrame.SetColor(ColorToARGB("WindowFrame"));
  Font().SetFillColor(ColorToARGB("ControlText"));
  Font().OnNeedsResize = [this] { FontChanged(); };
  FCaptionRec.OnVariablesChanged = [this] { Modified(); };
}

TZyMovable::~TZyMovable() { Destroying(); }

// --- Place ----------------------------------------------------------------------------------------------------------

void TZyMovable::SetX(double Value) {
  if (Change(this, FX, Value, "X", &TZyMovable::Modified)) Tell(FOnMoved);
}

void TZyMovable::SetY(double Value) {
  if (Change(this, FY, Value, "Y", &TZyMovable::Modified)) Tell(FOnMoved);
}

void TZyMovable::SetXAxis(TZyAxis* Value) {
  if (Value == FXAxis) return;
  if (FUndo != nullptr) FUndo->PushProperty(this, "XAxis");
  FXAxis = Value;
  if (FUndo == nullptr && Value != nullptr) SetUndoStack(Value->UndoStack());
  Modified();
}

void TZyMovable::SetYAxis(TZyAxis* Value) {
  if (Value == FYAxis) return;
  if (FUndo != nullptr) FUndo->PushProperty(this, "YAxis");
  FYAxis = Value;
  if (FUndo == nullptr && Value != nullptr) SetUndoStack(Value->UndoStack());
  Modified();
}

void TZyMovable::SetUndoStack(TZyUndoStack* Value) { FUndo.Set(Value); }

void TZyMovable::SetClipToData(bool Value) { Change(this, FClipToData, Value, "ClipToData", &TZyMovable::Modified); }

void TZyMovable::SetParent(TWinControl* Value) {
  TGraphicControl::SetParent(Value);
  const auto* const Chart = dynamic_cast<TZyGraph2D*>(Value);
  if (Chart != nullptr && IsDesigning() && !IsLoading() && !IsDestroying()) {
    if (MovesAlongX() && FXAxis == nullptr) SetXAxis(Chart->PrimaryXAxis());
    if (MovesAlongY() && FYAxis == nullptr) SetYAxis(Chart->PrimaryYAxis());
    TakeHotPoint({Left() + FHotDelta.X, Top() + FHotDelta.Y});
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

void TZyMovable::SetBounds(int Left, int Top, int Width, int Height) {
  const bool IsMoved = !FSetting && !IsLoading() && (Left != this->Left() || Top != this->Top());
  TGraphicControl::SetBounds(Left, Top, Width, Height);
  if (FSetting || IsLoading()) return;
  if (IsMoved) TakeHotPoint({Left + FHotDelta.X, Top + FHotDelta.Y});
  UpdatePosition();
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
  if (!Visible()) EndDrag(false);
  TGraphicControl::CMVisibleChanged();
  UpdatePosition();
}

/// Returns whether the marker is still there.
bool TZyMovable::Tell(const TNotifyEvent& Event) {
  const std::uint64_t Alive = LiveHandle();
  if (const TNotifyEvent Handler = Event) Handler(this);
  return FromLiveHandle(Alive) != nullptr;
}

// --- Drags ----------------------------------------------------------------------------------------------------------

void TZyMovable::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
  if (FMouseDrag && Parent() != nullptr && Shift == FStartMoveKeys) {
    EndDrag(true);
    FDrag.Begin({X, Y});
    NotePlace();
    FDragStart = FDragPoint = HotPoint();
  }
  TGraphicControl::MouseDown(Button, Shift, X, Y);
}

void TZyMovable::MouseMove(TShiftState Shift, int X, int Y) {
  const std::uint64_t Alive = LiveHandle();
  if (FDrag.IsLost(Shift)) EndDrag(true);
  if (FromLiveHandle(Alive) == nullptr) return;
  if (FDrag.IsActive()) {
    const TPoint Way = FDrag.WayTo({X, Y});
    MoveDragged({FDragStart.X + Way.X, FDragStart.Y + Way.Y});
  }
  if (FromLiveHandle(Alive) != nullptr) TGraphicControl::MouseMove(Shift, X, Y);
}

void TZyMovable::MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) {
  const std::uint64_t Alive = LiveHandle();
  EndDrag(true);
  if (FromLiveHandle(Alive) != nullptr) TGraphicControl::MouseUp(Button, Shift, X, Y);
}

void TZyMovable::NotePlace() {
  FBeforeDrag = {FX, FY, FSnappedIdx};
  FSeriesBeforeDrag = FSnappedSeries.Get();
}

void TZyMovable::KeyDown(TKey& Key, TShiftState Shift) {
  if (Key == vkEscape && FDrag.IsActive()) {
    Key = 0;
    return EndDrag(false);
  }
  if (!FMouseDrag || Parent() == nullptr) return;
  const bool Begins = !FDrag.IsActive();
  if (const auto Way = FDrag.WayOf(Key, Shift)) {
    if (Begins) {
      NotePlace();
      FDragPoint = HotPoint();
    }
    Key = 0;
    MoveDragged({FDragPoint.X + Way->X, FDragPoint.Y + Way->Y});
  } else if (Key != 0 && Key != vkShift) {
    EndDrag(true);
  }
}

/// The hot point stays in the parent; the drag itself goes on beyond, so that nothing is lost on the way back.
void TZyMovable::MoveDragged(TPoint DragPoint) {
  FDragPoint = DragPoint;
  if (!FSnapToSeries || !SearchSeriesSnap(DragPoint))
    TakeHotPoint({std::clamp(DragPoint.X, 0, std::max(Parent()->ClientWidth() - 1, 0)),
                  std::clamp(DragPoint.Y, 0, std::max(Parent()->ClientHeight() - 1, 0))});
  Modified();
  Tell(FOnMoving);
}

/// Returns whether the marker holds on to a point now.
bool TZyMovable::SearchSeriesSnap(TPoint DragPoint) {
  FSnappedIdx = -1;
  const PointF From{static_cast<float>(DragPoint.X), static_cast<float>(DragPoint.Y)};
  const bool HasX = FXAxis != nullptr && MovesAlongX(), HasY = FYAxis != nullptr && MovesAlongY();
  if (!HasX && !HasY) return false;
  TZyNearestPointResult Best;
  TZySeries* BestSeries = nullptr;
  const auto Search = [&](TZySeries& Series) {
    const TZyNearestPointResult Found = HasX && HasY ? Series.NearestPoint(From)
                                        : HasX       ? Series.NearestX(From.X)
                                                     : Series.NearestY(From.Y);
    if (!Found.Found || (Best.Found && !(Found.Distance < Best.Distance))) return;
    Best = Found;
    BestSeries = &Series;
  };
  if (FSnapToSingleSeries) {
    if (FSnappedSeries != nullptr) Search(*FSnappedSeries);
  } else {
    for (IZyAxisSeries* Item : (HasX ? FXAxis : FYAxis)->RelatedSeries()) {
      auto* const Series = dynamic_cast<TZySeries*>(Item);
      if (Series != nullptr && (FSnapToFunctions || !IsFunction(Series))) Search(*Series);
    }
    FSnappedSeries = BestSeries;
  }
  if (!Best.Found) return false;
  FSnappedIdx = Best.Index;
  if (HasX) FX = Best.X;
  if (HasY) FY = Best.Y;
  return true;
}

/// The step is logged with the old place in place. A drag that went nowhere logs nothing.
void TZyMovable::EndDrag(bool Keeps) {
  if (!FDrag.IsActive()) return;
  FDrag.End();
  const double NewX = FX, NewY = FY;
  FX = FBeforeDrag.X;
  FY = FBeforeDrag.Y;
  if (!Keeps) {
    FSnappedSeries = FSeriesBeforeDrag.Get();
    FSnappedIdx = FBeforeDrag.Idx;
    return Modified();
  }
  if (NewX != FX || NewY != FY) {
    const TZyUndoGroup Group(FUndo, _sMarkerMoved);
    if (FUndo != nullptr && MovesAlongX()) FUndo->PushProperty(this, "X");
    if (FUndo != nullptr && MovesAlongY()) FUndo->PushProperty(this, "Y");
    FX = NewX;
    FY = NewY;
  }
  Tell(FOnMoved);
}

// --- Snapping -------------------------------------------------------------------------------------------------------

void TZyMovable::SetSnappedSeries(TZySeries* Value) {
  if (Value == FSnappedSeries && FSnapToSingleSeries == (Value != nullptr)) return;
  if (FUndo != nullptr) FUndo->PushProperty(this, "SnappedSeries");
  FSnapToSingleSeries = Value != nullptr;
  FSnappedSeries = Value;
  if (IsFunction(Value)) SetSnapToFunctions(true);
}

void TZyMovable::SetSnapToFunctions(bool Value) {
  if (Value == FSnapToFunctions) return;
  if (FUndo != nullptr) FUndo->PushProperty(this, "SnapToFunctions");
  FSnapToFunctions = Value;
  if (!Value && IsFunction(FSnappedSeries)) SetSnappedSeries(nullptr);
}

void TZyMovable::SnapToIdx(int Value) {
  SetSnappedIdx(Value);
  TZySeries* const Series = FSnappedSeries;
  if (Series == nullptr || !FSnapToSeries || FSnappedIdx < 0 || FSnappedIdx >= Series->Count()) return;
  if (MovesAlongX() && Series->XData() != nullptr) SetX(Series->XData()->GetValue(FSnappedIdx));
  if (MovesAlongY() && Series->YData() != nullptr) SetY(Series->YData()->GetValue(FSnappedIdx));
}

void TZyMovable::SnapTo(double X, double Y) {
  if (MovesAlongX() && std::isfinite(X)) FX = X;
  if (MovesAlongY() && std::isfinite(Y)) FY = Y;
  Modified();
}

// --- Caption --------------------------------------------------------------------------------------------------------

void TZyMovable::SetCaption(const TZyRichCaption& Value) {
  ChangeBy(this, Caption(), TrimRight(Value), "Caption", [this](const TZyRichCaption& Text) {
    FCaptionRec.SetCaption(Text);
    FCaptionOfName.WasSet();
    Modified();
  });
}

void TZyMovable::SetName(const std::string& Value) {
  TGraphicControl::SetName(Value);
  FCaptionOfName.Follow(*this, Value);
}

std::string TZyMovable::AccessibleName() const {
  return HasCaption() && !FCaptionRec.PlainText().empty() ? FCaptionRec.PlainText() : Name();
}

void TZyMovable::SetCaptionVisible(bool Value) {
  Change(this, FCaptionVisible, Value, "CaptionVisible", &TZyMovable::Modified);
}

void TZyMovable::SetCaptionVertical(bool Value) {
  Change(this, FCaptionRec.Angle, Value ? 90.0f : 0.0f, "CaptionVertical", &TZyMovable::Modified);
}

void TZyMovable::SetCaptionDeltaX(int Value) {
  Change(this, FCaptionDelta.X, Value, "CaptionDeltaX", &TZyMovable::Modified);
}

void TZyMovable::SetCaptionDeltaY(int Value) {
  Change(this, FCaptionDelta.Y, Value, "CaptionDeltaY", &TZyMovable::Modified);
}

void TZyMovable::SetCaptionPosition(TZyContentAlignment Value) {
  Change(this, FCaptionPosition, Value, "CaptionPosition", &TZyMovable::Modified);
}

void TZyMovable::SetForeColor(TZyColor Value) {
  ChangeBy(this, ForeColor(), Value, "ForeColor", [this](TZyColor Color) { Font().SetFillColor(Color); });
}

void TZyMovable::SetCaptionBackColor(TZyColor Value) {
  Change(this, FBackColor, Value, "CaptionBackColor", &TZyMovable::Modified);
}

void TZyMovable::SetEdge(bool& Field, bool Value, const char* PropName) {
  if (Field == Value) return;
  const TZyUndoGroup Group(FUndo, TZyUndoStack::LabelOf(*this, PropName));
  Change(this, Field, Value, PropName, &TZyMovable::Modified);
  const bool IsRestored = IsLoading() || (FUndo != nullptr && FUndo->Restoring());
  if (Value && !IsRestored) FBackFrame.SetVisible(false);
}

void TZyMovable::SetCaptionBackRaised(bool Value) { SetEdge(FBackRaised, Value, "CaptionBackRaised"); }

void TZyMovable::SetCaptionBackLowered(bool Value) { SetEdge(FBackLowered, Value, "CaptionBackLowered"); }

void TZyMovable::SetCaptionBackShadow(bool Value) {
  Change(this, FBackShadow, Value, "CaptionBackShadow", &TZyMovable::Modified);
}

void TZyMovable::SetCaptionBackSpaceToBorder(float Value) {
  Change(this, FBackSpaceToBorder, Value, "CaptionBackSpaceToBorder", &TZyMovable::Modified);
}

void TZyMovable::SetCaptionBackRounding(float Value) {
  Change(this, FBackRounding, Value, "CaptionBackRounding", &TZyMovable::Modified);
}

void TZyMovable::FontChanged() {
  FMarkerFont.FontChanged();
  Modified();
}

void TZyMovable::ParentFontChanged() {
  TGraphicControl::ParentFontChanged();
  FMarkerFont.Take();
}

bool TZyMovable::HasBackground() const {
  return GetAlpha(FBackColor) > 0 || FBackFrame.Visible() || FBackGradient.Visible();
}

bool TZyMovable::HasShadow() const {
  constexpr unsigned LeastAlpha = 200;
  return HasBackground() && FBackShadow && (GetAlpha(FBackColor) >= LeastAlpha || FBackGradient.Visible());
}

float TZyMovable::CaptionB() const {
  return HasBackground() ? static_cast<float>(FCaptionRec.CaptionFont().Size()) * FBackSpaceToBorder * 0.02f : 0;
}

SizeF TZyMovable::CaptionSize() const {
  return {FCaptionRec.Width() + 2 * CaptionB(), FCaptionRec.Height() + 2 * CaptionB()};
}

void TZyMovable::PaintCaption(Graphics& Gr) {
  if (HasBackground()) {
    const RectF Client{0, 0, static_cast<float>(Width()), static_cast<float>(Height())};
    const float Thick = std::max(FBackFrame.Width(), 1.0f);
    const RectF Box{static_cast<float>(FCaptionRect.Left) + Thick / 2, static_cast<float>(FCaptionRect.Top) + Thick / 2,
                    static_cast<float>(FCaptionRect.Width()) - 1 - Thick,
                    static_cast<float>(FCaptionRect.Height()) - 1 - Thick};
    if (const auto* const Chart = dynamic_cast<const TZyCustomGraph*>(Parent())) {
      Chart->SetHighQuality(Gr, true);
    } else {
      Gr.SetSmoothingMode(SmoothingModeHighQuality);
    }
    const auto Shaded = FBackGradient.Visible() ? FBackGradient.GetBrush(Client, 0) : nullptr;
    const SolidBrush Plain(FBackColor);
    const auto Outline = FBackFrame.GetPen(Client, 0);
    Outline->SetWidth(Thick);
    const Brush& Ground = Shaded != nullptr ? *Shaded : static_cast<const Brush&>(Plain);
    const float Rounding = std::fabs(static_cast<float>(FCaptionRec.CaptionFont().Size()) * FBackRounding * 0.02f);
    if (Box.Width > 0 && Box.Height > 0)
      DrawRoundRect(Gr, Ground, *Outline, Box, Rounding, FBackFrame.Visible(), HasShadow(), FBackRaised, FBackLowered);
  }
  FCaptionRec.PaintGr(Gr);
}

/// What no heir paints is a cross.
void TZyMovable::PaintGr(Graphics& Gr) {
  const RectF Client{0, 0, static_cast<float>(Width()), static_cast<float>(Height())};
  const auto Cross = FLine.GetPen(Client, 0);
  Gr.DrawLine(*Cross, 0, 0, Client.Width, Client.Height);
  Gr.DrawLine(*Cross, 0, Client.Height, Client.Width, 0);
}

}  // namespace zy
