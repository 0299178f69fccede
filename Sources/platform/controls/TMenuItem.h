#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/controls/ControlTypes.h"
#include "platform/framework/TComponent.h"

class QMenu;

namespace zy {

/// A line of a menu, or with lines of its own a menu inside the menu.
///
/// An item belongs to its owner, like every component, and lies in the item that lists it; it takes the items in it
/// along when it dies.
class TMenuItem : public TComponent {
  ZY_CLASS(TMenuItem, TComponent)
  explicit TMenuItem(TComponent* Owner = nullptr);
  ~TMenuItem() override;

  /// The item that this one lies in, null for none.
  TMenuItem* Parent() const { return FParent; }
  TComponent* ParentComponent() const override { return FParent; }
  void SetParentComponent(TComponent* Value) override;
  void GetChildren(const std::function<void(TComponent*)>& Proc, TComponent* Root) override;
  int ChildIndex(const TComponent& Child) const override;
  void SetChildIndex(TComponent& Child, int Index) override;

  /// The items in this one, from the top down.
  const std::vector<TMenuItem*>& Items() const { return FItems; }
  /// Makes an item, which this one owns, and puts it at the end.
  TMenuItem& Add(const std::string& ItemCaption, TNotifyEvent Event = nullptr);
  /// Takes an item in before the one at Index (from 0), or at the end, and out of where it lay. Throws
  /// EInvalidOperation for the item itself and for one that this item lies in, ERangeError for an index beyond the end.
  void Insert(std::size_t Index, TMenuItem& Item);
  /// Gives an item up, which then lies nowhere. Nothing when it does not lie here.
  void Remove(TMenuItem& Item);
  /// Deletes the items in this one.
  void Clear();

  /// The text; '&' stands before the letter that chooses the item by keyboard. "-" is a line between groups of items.
  const std::string& Caption() const { return FCaption; }
  void SetCaption(const std::string& Value) { FCaption = Value; }
  bool IsLine() const { return FCaption == "-"; }
  /// Whether a tick stands beside the text.
  bool Checked() const { return FChecked; }
  void SetChecked(bool Value) { FChecked = Value; }
  /// Whether the item can be chosen.
  bool Enabled() const { return FEnabled; }
  void SetEnabled(bool Value) { FEnabled = Value; }
  bool Visible() const { return FVisible; }
  void SetVisible(bool Value) { FVisible = Value; }
  /// The keys that choose the item while the menu is not shown, such as "Ctrl+C" or "F5"; empty for none. Throws
  /// EConvertError for a text that names no keys.
  const std::string& ShortCut() const { return FShortCut; }
  void SetShortCut(const std::string& Value);

  /// What choosing the item does: OnClick, if the item is enabled. An item with items of its own runs it before these
  /// are shown.
  virtual void Click();
  const TNotifyEvent& OnClick() const { return FOnClick; }
  void SetOnClick(TNotifyEvent Value) { FOnClick = std::move(Value); }

  /// The visible item in this one whose ShortCut is these keys, in the way ShortCut gives them back; null for none.
  TMenuItem* FindShortCut(std::string_view Keys) const;

 private:
  friend class TPopupMenu;

  void Show(QMenu& Menu);

  TMenuItem* FParent = nullptr;  // stands as long as the parent lists this item; both destructors see to it
  std::vector<TMenuItem*> FItems;
  std::string FCaption;
  std::string FShortCut;
  bool FChecked = false;
  bool FEnabled = true;
  bool FVisible = true;
  TNotifyEvent FOnClick;
};

}  // namespace zy
