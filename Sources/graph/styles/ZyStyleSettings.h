#pragma once

#include <functional>
#include <utility>

#include "persistence/ZyRecord.h"
#include "platform/framework/TPersistent.h"

namespace zy {

class TZyUndoStack;

/// What a settings object calls after a change; may be empty. Its owner gives it at construction and outlives it.
using ModifiedCallback = std::function<void()>;

/// What settings that an object owns have in common: they tell it of every change, leave undo to its stack, and are a
/// part of its record.
class TZyStyleSettings : public TPersistent, public TZyRecord {
 public:
  TZyUndoStack* UndoStack() const { return FUndoStack; }
  /// The owner's stack; the owner passes null when the stack dies.
  virtual void SetUndoStack(TZyUndoStack* Value) { FUndoStack = Value; }

 protected:
  explicit TZyStyleSettings(ModifiedCallback WhenModified) : mModifiedCallBack(std::move(WhenModified)) {}
  void Modified() {
    if (mModifiedCallBack) mModifiedCallBack();
  }

 private:
  ModifiedCallback mModifiedCallBack;
  TZyUndoStack* FUndoStack = nullptr;
};

}  // namespace zy
