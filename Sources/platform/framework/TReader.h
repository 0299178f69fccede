#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/framework/TFiler.h"
#include "platform/framework/TVariant.h"

namespace zy {

class TPersistent;
class TPropInfo;

/// Reads what TWriter wrote. Every length is checked against what the stream still holds, and nesting is bounded, so
/// that no input makes it allocate or recurse beyond measure.
///
/// Errors: EReadError for truncated, malformed or mistyped input and for a property that a class does not have;
/// EClassNotFound for a class that is not registered; and what a setter throws. What was read until then stays; a
/// component that was being created is deleted.
class TReader : public TFiler {
 public:
  explicit TReader(TStream& Stream, std::size_t BufferSize = 1024);
  ~TReader() override;

  void Read(void* Bytes, std::size_t Count);
  /// Tag of the next value, which stays unread.
  TValueType NextValue();
  std::int64_t ReadInteger();
  /// A real; whole numbers are taken as well.
  double ReadFloat();
  bool ReadBoolean();
  /// A text of any of the four string kinds.
  std::string ReadString();
  std::string ReadIdent();
  TVariant ReadVariant();
  void ReadListBegin();
  void ReadListEnd();
  bool EndOfList() { return NextValue() == TValueType::Null; }
  /// Passes over the next value, whatever it is.
  void SkipValue();

  /// Opens a round of reading components; their references are noted, and FixupReferences resolves them.
  void BeginReferences();
  /// Sets all references read since BeginReferences; names that resolve to nothing give null. Then runs Loaded of each
  /// component read, parts included.
  void FixupReferences();
  /// Closes the round, after an error as well: no component stays in the loading state.
  void EndReferences();

  /// Reads one component with its children. Instance is filled in place, and must be of the stored class. Without it,
  /// the component of that class and name that the root owns already is filled, else a new one is made, owned by the
  /// root.
  TComponent* ReadComponent(TComponent* Instance);
  /// Reads a stream of WriteRootComponent into Root, children and references included. With null it makes the object.
  /// The caller owns a new one.
  TComponent* ReadRootComponent(TComponent* Instance);

  void DefineProperty(std::string_view Name, const TReaderProc& Read, const TWriterProc& Write, bool HasData) override;
  /// Sets the stream to the place of the next unread byte and forgets the buffer.
  void FlushBuffer() override;
  std::int64_t Position();
  void SetPosition(std::int64_t Value);

 private:
  struct TReference {
    std::uint64_t Instance;  // live handles: an object may die before the references are set
    const TPropInfo* Info;
    std::string Path;
  };
  class TDepth;

  TValueType ReadTag();
  template <class T>
  T ReadNumber();
  std::size_t ReadCount(std::size_t Width);
  std::string ReadBytes(std::size_t Count);
  std::int64_t ReadIntegerOf(TValueType Tag);
  std::string ReadTextOf(TValueType Tag);
  std::int64_t Remaining();
  void SkipContent(TValueType Tag);
  TComponent* FindOrCreate(const std::string& ClassName, const std::string& Name);
  TComponent* ReadComponentInto(TComponent* Instance, TComponent* Parent);
  void ReadProperties(TComponent& Component);
  void ReadProperty(TComponent& Component);
  void ReadValue(TPersistent& Instance, const TPropInfo& Info);
  void MarkLoading(TComponent& Component);
  static void MarkReading(TComponent& Component, bool Value);
  void DiscardCreated(std::size_t Since);

  std::size_t FFilled = 0;  // bytes of the buffer that came from the stream
  int FDepth = 0;
  std::string_view FDefinedName;  // the property that DefineProperties is asked for
  bool FDefinedFound = false;
  std::vector<TReference> FReferences;
  std::vector<std::uint64_t> FLoaded;   // live handles in order of reading
  std::vector<std::uint64_t> FCreated;  // live handles of new components
};

}  // namespace zy
