#include "platform/controls/AccessibleControls.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QVariant>
#include <QWidget>
#include <map>

#include "platform/controls/TGraphicControl.h"
#include "platform/controls/TWinControl.h"

namespace zy {
namespace {

constexpr const char* HandleProperty = "zyControl";  // of a widget: the live handle of its control

/// What the two kinds of nodes below a widget have in common. A node stands as long as its widget, and is empty once
/// its control died.
class TNode : public QAccessibleInterface {
 public:
  explicit TNode(const TGraphicControl& Control) : FHandle(Control.LiveHandle()) {
    FId = QAccessible::registerAccessibleInterface(this);
  }
  TGraphicControl* Control() const { return dynamic_cast<TGraphicControl*>(TPersistent::FromLiveHandle(FHandle)); }
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

/// An item of a control.
class TItemNode : public TNode {
 public:
  TItemNode(const TGraphicControl& Control, QAccessible::Id List, int Index)
      : TNode(Control), FList(List), FIndex(static_cast<std::size_t>(Index)) {}

  QAccessibleInterface* parent() const override { return QAccessible::accessibleInterface(FList); }
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
  QAccessible::Id FList;
  std::size_t FIndex;
};

/// A control without a window.
class TControlNode : public TNode {
 public:
  TControlNode(const TGraphicControl& Control, QWidget& Window) : TNode(Control), FWindow(&Window) {}
  ~TControlNode() override {
    for (const TItemNode* Item : FItems) QAccessible::deleteAccessibleInterface(Item->Id());
  }

  QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(FWindow); }
  int childCount() const override { return isValid() ? static_cast<int>(Control()->AccessibleItems().size()) : 0; }
  QAccessibleInterface* child(int Index) const override {
    if (Index < 0 || Index >= childCount()) return nullptr;
    while (FItems.size() <= static_cast<std::size_t>(Index))
      FItems.push_back(new TItemNode(*Control(), Id(), static_cast<int>(FItems.size())));
    return FItems[static_cast<std::size_t>(Index)];
  }
  int indexOfChild(const QAccessibleInterface* Child) const override {
    for (std::size_t Index = 0; Index < FItems.size(); ++Index)
      if (FItems[Index] == Child) return static_cast<int>(Index);
    return -1;
  }
  QAccessible::Role role() const override { return QAccessible::List; }
  QString text(QAccessible::Text Kind) const override {
    if (!isValid()) return {};
    if (Kind == QAccessible::Name) return QString::fromStdString(Control()->AccessibleName());
    return Kind == QAccessible::Description ? QString::fromStdString(Control()->Hint()) : QString();
  }
  QAccessible::State state() const override {
    QAccessible::State Result;
    Result.readOnly = true;
    if (!isValid()) return Result;
    Result.invisible = !Control()->Visible();
    Result.focusable = Control()->TakesKeys();
    Result.focused = Control()->Parent()->ActiveControl() == Control() && Control()->Parent()->Focused();
    return Result;
  }

 private:
  QWidget* FWindow;
  mutable std::vector<TItemNode*> FItems;  // the toolkit's, under their numbers
};

/// The widget of a windowed control, with what lies in it behind its own children.
class TWindowNode : public QAccessibleWidget {
 public:
  TWindowNode(QWidget* Widget, TWinControl& Control)
      : QAccessibleWidget(Widget, QAccessible::Client), FHandle(Control.LiveHandle()) {}
  ~TWindowNode() override {
    for (const auto& [Handle, Node] : FNodes) QAccessible::deleteAccessibleInterface(Node->Id());
  }

  int childCount() const override { return QAccessibleWidget::childCount() + static_cast<int>(Parts().size()); }
  QAccessibleInterface* child(int Index) const override {
    const int Own = QAccessibleWidget::childCount();
    if (Index < Own) return QAccessibleWidget::child(Index);
    const std::vector<TGraphicControl*> All = Parts();
    const auto Place = static_cast<std::size_t>(Index - Own);
    return Place < All.size() ? NodeOf(*All[Place]) : nullptr;
  }
  int indexOfChild(const QAccessibleInterface* Child) const override {
    const std::vector<TGraphicControl*> All = Parts();
    for (std::size_t Place = 0; Place < All.size(); ++Place)
      if (NodeOf(*All[Place]) == Child) return QAccessibleWidget::childCount() + static_cast<int>(Place);
    return QAccessibleWidget::indexOfChild(Child);
  }
  QAccessibleInterface* childAt(int X, int Y) const override {
    for (TGraphicControl* Part : Parts())
      if (NodeOf(*Part)->rect().contains(X, Y)) return NodeOf(*Part);
    return QAccessibleWidget::childAt(X, Y);
  }

 private:
  std::vector<TGraphicControl*> Parts() const {
    std::vector<TGraphicControl*> Result;
    const auto* const Control = dynamic_cast<const TWinControl*>(TPersistent::FromLiveHandle(FHandle));
    if (Control == nullptr) return Result;
    for (TControl* Child : Control->Controls()) {
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
