#include "platform/controls/TScrollBox.h"

#include <QChildEvent>
#include <QLayout>
#include <QScrollArea>

#include "platform/framework/TPropInfo.h"

namespace zy {

template class TWidgetOf<QFrame>;

template class TWidgetOf<QScrollArea>;

ZY_PUBLISHED(TScrollBox, TWinControl, Republished("ParentFont Font"))
ZY_PUBLISHED(TBevel, TWinControl, Published<&TBevel::Shape, &TBevel::SetShape>("Shape", bsBox))

namespace {

/// Asks for room for all that lies in it, wherever that goes; with a layout, for what that asks.
class TContent : public QWidget {
 public:
  QSize minimumSizeHint() const override {
    if (layout() != nullptr) return QWidget::minimumSizeHint();
    const QRect Taken = childrenRect();
    return {Taken.right() + 1, Taken.bottom() + 1};
  }
  QSize sizeHint() const override { return layout() != nullptr ? QWidget::sizeHint() : minimumSizeHint(); }

 protected:
  void childEvent(QChildEvent* Event) override {
    if (Event->added() && Event->child()->isWidgetType()) Event->child()->installEventFilter(this);
    updateGeometry();
  }
  bool eventFilter(QObject* Target, QEvent* Event) override {
    const QEvent::Type Kind = Event->type();
    if (Kind == QEvent::Move || Kind == QEvent::Resize || Kind == QEvent::ShowToParent || Kind == QEvent::HideToParent)
      updateGeometry();
    return QWidget::eventFilter(Target, Event);
  }
};

}  // namespace

TScrollBox::TScrollBox(TComponent* Owner) : TWidgetOf(Owner) { TScrollBox::SetBounds(0, 0, 185, 41); }

TScrollBox::~TScrollBox() { Destroying(); }

void TScrollBox::Configure(QScrollArea& Box) {
  Box.setWidgetResizable(true);
  Box.setWidget(new TContent);
}

void TScrollBox::TakeWidget(TWinControl& Inner, QWidget& InnerWidget) {
  InnerWidget.setParent(Toolkit().widget());
  InnerWidget.move(Inner.Left(), Inner.Top());
}

TBevel::TBevel(TComponent* Owner) : TWidgetOf(Owner) { TBevel::SetBounds(0, 0, 50, 50); }

TBevel::~TBevel() { Destroying(); }

void TBevel::Configure(QFrame& Box) {
  constexpr QFrame::Shape Shapes[] = {QFrame::Panel, QFrame::Box, QFrame::HLine, QFrame::VLine};
  Box.setFrameShape(Shapes[FShape]);
  Box.setFrameShadow(QFrame::Sunken);
}

void TBevel::SetShape(TBevelShape Value) {
  FShape = Value;
  With([this](QFrame& Box) { Configure(Box); });
}

}  // namespace zy
