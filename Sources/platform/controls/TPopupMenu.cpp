#include "platform/controls/TPopupMenu.h"

#include <QApplication>
#include <QMenu>

#include "platform/controls/TWinControl.h"
#include "platform/framework/TPropInfo.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {

ZY_PUBLISHED(TPopupMenu, TComponent, Published<&TPopupMenu::AutoPopup, &TPopupMenu::SetAutoPopup>("AutoPopup", true),
             Published<&TPopupMenu::OnPopup, &TPopupMenu::SetOnPopup>("OnPopup"))

TPopupMenu::TPopupMenu(TComponent* Owner) : TComponent(Owner) {}

TPopupMenu::~TPopupMenu() { Destroying(); }

void TPopupMenu::GetChildren(const std::function<void(TComponent*)>& Proc, TComponent* Root) {
  FItems.GetChildren(Proc, Root);
  Inherited::GetChildren(Proc, Root);
}

void TPopupMenu::SetPopupComponent(TControl* Value) { FPopupComponent = Value; }

void TPopupMenu::DoPopup() {
  if (const TNotifyEvent Event = FOnPopup) Event(this);
}

void TPopupMenu::Popup(int X, int Y) {
  if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr)
    throw EInvalidOperation(Format(LoadResString(_sWidgetNeedsApplication), {Name()}));
  const std::uint64_t Alive = LiveHandle();
  DoPopup();
  if (FromLiveHandle(Alive) == nullptr) return;
  TControl* Window = FPopupComponent;  // the toolkit's menu goes with the window that it lies over
  while (Window != nullptr && Window->Parent() != nullptr) Window = Window->Parent();
  auto* const Form = dynamic_cast<TWinControl*>(Window);
  auto* const Menu = new QMenu(Form != nullptr && Form->HasWidget() ? Form->Widget() : nullptr);
  Menu->setAttribute(Qt::WA_DeleteOnClose);
  FItems.Show(*Menu);
  Menu->popup(QPoint(X, Y));
}

bool TPopupMenu::ClickShortCut(std::string_view Keys) {
  if (FItems.FindShortCut(Keys) == nullptr) return false;
  const std::uint64_t Alive = LiveHandle();
  DoPopup();
  if (FromLiveHandle(Alive) == nullptr) return true;
  TMenuItem* const Item = FItems.FindShortCut(Keys);
  if (Item == nullptr || !Item->Enabled()) return false;
  Item->Click();
  return true;
}

}  // namespace zy
