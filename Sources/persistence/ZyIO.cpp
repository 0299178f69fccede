#include "persistence/ZyIO.h"

#include <algorithm>
#include <bit>

#include "graph/values/ZyStringFunctions.h"
#include "platform/framework/Application.h"
#include "platform/framework/ComponentPath.h"
#include "platform/framework/TReader.h"
#include "platform/framework/TWriter.h"
#include "platform/framework/XmlNode.h"
#include "texts/Exceptions.h"
#include "texts/NumberText.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

constexpr std::string_view IniReturn = "@\\r";

}  // namespace

void detail::ToLittleEndian(void* Bytes, std::size_t Count, std::size_t Width) {
  if constexpr (std::endian::native == std::endian::big) {
    auto* Element = static_cast<std::byte*>(Bytes);
    for (; Count > 0; --Count, Element += Width) std::reverse(Element, Element + Width);
  }
}

template <class T>
static void WriteArray(TStream& Stream, std::span<const T> Values) {
  if constexpr (std::endian::native == std::endian::little) {
    Stream.WriteBuffer(Values.data(), Values.size_bytes());
  } else {
    for (const T Value : Values) ToStream(Stream, Value);
  }
}

template <class T>
static void ReadArray(TStream& Stream, std::span<T> Values) {
  Stream.ReadBuffer(Values.data(), Values.size_bytes());
  detail::ToLittleEndian(Values.data(), Values.size(), sizeof(T));
}

void ArrayToStream(TStream& Stream, std::span<const double> Values) { WriteArray(Stream, Values); }

void ArrayToStream(TStream& Stream, std::span<const std::int32_t> Values) { WriteArray(Stream, Values); }

void ArrayFromStream(TStream& Stream, std::span<double> Values) { ReadArray(Stream, Values); }

void ArrayFromStream(TStream& Stream, std::span<std::int32_t> Values) { ReadArray(Stream, Values); }

void RequireRemaining(TStream& Stream, std::int32_t Count, int Width) {
  const std::int64_t Wanted = std::int64_t{Count} * Width;
  if (Wanted > Stream.Remaining())
    throw EReadError(Format(LoadResString(_sReadBeyondEnd), {Wanted, Stream.Remaining()}));
}

int CountFromStream(TStream& Stream, int Width) {
  const auto Count = FromStream<std::int32_t>(Stream);
  if (Count <= 0) return 0;
  RequireRemaining(Stream, Count, Width);
  return Count;
}

void StringToStream(TStream& Stream, std::string_view Text) {
  ToStream(Stream, static_cast<std::int32_t>(Text.size()));
  Stream.WriteBuffer(Text.data(), Text.size());
}

std::string StringFromStream(TStream& Stream) {
  std::string Text(static_cast<std::size_t>(CountFromStream(Stream, 1)), '\0');
  Stream.ReadBuffer(Text.data(), Text.size());
  return Text;
}

std::string EncodeForIni(std::string_view Text) {
  std::string Result;
  for (const char C : Text) {
    if (C == '\r') {
      Result += IniReturn;
    } else {
      Result += C;
    }
  }
  return Result;
}

std::string DecodeFomIni(std::string_view Text) {
  std::string Result;
  for (std::size_t At = Text.find(IniReturn); At != std::string_view::npos; At = Text.find(IniReturn)) {
    Result.append(Text.substr(0, At)).append(1, '\r');
    Text.remove_prefix(At + IniReturn.size());
  }
  return Result.append(Text);
}

void StoreFloatToString(TWriter& Writer, double Value) { Writer.WriteString(DoubleToStr(Value)); }

double GetFloatFromStringOrFloat(TReader& Reader) {
  const TValueType Next = Reader.NextValue();
  const bool IsText = Next >= TValueType::String && Next <= TValueType::UString;
  return IsText ? DoubleFromStr(Reader.ReadString()) : Reader.ReadFloat();
}

std::string GetComponentRef(const TComponent* Component) { return ComponentPath(Component); }

TComponent* GetComponentFromRef(std::string_view Ref) { return ComponentFromPath(Ref); }

std::string_view OwnerName(std::string_view Ref) {
  const std::size_t Dot = Ref.rfind('.');
  return Dot == std::string_view::npos ? std::string_view() : Ref.substr(0, Dot);
}

std::string_view ComponentName(std::string_view Ref) { return Ref.substr(Ref.rfind('.') + 1); }

TComponent* RefOwner(std::string_view Ref) {
  const std::string_view Owner = OwnerName(Ref);
  return Owner.empty() ? &Application() : GetComponentFromRef(Owner);
}

std::string UniqueName(const TComponent* Owner, std::string_view Base) {
  return Owner == nullptr ? std::string(Base) + '1' : Owner->FirstFreeName(Base);
}

std::filesystem::path GetTemporaryPath() { return std::filesystem::temp_directory_path(); }

bool ContainsNode(const IXMLNode& Node, std::string_view Name) { return Node.ContainsNode(Name); }

}  // namespace zy
