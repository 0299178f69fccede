#include "annotations/ZyCrossHair.h"

#include <cstdlib>

#include "annotations/ZyMarkerPixels.h"
#include "persistence/ZyArchive.h"
#include "platform/drawing/ClipGuard.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/TPropInfo.h"
#include "undo/ZyChange.h"
#include "undo/ZyUndoGroup.h"

namespace zy {

using T = TZyCrossHair;
ZY_PUBLISHED(TZyCrossHair, TZyMovable,
             Published<&T::CaptionVisible, &T::SetCaptionVisible>("CaptionVisible", true, _sMarkerCaptionVisible),
             Published<&T::CaptionPosition, &T::SetCaptionPosition>("CaptionPosition",
                                                                    TZyXHairCaptionPosition::RightTop,
                                                                    _sXHairCaptionPosition),
             Published<&T::HorizontalCursor, &T::SetHorizontalCursor>("HorizontalCursor", crSizeNS),
             Published<&T::VerticalCursor, &T::SetVerticalCursor>("VerticalCursor", crSizeWE),
             Republished("Line XAxis X YAxis Y SnappedSeries SnappedIdx"),
             Published<&T::HorizontalMarker>("HorizontalMarker"), Published<&T::VerticalMarker>("VerticalMarker"))

// --- Lines ----------------------------------------------------------------------------------------------------------

/// A line marker whose place is the cross hair's.
template <class TMarker>
class TZyCrossHair::TLine : public TMarker {
 public:
  explicit TLine(TZyCrossHair& Cross) : TMarker(&Cross), FCross(this) {
    FCross = &Cross;
    this->SetSubComponent(true);
  }
  void SetX(double Value) override {
    if (FCross != nullptr) FCross->SetX(Value);
  }
  void SetY(double Value) override {
    if (FCross != nullptr) FCross->SetY(Value);
  }
  void SetXAxis(TZyAxis* Value) override {
    if (FCross != nullptr) FCross->SetXAxis(Value);
  }
  void SetYAxis(TZyAxis* Value) override {
    if (FCross != nullptr) FCross->SetYAxis(Value);
  }
  TZySimpleLineSettings& Line() override { return FCross != nullptr ? FCross->Line() : TMarker::Line(); }
  /// What a series hides and frees with its points is the whole cross hair.
  TControl& Control() override { return FCross != nullptr ? static_cast<TControl&>(*FCross) : *this; }
  void Follow() { this->StandWith(*FCross); }

 protected:
  void PlaceChanged() override {
    if (FCross != nullptr) FCross->StandWith(*this);
  }
  void CMVisibleChanged() override {
    TMarker::CMVisibleChanged();
    if (FCross != nullptr && FCross->Visible()) FCross->BringToFront();
  }
  bool StoresClipToData() const override { return FCross != nullptr && this->ClipToData() != FCross->ClipToData(); }
  void TellMoving() override { TellBoth(this->OnMarkerMoving(), &TZyCrossHair::TellMoving); }
  void TellMoved() override { TellBoth(this->OnMarkerMoved(), &TZyCrossHair::TellMoved); }

 private:
  /// The line first; its handler may free both.
  void TellBoth(const TNotifyEvent& Event, void (TZyCrossHair::*TellCross)()) {
    if (this->Tell(Event) && FCross != nullptr) (FCross->*TellCross)();
  }

  TRef<TZyCrossHair> FCross;
};

TZyCrossHair::TZyCrossHair(TComponent* Owner) : TZyMovable(Owner) {
  FCaptionVisible = true;
  SetCursor(crSizeAll);
  MakeLines();
}

/// Those that are not there.
void TZyCrossHair::MakeLines() {
  if (FHorizontal == nullptr) {
    FHorizontal = new TLine<TZyHorizontalMarker>(*this);
    FHorizontal->SetName("HorizontalMarker");
  }
  if (FVertical == nullptr) {
    FVertical = new TLine<TZyVerticalMarker>(*this);
    FVertical->SetName("VertikalMarker");
  }
}

TZyCrossHair::~TZyCrossHair() { Destroying(); }

TCursor TZyCrossHair::HorizontalCursor() const {
  return FHorizontal != nullptr ? FHorizontal->Cursor() : TCursor{crDefault};
}

void TZyCrossHair::SetHorizontalCursor(TCursor Value) {
  if (FHorizontal != nullptr) FHorizontal->SetCursor(Value);
}

TCursor TZyCrossHair::VerticalCursor() const { return FVertical != nullptr ? FVertical->Cursor() : TCursor{crDefault}; }

void TZyCrossHair::SetVerticalCursor(TCursor Value) {
  if (FVertical != nullptr) FVertical->SetCursor(Value);
}

void TZyCrossHair::Modified() {
  TZyMovable::Modified();
  if (FHorizontal != nullptr) static_cast<TLine<TZyHorizontalMarker>&>(*FHorizontal).Follow();
  if (FVertical != nullptr) static_cast<TLine<TZyVerticalMarker>&>(*FVertical).Follow();
}

/// One step for all three.
void TZyCrossHair::SetClipToData(bool Value) {
  const auto IsSo = [Value](const TZyLineMarker* Line) { return Line == nullptr || Line->ClipToData() == Value; };
  if (Value == ClipToData() && IsSo(FHorizontal) && IsSo(FVertical)) return;
  const TZyUndoGroup Group(UndoStack(), TZyUndoStack::LabelOf(*this, "ClipToData"));
  for (TZyLineMarker* Line : Lines())
    if (Line != nullptr) Line->SetClipToData(Value);
  TZyMovable::SetClipToData(Value);
}

void TZyCrossHair::SetUndoStack(TZyUndoStack* Value) {
  TZyMovable::SetUndoStack(Value);
  for (TZyLineMarker* Line : Lines())
    if (Line != nullptr) Line->SetUndoStack(Value);
}

/// The handle lies above the lines.
void TZyCrossHair::SetParent(TWinControl* Value) {
  const bool IsNew = Value != Parent();
  if (!IsDestroying())
    for (TZyLineMarker* Line : Lines())
      if (Line != nullptr) Line->SetParent(Value);
  TZyMovable::SetParent(Value);
  if (IsNew && Value != nullptr) Modified();
}

/// The handle comes to the front last, and lies above the lines.
void TZyCrossHair::CMVisibleChanged() {
  for (TZyLineMarker* Line : Lines())
    if (Line != nullptr) Line->SetVisible(Visible());
  TZyMovable::CMVisibleChanged();
}

void TZyCrossHair::CMEnabledChanged() {
  TZyMovable::CMEnabledChanged();
  for (TZyLineMarker* Line : Lines())
    if (Line != nullptr) Line->SetEnabled(Enabled());
}

void TZyCrossHair::SetCaptionPosition(TZyXHairCaptionPosition Value) {
  Change(this, FCaptionQuadrant, Value, "CaptionPosition", &TZyCrossHair::Modified);
}

// --- Looks ----------------------------------------------------------------------------------------------------------

void TZyCrossHair::SetHotDelta() {
  TakeBox(TZyCrossHairBox({.LineWidth = Line().Width(),
                           .HasCaption = HasCaption(),
                           .Caption = CaptionSize(),
                           .Border = CaptionB(),
                           .Delta = ToPixels(FCaptionDelta),
                           .Place = FCaptionQuadrant,
                           .IsVertical = CaptionVertical(),
                           .Shadow = HasCaption() && HasShadow() ? ShadowExtent : 0}));
}

void TZyCrossHair::PaintGr(Graphics& Gr) {
  if (!HasCaption()) return;
  const TClipGuard Clip(Gr);
  Gr.SetClip(ClipRect(), CombineModeIntersect);
  PaintCaption(Gr);
}

bool TZyCrossHair::CMHitTest(int X, int Y) {
  const bool IsInCaption = HasCaption() && X >= FCaptionRect.Left && X < FCaptionRect.Right && Y >= FCaptionRect.Top &&
                           Y < FCaptionRect.Bottom;
  const int Near = ToPixels(Line().Width() / 2) + TZyCrossHairBox::Grab;
  return IsInCaption || (std::abs(X - FHotDelta.X) <= Near && std::abs(Y - FHotDelta.Y) <= Near);
}

// --- Record ---------------------------------------------------------------------------------------------------------

/// The text forms have the quadrant here.
void TZyCrossHair::CaptionPlaceField(TZyArchive& Archive) {
  if (Archive.IsStream()) return TZyMovable::CaptionPlaceField(Archive);
  Archive.Field<&T::CaptionPosition, &T::SetCaptionPosition>(*this,
                                                             TZyFieldName("Caption/Position").Ini("Caption.Position"));
}

void TZyCrossHair::Fields(TZyArchive& Archive) {
  MakeLines();
  TZyMovable::Fields(Archive);
  if (Archive.IsStream()) Archive.Field<&T::CaptionPosition, &T::SetCaptionPosition>(*this, "CaptionPosition");
  PlaceFields(Archive);
  if (!Archive.NextGroup()) return;
  if (!Archive.IsXml()) {
    Archive.Record("HorizontalMarker", *FHorizontal);
    Archive.Record("VerticalMarker", *FVertical);
  }
  Archive.EndRecord();
}

}  // namespace zy
