#pragma once

#include <memory>

namespace zy {

/// A pen or brush that a series makes from its settings, or that an application puts in the place of that.
template <class T>
class TZyStyleObject {
 public:
  const T* Get() const { return FGiven != nullptr ? FGiven : FOwn.get(); }
  explicit operator bool() const { return Get() != nullptr; }
  const T& operator*() const { return *Get(); }
  const T* operator->() const { return Get(); }
  /// Whether it follows the settings.
  bool IsOwn() const { return FGiven == nullptr; }
  T* Own() { return FOwn.get(); }
  void SetOwn(std::shared_ptr<T> Value) { FOwn = std::move(Value); }
  /// The own one, for those who draw with it while settings may make another.
  std::shared_ptr<const T> Shared() const { return FOwn; }
  /// Not owned; null goes back to the own one.
  void SetGiven(const T* Value) { FGiven = Value; }

 private:
  std::shared_ptr<T> FOwn;
  const T* FGiven = nullptr;
};

}  // namespace zy
