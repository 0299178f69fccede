#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <QWidget>

#include "dialogs/controls/ZyFontDialogForm.h"

namespace zy {
namespace {

/// A control with its label above.
QVBoxLayout* Below(TWinControl& Control) {
  auto* const Result = new QVBoxLayout;
  Result->addWidget(static_cast<TWinControl*>(Control.Label())->Widget());
  Result->addWidget(Control.Widget());
  return Result;
}

}  // namespace

void TZyFontDialogForm::ArrangeWidgets() {
  Inherited::ArrangeWidgets();
  auto* const Names = Below(*NameLookup);
  Names->addWidget(NameList->Widget(), 1);
  auto* const Styles = Below(*StyleList);
  Styles->addWidget(UnderlineCheck->Widget());
  Styles->addWidget(StrikeoutCheck->Widget());
  auto* const Looks = new QVBoxLayout;
  Looks->addLayout(Below(*SizeEdit));
  Looks->addLayout(Below(*ColorPick));
  Looks->addLayout(Below(*RenderingCombo));
  Looks->addStretch();
  auto* const Effects = new QHBoxLayout;
  for (const TCheckBox* Each : FEffects) Effects->addWidget(const_cast<TCheckBox*>(Each)->Widget());
  Effects->addStretch();
  auto* const Upper = new QHBoxLayout;
  Upper->addLayout(Names, 2);
  Upper->addLayout(Styles, 1);
  Upper->addLayout(Looks, 1);

  auto* const Buttons = new QVBoxLayout;
  for (TButton* Each : {OKBtn, CancelBtn, ApplyBtn, HelpBtn}) Buttons->addWidget(Each->Widget());
  Buttons->addStretch();
  SamplePanel->Widget()->setMinimumHeight(SamplePanel->Height());
  auto* const All = new QGridLayout(Widget());
  All->addLayout(Upper, 0, 0);
  All->addLayout(Buttons, 0, 1);
  All->addLayout(Effects, 1, 0, 1, 2);
  All->addWidget(GradientVisibleCheck->Widget(), 2, 0, 1, 2);
  All->addWidget(GradientFrame->Widget(), 3, 0, 1, 2);
  All->addWidget(SamplePanel->Widget(), 4, 0, 1, 2);
  Widget()->adjustSize();
}

}  // namespace zy
