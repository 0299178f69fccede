#include "platform/controls/TGroupBox.h"

#include <QGroupBox>

#include "platform/controls/Mnemonics.h"
#include "platform/drawing/QtText.h"
#include "platform/framework/TPropInfo.h"

namespace zy {

template class TWidgetOf<QGroupBox>;

ZY_PUBLISHED(TCustomGroupBox, TWinControl,
             Published<&TCustomGroupBox::Caption, &TCustomGroupBox::SetCaption>("Caption", std::string()),
             Republished("ParentFont Font"))
ZY_PUBLISHED(TGroupBox, TCustomGroupBox)

TCustomGroupBox::TCustomGroupBox(TComponent* Owner) : TWidgetOf(Owner) { TCustomGroupBox::SetBounds(0, 0, 185, 105); }

TCustomGroupBox::~TCustomGroupBox() { Destroying(); }

void TCustomGroupBox::Configure(QGroupBox& Box) { Box.setTitle(ToQString(FCaption)); }

void TCustomGroupBox::SetCaption(const std::string& Value) {
  if (Value == FCaption) return;
  FCaption = Value;
  With([this](QGroupBox& Box) { Box.setTitle(ToQString(FCaption)); });
  ApplyAccessibleName();
}

std::string TCustomGroupBox::AccessibleName() const {
  return FCaption.empty() ? Inherited::AccessibleName() : PlainCaption(FCaption);
}

TGroupBox::TGroupBox(TComponent* Owner) : TCustomGroupBox(Owner) {}

TGroupBox::~TGroupBox() { Destroying(); }

}  // namespace zy
