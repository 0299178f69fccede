// What a chart's user does with segments, and is told of them.

#include <algorithm>

#include "persistence/ZyIO.h"
#include "pie/ZyPieDonut.h"
#include "pie/ZyPieFaces.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Graphics.h"
#include "platform/drawing/Pen.h"
#include "series/vectors/ZyDoubleVector.h"
#include "undo/ZyUndoGroup.h"

namespace zy {

// --- Texts ----------------------------------------------------------------------------------------------------------

std::string TZyPieChart::SegmentHint(int Segment) const {
  if (Segment < 0 || Segment >= GetCount()) return {};
  const TZyPieSegment& Data = FLayout->Segments()[static_cast<std::size_t>(Segment)];
  TZyRichCaptionObject Shown;
  Shown.SetCaption(GetSegmentCaption(Data.DataIndex, TZyLabelStyle::CaptionsList, ""));
  Shown.ParseIfNeeded();
  const auto Number = [&](TZyLabelStyle Style) {
    return LabelText(Style, "", "", Data.Value, Data.Value * PresentPercentFactor());
  };
  std::string Text = Shown.Caption().empty() ? std::string() : Shown.PlainText() + ": ";
  return Text += Number(TZyLabelStyle::Value) + " (" + Number(TZyLabelStyle::Percent) + ")";
}

std::string TZyPieChart::HintAt(TPoint Place) const {
  const int Segment = SegmentAt(static_cast<float>(Place.X), static_cast<float>(Place.Y));
  return Segment < 0 ? Hint() : SegmentHint(Segment);
}

std::vector<std::string> TZyPieChart::AccessibleItems() const {
  std::vector<std::string> Result;
  Result.reserve(static_cast<std::size_t>(GetCount()));
  for (int Segment = 0; Segment < GetCount(); ++Segment) Result.push_back(SegmentHint(Segment));
  return Result;
}

// --- Explosions -----------------------------------------------------------------------------------------------------

/// A vector that is made for it belongs to the owner of the chart, and is stored with its values.
void TZyPieChart::ToggleExplosion(int Segment) {
  constexpr double Out = 10;
  if (Segment < 0 || Segment >= GetCount()) return;
  const int Idx = GetLegendItemIndex(Segment);
  auto* Vector = dynamic_cast<TZyDoubleVector*>(FExplodePercent.Get());
  if ((FExplodePercent != nullptr && Vector == nullptr) || (Vector != nullptr && Vector->DBData())) return;
  const TZyUndoGroup Group(UndoStack(), _sPieExplodePercent);
  if (Vector == nullptr) {
    TComponent* const VectorOwner = Owner() != nullptr ? Owner() : this;
    Vector = new TZyDoubleVector(VectorOwner);
    Vector->SetName(UniqueName(VectorOwner, "ZyDoubleVector"));
    Vector->SetPersistentValues(true);
    if (UndoStack() != nullptr && !GetComponentRef(Vector).empty()) UndoStack()->PushFreeComponent(Vector, "");
    Vector->SetValue(Idx, Out);
    return SetExplodePercent(Vector);
  }
  if (UndoStack() != nullptr) UndoStack()->PushVectorState(Vector, "");
  Vector->SetValue(Idx, Idx < Vector->Count() && Vector->GetValue(Idx) > 0 ? 0 : Out);
}

// The application's handler comes first and may free the chart.

void TZyPieChart::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
  const std::uint64_t Alive = LiveHandle();
  TZyCustomGraph::MouseDown(Button, Shift, X, Y);
  if (FromLiveHandle(Alive) == nullptr) return;
  FPressedSegment = Button == mbLeft ? SegmentAt(static_cast<float>(X), static_cast<float>(Y)) : -1;
}

void TZyPieChart::MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) {
  const std::uint64_t Alive = LiveHandle();
  TZyCustomGraph::MouseUp(Button, Shift, X, Y);
  if (FromLiveHandle(Alive) == nullptr) return;
  const int Pressed = std::exchange(FPressedSegment, -1);
  if (FExplodeOnClick && Button == mbLeft && Pressed >= 0 &&
      SegmentAt(static_cast<float>(X), static_cast<float>(Y)) == Pressed)
    ToggleExplosion(Pressed);
}

// --- Keyboard -------------------------------------------------------------------------------------------------------

void TZyPieChart::KeyDown(TKey& Key, TShiftState Shift) {
  const std::uint64_t Alive = LiveHandle();
  TZyCustomGraph::KeyDown(Key, Shift);
  if (Key == 0 || FromLiveHandle(Alive) == nullptr || !Shift.Empty() || GetCount() == 0) return;
  if (!TabStop() && !Focused()) return;  // keys that only passed by, as during a gesture of something else
  const int Count = GetCount(), Active = std::min(FActiveSegment, Count - 1);
  switch (Key) {
    case vkRight:
    case vkDown:
      SetActiveSegment((Active + 1) % Count);
      break;
    case vkLeft:
    case vkUp:
      SetActiveSegment(Active > 0 ? Active - 1 : Count - 1);
      break;
    case vkHome:
      SetActiveSegment(0);
      break;
    case vkEnd:
      SetActiveSegment(Count - 1);
      break;
    case vkSpace:
      if (!FExplodeOnClick || Active < 0) return;
      ToggleExplosion(Active);
      break;
    case vkEscape:
      if (Active < 0) return;
      SetActiveSegment(-1);
      break;
    default:
      return;
  }
  Key = 0;
}

void TZyPieChart::SetActiveSegment(int Value) {
  InvalidateActive();
  FActiveSegment = std::clamp(Value, -1, GetCount() - 1);
  InvalidateActive();
}

void TZyPieChart::InvalidateActive() {
  if (FActiveSegment >= 0) InvalidateOverlay(ClientRect());
}

void TZyPieChart::DoEnter() {
  TZyCustomGraph::DoEnter();
  InvalidateActive();
}

void TZyPieChart::DoExit() {
  TZyCustomGraph::DoExit();
  InvalidateActive();
}

/// Dots on white are seen on every ground.
void TZyPieChart::PaintOverlay(Graphics& Gr) {
  TZyCustomGraph::PaintOverlay(Gr);
  if (FActiveSegment < 0 || FActiveSegment >= GetCount() || !Focused()) return;
  const float Sweep = FLayout->Segments()[static_cast<std::size_t>(FActiveSegment)].Sweep;
  const GraphicsPath Top = FacesOf(*FLayout, FActiveSegment, Sweep).Top();
  Pen Dots(Colors::Black);
  Dots.SetDashStyle(DashStyleDot);
  SetHighQuality(Gr, true);
  Gr.DrawPath(Pen(Colors::White), Top);
  Gr.DrawPath(Dots, Top);
}

}  // namespace zy
