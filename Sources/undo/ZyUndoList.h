#pragma once

#include <string>

#include "platform/framework/TStrings.h"

namespace zy {

class TZyUndoLog;
class TZyUndoStack;

/// Read-only view of the steps in one log of an undo stack: their labels, the newest first. What would change the list
/// does nothing.
class TZyStepList : public TStrings {
  ZY_CLASS(TZyStepList, TStrings)

  int Count() const override;
  /// Label of a step, read back from the log. Throws ERangeError outside 0 to Count - 1.
  std::string Get(int Index) const override;
  void Put(int, const std::string&) override {}
  void Clear() override {}
  void Delete(int) override {}
  void Insert(int, const std::string&) override {}

 protected:
  explicit TZyStepList(TZyUndoStack& UndoStack) : FUndoStack(UndoStack) {}
  virtual TZyUndoLog& Log() const = 0;

  TZyUndoStack& FUndoStack;
};

/// What can be undone.
class TZyUndoList : public TZyStepList {
  ZY_CLASS(TZyUndoList, TZyStepList)
  explicit TZyUndoList(TZyUndoStack& UndoStack) : TZyStepList(UndoStack) {}

 protected:
  TZyUndoLog& Log() const override;
};

/// What can be redone.
class TZyRedoList : public TZyStepList {
  ZY_CLASS(TZyRedoList, TZyStepList)
  explicit TZyRedoList(TZyUndoStack& UndoStack) : TZyStepList(UndoStack) {}

 protected:
  TZyUndoLog& Log() const override;
};

}  // namespace zy
