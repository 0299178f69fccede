#pragma once

#include <string_view>
#include <utility>

#include "platform/controls/TMenuItem.h"
#include "platform/framework/TRef.h"

namespace zy {

class TControl;

/// A menu that comes up over a control: on a click of the right button, on the menu key, or by Popup.
class TPopupMenu : public TComponent {
  ZY_CLASS(TPopupMenu, TComponent)
  explicit TPopupMenu(TComponent* Owner = nullptr);
  ~TPopupMenu() override;

  /// The item that holds the menu's items.
  TMenuItem& Items() { return FItems; }
  /// Streams the items inside the menu.
  void GetChildren(const std::function<void(TComponent*)>& Proc, TComponent* Root) override;

  /// Whether the menu comes up by itself; true at first.
  bool AutoPopup() const { return FAutoPopup; }
  void SetAutoPopup(bool Value) { FAutoPopup = Value; }

  /// Runs OnPopup and shows the menu with its corner at a place on the desktop, in the present state of its items. Does
  /// not wait: what is chosen is clicked from the program's events. Throws EInvalidOperation without an application
  /// object.
  virtual void Popup(int X, int Y);
  /// Clicks the item with these keys (see TMenuItem::ShortCut) after OnPopup; returns whether there is an enabled one.
  bool ClickShortCut(std::string_view Keys);
  /// The control that the menu last came up for, null for none.
  TControl* PopupComponent() const { return FPopupComponent; }
  void SetPopupComponent(TControl* Value);

  /// Runs before the menu is shown: the place to check, enable and add items.
  const TNotifyEvent& OnPopup() const { return FOnPopup; }
  void SetOnPopup(TNotifyEvent Value) { FOnPopup = std::move(Value); }

 private:
  void DoPopup();

  TMenuItem FItems;
  TRef<TControl> FPopupComponent{this};
  bool FAutoPopup = true;
  TNotifyEvent FOnPopup;
};

}  // namespace zy
