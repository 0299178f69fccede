#include "annotations/ZyVariablePicker.h"

#include <QKeyEvent>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "analysis/ZyParseFktPicker.h"
#include "annotations/ZyCaptionEdit.h"
#include "platform/drawing/QtText.h"
#include "platform/framework/TPropInfo.h"
#include "texts/ZySettingsTexts.h"

namespace zy {

ZY_PUBLISHED(TZyVariablePicker, TPopupForm)

namespace {

class TNode : public QTreeWidgetItem, public TZyPickerNode {
 public:
  explicit TNode(const std::string& Text) : QTreeWidgetItem(QStringList(ToQString(Text))) {}
  std::string Text() const override { return text(0).toStdString(); }
  TZyPickerNode* Parent() const override { return dynamic_cast<TNode*>(parent()); }
  TZyPickerNode* GetNext() const override {
    if (childCount() > 0) return static_cast<TNode*>(child(0));
    const QTreeWidgetItem* Item = this;
    while (dynamic_cast<const TNode*>(Item) != nullptr) {
      QTreeWidgetItem* const Above = Item->QTreeWidgetItem::parent();
      const int Next = Above->indexOfChild(const_cast<QTreeWidgetItem*>(Item)) + 1;
      if (Next < Above->childCount()) return static_cast<TNode*>(Above->child(Next));
      Item = Above;
    }
    return nullptr;
  }
};

/// What lies below one line of the tree.
class TPart : public TZyPickerTree {
 public:
  explicit TPart(QTreeWidgetItem& Root) : FRoot(Root) {}
  void Clear() override { qDeleteAll(FRoot.takeChildren()); }
  TZyPickerNode* GetFirstNode() const override {
    return FRoot.childCount() == 0 ? nullptr : static_cast<TNode*>(FRoot.child(0));
  }
  TZyPickerNode* AddChild(TZyPickerNode* Parent, const std::string& Text) override {
    auto* const Node = new TNode(Text);
    (Parent == nullptr ? FRoot : static_cast<QTreeWidgetItem&>(*static_cast<TNode*>(Parent))).addChild(Node);
    return Node;
  }

 private:
  QTreeWidgetItem& FRoot;
};

}  // namespace

TZyVariablePicker::TZyVariablePicker(TZyCaptionEdit& Edit) : TPopupForm(&Edit), FEdit(Edit) {
  constexpr int UsualWidth = 260, UsualHeight = 240;
  TZyVariablePicker::SetBounds(0, 0, UsualWidth, UsualHeight);
}

TZyVariablePicker::~TZyVariablePicker() { Destroying(); }

QWidget* TZyVariablePicker::CreateWidget() {
  QWidget* const Result = Inherited::CreateWidget();
  auto* const All = new QVBoxLayout(Result);
  All->setContentsMargins(1, 1, 1, 1);
  FTree = new QTreeWidget(Result);
  FTree->setHeaderHidden(true);
  FTree->setFrameShape(QFrame::NoFrame);
  FTree->setAccessibleName(ToQString(LoadResString(_sPickVariable)).remove('&').remove('.'));
  All->addWidget(FTree);
  // The return key activates, and so does a double click; on some desktops a single one.
  QObject::connect(FTree, &QTreeWidget::itemActivated, FTree,
                   [this](QTreeWidgetItem* Item) { HandleEvent([&] { Choose(Item); }); });
  return Result;
}

void TZyVariablePicker::Open() {
  Widget();
  Fill();
  FFocus.Take();
  DropDown(FEdit);
  FTree->setFocus(Qt::PopupFocusReason);
}

void TZyVariablePicker::Fill() {
  FTree->clear();
  std::string Present = FEdit.SelVariable();
  Present.resize(std::min(Present.size(), Present.find(';')));  // without the format of the number
  const std::pair<TZyText, void (*)(TZyPickerTree&)> Kinds[] = {{_sPickTexts, PopulateTreeWithStrings},
                                                                {_sPickNumbers, PopulateTreeWithVariables}};
  for (const auto& [Title, Populate] : Kinds) {
    auto* const Root = new QTreeWidgetItem(FTree, QStringList(ToQString(LoadResString(Title))));
    TPart Part(*Root);
    Populate(Part);
    for (QTreeWidgetItem* Line = Root; Line != nullptr;) {
      Line->setExpanded(true);
      Line = Line->childCount() == 1 ? Line->child(0) : nullptr;  // the only form
    }
    if (TZyPickerNode* const Node = Present.empty() ? nullptr : FindInTree(Present, Part))
      FTree->setCurrentItem(static_cast<TNode*>(Node));
  }
  if (FTree->currentItem() == nullptr) FTree->setCurrentItem(FTree->topLevelItem(0));
}

std::string TZyVariablePicker::Chosen() const {
  auto* const Node = FTree == nullptr ? nullptr : dynamic_cast<TNode*>(FTree->currentItem());
  if (Node == nullptr || Node->childCount() > 0) return {};
  std::string Result = RefFromNode(Node);
  if (Result.ends_with("[]")) Result.insert(Result.size() - 1, "0");
  return Result;
}

void TZyVariablePicker::Choose(QTreeWidgetItem* Item) {
  if (Item != FTree->currentItem()) FTree->setCurrentItem(Item);
  const std::string Name = Chosen();
  if (Name.empty()) return;
  Close();
  FFocus.GiveBack();
  FEdit.SetSelVariable(Name);
}

bool TZyVariablePicker::WidgetEvent(QEvent& Event) {
  if (Event.type() == QEvent::KeyPress && static_cast<QKeyEvent&>(Event).key() == Qt::Key_Escape) {
    Close();
    FFocus.GiveBack();
    return true;
  }
  return Inherited::WidgetEvent(Event);
}

}  // namespace zy
