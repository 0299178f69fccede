#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>

#include "platform/framework/TStream.h"

namespace zy {

class TComponent;
class TPersistent;
class TPropInfo;
class TReader;
class TWriter;

/// Tags in front of the values of a component stream. Numbers follow a tag in little-endian order.
enum class TValueType : std::uint8_t {
  Null,  ///< end of a list; also a null value
  List,  ///< values up to Null
  Int8,
  Int16,
  Int32,
  Int64,
  Double,
  String,   ///< UTF-8, one byte of length
  LString,  ///< UTF-8, four bytes of length
  WString,  ///< UTF-16 units, four bytes of their count
  UString,  ///< UTF-8, four bytes of length
  Ident,    ///< a name or a dotted path, four bytes of length
  False,
  True,
  Nil,    ///< no object
  Array,  ///< array of a variant: four bytes of count, then so many values
  Last = Array
};

/// First bytes of a stream that holds a root component.
inline constexpr std::string_view RootSignature = "ZYF1";

/// How deep lists, arrays and components may lie inside each other in a stream.
inline constexpr int MaxStreamDepth = 200;

/// What TWriter and TReader share: a buffer over a stream, and the root, from which component names are looked up.
///
/// The buffer serves either reading or writing. FlushBuffer brings stream and filer to the same position, after which
/// another object may read or write the stream directly; SetPosition picks the filer up again from anywhere.
class TFiler {
 public:
  using TReaderProc = std::function<void(TReader&)>;
  using TWriterProc = std::function<void(TWriter&)>;

  TFiler(TStream& Stream, std::size_t BufferSize);
  virtual ~TFiler() = default;
  TFiler(const TFiler&) = delete;
  TFiler& operator=(const TFiler&) = delete;

  /// Reads or writes a named value that is no published property; for TPersistent::DefineProperties. It is written only
  /// with HasData.
  virtual void DefineProperty(std::string_view Name, const TReaderProc& Read, const TWriterProc& Write,
                              bool HasData) = 0;
  virtual void FlushBuffer() = 0;

  TComponent* Root() const { return FRoot; }
  void SetRoot(TComponent* Value) { FRoot = Value; }

  /// The object that is streamed inside Instance under this property: an owned object, or a component that Instance
  /// made a part of itself. Null when there is none, and for a reference to something that lives elsewhere.
  static TPersistent* PartOf(TPersistent& Instance, const TPropInfo& Info);

 protected:
  TStream& FStream;
  std::size_t FBufferSize;
  std::unique_ptr<std::byte[]> FBuffer;
  std::size_t FUsed = 0;  // bytes of the buffer read or written
  TComponent* FRoot = nullptr;
};

}  // namespace zy
