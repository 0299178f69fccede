#pragma once

#include <functional>

#include "platform/framework/TRef.h"
#include "undo/ZyUndoStack.h"

namespace zy {

/// A component's reference to its undo stack, together with the settings objects that it hands the stack on to.
///
/// `TZyUndoLink FUndo{this, &TZyAxis::SetUndoStack, FArrow, FMajorGrid}`: the operation is the component's virtual one,
/// which calls Set; it runs with null when the stack dies. The settings objects have a SetUndoStack of their own; they
/// lose the stack then whatever the operation does.
class TZyUndoLink : private TRefBase {
 public:
  template <class THolder, class... TParts>
  TZyUndoLink(THolder* Holder, void (THolder::*Setter)(TZyUndoStack*), TParts&... Parts)
      : TRefBase(*Holder),
        FSetter(static_cast<void (TComponent::*)(TZyUndoStack*)>(Setter)),
        FHandOn([&Parts...]([[maybe_unused]] TZyUndoStack* Stack) { (Parts.SetUndoStack(Stack), ...); }) {}

  /// Refers to another stack, or to none, and hands it on.
  void Set(TZyUndoStack* Value) {
    FStack = Value;
    Point(Value);
    FHandOn(Value);
  }
  TZyUndoStack* Get() const { return FStack; }
  operator TZyUndoStack*() const { return FStack; }
  TZyUndoStack* operator->() const { return FStack; }

 private:
  void ClearBySetter() override { (Holder().*FSetter)(nullptr); }
  void Drop() override { Set(nullptr); }

  void (TComponent::*FSetter)(TZyUndoStack*);
  std::function<void(TZyUndoStack*)> FHandOn;
  TZyUndoStack* FStack = nullptr;
};

}  // namespace zy
