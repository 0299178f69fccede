#include "annotations/ZyLineMarkers.h"

#include <algorithm>

#include "annotations/ZyLineMarkerBox.h"
#include "annotations/ZyMarkerPixels.h"
#include "persistence/ZyArchive.h"
#include "platform/controls/TWinControl.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/TPropInfo.h"

namespace zy {

using TH = TZyHorizontalMarker;
using TV = TZyVerticalMarker;
ZY_PUBLISHED(TZyLineMarker, TZyMovable)
ZY_PUBLISHED(TZyHorizontalMarker, TZyLineMarker, Republished("Line YAxis Y"),
             Published<&TH::CaptionPosition, &TH::SetCaptionPosition>("CaptionPosition", TZyContentAlignment::TopRight,
                                                                      _sMarkersCaptionPosition),
             Republished("SnappedSeries SnappedIdx"))
ZY_PUBLISHED(TZyVerticalMarker, TZyLineMarker, Republished("Line XAxis X"),
             Published<&TV::CaptionPosition, &TV::SetCaptionPosition>("CaptionPosition", TZyContentAlignment::TopCenter,
                                                                      _sMarkersCaptionPosition),
             Republished("SnappedSeries SnappedIdx"))

namespace {

bool IsIn(const TRect& Rect, int X, int Y) {
  return X >= Rect.Left && X < Rect.Right && Y >= Rect.Top && Y < Rect.Bottom;
}

}  // namespace

TZyHorizontalMarker::TZyHorizontalMarker(TComponent* Owner) : TZyLineMarker(Owner, true) {}

TZyVerticalMarker::TZyVerticalMarker(TComponent* Owner) : TZyLineMarker(Owner, false) {}

TZyLineMarker::TZyLineMarker(TComponent* Owner, bool IsHorizontal) : TZyMovable(Owner), FIsHorizontal(IsHorizontal) {
  SetCursor(IsHorizontal ? crSizeNS : crSizeWE);
  FCaptionPosition = IsHorizontal ? TZyContentAlignment::TopRight : TZyContentAlignment::TopCenter;
}

void TZyLineMarker::SetHotDelta() {
  constexpr int LeastThickness = 5;
  const RectF Outer = OuterRect();
  const int Before = ToPixels(FIsHorizontal ? Outer.X : Outer.Y);
  const int Length = ToPixels(FIsHorizontal ? Outer.Width : Outer.Height);
  const int Room = Parent() == nullptr ? Length : FIsHorizontal ? Parent()->ClientWidth() : Parent()->ClientHeight();
  const TZyLineMarkerBox Box({.IsHorizontal = FIsHorizontal,
                              .Length = Length,
                              .Thickness = std::max(LeastThickness, ToPixels(Line().Width())),
                              .HasCaption = HasCaption(),
                              .Caption = CaptionSize(),
                              .Border = CaptionB(),
                              .Delta = ToPixels(FCaptionDelta),
                              .Place = FCaptionPosition,
                              .IsVertical = CaptionVertical(),
                              .Shadow = HasCaption() && HasShadow() ? ShadowExtent : 0,
                              .Before = Before,
                              .After = Room - Before - Length});
  TakeBox(Box);
  FLineRect = Box.Line;
}

TPoint TZyLineMarker::CornerFor(TPoint HotPoint) const {
  const RectF Outer = OuterRect();
  if (FIsHorizontal) return {ToPixels(Outer.X) - FLineRect.Left, HotPoint.Y - FHotDelta.Y};
  return {HotPoint.X - FHotDelta.X, ToPixels(Outer.Y) - FLineRect.Top};
}

bool TZyLineMarker::IsInRange() const {
  const TZyAxis* const Axis = FIsHorizontal ? YAxis() : XAxis();
  if (Axis == nullptr) return true;
  const double Value = FIsHorizontal ? Y() : X();
  return Value >= std::min(Axis->Start(), Axis->Stop()) && Value <= std::max(Axis->Start(), Axis->Stop());
}

void TZyLineMarker::PaintGr(Graphics& Gr) {
  const bool IsShown = IsInRange();
  if (IsShown || !ClipToData()) PaintLine(Gr);
  if (IsShown && HasCaption()) PaintCaption(Gr);
}

/// The line is broken where the caption stands on it.
void TZyLineMarker::PaintLine(Graphics& Gr) {
  const auto Pen = Line().GetPen(ClipRect(), 0);
  const auto At = static_cast<float>(FIsHorizontal ? FHotDelta.Y : FHotDelta.X);
  const auto Draw = [&](int From, int To) {
    const auto A = static_cast<float>(From), B = static_cast<float>(To);
    if (FIsHorizontal) {
      Gr.DrawLine(*Pen, A, At, B, At);
    } else {
      Gr.DrawLine(*Pen, At, A, At, B);
    }
  };
  const int From = FIsHorizontal ? FLineRect.Left : FLineRect.Top;
  const int To = FIsHorizontal ? FLineRect.Right : FLineRect.Bottom;
  const int CaptionFrom = FIsHorizontal ? FCaptionRect.Left : FCaptionRect.Top;
  const int CaptionTo = FIsHorizontal ? FCaptionRect.Right : FCaptionRect.Bottom;
  const auto Above = static_cast<float>(FIsHorizontal ? FCaptionRect.Top : FCaptionRect.Left);
  const auto Below = static_cast<float>(FIsHorizontal ? FCaptionRect.Bottom : FCaptionRect.Right);
  const float Half = Line().Width() / 2;
  const bool IsBroken = HasCaption() && CaptionTo > From && CaptionFrom < To && At < Below + Half - 1.5f &&
                        At > Above - Half + (FIsHorizontal ? 3.0f : 1.0f);
  if (!IsBroken) return Draw(From, To);
  if (From < CaptionFrom) Draw(From, CaptionFrom);
  if (CaptionTo < To) Draw(CaptionTo, To);
}

bool TZyLineMarker::CMHitTest(int X, int Y) {
  return !HasCaption() || IsIn(FCaptionRect, X, Y) || IsIn(FLineRect, X, Y);
}

void TZyHorizontalMarker::Fields(TZyArchive& Archive) {
  TZyLineMarker::Fields(Archive);
  Archive.Level("Location", [&] {
    Archive.Reference<&TH::YAxis, &TH::SetYAxis>(*this, "YAxis");
    Archive.Field<&TH::Y, &TH::SetY>(*this, "Y");
    Archive.EndRecord();
  });
}

void TZyVerticalMarker::Fields(TZyArchive& Archive) {
  TZyLineMarker::Fields(Archive);
  Archive.Level("Location", [&] {
    Archive.Reference<&TV::XAxis, &TV::SetXAxis>(*this, "XAxis");
    Archive.Field<&TV::X, &TV::SetX>(*this, "X");
    Archive.EndRecord();
  });
}

}  // namespace zy
