#include "platform/controls/AccessibleControls.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QElapsedTimer>
#include <QTimer>
#include <QVariant>
#include <QWidget>
#include <algorithm>
#include <functional>
#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "platform/controls/TGraphicControl.h"
#include "platform/controls/TWinControl.h"

namespace zy {
namespace {

constexpr const char* HandleProperty = "zyControl";  // of a widget: the live handle of its control

/// What a control says of itself, which may be the application's code; the toolkit carries no exception.
template <class F>
auto Asked(F Ask) {
  decltype(Ask()) Result{};
  TWinControl::HandleEvent([&] { Result = Ask(); });
  return Result;
}

/// Knows whether somebody reads the screen, who may come and go while the application runs.
class TReaders : public QAccessible::ActivationObserver {
 public:
  static bool AreThere() {
    static const TReaders& Only = *new TReaders;  // which the toolkit's list of observers may outlive
    return Only.FAreThere;
  }
  void accessibilityActiveChanged(bool IsActive) override { FAreThere = IsActive; }

 private:
  TReaders() { QAccessible::installActivationObserver(this); }
  bool FAreThere = QAccessible::isActive();
};

void Tell(QAccessibleInterface& Node, QAccessible::Event Event) {
  QAccessibleEvent Told(&Node, Event);
  QAccessible::updateAccessibility(&Told);
}

/// What the two kinds of nodes below a widget have in common. A node stands as long as its widget, and is empty once
/// its control died.
class TNode : public QAccessibleInterface {
 public:
  explicit TNode(const TControl& Control) : FHandle(Control.LiveHandle()) {
    FId = QAccessible::registerAccessibleInterface(this);
  }
  TControl* Control() const { return dynamic_cast<TControl*>(TPersistent::FromLiveHandle(FHandle)); }
  QAccessible::Id Id() const { return FId; }

  bool IsThere() const { return Control() != nullptr && Control()->Parent() != nullptr; }
  /// Tells that it is gone, for which the toolkit wants it valid once more.
  void TellEnd() {
    FEnds = true;
    Tell(*this, QAccessible::ObjectDestroyed);
    FEnds = false;
  }

  bool isValid() const override { return FEnds || IsThere(); }
  QObject* object() const override { return nullptr; }
  QRect rect() const override {
    if (!IsThere()) return {};
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
  bool FEnds = false;
};

/// The texts of a control's items. They are asked for one by one, while the control makes all at a time, so they last
/// for a moment.
class TItemTexts {
 public:
  const std::vector<std::string>& Renew(const TControl& Control) {
    FTexts = Asked([&] { return Control.AccessibleItems(); });
    FAge.start();
    return FTexts;
  }
  const std::vector<std::string>& Of(const TControl& Control) {
    constexpr int Lasting = 100;  // milliseconds
    return FAge.isValid() && FAge.elapsed() < Lasting ? FTexts : Renew(Control);
  }
  void Forget() { FAge.invalidate(); }

 private:
  std::vector<std::string> FTexts;
  QElapsedTimer FAge;
};

/// An item of a control, below the node of the control.
class TItemNode : public TNode {
 public:
  using TFindParent = std::function<QAccessibleInterface*()>;
  TItemNode(const TControl& Control, TFindParent Parent, TItemTexts& Texts, std::size_t Index)
      : TNode(Control), FFindParent(std::move(Parent)), FTexts(&Texts), FIndex(Index) {}

  QAccessibleInterface* parent() const override { return FFindParent(); }
  QAccessibleInterface* child(int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  QAccessible::Role role() const override { return QAccessible::ListItem; }
  QString text(QAccessible::Text Kind) const override {
    if (Kind != QAccessible::Name || !IsThere()) return {};
    const std::vector<std::string>& Items = FTexts->Of(*Control());
    return FIndex < Items.size() ? QString::fromStdString(Items[FIndex]) : QString();
  }
  bool isValid() const override { return TNode::isValid() && (!IsThere() || FIndex < FTexts->Of(*Control()).size()); }
  QAccessible::State state() const override { return parent() != nullptr ? parent()->state() : QAccessible::State(); }

 private:
  TFindParent FFindParent;
  TItemTexts* FTexts;  // of the node of the control, as this one is
  std::size_t FIndex;
};

/// The nodes of a control's items, made when they are asked for.
class TItemNodes {
 public:
  ~TItemNodes() {
    for (const TItemNode* Item : FItems) QAccessible::deleteAccessibleInterface(Item->Id());
  }
  TItemTexts& Texts() { return FTexts; }
  int Count(const TControl& Control) { return static_cast<int>(FTexts.Renew(Control).size()); }
  /// Null where there is no such item.
  TItemNode* At(const TControl& Control, const TItemNode::TFindParent& Parent, int Index) {
    const auto Place = static_cast<std::size_t>(Index);
    return Index < 0 || Place >= FTexts.Of(Control).size() ? nullptr : Make(Control, Parent, Place);
  }
  /// Tells what is different from Old now.
  void TellChanges(const TControl& Control, const TItemNode::TFindParent& Parent, const std::vector<std::string>& Old) {
    const std::vector<std::string> New = FTexts.Of(Control);
    for (std::size_t Place = 0; Place < std::max(Old.size(), New.size()); ++Place) {
      if (Place >= New.size()) {
        if (Place < FItems.size()) FItems[Place]->TellEnd();
      } else if (Place >= Old.size()) {
        Tell(*Make(Control, Parent, Place), QAccessible::ObjectCreated);
      } else if (New[Place] != Old[Place]) {
        Tell(*Make(Control, Parent, Place), QAccessible::NameChanged);
      }
    }
  }
  int IndexOf(const QAccessibleInterface* Child) const {
    const auto Found = std::ranges::find(FItems, Child);
    return Found == FItems.end() ? -1 : static_cast<int>(Found - FItems.begin());
  }

 private:
  TItemNode* Make(const TControl& Control, const TItemNode::TFindParent& Parent, std::size_t Place) {
    while (FItems.size() <= Place) FItems.push_back(new TItemNode(Control, Parent, FTexts, FItems.size()));
    return FItems[Place];
  }

  TItemTexts FTexts;
  std::vector<TItemNode*> FItems;  // the toolkit's, under their numbers
};

/// A control without a window.
class TControlNode : public TNode, public QAccessibleActionInterface {
 public:
  TControlNode(const TGraphicControl& Control, QWidget& Window) : TNode(Control), FWindow(&Window) {}

  QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(FWindow); }
  int childCount() const override { return IsThere() ? FItems.Count(*Control()) : 0; }
  QAccessibleInterface* child(int Index) const override {
    return IsThere() ? FItems.At(*Control(), Finder(), Index) : nullptr;
  }
  int indexOfChild(const QAccessibleInterface* Child) const override { return FItems.IndexOf(Child); }
  QAccessible::Role role() const override { return IsButton() ? QAccessible::ButtonDropDown : QAccessible::List; }
  QString text(QAccessible::Text Kind) const override {
    if (!IsThere()) return {};
    if (Kind == QAccessible::Name) return QString::fromStdString(Asked([&] { return Part().AccessibleName(); }));
    return Kind == QAccessible::Description ? QString::fromStdString(Control()->Hint()) : QString();
  }
  QAccessible::State state() const override {
    QAccessible::State Result;
    Result.readOnly = !IsButton();
    if (!IsThere()) return Result;
    Result.hasPopup = IsButton();
    Result.disabled = IsButton() && !Control()->Enabled();
    Result.invisible = !Control()->Visible();
    Result.focusable = Part().TakesKeys();
    Result.focused = Control()->Parent()->ActiveControl() == Control() && Control()->Parent()->Focused();
    return Result;
  }

  TItemTexts& Texts() { return FItems.Texts(); }
  void TellItems(const std::vector<std::string>& Old) { FItems.TellChanges(*Control(), Finder(), Old); }

  // A button is pressed, and its list brought up, by the keys that do so.
  void* interface_cast(QAccessible::InterfaceType Type) override {
    if (Type == QAccessible::ActionInterface && IsButton()) return static_cast<QAccessibleActionInterface*>(this);
    return nullptr;
  }
  QStringList actionNames() const override { return {pressAction(), showMenuAction()}; }
  void doAction(const QString& Name) override {
    if (!IsThere() || !Control()->Enabled()) return;
    TKey Key = Name == showMenuAction() ? vkDown : vkReturn;
    TWinControl::HandleEvent([&] { Part().KeyDown(Key, {}); });
  }
  QStringList keyBindingsForAction(const QString&) const override { return {}; }

 private:
  TItemNode::TFindParent Finder() const {
    return [List = Id()] { return QAccessible::accessibleInterface(List); };
  }
  bool IsButton() const { return IsThere() && Part().AccessibleRole() == TAccessibleRole::DropDownButton; }
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
    if (!FTold) FTold = Present();  // from now on there is somebody to be told of changes
    return QAccessibleWidget::childCount() + static_cast<int>(Parts().size()) + ItemCount();
  }
  QAccessibleInterface* child(int Index) const override {
    const int Own = QAccessibleWidget::childCount();
    if (Index < Own) return QAccessibleWidget::child(Index);
    const std::vector<TGraphicControl*> All = Parts();
    const int Place = Index - Own, Item = Place - static_cast<int>(All.size());
    if (Item < 0) return NodeOf(*All[static_cast<std::size_t>(Place)]);
    return Control() == nullptr ? nullptr : FItems.At(*Control(), Finder(), Item);
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

  /// Has it told soon what is different, if it was asked what there is.
  void NoteChange() {
    constexpr int Soon = 200;  // milliseconds
    if (!FTold || std::exchange(FWaits, true)) return;
    QTimer::singleShot(Soon, widget(), [Window = widget()] {
      if (auto* const Node = dynamic_cast<TWindowNode*>(QAccessible::queryAccessibleInterface(Window)))
        Node->TellChanges();
    });
  }

 private:
  /// What a reader was told of a control in the window, and of the window itself, which has the handle 0.
  struct TTold {
    std::string Name;
    std::vector<std::string> Items;
  };
  using TAllTold = std::map<std::uint64_t, TTold>;

  TAllTold Present() const {
    TAllTold Result;
    if (Control() == nullptr) return Result;
    Result[0].Items = FItems.Texts().Renew(*Control());
    for (const TGraphicControl* Part : Parts())
      Result[Part->LiveHandle()] = {Asked([&] { return Part->AccessibleName(); }), NodeOf(*Part)->Texts().Renew(*Part)};
    return Result;
  }
  void TellChanges() {
    FWaits = false;
    const TAllTold New = Present(), Old = std::exchange(FTold, New).value_or(New);
    for (const auto& [Handle, Told] : Old)
      if (const auto Node = FNodes.find(Handle); !New.contains(Handle) && Node != FNodes.end()) Node->second->TellEnd();
    std::erase_if(FNodes, [](const auto& Each) {
      const bool IsDead = Each.second->Control() == nullptr;
      if (IsDead) QAccessible::deleteAccessibleInterface(Each.second->Id());
      return IsDead;
    });
    for (const auto& [Handle, Told] : New) {
      const auto Before = Old.find(Handle);
      if (Handle == 0) {
        if (Before != Old.end()) FItems.TellChanges(*Control(), Finder(), Before->second.Items);
        continue;
      }
      TControlNode& Node = *FNodes.at(Handle);
      if (Before == Old.end()) {
        Tell(Node, QAccessible::ObjectCreated);
        continue;
      }
      if (Before->second.Name != Told.Name) Tell(Node, QAccessible::NameChanged);
      Node.TellItems(Before->second.Items);
    }
  }
  TItemNode::TFindParent Finder() const {
    return [Window = widget()] { return QAccessible::queryAccessibleInterface(Window); };
  }
  const TWinControl* Control() const { return dynamic_cast<const TWinControl*>(TPersistent::FromLiveHandle(FHandle)); }
  int ItemCount() const { return Control() == nullptr ? 0 : FItems.Count(*Control()); }
  /// The controls without a window, which stand behind the widgets; the items of the window itself come last.
  std::vector<TGraphicControl*> Parts() const {
    std::vector<TGraphicControl*> Result;
    if (Control() == nullptr) return Result;
    for (TControl* Child : Control()->Controls()) {
      auto* const Part = dynamic_cast<TGraphicControl*>(Child);
      if (Part != nullptr && Part->Visible() && !Asked([&] { return Part->AccessibleName(); }).empty())
        Result.push_back(Part);
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
  mutable std::optional<TAllTold> FTold;
  bool FWaits = false;
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

void TellScreenReadersOfPaint(QWidget& Widget) {
  if (!TReaders::AreThere()) return;
  if (auto* const Node = dynamic_cast<TWindowNode*>(QAccessible::queryAccessibleInterface(&Widget))) Node->NoteChange();
}

}  // namespace zy
