#pragma once

#include <functional>
#include <utility>

#include "platform/framework/TComponent.h"

namespace zy {

/// Done is true at first; clearing it asks for another call at once.
using TIdleEvent = std::function<void(TObject* Sender, bool& Done)>;

/// Brings the idle moments of the program to whoever holds one of these.
///
/// All of them share one entry in the application's list, so that an idle moment costs one call for each that has an
/// event, however many there are. One may go, or change its event, within any of the calls.
class TApplicationEvents : public TComponent {
  ZY_CLASS(TApplicationEvents, TComponent)
  explicit TApplicationEvents(TComponent* Owner = nullptr);
  ~TApplicationEvents() override;

  /// Runs when the program has handled what there was and is about to wait. A handler that may wait itself, as for a
  /// dialog, would keep all others waiting: it posts that instead.
  const TIdleEvent& OnIdle() const { return FOnIdle; }
  void SetOnIdle(TIdleEvent Value);

 private:
  class THub;

  TIdleEvent FOnIdle;
};

}  // namespace zy
