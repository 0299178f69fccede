#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>

#include "platform/framework/TStream.h"

namespace zy {

class IXMLNode;
class TComponent;
class TReader;
class TWriter;

/// A value that stands in a stream record in the in-memory width of its field.
template <class T>
concept TStreamValue = std::is_arithmetic_v<T> || std::is_enum_v<T>;

namespace detail {

/// Turns the bytes of each element around on a machine that keeps numbers the other way.
void ToLittleEndian(void* Bytes, std::size_t Count, std::size_t Width);

}  // namespace detail

/// Writes a number, a boolean or an enumeration in little-endian order: booleans and enumerations as one byte.
template <TStreamValue T>
void ToStream(TStream& Stream, T Value) {
  if constexpr (std::is_enum_v<T> || std::is_same_v<T, bool>) {
    const auto Byte = static_cast<std::uint8_t>(Value);
    Stream.WriteBuffer(&Byte, 1);
  } else {
    detail::ToLittleEndian(&Value, 1, sizeof(T));
    Stream.WriteBuffer(&Value, sizeof(T));
  }
}

/// Inverse of ToStream. Throws EReadError when the stream is at its end. An ordinal is not tested against its
/// enumeration: the property's setter is.
template <TStreamValue T>
T FromStream(TStream& Stream) {
  if constexpr (std::is_enum_v<T> || std::is_same_v<T, bool>) {
    std::uint8_t Byte = 0;
    Stream.ReadBuffer(&Byte, 1);
    if constexpr (std::is_enum_v<T>)
      return static_cast<T>(Byte);
    else
      return Byte != 0;
  } else {
    T Value;
    Stream.ReadBuffer(&Value, sizeof(T));
    detail::ToLittleEndian(&Value, 1, sizeof(T));
    return Value;
  }
}

/// Writes numbers one after the other, without their count.
void ArrayToStream(TStream& Stream, std::span<const double> Values);
void ArrayToStream(TStream& Stream, std::span<const std::int32_t> Values);
/// Fills Values from the stream. Throws EReadError when they are cut off.
void ArrayFromStream(TStream& Stream, std::span<double> Values);
void ArrayFromStream(TStream& Stream, std::span<std::int32_t> Values);

/// Throws EReadError when the stream cannot hold Count more elements of Width bytes each.
void RequireRemaining(TStream& Stream, std::int32_t Count, int Width);

/// Reads a 32-bit count of elements of Width bytes each; negative means none. Throws EReadError, with nothing
/// allocated, when the stream cannot hold so many.
int CountFromStream(TStream& Stream, int Width);

/// A text as its 32-bit byte length and its bytes in UTF-8; names and references.
void StringToStream(TStream& Stream, std::string_view Text);
/// Inverse of StringToStream; a length of 0 or below is the empty text. Throws EReadError when the text is cut off.
std::string StringFromStream(TStream& Stream);
/// The same pair for caption texts.
inline void EncodeToStream(TStream& Stream, std::string_view Text) { StringToStream(Stream, Text); }
inline std::string DecodeFromStream(TStream& Stream) { return StringFromStream(Stream); }

/// The flag behind a group of fields: whether a further group follows. A record ends with false.
inline void ContinuationToStream(TStream& Stream, bool Follows) { ToStream(Stream, Follows); }
inline bool ContinuationFromStream(TStream& Stream) { return FromStream<bool>(Stream); }

/// Text for an INI value, with each carriage return as "@\r" in three characters, and back.
std::string EncodeForIni(std::string_view Text);
std::string DecodeFomIni(std::string_view Text);

/// Writes a real into a component stream as its shortest text, which no locale changes.
void StoreFloatToString(TWriter& Writer, double Value);
/// Reads such a text, or a real in binary form as older files have it.
double GetFloatFromStringOrFloat(TReader& Reader);

/// The dotted text by which objects refer to each other: the names of the owners below the application and of the
/// component itself. Empty for null, for a component without a name, or when an owner on the way has none.
std::string GetComponentRef(const TComponent* Component);
/// The component of such a text; the first name is looked up among the data modules, then among the forms. Null when
/// any part is missing.
TComponent* GetComponentFromRef(std::string_view Ref);
/// All before the last ".", or empty.
std::string_view OwnerName(std::string_view Ref);
/// All behind the last ".", or the whole text.
std::string_view ComponentName(std::string_view Ref);
/// The component of OwnerName, null when it cannot be found; the application object for a reference without owner.
TComponent* RefOwner(std::string_view Ref);
/// Base followed by 1, 2, ...: the first such name that Owner does not own. With a null owner, Base followed by 1.
std::string UniqueName(const TComponent* Owner, std::string_view Base);
/// The system's folder for temporary files.
std::filesystem::path GetTemporaryPath();

/// Whether Node has a child of exactly this name.
bool ContainsNode(const IXMLNode& Node, std::string_view Name);

}  // namespace zy
