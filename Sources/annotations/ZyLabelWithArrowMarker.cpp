#include "annotations/ZyLabelWithArrowMarker.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include "analysis/ZyMath.h"
#include "annotations/ZyMarkerPixels.h"
#include "graph/shapes/ZyDrawing.h"
#include "persistence/ZyArchive.h"
#include "platform/controls/InputDispatch.h"
#include "platform/controls/TWinControl.h"
#include "platform/drawing/ClipGuard.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/TPropInfo.h"
#include "undo/ZyChange.h"
#include "undo/ZyUndoGroup.h"

namespace zy {

using T = TZyLabelWithArrowMarker;
ZY_PUBLISHED(TZyLabelWithArrowMarker, TZyMovable,
             Published<&T::CaptionVisible, &T::SetCaptionVisible>("CaptionVisible", true, _sMarkerCaptionVisible),
             Published<&T::Arrow>("Arrow"),
             Published<&T::ArrowAngle, &T::SetArrowAngle>("ArrowAngle", _sMarkerArrowAngle).NotStored(),
             Published<&T::ArrowLength, &T::SetArrowLength>("ArrowLength", _sMarkerArrowLength).NotStored(),
             Published<&T::ArrowDeltaX, &T::SetArrowDeltaX>("ArrowDeltaX", 50, _sMarkerArrowDeltaX),
             Published<&T::ArrowDeltaY, &T::SetArrowDeltaY>("ArrowDeltaY", -50, _sMarkerArrowDeltaY),
             Published<&T::BentLength, &T::SetBentLength>("BentLength", 0, _sMarkerArrowBentLength),
             Published<&T::ArrowEndGripCursor, &T::SetArrowEndGripCursor>("ArrowEndGripCursor", crSizeAll),
             Published<&T::BentLengthGripCursor, &T::SetBentLengthGripCursor>("BentLengthGripCursor"),
             Published<&T::CaptionGripCursor, &T::SetCaptionGripCursor>("CaptionGripCursor", crSizeAll),
             Published<&T::HoverGrips, &T::SetHoverGrips>("HoverGrips", true),
             Published<&T::DraggingOptions, &T::SetDraggingOptions>("DraggingOptions",
                                                                    TZyArrowMarkerDraggingOptions::FromBits(15)),
             Published<&T::OnArrowEndMoving, &T::SetOnArrowEndMoving>("OnArrowEndMoving"),
             Published<&T::OnArrowEndMoved, &T::SetOnArrowEndMoved>("OnArrowEndMoved"),
             Republished("XAxis X YAxis Y SnappedSeries SnappedIdx"))

TZyLabelWithArrowMarker::TZyLabelWithArrowMarker(TComponent* Owner) : TZyMovable(Owner) {
  FArrowSettings.SetColor(ColorToARGB("ControlText"));
  SetCursor(crHandPoint);
  FCaptionVisible = true;
  FArrowGrip = new TZyArrowGrip(*this);
  FBentLengthGrip = new TZyBentLengthGrip(*this);
  FCaptionGrip = new TZyCaptionGrip(*this);
}

TZyLabelWithArrowMarker::~TZyLabelWithArrowMarker() { Destroying(); }

// --- Shape ----------------------------------------------------------------------------------------------------------

void TZyLabelWithArrowMarker::SetArrowDeltaX(int Value) {
  Change(this, FShape.Arrow.X, Value, "ArrowDeltaX", &TZyLabelWithArrowMarker::Modified);
}

void TZyLabelWithArrowMarker::SetArrowDeltaY(int Value) {
  Change(this, FShape.Arrow.Y, Value, "ArrowDeltaY", &TZyLabelWithArrowMarker::Modified);
}

void TZyLabelWithArrowMarker::SetBentLength(int Value) {
  const int Length = std::abs(std::max(Value, -std::numeric_limits<int>::max()));
  Change(this, FShape.Bent, Length, "BentLength", &TZyLabelWithArrowMarker::Modified);
}

float TZyLabelWithArrowMarker::ArrowLength() const {
  return static_cast<float>(std::hypot(FShape.Arrow.X, FShape.Arrow.Y));
}

void TZyLabelWithArrowMarker::SetArrowLength(float Value) {
  SetArrow(AngleOfArrow(FShape.Arrow), std::fabs(static_cast<double>(Value)), _sMarkerArrowLength);
}

void TZyLabelWithArrowMarker::SetArrowAngle(float Value) {
  SetArrow(FitTo360Degrees(static_cast<double>(Value)), std::hypot(FShape.Arrow.X, FShape.Arrow.Y), _sMarkerArrowAngle);
}

/// The deltas are what is logged: angle and length of before would not give them back.
void TZyLabelWithArrowMarker::SetArrow(double Angle, double Length, TZyText Label) {
  if (!std::isfinite(Angle) || !std::isfinite(Length)) return;
  const double Turn = Angle * std::numbers::pi / 180;
  const TPoint New{ToPixels(std::cos(Turn) * Length), -ToPixels(std::sin(Turn) * Length)};
  if (New == FShape.Arrow) return;
  const TZyUndoGroup Group(UndoStack(), Label);
  SetArrowDeltaX(New.X);
  SetArrowDeltaY(New.Y);
}

void TZyLabelWithArrowMarker::TakeShape(const TZyArrowShape& Value) {
  FShape = Value;
  FCaptionDelta = Value.Caption;
  Modified();
}

void TZyLabelWithArrowMarker::ChangeShape(const TZyArrowShape& Value) {
  if (Value == Shape()) return;
  const TZyUndoGroup Group(UndoStack(), _sMarkerPartsChanging);
  if (UndoStack() != nullptr)
    for (const char* Name : {"ArrowDeltaX", "ArrowDeltaY", "CaptionDeltaX", "CaptionDeltaY", "BentLength"})
      UndoStack()->PushProperty(this, Name);
  TakeShape(Value);
}

void TZyLabelWithArrowMarker::SetUndoStack(TZyUndoStack* Value) {
  TZyMovable::SetUndoStack(Value);
  FArrowSettings.SetUndoStack(Value);
}

/// The pointer of the bent grip turns with the piece.
void TZyLabelWithArrowMarker::SetCaptionVertical(bool Value) {
  TZyMovable::SetCaptionVertical(Value);
  const TCursor Old = BentLengthGripCursor();
  if (Old == (Value ? crHSplit : crVSplit)) SetBentLengthGripCursor(Value ? crVSplit : crHSplit);
  if (Old == (Value ? crSizeNS : crSizeWE)) SetBentLengthGripCursor(Value ? crSizeWE : crSizeNS);
}

// --- Place ----------------------------------------------------------------------------------------------------------

void TZyLabelWithArrowMarker::SetParent(TWinControl* Value) {
  TZyMovable::SetParent(Value);
  if (IsDestroying() || IsDesigning()) return;
  for (TZyArrowGrip* Grip : {static_cast<TZyArrowGrip*>(FBentLengthGrip.Get()), FArrowGrip.Get(),
                             static_cast<TZyArrowGrip*>(FCaptionGrip.Get())})
    if (Grip != nullptr) Grip->SetParent(Value);
}

void TZyLabelWithArrowMarker::SetHotDelta() {
  const TZyArrowLabelBox Box({.HasArrow = FArrowSettings.Visible(),
                              .LineWidth = FArrowSettings.Width(),
                              .PointLength = FArrowSettings.PointLength(),
                              .PointHeight = FArrowSettings.PointHeight(),
                              .Arrow = ToPixels(FShape.Arrow),
                              .Bent = ToPixels(static_cast<double>(FShape.Bent)),
                              .HasCaption = HasCaption(),
                              .Caption = CaptionSize(),
                              .Border = CaptionB(),
                              .Delta = ToPixels(FCaptionDelta),
                              .IsVertical = CaptionVertical(),
                              .Shadow = HasCaption() && HasShadow() ? ShadowExtent : 0});
  TakeBox(Box);
  FEnd = Box.End;
  FBentEnd = Box.BentEnd;
  FBentRect = Box.BentStrip;
}

void TZyLabelWithArrowMarker::UpdatePosition() {
  TZyMovable::UpdatePosition();
  const auto Place = [this](TZyArrowGrip* Grip, int X, int Y) {
    if (Grip != nullptr) Grip->PlaceAt({Left() + X, Top() + Y});
  };
  if (FArrowSettings.Visible()) {
    Place(FArrowGrip, FEnd.X, FEnd.Y);
    Place(FBentLengthGrip, FBentEnd.X, FBentEnd.Y);
  }
  if (HasCaption()) Place(FCaptionGrip, FCaptionRect.Right, FCaptionRect.Bottom);
}

// --- Mouse ----------------------------------------------------------------------------------------------------------

bool TZyLabelWithArrowMarker::StartsBy(TShiftState Shift) const {
  return FDraggingOptions.Contains(TZyArrowMarkerDraggingOption::Hotspot) && TZyMovable::StartsBy(Shift);
}

/// Within the strip around the arrow, which is as wide as its tip.
bool TZyLabelWithArrowMarker::IsOnArrow(int X, int Y) const {
  constexpr double Least = 4;
  const auto Thick = static_cast<double>(FArrowSettings.Width());
  const double Near = std::max({Thick * static_cast<double>(FArrowSettings.PointHeight()) + 1, Thick, Least});
  const double Turn = AngleOfArrow(FShape.Arrow) * std::numbers::pi / 180;
  const double FromHotX = X - FHotDelta.X, FromHotY = Y - FHotDelta.Y;
  const double Across = FromHotX * std::sin(Turn) + FromHotY * std::cos(Turn);
  const double Along = FromHotX * std::cos(Turn) - FromHotY * std::sin(Turn);
  return std::fabs(Across) < Near && Along > -Near && Along < std::hypot(FShape.Arrow.X, FShape.Arrow.Y) + Near;
}

bool TZyLabelWithArrowMarker::CMHitTest(int X, int Y) {
  const auto IsIn = [X, Y](const RectF& Rect) {
    return static_cast<float>(X) >= Rect.X && static_cast<float>(X) < Rect.X + Rect.Width &&
           static_cast<float>(Y) >= Rect.Y && static_cast<float>(Y) < Rect.Y + Rect.Height;
  };
  if (FArrowSettings.Visible() && (IsIn(FBentRect) || IsOnArrow(X, Y))) return true;
  return HasCaption() && IsIn(TRectToRectF(FCaptionRect));
}

bool TZyLabelWithArrowMarker::IsBoxUnderMouse() const {
  const TPoint Place = ScreenToClient(CursorPos());
  return Place.X >= 0 && Place.Y >= 0 && Place.X < Width() && Place.Y < Height();
}

/// Those that may be dragged, above the label.
void TZyLabelWithArrowMarker::ShowGrips() {
  if (IsDesigning() || !FHoverGrips || !MouseDrag() || !FArrowSettings.Visible()) return;
  const auto Show = [this](TZyArrowGrip* Grip, TZyArrowMarkerDraggingOption Option) {
    if (Grip == nullptr || Grip->Visible() || !FDraggingOptions.Contains(Option)) return;
    Grip->BringToFront();
    Grip->SetVisible(true);
  };
  Show(FBentLengthGrip, TZyArrowMarkerDraggingOption::BentGrip);
  Show(FArrowGrip, TZyArrowMarkerDraggingOption::ArrowEnd);
  if (HasCaption()) Show(FCaptionGrip, TZyArrowMarkerDraggingOption::CaptionGrip);
}

/// Hides the others.
void TZyLabelWithArrowMarker::KeepGrips(bool (*Keeps)(const TZyArrowGrip& Grip)) {
  for (TZyArrowGrip* Grip : {FArrowGrip.Get(), static_cast<TZyArrowGrip*>(FBentLengthGrip.Get()),
                             static_cast<TZyArrowGrip*>(FCaptionGrip.Get())})
    if (Grip != nullptr && Grip->Visible() && !Keeps(*Grip)) Grip->SetVisible(false);
}

void TZyLabelWithArrowMarker::CMMouseEnter() {
  ShowGrips();
  TZyMovable::CMMouseEnter();
}

void TZyLabelWithArrowMarker::CMMouseLeave() {
  if (FHoverGrips && !IsDesigning()) KeepGrips([](const TZyArrowGrip& Grip) { return Grip.IsUnderMouse(); });
  TZyMovable::CMMouseLeave();
}

void TZyLabelWithArrowMarker::CMVisibleChanged() {
  if (!Visible()) KeepGrips([](const TZyArrowGrip&) { return false; });
  TZyMovable::CMVisibleChanged();
}

// --- Looks ----------------------------------------------------------------------------------------------------------

void TZyLabelWithArrowMarker::PaintGr(Graphics& Gr) {
  const TClipGuard Clip(Gr);
  if (ClipToData() && XAxis() != nullptr && YAxis() != nullptr) Gr.SetClip(ClipRect(), CombineModeIntersect);
  if (FArrowSettings.Visible()) PaintArrow(Gr);
  if (HasCaption()) PaintCaption(Gr);
}

/// The line begins at the tip.
void TZyLabelWithArrowMarker::PaintArrow(Graphics& Gr) {
  const auto ToPointF = [](TPoint Place) { return PointF{static_cast<float>(Place.X), static_cast<float>(Place.Y)}; };
  const PointF Points[] = {ToPointF(FHotDelta), ToPointF(FEnd), ToPointF(FBentEnd)};
  const RectF Bounds = OrderedRect(Points[0].X, Points[0].Y, Points[2].X, Points[2].Y);
  const auto Pen = FArrowSettings.TZyLineSettings::GetPen(Bounds, -ArrowAngle());
  Pen->SetCustomStartCap(*ArrowPointCap(FArrowSettings));
  Gr.SetSmoothingMode(SmoothingModeHighQuality);
  if (FShape.Bent < 1) {
    Gr.DrawLine(*Pen, Points[0].X, Points[0].Y, Points[1].X, Points[1].Y);
  } else {
    Gr.DrawLines(*Pen, Points);
  }
}

// --- Record ---------------------------------------------------------------------------------------------------------

void TZyLabelWithArrowMarker::ArrowFields(TZyArchive& Archive) {
  using A = TZyArrowSettings;
  const auto Name = [](const char* Text) { return TZyFieldName(Text); };
  Archive.Level("Arrow", [&] {
    if (!Archive.IsStream())
      Archive.Field<&A::Visible, &A::SetVisible>(FArrowSettings, Name("Visible").Ini("Arrow.Visible"));
    Archive.Field<&A::PointLength, &A::SetPointLength>(FArrowSettings, Name("PointLength").Ini("Arrow.PointLength"));
    Archive.Field<&A::InnerLength, &A::SetInnerLength>(FArrowSettings, Name("InnerLength").Ini("Arrow.InnerLength"));
    Archive.Field<&A::PointHeight, &A::SetPointHeight>(FArrowSettings, Name("PointHeight").Ini("Arrow.PointHeight"));
    Archive.Field<&T::ArrowDeltaX, &T::SetArrowDeltaX>(*this, Name("DeltaX").Ini("Arrow.DeltaX"));
    Archive.Field<&T::ArrowDeltaY, &T::SetArrowDeltaY>(*this, Name("DeltaY").Ini("Arrow.DeltaY"));
    Archive.Field<&T::BentLength, &T::SetBentLength>(*this, Name("BentLength").Ini("Arrow.BentLength"));
  });
}

void TZyLabelWithArrowMarker::Fields(TZyArchive& Archive) {
  TZyMovable::Fields(Archive);
  ArrowFields(Archive);
  Archive.Level("Properties", [&] { Archive.Properties(*this, "HoverGrips"); });
  PlaceFields(Archive);
  if (!Archive.NextGroup()) return;
  Archive.Level("Properties", [&] { Archive.Properties(*this, "DraggingOptions"); });
  Archive.EndRecord();
}

}  // namespace zy
