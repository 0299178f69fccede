#include "platform/controls/TStaticText.h"

#include <QEvent>
#include <QLabel>

#include "platform/controls/Mnemonics.h"
#include "platform/drawing/QtText.h"
#include "platform/framework/TPropInfo.h"

namespace zy {

template class TWidgetOf<QLabel>;

ZY_PUBLISHED(TStaticText, TWinControl,
             Published<&TStaticText::Caption, &TStaticText::SetCaption>("Caption", std::string()),
             Published<&TStaticText::FocusControl, &TStaticText::SetFocusControl>("FocusControl"),
             Republished("ParentFont Font"))

TStaticText::TStaticText(TComponent* Owner) : TWidgetOf(Owner) { TStaticText::SetBounds(0, 0, 65, 17); }

TStaticText::~TStaticText() { Destroying(); }

void TStaticText::Configure(QLabel& Box) { Box.setText(ToQString(FText)); }

void TStaticText::SetCaption(const std::string& Value) {
  if (Value == FText) return;
  FText = Value;
  With([this](QLabel& Box) { Box.setText(ToQString(FText)); });
  ApplyAccessibleName();
  if (FFocusControl != nullptr) FFocusControl->SetLabel(this);
}

std::string TStaticText::AccessibleName() const {
  return FText.empty() ? Inherited::AccessibleName() : PlainCaption(FText);
}

void TStaticText::SetFocusControl(TWinControl* Value) {
  if (FFocusControl != nullptr && FFocusControl != Value && !FFocusControl->IsDestroying())
    FFocusControl->SetLabel(nullptr);
  FFocusControl = Value;
  if (Value != nullptr) Value->SetLabel(this);
  ShowBuddy();
}

/// The control's widget may come later than this one: it is looked up again whenever the text appears.
bool TStaticText::WidgetEvent(QEvent& Event) {
  if (Event.type() == QEvent::Show) ShowBuddy();
  return TWidgetOf::WidgetEvent(Event);
}

void TStaticText::ShowBuddy() {
  With([this](QLabel& Box) {
    Box.setBuddy(FFocusControl != nullptr && FFocusControl->HasWidget() ? FFocusControl->Widget() : nullptr);
  });
}

}  // namespace zy
