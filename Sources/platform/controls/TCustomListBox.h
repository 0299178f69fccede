#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/controls/OwnerDraw.h"
#include "platform/controls/TCustomPanel.h"
#include "platform/controls/TWidgetOf.h"
#include "platform/framework/TStrings.h"

class QListWidget;

namespace zy {

extern template class TWidgetOf<QListWidget>;

/// Who draws the items of a list.
enum TListBoxStyle { lbStandard, lbOwnerDrawFixed };
ZY_ENUM(TListBoxStyle, "lbStandard", "lbOwnerDrawFixed")

/// A list in which one item or several are selected; base of lists. 121 by 97 pixels at first.
class TCustomListBox : public TWidgetOf<QListWidget> {
  ZY_CLASS(TCustomListBox, TWinControl)
  explicit TCustomListBox(TComponent* Owner = nullptr);
  ~TCustomListBox() override;

  TStrings& Items() { return FItems; }
  const TStrings& Items() const { return FItems; }
  void SetItems(const TStrings& Value) { FItems.Assign(&Value); }
  /// The item with the keyboard, which is the selected one unless several can be; -1 for none.
  int ItemIndex() const { return FItemIndex; }
  void SetItemIndex(int Value);
  /// Throw ERangeError outside the items. Selecting one of a list without MultiSelect makes it the ItemIndex.
  bool Selected(int Index) const;
  void SetSelected(int Index, bool Value);
  int SelCount() const;
  bool MultiSelect() const { return FMultiSelect; }
  void SetMultiSelect(bool Value);
  /// 0 for one column that scrolls down; else so many share the width, filled from the top, and scroll sideways.
  int Columns() const { return FColumns; }
  void SetColumns(int Value);
  TListBoxStyle Style() const { return FStyle; }
  void SetStyle(TListBoxStyle Value);
  TBorderStyle BorderStyle() const { return FBorderStyle; }
  void SetBorderStyle(TBorderStyle Value);
  /// Height of an item; 0 for what the font needs.
  int ItemHeight() const { return FItemHeight; }
  void SetItemHeight(int Value);
  /// The item at a place in the list's inside, -1 for none there. Needs a widget.
  int ItemAtPos(int X, int Y);
  /// The place of an item, empty without a widget.
  TRect ItemRect(int Index);

  const TDrawItemEvent& OnDrawItem() const { return FOnDrawItem; }
  void SetOnDrawItem(TDrawItemEvent Value) { FOnDrawItem = std::move(Value); }

 protected:
  virtual void DrawItem(Graphics& Canvas, int Index, const TRect& Box, TOwnerDrawState State);
  /// What a screen reader says of an item.
  virtual std::string ItemName(int Index) const { return FItems.Get(Index); }
  /// Told of each change of the items.
  virtual void ItemsChanged();
  /// Fills the widget.
  virtual void ShowItems(QListWidget& Box);

  QListWidget* Make() override;
  void Configure(QListWidget& Box) override;
  void Listen(QListWidget& Box) override;
  void Resize() override;
  /// The place of an item in a vector of as many.
  std::size_t Checked(int Index) const;

 private:
  class TListWidget;

  void FitScrollBar(QListWidget& Box);
  void TakeSelection();
  void TellSelection();

  TStringList FItems;
  std::vector<bool> FSelected;  // with MultiSelect
  int FItemIndex = -1;
  int FColumns = 0;
  int FItemHeight = 0;
  TListBoxStyle FStyle = lbStandard;
  TBorderStyle FBorderStyle = bsSingle;
  bool FMultiSelect = false;
  bool FIsPressed = false;  // a button of the mouse is down in the list
  bool FIsUntold = false;   // the user changed the selection with it
  TDrawItemEvent FOnDrawItem;
};

/// A list with all its properties published.
class TListBox : public TCustomListBox {
  ZY_CLASS(TListBox, TCustomListBox)
  explicit TListBox(TComponent* Owner = nullptr);
  ~TListBox() override;
};

/// A list with a check mark in front of each item, which a click on it and the space key change.
class TCheckListBox : public TCustomListBox {
  ZY_CLASS(TCheckListBox, TCustomListBox)
  explicit TCheckListBox(TComponent* Owner = nullptr);
  ~TCheckListBox() override;

  /// Throw ERangeError outside the items.
  bool Checked(int Index) const { return FChecked[Inherited::Checked(Index)]; }
  void SetChecked(int Index, bool Value);
  /// Runs when the user changed a mark.
  const TNotifyEvent& OnClickCheck() const { return FOnClickCheck; }
  void SetOnClickCheck(TNotifyEvent Value) { FOnClickCheck = std::move(Value); }

 protected:
  virtual void ClickCheck();
  void ItemsChanged() override;
  void ShowItems(QListWidget& Box) override;
  void Listen(QListWidget& Box) override;

 private:
  std::vector<bool> FChecked;
  TNotifyEvent FOnClickCheck;
};

}  // namespace zy
