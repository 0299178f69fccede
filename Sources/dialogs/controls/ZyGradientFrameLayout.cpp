#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <QWidget>

#include "dialogs/controls/ZyGradientFrame.h"

namespace zy {
namespace {

/// Controls below each other with their labels, beside a sample.
void ArrangePanel(TPanel& Panel, TPanel& Sample, std::initializer_list<TWinControl*> Controls) {
  auto* const Grid = new QGridLayout(Panel.Widget());
  Grid->setContentsMargins(0, 0, 0, 0);
  int Row = 0;
  for (TWinControl* Each : Controls) {
    Grid->addWidget(static_cast<TWinControl*>(Each->Label())->Widget(), Row, 0);
    Grid->addWidget(Each->Widget(), Row++, 1);
  }
  Sample.Widget()->setFixedSize(Sample.Width(), Sample.Height());
  Grid->addWidget(Sample.Widget(), 0, 2, Row, 1, Qt::AlignTop);
  Grid->setColumnStretch(3, 1);
  Grid->setRowStretch(Row, 1);
}

}  // namespace

void TZyGradientFrame::ArrangeWidgets() {
  Inherited::ArrangeWidgets();
  ArrangePanel(*LinearGradientPanel, *LinearCenterPanel,
               {FColors[0].Linear, FColors[1].Linear, FColors[2].Linear, AngleEdit, LinearCenterEdit});
  ArrangePanel(*RadialGradientPanel, *RadialSamplePanel,
               {FColors[0].Radial, FColors[1].Radial, FColors[2].Radial, RadialCenterX, RadialCenterY});
  auto* const Styles = new QHBoxLayout;
  for (TRadioButton* Radio : {LinearRadio, RadialRadio, EllipticalRadio}) Styles->addWidget(Radio->Widget());
  Styles->addStretch();
  auto* const All = new QVBoxLayout(Widget());
  All->addLayout(Styles);
  All->addWidget(LinearGradientPanel->Widget());
  All->addWidget(RadialGradientPanel->Widget());
}

}  // namespace zy
