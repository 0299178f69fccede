#pragma once

#include <functional>
#include <utility>

#include "persistence/ZyRecord.h"
#include "platform/framework/TPersistent.h"

namespace zy {

class TZyUndoStack;

/// What a settings object calls after a change; may be empty. Its owner gives it at construction and outlives it.
using ModifiedCallback = std::function<void()>;

/// What settings that an object owns have in common: they tell it of every change, leave undo to its stack, copy each
/// other by their table of properties, and are a part of its record.
class TZyStyleSettings : public TPersistent, public TZyRecord {
 public:
  /// Null while values are copied, which is no step of the user's.
  TZyUndoStack* UndoStack() const { return FCopying ? nullptr : FUndoStack; }
  /// The owner's stack; the owner passes null when the stack dies.
  virtual void SetUndoStack(TZyUndoStack* Value) { FUndoStack = Value; }
  /// Copies what both classes publish, without undo, and tells the owner once.
  void Assign(const TPersistent* Source) override;

 protected:
  explicit TZyStyleSettings(ModifiedCallback Callback) : mModifiedCallBack(std::move(Callback)) {}
  void Modified() {
    if (mModifiedCallBack && !FCopying) mModifiedCallBack();
  }
  const ModifiedCallback& WhenModified() const { return mModifiedCallBack; }
  /// Copies what both classes publish, without undo, and tells nobody. False when they have nothing in common.
  bool CopyFrom(const TPersistent* Source);
  bool IsCopying() const { return FCopying; }

 private:
  ModifiedCallback mModifiedCallBack;
  TZyUndoStack* FUndoStack = nullptr;
  bool FCopying = false;
};

}  // namespace zy
