#include "platform/controls/TToolBar.h"

#include <QToolBar>

#include "platform/framework/TPropInfo.h"

namespace zy {

template class TWidgetOf<QToolBar>;

ZY_PUBLISHED(TToolBar, TWinControl)

TToolBar::TToolBar(TComponent* Owner) : TWidgetOf(Owner) { TToolBar::SetBounds(0, 0, 150, 29); }

TToolBar::~TToolBar() { Destroying(); }

void TToolBar::Configure(QToolBar& Box) { Box.setMovable(false); }

/// The bar gives the button its place; a button that goes takes its place along.
void TToolBar::TakeWidget(TWinControl&, QWidget& InnerWidget) {
  QToolBar& Box = Toolkit();
  InnerWidget.setFixedSize(InnerWidget.size());
  QAction* const Place = Box.addWidget(&InnerWidget);
  QObject::connect(&InnerWidget, &QObject::destroyed, Place, &QObject::deleteLater);
}

}  // namespace zy
