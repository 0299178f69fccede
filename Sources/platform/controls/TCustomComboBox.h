#pragma once

#include <string>
#include <utility>

#include "platform/controls/OwnerDraw.h"
#include "platform/controls/TWidgetOf.h"
#include "platform/framework/TStrings.h"

class QComboBox;

namespace zy {

extern template class TWidgetOf<QComboBox>;

/// How a combo box shows its choice.
enum TComboBoxStyle {
  csDropDown,       ///< a text that can be typed
  csDropDownList,   ///< one of the items
  csOwnerDrawFixed  ///< one of the items, as DrawItem draws it
};
ZY_ENUM(TComboBoxStyle, "csDropDown", "csDropDownList", "csOwnerDrawFixed")

/// One of several items, chosen from a list that drops down; base of combo boxes. 145 by 21 pixels at first.
class TCustomComboBox : public TWidgetOf<QComboBox> {
  ZY_CLASS(TCustomComboBox, TWinControl)
  explicit TCustomComboBox(TComponent* Owner = nullptr);
  ~TCustomComboBox() override;

  TStrings& Items() { return FItems; }
  const TStrings& Items() const { return FItems; }
  void SetItems(const TStrings& Value) { FItems.Assign(&Value); }
  /// From 0; -1 for none, as is everything beyond the items.
  int ItemIndex() const { return FItemIndex; }
  void SetItemIndex(int Value);
  /// What is shown: the item, or what was typed. Setting chooses the item of that text, if there is one.
  std::string Text() const;
  void SetText(const std::string& Value);
  TComboBoxStyle Style() const { return FStyle; }
  void SetStyle(TComboBoxStyle Value);
  /// Lines of the open list; more are scrolled. 1 at least.
  int DropDownCount() const { return FDropDownCount; }
  void SetDropDownCount(int Value);
  /// Height of a line in the list; 0 for what the font needs.
  int ItemHeight() const { return FItemHeight; }
  void SetItemHeight(int Value);
  /// Whether the list is open.
  bool DroppedDown() const;
  void SetDroppedDown(bool Value);

  /// Runs when the user chose an item.
  const TNotifyEvent& OnSelect() const { return FOnSelect; }
  void SetOnSelect(TNotifyEvent Value) { FOnSelect = std::move(Value); }
  /// Runs when the user chose an item or typed.
  const TNotifyEvent& OnChange() const { return FOnChange; }
  void SetOnChange(TNotifyEvent Value) { FOnChange = std::move(Value); }
  const TNotifyEvent& OnDropDown() const { return FOnDropDown; }
  void SetOnDropDown(TNotifyEvent Value) { FOnDropDown = std::move(Value); }
  const TDrawItemEvent& OnDrawItem() const { return FOnDrawItem; }
  void SetOnDrawItem(TDrawItemEvent Value) { FOnDrawItem = std::move(Value); }

 protected:
  /// Told when the user chose an item.
  virtual void Select();
  virtual void Change();
  /// Told before the list opens; returns whether it is to open.
  virtual bool DropDown();
  virtual void DrawItem(Graphics& Canvas, int Index, const TRect& Box, TOwnerDrawState State);
  /// What a screen reader says of an item.
  virtual std::string ItemName(int Index) const { return FItems.Get(Index); }

  QComboBox* Make() override;
  void Configure(QComboBox& Box) override;
  void Listen(QComboBox& Box) override;
  bool ChangesByWheel() const override { return true; }

 private:
  class TComboWidget;

  void ItemsChanged();
  void ShowItems(QComboBox& Box);

  TStringList FItems;
  int FItemIndex = -1;
  std::string FTyped;
  TComboBoxStyle FStyle = csDropDown;
  int FDropDownCount = 8;
  int FItemHeight = 0;
  TNotifyEvent FOnSelect, FOnChange, FOnDropDown;
  TDrawItemEvent FOnDrawItem;
};

/// A combo box with all its properties published.
class TComboBox : public TCustomComboBox {
  ZY_CLASS(TComboBox, TCustomComboBox)
  explicit TComboBox(TComponent* Owner = nullptr);
  ~TComboBox() override;
};

}  // namespace zy
