#include "platform/controls/TScrollBar.h"

#include <QEvent>
#include <QScrollBar>
#include <algorithm>
#include <utility>

#include "platform/framework/TPropInfo.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
ZY_PUBLISHED(TScrollBar, TWinControl, Published<&TScrollBar::Kind, &TScrollBar::SetKind>("Kind", sbHorizontal),
             Published<&TScrollBar::Min, &TScrollBar::SetMin>("Min", 0),
             Published<&TScrollBar::Max, &TScrollBar::SetMax>("Max", 100),
             Published<&TScrollBar::PageSize, &TScrollBar::SetPageSize>("PageSize", 0),
             Published<&TScrollBar::Position, &TScrollBar::SetPosition>("Position", 0),
             Published<&TScrollBar::SmallChange, &TScrollBar::SetSmallChange>("SmallChange", 1),
             Published<&TScrollBar::LargeChange, &TScrollBar::SetLargeChange>("LargeChange", 1),
             Published<&TScrollBar::OnScroll, &TScrollBar::SetOnScroll>("OnScroll"),
             Published<&TScrollBar::OnChange, &TScrollBar::SetOnChange>("OnChange"))

TScrollBar::TScrollBar(TComponent* Owner) : TWinControl(Owner) { TScrollBar::SetBounds(0, 0, 121, 17); }

TScrollBar::~TScrollBar() { Destroying(); }

void TScrollBar::SetKind(TScrollBarKind Value) {
  if (Value == FKind) return;
  FKind = Value;
  if (!IsLoading()) SetBounds(Left(), Top(), Height(), Width());  // a stored one has its own extent
  ApplyParams();
}

void TScrollBar::SetPageSize(int Value) {
  if (Value == FPageSize) return;
  FPageSize = std::max(Value, 0);
  ApplyParams();
}

void TScrollBar::SetParams(int Position, int Min, int Max) {
  if (Max < Min) throw ERangeError(Format(LoadResString(_sScrollRange), {Min, Max}));
  Position = std::clamp(Position, Min, Max);
  const bool Moved = Position != FPosition;
  if (!Moved && Min == FMin && Max == FMax) return;
  FPosition = Position;
  FMin = Min;
  FMax = Max;
  ApplyParams();
  if (Moved) Change();
}

void TScrollBar::SetSmallChange(int Value) {
  FSmallChange = std::max(Value, 1);
  ApplyParams();
}

void TScrollBar::SetLargeChange(int Value) {
  FLargeChange = std::max(Value, 1);
  ApplyParams();
}

void TScrollBar::ApplyParams() {
  if (HasWidget()) Configure(static_cast<QScrollBar&>(*Widget()));
}

void TScrollBar::Configure(QScrollBar& Bar) const {
  const QSignalBlocker Silent(Bar);
  Bar.setOrientation(FKind == sbHorizontal ? Qt::Horizontal : Qt::Vertical);
  Bar.setRange(FMin, std::max(FMin, FPageSize > 0 ? FMax - FPageSize + 1 : FMax));
  Bar.setPageStep(FPageSize > 0 ? FPageSize : FLargeChange);  // the toolkit draws the thumb that long
  Bar.setSingleStep(FSmallChange);
  Bar.setValue(FPosition);
}

QWidget* TScrollBar::CreateWidget() {
  auto* const Bar = new QScrollBar(FKind == sbHorizontal ? Qt::Horizontal : Qt::Vertical);
  Bar->setContextMenuPolicy(Qt::NoContextMenu);
  // Connected to the bar itself: it goes before this control does.
  QObject::connect(Bar, &QScrollBar::actionTriggered, Bar,
                   [this](int Action) { HandleEvent([this, Action] { Act(Action); }); });
  QObject::connect(Bar, &QScrollBar::sliderReleased, Bar, [this] { HandleEvent([this] { EndThumb(); }); });
  Configure(*Bar);
  return Bar;
}

bool TScrollBar::WidgetEvent(QEvent& Event) {
  if (Event.type() == QEvent::MouseButtonPress) FPressed = true;
  if (Event.type() == QEvent::MouseButtonRelease) {
    FPressed = false;
    if (std::exchange(FEndIsDue, false)) Send(scEndScroll);
  }
  return Inherited::WidgetEvent(Event);
}

/// The toolkit has worked out where the action leads and waits with the move.
void TScrollBar::Act(int Action) {
  auto& Bar = static_cast<QScrollBar&>(*Widget());
  const auto PageTo = [&](int Way) {
    if (FPageSize > 0 && FLargeChange != FPageSize) Bar.setSliderPosition(FPosition + Way * FLargeChange);
  };
  switch (Action) {
    case QAbstractSlider::SliderSingleStepAdd:
      return Send(scLineDown);
    case QAbstractSlider::SliderSingleStepSub:
      return Send(scLineUp);
    case QAbstractSlider::SliderPageStepAdd:
      PageTo(1);
      return Send(scPageDown);
    case QAbstractSlider::SliderPageStepSub:
      PageTo(-1);
      return Send(scPageUp);
    case QAbstractSlider::SliderToMinimum:
      return Send(scTop);
    case QAbstractSlider::SliderToMaximum:
      return Send(scBottom);
    case QAbstractSlider::SliderMove:
      Send(scTrack);
      if (!Bar.isSliderDown()) EndThumb();  // the wheel: a drag of one step
      return;
    default:
      return;
  }
}

void TScrollBar::Send(TScrollCode ScrollCode) {
  auto& Bar = static_cast<QScrollBar&>(*Widget());
  const std::uint64_t Alive = LiveHandle();
  int Wanted = Bar.sliderPosition();
  Scroll(ScrollCode, Wanted);
  if (FromLiveHandle(Alive) == nullptr || !HasWidget()) return;
  SetPosition(std::clamp(Wanted, Bar.minimum(), Bar.maximum()));
  if (FromLiveHandle(Alive) == nullptr || !HasWidget()) return;
  if (Bar.sliderPosition() != FPosition) Bar.setSliderPosition(FPosition);
  const bool IsStep = ScrollCode != scTrack && ScrollCode != scPosition && ScrollCode != scEndScroll;
  if (IsStep && FPressed) FEndIsDue = true;
  if (IsStep && !FPressed) Send(scEndScroll);
}

void TScrollBar::EndThumb() {
  const std::uint64_t Alive = LiveHandle();
  Send(scPosition);
  if (FromLiveHandle(Alive) != nullptr && HasWidget()) Send(scEndScroll);
}

void TScrollBar::Scroll(TScrollCode ScrollCode, int& ScrollPos) {
  if (const TScrollEvent Event = FOnScroll) Event(this, ScrollCode, ScrollPos);
}

void TScrollBar::Change() {
  if (const TNotifyEvent Event = FOnChange) Event(this);
}

}  // namespace zy
