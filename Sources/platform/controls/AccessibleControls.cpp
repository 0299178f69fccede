#include "platform/controls/AccessibleControls.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QVariant>
#include <QWidget>
#include <algorithm>
#include <functional>
#include <map>
#include <utility>
#include <vector>

#include "platform/controls/TGraphicControl.h"
#include "platform/controls/TWinControl.h"

namespace zy {
namespace {

constexpr const char* HandleProperty = "zyControl";  // of a widget: the live handle of its control

/// What the two kinds of nodes below a widget have in common. A node stands as long as its widget, and is empty once
/// its control died.
class TNode : public QAccessibleInterface {
 public:
  explicit TNode(const TControl& Control) : FHandle(Control.LiveHandle()) {
    FId = QAccessible::registerAccessibleInterface(this);
  }
  TControl* Control() const { return dynamic_cast<TControl*>(TPersistent::FromLiveHandle(FHandle)); }
  QAccessible::Id Id() const { return FId; }

  bool isValid() const override { return Control() != nullptr && Control()->Parent() != nullptr; }
  QObject* object() const override { return nullptr; }
  QRect rect() const override {
    if (!isValid()) return {};
    const TPoint Corner = Control()->ClientToScreen({0, 0});
    return {Corner.X, Corner.Y, Control()->Width(), Control()->Height()};
  }
  void setText(QAccessible::Text, const QString&) override {}
  QAccessibleInterface* childAt(int X, int Y) const override {
    for (int Index = 0; Index < childCount(); ++Index)
      if (child(Index)->rect().contains(X, Y)) return child(Index);
    return nullptr;
  }

 private:
  std::uint64_t FHandle;
  QAccessible::Id FId = 0;
};

/// An item of a control, below the node of the control.
class TItemNode : public TNode {
 public:
  using TFindParent = std::function<QAccessibleInterface*()>;
  TItemNode(const TControl& Control, TFindParent Parent, int Index)
      : TNode(Control), FFindParent(std::move(Parent)), FIndex(static_cast<std::size_t>(Index)) {}

  QAccessibleInterface* parent() const override { return FFindParent(); }
  QAccessibleInterface* child(int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  QAccessible::Role role() const override { return QAccessible::ListItem; }
  QString text(QAccessible::Text Kind) const override {
    if (Kind != QAccessible::Name || !isValid()) return {};
    const std::vector<std::string> Items = Control()->AccessibleItems();
    return FIndex < Items.size() ? QString::fromStdString(Items[FIndex]) : QString();
  }
  QAccessible::State state() const override { return parent() != nullptr ? parent()->state() : QAccessible::State(); }

 private:
  TFindParent FFindParent;
  std::size_t FIndex;
};

/// The nodes of a control's items, made when they are asked for.
class TItemNodes {
 public:
  ~TItemNodes() {
    for (const TItemNode* Item : FItems) QAccessible::deleteAccessibleInterface(Item->Id());
  }
  static int Count(const TControl& Control) { return static_cast<int>(Control.AccessibleItems().size()); }
  TItemNode* At(const TControl& Control, const TItemNode::TFindParent& Parent, int Index) {
    while (FItems.size() <= static_cast<std::size_t>(Index))
      FItems.push_back(new TItemNode(Control, Parent, static_cast<int>(FItems.size())));
    return FItems[static_cast<std::size_t>(Index)];
  }
  int IndexOf(const QAccessibleInterface* Child) const {
    const auto Found = std::ranges::find(FItems, Child);
    return Found == FItems.end() ? -1 : static_cast<int>(Found - FItems.begin());
  }

 private:
  std::vector<TItemNode*> FItems;  // the toolkit's, under their numbers
};

/// A control without a window.
class TControlNode : public TNode, public QAccessibleActionInterface {
 public:
  TControlNode(const TGraphicControl& Control, QWidget& Window) : TNode(Control), FWindow(&Window) {}

  QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(FWindow); }
  int childCount() const override { return isValid() ? TItemNodes::Count(*Control()) : 0; }
  QAccessibleInterface* child(int Index) const override {
    if (Index < 0 || Index >= childCount()) return nullptr;
    return FItems.At(
        *Control(), [List = Id()] { return QAccessible::accessibleInterface(List); }, Index);
  }
  int indexOfChild(const QAccessibleInterface* Child) const override { return FItems.IndexOf(Child); }
  QAccessible::Role role() const override { return IsButton() ? QAccessible::ButtonDropDown : QAccessible::List; }
  QString text(QAccessible::Text Kind) const override {
    if (!isValid()) return {};
    if (Kind == QAccessible::Name) return QString::fromStdString(Part().AccessibleName());
    return Kind == QAccessible::Description ? QString::fromStdString(Control()->Hint()) : QString();
  }
  QAccessible::State state() const override {
    QAccessible::State Result;
    Result.readOnly = !IsButton();
    if (!isValid()) return Result;
    Result.hasPopup = IsButton();
    Result.disabled = IsButton() && !Control()->Enabled();
    Result.invisible = !Control()->Visible();
    Result.focusable = Part().TakesKeys();
    Result.focused = Control()->Parent()->ActiveControl() == Control() && Control()->Parent()->Focused();
    return Result;
  }

  // A button is pressed, and its list brought up, by the keys that do so.
  void* interface_cast(QAccessible::InterfaceType Type) override {
    if (Type == QAccessible::ActionInterface && IsButton()) return static_cast<QAccessibleActionInterface*>(this);
    return nullptr;
  }
  QStringList actionNames() const override { return {pressAction(), showMenuAction()}; }
  void doAction(const QString& Name) override {
    if (!isValid() || !Control()->Enabled()) return;
    TKey Key = Name == showMenuAction() ? vkDown : vkReturn;
    TWinControl::HandleEvent([&] { Part().KeyDown(Key, {}); });
  }
  QStringList keyBindingsForAction(const QString&) const override { return {}; }

 private:
  bool IsButton() const { return isValid() && Part().AccessibleRole() == TAccessibleRole::DropDownButton; }
  TGraphicControl& Part() const { return dynamic_cast<TGraphicControl&>(*Control()); }

  QWidget* FWindow;
  mutable TItemNodes FItems;
};

/// The widget of a windowed control, with what lies in it behind its own children.
class TWindowNode : public QAccessibleWidget {
 public:
  TWindowNode(QWidget* Widget, TWinControl& Control)
      : QAccessibleWidget(Widget, QAccessible::Client), FHandle(Control.LiveHandle()) {}
  ~TWindowNode() override {
    for (const auto& [Handle, Node] : FNodes) QAccessible::deleteAccessibleInterface(Node->Id());
  }

  int childCount() const override {
    return QAccessibleWidget::childCount() + static_cast<int>(Parts().size()) + ItemCount();
  }
  QAccessibleInterface* child(int Index) const override {
    const int Own = QAccessibleWidget::childCount();
    if (Index < Own) return QAccessibleWidget::child(Index);
    const std::vector<TGraphicControl*> All = Parts();
    const int Place = Index - Own, Item = Place - static_cast<int>(All.size());
    if (Item < 0) return NodeOf(*All[static_cast<std::size_t>(Place)]);
    if (Item >= ItemCount()) return nullptr;
    return FItems.At(
        *Control(), [Window = widget()] { return QAccessible::queryAccessibleInterface(Window); }, Item);
  }
  int indexOfChild(const QAccessibleInterface* Child) const override {
    const std::vector<TGraphicControl*> All = Parts();
    const int Own = QAccessibleWidget::childCount(), Item = FItems.IndexOf(Child);
    if (Item >= 0) return Own + static_cast<int>(All.size()) + Item;
    for (std::size_t Place = 0; Place < All.size(); ++Place)
      if (NodeOf(*All[Place]) == Child) return Own + static_cast<int>(Place);
    return QAccessibleWidget::indexOfChild(Child);
  }
  QAccessibleInterface* childAt(int X, int Y) const override {
    for (TGraphicControl* Part : Parts())
      if (NodeOf(*Part)->rect().contains(X, Y)) return NodeOf(*Part);
    return QAccessibleWidget::childAt(X, Y);
  }

 private:
  const TWinControl* Control() const { return dynamic_cast<const TWinControl*>(TPersistent::FromLiveHandle(FHandle)); }
  int ItemCount() const { return Control() == nullptr ? 0 : TItemNodes::Count(*Control()); }
  /// The controls without a window, which stand behind the widgets; the items of the window itself come last.
  std::vector<TGraphicControl*> Parts() const {
    std::vector<TGraphicControl*> Result;
    if (Control() == nullptr) return Result;
    for (TControl* Child : Control()->Controls()) {
      auto* const Part = dynamic_cast<TGraphicControl*>(Child);
      if (Part != nullptr && Part->Visible() && !Part->AccessibleName().empty()) Result.push_back(Part);
    }
    return Result;
  }
  TControlNode* NodeOf(const TGraphicControl& Part) const {
    TControlNode*& Node = FNodes[Part.LiveHandle()];
    if (Node == nullptr) Node = new TControlNode(Part, *widget());
    return Node;
  }

  std::uint64_t FHandle;
  mutable TItemNodes FItems;
  mutable std::map<std::uint64_t, TControlNode*> FNodes;  // the toolkit's, under their numbers
};

QAccessibleInterface* NodeOfWidget(const QString&, QObject* Object) {
  auto* const Widget = qobject_cast<QWidget*>(Object);
  const QVariant Handle = Widget == nullptr ? QVariant() : Widget->property(HandleProperty);
  if (!Handle.isValid()) return nullptr;
  auto* const Control = dynamic_cast<TWinControl*>(TPersistent::FromLiveHandle(Handle.toULongLong()));
  return Control == nullptr ? nullptr : new TWindowNode(Widget, *Control);
}

}  // namespace

void TellScreenReaders(QWidget& Widget, const TWinControl& Control) {
  static const bool IsInstalled = (QAccessible::installFactory(NodeOfWidget), true);
  if (IsInstalled) Widget.setProperty(HandleProperty, QVariant::fromValue<qulonglong>(Control.LiveHandle()));
}

}  // namespace zy
