#include <QFontMetrics>
#include <QHBoxLayout>
#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>
#include <QWidget>
#include <algorithm>

#include "dialogs/controls/ZyColorPickCombo.h"
#include "dialogs/forms/ZySettingsForm.h"
#include "platform/controls/TCustomComboBox.h"
#include "platform/controls/TPanel.h"
#include "platform/controls/TSpeedButton.h"
#include "platform/controls/TStatusBar.h"
#include "platform/controls/TToolBar.h"
#include "undo/controls/ZyDropDnButton.h"

namespace zy {

/// The widths are those of the desktop's own font at 96 dots per inch, and grow with the font.
void TZySettingsForm::ArrangeWidgets() {
  constexpr int LeastWidth = 350, MostWidth = 544, UsualHeight = 17, BarHeight = 28;
  Inherited::ArrangeWidgets();
  auto* const Styles = new QHBoxLayout(FStyleBar->Widget());
  Styles->setContentsMargins(4, 2, 4, 2);
  Styles->setSpacing(2);
  for (TToolButton* Button : FStyleButtons) Styles->addWidget(Button->Widget());
  FColorPick->Widget()->setMinimumWidth(3 * Widget()->fontMetrics().height());
  Styles->addWidget(FColorPick->Widget());
  FFontsCombo->Widget()->setMinimumWidth(6 * Widget()->fontMetrics().height());
  Styles->addWidget(FFontsCombo->Widget(), 1);

  auto& UndoBar = Part<TToolBar>("UndolBar");
  int BarWidth = 4;
  for (const TZyDropDnButton* Button : FUndoButtons) BarWidth += Button->Width();
  UndoBar.Widget()->setFixedSize(BarWidth, BarHeight);
  auto* const Second = new QHBoxLayout(FSecondLine->Widget());
  Second->setContentsMargins(4, 0, 4, 0);
  for (TControl* Each : FSecondLine->Controls()) Second->addWidget(static_cast<TWinControl*>(Each)->Widget());
  Second->addStretch();

  auto* const All = new QVBoxLayout(Widget());
  All->setContentsMargins(4, 4, 4, 4);
  All->addWidget(FSecondLine->Widget());
  All->addWidget(FStyleBar->Widget());
  All->addWidget(FPages->Widget(), 1);
  All->addWidget(Part<TStatusBar>("ErrorStatus").Widget());
  for (TTabSheet* Page : FPages->Pages()) ArrangePage(*Page);
  const double Scale = std::max(1.0, static_cast<double>(Widget()->fontMetrics().height()) / UsualHeight);
  Widget()->setMinimumWidth(static_cast<int>(LeastWidth * Scale));
  Widget()->setMaximumWidth(static_cast<int>(MostWidth * Scale));
}

/// What lies on the page below each other; a frame takes the rest.
void TZySettingsForm::ArrangePage(TTabSheet& Page) {
  if (Page.Widget()->layout() != nullptr) return;
  constexpr int Narrow = 6;
  auto* const Column = new QVBoxLayout(Page.Widget());
  Column->setContentsMargins(Narrow, Narrow, Narrow, Narrow);
  for (TControl* Each : Page.Controls()) {
    auto& Control = static_cast<TWinControl&>(*Each);
    Column->addWidget(Control.Widget(), dynamic_cast<TFrame*>(Each) != nullptr ? 1 : 0);
    if (dynamic_cast<TPanel*>(Each) == nullptr) continue;
    auto* const Row = new QHBoxLayout(Control.Widget());
    Row->setContentsMargins(0, 0, 0, 0);
    for (TControl* Inner : Control.Controls()) Row->addWidget(static_cast<TWinControl*>(Inner)->Widget());
    Row->addStretch();
  }
}

/// Grows until the lines of the page in front fit, up to the screen; once for each page that needs more, so that who
/// makes the form narrower has it so.
void TZySettingsForm::FitWidth() {
  TTabSheet* const Page = Pages().ActivePage();
  if (Page == nullptr || Page->Widget() == nullptr) return;
  int Missing = 0;
  for (const auto* const Area : Page->Widget()->findChildren<QScrollArea*>()) {
    if (!Area->isVisible() || Area->widget() == nullptr) continue;
    const int Needed = Area->widget()->minimumSizeHint().width();
    if (Needed <= FFittedWidth) continue;
    FFittedWidth = Needed;
    Missing = std::max(Missing, Needed - Area->viewport()->width());
  }
  if (Missing <= 0) return;
  QWidget& Box = *Widget();
  const int Width = std::min(Box.width() + Missing, Box.screen()->availableGeometry().width());
  Box.setMaximumWidth(std::max(Box.maximumWidth(), Width));
  SetWidth(Width);
}

}  // namespace zy
