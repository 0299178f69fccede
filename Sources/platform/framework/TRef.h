#pragma once

#include <type_traits>

#include "platform/framework/TComponent.h"

namespace zy {

/// Untyped part of TRef: one link in the chain of those that point at a component. Setting and clearing cost the same
/// however many there are.
class TRefBase {
 public:
  TRefBase(const TRefBase&) = delete;
  TRefBase& operator=(const TRefBase&) = delete;

 protected:
  explicit TRefBase(TComponent& Holder) : FHolder(Holder) {}
  virtual ~TRefBase() { Point(nullptr); }
  void Point(TComponent* Target);
  TComponent* Target() const { return FTarget; }
  TComponent& Holder() const { return FHolder; }
  /// Clears the reference the way its holder wants it. Runs while the target dies, unless the holder dies as well.
  virtual void ClearBySetter() {}
  /// The target is gone; nothing of the reference may stand any longer.
  virtual void Drop() { Point(nullptr); }

 private:
  friend class TComponent;
  TComponent& FHolder;
  TComponent* FTarget = nullptr;
  TRefBase* FNext = nullptr;  // in the target's chain
  TRefBase* FPrevious = nullptr;
};

/// A member of a component that points at another component without owning it.
///
/// When the target dies, the holder's Notification hears of it while the reference still stands; then the setter that
/// the reference was given runs with null, unless the holder is being destroyed itself. Whatever they do, the reference
/// is null afterwards.
template <class T>
class TRef : private TRefBase {
 public:
  explicit TRef(TComponent* Holder) : TRefBase(*Holder) {}
  /// Setter is the holder's operation that sets this reference: `TRef<TZyAxis> FXAxis{this, &TZySeries::SetXAxis}`.
  template <class THolder>
  TRef(TComponent* Holder, void (THolder::*Setter)(T*))
      : TRefBase(*Holder), FSetter(static_cast<void (TComponent::*)(T*)>(Setter)) {}

  TRef& operator=(T* Target) {
    Point(Target);
    FTyped = Target;
    return *this;
  }
  T* Get() const { return Target() == nullptr ? nullptr : FTyped; }
  operator T*() const { return Get(); }
  T* operator->() const { return Get(); }

 private:
  void ClearBySetter() override {
    if (FSetter != nullptr) (Holder().*FSetter)(nullptr);
  }

  void (TComponent::*FSetter)(T*) = nullptr;
  T* FTyped =
      nullptr;  // kept beside the base's pointer: the target's own class is gone when it announces its death late
};

}  // namespace zy
