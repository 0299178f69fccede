#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace zy {

class IXMLNode;
class TCustomIniFile;
class TStream;
class TZyArchive;

/// An object that can be stored in the three forms: a component of a chart or a settings object. It tells its fields
/// once, in Fields; everything else is done here.
///
/// Readers run the setters and throw what the form throws: EReadError for a stream that is cut off, EXMLError for a
/// node or an attribute that is absent, EConvertError for a text of another kind. The text of the error begins with the
/// object and the field. What was read before stays, and the object is usable.
class TZyRecord {
 public:
  virtual ~TZyRecord() = default;

  /// Tells the archive of each field, in the order of the stream; see TZyArchive. An heir calls the inherited operation
  /// first, then has a Level of its own. A writer runs getters alone.
  virtual void Fields(TZyArchive& Archive) = 0;
  /// Name of the object's node in XML; by default that of its class.
  virtual std::string RecordName() const;

  /// The record at the stream's position: numbers little-endian.
  void WriteTo(TStream& Stream) const;
  void ReadFrom(TStream& Stream);
  /// A file of the stream's form, which takes the place of an old one when it is complete. Throw EFileError, naming the
  /// file, when it cannot be written or opened.
  void WriteTo(const std::filesystem::path& FileName) const;
  void ReadFrom(const std::filesystem::path& FileName);
  /// A new child of Node; and the object's node, either Node itself or the first such child of it.
  void WriteTo(const IXMLNode& Node) const;
  void ReadFrom(const IXMLNode& Node);
  /// The fields in Node itself.
  void WriteToInner(const IXMLNode& Node) const;
  void ReadFromInner(const IXMLNode& Node);
  /// Keys of a section.
  void WriteTo(TCustomIniFile& Ini, std::string_view Section) const;
  void ReadFrom(const TCustomIniFile& Ini, std::string_view Section);

  /// Fields, between BeginRead and EndRead in a reader, whose errors get the name of the object and of the field.
  void Visit(TZyArchive& Archive);

 protected:
  /// Around all of Fields in a reader, those of heirs included; also when it fails.
  virtual void BeginRead() {}
  virtual void EndRead() {}
};

// ---- Records of settings objects, whose owner names them ----

void ToStream(TStream& Stream, const TZyRecord& Object);
void FromStream(TStream& Stream, TZyRecord& Object);
/// A new child of Node of that name; without a name that of RecordName. The values are its attributes.
void ToNode(const IXMLNode& Node, const TZyRecord& Object, std::string_view Name);
void ToNode(const IXMLNode& Node, const TZyRecord& Object);
/// From the first child of Node of that name.
void FromNode(const IXMLNode& Node, TZyRecord& Object, std::string_view Name);
void FromNode(const IXMLNode& Node, TZyRecord& Object);
/// Keys of a section, with the prefix and a point in front.
void ToIni(TCustomIniFile& Ini, std::string_view Section, std::string_view Prefix, const TZyRecord& Object);
void FromIni(const TCustomIniFile& Ini, std::string_view Section, std::string_view Prefix, TZyRecord& Object);

}  // namespace zy
