#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "platform/framework/XmlNode.h"

namespace zy {

class TStream;

/// An XML document: one root element and its way from and to text in UTF-8.
///
/// Reading is strict: the text is well-formed, in UTF-8 whatever its declaration says, has no document type declaration
/// and so no entities beyond the five of XML, and nests no deeper than MaxXmlDepth. Comments and processing
/// instructions are kept.
class TXMLDocument {
 public:
  /// An empty document, to load into.
  TXMLDocument();
  /// A document with a root element of that name. Throws EXMLError when it is no XML name.
  explicit TXMLDocument(std::string_view RootName);
  ~TXMLDocument();
  TXMLDocument(const TXMLDocument&) = delete;
  TXMLDocument& operator=(const TXMLDocument&) = delete;

  /// The root element; null while the document is empty.
  IXMLNode DocumentElement() const;

  /// Replaces the content; nodes of the former content keep it alive, apart from this document. Throws EXMLError, with
  /// the content unchanged, for a malformed text: the message has SourceName, line and column (in characters), both
  /// counted from 1, and the reason. Where an element is at fault as a whole the place is the one of its name.
  void LoadFromText(std::string_view Text, std::string_view SourceName = "text");
  /// The same with what the stream holds from its position to its end.
  void LoadFromStream(TStream& Stream, std::string_view SourceName = "text");
  /// The same with a file. Throws EFileError when it cannot be opened.
  void LoadFromFile(const std::filesystem::path& FileName);

  /// The document with a declaration, indented by two blanks a level where that leaves all texts alone. Throws
  /// EXMLError for an empty document.
  std::string SaveToText() const;
  void SaveToStream(TStream& Stream) const;
  /// Throws EFileError, with the old file whole, when the file cannot be written.
  void SaveToFile(const std::filesystem::path& FileName) const;

 private:
  std::shared_ptr<pugi::xml_document> FDocument;
};

}  // namespace zy
