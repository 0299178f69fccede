#pragma once

#include <type_traits>

#include "platform/framework/TComponent.h"

namespace zy {

/// Untyped part of TRef.
class TRefBase {
 public:
  TRefBase(const TRefBase&) = delete;
  TRefBase& operator=(const TRefBase&) = delete;

 protected:
  explicit TRefBase(TComponent& Holder) : FHolder(Holder) {}
  ~TRefBase() { Point(nullptr); }
  void Point(TComponent* Target);
  TComponent* Target() const { return FTarget; }

 private:
  friend class TComponent;
  TComponent& FHolder;
  TComponent* FTarget = nullptr;
};

/// A member of a component that points at another component without owning it.
///
/// When the target dies, the holder's Notification hears of it while the reference still stands, and is expected to
/// clear it through its setter; whatever it does, the reference is null afterwards.
template <class T>
class TRef : private TRefBase {
 public:
  explicit TRef(TComponent* Holder) : TRefBase(*Holder) {}

  TRef& operator=(T* Target) {
    Point(Target);
    FTyped = Target;
    return *this;
  }
  T* Get() const { return Target() == nullptr ? nullptr : FTyped; }
  operator T*() const { return Get(); }
  T* operator->() const { return Get(); }

 private:
  T* FTyped =
      nullptr;  // kept beside the base's pointer: the target's own class is gone when it announces its death late
};

}  // namespace zy
