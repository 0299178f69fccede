#pragma once

#include <string_view>

#include "persistence/ZyIniArchive.h"
#include "persistence/ZyStreamArchive.h"
#include "persistence/ZyXmlArchive.h"

namespace zy {

class TZyAreaSettings;
class TZyFont;
class TZyGradientSettings;
class TZyLineSettings;
class TZySimpleLineSettings;

// ---- The fields of each settings class; classes that own such objects visit them as parts ----

void Fields(TZyArchive& Archive, TZyGradientSettings& Settings);
void Fields(TZyArchive& Archive, TZySimpleLineSettings& Settings);
void Fields(TZyArchive& Archive, TZyLineSettings& Settings);
void Fields(TZyArchive& Archive, TZyAreaSettings& Settings);
void Fields(TZyArchive& Archive, TZyFont& Settings);

/// A class whose fields are told to archives by a function Fields.
template <class T>
concept TZyRecord = requires(TZyArchive& Archive, T& Object) {
  Fields(Archive, Object);
};

namespace detail {

/// A writer only runs getters, some of which give parts of the object and so are not const.
template <class T>
void WriteFields(TZyArchive& Archive, const T& Object) {
  Fields(Archive, const_cast<T&>(Object));
}

}  // namespace detail

// ---- Records of such classes in the three forms ----
//
// Readers run the setters and throw what their archive throws: EReadError, EStreamError, EXMLError, EConvertError. What
// was read before stays.

/// The record at the stream's position: little-endian, ending with a byte 0.
template <TZyRecord T>
void ToStream(TStream& Stream, const T& Object) {
  TZyStreamWriter Writer(Stream);
  detail::WriteFields(Writer, Object);
}

template <TZyRecord T>
void FromStream(TStream& Stream, T& Object) {
  TZyStreamReader Reader(Stream);
  Fields(Reader, Object);
}

/// A new child of Node with the values as attributes.
template <TZyRecord T>
void ToNode(const IXMLNode& Node, const T& Object, std::string_view Name) {
  TZyXmlWriter Writer(Node);
  Writer.Part(Name, [&] { detail::WriteFields(Writer, Object); });
}

/// The same with the fixed names of two classes: "Line" and "Font".
void ToNode(const IXMLNode& Node, const TZySimpleLineSettings& Settings);
void ToNode(const IXMLNode& Node, const TZyFont& Settings);
void ToNode(const IXMLNode& Node, const TZyLineSettings& Settings) = delete;  // would lose Visible

/// From the child of Node of that name.
template <TZyRecord T>
void FromNode(const IXMLNode& Node, T& Object, std::string_view Name) {
  TZyXmlReader Reader(Node);
  Reader.Part(Name, [&] { Fields(Reader, Object); });
}

void FromNode(const IXMLNode& Node, TZySimpleLineSettings& Settings);
void FromNode(const IXMLNode& Node, TZyFont& Settings);
void FromNode(const IXMLNode& Node, TZyLineSettings& Settings) = delete;

/// Keys of a section, with the prefix and a point in front.
template <TZyRecord T>
void ToIni(TCustomIniFile& Ini, std::string_view Section, std::string_view Prefix, const T& Object) {
  TZyIniWriter Writer(Ini, Section);
  Writer.Part(Prefix, [&] { detail::WriteFields(Writer, Object); });
}

template <TZyRecord T>
void FromIni(const TCustomIniFile& Ini, std::string_view Section, std::string_view Prefix, T& Object) {
  TZyIniReader Reader(Ini, Section);
  Reader.Part(Prefix, [&] { Fields(Reader, Object); });
}

}  // namespace zy
