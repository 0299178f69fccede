#pragma once

#include <vector>

#include "persistence/ZyTextArchive.h"
#include "platform/framework/XmlNode.h"

namespace zy {

/// Writes fields as attributes of a node and of nodes below it. Booleans are "true" and "false".
class TZyXmlWriter : public TZyTextWriter {
 public:
  explicit TZyXmlWriter(const IXMLNode& Node) : FNodes{Node} {}
  bool IsXml() const override { return true; }
  /// The node of the object whose fields are written.
  const IXMLNode& Node() const { return FNodes.back(); }

 protected:
  using TZyTextWriter::Visit;
  bool Visit(const TZyFieldName& Name, bool& Value) override;
  bool Visit(const TZyFieldName& Name, std::string& Value) override;
  void Put(const TZyFieldName& Name, std::string_view Text) override;
  bool BeginPart(const TZyFieldName& Name) override;
  void EndPart() override { FNodes.pop_back(); }
  void BeginLevel(const char* Name) override;
  void EndLevel() override { FNodes.pop_back(); }

 private:
  std::vector<IXMLNode> FNodes;
};

/// Reads such attributes. Throws EXMLError for one, or for a node, that is absent and is no later addition.
class TZyXmlReader : public TZyTextReader {
 public:
  explicit TZyXmlReader(const IXMLNode& Node) : FNodes{Node} {}
  bool IsXml() const override { return true; }
  /// The node of the object whose fields are read.
  const IXMLNode& Node() const { return FNodes.back(); }

 protected:
  std::optional<std::string> Get(const TZyFieldName& Name) const override;
  [[noreturn]] void Mistyped(const TZyFieldName& Name, std::string_view Text) const override;
  bool BeginPart(const TZyFieldName& Name) override;
  void EndPart() override { FNodes.pop_back(); }
  void BeginLevel(const char* Name) override;
  void EndLevel() override { FNodes.pop_back(); }

 private:
  std::vector<IXMLNode> FNodes;
};

}  // namespace zy
