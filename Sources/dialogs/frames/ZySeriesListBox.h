#pragma once

#include <functional>
#include <optional>
#include <utility>

#include "dialogs/frames/ZyObjectItems.h"

namespace zy {

class TZySeries;

/// A list whose items the user drags to other places. A press goes over to a drag once it leaves a box of one pixel
/// around its place; a drag that ends outside the list changes nothing.
class TZyDragListBox : public TListBox {
  ZY_CLASS(TZyDragListBox, TListBox)
  explicit TZyDragListBox(TComponent* Owner = nullptr);
  ~TZyDragListBox() override;

  /// Runs when the user has dragged an item to another place; whoever hears of it moves the item.
  std::function<void(int From, int To)> OnDragged;
  /// Whether an item is drawn as the chosen one: the selected one, or during a drag the one under the mouse.
  bool IsMarked(int Index, TOwnerDrawState State) const {
    return FDragging ? Index == FDragOverIdx : State.Contains(odSelected);
  }
  /// Places to which the four buttons beside such a list move an item; nothing when it is there already.
  enum class TMove { Top, Up, Down, Bottom };
  static std::optional<int> Target(TMove Move, int Index, int Count);

  void MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) override;
  void MouseMove(TShiftState Shift, int X, int Y) override;
  void MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) override;

 private:
  bool FDragging = false;
  bool FHasRect = false;
  int FDragStartIdx = -1, FDragOverIdx = -1;
  TRect FDragRect;
};

/// The series of a chart in an order that the user changes, by the mouse or by four buttons. Each is drawn as in a
/// legend.
class TZySeriesListBox : public TZyObjectItems<TZyDragListBox> {
  ZY_CLASS(TZySeriesListBox, TZyDragListBox)
  explicit TZySeriesListBox(TComponent* Owner = nullptr);
  ~TZySeriesListBox() override;

  TZySeries* SeriesAt(int Index) const;
  TZySeries* SelectedSeries() const { return SeriesAt(ItemIndex()); }
  /// Makes the items as high as the highest sample of a series, 20 pixels at least.
  void TestSeriesItemHeight();
  /// Moves the selected item as a button beside the list says.
  void MoveSelected(TMove Move);
  /// Runs when the user has changed the order.
  std::function<void()> OnReordered;

 protected:
  void DrawItem(Graphics& Canvas, int Index, const TRect& Box, TOwnerDrawState State) override;

 private:
  void Moved(int From, int To);
};

}  // namespace zy
