#include "dialogs/frames/ZySeriesListBox.h"

#include <algorithm>
#include <cmath>

#include "platform/controls/Cursors.h"
#include "platform/framework/TPropInfo.h"
#include "series/ZySeries.h"

namespace zy {

ZY_PUBLISHED(TZyDragListBox, TListBox)
ZY_PUBLISHED(TZySeriesListBox, TZyDragListBox)

// --- Dragging -------------------------------------------------------------------------------------------------------

TZyDragListBox::TZyDragListBox(TComponent* Owner) : TListBox(Owner) {}

TZyDragListBox::~TZyDragListBox() { Destroying(); }

std::optional<int> TZyDragListBox::Target(TMove Move, int Index, int Count) {
  const bool IsUp = Move == TMove::Top || Move == TMove::Up;
  if (Index < 0 || Index >= Count || Index == (IsUp ? 0 : Count - 1)) return std::nullopt;
  if (Move == TMove::Top) return 0;
  if (Move == TMove::Bottom) return Count - 1;
  return Index + (IsUp ? -1 : 1);
}

void TZyDragListBox::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
  const std::uint64_t Alive = LiveHandle();
  TListBox::MouseDown(Button, Shift, X, Y);
  if (FromLiveHandle(Alive) == nullptr || Button != mbLeft) return;
  FDragStartIdx = ItemAtPos(X, Y);
  if (FDragStartIdx < 0) return;
  FDragOverIdx = FDragStartIdx;
  if (FHasRect) return;
  FHasRect = true;
  FDragRect = {X - 1, Y - 1, X + 1, Y + 1};
}

void TZyDragListBox::MouseMove(TShiftState Shift, int X, int Y) {
  const std::uint64_t Alive = LiveHandle();
  TListBox::MouseMove(Shift, X, Y);
  constexpr TShiftState Buttons{ssLeft, ssRight, ssMiddle};
  if (FromLiveHandle(Alive) == nullptr || (Shift.Bits() & Buttons.Bits()) != TShiftState{ssLeft}.Bits()) return;
  const auto IsOutside = [X, Y](const TRect& Box) {
    return X < Box.Left || X > Box.Right || Y < Box.Top || Y > Box.Bottom;
  };
  if (!FDragging && FHasRect && IsOutside(FDragRect)) FDragging = true;
  if (!FDragging) return;
  const int Over = ItemAtPos(X, Y);
  if (Over >= 0) FDragOverIdx = Over;
  SetCursor(Over >= 0 && FDragOverIdx != FDragStartIdx ? crSizeNS : crNo);
  Invalidate();
}

/// The toolkit's selection followed the mouse; it goes back to where the drag began, or along with the item.
void TZyDragListBox::MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) {
  const std::uint64_t Alive = LiveHandle();
  TListBox::MouseUp(Button, Shift, X, Y);
  if (FromLiveHandle(Alive) == nullptr || Button != mbLeft) return;
  const bool WasDragging = std::exchange(FDragging, false);
  FHasRect = false;
  if (!WasDragging) return;
  SetCursor(crDefault);
  Invalidate();
  const auto IsThere = [this](int Index) { return Index >= 0 && Index < Items().Count(); };  // it may have shrunk
  if (IsThere(FDragStartIdx)) SetItemIndex(FDragStartIdx);
  const bool IsInside = X >= 0 && Y >= 0 && X < Width() && Y < Height();
  if (IsInside && IsThere(FDragStartIdx) && IsThere(FDragOverIdx) && FDragStartIdx != FDragOverIdx && OnDragged)
    OnDragged(FDragStartIdx, FDragOverIdx);
}

// --- Series ---------------------------------------------------------------------------------------------------------

TZySeriesListBox::TZySeriesListBox(TComponent* Owner) : TZyObjectItems(Owner) {
  SetStyle(lbOwnerDrawFixed);
  OnDragged = [this](int From, int To) { Moved(From, To); };
}

TZySeriesListBox::~TZySeriesListBox() { Destroying(); }

TZySeries* TZySeriesListBox::SeriesAt(int Index) const { return dynamic_cast<TZySeries*>(ObjectAt(Index)); }

void TZySeriesListBox::TestSeriesItemHeight() {
  constexpr float Least = 20;
  float Highest = Least;
  for (int Index = 0; Index < ObjectCount(); ++Index)
    if (const TZySeries* const Series = SeriesAt(Index)) Highest = std::max(Highest, Series->GetItemHeight());
  const int Needed = static_cast<int>(std::ceil(Highest));
  if (Needed != ItemHeight()) SetItemHeight(Needed);
}

void TZySeriesListBox::MoveSelected(TMove Move) {
  const int From = ItemIndex();
  if (const std::optional<int> To = Target(Move, From, ObjectCount())) Moved(From, *To);
}

void TZySeriesListBox::Moved(int From, int To) {
  MoveObject(From, To);
  if (OnReordered) OnReordered();
}

/// A sample of the series as in legends, and its caption.
void TZySeriesListBox::DrawItem(Graphics& Canvas, int Index, const TRect& Box, TOwnerDrawState State) {
  constexpr int SampleLeft = 2, SampleTop = 1, SampleWidth = 46, Less = 3, TextLeft = 50;
  const ARGB Color = DrawItemBack(Canvas, Box, IsMarked(Index, State));
  TZySeries* const Series = SeriesAt(Index);
  if (Series == nullptr) return;
  TZyLegendItemDrawArgs Args;
  Args.Graphics = &Canvas;
  Args.Index = Index;
  Args.Rect = {Box.Left + SampleLeft, Box.Top + SampleTop, Box.Left + SampleLeft + SampleWidth, Box.Bottom - Less + 1};
  Series->DrawListItem(Args);
  DrawItemCaption(Canvas, *this, Series->ToString(), Box.Left + TextLeft, Box, Color);
}

}  // namespace zy
