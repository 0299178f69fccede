#include "platform/controls/TTrackBar.h"

#include <QSlider>
#include <algorithm>

#include "platform/framework/TPropInfo.h"

namespace zy {

template class TWidgetOf<QSlider>;

ZY_PUBLISHED(TTrackBar, TWinControl, Published<&TTrackBar::Min, &TTrackBar::SetMin>("Min", 0),
             Published<&TTrackBar::Max, &TTrackBar::SetMax>("Max", 10),
             Published<&TTrackBar::Position, &TTrackBar::SetPosition>("Position", 0),
             Published<&TTrackBar::Orientation, &TTrackBar::SetOrientation>("Orientation", trHorizontal),
             Published<&TTrackBar::LineSize, &TTrackBar::SetLineSize>("LineSize", 1),
             Published<&TTrackBar::PageSize, &TTrackBar::SetPageSize>("PageSize", 2),
             Published<&TTrackBar::TabStop, &TTrackBar::SetTabStop>("TabStop", true),
             Published<&TTrackBar::OnChange, &TTrackBar::SetOnChange>("OnChange"))

TTrackBar::TTrackBar(TComponent* Owner) : TWidgetOf(Owner) {
  TTrackBar::SetBounds(0, 0, 150, 33);
  SetTabStop(true);
}

TTrackBar::~TTrackBar() { Destroying(); }

void TTrackBar::Configure(QSlider& Box) {
  const bool IsVertical = FOrientation == trVertical;
  Box.setOrientation(IsVertical ? Qt::Vertical : Qt::Horizontal);
  Box.setInvertedAppearance(IsVertical);
  Box.setInvertedControls(IsVertical);
  Box.setRange(FMin, FMax);
  Box.setSingleStep(FLineSize);
  Box.setPageStep(FPageSize);
  Box.setValue(FPosition);
}

void TTrackBar::Listen(QSlider& Box) {
  On(Box, &QSlider::valueChanged, [this](int Value) {
    FPosition = Value;
    Change();
  });
}

void TTrackBar::Carry() {
  With([this](QSlider& Box) { Configure(Box); });
}

void TTrackBar::SetParams(int Position, int Min, int Max) {
  FMin = Min;
  FMax = std::max(Min, Max);
  FPosition = IsLoading() ? Position : std::clamp(Position, FMin, FMax);  // the range may be read later
  Carry();
}

void TTrackBar::SetOrientation(TTrackBarOrientation Value) {
  FOrientation = Value;
  Carry();
}

void TTrackBar::SetLineSize(int Value) {
  FLineSize = std::max(Value, 1);
  Carry();
}

void TTrackBar::SetPageSize(int Value) {
  FPageSize = std::max(Value, 1);
  Carry();
}

void TTrackBar::Change() {
  if (const TNotifyEvent Event = FOnChange) Event(this);
}

}  // namespace zy
