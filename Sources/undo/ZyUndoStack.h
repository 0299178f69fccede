#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/framework/TComponent.h"
#include "undo/ZyEditState.h"
#include "undo/ZyUndoList.h"
#include "undo/ZyUndoLog.h"
#include "undo/ZyUndoParts.h"

namespace zy {

class TPropInfo;
class TVariant;

/// Records changes of objects and plays them back.
///
/// Every object with a reference to a stack calls PushProperty in its setters before a change. Undo writes the old
/// value back through the same setter, while the stack stays silent, and logs the present value for Redo. One user
/// action that changes several things stands between StartGroup and StopGroup and is one step.
///
/// The log is bytes: a step costs the size of what changed, and a push does not depend on how much was logged before.
/// Objects that are components are found again by their dotted name, all others by a number that dies with them.
/// For the thread of the user interface only.
class TZyUndoStack : public TComponent {
  ZY_CLASS(TZyUndoStack, TComponent)
  using TNotifyEvent = std::function<void(TObject* Sender)>;

  explicit TZyUndoStack(TComponent* Owner = nullptr);
  ~TZyUndoStack() override;

  /// Whether changes are recorded and can be undone. The log stays while this is false.
  bool Enabled() const { return FEnabled; }
  void SetEnabled(bool Value) { FEnabled = Value; }
  /// Most steps that are kept; 0 or less means all. A lower limit forgets the oldest steps at once, or inside a group
  /// with the first push behind it.
  int Limit() const { return FLimit; }
  void SetLimit(int Value);
  /// Whether the log lies in memory, or else in temporary files that go with the stack. Counts until the first push.
  bool ToMemoryStream() const { return FToMemoryStream; }
  void SetToMemoryStream(bool Value) { FToMemoryStream = Value; }
  /// Run after each Undo and Redo, a failed one included.
  const TNotifyEvent& OnUndo() const { return mUndo; }
  void SetOnUndo(TNotifyEvent Value) { mUndo = std::move(Value); }
  const TNotifyEvent& OnRedo() const { return mRedo; }
  void SetOnRedo(TNotifyEvent Value) { mRedo = std::move(Value); }

  /// True while Undo or Redo replays; all pushes are dropped then.
  bool Restoring() const { return FRestoring; }
  bool CanUndo() const { return FEnabled && FUndo.CurrentEntry() >= 0; }
  bool CanRedo() const { return FEnabled && FRedo.CurrentEntry() >= 0; }
  /// Steps in the log. Those that were undone count until the next push, those redone until the next undo.
  int UndoCount() const { return FUndo.EntryCount(); }
  int RedoCount() const { return FRedo.EntryCount(); }
  /// Labels of the steps, the newest first.
  const TStrings& UndoList() const { return FUndoList; }
  const TStrings& RedoList() const { return FRedoList; }

  /// Logs the present value of a property that has a row in its class's table, before it changes.
  /// Throws EFilerError when Instance has no such property and EStreamError for an array of more than one dimension;
  /// then nothing is logged.
  void PushProperty(TPersistent* Instance, std::string_view Comment, std::string_view PropName);
  /// The same under LabelOf.
  void PushProperty(TPersistent* Instance, std::string_view PropName);
  /// The label of a property's row, or the property's name when the row has none.
  static std::string_view LabelOf(const TPersistent& Instance, std::string_view PropName);
  /// Logs the whole of a component; undo brings it back to that state. One that has died is made anew at its place,
  /// with this stack if it had it; the properties of its owner's components that pointed at it do so again, and what
  /// was logged of it and of its settings is theirs. Push and deletion stand in one group, since what points at the
  /// component clears itself with steps of its own.
  void PushComponent(TComponent* AComponent, std::string_view Comment);
  /// Logs that a component was made; undo frees it. Throws EStreamError when it cannot be found by name.
  void PushFreeComponent(TComponent* AComponent, std::string_view Comment);
  /// Logs text and selection of an edit control (a component that is an IZyEditState as well).
  void PushEditState(TComponent* AEdit, std::string_view ACaption, int ASelStart, int ASelLength,
                     std::string_view Comment);
  /// Logs the contents of a data vector (an IZyStreamState), before they change.
  void PushVectorState(TPersistent* AVector, std::string_view Comment);
  /// Opens a group. Groups nest; only the outermost is a step, with its own label.
  void StartGroup(std::string_view Comment);
  /// Closes the innermost group. Throws EOverflow when none is open.
  void StopGroup();
  /// How many groups are open.
  int GroupLevel() const { return FUndo.GroupLevel(); }

  /// Replays the newest ToIndex + 1 steps. ToIndex is an index of UndoList (RedoList). When replaying fails, the stack
  /// is cleared, since half a step must not stay; the caller sees nothing but the event. Nothing happens while a group
  /// is open, as during a drag, and from inside a replay.
  void Undo(int ToIndex = 0);
  void Redo(int ToIndex = 0);
  /// Forgets everything; from inside a replay, at its end.
  void Clear();
  /// How often everything was forgotten, and open groups with it.
  int Clears() const { return FClears; }

  /// Notes that everything is saved as it is now.
  void MarkSaved() { FSavedAt = FUndo.LiveEntries(); }
  /// Whether the steps that are logged, undone and redone lead back to where MarkSaved was called, or to the empty
  /// stack without it. False for good when there is no such way any more, until it is called again.
  bool Saved() const { return FUndo.LiveEntries() == FSavedAt; }

 private:
  friend class TZyUndoList;
  friend class TZyRedoList;
  struct TInstance {
    TPersistent* Object = nullptr;
    bool WasNull = false;  // a null was written, not an object that has died since
  };

  bool Silent() const { return !FEnabled || FRestoring || IsLoading(); }
  void InitStreams();
  void RemoveFiles();
  std::unique_ptr<TStream> OpenStream(std::filesystem::path& FileName);
  void PushRow(TPersistent* Instance, std::string_view Comment, const TPropInfo& Info);
  template <class TPayload>
  void Push(std::string_view Comment, TZyUndoToken Token, const TPayload& WritePayload);
  /// False when there is nothing to replay or no time for it.
  bool Replay(TZyUndoLog& Log, int ToIndex, void (TZyUndoStack::*ReplayAt)(int Record));

  void WriteToken(TWriter& Writer, TZyUndoToken Token) { Writer.WriteInteger(static_cast<int>(Token)); }
  void WriteObjectInstance(TWriter& Writer, TPersistent* Instance);
  TInstance ReadObjectInstance(TReader& Reader);
  void WritePropertyTo(TWriter& Writer, TPersistent& Instance, const TPropInfo& Info);
  void ReadPropertryFrom(TReader& Reader, TPersistent* Instance, const std::string& PropName);
  void ReadObjectProperty(TReader& Reader, TPersistent& Instance, const TPropInfo& Info);
  void WriteComponentTo(TWriter& Writer, TComponent& Component);
  void ReadComponentFrom(TReader& Reader, TComponent* Instance);
  void RestorePlace(TReader& Reader, TComponent& Component);
  void WriteVectorTo(TZyUndoLog& Log, TPersistent* Vector, const IZyStreamState& State);
  void ReadVectorFrom(TZyUndoLog& Log, TPersistent* Instance);
  void RestoreEdit(TReader& Reader, IZyEditState& Edit);

  void UndoAt(int Record);
  void UndoProperty();
  void UndoComponent();
  void UndoFreeComponent();
  void UndoEditState();
  void UndoVectorState();
  void PushRedoGroup(TZyUndoToken Token, int LevelChange);
  void RedoAt(int Record);

  bool FEnabled = true;
  bool FRestoring = false;
  bool FMustClear = false;  // at the end of the replay
  bool FToMemoryStream = true;
  int FLimit = 20;
  int FClears = 0;
  static constexpr std::int64_t NoWayBack = -1;
  std::int64_t FSavedAt = 0;  // live entries at MarkSaved
  std::filesystem::path FUndoFileName, FRedoFileName, FScratchName;
  std::string FCurrentUndoComment;       // label of the entry that is being written or replayed
  std::string FCurrentInstanceFullName;  // reference text last read
  std::unique_ptr<TStream> FScratch;
  TZyUndoLog FUndo, FRedo;
  TZyUndoList FUndoList{*this};
  TZyRedoList FRedoList{*this};
  TNotifyEvent mUndo, mRedo;
};

}  // namespace zy
