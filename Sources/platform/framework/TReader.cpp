#include "platform/framework/TReader.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "platform/framework/ComponentPath.h"
#include "platform/framework/Reflection.h"
#include "platform/framework/TComponent.h"
#include "texts/Exceptions.h"
#include "texts/Utf8.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

constexpr std::string_view TagNames[] = {
    "end of list", "list",      "8-bit integer", "16-bit integer", "32-bit integer", "64-bit integer", "real", "text",
    "long text",   "wide text", "Unicode text",  "name",           "False",          "True",           "nil",  "array"};

[[noreturn]] void Mistyped(TValueType Found, std::string_view Wanted) {
  throw EReadError(Format(LoadResString(_sMistypedValue), {TagNames[static_cast<std::size_t>(Found)], Wanted}));
}

bool IsText(TValueType Tag) { return Tag >= TValueType::String && Tag <= TValueType::UString; }
bool IsInteger(TValueType Tag) { return Tag >= TValueType::Int8 && Tag <= TValueType::Int64; }

/// UTF-16 little endian to UTF-8; a lone surrogate becomes the replacement character.
std::string FromUtf16(std::string_view Bytes) {
  const auto Unit = [Bytes](std::size_t Index) {
    return static_cast<std::uint32_t>(static_cast<unsigned char>(Bytes[2 * Index])) |
           static_cast<std::uint32_t>(static_cast<unsigned char>(Bytes[2 * Index + 1])) << 8;
  };
  std::string Text;
  const std::size_t Count = Bytes.size() / 2;
  for (std::size_t Index = 0; Index < Count; ++Index) {
    std::uint32_t Code = Unit(Index);
    const bool High = Code >= 0xD800 && Code < 0xDC00;
    if (High && Index + 1 < Count && Unit(Index + 1) >> 10 == 0x37) {
      Code = 0x10000 + ((Code & 0x3FF) << 10) + (Unit(++Index) & 0x3FF);
    }
    AppendUtf8(Text, Code);
  }
  return Text;
}

}  // namespace

/// Counts a level of nesting and refuses one too many.
class TReader::TDepth {
 public:
  explicit TDepth(TReader& Reader) : FReader(Reader) {
    if (FReader.FDepth >= MaxStreamDepth) throw EReadError(Format(LoadResString(_sStreamTooDeep), {MaxStreamDepth}));
    ++FReader.FDepth;
  }
  ~TDepth() { --FReader.FDepth; }
  TDepth(const TDepth&) = delete;
  TDepth& operator=(const TDepth&) = delete;

 private:
  TReader& FReader;
};

TReader::TReader(TStream& Stream, std::size_t BufferSize) : TFiler(Stream, std::max<std::size_t>(BufferSize, 16)) {}

TReader::~TReader() { EndReferences(); }

void TReader::Read(void* Bytes, std::size_t Count) {
  auto* To = static_cast<std::byte*>(Bytes);
  while (Count > 0) {
    if (FUsed == FFilled) {
      FUsed = 0;
      FFilled = FStream.Read(FBuffer.get(), FBufferSize);
      if (FFilled == 0) throw EReadError(Format(LoadResString(_sReadBeyondEnd), {static_cast<std::int64_t>(Count), 0}));
    }
    const std::size_t Part = std::min(Count, FFilled - FUsed);
    std::memcpy(To, FBuffer.get() + FUsed, Part);
    FUsed += Part;
    To += Part;
    Count -= Part;
  }
}

std::int64_t TReader::Position() { return FStream.Position() - static_cast<std::int64_t>(FFilled - FUsed); }

void TReader::SetPosition(std::int64_t Value) {
  FUsed = FFilled = 0;
  FStream.SetPosition(Value);
}

void TReader::FlushBuffer() { SetPosition(Position()); }

std::int64_t TReader::Remaining() { return FStream.Size() - Position(); }

TValueType TReader::ReadTag() {
  std::uint8_t Tag = 0;
  Read(&Tag, 1);
  if (Tag > static_cast<std::uint8_t>(TValueType::Last))
    throw EReadError(Format(LoadResString(_sUnknownTag), {std::int64_t{Tag}, Position() - 1}));
  return static_cast<TValueType>(Tag);
}

TValueType TReader::NextValue() {
  const TValueType Tag = ReadTag();
  --FUsed;  // the tag is the last byte taken from the buffer
  return Tag;
}

template <class T>
T TReader::ReadNumber() {
  std::uint8_t Bytes[sizeof(T)];
  Read(Bytes, sizeof Bytes);
  std::uint64_t Bits = 0;
  for (std::size_t Index = sizeof(T); Index-- > 0;) Bits = Bits << 8 | Bytes[Index];
  return static_cast<T>(Bits);
}

/// Reads a count of elements of at least Width bytes, and refuses one that the stream cannot hold.
std::size_t TReader::ReadCount(std::size_t Width) {
  const std::int64_t Count = ReadNumber<std::uint32_t>();
  const std::int64_t Wanted = Count * static_cast<std::int64_t>(Width);
  if (Wanted > Remaining()) throw EReadError(Format(LoadResString(_sReadBeyondEnd), {Wanted, Remaining()}));
  return static_cast<std::size_t>(Count);
}

std::string TReader::ReadBytes(std::size_t Count) {
  if (static_cast<std::int64_t>(Count) > Remaining())
    throw EReadError(Format(LoadResString(_sReadBeyondEnd), {static_cast<std::int64_t>(Count), Remaining()}));
  std::string Bytes(Count, '\0');
  Read(Bytes.data(), Count);
  return Bytes;
}

std::int64_t TReader::ReadIntegerOf(TValueType Tag) {
  switch (Tag) {
    case TValueType::Int8:
      return ReadNumber<std::int8_t>();
    case TValueType::Int16:
      return ReadNumber<std::int16_t>();
    case TValueType::Int32:
      return ReadNumber<std::int32_t>();
    case TValueType::Int64:
      return ReadNumber<std::int64_t>();
    default:
      Mistyped(Tag, "integer");
  }
}

std::int64_t TReader::ReadInteger() { return ReadIntegerOf(ReadTag()); }

double TReader::ReadFloat() {
  const TValueType Tag = ReadTag();
  if (Tag == TValueType::Double) return std::bit_cast<double>(ReadNumber<std::uint64_t>());
  if (!IsInteger(Tag)) Mistyped(Tag, "real");
  return static_cast<double>(ReadIntegerOf(Tag));
}

bool TReader::ReadBoolean() {
  const TValueType Tag = ReadTag();
  if (Tag != TValueType::True && Tag != TValueType::False) Mistyped(Tag, "boolean");
  return Tag == TValueType::True;
}

std::string TReader::ReadTextOf(TValueType Tag) {
  switch (Tag) {
    case TValueType::String:
      return ReadBytes(ReadNumber<std::uint8_t>());
    case TValueType::WString:
      return FromUtf16(ReadBytes(2 * ReadCount(2)));
    case TValueType::LString:
    case TValueType::UString:
    case TValueType::Ident:
      return ReadBytes(ReadCount(1));
    default:
      Mistyped(Tag, "text");
  }
}

std::string TReader::ReadString() {
  const TValueType Tag = ReadTag();
  if (!IsText(Tag)) Mistyped(Tag, "text");
  return ReadTextOf(Tag);
}

std::string TReader::ReadIdent() {
  const TValueType Tag = ReadTag();
  if (Tag != TValueType::Ident) Mistyped(Tag, "name");
  return ReadTextOf(Tag);
}

TVariant TReader::ReadVariant() {
  const TValueType Tag = ReadTag();
  if (Tag == TValueType::Null) return {};
  if (Tag == TValueType::False || Tag == TValueType::True) return Tag == TValueType::True;
  if (Tag == TValueType::Double) return std::bit_cast<double>(ReadNumber<std::uint64_t>());
  if (IsInteger(Tag)) return static_cast<long long>(ReadIntegerOf(Tag));
  if (IsText(Tag)) return ReadTextOf(Tag);
  if (Tag != TValueType::Array) Mistyped(Tag, "variant");
  const TDepth Depth(*this);
  TVariant::TArray Elements;  // grows with what is really there: the count alone must not decide what is allocated
  for (std::size_t Left = ReadCount(1); Left > 0; --Left) Elements.push_back(ReadVariant());
  return Elements;
}

void TReader::ReadListBegin() {
  if (const TValueType Tag = ReadTag(); Tag != TValueType::List) Mistyped(Tag, "list");
}

void TReader::ReadListEnd() {
  if (const TValueType Tag = ReadTag(); Tag != TValueType::Null) Mistyped(Tag, "end of list");
}

void TReader::SkipValue() { SkipContent(ReadTag()); }

void TReader::SkipContent(TValueType Tag) {
  const TDepth Depth(*this);
  if (Tag == TValueType::List) {
    while (!EndOfList()) SkipValue();
    ReadListEnd();
  } else if (Tag == TValueType::Array) {
    for (std::size_t Left = ReadCount(1); Left > 0; --Left) SkipValue();
  } else if (IsText(Tag) || Tag == TValueType::Ident) {
    ReadTextOf(Tag);
  } else if (IsInteger(Tag)) {
    ReadIntegerOf(Tag);
  } else if (Tag == TValueType::Double) {
    ReadNumber<std::uint64_t>();
  }
}

void TReader::BeginReferences() { EndReferences(); }

void TReader::FixupReferences() {
  for (const TReference& Reference : FReferences) {
    TPersistent* const Instance = TPersistent::FromLiveHandle(Reference.Instance);
    if (Instance == nullptr) continue;
    TComponent* const Target = Reference.Path == "." ? FRoot : ComponentFromPath(Reference.Path, FRoot);
    const bool Fits = Target != nullptr && Target->ClassInfo().InheritsFrom(Reference.Info->ObjectClass());
    Reference.Info->SetObject(*Instance, Fits ? Target : nullptr);
  }
  FReferences.clear();
  for (const std::uint64_t Handle : FLoaded)
    if (auto* const Component = static_cast<TComponent*>(TPersistent::FromLiveHandle(Handle)))
      if (Component->IsLoading()) Component->Loaded();
}

void TReader::EndReferences() {
  for (const std::uint64_t Handle : FLoaded)
    if (auto* const Component = static_cast<TComponent*>(TPersistent::FromLiveHandle(Handle)))
      Component->FLoading = false;
  FReferences.clear();
  FLoaded.clear();
  FCreated.clear();
}

TComponent* TReader::ReadRootComponent(TComponent* Instance) {
  char Signature[RootSignature.size()];
  Read(Signature, sizeof Signature);
  if (std::string_view(Signature, sizeof Signature) != RootSignature) throw EReadError(LoadResString(_sNotAForm));
  FRoot = Instance;
  BeginReferences();
  try {
    TComponent* const Result = ReadComponent(Instance);
    FixupReferences();
    EndReferences();
    return Result;
  } catch (...) {
    DiscardCreated(0);
    EndReferences();
    throw;
  }
}

TComponent* TReader::ReadComponent(TComponent* Instance) { return ReadComponentInto(Instance, nullptr); }

/// The component of the root to fill, else a new one.
TComponent* TReader::FindOrCreate(const std::string& ClassName, const std::string& Name) {
  const TClassInfo& Info = FindClass(ClassName);
  if (FRoot != nullptr) {
    TComponent* const Known = FRoot->FindComponent(Name);
    // One that is being loaded has had its record; taking it again could put it inside itself.
    if (Known != nullptr && !Known->IsLoading() && &Known->ClassInfo() == &Info) return Known;
  }
  if (Info.Factory() == nullptr) throw EClassNotFound(Format(LoadResString(_sClassNotFound), {ClassName}));
  std::unique_ptr<TComponent> Component(Info.Factory()(FRoot));
  MarkLoading(*Component);  // else it would take its name for one that a designer gives, and set itself up
  if (Component->Name() != Name) Component->SetName(Name);
  if (FRoot == nullptr) FRoot = Component.get();
  FCreated.push_back(Component->LiveHandle());
  return Component.release();
}

TComponent* TReader::ReadComponentInto(TComponent* Instance, TComponent* Parent) {
  const TDepth Depth(*this);
  const std::size_t Before = FCreated.size();
  const std::string ClassName = ReadString();
  const std::string Name = ReadString();
  if (Instance != nullptr && !Instance->ClassInfo().InheritsFrom(FindClass(ClassName)))
    throw EReadError(Format(LoadResString(_sOtherClassStored), {ClassName, Instance->ClassName()}));
  TComponent* const Component = Instance != nullptr ? Instance : FindOrCreate(ClassName, Name);
  try {
    MarkLoading(*Component);
    if (Instance != nullptr && !Name.empty() && Name != Component->Name()) Component->SetName(Name);
    if (Parent != nullptr) Component->SetParentComponent(Parent);
    ReadProperties(*Component);
    while (!EndOfList()) ReadComponentInto(nullptr, Component);
    ReadListEnd();
    return Component;
  } catch (...) {
    MarkReading(*Component, false);
    DiscardCreated(Before);
    throw;
  }
}

/// Parts are read inside their component, and so are in its states.
void TReader::MarkLoading(TComponent& Component) {
  Component.FLoading = true;
  FLoaded.push_back(Component.LiveHandle());
  for (TComponent* Part : Component.Components())
    if (Part->IsSubComponent()) MarkLoading(*Part);
}

void TReader::MarkReading(TComponent& Component, bool Value) {
  Component.FReading = Value;
  for (TComponent* Part : Component.Components())
    if (Part->IsSubComponent()) MarkReading(*Part, Value);
}

/// Deletes what was made by this reader since then, the youngest first.
void TReader::DiscardCreated(std::size_t Since) {
  while (FCreated.size() > Since) {
    const std::uint64_t Handle = FCreated.back();
    FCreated.pop_back();
    TPersistent* const Created = TPersistent::FromLiveHandle(Handle);
    if (Created != nullptr && Created == FRoot) FRoot = nullptr;
    delete Created;
  }
}

void TReader::ReadProperties(TComponent& Component) {
  MarkReading(Component, true);
  while (!EndOfList()) ReadProperty(Component);
  ReadListEnd();
  MarkReading(Component, false);
}

void TReader::ReadProperty(TComponent& Component) {
  const std::string Path = ReadString();
  TPersistent* Instance = &Component;
  std::string_view Rest = Path;
  for (std::size_t Dot = Rest.find('.'); Dot != std::string_view::npos; Dot = Rest.find('.')) {
    const TPropInfo* const Info = GetPropInfo(*Instance, Rest.substr(0, Dot));
    TPersistent* const Part = Info != nullptr ? PartOf(*Instance, *Info) : nullptr;
    if (Part == nullptr) break;
    Instance = Part;
    Rest.remove_prefix(Dot + 1);
  }
  if (const TPropInfo* const Info = GetPropInfo(*Instance, Rest)) return ReadValue(*Instance, *Info);
  const std::string_view OuterName = std::exchange(FDefinedName, Rest);
  const bool OuterFound = std::exchange(FDefinedFound, false);
  const auto Leave = [&] {
    FDefinedName = OuterName;
    return std::exchange(FDefinedFound, OuterFound);
  };
  try {
    Instance->DefineProperties(*this);
  } catch (...) {
    Leave();
    throw;
  }
  if (!Leave()) throw EReadError(Format(LoadResString(_sPropNotInClass), {Component.ClassName(), Path}));
}

void TReader::DefineProperty(std::string_view Name, const TReaderProc& ReadProc, const TWriterProc&, bool) {
  if (FDefinedFound || Name != FDefinedName) return;
  FDefinedFound = true;
  ReadProc(*this);
}

void TReader::ReadValue(TPersistent& Instance, const TPropInfo& Info) {
  const TValueType Next = NextValue();
  switch (Info.Kind) {
    case TPropKind::Class:
      if (Next == TValueType::Nil) {
        ReadTag();
        if (!Info.IsOwnedObject && !Info.IsReadOnly) Info.SetObject(Instance, nullptr);
      } else if (Info.IsOwnedObject || Info.IsReadOnly) {
        Mistyped(Next, "part of the object");
      } else {
        FReferences.push_back({Instance.LiveHandle(), &Info, ReadIdent()});
      }
      return;
    case TPropKind::Float:
      return Info.SetFloat(Instance, ReadFloat());
    case TPropKind::String:
      return Info.SetStr(Instance, ReadString());
    case TPropKind::DynArray:
    case TPropKind::Variant:
      return Info.SetVariant(Instance, ReadVariant());
    case TPropKind::Method:
      return SkipValue();
    default:
      break;
  }
  if (Next == TValueType::False || Next == TValueType::True) {
    Info.SetOrd(Instance, ReadBoolean() ? 1 : 0);
  } else if (Next == TValueType::Ident) {
    Info.SetOrd(Instance, OrdinalFromText(Instance, Info, ReadIdent()));
  } else {
    Info.SetOrd(Instance, ReadInteger());
  }
}

}  // namespace zy
