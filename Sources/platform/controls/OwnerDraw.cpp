#include "platform/controls/OwnerDraw.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QPainter>
#include <QStyle>
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
    const QRect Box = WithoutMark(*Target, Option, Index);
    DrawOwnItem(*Target, Index.row(), {Box.left(), Box.top(), Box.right() + 1, Box.bottom() + 1}, State, FDraw);
  }

  QSize sizeHint(const QStyleOptionViewItem& Option, const QModelIndex& Index) const override {
    QSize Result = QStyledItemDelegate::sizeHint(Option, Index);
    if (FHeight > 0) Result.setHeight(FHeight);
    if (FColumns > 0) Result.setWidth(FView.viewport()->width() / FColumns);
    return Result;
  }

 private:
  /// Draws the check mark of an item that has one; the rest is left to the item's own drawing.
  static QRect WithoutMark(QPainter& Target, const QStyleOptionViewItem& Given, const QModelIndex& Index) {
    const QVariant Mark = Index.data(Qt::CheckStateRole);
    if (!Mark.isValid()) return Given.rect;
    QStyleOptionViewItem Option(Given);
    Option.features |= QStyleOptionViewItem::HasCheckIndicator;
    Option.checkState = static_cast<Qt::CheckState>(Mark.toInt());
    const QStyle& Style = Option.widget == nullptr ? *QApplication::style() : *Option.widget->style();
    Option.rect = Style.subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &Option, Option.widget);
    Option.state &= ~QStyle::State_HasFocus;
    Option.state |= Option.checkState == Qt::Checked ? QStyle::State_On : QStyle::State_Off;
    Style.drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &Option, &Target, Option.widget);
    constexpr int Gap = 4;
    const bool IsLeftToRight = Given.direction == Qt::LeftToRight;
    return IsLeftToRight ? Given.rect.adjusted(Option.rect.right() + Gap - Given.rect.left(), 0, 0, 0)
                         : Given.rect.adjusted(0, 0, Option.rect.left() - Gap - Given.rect.right(), 0);
  }

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
