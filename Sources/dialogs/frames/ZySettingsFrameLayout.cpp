#include <QComboBox>
#include <QFontMetrics>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QScrollArea>
#include <QVBoxLayout>
#include <QWidget>
#include <algorithm>
#include <map>

#include "annotations/ZyCaptionEdit.h"
#include "dialogs/controls/ZyDoubleEdit.h"
#include "dialogs/frames/ZySettingsFrame.h"
#include "platform/controls/TButtonControl.h"
#include "platform/controls/TCustomListBox.h"
#include "platform/controls/TPanel.h"
#include "platform/controls/TScrollBox.h"

namespace zy {

namespace {

/// How a control takes its share of a line: texts and choices grow, numbers have room for what they are.
void Size(TWinControl& Control, QHBoxLayout& Row) {
  QWidget& Box = *Control.Widget();
  if (dynamic_cast<TZyCustomDoubleEdit*>(&Control) != nullptr) {
    Box.setMinimumWidth(Box.fontMetrics().horizontalAdvance("00000") + 2 * Box.fontMetrics().height());
    Row.addWidget(&Box, 1);
  } else if (dynamic_cast<TButtonControl*>(&Control) != nullptr) {
    Row.addWidget(&Box);
  } else {
    const bool IsHigh = dynamic_cast<TZyCaptionEdit*>(&Control) != nullptr ||
                        dynamic_cast<TCustomListBox*>(&Control) != nullptr ||
                        dynamic_cast<TScrollBox*>(&Control) != nullptr;
    if (IsHigh) Box.setFixedHeight(Control.Height());
    if (auto* const Combo = qobject_cast<QComboBox*>(&Box)) {
      Combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
      Combo->setMinimumContentsLength(2);
    }
    Row.addWidget(&Box, 2);
  }
}

/// Radio buttons beside each other; they go below each other where they do not fit.
void ArrangeRadios(TPanel& Panel) {
  auto* const Row = new QHBoxLayout(Panel.Widget());
  Row->setContentsMargins(0, 0, 0, 0);
  for (TControl* Each : Panel.Controls()) Row->addWidget(static_cast<TWinControl*>(Each)->Widget());
  Row->addStretch();
}

/// Room around groups, in pixels.
constexpr int Narrow = 4;

}  // namespace

/// What stands in front is in the first column of its group, which is as wide in all of them.
void TZySettingsFrame::ArrangeWidgets() {
  Inherited::ArrangeWidgets();
  auto* const Area = qobject_cast<QScrollArea*>(FBox->Widget());
  QWidget* const Content = Area == nullptr ? FBox->Widget() : Area->widget();
  auto* const Column = new QVBoxLayout(Content);
  Column->setContentsMargins(Narrow, Narrow, Narrow, Narrow);
  for (TWinControl* Group : FGroups) {
    Group->Widget()->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    Column->addWidget(Group->Widget());
  }
  Column->addStretch();
  auto* const Whole = new QVBoxLayout(Widget());
  Whole->setContentsMargins(0, 0, 0, 0);
  Whole->addWidget(FBox->Widget());

  std::map<TWinControl*, QGridLayout*> Grids;
  const auto GridOf = [this, &Grids](TWinControl& Box) -> QGridLayout& {
    QGridLayout*& Grid = Grids[&Box];
    if (Grid == nullptr) {
      Grid = new QGridLayout(Box.Widget());
      Grid->setColumnStretch(1, 1);
      const bool IsOuter = std::ranges::find(FGroups, &Box) != FGroups.end();
      const QMargins Usual = Grid->contentsMargins();
      if (dynamic_cast<TPanel*>(&Box) != nullptr)
        Grid->setContentsMargins(IsOuter ? Usual.left() : 0, 0, IsOuter ? Usual.right() : 0, 0);
    }
    return *Grid;
  };
  for (const TCaption& Each : FCaptions) ShowFont(Each);
  int LeadWidth = 0;
  for (const TLine& Line : FLines) {
    QGridLayout& Grid = GridOf(*Line.Box);
    const int Row = Grid.rowCount();
    const bool IsAlone = Line.Controls.empty();
    if (Line.Lead != nullptr) {
      Grid.addWidget(Line.Lead->Widget(), Row, 0, 1, IsAlone ? 2 : 1);
      if (!IsAlone) LeadWidth = std::max(LeadWidth, Line.Lead->Widget()->sizeHint().width());
    }
    if (IsAlone) continue;
    auto* const Controls = new QHBoxLayout;
    for (TWinControl* Each : Line.Controls) {
      if (auto* const Panel = dynamic_cast<TPanel*>(Each); Panel != nullptr) {
        if (Line.IsPicture) Panel->Widget()->setFixedHeight(Panel->Height());
        if (!Line.IsWide) ArrangeRadios(*Panel);
        Controls->addWidget(Panel->Widget(), 1);
      } else if (Each != nullptr) {
        Size(*Each, *Controls);
      }
    }
    const bool IsShort = std::ranges::all_of(
        Line.Controls, [](TWinControl* Each) { return dynamic_cast<TButtonControl*>(Each) != nullptr; });
    if (IsShort) Controls->addStretch();
    Grid.addLayout(Controls, Row, Line.IsWide || Line.Lead == nullptr ? 0 : 1, 1,
                   Line.IsWide || Line.Lead == nullptr ? 2 : 1);
  }
  const int Most = Widget()->fontMetrics().horizontalAdvance(QString(34, 'n'));
  for (auto& [Box, Grid] : Grids) Grid->setColumnMinimumWidth(0, std::min(LeadWidth, Most));
}

}  // namespace zy
