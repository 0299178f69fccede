#include "undo/controls/ZyLevelsList.h"

#include <QAbstractListModel>
#include <QListView>
#include <QMouseEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <algorithm>
#include <exception>

#include "platform/framework/TPropInfo.h"

namespace zy {

ZY_PUBLISHED(TZyLevelsList, TWinControl)

/// The items as the toolkit asks for them.
class TZyLevelsList::TItems : public QAbstractListModel {
 public:
  TItems(QObject* Parent, TZyLevelsList& List) : QAbstractListModel(Parent), FList(&List), FCount(List.FCount) {}
  void Leave() { FList = nullptr; }
  void Reset() {
    beginResetModel();
    FCount = FList->FCount;
    endResetModel();
  }

  int rowCount(const QModelIndex& Parent) const override { return Parent.isValid() ? 0 : FCount; }
  QVariant data(const QModelIndex& Index, int Role) const override {
    if (Role != Qt::DisplayRole || FList == nullptr || !FList->OnGetText) return {};
    try {
      return QString::fromStdString(FList->OnGetText(Index.row()));
    } catch (const std::exception&) {
      return {};  // the steps have changed since, and the list is about to hear of it
    }
  }

 private:
  TZyLevelsList* FList;
  int FCount;
};

/// Draws the marked items as one block.
class TZyLevelsList::TRows : public QStyledItemDelegate {
 public:
  explicit TRows(QListView& View) : QStyledItemDelegate(&View), FView(View) {}

  void paint(QPainter* Painter, const QStyleOptionViewItem& Option, const QModelIndex& Index) const override {
    const bool IsMarked = Index.row() <= FView.currentIndex().row();
    const QPalette& Colors = Option.palette;
    if (IsMarked) Painter->fillRect(Option.rect, Colors.brush(QPalette::Active, QPalette::Highlight));
    Painter->setFont(Option.font);
    Painter->setPen(Colors.color(QPalette::Active, IsMarked ? QPalette::HighlightedText : QPalette::Text));
    const QRect Box = Option.rect.adjusted(Gap, 0, -Gap, 0);
    const QString Text = Option.fontMetrics.elidedText(Index.data().toString(), Qt::ElideRight, Box.width());
    Painter->drawText(Box, static_cast<int>(Qt::AlignLeading) | Qt::AlignTop | Qt::TextSingleLine, Text);
  }
  QSize sizeHint(const QStyleOptionViewItem& Option, const QModelIndex&) const override {
    return {0, Option.fontMetrics.height() + 1};
  }

 private:
  static constexpr int Gap = 2;
  QListView& FView;
};

class TZyLevelsList::TView : public QListView {
 public:
  explicit TView(TZyLevelsList& List) : FList(&List), FItems(new TItems(this, List)) {
    setModel(FItems);
    setItemDelegate(new TRows(*this));
    setUniformItemSizes(true);
    setSelectionMode(QAbstractItemView::NoSelection);  // the delegate draws what is marked
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFrameShape(QFrame::NoFrame);
    setMouseTracking(true);
    connect(this, &QAbstractItemView::clicked, this,
            [this](const QModelIndex& Index) { TWinControl::HandleEvent([&] { Choose(Index.row()); }); });
  }
  void Leave() {
    FItems->Leave();
    FList = nullptr;
  }
  void ShowAnew() { FItems->Reset(); }
  void Mark(int Index) { setCurrentIndex(FItems->index(Index)); }

 protected:
  /// The list does not move under the mouse.
  void mouseMoveEvent(QMouseEvent* Event) override {
    const QModelIndex Index = indexAt(Event->pos());
    if (!Index.isValid()) return;
    setAutoScroll(false);
    setCurrentIndex(Index);
    setAutoScroll(true);
  }
  void currentChanged(const QModelIndex& Present, const QModelIndex& Before) override {
    QListView::currentChanged(Present, Before);
    viewport()->update();
    if (FList != nullptr) TWinControl::HandleEvent([&] { FList->Select(Present.row()); });
  }

 private:
  void Choose(int Row) {
    if (FList == nullptr || Row < 0) return;
    FList->SetItemIndex(Row);
    if (const auto Event = FList->OnChoose) Event();
  }

  TZyLevelsList* FList;
  TItems* FItems;
};

TZyLevelsList::TZyLevelsList(TComponent* Owner) : TWinControl(Owner) { SetTabStop(true); }

TZyLevelsList::~TZyLevelsList() {
  Destroying();
  if (TView* const Box = View()) Box->Leave();
}

TZyLevelsList::TView* TZyLevelsList::View() { return HasWidget() ? static_cast<TView*>(Widget()) : nullptr; }

QWidget* TZyLevelsList::CreateWidget() {
  auto* const Box = new TView(*this);
  const QSignalBlocker Silent(Box);
  Box->Mark(FItemIndex);
  return Box;
}

void TZyLevelsList::SetCount(int Value) {
  const int Kept = std::min(FItemIndex, Value - 1);
  FCount = Value;
  if (TView* const Box = View()) Box->ShowAnew();
  SetItemIndex(Kept);
}

void TZyLevelsList::SetItemIndex(int Value) {
  const int Wanted = std::clamp(Value, -1, FCount - 1);
  if (TView* const Box = View()) Box->Mark(Wanted);  // tells us
  Select(Wanted);
}

void TZyLevelsList::Select(int Index) {
  if (Index == FItemIndex) return;
  FItemIndex = Index;
  if (const auto Event = OnSelect) Event();
}

void TZyLevelsList::KeyDown(TKey& Key, TShiftState Shift) {
  Inherited::KeyDown(Key, Shift);
  if (Key != vkReturn && Key != vkSpace && Key != vkEscape) return;
  const auto Event = Key == vkEscape ? OnCancel : OnChoose;
  Key = 0;
  if (Event) Event();
}

}  // namespace zy
