#include "platform/controls/TTimer.h"

#include <QCoreApplication>
#include <QTimer>
#include <algorithm>
#include <exception>

#include "platform/controls/TApplication.h"
#include "platform/framework/TPropInfo.h"

namespace zy {

class TTimer::TClock : public QTimer {};

ZY_PUBLISHED(TTimer, TComponent, Published<&TTimer::Interval, &TTimer::SetInterval>("Interval", 1000),
             Published<&TTimer::Enabled, &TTimer::SetEnabled>("Enabled", true),
             Published<&TTimer::OnTimer, &TTimer::SetOnTimer>("OnTimer"))

TTimer::TTimer(TComponent* Owner) : TComponent(Owner) {}

// A handler may take the timer away: the clock goes when its tick is done.
TTimer::~TTimer() {
  Destroying();
  if (FClock == nullptr) return;
  if (QCoreApplication::instance() == nullptr) return;
  FClock->stop();
  FClock->disconnect();
  FClock.release()->deleteLater();
}

void TTimer::SetInterval(int Value) {
  Value = std::max(Value, 0);
  if (Value == FInterval) return;
  FInterval = Value;
  Restart();
}

void TTimer::SetEnabled(bool Value) {
  if (Value == FEnabled) return;
  FEnabled = Value;
  Restart();
}

void TTimer::SetOnTimer(TNotifyEvent Value) {
  const bool Was = FOnTimer != nullptr;
  FOnTimer = std::move(Value);
  if (Was != (FOnTimer != nullptr)) Restart();
}

void TTimer::Loaded() {
  Inherited::Loaded();
  Restart();
}

void TTimer::Restart() {
  if (QCoreApplication::instance() == nullptr) return;
  if (!FEnabled || FInterval == 0 || !FOnTimer || IsLoading() || IsDesigning()) {
    if (FClock != nullptr) FClock->stop();
    return;
  }
  if (FClock == nullptr) {
    FClock = std::make_unique<TClock>();
    QObject::connect(FClock.get(), &QTimer::timeout, FClock.get(), [this] {
      try {
        Timer();
      } catch (const std::exception& Error) {
        TApplication::HandleException(Error);
      }
    });
  }
  FClock->start(FInterval);
}

void TTimer::Timer() {
  if (const TNotifyEvent Event = FOnTimer) Event(this);
}

}  // namespace zy
