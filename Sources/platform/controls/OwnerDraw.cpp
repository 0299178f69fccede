#include "platform/controls/OwnerDraw.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QPainter>
#include <QStyledItemDelegate>
#include <utility>

#include "platform/controls/TApplication.h"
#include "platform/drawing/Graphics.h"

namespace zy {
namespace {

/// The toolkit's ground, selection and focus frame, with the item's own drawing on it.
class TItemDelegate : public QStyledItemDelegate {
 public:
  TItemDelegate(QAbstractItemView& View, int Height, int Columns, TItemDrawer Draw)
      : QStyledItemDelegate(&View), FView(View), FHeight(Height), FColumns(Columns), FDraw(std::move(Draw)) {}

  void paint(QPainter* Target, const QStyleOptionViewItem& Option, const QModelIndex& Index) const override {
    if (!FDraw) return QStyledItemDelegate::paint(Target, Option, Index);
    TOwnerDrawState State;
    if (Option.state & QStyle::State_Selected) State.Include(odSelected);
    if (Option.state & QStyle::State_HasFocus) State.Include(odFocused);
    if (!(Option.state & QStyle::State_Enabled)) State.Include(odDisabled);
    const QRect Box = Option.rect;
    DrawOwnItem(*Target, Index.row(), {Box.left(), Box.top(), Box.right() + 1, Box.bottom() + 1}, State, FDraw);
  }

  QSize sizeHint(const QStyleOptionViewItem& Option, const QModelIndex& Index) const override {
    QSize Result = QStyledItemDelegate::sizeHint(Option, Index);
    if (FHeight > 0) Result.setHeight(FHeight);
    if (FColumns > 0) Result.setWidth(FView.viewport()->width() / FColumns);
    return Result;
  }

 private:
  QAbstractItemView& FView;
  int FHeight;
  int FColumns;
  TItemDrawer FDraw;
};

}  // namespace

void DrawOwnItem(QPainter& Target, int Index, const TRect& Box, TOwnerDrawState State, const TItemDrawer& Draw) {
  Target.save();
  Target.setClipRect(QRect(Box.Left, Box.Top, Box.Width(), Box.Height()), Qt::IntersectClip);
  try {
    Graphics Canvas(Target);
    Draw(Canvas, Index, Box, State);
  } catch (const std::exception& Error) {
    TApplication::HandleException(Error);
  }
  Target.restore();
}

void SetOwnItems(QAbstractItemView& View, int Height, int Columns, const TItemDrawer& Draw) {
  QAbstractItemDelegate* const Old = View.itemDelegate();
  View.setItemDelegate(new TItemDelegate(View, Height, Columns, Draw));
  if (dynamic_cast<TItemDelegate*>(Old) != nullptr) Old->deleteLater();
}

}  // namespace zy
