#include "platform/controls/TCustomListBox.h"

#include <QListWidget>
#include <QMouseEvent>
#include <algorithm>

#include "platform/controls/InputDispatch.h"
#include "platform/drawing/QtText.h"
#include "platform/framework/TPropInfo.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {

template class TWidgetOf<QListWidget>;

ZY_PUBLISHED(
    TCustomListBox, TWinControl, Published<&TCustomListBox::TabStop, &TCustomListBox::SetTabStop>("TabStop", true),
    Published<static_cast<TStrings& (TCustomListBox::*)()>(&TCustomListBox::Items), &TCustomListBox::SetItems>("Items")
        .Hidden(),
    Published<&TCustomListBox::MultiSelect, &TCustomListBox::SetMultiSelect>("MultiSelect", false).Hidden(),
    Published<&TCustomListBox::BorderStyle, &TCustomListBox::SetBorderStyle>("BorderStyle", bsSingle),
    Published<&TCustomListBox::Columns, &TCustomListBox::SetColumns>("Columns", 0),
    Published<&TCustomListBox::Style, &TCustomListBox::SetStyle>("Style", lbStandard).Hidden(),
    Published<&TCustomListBox::ItemHeight, &TCustomListBox::SetItemHeight>("ItemHeight", 0),
    Published<&TCustomListBox::ItemIndex, &TCustomListBox::SetItemIndex>("ItemIndex", -1).Hidden(),
    Republished("ParentFont Font"),
    Published<&TCustomListBox::OnDrawItem, &TCustomListBox::SetOnDrawItem>("OnDrawItem"))
ZY_PUBLISHED(TListBox, TCustomListBox, Republished("Items MultiSelect Style ItemIndex"))
ZY_PUBLISHED(TCheckListBox, TCustomListBox, Republished("Items ItemIndex"),
             Published<&TCheckListBox::OnClickCheck, &TCheckListBox::SetOnClickCheck>("OnClickCheck"))

/// The toolkit's list, whose inside brings the mouse to the control.
class TCustomListBox::TListWidget : public QListWidget {
 public:
  explicit TListWidget(TCustomListBox& Owner) : FOwner(Owner.LiveHandle()) {}

 protected:
  bool viewportEvent(QEvent* Event) override {
    switch (Event->type()) {
      case QEvent::MouseButtonPress:
      case QEvent::MouseButtonDblClick:
      case QEvent::MouseMove:
      case QEvent::MouseButtonRelease:
        Tell([Event](TCustomListBox& Owner) { DispatchMouse(Owner, *Event); });
        break;
      case QEvent::ToolTip:
        Tell([Event](TCustomListBox& Owner) { DispatchToolTip(Owner, *Event); });
        return true;
      default:
        break;
    }
    return QListWidget::viewportEvent(Event);
  }
  void mousePressEvent(QMouseEvent* Event) override {
    Tell([](TCustomListBox& Owner) { Owner.FIsPressed = true; });
    QListWidget::mousePressEvent(Event);
  }
  void mouseReleaseEvent(QMouseEvent* Event) override {
    const bool IsOnItem = indexAt(Event->position().toPoint()).isValid();
    QListWidget::mouseReleaseEvent(Event);
    Tell([IsOnItem](TCustomListBox& Owner) {
      Owner.FIsPressed = false;
      if (IsOnItem || Owner.FIsUntold) Owner.TellSelection();
    });
  }

 private:
  template <class F>
  void Tell(F Do) {
    HandleEvent([&] {
      if (TPersistent* const Owner = TPersistent::FromLiveHandle(FOwner)) Do(static_cast<TCustomListBox&>(*Owner));
    });
  }

  std::uint64_t FOwner;
};

TCustomListBox::TCustomListBox(TComponent* Owner) : TWidgetOf(Owner) {
  TCustomListBox::SetBounds(0, 0, 121, 97);
  SetTabStop(true);
  FItems.OnChange = [this](TObject*) { ItemsChanged(); };
}

TCustomListBox::~TCustomListBox() { Destroying(); }

QListWidget* TCustomListBox::Make() { return new TListWidget(*this); }

void TCustomListBox::Configure(QListWidget& Box) {
  Box.setUniformItemSizes(true);
  Box.setFrameShape(FBorderStyle == bsNone ? QFrame::NoFrame : QFrame::StyledPanel);
  Box.setSelectionMode(FMultiSelect ? QAbstractItemView::ExtendedSelection : QAbstractItemView::SingleSelection);
  Box.setFlow(QListView::TopToBottom);
  Box.setWrapping(FColumns > 0);
  Box.setResizeMode(FColumns > 0 ? QListView::Adjust : QListView::Fixed);
  const bool IsOwn = FStyle == lbOwnerDrawFixed;
  SetOwnItems(Box, FItemHeight, FColumns, IsOwn ? TItemDrawer([this](auto&&... Args) { DrawItem(Args...); }) : nullptr);
  ShowItems(Box);
}

/// Columns that all fit need no scroll bar, which would take the height of a row and so call for itself.
void TCustomListBox::FitScrollBar(QListWidget& Box) {
  if (FColumns == 0) return Box.setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  const int ItemExtent = std::max(FItemHeight > 0 ? FItemHeight : Box.sizeHintForRow(0), 1);
  const int Rows = std::max((Height() - 2 * Box.frameWidth() - 1) / ItemExtent, 1);  // a full column ends one short
  const bool Fits = FItems.Count() <= Rows * FColumns;
  Box.setHorizontalScrollBarPolicy(Fits ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded);
}

void TCustomListBox::Resize() {
  Inherited::Resize();
  With([this](QListWidget& Box) { FitScrollBar(Box); });
}

void TCustomListBox::ShowItems(QListWidget& Box) {
  QStringList Names;
  for (int Index = 0; Index < FItems.Count(); ++Index) Names += ToQString(ItemName(Index));
  Box.clear();
  Box.addItems(Names);
  Box.setCurrentRow(FItemIndex, FMultiSelect ? QItemSelectionModel::NoUpdate : QItemSelectionModel::ClearAndSelect);
  for (std::size_t Index = 0; FMultiSelect && Index < FSelected.size(); ++Index)
    Box.item(static_cast<int>(Index))->setSelected(FSelected[Index]);
  FitScrollBar(Box);
}

void TCustomListBox::Listen(QListWidget& Box) {
  const auto Changed = [this] {
    TakeSelection();
    FIsUntold = true;
    if (!FIsPressed) TellSelection();
  };
  On(Box, &QListWidget::itemSelectionChanged, Changed);
  On(Box, &QListWidget::itemDoubleClicked, [this](QListWidgetItem*) { DblClick(); });
}

void TCustomListBox::TakeSelection() {
  QListWidget& Box = Toolkit();
  FItemIndex = Box.currentRow();
  if (!FMultiSelect && Box.selectedItems().isEmpty()) FItemIndex = -1;
  for (std::size_t Index = 0; Index < FSelected.size(); ++Index)
    FSelected[Index] = Box.item(static_cast<int>(Index))->isSelected();
}

/// A click on what is selected already counts as well.
void TCustomListBox::TellSelection() {
  FIsUntold = false;
  TakeSelection();
  Click();
}

void TCustomListBox::ItemsChanged() {
  if (!IsLoading() && FItemIndex >= FItems.Count()) FItemIndex = -1;
  FSelected.resize(static_cast<std::size_t>(FItems.Count()));
  With([this](QListWidget& Box) { ShowItems(Box); });
}

std::size_t TCustomListBox::Checked(int Index) const {
  if (Index < 0 || Index >= FItems.Count()) throw ERangeError(Format(LoadResString(_sVectorIdxOutOfRange), {Index}));
  return static_cast<std::size_t>(Index);
}

/// A stored index may be read before the items are.
void TCustomListBox::SetItemIndex(int Value) {
  if (!IsLoading() && (Value < 0 || Value >= FItems.Count())) Value = -1;
  if (Value == FItemIndex) return;
  FItemIndex = Value;
  With([this](QListWidget& Box) {
    Box.setCurrentRow(FItemIndex, FMultiSelect ? QItemSelectionModel::NoUpdate : QItemSelectionModel::ClearAndSelect);
  });
}

bool TCustomListBox::Selected(int Index) const {
  const std::size_t Place = Checked(Index);
  return FMultiSelect ? FSelected[Place] : Index == FItemIndex;
}

void TCustomListBox::SetSelected(int Index, bool Value) {
  const std::size_t Place = Checked(Index);
  if (!FMultiSelect) {
    if (Value || Index == FItemIndex) SetItemIndex(Value ? Index : -1);
    return;
  }
  FSelected[Place] = Value;
  With([Index, Value](QListWidget& Box) { Box.item(Index)->setSelected(Value); });
}

int TCustomListBox::SelCount() const {
  if (!FMultiSelect) return FItemIndex < 0 ? 0 : 1;
  return static_cast<int>(std::ranges::count(FSelected, true));
}

void TCustomListBox::SetMultiSelect(bool Value) {
  if (Value == FMultiSelect) return;
  FMultiSelect = Value;
  std::fill(FSelected.begin(), FSelected.end(), false);
  if (FItemIndex >= 0 && FItemIndex < FItems.Count()) FSelected[static_cast<std::size_t>(FItemIndex)] = true;
  With([this](QListWidget& Box) { Configure(Box); });
}

void TCustomListBox::SetColumns(int Value) {
  FColumns = std::max(Value, 0);
  With([this](QListWidget& Box) { Configure(Box); });
}

void TCustomListBox::SetStyle(TListBoxStyle Value) {
  FStyle = Value;
  With([this](QListWidget& Box) { Configure(Box); });
}

void TCustomListBox::SetBorderStyle(TBorderStyle Value) {
  FBorderStyle = Value;
  With([this](QListWidget& Box) { Configure(Box); });
}

void TCustomListBox::SetItemHeight(int Value) {
  FItemHeight = std::max(Value, 0);
  With([this](QListWidget& Box) { Configure(Box); });
}

int TCustomListBox::ItemAtPos(int X, int Y) { return HasWidget() ? Toolkit().indexAt(QPoint(X, Y)).row() : -1; }

TRect TCustomListBox::ItemRect(int Index) {
  if (!HasWidget()) return {};
  const QRect Box = Toolkit().visualItemRect(Toolkit().item(static_cast<int>(Checked(Index))));
  return {Box.left(), Box.top(), Box.right() + 1, Box.bottom() + 1};
}

void TCustomListBox::DrawItem(Graphics& Canvas, int Index, const TRect& Box, TOwnerDrawState State) {
  if (const TDrawItemEvent Event = FOnDrawItem) Event(this, Canvas, Index, Box, State);
}

TListBox::TListBox(TComponent* Owner) : TCustomListBox(Owner) {}

TListBox::~TListBox() { Destroying(); }

// --- TCheckListBox --------------------------------------------------------------------------------------------------

TCheckListBox::TCheckListBox(TComponent* Owner) : TCustomListBox(Owner) {}

TCheckListBox::~TCheckListBox() { Destroying(); }

void TCheckListBox::SetChecked(int Index, bool Value) {
  FChecked[Inherited::Checked(Index)] = Value;
  With([Index, Value](QListWidget& Box) { Box.item(Index)->setCheckState(Value ? Qt::Checked : Qt::Unchecked); });
}

void TCheckListBox::ItemsChanged() {
  FChecked.resize(static_cast<std::size_t>(Items().Count()));
  Inherited::ItemsChanged();
}

void TCheckListBox::ShowItems(QListWidget& Box) {
  Inherited::ShowItems(Box);
  for (std::size_t Index = 0; Index < FChecked.size(); ++Index)
    Box.item(static_cast<int>(Index))->setCheckState(FChecked[Index] ? Qt::Checked : Qt::Unchecked);
}

void TCheckListBox::Listen(QListWidget& Box) {
  Inherited::Listen(Box);
  On(Box, &QListWidget::itemChanged, [this, &Box](QListWidgetItem* Item) {
    const auto Place = static_cast<std::size_t>(Box.row(Item));
    const bool IsChecked = Item->checkState() == Qt::Checked;
    if (Place >= FChecked.size() || FChecked[Place] == IsChecked) return;
    FChecked[Place] = IsChecked;
    ClickCheck();
  });
}

void TCheckListBox::ClickCheck() {
  if (const TNotifyEvent Event = FOnClickCheck) Event(this);
}

}  // namespace zy
