#include "platform/controls/TStatusBar.h"

#include <QAccessible>
#include <QLabel>

#include "platform/drawing/QtText.h"
#include "platform/framework/TPropInfo.h"

namespace zy {

ZY_PUBLISHED(TStatusBar, TWinControl,
             Published<&TStatusBar::SimpleText, &TStatusBar::SetSimpleText>("SimpleText", std::string()),
             Published<&TStatusBar::Align, &TStatusBar::SetAlign>("Align", alBottom), Republished("ParentFont Font"))

TStatusBar::TStatusBar(TComponent* Owner) : TWidgetOf(Owner) {
  TStatusBar::SetBounds(0, 0, 150, 19);
  SetAlign(alBottom);
}

TStatusBar::~TStatusBar() { Destroying(); }

void TStatusBar::Configure(QLabel& Box) {
  Box.setTextFormat(Qt::PlainText);
  Box.setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);  // a long text never widens the form
  Box.setText(ToQString(FText));
}

void TStatusBar::SetSimpleText(const std::string& Value) {
  if (Value == FText) return;
  FText = Value;
  With([this](QLabel& Box) {
    Box.setText(ToQString(FText));
    ApplyAccessibleName();
    if (FText.empty()) return;
    QAccessibleEvent Told(&Box, QAccessible::Alert);
    QAccessible::updateAccessibility(&Told);
  });
}

}  // namespace zy
