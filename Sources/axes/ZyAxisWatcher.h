#pragma once

#include <functional>

namespace zy {

class TWinControl;

/// Hears of each layout of axes, for parts of the library that follow an axis and leave its events to the application.
/// For the control thread only.
class TZyAxisWatcher {
 public:
  /// OnLaidOut runs behind the events of the axes, with their parent. It may make and free watchers, but no axis.
  explicit TZyAxisWatcher(std::function<void(const TWinControl& Parent)> OnLaidOut);
  ~TZyAxisWatcher();
  TZyAxisWatcher(const TZyAxisWatcher&) = delete;
  TZyAxisWatcher& operator=(const TZyAxisWatcher&) = delete;

  /// For the layout pass: tells all watchers.
  static void Tell(const TWinControl& Parent);

 private:
  std::function<void(const TWinControl& Parent)> FOnLaidOut;
};

}  // namespace zy
