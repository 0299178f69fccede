#include "platform/controls/TPopupForm.h"

#include <QApplication>
#include <QLayout>
#include <QMouseEvent>
#include <QPointer>
#include <QScreen>
#include <QWidget>
#include <algorithm>

#include "platform/drawing/Graphics.h"
#include "platform/drawing/Pen.h"
#include "platform/framework/SystemColors.h"
#include "platform/framework/TPropInfo.h"

namespace zy {

ZY_PUBLISHED(TPopupForm, TForm)

struct TFocusMark::TTarget {
  QPointer<QWidget> Widget;
};

TFocusMark::TFocusMark() : FTarget(std::make_unique<TTarget>()) {}

TFocusMark::~TFocusMark() = default;

void TFocusMark::Take() { FTarget->Widget = QApplication::focusWidget(); }

void TFocusMark::TakeFrom(const TFocusMark& Other) { FTarget->Widget = Other.FTarget->Widget; }

void TFocusMark::GiveBack() {
  const QPointer<QWidget> Target = FTarget->Widget;
  FTarget->Widget = nullptr;
  if (Target == nullptr || !Target->isVisible() || !Target->isEnabled()) return;
  if (Target->focusPolicy() != Qt::NoFocus) Target->setFocus(Qt::PopupFocusReason);
}

TPopupForm::TPopupForm(TComponent* Owner) : TForm(Owner) { SetPosition(poDesigned); }

TPopupForm::~TPopupForm() { Destroying(); }

/// The toolkit places no window where it likes unless it belongs to another one.
void TPopupForm::DropDown(TWinControl& Control) {
  SetVisible(false);
  QWidget& Below = *Control.Widget();
  QWidget& Box = *Widget();
  Box.setParent(Below.window(), Qt::Popup | Qt::FramelessWindowHint);
  if (Box.layout() != nullptr) Box.resize(Box.sizeHint());
  const QRect Desk = Below.screen()->availableGeometry();
  QPoint Place = Below.mapToGlobal(QPoint(0, Below.height()));
  if (Below.isRightToLeft()) Place.rx() += Below.width() - Box.width();
  Place.setX(std::max(std::min(Place.x(), Desk.right() + 1 - Box.width()), Desk.left()));
  if (Place.y() + Box.height() > Desk.bottom() + 1)
    Place.setY(std::max(Place.y() - Below.height() - Box.height(), Desk.top()));
  SetBounds(Place.x(), Place.y(), Box.width(), Box.height());
  SetPosition(poDesigned);
  Show();
}

void TPopupForm::BecomeDialog() {
  SetVisible(false);
  QWidget* const Active = QApplication::activeWindow();
  Widget()->setParent(Active == Widget() ? Widget()->parentWidget() : Active, Qt::Dialog);
  if (Widget()->layout() != nullptr) Widget()->resize(Widget()->sizeHint());
  SetPosition(poScreenCenter);
}

void TPopupForm::Paint(Graphics& Canvas) {
  if (Position() != poDesigned) return;
  constexpr int Shadow = 16;  // the desktop's colour for it
  Canvas.DrawRectangle(Pen(SystemColor(Shadow), 1), 0, 0, static_cast<float>(Width() - 1),
                       static_cast<float>(Height() - 1));
}

/// All presses come here while the form is shown.
bool TPopupForm::WidgetEvent(QEvent& Event) {
  if (Event.type() == QEvent::MouseButtonPress && (Widget()->windowFlags() & Qt::Popup) == Qt::Popup) {
    const QPoint Place = static_cast<QMouseEvent&>(Event).position().toPoint();
    if (!Widget()->rect().contains(Place)) {
      Close();
      return true;
    }
  }
  return Inherited::WidgetEvent(Event);
}

}  // namespace zy
