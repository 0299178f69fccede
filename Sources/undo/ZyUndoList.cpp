#include "undo/ZyUndoList.h"

#include "platform/framework/TPropInfo.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"
#include "undo/ZyUndoStack.h"

namespace zy {

ZY_PUBLISHED(TZyStepList, TStrings)
ZY_PUBLISHED(TZyUndoList, TZyStepList)
ZY_PUBLISHED(TZyRedoList, TZyStepList)

int TZyStepList::Count() const { return Log().CurrentEntry() + 1; }

std::string TZyStepList::Get(int Index) const {
  if (Index < 0 || Index >= Count()) throw ERangeError(Format(LoadResString(_sVectorIdxOutOfRange), {Index}));
  return Log().Comment(Log().CurrentEntry() - Index);
}

TZyUndoLog& TZyUndoList::Log() const { return FUndoStack.FUndo; }

TZyUndoLog& TZyRedoList::Log() const { return FUndoStack.FRedo; }

}  // namespace zy
