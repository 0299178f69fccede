#include "platform/controls/TMenuItem.h"

#include <QAction>
#include <QCoreApplication>
#include <QKeySequence>
#include <QMenu>
#include <algorithm>
#include <exception>

#include "platform/controls/TApplication.h"
#include "platform/controls/TPopupMenu.h"
#include "platform/framework/TPropInfo.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

/// Clicks an item unless it is gone. Exceptions end here: the toolkit cannot carry them.
void ClickAlive(std::uint64_t Handle) {
  auto* const Item = dynamic_cast<TMenuItem*>(TPersistent::FromLiveHandle(Handle));
  if (Item == nullptr) return;
  try {
    Item->Click();
  } catch (const std::exception& Error) {
    TApplication::HandleException(Error);
  }
}

}  // namespace

ZY_PUBLISHED(TMenuItem, TComponent, Published<&TMenuItem::Caption, &TMenuItem::SetCaption>("Caption", std::string()),
             Published<&TMenuItem::Checked, &TMenuItem::SetChecked>("Checked", false),
             Published<&TMenuItem::Enabled, &TMenuItem::SetEnabled>("Enabled", true),
             Published<&TMenuItem::Visible, &TMenuItem::SetVisible>("Visible", true),
             Published<&TMenuItem::ShortCut, &TMenuItem::SetShortCut>("ShortCut", std::string()),
             Published<&TMenuItem::OnClick, &TMenuItem::SetOnClick>("OnClick"))

TMenuItem::TMenuItem(TComponent* Owner) : TComponent(Owner) {}

TMenuItem::~TMenuItem() {
  Destroying();
  if (FParent != nullptr) FParent->Remove(*this);
  Clear();
}

void TMenuItem::SetParentComponent(TComponent* Value) {
  auto* const Menu = dynamic_cast<TPopupMenu*>(Value);
  TMenuItem* const Outer = Menu != nullptr ? &Menu->Items() : dynamic_cast<TMenuItem*>(Value);
  if (Outer != nullptr) Outer->Insert(Outer->FItems.size(), *this);
}

int TMenuItem::ChildIndex(const TComponent& Child) const { return IndexIn(FItems, Child); }

void TMenuItem::SetChildIndex(TComponent& Child, int Index) { MoveIn(FItems, Child, Index); }

void TMenuItem::GetChildren(const std::function<void(TComponent*)>& Proc, TComponent* Root) {
  for (TMenuItem* Item : std::vector(FItems))
    if (Item->Owner() == Root) Proc(Item);
  Inherited::GetChildren(Proc, Root);
}

TMenuItem& TMenuItem::Add(const std::string& ItemCaption, TNotifyEvent Event) {
  auto* const Item = new TMenuItem(this);
  Item->FCaption = ItemCaption;
  Item->FOnClick = std::move(Event);
  Insert(FItems.size(), *Item);
  return *Item;
}

void TMenuItem::Insert(std::size_t Index, TMenuItem& Item) {
  for (const TMenuItem* Outer = this; Outer != nullptr; Outer = Outer->FParent)
    if (Outer == &Item) throw EInvalidOperation(Format(LoadResString(_sMenuItemInItself), {Item.FCaption}));
  const std::size_t Count = FItems.size() - (Item.FParent == this ? 1 : 0);
  if (Index > Count) throw ERangeError(Format(LoadResString(_sMenuIndex), {static_cast<long long>(Index)}));
  if (Item.FParent != nullptr) Item.FParent->Remove(Item);
  FItems.insert(FItems.begin() + static_cast<std::ptrdiff_t>(Index), &Item);
  Item.FParent = this;
}

void TMenuItem::Remove(TMenuItem& Item) {
  if (Item.FParent != this) return;
  std::erase(FItems, &Item);
  Item.FParent = nullptr;
}

void TMenuItem::Clear() {
  while (!FItems.empty()) delete FItems.back();
}

void TMenuItem::SetShortCut(const std::string& Value) {
  const QKeySequence Keys(QString::fromStdString(Value), QKeySequence::PortableText);
  const bool Known = Keys.count() == 1 && Keys[0].key() != Qt::Key_unknown;
  if (!Value.empty() && !Known) throw EConvertError(Format(LoadResString(_sMenuShortCut), {Value}));
  FShortCut = Keys.toString(QKeySequence::PortableText).toStdString();
}

void TMenuItem::Click() {
  if (!FEnabled) return;
  if (const TNotifyEvent Event = FOnClick) Event(this);
}

TMenuItem* TMenuItem::FindShortCut(std::string_view Keys) const {
  if (Keys.empty()) return nullptr;
  for (TMenuItem* Item : FItems) {
    if (!Item->FVisible) continue;
    if (Item->FShortCut == Keys) return Item;
    if (TMenuItem* const Inner = Item->FindShortCut(Keys)) return Inner;
  }
  return nullptr;
}

/// Makes the toolkit's lines of the items in this one. They hold handles only, and clicks wait until the toolkit is
/// done with the menu: a handler may delete whatever it likes.
void TMenuItem::Show(QMenu& Menu) {
  for (TMenuItem* Item : FItems) {
    if (!Item->FVisible) continue;
    if (Item->IsLine()) {
      Menu.addSeparator();
      continue;
    }
    const QString Text = QString::fromStdString(Item->FCaption);
    const std::uint64_t Handle = Item->LiveHandle();
    if (!Item->FItems.empty()) {
      QMenu* const Inner = Menu.addMenu(Text);
      Inner->setEnabled(Item->FEnabled);
      QObject::connect(Inner, &QMenu::aboutToShow, Inner, [Inner, Handle] {
        ClickAlive(Handle);
        Inner->clear();
        if (auto* const Alive = dynamic_cast<TMenuItem*>(TPersistent::FromLiveHandle(Handle))) Alive->Show(*Inner);
      });
      continue;
    }
    QAction* const Line = Menu.addAction(Text);
    Line->setEnabled(Item->FEnabled);
    Line->setCheckable(Item->FChecked);
    Line->setChecked(Item->FChecked);
    Line->setShortcut(QKeySequence(QString::fromStdString(Item->FShortCut), QKeySequence::PortableText));
    Line->setShortcutVisibleInContextMenu(true);
    QObject::connect(
        Line, &QAction::triggered, QCoreApplication::instance(), [Handle] { ClickAlive(Handle); },
        Qt::QueuedConnection);
  }
}

}  // namespace zy
