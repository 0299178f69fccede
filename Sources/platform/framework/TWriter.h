#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/framework/TFiler.h"
#include "platform/framework/TVariant.h"

namespace zy {

class TObject;
class TPersistent;
class TPropInfo;

/// Writes tagged values and whole components to a stream, through a buffer.
///
/// A component is its class name, its name, its published properties that differ from their defaults, what
/// DefineProperties adds, and its children. References are written by name: the bare name for what the root owns, else
/// the dotted path from a form or data module.
class TWriter : public TFiler {
 public:
  explicit TWriter(TStream& Stream, std::size_t BufferSize = 1024);
  /// Flushes the buffer; an error then is lost, so that callers who care call FlushBuffer.
  ~TWriter() override;

  void Write(const void* Bytes, std::size_t Count);
  void WriteInteger(std::int64_t Value);
  void WriteFloat(double Value);
  void WriteBoolean(bool Value);
  void WriteString(std::string_view Value);
  void WriteIdent(std::string_view Value);
  void WriteVariant(const TVariant& Value);
  void WriteListBegin() { WriteTag(TValueType::List); }
  void WriteListEnd() { WriteTag(TValueType::Null); }
  /// Writes Component with its children, and nothing around it. The caller has set Root.
  void WriteComponent(TComponent& Component);
  /// Writes a signature and the whole of Component, which becomes the root: a form for a file.
  void WriteRootComponent(TComponent& Component);

  void DefineProperty(std::string_view Name, const TReaderProc& Read, const TWriterProc& Write, bool HasData) override;
  void FlushBuffer() override;
  /// Place of the next byte in the stream.
  std::int64_t Position();
  void SetPosition(std::int64_t Value);

  /// Writes values that equal their defaults, too, so that reading into a changed object brings all of them back.
  bool WritesDefaults() const { return FWritesDefaults; }
  void SetWritesDefaults(bool Value) { FWritesDefaults = Value; }

 private:
  void WriteTag(TValueType Tag);
  template <class T>
  void WriteNumber(TValueType Tag, T Value);
  void WritePropName(std::string_view Name);
  void WriteProperties(TPersistent& Instance);
  void WriteProperty(TPersistent& Instance, const TPropInfo& Info);
  void WriteObjectProperty(TPersistent& Instance, const TPropInfo& Info);

  std::string FPath;  // names of the sub-objects that are being written, each with its dot
  bool FWritesDefaults = false;
};

}  // namespace zy
