#pragma once

#include <functional>
#include <string>

#include "platform/controls/TWinControl.h"

namespace zy {

/// The list in which the user marks the newest steps: all from the first to ItemIndex. The item under the mouse, or the
/// one that the arrow keys come to, becomes ItemIndex; a click, return or the space bar chooses.
///
/// The texts are asked for as they are shown, so that a list of many steps costs what is seen of it.
class TZyLevelsList : public TWinControl {
  ZY_CLASS(TZyLevelsList, TWinControl)
  explicit TZyLevelsList(TComponent* Owner = nullptr);
  ~TZyLevelsList() override;

  int Count() const { return FCount; }
  /// Reads all items anew; ItemIndex stays as far as it can.
  void SetCount(int Value);
  /// The last of the marked items, -1 for none.
  int ItemIndex() const { return FItemIndex; }
  void SetItemIndex(int Value);

  /// The text of an item.
  std::function<std::string(int Index)> OnGetText;
  /// Runs after each change of ItemIndex.
  std::function<void()> OnSelect;
  /// Run when the user chooses, and when the escape key says not to.
  std::function<void()> OnChoose, OnCancel;

  void KeyDown(TKey& Key, TShiftState Shift) override;

 protected:
  QWidget* CreateWidget() override;
  std::string AccessibleName() const override { return Hint(); }

 private:
  class TItems;
  class TRows;
  class TView;

  TView* View();
  void Select(int Index);

  int FCount = 0;
  int FItemIndex = -1;
};

}  // namespace zy
