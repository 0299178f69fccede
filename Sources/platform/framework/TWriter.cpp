#include "platform/framework/TWriter.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>
#include <type_traits>

#include "platform/framework/ComponentPath.h"
#include "platform/framework/TComponent.h"
#include "platform/framework/TPropInfo.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {

TFiler::TFiler(TStream& Stream, std::size_t BufferSize)
    : FStream(Stream), FBufferSize(BufferSize), FBuffer(std::make_unique<std::byte[]>(BufferSize)) {}

TPersistent* TFiler::PartOf(TPersistent& Instance, const TPropInfo& Info) {
  if (Info.Kind != TPropKind::Class) return nullptr;
  TPersistent* const Value = Info.GetObject(Instance);
  if (Info.IsOwnedObject) return Value;
  const auto* const Component = dynamic_cast<TComponent*>(Value);
  const bool IsPart = Component != nullptr && Component->IsSubComponent() && Component->Owner() == &Instance;
  return IsPart ? Value : nullptr;
}

TWriter::TWriter(TStream& Stream, std::size_t BufferSize) : TFiler(Stream, std::max<std::size_t>(BufferSize, 16)) {}

TWriter::~TWriter() {
  try {
    FlushBuffer();
  } catch (const Exception&) {
    // A destructor has nobody to tell.
  }
}

void TWriter::Write(const void* Bytes, std::size_t Count) {
  if (Count == 0) return;
  if (Count > FBufferSize - FUsed) FlushBuffer();
  if (Count > FBufferSize) {
    FStream.WriteBuffer(Bytes, Count);
    return;
  }
  std::memcpy(FBuffer.get() + FUsed, Bytes, Count);
  FUsed += Count;
}

void TWriter::FlushBuffer() {
  const std::size_t Count = FUsed;
  FUsed = 0;
  if (Count > 0) FStream.WriteBuffer(FBuffer.get(), Count);
}

std::int64_t TWriter::Position() { return FStream.Position() + static_cast<std::int64_t>(FUsed); }

void TWriter::SetPosition(std::int64_t Value) {
  if (Value == Position()) return;
  FlushBuffer();
  FStream.SetPosition(Value);
}

void TWriter::WriteTag(TValueType Tag) { Write(&Tag, 1); }

template <class T>
void TWriter::WriteNumber(TValueType Tag, T Value) {
  std::uint8_t Bytes[1 + sizeof(T)] = {static_cast<std::uint8_t>(Tag)};
  std::uint64_t Bits = static_cast<std::make_unsigned_t<T>>(Value);
  for (std::size_t Index = 1; Index <= sizeof(T); ++Index, Bits >>= 8) Bytes[Index] = static_cast<std::uint8_t>(Bits);
  Write(Bytes, sizeof Bytes);
}

void TWriter::WriteInteger(std::int64_t Value) {
  if (std::in_range<std::int8_t>(Value)) return WriteNumber(TValueType::Int8, static_cast<std::int8_t>(Value));
  if (std::in_range<std::int16_t>(Value)) return WriteNumber(TValueType::Int16, static_cast<std::int16_t>(Value));
  if (std::in_range<std::int32_t>(Value)) return WriteNumber(TValueType::Int32, static_cast<std::int32_t>(Value));
  WriteNumber(TValueType::Int64, Value);
}

void TWriter::WriteFloat(double Value) { WriteNumber(TValueType::Double, std::bit_cast<std::uint64_t>(Value)); }

void TWriter::WriteBoolean(bool Value) { WriteTag(Value ? TValueType::True : TValueType::False); }

void TWriter::WriteString(std::string_view Value) {
  if (Value.size() > std::numeric_limits<std::uint32_t>::max() / 2)
    throw EStreamError(Format(LoadResString(_sTextTooLong), {static_cast<std::int64_t>(Value.size())}));
  if (Value.size() < 256) {
    WriteNumber(TValueType::String, static_cast<std::uint8_t>(Value.size()));
  } else {
    WriteNumber(TValueType::LString, static_cast<std::uint32_t>(Value.size()));
  }
  Write(Value.data(), Value.size());
}

void TWriter::WriteIdent(std::string_view Value) {
  WriteNumber(TValueType::Ident, static_cast<std::uint32_t>(Value.size()));
  Write(Value.data(), Value.size());
}

void TWriter::WriteVariant(const TVariant& Value) {
  if (Value.IsNull()) return WriteTag(TValueType::Null);
  if (Value.IsBoolean()) return WriteBoolean(Value.AsBoolean());
  if (Value.IsInteger()) return WriteInteger(Value.AsInteger());
  if (Value.IsReal()) return WriteFloat(Value.AsReal());
  if (Value.IsText()) return WriteString(Value.AsText());
  const TVariant::TArray& Elements = Value.AsArray();
  WriteNumber(TValueType::Array, static_cast<std::uint32_t>(Elements.size()));
  for (const TVariant& Element : Elements) WriteVariant(Element);
}

void TWriter::WriteRootComponent(TComponent& Component) {
  FRoot = &Component;
  Write(RootSignature.data(), RootSignature.size());
  WriteComponent(Component);
}

void TWriter::WriteComponent(TComponent& Component) {
  WriteString(Component.ClassName());
  WriteString(Component.Name());
  const std::string OuterPath = std::exchange(FPath, {});
  WriteProperties(Component);
  FPath = OuterPath;
  WriteListEnd();
  Component.GetChildren([this](TComponent* Child) { WriteComponent(*Child); }, FRoot);
  WriteListEnd();
}

void TWriter::WritePropName(std::string_view Name) {
  if (FPath.empty()) return WriteString(Name);
  WriteString(FPath + std::string(Name));
}

void TWriter::WriteProperties(TPersistent& Instance) {
  for (const TPropInfo* Info : Instance.ClassInfo().Properties())
    if (Info->IsStored(Instance)) WriteProperty(Instance, *Info);
  Instance.DefineProperties(*this);
}

void TWriter::WriteProperty(TPersistent& Instance, const TPropInfo& Info) {
  if (Info.Kind == TPropKind::Method) return;
  if (Info.Kind == TPropKind::Class) return WriteObjectProperty(Instance, Info);
  if (!FWritesDefaults && Info.IsDefault(Instance)) return;
  WritePropName(Info.Name);
  switch (Info.Kind) {
    case TPropKind::Enumeration: {
      const auto Ordinal = static_cast<std::size_t>(Info.GetOrd(Instance));
      if (Info.Values == &EnumInfo(bool{})) return WriteBoolean(Ordinal != 0);
      if (Ordinal < Info.Values->Values.size()) return WriteIdent(Info.Values->Values[Ordinal]);
      return WriteInteger(Info.GetOrd(Instance));
    }
    case TPropKind::Float:
      return WriteFloat(Info.GetFloat(Instance));
    case TPropKind::String:
      return WriteString(Info.GetStr(Instance));
    case TPropKind::DynArray:
    case TPropKind::Variant:
      return WriteVariant(Info.GetVariant(Instance));
    default:
      return WriteInteger(Info.GetOrd(Instance));
  }
}

void TWriter::WriteObjectProperty(TPersistent& Instance, const TPropInfo& Info) {
  if (TPersistent* const Part = PartOf(Instance, Info)) {
    const std::size_t Outer = FPath.size();
    FPath.append(Info.Name).append(1, '.');
    WriteProperties(*Part);
    FPath.resize(Outer);
    return;
  }
  if (Info.IsOwnedObject || Info.IsReadOnly) return;
  const auto* const Component = dynamic_cast<TComponent*>(Info.GetObject(Instance));
  WritePropName(Info.Name);
  const std::string Path = Component != nullptr && Component == FRoot ? "." : ComponentPath(Component, FRoot);
  if (Path.empty()) return WriteTag(TValueType::Nil);
  WriteIdent(Path);
}

void TWriter::DefineProperty(std::string_view Name, const TReaderProc&, const TWriterProc& WriteProc, bool HasData) {
  if (!HasData && !FWritesDefaults) return;
  WritePropName(Name);
  WriteProc(*this);
}

}  // namespace zy
