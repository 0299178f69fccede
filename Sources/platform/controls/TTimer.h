#pragma once

#include <memory>

#include "platform/controls/ControlTypes.h"
#include "platform/framework/TComponent.h"

namespace zy {

/// Runs OnTimer again and again on the control thread, from the event loop. Starts with the application object's
/// presence: one made before it is started by its next change.
class TTimer : public TComponent {
  ZY_CLASS(TTimer, TComponent)
  explicit TTimer(TComponent* Owner = nullptr);
  ~TTimer() override;

  /// Milliseconds; 0 stops the timer. 1000 at first.
  int Interval() const { return FInterval; }
  void SetInterval(int Value);
  bool Enabled() const { return FEnabled; }
  void SetEnabled(bool Value);
  const TNotifyEvent& OnTimer() const { return FOnTimer; }
  void SetOnTimer(TNotifyEvent Value);
  void Loaded() override;

 protected:
  /// Runs at each tick.
  virtual void Timer();

 private:
  class TClock;
  void Restart();

  int FInterval = 1000;
  bool FEnabled = true;
  TNotifyEvent FOnTimer;
  std::unique_ptr<TClock> FClock;
};

}  // namespace zy
