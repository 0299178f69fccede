#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <QWidget>
#include <array>

#include "dialogs/controls/ZyTuneColorsForm.h"

namespace zy {

/// Sliders beside their strips at both sides of the square; the edits, in the order of the tabulator key, behind them.
void TZyTuneColorsForm::ArrangeWidgets() {
  Inherited::ArrangeWidgets();
  for (TPanel* Picture : {FCircle, SBGradient, FAlpha, FSample})
    Picture->Widget()->setFixedSize(Picture->Width(), Picture->Height());
  auto* const Pictures = new QHBoxLayout;
  for (TWinControl* Each : std::array<TWinControl*, 5>{HueTrack, FCircle, SBGradient, FAlpha, AlphaTrack})
    Pictures->addWidget(Each->Widget());
  Pictures->addStretch();

  auto* const Edits = new QGridLayout;
  int Row = 0;
  for (TZyNumericUpDn* Edit : {HEdit, SEdit, LEdit, REdit, GEdit, BEdit, AlphaEdit}) {
    auto* const Label = static_cast<TWinControl*>(Edit->Label());
    Edits->addWidget(Label->Widget(), Row, 0);
    Edits->addWidget(Edit->Widget(), Row++, 1);
  }
  Edits->setRowStretch(Row, 1);

  auto* const History = new QGridLayout(PreviousColorsBar->Widget());
  History->setContentsMargins(0, 0, 0, 0);
  History->setSpacing(2);
  constexpr int Columns = TZyColorHistory::Count / 2;
  for (int Index = 0; Index < TZyColorHistory::Count; ++Index)
    History->addWidget(FPrevious[static_cast<std::size_t>(Index)]->Widget(), Index / Columns, Index % Columns);

  auto* const Upper = new QHBoxLayout;
  Upper->addLayout(Pictures);
  Upper->addLayout(Edits);
  auto* const Lower = new QHBoxLayout;
  Lower->addWidget(FSample->Widget());
  Lower->addWidget(PreviousColorsBar->Widget());
  Lower->addStretch();
  Lower->addWidget(OKBtn->Widget());
  Lower->addWidget(CancelBtn->Widget());
  auto* const All = new QVBoxLayout(Widget());
  All->addLayout(Upper);
  All->addLayout(Lower);
}

}  // namespace zy
